// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/AbstractBackendCommunicator.h"

#include "link/LinkLog.h"
#include "link/document/Compression.h"
#include "link/zmq/PollingZMQContext.h"
#include "link/zmq/ZMQSocket.h"
#include "link/zmq/ZmqError.h"

#include <QDebug>
#include <QThread>
#include <utility>

namespace {

constexpr int ioThreads = 4;
constexpr int maxSockets = 1023;

std::atomic<quint64> requestCounter{0}; // of all communicators, so that an id never comes twice

// One half of the link: a context that polls its only socket.
nzmqt::ZMQSocket *createSocket(nzmqt::PollingZMQContext &context, int type)
{
    auto *socket = context.createSocketInternal(type);
    context.registerSocket(socket);
    socket->setParent(nullptr);
    return socket;
}

void disconnectSocket(nzmqt::ZMQSocket &socket, QString &endpoint)
{
    if (endpoint.isEmpty())
        return;
    try {
        socket.disconnectFrom(endpoint);
    } catch (const zmq::error_t &) {
        // The library has given up that connection by itself.
    }
    endpoint.clear();
}

QString socketAddress(const QString &host, int port)
{
    return QStringLiteral("tcp://%1:%2").arg(host).arg(port);
}

} // namespace

AbstractBackendCommunicator::AbstractBackendCommunicator(QObject *parent, const LinkTimings &timings)
    : QObject(parent)
    , m_dataCache(*this)
    , m_timings(timings)
    , m_publicationWatch(timings.publicationHealing, timings.publicationRetry)
    , m_stallWatch(timings.stall)
{
    const auto &t = m_timings;
    m_subscriberContext.reset(new nzmqt::PollingZMQContext(ioThreads, maxSockets, t.pollInterval, t.pollBudget));
    m_requestContext.reset(new nzmqt::PollingZMQContext(ioThreads, maxSockets, t.pollInterval, t.pollBudget));

    m_replyTimeoutTimer.setSingleShot(true);
    m_pingTimer.setInterval(t.pingInterval);
    connect(&m_pingTimer, &QTimer::timeout, this, &AbstractBackendCommunicator::onPingTick);
    connect(&m_replyTimeoutTimer, &QTimer::timeout, this, &AbstractBackendCommunicator::checkReplyTimeouts);
    connect(&m_publicationWatch, &PublicationWatch::aliveChanged, this,
            &AbstractBackendCommunicator::publicationsAliveChanged);
    connect(&m_publicationWatch, &PublicationWatch::healingFailed, this,
            &AbstractBackendCommunicator::onPublicationsLost);

    createSockets();
    connect(m_subscriberContext.get(), &nzmqt::PollingZMQContext::ticked, this,
            &AbstractBackendCommunicator::onPollTick);
    m_subscriberContext->start();
    m_requestContext->start();
}

AbstractBackendCommunicator::AbstractBackendCommunicator(WithoutSockets, QObject *parent)
    : QObject(parent)
    , m_dataCache(*this)
    , m_publicationWatch(m_timings.publicationHealing, m_timings.publicationRetry)
    , m_stallWatch(m_timings.stall)
{}

AbstractBackendCommunicator::~AbstractBackendCommunicator()
{
    shutDown();
    if (m_requestSocket)
        QThread::msleep(static_cast<unsigned long>(m_timings.closingPause)); // what was sent last may still leave
}

void AbstractBackendCommunicator::shutDown()
{
    if (m_shutDown)
        return;
    m_shutDown = true;
    if (m_subscriberContext)
        m_subscriberContext->stop();
    abortAllRequests();
}

void AbstractBackendCommunicator::createSockets()
{
    using nzmqt::ZMQSocket;
    m_requestSocket.reset(createSocket(*m_requestContext, ZMQ_DEALER));
    connect(m_requestSocket.get(), &ZMQSocket::messageReceived, this,
            &AbstractBackendCommunicator::onReplyMessageReceived);
    connect(m_requestSocket.get(), &ZMQSocket::connected, this,
            [this] { qCDebug(zmqAComm) << "Request socket connected to" << m_requestEndpoint; });
    connect(m_requestSocket.get(), &ZMQSocket::disconnected, this,
            [this] { qCDebug(zmqAComm) << "Request socket lost" << m_requestEndpoint; });
    m_requestSocket->setOption(ZMQ_LINGER, 0);

    m_subscriberSocket.reset(createSocket(*m_subscriberContext, ZMQ_SUB));
    connect(m_subscriberSocket.get(), &ZMQSocket::messageReceived, this,
            &AbstractBackendCommunicator::onSubMessageReceived);
    connect(m_subscriberSocket.get(), &ZMQSocket::connected, &m_publicationWatch, &PublicationWatch::onConnected);
    connect(m_subscriberSocket.get(), &ZMQSocket::disconnected, &m_publicationWatch, &PublicationWatch::onDropped);
    // Nothing is ever sent on it, so only the system can tell that the peer vanished without a word.
    m_subscriberSocket->setOption(ZMQ_TCP_KEEPALIVE, 1);
    m_subscriberSocket->setOption(ZMQ_TCP_KEEPALIVE_IDLE, 30); // seconds, as the next one
    m_subscriberSocket->setOption(ZMQ_TCP_KEEPALIVE_INTVL, 10);
    m_subscriberSocket->setOption(ZMQ_TCP_KEEPALIVE_CNT, 3);

    setLargestMessage(Compression::outputLimit);
}

void AbstractBackendCommunicator::setLargestMessage(qint64 bytes)
{
    m_requestSocket->setOption(ZMQ_MAXMSGSIZE, bytes);
    m_subscriberSocket->setOption(ZMQ_MAXMSGSIZE, bytes);
}

bool AbstractBackendCommunicator::init(const QString &address, const QString &login, const QString &password,
                                       int controlPort, int updatePort)
{
    // A slot or a callback on the way may begin or end a connection: the younger call counts, this one is over.
    const int session = ++m_session;
    const auto isOver = [this, session] { return m_session != session || m_shutDown; };

    abortAllRequests();
    if (isOver())
        return true;
    destroyRequestSocket();
    destroySubscriberSocket();
    dropLateReplyHandles();
    if (isOver())
        return true;

    qDebug() << "Initializing connection";
    const auto oldPublisher = publisherSocketAddress();
    m_address = address.trimmed();
    m_controlPort = controlPort;
    m_updatePort = updatePort;
    m_login = login;
    m_password = password;
    if (publisherSocketAddress() != oldPublisher)
        m_publicationWatch.forget();
    emit userCredentialsChanged();
    if (!isOver())
        setStatus(Connecting);
    if (isOver())
        return true;

    try {
        createRequestSocket();
        auth(login, password);
    } catch (const zmq::error_t &error) {
        emit errorOccured(tr("Некорректный адрес сервера (%1)").arg(QString::fromLocal8Bit(error.what())));
        return false;
    }
    return true;
}

bool AbstractBackendCommunicator::reinit()
{
    return init(m_address, m_login, m_password, m_controlPort, m_updatePort);
}

void AbstractBackendCommunicator::reconnect()
{
    QMetaObject::invokeMethod(this, [this] { reinit(); });
}

void AbstractBackendCommunicator::disconnectFromServer()
{
    const int session = ++m_session;
    setStatus(Disconnected);
    if (m_session == session)
        abortAllRequests();
    if (m_session != session)
        return; // a slot or a callback has begun another connection
    destroyRequestSocket();
    destroySubscriberSocket();
    dropLateReplyHandles();
    if (m_session == session)
        m_publicationWatch.forget();
}

void AbstractBackendCommunicator::setAddress(const QString &address)
{
    const auto trimmed = address.trimmed();
    if (trimmed == address)
        return;
    m_address = trimmed;
    emit addressChanged();
}

void AbstractBackendCommunicator::setControlPort(int port)
{
    if (m_controlPort == port)
        return;
    m_controlPort = port;
    emit controlPortChanged();
}

void AbstractBackendCommunicator::setUpdatePort(int port)
{
    if (m_updatePort == port)
        return;
    m_updatePort = port;
    emit updatePortChanged();
}

QString AbstractBackendCommunicator::responseSocketAddress() const
{
    return socketAddress(m_address, m_controlPort);
}

QString AbstractBackendCommunicator::publisherSocketAddress() const
{
    return socketAddress(m_address, m_updatePort);
}

void AbstractBackendCommunicator::createRequestSocket()
{
    if (!m_requestSocket)
        return;
    m_requestSocket->startMonitor();
    const auto endpoint = responseSocketAddress();
    m_requestSocket->connectTo(endpoint);
    m_requestEndpoint = endpoint;
    QMetaObject::invokeMethod(&m_pingTimer, "start", Qt::QueuedConnection);
}

void AbstractBackendCommunicator::destroyRequestSocket()
{
    if (!m_requestSocket)
        return;
    QMetaObject::invokeMethod(&m_pingTimer, "stop", Qt::QueuedConnection);
    disconnectSocket(*m_requestSocket, m_requestEndpoint);
}

void AbstractBackendCommunicator::createSubscriberSocket()
{
    if (!m_subscriberSocket)
        return;
    destroySubscriberSocket();
    subscribe(subscriptionTopics());
    m_subscriberSocket->startMonitor();
    const auto endpoint = publisherSocketAddress();
    m_subscriberSocket->connectTo(endpoint);
    m_subscriberEndpoint = endpoint;
    m_publicationWatch.open();
}

void AbstractBackendCommunicator::destroySubscriberSocket()
{
    m_publicationWatch.close();
    if (m_subscriberSocket)
        disconnectSocket(*m_subscriberSocket, m_subscriberEndpoint);
}

void AbstractBackendCommunicator::subscribe(const QStringList &topics)
{
    if (!m_subscriberSocket)
        return;
    for (const auto &topic : qAsConst(m_subscribedTopics))
        m_subscriberSocket->setOption(ZMQ_UNSUBSCRIBE, topic.toUtf8());
    m_subscribedTopics = topics;
    for (const auto &topic : topics)
        m_subscriberSocket->setOption(ZMQ_SUBSCRIBE, topic.toUtf8());
}

std::shared_ptr<BackendReplyHandler> AbstractBackendCommunicator::sendRequest(ZmqMessageHeader header,
                                                                              const QByteArray &body, int timeoutMs)
{
    const auto counter = ++requestCounter;
    qCDebug(zmqAComm) << counter << ": New request!";

    QMutexLocker locker(&m_requestMutex);
    if (!m_requestSocket || m_aborting)
        return std::make_shared<BackendReplyHandler>();

    qCDebug(zmqAComm) << counter << ": Sending message";
    header.setId(header.id() + ':' + QByteArray::number(counter));
    sendMessage(*m_requestSocket, {header.toByteArray(), body});
    const auto handler = std::make_shared<BackendReplyHandler>(header.id(), timeoutMs);
    addReplyHandle(handler);
    return handler;
}

// A message that finds no room is dropped: its reply never comes, and the link reconnects when that is noticed.
void AbstractBackendCommunicator::sendMessage(nzmqt::ZMQSocket &socket, QList<QByteArray> parts)
{
    parts.prepend(QByteArray());
    socket.sendMessage(parts);
}

void AbstractBackendCommunicator::addReplyHandle(const std::shared_ptr<BackendReplyHandler> &handler)
{
    m_replyHandles.insert(handler->id(), handler);
    checkReplyTimeouts();
}

std::shared_ptr<BackendReplyHandler> AbstractBackendCommunicator::takeReplyHandle(const QByteArray &id)
{
    return m_replyHandles.take(id);
}

// A lost reply means a reconnect of the whole link; there is no retry of a single request.
void AbstractBackendCommunicator::checkReplyTimeouts()
{
    qint64 wait = m_timings.longestCheck;
    for (const auto &handler : qAsConst(m_replyHandles)) {
        if (handler->hasExpired())
            QMetaObject::invokeMethod(this, &AbstractBackendCommunicator::reconnect, Qt::QueuedConnection);
        else if (handler->remainingTime() >= 0)
            wait = qMin(wait, handler->remainingTime());
    }
    const int next = qMax(static_cast<int>(wait) + m_timings.checkSlack, m_timings.shortestCheck);
    QMetaObject::invokeMethod(&m_replyTimeoutTimer, "start", Qt::QueuedConnection, Q_ARG(int, next));
}

void AbstractBackendCommunicator::abortAllRequests()
{
    qCDebug(zmqAComm) << "Aborting all requests";
    m_aborting = true;
    dropReplyHandles();
    qCDebug(zmqAComm) << "Done aborting requests";
}

// Discard callbacks run when the lock is released and requests are taken again, so they may send.
void AbstractBackendCommunicator::dropReplyHandles()
{
    takeReplyHandles(m_shutDown);
}

// The requests that discard callbacks have made on a connection that has ended since. Further ones are refused.
void AbstractBackendCommunicator::dropLateReplyHandles()
{
    takeReplyHandles(true).clear();
    m_aborting = m_shutDown;
}

// They discard themselves where the caller lets go of them, outside the lock.
AbstractBackendCommunicator::ReplyHandles AbstractBackendCommunicator::takeReplyHandles(bool aborting)
{
    const QMutexLocker locker(&m_requestMutex);
    m_aborting = aborting;
    return std::exchange(m_replyHandles, {});
}

boost::optional<AbstractBackendCommunicator::ParsedMessage>
AbstractBackendCommunicator::parseMessage(const QList<QByteArray> &parts)
{
    int delimiter = 0;
    while (delimiter < parts.size() && !parts.at(delimiter).isEmpty())
        ++delimiter;
    if (delimiter + 2 >= parts.size())
        return boost::none;
    const auto header = ZmqMessageHeader::fromByteArray(parts.at(delimiter + 1));
    if (!header || !(header->isJson() || header->isRaw()))
        return boost::none;

    ParsedMessage message;
    message.type = header->isJson() ? MessageType::Json : MessageType::Binary;
    message.id = header->id();
    message.body = parts.at(delimiter + 2);
    if (header->isCompressed()) {
        const auto unpacked = Compression::unpack(message.body);
        if (!unpacked)
            return boost::none;
        message.body = *unpacked;
    }
    return message;
}

void AbstractBackendCommunicator::onReplyMessageReceived(const QList<QByteArray> &parts)
{
    const auto message = parseMessage(parts);
    if (!message)
        return;
    handleCommonErrors(*message);
    const auto handler = takeReplyHandle(message->id);
    if (!handler)
        return;
    if (message->type == MessageType::Json)
        handler->setReply(message->body);
    else
        handler->setBinaryReply(message->body);
}

void AbstractBackendCommunicator::onPingTick()
{
    if (!m_requestMutex.tryLock())
        return; // somebody is sending: the next tick is soon enough
    m_requestMutex.unlock();
    ping();
}

void AbstractBackendCommunicator::onPollTick()
{
    // Publications waited meanwhile, and a full queue keeps the oldest and loses the newest.
    if (m_stallWatch.tick() && m_status == Connected) {
        qDebug() << "The main loop stood still, reconnecting";
        reconnect();
    }
}

void AbstractBackendCommunicator::onPublicationsLost()
{
    if (m_status != Connected)
        return;
    qDebug() << "Publications are lost, reconnecting";
    reconnect();
}

void AbstractBackendCommunicator::setStatus(Status status)
{
    if (m_status == status)
        return;
    m_status = status;
    emit statusChanged();
    static const char *const names[] = {"Disconnected", "Connecting", "Connected"};
    qDebug() << "Status:" << names[status];
}

void AbstractBackendCommunicator::setUserGroup(const QString &group)
{
    m_userGroup = group;
    emit userGroupChanged();
}

void AbstractBackendCommunicator::setServerVersion(const QVersionNumber &version)
{
    if (m_serverVersion == version)
        return;
    m_serverVersion = version;
    emit serverVersionChanged();
}
