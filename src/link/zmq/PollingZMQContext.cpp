// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/zmq/PollingZMQContext.h"

#include "link/zmq/ZMQSocket.h"
#include "link/zmq/ZmqError.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QtDebug>

namespace nzmqt {

PollingZMQContext::PollingZMQContext(int ioThreads, int maxSockets, int interval, int tickBudget, QObject *parent)
    : ZMQContext(ioThreads, maxSockets, parent)
    , m_interval(interval)
    , m_tickBudget(tickBudget)
{
    connect(&m_timer, &TickTimer::timeout, this, &PollingZMQContext::run);
}

PollingZMQContext::~PollingZMQContext() = default;

void PollingZMQContext::registerSocket(ZMQSocket *socket)
{
    QMutexLocker locker(&m_mutex);
    ZMQContext::registerSocket(socket);
}

void PollingZMQContext::unregisterSocket(ZMQSocket *socket)
{
    QMutexLocker locker(&m_mutex);
    ZMQContext::unregisterSocket(socket);
}

void PollingZMQContext::start()
{
    m_stopped = false;
    m_timer.start(0);
}

void PollingZMQContext::stop()
{
    m_stopped = true;
    m_timer.stop();
}

void PollingZMQContext::run()
{
    if (m_stopped)
        return;
    const QPointer<PollingZMQContext> self(this); // a slot may delete the context
    m_timer.start(m_interval); // a slot may run an event loop of its own, and polling goes on in it
    try {
        drain();
    } catch (const zmq::error_t &error) {
        reportPollError(error.num(), error.what());
    } catch (const std::exception &error) {
        reportPollError(0, error.what());
    }
    if (self)
        emit ticked();
    if (self && !m_stopped)
        m_timer.start(m_interval);
}

void PollingZMQContext::reportPollError(int errorNumber, const char *message)
{
    qWarning("Exception during poll: %s", message);
    emit pollError(errorNumber, QString::fromLocal8Bit(message));
}

// One message of each ready socket in turn, so that a flood on one does not starve the other.
void PollingZMQContext::drain()
{
    const QPointer<PollingZMQContext> self(this);
    QElapsedTimer elapsed;
    elapsed.start();
    do {
        const auto ready = poll();
        if (ready.empty())
            return;
        for (const auto &item : ready) {
            if (item.socket)
                read(*item.socket, item.isMonitor);
            if (!self || m_stopped)
                return;
        }
    } while (!elapsed.hasExpired(m_tickBudget));
}

void PollingZMQContext::read(ZMQSocket &socket, bool monitor)
{
    if (monitor)
        return socket.readMonitor();
    const auto message = socket.receiveMessage();
    if (!message.isEmpty())
        emit socket.messageReceived(message);
}

// The lock is held here alone and never while a signal is out: a slot may register and delete sockets.
std::vector<PollingZMQContext::Ready> PollingZMQContext::poll()
{
    QMutexLocker locker(&m_mutex);
    m_items.clear();
    for (const auto *socket : registeredSockets()) {
        m_items.push_back({socket->m_socket, 0, ZMQ_POLLIN, 0});
        if (socket->m_monitor)
            m_items.push_back({socket->m_monitor, 0, ZMQ_POLLIN, 0});
    }
    if (zmq_poll(m_items.data(), static_cast<int>(m_items.size()), 0) < 0) {
        if (zmq_errno() == EINTR)
            return {};
        throw zmq::error_t();
    }

    std::vector<Ready> ready;
    auto item = m_items.cbegin();
    for (auto *socket : registeredSockets()) {
        if ((item++)->revents & ZMQ_POLLIN)
            ready.push_back({socket, false});
        if (socket->m_monitor && (item++)->revents & ZMQ_POLLIN)
            ready.push_back({socket, true});
    }
    return ready;
}

} // namespace nzmqt
