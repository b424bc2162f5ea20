// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestLink.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QTcpServer>
#include <QThread>
#include <zmq.h>

using Link = AbstractBackendCommunicator;
using Reason = BackendReplyHandler::DiscardReason;

// Requests and replies, time-outs, and the beginning and end of a connection.
class CommunicatorCoreTest : public TestBase
{
    Q_OBJECT

private slots:
    void waitsAreThoseOfTheServer();
    void requestFramesAreExact();
    void idsCountUpOverAllCommunicators();
    void repliesAreMatchedByIdNotByOrder();
    void callbacksOfOneReplyRunInOrder();
    void binaryReplyRunsTheBinaryCallbacks();
    void replyComesOnlyOnce();
    void lateReplyIsSeenButRunsNothing();
    void expiredRequestReconnectsAndIsDiscarded();
    void threeExpiredRequestsReconnectThreeTimes();
    void checkNeverComesSoonerThanItsShortestWait();
    void emptyTableIsCheckedInVain();
    void requestWithoutConnectionExpires();

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

    void discardCallbackMaySend();
    void discardCallbackMayBeginAConnection();
    void slotMayEndTheConnectionThatBegins();
    void slotMayBeginAnotherConnection();
    void replyCallbackMayDisconnect();
    void replyCallbackMayRunAnEventLoop();

    void pingsComeAtTheirInterval();
    void pingsEndWithTheConnection();
    void serverThatNeverAnswersIsTriedForEver();
    void stalledLoopReconnectsOnce();
    void stalledLoopIsNothingWhileConnecting();
    void sendErrorReconnects();

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

void CommunicatorCoreTest::waitsAreThoseOfTheServer()
{
    const LinkTimings timings;

    QCOMPARE(timings.pollInterval, 10);
    QCOMPARE(timings.pollBudget, 8);
    QCOMPARE(timings.pingInterval, 10000);
    QCOMPARE(timings.quickReply, 3000);
    QCOMPARE(timings.longestCheck + timings.checkSlack, 10100);
    QCOMPARE(timings.quickReply + timings.checkSlack, 3100);
    QCOMPARE(timings.shortestCheck, 1000);
    QCOMPARE(timings.publicationHealing, 2000);
    QCOMPARE(timings.publicationRetry, 10000);
    QCOMPARE(timings.stall, 5000);
}

void CommunicatorCoreTest::requestFramesAreExact()
{
    FakeServer server;
    TestCommunicator link;
    link.initFor(server);
    server.requests.clear();

    link.sendRequest(ZmqMessageHeader({ZmqMessageHeader::Flags::Raw}, "picture"), QByteArray("\0body", 5), 20000);
    QTRY_COMPARE(server.count("picture"), 1);

    const auto request = server.last("picture");
    QCOMPARE(request.frames.size(), 4); // the first is the routing frame of the server's socket
    QCOMPARE(request.frames.at(1), QByteArray());
    QCOMPARE(request.frames.at(2), QByteArray("\0\1picture:", 10) + QByteArray::number(request.counter()));
    QCOMPARE(request.frames.at(3), QByteArray("\0body", 5));
}

void CommunicatorCoreTest::idsCountUpOverAllCommunicators()
{
    FakeServer server;
    TestCommunicator first;
    TestCommunicator second;
    first.initFor(server);
    second.initFor(server);

    const auto one = first.request("a");
    const auto two = second.request("b");
    const auto three = first.request("zones");

    const auto counter = one->id().mid(2).toULongLong();
    QVERIFY(counter > 0);
    QCOMPARE(one->id(), "a:" + QByteArray::number(counter));
    QCOMPARE(two->id(), "b:" + QByteArray::number(counter + 1));
    QCOMPARE(three->id(), "zones:" + QByteArray::number(counter + 2));
}

void CommunicatorCoreTest::repliesAreMatchedByIdNotByOrder()
{
    FakeServer server;
    TestCommunicator link;
    link.initFor(server);
    QStringList replies;
    for (const char *name : {"a", "b", "c"})
        link.request(name)->onReply([&, name](const QByteArray &body) { replies << QString(name) + body; });
    QTRY_COMPARE(server.count("c"), 1);

    for (const char *name : {"c", "a", "b"})
        server.reply(server.last(name), QByteArray("\"") + name + "\"");

    QTRY_COMPARE(replies, (QStringList{"c\"c\"", "a\"a\"", "b\"b\""}));
}

void CommunicatorCoreTest::callbacksOfOneReplyRunInOrder()
{
    FakeServer server;
    TestCommunicator link;
    link.initFor(server);
    QStringList calls;
    const auto handler = link.request("a");
    for (const char *name : {"1", "2", "3"})
        handler->onReply([&, name](const QByteArray &) { calls << name; });
    handler->onDiscard([&](Reason) { calls << "discard"; });
    QTRY_COMPARE(server.count("a"), 1);

    server.reply(server.last("a"), "{}");

    QTRY_COMPARE(calls, (QStringList{"1", "2", "3"}));
}

void CommunicatorCoreTest::binaryReplyRunsTheBinaryCallbacks()
{
    FakeServer server;
    TestCommunicator link;
    link.initFor(server);
    QStringList calls;
    const auto handler = link.request("a");
    handler->onReply([&](const QByteArray &) { calls << "json"; });
    handler->onBinaryReply([&](const QByteArray &body) { calls << "binary " + body; });
    QTRY_COMPARE(server.count("a"), 1);

    server.replyBinary(server.last("a"), "bytes");

    QTRY_COMPARE(calls, QStringList{"binary bytes"});
}

void CommunicatorCoreTest::replyComesOnlyOnce()
{
    FakeServer server;
    TestCommunicator link;
    link.initFor(server);
    int calls = 0;
    link.request("a")->onReply([&](const QByteArray &) { ++calls; });
    QTRY_COMPARE(server.count("a"), 1);
    const auto id = server.last("a").id;

    server.reply(server.last("a"), "{}");
    server.reply(server.last("a"), "{}");

    QTRY_COMPARE(link.seenReplies.count(id), 2);
    QCOMPARE(calls, 1);
}

void CommunicatorCoreTest::lateReplyIsSeenButRunsNothing()
{
    FakeServer server;
    TestCommunicator link;
    link.initFor(server);
    int replies = 0;
    std::vector<Reason> discards;
    {
        const auto handler = link.request("slow", 20);
        handler->onReply([&](const QByteArray &) { ++replies; });
        handler->onDiscard([&](Reason reason) { discards.push_back(reason); });
    }
    QTRY_VERIFY(server.count("auth") >= 2); // the link has reconnected
    QTRY_COMPARE(discards.size(), size_t(1));

    auto late = server.last("slow");
    late.peer = server.last("auth").peer; // the connection is another one
    server.reply(late, R"({"errors":[{"code":"late_error","title":"","detail":""}]})");

    QTRY_VERIFY(link.seenReplies.contains(late.id));
    QCOMPARE(link.errorCodes, QStringList{"late_error"});
    QCOMPARE(replies, 0);
    QCOMPARE(discards, std::vector<Reason>{Reason::Expired});
}

void CommunicatorCoreTest::expiredRequestReconnectsAndIsDiscarded()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    QSignalSpy status(&link, &Link::statusChanged);
    std::vector<Reason> expired;
    std::vector<Reason> dropped;
    {
        const auto quick = link.request("quick", 20);
        quick->onDiscard([&](Reason reason) { expired.push_back(reason); });
        const auto patient = link.request("patient", 20000);
        patient->onDiscard([&](Reason reason) { dropped.push_back(reason); });
    }

    QTRY_COMPARE(link.logins, 2);
    QCOMPARE(expired, std::vector<Reason>{Reason::Expired});
    QCOMPARE(dropped, std::vector<Reason>{Reason::Dropped});
    QTRY_COMPARE(link.getStatus(), Link::Connected);
    QCOMPARE(status.size(), 2); // connecting, connected
}

void CommunicatorCoreTest::threeExpiredRequestsReconnectThreeTimes()
{
    auto timings = testTimings();
    timings.shortestCheck = 400; // all three are found by one check
    FakeServer server;
    TestCommunicator link(timings);
    QVERIFY(logIn(link, server));
    const int before = link.logins;

    for (int i = 0; i < 3; ++i)
        link.request("lost", 10);

    QTRY_COMPARE(link.logins, before + 3);
    QTRY_COMPARE(link.getStatus(), Link::Connected);
    idle(100);
    QCOMPARE(link.logins, before + 3);
}

void CommunicatorCoreTest::checkNeverComesSoonerThanItsShortestWait()
{
    auto timings = testTimings();
    timings.shortestCheck = 500;
    FakeServer server;
    server.answer = nullptr;
    TestCommunicator link(timings);
    link.initFor(server);
    QElapsedTimer elapsed;
    elapsed.start();

    link.request("lost", 20);
    QTRY_COMPARE(link.logins, 2);

    QVERIFY2(elapsed.elapsed() >= 490, qPrintable(QString::number(elapsed.elapsed())));
}

void CommunicatorCoreTest::emptyTableIsCheckedInVain()
{
    auto timings = testTimings();
    timings.longestCheck = 10;
    FakeServer server;
    server.answer = [&](const FakeServer::Request &request) {
        if (request.resource() == "auth")
            server.answerLogin(request);
        else
            server.reply(request, "{}");
    };
    TestCommunicator link(timings);
    QVERIFY(logIn(link, server));

    idle(200); // a dozen checks

    QCOMPARE(link.logins, 1);
    QCOMPARE(link.getStatus(), Link::Connected);
}

void CommunicatorCoreTest::requestWithoutConnectionExpires()
{
    auto timings = testTimings();
    timings.quickReply = 30;
    FakeServer server;
    TestCommunicator link(timings);
    link.setControlPort(server.controlPort());
    link.setUpdatePort(server.updatePort());

    link.ping(); // finds no room to be sent
    QCOMPARE(link.getStatus(), Link::Disconnected);

    QTRY_VERIFY(server.count("auth") >= 1);
    QCOMPARE(server.count("ping") > 0 && server.requests.front().resource() == "ping", false);
}

void CommunicatorCoreTest::initStoresTrimsAndAnnounces()
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

void CommunicatorCoreTest::initDefaultsToThePortsOfTheTransport()
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

void CommunicatorCoreTest::initTwiceStartsAnew()
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

void CommunicatorCoreTest::refusedAddressIsReported()
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

void CommunicatorCoreTest::refusedAddressIsNoEnd()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(!link.init("a b", "a", "b", 1, 2));
    QVERIFY(!link.reinit());

    QVERIFY(logIn(link, server));
    QVERIFY(!link.init("no/host", "a", "b", 1, 2));
    QVERIFY(logIn(link, server));
}

void CommunicatorCoreTest::reconnectUsesWhatIsStored()
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

void CommunicatorCoreTest::reconnectFromAnotherThread()
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

void CommunicatorCoreTest::disconnectDropsEverything()
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

void CommunicatorCoreTest::settersStoreAndNotify()
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

void CommunicatorCoreTest::settersDoNotTouchTheConnection()
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

void CommunicatorCoreTest::movedConnectionLeavesTheOldServer()
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

void CommunicatorCoreTest::logLinesOfAConnection()
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

void CommunicatorCoreTest::discardCallbackMaySend()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    std::shared_ptr<BackendReplyHandler> again;
    link.request("first")->onDiscard([&](Reason) { again = link.request("again"); });

    link.abortAllRequests();

    QVERIFY(again);
    QVERIFY(!again->receivedReply());
    QTRY_COMPARE(server.count("again"), 1);
}

void CommunicatorCoreTest::discardCallbackMayBeginAConnection()
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

void CommunicatorCoreTest::slotMayEndTheConnectionThatBegins()
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

void CommunicatorCoreTest::slotMayBeginAnotherConnection()
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

void CommunicatorCoreTest::replyCallbackMayDisconnect()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    link.request("a")->onReply([&](const QByteArray &) { link.disconnectFromServer(); });
    QTRY_COMPARE(server.count("a"), 1);

    server.reply(server.last("a"), "{}");
    server.reply(server.last("a"), "{}");

    QTRY_COMPARE(link.getStatus(), Link::Disconnected);
    QVERIFY(logIn(link, server)); // the poll goes on
}

void CommunicatorCoreTest::replyCallbackMayRunAnEventLoop()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    QStringList order;
    link.request("dialog")->onReply([&](const QByteArray &) {
        QEventLoop dialog;
        connect(&link, &Link::zonesReceived, &dialog, &QEventLoop::quit);
        QTimer::singleShot(0, &link, [&] { server.publish("zones", R"({"data":[]})"); });
        dialog.exec();
        order << "dialog closed";
    });
    link.request("next")->onReply([&](const QByteArray &) { order << "next"; });
    QTRY_COMPARE(server.count("next"), 1);

    server.reply(server.last("dialog"), "{}");
    server.reply(server.last("next"), "{}");

    QTRY_COMPARE(order.size(), 2);
    QCOMPARE(link.getStatus(), Link::Connected);
}

void CommunicatorCoreTest::pingsComeAtTheirInterval()
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

void CommunicatorCoreTest::pingsEndWithTheConnection()
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

void CommunicatorCoreTest::serverThatNeverAnswersIsTriedForEver()
{
    auto timings = testTimings();
    timings.quickReply = 60;
    FakeServer server;
    server.answer = nullptr; // takes everything and says nothing
    TestCommunicator link(timings);
    QSignalSpy errors(&link, &Link::errorOccured);
    QElapsedTimer elapsed;
    elapsed.start();

    link.initFor(server);
    QTRY_VERIFY(server.count("auth") >= 6);

    QVERIFY(elapsed.elapsed() >= 5 * 60);
    QCOMPARE(link.getStatus(), Link::Connecting);
    QCOMPARE(errors.size() + link.errorCodes.size(), 0);
    server.answer = [&](const FakeServer::Request &request) { server.reply(request, server.loginReply); };
    QTRY_COMPARE(link.getStatus(), Link::Connected);
}

void CommunicatorCoreTest::stalledLoopReconnectsOnce()
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

void CommunicatorCoreTest::stalledLoopIsNothingWhileConnecting()
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

void CommunicatorCoreTest::sendErrorReconnects()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    QSignalSpy errors(&link, &Link::errorOccured);
    allowMessages("^Exception during poll: Context was terminated");
    expectMessage(QtWarningMsg, "^A request could not be sent: Context was terminated");

    zmq_ctx_shutdown(link.requestContext()->handle());
    link.ping();
    QCOMPARE(link.logins, 1); // the caller comes to its end first

    QTRY_COMPARE(link.logins, 2);
    QCOMPARE(errors.size(), 1); // nothing can be sent on a broken transport, and the user is told
    QCOMPARE(link.getStatus(), Link::Connecting);
}

void CommunicatorCoreTest::destructionDiscardsAndRefuses()
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

void CommunicatorCoreTest::destructionPausesForTheSockets()
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

void CommunicatorCoreTest::destructionDoesNotWaitForUnsentRequests()
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

ONDIRA_TEST(CommunicatorCoreTest)
#include "CommunicatorCoreTest.moc"
