// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QObject>

namespace nzmqt {

class ZMQSocket;

// Owns one libzmq context and knows the sockets registered in it. All calls throw zmq::error_t on failure.
class ZMQContext : public QObject
{
    Q_OBJECT

public:
    explicit ZMQContext(int ioThreads, int maxSockets, QObject *parent = nullptr);
    ~ZMQContext() override; // terminates the context; every socket must be closed before

    // A new socket of a ZMQ_* type, not yet registered, with this context as QObject parent.
    ZMQSocket *createSocketInternal(int type);
    virtual void registerSocket(ZMQSocket *socket);
    virtual void unregisterSocket(ZMQSocket *socket);
    const QList<ZMQSocket *> &registeredSockets() const { return m_sockets; }

    virtual void start() = 0;
    virtual void stop() = 0;
    virtual bool isStopped() const = 0;

    void *handle() const { return m_context; }

signals:
    void pollError(int errorNumber, const QString &message);

private:
    void *m_context;
    QList<ZMQSocket *> m_sockets;
};

} // namespace nzmqt
