// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/ScheduleRunner.h"
#include "SiteFixture.h"
#include "demo/DemoServer.h"
#include "support/TestBase.h"

using namespace SiteFixture;
using Demo::DemoSite;
using Demo::ScheduleRunner;

namespace {

// The 20th of November 2026 is a Friday.
QDateTime at(int day, int hour, int minute, int second = 0)
{
    return QDateTime(QDate(2026, 11, day), QTime(hour, minute, second), Qt::OffsetFromUTC, 3 * 3600);
}

int powerOf(const DemoSite &site, const char *device)
{
    return site.device(QUuid(device))->state.value("power", -1).toInt();
}

} // namespace

class ScheduleRunnerTest : public TestBase
{
    Q_OBJECT

private slots:
    void firesAtItsTime();
    void firesOnce();
    void instanceWithZonesOfItsOwnKeepsThem();
    void restsOnOtherDays_data();
    void restsOnOtherDays();
    void dayWithoutWeekdaysNeverFires();
    void midnightBelongsToTheNewDay();
    void pointsFireInTheOrderOfTheirTimes();
    void setClockFiresWhatIsInForce_data();
    void setClockFiresWhatIsInForce();
    void firingIsNoted();
    void removedScheduleFiresNoMore();
    void serverFiresByItsClock();
};

void ScheduleRunnerTest::firesAtItsTime()
{
    DemoSite site(fullData());
    ScheduleRunner runner(site, at(20, 7, 59, 58));

    runner.advance(at(20, 7, 59, 59));
    QCOMPARE(powerOf(site, lamp), 40);

    runner.advance(at(20, 8, 0));
    QCOMPARE(powerOf(site, lamp), 80);
    QCOMPARE(powerOf(site, contactor), 0); // not a zone of that schedule
}

void ScheduleRunnerTest::firesOnce()
{
    DemoSite site(fullData());
    ScheduleRunner runner(site, at(20, 7, 59, 59));
    runner.advance(at(20, 8, 0));
    site.setZonesPower({QUuid(till)}, 11);

    runner.advance(at(20, 8, 0));
    runner.advance(at(20, 8, 0, 1));

    QCOMPARE(powerOf(site, lamp), 11);
}

void ScheduleRunnerTest::instanceWithZonesOfItsOwnKeepsThem()
{
    DemoSite site(fullData());
    ScheduleRunner runner(site, at(20, 19, 59));

    runner.advance(at(20, 20, 1));

    QCOMPARE(powerOf(site, contactor), 5);
    QCOMPARE(powerOf(site, lamp), 40);
}

void ScheduleRunnerTest::restsOnOtherDays_data()
{
    QTest::addColumn<int>("day");
    QTest::addColumn<int>("power");

    QTest::newRow("Friday") << 20 << 80;
    QTest::newRow("Saturday") << 21 << 40;
    QTest::newRow("Sunday") << 22 << 40;
    QTest::newRow("Monday") << 23 << 80;
}

void ScheduleRunnerTest::restsOnOtherDays()
{
    QFETCH(int, day);
    QFETCH(int, power);
    DemoSite site(fullData());
    ScheduleRunner runner(site, at(day, 7, 59));

    runner.advance(at(day, 8, 1));

    QCOMPARE(powerOf(site, lamp), power);
}

void ScheduleRunnerTest::dayWithoutWeekdaysNeverFires()
{
    DemoSite site(fullData());
    auto day = *site.day(QUuid(schedule));
    day.daysOfWeek.clear();
    site.put(day);
    ScheduleRunner runner(site, at(20, 7, 59));

    runner.advance(at(20, 8, 1));
    runner.advance(at(20, 23, 0));

    QCOMPARE(powerOf(site, lamp), 40);
}

void ScheduleRunnerTest::midnightBelongsToTheNewDay()
{
    DemoSite site(fullData());
    auto day = *site.day(QUuid(schedule));
    day.points.front().time = QTime(0, 0);
    day.daysOfWeek = {5}; // Saturday
    site.put(day);
    ScheduleRunner runner(site, at(20, 23, 59, 59));

    runner.advance(at(21, 0, 0, 1));

    QCOMPARE(powerOf(site, lamp), 80);
}

void ScheduleRunnerTest::pointsFireInTheOrderOfTheirTimes()
{
    DemoSite site(fullData());
    auto later = *site.day(QUuid(schedule));
    auto earlier = later;
    earlier.uid = QUuid(nobody);
    earlier.points.front().time = QTime(7, 58);
    earlier.points.front().actions.instances.front().properties.front().value = Model::ActionDatatype(33LL);
    site.put(earlier); // stands behind the other in the list
    ScheduleRunner runner(site, at(20, 7, 57));

    runner.advance(at(20, 8, 1));

    QCOMPARE(powerOf(site, lamp), 80);
}

void ScheduleRunnerTest::setClockFiresWhatIsInForce_data()
{
    QTest::addColumn<QDateTime>("from");
    QTest::addColumn<QDateTime>("until");
    QTest::addColumn<int>("tillPower");
    QTest::addColumn<int>("doorPower");

    QTest::newRow("ahead to the evening") << at(20, 7, 0) << at(20, 22, 0) << 40 << 5;
    QTest::newRow("back to noon") << at(20, 22, 0) << at(20, 12, 0) << 80 << 0;
    QTest::newRow("back before the first point") << at(20, 22, 0) << at(20, 7, 0) << 40 << 0;
    QTest::newRow("ahead by years") << at(20, 7, 0) << at(20, 12, 0).addYears(5) << 80 << 0;
    QTest::newRow("to a free day") << at(20, 7, 0) << at(21, 12, 0) << 40 << 0;
}

void ScheduleRunnerTest::setClockFiresWhatIsInForce()
{
    QFETCH(QDateTime, from);
    QFETCH(QDateTime, until);
    QFETCH(int, tillPower);
    QFETCH(int, doorPower);
    DemoSite site(fullData());
    ScheduleRunner runner(site, from);

    runner.advance(until);

    QCOMPARE(powerOf(site, lamp), tillPower);
    QCOMPARE(powerOf(site, contactor), doorPower);
}

void ScheduleRunnerTest::firingIsNoted()
{
    DemoSite site(fullData());
    ScheduleRunner runner(site, at(20, 7, 59));
    QStringList noted;
    connect(&site, &DemoSite::noted, this, [&noted](auto cause, const QString &, const QString &action) {
        if (cause == Model::LogEntry::Cause::Schedule)
            noted << action;
    });

    runner.advance(at(20, 8, 1));

    QCOMPARE(noted, QStringList("Будни, 08:00"));
}

void ScheduleRunnerTest::removedScheduleFiresNoMore()
{
    DemoSite site(fullData());
    ScheduleRunner runner(site, at(20, 7, 59));
    site.removeDays({QUuid(schedule)});

    runner.advance(at(20, 8, 1));

    QCOMPARE(powerOf(site, lamp), 40);
}

void ScheduleRunnerTest::serverFiresByItsClock()
{
    auto given = fullData();
    given.devices[0].mode = Model::DeviceMode::Mode::Manual; // daylight leaves it alone
    auto now = QDateTime(QDate(2026, 11, 20), QTime(7, 59, 59), Qt::UTC);
    Demo::DemoServer::Settings settings;
    settings.controlPort = 0;
    settings.updatePort = 0;
    settings.tick = 5;
    Demo::DemoServer server(given, settings, [&now] { return now; });
    QString error;
    QVERIFY2(server.start(&error), qPrintable(error));
    QCOMPARE(powerOf(server.site(), lamp), 40);

    now = now.addSecs(2);

    QTRY_COMPARE(powerOf(server.site(), lamp), 80);
}

ONDIRA_TEST(ScheduleRunnerTest)
#include "ScheduleRunnerTest.moc"
