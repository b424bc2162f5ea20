// SPDX-License-Identifier: GPL-3.0-or-later
#include "PublishedDocuments.h"
#include "TestLink.h"

#include <QLocale>

using Link = AbstractBackendCommunicator;

namespace {

const QByteArray hall("{11111111-1111-1111-1111-111111111111}");
const QByteArray kitchen("{22222222-2222-2222-2222-222222222222}");

QByteArray list(const QByteArray &entities, const QByteArray &version = "4.5.2")
{
    return R"({"data":[)" + entities + R"(],"server_version":")" + version + R"("})";
}

QByteArray zone(const QByteArray &uid, const QByteArray &name)
{
    return R"({"type":"zone","id":")" + uid + R"(","attributes":{"name":")" + name + R"("}})";
}

} // namespace

// What a publication becomes, by its topic.
class PublicationsTest : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void allTopicsAreSubscribedInOrder();
    void localeIsReadAtTheMoment();
    void subscriptionsAreExactTexts();
    void newSubscriptionReplacesTheOld();
    void eachListReachesTheCache();
    void orderOfPublicationsStays();
    void emptyListIsPublished();
    void singleObjectIsAListOfOne();
    void anyLocaleSuffixIsAccepted_data();
    void anyLocaleSuffixIsAccepted();
    void unknownTopicIsIgnored_data();
    void unknownTopicIsIgnored();
    void everyTopicCountsForVersionAndErrors_data();
    void everyTopicCountsForVersionAndErrors();
    void eachTopicHasItsSignal_data();
    void eachTopicHasItsSignal();
    void lastSettingsCount();
    void emptySettingsAreNotAnnounced();
    void serverVersionIsAnnouncedWhenItChanges();
    void versionOfAPublicationWithErrorsCounts();
    void publicationWithErrorsKeepsTheList();
    void uncompressedPublicationIsRead();
    void binaryPublicationIsIgnored();
    void topicComesFromTheFirstFrame();
    void manyRowsArriveWhole();
    void repeatedUidsArriveAsSent();
    void statesReadTheSameOnBothRoads_data();
    void statesReadTheSameOnBothRoads();

private:
    // Hands over a publication as the socket would.
    void receive(const QByteArray &topic, const QByteArray &document)
    {
        m_link->onSubMessageReceived({topic, QByteArray(), FakeServer::header(FakeServer::Json, topic), document});
    }

    std::unique_ptr<TestCommunicator> m_link;
};

void PublicationsTest::init()
{
    TestBase::init();
    m_link = std::make_unique<TestCommunicator>();
}

void PublicationsTest::cleanup()
{
    m_link.reset();
    TestBase::cleanup();
}

void PublicationsTest::allTopicsAreSubscribedInOrder()
{
    QCOMPARE(
        m_link->subscriptionTopics(),
        (QStringList{"device_states", "device_types/ru_RU", "action_nodes/ru_RU", "button_states", "device_modes",
                     "users", "settings", "shop_parts", "zones", "buttons", "indicators", "devices", "blueprints/ru_RU",
                     "schedules", "image_items", "indicator_states", "view_3d_items", "power_on_statistics"}));
}

void PublicationsTest::localeIsReadAtTheMoment()
{
    const auto russian = m_link->subscriptionTopics();
    QLocale::setDefault(QLocale("en_US"));
    const auto english = m_link->subscriptionTopics();
    QLocale::setDefault(QLocale("ru_RU"));

    QStringList changed;
    for (int i = 0; i < russian.size(); ++i) {
        if (russian.at(i) != english.at(i))
            changed << english.at(i);
    }
    QCOMPARE(changed, (QStringList{"device_types/en_US", "action_nodes/en_US", "blueprints/en_US"}));
}

void PublicationsTest::subscriptionsAreExactTexts()
{
    FakeServer server;

    QVERIFY(logIn(*m_link, server));

    auto expected = m_link->subscriptionTopics();
    auto actual = server.subscriptions;
    expected.sort(); // a new connection tells them in the order of the library's own table
    actual.sort();
    QCOMPARE(actual, expected);
}

void PublicationsTest::newSubscriptionReplacesTheOld()
{
    FakeServer server;
    QVERIFY(logIn(*m_link, server));
    QSignalSpy zones(m_link.get(), &Link::zonesReceived);

    m_link->subscribe({"devices", "новый"});

    QTRY_COMPARE(server.subscriptions.size(), 2);
    QVERIFY(server.subscriptions.contains("devices") && server.subscriptions.contains("новый"));
    QSignalSpy devices(m_link.get(), &Link::devicesReceived);
    server.publish("zones", list({}));
    server.publish("devices", list({}));
    QTRY_COMPARE(devices.size(), 1);
    QCOMPARE(zones.size(), 0);
}

void PublicationsTest::eachListReachesTheCache()
{
    FakeServer server;
    QVERIFY(logIn(*m_link, server));
    const auto &cache = m_link->getDataCache();

    for (const auto &published : publishedDocuments())
        server.publish(published.topic, published.document());

    QTRY_COMPARE(cache.getPowerOnStatistics().size(), size_t(1));
    QCOMPARE(cache.getDeviceStates().at(0).state.value("power").toInt(), 40);
    QCOMPARE(cache.getDeviceTypes().at(0).name, QString("Лампа"));
    QCOMPARE(cache.getActionNodes().at(0).type, QString("Compare"));
    QVERIFY(cache.getButtonStates().at(0).state == Model::ButtonState::State::On);
    QVERIFY(cache.getDeviceModes().at(0).mode == Model::DeviceMode::Mode::Manual);
    QCOMPARE(cache.getUsers().at(0).login, QString("admin"));
    QCOMPARE(cache.getSettings().rs485.at(0).speed, 115200);
    QCOMPARE(cache.getShopParts().at(0).name, QString("Этаж"));
    QCOMPARE(cache.getZones().at(0).name, QString("Холл"));
    QCOMPARE(cache.getButtons().at(0).blueprints.instances.size(), size_t(1));
    QCOMPARE(cache.getIndicators().at(0).displayValue->property, QString("t"));
    QCOMPARE(cache.getDeviceDescriptors().at(0).address, 7);
    QCOMPARE(cache.getBlueprints().at(0).nodes.size(), size_t(1));
    QCOMPARE(cache.getScheduleDays().at(0).zones.size(), 1);
    QCOMPARE(cache.getImageItems().at(0).cropHeight, 8.0);
    QCOMPARE(*cache.getIndicatorStates().at(0).text, QString("Авария"));
    QCOMPARE(cache.getView3DItems().at(0).rotationZ, 9.0);
    QCOMPARE(cache.getPowerOnStatistics().at(0).powerOnHours, 12.5);
    QCOMPARE(m_link->errors.size(), size_t(0));
}

void PublicationsTest::orderOfPublicationsStays()
{
    FakeServer server;
    QVERIFY(logIn(*m_link, server));
    QStringList names;
    connect(m_link.get(), &Link::zonesReceived, this,
            [&](const std::vector<Model::Zone> &zones) { names << zones.at(0).name; });

    QStringList expected;
    for (int i = 0; i < 200; ++i) {
        expected << QString::number(i);
        server.publish("zones", list(zone(hall, QByteArray::number(i))));
    }

    QTRY_COMPARE(names.size(), 200);
    QCOMPARE(names, expected);
}

void PublicationsTest::emptyListIsPublished()
{
    receive("zones", list(zone(hall, "Холл")));
    QSignalSpy zones(m_link.get(), &Link::zonesReceived);

    receive("zones", list({}));

    QCOMPARE(zones.size(), 1);
    QVERIFY(m_link->getDataCache().getZones().empty());
}

void PublicationsTest::singleObjectIsAListOfOne()
{
    receive("zones", R"({"data":)" + zone(hall, "Холл") + "}");

    QCOMPARE(m_link->getDataCache().getZones().size(), size_t(1));
}

void PublicationsTest::anyLocaleSuffixIsAccepted_data()
{
    QTest::addColumn<QByteArray>("suffix");
    QTest::addColumn<bool>("accepted");

    QTest::newRow("own") << QByteArray("/ru_RU") << true;
    QTest::newRow("foreign") << QByteArray("/xx") << true;
    QTest::newRow("empty") << QByteArray("/") << true;
    QTest::newRow("no slash") << QByteArray() << false;
    QTest::newRow("another word") << QByteArray("_of/ru") << false;
}

void PublicationsTest::anyLocaleSuffixIsAccepted()
{
    QFETCH(QByteArray, suffix);
    QFETCH(bool, accepted);
    QSignalSpy types(m_link.get(), &Link::devicesTypesReceived);
    QSignalSpy nodes(m_link.get(), &Link::actionNodesReceived);
    QSignalSpy blueprints(m_link.get(), &Link::blueprintsReceived);

    receive("device_types" + suffix, list({}));
    receive("action_nodes" + suffix, list({}));
    receive("blueprints" + suffix, list({}));

    QCOMPARE(types.size(), accepted ? 1 : 0);
    QCOMPARE(nodes.size(), accepted ? 1 : 0);
    QCOMPARE(blueprints.size(), accepted ? 1 : 0);
}

void PublicationsTest::unknownTopicIsIgnored_data()
{
    QTest::addColumn<QByteArray>("topic");

    QTest::newRow("unknown") << QByteArray("weather");
    QTest::newRow("longer") << QByteArray("zones2");
    QTest::newRow("with a locale") << QByteArray("zones/ru_RU");
    QTest::newRow("shorter") << QByteArray("zone");
    QTest::newRow("other case") << QByteArray("Zones");
    QTest::newRow("zero byte") << QByteArray("zones\0", 6);
}

void PublicationsTest::unknownTopicIsIgnored()
{
    QFETCH(QByteArray, topic);
    QSignalSpy zones(m_link.get(), &Link::zonesReceived);

    receive(topic, list(zone(hall, "Холл"), "4.9.9"));

    QCOMPARE(zones.size(), 0);
    QCOMPARE(m_link->getServerVersion().toString(), QString("4.9.9")); // read before the topic is looked at
}

void PublicationsTest::everyTopicCountsForVersionAndErrors_data()
{
    QTest::addColumn<QByteArray>("topic");

    for (const auto &published : publishedDocuments())
        QTest::newRow(published.topic) << published.topic;
}

void PublicationsTest::everyTopicCountsForVersionAndErrors()
{
    QFETCH(QByteArray, topic);

    receive(topic, list(R"({"type":"whatever","id":"1"})", "4.6.0"));
    QCOMPARE(m_link->getServerVersion().toString(), QString("4.6.0"));
    QCOMPARE(m_link->errors.size(), size_t(0));

    receive(topic, R"({"errors":[{"code":"broken","title":"t","detail":"d"}]})");
    QCOMPARE(m_link->errorCodes, QStringList{"broken"});
}

void PublicationsTest::eachTopicHasItsSignal_data()
{
    QTest::addColumn<QByteArray>("signal");

    const QByteArrayList signalNames{"devicesStatesReceived",   "devicesTypesReceived", "actionNodesReceived",
                                     "buttonStateListReceived", "devicesModesReceived", "backendUserListReceived",
                                     "settingsReceived",        "shopPartsReceived",    "zonesReceived",
                                     "buttonsReceived",         "indicatorsReceived",   "devicesReceived",
                                     "blueprintsReceived",      "schedulesReceived",    "imageItemsReceived",
                                     "indicatorStatesReceived", "view3DItemsReceived",  "powerOnStatisticsReceived"};
    for (int i = 0; i < signalNames.size(); ++i)
        QTest::newRow(publishedDocuments().at(static_cast<size_t>(i)).topic) << signalNames.at(i);
}

void PublicationsTest::eachTopicHasItsSignal()
{
    QFETCH(QByteArray, signal);
    const QByteArray topic(QTest::currentDataTag());
    const auto &documents = publishedDocuments();
    const auto published =
        std::find_if(documents.begin(), documents.end(),
                     [&topic](const PublishedDocument &document) { return document.topic == topic; });
    QVERIFY(published != documents.end());
    // Every signal of a list, that none but the right one comes.
    std::vector<std::unique_ptr<QSignalSpy>> spies;
    const auto *meta = m_link->metaObject();
    for (int i = 0; i < meta->methodCount(); ++i) {
        if (meta->method(i).methodType() == QMetaMethod::Signal && meta->method(i).name().endsWith("Received"))
            spies.push_back(std::make_unique<QSignalSpy>(m_link.get(), meta->method(i)));
    }

    receive(topic, list(published->entity + "," + published->entity));

    QByteArrayList emitted;
    for (const auto &spy : spies) {
        for (int i = 0; i < spy->size(); ++i)
            emitted << spy->signal().left(spy->signal().indexOf('('));
    }
    QCOMPARE(emitted, QByteArrayList{signal});
}

void PublicationsTest::lastSettingsCount()
{
    QSignalSpy settings(m_link.get(), &Link::settingsReceived);

    receive("settings",
            list(R"({"type":"settings","id":"1","attributes":{"mrf":[{"pan":1}]}},)"
                 R"({"type":"settings","id":"2","attributes":{"mrf":[{"pan":2}]}})"));

    QCOMPARE(settings.size(), 1);
    QCOMPARE(m_link->getDataCache().getSettings().mrf.size(), size_t(1));
    QCOMPARE(int(m_link->getDataCache().getSettings().mrf.front().hostPan), 2);
}

void PublicationsTest::emptySettingsAreNotAnnounced()
{
    receive("settings", list(R"({"type":"settings","id":"1","attributes":{"mrf":[{"pan":1}]}})"));
    QSignalSpy settings(m_link.get(), &Link::settingsReceived);

    receive("settings", list({}));

    QCOMPARE(settings.size(), 0);
    QCOMPARE(m_link->getDataCache().getSettings().mrf.size(), size_t(1));
}

void PublicationsTest::serverVersionIsAnnouncedWhenItChanges()
{
    QSignalSpy version(m_link.get(), &Link::serverVersionChanged);
    QCOMPARE(m_link->property("versionMajor").toInt(), 0);
    QCOMPARE(m_link->property("versionMinor").toInt(), 0);
    QCOMPARE(m_link->property("versionPatch").toInt(), 0);

    receive("zones", list({}, "4.5.2"));
    receive("zones", list({}, "4.5.2"));
    QCOMPARE(version.size(), 1);
    receive("zones", list({}, "5.1"));

    QCOMPARE(version.size(), 2);
    QCOMPARE(m_link->property("versionMajor").toInt(), 5);
    QCOMPARE(m_link->property("versionMinor").toInt(), 1);
    QCOMPARE(m_link->property("versionPatch").toInt(), 0);

    receive("zones", R"({"data":[]})"); // no version counts as the program's own
    QCOMPARE(m_link->getServerVersion().toString(), QString("4.5.2"));
}

void PublicationsTest::versionOfAPublicationWithErrorsCounts()
{
    receive("zones", R"({"errors":[{"code":"broken"}],"server_version":"4.7.0"})");

    QCOMPARE(m_link->getServerVersion().toString(), QString("4.7.0"));
    QCOMPARE(m_link->errorCodes, QStringList{"broken"});
}

void PublicationsTest::publicationWithErrorsKeepsTheList()
{
    receive("zones", list(zone(hall, "Холл")));
    QSignalSpy zones(m_link.get(), &Link::zonesReceived);

    receive("zones", R"({"errors":[{"code":"broken"}],"data":[]})");

    QCOMPARE(zones.size(), 0);
    QCOMPARE(m_link->getDataCache().getZones().size(), size_t(1));
}

void PublicationsTest::uncompressedPublicationIsRead()
{
    FakeServer server;
    QVERIFY(logIn(*m_link, server));

    server.publishFrames({"zones", {}, FakeServer::header(FakeServer::Json, {}), list(zone(hall, "Холл"))});

    QTRY_COMPARE(m_link->getDataCache().getZones().size(), size_t(1));
}

void PublicationsTest::binaryPublicationIsIgnored()
{
    QSignalSpy zones(m_link.get(), &Link::zonesReceived);

    m_link->onSubMessageReceived({"zones", {}, FakeServer::header(FakeServer::Raw, {}), list(zone(hall, "Холл"))});

    QCOMPARE(zones.size(), 0);
    QVERIFY(m_link->getServerVersion().isNull());
}

void PublicationsTest::topicComesFromTheFirstFrame()
{
    QSignalSpy zones(m_link.get(), &Link::zonesReceived);
    QSignalSpy devices(m_link.get(), &Link::devicesReceived);

    // Frames between the topic and the delimiter are passed over, and so is the id.
    m_link->onSubMessageReceived(
        {"zones", "extra", {}, FakeServer::header(FakeServer::Json, "devices"), list({}), "one more"});

    QCOMPARE(zones.size(), 1);
    QCOMPARE(devices.size(), 0);
}

void PublicationsTest::manyRowsArriveWhole()
{
    FakeServer server;
    QVERIFY(logIn(*m_link, server));
    QByteArray entities;
    for (int i = 0; i < 10000; ++i) {
        if (i)
            entities += ',';
        entities += R"({"type":"device_state","id":"{00000000-0000-0000-0000-)"
            + QByteArray::number(i).rightJustified(12, '0') + R"(}","attributes":{"state":{"power":)"
            + QByteArray::number(i % 101) + "}}}";
    }

    server.publish("device_states", list(entities));

    QTRY_COMPARE(m_link->getDataCache().getDeviceStates().size(), size_t(10000));
    const auto last = m_link->getDataCache().getDeviceStates().back();
    QCOMPARE(last.uid, QUuid("{00000000-0000-0000-0000-000000009999}"));
    QCOMPARE(last.state.value("power").toInt(), 9999 % 101);
    server.publish("device_states", list({}));
    QTRY_VERIFY(m_link->getDataCache().getDeviceStates().empty());
}

void PublicationsTest::repeatedUidsArriveAsSent()
{
    receive("zones", list(zone(hall, "first") + "," + zone(hall, "second") + "," + zone(hall, "first")));

    QCOMPARE(m_link->getDataCache().getZones().size(), size_t(3));
    QCOMPARE(m_link->getDataCache().getZones().at(1).name, QString("second"));
}

void PublicationsTest::statesReadTheSameOnBothRoads_data()
{
    QTest::addColumn<QByteArray>("entities");
    QTest::addColumn<QByteArray>("version");
    QTest::addColumn<size_t>("count");

    const QByteArray usual = R"({"type":"device_state","id":")" + hall + R"(","attributes":{"state":{"power":40}}})";
    QTest::newRow("usual") << usual << QByteArray("4.8.1") << size_t(1);
    QTest::newRow("none") << QByteArray() << QByteArray("4.8.1") << size_t(0);
    QTest::newRow("null among them") << "null," + usual << QByteArray("4.8.1") << size_t(2);
    QTest::newRow("odd id") << R"({"type":7,"id":[1],"attributes":{"state":{"power":40}}},)" + usual
                            << QByteArray("4.8.1") << size_t(2);
    QTest::newRow("a key twice") << R"({"id":"{}","id":"{}"},)" + usual << QByteArray("4.8.1") << size_t(2);
    QTest::newRow("odd version") << usual << QByteArray("newest") << size_t(1);
}

void PublicationsTest::statesReadTheSameOnBothRoads()
{
    QFETCH(QByteArray, entities);
    QFETCH(QByteArray, version);
    QFETCH(size_t, count);
    QSignalSpy states(m_link.get(), &Link::devicesStatesReceived);

    receive("device_states", list(entities, version));

    QCOMPARE(states.size(), 1);
    const auto received = m_link->getDataCache().getDeviceStates();
    QCOMPARE(received.size(), count);
    if (count)
        QCOMPARE(received.back().state, (QVariantMap{{"power", 40}}));
    QCOMPARE(m_link->getServerVersion(), QVersionNumber::fromString(version));

    receive("device_states", R"({"errors":[{"code":"broken"}],"data":[]})");
    QCOMPARE(states.size(), 1);
    QCOMPARE(m_link->errorCodes, QStringList{"broken"});
}

ONDIRA_TEST(PublicationsTest)
#include "PublicationsTest.moc"
