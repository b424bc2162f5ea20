// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Devices.h"
#include "model/JsonTexts.h"
#include "model/json/Device.h"
#include "model/json/DeviceMode.h"
#include "model/json/DeviceState.h"
#include "support/TestBase.h"

#include <limits>

using Model::DeviceDescriptor;
using Radio = Model::RadioStatus::DeviceType;
using Mode = Model::DeviceMode::Mode;

Q_DECLARE_METATYPE(Model::DeviceMode::Mode)

namespace {

const QUuid lamp(QStringLiteral("{11111111-2222-3333-4444-555555555555}"));
const QUuid hall(QStringLiteral("{aaaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}"));

DeviceDescriptor someLamp()
{
    return {QUrl("qrc:/drivers/Lamp.qml"), lamp, hall, 2, 17, {{"name", "Люстра"}, {"switch1", true}}, Radio::LoRa, 1};
}

const QByteArray lampDocument = R"({"type":"device","id":"{11111111-2222-3333-4444-555555555555}","attributes":{
    "url":"qrc:/drivers/Lamp.qml","zone_uid":"{aaaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}","version":2,"address":17,
    "persistentData":{"name":"Люстра","switch1":true},"radio_type":"lora","radio_index":1}})";

// A device read from an entity with that one attribute.
DeviceDescriptor deviceWith(const QByteArray &attribute)
{
    return JsonAPI::Device::fromVariant(JsonTexts::entity(R"({"type":"device","attributes":{)" + attribute + "}}"));
}

} // namespace

class DevicesTest : public TestBase
{
    Q_OBJECT

private slots:
    void writesDevice();
    void readsDevice();
    void emptyDeviceWritesEveryAttribute();
    void readsDeviceWithoutAttributes();
    void readsDamagedAttributes();
    void numbersBeyondTheRangeEndThere();
    void radioTypes_data();
    void radioTypes();
    void uidsWithoutBracesAreRead();
    void readsTenThousandData();
    void mapForScreens();
    void writesState();
    void readsState_data();
    void readsState();
    void writesMode();
    void readsMode_data();
    void readsMode();
    void equalityNeedsEveryField();
};

void DevicesTest::writesDevice()
{
    QCOMPARE(JsonTexts::written(JsonAPI::Device::toVariant(someLamp())), JsonTexts::compact(lampDocument));
}

void DevicesTest::readsDevice()
{
    const auto device = JsonAPI::Device::fromVariant(JsonTexts::entity(lampDocument));

    QVERIFY(device == someLamp());
}

void DevicesTest::emptyDeviceWritesEveryAttribute()
{
    QCOMPARE(JsonTexts::written(JsonAPI::Device::toVariant(DeviceDescriptor())),
             JsonTexts::compact(R"({"type":"device","id":"{00000000-0000-0000-0000-000000000000}","attributes":{
        "url":"","zone_uid":"{00000000-0000-0000-0000-000000000000}","version":0,"address":0,
        "persistentData":{},"radio_type":"none","radio_index":0}})"));
}

void DevicesTest::readsDeviceWithoutAttributes()
{
    DeviceDescriptor expected;
    expected.uid = lamp;

    const auto device = JsonAPI::Device::fromVariant(JsonAPI::Entity("device", lamp.toString()));

    QVERIFY(device == expected);
    QVERIFY(device.url.isEmpty());
    QVERIFY(device.zoneUid.isNull());
    QCOMPARE(device.radioType, Radio::None);
    QVERIFY(JsonAPI::Device::fromVariant(JsonAPI::Entity()) == DeviceDescriptor());
}

void DevicesTest::readsDamagedAttributes()
{
    const auto nulls = deviceWith(R"("url":null,"zone_uid":null,"version":null,"address":null,
        "persistentData":null,"radio_type":null,"radio_index":null)");
    QVERIFY(nulls == DeviceDescriptor());

    const auto wrong = deviceWith(R"("url":{},"zone_uid":"hall","version":[1],"address":"first",
        "persistentData":[1,2],"radio_type":{"a":1},"radio_index":"x")");
    QVERIFY(wrong == DeviceDescriptor());

    const auto numbersAsText = deviceWith(R"("version":"3","address":"17","radio_index":"1","colour":"red")");
    QCOMPARE(numbersAsText.version, 3);
    QCOMPARE(numbersAsText.address, 17);
    QCOMPARE(numbersAsText.radioIndex, 1);
}

void DevicesTest::numbersBeyondTheRangeEndThere()
{
    QCOMPARE(deviceWith(R"("address":4294967296)").address, std::numeric_limits<int>::max());
    QCOMPARE(deviceWith(R"("address":1e300)").address, std::numeric_limits<int>::max());
    QCOMPARE(deviceWith(R"("address":-1e300)").address, std::numeric_limits<int>::min());
}

void DevicesTest::radioTypes_data()
{
    QTest::addColumn<QByteArray>("attribute");
    QTest::addColumn<int>("expected");

    QTest::newRow("mrf") << QByteArray(R"("radio_type":"mrf")") << 1;
    QTest::newRow("letter case is folded") << QByteArray(R"("radio_type":"RS485")") << 4;
    QTest::newRow("unknown is none") << QByteArray(R"("radio_type":"unknown")") << 0;
    QTest::newRow("number is none") << QByteArray(R"("radio_type":3)") << 0;
    QTest::newRow("absent is none") << QByteArray() << 0;
}

void DevicesTest::radioTypes()
{
    QFETCH(QByteArray, attribute);
    QFETCH(int, expected);

    QCOMPARE(static_cast<int>(deviceWith(attribute).radioType), expected);
}

void DevicesTest::uidsWithoutBracesAreRead()
{
    const auto device = JsonAPI::Device::fromVariant(JsonTexts::entity(R"({"id":"11111111-2222-3333-4444-555555555555",
        "attributes":{"zone_uid":"aaaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee"}})"));

    QCOMPARE(device.uid, lamp);
    QCOMPARE(device.zoneUid, hall);
}

void DevicesTest::readsTenThousandData()
{
    QVariantMap data;
    for (int i = 0; i < 10000; ++i)
        data.insert(QString::number(i), i);
    JsonAPI::Entity entity("device", lamp.toString());
    entity.setAttribute("persistentData", data);

    QCOMPARE(JsonAPI::Device::fromVariant(entity).data, data);
}

void DevicesTest::mapForScreens()
{
    const auto map = someLamp().toVariant();

    QCOMPARE(map.keys(),
             QStringList({"address", "data", "radioIndex", "radioType", "uid", "url", "version", "zoneUid"}));
    QCOMPARE(map.value("url").toString(), QString("qrc:/drivers/Lamp.qml"));
    QCOMPARE(map.value("uid").toString(), QString("{11111111-2222-3333-4444-555555555555}"));
    QCOMPARE(map.value("zoneUid").toString(), QString("{aaaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}"));
    QCOMPARE(map.value("version"), QVariant(2));
    QCOMPARE(map.value("address"), QVariant(17));
    QCOMPARE(map.value("data").toMap(), someLamp().data);
    QCOMPARE(map.value("radioType"), QVariant(3));
    QCOMPARE(map.value("radioIndex"), QVariant(1));
}

void DevicesTest::writesState()
{
    const Model::DeviceState state{lamp, {{"power", 60}, {"errors", QVariantList{"e1"}}}};

    QCOMPARE(JsonTexts::written(JsonAPI::DeviceState::toVariant(state)),
             JsonTexts::compact(R"({"type":"device_state","id":"{11111111-2222-3333-4444-555555555555}",
        "attributes":{"state":{"power":60,"errors":["e1"]}}})"));
}

void DevicesTest::readsState_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QVariantMap>("expected");

    QTest::newRow("given") << QByteArray(R"({"state":{"power":60,"on":true}})")
                           << QVariantMap{{"power", 60}, {"on", true}};
    QTest::newRow("empty") << QByteArray(R"({"state":{}})") << QVariantMap();
    QTest::newRow("null") << QByteArray(R"({"state":null})") << QVariantMap();
    QTest::newRow("list") << QByteArray(R"({"state":[1]})") << QVariantMap();
    QTest::newRow("text") << QByteArray(R"({"state":"on"})") << QVariantMap();
    QTest::newRow("absent") << QByteArray("{}") << QVariantMap();
}

void DevicesTest::readsState()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QVariantMap, expected);

    const auto state = JsonAPI::DeviceState::fromVariant(
        JsonTexts::entity(R"({"id":"{11111111-2222-3333-4444-555555555555}","attributes":)" + attributes + "}"));

    QCOMPARE(state.uid, lamp);
    QCOMPARE(state.state, expected);
}

void DevicesTest::writesMode()
{
    QCOMPARE(JsonTexts::written(JsonAPI::DeviceMode::toVariant({lamp, Mode::Manual})),
             JsonTexts::compact(R"({"type":"device_mode","id":"{11111111-2222-3333-4444-555555555555}",
        "attributes":{"mode":"Manual"}})"));
    QCOMPARE(JsonTexts::written(JsonAPI::DeviceMode::toVariant({lamp, Mode::Automatic})),
             JsonTexts::compact(R"({"type":"device_mode","id":"{11111111-2222-3333-4444-555555555555}",
        "attributes":{"mode":"Auto"}})"));
}

void DevicesTest::readsMode_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<Mode>("expected");

    QTest::newRow("manual") << QByteArray(R"({"mode":"Manual"})") << Mode::Manual;
    QTest::newRow("auto") << QByteArray(R"({"mode":"Auto"})") << Mode::Automatic;
    QTest::newRow("letter case counts") << QByteArray(R"({"mode":"manual"})") << Mode::Automatic;
    QTest::newRow("spaces count") << QByteArray(R"({"mode":"Manual "})") << Mode::Automatic;
    QTest::newRow("number") << QByteArray(R"({"mode":1})") << Mode::Automatic;
    QTest::newRow("null") << QByteArray(R"({"mode":null})") << Mode::Automatic;
    QTest::newRow("absent") << QByteArray("{}") << Mode::Automatic;
}

void DevicesTest::readsMode()
{
    QFETCH(QByteArray, attributes);
    QFETCH(Mode, expected);

    const auto mode = JsonAPI::DeviceMode::fromVariant(
        JsonTexts::entity(R"({"id":"{11111111-2222-3333-4444-555555555555}","attributes":)" + attributes + "}"));

    QCOMPARE(mode.uid, lamp);
    QCOMPARE(mode.mode, expected);
}

void DevicesTest::equalityNeedsEveryField()
{
    const auto changed = [](const auto &change) {
        auto device = someLamp();
        change(device);
        return device;
    };
    QVERIFY(someLamp() == someLamp());
    QVERIFY(!(someLamp() == changed([](auto &device) { device.url = QUrl("a"); })));
    QVERIFY(!(someLamp() == changed([](auto &device) { device.uid = hall; })));
    QVERIFY(!(someLamp() == changed([](auto &device) { device.zoneUid = lamp; })));
    QVERIFY(!(someLamp() == changed([](auto &device) { device.version = 3; })));
    QVERIFY(!(someLamp() == changed([](auto &device) { device.address = 3; })));
    QVERIFY(!(someLamp() == changed([](auto &device) { device.data.clear(); })));
    QVERIFY(!(someLamp() == changed([](auto &device) { device.radioType = Radio::Mrf; })));
    QVERIFY(!(someLamp() == changed([](auto &device) { device.radioIndex = 3; })));

    const Model::DeviceState state{lamp, {{"power", 1}}};
    QVERIFY((state == Model::DeviceState{lamp, {{"power", 1}}}));
    QVERIFY(!(state == Model::DeviceState{lamp, {{"power", 2}}}));
    QVERIFY(!(state == Model::DeviceState{hall, {{"power", 1}}}));
    const Model::DeviceMode mode{lamp, Mode::Manual};
    QVERIFY((mode == Model::DeviceMode{lamp, Mode::Manual}));
    QVERIFY(!(mode == Model::DeviceMode{lamp, Mode::Automatic}));
    QVERIFY(!(mode == Model::DeviceMode{hall, Mode::Manual}));
}

ONDIRA_TEST(DevicesTest)
#include "DevicesTest.moc"
