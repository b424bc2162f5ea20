// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QElapsedTimer>

using namespace Records;

class ZonePageTest : public TestBase
{
    Q_OBJECT

private:
    // Part 1 with the zones 11 and 12, part 2 with 13. Zone 11 has the lamps 21 and 22, zone 12 has 23.
    static QQuickItem *show(Stage &stage, const QSize &size = {1280, 800}, uint zoneNumber = 11)
    {
        stage.link.publishShopParts({part(1, "Этаж"), part(2, "Атриум")});
        stage.link.publishZones({zone(11, "Холл 10", 1), zone(12, "Холл 9", 1), zone(13, "Двор", 2)});
        stage.link.publishDeviceTypes({type("lamp:1", "Лампа")});
        stage.link.publishDevices({device(21, 11, "lamp:1", 10), device(22, 11, "lamp:1", 9),
                                   device(23, 12, "lamp:1", 1), device(24, 0, "lamp:1", 2)});
        auto *page = stage.show("ZonePage { objectName: 'page'; anchors.fill: parent; focus: true }", size);
        page->setProperty("uid", text(zoneNumber));
        stage.link.operations.clear();
        return page;
    }
    static QStringList tabs(const Stage &stage)
    {
        QStringList texts;
        for (int i = 0; stage.has(QStringLiteral("zoneTab%1").arg(i)); ++i)
            texts << stage.text(QStringLiteral("zoneTab%1").arg(i));
        return texts;
    }
    static QStringList uids(const Stage &stage)
    {
        QStringList found;
        for (int i = 0; stage.has(QStringLiteral("deviceCell%1").arg(i)); ++i)
            found << stage.item(QStringLiteral("deviceCell%1").arg(i))->property("uid").toString();
        return found;
    }
    static QQuickItem *within(const Stage &stage, int cell, const QString &name)
    {
        auto *item = stage.item(QStringLiteral("deviceCell%1").arg(cell));
        return item ? item->findChild<QQuickItem *>(name) : nullptr;
    }

private slots:
    void tabsAreTheZonesOfThePart()
    {
        Stage stage;
        auto *page = show(stage);

        QTRY_COMPARE(tabs(stage), QStringList({"Холл 9", "Холл 10"}));
        QCOMPARE(page->property("title").toString(), QString("Редактирование зоны"));
        QVERIFY(stage.item("zoneTab1")->property("checked").toBool());
        QVERIFY(!stage.item("zoneTab0")->property("checked").toBool());
        QVERIFY(stage.item("zoneTab0")->width() >= 96);
        stage.click("zoneTab0");

        QCOMPARE(page->property("uid").toString(), text(12));
        QTRY_COMPARE(stage.text("zoneHeader"), QString("Холл 9"));
        QTRY_COMPARE(uids(stage), QStringList({text(23)}));
        QTRY_VERIFY(stage.item("zoneTab0")->property("checked").toBool());
        QVERIFY(!stage.item("zoneTab1")->property("checked").toBool());
        stage.item("zoneTab1")->forceActiveFocus();
        stage.key(Qt::Key_Return);
        QCOMPARE(page->property("uid").toString(), text(11));
    }

    void theOnlyZoneOfAPartHasItsTab()
    {
        Stage stage;
        show(stage, {1280, 800}, 13);

        QTRY_COMPARE(tabs(stage), QStringList({"Двор"}));
        QCOMPARE(stage.item("zoneTab0")->width(), 96.0);
        QVERIFY(stage.has("emptyZone"));
    }

    // The tab of the zone on show is whole in sight, however wide the texts before it are.
    void theTabOfTheZoneIsInSight_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<int>("current");

        QStringList same;
        for (int i = 10; i < 22; ++i)
            same << QStringLiteral("Зона %1, у дальней стены").arg(i);
        QTest::newRow("first") << same << 0;
        QTest::newRow("amid") << same << 6;
        QTest::newRow("last") << same << 11;
        QTest::newRow("short ones before it")
            << QStringList{"А", "Б", "В", "Г", "Д", "Е", "Ж", "Кладовая за холодильной камерой"} << 7;
        QTest::newRow("all fit where the window is wide")
            << QStringList{"А", "Б", "В", "Г", "Д", "Е", "Холодильная камера", "Электрощитовая"} << 7;
    }
    void theTabOfTheZoneIsInSight()
    {
        QFETCH(QStringList, names);
        QFETCH(int, current);
        Stage stage;
        auto *page = show(stage);
        std::vector<Model::Zone> zones;
        for (const auto &name : names)
            zones.push_back(zone(101 + static_cast<uint>(zones.size()), name, 1));
        stage.link.publishZones(zones);
        page->setProperty("uid", text(101 + static_cast<uint>(current)));
        const auto isInSight = [&] {
            const auto *tab = stage.item(QStringLiteral("zoneTab%1").arg(current));
            if (!tab || !tab->property("checked").toBool())
                return false;
            const auto place = tab->mapRectToScene(tab->boundingRect());
            return place.width() > 100 && place.left() > -1 && place.right() < stage.window()->width() + 1;
        };

        QTRY_VERIFY(isInSight());
        stage.resize({420, 600});
        QTRY_VERIFY(isInSight());
        stage.settle();
        QVERIFY(isInSight());
        stage.resize({800, 600});
        stage.settle();
        QVERIFY(isInSight());
    }

    void followsTheListOfZones()
    {
        Stage stage;
        auto *page = show(stage);
        QTRY_COMPARE(stage.text("zoneHeader"), QString("Холл 10"));

        stage.link.publishZones({zone(11, "Арка", 1), zone(12, "Холл 9", 1)});
        QTRY_COMPARE(stage.text("zoneHeader"), QString("Арка"));
        QTRY_COMPARE(tabs(stage), QStringList({"Арка", "Холл 9"}));
        QCOMPARE(page->property("uid").toString(), text(11));
        stage.link.publishZones({zone(12, "Холл 9", 1)});
        QTRY_VERIFY(!stage.has("addDeviceButton")); // there is nothing to add to
        QTRY_COMPARE(tabs(stage), QStringList({"Холл 9"}));
        stage.click("zoneTab0");
        QTRY_COMPARE(stage.text("zoneHeader"), QString("Холл 9"));
    }

    void cardsAreTheDevicesOfTheZone()
    {
        Stage stage;
        auto *page = show(stage);

        QTRY_COMPARE(uids(stage), QStringList({text(22), text(21)}));
        stage.link.publishDevices({device(21, 11, "lamp:1", 3), device(25, 11, "lamp:1", 5)});
        QTRY_COMPARE(uids(stage), QStringList({text(21), text(25)}));
        stage.link.publishDevices({});
        QTRY_VERIFY(stage.has("emptyZone"));
        bool found = false;
        for (auto *label : stage.items([](QQuickItem *item) { return item->inherits("QQuickText"); }))
            found = found || label->property("text").toString() == "Пустая зона";
        QVERIFY(found);
        stage.link.publishDevices({device(24, 0, "lamp:1", 2)}); // of no zone
        page->setProperty("uid", "");
        stage.settle();
        QVERIFY(uids(stage).isEmpty());
    }

    void cardsFillTheirRow_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("cell");

        QTest::newRow("200") << 200 << 200;
        QTest::newRow("288") << 288 << 288;
        QTest::newRow("300") << 300 << 300;
        QTest::newRow("575") << 575 << 575;
        QTest::newRow("576") << 576 << 288;
        QTest::newRow("600") << 600 << 300;
        QTest::newRow("1280") << 1280 << 320;
        QTest::newRow("0") << 0 << 1;
    }

    void cardsFillTheirRow()
    {
        QFETCH(int, width);
        Stage stage;
        show(stage);

        QVariant cell;
        QMetaObject::invokeMethod(stage.item("zoneScreen"), "columnWidth", Q_RETURN_ARG(QVariant, cell),
                                  Q_ARG(QVariant, width));
        QTEST(cell.toInt(), "cell");
    }

    void theGridHasThoseColumns()
    {
        Stage stage;
        show(stage, {600, 700});
        QTRY_COMPARE(uids(stage).size(), 2);
        QCOMPARE(stage.item("deviceCell0")->width(), 300.0);
        QCOMPARE(stage.item("deviceCell0")->height(), 208.0);
        QCOMPARE(stage.item("deviceCell1")->x(), 300.0);

        stage.resize({340, 700});
        QTRY_COMPARE(stage.item("deviceCell0")->width(), 340.0);
        QCOMPARE(stage.item("deviceCell1")->x(), 0.0);
        QCOMPARE(stage.item("deviceCell1")->y(), 208.0);
    }

    void theHeaderRenamesTheZone()
    {
        Stage stage;
        show(stage);
        QTRY_COMPARE(stage.text("zoneHeader"), QString("Холл 10"));
        QCOMPARE(stage.item("zoneHeader")->property("subText").toString(),
                 QString("Нажмите, чтобы изменить название зоны"));

        stage.click("zoneHeader");
        QTRY_COMPARE(stage.text("dialogTitle"), QString("Изменить название зоны"));
        QTRY_COMPARE(stage.text("nameField"), QString("Холл 10"));
        stage.type("Лобби");
        stage.key(Qt::Key_Return);

        QTRY_COMPARE(stage.link.operations, QStringList({"changeZones"}));
        QCOMPARE(stage.link.zones.at(0).uid, uid(11));
        QCOMPARE(stage.link.zones.at(0).name, QString("Лобби"));
    }

    void theCloseButtonRemovesAtOnce()
    {
        Stage stage;
        show(stage);
        QTRY_COMPARE(uids(stage).size(), 2);

        stage.click(within(stage, 1, "cardClose"));

        QCOMPARE(stage.link.operations, QStringList({"removeDevices"}));
        QCOMPARE(stage.link.devices.size(), std::size_t(1));
        QCOMPARE(stage.link.devices[0].uid, uid(21));
        stage.link.publishDevices({device(22, 11, "lamp:1", 9)});
        QTRY_COMPARE(uids(stage), QStringList({text(22)}));
        stage.click(within(stage, 0, "cardClose"));
        QCOMPARE(stage.link.devices.at(0).uid, uid(22));
    }

    void aClickOnACardOpensItsForm()
    {
        Stage stage;
        show(stage);
        QTRY_COMPARE(uids(stage).size(), 2);

        stage.click(within(stage, 1, "cardTitle"));
        QTRY_COMPARE(stage.text("dialogTitle"), QString("Редактирование устройства"));
        QCOMPARE(stage.object("deviceEditDialog")->property("uid").toString(), text(21));
        stage.key(Qt::Key_Escape);
        QTRY_VERIFY(!stage.has("dialogTitle"));

        QVERIFY(stage.link.operations.isEmpty());
    }

    void cardsAreReachedByKeys()
    {
        Stage stage;
        show(stage);
        QTRY_COMPARE(uids(stage).size(), 2);
        stage.item("devicesGrid")->forceActiveFocus();

        stage.key(Qt::Key_Right);
        stage.key(Qt::Key_Return);

        QTRY_COMPARE(stage.text("dialogTitle"), QString("Редактирование устройства"));
        QCOMPARE(stage.object("deviceEditDialog")->property("uid").toString(), text(21));
        stage.key(Qt::Key_Escape);
        QTRY_VERIFY(!stage.has("dialogTitle"));
        stage.settle();
        stage.key(Qt::Key_Left);
        stage.key(Qt::Key_Space);
        QTRY_VERIFY(stage.has("dialogTitle"));
        QCOMPARE(stage.object("deviceEditDialog")->property("uid").toString(), text(22));
        stage.key(Qt::Key_Escape);
        QTRY_VERIFY(!stage.has("dialogTitle"));
        stage.settle();
        stage.key(Qt::Key_Tab);
        QCOMPARE(stage.focusName(), QString("cardClose"));
        stage.key(Qt::Key_Return);
        QCOMPARE(stage.link.operations, QStringList({"removeDevices"}));
        QCOMPARE(stage.link.devices.at(0).uid, uid(22));
    }

    void theFloatingButtonAddsToThisZone()
    {
        Stage stage;
        auto *page = show(stage);
        QTRY_VERIFY(stage.has("addDeviceButton"));
        QCOMPARE(stage.text("addDeviceButton"), QString("Добавить"));
        stage.click("addDeviceButton");
        QTRY_COMPARE(stage.text("dialogTitle"), QString("Добавление устройства"));
        QCOMPARE(stage.object("deviceAddDialog")->property("zoneUid").toString(), text(11));
        stage.key(Qt::Key_Escape);
        QTRY_VERIFY(!stage.has("dialogTitle"));

        page->setProperty("uid", text(12));
        stage.click("addDeviceButton");

        QTRY_COMPARE(stage.object("deviceAddDialog")->property("zoneUid").toString(), text(12));
    }

    void manyCardsOpenWithoutAStall()
    {
        Stage stage;
        auto *page = show(stage, {1280, 800}, 12);
        QTRY_COMPARE(uids(stage).size(), 1);
        std::vector<Model::DeviceDescriptor> devices;
        std::vector<Model::DeviceState> states;
        for (uint i = 0; i < 500; ++i) {
            devices.push_back(device(1000 + i, 11, "lamp:1", static_cast<int>(i)));
            states.push_back(state(1000 + i, {{"power", static_cast<int>(i % 101)}, {"errors", 0}}));
        }
        stage.link.publishDevices(devices);
        stage.link.publishDeviceStates(states);
        auto *grid = stage.item("devicesGrid");

        QElapsedTimer timer;
        timer.start();
        page->setProperty("uid", text(11));
        QTRY_VERIFY(stage.has("deviceCell0"));
        stage.window()->grabWindow();
        const auto opened = timer.elapsed();
        qInfo("500 cards opened in %lld ms", static_cast<long long>(opened));

        QVERIFY(opened < 2000);
        QCOMPARE(grid->property("count").toInt(), 500);
        QVERIFY(stage.items([](QQuickItem *item) { return item->objectName().startsWith("deviceCell"); }).size() < 40);
        QVERIFY(stage.item("addDeviceButton")->property("extended").toBool());
        QMetaObject::invokeMethod(grid, "positionViewAtEnd");
        QTRY_VERIFY(stage.has("deviceCell499"));
        auto *last = within(stage, 499, "cardTitle");
        QVERIFY(last);
        QCOMPARE(last->property("text").toString(), QString("499, Нет передатчика"));
        QCOMPARE(within(stage, 499, "powerBar")->property("text").toString(), QString("95%"));
        QVERIFY(!stage.item("addDeviceButton")->property("extended").toBool());
    }
};

ONDIRA_TEST(ZonePageTest)
#include "ZonePageTest.moc"
