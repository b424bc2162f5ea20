// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/RadioDutyCycle.h"
#include "support/TestBase.h"

#include <QMetaEnum>

class RadioDutyCycleTest : public TestBase
{
    Q_OBJECT

private slots:
    void texts_data();
    void texts();
    void unknownTextIsHalf_data();
    void unknownTextIsHalf();
    void valueOutsideIsWrittenAsHalf();
    void enumerationIsKnownToQml();
};

void RadioDutyCycleTest::texts_data()
{
    QTest::addColumn<RadioDutyCycle::DutyCycle>("cycle");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");

    QTest::newRow("50%") << RadioDutyCycle::Duty50 << 0 << "duty50";
    QTest::newRow("100%") << RadioDutyCycle::Duty100 << 1 << "duty100";
    QTest::newRow("33%") << RadioDutyCycle::Duty33 << 2 << "duty33";
    QTest::newRow("25%") << RadioDutyCycle::Duty25 << 3 << "duty25";
    QTest::newRow("10%") << RadioDutyCycle::Duty10 << 4 << "duty10";
    QTest::newRow("1%") << RadioDutyCycle::Duty1 << 5 << "duty1";
}

void RadioDutyCycleTest::texts()
{
    QFETCH(RadioDutyCycle::DutyCycle, cycle);
    QFETCH(int, number);
    QFETCH(QString, text);

    QCOMPARE(int(cycle), number);
    QCOMPARE(RadioDutyCycle::toString(cycle), text);
    QCOMPARE(RadioDutyCycle::fromString(text), cycle);
}

void RadioDutyCycleTest::unknownTextIsHalf_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("empty") << QString("");
    for (const char *text : {"duty", "duty75", "Duty100", "duty100 ", "100", "1"})
        QTest::newRow(text) << QString(text);
    QTest::newRow("null") << QString();
}

void RadioDutyCycleTest::unknownTextIsHalf()
{
    QFETCH(QString, text);

    QCOMPARE(RadioDutyCycle::fromString(text), RadioDutyCycle::Duty50);
}

void RadioDutyCycleTest::valueOutsideIsWrittenAsHalf()
{
    QCOMPARE(RadioDutyCycle::toString(static_cast<RadioDutyCycle::DutyCycle>(6)), QString("duty50"));
    QCOMPARE(RadioDutyCycle::toString(static_cast<RadioDutyCycle::DutyCycle>(-1)), QString("duty50"));
}

void RadioDutyCycleTest::enumerationIsKnownToQml()
{
    const auto cycles = QMetaEnum::fromType<RadioDutyCycle::DutyCycle>();

    QCOMPARE(cycles.keyCount(), 6);
    QCOMPARE(cycles.keyToValue("Duty1"), 5);
}

ONDIRA_TEST(RadioDutyCycleTest)
#include "RadioDutyCycleTest.moc"
