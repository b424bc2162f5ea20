// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/DeviceTexts.h"
#include "Records.h"
#include "support/TestBase.h"

using namespace Records;

namespace {

Model::DeviceDescriptor withData(const QVariantMap &data, int address = 4)
{
    auto descriptor = device(1, 0, {}, address);
    descriptor.data = data;
    return descriptor;
}

} // namespace

class DeviceTextsTest : public TestBase
{
    Q_OBJECT

private slots:
    void printsADevice_data()
    {
        QTest::addColumn<QString>("commonType");
        QTest::addColumn<QVariantMap>("data");
        QTest::addColumn<QString>("expected");

        QTest::newRow("plain") << "lamp" << QVariantMap{} << "K: 4";
        QTest::newRow("with a name") << "lamp" << QVariantMap{{"name", "Hall"}} << "K: 4 (Hall)";
        QTest::newRow("empty name") << "lamp" << QVariantMap{{"name", ""}} << "K: 4";
        QTest::newRow("name with place markers") << "lamp" << QVariantMap{{"name", "%1 %2"}} << "K: 4 (%1 %2)";
        QTest::newRow("contactor") << "polling_contactor"
                                   << QVariantMap{{"switch3", true},  {"switch7", true}, {"switch8", false},
                                                  {"switch17", true}, {"switch0", true}, {"contactorAddress", 12},
                                                  {"name", "Hall"}}
                                   << "K: 4 (Hall) [3, 7: 12]";
        QTest::newRow("contactor without data") << "polling_contactor" << QVariantMap{} << "K: 4 [: 0]";
        QTest::newRow("contactor by a part of the word")
            << "my_polling_contactor_2" << QVariantMap{{"switch16", true}} << "K: 4 [16: 0]";
        QTest::newRow("letter case counts") << "Polling_Contactor" << QVariantMap{{"switch1", true}} << "K: 4";
        QTest::newRow("contact sensor without inputs")
            << "sensor_contact" << QVariantMap{{"contactAddress", 9}} << "K: 4 [: 9]";
        QTest::newRow("contact sensor, all of") << "sensor_contact"
                                                << QVariantMap{{"input1", true},
                                                               {"input6", true},
                                                               {"input7", true},
                                                               {"contactFunction", 0},
                                                               {"contactAddress", 9.0}}
                                                << "K: 4 [1 AND 6: 9]";
        QTest::newRow("contact sensor, any of")
            << "sensor_contact" << QVariantMap{{"input2", true}, {"input3", true}, {"contactFunction", 1}}
            << "K: 4 [2 OR 3: 0]";
        QTest::newRow("contactor goes before sensor")
            << "sensor_contact_polling_contactor" << QVariantMap{{"switch1", true}, {"input2", true}} << "K: 4 [1: 0]";
        QTest::newRow("meter") << "polling_rs_electric_meter" << QVariantMap{{"rsAddress", "17"}} << "K: 4 [17]";
        QTest::newRow("address that is no number")
            << "polling_rs_electric_meter" << QVariantMap{{"rsAddress", "x"}} << "K: 4 [0]";
        QTest::newRow("address beyond an int")
            << "polling_rs_electric_meter" << QVariantMap{{"rsAddress", 1e30}} << "K: 4 [2147483647]";
    }

    void printsADevice()
    {
        QFETCH(QString, commonType);
        QFETCH(QVariantMap, data);

        QTEST(DeviceTexts::devicePrettyPrint(withData(data), type("t", "K", 0, commonType)), "expected");
    }

    void tellsTheAddress_data()
    {
        QTest::addColumn<QString>("customAddress");
        QTest::addColumn<QVariantMap>("data");
        QTest::addColumn<QString>("expected");

        QTest::newRow("plain") << "" << QVariantMap{{"", "odd"}} << "4";
        QTest::newRow("of its own") << "serial" << QVariantMap{{"serial", "AB-1"}} << "AB-1";
        QTest::newRow("number of its own") << "serial" << QVariantMap{{"serial", 77}} << "77";
        QTest::newRow("absent") << "serial" << QVariantMap{{"other", 77}} << "4";
        QTest::newRow("empty") << "serial" << QVariantMap{{"serial", ""}} << "";
    }

    void tellsTheAddress()
    {
        QFETCH(QString, customAddress);
        QFETCH(QVariantMap, data);
        auto info = type("t", "K");
        info.customAddress = customAddress;

        QTEST(DeviceTexts::getAddressString(withData(data), info), "expected");
    }

    void sortsByTypeAndAddress_data()
    {
        QTest::addColumn<int>("sortOrder");
        QTest::addColumn<int>("address");
        QTest::addColumn<QString>("expected");

        QTest::newRow("padded") << 5 << 42 << "05:00042:00000001";
        QTest::newRow("full width") << 99 << 65535 << "99:65535:00000001";
        QTest::newRow("wider than the field") << 123 << 1234567 << "123:1234567:00000001";
        QTest::newRow("negative") << -5 << 0 << "-5:00000:00000001";
    }

    void sortsByTypeAndAddress()
    {
        QFETCH(int, sortOrder);
        QFETCH(int, address);

        QTEST(DeviceTexts::getSortString(withData({}, address), type("t", "K", sortOrder)), "expected");
    }

    void namesTheRadio_data()
    {
        QTest::addColumn<int>("radioType");
        QTest::addColumn<int>("count"); // of the radios of each kind in the settings
        QTest::addColumn<QString>("expected");

        QTest::newRow("none") << 0 << 2 << "Ошибка";
        QTest::newRow("mrf, not in the settings") << 1 << 0 << "MRF";
        QTest::newRow("the only mrf") << 1 << 1 << "MRF";
        QTest::newRow("one of two mrf") << 1 << 2 << "MRF-3";
        QTest::newRow("network") << 2 << 0 << "Network device-3";
        QTest::newRow("network beside others") << 2 << 2 << "Network device-3";
        QTest::newRow("the only lora") << 3 << 1 << "LoRa";
        QTest::newRow("one of two lora") << 3 << 2 << "LoRa-3";
        QTest::newRow("the only rs485") << 4 << 1 << "RS485";
        QTest::newRow("one of three rs485") << 4 << 3 << "RS485-3";
        QTest::newRow("beyond") << 5 << 2 << "Ошибка";
        QTest::newRow("negative") << -1 << 2 << "Ошибка";
    }

    void namesTheRadio()
    {
        QFETCH(int, radioType);
        QFETCH(int, count);
        auto descriptor = device(1);
        descriptor.radioType = static_cast<Model::RadioStatus::DeviceType>(radioType);
        descriptor.radioIndex = 3;
        Model::Settings settings;
        settings.mrf.resize(static_cast<std::size_t>(count));
        settings.lora.resize(static_cast<std::size_t>(count));
        settings.rs485.resize(static_cast<std::size_t>(count));

        QTEST(DeviceTexts::getRadioString(descriptor, settings), "expected");
    }

    void onlyRadiosOfItsKindGiveTheIndex()
    {
        auto descriptor = device(1);
        descriptor.radioType = Model::RadioStatus::DeviceType::Mrf;
        descriptor.radioIndex = 0;
        Model::Settings settings;
        settings.mrf.resize(1);
        settings.lora.resize(5);

        QCOMPARE(DeviceTexts::getRadioString(descriptor, settings), QString("MRF"));
    }
};

ONDIRA_TEST(DeviceTextsTest)
#include "DeviceTextsTest.moc"
