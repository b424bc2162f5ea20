// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/StandardBlueprints.h"
#include "support/TestBase.h"

using namespace Model::StandardBlueprints;

class StandardBlueprintsTest : public TestBase
{
    Q_OBJECT

private slots:
    void uidCarriesTheNumberTwice_data();
    void uidCarriesTheNumberTwice();
    void fixedUids();
};

void StandardBlueprintsTest::uidCarriesTheNumberTwice_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("expected");

    QTest::newRow("0") << 0 << "{00000ec0-0000-0000-0000-000000000000}";
    QTest::newRow("1") << 1 << "{00000ec0-0001-0000-0000-000000000001}";
    QTest::newRow("101") << 101 << "{00000ec0-0065-0000-0000-000000000065}";
    QTest::newRow("the low byte alone at the end") << 0x1234 << "{00000ec0-1234-0000-0000-000000000034}";
    QTest::newRow("256") << 256 << "{00000ec0-0100-0000-0000-000000000000}";
    QTest::newRow("largest") << 65535 << "{00000ec0-ffff-0000-0000-0000000000ff}";
}

void StandardBlueprintsTest::uidCarriesTheNumberTwice()
{
    QFETCH(int, number);
    QFETCH(QString, expected);

    QCOMPARE(persistentUID(static_cast<unsigned short>(number)).toString(), expected);
}

void StandardBlueprintsTest::fixedUids()
{
    QCOMPARE(indoorLuxSensorUid().toString(), QString("{00000ec0-0001-0000-0000-000000000001}"));
    QCOMPARE(setPowerUid().toString(), QString("{00000ec0-0002-0000-0000-000000000002}"));
    QCOMPARE(setAutoModeUid().toString(), QString("{00000ec0-0003-0000-0000-000000000003}"));
    QCOMPARE(outdoorLuxSensorUid().toString(), QString("{00000ec0-0004-0000-0000-000000000004}"));
    QCOMPARE(setManualModeUid().toString(), QString("{00000ec0-0005-0000-0000-000000000005}"));
    QCOMPARE(debugAllNodesUid().toString(), QString("{00000ec0-0006-0000-0000-000000000006}"));
}

ONDIRA_TEST(StandardBlueprintsTest)
#include "StandardBlueprintsTest.moc"
