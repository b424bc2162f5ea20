// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/DemoServer.h"
#include "Peer.h"
#include "SiteFixture.h"
#include "support/TestBase.h"

#include <QJsonArray>
#include <memory>

using Demo::DemoServer;
using namespace SiteFixture;

namespace {

DemoServer::Settings settings(const DemoServer::Faults &faults = {})
{
    DemoServer::Settings settings;
    settings.controlPort = 0;
    settings.updatePort = 0;
    settings.tick = 0;
    settings.faults = faults;
    return settings;
}

QDateTime noon()
{
    return QDateTime(QDate(2026, 6, 1), QTime(13, 0), Qt::UTC);
}

std::unique_ptr<DemoServer> started(const DemoServer::Settings &settings)
{
    auto server = std::make_unique<DemoServer>(data(), settings, noon);
    QString error;
    if (!server->start(&error))
        qWarning("%s", qPrintable(error));
    return server;
}

QByteArray ping()
{
    return document("POST", "ping/", R"([{"type": "", "id": ""}])");
}

QByteArray powerTo(int power)
{
    const QByteArray zones = R"("zones": [")" + QByteArray(till) + "\"]";
    return document("POST", "oneshot_blueprint",
                    R"([{"type": "oneshot_blueprint", "id": "{00000ec0-0005-0000-0000-000000000005}",
                         "attributes": {)"
                        + zones + R"(, "properties": []}},
                        {"type": "oneshot_blueprint", "id": "{00000ec0-0002-0000-0000-000000000002}",
                         "attributes": {)"
                        + zones + R"(, "properties": [{"node": "", "property": "power",
                         "value": {"type": "integer", "value": )"
                        + QByteArray::number(power) + "}}]}}]");
}

int publishedPower(const Peer &peer)
{
    const auto first = peer.list("device_states").value("data").toArray().first().toObject();
    return first.value("attributes").toObject().value("state").toObject().value("power").toInt(-1);
}

QString publishedMode(const Peer &peer)
{
    const auto first = peer.list("device_modes").value("data").toArray().first().toObject();
    return first.value("attributes").toObject().value("mode").toString();
}

} // namespace

class DemoServerTest : public TestBase
{
    Q_OBJECT

private slots:
    void loginThenListsThenPower();
    void laterSubscriberGetsItsListsToo();
    void peersDoNotShareASession();
    void restartedServerHasForgottenItsPeers();
    void portInUseIsTold();
    void badAddressIsTold();
    void timePasses();
    void unreadableFramesAreDropped_data();
    void unreadableFramesAreDropped();
    void manySpoiltMessagesLeaveItAlive();
    void silentServerNeverAnswers();
    void slowServerAnswersLater();
    void droppingServerLosesEveryNthReply();
    void garbageComesBetweenGoodMessages();
    void publishesNothingWhenToldSo();
    void stopsTwice();
    void siteWithoutAPastGetsOne();
    void siteKeepsItsOwnPast();
};

void DemoServerTest::loginThenListsThenPower()
{
    const auto server = started(settings());
    Peer peer(server->controlPort(), server->updatePort());

    const auto early = peer.ask(ping());
    QTRY_VERIFY(peer.hasReply(early));
    QCOMPARE(codes(peer.reply(early)), QStringList("auth_needed"));

    const auto login = peer.ask(loginDocument("admin", "secret"));
    QTRY_VERIFY(peer.hasReply(login));
    QCOMPARE(codes(peer.reply(login)), QStringList());

    QByteArrayList topics;
    for (const auto &topic : Demo::Publisher::plainTopics())
        topics << topic;
    for (const auto &topic : Demo::Publisher::localizedTopics())
        topics << topic + "/ru_RU";
    QCOMPARE(topics.size(), 18);
    for (const auto &topic : topics)
        peer.subscribe(topic);
    for (const auto &topic : topics)
        QTRY_VERIFY2(peer.has(topic), topic);
    QCOMPARE(peer.list("zones").value("data").toArray().size(), 2);
    QCOMPARE(publishedMode(peer), QString("Auto"));

    const auto run = peer.ask(powerTo(77));
    QTRY_COMPARE(publishedPower(peer), 77);
    QTRY_COMPARE(publishedMode(peer), QString("Manual"));
    QVERIFY(peer.hasReply(run));
    QCOMPARE(codes(peer.reply(run)), QStringList());
    QCOMPARE(peer.count("device_states"), 2); // one publication for all that the request did
    QCOMPARE(peer.count("zones"), 1);
    QCOMPARE(peer.unreadable(), 0);
}

void DemoServerTest::laterSubscriberGetsItsListsToo()
{
    const auto server = started(settings());
    Peer first(server->controlPort(), server->updatePort());
    first.subscribe("zones");
    QTRY_VERIFY(first.has("zones"));

    Peer second(server->controlPort(), server->updatePort());
    second.subscribe("zones");

    QTRY_VERIFY(second.has("zones"));
}

void DemoServerTest::peersDoNotShareASession()
{
    const auto server = started(settings());
    Peer first(server->controlPort(), server->updatePort());
    Peer second(server->controlPort(), server->updatePort());
    const auto login = first.ask(loginDocument("admin", "secret"));
    QTRY_VERIFY(first.hasReply(login));

    const auto allowed = first.ask(ping());
    const auto refused = second.ask(ping());

    QTRY_VERIFY(first.hasReply(allowed) && second.hasReply(refused));
    QCOMPARE(codes(first.reply(allowed)), QStringList());
    QCOMPARE(codes(second.reply(refused)), QStringList("auth_needed"));
}

void DemoServerTest::restartedServerHasForgottenItsPeers()
{
    auto server = started(settings());
    auto again = settings();
    again.controlPort = server->controlPort();
    again.updatePort = server->updatePort();
    Peer peer(server->controlPort(), server->updatePort());
    peer.subscribe("device_states");
    const auto login = peer.ask(loginDocument("admin", "secret"));
    QTRY_VERIFY(peer.hasReply(login) && peer.has("device_states"));
    const int before = peer.count("device_states");

    server.reset();
    server = started(again);

    QTRY_VERIFY(peer.count("device_states") > before); // a connection anew is a subscription anew
    const auto lost = peer.ask(ping());
    QTRY_VERIFY(peer.hasReply(lost));
    QCOMPARE(codes(peer.reply(lost)), QStringList("auth_needed"));
    const auto back = peer.ask(loginDocument("admin", "secret"));
    QTRY_VERIFY(peer.hasReply(back));
    QCOMPARE(codes(peer.reply(back)), QStringList());
}

void DemoServerTest::portInUseIsTold()
{
    const auto server = started(settings());
    auto same = settings();
    same.updatePort = server->updatePort();
    DemoServer second(data(), same);
    QString error;

    QVERIFY(!second.start(&error));

    QVERIFY2(error.contains("in use"), qPrintable(error));
    Peer peer(server->controlPort(), server->updatePort()); // the first is not disturbed
    const auto login = peer.ask(loginDocument("admin", "secret"));
    QTRY_VERIFY(peer.hasReply(login));
}

void DemoServerTest::badAddressIsTold()
{
    auto nowhere = settings();
    nowhere.bind = "no such host";
    DemoServer server(data(), nowhere);
    QString error;

    QVERIFY(!server.start(&error));
    QVERIFY(!error.isEmpty());
}

void DemoServerTest::timePasses()
{
    auto given = data();
    for (auto &device : given.devices)
        device.descriptor.data.insert("pollingInterval", 1000);
    auto fast = settings();
    fast.tick = 5;
    DemoServer server(given, fast, noon);
    QString error;
    QVERIFY2(server.start(&error), qPrintable(error));
    Peer peer(server.controlPort(), server.updatePort());
    peer.subscribe("device_states");
    peer.subscribe("zones");
    QTRY_VERIFY(peer.has("device_states") && peer.has("zones"));
    const auto before = peer.list("device_states");

    QTRY_VERIFY(peer.list("device_states") != before); // within the first polls of four devices
    QCOMPARE(peer.count("zones"), 1);
}

void DemoServerTest::unreadableFramesAreDropped_data()
{
    QTest::addColumn<QList<QByteArray>>("frames");

    const QByteArray header = QByteArray("\0\2zones:1", 9);
    QTest::newRow("no delimiter") << QList<QByteArray>{header, "{}"};
    QTest::newRow("nothing but a delimiter") << QList<QByteArray>{""};
    QTest::newRow("no body") << QList<QByteArray>{"", header};
    QTest::newRow("one frame too many") << QList<QByteArray>{"", header, "{}", "{}"};
    QTest::newRow("delimiter is not empty") << QList<QByteArray>{"x", header, "{}"};
    QTest::newRow("empty header") << QList<QByteArray>{"", "", "{}"};
    QTest::newRow("header of one byte") << QList<QByteArray>{"", QByteArray("\0", 1), "{}"};
}

void DemoServerTest::unreadableFramesAreDropped()
{
    QFETCH(QList<QByteArray>, frames);
    const auto server = started(settings());
    Peer peer(server->controlPort(), server->updatePort());

    peer.send(frames);
    const auto next = peer.ask(ping()); // sent after it and answered after it

    QTRY_VERIFY(peer.hasReply(next));
    QCOMPARE(peer.replies(), 1);
    QCOMPARE(peer.unreadable(), 0);
}

void DemoServerTest::manySpoiltMessagesLeaveItAlive()
{
    allowMessages("Byte consumer|bytes|damaged");
    const auto server = started(settings());
    Peer peer(server->controlPort(), server->updatePort());
    peer.subscribe("zones");
    const auto login = peer.ask(loginDocument("admin", "secret"));
    QTRY_VERIFY(peer.hasReply(login));
    Demo::Garbage garbage(31);

    for (int i = 0; i < 500; ++i) {
        peer.send(garbage.frames());
        if (i % 100 == 0) {
            const auto alive = peer.ask(document("GET", "users"));
            QTRY_VERIFY(peer.hasReply(alive));
            QCOMPARE(codes(peer.reply(alive)), QStringList());
        }
    }

    const auto last = peer.ask(ping());
    QTRY_VERIFY(peer.hasReply(last));
    QCOMPARE(peer.unreadable(), 0); // every answer to nonsense is sense
}

void DemoServerTest::silentServerNeverAnswers()
{
    DemoServer::Faults faults;
    faults.silent = true;
    const auto server = started(settings(faults));
    Peer peer(server->controlPort(), server->updatePort());

    peer.ask(loginDocument("admin", "secret"));
    peer.subscribe("zones"); // by the time this is answered the request has long arrived

    QTRY_VERIFY(peer.has("zones"));
    server->site().setMode(QUuid(lamp), Model::DeviceMode::Mode::Manual);
    peer.subscribe("device_modes");
    QTRY_VERIFY(peer.has("device_modes"));
    QCOMPARE(peer.replies(), 0);
    QCOMPARE(peer.unreadable(), 0);
}

void DemoServerTest::slowServerAnswersLater()
{
    DemoServer::Faults faults;
    faults.slow = 150;
    const auto server = started(settings(faults));
    Peer peer(server->controlPort(), server->updatePort());
    QElapsedTimer waited;
    waited.start();

    const auto login = peer.ask(loginDocument("admin", "secret"));

    QTRY_VERIFY(peer.hasReply(login));
    QVERIFY(waited.elapsed() >= 150);
}

void DemoServerTest::droppingServerLosesEveryNthReply()
{
    DemoServer::Faults faults;
    faults.drop = 3;
    const auto server = started(settings(faults));
    Peer peer(server->controlPort(), server->updatePort());
    QList<QByteArray> ids;

    for (int i = 0; i < 7; ++i)
        ids << peer.ask(ping());

    QTRY_VERIFY(peer.hasReply(ids.last()));
    for (int i = 0; i < 7; ++i)
        QCOMPARE(peer.hasReply(ids.at(i)), i % 3 != 2);
}

void DemoServerTest::garbageComesBetweenGoodMessages()
{
    allowMessages("qUncompress"); // of the peer, which unpacks what it gets
    DemoServer::Faults faults;
    faults.garbage = true;
    const auto server = started(settings(faults));
    Peer peer(server->controlPort(), server->updatePort());
    peer.subscribe("zones");
    peer.subscribe("users");

    for (int i = 0; i < 20; ++i) {
        const auto id = peer.ask(ping());
        QTRY_VERIFY(peer.hasReply(id));
        QCOMPARE(codes(peer.reply(id)), QStringList("auth_needed"));
    }

    QTRY_VERIFY(peer.has("zones") && peer.has("users"));
    QVERIFY(peer.unreadable() > 10);
}

void DemoServerTest::publishesNothingWhenToldSo()
{
    DemoServer::Faults faults;
    faults.noPublications = true;
    const auto server = started(settings(faults));
    Peer peer(server->controlPort(), server->updatePort());
    peer.subscribe("zones");
    peer.subscribe("device_states");

    const auto login = peer.ask(loginDocument("admin", "secret"));
    QTRY_VERIFY(peer.hasReply(login));
    for (int i = 0; i < 20; ++i) { // each takes a poll of both sockets
        const auto run = peer.ask(powerTo(i));
        QTRY_VERIFY(peer.hasReply(run));
    }

    QVERIFY(!peer.has("zones"));
    QVERIFY(!peer.has("device_states"));
    QCOMPARE(server->site().device(QUuid(lamp))->state.value("power").toInt(), 19);
}

void DemoServerTest::stopsTwice()
{
    const auto server = started(settings());

    server->stop();
    server->stop();
    server->site().setMode(QUuid(lamp), Model::DeviceMode::Mode::Manual); // has nobody to tell
    QString error;

    QVERIFY2(server->start(&error), qPrintable(error));
    Peer peer(server->controlPort(), server->updatePort());
    const auto login = peer.ask(loginDocument("admin", "secret"));
    QTRY_VERIFY(peer.hasReply(login));
}

void DemoServerTest::siteWithoutAPastGetsOne()
{
    DemoServer server(fullData(), settings(), noon);

    const auto &entries = server.site().data().journal.entries();

    QVERIFY(entries.size() > 1000);
    QVERIFY(entries.front().time < noon().addDays(-360));
    QCOMPARE(entries.back().action, Demo::JournalTexts::serverStarted());
    QCOMPARE(entries.back().cause, Model::LogEntry::Cause::System);
    QCOMPARE(entries.back().time, noon());
}

void DemoServerTest::siteKeepsItsOwnPast()
{
    auto site = fullData();
    site.journal.add({noon().addYears(-3), Model::LogEntry::Cause::User, "anna", "long ago"});
    DemoServer server(site, settings(), noon);

    const auto &entries = server.site().data().journal.entries();

    QCOMPARE(entries.size(), size_t(2));
    QCOMPARE(entries.front(), site.journal.entries().front());
    server.site().reset();
    QCOMPARE(server.site().data().journal.entries().size(), size_t(1)); // as delivered
}

ONDIRA_TEST(DemoServerTest)
#include "DemoServerTest.moc"
