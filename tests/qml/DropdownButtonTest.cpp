// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

class DropdownButtonTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage)
    {
        stage.show("Item { id: stand; anchors.fill: parent; property string done\n"
                   "DropdownButton { objectName: \"button\"; x: 20; y: 20; text: \"Добавить\"\n"
                   "QC2.MenuItem { objectName: \"lamp\"; text: \"Лампа\"; onTriggered: stand.done = text }\n"
                   "QC2.MenuItem { objectName: \"sensor\"; text: \"Датчик\"; onTriggered: stand.done = text } } }");
        return stage.item("button");
    }

    static bool isOpen(QQuickItem *button)
    {
        return button->property("menu").value<QObject *>()->property("opened").toBool();
    }

    static QString done(QQuickItem *button) { return button->parentItem()->property("done").toString(); }

private slots:

    void aClickOpensTheMenuBelow()
    {
        Stage stage;
        auto *button = show(stage);
        QVERIFY(!isOpen(button));
        QVERIFY(button->height() >= 48);

        stage.click(button);
        QTRY_VERIFY(isOpen(button));
        QVERIFY(stage.item("lamp")->mapToScene({0, 0}).y() >= button->mapToScene({0, button->height() / 2}).y());
        stage.click("sensor");

        QCOMPARE(done(button), QString("Датчик"));
        QTRY_VERIFY(!isOpen(button));
    }

    void aSecondClickCloses()
    {
        Stage stage;
        auto *button = show(stage);
        stage.click(button);
        QTRY_VERIFY(isOpen(button));

        stage.click(button);

        QTRY_VERIFY(!button->property("menu").value<QObject *>()->property("visible").toBool());
        QCOMPARE(done(button), QString());
    }

    void keysOpenAndChoose_data()
    {
        QTest::addColumn<int>("key");

        QTest::newRow("return") << int(Qt::Key_Return);
        QTest::newRow("enter") << int(Qt::Key_Enter);
        QTest::newRow("space") << int(Qt::Key_Space);
        QTest::newRow("down") << int(Qt::Key_Down);
    }

    void keysOpenAndChoose()
    {
        QFETCH(int, key);
        Stage stage;
        auto *button = show(stage);
        button->forceActiveFocus();

        stage.key(static_cast<Qt::Key>(key));
        QTRY_VERIFY(isOpen(button));
        stage.key(Qt::Key_Down);
        stage.key(Qt::Key_Return);

        QTRY_VERIFY(!isOpen(button));
        QCOMPARE(done(button), QString("Лампа"));
    }

    void escapeChoosesNothing()
    {
        Stage stage;
        auto *button = show(stage);
        stage.click(button);
        QTRY_VERIFY(isOpen(button));

        stage.key(Qt::Key_Escape);

        QTRY_VERIFY(!isOpen(button));
        QCOMPARE(done(button), QString());
        QTRY_COMPARE(stage.focusName(), QString("button"));
    }
};

ONDIRA_TEST(DropdownButtonTest)
#include "DropdownButtonTest.moc"
