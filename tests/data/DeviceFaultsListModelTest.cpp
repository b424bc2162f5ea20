// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/DeviceFaultsListModel.h"
#include "MirrorList.h"
#include "Records.h"
#include "SignalLog.h"
#include "data/DevicesListModel.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QVersionNumber>
#include <algorithm>
#include <limits>

using namespace Records;
using Role = DeviceFaultsListModel::Role;

namespace {

constexpr int largest = std::numeric_limits<int>::max();

QDateTime noon(int seconds = 0)
{
    return QDateTime(QDate(2024, 5, 1), QTime(12, 0), Qt::UTC).addSecs(seconds);
}

struct Site
{
    Site()
        : devices(link)
        , faults(link, devices)
    {
        link.setServerVersion(QVersionNumber(4, 5, 2));
        faults.setClock([this] { return now; });
    }

    QDateTime now = noon(30);
    FakeCommunicator link;
    DevicesListModel devices;
    DeviceFaultsListModel faults;
};

Model::DeviceDescriptor polled(uint n, const QVariant &interval = 60000, const QString &url = "lamp.qml")
{
    auto record = device(n, 0, url, int(n));
    if (interval.isValid())
        record.data = {{"pollingInterval", interval}};
    return record;
}

Model::DeviceState failing(uint n, const QVariant &errors)
{
    return state(n, {{"errors", errors}});
}

} // namespace

class DeviceFaultsListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void namesItsRoles()
    {
        Site site;

        QCOMPARE(site.faults.roleNames(),
                 (QHash<int, QByteArray>{{257, "uid"},
                                         {258, "zoneUid"},
                                         {259, "name"},
                                         {260, "sort"},
                                         {261, "errorCount"},
                                         {262, "faultTime"},
                                         {263, "faultLengthSec"}}));
    }

    void presentsAFault()
    {
        Site site;
        auto lamp = polled(7);
        lamp.zoneUid = uid(3);
        site.link.publishDeviceTypes({type("lamp.qml", "Lamp", 5)});
        site.link.publishDevices({lamp});

        site.link.publishDeviceStates({failing(7, 6)});

        QCOMPARE(site.faults.getByUid(text(7)),
                 (QVariantMap{{"uid", text(7)},
                              {"zoneUid", uid(3)},
                              {"name", "Lamp: 7"},
                              {"sort", "05:00007:00000007"},
                              {"errorCount", 6},
                              {"faultTime", QDateTime(QDate(2024, 5, 1), QTime(11, 54), Qt::UTC)},
                              {"faultLengthSec", 390}}));
        QVERIFY(!value(site.faults, 0, 264).isValid());
        QVERIFY(!site.faults.data(QModelIndex(), Role::Uid).isValid());
    }

    void tellsFaults_data()
    {
        QTest::addColumn<QVariant>("errors");
        QTest::addColumn<QVariant>("interval");
        QTest::addColumn<int>("errorCount");
        QTest::addColumn<int>("length"); // the fault began so many seconds before now, 12:00:30

        QTest::newRow("six errors") << QVariant(6) << QVariant(60000) << 6 << 390;
        QTest::newRow("one error") << QVariant(1) << QVariant(1000) << 1 << 1;
        QTest::newRow("no errors") << QVariant(0) << QVariant(60000) << 0 << 0;
        QTest::newRow("no interval") << QVariant(100) << QVariant(0) << 0 << 0;
        QTest::newRow("absent interval") << QVariant(100) << QVariant() << 0 << 0;
        QTest::newRow("absent errors") << QVariant() << QVariant(60000) << 0 << 0;
        QTest::newRow("texts of numbers") << QVariant("6") << QVariant("60000") << 6 << 390;
        QTest::newRow("doubles") << QVariant(6.0) << QVariant(60000.0) << 6 << 390;
        QTest::newRow("errors that are a list") << QVariant(QVariantList{1, 2}) << QVariant(60000) << 0 << 0;
        QTest::newRow("null") << QVariant::fromValue(nullptr) << QVariant(60000) << 0 << 0;
        QTest::newRow("no numbers") << QVariant("many") << QVariant("often") << 0 << 0;
        QTest::newRow("negative errors") << QVariant(-6) << QVariant(60000) << 0 << 0;
        QTest::newRow("negative interval") << QVariant(6) << QVariant(-60000) << 0 << 0;
        QTest::newRow("interval of a day") << QVariant(1) << QVariant(86400000) << 1 << 43230 + 86400;
        QTest::newRow("both as large as can be") << QVariant(largest) << QVariant(largest) << largest << largest;
        QTest::newRow("beyond an int") << QVariant(1e30) << QVariant(1e30) << largest << largest;
        QTest::newRow("many errors of a short interval") << QVariant(largest) << QVariant(1) << largest << 2147483;
    }

    void tellsFaults()
    {
        QFETCH(QVariant, errors);
        QFETCH(QVariant, interval);
        QFETCH(int, length);
        Site site;
        site.link.publishDevices({polled(1, interval)});

        site.link.publishDeviceStates({errors.isValid() ? failing(1, errors) : state(1, {})});

        QTEST(value(site.faults, 0, Role::ErrorCount).toInt(), "errorCount");
        QTEST(value(site.faults, 0, Role::FaultLengthSec).toInt(), "length");
        const auto time = value(site.faults, 0, Role::FaultTime).toDateTime();
        QVERIFY(time.isValid());
        if (length != largest)
            QVERIFY(qAbs(time.secsTo(site.now) - length) <= 1);
    }

    void timesBeforeTheEpochAlignDownAsWell()
    {
        Site site;
        const QDateTime now = QDateTime::fromMSecsSinceEpoch(-30000, Qt::UTC);

        const auto fault = site.faults.getFaultInfo(polled(1), failing(1, 1), now);

        QCOMPARE(fault.faultTime, QDateTime::fromMSecsSinceEpoch(-120000, Qt::UTC));
        QCOMPARE(fault.faultLengthSec, 90);
    }

    void beaconsOfOldServersHaveNoFaults_data()
    {
        QTest::addColumn<QVersionNumber>("version");
        QTest::addColumn<QString>("url");
        QTest::addColumn<int>("expected");

        QTest::newRow("unknown") << QVersionNumber() << "Beacon.qml" << 0;
        QTest::newRow("old") << QVersionNumber(4, 4, 0) << "Beacon.qml" << 0;
        QTest::newRow("just before") << QVersionNumber(4, 4, 99) << "Beacon.qml" << 0;
        QTest::newRow("the first that counts") << QVersionNumber(4, 5, 0) << "Beacon.qml" << 100;
        QTest::newRow("new") << QVersionNumber(5, 0, 0) << "Beacon.qml" << 100;
        QTest::newRow("another device") << QVersionNumber(4, 4, 0) << "Lamp.qml" << 100;
        QTest::newRow("letter case counts") << QVersionNumber(4, 4, 0) << "beacon.qml" << 100;
    }

    void beaconsOfOldServersHaveNoFaults()
    {
        QFETCH(QVersionNumber, version);
        QFETCH(QString, url);
        Site site;
        site.link.setServerVersion(version);
        site.link.publishDevices({polled(1, 60000, url)});

        site.link.publishDeviceStates({failing(1, 100)});

        QTEST(value(site.faults, 0, Role::ErrorCount).toInt(), "expected");
    }

    void theFirstListIsSorted()
    {
        Site site;

        site.link.publishDevices({polled(3), polled(1), polled(2)});

        QCOMPARE(column(site.faults, Role::Uid), QStringList({text(1), text(2), text(3)}));
    }

    void laterListsAreMerged()
    {
        Site site;
        site.link.publishDevices({polled(2), polled(4), polled(6)});
        QAbstractItemModelTester tester(&site.faults, QAbstractItemModelTester::FailureReportingMode::Warning);
        QSignalSpy updated(&site.faults, &DeviceFaultsListModel::deviceFaultsUpdated);
        SignalLog log(site.faults);

        site.link.publishDevices({polled(6), polled(5), polled(2), polled(1)});

        QCOMPARE(log.take(),
                 QStringList({"removing 1-1", "removed 1-1", "changed 0-1: all", "inserting 2-3", "inserted 2-3"}));
        QCOMPARE(column(site.faults, Role::Uid), QStringList({text(2), text(6), text(1), text(5)}));
        QCOMPARE(updated.count(), 1);
    }

    void aStateAnnouncesItsRowAlone()
    {
        Site site;
        site.link.publishDevices({polled(1), polled(2), polled(3)});
        QAbstractItemModelTester tester(&site.faults, QAbstractItemModelTester::FailureReportingMode::Warning);
        QSignalSpy updated(&site.faults, &DeviceFaultsListModel::deviceFaultsUpdated);
        SignalLog log(site.faults);

        site.link.publishDeviceStates({failing(3, 6), failing(9, 6)});
        QCOMPARE(log.take(), QStringList({"changed 2-2: 261 262 263"}));
        site.link.publishDeviceStates({failing(3, 6)});
        QCOMPARE(log.take(), QStringList());
        site.now = noon(40);
        site.link.publishDeviceStates({failing(3, 6)});
        QCOMPARE(log.take(), QStringList({"changed 2-2: 261 262 263"}));
        QCOMPARE(value(site.faults, 2, Role::FaultLengthSec).toInt(), 400);
        QCOMPARE(updated.count(), 3);
    }

    void theTimeOfADeviceWithoutFaultIsThePresent()
    {
        Site site;
        site.link.publishDevices({polled(1)});
        QCOMPARE(value(site.faults, 0, Role::FaultTime).toDateTime(), noon(30));

        site.now = noon(31);
        site.link.publishDeviceStates({failing(1, 0)});

        QCOMPARE(value(site.faults, 0, Role::FaultTime).toDateTime(), noon(31));
    }

    void aDeviceThatAnswersAgainHasNoFault()
    {
        Site site;
        site.link.publishDevices({polled(1)});
        site.link.publishDeviceStates({failing(1, 6)});

        site.link.publishDeviceStates({failing(1, 0)});

        QCOMPARE(value(site.faults, 0, Role::ErrorCount).toInt(), 0);
        QCOMPARE(value(site.faults, 0, Role::FaultLengthSec).toInt(), 0);
    }

    void aStateMayComeBeforeItsDevice()
    {
        Site site;
        site.link.publishDeviceStates({failing(1, 6)});
        site.link.publishDeviceStates({failing(2, 7)});

        site.link.publishDevices({polled(1), polled(2)});

        QCOMPARE(column(site.faults, Role::ErrorCount), QStringList({"6", "7"}));
    }

    void theIntervalOfTheDeviceIsFollowed()
    {
        Site site;
        site.link.publishDevices({polled(1, 0)});
        site.link.publishDeviceStates({failing(1, 6)});
        QCOMPARE(value(site.faults, 0, Role::ErrorCount).toInt(), 0);

        site.link.publishDevices({polled(1, 1000)});
        QCOMPARE(value(site.faults, 0, Role::FaultLengthSec).toInt(), 6);
        site.link.publishDeviceStates({failing(1, 7)});

        QCOMPARE(value(site.faults, 0, Role::FaultLengthSec).toInt(), 7);
    }

    void typesNameTheRows()
    {
        Site site;
        site.link.publishDevices({polled(1)});
        QCOMPARE(column(site.faults, Role::Name), QStringList({"No name: 1"}));

        site.link.publishDeviceTypes({type("lamp.qml", "Lamp", 7)});

        QCOMPARE(column(site.faults, Role::Name), QStringList({"Lamp: 1"}));
        QCOMPARE(column(site.faults, Role::Sort), QStringList({"07:00001:00000001"}));
    }

    void aFreshConnectionForgetsTheStates()
    {
        Site site;
        site.link.publishDevices({polled(1)});
        site.link.publishDeviceStates({failing(1, 6)});
        site.link.enter(FakeCommunicator::Connected);

        site.link.enter(FakeCommunicator::Connecting);
        QCOMPARE(value(site.faults, 0, Role::ErrorCount).toInt(), 6); // the rows stay
        site.link.publishDevices({polled(1)});

        QCOMPARE(value(site.faults, 0, Role::ErrorCount).toInt(), 0);
    }

    void aModelMadeLateReadsWhatWasPublished()
    {
        Site site;
        site.link.publishDevices({polled(1)});
        site.link.publishDeviceStates({failing(1, 6), failing(2, 8)});

        DeviceFaultsListModel late(site.link, site.devices);
        QCOMPARE(column(late, Role::ErrorCount), QStringList({"6"}));
        site.link.publishDevices({polled(1), polled(2)});

        QCOMPARE(column(late, Role::ErrorCount), QStringList({"6", "8"}));
    }

    void handsOutACopyOfTheRows()
    {
        Site site;
        site.link.publishDevices({polled(1)});
        site.link.publishDeviceStates({failing(1, 6)});

        const auto faults = site.faults.getDeviceFaults();
        site.link.publishDevices({polled(2)});

        QCOMPARE(faults.size(), std::size_t(1));
        QCOMPARE(faults[0].uid, uid(1));
        QCOMPARE(faults[0].url, QUrl("lamp.qml"));
        QCOMPARE(faults[0].fault.errorCount, 6);
    }

    void everyChangeIsAnnounced()
    {
        Site site;
        QRandomGenerator random(77);
        site.link.publishDevices({polled(1)});
        QAbstractItemModelTester tester(&site.faults, QAbstractItemModelTester::FailureReportingMode::Warning);
        const MirrorList mirror(site.faults);

        for (int turn = 0; turn < 400; ++turn) {
            auto expected = column(site.faults, Role::Uid);
            site.now = site.now.addSecs(random.bounded(3));
            if (random.bounded(2)) {
                std::vector<Model::DeviceDescriptor> devices;
                QStringList fresh; // by address, as the sort string has it
                for (uint n = 1; n <= 20; ++n) {
                    if (n > 1 && random.bounded(3) == 0)
                        continue;
                    devices.push_back(polled(n, random.bounded(3) * 1000));
                    fresh << text(n);
                }
                std::shuffle(devices.begin(), devices.end(), random);
                expected = MirrorList::merged(expected, fresh);
                site.link.publishDevices(devices);
            } else {
                std::vector<Model::DeviceState> states;
                for (int i = 0; i < 10; ++i)
                    states.push_back(failing(uint(random.bounded(25)), random.bounded(9)));
                site.link.publishDeviceStates(states);
            }

            QCOMPARE(column(site.faults, Role::Uid), expected);
            QCOMPARE(mirror.difference(), QString());
        }
    }
};

ONDIRA_TEST(DeviceFaultsListModelTest)
#include "DeviceFaultsListModelTest.moc"
