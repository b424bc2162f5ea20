// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/SiteProcess.h"
#include "link/JsonBackendCommunicator.h"
#include "model/StandardBlueprints.h"
#include "support/TestBase.h"

#include <QImage>
#include <QSet>
#include <algorithm>
#include <memory>

// Every operation of the link against the demo site: each shows its effect by a reply or by the next publication.
class OperationsTest : public TestBase
{
    Q_OBJECT

private:
    using Link = AbstractBackendCommunicator;
    using Cache = BackendDataCache;
    static constexpr int patienceMs = 20000;

    const Cache &cache() const { return m_link->getDataCache(); }
    QUuid part() const { return cache().getShopParts().front().uid; }
    QUuid zone() const { return cache().getZones().front().uid; }

    template <typename Record>
    static const Record *find(const std::vector<Record> &records, const QUuid &uid)
    {
        const auto found =
            std::find_if(records.begin(), records.end(), [&](const auto &record) { return record.uid == uid; });
        return found == records.end() ? nullptr : &*found;
    }

    // Whether the published list holds a record of that uid for which the condition is true.
    template <typename Record, typename Condition>
    bool holds(std::vector<Record> (Cache::*list)() const, const QUuid &uid, Condition condition) const
    {
        const auto records = (cache().*list)();
        const auto *record = find(records, uid);
        return record && condition(*record);
    }

    // Adds a record, changes it and removes it again. The name is the field that is changed.
    template <typename Record>
    void addChangeRemove(Record record, QString Record::*name,
                         void (Link::*add)(const std::vector<Record> &, const Link::UidsCallback &),
                         void (Link::*change)(const std::vector<Record> &),
                         void (Link::*remove)(const std::vector<Record> &), std::vector<Record> (Cache::*list)() const)
    {
        const auto before = (cache().*list)().size();
        record.*name = QStringLiteral("Первое имя");
        std::vector<QUuid> uids;
        ((*m_link).*add)({record}, [&](const std::vector<QUuid> &added) { uids = added; });
        QTRY_COMPARE_WITH_TIMEOUT(uids.size(), std::size_t(1), patienceMs);
        const auto uid = uids.front();
        QVERIFY(!uid.isNull());
        QTRY_VERIFY_WITH_TIMEOUT(
            holds(list, uid, [&](const auto &found) { return found.*name == QStringLiteral("Первое имя"); }),
            patienceMs);
        QCOMPARE((cache().*list)().size(), before + 1);

        record.uid = uid;
        record.*name = QStringLiteral("Второе имя");
        ((*m_link).*change)({record});
        QTRY_VERIFY_WITH_TIMEOUT(
            holds(list, uid, [&](const auto &found) { return found.*name == QStringLiteral("Второе имя"); }),
            patienceMs);
        QCOMPARE((cache().*list)().size(), before + 1);

        ((*m_link).*remove)({record});
        QTRY_COMPARE_WITH_TIMEOUT((cache().*list)().size(), before, patienceMs);
        QVERIFY(!holds(list, uid, [](const auto &) { return true; }));
    }

private slots:
    void initTestCase();
    void init() { m_errors->clear(); }
    void cleanup();
    void cleanupTestCase() { m_link.reset(); }

    void zones();
    void days();
    void buttons();
    void buttonStates();
    void shopParts();
    void devices();
    void deviceState();
    void actionSequences();
    void indicators();
    void blueprints();
    void users();
    void pingTellsTheTime();
    void systemTime();
    void statistics();
    void statisticsInfo();
    void log();
    void imageItems();
    void view3DItems();
    void settings();
    void radioStatus();
    void comPorts();
    void powerOnStatistics();
    void shop();
    void backup();
    void factoryReset();

private:
    SiteProcess m_site{QStringLiteral("127.0.9.1")};
    std::unique_ptr<JsonBackendCommunicator> m_link;
    std::unique_ptr<QSignalSpy> m_errors;
};

void OperationsTest::initTestCase()
{
    QVERIFY(m_site.start());
    m_link = std::make_unique<JsonBackendCommunicator>();
    m_errors = std::make_unique<QSignalSpy>(m_link.get(), &Link::errorsReceived);
    QVERIFY(m_link->init(m_site.address(), QStringLiteral("admin"), QStringLiteral("admin"), m_link->getControlPort(),
                         m_link->getUpdatePort()));
    // Every list of the site comes by itself.
    const auto missing = [this] {
        const std::pair<const char *, bool> lists[] = {
            {"button states", cache().getButtonStates().empty()},
            {"users", cache().getUsers().empty()},
            {"device states", cache().getDeviceStates().empty()},
            {"device types", cache().getDeviceTypes().empty()},
            {"device modes", cache().getDeviceModes().empty()},
            {"action nodes", cache().getActionNodes().empty()},
            {"parts", cache().getShopParts().empty()},
            {"zones", cache().getZones().empty()},
            {"buttons", cache().getButtons().empty()},
            {"indicators", cache().getIndicators().empty()},
            {"devices", cache().getDeviceDescriptors().empty()},
            {"blueprints", cache().getBlueprints().empty()},
            {"schedules", cache().getScheduleDays().empty()},
            {"settings", cache().getSettings().mrf.empty()},
            {"pictures", cache().getImageItems().empty()},
            {"indicator states", cache().getIndicatorStates().empty()},
            {"meshes", cache().getView3DItems().empty()},
            {"run hours", cache().getPowerOnStatistics().empty()},
        };
        QStringList names;
        for (const auto &list : lists) {
            if (list.second)
                names << QString::fromLatin1(list.first);
        }
        return names;
    };
    QTRY_COMPARE_WITH_TIMEOUT(missing(), QStringList(), patienceMs);
    QCOMPARE(m_link->getStatus(), Link::Connected);
}

void OperationsTest::cleanup()
{
    for (const auto &errors : *m_errors) {
        for (const auto &error : errors.first().value<std::vector<Model::Result::Error>>())
            QFAIL(qPrintable(error.code + ": " + error.title + ' ' + error.detail));
    }
}

void OperationsTest::zones()
{
    Model::Zone zone;
    zone.partUid = part();
    addChangeRemove(zone, &Model::Zone::name, &Link::addZones, &Link::changeZones, &Link::removeZones,
                    &Cache::getZones);
}

void OperationsTest::days()
{
    Model::ScheduleDay day;
    day.points = {{QTime(6, 30), {}}, {QTime(18, 0), {}}};
    day.daysOfWeek = {0, 6};
    day.zones = {zone()};
    addChangeRemove(day, &Model::ScheduleDay::name, &Link::addDays, &Link::changeDays, &Link::removeDays,
                    &Cache::getScheduleDays);
}

void OperationsTest::buttons()
{
    Model::Button button;
    button.partUid = part();
    button.onColor = QStringLiteral("#ffffff");
    button.offColor = QStringLiteral("#000000");
    addChangeRemove(button, &Model::Button::name, &Link::addButtons, &Link::changeButtons, &Link::removeButtons,
                    &Cache::getButtons);
}

void OperationsTest::buttonStates()
{
    using State = Model::ButtonState::State;
    const auto buttons = cache().getButtons();
    const auto toggle = std::find_if(buttons.begin(), buttons.end(), [](const auto &button) { return button.toggle; });
    QVERIFY(toggle != buttons.end());
    const auto states = cache().getButtonStates();
    const auto *before = find(states, toggle->uid);
    QVERIFY(before);
    const auto wanted = before->state == State::On ? State::Off : State::On;
    m_link->setButtonStates({{toggle->uid, wanted}});
    QTRY_VERIFY_WITH_TIMEOUT(
        holds(&Cache::getButtonStates, toggle->uid, [&](const auto &state) { return state.state == wanted; }),
        patienceMs);
}

void OperationsTest::shopParts()
{
    addChangeRemove(Model::ShopPart(), &Model::ShopPart::name, &Link::addShopParts, &Link::changeShopParts,
                    &Link::removeShopParts, &Cache::getShopParts);
}

void OperationsTest::devices()
{
    auto device = cache().getDeviceDescriptors().front();
    const auto before = cache().getDeviceDescriptors().size();
    device.uid = QUuid();
    device.address = 60001;
    std::vector<QUuid> uids;
    m_link->addDevices({device}, [&](const std::vector<QUuid> &added) { uids = added; });
    QTRY_COMPARE_WITH_TIMEOUT(uids.size(), std::size_t(1), patienceMs);
    device.uid = uids.front();
    const auto hasAddress = [&](int address) {
        return holds(&Cache::getDeviceDescriptors, device.uid, [&](const auto &row) { return row.address == address; });
    };
    QTRY_VERIFY_WITH_TIMEOUT(hasAddress(60001), patienceMs);
    device.address = 60002;
    m_link->changeDevices({device});
    QTRY_VERIFY_WITH_TIMEOUT(hasAddress(60002), patienceMs);
    m_link->removeDevices({device});
    QTRY_COMPARE_WITH_TIMEOUT(cache().getDeviceDescriptors().size(), before, patienceMs);
}

void OperationsTest::deviceState()
{
    const auto states = cache().getDeviceStates();
    const auto lamp = std::find_if(states.begin(), states.end(),
                                   [](const auto &state) { return state.state.contains(QStringLiteral("power")); });
    QVERIFY(lamp != states.end());
    auto state = *lamp;
    const int wanted = state.state.value(QStringLiteral("power")).toInt() == 37 ? 38 : 37;
    state.state.insert(QStringLiteral("power"), wanted);
    QSignalSpy published(m_link.get(), &Link::devicesStatesReceived);
    m_link->setDeviceState({state});
    // An automatic lamp goes back to its own level with the next tick: what counts is that the value was there.
    const auto seen = [&] {
        return std::any_of(published.begin(), published.end(), [&](const auto &arguments) {
            const auto list = arguments.first().template value<std::vector<Model::DeviceState>>();
            const auto *row = find(list, state.uid);
            return row && row->state.value(QStringLiteral("power")).toInt() == wanted;
        });
    };
    QTRY_VERIFY_WITH_TIMEOUT(seen(), patienceMs);
}

void OperationsTest::actionSequences()
{
    const auto target = zone();
    Model::ActionSequence sequence;
    sequence.instances.push_back({Model::StandardBlueprints::setManualModeUid(), {}, {target}});
    sequence.instances.push_back(
        {Model::StandardBlueprints::setPowerUid(), {{QStringLiteral("power"), Model::ActionDatatype(42LL)}}, {target}});
    m_link->runActionSequences({sequence});
    QSet<QUuid> lamps;
    for (const auto &device : cache().getDeviceDescriptors()) {
        if (device.zoneUid == target)
            lamps.insert(device.uid);
    }
    const auto driven = [&] {
        int manual = 0;
        for (const auto &mode : cache().getDeviceModes())
            manual += lamps.contains(mode.uid) && mode.mode == Model::DeviceMode::Mode::Manual ? 1 : 0;
        int at42 = 0;
        for (const auto &state : cache().getDeviceStates()) {
            at42 += lamps.contains(state.uid) && state.state.value(QStringLiteral("power")).toInt() == 42 ? 1 : 0;
        }
        return manual > 0 && at42 > 0;
    };
    QTRY_VERIFY_WITH_TIMEOUT(driven(), patienceMs);
}

void OperationsTest::indicators()
{
    Model::Indicator indicator;
    indicator.partUid = part();
    addChangeRemove(indicator, &Model::Indicator::label, &Link::addIndicators, &Link::changeIndicators,
                    &Link::removeIndicators, &Cache::getIndicators);
}

void OperationsTest::blueprints()
{
    auto blueprint = Model::StandardBlueprints::setPower();
    blueprint.uid = QUuid();
    blueprint.system = false;
    addChangeRemove(blueprint, &Model::ActionBlueprint::name, &Link::addBlueprints, &Link::changeBlueprints,
                    &Link::removeBlueprints, &Cache::getBlueprints);
}

void OperationsTest::users()
{
    const auto group = [this] {
        for (const auto &user : cache().getUsers()) {
            if (user.login == QStringLiteral("probe"))
                return user.group;
        }
        return QString();
    };
    Model::UserInfo user;
    user.login = QStringLiteral("probe");
    user.password = QByteArray("secret");
    user.group = QStringLiteral("user");
    int done = 0;
    const auto count = [&] { ++done; };
    m_link->addUsers({user}, count);
    QTRY_COMPARE_WITH_TIMEOUT(group(), QStringLiteral("user"), patienceMs);
    user.group = QStringLiteral("admin");
    m_link->changeUsers({user}, count);
    QTRY_COMPARE_WITH_TIMEOUT(group(), QStringLiteral("admin"), patienceMs);
    user.group = QStringLiteral("user");
    m_link->changeUsersRoles({user}, count);
    QTRY_COMPARE_WITH_TIMEOUT(group(), QStringLiteral("user"), patienceMs);
    std::vector<Model::UserInfo> list;
    m_link->getUserList([&](const std::vector<Model::UserInfo> &users) { list = users; });
    QTRY_COMPARE_WITH_TIMEOUT(list.size(), cache().getUsers().size(), patienceMs);
    for (const auto &listed : list)
        QVERIFY(!listed.password);
    m_link->removeUsers({user}, count);
    QTRY_VERIFY_WITH_TIMEOUT(group().isEmpty(), patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(done, 4, patienceMs);
}

void OperationsTest::pingTellsTheTime()
{
    QSignalSpy time(m_link.get(), &Link::timeReceived);
    m_link->ping();
    QTRY_VERIFY_WITH_TIMEOUT(!time.isEmpty(), patienceMs);
    QVERIFY(time.last().first().toDateTime().isValid());
}

void OperationsTest::systemTime()
{
    QTRY_VERIFY_WITH_TIMEOUT(!cache().getTimeInfo().timezones.isEmpty(), patienceMs);
    auto info = cache().getTimeInfo();
    info.timezone = info.timezone == QStringLiteral("UTC") ? QStringLiteral("Europe/Moscow") : QStringLiteral("UTC");
    info.ntp = false; // network time would show the true one
    info.time = QDateTime(QDate(2024, 2, 29), QTime(12, 0), Qt::UTC);
    bool done = false;
    m_link->setSystemTime(info, [&] { done = true; });
    QTRY_VERIFY_WITH_TIMEOUT(done, patienceMs);
    m_link->getSystemTime();
    QTRY_COMPARE_WITH_TIMEOUT(cache().getTimeInfo().timezone, info.timezone, patienceMs);
    QVERIFY(qAbs(cache().getTimeInfo().time.secsTo(info.time)) < 120);
    info.time = QDateTime::currentDateTimeUtc();
    m_link->setSystemTime(info, {});
}

void OperationsTest::statistics()
{
    const auto types = cache().getDeviceTypes();
    const auto devices = cache().getDeviceDescriptors();
    const auto lamp = std::find_if(devices.begin(), devices.end(), [&](const auto &device) {
        return std::any_of(types.begin(), types.end(), [&](const auto &type) {
            return type.url == device.url && type.statistics.interface == QStringLiteral("Lamp.qml");
        });
    });
    QVERIFY(lamp != devices.end());
    QSignalSpy received(m_link.get(), &Link::statisticsReceived);
    const auto to = QDateTime::currentDateTimeUtc();
    const auto request = QUuid::createUuid();
    m_link->getStatistics(to.addSecs(-3600 * 6), to, {{lamp->uid, QString()}}, Link::StatisticsGrain::Minute, request);
    QTRY_COMPARE_WITH_TIMEOUT(received.size(), 1, patienceMs);
    QCOMPARE(received.first().at(1).toUuid(), request);
    const auto minutes = received.first().first().value<Model::Statistics>();
    QVERIFY(minutes.size() >= 300);
    for (const auto &category : minutes.flat()) {
        QCOMPARE(category.uid, lamp->uid);
        QVERIFY(!category.schema.isEmpty());
    }
    m_link->getStatistics(to.addDays(-30), to, {{lamp->uid, QString()}}, Link::StatisticsGrain::Hour, request);
    QTRY_COMPARE_WITH_TIMEOUT(received.size(), 2, patienceMs);
    const auto hours = received.last().first().value<Model::Statistics>();
    QVERIFY(hours.size() >= 30 * 24 - 48);
    QVERIFY(hours.size() <= (30 * 24 + 2) * static_cast<int>(hours.flat().size()));
}

void OperationsTest::statisticsInfo()
{
    Model::StatisticsInfo info;
    m_link->getStatisticsInfo([&](const Model::StatisticsInfo &received) { info = received; });
    QTRY_VERIFY_WITH_TIMEOUT(info.dataStart.isValid(), patienceMs);
    QVERIFY(info.dataStart < info.dataEnd);
    QVERIFY(info.statisticsSize > 0);
    QVERIFY(info.availableSize > 0);
}

void OperationsTest::log()
{
    const auto to = QDateTime::currentDateTimeUtc().addSecs(60);
    const auto from = to.addDays(-3);
    std::vector<Model::LogEntry> entries;
    m_link->getLog(from, to, [&](const std::vector<Model::LogEntry> &received) { entries = received; });
    QTRY_VERIFY_WITH_TIMEOUT(!entries.empty(), patienceMs);
    for (const auto &entry : entries) {
        QVERIFY(entry.time >= from && entry.time <= to);
        QVERIFY(!entry.action.isEmpty());
    }
}

void OperationsTest::imageItems()
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImage picture(20, 10, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save(&buffer, "PNG"));
    Model::ImageItem item;
    item.partUid = part();
    item.name = QStringLiteral("план.png");
    item.x = 16;
    item.image = Model::ImageItem::Image(bytes, QStringLiteral("png"));
    std::vector<QUuid> uids;
    m_link->addImageItem(item, [&](const std::vector<QUuid> &added) { uids = added; });
    QTRY_COMPARE_WITH_TIMEOUT(uids.size(), std::size_t(1), patienceMs);
    item.uid = uids.front();
    QTRY_VERIFY_WITH_TIMEOUT(
        holds(&Cache::getImageItems, item.uid, [&](const auto &row) { return row.name == item.name && row.x == 16; }),
        patienceMs);

    Model::ImageItem::Image image;
    m_link->getImage(item.uid, [&](const Model::ImageItem::Image &received) { image = received; }, {});
    QTRY_COMPARE_WITH_TIMEOUT(image.data, bytes, patienceMs);
    QCOMPARE(image.format, QStringLiteral("png"));

    item.opacity = 0.5;
    int done = 0;
    m_link->changeImageItem(item, [&] { ++done; });
    QTRY_VERIFY_WITH_TIMEOUT(holds(&Cache::getImageItems, item.uid, [](const auto &row) { return row.opacity == 0.5; }),
                             patienceMs);
    m_link->removeImageItems({item}, [&] { ++done; });
    QTRY_VERIFY_WITH_TIMEOUT(!holds(&Cache::getImageItems, item.uid, [](const auto &) { return true; }), patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(done, 2, patienceMs);
}

void OperationsTest::view3DItems()
{
    Model::View3DItem item;
    item.partUid = part();
    item.name = QStringLiteral("куб.mesh");
    item.z = 2.5;
    item.modelData = QByteArray::fromHex("4d7fa0c8") + QByteArray(1000, 'm');
    std::vector<QUuid> uids;
    m_link->addView3DItem(item, [&](const std::vector<QUuid> &added) { uids = added; });
    QTRY_COMPARE_WITH_TIMEOUT(uids.size(), std::size_t(1), patienceMs);
    item.uid = uids.front();
    QTRY_VERIFY_WITH_TIMEOUT(
        holds(&Cache::getView3DItems, item.uid, [&](const auto &row) { return row.name == item.name && row.z == 2.5; }),
        patienceMs);

    Model::View3DItem loaded;
    m_link->getView3DItem(item.uid, [&](const Model::View3DItem &received) { loaded = received; }, {});
    QTRY_COMPARE_WITH_TIMEOUT(loaded.modelData, item.modelData, patienceMs);
    QCOMPARE(loaded.partUid, item.partUid);

    item.rotationZ = 90;
    int done = 0;
    m_link->changeView3DItem(item, [&] { ++done; });
    QTRY_VERIFY_WITH_TIMEOUT(
        holds(&Cache::getView3DItems, item.uid, [](const auto &row) { return row.rotationZ == 90; }), patienceMs);
    m_link->removeView3DItems({item}, [&] { ++done; });
    QTRY_VERIFY_WITH_TIMEOUT(!holds(&Cache::getView3DItems, item.uid, [](const auto &) { return true; }), patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(done, 2, patienceMs);
}

void OperationsTest::settings()
{
    auto settings = cache().getSettings();
    settings.pwm.byteFor20Power = 55;
    settings.lora.push_back({});
    m_link->setSettings(settings);
    QTRY_VERIFY_WITH_TIMEOUT(cache().getSettings() == settings, patienceMs);
}

void OperationsTest::radioStatus()
{
    QSignalSpy received(m_link.get(), &Link::radioStatusReceived);
    m_link->getRadioStatus();
    QTRY_COMPARE_WITH_TIMEOUT(received.size(), 1, patienceMs);
    const auto list = received.first().first().value<std::vector<Model::RadioStatus>>();
    const auto settings = cache().getSettings();
    QCOMPARE(list.size(), settings.mrf.size() + settings.lora.size() + settings.rs485.size());
}

void OperationsTest::comPorts()
{
    QSignalSpy received(m_link.get(), &Link::availableComPortsReceived);
    m_link->getAvailableComPorts();
    QTRY_COMPARE_WITH_TIMEOUT(received.size(), 1, patienceMs);
    QVERIFY(!received.first().first().toStringList().isEmpty());
}

void OperationsTest::powerOnStatistics()
{
    auto info = cache().getPowerOnStatistics().front();
    info.powerOnHours = info.powerOnHours + 1234;
    info.lastUpdate = QDateTime::currentDateTimeUtc();
    m_link->setPowerOnStatistics({info});
    QTRY_VERIFY_WITH_TIMEOUT(holds(&Cache::getPowerOnStatistics, info.uid,
                                   [&](const auto &row) { return qAbs(row.powerOnHours - info.powerOnHours) < 1; }),
                             patienceMs);
}

// The whole site in one record: what it holds stays, under the name that it brings.
void OperationsTest::shop()
{
    Model::Shop shop; // no list tells the uid of the site itself: the null one stands for it
    shop.name = QStringLiteral("Новый завод");
    for (const auto &row : cache().getShopParts())
        shop.shopParts.insert(row.uid, row);
    for (const auto &row : cache().getZones())
        shop.zones.insert(row.uid, row);
    for (const auto &row : cache().getDeviceDescriptors())
        shop.devices.insert(row.uid, row);
    for (const auto &row : cache().getButtons())
        shop.buttons.insert(row.uid, row);
    for (const auto &row : cache().getIndicators())
        shop.indicators.insert(row.uid, row);
    for (const auto &row : cache().getScheduleDays())
        shop.scheduleDays.insert(row.uid, row);
    const auto changed = shop.zones.begin();
    changed->name = QStringLiteral("Зона из записи объекта");
    m_link->setShop(shop);
    QTRY_VERIFY_WITH_TIMEOUT(
        holds(&Cache::getZones, changed.key(), [&](const auto &row) { return row.name == changed->name; }), patienceMs);
    QCOMPARE(cache().getButtons().size(), static_cast<std::size_t>(shop.buttons.size()));
}

void OperationsTest::backup()
{
    QByteArray bytes;
    QString fileName;
    m_link->getBackup([&](const QString &name, const QByteArray &data) {
        fileName = name;
        bytes = data;
    });
    QTRY_VERIFY_WITH_TIMEOUT(!bytes.isEmpty(), patienceMs);
    QVERIFY(!fileName.isEmpty());

    const auto zones = cache().getZones();
    m_link->removeZones({zones.front()});
    QTRY_COMPARE_WITH_TIMEOUT(cache().getZones().size(), zones.size() - 1, patienceMs);
    bool done = false;
    m_link->restoreBackup(bytes, [&] { done = true; });
    QTRY_VERIFY_WITH_TIMEOUT(done, patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(cache().getZones().size(), zones.size(), patienceMs);
    QCOMPARE(cache().getZones(), zones);
}

void OperationsTest::factoryReset()
{
    QVERIFY(cache().getSettings().pwm.byteFor20Power == 55); // changed above
    m_link->factoryReset();
    QTRY_VERIFY_WITH_TIMEOUT(cache().getSettings().pwm.byteFor20Power != 55, patienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(!cache().getZones().empty(), patienceMs);
}

ONDIRA_TEST(OperationsTest)
#include "OperationsTest.moc"
