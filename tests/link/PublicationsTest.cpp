// SPDX-License-Identifier: GPL-3.0-or-later
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
    void topicsWithoutRecordsCountForVersionAndErrors_data();
    void topicsWithoutRecordsCountForVersionAndErrors();
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

    server.publish("device_states",
                   list(R"({"type":"device_state","id":")" + hall + R"(","attributes":{"state":{"power":40}}})"));
    server.publish("device_types/ru_RU", list(R"({"type":"device_type","id":"a.qml","attributes":{"name":"Лампа"}})"));
    server.publish("device_modes",
                   list(R"({"type":"device_mode","id":")" + hall + R"(","attributes":{"mode":"Manual"}})"));
    server.publish("users", list(R"({"type":"user","id":"admin","attributes":{"login":"admin","group":"admin"}})"));
    server.publish("shop_parts", list(R"({"type":"shop_part","id":")" + hall + R"(","attributes":{"name":"Этаж"}})"));
    server.publish("zones", list(zone(hall, "Холл") + "," + zone(kitchen, "Кухня")));
    server.publish("devices", list(R"({"type":"device","id":")" + hall + R"(","attributes":{"address":7}})"));

    QTRY_COMPARE(cache.getDeviceDescriptors().size(), size_t(1));
    QCOMPARE(cache.getDeviceStates().at(0).state.value("power").toInt(), 40);
    QCOMPARE(cache.getDeviceTypes().at(0).name, QString("Лампа"));
    QVERIFY(cache.getDeviceModes().at(0).mode == Model::DeviceMode::Mode::Manual);
    QCOMPARE(cache.getUsers().at(0).login, QString("admin"));
    QCOMPARE(cache.getShopParts().at(0).name, QString("Этаж"));
    QCOMPARE(cache.getZones().size(), size_t(2));
    QCOMPARE(cache.getZones().at(1).name, QString("Кухня"));
    QCOMPARE(cache.getDeviceDescriptors().at(0).address, 7);
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
    QTest::addColumn<QByteArray>("topic");
    QTest::addColumn<bool>("accepted");

    QTest::newRow("own") << QByteArray("device_types/ru_RU") << true;
    QTest::newRow("foreign") << QByteArray("device_types/xx") << true;
    QTest::newRow("empty") << QByteArray("device_types/") << true;
    QTest::newRow("no slash") << QByteArray("device_types") << false;
    QTest::newRow("another word") << QByteArray("device_types_of/ru") << false;
}

void PublicationsTest::anyLocaleSuffixIsAccepted()
{
    QFETCH(QByteArray, topic);
    QFETCH(bool, accepted);
    QSignalSpy types(m_link.get(), &Link::devicesTypesReceived);

    receive(topic, list({}));

    QCOMPARE(types.size(), accepted ? 1 : 0);
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

void PublicationsTest::topicsWithoutRecordsCountForVersionAndErrors_data()
{
    QTest::addColumn<QByteArray>("topic");

    for (const char *topic :
         {"action_nodes/ru_RU", "button_states", "settings", "buttons", "indicators", "blueprints/ru_RU", "schedules",
          "image_items", "indicator_states", "view_3d_items", "power_on_statistics"})
        QTest::newRow(topic) << QByteArray(topic);
}

void PublicationsTest::topicsWithoutRecordsCountForVersionAndErrors()
{
    QFETCH(QByteArray, topic);

    receive(topic, list(R"({"type":"whatever","id":"1"})", "4.6.0"));
    QCOMPARE(m_link->getServerVersion().toString(), QString("4.6.0"));
    QCOMPARE(m_link->errors.size(), size_t(0));

    receive(topic, R"({"errors":[{"code":"broken","title":"t","detail":"d"}]})");
    QCOMPARE(m_link->errorCodes, QStringList{"broken"});
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
