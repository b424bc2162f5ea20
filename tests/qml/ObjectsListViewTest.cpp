// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

using namespace Records;

class ObjectsListViewTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage)
    {
        stage.link.publishShopParts({part(1, "Этаж"), part(2, "Атриум"), part(3, "склад")});
        auto *view = stage.show("ObjectsListView { objectName: 'view'; width: 320; height: 480; focus: true\n"
                                "property var clickedUids: []\n"
                                "onShopPartClicked: clickedUids = clickedUids.concat([uid]) }");
        stage.link.operations.clear();
        return view;
    }
    static QStringList names(const Stage &stage)
    {
        QStringList texts;
        for (int i = 0; stage.has(QStringLiteral("objectRow%1").arg(i)); ++i)
            texts << stage.text(QStringLiteral("objectRow%1").arg(i));
        return texts;
    }
    static void openMenu(Stage &stage, int row)
    {
        stage.click(stage.item(QStringLiteral("objectRow%1").arg(row))->property("rightItem").value<QQuickItem *>());
        QTRY_VERIFY(stage.has("renameObject"));
        stage.settle();
    }

private slots:
    void rowsAreSortedByName()
    {
        Stage stage;
        show(stage);

        QTRY_COMPARE(names(stage), QStringList({"Атриум", "склад", "Этаж"}));
        stage.link.publishShopParts({part(1, "Этаж 10"), part(2, "Этаж 9"), part(4, "")});
        QTRY_COMPARE(names(stage), QStringList({"Без названия", "Этаж 9", "Этаж 10"}));
    }

    void aClickAsksForThePart()
    {
        Stage stage;
        auto *view = show(stage);
        QTRY_COMPARE(names(stage).size(), 3);

        stage.click("objectRow1");
        QCOMPARE(view->property("clickedUids").toStringList(), QStringList({text(3)}));
        stage.item("objectRow0")->forceActiveFocus();
        stage.key(Qt::Key_Return);
        QCOMPARE(view->property("clickedUids").toStringList(), QStringList({text(3), text(2)}));
        stage.key(Qt::Key_Down);
        stage.key(Qt::Key_Down);
        stage.key(Qt::Key_Enter);
        QCOMPARE(view->property("clickedUids").toStringList().value(2), text(1));
        QVERIFY(stage.link.operations.isEmpty());
    }

    void theCurrentOneIsHighlighted()
    {
        Stage stage;
        auto *view = show(stage);
        QTRY_COMPARE(names(stage).size(), 3);
        for (int i = 0; i < 3; ++i)
            QVERIFY(!stage.item(QStringLiteral("objectRow%1").arg(i))->property("highlighted").toBool());

        view->setProperty("currentUid", text(3));

        QVERIFY(stage.item("objectRow1")->property("highlighted").toBool());
        QVERIFY(!stage.item("objectRow0")->property("highlighted").toBool());
    }

    void menusAndTheFootAreThereInEditModeOnly()
    {
        Stage stage;
        show(stage);
        QTRY_COMPARE(names(stage).size(), 3);
        QVERIFY(!stage.has("rowMenuButton"));
        QVERIFY(!stage.has("addButton"));

        stage.shop.enableEditing(true);
        QTRY_VERIFY(stage.has("rowMenuButton"));
        QCOMPARE(stage.text("addButton"), QString("Добавить"));
        auto *menuButton = stage.item("rowMenuButton"); // at the right end of the first row
        QTRY_COMPARE(stage.middleOf(menuButton), QPoint(320 - 4 - 24, 28));
        openMenu(stage, 0);
        stage.shop.enableEditing(false);

        QTRY_VERIFY(!stage.has("renameObject"));
        QVERIFY(!stage.has("rowMenuButton"));
        QVERIFY(!stage.has("addButton"));
    }

    void renamesAPart()
    {
        Stage stage;
        show(stage);
        stage.shop.enableEditing(true);
        QTRY_COMPARE(names(stage).size(), 3);

        openMenu(stage, 2);
        QCOMPARE(stage.text("renameObject"), QString("Переименовать..."));
        stage.click("renameObject");
        QTRY_COMPARE(stage.text("dialogTitle"), QString("Свойства объекта"));
        QCOMPARE(stage.item("nameField")->property("label").toString(), QString("Название объекта"));
        QTRY_COMPARE(stage.text("nameField"), QString("Этаж"));
        stage.type("Крыша");
        stage.key(Qt::Key_Return);

        QTRY_COMPARE(stage.link.operations, QStringList({"changeShopParts"}));
        QCOMPARE(stage.link.shopParts.at(0).uid, uid(1));
        QCOMPARE(stage.link.shopParts.at(0).name, QString("Крыша"));
        QTRY_VERIFY(!stage.has("dialogTitle"));
    }

    void renamesThePartThatWasAskedForWhenRowsMove()
    {
        Stage stage;
        show(stage);
        stage.shop.enableEditing(true);
        QTRY_COMPARE(names(stage).size(), 3);
        openMenu(stage, 2);
        stage.click("renameObject");
        QTRY_VERIFY(stage.has("nameField"));

        stage.link.publishShopParts({part(3, "склад"), part(1, "А")});
        QTRY_COMPARE(names(stage).size(), 2);
        stage.key(Qt::Key_Return);

        QTRY_COMPARE(stage.link.operations, QStringList({"changeShopParts"}));
        QCOMPARE(stage.link.shopParts.at(0).uid, uid(1));
    }

    void aCancelledDialogChangesNothing()
    {
        Stage stage;
        show(stage);
        stage.shop.enableEditing(true);
        QTRY_COMPARE(names(stage).size(), 3);
        openMenu(stage, 0);
        stage.click("renameObject");
        QTRY_VERIFY(stage.has("nameField"));

        stage.key(Qt::Key_Escape);

        QTRY_VERIFY(!stage.has("nameField"));
        QVERIFY(stage.link.operations.isEmpty());
    }

    void asksBeforeItRemoves()
    {
        Stage stage;
        show(stage);
        stage.shop.enableEditing(true);
        QTRY_COMPARE(names(stage).size(), 3);

        openMenu(stage, 1);
        stage.click("removeObject");
        QTRY_COMPARE(stage.window()->property("confirmation").toString(), QString("Удалить объект 'склад'?"));
        QVERIFY(stage.link.operations.isEmpty());
        QMetaObject::invokeMethod(stage.window(), "confirm");

        QCOMPARE(stage.link.operations, QStringList({"removeShopParts"}));
        QCOMPARE(stage.link.shopParts.at(0).uid, uid(3));
    }

    void addsAPart()
    {
        Stage stage;
        show(stage);
        stage.shop.enableEditing(true);
        QTRY_VERIFY(stage.has("addButton"));

        stage.click("addButton");
        QCOMPARE(stage.link.operations, QStringList({"addShopParts"}));
        stage.link.uidsCallback({text(9)});
        stage.item("addButton")->forceActiveFocus();
        stage.key(Qt::Key_Return);

        QCOMPARE(stage.link.operations, QStringList({"addShopParts", "addShopParts"}));
    }

    void theMenuOpensByKeys()
    {
        Stage stage;
        show(stage);
        stage.shop.enableEditing(true);
        QTRY_COMPARE(names(stage).size(), 3);
        stage.item("objectRow0")->forceActiveFocus();

        stage.key(Qt::Key_F2);
        QTRY_VERIFY(stage.has("removeObject"));
        stage.key(Qt::Key_Escape);
        QTRY_VERIFY(!stage.has("removeObject"));
        stage.shop.enableEditing(false);
        stage.key(Qt::Key_F2);
        stage.settle();

        QVERIFY(!stage.has("removeObject"));
    }
};

ONDIRA_TEST(ObjectsListViewTest)
#include "ObjectsListViewTest.moc"
