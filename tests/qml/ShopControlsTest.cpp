// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

using namespace Records;

// The panel beside the plan of part 1, which has three zones.
class ShopControlsTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage, const QString &group = QStringLiteral("admin"))
    {
        stage.link.logIn("someone", group);
        auto *row = stage.show("Row { property string clicked; property int locks: 0\n"
                               "ShopScreen { id: plan; objectName: 'plan'; width: 900; height: 700; uid: '"
                               + text(1).toUtf8()
                               + "' }\n ShopControls { objectName: 'panel'; width: 320; height: 700; shopScreen: plan\n"
                                 "onShopPartClicked: parent.clicked = uid; onLockRequested: ++parent.locks } }");
        stage.publishSite(3);
        Stage::waitFor([&] { return stage.tile(13) != nullptr; });
        stage.link.operations.clear();
        return row;
    }

private slots:
    void theCheckBoxSwitchesEditMode()
    {
        Stage stage;
        show(stage);

        stage.click("editModeBox");
        QVERIFY(stage.shop.getIsEditingEnabled());
        QVERIFY(stage.item("editModeBox")->property("checked").toBool());
        stage.shop.enableEditing(false);

        QVERIFY(!stage.item("editModeBox")->property("checked").toBool());
    }

    void onlyAnAdministratorHasIt()
    {
        Stage stage;
        show(stage, "user");
        stage.click(stage.tile(11));
        stage.settle();

        QVERIFY(!stage.has("editModeRow"));
        QVERIFY(!stage.has("removeRow"));
        QVERIFY(stage.has("scaleUp"));
    }

    void rowsFollowTheSelection()
    {
        Stage stage;
        show(stage);
        QVERIFY(!stage.has("editRow"));
        QVERIFY(!stage.has("removeRow"));

        stage.click(stage.tile(11));
        QTRY_VERIFY(stage.has("editRow") && stage.has("scheduleRow") && stage.has("removeRow"));
        stage.click(stage.tile(12));
        QTRY_VERIFY(!stage.has("editRow"));
        QVERIFY(stage.has("removeRow"));
        stage.settle();
        stage.click("removeRow");
        QTRY_VERIFY(stage.has("positiveButton"));
        stage.settle();
        stage.click("positiveButton");

        QCOMPARE(stage.link.operations, QStringList({"removeZones"}));
        QCOMPARE(stage.link.zones.size(), std::size_t(2));
    }

    void theScaleIsThatOfThePlan()
    {
        Stage stage;
        auto *row = show(stage);

        stage.click("scaleDown");
        QCOMPARE(stage.text("scaleLabel"), QString("90%"));
        stage.click("scaleLock");

        QCOMPARE(row->property("locks").toInt(), 1);
    }

    void aPickerIsAboveTheListsOfZonesAndButtons()
    {
        Stage stage;
        show(stage);
        QVERIFY(stage.has("objectsListView"));
        QVERIFY(!stage.has("partPicker"));

        stage.click("zonesTab");
        QTRY_VERIFY(stage.has("zonesListView"));
        QVERIFY(stage.has("partPicker"));
        QCOMPARE(stage.item("zonesListView")->property("partUid").toString(), text(1));
        stage.click("buttonsTab");

        QTRY_VERIFY(stage.has("buttonsListView"));
        QCOMPARE(stage.item("buttonsListView")->property("partUid").toString(), text(1));
    }
};

ONDIRA_TEST(ShopControlsTest)
#include "ShopControlsTest.moc"
