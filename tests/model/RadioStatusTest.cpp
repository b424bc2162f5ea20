// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/RadioStatus.h"
#include "support/TestBase.h"

using Type = Model::RadioStatus::DeviceType;

Q_DECLARE_METATYPE(Model::RadioStatus::DeviceType)

class RadioStatusTest : public TestBase
{
    Q_OBJECT

private slots:
    void texts_data();
    void texts();
    void letterCaseIsFolded();
    void valueOutsideIsWrittenUnknown();
    void unknownTextIsNone();
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

ONDIRA_TEST(RadioStatusTest)
#include "RadioStatusTest.moc"
