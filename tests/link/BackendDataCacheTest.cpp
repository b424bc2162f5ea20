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

// One record of each list in the order in which the cache goes through them, so that every member holds something.
void publishEverything(FakeCommunicator &link)
{
    link.publishButtonStates({Model::ButtonState{hallUid, Model::ButtonState::State::On}});
    Model::UserInfo user;
    user.login = QStringLiteral("admin");
    link.publishUsers({user});
    link.publishDeviceStates({Model::DeviceState{hallUid, {{"power", 5}}}});
    Model::DeviceTypeInfo type;
    type.name = QStringLiteral("Лампа");
    link.publishDeviceTypes({type});
    link.publishDeviceModes({Model::DeviceMode{hallUid, Model::DeviceMode::Mode::Manual}});
    link.publishActionNodes({Model::NodeDescription("Compare", "Сравнение")});
    Model::ShopPart part;
    part.uid = hallUid;
    link.publishShopParts({part});
    link.publishZones({hall()});
    Model::Button button;
    button.name = QStringLiteral("Свет");
    link.publishButtons({button});
    Model::Indicator indicator;
    indicator.label = QStringLiteral("Авария");
    link.publishIndicators({indicator});
    Model::DeviceDescriptor device;
    device.uid = hallUid;
    link.publishDevices({device});
    link.publishBlueprints({Model::ActionBlueprint("Вечер", hallUid)});
    link.publishSchedules({Model::ScheduleDay(hallUid, "Будни", {}, {0})});
    Model::Settings settings;
    settings.mrf.resize(3);
    link.publishSettings(settings);
    Model::TimeInfo info;
    info.timezone = QStringLiteral("Europe/Moscow");
    link.publishSystemTime(info);
    link.publishTime(QDateTime(QDate(2026, 1, 2), QTime(3, 4), Qt::UTC));
    Model::ImageItem picture;
    picture.name = QStringLiteral("План");
    link.publishImageItems({picture});
    Model::IndicatorState state;
    state.text = QString("Авария");
    link.publishIndicatorStates({state});
    Model::View3DItem mesh;
    mesh.name = QStringLiteral("Станок");
    link.publishView3DItems({mesh});
    link.publishPowerOnStatistics({Model::DevicePowerOnInfo{hallUid, 7, {}}});
}

// The announcements of the cache, by the name of the signal, in the order in which they come.
class Announcements : public QObject
{
public:
    explicit Announcements(BackendDataCache &cache)
    {
        using Cache = BackendDataCache;
        note(cache, &Cache::buttonStatesChanged, &Cache::getButtonStates, "button states");
        note(cache, &Cache::usersChanged, &Cache::getUsers, "users");
        note(cache, &Cache::devicesStatesChanged, &Cache::getDeviceStates, "device states");
        note(cache, &Cache::devicesTypesChanged, &Cache::getDeviceTypes, "device types");
        note(cache, &Cache::devicesModesChanged, &Cache::getDeviceModes, "device modes");
        note(cache, &Cache::actionNodesChanged, &Cache::getActionNodes, "action nodes");
        note(cache, &Cache::shopPartsChanged, &Cache::getShopParts, "shop parts");
        note(cache, &Cache::zonesChanged, &Cache::getZones, "zones");
        note(cache, &Cache::buttonsChanged, &Cache::getButtons, "buttons");
        note(cache, &Cache::indicatorsChanged, &Cache::getIndicators, "indicators");
        note(cache, &Cache::devicesChanged, &Cache::getDeviceDescriptors, "devices");
        note(cache, &Cache::blueprintsChanged, &Cache::getBlueprints, "blueprints");
        note(cache, &Cache::schedulesChanged, &Cache::getScheduleDays, "schedule days");
        note(cache, &Cache::settingsChanged, &Cache::getSettings, "settings");
        note(cache, &Cache::systemTimeChanged, &Cache::getTimeInfo, "time info");
        note(cache, &Cache::timeChanged, &Cache::getTime, "time");
        note(cache, &Cache::imageItemsChanged, &Cache::getImageItems, "image items");
        note(cache, &Cache::indicatorStatesChanged, &Cache::getIndicatorStates, "indicator states");
        note(cache, &Cache::view3DItemsChanged, &Cache::getView3DItems, "3D items");
        note(cache, &Cache::powerOnStatisticsChanged, &Cache::getPowerOnStatistics, "power-on statistics");
    }

    QStringList names;
    QStringList stale; // those announced with a value that the cache does not hold at that moment

private:
    template <typename T>
    void note(BackendDataCache &cache, void (BackendDataCache::*signal)(const T &), T (BackendDataCache::*get)() const,
              const QString &name)
    {
        connect(&cache, signal, this, [this, &cache, get, name](const T &value) {
            names << name;
            if (!((cache.*get)() == value))
                stale << name;
        });
    }
};

const QStringList allNames{
    "button states", "users",   "device states", "device types",     "device modes", "action nodes",       "shop parts",
    "zones",         "buttons", "indicators",    "devices",          "blueprints",   "schedule days",      "settings",
    "time info",     "time",    "image items",   "indicator states", "3D items",     "power-on statistics"};

// Every list is empty, and what is no list is as at the start.
bool isEmpty(const BackendDataCache &cache)
{
    return cache.getButtonStates().empty() && cache.getUsers().empty() && cache.getDeviceStates().empty()
        && cache.getDeviceTypes().empty() && cache.getDeviceModes().empty() && cache.getActionNodes().empty()
        && cache.getShopParts().empty() && cache.getZones().empty() && cache.getButtons().empty()
        && cache.getIndicators().empty() && cache.getDeviceDescriptors().empty() && cache.getBlueprints().empty()
        && cache.getScheduleDays().empty() && cache.getSettings() == Model::Settings() && cache.getTime().isNull()
        && cache.getTimeInfo().timezone == "UTC" && cache.getImageItems().empty() && cache.getIndicatorStates().empty()
        && cache.getView3DItems().empty() && cache.getPowerOnStatistics().empty();
}

} // namespace

class BackendDataCacheTest : public TestBase
{
    Q_OBJECT

private slots:
    void startsEmptyWithACurrentTimeInfo();
    void eachPublicationReplacesItsListAndAnnouncesIt();
    void emptyPublicationEmptiesItsListAndAnnouncesIt();
    void equalPublicationIsAnnouncedAgain();
    void everyEqualPublicationIsAnnouncedAgain();
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

    QVERIFY(isEmpty(cache));
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
    QCOMPARE(announcements.stale, QStringList()); // stored before it is announced
    QVERIFY(cache.getButtonStates().at(0).state == Model::ButtonState::State::On);
    QCOMPARE(cache.getActionNodes().at(0).type, QString("Compare"));
    QCOMPARE(cache.getButtons().at(0).name, QString("Свет"));
    QCOMPARE(cache.getIndicators().at(0).label, QString("Авария"));
    QCOMPARE(cache.getBlueprints().at(0).name, QString("Вечер"));
    QCOMPARE(cache.getScheduleDays().at(0).name, QString("Будни"));
    QCOMPARE(cache.getSettings().mrf.size(), size_t(3));
    QCOMPARE(cache.getImageItems().at(0).name, QString("План"));
    QCOMPARE(*cache.getIndicatorStates().at(0).text, QString("Авария"));
    QCOMPARE(cache.getView3DItems().at(0).name, QString("Станок"));
    QCOMPARE(cache.getPowerOnStatistics().at(0).powerOnHours, 7.0);
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

void BackendDataCacheTest::everyEqualPublicationIsAnnouncedAgain()
{
    FakeCommunicator link;
    publishEverything(link);
    Announcements announcements(link.getDataCache());

    publishEverything(link);
    publishEverything(link);

    QCOMPARE(announcements.names, allNames + allNames);
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
    QCOMPARE(announcements.stale, QStringList());
    QVERIFY(isEmpty(cache));
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
