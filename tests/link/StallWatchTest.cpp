// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/StallWatch.h"
#include "support/TestBase.h"

class StallWatchTest : public TestBase
{
    Q_OBJECT

private slots:
    void ticksInTimeAreNoStall();
    void longerThanTheLimitIsAStallOnce();
    void exactlyTheLimitIsNone();
    void bootClockGrows();
};

void StallWatchTest::ticksInTimeAreNoStall()
{
    qint64 now = 1000000;
    StallWatch watch(5000, [&] { return now; });

    for (int i = 0; i < 100; ++i) {
        now += 4999;
        QVERIFY(!watch.tick());
    }
}

void StallWatchTest::longerThanTheLimitIsAStallOnce()
{
    qint64 now = 1000000;
    StallWatch watch(5000, [&] { return now; });

    now += 3600000;

    QVERIFY(watch.tick());
    QVERIFY(!watch.tick());
    now += 10;
    QVERIFY(!watch.tick());
    now += 5001;
    QVERIFY(watch.tick());
}

void StallWatchTest::exactlyTheLimitIsNone()
{
    qint64 now = 0;
    StallWatch watch(5000, [&] { return now; });

    now = 5000;
    QVERIFY(!watch.tick());
    now = 10001;
    QVERIFY(watch.tick());
}

void StallWatchTest::bootClockGrows()
{
    const auto first = StallWatch::timeSinceBoot();

    QVERIFY(first > 0);
    QTRY_VERIFY(StallWatch::timeSinceBoot() > first);
}

ONDIRA_TEST(StallWatchTest)
#include "StallWatchTest.moc"
