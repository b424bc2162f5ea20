// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/DevicePowerOnInfo.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

using Model::DevicePowerOnInfo;

namespace {

const QUuid uid("{11111111-1111-1111-1111-111111111111}");
const QDateTime noon({2024, 5, 1}, {12, 0, 30}, Qt::UTC);

DevicePowerOnInfo withAttributes(const QByteArray &attributes)
{
    return JsonAPI::DevicePowerOnInfo::fromVariant(JsonTexts::entity("{\"attributes\": " + attributes + "}"));
}

} // namespace

class DevicePowerOnInfoTest : public TestBase
{
    Q_OBJECT

private slots:
    void newRecordIsEmpty();
    void writesEveryField();
    void writesAnEmptyRecord();
    void readsEveryField();
    void readsHours_data();
    void readsHours();
    void readsTimes_data();
    void readsTimes();
    void readsUids_data();
    void readsUids();
    void readsWhatItCan_data();
    void readsWhatItCan();
    void goesThroughTheText();
    void comparesByAllFields();
};

void DevicePowerOnInfoTest::newRecordIsEmpty()
{
    const DevicePowerOnInfo info;

    QVERIFY(info.uid.isNull());
    QCOMPARE(info.powerOnHours, 0.0);
    QVERIFY(!info.lastUpdate.isValid());
}

void DevicePowerOnInfoTest::writesEveryField()
{
    const DevicePowerOnInfo info{uid, 1234.5, noon};

    QCOMPARE(JsonTexts::written(JsonAPI::DevicePowerOnInfo::toVariant(info)), JsonTexts::compact(R"({
        "type": "device_power_on_info", "id": "{11111111-1111-1111-1111-111111111111}", "attributes": {
            "power_on_hours": 1234.5, "last_update": "2024-05-01T12:00:30Z"}})"));
}

void DevicePowerOnInfoTest::writesAnEmptyRecord()
{
    QCOMPARE(JsonTexts::written(JsonAPI::DevicePowerOnInfo::toVariant({})), JsonTexts::compact(R"({
        "type": "device_power_on_info", "id": "{00000000-0000-0000-0000-000000000000}", "attributes": {
            "power_on_hours": 0, "last_update": ""}})"));
}

void DevicePowerOnInfoTest::readsEveryField()
{
    const auto info = JsonAPI::DevicePowerOnInfo::fromVariant(JsonTexts::entity(R"({
        "type": "device_power_on_info", "id": "{11111111-1111-1111-1111-111111111111}", "attributes": {
            "power_on_hours": 1234.5, "last_update": "2024-05-01T12:00:30Z", "power": 5}})"));

    QVERIFY((info == DevicePowerOnInfo{uid, 1234.5, noon}));
}

void DevicePowerOnInfoTest::readsHours_data()
{
    QTest::addColumn<QByteArray>("hours");
    QTest::addColumn<double>("expected");

    QTest::newRow("whole") << QByteArray("7") << 7.0;
    QTest::newRow("fraction") << QByteArray("0.25") << 0.25;
    QTest::newRow("large") << QByteArray("1e300") << 1e300;
    QTest::newRow("text") << QByteArray("\"12.5\"") << 12.5;
    QTest::newRow("no number") << QByteArray("\"long\"") << 0.0;
    QTest::newRow("nan") << QByteArray("\"nan\"") << 0.0;
    QTest::newRow("inf") << QByteArray("\"inf\"") << 0.0;
    QTest::newRow("null") << QByteArray("null") << 0.0;
    QTest::newRow("list") << QByteArray("[7]") << 0.0;
    QTest::newRow("map") << QByteArray("{}") << 0.0;
}

void DevicePowerOnInfoTest::readsHours()
{
    QFETCH(QByteArray, hours);
    QFETCH(double, expected);

    QCOMPARE(withAttributes("{\"power_on_hours\": " + hours + "}").powerOnHours, expected);
}

void DevicePowerOnInfoTest::readsTimes_data()
{
    QTest::addColumn<QByteArray>("time");
    QTest::addColumn<QDateTime>("expected");

    QTest::newRow("UTC") << QByteArray("\"2024-05-01T12:00:30Z\"") << noon;
    QTest::newRow("offset") << QByteArray("\"2024-05-01T09:00:30-03:00\"") << noon;
    QTest::newRow("local") << QByteArray("\"2024-05-01T12:00:30\"") << QDateTime({2024, 5, 1}, {12, 0, 30});
    QTest::newRow("bad") << QByteArray("\"never\"") << QDateTime();
    QTest::newRow("null") << QByteArray("null") << QDateTime();
}

void DevicePowerOnInfoTest::readsTimes()
{
    QFETCH(QByteArray, time);
    QFETCH(QDateTime, expected);

    const auto info = withAttributes("{\"last_update\": " + time + "}");

    QCOMPARE(info.lastUpdate.isValid(), expected.isValid());
    QCOMPARE(info.lastUpdate, expected);
}

void DevicePowerOnInfoTest::readsUids_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QUuid>("expected");

    QTest::newRow("braces") << QByteArray("\"{11111111-1111-1111-1111-111111111111}\"") << uid;
    QTest::newRow("no braces") << QByteArray("\"11111111-1111-1111-1111-111111111111\"") << uid;
    QTest::newRow("no uid") << QByteArray("\"lamp\"") << QUuid();
    QTest::newRow("null") << QByteArray("null") << QUuid();
}

void DevicePowerOnInfoTest::readsUids()
{
    QFETCH(QByteArray, text);
    QFETCH(QUuid, expected);

    QCOMPARE(JsonAPI::DevicePowerOnInfo::fromVariant(JsonTexts::entity("{\"id\": " + text + "}")).uid, expected);
}

void DevicePowerOnInfoTest::readsWhatItCan_data()
{
    QTest::addColumn<QByteArray>("attributes");

    QTest::newRow("empty") << QByteArray("{}");
    QTest::newRow("nulls") << QByteArray(R"({"power_on_hours": null, "last_update": null})");
    QTest::newRow("wrong types") << QByteArray(R"({"power_on_hours": {}, "last_update": [1]})");
    QTest::newRow("other keys") << QByteArray(R"({"powerOnHours": 5, "lastUpdate": "2024-05-01T12:00:30Z"})");
    QTest::newRow("no map") << QByteArray("5");
}

void DevicePowerOnInfoTest::readsWhatItCan()
{
    QFETCH(QByteArray, attributes);

    QVERIFY(withAttributes(attributes) == DevicePowerOnInfo());
}

void DevicePowerOnInfoTest::goesThroughTheText()
{
    const DevicePowerOnInfo info{uid, 0.1 + 0.2, noon};

    const auto text = JsonTexts::written(JsonAPI::DevicePowerOnInfo::toVariant(info));

    QVERIFY(JsonAPI::DevicePowerOnInfo::fromVariant(JsonTexts::entity(text)) == info);
}

void DevicePowerOnInfoTest::comparesByAllFields()
{
    const DevicePowerOnInfo info{uid, 5, noon};

    QVERIFY((info == DevicePowerOnInfo{uid, 5, noon}));
    QVERIFY(!(info == DevicePowerOnInfo{QUuid(), 5, noon}));
    QVERIFY(!(info == DevicePowerOnInfo{uid, 5.5, noon}));
    QVERIFY(!(info == DevicePowerOnInfo{uid, 5, noon.addSecs(1)}));
}

ONDIRA_TEST(DevicePowerOnInfoTest)
#include "DevicePowerOnInfoTest.moc"
