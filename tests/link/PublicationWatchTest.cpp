// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/PublicationWatch.h"
#include "support/TestBase.h"

#include <QElapsedTimer>

class PublicationWatchTest : public TestBase
{
    Q_OBJECT

private slots:
    void isAliveBeforeAnythingIsKnown();
    void portThatNeverStandsIsNotAliveButNoLoss();
    void portThatStandsInTimeStaysAlive();
    void lateConnectionBringsItBack();
    void dropIsToldAtOnceAndItsHealingAsWell();
    void dropThatDoesNotHealIsALoss();
    void lossIsToldAgainAfterTheLongerWait();
    void lossHealedAfterTheReconnectIsOver();
    void closedWatchIsSilent();
    void forgottenLossIsNoLossOfTheNextServer();
    void strayEventsAreIgnored();
};

namespace {

constexpr int never = 600000;

struct Spies
{
    explicit Spies(PublicationWatch &watch)
        : alive(&watch, &PublicationWatch::aliveChanged)
        , failed(&watch, &PublicationWatch::healingFailed)
    {}

    QSignalSpy alive;
    QSignalSpy failed;
};

} // namespace

void PublicationWatchTest::isAliveBeforeAnythingIsKnown()
{
    const PublicationWatch watch(1, 1);

    QVERIFY(watch.isAlive());
}

void PublicationWatchTest::portThatNeverStandsIsNotAliveButNoLoss()
{
    PublicationWatch watch(20, 20);
    Spies spies(watch);

    watch.open();
    QVERIFY(watch.isAlive());
    QVERIFY(spies.alive.wait(patience));

    QVERIFY(!watch.isAlive());
    QVERIFY(!spies.failed.wait(100));
}

void PublicationWatchTest::portThatStandsInTimeStaysAlive()
{
    PublicationWatch watch(20, 20);
    Spies spies(watch);

    watch.open();
    watch.onConnected();

    QVERIFY(!spies.alive.wait(100));
    QVERIFY(watch.isAlive());
}

void PublicationWatchTest::lateConnectionBringsItBack()
{
    PublicationWatch watch(10, 10);
    Spies spies(watch);
    watch.open();
    QVERIFY(spies.alive.wait(patience));

    watch.onConnected();

    QVERIFY(watch.isAlive());
    QCOMPARE(spies.alive.size(), 2);
    QCOMPARE(spies.failed.size(), 0);
}

void PublicationWatchTest::dropIsToldAtOnceAndItsHealingAsWell()
{
    PublicationWatch watch(50, 50);
    Spies spies(watch);
    watch.open();
    watch.onConnected();

    watch.onDropped();
    QVERIFY(!watch.isAlive());
    watch.onConnected();
    QVERIFY(watch.isAlive());

    QVERIFY(!spies.failed.wait(150));
}

void PublicationWatchTest::dropThatDoesNotHealIsALoss()
{
    PublicationWatch watch(50, never);
    Spies spies(watch);
    watch.open();
    watch.onConnected();
    QElapsedTimer elapsed;
    elapsed.start();

    watch.onDropped();
    QVERIFY(spies.failed.wait(patience));

    QVERIFY(elapsed.elapsed() >= 45);
    QVERIFY(!watch.isAlive());
    QCOMPARE(spies.failed.size(), 1);
}

void PublicationWatchTest::lossIsToldAgainAfterTheLongerWait()
{
    PublicationWatch watch(10, 80);
    Spies spies(watch);
    watch.open();
    watch.onConnected();
    watch.onDropped();
    QVERIFY(spies.failed.wait(patience));

    for (int round = 2; round <= 3; ++round) {
        watch.close(); // what a reconnect does
        watch.open();
        QElapsedTimer elapsed;
        elapsed.start();
        QVERIFY(spies.failed.wait(patience));
        QVERIFY(elapsed.elapsed() >= 75);
        QCOMPARE(spies.failed.size(), round);
        QVERIFY(!watch.isAlive());
    }
}

void PublicationWatchTest::lossHealedAfterTheReconnectIsOver()
{
    PublicationWatch watch(10, 30);
    Spies spies(watch);
    watch.open();
    watch.onConnected();
    watch.onDropped();
    QVERIFY(spies.failed.wait(patience));
    watch.close();
    watch.open();

    watch.onConnected();

    QVERIFY(watch.isAlive());
    QVERIFY(!spies.failed.wait(100));
}

void PublicationWatchTest::closedWatchIsSilent()
{
    PublicationWatch watch(10, 10);
    Spies spies(watch);
    watch.open();
    watch.onConnected();

    watch.close();
    watch.onDropped();

    QVERIFY(!spies.failed.wait(50));
    QVERIFY(watch.isAlive());
}

void PublicationWatchTest::forgottenLossIsNoLossOfTheNextServer()
{
    PublicationWatch watch(10, 10);
    Spies spies(watch);
    watch.open();
    watch.onConnected();
    watch.onDropped();
    QVERIFY(spies.failed.wait(patience));

    watch.close();
    watch.forget();
    QVERIFY(watch.isAlive());
    watch.open();

    QVERIFY(!spies.failed.wait(50));
    QVERIFY(!watch.isAlive());
}

void PublicationWatchTest::strayEventsAreIgnored()
{
    PublicationWatch watch(10, 10);
    Spies spies(watch);

    watch.onConnected();
    watch.onDropped();
    watch.close();
    watch.forget();

    QVERIFY(!spies.failed.wait(50));
    QCOMPARE(spies.alive.size(), 0);
}

ONDIRA_TEST(PublicationWatchTest)
#include "PublicationWatchTest.moc"
