// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ZonesListModel.h"
#include "MirrorList.h"
#include "Records.h"
#include "SignalLog.h"
#include "ZonesSite.h"
#include "data/DeviceFaultsListModel.h"
#include "data/DevicesListModel.h"
#include "data/ShopPartsListModel.h"
#include "data/UsersListModel.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <algorithm>
#include <numeric>

using namespace Records;
using Role = ZonesListModel::Role;
using Site = ZonesSite;

namespace {

Model::ScheduleDay day(uint n, const QString &name, const QSet<QUuid> &zones)
{
    Model::ScheduleDay record;
    record.uid = uid(n);
    record.name = name;
    record.zones = zones;
    return record;
}

Model::DeviceDescriptor polled(uint n, uint zone)
{
    auto record = device(n, zone);
    record.data = {{"pollingInterval", 1000}};
    return record;
}

} // namespace

class ZonesListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void namesItsRoles()
    {
        Site site;
        const QHash<int, QByteArray> expected{{257, "uid"},
                                              {258, "name"},
                                              {259, "scheduleName"},
                                              {260, "x"},
                                              {261, "y"},
                                              {262, "width"},
                                              {263, "height"},
                                              {264, "partUid"},
                                              {265, "partName"},
                                              {266, "sort"},
                                              {267, "manual"},
                                              {268, "power"},
                                              {269, "erroredDevicesCount"}};

        QCOMPARE(site.zones.roleNames(), expected);
    }

    void presentsAZone()
    {
        Site site;
        auto record = placed(7, 3, 10.5, 20.25, 300, 400);
        record.name = "Hall";
        site.link.publishShopParts({part(3, "Floor")});

        site.link.publishZones({record});

        QCOMPARE(site.zones.getByUid(text(7)),
                 (QVariantMap{{"uid", text(7)},
                              {"name", "Hall"},
                              {"scheduleName", QStringList()},
                              {"x", 10.5},
                              {"y", 20.25},
                              {"width", 300.0},
                              {"height", 400.0},
                              {"partUid", text(3)},
                              {"partName", "Floor"},
                              {"sort", "Floor:00000003:Hall:00000007"},
                              {"manual", false},
                              {"power", 100},
                              {"erroredDevicesCount", 0}}));
        QCOMPARE(value(site.zones, 0, Role::X).userType(), int(QMetaType::Double));
        QCOMPARE(value(site.zones, 0, Role::Manual).userType(), int(QMetaType::Bool));
        QCOMPARE(value(site.zones, 0, Role::Power).userType(), int(QMetaType::Int));
    }

    void sortKeysAlignTheNamesOfParts()
    {
        Site site;
        site.link.publishShopParts({part(0xabc, "A"), part(2, "BB")});

        site.link.publishZones({zone(0xffffffffU, "z", 0xabc), zone(5, "%1 %4", 2)});

        QCOMPARE(column(site.zones, Role::Sort), QStringList({"#A:00000abc:z:ffffffff", "BB:00000002:%1 %4:00000005"}));
    }

    void partsRenameTheirZones()
    {
        Site site;
        site.link.publishZones({zone(1, "a", 3), zone(2, "b", 4)});
        QCOMPARE(column(site.zones, Role::PartName), QStringList({"Объект", "Объект"}));
        QAbstractItemModelTester tester(&site.zones, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(site.zones);

        site.link.publishShopParts({part(3, "First")});

        QCOMPARE(log.take(), QStringList({"changed 0-1: 265 266"}));
        QCOMPARE(column(site.zones, Role::PartName), QStringList({"First", "Объект"}));
        QCOMPARE(column(site.zones, Role::Sort),
                 QStringList({"#First:00000003:a:00000001", "Объект:00000004:b:00000002"}));
    }

    void aPartThatIsGoneLeavesTheDefaultName()
    {
        Site site;
        site.link.publishShopParts({part(3, "First")});
        site.link.publishZones({zone(1, "a", 3)});

        site.link.publishShopParts({});

        QCOMPARE(column(site.zones, Role::PartName), QStringList({"Объект"}));
    }

    void partsAnnounceNothingWithoutZones()
    {
        Site site;
        QAbstractItemModelTester tester(&site.zones, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(site.zones);

        site.link.publishShopParts({part(3, "First")});

        QCOMPARE(log.take(), QStringList());
    }

    void movedZoneKeepsItsRow()
    {
        Site site;
        site.link.publishZones({placed(1, 3, 0, 0, 10, 10), placed(2, 3, 0, 0, 10, 10)});
        QAbstractItemModelTester tester(&site.zones, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(site.zones);

        site.link.publishZones({placed(2, 3, 5, 6, 10, 10), placed(1, 3, 0, 0, 10, 10)});

        QCOMPARE(log.take(), QStringList({"changed 0-1: all"}));
        QCOMPARE(column(site.zones, Role::Uid), QStringList({text(1), text(2)}));
        QCOMPARE(value(site.zones, 1, Role::X).toDouble(), 5.0);
    }

    void powerIsTheMeanOfWhatDevicesReport_data()
    {
        QTest::addColumn<QVariantList>("reported"); // an invalid value: the device reports no power
        QTest::addColumn<int>("expected");

        QTest::newRow("three devices") << QVariantList{100, 50, 25} << 58;
        QTest::newRow("none") << QVariantList{} << 100;
        QTest::newRow("none reports") << QVariantList{QVariant(), QVariant()} << 100;
        QTest::newRow("one of two reports") << QVariantList{QVariant(), 30} << 30;
        QTest::newRow("all off") << QVariantList{0, 0} << 0;
        QTest::newRow("truncated") << QVariantList{1, 0} << 0;
        QTest::newRow("truncated toward zero") << QVariantList{-1, -2} << -1;
        QTest::newRow("texts of numbers count") << QVariantList{QString("40")} << 40;
        QTest::newRow("what is no number counts as 0") << QVariantList{QString("much"), 50} << 25;
        QTest::newRow("null counts as 0") << QVariantList{QVariant::fromValue(nullptr), 50} << 25;
        QTest::newRow("huge numbers do not overflow") << QVariantList{2147483647, 2147483647, 1e300} << 2147483647;
    }

    void powerIsTheMeanOfWhatDevicesReport()
    {
        QFETCH(QVariantList, reported);
        Site site;
        std::vector<Model::DeviceDescriptor> devices;
        std::vector<Model::DeviceState> states;
        for (int i = 0; i < reported.size(); ++i) {
            devices.push_back(device(100 + uint(i), 1));
            states.push_back(
                state(100 + uint(i),
                      reported[i].isValid() ? QVariantMap{{"power", reported[i]}} : QVariantMap{{"errors", 0}}));
        }
        site.link.publishZones({zone(1), zone(2)});
        site.link.publishDevices(devices);

        site.link.publishDeviceStates(states);

        QTEST(value(site.zones, 0, Role::Power).toInt(), "expected");
        QCOMPARE(value(site.zones, 1, Role::Power).toInt(), 100);
    }

    void announcesOnlyZonesWhosePowerChanged()
    {
        Site site;
        site.link.publishZones({zone(1), zone(2), zone(3)});
        site.link.publishDevices({device(11, 1), device(12, 2), device(13, 3)});
        site.link.publishDeviceStates({state(11, {{"power", 10}}), state(12, {{"power", 20}})});
        QAbstractItemModelTester tester(&site.zones, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(site.zones);

        site.link.publishDeviceStates({state(11, {{"power", 10}}), state(12, {{"power", 21}})});
        QCOMPARE(log.take(), QStringList({"changed 1-1: 268"}));
        site.link.publishDeviceStates({state(11, {}), state(13, {{"power", 5}})});
        QCOMPARE(log.take(), QStringList({"changed 0-0: 268", "changed 2-2: 268"}));
        QCOMPARE(column(site.zones, Role::Power), QStringList({"100", "21", "5"}));
    }

    void aFreshListFillsTheDerivedFieldsAnew()
    {
        Site site;
        site.link.publishDevices({device(11, 1)});
        site.link.publishDeviceStates({state(11, {{"power", 40}})});
        site.link.publishDeviceModes({manual(11)});
        site.link.publishZones({zone(1), zone(2)});
        SignalLog log(site.zones);

        site.link.publishZones({zone(1), zone(2)});

        QCOMPARE(log.take(), QStringList({"changed 0-1: all", "changed 0-0: 267", "changed 0-0: 268"}));
        QCOMPARE(column(site.zones, Role::Power), QStringList({"40", "100"}));
        QCOMPARE(column(site.zones, Role::Manual), QStringList({"true", "false"}));
    }

    void oneDeviceByHandMakesItsZoneManual()
    {
        Site site;
        site.link.publishZones({zone(1), zone(2)});
        site.link.publishDevices({device(11, 1), device(12, 1), device(13, 2)});
        SignalLog log(site.zones);

        site.link.publishDeviceModes({automatic(11), manual(12), automatic(13)});
        QCOMPARE(log.take(), QStringList({"changed 0-0: 267"}));
        QCOMPARE(column(site.zones, Role::Manual), QStringList({"true", "false"}));
        site.link.publishDeviceModes({automatic(12), manual(13)});
        QCOMPARE(log.take(), QStringList({"changed 0-0: 267", "changed 1-1: 267"}));
        QCOMPARE(column(site.zones, Role::Manual), QStringList({"false", "true"}));
    }

    void schedulesNameTheZonesThatTheyDrive()
    {
        Site site;
        site.link.publishZones({zone(1), zone(2), zone(3)});
        QAbstractItemModelTester tester(&site.zones, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(site.zones);

        site.link.publishSchedules({day(21, "Work", {uid(1), uid(3)}), day(22, "Rest", {uid(3), uid(9)}),
                                    day(23, "Work", {uid(3)}), day(24, "Idle", {})});
        QCOMPARE(log.take(), QStringList({"changed 0-0: 259", "changed 2-2: 259"}));
        QCOMPARE(value(site.zones, 0, Role::ScheduleName).toStringList(), QStringList({"Work"}));
        QCOMPARE(value(site.zones, 1, Role::ScheduleName).toStringList(), QStringList());
        QCOMPARE(value(site.zones, 2, Role::ScheduleName).toStringList(), QStringList({"Work", "Rest"}));
        site.link.publishSchedules({day(22, "Rest", {uid(3)}), day(21, "Work", {uid(1), uid(3)})});
        QCOMPARE(log.take(), QStringList({"changed 2-2: 259"}));
        QCOMPARE(value(site.zones, 2, Role::ScheduleName).toStringList(), QStringList({"Rest", "Work"}));
        site.link.publishSchedules({});
        QCOMPARE(log.take(), QStringList({"changed 0-0: 259", "changed 2-2: 259"}));
    }

    void schedulesMayComeBeforeTheZones()
    {
        Site site;
        site.link.publishSchedules({day(21, "Work", {uid(2)})});

        site.link.publishZones({zone(1), zone(2)});

        QCOMPARE(value(site.zones, 0, Role::ScheduleName).toStringList(), QStringList());
        QCOMPARE(value(site.zones, 1, Role::ScheduleName).toStringList(), QStringList({"Work"}));
    }

    void fiveErrorsAreToleratedAndASixthIsNot()
    {
        Site site;
        site.link.publishZones({zone(1), zone(2)});
        site.link.publishDevices({polled(11, 2), polled(12, 2), device(13, 2)});
        QAbstractItemModelTester tester(&site.zones, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(site.zones);

        site.link.publishDeviceStates({state(11, {{"errors", 5}}), state(13, {{"errors", 50}})});
        QCOMPARE(log.take(), QStringList());
        QCOMPARE(column(site.zones, Role::ErroredDevicesCount), QStringList({"0", "0"}));
        site.link.publishDeviceStates({state(11, {{"errors", 6}})});
        QCOMPARE(log.take(), QStringList({"changed 1-1: 269"}));
        QCOMPARE(column(site.zones, Role::ErroredDevicesCount), QStringList({"0", "1"}));
        site.link.publishDeviceStates({state(12, {{"errors", 7}})});
        QCOMPARE(column(site.zones, Role::ErroredDevicesCount), QStringList({"0", "2"}));
        site.link.publishDeviceStates({state(11, {{"errors", 0}}), state(12, {})});
        QCOMPARE(column(site.zones, Role::ErroredDevicesCount), QStringList({"0", "0"}));
    }

    void faultyDevicesMoveWithTheirZone()
    {
        Site site;
        site.link.publishDeviceStates({state(11, {{"errors", 6}})});
        site.link.publishDevices({polled(11, 1)});
        site.link.publishZones({zone(1), zone(2)});
        QCOMPARE(column(site.zones, Role::ErroredDevicesCount), QStringList({"1", "0"}));

        site.link.publishDevices({polled(11, 2)});
        QCOMPARE(column(site.zones, Role::ErroredDevicesCount), QStringList({"0", "1"}));
        site.link.publishZones({zone(1), zone(2)});
        QCOMPARE(column(site.zones, Role::ErroredDevicesCount), QStringList({"0", "1"}));
        site.link.publishDevices({});
        QCOMPARE(column(site.zones, Role::ErroredDevicesCount), QStringList({"0", "0"}));
    }

    void aListOfRightsNamesZonesAndTheirPart_data()
    {
        QTest::addColumn<bool>("usersFirst");

        QTest::newRow("rights before the lists") << true;
        QTest::newRow("rights after the lists") << false;
    }

    void aListOfRightsNamesZonesAndTheirPart()
    {
        QFETCH(bool, usersFirst);
        Site site;
        ShopPartsListModel parts(site.link, site.users);
        const auto rights = limitedUser("anna", {uid(1), uid(2), uid(31)});
        site.link.logIn("anna", "user");
        if (usersFirst)
            site.link.publishUsers({user("admin", "admin"), rights});

        site.link.publishShopParts({part(31, "Hall"), part(32, "Roof")});
        site.link.publishZones({zone(1, "a", 31), zone(2, "b", 31), zone(3, "c", 31), zone(4, "d", 32)});
        site.link.publishDevices({polled(11, 1), polled(12, 2), polled(13, 3)});
        site.link.publishDeviceStates({state(11, {{"power", 40}, {"errors", 9}}), state(13, {{"power", 10}})});
        site.link.publishDeviceModes({manual(12), manual(13)});
        site.link.publishSchedules({day(21, "Work", {uid(2), uid(3)})});
        if (!usersFirst)
            site.link.publishUsers({user("admin", "admin"), rights});

        QCOMPARE(column(parts, ShopPartsListModel::Name), QStringList({"Hall"}));
        QCOMPARE(column(site.zones, Role::Uid), QStringList({text(1), text(2)}));
        QCOMPARE(column(site.zones, Role::PartName), QStringList({"Hall", "Hall"}));
        QCOMPARE(column(site.zones, Role::Power), QStringList({"40", "100"}));
        QCOMPARE(column(site.zones, Role::Manual), QStringList({"false", "true"}));
        QCOMPARE(column(site.zones, Role::ErroredDevicesCount), QStringList({"1", "0"}));
        QCOMPARE(value(site.zones, 1, Role::ScheduleName).toStringList(), QStringList({"Work"}));
    }

    void everyChangeIsAnnounced()
    {
        Site site;
        QRandomGenerator random(4711);
        const auto below = [&](int end) { return random.bounded(end); };
        site.link.logIn("anna", "user");
        site.link.publishZones({zone(1)});
        QSet<QUuid> allowed{uid(1)};
        QStringList published{text(1)};
        bool limited = false;
        QAbstractItemModelTester tester(&site.zones, QAbstractItemModelTester::FailureReportingMode::Warning);
        const MirrorList mirror(site.zones);

        for (int turn = 0; turn < 600; ++turn) {
            auto expected = column(site.zones, Role::Uid);
            const auto visible = [&] {
                QStringList uids;
                for (const auto &uid : qAsConst(published)) {
                    if (!limited || allowed.contains(QUuid(uid)))
                        uids << uid;
                }
                return uids;
            };
            switch (below(7)) {
            case 0: {
                std::vector<Model::Zone> zones;
                for (uint n = 1; n <= 20; ++n) {
                    if (n == 1 || below(2))
                        zones.push_back(zone(n, QString::number(below(5)), uint(30 + below(4))));
                }
                std::shuffle(zones.begin(), zones.end(), random);
                published.clear();
                for (const auto &record : zones)
                    published << record.uid.toString();
                expected = MirrorList::merged(expected, visible());
                site.link.publishZones(zones);
                break;
            }
            case 1: site.link.publishShopParts({part(uint(30 + below(4)), QString::number(below(2000)))}); break;
            case 2:
                site.link.publishSchedules(
                    {day(50, "a", {uid(uint(below(20)))}), day(51, "b", {uid(uint(below(20)))})});
                break;
            case 3: {
                std::vector<Model::DeviceDescriptor> devices;
                for (uint n = 100; n < 120; ++n)
                    devices.push_back(polled(n, uint(1 + below(20))));
                site.link.publishDevices(devices);
                break;
            }
            case 4:
                site.link.publishDeviceStates(
                    {state(uint(100 + below(20)), {{"power", below(100)}, {"errors", below(12)}})});
                break;
            case 5:
                site.link.publishDeviceModes({manual(uint(100 + below(20))), automatic(uint(100 + below(20)))});
                break;
            default:
                limited = below(2);
                allowed = {uid(1), uid(uint(below(20))), uid(uint(below(20))), uid(uint(below(20)))};
                expected = MirrorList::merged(expected, visible());
                site.link.publishUsers({limited ? limitedUser("anna", allowed) : user("anna")});
            }

            QCOMPARE(column(site.zones, Role::Uid), expected);
            QCOMPARE(mirror.difference(), QString());
        }
    }

    void aDeviceThatMovesTakesItsPowerAlong()
    {
        Site site;
        site.link.publishZones({zone(1), zone(2)});
        site.link.publishDevices({device(11, 1)});
        site.link.publishDeviceStates({state(11, {{"power", 40}})});

        site.link.publishDevices({device(11, 2)});

        QCOMPARE(column(site.zones, Role::Power), QStringList({"100", "40"}));
    }

    void listsMayArriveInAnyOrder()
    {
        std::vector<int> order(6);
        std::iota(order.begin(), order.end(), 0);
        do {
            Site site;
            site.link.logIn("anna", "user");
            const auto publish = [&](int list) {
                switch (list) {
                case 0: return site.link.publishUsers({limitedUser("anna", {uid(1), uid(2)})});
                case 1: return site.link.publishShopParts({part(3, "Floor")});
                case 2: return site.link.publishZones({zone(1, "a", 3), zone(2, "b", 3), zone(9, "c", 3)});
                case 3: return site.link.publishDevices({device(11, 1), device(12, 2)});
                case 4: return site.link.publishDeviceStates({state(11, {{"power", 40}})});
                default: return site.link.publishDeviceModes({manual(12)});
                }
            };
            for (const int list : order)
                publish(list);

            QCOMPARE(column(site.zones, Role::Uid), QStringList({text(1), text(2)}));
            QCOMPARE(column(site.zones, Role::Sort),
                     QStringList({"Floor:00000003:a:00000001", "Floor:00000003:b:00000002"}));
            QCOMPARE(column(site.zones, Role::Power), QStringList({"40", "100"}));
            QCOMPARE(column(site.zones, Role::Manual), QStringList({"false", "true"}));
        } while (std::next_permutation(order.begin(), order.end()));
    }

    void aModelMadeLateReadsWhatWasPublished()
    {
        Site site;
        site.link.publishShopParts({part(3, "Floor")});
        site.link.publishZones({zone(1, "a", 3)});
        site.link.publishDevices({device(11, 1)});
        site.link.publishDeviceStates({state(11, {{"power", 40}})});

        const ZonesListModel late(site.link, site.devices, site.faults, site.users);

        QCOMPARE(column(late, Role::PartName), QStringList({"Floor"}));
        QCOMPARE(column(late, Role::Power), QStringList({"40"}));
    }

    void rightsThatChangeChooseAnew()
    {
        Site site;
        site.link.logIn("anna", "user");
        site.link.publishZones({zone(1), zone(2), zone(3)});
        QCOMPARE(site.zones.rowCount(), 3);

        site.link.publishUsers({limitedUser("anna", {uid(2)})});
        QCOMPARE(column(site.zones, Role::Uid), QStringList({text(2)}));
        site.link.publishUsers({limitedUser("anna", {})});
        QCOMPARE(site.zones.rowCount(), 0);
        site.link.publishUsers({user("anna")});
        QCOMPARE(site.zones.rowCount(), 3);
    }

    void aClosedLinkEmptiesIt()
    {
        Site site;
        site.link.logIn("anna", "user");
        site.link.publishZones({zone(1)});
        site.link.publishShopParts({part(3, "Floor")});

        site.link.enter(FakeCommunicator::Connecting);
        QCOMPARE(site.zones.rowCount(), 1);
        site.link.enter(FakeCommunicator::Disconnected);
        QCOMPARE(site.zones.rowCount(), 0);
    }

    void tenThousandZonesWithDuplicates()
    {
        Site site;
        std::vector<Model::Zone> zones;
        for (uint i = 0; i < 10000; ++i)
            zones.push_back(zone(i % 9000, QString::number(i)));

        site.link.publishZones(zones);
        QCOMPARE(site.zones.rowCount(), 10000);
        zones.resize(9000);
        site.link.publishZones(zones);
        QCOMPARE(site.zones.rowCount(), 10000);
        QCOMPARE(value(site.zones, 9500, Role::Name).toString(), QString("500"));
        zones.resize(1);
        site.link.publishZones(zones);
        QCOMPARE(site.zones.rowCount(), 2);
    }
};

ONDIRA_TEST(ZonesListModelTest)
#include "ZonesListModelTest.moc"
