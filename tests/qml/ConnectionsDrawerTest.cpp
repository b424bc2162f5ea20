// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

class ConnectionsDrawerTest : public TestBase
{
    Q_OBJECT

private:
    static void add(Stage &stage, const QStringList &names)
    {
        for (const auto &name : names)
            stage.connections.add(name, "127.0.0.1", "user-" + name, "p");
    }

    static QObject *show(Stage &stage, int callerWidth = 320)
    {
        stage.show("Rectangle { id: caller; objectName: 'caller'; width: " + QByteArray::number(callerWidth)
                   + "; height: 56 }\n ConnectionsDrawer { id: drawer; objectName: 'drawer'\n"
                     "property int adds: 0; property int edited: -1\n"
                     "onAddRequested: ++adds; onEditRequested: edited = row }\n"
                     "function openDrawer() { drawer.openAndStretch(caller) }");
        QMetaObject::invokeMethod(stage.window(), "openDrawer");
        auto *drawer = stage.object("drawer");
        Stage::waitFor([&] { return drawer->property("opened").toBool(); });
        stage.settle();
        return drawer;
    }

    static QStringList names(const Stage &stage)
    {
        QStringList found;
        for (int row = 0; row < stage.connections.rowCount(); ++row)
            found << stage.connections.data(stage.connections.index(row, 0), ConnectionsListModel::Name).toString();
        return found;
    }

private slots:
    void opensBelowItsCaller_data()
    {
        QTest::addColumn<int>("callerWidth");
        QTest::addColumn<int>("width");

        QTest::newRow("narrow caller") << 200 << 320;
        QTest::newRow("wide caller") << 500 << 500;
        QTest::newRow("caller beyond the window") << 5000 << 800;
    }

    void opensBelowItsCaller()
    {
        QFETCH(int, callerWidth);
        Stage stage;
        add(stage, {"a"});
        stage.show("Rectangle { id: caller; width: " + QByteArray::number(callerWidth)
                       + "; height: 56 }\n ConnectionsDrawer { id: drawer; objectName: 'drawer' }\n"
                         "function openDrawer() { drawer.openAndStretch(caller) }",
                   {800, 600});

        QMetaObject::invokeMethod(stage.window(), "openDrawer");

        auto *drawer = stage.object("drawer");
        QTRY_VERIFY(drawer->property("opened").toBool());
        QCOMPARE(drawer->property("y").toInt(), 56);
        QCOMPARE(drawer->property("x").toInt(), 0);
        QTEST(drawer->property("width").toInt(), "width");
    }

    void aClickActivatesAndCloses()
    {
        Stage stage;
        add(stage, {"a", "b", "c"});
        auto *drawer = show(stage);

        stage.click("connectionRow1");

        QCOMPARE(stage.connections.getCurrentIndex(), 1);
        QCOMPARE(stage.link.getCurrentLogin(), QString("user-b"));
        QCOMPARE(stage.link.operations, QStringList({"auth"}));
        QTRY_VERIFY(!drawer->property("visible").toBool());
    }

    void theActiveRowIsHighlighted()
    {
        Stage stage;
        add(stage, {"a", "b"});
        stage.connections.activate(1);
        show(stage);

        QVERIFY(!stage.item("connectionRow0")->property("highlighted").toBool());
        QVERIFY(stage.item("connectionRow1")->property("highlighted").toBool());
    }

    void whoMayEdit_data()
    {
        QTest::addColumn<bool>("locked");
        QTest::addColumn<QString>("group");
        QTest::addColumn<bool>("mayEdit");

        QTest::newRow("not locked, not connected") << false << "" << true;
        QTest::newRow("not locked, user") << false << "user" << true;
        QTest::newRow("not locked, admin") << false << "admin" << true;
        QTest::newRow("locked, not connected") << true << "" << false;
        QTest::newRow("locked, user") << true << "user" << false;
        QTest::newRow("locked, admin") << true << "admin" << true;
        QTest::newRow("locked, almost admin") << true << "Admin" << false;
    }

    void whoMayEdit()
    {
        QFETCH(bool, locked);
        QFETCH(QString, group);
        QFETCH(bool, mayEdit);
        Stage stage;
        add(stage, {"a"});
        if (!group.isEmpty())
            stage.link.logIn("someone", group);
        auto *drawer = show(stage);

        drawer->setProperty("locked", locked);

        QCOMPARE(stage.has("connectionMenuButton0"), mayEdit);
        stage.item("connectionRow0")->forceActiveFocus();
        stage.key(Qt::Key_F2);
        QCOMPARE(drawer->property("edited").toInt(), mayEdit ? 0 : -1);
    }

    void aLockedRowIsNotDeletedByKeyboard()
    {
        Stage stage;
        add(stage, {"a"});
        show(stage)->setProperty("locked", true);

        stage.item("connectionRow0")->forceActiveFocus();
        stage.key(Qt::Key_Delete);

        QCOMPARE(names(stage), QStringList({"a"}));
    }

    void aTemporaryRowHasNoMenu()
    {
        Stage stage;
        add(stage, {"a"});
        stage.connections.relogin(0, "guest", "");
        auto *drawer = show(stage);
        QCOMPARE(stage.connections.rowCount(), 2);

        QVERIFY(stage.has("connectionMenuButton0"));
        QVERIFY(!stage.has("connectionMenuButton1"));
        stage.item("connectionRow1")->forceActiveFocus();
        stage.key(Qt::Key_F2);
        stage.key(Qt::Key_Delete);

        QCOMPARE(drawer->property("edited").toInt(), -1);
        QCOMPARE(stage.connections.rowCount(), 2);
    }

    void menuEditsAndDeletes()
    {
        Stage stage;
        add(stage, {"a", "b", "c"});
        auto *drawer = show(stage);
        stage.click("connectionMenuButton1");
        QTRY_VERIFY(stage.has("deleteConnection1"));
        stage.settle();

        stage.click("deleteConnection1");
        QTRY_COMPARE(names(stage), QStringList({"a", "c"}));
        QVERIFY(drawer->property("opened").toBool());
        stage.settle();
        stage.click("connectionMenuButton1");
        QTRY_VERIFY(stage.has("editConnection1"));
        stage.settle();
        stage.click("editConnection1");

        QCOMPARE(drawer->property("edited").toInt(), 1);
        QTRY_VERIFY(!drawer->property("visible").toBool());
    }

    void isDrivenByKeyboard()
    {
        Stage stage;
        add(stage, {"a", "b", "c"});
        stage.connections.activate(0);
        auto *drawer = show(stage);
        QCOMPARE(stage.focusName(), QString("connectionRow0"));

        stage.key(Qt::Key_Down);
        stage.key(Qt::Key_Down);
        QCOMPARE(stage.focusName(), QString("connectionRow2"));
        stage.key(Qt::Key_Delete);
        QCOMPARE(names(stage), QStringList({"a", "b"}));
        stage.key(Qt::Key_Up);
        stage.key(Qt::Key_Down);
        QCOMPARE(stage.focusName(), QString("connectionRow1"));
        stage.key(Qt::Key_Return);

        QCOMPARE(stage.connections.getCurrentIndex(), 1);
        QTRY_VERIFY(!drawer->property("visible").toBool());
    }

    void theMenuIsDrivenByKeyboard()
    {
        Stage stage;
        add(stage, {"a"});
        auto *drawer = show(stage);
        stage.key(Qt::Key_Tab);
        QCOMPARE(stage.focusName(), QString("connectionMenuButton0"));
        stage.key(Qt::Key_Return);
        QTRY_VERIFY(stage.has("editConnection0"));
        stage.settle();

        stage.key(Qt::Key_Down);
        stage.key(Qt::Key_Return);

        QTRY_COMPARE(drawer->property("edited").toInt(), 0);
    }

    void addButtonIsReachedByTab()
    {
        Stage stage;
        add(stage, {"a"});
        auto *drawer = show(stage);

        stage.key(Qt::Key_Tab);
        stage.key(Qt::Key_Tab);
        QCOMPARE(stage.focusName(), QString("addConnectionButton"));
        stage.key(Qt::Key_Return);

        QCOMPARE(drawer->property("adds").toInt(), 1);
        QTRY_VERIFY(!drawer->property("visible").toBool());
    }

    void escapeAndAClickBesideClose()
    {
        Stage stage;
        add(stage, {"a"});
        auto *drawer = show(stage);
        stage.key(Qt::Key_Escape);
        QTRY_VERIFY(!drawer->property("visible").toBool());

        QMetaObject::invokeMethod(stage.window(), "openDrawer");
        QTRY_VERIFY(drawer->property("opened").toBool());
        stage.clickAt({1000, 700});

        QTRY_VERIFY(!drawer->property("visible").toBool());
        QCOMPARE(stage.connections.getCurrentIndex(), -1);
    }

    void aLongListScrolls()
    {
        Stage stage;
        QStringList many;
        for (int i = 0; i < 100; ++i)
            many << QStringLiteral("Сервер %1").arg(i);
        add(stage, many);
        auto *drawer = show(stage);

        QCOMPARE(stage.item("connectionsList")->height(), 320.0);
        QVERIFY(drawer->property("height").toInt() < 400);
        for (int i = 0; i < 99; ++i)
            stage.key(Qt::Key_Down);

        QCOMPARE(stage.focusName(), QString("connectionRow99"));
        auto *last = stage.item("connectionRow99");
        QTRY_VERIFY(last->mapToItem(stage.item("connectionsList"), QPointF(0, last->height())).y() <= 320.5);
    }

    void namesAreNoMarkupAndNoPlaces()
    {
        Stage stage;
        stage.connections.add("<b>%1</b> & %2", "10.0.0.1/%2", "%1", "");
        show(stage);

        QStringList texts;
        for (auto *item : stage.items([](QQuickItem *item) { return item->inherits("QQuickText"); })) {
            if (item->property("textFormat").toInt() == Qt::PlainText)
                texts << item->property("text").toString();
        }
        QVERIFY(texts.contains("<b>%1</b> & %2"));
        QVERIFY(texts.contains("10.0.0.1/%2, %1"));
    }
};

ONDIRA_TEST(ConnectionsDrawerTest)
#include "ConnectionsDrawerTest.moc"
