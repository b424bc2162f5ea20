// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestLink.h"
#include "support/JsonLeaks.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <zlib.h>

using Link = AbstractBackendCommunicator;

namespace {

const QByteArray oneZone = R"({"data":[{"type":"zone","id":"{11111111-1111-1111-1111-111111111111}"}]})";

void settle(int ms = 60)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

// A packed body of a few hundred kilobytes that unpacks to that many mebibytes of blanks.
QByteArray bomb(int mebibytes, quint32 declaredSize)
{
    const QByteArray blanks(1024 * 1024, ' ');
    z_stream stream{};
    deflateInit(&stream, Z_BEST_SPEED);
    QByteArray packed;
    const auto step = [&](int size, int flush) {
        QByteArray room(64 * 1024, '\0');
        stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(blanks.constData()));
        stream.avail_in = static_cast<uInt>(size);
        stream.next_out = reinterpret_cast<Bytef *>(room.data());
        stream.avail_out = static_cast<uInt>(room.size());
        deflate(&stream, flush);
        return room.left(room.size() - static_cast<int>(stream.avail_out));
    };
    packed += step(blanks.size(), Z_FULL_FLUSH);
    const auto block = step(blanks.size(), Z_FULL_FLUSH); // complete in itself, so it may be repeated
    deflateEnd(&stream);
    for (int i = 1; i < mebibytes; ++i)
        packed += block;
    QByteArray size(4, '\0');
    for (int i = 0; i < 4; ++i)
        size[i] = static_cast<char>(declaredSize >> (24 - 8 * i));
    return size + packed;
}

// Stands between the link and a port, and cuts each connection when so many bytes have come from the server.
class CuttingProxy : public QTcpServer
{
public:
    CuttingProxy(int port, int cutAfter)
        : m_port(static_cast<quint16>(port))
        , cutAfter(cutAfter)
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, &CuttingProxy::accept);
    }

private:
    void accept()
    {
        auto *client = nextPendingConnection();
        auto *server = new QTcpSocket(client);
        ++connections;
        connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
        connect(client, &QTcpSocket::readyRead, server, [=] { server->write(client->readAll()); });
        connect(server, &QTcpSocket::readyRead, client, [=] {
            const auto bytes = server->readAll();
            const int allowed = cutAfter - client->property("sent").toInt();
            client->setProperty("sent", client->property("sent").toInt() + bytes.size());
            if (bytes.size() < allowed) {
                client->write(bytes);
                return;
            }
            client->write(bytes.left(qMax(0, allowed)));
            client->disconnectFromHost();
        });
        server->connectToHost(QHostAddress::LocalHost, m_port);
    }

    quint16 m_port;

public:
    int cutAfter;
    int connections = 0;
};

} // namespace

// Whatever a server sends, the program lives, keeps turning, and finds back to a server that behaves.
class HostileServerTest : public TestBase
{
    Q_OBJECT

private slots:
    void unusableFramesAreDropped_data();
    void unusableFramesAreDropped();
    void unknownFlagsAreNoHarm();
    void replyOfUnknownIdIsPassedOver();
    void wronglyPackedBodyIsAnEmptyDocument_data();
    void wronglyPackedBodyIsAnEmptyDocument();
    void bombIsDropped_data();
    void bombIsDropped();
    void oddDocumentsAreSurvived_data();
    void oddDocumentsAreSurvived();
    void messageOfManyFramesIsSurvived();
    void oversizeReplyIsALostReply();
    void peerThatAcceptsAndSaysNothing();
    void peerThatTalksGarbage();
    void peerThatClosesInTheMiddle();
    void everyThirdReplyIsLost();
    void floodOfRepliesLeavesTheLoopTurning();
    void floodOfPublicationsWhileTheLoopIsHeld();
};

void HostileServerTest::unusableFramesAreDropped_data()
{
    QTest::addColumn<QList<QByteArray>>("frames");

    const auto header = FakeServer::header(FakeServer::Json, "ID");
    using Frames = QList<QByteArray>;
    QTest::newRow("nothing") << Frames{};
    QTest::newRow("one frame") << Frames{"zones"};
    QTest::newRow("one empty frame") << Frames{""};
    QTest::newRow("no delimiter") << Frames{"zones", header, oneZone};
    QTest::newRow("delimiter at the end") << Frames{"zones", header, oneZone, ""};
    QTest::newRow("no body") << Frames{"zones", "", header};
    QTest::newRow("nothing but delimiters") << Frames{"", "", "", "", ""};
    QTest::newRow("empty header") << Frames{"zones", "", "", oneZone};
    QTest::newRow("header of one byte") << Frames{"zones", "", QByteArray(1, '\0'), oneZone};
    QTest::newRow("neither JSON nor raw") << Frames{"zones", "", FakeServer::header(0, "ID"), oneZone};
    QTest::newRow("only packed") << Frames{"zones", "", FakeServer::header(4, "ID"), qCompress(oneZone)};
    QTest::newRow("only an unknown flag") << Frames{"zones", "", FakeServer::header(0xf8, "ID"), oneZone};
}

void HostileServerTest::unusableFramesAreDropped()
{
    QFETCH(QList<QByteArray>, frames);
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    QSignalSpy zones(&link, &Link::zonesReceived);
    int calls = 0;
    const auto handler = link.request("a");
    handler->onReply([&](const QByteArray &) { ++calls; });
    handler->onBinaryReply([&](const QByteArray &) { ++calls; });
    link.seenReplies.clear();
    for (auto &frame : frames) {
        if (frame.endsWith("ID"))
            frame = frame.chopped(2) + handler->id();
    }

    link.onReplyMessageReceived(frames);
    link.onSubMessageReceived(frames);
    QTRY_COMPARE(server.count("a"), 1);
    if (!frames.isEmpty()) {
        server.sendFrames(server.last("a").peer, frames);
        server.publishFrames(frames);
    }
    server.publish("zones", oneZone);
    QTRY_VERIFY(zones.size() >= 1);

    QCOMPARE(zones.size(), 1);
    QCOMPARE(link.seenReplies.count(handler->id()), 0);
    QCOMPARE(calls, 0);
    QVERIFY(!handler->receivedReply());
    QCOMPARE(link.getStatus(), Link::Connected);
}

void HostileServerTest::unknownFlagsAreNoHarm()
{
    TestCommunicator link;
    QSignalSpy zones(&link, &Link::zonesReceived);

    link.onSubMessageReceived({"zones", "", FakeServer::header(0xf8 | FakeServer::Json, "x"), oneZone});
    link.onSubMessageReceived({"zones", "", FakeServer::header(FakeServer::Raw | FakeServer::Json, "x"), oneZone});
    link.onSubMessageReceived({"zones", "", QByteArray("\x7f\x02zones"), oneZone}); // a later version of the header

    QCOMPARE(zones.size(), 3);
}

void HostileServerTest::replyOfUnknownIdIsPassedOver()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    const auto peer = server.last("auth").peer;
    link.seenReplies.clear();

    for (const QByteArray &id : {QByteArray("zones:999999999"), QByteArray(""), QByteArray(1000000, 'x')})
        server.sendFrames(peer, {"", FakeServer::header(FakeServer::Json, id), "{}"});

    QTRY_COMPARE(link.seenReplies.size(), 3);
    QCOMPARE(link.getStatus(), Link::Connected);
    QCOMPARE(link.errors.size(), size_t(0));
}

void HostileServerTest::wronglyPackedBodyIsAnEmptyDocument_data()
{
    QTest::addColumn<QByteArray>("body");

    QTest::newRow("not packed") << oneZone;
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("three bytes") << QByteArray("\0\0\0", 3);
    QTest::newRow("only a size") << QByteArray("\0\0\0\x10", 4);
    QTest::newRow("cut short") << qCompress(oneZone).chopped(8);
    QTest::newRow("damaged inside") << qCompress(oneZone).replace(14, 6, "damage");
    QTest::newRow("declared size of 4 GiB") << QByteArray("\xff\xff\xff\xff", 4) + qCompress(oneZone).mid(4);
}

void HostileServerTest::wronglyPackedBodyIsAnEmptyDocument()
{
    QFETCH(QByteArray, body);
    TestCommunicator link;
    link.getDataCache().setZones({Model::Zone()});
    QSignalSpy zones(&link, &Link::zonesReceived);

    link.onSubMessageReceived(
        {"zones", "", FakeServer::header(FakeServer::Json | FakeServer::Compressed, "zones"), body});

    QCOMPARE(zones.size(), 1);
    QVERIFY(link.getDataCache().getZones().empty());
    QCOMPARE(link.errors.size(), size_t(0));
}

void HostileServerTest::bombIsDropped_data()
{
    QTest::addColumn<quint32>("declaredSize");

    QTest::newRow("that tells its size") << quint32(1024u * 1024u * 1024u);
    QTest::newRow("that tells 16 bytes") << quint32(16);
}

void HostileServerTest::bombIsDropped()
{
    QFETCH(quint32, declaredSize);
    const auto body = bomb(1024, declaredSize);
    QVERIFY(body.size() < 8 * 1024 * 1024);
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    QSignalSpy zones(&link, &Link::zonesReceived);
    expectMessage(QtWarningMsg, "^A packed body of .* unpacks to more than");
    QElapsedTimer elapsed;
    elapsed.start();

    server.publishFrames({"zones", "", FakeServer::header(FakeServer::Json | FakeServer::Compressed, "zones"), body});
    server.publish("zones", oneZone);
    QTRY_COMPARE_WITH_TIMEOUT(zones.size(), 1, 30000);

    QCOMPARE(link.getDataCache().getZones().size(), size_t(1));
    QCOMPARE(link.getStatus(), Link::Connected);
}

void HostileServerTest::oddDocumentsAreSurvived_data()
{
    QTest::addColumn<QByteArray>("body");

    const QByteArray uid("{11111111-1111-1111-1111-111111111111}");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("one bracket") << QByteArray("{");
    QTest::newRow("cut short") << oneZone.chopped(5);
    QTest::newRow("two documents") << oneZone + oneZone;
    QTest::newRow("an array") << QByteArray("[1,2,3]");
    QTest::newRow("null") << QByteArray("null");
    QTest::newRow("a number") << QByteArray("7");
    QTest::newRow("nested lists") << QByteArray(100000, '[') + QByteArray(100000, ']');
    QTest::newRow("nested attributes") << R"({"data":[{"attributes":{"state":)" + QByteArray(1000, '[')
            + QByteArray(1000, ']') + "}}]}";
    QTest::newRow("nested below the limit")
        << R"({"data":[{"attributes":{"state":{"a":)" + QByteArray(400, '[') + QByteArray(400, ']') + "}}}]}";
    QTest::newRow("data is a text") << QByteArray(R"({"data":"zones"})");
    QTest::newRow("data is a number") << QByteArray(R"({"data":12})");
    QTest::newRow("data is null") << QByteArray(R"({"data":null})");
    QTest::newRow("data of nulls") << QByteArray(R"({"data":[null,null]})");
    QTest::newRow("data of numbers") << QByteArray(R"({"data":[1,2.5,-3,true]})");
    QTest::newRow("data of lists") << QByteArray(R"({"data":[[],[[]],[1]]})");
    QTest::newRow("wrong types") << QByteArray(
        R"({"data":[{"type":7,"id":[],"attributes":[1],"relationships":"x"},{"type":{},"id":{},"attributes":"x"}]})");
    QTest::newRow("wrong attributes") << QByteArray(
        R"({"data":[{"type":"zone","id":"?","attributes":{"name":{"a":1},"x":"left","width":null,"state":[1,2],
            "parameters":"x","tags":7,"zones_whitelist":"all","access_list":[[],{}],"data":3,"address":1e300}}]})");
    QTest::newRow("numbers out of range") << QByteArray(
        R"({"data":[{"id":")" + uid + R"(","attributes":{"x":1e308,"y":-1e308,"address":99999999999999999999,
            "version":-1,"radio_index":2147483648,"sort_order":1e99}}]})");
    QTest::newRow("relationships of a wrong shape") << QByteArray(
        R"({"data":[{"type":"response","relationships":{"added":[1],"changed":{"data":7},"deleted":{"data":[7]}}}]})");
    QTest::newRow("errors is a text") << QByteArray(R"({"errors":"broken","data":[]})");
    QTest::newRow("errors is an object") << QByteArray(R"({"errors":{"code":"x"},"data":[]})");
    QTest::newRow("version is a list") << QByteArray(R"({"server_version":[4,5,2],"data":[]})");
    QTest::newRow("version of many numbers") << R"({"server_version":")" + QByteArray("9.").repeated(10000) + R"(9"})";
    QTest::newRow("included of a wrong type") << QByteArray(R"({"data":[],"included":{"included":7}})");
    QTest::newRow("not UTF-8") << QByteArray("{\"data\":[{\"id\":\"\xff\xfe\x80\"}]}");
    QTest::newRow("zero bytes") << QByteArray("{\"da\0ta\":[]}", 12);
    QTest::newRow("a key twice") << QByteArray(R"({"data":[],"data":[{"id":"1"}],"data":7})");
    QTest::newRow("long text") << R"({"data":[{"id":")" + QByteArray(3000000, 'x') + R"("}]})";
}

void HostileServerTest::oddDocumentsAreSurvived()
{
    QFETCH(QByteArray, body);
    allowMessages("Unknown parameter type:");
    const JsonLeaks uncounted;
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    link.addZones({}, [](const std::vector<QUuid> &) {});
    link.getUserList([](const std::vector<Model::UserInfo> &) {});
    link.getSystemTime();
    link.ping();
    link.getAvailableComPorts();
    link.getBackup({});
    link.restoreBackup("x", [] {});
    QTRY_COMPARE(server.count("system_backup_restore"), 1);
    const auto requests = server.requests;
    QSignalSpy zones(&link, &Link::zonesReceived);

    for (const auto &request : requests) {
        if (request.resource() != "auth")
            server.reply(request, body);
    }
    const auto topics = link.subscriptionTopics();
    for (const auto &topic : topics)
        server.publish(topic.toUtf8(), body);
    server.publish("zones", oneZone);

    QTRY_COMPARE(link.getDataCache().getZones().size(), size_t(1));
    QTRY_COMPARE(link.getDataCache().getZones().at(0).uid, QUuid("{11111111-1111-1111-1111-111111111111}"));
    QTRY_COMPARE(link.seenReplies.size(), int(requests.size()));
    QCOMPARE(link.getStatus(), Link::Connected);
}

void HostileServerTest::messageOfManyFramesIsSurvived()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    QSignalSpy zones(&link, &Link::zonesReceived);
    QList<QByteArray> frames{"zones"};
    for (int i = 0; i < 20000; ++i)
        frames << QByteArray("x");
    frames << "" << FakeServer::header(FakeServer::Json, "x") << oneZone;

    QVERIFY(server.publishFrames(frames));

    QTRY_COMPARE(zones.size(), 1);
}

void HostileServerTest::oversizeReplyIsALostReply()
{
    auto timings = testTimings();
    timings.quickReply = 300;
    timings.reply = 300;
    FakeServer server;
    server.answer = [&](const FakeServer::Request &request) {
        if (request.resource() == "auth")
            server.answerLogin(request);
        else if (request.resource() != "users")
            server.reply(request, "{}");
    };
    TestCommunicator link(timings);
    link.setLargestMessage(100000);
    QVERIFY(logIn(link, server));
    int calls = 0;
    link.getUserList([&](const std::vector<Model::UserInfo> &) { ++calls; });
    QTRY_COMPARE(server.count("users"), 1);

    server.reply(server.last("users"), QByteArray(100001, ' ')); // the library closes the connection for good

    QTRY_VERIFY(server.count("auth") >= 2);
    QTRY_COMPARE(link.getStatus(), Link::Connected);
    QCOMPARE(calls, 0);
    link.getUserList([&](const std::vector<Model::UserInfo> &) { ++calls; });
    QTRY_COMPARE(server.count("users"), 2);
    server.reply(server.last("users"), "{}" + QByteArray(99998, ' ')); // exactly the limit
    QTRY_COMPARE(calls, 1);
}

void HostileServerTest::peerThatAcceptsAndSaysNothing()
{
    auto timings = testTimings();
    timings.quickReply = 50;
    QTcpServer mute;
    QVERIFY(mute.listen(QHostAddress::LocalHost));
    TestCommunicator link(timings);
    QSignalSpy errors(&link, &Link::errorOccured);

    link.init("127.0.0.1", "a", "b", mute.serverPort(), mute.serverPort());
    QTRY_VERIFY(link.logins >= 4);

    QCOMPARE(link.getStatus(), Link::Connecting);
    QCOMPARE(errors.size(), 0);
    FakeServer server;
    QVERIFY(logIn(link, server));
}

void HostileServerTest::peerThatTalksGarbage()
{
    auto timings = testTimings();
    timings.quickReply = 50;
    QTcpServer garbage;
    QVERIFY(garbage.listen(QHostAddress::LocalHost));
    int accepted = 0;
    connect(&garbage, &QTcpServer::newConnection, &garbage, [&] {
        auto *peer = garbage.nextPendingConnection();
        static const QByteArray texts[] = {QByteArray("HTTP/1.1 400 Bad Request\r\n\r\n"), QByteArray(5000, '\xff'),
                                           QByteArray(64, '\0'), QByteArray("\xff\0\0\0\0\0\0\0\1\x7f\3", 11)};
        peer->write(texts[accepted++ % 4]);
        if (accepted % 2)
            peer->disconnectFromHost();
    });
    TestCommunicator link(timings);

    link.init("127.0.0.1", "a", "b", garbage.serverPort(), garbage.serverPort());
    QTRY_VERIFY(accepted >= 8);

    QCOMPARE(link.getStatus(), Link::Connecting);
    FakeServer server;
    QVERIFY(logIn(link, server));
}

void HostileServerTest::peerThatClosesInTheMiddle()
{
    auto timings = testTimings();
    timings.quickReply = 150;
    timings.pingInterval = 20; // so that something is always on its way
    FakeServer server;
    server.answer = [&](const FakeServer::Request &request) {
        if (request.resource() == "auth")
            server.answerLogin(request);
        else
            server.reply(request, R"({"data":[{"type":"ping","id":"2026-01-02T03:04:05Z"}]})");
    };
    CuttingProxy control(server.controlPort(), 0);
    CuttingProxy update(server.updatePort(), 1000000000);
    TestCommunicator link(timings);
    link.init("127.0.0.1", "a", "b", control.serverPort(), update.serverPort());

    // In the greeting, in the handshake, in a frame, and between two frames.
    for (int bytes : {1, 10, 63, 64, 80, 100, 130, 180, 250, 400}) {
        control.cutAfter = bytes;
        const int before = control.connections;
        QTRY_VERIFY(control.connections >= before + 2);
    }
    control.cutAfter = 1000000000;

    QTRY_COMPARE_WITH_TIMEOUT(link.getStatus(), Link::Connected, 20000);
    QTRY_VERIFY(link.getDataCache().getTime().isValid());
}

void HostileServerTest::everyThirdReplyIsLost()
{
    auto timings = testTimings();
    timings.quickReply = 200;
    timings.reply = 200;
    FakeServer server;
    int counter = 0;
    server.answer = [&](const FakeServer::Request &request) {
        if (++counter % 3 == 0)
            return;
        server.reply(request, request.resource() == "auth" ? server.loginReply : QByteArray("{}"));
    };
    TestCommunicator link(timings);
    link.initFor(server);
    int replied = 0;
    int discarded = 0;
    int sent = 0;
    QTimer sender;
    connect(&sender, &QTimer::timeout, this, [&] {
        if (sent == 40)
            return;
        ++sent;
        const auto handler = link.request("a", 200);
        handler->onReply([&](const QByteArray &) { ++replied; });
        handler->onDiscard([&](BackendReplyHandler::DiscardReason) { ++discarded; });
    });
    sender.start(20);

    QTRY_COMPARE_WITH_TIMEOUT(replied + discarded, 40, 20000); // each has one end
    QVERIFY(replied > 0 && discarded > 0);
    server.answer = [&](const FakeServer::Request &request) {
        server.reply(request, request.resource() == "auth" ? server.loginReply : QByteArray("{}"));
    };
    QTRY_COMPARE(link.getStatus(), Link::Connected);
    settle(300);
    QCOMPARE(replied + discarded, 40);
}

void HostileServerTest::floodOfRepliesLeavesTheLoopTurning()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    const auto peer = server.last("auth").peer;
    link.seenReplies.clear();
    int turns = 0;
    QTimer turning;
    connect(&turning, &QTimer::timeout, this, [&] { ++turns; });
    turning.start(0);

    for (int round = 0; round < 20; ++round) {
        for (int i = 0; i < 500; ++i)
            server.sendFrames(peer, {"", FakeServer::header(FakeServer::Json, "none:1"), "{}"});
        QTRY_VERIFY(link.seenReplies.size() >= (round + 1) * 500);
    }

    QCOMPARE(link.seenReplies.size(), 10000);
    QVERIFY(turns > 20);
    QCOMPARE(link.getStatus(), Link::Connected);
}

void HostileServerTest::floodOfPublicationsWhileTheLoopIsHeld()
{
    auto timings = testTimings();
    timings.stall = 1000;
    FakeServer server;
    QByteArray newest;
    connect(&server, &FakeServer::subscribed, &server, [&](const QByteArray &topic) {
        if (topic == "zones" && !newest.isEmpty())
            server.publish("zones", newest); // each list goes to a new subscriber at once
    });
    TestCommunicator link(timings);
    QVERIFY(logIn(link, server));
    const auto zone = [](int number) {
        return R"({"data":[{"type":"zone","id":"{11111111-1111-1111-1111-111111111111}","attributes":{"name":")"
            + QByteArray::number(number) + R"("}}]})";
    };

    // The loop of the link does not turn here. The queues fill up and drop what comes last.
    QElapsedTimer held;
    held.start();
    for (int i = 0; i < 100000; ++i)
        server.publishFrames({"zones", "", FakeServer::header(FakeServer::Json, "zones"), zone(i)});
    newest = zone(100000);
    server.publish("zones", newest);
    while (!held.hasExpired(1200)) {}

    const auto name = [&] {
        const auto zones = link.getDataCache().getZones();
        return zones.empty() ? QString() : zones.front().name;
    };
    QTRY_COMPARE_WITH_TIMEOUT(name(), QString("100000"), 20000);
    QCOMPARE(link.logins, 2);
    QTRY_COMPARE(link.getStatus(), Link::Connected);
    settle(100);
    QCOMPARE(name(), QString("100000")); // nothing old comes after it
}

ONDIRA_TEST(HostileServerTest)
#include "HostileServerTest.moc"
