// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestLink.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

using Link = AbstractBackendCommunicator;

// The link against a server that shares nothing with it: another process, another language, bytes put together by hand.
class SecondPeerTest : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void loginGoesThroughToTheLists();
    void documentsAreExactToTheKey();
    void repliesArriveInBothForms();
    void errorsOfThePeerAreShown();
    void pingsComeAtTheirInterval();
    void muteServerIsTriedInItsRhythm();
    void idsCountUpThroughAReconnect();

private:
    QList<QJsonObject> events(const QString &name) const;
    QList<QJsonObject> requests(const QString &resource) const;
    void readEvents();
    bool command(const QByteArray &word);
    bool logIn(TestCommunicator &link);

    QProcess m_peer;
    QList<QJsonObject> m_events;
    int m_controlPort = 0;
    int m_updatePort = 0;
};

namespace {

LinkTimings scaledTimings() // the told rhythm, ten times as fast
{
    auto timings = testTimings();
    timings.pingInterval = 1000;
    timings.quickReply = 300;
    timings.longestCheck = 1000;
    timings.checkSlack = 10;
    timings.shortestCheck = 100;
    return timings;
}

QJsonObject json(const char *text)
{
    return QJsonDocument::fromJson(text).object();
}

} // namespace

void SecondPeerTest::init()
{
    TestBase::init();
    m_events.clear();
    m_peer.setProcessChannelMode(QProcess::SeparateChannels);
    connect(&m_peer, &QProcess::readyReadStandardOutput, this, &SecondPeerTest::readEvents, Qt::UniqueConnection);

    m_peer.start("/usr/bin/python3", {"-B", ONDIRA_PEER_SCRIPT}); // the one that sees the packages of the system
    QVERIFY2(m_peer.waitForStarted(), "The second peer needs /usr/bin/python3 (apt-get install python3)");
    const auto isUp = [this] { return !events("ready").isEmpty() || m_peer.state() == QProcess::NotRunning; };
    QVERIFY(QTest::qWaitFor(isUp, 20000));
    QVERIFY2(m_peer.state() == QProcess::Running,
             "The second peer did not start: " + m_peer.readAllStandardError().trimmed());
    m_controlPort = events("ready").first()["control"].toInt();
    m_updatePort = events("ready").first()["update"].toInt();
}

void SecondPeerTest::cleanup()
{
    m_peer.closeWriteChannel();
    const bool ended = m_peer.waitForFinished(10000);
    const auto complaints = m_peer.readAllStandardError();
    TestBase::cleanup();
    QVERIFY(ended);
    QCOMPARE(complaints, QByteArray());
    QCOMPARE(m_peer.exitCode(), 0);
}

void SecondPeerTest::readEvents()
{
    while (m_peer.canReadLine())
        m_events << QJsonDocument::fromJson(m_peer.readLine()).object();
}

QList<QJsonObject> SecondPeerTest::events(const QString &name) const
{
    QList<QJsonObject> result;
    for (const auto &event : m_events) {
        if (event["event"].toString() == name)
            result << event;
    }
    return result;
}

QList<QJsonObject> SecondPeerTest::requests(const QString &resource) const
{
    QList<QJsonObject> result;
    for (const auto &request : events("request")) {
        if (request["resource"].toString() == resource)
            result << request;
    }
    return result;
}

bool SecondPeerTest::command(const QByteArray &word)
{
    const int before = events("done").size();
    m_peer.write(word + "\n");
    return QTest::qWaitFor([&] { return events("done").size() > before; }, patience);
}

bool SecondPeerTest::logIn(TestCommunicator &link)
{
    link.init(" 127.0.0.1 ", "инженер", "пароль", m_controlPort, m_updatePort);
    return QTest::qWaitFor([&] { return link.getStatus() == Link::Connected && events("subscribed").size() >= 18; },
                           10000);
}

void SecondPeerTest::loginGoesThroughToTheLists()
{
    TestCommunicator link(scaledTimings());
    QVERIFY(logIn(link));

    QStringList topics;
    for (const auto &event : events("subscribed"))
        topics << event["topic"].toString();
    topics.sort();
    QStringList expected{"device_states",    "device_types/ru_RU", "action_nodes/ru_RU",
                         "button_states",    "device_modes",       "users",
                         "settings",         "shop_parts",         "zones",
                         "buttons",          "indicators",         "devices",
                         "blueprints/ru_RU", "schedules",          "image_items",
                         "indicator_states", "view_3d_items",      "power_on_statistics"};
    expected.sort();
    QCOMPARE(topics, expected);
    QCOMPARE(link.getUserGroup(), QString("admin"));

    QVERIFY(command("publish"));
    const auto &cache = link.getDataCache();
    QTRY_COMPARE(cache.getDeviceDescriptors().size(), size_t(1));
    QCOMPARE(cache.getDeviceStates().at(0).state, (QVariantMap{{"power", 40}, {"brightness", 12.5}}));
    const auto type = cache.getDeviceTypes().at(0);
    QCOMPARE(type.url, QUrl("Lamp.qml"));
    QCOMPARE(type.name, QString("Лампа"));
    QCOMPARE(type.commonType, QString("lamp"));
    QCOMPARE(type.sortOrder, 3);
    QCOMPARE(type.tags, QStringList{"light"});
    QVERIFY(type.uniqueAddress);
    QCOMPARE(type.parameters.size(), size_t(1));
    QCOMPARE(type.parameters.at(0).defaultValue.toInteger(), 10LL);
    QVERIFY(cache.getDeviceModes().at(0).mode == Model::DeviceMode::Mode::Manual);
    QCOMPARE(cache.getUsers().at(0).group, QString("admin"));
    QVERIFY(!cache.getUsers().at(0).zonesWhitelist);
    QCOMPARE(cache.getShopParts().at(0).name, QString("Первый этаж"));
    const auto zone = cache.getZones().at(0);
    QCOMPARE(zone.uid, QUuid("{11111111-1111-1111-1111-111111111111}"));
    QCOMPARE(zone.partUid, QUuid("{22222222-2222-2222-2222-222222222222}"));
    QCOMPARE(zone.name, QString("Холл"));
    QCOMPARE(zone.position.y, 20.5);
    QCOMPARE(zone.width, 300.0);
    const auto device = cache.getDeviceDescriptors().at(0);
    QCOMPARE(device.address, 17);
    QVERIFY(device.radioType == Model::RadioStatus::DeviceType::Mrf);
    QCOMPARE(device.data.value("name").toString(), QString("Лампа 1"));
    QCOMPARE(link.property("versionMajor").toInt(), 4);
    QCOMPARE(link.property("versionMinor").toInt(), 5);
    QCOMPARE(link.property("versionPatch").toInt(), 2);
    QTRY_COMPARE(cache.getTime(), QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5), Qt::UTC));
    QTRY_COMPARE(cache.getTimeInfo().timezone, QString("Europe/Moscow"));
    QCOMPARE(link.errors.size(), size_t(0));
}

void SecondPeerTest::documentsAreExactToTheKey()
{
    TestCommunicator link(scaledTimings());
    QVERIFY(logIn(link));
    QTRY_VERIFY(requests("ping").size() >= 1 && requests("system_time").size() >= 1);

    QCOMPARE(requests("auth").first()["document"].toObject(),
             json(R"({"method":"POST","link":"auth/","included":[],"client_version":"4.5.2",
                      "data":[{"type":"auth","id":"1",
                               "attributes":{"login":"инженер","password":"пароль","locale":"ru_RU"}}]})"));
    QCOMPARE(requests("ping").first()["document"].toObject(),
             json(R"({"method":"POST","link":"ping/","included":[],"client_version":"4.5.2",
                      "data":[{"type":"","id":""}]})"));
    QCOMPARE(requests("system_time").first()["document"].toObject(),
             json(R"({"method":"GET","link":"system_time","included":[],"client_version":"4.5.2","data":[]})"));
    for (const auto &request : events("request")) {
        QCOMPARE(request["delimiter"].toInt(), 0);
        QCOMPARE(request["version"].toInt(), 0);
        QCOMPARE(request["flags"].toInt(), 6); // JSON, packed
    }
}

void SecondPeerTest::repliesArriveInBothForms()
{
    TestCommunicator link(scaledTimings());
    QVERIFY(logIn(link));
    std::vector<QUuid> uids;
    Model::Zone zone;
    zone.name = QStringLiteral("Новая");

    for (int i = 0; i < 4; ++i) // the peer packs every other reply
        link.addZones({zone},
                      [&](const std::vector<QUuid> &list) { uids.insert(uids.end(), list.begin(), list.end()); });

    QTRY_COMPARE(uids, std::vector<QUuid>(4, QUuid("{11111111-1111-1111-1111-111111111111}")));
    QTRY_COMPARE(requests("zones").size(), 4); // what the peer tells comes by its own road
    QCOMPARE(requests("zones").first()["document"].toObject(),
             json(R"({"method":"POST","link":"zones","included":[],"client_version":"4.5.2",
                      "data":[{"type":"zone","id":"{00000000-0000-0000-0000-000000000000}",
                               "attributes":{"part_uid":"{00000000-0000-0000-0000-000000000000}","name":"Новая",
                                             "x":0,"y":0,"width":100,"height":100}}]})"));
}

void SecondPeerTest::errorsOfThePeerAreShown()
{
    TestCommunicator link(scaledTimings());
    QVERIFY(logIn(link));

    link.factoryReset();

    QTRY_COMPARE(link.errorCodes, (QStringList{"unknown_resource", "unknown_resource"}));
    QCOMPARE(link.errors.at(0).at(0).title, QString("нет"));
    QCOMPARE(link.errors.at(0).at(0).detail, QString("system_factory_reset"));
    QCOMPARE(link.getStatus(), Link::Connected);
}

void SecondPeerTest::pingsComeAtTheirInterval()
{
    auto timings = scaledTimings();
    timings.pingInterval = 200;
    TestCommunicator link(timings);
    QVERIFY(logIn(link));

    QTRY_VERIFY(requests("ping").size() >= 6); // the first at the login, then by the clock

    const auto pings = requests("ping");
    const int spent = pings.at(5)["ms"].toInt() - pings.at(1)["ms"].toInt();
    QVERIFY2(spent >= 600, qPrintable(QString::number(spent)));
    QCOMPARE(link.logins, 1);
}

void SecondPeerTest::muteServerIsTriedInItsRhythm()
{
    TestCommunicator link(scaledTimings());
    QVERIFY(logIn(link));
    QVERIFY(command("mute"));

    QTRY_VERIFY_WITH_TIMEOUT(requests("auth").size() >= 6, 20000);

    const auto logins = requests("auth");
    for (int i = 2; i < 6; ++i) {
        const int gap = logins.at(i)["ms"].toInt() - logins.at(i - 1)["ms"].toInt();
        QVERIFY2(gap >= 250, qPrintable(QString::number(gap))); // the reply's time and the slack of the check
    }
    QCOMPARE(link.getStatus(), Link::Connecting);
    QVERIFY(command("speak"));
    QTRY_COMPARE(link.getStatus(), Link::Connected);
}

void SecondPeerTest::idsCountUpThroughAReconnect()
{
    TestCommunicator link(scaledTimings());
    QVERIFY(logIn(link));
    link.reconnect();
    QTRY_COMPARE(link.getStatus(), Link::Connected);
    QTRY_VERIFY(requests("ping").size() >= 2);

    int last = 0;
    for (const auto &request : events("request")) {
        const int counter = request["counter"].toInt();
        QVERIFY2(counter > last, qPrintable(QString("%1 after %2").arg(counter).arg(last)));
        last = counter;
    }
    QCOMPARE(requests("auth").size(), 2);
}

ONDIRA_TEST(SecondPeerTest)
#include "SecondPeerTest.moc"
