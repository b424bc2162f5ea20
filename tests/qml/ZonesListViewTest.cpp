// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "shell/ColorTheme.h"
#include "support/TestBase.h"

using namespace Records;

class ZonesListViewTest : public TestBase
{
    Q_OBJECT

private:
    // Two parts with two zones and one.
    static QQuickItem *show(Stage &stage)
    {
        stage.link.publishShopParts({part(1, "Этаж"), part(2, "Атриум")});
        stage.link.publishZones({zone(11, "б", 1), zone(12, "А", 1), zone(13, "В", 2)});
        auto *view = stage.show("ZonesListView { objectName: 'view'; width: 320; height: 480; focus: true\n"
                                "readonly property var visits: nav.shown }");
        view->setProperty("partUid", text(1));
        stage.link.operations.clear();
        return view;
    }
    static QStringList names(const Stage &stage)
    {
        QStringList texts;
        for (int i = 0; stage.has(QStringLiteral("zoneRow%1").arg(i)); ++i)
            texts << stage.text(QStringLiteral("zoneRow%1").arg(i));
        return texts;
    }
    static void openMenu(Stage &stage, int row)
    {
        stage.click(stage.item(QStringLiteral("zoneRow%1").arg(row))->property("rightItem").value<QQuickItem *>());
        QTRY_VERIFY(stage.has("editZone"));
        stage.settle();
    }

private slots:
    void rowsAreThoseOfThePart()
    {
        Stage stage;
        auto *view = show(stage);

        QTRY_COMPARE(names(stage), QStringList({"А", "б"}));
        view->setProperty("partUid", text(2));
        QTRY_COMPARE(names(stage), QStringList({"В"}));
        view->setProperty("partUid", text(7));
        QTRY_COMPARE(names(stage), QStringList());
        view->setProperty("partUid", "{00000000-0000-0000-0000-000000000000}");
        QTRY_COMPARE(names(stage).size(), 3);
        view->setProperty("partUid", "");
        QTRY_COMPARE(names(stage).size(), 3);
    }

    void theCircleHasTheColourOfThePower()
    {
        Stage stage;
        show(stage);
        stage.link.publishDeviceTypes({type("lamp:1", "Лампа")});
        stage.link.publishDevices({device(21, 12, "lamp:1", 1), device(22, 11, "lamp:1", 2)});
        stage.link.publishDeviceStates({state(21, {{"power", 20}}), state(22, {{"power", 0}})});

        const auto color = [&](int row) {
            return stage.item(QStringLiteral("zoneRow%1").arg(row))->property("circleColor").value<QColor>().name();
        };
        QTRY_COMPARE(color(0), ColorTheme::brightnessToColor(20).name());
        QCOMPARE(color(1), ColorTheme::brightnessToColor(0).name());
        QVERIFY(color(0) != color(1));
        QCOMPARE(stage.item("rowCircle")->width(), 40.0);
        QCOMPARE(stage.item("rowCircle")->mapToScene({}).x(), 16.0);
        QCOMPARE(stage.item("rowCircle")->height(), 40.0);
    }

    void opensThePageOfAZone()
    {
        Stage stage;
        auto *view = show(stage);
        QTRY_COMPARE(names(stage).size(), 2);
        QVERIFY(!stage.has("rowMenuButton"));
        stage.click("zoneRow0");
        stage.settle();
        QVERIFY(!stage.has("editZone"));
        stage.shop.enableEditing(true);

        openMenu(stage, 1);
        QCOMPARE(stage.text("editZone"), QString("Редактировать зону..."));
        stage.click("editZone");

        QTRY_COMPARE(view->property("visits").toList().size(), 1);
        const auto visit = view->property("visits").toList().at(0).toMap();
        QCOMPARE(visit.value("link").toString(), QString("zone"));
        QCOMPARE(visit.value("properties").toMap().value("uid").toString(), text(11));
    }

    void renamesAZone()
    {
        Stage stage;
        show(stage);
        stage.shop.enableEditing(true);
        QTRY_COMPARE(names(stage).size(), 2);

        openMenu(stage, 0);
        QCOMPARE(stage.text("renameZone"), QString("Переименовать"));
        stage.click("renameZone");
        QTRY_COMPARE(stage.text("dialogTitle"), QString("Переименовать зону"));
        QTRY_COMPARE(stage.text("nameField"), QString("А"));
        stage.type("Холл");
        stage.click("positiveButton");

        QTRY_COMPARE(stage.link.operations, QStringList({"changeZones"}));
        QCOMPARE(stage.link.zones.at(0).uid, uid(12));
        QCOMPARE(stage.link.zones.at(0).name, QString("Холл"));
    }

    void asksBeforeItRemoves()
    {
        Stage stage;
        show(stage);
        stage.shop.enableEditing(true);
        QTRY_COMPARE(names(stage).size(), 2);

        openMenu(stage, 0);
        stage.click("removeZone");
        QTRY_COMPARE(stage.window()->property("confirmation").toString(), QString("Удалить зону 'А'?"));
        QVERIFY(stage.link.operations.isEmpty());
        QMetaObject::invokeMethod(stage.window(), "confirm");

        QCOMPARE(stage.link.operations, QStringList({"removeZones"}));
        QCOMPARE(stage.link.zones.at(0).uid, uid(12));
    }

    void addsAZoneOfNoPlace()
    {
        Stage stage;
        auto *view = show(stage);
        QTRY_COMPARE(names(stage).size(), 2);
        QVERIFY(!stage.has("addButton"));
        stage.shop.enableEditing(true);
        QTRY_COMPARE(stage.text("addButton"), QString("Добавить зону"));

        stage.click("addButton");

        QCOMPARE(stage.link.operations, QStringList({"addZones"}));
        const auto added = stage.link.zones.at(0);
        QCOMPARE(added.width, 96.0);
        QCOMPARE(added.height, 96.0);
        QCOMPARE(added.partUid, uid(1));
        view->setProperty("partUid", "");
        stage.click("addButton"); // of no part
        QCOMPARE(stage.link.operations.size(), 1);
    }
};

ONDIRA_TEST(ZonesListViewTest)
#include "ZonesListViewTest.moc"
