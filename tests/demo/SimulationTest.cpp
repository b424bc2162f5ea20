// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/Simulation.h"
#include "SiteFixture.h"
#include "demo/SiteLoader.h"
#include "support/TestBase.h"

#include <QSignalSpy>
#include <algorithm>

using Demo::DemoSite;
using Demo::Simulation;
using namespace SiteFixture;

namespace {

const QDateTime noon(QDate(2026, 6, 1), QTime(13, 0), Qt::UTC);
const QDateTime night(QDate(2026, 6, 1), QTime(1, 0), Qt::UTC);
constexpr int second = 1000;
constexpr int minute = 60 * second;

int powerOf(const DemoSite &site, const char *device)
{
    return site.device(QUuid(device))->state.value("power").toInt();
}

// Steps of that length until so much time has passed.
void live(Simulation &simulation, const QDateTime &time, int milliseconds, int step = second)
{
    for (int passed = 0; passed < milliseconds; passed += step)
        simulation.advance(step, time);
}

QList<QVariantMap> statesOf(const DemoSite &site)
{
    QList<QVariantMap> states;
    for (const auto &device : site.data().devices)
        states << device.state;
    return states;
}

// The devices of the built-in site whose type is of that kind.
std::vector<Demo::SiteDevice> devicesOf(const DemoSite &site, const QString &commonType)
{
    std::vector<Demo::SiteDevice> devices;
    for (const auto &device : site.data().devices) {
        if (site.deviceType(device.descriptor.url)->info.commonType == commonType)
            devices.push_back(device);
    }
    return devices;
}

} // namespace

class SimulationTest : public TestBase
{
    Q_OBJECT

private slots:
    void daylightFollowsTheSun_data();
    void daylightFollowsTheSun();
    void automaticPowerFollowsDaylight_data();
    void automaticPowerFollowsDaylight();
    void equalSeedsLiveEqualLives();
    void otherSeedLivesAnotherLife();
    void nothingHappensBetweenPolls();
    void lampInAutomaticModeMovesSlowly();
    void lampInManualModeKeepsItsPower();
    void lampBackInAutomaticModeFollowsAgain();
    void settlingPutsAutomaticDevicesInPlace();
    void contactorKnowsOnAndOff();
    void lampGroupFollowsDaylight();
    void lampFailsAndRecovers();
    void failedLampCountsPollsWithoutAnswer();
    void journalTellsOfFailedLamp();
    void lampDeliveredFaultyRecovers();
    void temperatureDriftsAroundItsStart();
    void lightSensorFollowsTheLamps();
    void meterCounts();
    void metersPhasesAddUp();
    void contactsToggleWhereThereAreInputs();
    void beaconCountsSeconds();
    void deviceOfAnUnknownKindIsLeftAlone();
    void timeThatRunsBackwardsIsNoStep();
    void longStepIsOnePoll();
    void siteMayChangeBetweenSteps();
    void siteWithoutDevicesLives();
};

void SimulationTest::daylightFollowsTheSun_data()
{
    QTest::addColumn<QTime>("time");
    QTest::addColumn<double>("expected");

    QTest::newRow("midnight") << QTime(0, 0) << 0.0;
    QTest::newRow("sunrise") << QTime(6, 0) << 0.0;
    QTest::newRow("morning") << QTime(8, 20) << 0.5;
    QTest::newRow("highest") << QTime(13, 0) << 1.0;
    QTest::newRow("afternoon") << QTime(17, 40) << 0.5;
    QTest::newRow("sunset") << QTime(20, 0) << 0.0;
    QTest::newRow("late") << QTime(23, 59, 59) << 0.0;
}

void SimulationTest::daylightFollowsTheSun()
{
    QFETCH(QTime, time);
    QFETCH(double, expected);

    QVERIFY(std::abs(Simulation::daylight(time) - expected) < 0.001);
}

void SimulationTest::automaticPowerFollowsDaylight_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("swing");
    QTest::addColumn<double>("daylight");
    QTest::addColumn<int>("expected");

    QTest::newRow("half daylight is the level") << 60 << 40 << 0.5 << 60;
    QTest::newRow("night") << 60 << 40 << 0.0 << 80;
    QTest::newRow("noon") << 60 << 40 << 1.0 << 40;
    QTest::newRow("not above 100") << 95 << 40 << 0.0 << 100;
    QTest::newRow("not below 0") << 5 << 40 << 1.0 << 0;
    QTest::newRow("no swing") << 33 << 0 << 1.0 << 33;
}

void SimulationTest::automaticPowerFollowsDaylight()
{
    QFETCH(int, level);
    QFETCH(int, swing);
    QFETCH(double, daylight);
    QFETCH(int, expected);
    Demo::SiteZone zone;
    zone.level = level;
    zone.swing = swing;

    QCOMPARE(Simulation::automaticPower(zone, daylight), expected);
}

void SimulationTest::equalSeedsLiveEqualLives()
{
    DemoSite first(Demo::SiteLoader::builtIn());
    DemoSite second(Demo::SiteLoader::builtIn());
    Simulation one(first, 5);
    Simulation two(second, 5);

    live(one, noon, 10 * minute);
    live(two, noon, 10 * minute);

    QCOMPARE(statesOf(first), statesOf(second));
    QVERIFY(statesOf(first) != statesOf(DemoSite(Demo::SiteLoader::builtIn())));
}

void SimulationTest::otherSeedLivesAnotherLife()
{
    DemoSite first(Demo::SiteLoader::builtIn());
    DemoSite second(Demo::SiteLoader::builtIn());
    Simulation one(first, 5);
    Simulation two(second, 6);

    live(one, noon, minute);
    live(two, noon, minute);

    QVERIFY(statesOf(first) != statesOf(second));
}

void SimulationTest::nothingHappensBetweenPolls()
{
    DemoSite site(data());
    Simulation simulation(site, 1);
    live(simulation, noon, minute);
    QSignalSpy changed(&site, &DemoSite::changed);

    simulation.advance(0, noon);

    QVERIFY(changed.isEmpty());
}

void SimulationTest::lampInAutomaticModeMovesSlowly()
{
    auto given = data();
    given.zones.front().level = 80;
    given.zones.front().swing = 0;
    DemoSite site(given);
    Simulation simulation(site, 1);
    int previous = powerOf(site, lamp);
    QCOMPARE(previous, 40);

    for (int i = 0; i < 60; ++i) {
        live(simulation, noon, 10 * second); // a poll
        const int power = powerOf(site, lamp);
        QVERIFY(power >= previous && power - previous <= 3);
        previous = power;
    }

    QCOMPARE(previous, 80);
}

void SimulationTest::lampInManualModeKeepsItsPower()
{
    DemoSite site(data());
    Simulation simulation(site, 1);

    simulation.settle(night);
    live(simulation, night, 10 * minute);

    QCOMPARE(powerOf(site, manualLamp), 60);
}

void SimulationTest::lampBackInAutomaticModeFollowsAgain()
{
    auto given = data();
    given.zones.front().level = 20;
    given.zones.front().swing = 0;
    DemoSite site(given);
    Simulation simulation(site, 1);

    site.setMode(QUuid(manualLamp), Model::DeviceMode::Mode::Automatic);
    live(simulation, noon, 10 * minute);

    QCOMPARE(powerOf(site, manualLamp), 20);
}

void SimulationTest::settlingPutsAutomaticDevicesInPlace()
{
    auto given = data();
    given.zones.front().level = 70;
    given.zones.front().swing = 20;
    DemoSite site(given);
    Simulation simulation(site, 1);

    simulation.settle(night);
    QCOMPARE(powerOf(site, lamp), 80);
    QCOMPARE(powerOf(site, manualLamp), 60);

    simulation.settle(noon);
    QCOMPARE(powerOf(site, lamp), 60);
    QVERIFY(!site.device(QUuid(sensor))->state.contains("power"));
}

void SimulationTest::contactorKnowsOnAndOff()
{
    auto given = data();
    given.zones.back().level = 50;
    given.zones.back().swing = 100;
    DemoSite site(given);
    Simulation simulation(site, 1);

    live(simulation, night, minute);
    QCOMPARE(powerOf(site, contactor), 100);

    live(simulation, noon, minute);
    QCOMPARE(powerOf(site, contactor), 0);
}

void SimulationTest::lampGroupFollowsDaylight()
{
    DemoSite site(Demo::SiteLoader::builtIn());
    Simulation simulation(site, 1);

    simulation.settle(noon);
    live(simulation, noon, minute);

    int automatic = 0;
    for (const auto &group : devicesOf(site, "lamp_group")) {
        if (group.mode != Model::DeviceMode::Mode::Automatic)
            continue;
        ++automatic;
        QCOMPARE(group.state.value("power").toInt(),
                 Simulation::automaticPower(*site.zone(group.descriptor.zoneUid), 1.0));
    }
    QVERIFY(automatic > 0);
}

void SimulationTest::lampFailsAndRecovers()
{
    DemoSite site(data());
    Simulation simulation(site, 3);
    int worst = 0;
    bool recovered = false;

    for (int i = 0; i < 12 * 60 * 60 && !recovered; ++i) {
        simulation.advance(second, noon);
        int errors = 0;
        for (const auto *uid : {lamp, manualLamp})
            errors = std::max(errors, site.device(QUuid(uid))->state.value("errors").toInt());
        worst = std::max(worst, errors);
        recovered = worst > 5 && errors == 0;
    }

    QVERIFY2(worst > 5, "no lamp failed long enough to be seen");
    QVERIFY(recovered);
}

void SimulationTest::journalTellsOfFailedLamp()
{
    auto given = data();
    given.devices.resize(1);
    given.devices.front().descriptor.data.insert("name", "Над кассой");
    DemoSite site(given);
    Simulation simulation(site, 1);
    const auto &entries = site.data().journal.entries();

    for (int i = 0; i < 12 * 60 * 60 && entries.size() < 3; ++i)
        simulation.advance(second, noon.addSecs(i));

    QCOMPARE(entries.size(), size_t(3));
    QCOMPARE(entries[0].action, QString("Над кассой: нет ответа"));
    QCOMPARE(entries[1].action, QString("Над кассой: связь восстановлена"));
    QCOMPARE(entries[2].action, QString("Над кассой: нет ответа"));
    for (const auto &entry : entries) {
        QCOMPARE(entry.cause, Model::LogEntry::Cause::System);
        QCOMPARE(entry.username, QString());
        QVERIFY(entry.time > noon);
    }
    QVERIFY(entries[0].time.secsTo(entries[1].time) >= 60);
}

void SimulationTest::failedLampCountsPollsWithoutAnswer()
{
    auto given = data();
    given.devices.front().state.insert("errors", 1); // it fails from the start
    given.devices.front().state.insert("rssidBm", -50);
    given.zones.front().level = 90;
    DemoSite site(given);
    Simulation simulation(site, 1);

    live(simulation, noon, 2 * minute); // twelve polls, of one each 10 s

    const auto state = site.device(QUuid(lamp))->state;
    QCOMPARE(state.value("errors").toInt(), 13);
    QCOMPARE(state.value("rssidBm").toInt(), -50); // a device that does not answer tells nothing new
    QCOMPARE(state.value("power").toInt(), 40);
}

void SimulationTest::lampDeliveredFaultyRecovers()
{
    auto given = data();
    given.devices.front().state.insert("errors", 9);
    given.devices.erase(given.devices.begin() + 1);
    DemoSite site(given);
    Simulation simulation(site, 1);

    bool recovered = false;
    for (int i = 0; i < 60 * 60 && !recovered; ++i) {
        simulation.advance(second, noon);
        recovered = site.device(QUuid(lamp))->state.value("errors").toInt() == 0;
    }

    QVERIFY(recovered);
}

void SimulationTest::temperatureDriftsAroundItsStart()
{
    DemoSite site(Demo::SiteLoader::builtIn());
    Simulation simulation(site, 1);
    const auto before = devicesOf(site, "polling_temp_sensor");
    QVERIFY(before.size() > 3);
    QSet<double> seen;

    for (int i = 0; i < 60; ++i) {
        live(simulation, night, minute);
        const auto now = devicesOf(site, "polling_temp_sensor");
        for (size_t row = 0; row < now.size(); ++row) {
            const double value = now[row].state.value("temperature").toDouble();
            QVERIFY(std::abs(value - before[row].state.value("temperature").toDouble()) < 3);
            seen.insert(value);
        }
    }

    QVERIFY(seen.size() > 20);
}

void SimulationTest::lightSensorFollowsTheLamps()
{
    DemoSite site(data());
    Simulation simulation(site, 1);
    const auto brightness = [&site] { return site.device(QUuid(sensor))->state.value("brightness").toDouble(); };
    for (const auto *uid : {lamp, manualLamp})
        site.setMode(QUuid(uid), Model::DeviceMode::Mode::Manual);

    site.setZonesPower({QUuid(till)}, 0);
    live(simulation, night, 20 * second);
    const double dark = brightness();
    site.setZonesPower({QUuid(till)}, 100);
    live(simulation, night, 20 * second);
    const double lit = brightness();
    live(simulation, noon, 20 * second);
    const double day = brightness();

    QVERIFY(dark < 10);
    QVERIFY(lit > dark + 200);
    QVERIFY(day > lit + 50);
}

void SimulationTest::meterCounts()
{
    DemoSite site(Demo::SiteLoader::builtIn());
    Simulation simulation(site, 1);
    const auto before = devicesOf(site, "polling_rs_electric_meter");
    live(simulation, noon, 10 * minute);
    const auto middle = devicesOf(site, "polling_rs_electric_meter");
    live(simulation, noon, 10 * minute);
    const auto after = devicesOf(site, "polling_rs_electric_meter");

    QSet<QString> steps;
    for (size_t row = 0; row < before.size(); ++row) {
        const double first =
            middle[row].state.value("energy").toDouble() - before[row].state.value("energy").toDouble();
        const double second =
            after[row].state.value("energy").toDouble() - middle[row].state.value("energy").toDouble();
        double watts = 0;
        for (const auto &power : after[row].state.value("powers").toList())
            watts += power.toDouble();
        QVERIFY(first > 0);
        QVERIFY(std::abs(second - watts / 1000 / 6) < second / 4); // ten minutes of about that power
        steps.insert(after[row].state.value("state").toString());
    }
    for (int i = 0; i < 60; ++i) {
        live(simulation, noon, second);
        for (const auto &meter : devicesOf(site, "polling_rs_electric_meter"))
            steps.insert(meter.state.value("state").toString());
    }
    QCOMPARE(steps, (QSet<QString>{"u", "i", "p", "c", "e", ""}));
}

void SimulationTest::metersPhasesAddUp()
{
    DemoSite site(Demo::SiteLoader::builtIn());
    Simulation simulation(site, 1);

    live(simulation, noon, minute);

    for (const auto &meter : devicesOf(site, "polling_rs_electric_meter")) {
        const auto list = [&meter](const char *key) { return meter.state.value(key).toList(); };
        for (const auto *key : {"voltages", "amperages", "powers", "cosines"})
            QCOMPARE(list(key).size(), 3);
        for (int phase = 0; phase < 3; ++phase) {
            const double power = list("voltages").at(phase).toDouble() * list("amperages").at(phase).toDouble()
                * list("cosines").at(phase).toDouble();
            QVERIFY(std::abs(power - list("powers").at(phase).toDouble()) < 1);
        }
    }
}

void SimulationTest::contactsToggleWhereThereAreInputs()
{
    DemoSite site(Demo::SiteLoader::builtIn());
    Simulation simulation(site, 1);
    int toggled = 0;
    auto previous = devicesOf(site, "sensor_contact");

    for (int i = 0; i < 60; ++i) {
        live(simulation, noon, minute);
        const auto now = devicesOf(site, "sensor_contact");
        for (size_t row = 0; row < now.size(); ++row) {
            for (int input = 1; input <= 6; ++input) {
                const auto key = QStringLiteral("input%1").arg(input);
                const bool changed = now[row].state.value(key) != previous[row].state.value(key);
                QVERIFY(!changed || now[row].descriptor.data.value(key).toBool());
                toggled += changed ? 1 : 0;
            }
        }
        previous = now;
    }

    QVERIFY(toggled > 10);
}

void SimulationTest::beaconCountsSeconds()
{
    DemoSite site(Demo::SiteLoader::builtIn());
    Simulation simulation(site, 1);
    QSet<bool> seen;
    int longest = 0;

    for (int i = 0; i < 200; ++i) {
        live(simulation, noon, 10 * second);
        for (const auto &beacon : devicesOf(site, "beacon")) {
            const bool active = beacon.state.value("active").toBool();
            const int activeTime = beacon.state.value("activeTime").toInt();
            const int inactiveTime = beacon.state.value("inactiveTime").toInt();
            seen.insert(active);
            QCOMPARE(active ? inactiveTime : activeTime, 0);
            longest = std::max({longest, activeTime, inactiveTime});
        }
    }

    QCOMPARE(seen.size(), 2);
    QVERIFY(longest >= 20 && longest <= 2000);
}

void SimulationTest::deviceOfAnUnknownKindIsLeftAlone()
{
    auto given = data();
    given.deviceTypes.front().info.commonType = "toaster";
    given.devices.resize(1);
    given.devices.front().descriptor.url = given.deviceTypes.front().info.url;
    DemoSite site(given);
    Simulation simulation(site, 1);
    const auto before = statesOf(site);

    live(simulation, noon, minute);

    QCOMPARE(statesOf(site), before);
}

void SimulationTest::timeThatRunsBackwardsIsNoStep()
{
    DemoSite site(Demo::SiteLoader::builtIn());
    Simulation simulation(site, 1);
    live(simulation, noon, minute);
    const auto before = statesOf(site);

    simulation.advance(-5 * minute, noon);

    QCOMPARE(statesOf(site), before);
}

void SimulationTest::longStepIsOnePoll()
{
    auto given = data();
    given.devices.front().state.insert("errors", 1);
    given.zones.front().level = 100;
    given.zones.front().swing = 0;
    DemoSite site(given);
    Simulation simulation(site, 1);
    simulation.advance(0, noon);
    const int errors = site.device(QUuid(lamp))->state.value("errors").toInt();

    simulation.advance(10 * minute, noon);
    QCOMPARE(site.device(QUuid(lamp))->state.value("errors").toInt(), errors + 1);

    live(simulation, noon, 10 * second);
    QCOMPARE(site.device(QUuid(lamp))->state.value("errors").toInt(), errors + 2); // and it keeps its rhythm
}

void SimulationTest::siteMayChangeBetweenSteps()
{
    DemoSite site(data());
    Simulation simulation(site, 1);
    live(simulation, noon, minute);

    site.removeDevices({QUuid(lamp), QUuid(sensor)});
    live(simulation, noon, minute);
    site.reset();
    live(simulation, noon, minute);
    site.removeZones({QUuid(till)});
    QSignalSpy changed(&site, &DemoSite::changed);
    live(simulation, noon, 10 * minute);

    QCOMPARE(site.data().devices.size(), size_t(1));
    QVERIFY(!changed.isEmpty()); // the contactor's signal still drifts
}

void SimulationTest::siteWithoutDevicesLives()
{
    auto given = data();
    given.devices.clear();
    DemoSite site(given);
    Simulation simulation(site, 1);
    QSignalSpy changed(&site, &DemoSite::changed);

    simulation.settle(noon);
    live(simulation, noon, 10 * minute);

    QVERIFY(changed.isEmpty());
}

ONDIRA_TEST(SimulationTest)
#include "SimulationTest.moc"
