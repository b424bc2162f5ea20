// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/DevicesListModel.h"
#include "DevicesSite.h"
#include "MirrorList.h"
#include "Records.h"
#include "SignalLog.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <algorithm>
#include <limits>

using namespace Records;
using Role = DevicesListModel::Role;
using Site = DevicesSite;

namespace {

// The roles that a fresh list announces; states, modes and type maps have announcements of their own.
const QString listRoles = QStringLiteral("257 258 259 260 261 266 265 267 268 269 270 271 272 273");

using RadioType = Model::RadioStatus::DeviceType;

Model::DeviceDescriptor onRadio(uint n, RadioType type, int index)
{
    auto record = device(n);
    record.radioType = type;
    record.radioIndex = index;
    return record;
}

Model::Settings radios(std::size_t mrf, std::size_t lora, std::size_t rs485)
{
    Model::Settings settings;
    settings.mrf.resize(mrf);
    settings.lora.resize(lora);
    settings.rs485.resize(rs485);
    return settings;
}

Model::DevicePowerOnInfo runHours(uint n, double hours)
{
    return {uid(n), hours, QDateTime(QDate(2024, 5, 1), QTime(12, 0), Qt::UTC)};
}

} // namespace

class DevicesListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void namesItsRoles()
    {
        Site site;
        const QHash<int, QByteArray> expected{{257, "uid"},         {258, "address"},     {259, "url"},
                                              {260, "version"},     {261, "data"},        {262, "state"},
                                              {263, "typeInfo"},    {264, "mode"},        {265, "prettyString"},
                                              {266, "sort"},        {267, "zoneUid"},     {268, "commonType"},
                                              {269, "radioType"},   {270, "radioIndex"},  {271, "isRadioValid"},
                                              {272, "radioString"}, {273, "powerOnHours"}};

        QCOMPARE(site.devices.roleNames(), expected);
    }

    void presentsADevice()
    {
        Site site;
        const Model::DeviceDescriptor lamp(QUrl("lamp.qml"), uid(7), uid(3), 2, 42, {{"name", "Hall"}},
                                           Model::RadioStatus::DeviceType::LoRa, 1);
        const auto info = type("lamp.qml", "Lamp", 5);
        site.link.publishDeviceTypes({info});
        site.link.publishDeviceStates({state(7, power(30))});
        site.link.publishDeviceModes({manual(7)});

        site.link.publishDevices({lamp});

        QCOMPARE(site.devices.getByUid(text(7)),
                 (QVariantMap{{"uid", text(7)},
                              {"address", 42},
                              {"url", QUrl("lamp.qml")},
                              {"version", 2},
                              {"data", QVariantMap{{"name", "Hall"}}},
                              {"state", power(30)},
                              {"typeInfo", info.toVariant()},
                              {"mode", "manual"},
                              {"prettyString", "Lamp: 42 (Hall)"},
                              {"sort", "05:00042:00000007"},
                              {"zoneUid", uid(3)},
                              {"commonType", "lamp"},
                              {"radioType", 3},
                              {"radioIndex", 1},
                              {"isRadioValid", false},
                              {"radioString", "LoRa"},
                              {"powerOnHours", 0}}));
        QCOMPARE(value(site.devices, 0, Role::ZoneUid).userType(), int(QMetaType::QUuid));
        QCOMPARE(value(site.devices, 0, Role::Url).userType(), int(QMetaType::QUrl));
    }

    void invalidPlacesReadAsFalse()
    {
        Site site;
        site.link.publishDevices({device(1)});

        QCOMPARE(site.devices.data(QModelIndex(), Role::Uid), QVariant(false));
        QCOMPARE(site.devices.data(QModelIndex(), 9999), QVariant(false));
        QVERIFY(!value(site.devices, 0, 9999).isValid());
        QVERIFY(!value(site.devices, 0, Qt::DisplayRole).isValid());
    }

    void aFreshListAnnouncesItsOwnRoles()
    {
        Site site;
        site.link.publishDevices({device(1), device(2), device(3)});
        QAbstractItemModelTester tester(&site.devices, QAbstractItemModelTester::FailureReportingMode::Warning);
        QSignalSpy updated(&site.devices, &DevicesListModel::devicesUpdated);
        SignalLog log(site.devices);

        site.link.publishDevices({device(4), device(3), device(1)});

        QCOMPARE(
            log.take(),
            QStringList({"removing 1-1", "removed 1-1", "changed 0-1: " + listRoles, "inserting 2-2", "inserted 2-2"}));
        QCOMPARE(updated.count(), 1);
        QCOMPARE(updated[0][0].value<std::vector<Model::DeviceDescriptor>>().size(), std::size_t(3));
    }

    void theFirstListAnnouncesTheEmptyRange()
    {
        Site site;
        SignalLog log(site.devices);

        site.link.publishDevices({device(1)});

        QCOMPARE(log.take(), QStringList({"changed nothing: " + listRoles, "inserting 0-0", "inserted 0-0"}));
    }

    void aStateAnnouncesItsRowAlone()
    {
        Site site;
        site.link.publishDevices({device(1), device(2), device(3)});
        QAbstractItemModelTester tester(&site.devices, QAbstractItemModelTester::FailureReportingMode::Warning);
        QSignalSpy updated(&site.devices, &DevicesListModel::deviceStatesUpdated);
        SignalLog log(site.devices);

        site.link.publishDeviceStates({state(3, power(3)), state(9, power(9)), state(1, power(1))});

        QCOMPARE(log.take(), QStringList({"changed 0-0: 262", "changed 2-2: 262"}));
        QCOMPARE(value(site.devices, 0, Role::State).toMap(), power(1));
        QCOMPARE(value(site.devices, 1, Role::State).toMap(), QVariantMap());
        QCOMPARE(value(site.devices, 2, Role::State).toMap(), power(3));
        QCOMPARE(updated.count(), 1);
        QCOMPARE(updated[0][0].value<std::vector<Model::DeviceState>>().size(), std::size_t(3));
    }

    void anEqualStateIsAnnouncedAsWell()
    {
        Site site;
        site.link.publishDevices({device(1)});
        site.link.publishDeviceStates({state(1, power(1))});
        SignalLog log(site.devices);

        site.link.publishDeviceStates({state(1, power(1))});

        QCOMPARE(log.take(), QStringList({"changed 0-0: 262"}));
    }

    void aMessageWithoutStatesIsPassedOn()
    {
        Site site;
        site.link.publishDevices({device(1)});
        QSignalSpy updated(&site.devices, &DevicesListModel::deviceStatesUpdated);
        SignalLog log(site.devices);

        site.link.publishDeviceStates({});

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(updated.count(), 1);
    }

    void theLastStateOfADeviceCounts()
    {
        Site site;
        site.link.publishDevices({device(1)});

        site.link.publishDeviceStates({state(1, power(1)), state(1, power(2)), state(2, power(3)), state(2, power(4))});
        QCOMPARE(value(site.devices, 0, Role::State).toMap(), power(2));
        site.link.publishDevices({device(1), device(2)});
        QCOMPARE(value(site.devices, 0, Role::State).toMap(), power(2));
        QCOMPARE(value(site.devices, 1, Role::State).toMap(), power(4));
    }

    void aModeAnnouncesItsRowAlone()
    {
        Site site;
        site.link.publishDevices({device(1), device(2)});
        QSignalSpy updated(&site.devices, &DevicesListModel::deviceModesUpdated);
        SignalLog log(site.devices);

        site.link.publishDeviceModes({manual(2), manual(9)});

        QCOMPARE(log.take(), QStringList({"changed 1-1: 264"}));
        QCOMPARE(column(site.devices, Role::Mode), QStringList({"auto", "manual"}));
        QCOMPARE(updated.count(), 1);
    }

    void whatCameBeforeItsDeviceIsKept()
    {
        Site site;
        site.link.publishDeviceStates({state(1, power(1))});
        site.link.publishDeviceModes({manual(1)});
        site.link.publishDeviceStates({state(2, power(2))});

        site.link.publishDevices({device(1), device(2)});

        QCOMPARE(value(site.devices, 0, Role::State).toMap(), power(1));
        QCOMPARE(value(site.devices, 1, Role::State).toMap(), power(2));
        QCOMPARE(column(site.devices, Role::Mode), QStringList({"manual", "auto"}));
    }

    void aTypeThatArrivesLateNamesTheRowInPlace()
    {
        Site site;
        site.link.publishDevices({device(1, 0, "lamp.qml", 5)});
        QCOMPARE(value(site.devices, 0, Role::PrettyString).toString(), QString("No name: 5"));
        QCOMPARE(value(site.devices, 0, Role::Sort).toString(), QString("00:00005:00000001"));
        QCOMPARE(value(site.devices, 0, Role::CommonType).toString(), QString("unknown"));
        QCOMPARE(value(site.devices, 0, Role::TypeInfo).toMap(), Model::DeviceTypeInfo::fallback().toVariant());
        QAbstractItemModelTester tester(&site.devices, QAbstractItemModelTester::FailureReportingMode::Warning);
        QSignalSpy updated(&site.devices, &DevicesListModel::deviceTypesUpdated);
        SignalLog log(site.devices);

        site.link.publishDeviceTypes({type("lamp.qml", "Lamp", 7)});

        QCOMPARE(log.take(), QStringList({"changed 0-0: 263 265 266 268"}));
        QCOMPARE(updated.count(), 1);
        QCOMPARE(value(site.devices, 0, Role::PrettyString).toString(), QString("Lamp: 5"));
        QCOMPARE(value(site.devices, 0, Role::Sort).toString(), QString("07:00005:00000001"));
        QCOMPARE(value(site.devices, 0, Role::CommonType).toString(), QString("lamp"));
    }

    void aTypeIsReplacedAndNeverForgotten()
    {
        Site site;
        site.link.publishDevices({device(1, 0, "lamp.qml", 5)});
        site.link.publishDeviceTypes({type("lamp.qml", "Lamp")});

        site.link.publishDeviceTypes({type("other.qml", "Other")});
        QCOMPARE(value(site.devices, 0, Role::PrettyString).toString(), QString("Lamp: 5"));
        site.link.publishDeviceTypes({type("lamp.qml", "Bulb")});
        QCOMPARE(value(site.devices, 0, Role::PrettyString).toString(), QString("Bulb: 5"));
        QCOMPARE(site.devices.getDeviceTypes().size(), 2);
    }

    void streamsMayArriveInAnyOrder()
    {
        std::vector<int> order{0, 1, 2, 3, 4, 5};
        auto lamp = onRadio(1, RadioType::LoRa, 1);
        lamp.url = QUrl("lamp.qml");
        lamp.address = 5;
        do {
            Site site;
            for (const int list : order) {
                switch (list) {
                case 0: site.link.publishDevices({lamp, device(2)}); break;
                case 1: site.link.publishDeviceTypes({type("lamp.qml", "Lamp", 7)}); break;
                case 2: site.link.publishDeviceStates({state(1, power(1))}); break;
                case 3: site.link.publishDeviceModes({manual(1)}); break;
                case 4: site.link.publishSettings(radios(0, 2, 0)); break;
                default: site.link.publishPowerOnStatistics({runHours(1, 12.9), runHours(9, 5)});
                }
            }

            QCOMPARE(column(site.devices, Role::PrettyString), QStringList({"Lamp: 5", "No name: 0"}));
            QCOMPARE(column(site.devices, Role::Sort), QStringList({"07:00005:00000001", "00:00000:00000002"}));
            QCOMPARE(value(site.devices, 0, Role::State).toMap(), power(1));
            QCOMPARE(column(site.devices, Role::Mode), QStringList({"manual", "auto"}));
            QCOMPARE(column(site.devices, Role::IsRadioValid), QStringList({"true", "false"}));
            QCOMPARE(column(site.devices, Role::RadioString), QStringList({"LoRa-1", "Ошибка"}));
            QCOMPARE(column(site.devices, Role::PowerOnHours), QStringList({"12", "0"}));
        } while (std::next_permutation(order.begin(), order.end()));
    }

    void aFreshConnectionForgetsStatesModesAndRunHours()
    {
        Site site;
        site.link.publishPowerOnStatistics({runHours(1, 7)});
        site.link.publishDeviceStates({state(1, power(1))});
        site.link.publishDeviceModes({manual(1)});
        site.link.publishDevices({device(1)});
        site.link.enter(FakeCommunicator::Connected);

        site.link.enter(FakeCommunicator::Connecting);
        QCOMPARE(value(site.devices, 0, Role::State).toMap(), power(1)); // the rows stay
        QCOMPARE(value(site.devices, 0, Role::PowerOnHours).toInt(), 7);
        site.link.publishDevices({device(1)});
        QCOMPARE(value(site.devices, 0, Role::PowerOnHours).toInt(), 0);
        QCOMPARE(value(site.devices, 0, Role::State).toMap(), QVariantMap());
        QCOMPARE(value(site.devices, 0, Role::Mode).toString(), QString("auto"));
    }

    void otherChangesOfTheStatusForgetNothing()
    {
        Site site;
        site.link.enter(FakeCommunicator::Connecting);
        site.link.publishDeviceStates({state(1, power(1))});

        site.link.enter(FakeCommunicator::Connected);
        site.link.publishDevices({device(1)});

        QCOMPARE(value(site.devices, 0, Role::State).toMap(), power(1));
    }

    void aClosedLinkEmptiesIt()
    {
        Site site;
        site.link.enter(FakeCommunicator::Connected);
        site.link.publishDevices({device(1)});

        site.link.enter(FakeCommunicator::Disconnected);

        QCOMPARE(site.devices.rowCount(), 0);
    }

    void aModelMadeLateReadsWhatWasPublished()
    {
        Site site;
        site.link.publishDevices({device(1, 0, "lamp.qml", 5)});
        site.link.publishDeviceTypes({type("lamp.qml", "Lamp")});
        site.link.publishDeviceStates({state(1, power(1))});
        site.link.publishDeviceModes({manual(1)});
        site.link.publishSettings(radios(2, 0, 0));
        site.link.publishPowerOnStatistics({runHours(1, 7)});
        site.link.publishDevices({onRadio(1, RadioType::Mrf, 1)});

        const DevicesListModel late(site.link);

        QCOMPARE(column(late, Role::RadioString), QStringList({"MRF-1"}));
        QCOMPARE(column(late, Role::IsRadioValid), QStringList({"true"}));
        QCOMPARE(column(late, Role::PowerOnHours), QStringList({"7"}));
        QCOMPARE(value(late, 0, Role::State).toMap(), power(1));
        QCOMPARE(column(late, Role::Mode), QStringList({"manual"}));
    }

    void aRadioIsValidWhenTheSettingsHaveIt_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("index");
        QTest::addColumn<bool>("expected"); // with two MRF, three LoRa and one RS485

        QTest::newRow("none") << 0 << 0 << false;
        QTest::newRow("first mrf") << 1 << 0 << true;
        QTest::newRow("last mrf") << 1 << 1 << true;
        QTest::newRow("mrf beyond") << 1 << 2 << false;
        QTest::newRow("mrf unset") << 1 << -1 << false;
        QTest::newRow("network") << 2 << 0 << false;
        QTest::newRow("last lora") << 3 << 2 << true;
        QTest::newRow("lora beyond") << 3 << 3 << false;
        QTest::newRow("rs485") << 4 << 0 << true;
        QTest::newRow("rs485 beyond") << 4 << 1 << false;
        QTest::newRow("unknown type") << 9 << 0 << false;
        QTest::newRow("huge index") << 3 << std::numeric_limits<int>::max() << false;
    }

    void aRadioIsValidWhenTheSettingsHaveIt()
    {
        QFETCH(int, type);
        QFETCH(int, index);
        Site site;
        site.link.publishSettings(radios(2, 3, 1));

        site.link.publishDevices({onRadio(1, static_cast<RadioType>(type), index)});

        QTEST(value(site.devices, 0, Role::IsRadioValid).toBool(), "expected");
    }

    void aRadioThatIsRemovedLeavesItsPlaceInTheDevices()
    {
        Site site;
        site.link.publishSettings(radios(2, 0, 0));
        site.link.publishDevices({onRadio(1, RadioType::Mrf, 0), onRadio(2, RadioType::Mrf, 1)});
        QCOMPARE(column(site.devices, Role::IsRadioValid), QStringList({"true", "true"}));

        site.link.publishSettings(radios(1, 0, 0));

        QCOMPARE(column(site.devices, Role::IsRadioValid), QStringList({"true", "false"}));
        QCOMPARE(column(site.devices, Role::RadioIndex), QStringList({"0", "1"}));
    }

    void settingsAnnounceRadiosThatBecomeValidAndAllTexts()
    {
        Site site;
        site.link.publishDevices({onRadio(1, RadioType::Mrf, 0), device(2), onRadio(3, RadioType::Mrf, 1)});
        QAbstractItemModelTester tester(&site.devices, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(site.devices);

        site.link.publishSettings(radios(1, 0, 0));
        QCOMPARE(log.take(), QStringList({"changed 0-0: 271", "changed 0-2: 272"}));
        QCOMPARE(column(site.devices, Role::RadioString), QStringList({"MRF", "Ошибка", "MRF"}));
        site.link.publishSettings(radios(2, 0, 0));
        QCOMPARE(log.take(), QStringList({"changed 2-2: 271", "changed 0-2: 272"}));
        QCOMPARE(column(site.devices, Role::RadioString), QStringList({"MRF-0", "Ошибка", "MRF-1"}));
        site.link.publishSettings(radios(0, 0, 0));
        QCOMPARE(log.take(), QStringList({"changed 0-0: 271", "changed 2-2: 271", "changed 0-2: 272"}));
        site.link.publishSettings(radios(0, 0, 0));
        QCOMPARE(log.take(), QStringList({"changed 0-2: 272"}));
    }

    void settingsAndRunHoursAnnounceNothingWithoutDevices()
    {
        Site site;
        SignalLog log(site.devices);

        site.link.publishSettings(radios(1, 1, 1));
        site.link.publishPowerOnStatistics({runHours(1, 2)});

        QCOMPARE(log.take(), QStringList());
    }

    void runHoursAnnounceAllRowsAtOnce()
    {
        Site site;
        site.link.publishDevices({device(1), device(2), device(3)});
        SignalLog log(site.devices);

        site.link.publishPowerOnStatistics({runHours(3, 7.99), runHours(9, 1)});
        QCOMPARE(log.take(), QStringList({"changed 0-2: 273"}));
        QCOMPARE(column(site.devices, Role::PowerOnHours), QStringList({"0", "0", "7"}));
        site.link.publishPowerOnStatistics({runHours(1, 2)});
        QCOMPARE(column(site.devices, Role::PowerOnHours), QStringList({"2", "0", "7"}));
        site.link.publishDevices({device(9), device(3)});
        QCOMPARE(column(site.devices, Role::PowerOnHours), QStringList({"7", "1"}));
    }

    void runHoursAreTruncated_data()
    {
        QTest::addColumn<double>("hours");
        QTest::addColumn<int>("expected");

        QTest::newRow("just below") << 0.999 << 0;
        QTest::newRow("negative") << -1.9 << -1;
        QTest::newRow("huge") << 1e300 << std::numeric_limits<int>::max();
        QTest::newRow("huge negative") << -1e300 << std::numeric_limits<int>::min();
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << std::numeric_limits<int>::max();
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 0;
    }

    void runHoursAreTruncated()
    {
        QFETCH(double, hours);
        Site site;
        site.link.publishDevices({device(1)});

        site.link.publishPowerOnStatistics({runHours(1, hours)});

        QTEST(value(site.devices, 0, Role::PowerOnHours).toInt(), "expected");
    }

    void everyChangeIsAnnounced()
    {
        Site site;
        QRandomGenerator random(20240501);
        const auto below = [&](int end) { return random.bounded(end); };
        const auto some = [&](const auto &record) {
            std::vector<decltype(record(1U))> records;
            for (uint n = 1; n <= 30; ++n) {
                if (n == 1 || below(2) == 0)
                    records.push_back(record(n));
            }
            std::shuffle(records.begin() + 1, records.end(), random);
            return records;
        };
        site.link.publishDevices({device(1, 0, "lamp1.qml")});
        QAbstractItemModelTester tester(&site.devices, QAbstractItemModelTester::FailureReportingMode::Warning);
        const MirrorList mirror(site.devices);

        for (int turn = 0; turn < 400; ++turn) {
            auto expected = column(site.devices, Role::Uid);
            switch (below(6)) {
            case 0: {
                // The type of a device never changes, nor does what is not announced with a list.
                const auto devices = some([&](uint n) {
                    auto record = onRadio(n, static_cast<RadioType>(below(5)), below(3));
                    record.url = QUrl(QString("lamp%1.qml").arg(n % 3));
                    record.address = below(100);
                    record.zoneUid = uid(uint(100 + below(5)));
                    record.data = {{"name", QString::number(below(9))}};
                    return record;
                });
                QStringList fresh;
                for (const auto &record : devices)
                    fresh << record.uid.toString();
                expected = MirrorList::merged(expected, fresh);
                site.link.publishDevices(devices);
                break;
            }
            case 1:
                site.link.publishDeviceTypes({type(QString("lamp%1.qml").arg(below(3)), QString::number(below(9)))});
                break;
            case 2: site.link.publishDeviceStates(some([&](uint n) { return state(n, power(below(9))); })); break;
            case 3:
                site.link.publishDeviceModes(some([&](uint n) { return below(2) ? manual(n) : automatic(n); }));
                break;
            case 4:
                site.link.publishSettings(radios(std::size_t(below(3)), std::size_t(below(3)), std::size_t(below(3))));
                break;
            default: site.link.publishPowerOnStatistics(some([&](uint n) { return runHours(n, below(9)); }));
            }

            QCOMPARE(column(site.devices, Role::Uid), expected);
            QCOMPARE(mirror.difference(), QString());
        }
    }

    void tenThousandDevicesTakeTenThousandStates()
    {
        Site site;
        std::vector<Model::DeviceDescriptor> devices;
        std::vector<Model::DeviceState> states;
        for (uint i = 0; i < 10000; ++i) {
            devices.push_back(device(i, 20000 + i % 400));
            states.push_back(state(9999 - i, power(int(i % 101))));
        }
        site.link.publishDevices(devices);
        QSignalSpy changed(&site.devices, &QAbstractItemModel::dataChanged);

        site.link.publishDeviceStates(states);

        QCOMPARE(changed.count(), 10000);
        QCOMPARE(value(site.devices, 9999, Role::State).toMap(), power(0));
        QCOMPARE(value(site.devices, 0, Role::State).toMap(), power(9999 % 101));
    }

    void duplicatesOfOneListAreRowsOfTheirOwn()
    {
        Site site;

        site.link.publishDevices({device(1, 0, {}, 1), device(1, 0, {}, 2), device(0, 0, {}, 3)});
        site.link.publishDeviceStates({state(1, power(1)), state(0, power(7))});

        QCOMPARE(column(site.devices, Role::Address), QStringList({"1", "2", "3"}));
        QCOMPARE(value(site.devices, 1, Role::State).toMap(), power(1));
        QCOMPARE(value(site.devices, 2, Role::State).toMap(), power(7));
    }
};

ONDIRA_TEST(DevicesListModelTest)
#include "DevicesListModelTest.moc"
