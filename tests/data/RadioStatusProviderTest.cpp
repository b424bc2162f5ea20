// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/RadioStatusProvider.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

namespace {

struct Site
{
    Site()
        : provider(link)
    {}

    FakeCommunicator link;
    RadioStatusProvider provider;
};

Model::RadioStatus lora(int index)
{
    Model::RadioStatus status;
    status.deviceType = Model::RadioStatus::DeviceType::LoRa;
    status.deviceIndex = index;
    status.deviceOpen = true;
    status.lowQueueLatency = 10;
    status.normalQueueLatency = 20;
    status.highQueueLatency = 30;
    return status;
}

} // namespace

class RadioStatusProviderTest : public TestBase
{
    Q_OBJECT

private slots:
    void asksNothingUntilItIsStarted()
    {
        Site site;

        QVERIFY(!site.provider.isRunning());
        QCOMPARE(site.provider.getInterval(), 0);
        QCOMPARE(site.link.operations, QStringList());
    }

    void asksAtEachTick()
    {
        Site site;
        QSignalSpy running(&site.provider, &RadioStatusProvider::runningChanged);
        QSignalSpy interval(&site.provider, &RadioStatusProvider::intervalChanged);

        site.provider.start(1);
        QVERIFY(site.provider.isRunning());
        QCOMPARE(site.provider.getInterval(), 1);
        QCOMPARE(running.count(), 1);
        QCOMPARE(interval.count(), 1);
        QTRY_VERIFY(site.link.operations.size() >= 3);
        QCOMPARE(site.link.operations.toSet(), QSet<QString>{"getRadioStatus"});
        site.provider.stop();

        QVERIFY(!site.provider.isRunning());
        QCOMPARE(running.count(), 2);
    }

    void startsWithTheStoredInterval()
    {
        Site site;
        site.provider.setInterval(1);

        site.provider.start();

        QTRY_VERIFY(!site.link.operations.isEmpty());
        QCOMPARE(site.provider.getInterval(), 1);
    }

    void aRunningTimerTakesOverANewInterval()
    {
        Site site;
        site.provider.start(3600000);

        site.provider.setInterval(1);

        QTRY_VERIFY(!site.link.operations.isEmpty());
    }

    void runningIsStartAndStop()
    {
        Site site;
        QSignalSpy running(&site.provider, &RadioStatusProvider::runningChanged);
        site.provider.setProperty("interval", 3600000);

        site.provider.setProperty("running", true);
        QVERIFY(site.provider.isRunning());
        site.provider.setProperty("running", true);
        QCOMPARE(running.count(), 2); // each one is a start
        site.provider.setProperty("running", false);
        QVERIFY(!site.provider.isRunning());
        QCOMPARE(running.count(), 3);
    }

    void equalAndNegativeIntervalsChangeNothing()
    {
        Site site;
        QSignalSpy interval(&site.provider, &RadioStatusProvider::intervalChanged);

        site.provider.setInterval(0);
        site.provider.setInterval(-5);

        QCOMPARE(site.provider.getInterval(), 0);
        QCOMPARE(interval.count(), 0);
    }

    void updateAsksOnce()
    {
        Site site;

        site.provider.update();

        QCOMPARE(site.link.operations, QStringList({"getRadioStatus"}));
    }

    void tellsTheStatusOfATransport()
    {
        Site site;
        QSignalSpy changed(&site.provider, &RadioStatusProvider::radioStatusChanged);
        QVERIFY(!site.provider.statusFor("lora", 1).isValid());

        site.link.publishRadioStatus({lora(0), lora(1)});

        QCOMPARE(changed.count(), 1);
        QCOMPARE(site.provider.statusFor("LoRa", 1).toMap(),
                 (QVariantMap{{"deviceType", "lora"},
                              {"deviceIndex", 1},
                              {"working", true},
                              {"lowPriorityLatency", 10U},
                              {"normalPriorityLatency", 20U},
                              {"highPriorityLatency", 30U}}));
        QVERIFY(!site.provider.statusFor("lora", 2).isValid());
        QVERIFY(!site.provider.statusFor("mrf", 1).isValid());
        QVERIFY(!site.provider.statusFor("no such radio", 1).isValid());
        QVERIFY(!site.provider.statusFor(QString(), -1).isValid());
        site.link.publishRadioStatus({});
        QVERIFY(!site.provider.statusFor("lora", 1).isValid());
    }
};

ONDIRA_TEST(RadioStatusProviderTest)
#include "RadioStatusProviderTest.moc"
