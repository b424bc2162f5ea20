// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/Settings.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

#include <QJsonDocument>
#include <limits>

namespace {

using Settings = Model::Settings;

const QByteArray document = R"({
    "type": "settings", "id": "1",
    "attributes": {
        "pwm": {"100": 250, "80": 200, "60": 150, "40": 100, "20": 50, "0": 5},
        "mrf": [{"pan": 65535, "address": 7, "channel": 26, "duty_cycle": "duty100"},
                {"pan": 1, "address": 8, "channel": 11, "duty_cycle": "duty1"}],
        "radio": {"pan": 65535, "address": 7, "channel": 26, "duty_cycle": "duty100"},
        "lora": [{"frequency": 868000000, "power": -3, "bandwidth": 6, "spreading_factor": 12, "coding_rate": 8,
                  "address": 9, "port_name": "ttyS1", "duty_cycle": "duty33", "maximum_reply_length": 128}],
        "rs485": [{"address": 10, "speed": 115200, "reply_wait_time": 20, "duty_cycle": "duty25",
                   "port_name": "COM3"}]}})";

const QByteArray map = R"({
    "pwm": {"byteFor100Power": 250, "byteFor80Power": 200, "byteFor60Power": 150, "byteFor40Power": 100,
            "byteFor20Power": 50, "byteFor0Power": 5},
    "mrf": [{"hostPan": 65535, "hostAddress": 7, "hostChannel": 26, "dutyCycle": 1},
            {"hostPan": 1, "hostAddress": 8, "hostChannel": 11, "dutyCycle": 5}],
    "lora": [{"frequency": 868000000, "power": -3, "bandwidth": 6, "spreadingFactor": 12, "codingRate": 8,
              "address": 9, "portName": "ttyS1", "dutyCycle": 2, "maximumReplyLength": 128}],
    "rs485": [{"address": 10, "speed": 115200, "replyWaitTime": 20, "dutyCycle": 3, "portName": "COM3"}]})";

Settings hardware()
{
    Settings settings;
    settings.pwm = {250, 200, 150, 100, 50, 5};
    settings.mrf = {{65535, 7, 26, RadioDutyCycle::Duty100}, {1, 8, 11, RadioDutyCycle::Duty1}};
    settings.lora = {{868000000, -3, 6, 12, 8, 9, "ttyS1", RadioDutyCycle::Duty33, 128}};
    settings.rs485 = {{10, 115200, 20, RadioDutyCycle::Duty25, "COM3"}};
    return settings;
}

Settings withAttributes(const QByteArray &attributes)
{
    return JsonAPI::Settings::fromVariant(JsonTexts::entity("{\"attributes\": " + attributes + "}"));
}

Settings fromMap(const QByteArray &text)
{
    return Settings::fromVariant(JsonTexts::read(text));
}

// Lists of one transport each, with every number of theirs set to the same JSON value, as a document and as a map.
Settings withNumber(const QByteArray &number)
{
    return withAttributes(QByteArray(R"({
        "pwm": {"100": %, "80": %, "60": %, "40": %, "20": %, "0": %},
        "mrf": [{"pan": %, "address": %, "channel": %}],
        "lora": [{"frequency": %, "power": %, "bandwidth": %, "spreading_factor": %, "coding_rate": %, "address": %,
                  "maximum_reply_length": %}],
        "rs485": [{"address": %, "speed": %, "reply_wait_time": %}]})")
                              .replace("%", number));
}

Settings mapWithNumber(const QByteArray &number)
{
    return fromMap(QByteArray(R"({
        "pwm": {"byteFor100Power": %, "byteFor80Power": %, "byteFor60Power": %, "byteFor40Power": %,
                "byteFor20Power": %, "byteFor0Power": %},
        "mrf": [{"hostPan": %, "hostAddress": %, "hostChannel": %}],
        "lora": [{"frequency": %, "power": %, "bandwidth": %, "spreadingFactor": %, "codingRate": %, "address": %,
                  "maximumReplyLength": %}],
        "rs485": [{"address": %, "speed": %, "replyWaitTime": %}]})")
                       .replace("%", number));
}

Settings oneOfEach()
{
    Settings settings;
    settings.mrf.resize(1);
    settings.lora.resize(1);
    settings.rs485.resize(1);
    return settings;
}

// What numbers become in fields of each width.
struct Widths
{
    quint8 byte;
    quint16 word;
    quint64 large;
    int number;
};

Settings filledWith(const Widths &widths)
{
    auto settings = oneOfEach();
    const auto byte = widths.byte;
    settings.pwm = {byte, byte, byte, byte, byte, byte};
    settings.mrf.front().hostPan = widths.word;
    settings.mrf.front().hostAddress = widths.word;
    settings.mrf.front().hostChannel = byte;
    auto &lora = settings.lora.front();
    lora.frequency = widths.large;
    lora.power = lora.bandwidth = lora.spreadingFactor = lora.codingRate = lora.maximumReplyLength = widths.number;
    lora.address = widths.word;
    settings.rs485.front().address = widths.word;
    settings.rs485.front().speed = settings.rs485.front().replyWaitTime = widths.number;
    return settings;
}

} // namespace

Q_DECLARE_METATYPE(Widths)

class SettingsTest : public TestBase
{
    Q_OBJECT

private slots:
    void newSettingsHaveTheirDefaults();
    void writesEveryField();
    void readsEveryField();
    void emptySettingsAreWrittenWithoutARadio();
    void absentKeysLeaveTheDefaults();
    void olderRadioIsReadUnlessThereAreLists_data();
    void olderRadioIsReadUnlessThereAreLists();
    void listsThatAreNoneAreEmpty_data();
    void listsThatAreNoneAreEmpty();
    void elementThatIsNoMapKeepsThePlacesOfTheOthers();
    void numberThatIsNoneLeavesTheDefault_data();
    void numberThatIsNoneLeavesTheDefault();
    void numberBeyondItsFieldGivesTheEnd_data();
    void numberBeyondItsFieldGivesTheEnd();
    void largestFrequencyGoesThroughAMap();
    void unknownDutyCycleIsHalf_data();
    void unknownDutyCycleIsHalf();
    void readsPortNames_data();
    void readsPortNames();
    void writesTheMap();
    void readsTheMap();
    void mapThatIsNoneIsDefault();
    void brightnessBytesAreByPercent();
    void percentsAreByByte();
    void ofLevelsWithOneByteTheLowerPercentWins();
    void manyTransportsAreKept();
    void comparesByAllFields();
};

void SettingsTest::newSettingsHaveTheirDefaults()
{
    const auto settings = oneOfEach();

    QCOMPARE(int(settings.pwm.byteFor100Power), 255);
    QCOMPARE(int(settings.pwm.byteFor80Power), 204);
    QCOMPARE(int(settings.pwm.byteFor60Power), 153);
    QCOMPARE(int(settings.pwm.byteFor40Power), 102);
    QCOMPARE(int(settings.pwm.byteFor20Power), 51);
    QCOMPARE(int(settings.pwm.byteFor0Power), 0);
    QVERIFY((settings.mrf.front() == Settings::MRF{0, 12288, 15, RadioDutyCycle::Duty50}));
    QVERIFY((settings.lora.front() == Settings::LoRa{434000000, 30, 9, 6, 4, 12288, "", RadioDutyCycle::Duty50, 64}));
    QVERIFY((settings.rs485.front() == Settings::RS485{12288, 9600, 50, RadioDutyCycle::Duty50, ""}));
    QVERIFY(Settings().mrf.empty() && Settings().lora.empty() && Settings().rs485.empty());
}

void SettingsTest::writesEveryField()
{
    QCOMPARE(JsonTexts::written(JsonAPI::Settings::toVariant(hardware())), JsonTexts::compact(document));
}

void SettingsTest::readsEveryField()
{
    QVERIFY(JsonAPI::Settings::fromVariant(JsonTexts::entity(document)) == hardware());
}

void SettingsTest::emptySettingsAreWrittenWithoutARadio()
{
    QCOMPARE(JsonTexts::written(JsonAPI::Settings::toVariant({})), JsonTexts::compact(R"({
        "type": "settings", "id": "1",
        "attributes": {"pwm": {"100": 255, "80": 204, "60": 153, "40": 102, "20": 51, "0": 0},
                       "mrf": [], "lora": [], "rs485": []}})"));
}

void SettingsTest::absentKeysLeaveTheDefaults()
{
    QVERIFY(withAttributes("{}") == Settings());
    QVERIFY(withAttributes(R"({"pwm": {}, "mrf": [{}], "lora": [{}], "rs485": [{}]})") == oneOfEach());
    QVERIFY(withAttributes(R"({"pwm": {"byteFor100Power": 1, "100%": 2}, "mrf": [{"hostPan": 5}], "lora": [{"port": 1}],
                               "rs485": [{"baud": 1}], "network": [{}]})")
            == oneOfEach());
}

void SettingsTest::olderRadioIsReadUnlessThereAreLists_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QList<int>>("pans");

    QTest::newRow("radio only") << QByteArray(R"({"radio": {"pan": 5}})") << QList<int>{5};
    QTest::newRow("both") << QByteArray(R"({"radio": {"pan": 5}, "mrf": [{"pan": 6}, {"pan": 7}]})")
                          << QList<int>{6, 7};
    QTest::newRow("empty list") << QByteArray(R"({"mrf": []})") << QList<int>();
    QTest::newRow("empty list and a radio") << QByteArray(R"({"mrf": [], "radio": {"pan": 5}})") << QList<int>();
    QTest::newRow("null and a radio") << QByteArray(R"({"mrf": null, "radio": {"pan": 5}})") << QList<int>();
    QTest::newRow("empty radio") << QByteArray(R"({"radio": {}})") << QList<int>{0};
    QTest::newRow("radio that is null") << QByteArray(R"({"radio": null})") << QList<int>();
    QTest::newRow("radio that is a list") << QByteArray(R"({"radio": [{"pan": 5}]})") << QList<int>();
    QTest::newRow("neither") << QByteArray("{}") << QList<int>();
}

void SettingsTest::olderRadioIsReadUnlessThereAreLists()
{
    QFETCH(QByteArray, attributes);

    QList<int> pans;
    for (const auto &mrf : withAttributes(attributes).mrf)
        pans << mrf.hostPan;

    QTEST(pans, "pans");
}

void SettingsTest::listsThatAreNoneAreEmpty_data()
{
    QTest::addColumn<QByteArray>("value");

    QTest::newRow("null") << QByteArray("null");
    QTest::newRow("map") << QByteArray("{\"address\": 5}");
    QTest::newRow("text") << QByteArray("\"lora\"");
    QTest::newRow("number") << QByteArray("3");
}

void SettingsTest::listsThatAreNoneAreEmpty()
{
    QFETCH(QByteArray, value);
    const auto text = QByteArray(R"({"pwm": %, "mrf": %, "lora": %, "rs485": %})").replace("%", value);

    QVERIFY(withAttributes(text) == Settings());
    QVERIFY(fromMap(text) == Settings());
}

void SettingsTest::elementThatIsNoMapKeepsThePlacesOfTheOthers()
{
    const auto settings = withAttributes(R"({"mrf": [null, {"pan": 6}], "lora": [5, {"address": 7}],
                                             "rs485": ["text", [], {"address": 8}]})");

    QCOMPARE(settings.mrf.size(), size_t(2));
    QVERIFY(settings.mrf.front() == Settings::MRF());
    QCOMPARE(int(settings.mrf.back().hostPan), 6);
    QCOMPARE(settings.lora.size(), size_t(2));
    QCOMPARE(int(settings.lora.back().address), 7);
    QCOMPARE(settings.rs485.size(), size_t(3));
    QCOMPARE(int(settings.rs485.back().address), 8);
}

void SettingsTest::numberThatIsNoneLeavesTheDefault_data()
{
    QTest::addColumn<QByteArray>("number");

    for (const char *number : {"null", "\"word\"", "\"\"", "[7]", "{\"pan\": 7}", "\"nan\""})
        QTest::newRow(number) << QByteArray(number);
}

void SettingsTest::numberThatIsNoneLeavesTheDefault()
{
    QFETCH(QByteArray, number);

    QVERIFY(withNumber(number) == oneOfEach());
    QVERIFY(mapWithNumber(number) == oneOfEach());
}

void SettingsTest::numberBeyondItsFieldGivesTheEnd_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<Widths>("expected");

    constexpr int least = std::numeric_limits<int>::min();
    constexpr int largest = std::numeric_limits<int>::max();
    QTest::newRow("small") << QByteArray("7") << Widths{7, 7, 7, 7};
    QTest::newRow("as text") << QByteArray("\"7\"") << Widths{7, 7, 7, 7};
    QTest::newRow("zero") << QByteArray("0") << Widths{0, 0, 0, 0};
    QTest::newRow("negative") << QByteArray("-1") << Widths{0, 0, 0, -1};
    QTest::newRow("beyond 8 bits") << QByteArray("256") << Widths{255, 256, 256, 256};
    QTest::newRow("beyond 16 bits") << QByteArray("65536") << Widths{255, 65535, 65536, 65536};
    QTest::newRow("beyond int") << QByteArray("5000000000") << Widths{255, 65535, 5000000000, largest};
    QTest::newRow("huge") << QByteArray("1e300")
                          << Widths{255, 65535, quint64(std::numeric_limits<qint64>::max()), largest};
    QTest::newRow("hugely negative") << QByteArray("-1e300") << Widths{0, 0, 0, least};
    QTest::newRow("fraction") << QByteArray("6.6") << Widths{7, 7, 7, 7};
}

void SettingsTest::numberBeyondItsFieldGivesTheEnd()
{
    QFETCH(QByteArray, number);
    QFETCH(Widths, expected);

    QVERIFY(withNumber(number) == filledWith(expected));
    QVERIFY(mapWithNumber(number) == filledWith(expected));
}

void SettingsTest::largestFrequencyGoesThroughAMap()
{
    Settings::LoRa lora;
    lora.frequency = std::numeric_limits<quint64>::max();

    QCOMPARE(Settings::LoRa::fromVariant(lora.toVariant()).frequency, lora.frequency);
}

void SettingsTest::unknownDutyCycleIsHalf_data()
{
    QTest::addColumn<QByteArray>("value");

    for (const char *value : {"null", "\"duty75\"", "\"\"", "6", "-1", "1e300", "[1]", "{}", "\"Duty100\""})
        QTest::newRow(value) << QByteArray(value);
}

void SettingsTest::unknownDutyCycleIsHalf()
{
    QFETCH(QByteArray, value);
    const QByteArray cycles = R"({"mrf": [{"KEY": %}], "lora": [{"KEY": %}], "rs485": [{"KEY": %}]})";

    QVERIFY(withAttributes(QByteArray(cycles).replace("KEY", "duty_cycle").replace("%", value)) == oneOfEach());
    QVERIFY(fromMap(QByteArray(cycles).replace("KEY", "dutyCycle").replace("%", value)) == oneOfEach());
}

void SettingsTest::readsPortNames_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("name");

    QTest::newRow("text") << QByteArray("\"/dev/ttyS1\"") << "/dev/ttyS1";
    QTest::newRow("number") << QByteArray("3") << "3";
    QTest::newRow("null") << QByteArray("null") << "";
    QTest::newRow("list") << QByteArray("[\"a\"]") << "";
}

void SettingsTest::readsPortNames()
{
    QFETCH(QByteArray, value);

    const auto settings =
        withAttributes(QByteArray(R"({"lora": [{"port_name": %}], "rs485": [{"port_name": %}]})").replace("%", value));
    const auto ofMap =
        fromMap(QByteArray(R"({"lora": [{"portName": %}], "rs485": [{"portName": %}]})").replace("%", value));

    QTEST(settings.lora.front().portName, "name");
    QTEST(settings.rs485.front().portName, "name");
    QTEST(ofMap.lora.front().portName, "name");
    QTEST(ofMap.rs485.front().portName, "name");
}

void SettingsTest::writesTheMap()
{
    QCOMPARE(JsonTexts::written(hardware().toVariant()), JsonTexts::compact(map));
}

void SettingsTest::readsTheMap()
{
    QVERIFY(fromMap(map) == hardware());
    QVERIFY(Settings::fromVariant(hardware().toVariant()) == hardware());
}

void SettingsTest::mapThatIsNoneIsDefault()
{
    for (const auto &variant : {QVariant(), QVariant("text"), QVariant(5), QVariant(QVariantList{1})}) {
        QVERIFY(Settings::fromVariant(variant) == Settings());
        QVERIFY(Settings::PWM::fromVariant(variant) == Settings::PWM());
        QVERIFY(Settings::MRF::fromVariant(variant) == Settings::MRF());
        QVERIFY(Settings::LoRa::fromVariant(variant) == Settings::LoRa());
        QVERIFY(Settings::RS485::fromVariant(variant) == Settings::RS485());
    }
}

void SettingsTest::brightnessBytesAreByPercent()
{
    QCOMPARE(Settings::PWM().brightnessBytes(),
             (QMap<int, quint8>{{100, 255}, {80, 204}, {60, 153}, {40, 102}, {20, 51}, {0, 0}}));
}

void SettingsTest::percentsAreByByte()
{
    QCOMPARE(Settings::PWM().powerToPercentMap(),
             (QMap<quint8, int>{{255, 100}, {204, 80}, {153, 60}, {102, 40}, {51, 20}, {0, 0}}));
}

void SettingsTest::ofLevelsWithOneByteTheLowerPercentWins()
{
    const Settings::PWM pwm{255, 255, 100, 100, 0, 0};

    QCOMPARE(pwm.powerToPercentMap(), (QMap<quint8, int>{{255, 80}, {100, 40}, {0, 0}}));
    QCOMPARE((Settings::PWM{9, 9, 9, 9, 9, 9}.powerToPercentMap()), (QMap<quint8, int>{{9, 0}}));
}

void SettingsTest::manyTransportsAreKept()
{
    Settings settings;
    for (int i = 0; i < 10000; ++i)
        settings.mrf.push_back({quint16(i), 1, 11, RadioDutyCycle::Duty10});

    const auto text = JsonTexts::written(JsonAPI::Settings::toVariant(settings));

    QVERIFY(JsonAPI::Settings::fromVariant(JsonTexts::entity(text)) == settings);
}

void SettingsTest::comparesByAllFields()
{
    const auto differs = [](const std::function<void(Settings &)> &change) {
        auto other = hardware();
        change(other);
        return !(other == hardware());
    };

    QVERIFY(hardware() == hardware());
    for (const auto byte :
         {&Settings::PWM::byteFor100Power, &Settings::PWM::byteFor80Power, &Settings::PWM::byteFor60Power,
          &Settings::PWM::byteFor40Power, &Settings::PWM::byteFor20Power, &Settings::PWM::byteFor0Power})
        QVERIFY(differs([byte](Settings &other) { other.pwm.*byte = 77; }));
    QVERIFY(differs([](Settings &other) { other.mrf.pop_back(); }));
    QVERIFY(differs([](Settings &other) { other.mrf.front().hostPan = 0; }));
    QVERIFY(differs([](Settings &other) { other.mrf.front().hostAddress = 0; }));
    QVERIFY(differs([](Settings &other) { other.mrf.front().hostChannel = 0; }));
    QVERIFY(differs([](Settings &other) { other.mrf.front().dutyCycle = RadioDutyCycle::Duty50; }));
    QVERIFY(differs([](Settings &other) { other.lora.clear(); }));
    QVERIFY(differs([](Settings &other) { other.lora.front().frequency = 0; }));
    for (const auto number : {&Settings::LoRa::power, &Settings::LoRa::bandwidth, &Settings::LoRa::spreadingFactor,
                              &Settings::LoRa::codingRate, &Settings::LoRa::maximumReplyLength})
        QVERIFY(differs([number](Settings &other) { other.lora.front().*number += 1; }));
    QVERIFY(differs([](Settings &other) { other.lora.front().address = 0; }));
    QVERIFY(differs([](Settings &other) { other.lora.front().portName.clear(); }));
    QVERIFY(differs([](Settings &other) { other.lora.front().dutyCycle = RadioDutyCycle::Duty50; }));
    QVERIFY(differs([](Settings &other) { other.rs485.clear(); }));
    QVERIFY(differs([](Settings &other) { other.rs485.front().address = 0; }));
    QVERIFY(differs([](Settings &other) { other.rs485.front().speed = 0; }));
    QVERIFY(differs([](Settings &other) { other.rs485.front().replyWaitTime = 0; }));
    QVERIFY(differs([](Settings &other) { other.rs485.front().dutyCycle = RadioDutyCycle::Duty50; }));
    QVERIFY(differs([](Settings &other) { other.rs485.front().portName.clear(); }));
}

ONDIRA_TEST(SettingsTest)
#include "SettingsTest.moc"
