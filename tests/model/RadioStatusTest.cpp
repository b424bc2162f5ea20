// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/RadioStatus.h"
#include "model/JsonTexts.h"
#include "model/json/RadioStatus.h"
#include "support/TestBase.h"

#include <limits>

using Type = Model::RadioStatus::DeviceType;

Q_DECLARE_METATYPE(Model::RadioStatus::DeviceType)

namespace {

const QByteArray document = R"({
    "type": "radio_status", "id": "lora_2",
    "attributes": {"device_type": "lora", "device_index": 2, "device_open": true, "low_queue_latency": 30,
                   "normal_queue_latency": 4000000000, "high_queue_latency": 10}})";

const Model::RadioStatus working{Type::LoRa, 2, true, 30, 4000000000, 10};

Model::RadioStatus withAttributes(const QByteArray &attributes)
{
    return JsonAPI::RadioStatus::fromVariant(
        JsonTexts::entity(R"({"id": "rs485_7", "attributes": )" + attributes + "}"));
}

} // namespace

class RadioStatusTest : public TestBase
{
    Q_OBJECT

private slots:
    void texts_data();
    void texts();
    void letterCaseIsFolded();
    void valueOutsideIsWrittenUnknown();
    void unknownTextIsNone();
    void writesEveryField();
    void readsEveryField();
    void idTellsKindAndIndex();
    void absentKeysLeaveTheDefaults();
    void readsTheType_data();
    void readsTheType();
    void numberThatIsNoneIsZero_data();
    void numberThatIsNoneIsZero();
    void numberBeyondItsFieldGivesTheEnd_data();
    void numberBeyondItsFieldGivesTheEnd();
    void comparesByAllFields();
};

void RadioStatusTest::texts_data()
{
    QTest::addColumn<Type>("type");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");

    QTest::newRow("none") << Type::None << 0 << "none";
    QTest::newRow("mrf") << Type::Mrf << 1 << "mrf";
    QTest::newRow("network") << Type::Network << 2 << "network";
    QTest::newRow("lora") << Type::LoRa << 3 << "lora";
    QTest::newRow("rs485") << Type::Rs485 << 4 << "rs485";
}

void RadioStatusTest::texts()
{
    QFETCH(Type, type);
    QFETCH(int, code);
    QFETCH(QString, text);

    QCOMPARE(static_cast<int>(type), code);
    QCOMPARE(Model::RadioStatus::deviceTypeToString(type), text);
    QCOMPARE(Model::RadioStatus::deviceTypeFromString(text), type);
}

void RadioStatusTest::letterCaseIsFolded()
{
    QCOMPARE(Model::RadioStatus::deviceTypeFromString("LoRa"), Type::LoRa);
    QCOMPARE(Model::RadioStatus::deviceTypeFromString("RS485"), Type::Rs485);
}

void RadioStatusTest::valueOutsideIsWrittenUnknown()
{
    QCOMPARE(Model::RadioStatus::deviceTypeToString(static_cast<Type>(5)), QString("unknown"));
    QCOMPARE(Model::RadioStatus::deviceTypeToString(static_cast<Type>(-1)), QString("unknown"));
}

void RadioStatusTest::unknownTextIsNone()
{
    for (const auto *text : {"", "unknown", "zigbee", " mrf", "1"})
        QCOMPARE(Model::RadioStatus::deviceTypeFromString(text), Type::None);
}

void RadioStatusTest::writesEveryField()
{
    QCOMPARE(JsonTexts::written(JsonAPI::RadioStatus::toVariant(working)), JsonTexts::compact(document));
}

void RadioStatusTest::readsEveryField()
{
    QCOMPARE(JsonAPI::RadioStatus::fromVariant(JsonTexts::entity(document)), working);
}

void RadioStatusTest::idTellsKindAndIndex()
{
    const auto id = [](Type type, int index) {
        return JsonAPI::Entity(JsonAPI::RadioStatus::toVariant({type, index, false, 0, 0, 0})).id;
    };

    QCOMPARE(id(Type::Mrf, 0), QString("mrf_0"));
    QCOMPARE(id(Type::Rs485, 11), QString("rs485_11"));
    QCOMPARE(id(static_cast<Type>(9), -1), QString("unknown_-1"));
}

void RadioStatusTest::absentKeysLeaveTheDefaults()
{
    QCOMPARE(withAttributes("{}"), Model::RadioStatus()); // the id is not read
    QCOMPARE(withAttributes(R"({"deviceType": "lora", "index": 2, "open": true})"), Model::RadioStatus());
}

void RadioStatusTest::readsTheType_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<Type>("type");

    QTest::newRow("text") << QByteArray("\"mrf\"") << Type::Mrf;
    QTest::newRow("upper case") << QByteArray("\"NETWORK\"") << Type::Network;
    QTest::newRow("unknown") << QByteArray("\"zigbee\"") << Type::None;
    QTest::newRow("number") << QByteArray("1") << Type::None;
    QTest::newRow("null") << QByteArray("null") << Type::None;
    QTest::newRow("list") << QByteArray("[\"mrf\"]") << Type::None;
}

void RadioStatusTest::readsTheType()
{
    QFETCH(QByteArray, value);

    QTEST(withAttributes("{\"device_type\": " + value + "}").deviceType, "type");
}

void RadioStatusTest::numberThatIsNoneIsZero_data()
{
    QTest::addColumn<QByteArray>("value");

    for (const char *value : {"null", "\"word\"", "\"\"", "[1]", "{}", "\"nan\""})
        QTest::newRow(value) << QByteArray(value);
}

void RadioStatusTest::numberThatIsNoneIsZero()
{
    QFETCH(QByteArray, value);
    const QByteArray attributes = R"({"device_index": %, "low_queue_latency": %, "normal_queue_latency": %,
                                      "high_queue_latency": %})";

    QCOMPARE(withAttributes(QByteArray(attributes).replace("%", value)), Model::RadioStatus());
}

void RadioStatusTest::numberBeyondItsFieldGivesTheEnd_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<int>("index");
    QTest::addColumn<unsigned int>("latency");

    constexpr int least = std::numeric_limits<int>::min();
    constexpr int largest = std::numeric_limits<int>::max();
    constexpr unsigned int longest = std::numeric_limits<unsigned int>::max();
    QTest::newRow("usual") << QByteArray("12") << 12 << 12u;
    QTest::newRow("text") << QByteArray("\"12\"") << 12 << 12u;
    QTest::newRow("negative") << QByteArray("-12") << -12 << 0u;
    QTest::newRow("beyond int") << QByteArray("2147483648") << largest << 2147483648u;
    QTest::newRow("beyond 32 bits") << QByteArray("4294967297") << largest << longest;
    QTest::newRow("huge") << QByteArray("1e300") << largest << longest;
    QTest::newRow("hugely negative") << QByteArray("-1e300") << least << 0u;
}

void RadioStatusTest::numberBeyondItsFieldGivesTheEnd()
{
    QFETCH(QByteArray, number);
    QFETCH(int, index);
    QFETCH(unsigned int, latency);

    const auto status = withAttributes(QByteArray(R"({"device_index": %, "low_queue_latency": %,
        "normal_queue_latency": %, "high_queue_latency": %})")
                                           .replace("%", number));

    QCOMPARE(status, (Model::RadioStatus{Type::None, index, false, latency, latency, latency}));
}

void RadioStatusTest::comparesByAllFields()
{
    using Status = Model::RadioStatus;
    const auto differs = [](const std::function<void(Status &)> &change) {
        auto other = working;
        change(other);
        return other != working && !(other == working);
    };

    QVERIFY(differs([](Status &other) { other.deviceType = Type::Mrf; }));
    QVERIFY(differs([](Status &other) { other.deviceIndex = 0; }));
    QVERIFY(differs([](Status &other) { other.deviceOpen = false; }));
    QVERIFY(differs([](Status &other) { other.lowQueueLatency = 0; }));
    QVERIFY(differs([](Status &other) { other.normalQueueLatency = 0; }));
    QVERIFY(differs([](Status &other) { other.highQueueLatency = 0; }));
}

ONDIRA_TEST(RadioStatusTest)
#include "RadioStatusTest.moc"
