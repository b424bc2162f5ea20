// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/ProgramFixture.h"
#include "shell/ConnectionsListModel.h"

#include <cmath>

// A day of those who work with the light: an operator who is no administrator, on a desktop and on a phone, and a
// look of the administrator at the devices.
class OperatorDayTest : public ProgramFixture
{
    Q_OBJECT

public:
    OperatorDayTest()
        : ProgramFixture(QStringLiteral("127.0.6.3"))
    {}

private:
    QVariantMap zone(const QString &uid) const { return record("zonesListModel", uid); }
    int power(const QString &uid) const { return zone(uid).value("power").toInt(); }
    bool isManual(const QString &uid) const { return zone(uid).value("manual").toBool(); }
    bool isPressed(const QString &uid) const { return record("buttonsListModel", uid).value("state").toInt() == 1; }

    // A row of the control table, and what is in it.
    QQuickItem *row(const QString &zoneName) const
    {
        const auto rows = m_driver->items([&](QQuickItem *item) {
            return item->objectName().startsWith("zoneControl") && item->property("name").toString() == zoneName;
        });
        return rows.empty() ? nullptr : rows.front();
    }

    QQuickItem *inRow(const QString &zoneName, const QString &objectName) const
    {
        return m_driver->find(objectName, row(zoneName));
    }

    bool pressInRow(const QString &zoneName, const QString &objectName)
    {
        return press([=] { return inRow(zoneName, objectName); });
    }

    void dragSlider(const QString &zoneName, int percent);
    void driveRow(const QString &zoneName, int percent);
    bool connectTo(int row, const QString &group);
    bool openZone(const QString &uid);
    void compareCard(QQuickItem *card, const QVariantMap &device) const;
    void compareZonePage(const QString &uid) const;

private slots:
    void initTestCase();
    void userIsOfferedNothingToEdit();
    void buttonOfThePlanChangesByThePublishedList();
    void buttonOfThePlanDrivesItsZones();
    void rowOfTheTableDrivesItsZone();
    void barOfTheTableDrivesThePart();
    void phoneDrivesTheSelectedZones();
    void phoneShowsRowsOfTheTable();
    void panelOfAPhonePressesAButton();
    void tileOpensThePageOfItsZone_data();
    void tileOpensThePageOfItsZone();
    void tabsOfTheZonePageLeadToItsNeighbours();
    void rowOfThePanelOpensThePageOfItsZone();
    void viewIsRememberedForEachConnection();
    void cleanupTestCase();
};

void OperatorDayTest::initTestCase()
{
    // Nothing changes but what is asked for.
    QVERIFY(m_site.start({QStringLiteral("--tick"), QStringLiteral("0")}));
    QVERIFY(saveConnection(QStringLiteral("Смена"), m_site.address(), QStringLiteral("user"), QStringLiteral("user")));
    QVERIFY(startProgram(1280, 800));
    QVERIFY(object<ConnectionsListModel>("connectionsListModel")
                ->add(QStringLiteral("Хозяин"), m_site.address(), QStringLiteral("admin"), QStringLiteral("admin")));
}

void OperatorDayTest::userIsOfferedNothingToEdit()
{
    QVERIFY(m_driver->waitForPlan(4));
    QTRY_VERIFY(isConnectedAs("user"));

    QVERIFY(find("sidebarEntry_desktop"));
    QVERIFY(find("sidebarEntry_sliders"));
    QVERIFY(!find("sidebarEntry_settings"));
    QVERIFY(!find("editModeAction"));
    QTRY_VERIFY(find("scaleDownAction"));

    // A click beside all tiles opens no menu.
    QVERIFY(clickPlan({8, 8}));
    QVERIFY(!inPopup("addMenu", "addZone"));
    const auto uid = m_driver->zoneTiles().front()->property("uid").toString();
    const auto before = zone(uid);
    QVERIFY(pressTile(uid));
    QTRY_VERIFY(tile(uid)->property("selected").toBool());
    QVERIFY(!find("anchor4"));
    QVERIFY(dragTile(uid, {100, 0}));
    QCOMPARE(tile(uid)->x(), before.value("x").toReal());
    QTRY_VERIFY(!find("shopScreen")->property("shopFlickable").value<QQuickItem *>()->property("moving").toBool());
    QVERIFY(pressTile(uid));
    QTRY_VERIFY(!tile(uid)->property("selected").toBool());
    QCOMPARE(zone(uid).value("x"), before.value("x"));
    QVERIFY(showPart("Парковка"));
    QVERIFY(showPart("Зал магазина"));
}

void OperatorDayTest::buttonOfThePlanChangesByThePublishedList()
{
    const auto uid = uidOf("buttonsListModel", "Кассы");
    QVERIFY(!uid.isEmpty());
    for (int i = 0; i < 5; ++i)
        QVERIFY(press("scaleDownAction"));
    QTRY_VERIFY(tile(uid));
    const bool before = isPressed(uid);
    QCOMPARE(tile(uid)->property("active").toBool(), before);

    QSignalSpy states(&link(), &Link::buttonStateListReceived);
    QVERIFY(pressTile(uid));
    QTRY_COMPARE(isPressed(uid), !before);
    QTRY_COMPARE(tile(uid)->property("active").toBool(), !before);
    QCOMPARE(states.count(), 1);

    QVERIFY(pressTile(uid));
    QTRY_COMPARE(isPressed(uid), before);
    QCOMPARE(states.count(), 2);
}

void OperatorDayTest::buttonOfThePlanDrivesItsZones()
{
    const auto part = uidOf("shopPartsListModel", "Зал магазина");
    const auto lit = uidOf("buttonsListModel", "Весь зал 100 %");
    const auto released = uidOf("buttonsListModel", "Зал: авто");
    const auto countOfHall = [&](const std::function<bool(const QString &)> &condition) {
        const auto all = uids("zonesListModel");
        return std::count_if(all.begin(), all.end(), [&](const QString &uid) {
            return zone(uid).value("partUid").toString() == part && condition(uid);
        });
    };

    QVERIFY(pressTile(lit));
    QTRY_COMPARE(countOfHall([this](const QString &uid) { return isManual(uid) && power(uid) == 100; }), 27);
    QTRY_VERIFY(m_driver->zoneTiles().front()->property("manual").toBool());

    QVERIFY(pressTile(released));
    QTRY_COMPARE(countOfHall([this](const QString &uid) { return isManual(uid); }), 0);
    QVERIFY(press("scaleResetAction"));
    QTRY_COMPARE(find("GridCanvas")->scale(), 1.0);
}

void OperatorDayTest::dragSlider(const QString &zoneName, int percent)
{
    const auto *slider = inRow(zoneName, "powerSlider");
    const auto *handle = inRow(zoneName, "brightnessHandle");
    QVERIFY(slider && handle);
    const QPointF middle(handle->width() / 2, handle->height() / 2);
    const auto from = handle->mapToScene(middle);
    const qreal way = slider->width() - 16 - handle->width();
    const QPointF to = slider->mapToScene(QPointF(8 + middle.x() + way * percent / 100, 0));
    drag(from, {to.x() - from.x(), 0});
}

// The mode and the power of a zone by its row, each by one command.
void OperatorDayTest::driveRow(const QString &zoneName, int percent)
{
    const auto uid = uidOf("zonesListModel", zoneName);
    QTRY_VERIFY(row(zoneName));
    QVERIFY(!isManual(uid));
    QVERIFY(!inRow(zoneName, "powerSlider")->isEnabled());
    const int before = power(uid);

    QVERIFY(pressInRow(zoneName, "autoModeSwitch"));
    QTRY_VERIFY(isManual(uid));
    QTRY_VERIFY(inRow(zoneName, "powerSlider")->isEnabled());
    QCOMPARE(power(uid), before);

    QSignalSpy states(&link(), &Link::devicesStatesReceived);
    dragSlider(zoneName, percent);
    QTRY_COMPARE(power(uid), percent);
    QTRY_COMPARE(inRow(zoneName, "powerText")->property("text").toString(), QStringLiteral("%1%").arg(percent));
    QCOMPARE(inRow(zoneName, "powerSlider")->property("value").toInt(), percent);

    // The change that came back asked for nothing more: the next answer is that of the switch.
    QVERIFY(pressInRow(zoneName, "autoModeSwitch"));
    QTRY_VERIFY(!isManual(uid));
    QCOMPARE(states.count(), 1);
    QTRY_VERIFY(!inRow(zoneName, "powerSlider")->isEnabled());
}

void OperatorDayTest::rowOfTheTableDrivesItsZone()
{
    QVERIFY(press("sidebarEntry_sliders"));
    QTRY_VERIFY(find("zonesControlList"));
    QTRY_COMPARE(textOf("partName"), QStringLiteral("Зал магазина"));
    QCOMPARE(find("zonesControlList")->property("count").toInt(), 27);

    driveRow("Бакалея", 35);
}

void OperatorDayTest::barOfTheTableDrivesThePart()
{
    const auto part = uidOf("shopPartsListModel", "Парковка");
    QVERIFY(pressRow("slidersTab", "Парковка"));
    QTRY_COMPARE(textOf("partName"), QStringLiteral("Парковка"));
    QTRY_COMPARE(find("zonesControlList")->property("count").toInt(), 6);
    const auto all = uids("zonesListModel");
    const auto areAll = [&](bool ofPart, const std::function<bool(const QString &)> &condition) {
        return std::all_of(all.begin(), all.end(), [&](const QString &uid) {
            return (zone(uid).value("partUid").toString() == part) != ofPart || condition(uid);
        });
    };
    const auto isReleased = [this](const QString &uid) { return !isManual(uid); };
    QHash<QString, QVariantMap> before;
    for (const auto &uid : all)
        before.insert(uid, zone(uid));

    QVERIFY(press("powerButton40"));
    QTRY_VERIFY(areAll(true, [this](const QString &uid) { return isManual(uid) && power(uid) == 40; }));
    QVERIFY(areAll(false, [&](const QString &uid) { return zone(uid) == before.value(uid); }));
    QTRY_COMPARE(inRow("Въезд", "powerText")->property("text").toString(), QStringLiteral("40%"));

    QVERIFY(press("autoModeButton"));
    QTRY_VERIFY(areAll(true, isReleased));
    QVERIFY(press("sidebarEntry_desktop"));
    QTRY_VERIFY(find("partsTabBar"));
}

void OperatorDayTest::phoneDrivesTheSelectedZones()
{
    m_driver->resize(420, 800);
    QTRY_VERIFY(find("panelAction"));
    const auto first = uidOf("zonesListModel", "Овощи и фрукты");
    const auto second = uidOf("zonesListModel", "Бакалея");
    const auto select = [&](const QString &uid) {
        return pressTile(uid) && m_driver->waitFor([=] { return tile(uid)->property("selected").toBool(); }, 5000);
    };

    QVERIFY(select(first));
    QVERIFY(select(second));
    QVERIFY(press("powerButton60"));
    QTRY_VERIFY(isManual(first) && power(first) == 60);
    QTRY_VERIFY(isManual(second) && power(second) == 60);
    QTRY_VERIFY(!find("powerButton60"));
    QVERIFY(!tile(first)->property("selected").toBool());

    QVERIFY(select(first));
    QVERIFY(press("autoModeButton"));
    QTRY_VERIFY(!isManual(first));
    QVERIFY(isManual(second));
    QVERIFY(select(second));
    QVERIFY(press("autoModeButton"));
    QTRY_VERIFY(!isManual(second));
}

void OperatorDayTest::phoneShowsRowsOfTheTable()
{
    QVERIFY(press("leftAction"));
    QVERIFY(press("sidebarEntry_sliders"));
    QTRY_VERIFY(find("zonesControlList"));
    QTRY_VERIFY(!find("sidebarEntry_sliders"));
    QVERIFY(pressRow("slidersTab", "Парковка"));

    driveRow("Въезд", 70);

    for (const char *name : {"powerSlider", "autoModeSwitch", "powerText"}) {
        const auto *item = inRow("Въезд", name);
        QVERIFY(item->mapToScene(QPointF()).x() >= 0);
        QVERIFY(item->mapToScene(QPointF(item->width(), 0)).x() <= 420);
    }
    QVERIFY(press("leftAction"));
    QVERIFY(press("sidebarEntry_desktop"));
    QTRY_VERIFY(find("partsTabBar"));
}

void OperatorDayTest::panelOfAPhonePressesAButton()
{
    const auto uid = uidOf("buttonsListModel", "Витрина");
    QTRY_VERIFY(!find("sidebarEntry_desktop"));
    QVERIFY(press("panelAction"));
    QTRY_VERIFY(find("objectRow0"));
    QVERIFY(!find("editModeRow"));
    QVERIFY(!find("rowMenuButton"));
    QVERIFY(!find("addButton"));
    QVERIFY(press("buttonsTab"));
    QTRY_VERIFY(withText("buttonRow", "Витрина"));
    const bool before = isPressed(uid);
    QCOMPARE(withText("buttonRow", "Витрина")->property("highlighted").toBool(), before);

    QVERIFY(pressRow("buttonRow", "Витрина"));
    QTRY_COMPARE(isPressed(uid), !before);
    QTRY_COMPARE(withText("buttonRow", "Витрина")->property("highlighted").toBool(), !before);
    QVERIFY(!find("rowMenuButton"));
    QVERIFY(m_driver->escape("buttonsTab"));
    m_driver->resize(1280, 800);
    QTRY_VERIFY(find("connectionButton"));
}

bool OperatorDayTest::connectTo(int row, const QString &group)
{
    return press("connectionButton") && press(QStringLiteral("connectionRow%1").arg(row)) && waitForGroup(group)
        && m_driver->waitForPlan(1)
        && m_driver->waitFor([this] { return find("shopScreen") && find("shopScreen")->property("loaded").toBool(); },
                             10000);
}

bool OperatorDayTest::openZone(const QString &uid)
{
    return pressTile(uid) && press("editRow") && m_driver->waitFor([this] { return find("zoneScreen"); }, 10000);
}

void OperatorDayTest::compareCard(QQuickItem *card, const QVariantMap &device) const
{
    const auto type = device.value("typeInfo").toMap();
    const auto state = device.value("state").toMap();
    const auto text = [&](const char *name) {
        const auto *item = m_driver->find(QString::fromLatin1(name), card);
        return item ? item->property("text").toString() : QString();
    };
    const auto isNear = [](const QString &shown, double value) {
        return std::abs(shown.section(' ', 0, 0).toDouble() - value) < 0.051;
    };
    const auto cells = [&](const char *nameOfUse, const std::function<bool(int)> &isActive, int count) {
        for (int number = 1; number <= count; ++number) {
            const auto *cell = m_driver->find(QStringLiteral("cell%1").arg(number), card);
            const auto key = QString::fromLatin1(nameOfUse).arg(number);
            QVERIFY(cell);
            QCOMPARE(cell->property("used").toBool(), device.value("data").toMap().value(key).toBool());
            QCOMPARE(cell->property("active").toBool(), isActive(number));
        }
    };

    QCOMPARE(text("cardType"), type.value("name").toString());
    const auto kind = device.value("commonType").toString();
    if (kind != QLatin1String("lamp_group"))
        QVERIFY(text("cardTitle").startsWith(device.value("address").toString()));
    if (kind == QLatin1String("lamp") || kind == QLatin1String("polling_lamp")) {
        QCOMPARE(text("powerBar"), QStringLiteral("%1%").arg(qRound(state.value("power").toDouble())));
    } else if (kind == QLatin1String("lamp_group")) {
        const auto number = device.value("data").toMap().value("groupNumber").toString();
        QVERIFY(text("cardTitle").startsWith(QStringLiteral("Группа %1").arg(number)));
        QVERIFY(text("addressesText").startsWith(QStringLiteral("Адреса: ")));
    } else if (kind == QLatin1String("polling_light_sensor")) {
        QVERIFY(state.contains("brightness"));
        QVERIFY(isNear(text("valueText"), state.value("brightness").toDouble()));
    } else if (kind == QLatin1String("polling_temp_sensor")) {
        QVERIFY(state.contains("temperature"));
        QVERIFY(isNear(text("valueText"), state.value("temperature").toDouble()));
    } else if (kind == QLatin1String("polling_rs_electric_meter")) {
        double sum = 0;
        const auto powers = state.value("powers").toList();
        for (const auto &power : powers)
            sum += power.toDouble();
        QCOMPARE(powers.size(), 3);
        QVERIFY(isNear(text("meterPower"), sum));
        QVERIFY(text("meterEnergy").startsWith(QString::number(std::floor(state.value("energy").toDouble()))));
    } else if (kind == QLatin1String("polling_contactor")) {
        cells(
            "switch%1", [&](int) { return state.value("power").toDouble() != 0; }, 16);
    } else if (kind == QLatin1String("sensor_contact")) {
        cells(
            "input%1", [&](int number) { return state.value(QStringLiteral("input%1").arg(number)).toBool(); }, 6);
    } else if (kind == QLatin1String("beacon")) {
        const bool isActive = state.value("active").toBool();
        QVERIFY(text("activityBar").startsWith(isActive ? QStringLiteral("Активен") : QStringLiteral("Неактивен")));
    } else {
        QFAIL(qPrintable("A device of an unknown kind: " + kind));
    }
}

// A card for each device of the zone, in their order, and each with what its device reports.
void OperatorDayTest::compareZonePage(const QString &uid) const
{
    auto devices = uids("devicesListModel");
    const auto isElsewhere = [&](const QString &device) {
        return record("devicesListModel", device).value("zoneUid").toString() != uid;
    };
    devices.erase(std::remove_if(devices.begin(), devices.end(), isElsewhere), devices.end());
    QVERIFY(!devices.isEmpty());
    QTRY_COMPARE(find("devicesGrid")->property("count").toInt(), devices.size());
    QTRY_COMPARE(find("zoneHeader")->property("text").toString(), zone(uid).value("name").toString());
    for (int i = 0; i < devices.size(); ++i) {
        const auto name = QStringLiteral("deviceCell%1").arg(i);
        QTRY_VERIFY(m_driver->find("cardType", find(name)));
        const auto device = find(name)->property("uid").toString();
        QVERIFY(devices.contains(device));
        compareCard(find(name), record("devicesListModel", device));
        if (QTest::currentTestFailed())
            return;
    }
}

void OperatorDayTest::tileOpensThePageOfItsZone_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<QString>("name");

    QTest::newRow("lamps, a group and a light sensor") << "Зал магазина"
                                                       << "Центральный проход";
    QTest::newRow("meters, contactors and a thermometer") << "Склад"
                                                          << "Электрощитовая";
    QTest::newRow("contacts and a beacon") << "Парковка"
                                           << "Въезд";
}

void OperatorDayTest::tileOpensThePageOfItsZone()
{
    QFETCH(QString, part);
    QFETCH(QString, name);
    if (!isConnectedAs("admin")) {
        QVERIFY(connectTo(1, "admin"));
        QVERIFY(press("editModeAction"));
        QTRY_VERIFY(find("editModeRow"));
    }
    QVERIFY(showPart(part));
    wheel(-7);
    const auto uid = uidOf("zonesListModel", name);

    QVERIFY(openZone(uid));
    QCOMPARE(textOf("appBarTitle"), QStringLiteral("Редактирование зоны"));
    compareZonePage(uid);

    QVERIFY(press("leftAction"));
    QTRY_VERIFY(find("partsTabBar"));
    QCOMPARE(shownPart(), uidOf("shopPartsListModel", part));
    QVERIFY(find("editModeRow"));
    QVERIFY(tile(uid)->property("selected").toBool());
    QVERIFY(pressTile(uid));
    QTRY_VERIFY(!tile(uid)->property("selected").toBool());
    QVERIFY(press("scaleLabel"));
    QTRY_COMPARE(find("GridCanvas")->scale(), 1.0);
}

void OperatorDayTest::tabsOfTheZonePageLeadToItsNeighbours()
{
    QVERIFY(openZone(uidOf("zonesListModel", "Въезд")));
    for (const char *name : {"Выезд", "Ряд 1", "Фасад"}) {
        QVERIFY(pressRow("zoneTab", QString::fromUtf8(name)));
        compareZonePage(uidOf("zonesListModel", QString::fromUtf8(name)));
    }
    QVERIFY(press("leftAction"));
    QTRY_VERIFY(find("partsTabBar"));
    QVERIFY(pressTile(uidOf("zonesListModel", "Въезд")));
}

void OperatorDayTest::rowOfThePanelOpensThePageOfItsZone()
{
    QVERIFY(press("zonesTab"));
    QVERIFY(pressRow("zoneRow", "Фасад", "rowMenuButton"));
    QVERIFY(pressInPopup("zoneMenu", "editZone"));
    QTRY_VERIFY(find("zoneScreen"));
    compareZonePage(uidOf("zonesListModel", "Фасад"));

    QVERIFY(press("leftAction"));
    QTRY_VERIFY(find("partsTabBar"));
    QVERIFY(press("partsTab"));
}

void OperatorDayTest::viewIsRememberedForEachConnection()
{
    const auto part = uidOf("shopPartsListModel", "Склад");
    QVERIFY(showPart("Склад"));
    QTRY_COMPARE(find("GridCanvas")->scale(), 1.0);
    QVERIFY(press("scaleUp"));
    QTRY_VERIFY(qAbs(find("GridCanvas")->scale() - 1.1) < 0.001);
    const auto flickable = [this] { return find("shopScreen")->property("shopFlickable").value<QQuickItem *>(); };
    drag(find("shopScreen")->mapToScene(QPointF(400, 400)), {-200, -160});
    QTRY_VERIFY(!flickable()->property("moving").toBool());
    QVERIFY(flickable()->property("contentX").toReal() > 50);
    QVERIFY(press("scaleLock"));
    QTRY_VERIFY(find("shopScreen")->property("lockZoomPan").toBool());
    const auto *connections = object<ConnectionsListModel>("connectionsListModel");
    QTRY_VERIFY(qAbs(connections->getStoredValue("shopScale").toReal() - 1.1) < 0.001);
    const auto x = flickable()->property("contentX").toReal();
    const auto y = flickable()->property("contentY").toReal();
    const auto isView = [&] {
        return shownPart() == part && qAbs(find("GridCanvas")->scale() - 1.1) < 0.001
            && find("shopScreen")->property("lockZoomPan").toBool()
            && qAbs(flickable()->property("contentX").toReal() - x) < 1
            && qAbs(flickable()->property("contentY").toReal() - y) < 1;
    };
    QVERIFY(isView());

    // The operator's view is his own.
    QVERIFY(connectTo(0, "user"));
    QTRY_COMPARE(shownPart(), uidOf("shopPartsListModel", "Зал магазина"));
    QVERIFY(!find("shopScreen")->property("lockZoomPan").toBool());
    QTRY_VERIFY(qAbs(find("GridCanvas")->scale() - 1) < 0.001);
    QVERIFY(connectTo(1, "admin"));
    QTRY_VERIFY(isView());

    QVERIFY(restartProgram());
    QVERIFY(m_driver->waitForPlan(4));
    QTRY_VERIFY(isConnectedAs("user"));
    QCOMPARE(shownPart(), uidOf("shopPartsListModel", "Зал магазина"));
    QVERIFY(connectTo(1, "admin"));
    QTRY_VERIFY(isView());

    // What is locked answers to no wheel.
    wheel(2);
    QVERIFY(isView());
}

void OperatorDayTest::cleanupTestCase()
{
    QVERIFY(m_driver);
    QCOMPARE(m_driver->warnings(), QStringList());
    stopProgram();
}

ONDIRA_TEST(OperatorDayTest)
#include "OperatorDayTest.moc"
