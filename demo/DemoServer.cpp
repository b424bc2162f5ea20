// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/DemoServer.h"

#include "link/zmq/PollingZMQContext.h"
#include "link/zmq/ZMQSocket.h"
#include "link/zmq/ZmqError.h"

#include <QPointer>
#include <QUrl>
#include <QtDebug>
#include <algorithm>
#include <zmq.h>

namespace Demo {

namespace {

constexpr qint64 largestMessage = 160 * 1024 * 1024; // an upload of a mesh
constexpr qint64 largestSubscription = 64 * 1024;
constexpr qint64 longestStep = 60000; // after a suspend the site does not live through the night at once

QString addressOf(const QString &host, int port)
{
    return QStringLiteral("tcp://%1:%2").arg(host, port == 0 ? QStringLiteral("*") : QString::number(port));
}

// A site that comes without a past gets one.
SiteData lived(SiteData site, quint32 seed, const SiteClock::Source &clock)
{
    if (site.journal.entries().empty())
        site.journal = Journal::invented(site, seed, SiteClock(site.timezone, clock).now());
    return site;
}

} // namespace

DemoServer::DemoServer(const SiteData &site, const Settings &settings, const SiteClock::Source &clock, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_site(lived(site, settings.seed, clock))
    , m_clock(site.timezone, clock)
    , m_simulation(m_site, settings.seed)
    , m_schedules(m_site, m_clock.now())
    , m_rules(m_site)
    , m_publisher(m_site, settings.version)
    , m_handler(m_site, m_clock, settings.version, settings.seed)
    , m_garbage(settings.seed)
{
    m_site.note({m_clock.now(), Model::LogEntry::Cause::System, {}, JournalTexts::serverStarted()});
    m_simulation.settle(m_clock.now());
    m_rules.evaluate();
    connect(&m_publisher, &Publisher::published, this, &DemoServer::publish);
    m_ticks.setTimerType(Qt::PreciseTimer);
    connect(&m_ticks, &QTimer::timeout, this, &DemoServer::onTick);
}

DemoServer::~DemoServer()
{
    stop();
}

bool DemoServer::start(QString *error)
{
    try {
        bindSockets();
    } catch (const zmq::error_t &problem) {
        stop();
        if (error)
            *error = QString::fromLocal8Bit(problem.what());
        return false;
    }
    m_context->start();
    m_sinceTick.start();
    if (m_settings.tick > 0)
        m_ticks.start(m_settings.tick);
    return true;
}

void DemoServer::bindSockets()
{
    m_context = std::make_unique<nzmqt::PollingZMQContext>(1, 1023);
    const auto create = [this](int type) {
        std::unique_ptr<nzmqt::ZMQSocket> socket(m_context->createSocketInternal(type));
        socket->setParent(nullptr);
        socket->setOption(ZMQ_LINGER, 0);
        m_context->registerSocket(socket.get());
        return socket;
    };
    const auto bound = [this](nzmqt::ZMQSocket &socket, int port) {
        socket.bindTo(addressOf(m_settings.bind, port));
        return QUrl(socket.lastEndpoint()).port();
    };
    m_requests = create(ZMQ_ROUTER);
    m_requests->setOption(ZMQ_MAXMSGSIZE, largestMessage);
    connect(m_requests.get(), &nzmqt::ZMQSocket::messageReceived, this, &DemoServer::onRequest);
    m_publications = create(ZMQ_XPUB);
    m_publications->setOption(ZMQ_XPUB_VERBOSE, 1); // each new subscriber gets the list, not only the first
    m_publications->setOption(ZMQ_MAXMSGSIZE, largestSubscription);
    connect(m_publications.get(), &nzmqt::ZMQSocket::messageReceived, this, [this](const QList<QByteArray> &parts) {
        if (!m_settings.faults.noPublications && parts.size() == 1)
            m_publisher.onSubscription(parts.first());
    });
    m_controlPort = bound(*m_requests, m_settings.controlPort);
    m_updatePort = bound(*m_publications, m_settings.updatePort);
}

void DemoServer::stop()
{
    m_ticks.stop();
    if (m_context)
        m_context->stop();
    m_publications.reset();
    m_requests.reset();
    m_context.reset();
}

// Identity, delimiter, header and body. What is not that cannot even be complained of.
void DemoServer::onRequest(const QList<QByteArray> &parts)
{
    if (m_settings.faults.silent || parts.size() != 4 || !parts.at(1).isEmpty())
        return;
    const auto header = ZmqMessageHeader::fromByteArray(parts.at(2));
    if (!header)
        return;
    const auto &connection = parts.first();
    const auto answer = m_handler.answer(connection, {*header, parts.at(3)});
    if (m_settings.faults.garbage)
        reply(QList<QByteArray>{connection} + m_garbage.frames());
    ++m_replies;
    if (m_settings.faults.drop > 0 && m_replies % m_settings.faults.drop == 0)
        return;
    const QList<QByteArray> frames{connection, QByteArray(), answer.header.toByteArray(), answer.body};
    if (m_settings.faults.slow > 0)
        QTimer::singleShot(m_settings.faults.slow, this, [this, frames] { reply(frames); });
    else
        reply(frames);
}

void DemoServer::onTick()
{
    const auto now = m_clock.now();
    m_schedules.advance(now);
    m_simulation.advance(std::min(m_sinceTick.restart(), longestStep), now);
    m_rules.evaluate(); // so that what the indicators show goes out together with what it follows from
    m_publisher.flush();
}

void DemoServer::reply(const QList<QByteArray> &parts)
{
    send(m_requests.get(), parts);
}

void DemoServer::publish(const QList<QByteArray> &parts)
{
    if (m_settings.faults.noPublications)
        return;
    if (m_settings.faults.garbage)
        send(m_publications.get(), QList<QByteArray>{parts.first()} + m_garbage.frames());
    send(m_publications.get(), parts);
}

// A client that is gone, or does not read, loses what is meant for it; the others must not feel it.
void DemoServer::send(nzmqt::ZMQSocket *socket, const QList<QByteArray> &parts)
{
    if (!socket)
        return;
    try {
        socket->sendMessage(parts);
    } catch (const zmq::error_t &problem) {
        qWarning("Could not send: %s", problem.what());
    }
}

} // namespace Demo
