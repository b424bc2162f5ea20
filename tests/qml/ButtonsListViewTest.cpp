// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "shell/ColorTheme.h"
#include "support/TestBase.h"

using namespace Records;

class ButtonsListViewTest : public TestBase
{
    Q_OBJECT

private:
    static Model::Button button(uint n, const QString &name, uint part, bool toggle = false)
    {
        Model::Button button;
        button.uid = uid(n);
        button.name = name;
        button.partUid = uid(part);
        button.toggle = toggle;
        button.onColor = "#00ff00";
        button.offColor = "#ff0000";
        return button;
    }
    static QQuickItem *show(Stage &stage)
    {
        stage.link.publishShopParts({part(1, "Этаж"), part(2, "Атриум")});
        stage.link.publishButtons({button(31, "б", 1), button(32, "А", 1, true), button(33, "В", 2)});
        auto *view = stage.show("ButtonsListView { objectName: 'view'; width: 320; height: 480; focus: true }");
        view->setProperty("partUid", text(1));
        stage.link.operations.clear();
        return view;
    }
    static QString rowName(int row) { return QStringLiteral("buttonRow%1").arg(row); }
    static QStringList names(const Stage &stage)
    {
        QStringList texts;
        for (int i = 0; stage.has(rowName(i)); ++i)
            texts << stage.text(rowName(i));
        return texts;
    }
    static QString color(const Stage &stage, int row)
    {
        return stage.item(rowName(row))->property("circleColor").value<QColor>().name(QColor::HexArgb);
    }
    static void openMenu(Stage &stage, int row)
    {
        stage.click(stage.item(rowName(row))->property("rightItem").value<QQuickItem *>());
        QTRY_VERIFY(stage.has("editButton"));
        stage.settle();
    }

private slots:
    void rowsAreThoseOfThePartByName()
    {
        Stage stage;
        auto *view = show(stage);

        QTRY_COMPARE(names(stage), QStringList({"А", "б"}));
        view->setProperty("partUid", text(2));
        QTRY_COMPARE(names(stage), QStringList({"В"}));
        view->setProperty("partUid", "{00000000-0000-0000-0000-000000000000}");
        QTRY_COMPARE(names(stage), QStringList({"А", "б", "В"}));
    }

    void aToggleButtonSaysSo()
    {
        Stage stage;
        show(stage);
        QTRY_COMPARE(names(stage).size(), 2);

        QCOMPARE(stage.item("buttonRow0")->property("subText").toString(), QString("Залипающая кнопка"));
        QCOMPARE(stage.item("buttonRow1")->property("subText").toString(), QString());
    }

    void aRowShowsTheStateAndAClickTurnsIt()
    {
        Stage stage;
        show(stage);
        QTRY_COMPARE(names(stage).size(), 2);
        QCOMPARE(color(stage, 0), QString("#ffff0000"));
        QVERIFY(!stage.item("buttonRow0")->property("highlighted").toBool());

        stage.click("buttonRow0");
        QCOMPARE(stage.link.operations, QStringList({"setButtonStates"}));
        QCOMPARE(stage.link.buttonStates.at(0).uid, uid(32));
        QVERIFY(stage.link.buttonStates[0].state == Model::ButtonState::State::On);

        stage.link.publishButtonStates({{uid(32), Model::ButtonState::State::On}});
        QTRY_VERIFY(stage.item("buttonRow0")->property("highlighted").toBool());
        QCOMPARE(color(stage, 0), QString("#ff00ff00"));
        QCOMPARE(color(stage, 1), QString("#ffff0000"));
        stage.item("buttonRow0")->forceActiveFocus();
        stage.key(Qt::Key_Return);

        QCOMPARE(stage.link.operations.size(), 2);
        QVERIFY(stage.link.buttonStates.at(0).state == Model::ButtonState::State::Off);
    }

    void aColourThatIsNoneIsNotShown()
    {
        Stage stage;
        show(stage);
        auto broken = button(31, "б", 1);
        broken.offColor = "no colour";
        auto empty = button(32, "А", 1);
        empty.offColor.clear();

        stage.link.publishButtons({broken, empty});

        QTRY_COMPARE(color(stage, 0), QString("#00000000"));
        QTRY_COMPARE(color(stage, 1), QString("#00000000"));
    }

    void theMenuEditsAndRemoves()
    {
        Stage stage;
        show(stage);
        QTRY_COMPARE(names(stage).size(), 2);
        QVERIFY(!stage.has("rowMenuButton"));
        stage.shop.enableEditing(true);

        openMenu(stage, 1);
        QCOMPARE(stage.text("editButton"), QString("Редактировать..."));
        stage.click("editButton");
        QTRY_COMPARE(stage.text("dialogTitle"), QString("Редактирование кнопки"));
        QCOMPARE(stage.object("listedButtonDialog")->property("editedUid").toString(), text(31));
        stage.click("negativeButton");
        QTRY_VERIFY(!stage.has("dialogTitle"));
        openMenu(stage, 1);
        stage.click("removeButton");

        QTRY_COMPARE(stage.link.operations, QStringList({"removeButtons"}));
        QCOMPARE(stage.link.buttons.at(0).uid, uid(31));
    }

    void addsAButtonOfNoPlace()
    {
        Stage stage;
        show(stage);
        stage.shop.enableEditing(true);
        QTRY_COMPARE(stage.text("addButton"), QString("Добавить"));

        stage.click("addButton");

        QCOMPARE(stage.link.operations, QStringList({"addButtons"}));
        const auto added = stage.link.buttons.at(0);
        QCOMPARE(added.width, 80.0);
        QCOMPARE(added.height, 80.0);
        QCOMPARE(added.partUid, uid(1));
        QCOMPARE(QColor(added.onColor), ColorTheme().green());
        QCOMPARE(QColor(added.offColor), ColorTheme().red());
    }
};

ONDIRA_TEST(ButtonsListViewTest)
#include "ButtonsListViewTest.moc"
