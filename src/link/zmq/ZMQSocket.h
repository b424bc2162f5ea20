// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>

namespace nzmqt {

class ZMQContext;

// One libzmq socket. Its context polls it and makes it emit what arrived. Calls throw zmq::error_t on failure.
class ZMQSocket : public QObject
{
    Q_OBJECT

public:
    ~ZMQSocket() override; // unregisters and closes

    int type() const { return m_type; }
    void *handle() const { return m_socket; }

    void setOption(int option, int value);
    void setOption(int option, qint64 value);
    void setOption(int option, const QByteArray &value);
    int intOption(int option) const;

    void connectTo(const QString &address); // zmq_connect
    void disconnectFrom(const QString &address); // zmq_disconnect
    void bindTo(const QString &address); // zmq_bind, for servers
    void unbindFrom(const QString &address);
    QString lastEndpoint() const; // of ZMQ_LAST_ENDPOINT, to learn the port after binding to port 0

    // All parts without waiting. False if the library reports EAGAIN: the message, or the rest of it, is dropped.
    bool sendMessage(const QList<QByteArray> &parts);

    // One whole message, or an empty list when none waits. Never waits.
    QList<QByteArray> receiveMessage();

    // Emits connected() and disconnected() from now on, through a monitor socket that the context polls as well.
    // Meant for a socket with one peer. Started again it forgets what it has not told yet.
    void startMonitor();
    void stopMonitor();

signals:
    void messageReceived(const QList<QByteArray> &parts);
    void connected(); // the handshake with the peer succeeded
    void disconnected(); // a standing connection was dropped

private:
    friend class ZMQContext;
    friend class PollingZMQContext;

    ZMQSocket(ZMQContext &context, int type);
    void readMonitor(); // all waiting events

    ZMQContext *m_context;
    void *m_socket;
    void *m_monitor = nullptr;
    int m_type;
    int m_standing = 0; // connections that the monitor has told of
};

} // namespace nzmqt
