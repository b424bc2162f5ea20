// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/zmq/TickTimer.h"
#include "link/zmq/ZMQContext.h"

#include <QMutex>
#include <QPointer>
#include <vector>
#include <zmq.h>

namespace nzmqt {

// Polls its sockets inside the event loop of the thread it lives in: at once after start(), then each interval.
// A tick reads until no message waits or its budget of time is spent; the order of messages stays.
class PollingZMQContext : public ZMQContext
{
    Q_OBJECT

public:
    // interval and tickBudget are milliseconds.
    explicit PollingZMQContext(int ioThreads, int maxSockets, int interval = 10, int tickBudget = 8,
                               QObject *parent = nullptr);
    ~PollingZMQContext() override;

    void registerSocket(ZMQSocket *socket) override;
    void unregisterSocket(ZMQSocket *socket) override;

    void start() override;
    void stop() override;
    bool isStopped() const override { return m_stopped; }
    int interval() const { return m_interval; }

signals:
    void ticked(); // after each poll, also when nothing waited

private slots:
    void run();

private:
    struct Ready
    {
        QPointer<ZMQSocket> socket;
        bool isMonitor;
    };

    std::vector<Ready> poll();
    void drain();
    void read(ZMQSocket &socket, bool monitor);
    void reportPollError(int errorNumber, const char *message);

    QMutex m_mutex; // over the list of sockets and the poll items
    std::vector<zmq_pollitem_t> m_items; // made anew for each poll; a member to keep its memory
    TickTimer m_timer;
    int m_interval;
    int m_tickBudget;
    bool m_stopped = true;
};

} // namespace nzmqt
