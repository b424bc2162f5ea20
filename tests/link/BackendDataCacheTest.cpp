// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/BackendDataCache.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

namespace {

const QUuid hallUid("{11111111-1111-1111-1111-111111111111}");

Model::Zone hall()
{
    Model::Zone zone;
    zone.uid = hallUid;
    zone.name = QStringLiteral("Холл");
    return zone;
}

// One record of each list, so that every member of the cache holds something.
void publishEverything(FakeCommunicator &link)
{
    Model::UserInfo user;
    user.login = QStringLiteral("admin");
    Model::DeviceTypeInfo type;
    type.name = QStringLiteral("Лампа");
    Model::ShopPart part;
    part.uid = hallUid;
    Model::DeviceDescriptor device;
    device.uid = hallUid;
    Model::TimeInfo info;
    info.timezone = QStringLiteral("Europe/Moscow");
    link.publishUsers({user});
    link.publishDeviceStates({Model::DeviceState{hallUid, {{"power", 5}}}});
    link.publishDeviceTypes({type});
    link.publishDeviceModes({Model::DeviceMode{hallUid, Model::DeviceMode::Mode::Manual}});
    link.publishShopParts({part});
    link.publishZones({hall()});
    link.publishDevices({device});
    link.publishSystemTime(info);
    link.publishTime(QDateTime(QDate(2026, 1, 2), QTime(3, 4), Qt::UTC));
}

// The announcements of the cache, by the name of the signal, in the order in which they come.
class Announcements : public QObject
{
public:
    explicit Announcements(BackendDataCache &cache)
    {
        note(cache, &BackendDataCache::usersChanged, "users");
        note(cache, &BackendDataCache::devicesStatesChanged, "device states");
        note(cache, &BackendDataCache::devicesTypesChanged, "device types");
        note(cache, &BackendDataCache::devicesModesChanged, "device modes");
        note(cache, &BackendDataCache::shopPartsChanged, "shop parts");
        note(cache, &BackendDataCache::zonesChanged, "zones");
        note(cache, &BackendDataCache::devicesChanged, "devices");
        note(cache, &BackendDataCache::systemTimeChanged, "time info");
        note(cache, &BackendDataCache::timeChanged, "time");
    }

    QStringList names;

private:
    template <typename Signal>
    void note(BackendDataCache &cache, Signal signal, const QString &name)
    {
        connect(&cache, signal, this, [this, name] { names << name; });
    }
};

const QStringList allNames{"users", "device states", "device types", "device modes", "shop parts",
                           "zones", "devices",       "time info",    "time"};

} // namespace

class BackendDataCacheTest : public TestBase
{
    Q_OBJECT

private slots:
    void startsEmptyWithACurrentTimeInfo();
    void eachPublicationReplacesItsListAndAnnouncesIt();
    void emptyPublicationEmptiesItsListAndAnnouncesIt();
    void equalPublicationIsAnnouncedAgain();
    void listIsStoredBeforeItIsAnnounced();
    void getterGivesACopy();
    void connectingKeepsEveryList();
    void disconnectingEmptiesEverythingInOrder();
    void disconnectedTwiceAnnouncesOnce();
    void lostAndRegainedLinkKeepsTheLists();
    void timeBeforeLoginIsKept();
    void timeInfoAtDisconnectIsFresh();
};

void BackendDataCacheTest::startsEmptyWithACurrentTimeInfo()
{
    const auto before = QDateTime::currentDateTimeUtc();
    FakeCommunicator link;
    const auto &cache = link.getDataCache();

    QVERIFY(cache.getUsers().empty());
    QVERIFY(cache.getDeviceStates().empty());
    QVERIFY(cache.getDeviceTypes().empty());
    QVERIFY(cache.getDeviceModes().empty());
    QVERIFY(cache.getShopParts().empty());
    QVERIFY(cache.getZones().empty());
    QVERIFY(cache.getDeviceDescriptors().empty());
    QVERIFY(cache.getTime().isNull());
    const auto info = cache.getTimeInfo();
    QVERIFY(info.time >= before && info.time <= QDateTime::currentDateTimeUtc());
    QCOMPARE(info.time.timeSpec(), Qt::UTC);
    QCOMPARE(info.timezone, QString("UTC"));
    QCOMPARE(info.ntp, false);
    QVERIFY(info.timezones.isEmpty());
}

void BackendDataCacheTest::eachPublicationReplacesItsListAndAnnouncesIt()
{
    FakeCommunicator link;
    auto &cache = link.getDataCache();
    Announcements announcements(cache);

    publishEverything(link);

    QCOMPARE(announcements.names, allNames);
    QCOMPARE(cache.getUsers().at(0).login, QString("admin"));
    QCOMPARE(cache.getDeviceStates().at(0).state.value("power").toInt(), 5);
    QCOMPARE(cache.getDeviceTypes().at(0).name, QString("Лампа"));
    QVERIFY(cache.getDeviceModes().at(0).mode == Model::DeviceMode::Mode::Manual);
    QCOMPARE(cache.getShopParts().at(0).uid, hallUid);
    QCOMPARE(cache.getZones().at(0).name, QString("Холл"));
    QCOMPARE(cache.getDeviceDescriptors().at(0).uid, hallUid);
    QCOMPARE(cache.getTimeInfo().timezone, QString("Europe/Moscow"));
    QCOMPARE(cache.getTime(), QDateTime(QDate(2026, 1, 2), QTime(3, 4), Qt::UTC));

    link.publishZones({hall(), hall()});
    QCOMPARE(cache.getZones().size(), size_t(2)); // replaced, not merged
}

void BackendDataCacheTest::emptyPublicationEmptiesItsListAndAnnouncesIt()
{
    FakeCommunicator link;
    publishEverything(link);
    Announcements announcements(link.getDataCache());

    link.publishZones({});

    QVERIFY(link.getDataCache().getZones().empty());
    QCOMPARE(announcements.names, QStringList{"zones"});
    QCOMPARE(link.getDataCache().getUsers().size(), size_t(1));
}

void BackendDataCacheTest::equalPublicationIsAnnouncedAgain()
{
    FakeCommunicator link;
    QSignalSpy zones(&link.getDataCache(), &BackendDataCache::zonesChanged);

    link.publishZones({hall()});
    link.publishZones({hall()});

    QCOMPARE(zones.size(), 2);
    QCOMPARE(zones.at(1).at(0).value<std::vector<Model::Zone>>(), std::vector<Model::Zone>{hall()});
}

void BackendDataCacheTest::listIsStoredBeforeItIsAnnounced()
{
    FakeCommunicator link;
    auto &cache = link.getDataCache();
    size_t stored = 0;
    connect(&cache, &BackendDataCache::zonesChanged, &cache, [&] { stored = cache.getZones().size(); });

    link.publishZones({hall()});

    QCOMPARE(stored, size_t(1));
}

void BackendDataCacheTest::getterGivesACopy()
{
    FakeCommunicator link;
    link.publishZones({hall()});

    auto zones = link.getDataCache().getZones();
    zones.clear();

    QCOMPARE(link.getDataCache().getZones().size(), size_t(1));
}

void BackendDataCacheTest::connectingKeepsEveryList()
{
    FakeCommunicator link;
    link.enter(AbstractBackendCommunicator::Connected);
    publishEverything(link);
    Announcements announcements(link.getDataCache());

    link.enter(AbstractBackendCommunicator::Connecting);

    QCOMPARE(announcements.names, QStringList());
    QCOMPARE(link.getDataCache().getZones().size(), size_t(1));
    QCOMPARE(link.getDataCache().getUsers().size(), size_t(1));
    QVERIFY(link.getDataCache().getTime().isValid());
}

void BackendDataCacheTest::disconnectingEmptiesEverythingInOrder()
{
    FakeCommunicator link;
    link.enter(AbstractBackendCommunicator::Connected);
    publishEverything(link);
    auto &cache = link.getDataCache();
    Announcements announcements(cache);

    link.disconnectFromServer();

    QCOMPARE(announcements.names, allNames);
    QVERIFY(cache.getUsers().empty());
    QVERIFY(cache.getDeviceStates().empty());
    QVERIFY(cache.getDeviceTypes().empty());
    QVERIFY(cache.getDeviceModes().empty());
    QVERIFY(cache.getShopParts().empty());
    QVERIFY(cache.getZones().empty());
    QVERIFY(cache.getDeviceDescriptors().empty());
    QVERIFY(cache.getTime().isNull());
    QCOMPARE(cache.getTimeInfo().timezone, QString("UTC"));
}

void BackendDataCacheTest::disconnectedTwiceAnnouncesOnce()
{
    FakeCommunicator link;
    link.enter(AbstractBackendCommunicator::Connected);
    publishEverything(link);
    Announcements announcements(link.getDataCache());

    link.disconnectFromServer();
    link.disconnectFromServer();

    QCOMPARE(announcements.names, allNames);
}

void BackendDataCacheTest::lostAndRegainedLinkKeepsTheLists()
{
    FakeCommunicator link;
    link.enter(AbstractBackendCommunicator::Connected);
    publishEverything(link);

    for (int i = 0; i < 3; ++i) {
        link.enter(AbstractBackendCommunicator::Connecting);
        link.enter(AbstractBackendCommunicator::Connected);
    }

    QCOMPARE(link.getDataCache().getZones().size(), size_t(1));
}

void BackendDataCacheTest::timeBeforeLoginIsKept()
{
    FakeCommunicator link;
    const QDateTime time(QDate(2026, 5, 6), QTime(7, 8), Qt::UTC);

    link.getDataCache().setTime(time);

    QCOMPARE(link.getDataCache().getTime(), time);
    QVERIFY(link.getDataCache().getZones().empty());
}

void BackendDataCacheTest::timeInfoAtDisconnectIsFresh()
{
    FakeCommunicator link;
    link.enter(AbstractBackendCommunicator::Connected);
    Model::TimeInfo old;
    old.time = QDateTime(QDate(2000, 1, 1), QTime(0, 0), Qt::UTC);
    link.publishSystemTime(old);
    const auto before = QDateTime::currentDateTimeUtc();

    link.disconnectFromServer();

    QVERIFY(link.getDataCache().getTimeInfo().time >= before);
}

ONDIRA_TEST(BackendDataCacheTest)
#include "BackendDataCacheTest.moc"
