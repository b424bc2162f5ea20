// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestLink.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QTcpServer>
#include <QThread>
#include <zmq.h>

using Link = AbstractBackendCommunicator;
using Reason = BackendReplyHandler::DiscardReason;

// The beginning and the end of a connection, and what keeps it alive.
class ConnectionTest : public TestBase
{
    Q_OBJECT

private slots:
    void initStoresTrimsAndAnnounces();
    void initDefaultsToThePortsOfTheTransport();
    void initTwiceStartsAnew();
    void refusedAddressIsReported();
    void refusedAddressIsNoEnd();
    void reconnectUsesWhatIsStored();
    void reconnectFromAnotherThread();
    void disconnectDropsEverything();
    void settersStoreAndNotify();
    void settersDoNotTouchTheConnection();
    void movedConnectionLeavesTheOldServer();
    void logLinesOfAConnection();
    void discardCallbackMayBeginAConnection();
    void aRequestOfADiscardCallbackDoesNotOutliveTheConnection();
    void slotMayEndTheConnectionThatBegins();
    void slotMayBeginAnotherConnection();
    void pingsComeAtTheirInterval();
    void pingsEndWithTheConnection();
    void stalledLoopReconnectsOnce();
    void stalledLoopIsNothingWhileConnecting();
    void destructionDiscardsAndRefuses();
    void destructionPausesForTheSockets();
    void destructionDoesNotWaitForUnsentRequests();
};

namespace {

// Holds the main loop, as a long computation does.
void block(int ms)
{
    QElapsedTimer elapsed;
    elapsed.start();
    while (!elapsed.hasExpired(ms)) {}
}

// Lets the loop turn for a time in which something must not happen.
void idle(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

void ConnectionTest::initStoresTrimsAndAnnounces()
{
    FakeServer server;
    TestCommunicator link;
    QSignalSpy credentials(&link, &Link::userCredentialsChanged);
    QSignalSpy address(&link, &Link::addressChanged);
    QSignalSpy controlPort(&link, &Link::controlPortChanged);
    QSignalSpy updatePort(&link, &Link::updatePortChanged);

    QVERIFY(link.init(" \t127.0.0.1 \n", "engineer", "secret", server.controlPort(), server.updatePort()));

    QCOMPARE(link.getAddress(), QString("127.0.0.1"));
    QCOMPARE(link.responseSocketAddress(), QString("tcp://127.0.0.1:%1").arg(server.controlPort()));
    QCOMPARE(link.publisherSocketAddress(), QString("tcp://127.0.0.1:%1").arg(server.updatePort()));
    QCOMPARE(link.property("login").toString(), QString("engineer"));
    QCOMPARE(link.property("password").toString(), QString("secret"));
    QCOMPARE(link.property("status").toInt(), 1);
    QCOMPARE(credentials.size(), 1);
    QCOMPARE(address.size() + controlPort.size() + updatePort.size(), 0);
    QTRY_COMPARE(server.count("auth"), 1);
}

void ConnectionTest::initDefaultsToThePortsOfTheTransport()
{
    TestCommunicator link;
    QCOMPARE(link.getAddress(), QString("127.0.0.1"));
    QCOMPARE(link.getControlPort(), 23140);
    QCOMPARE(link.getUpdatePort(), 23141);
    QCOMPARE(link.getStatus(), Link::Disconnected);

    QVERIFY(link.init("127.0.0.1", "a", "b"));
    QCOMPARE(link.getControlPort(), 23137);
    QCOMPARE(link.getUpdatePort(), 23138);

    bool accepted = false;
    QVERIFY(QMetaObject::invokeMethod(&link, "init", Q_RETURN_ARG(bool, accepted), Q_ARG(QString, "127.0.0.1"),
                                      Q_ARG(QString, "a"), Q_ARG(QString, "b"), Q_ARG(int, 4711)));
    QVERIFY(accepted);
    QCOMPARE(link.getControlPort(), 4711);
    QCOMPARE(link.getUpdatePort(), 23138);
}

void ConnectionTest::initTwiceStartsAnew()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    std::vector<Reason> discards;
    link.request("first")->onDiscard([&](Reason reason) { discards.push_back(reason); });
    QSignalSpy connected(&link, &Link::statusChanged);

    link.initFor(server);
    QCOMPARE(discards, std::vector<Reason>{Reason::Dropped});
    QCOMPARE(link.getStatus(), Link::Connecting);
    link.initFor(server);

    QTRY_COMPARE(link.getStatus(), Link::Connected);
    QCOMPARE(server.last("auth").document.value("data").toArray().size(), 1);
    QCOMPARE(link.logins, 3);
    QCOMPARE(connected.size(), 2);
    idle(50);
    QCOMPARE(server.subscriptions.size(), 18); // one connection, not one for each init
}

void ConnectionTest::refusedAddressIsReported()
{
    TestCommunicator link;
    QSignalSpy errors(&link, &Link::errorOccured);

    QVERIFY(!link.init("no address", "a", "b", 1, 2));

    QCOMPARE(errors.size(), 1);
    QCOMPARE(errors.at(0).at(0).toString(),
             QString("Некорректный адрес сервера (%1)").arg(QString::fromLocal8Bit(zmq_strerror(EINVAL))));
    QCOMPARE(link.getStatus(), Link::Connecting);
    QCOMPARE(link.getAddress(), QString("no address"));
}

void ConnectionTest::refusedAddressIsNoEnd()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(!link.init("a b", "a", "b", 1, 2));
    QVERIFY(!link.reinit());

    QVERIFY(logIn(link, server));
    QVERIFY(!link.init("no/host", "a", "b", 1, 2));
    QVERIFY(logIn(link, server));
}

void ConnectionTest::reconnectUsesWhatIsStored()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    link.disconnectFromServer();

    link.reconnect();

    QCOMPARE(link.getStatus(), Link::Connecting); // at once on the same thread
    QTRY_COMPARE(link.getStatus(), Link::Connected);
    const auto attributes = server.last("auth").document.value("data")[0]["attributes"];
    QCOMPARE(attributes["login"].toString(), QString("engineer"));
    QCOMPARE(attributes["password"].toString(), QString("secret"));
}

void ConnectionTest::reconnectFromAnotherThread()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    QThread *initThread = nullptr;
    connect(
        &link, &Link::userCredentialsChanged, &link, [&] { initThread = QThread::currentThread(); },
        Qt::DirectConnection);

    std::unique_ptr<QThread> caller(QThread::create([&] { link.reconnect(); }));
    caller->start();

    QTRY_COMPARE(link.logins, 2);
    QCOMPARE(initThread, thread());
    QVERIFY(caller->wait());
}

void ConnectionTest::disconnectDropsEverything()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    std::vector<Reason> discards;
    int replies = 0;
    {
        const auto handler = link.request("a");
        handler->onDiscard([&](Reason reason) { discards.push_back(reason); });
        handler->onReply([&](const QByteArray &) { ++replies; });
    }
    QTRY_COMPARE(server.count("a"), 1);

    link.disconnectFromServer();
    server.reply(server.last("a"), "{}");
    server.publish("zones", R"({"data":[]})");

    QCOMPARE(link.getStatus(), Link::Disconnected);
    QCOMPARE(discards, std::vector<Reason>{Reason::Dropped});
    QTRY_COMPARE(server.subscriptions.size(), 0);
    QCOMPARE(replies, 0);
    link.disconnectFromServer();
    QCOMPARE(link.getStatus(), Link::Disconnected);
}

void ConnectionTest::settersStoreAndNotify()
{
    TestCommunicator link;
    QSignalSpy address(&link, &Link::addressChanged);
    QSignalSpy controlPort(&link, &Link::controlPortChanged);
    QSignalSpy updatePort(&link, &Link::updatePortChanged);

    link.setAddress("10.0.0.5"); // nothing to trim, so nothing is taken
    QCOMPARE(link.getAddress(), QString("127.0.0.1"));
    QCOMPARE(address.size(), 0);
    link.setAddress(" 10.0.0.6 ");
    QCOMPARE(link.getAddress(), QString("10.0.0.6"));
    QCOMPARE(address.size(), 1);

    link.setControlPort(23140);
    QCOMPARE(controlPort.size(), 0);
    QVERIFY(link.setProperty("controlPort", 5));
    QCOMPARE(controlPort.size(), 1);
    QCOMPARE(link.getControlPort(), 5);
    link.setUpdatePort(23141);
    QCOMPARE(updatePort.size(), 0);
    QVERIFY(link.setProperty("updatePort", 6));
    QCOMPARE(updatePort.size(), 1);
    QCOMPARE(link.getUpdatePort(), 6);
}

void ConnectionTest::settersDoNotTouchTheConnection()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));

    link.setAddress(" 10.0.0.6 ");
    link.setControlPort(1);
    link.setUpdatePort(2);
    link.request("still");
    QTRY_COMPARE(server.count("still"), 1);

    QSignalSpy zones(&link, &Link::zonesReceived);
    server.publish("zones", R"({"data":[]})");
    QTRY_COMPARE(zones.size(), 1);
}

void ConnectionTest::movedConnectionLeavesTheOldServer()
{
    FakeServer first;
    FakeServer second;
    TestCommunicator link;
    QVERIFY(logIn(link, first));
    link.setControlPort(second.controlPort()); // the setters must not make it forget what it is connected to
    link.setUpdatePort(second.updatePort());

    QVERIFY(link.reinit());
    QTRY_COMPARE(link.getStatus(), Link::Connected);
    const int before = static_cast<int>(first.requests.size());
    for (int i = 0; i < 4; ++i)
        link.request("to the second");

    QTRY_COMPARE(second.count("to the second"), 4);
    QCOMPARE(static_cast<int>(first.requests.size()), before);
    QTRY_COMPARE(first.subscriptions.size(), 0);
}

void ConnectionTest::logLinesOfAConnection()
{
    FakeServer server;
    TestCommunicator link;
    QTest::ignoreMessage(QtDebugMsg, "Initializing connection");
    QTest::ignoreMessage(QtDebugMsg, "Status: Connecting");
    QTest::ignoreMessage(QtDebugMsg, "Status: Connected");
    QTest::ignoreMessage(QtDebugMsg, "Status: Disconnected");

    QVERIFY(logIn(link, server));
    link.disconnectFromServer();
}

void ConnectionTest::discardCallbackMayBeginAConnection()
{
    FakeServer first;
    FakeServer second;
    TestCommunicator link;
    QVERIFY(logIn(link, first));
    link.request("a")->onDiscard([&](Reason) { link.initFor(second); });

    link.initFor(first);

    QTRY_COMPARE(link.getStatus(), Link::Connected);
    QCOMPARE(link.getControlPort(), second.controlPort()); // the younger call counts
    QCOMPARE(second.count("auth"), 1);
    QCOMPARE(first.count("auth"), 1);
}

void ConnectionTest::aRequestOfADiscardCallbackDoesNotOutliveTheConnection()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    int discarded = 0;
    link.request("a")->onDiscard([&](Reason) {
        link.request("again", 50)->onDiscard([&](Reason) {
            ++discarded;
            link.request("once more", 50)->onDiscard([&](Reason) { ++discarded; });
        });
    });

    link.disconnectFromServer();
    QCOMPARE(discarded, 1);
    QTest::qWait(200);

    QCOMPARE(link.getStatus(), Link::Disconnected); // nothing was left to expire and to connect anew
    QCOMPARE(server.count("auth"), 1);
    QCOMPARE(discarded, 1);
}

void ConnectionTest::slotMayEndTheConnectionThatBegins()
{
    FakeServer server;
    TestCommunicator link;
    connect(&link, &Link::statusChanged, &link, [&] {
        if (link.getStatus() == Link::Connecting)
            link.disconnectFromServer();
    });

    QVERIFY(link.initFor(server));

    idle(100);
    QCOMPARE(link.getStatus(), Link::Disconnected);
    QCOMPARE(server.requests.size(), size_t(0));
}

void ConnectionTest::slotMayBeginAnotherConnection()
{
    FakeServer first;
    FakeServer second;
    TestCommunicator link;
    bool once = true;
    connect(&link, &Link::statusChanged, &link, [&] {
        if (link.getStatus() == Link::Connecting && std::exchange(once, false))
            link.initFor(second);
    });

    link.initFor(first);

    QTRY_COMPARE(link.getStatus(), Link::Connected);
    QCOMPARE(first.requests.size(), size_t(0));
    QCOMPARE(second.count("auth"), 1);
}

void ConnectionTest::pingsComeAtTheirInterval()
{
    auto timings = testTimings();
    timings.pingInterval = 60;
    FakeServer server;
    server.answer = [&](const FakeServer::Request &request) {
        if (request.resource() == "auth")
            server.answerLogin(request);
        else
            server.reply(request, "{}");
    };
    TestCommunicator link(timings);
    idle(150);
    QCOMPARE(server.count("ping"), 0); // none before a connection

    QVERIFY(logIn(link, server));
    QElapsedTimer elapsed;
    elapsed.start();
    const int before = server.count("ping");
    QTRY_VERIFY(server.count("ping") >= before + 5);

    QVERIFY2(elapsed.elapsed() >= 150, qPrintable(QString::number(elapsed.elapsed())));
}

void ConnectionTest::pingsEndWithTheConnection()
{
    auto timings = testTimings();
    timings.pingInterval = 20;
    FakeServer server;
    TestCommunicator link(timings);
    QVERIFY(logIn(link, server));
    QTRY_VERIFY(server.count("ping") > 2);

    link.disconnectFromServer();
    idle(50); // what is on its way
    const int before = server.count("ping");
    idle(150);

    QCOMPARE(server.count("ping"), before);
}

void ConnectionTest::stalledLoopReconnectsOnce()
{
    auto timings = testTimings();
    timings.stall = 1500;
    FakeServer server;
    TestCommunicator link(timings);
    QVERIFY(logIn(link, server));
    QCOMPARE(link.logins, 1);
    QTest::ignoreMessage(QtDebugMsg, "The main loop stood still, reconnecting");

    block(1700);

    QTRY_COMPARE(link.logins, 2);
    QTRY_COMPARE(link.getStatus(), Link::Connected);
    idle(100);
    QCOMPARE(link.logins, 2);
}

void ConnectionTest::stalledLoopIsNothingWhileConnecting()
{
    auto timings = testTimings();
    timings.stall = 500;
    FakeServer server;
    server.answer = nullptr;
    TestCommunicator link(timings);
    link.initFor(server);
    QTRY_COMPARE(server.count("auth"), 1);

    block(700);
    idle(100);

    QCOMPARE(link.logins, 1);
}

void ConnectionTest::destructionDiscardsAndRefuses()
{
    FakeServer server;
    QStringList calls;
    {
        TestCommunicator link;
        QVERIFY(logIn(link, server));
        link.request("a")->onDiscard([&](Reason reason) {
            calls << (reason == Reason::Dropped ? "dropped" : "expired");
            const auto refused = link.request("too late");
            refused->onDiscard([&](Reason) { calls << "never"; });
            calls << (refused->receivedReply() ? "refused" : "sent");
            link.ping(); // an operation of the derived class, which still stands
            link.reconnect();
        });
    }
    QCOMPARE(calls, (QStringList{"dropped", "refused"}));
    idle(50);
    QCOMPARE(server.count("too late"), 0);
}

void ConnectionTest::destructionPausesForTheSockets()
{
    auto timings = testTimings();
    timings.closingPause = 300;
    QElapsedTimer elapsed;
    {
        TestCommunicator link(timings);
        elapsed.start();
    }
    QVERIFY(elapsed.elapsed() >= 295);
    QCOMPARE(LinkTimings().closingPause, 500);
}

void ConnectionTest::destructionDoesNotWaitForUnsentRequests()
{
    QTcpServer closed;
    QVERIFY(closed.listen(QHostAddress::LocalHost));
    const int port = closed.serverPort();
    closed.close();
    QElapsedTimer elapsed;
    {
        TestCommunicator link;
        link.init("127.0.0.1", "a", "b", port, port);
        for (int i = 0; i < 100; ++i)
            link.request("never sent");
        elapsed.start();
    }
    QVERIFY(elapsed.elapsed() < 5000); // without the option that forbids it, for ever
}

ONDIRA_TEST(ConnectionTest)
#include "ConnectionTest.moc"
