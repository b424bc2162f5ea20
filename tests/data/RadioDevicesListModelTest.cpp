// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/RadioDevicesListModel.h"
#include "Records.h"
#include "ScriptTools.h"
#include "SignalLog.h"
#include "data/RadioTypes.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>
#include <QJSEngine>
#include <QMetaEnum>
#include <limits>

using namespace Records;
using Role = RadioDevicesListModel::Role;
using Kind = RadioDevicesListModel::DeviceType;
using RadioType = Model::RadioStatus::DeviceType;

namespace {

constexpr auto largest = std::numeric_limits<unsigned int>::max();

struct Site
{
    Site()
        : radios(link)
    {}

    FakeCommunicator link;
    RadioDevicesListModel radios;
};

Model::Settings settings(std::size_t mrf, std::size_t lora, std::size_t rs485)
{
    Model::Settings record;
    record.mrf.resize(mrf);
    record.lora.resize(lora);
    record.rs485.resize(rs485);
    for (std::size_t i = 0; i < mrf; ++i)
        record.mrf[i].hostAddress = static_cast<quint16>(100 + i);
    return record;
}

Model::RadioStatus status(RadioType type, int index, bool open, unsigned low, unsigned normal, unsigned high)
{
    Model::RadioStatus record;
    record.deviceType = type;
    record.deviceIndex = index;
    record.deviceOpen = open;
    record.lowQueueLatency = low;
    record.normalQueueLatency = normal;
    record.highQueueLatency = high;
    return record;
}

} // namespace

class RadioDevicesListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void namesItsRolesAndTypes()
    {
        Site site;

        QCOMPARE(site.radios.roleNames(),
                 (QHash<int, QByteArray>{{257, "deviceType"},
                                         {258, "deviceIndex"},
                                         {259, "config"},
                                         {260, "working"},
                                         {261, "lowQueueLatency"},
                                         {262, "mediumQueueLatency"},
                                         {263, "highQueueLatency"},
                                         {264, "averageLatency"},
                                         {265, "maximumLatency"},
                                         {266, "prettyString"}}));
        const auto types = QMetaEnum::fromType<RadioDevicesListModel::DeviceType>();
        QCOMPARE(types.keyCount(), 5);
        QCOMPARE(types.keyToValue("None"), 0);
        QCOMPARE(types.keyToValue("MRF"), 1);
        QCOMPARE(types.keyToValue("Network"), 2);
        QCOMPARE(types.keyToValue("LoRa"), 3);
        QCOMPARE(types.keyToValue("RS485"), 4);
        const auto kinds = QMetaEnum::fromType<Radio::RadioType>();
        QCOMPARE(kinds.keyCount(), 4);
        QCOMPARE(kinds.keyToValue("None"), 0);
        QCOMPARE(kinds.keyToValue("MRF"), 1);
        QCOMPARE(kinds.keyToValue("LoRa"), 2);
        QCOMPARE(kinds.keyToValue("RS485"), 3);
    }

    void listsTransportsKindByKind()
    {
        Site site;
        QAbstractItemModelTester tester(&site.radios, QAbstractItemModelTester::FailureReportingMode::Warning);
        QSignalSpy counted(&site.radios, &RadioDevicesListModel::countChanged);
        SignalLog log(site.radios);

        site.link.publishSettings(settings(2, 1, 1));

        QCOMPARE(log.take(), QStringList({"resetting", "reset"}));
        QCOMPARE(counted.count(), 1);
        QCOMPARE(site.radios.getCount(), 4);
        QCOMPARE(column(site.radios, Role::DeviceTypeRole), QStringList({"1", "1", "3", "4"}));
        QCOMPARE(column(site.radios, Role::DeviceIndex), QStringList({"0", "1", "0", "0"}));
        QCOMPARE(value(site.radios, 1, Role::Config).toMap().value("hostAddress").toInt(), 101);
        QCOMPARE(column(site.radios, Role::Working), QStringList({"false", "false", "false", "false"}));
    }

    void joinsTheStatus()
    {
        Site site;
        site.link.publishSettings(settings(1, 2, 0));
        QAbstractItemModelTester tester(&site.radios, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(site.radios);

        site.link.publishRadioStatus({status(RadioType::LoRa, 1, true, 10, 20, 30),
                                      status(RadioType::LoRa, 2, true, 1, 1, 1),
                                      status(RadioType::Rs485, 0, true, 1, 1, 1)});

        QCOMPARE(log.take(), QStringList({"changed 2-2: 260 261 262 263 264 265"}));
        QCOMPARE(site.radios.get(2),
                 (QVariantMap{{"deviceType", 3},
                              {"deviceIndex", 1},
                              {"config", Model::Settings::LoRa().toVariant()},
                              {"working", true},
                              {"lowQueueLatency", 10U},
                              {"mediumQueueLatency", 20U},
                              {"highQueueLatency", 30U},
                              {"averageLatency", 17U},
                              {"maximumLatency", 30U},
                              {"prettyString", "LoRa 1: 12288 F: 434 SF: 6"}}));
        QCOMPARE(value(site.radios, 1, Role::Working).toBool(), false);
    }

    void latencies_data()
    {
        QTest::addColumn<uint>("low");
        QTest::addColumn<uint>("normal");
        QTest::addColumn<uint>("high");
        QTest::addColumn<uint>("average");
        QTest::addColumn<uint>("maximum");

        QTest::newRow("each step is truncated") << 0U << 1U << 2U << 0U << 2U;
        QTest::newRow("low is the largest") << 9U << 1U << 2U << 5U << 9U;
        QTest::newRow("normal is the largest") << 1U << 9U << 2U << 3U << 9U;
        QTest::newRow("as large as can be") << largest << largest << largest << largest << largest;
    }

    void latencies()
    {
        QFETCH(uint, low);
        QFETCH(uint, normal);
        QFETCH(uint, high);
        Site site;
        site.link.publishSettings(settings(1, 0, 0));

        site.link.publishRadioStatus({status(RadioType::Mrf, 0, true, low, normal, high)});

        QTEST(value(site.radios, 0, Role::AverageLatency).toUInt(), "average");
        QTEST(value(site.radios, 0, Role::MaximumLatency).toUInt(), "maximum");
    }

    void freshSettingsKeepTheStatus()
    {
        Site site;
        site.link.publishSettings(settings(2, 1, 0));
        site.link.publishRadioStatus(
            {status(RadioType::Mrf, 1, true, 1, 2, 3), status(RadioType::LoRa, 0, true, 4, 5, 6)});

        site.link.publishSettings(settings(1, 1, 1));
        QCOMPARE(column(site.radios, Role::Working), QStringList({"false", "true", "false"}));
        QCOMPARE(value(site.radios, 1, Role::MaximumLatency).toUInt(), 6U);
        site.link.publishSettings(settings(2, 1, 0));
        QCOMPARE(column(site.radios, Role::Working), QStringList({"false", "false", "true"}));
    }

    void printsATransport()
    {
        Site site;
        auto record = settings(1, 3, 2);
        record.mrf[0].hostChannel = 26;
        record.lora[1].frequency = 868349999;
        record.lora[1].spreadingFactor = 12;
        record.lora[2].frequency = 0;
        record.rs485[1].portName = "%3 %4";
        record.rs485[1].speed = 1200;

        site.link.publishSettings(record);

        QCOMPARE(column(site.radios, Role::PrettyString),
                 QStringList({"MRF: 100 Ch: 26", "LoRa 0: 12288 F: 434 SF: 6", "LoRa 1: 12288 F: 868.3 SF: 12",
                              "LoRa 2: 12288 F: 0 SF: 6", "RS485 0 (Выкл): 12288 SPD: 9600",
                              "RS485 1 (%3 %4): 12288 SPD: 1200"}));
    }

    void findsARow()
    {
        Site site;
        site.link.publishSettings(settings(2, 1, 1));

        QCOMPARE(site.radios.indexForDevice(Kind::MRF, 1), 1);
        QCOMPARE(site.radios.indexForDevice(Kind::LoRa, 0), 2);
        QCOMPARE(site.radios.indexForDevice(Kind::RS485, 0), 3);
        QCOMPARE(site.radios.indexForDevice(Kind::MRF, 2), -1);
        QCOMPARE(site.radios.indexForDevice(Kind::Network, 0), -1);
        QCOMPARE(site.radios.indexForDevice(Kind::MRF, -1), -1);
        QCOMPARE(site.radios.get(4), QVariantMap());
        QCOMPARE(site.radios.get(-1), QVariantMap());
        QVERIFY(!site.radios.data(QModelIndex(), Role::Config).isValid());
        QVERIFY(!value(site.radios, 0, 267).isValid());
    }

    void addsADefaultEntry()
    {
        Site site;
        site.link.publishSettings(settings(1, 1, 0));

        site.radios.addDevice(Kind::LoRa);
        QVERIFY(site.link.settings == settings(1, 2, 0));
        site.radios.addDevice(Kind::RS485);
        QVERIFY(site.link.settings == settings(1, 1, 1));
        site.radios.addDevice(Kind::MRF);
        auto expected = settings(1, 1, 0);
        expected.mrf.emplace_back();
        QVERIFY(site.link.settings == expected);
        QCOMPARE(site.radios.rowCount(), 2);
        QCOMPARE(site.link.operations.size(), 3);
    }

    void changesOneEntry()
    {
        Site site;
        site.link.publishSettings(settings(2, 0, 1));
        auto wanted = site.radios.get(1).value("config").toMap();
        wanted["hostChannel"] = 20;

        site.radios.setDeviceConfig(Kind::MRF, 1, wanted);

        auto expected = settings(2, 0, 1);
        expected.mrf[1].hostChannel = 20;
        QCOMPARE(site.link.operations, QStringList({"setSettings"}));
        QVERIFY(site.link.settings == expected);
        QCOMPARE(value(site.radios, 1, Role::Config).toMap().value("hostChannel").toInt(), 15);
    }

    void takesTheConfigurationOfAScript()
    {
        Site site;
        QJSEngine engine;
        site.link.publishSettings(settings(0, 0, 1));
        expose(engine, "radios", site.radios);

        engine.evaluate("radios.setDeviceConfig(4, 0, {address: 7, speed: 1200, portName: 'COM3'})");

        QCOMPARE(site.link.operations, QStringList({"setSettings"}));
        QCOMPARE(site.link.settings.rs485.at(0).address, quint16(7));
        QCOMPARE(site.link.settings.rs485.at(0).speed, 1200);
        QCOMPARE(site.link.settings.rs485.at(0).portName, QString("COM3"));
    }

    void removesOneEntry()
    {
        Site site;
        site.link.publishSettings(settings(2, 0, 1));

        site.radios.removeDevice(Kind::MRF, 0);

        auto expected = settings(2, 0, 1);
        expected.mrf.erase(expected.mrf.begin());
        QCOMPARE(site.link.operations, QStringList({"setSettings"}));
        QVERIFY(site.link.settings == expected);
        QCOMPARE(site.radios.rowCount(), 3);
    }

    void whatIsNotThereIsLeftAlone()
    {
        Site site;
        site.link.publishSettings(settings(1, 0, 0));
        const QVariantMap config{{"hostChannel", 20}};

        for (const int index : {-1, 1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
            site.radios.setDeviceConfig(Kind::MRF, index, config);
            site.radios.removeDevice(Kind::MRF, index);
        }
        for (const int type : {-1, 0, 2, 3, 4, 5}) {
            site.radios.setDeviceConfig(type, 0, config);
            site.radios.removeDevice(type, 0);
        }
        for (const int type : {-1, 0, 2, 5})
            site.radios.addDevice(type);
        site.radios.setDeviceConfig(Kind::MRF, 0, QVariant());
        site.radios.setDeviceConfig(Kind::MRF, 0, "text");

        QCOMPARE(site.link.operations, QStringList());
    }

    void asksForStatusAndPorts()
    {
        Site site;

        site.radios.updateRadioStatus();
        site.radios.updateAvailablePorts();

        QCOMPARE(site.link.operations, QStringList({"getRadioStatus", "getAvailableComPorts"}));
    }

    void tellsPortsThatDiffer()
    {
        Site site;
        QSignalSpy changed(&site.radios, &RadioDevicesListModel::availableComPortsChanged);

        site.link.publishComPorts({"COM1", "COM2"});
        site.link.publishComPorts({"COM1", "COM2"});
        QCOMPARE(changed.count(), 1);
        QCOMPARE(site.radios.getAvailableComPorts(), QStringList({"COM1", "COM2"}));
        site.link.publishComPorts({});
        QCOMPARE(changed.count(), 2);
        QCOMPARE(site.radios.property("availableComPorts").toStringList(), QStringList());
    }

    void aModelMadeLateReadsWhatWasPublished()
    {
        Site site;
        site.link.publishSettings(settings(1, 1, 1));

        const RadioDevicesListModel late(site.link);

        QCOMPARE(late.property("count").toInt(), 3);
    }
};

ONDIRA_TEST(RadioDevicesListModelTest)
#include "RadioDevicesListModelTest.moc"
