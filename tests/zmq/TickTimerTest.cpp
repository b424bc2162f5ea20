// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/zmq/TickTimer.h"

#include "support/TestBase.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <memory>
#include <sys/resource.h>
#include <vector>

using nzmqt::TickTimer;

namespace {

// While it stands, this process gets no further descriptor.
class NoDescriptors
{
public:
    NoDescriptors()
    {
        getrlimit(RLIMIT_NOFILE, &m_limit);
        rlimit none = m_limit;
        none.rlim_cur = 0;
        setrlimit(RLIMIT_NOFILE, &none);
    }
    ~NoDescriptors() { setrlimit(RLIMIT_NOFILE, &m_limit); }

    NoDescriptors(const NoDescriptors &) = delete;
    NoDescriptors &operator=(const NoDescriptors &) = delete;

private:
    rlimit m_limit{};
};

std::unique_ptr<TickTimer> timer(bool hasDescriptor)
{
    if (hasDescriptor)
        return std::make_unique<TickTimer>();
    const NoDescriptors none;
    return std::make_unique<TickTimer>();
}

} // namespace

class TickTimerTest : public TestBase
{
    Q_OBJECT

private:
    static void bothKinds()
    {
        QTest::addColumn<bool>("hasDescriptor");
        QTest::newRow("with a descriptor") << true;
        QTest::newRow("without one") << false;
    }

private slots:
    void firesOnceAndNotBeforeItsTime_data() { bothKinds(); }
    void firesOnceAndNotBeforeItsTime()
    {
        QFETCH(bool, hasDescriptor);
        const auto tick = timer(hasDescriptor);
        const auto later = timer(hasDescriptor);
        QSignalSpy ticks(tick.get(), &TickTimer::timeout);
        QSignalSpy end(later.get(), &TickTimer::timeout);
        QElapsedTimer elapsed;
        elapsed.start();

        tick->start(20);
        later->start(60);
        QVERIFY(ticks.wait(patience));

        QVERIFY(elapsed.nsecsElapsed() >= 20 * 1000000);
        QVERIFY(end.wait(patience));
        QCOMPARE(ticks.size(), 1);
    }

    void zeroIsTheNextTurn_data() { bothKinds(); }
    void zeroIsTheNextTurn()
    {
        QFETCH(bool, hasDescriptor);
        const auto tick = timer(hasDescriptor);
        QSignalSpy ticks(tick.get(), &TickTimer::timeout);

        tick->start(0);

        QCOMPARE(ticks.size(), 0);
        QVERIFY(ticks.wait(patience));
    }

    void aStoppedOneIsSilent_data() { bothKinds(); }
    void aStoppedOneIsSilent()
    {
        QFETCH(bool, hasDescriptor);
        const auto tick = timer(hasDescriptor);
        const auto other = timer(hasDescriptor);
        QSignalSpy ticks(tick.get(), &TickTimer::timeout);
        QSignalSpy ends(other.get(), &TickTimer::timeout);

        tick->stop();
        tick->start(1);
        tick->stop();
        other->start(10);

        QVERIFY(ends.wait(patience));
        QCOMPARE(ticks.size(), 0);
    }

    void startedAnewItCountsFromThen_data() { bothKinds(); }
    void startedAnewItCountsFromThen()
    {
        QFETCH(bool, hasDescriptor);
        const auto tick = timer(hasDescriptor);
        const auto other = timer(hasDescriptor);
        QSignalSpy ticks(tick.get(), &TickTimer::timeout);
        QSignalSpy ends(other.get(), &TickTimer::timeout);

        tick->start(1);
        tick->start(3600000);
        other->start(10);
        QVERIFY(ends.wait(patience));
        QCOMPARE(ticks.size(), 0);
        tick->start(1);

        QVERIFY(ticks.wait(patience));
    }

    void aSlotMayStartItAgainOrLetItGo_data() { bothKinds(); }
    void aSlotMayStartItAgainOrLetItGo()
    {
        QFETCH(bool, hasDescriptor);
        auto tick = timer(hasDescriptor);
        int count = 0;
        connect(tick.get(), &TickTimer::timeout, this, [&] {
            if (++count < 5)
                tick->start(1);
            else
                tick.release()->deleteLater();
        });

        tick->start(1);

        QTRY_COMPARE(count, 5);
        QVERIFY(!tick);
    }

    void manyRunSideBySide()
    {
        std::vector<std::unique_ptr<TickTimer>> timers;
        int count = 0;
        for (int i = 0; i < 200; ++i) {
            timers.push_back(timer(i % 2 == 0));
            connect(timers.back().get(), &TickTimer::timeout, this, [&count] { ++count; });
            timers.back()->start(i % 20);
        }

        QTRY_COMPARE(count, 200);
    }
};

ONDIRA_TEST(TickTimerTest)
#include "TickTimerTest.moc"
