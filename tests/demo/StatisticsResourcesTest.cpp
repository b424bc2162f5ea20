// SPDX-License-Identifier: GPL-3.0-or-later
#include "Documents.h"
#include "SiteFixture.h"
#include "demo/Simulation.h"
#include "demo/SiteLoader.h"
#include "demo/StatisticsStore.h"
#include "model/json/Statistics.h"
#include "support/TestBase.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QSignalSpy>

using namespace SiteFixture;
using Demo::DemoSite;

namespace {

// The clock of a desk shows half past ten.
const QDateTime now(QDate(2026, 11, 21), QTime(10, 30), Qt::UTC);

QByteArray linkOf(const QByteArray &from, const QByteArray &to, const QByteArray &entities, const QByteArray &grain)
{
    return "statistics?from=" + from.toPercentEncoding() + "&to=" + to.toPercentEncoding()
        + "&entities=" + entities.toPercentEncoding() + "&resolution=" + grain;
}

QByteArray only(const char *uid, const QByteArray &types = "[\"\"]")
{
    return QByteArray("{\"") + uid + "\":" + types + "}";
}

QJsonObject attributesOf(const QJsonObject &reply)
{
    return reply.value("data").toObject().value("attributes").toObject();
}

QJsonArray seriesOf(const QJsonObject &reply)
{
    return attributesOf(reply).value("data").toArray();
}

QStringList timesOf(const QJsonValue &series)
{
    QStringList times;
    const auto rows = series.toObject().value("values").toArray();
    for (const auto &row : rows)
        times << row.toArray().first().toString();
    return times;
}

QByteArray hours(const char *uid, const QByteArray &hours, const QByteArray &time)
{
    return entity("device_power_on_info", uid,
                  "{\"power_on_hours\": " + hours + ", \"last_update\": \"" + time + "\"}");
}

} // namespace

class StatisticsResourcesTest : public TestBase
{
    Q_OBJECT

private slots:
    void minutesOfARange();
    void rangesKeepToTheStore_data();
    void rangesKeepToTheStore();
    void seriesByTypes_data();
    void seriesByTypes();
    void meterTellsItsColumns();
    void meterNeverCountsBack();
    void rowsDependOnSiteSeedAndTimeAlone();
    void timeWithoutOffsetIsTheSites();
    void openRangeIsThatOfTheStore();
    void refusesQuery_data();
    void refusesQuery();
    void yearOfMinutesOfOneLamp();
    void tooManyRowsAreRefused();
    void infoTellsTheStore();
    void usersMayReadAndNotSet();

    void runHoursAreSet();
    void runHoursAreCountedSinceADate();
    void refusesRunHours_data();
    void refusesRunHours();
    void runHoursGrowWhileALampIsOn();
    void runHoursCountFromWhenTheyWereSet();
    void builtInSiteTellsRunHoursOfItsLamps();
};

void StatisticsResourcesTest::minutesOfARange()
{
    Desk desk;

    const auto reply = desk.get(linkOf("2026-11-21T00:00:30Z", "2026-11-21T00:03:00Z", only(lamp), "minute"));

    QCOMPARE(codes(reply), QStringList());
    QCOMPARE(attributesOf(reply).value("from").toString(), QString("2026-11-21T00:00:30Z"));
    QCOMPARE(attributesOf(reply).value("to").toString(), QString("2026-11-21T00:03:00Z"));
    QCOMPARE(seriesOf(reply).size(), 1);
    const auto series = seriesOf(reply).first().toObject();
    QCOMPARE(series.value("entity").toString(), QString(lamp));
    QCOMPARE(series.value("type").toString(), QString("Lamp.qml"));
    QCOMPARE(series.value("schema").toArray(), QJsonArray{"power"});
    QCOMPARE(timesOf(series), (QStringList{"2026-11-21T00:01:00Z", "2026-11-21T00:02:00Z", "2026-11-21T00:03:00Z"}));
    for (const auto row : series.value("values").toArray()) {
        QCOMPARE(row.toArray().size(), 2);
        // Half of the swing above the level of 80, by night, and 3 more or less from day to day.
        QVERIFY(row.toArray().at(1).toDouble() >= 87);
        QVERIFY(row.toArray().at(1).toDouble() <= 93);
    }
}

void StatisticsResourcesTest::rangesKeepToTheStore_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<QByteArray>("grain");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("last");

    const QString t("2026-11-21T%1Z");
    QTest::newRow("one minute") << QByteArray("2026-11-21T10:00:00Z") << QByteArray("2026-11-21T10:00:00Z")
                                << QByteArray("minute") << 1 << t.arg("10:00:00") << t.arg("10:00:00");
    QTest::newRow("between minutes") << QByteArray("2026-11-21T10:00:01Z") << QByteArray("2026-11-21T10:00:59Z")
                                     << QByteArray("minute") << 0 << QString() << QString();
    QTest::newRow("not in the future") << QByteArray("2026-11-21T10:29:00Z") << QByteArray("2026-11-22T10:00:00Z")
                                       << QByteArray("minute") << 2 << t.arg("10:29:00") << t.arg("10:30:00");
    QTest::newRow("future") << QByteArray("2026-11-21T10:31:00Z") << QByteArray("2026-11-22T10:00:00Z")
                            << QByteArray("minute") << 0 << QString() << QString();
    QTest::newRow("hours that are over") << QByteArray("2026-11-21T08:00:00Z") << QByteArray("2026-11-21T23:00:00Z")
                                         << QByteArray("hour") << 2 << t.arg("08:00:00") << t.arg("09:00:00");
    QTest::newRow("hours within") << QByteArray("2026-11-21T00:00:01Z") << QByteArray("2026-11-21T02:00:00Z")
                                  << QByteArray("hour") << 2 << t.arg("01:00:00") << t.arg("02:00:00");
    QTest::newRow("backwards") << QByteArray("2026-11-21T10:00:00Z") << QByteArray("2026-11-20T10:00:00Z")
                               << QByteArray("minute") << 0 << QString() << QString();
    QTest::newRow("before the store") << QByteArray("0001-01-01T00:00:00Z") << QByteArray("2025-11-21T09:59:59Z")
                                      << QByteArray("minute") << 0 << QString() << QString();
    QTest::newRow("start of the store") << QByteArray("1970-01-01T00:00:00Z") << QByteArray("2025-11-21T10:01:00Z")
                                        << QByteArray("minute") << 2 << QString("2025-11-21T10:00:00Z")
                                        << QString("2025-11-21T10:01:00Z");
    QTest::newRow("huge range") << QByteArray("0001-01-01T00:00:00Z") << QByteArray("9999-12-31T23:59:59Z")
                                << QByteArray("hour") << 8760 << QString("2025-11-21T10:00:00Z") << t.arg("09:00:00");
}

void StatisticsResourcesTest::rangesKeepToTheStore()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QFETCH(QByteArray, grain);
    QFETCH(int, count);
    QFETCH(QString, first);
    QFETCH(QString, last);
    Desk desk;

    const auto reply = desk.get(linkOf(from, to, only(lamp), grain));

    QCOMPARE(codes(reply), QStringList());
    QCOMPARE(seriesOf(reply).size(), count > 0 ? 1 : 0);
    const auto times = count > 0 ? timesOf(seriesOf(reply).first()) : QStringList();
    QCOMPARE(times.size(), count);
    QCOMPARE(times.value(0), first);
    QCOMPARE(times.value(count - 1), last);
}

void StatisticsResourcesTest::seriesByTypes_data()
{
    QTest::addColumn<QByteArray>("entities");
    QTest::addColumn<QStringList>("expected");

    const auto told = [](const char *uid, const char *type) { return QStringList(QString(uid) + type); };
    QTest::newRow("all of a sensor") << only(sensor) << told(sensor, "LightSensor.qml");
    QTest::newRow("no type named") << only(sensor, "[]") << told(sensor, "LightSensor.qml");
    QTest::newRow("named twice") << only(lamp, R"(["Lamp.qml", "Lamp.qml", ""])") << told(lamp, "Lamp.qml");
    QTest::newRow("one that it has not") << only(lamp, R"(["Beacon.qml"])") << QStringList();
    QTest::newRow("zone") << only(till, R"(["Lamp.qml"])") << told(till, "Lamp.qml");
    QTest::newRow("zone without lamps") << only(door, R"(["Lamp.qml"])") << QStringList();
    QTest::newRow("uid written twice") << QByteArray("{\"") + lamp
            + R"(": ["Lamp.qml"], "40000000-0000-0000-0000-000000000001": [""]})"
                                       << told(lamp, "Lamp.qml");
    QTest::newRow("several") << QByteArray("{\"") + contactor + R"(": [""], ")" + lamp + R"(": [""]})"
                             << told(lamp, "Lamp.qml") + told(contactor, "Contactor.qml");
    QTest::newRow("nothing asked") << QByteArray("{}") << QStringList();
}

void StatisticsResourcesTest::seriesByTypes()
{
    QFETCH(QByteArray, entities);
    Desk desk;

    const auto reply = desk.get(linkOf("2026-11-21T10:00:00Z", "2026-11-21T10:00:00Z", entities, "minute"));

    QCOMPARE(codes(reply), QStringList());
    QStringList told;
    for (const auto series : seriesOf(reply))
        told << series.toObject().value("entity").toString() + series.toObject().value("type").toString();
    QTEST(told, "expected");
}

// A site of its own, with the meters that the small one lacks.
void StatisticsResourcesTest::meterTellsItsColumns()
{
    DemoSite site(Demo::SiteLoader::builtIn());
    const auto &devices = site.data().devices;
    const auto meter = std::find_if(devices.begin(), devices.end(), [](const auto &device) {
        return device.descriptor.url == QUrl("ElectricMeter.qml");
    });
    QVERIFY(meter != devices.end());
    Demo::StatisticsStore store(site, 1, now, "Europe/Moscow");

    const auto series = store.series(meter->descriptor.uid, {"ElectricMeter.qml", "LoraElectricMeter.qml"});

    QCOMPARE(series.size(), size_t(1));
    for (const auto &field : site.deviceType(meter->descriptor.url)->info.statistics.fields)
        QVERIFY2(series.front().schema.contains(field.name), qPrintable(field.name));
    const auto rows = store.rows(series.front(), now, now, Demo::StatisticsStore::Grain::Minute);
    QCOMPARE(rows.size(), size_t(1));
    QCOMPARE(rows.front().values.size(), series.front().schema.size());
    const double voltage = rows.front().values.at(0).toDouble();
    QVERIFY(voltage >= 226 && voltage <= 233);
}

void StatisticsResourcesTest::meterNeverCountsBack()
{
    using Grain = Demo::StatisticsStore::Grain;
    DemoSite site(Demo::SiteLoader::builtIn());
    Demo::StatisticsStore store(site, 1, now, "Europe/Berlin"); // with summer time
    for (const auto &device : site.data().devices) {
        if (device.descriptor.url != QUrl("ElectricMeter.qml"))
            continue;
        const auto rows =
            store.rows(store.series(device.descriptor.uid, {}).front(), store.start(), store.end(), Grain::Hour);
        QCOMPARE(rows.size(), size_t(8760));
        for (size_t row = 1; row < rows.size(); ++row)
            QVERIFY(rows[row].values.last().toDouble() > rows[row - 1].values.last().toDouble());
    }
}

void StatisticsResourcesTest::rowsDependOnSiteSeedAndTimeAlone()
{
    const auto link = linkOf("2026-11-20T00:00:00Z", "2026-11-20T12:00:00Z", only(sensor), "minute");
    Desk desk;
    Desk later;
    later.time = later.time.addDays(30);

    const auto told = seriesOf(desk.get(link));

    QCOMPARE(timesOf(told.first()).size(), 721);
    QCOMPARE(seriesOf(later.get(link)), told);
    Demo::StatisticsStore one(desk.site, 1, now, "UTC");
    Demo::StatisticsStore two(desk.site, 2, now, "UTC");
    const auto rowsOf = [](Demo::StatisticsStore &store) {
        return store.rows(store.series(QUuid(sensor), {}).front(), now.addSecs(-3600), now,
                          Demo::StatisticsStore::Grain::Minute);
    };
    QVERIFY(!(rowsOf(one) == rowsOf(two)));
}

void StatisticsResourcesTest::timeWithoutOffsetIsTheSites()
{
    auto site = data();
    site.timezone = "Europe/Moscow";
    Desk desk(site);

    const auto reply = desk.get(linkOf("2026-11-21T10:00:00", "2026-11-21T10:01:00+03:00", only(lamp), "minute"));

    QCOMPARE(timesOf(seriesOf(reply).first()), (QStringList{"2026-11-21T07:00:00Z", "2026-11-21T07:01:00Z"}));
}

void StatisticsResourcesTest::openRangeIsThatOfTheStore()
{
    Desk desk;

    const auto reply = desk.get("statistics?resolution=hour&entities=" + only(lamp).toPercentEncoding());

    QCOMPARE(attributesOf(reply).value("from").toString(), QString("2025-11-21T10:00:00Z"));
    QCOMPARE(attributesOf(reply).value("to").toString(), QString("2026-11-21T10:30:00Z"));
    QCOMPARE(timesOf(seriesOf(reply).first()).size(), 8760);
}

void StatisticsResourcesTest::refusesQuery_data()
{
    QTest::addColumn<QByteArray>("link");
    QTest::addColumn<QString>("code");

    const QString invalid("invalid_data_error");
    const QByteArray day("2026-11-20T00:00:00Z");
    const auto good = linkOf(day, day, only(lamp), "hour");
    QTest::newRow("no query") << QByteArray("statistics") << invalid;
    QTest::newRow("bad start") << linkOf("yesterday", day, only(lamp), "hour") << invalid;
    QTest::newRow("empty end") << linkOf(day, "", only(lamp), "hour") << invalid;
    QTest::newRow("no such day") << linkOf(day, "2026-02-30T00:00:00Z", only(lamp), "hour") << invalid;
    QTest::newRow("no grain") << linkOf(day, day, only(lamp), "") << invalid;
    QTest::newRow("other grain") << linkOf(day, day, only(lamp), "day") << invalid;
    QTest::newRow("twice") << good + "&resolution=hour" << invalid;
    QTest::newRow("unknown item") << good + "&limit=1" << invalid;
    QTest::newRow("entities are no JSON") << linkOf(day, day, "lamp", "hour") << invalid;
    QTest::newRow("entities are a list") << linkOf(day, day, "[]", "hour") << invalid;
    QTest::newRow("types are a text") << linkOf(day, day, only(lamp, "\"Lamp.qml\""), "hour") << invalid;
    QTest::newRow("types are numbers") << linkOf(day, day, only(lamp, "[1]"), "hour") << invalid;
    QTest::newRow("unknown device") << linkOf(day, day, only(nobody), "hour") << QString("unknown_uid_error");
    QTest::newRow("no uid") << linkOf(day, day, only("lamp"), "hour") << QString("unknown_uid_error");
    QTest::newRow("plan") << linkOf(day, day, only(hall), "hour") << QString("unknown_uid_error");
}

void StatisticsResourcesTest::refusesQuery()
{
    QFETCH(QByteArray, link);
    QFETCH(QString, code);
    Desk desk;

    const auto reply = desk.get(link);

    QVERIFY(codes(reply).contains(code));
    QVERIFY(!reply.contains("data"));
}

void StatisticsResourcesTest::yearOfMinutesOfOneLamp()
{
    Desk desk;
    QElapsedTimer timer;
    timer.start();

    const auto reply = desk.get(linkOf("2020-01-01T00:00:00Z", "2030-01-01T00:00:00Z", only(lamp), "minute"));

    qInfo("%lld ms", timer.elapsed());
    QCOMPARE(codes(reply), QStringList());
    QCOMPARE(seriesOf(reply).first().toObject().value("values").toArray().size(), 365 * 24 * 60 + 31);
}

void StatisticsResourcesTest::tooManyRowsAreRefused()
{
    Desk desk;
    const auto two = QByteArray("{\"") + lamp + R"(": [""], ")" + manualLamp + R"(": [""]})";

    const auto reply = desk.get(linkOf("2020-01-01T00:00:00Z", "2030-01-01T00:00:00Z", two, "minute"));

    QCOMPARE(codes(reply), QStringList("too_much_statistics_error"));
    QCOMPARE(reply.value("errors").toArray().first().toObject().value("detail").toString(),
             QString("1051262 > 600000"));
    QCOMPARE(codes(desk.get(linkOf("2020-01-01T00:00:00Z", "2030-01-01T00:00:00Z", two, "hour"))), QStringList());
}

void StatisticsResourcesTest::infoTellsTheStore()
{
    Desk desk;

    const auto before = attributesOf(desk.get("statistics_info"));
    desk.site.note({now, Model::LogEntry::Cause::User, "admin", "abc"});
    const auto after = attributesOf(desk.get("statistics_info"));

    QCOMPARE(before.value("data_from").toString(), QString("2025-11-21T10:00:00Z"));
    QCOMPARE(before.value("data_to").toString(), QString("2026-11-21T10:30:00Z"));
    // Four devices and a zone, of each the minutes and the hours.
    QCOMPARE(before.value("statistics_size").toDouble(), 5.0 * (365 * 24 * 60 + 31 + 8760) * 24);
    QCOMPARE(after.value("log_size").toDouble() - before.value("log_size").toDouble(), 48.0 + 5 + 3);
    QVERIFY(after.value("available_size").toDouble() < before.value("available_size").toDouble());
    QVERIFY(after.value("available_size").toDouble() > 0);
    QCOMPARE(codes(desk.get("statistics_info/1")), QStringList("bad_request_error"));
}

void StatisticsResourcesTest::usersMayReadAndNotSet()
{
    Desk desk;
    const auto day = linkOf("2026-11-20T00:00:00Z", "2026-11-20T01:00:00Z", only(lamp), "hour");
    const auto set = document("POST", "power_on_statistics", listOf({hours(lamp, "1", "2026-11-21T10:30:00Z")}));

    QCOMPARE(codes(desk.ask(document("GET", day), "user")), QStringList());
    QCOMPARE(codes(desk.ask(document("GET", "statistics_info"), "user")), QStringList());
    QCOMPARE(codes(desk.ask(document("GET", day), "stranger")), QStringList("auth_needed"));
    QCOMPARE(codes(desk.ask(set, "user")), QStringList("access_denied_error"));
    QVERIFY(desk.site.data().powerOn.isEmpty());
    QCOMPARE(codes(desk.get("power_on_statistics")), QStringList("wrong_method_error"));
}

void StatisticsResourcesTest::runHoursAreSet()
{
    Desk desk;
    QSignalSpy changed(&desk.site, &DemoSite::changed);

    const auto reply = desk.post(
        "power_on_statistics",
        listOf({hours(lamp, "12.5", "2026-11-21T10:29:58Z"), hours(manualLamp, "0", "2026-11-21T10:29:58Z")}));

    QCOMPARE(codes(reply), QStringList());
    QCOMPARE(related(reply, "changed"), (QStringList{lamp, manualLamp}));
    QCOMPARE(changed.first().first().value<DemoSite::List>(), DemoSite::List::PowerOnStatistics);
    QCOMPARE(desk.site.data().powerOn.value(QUuid(lamp)).powerOnHours, 12.5);
    QCOMPARE(desk.site.data().powerOn.value(QUuid(lamp)).lastUpdate, now);
    QCOMPARE(desk.site.data().powerOn.value(QUuid(manualLamp)).powerOnHours, 0.0);
    QVERIFY(desk.site.data().powerOn.contains(QUuid(manualLamp)));
}

void StatisticsResourcesTest::runHoursAreCountedSinceADate()
{
    Desk desk;
    const auto hoursSince = [&desk](const QByteArray &time) {
        desk.post("power_on_statistics", listOf({hours(lamp, "0", time)}));
        return desk.site.data().powerOn.value(QUuid(lamp)).powerOnHours;
    };

    // Its zone is lit day and night.
    QCOMPARE(hoursSince("2026-11-20T10:30:00Z"), 24.0);
    QCOMPARE(hoursSince("2001-01-01T00:00:00Z"), 365 * 24 + 0.5); // no further than the statistics tell
    QCOMPARE(hoursSince("2040-01-01T00:00:00Z"), 0.0);
}

void StatisticsResourcesTest::refusesRunHours_data()
{
    QTest::addColumn<QByteArray>("entities");
    QTest::addColumn<QString>("code");

    const QByteArray time("2026-11-21T10:30:00Z");
    const QString invalid("invalid_data_error");
    QTest::newRow("none") << QByteArray("[]") << invalid;
    QTest::newRow("other type") << listOf({entity("device", lamp)}) << invalid;
    QTest::newRow("empty") << listOf({entity("device_power_on_info", lamp)}) << invalid;
    QTest::newRow("negative") << listOf({hours(lamp, "-1", time)}) << invalid;
    QTest::newRow("huge") << listOf({hours(lamp, "1e300", time)}) << invalid;
    QTest::newRow("text") << listOf({hours(lamp, "\"12\"", time)}) << invalid;
    QTest::newRow("null") << listOf({hours(lamp, "null", time)}) << invalid;
    QTest::newRow("bad time") << listOf({hours(lamp, "1", "noon")}) << invalid;
    QTest::newRow("sensor") << listOf({hours(sensor, "1", time)}) << invalid;
    QTest::newRow("unknown") << listOf({hours(nobody, "1", time)}) << QString("unknown_uid_error");
    QTest::newRow("one of two") << listOf({hours(lamp, "1", time), hours(nobody, "1", time)})
                                << QString("unknown_uid_error");
}

void StatisticsResourcesTest::refusesRunHours()
{
    QFETCH(QByteArray, entities);
    QFETCH(QString, code);
    Desk desk;

    QVERIFY(codes(desk.post("power_on_statistics", entities)).contains(code));

    QVERIFY(desk.site.data().powerOn.isEmpty());
}

void StatisticsResourcesTest::runHoursGrowWhileALampIsOn()
{
    DemoSite site(data());
    site.setMode(QUuid(lamp), Model::DeviceMode::Mode::Manual);
    auto off = site.device(QUuid(lamp))->state;
    off.insert("power", 0);
    site.setState(QUuid(lamp), off);
    Demo::Simulation simulation(site, 1);
    int published = 0;
    connect(&site, &DemoSite::changed, this,
            [&published](auto list) { published += list == DemoSite::List::PowerOnStatistics ? 1 : 0; });

    for (int second = 1; second <= 3600; ++second)
        simulation.advance(1000, now.addSecs(second));

    QCOMPARE(published, 10); // a tenth of an hour each
    QVERIFY(!site.data().powerOn.contains(QUuid(lamp)));
    const auto info = site.data().powerOn.value(QUuid(manualLamp));
    QVERIFY(qAbs(info.powerOnHours - 1) < 0.01); // the last answer may be some seconds old
    QCOMPARE(info.lastUpdate, now.addSecs(3600));
}

void StatisticsResourcesTest::runHoursCountFromWhenTheyWereSet()
{
    DemoSite site(data());
    Demo::Simulation simulation(site, 1);
    for (int second = 1; second <= 300; ++second)
        simulation.advance(1000, now.addSecs(second));
    Model::DevicePowerOnInfo info;
    info.uid = QUuid(manualLamp);
    info.powerOnHours = 100;
    info.lastUpdate = now.addSecs(300);
    site.put(info);

    for (int second = 301; second <= 360; ++second)
        simulation.advance(1000, now.addSecs(second));

    const double hours = site.data().powerOn.value(info.uid).powerOnHours;
    QVERIFY(hours > 100 && hours <= 100 + 60.0 / 3600 + 1e-9);
}

void StatisticsResourcesTest::builtInSiteTellsRunHoursOfItsLamps()
{
    const auto site = Demo::SiteLoader::builtIn();

    int lamps = 0;
    for (const auto &device : site.devices) {
        if (device.descriptor.url != QUrl("Lamp.qml") && device.descriptor.url != QUrl("PollingLamp.qml"))
            continue;
        ++lamps;
        QVERIFY(site.powerOn.value(device.descriptor.uid).powerOnHours > 0);
        QVERIFY(site.powerOn.value(device.descriptor.uid).lastUpdate.isValid());
    }
    QCOMPARE(site.powerOn.size(), lamps);
}

ONDIRA_TEST(StatisticsResourcesTest)
#include "StatisticsResourcesTest.moc"
