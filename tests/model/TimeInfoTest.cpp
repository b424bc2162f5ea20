// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/TimeInfo.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

namespace {

const QDateTime noon({2024, 5, 1}, {12, 0, 30}, Qt::UTC);

Model::TimeInfo withAttributes(const QByteArray &attributes)
{
    return JsonAPI::TimeInfo::fromVariant(JsonTexts::entity("{\"attributes\": " + attributes + "}"));
}

} // namespace

class TimeInfoTest : public TestBase
{
    Q_OBJECT

private slots:
    void writesEveryField();
    void writesAnEmptyRecord();
    void readsEveryField();
    void readsTheTime_data();
    void readsTheTime();
    void readsWhatItCan_data();
    void readsWhatItCan();
    void comparesByAllFields();
};

void TimeInfoTest::writesEveryField()
{
    const Model::TimeInfo info{noon, "Europe/Moscow", true, {"UTC", "Europe/Moscow"}};

    QCOMPARE(JsonTexts::written(JsonAPI::TimeInfo::toVariant(info)), JsonTexts::compact(R"({
        "type": "time_info", "id": "1714564830000", "attributes": {
            "time": "2024-05-01T12:00:30Z", "timezone": "Europe/Moscow", "ntp": true,
            "timezones_list": ["UTC", "Europe/Moscow"]}})"));
}

void TimeInfoTest::writesAnEmptyRecord()
{
    QCOMPARE(JsonTexts::written(JsonAPI::TimeInfo::toVariant({})), JsonTexts::compact(R"({
        "type": "time_info", "id": "0", "attributes": {
            "time": "", "timezone": "", "ntp": false, "timezones_list": []}})"));
}

void TimeInfoTest::readsEveryField()
{
    const auto info = JsonAPI::TimeInfo::fromVariant(JsonTexts::entity(R"({
        "type": "time_info", "id": "17", "attributes": {
            "time": "2024-05-01T12:00:30Z", "timezone": "Europe/Moscow", "ntp": true,
            "timezones_list": ["UTC", "Europe/Moscow"]}})"));

    QVERIFY((info == Model::TimeInfo{noon, "Europe/Moscow", true, {"UTC", "Europe/Moscow"}}));
}

void TimeInfoTest::readsTheTime_data()
{
    QTest::addColumn<QByteArray>("time");
    QTest::addColumn<QDateTime>("expected");

    QTest::newRow("UTC") << QByteArray("\"2024-05-01T12:00:30Z\"") << noon;
    QTest::newRow("offset") << QByteArray("\"2024-05-01T15:00:30+03:00\"") << noon;
    QTest::newRow("local") << QByteArray("\"2024-05-01T12:00:30\"") << QDateTime({2024, 5, 1}, {12, 0, 30});
    QTest::newRow("milliseconds") << QByteArray("\"2024-05-01T12:00:30.250Z\"") << noon.addMSecs(250);
    QTest::newRow("no time") << QByteArray("\"noon\"") << QDateTime();
    QTest::newRow("no such day") << QByteArray("\"2024-02-30T12:00:00Z\"") << QDateTime();
    QTest::newRow("empty") << QByteArray("\"\"") << QDateTime();
    QTest::newRow("null") << QByteArray("null") << QDateTime();
    QTest::newRow("number") << QByteArray("1714564830000") << QDateTime();
}

void TimeInfoTest::readsTheTime()
{
    QFETCH(QByteArray, time);
    QFETCH(QDateTime, expected);

    const auto info = withAttributes("{\"time\": " + time + "}");

    QCOMPARE(info.time.isValid(), expected.isValid());
    QCOMPARE(info.time, expected);
}

void TimeInfoTest::readsWhatItCan_data()
{
    QTest::addColumn<QByteArray>("attributes");

    QTest::newRow("empty") << QByteArray("{}");
    QTest::newRow("nulls") << QByteArray(R"({"time": null, "timezone": null, "ntp": null, "timezones_list": null})");
    QTest::newRow("wrong types") << QByteArray(R"({"time": [], "timezone": {}, "ntp": [], "timezones_list": "UTC"})");
    QTest::newRow("no map") << QByteArray("5");
}

void TimeInfoTest::readsWhatItCan()
{
    QFETCH(QByteArray, attributes);

    QVERIFY(withAttributes(attributes) == Model::TimeInfo());
}

void TimeInfoTest::comparesByAllFields()
{
    const Model::TimeInfo info{noon, "UTC", false, {"UTC"}};

    QVERIFY((info == Model::TimeInfo{noon, "UTC", false, {"UTC"}}));
    QVERIFY(!(info == Model::TimeInfo{noon.addSecs(1), "UTC", false, {"UTC"}}));
    QVERIFY(!(info == Model::TimeInfo{noon, "GMT", false, {"UTC"}}));
    QVERIFY(!(info == Model::TimeInfo{noon, "UTC", true, {"UTC"}}));
    QVERIFY(!(info == Model::TimeInfo{noon, "UTC", false, {}}));
}

ONDIRA_TEST(TimeInfoTest)
#include "TimeInfoTest.moc"
