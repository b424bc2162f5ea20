// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/SiteClock.h"
#include "support/TestBase.h"

using Demo::SiteClock;

class SiteClockTest : public TestBase
{
    Q_OBJECT

private slots:
    void init();

    void showsLocalTimeWithItsOffset();
    void unknownTimezoneIsUtc_data();
    void unknownTimezoneIsUtc();
    void followsItsSource();
    void infoTellsTheClock();

private:
    QDateTime m_true;
};

void SiteClockTest::init()
{
    TestBase::init();
    m_true = QDateTime(QDate(2026, 6, 1), QTime(23, 30), Qt::UTC);
}

void SiteClockTest::showsLocalTimeWithItsOffset()
{
    const SiteClock clock("UTC+03:00", [this] { return m_true; });

    QCOMPARE(clock.now().toString(Qt::ISODate), QString("2026-06-02T02:30:00+03:00"));
}

void SiteClockTest::unknownTimezoneIsUtc_data()
{
    QTest::addColumn<QString>("timezone");

    QTest::newRow("unknown") << "Mars/Olympus";
    QTest::newRow("empty") << "";
    QTest::newRow("not even text") << QString(QChar(0xd800));
}

void SiteClockTest::unknownTimezoneIsUtc()
{
    QFETCH(QString, timezone);

    const SiteClock clock(timezone, [this] { return m_true; });

    QCOMPARE(clock.info().timezone, QString("UTC"));
    QCOMPARE(clock.now().offsetFromUtc(), 0);
    QVERIFY(!SiteClock::isKnownTimezone(timezone));
}

void SiteClockTest::followsItsSource()
{
    const SiteClock clock("UTC", [this] { return m_true; });

    m_true = m_true.addDays(1);

    QCOMPARE(clock.now(), m_true);
}

void SiteClockTest::infoTellsTheClock()
{
    const SiteClock clock("UTC+03:00", [this] { return m_true; });

    const auto info = clock.info();

    QCOMPARE(info.time, m_true);
    QCOMPARE(info.timezone, QString("UTC+03:00"));
    QVERIFY(info.ntp);
    QVERIFY(info.timezones.contains("UTC"));
    QVERIFY(info.timezones.contains(info.timezone));
}

ONDIRA_TEST(SiteClockTest)
#include "SiteClockTest.moc"
