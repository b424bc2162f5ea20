// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/zmq/ZMQSocket.h"
#include "link/zmq/PollingZMQContext.h"
#include "link/zmq/ZmqError.h"
#include "support/TestBase.h"

#include <QTcpServer>
#include <QTcpSocket>

using nzmqt::PollingZMQContext;
using nzmqt::ZMQSocket;

namespace {

const QString anyPort = QStringLiteral("tcp://127.0.0.1:*");

template <typename Call>
int errorOf(Call call)
{
    try {
        call();
    } catch (const zmq::error_t &error) {
        return error.num();
    }
    return 0;
}

} // namespace

class ZMQSocketTest : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void socketBelongsToItsContextUntilTaken();
    void newSocketIsNotPolled();
    void destroyedSocketIsNoLongerRegistered();
    void contextClosesTheSocketsItStillOwns();
    void carriesAllPartsAlsoEmptyOnes();
    void carriesZeroBytesAndLargeParts();
    void gaveNothingWhenNoMessageWaits();
    void sendWithoutPeerReportsNoRoom();
    void refusedCallsThrowTheNumberOfTheLibrary();
    void optionsAreReadBack();
    void optionsOfWrongTypeAreRefused();
    void portOfABoundSocketIsKnown();
    void monitorTellsOfConnectionAndDrop();
    void monitorSaysNothingOfAPortThatNeverStood();
    void monitorSaysNothingOfAPeerThatIsNoSocketOfTheLibrary();
    void closingFromHereIsNoDrop();
    void restartedMonitorForgetsTheConnectionBefore();
    void stoppedMonitorIsSilent();
    void oversizeMessageIsToldAsADrop();

private:
    ZMQSocket *make(int type);

    std::unique_ptr<PollingZMQContext> m_context;
};

void ZMQSocketTest::init()
{
    TestBase::init();
    m_context = std::make_unique<PollingZMQContext>(1, 100, 1);
    m_context->start();
}

void ZMQSocketTest::cleanup()
{
    m_context.reset();
    TestBase::cleanup();
}

ZMQSocket *ZMQSocketTest::make(int type)
{
    auto *socket = m_context->createSocketInternal(type);
    socket->setOption(ZMQ_LINGER, 0);
    m_context->registerSocket(socket);
    return socket;
}

void ZMQSocketTest::socketBelongsToItsContextUntilTaken()
{
    auto *socket = m_context->createSocketInternal(ZMQ_DEALER);

    QCOMPARE(socket->parent(), m_context.get());
    QCOMPARE(socket->type(), ZMQ_DEALER);
    QVERIFY(socket->handle() != nullptr);
}

void ZMQSocketTest::newSocketIsNotPolled()
{
    auto *socket = m_context->createSocketInternal(ZMQ_DEALER);
    QVERIFY(m_context->registeredSockets().isEmpty());

    m_context->registerSocket(socket);
    m_context->registerSocket(socket);

    QCOMPARE(m_context->registeredSockets(), QList<ZMQSocket *>{socket});
}

void ZMQSocketTest::destroyedSocketIsNoLongerRegistered()
{
    auto *first = make(ZMQ_DEALER);
    auto *second = make(ZMQ_ROUTER);

    delete first;

    QCOMPARE(m_context->registeredSockets(), QList<ZMQSocket *>{second});
}

void ZMQSocketTest::contextClosesTheSocketsItStillOwns()
{
    const QPointer<ZMQSocket> socket(make(ZMQ_ROUTER));

    m_context.reset(); // would wait for ever on an open socket

    QVERIFY(!socket);
}

void ZMQSocketTest::carriesAllPartsAlsoEmptyOnes()
{
    auto *server = make(ZMQ_PAIR);
    auto *client = make(ZMQ_PAIR);
    server->bindTo(anyPort);
    client->connectTo(server->lastEndpoint());
    QSignalSpy received(server, &ZMQSocket::messageReceived);
    const QList<QByteArray> parts{"", "head", "", "body", ""};

    QVERIFY(client->sendMessage(parts));

    QTRY_COMPARE(received.size(), 1);
    QCOMPARE(received.at(0).at(0).value<QList<QByteArray>>(), parts);
}

void ZMQSocketTest::carriesZeroBytesAndLargeParts()
{
    auto *server = make(ZMQ_PAIR);
    auto *client = make(ZMQ_PAIR);
    server->bindTo(anyPort);
    client->connectTo(server->lastEndpoint());
    QSignalSpy received(server, &ZMQSocket::messageReceived);
    const QList<QByteArray> parts{QByteArray("\0\x01\0", 3), QByteArray(5 * 1024 * 1024, 'x')};

    QVERIFY(client->sendMessage(parts));

    QTRY_COMPARE(received.size(), 1);
    QCOMPARE(received.at(0).at(0).value<QList<QByteArray>>(), parts);
}

void ZMQSocketTest::gaveNothingWhenNoMessageWaits()
{
    auto *socket = m_context->createSocketInternal(ZMQ_ROUTER);
    socket->bindTo(anyPort);

    QCOMPARE(socket->receiveMessage(), QList<QByteArray>());
}

void ZMQSocketTest::sendWithoutPeerReportsNoRoom()
{
    auto *socket = make(ZMQ_DEALER);

    QVERIFY(!socket->sendMessage({"a", "b"}));
    QVERIFY(socket->sendMessage({})); // nothing to send is nothing to drop
}

void ZMQSocketTest::refusedCallsThrowTheNumberOfTheLibrary()
{
    auto *socket = make(ZMQ_DEALER);
    auto *other = make(ZMQ_ROUTER);
    socket->bindTo(anyPort);

    QCOMPARE(errorOf([&] { socket->connectTo("no address"); }), EINVAL);
    QCOMPARE(errorOf([&] { socket->connectTo("tcp://a b:1"); }), EINVAL);
    QCOMPARE(errorOf([&] { socket->connectTo("none://127.0.0.1:1"); }), EPROTONOSUPPORT);
    QCOMPARE(errorOf([&] { other->bindTo(socket->lastEndpoint()); }), EADDRINUSE);
    QCOMPARE(errorOf([&] { socket->disconnectFrom("tcp://127.0.0.1:1"); }), ENOENT);
    QCOMPARE(errorOf([&] { socket->unbindFrom("tcp://127.0.0.1:1"); }), ENOENT);
    QCOMPARE(errorOf([&] { m_context->createSocketInternal(4711); }), EINVAL);
    QCOMPARE(errorOf([&] { make(ZMQ_PUB)->receiveMessage(); }), ENOTSUP);
    QCOMPARE(errorOf([&] { make(ZMQ_SUB)->sendMessage({"a"}); }), ENOTSUP);
}

void ZMQSocketTest::optionsAreReadBack()
{
    auto *socket = make(ZMQ_SUB);

    socket->setOption(ZMQ_LINGER, 1234);
    socket->setOption(ZMQ_MAXMSGSIZE, qint64(5) << 32);

    QCOMPARE(socket->intOption(ZMQ_LINGER), 1234);
    qint64 largest = 0;
    size_t size = sizeof largest;
    QCOMPARE(zmq_getsockopt(socket->handle(), ZMQ_MAXMSGSIZE, &largest, &size), 0);
    QCOMPARE(largest, qint64(5) << 32);
}

void ZMQSocketTest::optionsOfWrongTypeAreRefused()
{
    auto *socket = make(ZMQ_SUB);

    QCOMPARE(errorOf([&] { socket->setOption(ZMQ_LINGER, qint64(1)); }), EINVAL);
    QCOMPARE(errorOf([&] { socket->intOption(ZMQ_MAXMSGSIZE); }), EINVAL);
    QCOMPARE(errorOf([&] { make(ZMQ_PUB)->setOption(ZMQ_SUBSCRIBE, QByteArray("a")); }), EINVAL);
}

void ZMQSocketTest::portOfABoundSocketIsKnown()
{
    auto *socket = make(ZMQ_ROUTER);

    socket->bindTo(anyPort);

    const QRegularExpression address("^tcp://127\\.0\\.0\\.1:([1-9][0-9]*)$");
    QVERIFY(address.match(socket->lastEndpoint()).hasMatch());
}

void ZMQSocketTest::monitorTellsOfConnectionAndDrop()
{
    auto *server = make(ZMQ_PUB);
    auto *client = make(ZMQ_SUB);
    server->bindTo(anyPort);
    const auto address = server->lastEndpoint();
    client->startMonitor();
    QSignalSpy connected(client, &ZMQSocket::connected);
    QSignalSpy dropped(client, &ZMQSocket::disconnected);

    client->connectTo(address);
    QTRY_COMPARE(connected.size(), 1);
    QCOMPARE(dropped.size(), 0);
    delete server;
    QTRY_COMPARE(dropped.size(), 1);
    server = make(ZMQ_PUB);
    server->bindTo(address);

    QTRY_COMPARE(connected.size(), 2); // the library connects again by itself
    QCOMPARE(dropped.size(), 1);
}

void ZMQSocketTest::monitorSaysNothingOfAPortThatNeverStood()
{
    QTcpServer closed;
    QVERIFY(closed.listen(QHostAddress::LocalHost));
    const auto port = closed.serverPort();
    closed.close();
    auto *client = make(ZMQ_SUB);
    client->startMonitor();
    QSignalSpy connected(client, &ZMQSocket::connected);
    QSignalSpy dropped(client, &ZMQSocket::disconnected);
    QSignalSpy ticks(m_context.get(), &PollingZMQContext::ticked);

    client->connectTo(QString("tcp://127.0.0.1:%1").arg(port));

    QTRY_VERIFY(ticks.size() > 60); // several attempts of the library
    QCOMPARE(connected.size(), 0);
    QCOMPARE(dropped.size(), 0);
}

void ZMQSocketTest::monitorSaysNothingOfAPeerThatIsNoSocketOfTheLibrary()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    int accepted = 0;
    connect(&server, &QTcpServer::newConnection, &server, [&] {
        ++accepted;
        auto *peer = server.nextPendingConnection();
        peer->write(QByteArray(100, 'x'));
        peer->disconnectFromHost();
    });
    auto *client = make(ZMQ_SUB);
    client->startMonitor();
    QSignalSpy connected(client, &ZMQSocket::connected);
    QSignalSpy dropped(client, &ZMQSocket::disconnected);

    client->connectTo(QString("tcp://127.0.0.1:%1").arg(server.serverPort()));

    QTRY_VERIFY(accepted > 0);
    QSignalSpy ticks(m_context.get(), &PollingZMQContext::ticked);
    QTRY_VERIFY(ticks.size() > 30);
    QCOMPARE(connected.size(), 0);
    QCOMPARE(dropped.size(), 0);
}

void ZMQSocketTest::closingFromHereIsNoDrop()
{
    auto *server = make(ZMQ_PUB);
    auto *client = make(ZMQ_SUB);
    server->bindTo(anyPort);
    client->startMonitor();
    QSignalSpy connected(client, &ZMQSocket::connected);
    QSignalSpy dropped(client, &ZMQSocket::disconnected);
    client->connectTo(server->lastEndpoint());
    QTRY_COMPARE(connected.size(), 1);

    client->disconnectFrom(server->lastEndpoint());

    QSignalSpy ticks(m_context.get(), &PollingZMQContext::ticked);
    QTRY_VERIFY(ticks.size() > 30);
    QCOMPARE(dropped.size(), 0);
}

void ZMQSocketTest::restartedMonitorForgetsTheConnectionBefore()
{
    auto *server = make(ZMQ_PUB);
    auto *client = make(ZMQ_SUB);
    server->bindTo(anyPort);
    client->startMonitor();
    QSignalSpy connected(client, &ZMQSocket::connected);
    QSignalSpy dropped(client, &ZMQSocket::disconnected);
    client->connectTo(server->lastEndpoint());
    QTRY_COMPARE(connected.size(), 1);

    client->startMonitor();
    delete server;

    QSignalSpy ticks(m_context.get(), &PollingZMQContext::ticked);
    QTRY_VERIFY(ticks.size() > 30);
    QCOMPARE(dropped.size(), 0); // of a connection that the new monitor never saw
}

void ZMQSocketTest::stoppedMonitorIsSilent()
{
    auto *server = make(ZMQ_PUB);
    auto *client = make(ZMQ_SUB);
    server->bindTo(anyPort);
    client->startMonitor();
    client->stopMonitor();
    QSignalSpy connected(client, &ZMQSocket::connected);
    QSignalSpy received(client, &ZMQSocket::messageReceived);
    client->setOption(ZMQ_SUBSCRIBE, QByteArray());
    client->connectTo(server->lastEndpoint());

    QTimer publisher;
    connect(&publisher, &QTimer::timeout, server, [server] { server->sendMessage({"topic"}); });
    publisher.start(1);

    QTRY_VERIFY(received.size() > 0);
    QCOMPARE(connected.size(), 0);
}

void ZMQSocketTest::oversizeMessageIsToldAsADrop()
{
    auto *server = make(ZMQ_PAIR);
    auto *client = make(ZMQ_PAIR);
    server->bindTo(anyPort);
    client->setOption(ZMQ_MAXMSGSIZE, qint64(1000));
    client->startMonitor();
    QSignalSpy connected(client, &ZMQSocket::connected);
    QSignalSpy dropped(client, &ZMQSocket::disconnected);
    QSignalSpy received(client, &ZMQSocket::messageReceived);
    client->connectTo(server->lastEndpoint());
    QTRY_COMPARE(connected.size(), 1);

    QVERIFY(server->sendMessage({QByteArray(1000, 'x')}));
    QTRY_COMPARE(received.size(), 1);
    QVERIFY(server->sendMessage({QByteArray(1001, 'x')}));

    QTRY_COMPARE(dropped.size(), 1);
    QCOMPARE(received.size(), 1);
}

ONDIRA_TEST(ZMQSocketTest)
#include "ZMQSocketTest.moc"
