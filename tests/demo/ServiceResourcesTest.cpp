// SPDX-License-Identifier: GPL-3.0-or-later
#include "Documents.h"
#include "SiteFixture.h"
#include "demo/SiteLoader.h"
#include "support/TestBase.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>

using namespace SiteFixture;
using Cause = Model::LogEntry::Cause;
using Demo::DemoSite;

namespace {

// One of each transport, none as delivered.
Demo::SiteData wired()
{
    auto site = fullData();
    site.settings.mrf.resize(1);
    site.settings.mrf[0].hostPan = 7;
    site.settings.lora.resize(1);
    site.settings.lora[0].portName = "ttyUSB0";
    site.settings.rs485.resize(1);
    site.settings.rs485[0].portName = "ttyS0";
    site.settings.pwm.byteFor20Power = 60;
    return site;
}

QByteArray settings(const QByteArray &attributes)
{
    return listOf({entity("settings", "1", attributes)});
}

QJsonObject attributesOf(const QJsonValue &entity)
{
    return entity.toObject().value("attributes").toObject();
}

QJsonArray dataOf(const QJsonObject &reply)
{
    return reply.value("data").toArray();
}

QStringList details(const QJsonObject &reply)
{
    QStringList details;
    const auto errors = reply.value("errors").toArray();
    for (const auto &error : errors)
        details << error.toObject().value("detail").toString();
    return details;
}

QByteArray logLink(const QDateTime &from, const QDateTime &to)
{
    return "system_log?from=" + QByteArray::number(from.toMSecsSinceEpoch())
        + "&to=" + QByteArray::number(to.toMSecsSinceEpoch());
}

QStringList loggedActions(Desk &desk, const QByteArray &link = "system_log")
{
    QStringList actions;
    const auto entries = dataOf(desk.get(link));
    for (const auto &entry : entries)
        actions << attributesOf(entry).value("action").toString();
    return actions;
}

} // namespace

class ServiceResourcesTest : public TestBase
{
    Q_OBJECT

private slots:
    void settingsAreStoredAndPublished();
    void settingsKeepWhatIsLeftOut();
    void emptyListTakesTheTransportsAway();
    void olderClientSetsTheFirstRadio();
    void olderClientAddsTheFirstRadio();
    void unknownKeysDoNoHarm();
    void endsOfRangesAreTaken_data();
    void endsOfRangesAreTaken();
    void refusesSettings_data();
    void refusesSettings();
    void tellsEachMistake();
    void settingsOfAnotherIdAreUnknown_data();
    void settingsOfAnotherIdAreUnknown();
    void onlyAdministratorsSet();
    void settingsAreNotGiven();

    void statusNamesEachTransport();
    void statusFollowsThePorts_data();
    void statusFollowsThePorts();
    void statusLives();
    void statusGrowsWithTheLoad();
    void statusOfTheSlowestRadioIsBounded();
    void noTransportsNoStatus();

    void logTellsEntries();
    void logKeepsToItsRange();
    void refusesRange_data();
    void refusesRange();
    void logOpenAtBothEnds();
    void requestsLeaveTheirTraces();
    void refusedRequestLeavesNoTrace();
    void usersMayReadBoth();

    void backupCarriesTheService();
    void largeBackupIsRestored();
    void factoryResetBringsBackTheService();
};

void ServiceResourcesTest::settingsAreStoredAndPublished()
{
    Desk desk(wired());
    QSignalSpy changed(&desk.site, &DemoSite::changed);

    const auto reply = desk.post("settings/1", settings(R"({
        "pwm": {"100": 250, "80": 200, "60": 150, "40": 100, "20": 50, "0": 1},
        "mrf": [{"pan": 1, "address": 2, "channel": 11, "duty_cycle": "duty25"},
                {"pan": 65535, "address": 65535, "channel": 26, "duty_cycle": "duty1"}],
        "radio": {"pan": 1, "address": 2, "channel": 11, "duty_cycle": "duty25"},
        "lora": [{"frequency": 868900000, "power": 14, "bandwidth": 7, "spreading_factor": 9, "coding_rate": 4,
                  "address": 5, "port_name": "ttyUSB0", "duty_cycle": "duty10", "maximum_reply_length": 128}],
        "rs485": [{"address": 6, "speed": 115200, "reply_wait_time": 0, "duty_cycle": "duty100", "port_name": ""}]})"));

    QCOMPARE(codes(reply), QStringList());
    QCOMPARE(related(reply, "changed"), QStringList("1"));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.first().first().value<DemoSite::List>(), DemoSite::List::Settings);
    Model::Settings expected;
    expected.pwm = {250, 200, 150, 100, 50, 1};
    expected.mrf = {{1, 2, 11, RadioDutyCycle::Duty25}, {65535, 65535, 26, RadioDutyCycle::Duty1}};
    expected.lora = {{868900000, 14, 7, 9, 4, 5, "ttyUSB0", RadioDutyCycle::Duty10, 128}};
    expected.rs485 = {{6, 115200, 0, RadioDutyCycle::Duty100, ""}};
    QCOMPARE(desk.site.data().settings, expected);
}

void ServiceResourcesTest::settingsKeepWhatIsLeftOut()
{
    Desk desk(wired());

    QCOMPARE(codes(desk.post("settings/1", settings(R"({"pwm": {"80": 199}})"))), QStringList());

    auto expected = wired().settings;
    expected.pwm.byteFor80Power = 199;
    QCOMPARE(desk.site.data().settings, expected);
    QCOMPARE(codes(desk.post("settings/1", settings("{}"))), QStringList());
    QCOMPARE(desk.site.data().settings, expected);
}

void ServiceResourcesTest::emptyListTakesTheTransportsAway()
{
    Desk desk(wired());

    QCOMPARE(codes(desk.post("settings/1", settings(R"({"mrf": [], "rs485": []})"))), QStringList());

    QVERIFY(desk.site.data().settings.mrf.empty());
    QVERIFY(desk.site.data().settings.rs485.empty());
    QCOMPARE(desk.site.data().settings.lora, wired().settings.lora);
}

void ServiceResourcesTest::olderClientSetsTheFirstRadio()
{
    auto site = wired();
    site.settings.mrf.resize(2);
    Desk desk(site);

    QCOMPARE(codes(desk.post("settings/1", settings(R"({"radio": {"pan": 9, "channel": 20}})"))), QStringList());

    const auto &mrf = desk.site.data().settings.mrf;
    QCOMPARE(mrf.size(), size_t(2));
    QCOMPARE(int(mrf[0].hostPan), 9);
    QCOMPARE(int(mrf[0].hostChannel), 20);
    QCOMPARE(mrf[1], site.settings.mrf[1]);
}

void ServiceResourcesTest::olderClientAddsTheFirstRadio()
{
    Desk desk;

    QCOMPARE(codes(desk.post("settings/1", settings(R"({"radio": {"pan": 9}})"))), QStringList());

    QCOMPARE(desk.site.data().settings.mrf.size(), size_t(1));
    QCOMPARE(int(desk.site.data().settings.mrf[0].hostPan), 9);
}

void ServiceResourcesTest::unknownKeysDoNoHarm()
{
    Desk desk(wired());

    QCOMPARE(codes(desk.post("settings/1", settings(R"({"colour": 1, "pwm": {"90": "?"}, "mrf": [{"pan": 7,
        "smell": []}]})"))),
             QStringList());

    QCOMPARE(desk.site.data().settings, wired().settings);
}

void ServiceResourcesTest::endsOfRangesAreTaken_data()
{
    QTest::addColumn<QByteArray>("attributes");

    for (const auto *frequency : {"410000000", "510000000", "862000000", "893000000"}) {
        const QByteArray attributes = QByteArray(R"({"lora": [{"frequency": )") + frequency + "}]}";
        QTest::newRow(frequency) << attributes;
    }
    QTest::newRow("least of a LoRa radio") << QByteArray(
        R"({"lora": [{"power": 10, "bandwidth": 6, "spreading_factor": 6, "coding_rate": 1, "maximum_reply_length": 4,
            "address": 0}]})");
    QTest::newRow("most of a LoRa radio") << QByteArray(
        R"({"lora": [{"power": 30, "bandwidth": 9, "spreading_factor": 12, "coding_rate": 8,
            "maximum_reply_length": 256, "address": 65535}]})");
    QTest::newRow("least of a line") << QByteArray(R"({"rs485": [{"speed": 1200, "reply_wait_time": 0}]})");
    QTest::newRow("most of a line") << QByteArray(R"({"rs485": [{"speed": 115200, "reply_wait_time": 10000}]})");
    QTest::newRow("defaults") << QByteArray(R"({"mrf": [{}], "lora": [{}], "rs485": [{}]})");
    QByteArray many = "{}";
    for (int i = 1; i < 64; ++i)
        many += ", {}";
    const QByteArray radios = R"({"mrf": [)" + many + "]}";
    QTest::newRow("as many as may be") << radios;
}

void ServiceResourcesTest::endsOfRangesAreTaken()
{
    QFETCH(QByteArray, attributes);
    Desk desk(wired());

    QCOMPARE(details(desk.post("settings/1", settings(attributes))), QStringList());
    QString error;
    QVERIFY2(Demo::SiteLoader::fromJson(Demo::SiteLoader::toJson(desk.site.data()), &error), qPrintable(error));
}

void ServiceResourcesTest::refusesSettings_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("detail");

    const auto row = [](const QByteArray &attributes, const char *detail) {
        QTest::newRow(attributes.left(60)) << attributes << QString(detail);
    };
    row(R"({"pwm": []})", "\"pwm\"");
    row(R"({"pwm": null})", "\"pwm\"");
    row(R"({"pwm": {"100": 256}})", "\"100\" of \"pwm\"");
    row(R"({"pwm": {"0": -1}})", "\"0\" of \"pwm\"");
    row(R"({"pwm": {"20": 0.5}})", "\"20\" of \"pwm\"");
    row(R"({"pwm": {"40": "102"}})", "\"40\" of \"pwm\"");
    row(R"({"pwm": {"60": null}})", "\"60\" of \"pwm\"");
    row(R"({"mrf": {}})", "\"mrf\"");
    row(R"({"mrf": [1]})", "\"mrf[0]\"");
    row(R"({"mrf": [{}, {"pan": 65536}]})", "\"pan\" of \"mrf[1]\"");
    row(R"({"mrf": [{"address": -1}]})", "\"address\" of \"mrf[0]\"");
    row(R"({"mrf": [{"channel": 10}]})", "\"channel\" of \"mrf[0]\"");
    row(R"({"mrf": [{"channel": 27}]})", "\"channel\" of \"mrf[0]\"");
    row(R"({"mrf": [{"duty_cycle": "duty51"}]})", "\"duty_cycle\" of \"mrf[0]\"");
    row(R"({"mrf": [{"duty_cycle": 0}]})", "\"duty_cycle\" of \"mrf[0]\"");
    row(R"({"radio": {"channel": 1}})", "\"channel\" of \"radio\"");
    row(R"({"radio": [{}]})", "\"radio\"");
    row(R"({"lora": [{"frequency": 409999999}]})", "\"frequency\" of \"lora[0]\"");
    row(R"({"lora": [{"frequency": 510000001}]})", "\"frequency\" of \"lora[0]\"");
    row(R"({"lora": [{"frequency": 861999999}]})", "\"frequency\" of \"lora[0]\"");
    row(R"({"lora": [{"frequency": 893000001}]})", "\"frequency\" of \"lora[0]\"");
    row(R"({"lora": [{"frequency": 1e300}]})", "\"frequency\" of \"lora[0]\"");
    row(R"({"lora": [{"power": 9}]})", "\"power\" of \"lora[0]\"");
    row(R"({"lora": [{"power": 31}]})", "\"power\" of \"lora[0]\"");
    row(R"({"lora": [{"bandwidth": 5}]})", "\"bandwidth\" of \"lora[0]\"");
    row(R"({"lora": [{"bandwidth": 10}]})", "\"bandwidth\" of \"lora[0]\"");
    row(R"({"lora": [{"spreading_factor": 13}]})", "\"spreading_factor\" of \"lora[0]\"");
    row(R"({"lora": [{"coding_rate": 0}]})", "\"coding_rate\" of \"lora[0]\"");
    row(R"({"lora": [{"maximum_reply_length": 257}]})", "\"maximum_reply_length\" of \"lora[0]\"");
    row(R"({"lora": [{"maximum_reply_length": 3}]})", "\"maximum_reply_length\" of \"lora[0]\"");
    row(R"({"lora": [{"port_name": 1}]})", "\"port_name\" of \"lora[0]\"");
    row(R"({"rs485": "off"})", "\"rs485\"");
    row(R"({"rs485": [{"speed": 1199}]})", "\"speed\" of \"rs485[0]\"");
    row(R"({"rs485": [{"speed": 115201}]})", "\"speed\" of \"rs485[0]\"");
    row(R"({"rs485": [{"reply_wait_time": 10001}]})", "\"reply_wait_time\" of \"rs485[0]\"");
    row(R"({"rs485": [{"port_name": null}]})", "\"port_name\" of \"rs485[0]\"");
    row(R"({"rs485": [{"port_name": ")" + QByteArray(65, 'p') + R"("}]})", "\"port_name\" of \"rs485[0]\"");
    QByteArray many = "{}";
    for (int i = 0; i < 64; ++i)
        many += ", {}";
    row(R"({"mrf": [)" + many + "]}", "\"mrf\"");
}

void ServiceResourcesTest::refusesSettings()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QString, detail);
    Desk desk(wired());
    QSignalSpy changed(&desk.site, &DemoSite::changed);

    const auto reply = desk.post("settings/1", settings(attributes));

    QCOMPARE(codes(reply), QStringList("invalid_data_error"));
    QCOMPARE(details(reply), QStringList(detail));
    QCOMPARE(desk.site.data().settings, wired().settings);
    QVERIFY(changed.isEmpty());
}

void ServiceResourcesTest::tellsEachMistake()
{
    Desk desk(wired());

    const auto reply =
        desk.post("settings/1", settings(R"({"pwm": {"100": -1}, "mrf": [{"channel": 1, "pan": -1}], "rs485": 1})"));

    QCOMPARE(details(reply),
             (QStringList{"\"100\" of \"pwm\"", "\"pan\" of \"mrf[0]\"", "\"channel\" of \"mrf[0]\"", "\"rs485\""}));
}

void ServiceResourcesTest::settingsOfAnotherIdAreUnknown_data()
{
    QTest::addColumn<QByteArray>("link");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("code");

    QTest::newRow("in the link") << QByteArray("settings/2") << settings("{}") << "unknown_uid_error";
    QTest::newRow("in the entity") << QByteArray("settings/1") << listOf({entity("settings", "2")})
                                   << "unknown_uid_error";
    QTest::newRow("of nothing") << QByteArray("settings/1") << QByteArray("[]") << "invalid_data_error";
    QTest::newRow("twice") << QByteArray("settings/1") << listOf({entity("settings", "1"), entity("settings", "1")})
                           << "invalid_data_error";
    QTest::newRow("of another type") << QByteArray("settings/1") << listOf({entity("setting", "1")})
                                     << "invalid_data_error";
    QTest::newRow("with a query") << QByteArray("settings/1?from=1") << settings("{}") << "bad_request_error";
}

void ServiceResourcesTest::settingsOfAnotherIdAreUnknown()
{
    QFETCH(QByteArray, link);
    QFETCH(QByteArray, data);
    QFETCH(QString, code);
    Desk desk(wired());

    QCOMPARE(codes(desk.post(link, data)), QStringList(code));
}

void ServiceResourcesTest::onlyAdministratorsSet()
{
    Desk desk(wired());
    const auto request = document("POST", "settings/1", settings("{}"));

    QCOMPARE(codes(desk.ask(request, "user")), QStringList("access_denied_error"));
    QCOMPARE(codes(desk.ask(request, "stranger")), QStringList("auth_needed"));
    QCOMPARE(codes(desk.ask(request, "admin")), QStringList());
}

void ServiceResourcesTest::settingsAreNotGiven()
{
    Desk desk(wired());

    QCOMPARE(codes(desk.get("settings")), QStringList("wrong_method_error"));
    QCOMPARE(codes(desk.post("radio_status", "[]")), QStringList("wrong_method_error"));
    QCOMPARE(codes(desk.post("system_log", "[]")), QStringList("wrong_method_error"));
}

void ServiceResourcesTest::statusNamesEachTransport()
{
    auto site = wired();
    site.settings.mrf.resize(2);
    Desk desk(site);

    const auto list = dataOf(desk.get("radio_status"));

    QStringList ids;
    for (const auto &element : list) {
        const auto status = attributesOf(element);
        QCOMPARE(element.toObject().value("type").toString(), QString("radio_status"));
        ids << element.toObject().value("id").toString();
        QCOMPARE(ids.last(),
                 status.value("device_type").toString() + '_' + QString::number(status.value("device_index").toInt()));
        QCOMPARE(status.value("device_open"), QJsonValue(true));
        const int low = status.value("low_queue_latency").toInt();
        const int normal = status.value("normal_queue_latency").toInt();
        const int high = status.value("high_queue_latency").toInt();
        QVERIFY(high > 0);
        QVERIFY(high < normal); // what is urgent goes first
        QVERIFY(normal < low);
        QCOMPARE(status.size(), 6);
    }
    QCOMPARE(ids, (QStringList{"mrf_0", "mrf_1", "lora_0", "rs485_0"}));
}

void ServiceResourcesTest::statusFollowsThePorts_data()
{
    QTest::addColumn<QStringList>("lora"); // ports; the site has ttyS0 and ttyUSB0
    QTest::addColumn<QStringList>("rs485");
    QTest::addColumn<QString>("open"); // LoRa radios, then lines

    QTest::newRow("each its own") << QStringList{"ttyS0"} << QStringList{"ttyUSB0"} << "11";
    QTest::newRow("one port for two") << QStringList{"ttyS0"} << QStringList{"ttyS0"} << "10";
    QTest::newRow("no such port") << QStringList{"ttyS9"} << QStringList{"COM1"} << "00";
    QTest::newRow("a radio takes a free port") << QStringList{""} << QStringList{"ttyS0"} << "11";
    QTest::newRow("but none that another asked for") << QStringList{"", ""} << QStringList{"ttyS0"} << "101";
    QTest::newRow("no more ports than there are") << QStringList{"", "", ""} << QStringList() << "110";
    QTest::newRow("a line without a port is off") << QStringList() << QStringList{""} << "0";
}

void ServiceResourcesTest::statusFollowsThePorts()
{
    QFETCH(QStringList, lora);
    QFETCH(QStringList, rs485);
    auto site = fullData();
    for (const auto &port : lora) {
        site.settings.lora.emplace_back();
        site.settings.lora.back().portName = port;
    }
    for (const auto &port : rs485) {
        site.settings.rs485.emplace_back();
        site.settings.rs485.back().portName = port;
    }
    Desk desk(site);
    QString open;

    const auto list = dataOf(desk.get("radio_status"));

    for (const auto &element : list) {
        const auto status = attributesOf(element);
        const bool isOpen = status.value("device_open").toBool();
        open += isOpen ? '1' : '0';
        for (const auto *queue : {"low_queue_latency", "normal_queue_latency", "high_queue_latency"})
            QCOMPARE(status.value(QLatin1String(queue)).toInt() > 0, isOpen);
    }
    QTEST(open, "open");
}

void ServiceResourcesTest::statusLives()
{
    Desk desk(wired());
    Desk same(wired());
    QSet<QByteArray> seen;

    for (int second = 0; second < 10; ++second) {
        const auto reply = desk.get("radio_status");
        QCOMPARE(reply, same.get("radio_status")); // the same site at the same time
        seen.insert(QJsonDocument(reply).toJson());
        desk.time = desk.time.addMSecs(500);
        QCOMPARE(reply, desk.get("radio_status")); // not within a second
        desk.time = desk.time.addMSecs(500);
        same.time = same.time.addSecs(1);
    }

    QVERIFY(seen.size() >= 8);
    Demo::RequestHandler other(desk.site, desk.clock, QVersionNumber(4, 5, 2), 2);
    using Flags = ZmqMessageHeader::Flags;
    const auto ask = [&other](const QByteArray &document) {
        const auto reply = other.answer("admin", {ZmqMessageHeader({Flags::Json}, "test:1"), document});
        return QJsonDocument::fromJson(reply.body).object();
    };
    ask(loginDocument("admin", "secret"));
    QVERIFY(ask(document("GET", "radio_status")) != desk.get("radio_status"));
}

void ServiceResourcesTest::statusGrowsWithTheLoad()
{
    const auto latency = [](const Demo::SiteData &site) {
        Desk desk(site);
        return attributesOf(dataOf(desk.get("radio_status")).at(1)).value("normal_queue_latency").toInt();
    };
    auto site = wired();
    site.settings.mrf.resize(2);
    const int idle = latency(site);

    auto crowded = site;
    crowded.devices.resize(60, crowded.devices.front());
    for (auto &device : crowded.devices)
        device.descriptor.radioIndex = 1;
    auto slow = site;
    slow.settings.mrf[1].dutyCycle = RadioDutyCycle::Duty10;

    QVERIFY(latency(crowded) >= 3 * idle);
    QVERIFY(latency(slow) >= 4 * idle);
}

void ServiceResourcesTest::statusOfTheSlowestRadioIsBounded()
{
    auto site = wired();
    auto &lora = site.settings.lora[0];
    lora.bandwidth = 6;
    lora.spreadingFactor = 12;
    lora.dutyCycle = RadioDutyCycle::Duty1;
    Desk desk(site);

    const auto status = attributesOf(dataOf(desk.get("radio_status")).at(1));

    QCOMPARE(status.value("low_queue_latency").toInt(), 60000);
    QCOMPARE(status.value("high_queue_latency").toInt(), 60000);
}

void ServiceResourcesTest::noTransportsNoStatus()
{
    Desk desk;

    QCOMPARE(desk.get("radio_status").value("data"), QJsonValue(QJsonArray()));
}

void ServiceResourcesTest::logTellsEntries()
{
    Desk desk;
    desk.clock.setTimezone("UTC+03:00");
    desk.site.note({desk.clock.now(), Cause::Schedule, {}, "Будни, 08:00"});
    const QByteArray id = QByteArray::number(desk.time.toMSecsSinceEpoch());

    const auto entries = dataOf(desk.get("system_log"));

    QCOMPARE(entries.size(), 3); // and two logins
    const auto expected = QJsonDocument::fromJson(R"({"type": "log_entry", "id": ")" + id + R"(", "attributes":
        {"time": "2026-11-21T13:30:00+03:00", "cause": "schedule", "username": "", "action": "Будни, 08:00"}})");
    QCOMPARE(entries.last().toObject(), expected.object());
    QCOMPARE(attributesOf(entries.first()).value("username").toString(), QString("admin"));
    QCOMPARE(attributesOf(entries.first()).value("cause").toString(), QString("user"));
    QCOMPARE(attributesOf(entries.first()).value("action").toString(), Demo::JournalTexts::loggedIn());
}

void ServiceResourcesTest::logKeepsToItsRange()
{
    Desk desk;
    for (const int minute : {10, 30, 20}) // the clock was set back once
        desk.site.note({desk.time.addSecs(minute * 60), Cause::System, {}, QString::number(minute)});

    const auto from = desk.time.addSecs(600);
    QCOMPARE(loggedActions(desk, logLink(from, from.addSecs(1200))), (QStringList{"10", "20", "30"}));
    QCOMPARE(loggedActions(desk, logLink(from.addMSecs(1), from.addSecs(1200))), (QStringList{"20", "30"}));
    QCOMPARE(loggedActions(desk, logLink(from, from.addMSecs(1199999))), (QStringList{"10", "20"}));
    QCOMPARE(loggedActions(desk, logLink(from.addSecs(1200), from)), QStringList());
    QCOMPARE(loggedActions(desk, logLink(from.addYears(1), from.addYears(2))), QStringList());
}

void ServiceResourcesTest::refusesRange_data()
{
    QTest::addColumn<QByteArray>("link");
    QTest::addColumn<QStringList>("expected");

    const QStringList from("\"from\"");
    QTest::newRow("text") << QByteArray("system_log?from=noon&to=1") << from;
    QTest::newRow("empty") << QByteArray("system_log?from=&to=1") << from;
    QTest::newRow("a form with an offset") << QByteArray("system_log?from=2026-11-21T10:00:00Z") << from;
    QTest::newRow("fraction") << QByteArray("system_log?from=1.5") << from;
    QTest::newRow("beyond all times") << QByteArray("system_log?from=99999999999999999999") << from;
    QTest::newRow("both") << QByteArray("system_log?from=a&to=b") << QStringList{"\"from\"", "\"to\""};
    QTest::newRow("filter that nobody has") << QByteArray("system_log?from=1&cause=user") << QStringList("\"cause\"");
}

void ServiceResourcesTest::refusesRange()
{
    QFETCH(QByteArray, link);
    QFETCH(QStringList, expected);
    Desk desk;

    const auto reply = desk.get(link);

    QCOMPARE(codes(reply).value(0), QString("invalid_data_error"));
    QCOMPARE(details(reply), expected);
}

void ServiceResourcesTest::logOpenAtBothEnds()
{
    Desk desk;
    desk.site.note({desk.time.addYears(-50), Cause::System, {}, "old"});
    desk.site.note({desk.time.addYears(50), Cause::System, {}, "new"});
    const auto now = QByteArray::number(desk.time.toMSecsSinceEpoch());
    const auto login = Demo::JournalTexts::loggedIn();

    QCOMPARE(loggedActions(desk), (QStringList{"old", login, login, "new"}));
    QCOMPARE(loggedActions(desk, "system_log?from=" + now), (QStringList{login, login, "new"}));
    QCOMPARE(loggedActions(desk, "system_log?to=" + now), (QStringList{"old", login, login}));
    QCOMPARE(loggedActions(desk, "system_log?to=-1"), QStringList());
    QCOMPARE(loggedActions(desk, "system_log?from=-9223372036854775808&to=9223372036854775807").size(), 4);
}

void ServiceResourcesTest::requestsLeaveTheirTraces()
{
    Desk desk(wired());
    const auto file = desk.getFile("system_backup");
    desk.time = desk.time.addSecs(60);
    const auto since = desk.time;

    desk.post("users", listOf({entity("user", "anna", R"({"password": "eA==", "group": "user"})")}));
    desk.post("users", listOf({entity("user", "anna", R"({"group": "admin"})")}));
    desk.ask(loginDocument("anna", "x"), "anna");
    desk.ask(document("POST", "button_states", listOf({entity("button_state", button, R"({"state": 1})")})), "anna");
    desk.ask(document("POST", "oneshot_blueprint",
                      listOf({entity("oneshot_blueprint", blueprint, R"({"zones": [], "properties": []})")})),
             "anna");
    desk.remove("users", listOf({entity("user", "anna")}));
    desk.post("settings/1", settings("{}"));
    desk.getFile("system_backup");
    desk.post("system_time/", listOf({entity("time_info", "0", R"({"timezone": "UTC"})")}));

    const auto list = dataOf(desk.get(logLink(since, since)));
    QStringList traces;
    for (const auto &element : list) {
        const auto entry = attributesOf(element);
        QCOMPARE(entry.value("cause").toString(), QString("user"));
        traces << entry.value("username").toString() + ": " + entry.value("action").toString();
    }
    QCOMPARE(traces,
             (QStringList{"admin: Пользователь «anna» добавлен", "admin: Пользователь «anna» изменён",
                          "anna: Вход в систему", "anna: Кнопка «Свет»", "anna: Вдвое",
                          "admin: Пользователь «anna» удалён", "admin: Изменение настроек сервера",
                          "admin: Создание резервной копии", "admin: Установка времени: 2026-11-21 10:31, UTC"}));

    desk.upload("system_backup_restore", *file.get("data"));
    QCOMPARE(loggedActions(desk).last(), QString("Восстановление из резервной копии"));
    desk.post("system_factory_reset/", listOf({entity("factory_reset", "")}));
    QCOMPARE(loggedActions(desk), QStringList("Сброс к заводским настройкам"));
}

void ServiceResourcesTest::refusedRequestLeavesNoTrace()
{
    Desk desk(wired());
    const auto before = loggedActions(desk);

    desk.ask(loginDocument("admin", "wrong"), "other");
    desk.post("settings/1", settings(R"({"mrf": 1})"));
    desk.ask(document("POST", "settings/1", settings("{}")), "user");
    desk.post("users", listOf({entity("user", "anna")}));
    desk.post("system_time/", "[]");
    desk.post("system_factory_reset/", "[]");
    desk.upload("system_backup_restore", "nonsense");

    QCOMPARE(loggedActions(desk), before);
}

void ServiceResourcesTest::usersMayReadBoth()
{
    Desk desk(wired());

    QCOMPARE(codes(desk.ask(document("GET", "radio_status"), "user")), QStringList());
    QCOMPARE(codes(desk.ask(document("GET", "system_log"), "user")), QStringList());
    QCOMPARE(codes(desk.ask(document("GET", "system_log"), "stranger")), QStringList("auth_needed"));
    QCOMPARE(codes(desk.get("system_log/1")), QStringList("bad_request_error"));
    QCOMPARE(codes(desk.get("radio_status?from=1")), QStringList("bad_request_error"));
}

void ServiceResourcesTest::backupCarriesTheService()
{
    auto site = wired();
    Model::DevicePowerOnInfo hours;
    hours.uid = QUuid(lamp);
    hours.powerOnHours = 123.5;
    hours.lastUpdate = QDateTime(QDate(2026, 11, 20), QTime(12, 0), Qt::UTC);
    site.powerOn.insert(hours.uid, hours);
    Desk desk(site);
    desk.site.note({desk.time, Cause::System, {}, "before"});
    const auto entries = desk.site.data().journal.entries();
    const auto file = desk.getFile("system_backup");
    desk.post("settings/1", settings(R"({"mrf": [], "pwm": {"20": 1}})"));
    desk.site.note({desk.time, Cause::System, {}, "after"});
    hours.powerOnHours = 1;
    desk.site.put(hours);

    QCOMPARE(codes(desk.upload("system_backup_restore", *file.get("data"))), QStringList());

    QCOMPARE(desk.site.data().settings, site.settings);
    QCOMPARE(desk.site.data().powerOn.value(QUuid(lamp)).powerOnHours, 123.5);
    auto restored = desk.site.data().journal.entries();
    QCOMPARE(restored.back().action, QString("Восстановление из резервной копии"));
    restored.pop_back();
    QVERIFY(restored == entries);
}

void ServiceResourcesTest::largeBackupIsRestored()
{
    auto site = wired();
    site.images.front().image.data = QByteArray(60 * 1024 * 1024, 'x'); // 80 MiB in the file
    const auto backup = qCompress(Demo::SiteLoader::toJson(site), 1);
    Desk desk(wired());

    QCOMPARE(codes(desk.upload("system_backup_restore", backup)), QStringList());

    QCOMPARE(desk.site.data().images.front().image.data.size(), 60 * 1024 * 1024);
}

void ServiceResourcesTest::factoryResetBringsBackTheService()
{
    Desk desk(wired());
    desk.post("settings/1", settings(R"({"mrf": [], "pwm": {"20": 1}})"));

    QCOMPARE(codes(desk.post("system_factory_reset/", listOf({entity("factory_reset", "")}))), QStringList());

    QCOMPARE(desk.site.data().settings, wired().settings);
}

ONDIRA_TEST(ServiceResourcesTest)
#include "ServiceResourcesTest.moc"
