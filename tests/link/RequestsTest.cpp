// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestLink.h"

#include <QElapsedTimer>
#include <zmq.h>

using Link = AbstractBackendCommunicator;
using Reason = BackendReplyHandler::DiscardReason;

// Requests, their replies and time-outs.
class RequestsTest : public TestBase
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
    void discardCallbackMaySend();
    void replyCallbackMayDisconnect();
    void replyCallbackMayRunAnEventLoop();
    void serverThatNeverAnswersIsTriedForEver();
    void sendErrorReconnects();
};

namespace {

// Lets the loop turn for a time in which something must not happen.
void idle(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

void RequestsTest::waitsAreThoseOfTheServer()
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

void RequestsTest::requestFramesAreExact()
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

void RequestsTest::idsCountUpOverAllCommunicators()
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

void RequestsTest::repliesAreMatchedByIdNotByOrder()
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

void RequestsTest::callbacksOfOneReplyRunInOrder()
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

void RequestsTest::binaryReplyRunsTheBinaryCallbacks()
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

void RequestsTest::replyComesOnlyOnce()
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

void RequestsTest::lateReplyIsSeenButRunsNothing()
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

void RequestsTest::expiredRequestReconnectsAndIsDiscarded()
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

void RequestsTest::threeExpiredRequestsReconnectThreeTimes()
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

void RequestsTest::checkNeverComesSoonerThanItsShortestWait()
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

void RequestsTest::emptyTableIsCheckedInVain()
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

void RequestsTest::requestWithoutConnectionExpires()
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

void RequestsTest::discardCallbackMaySend()
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

void RequestsTest::replyCallbackMayDisconnect()
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

void RequestsTest::replyCallbackMayRunAnEventLoop()
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

void RequestsTest::serverThatNeverAnswersIsTriedForEver()
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

void RequestsTest::sendErrorReconnects()
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

ONDIRA_TEST(RequestsTest)
#include "RequestsTest.moc"
