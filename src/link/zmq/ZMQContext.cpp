// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/zmq/ZMQContext.h"

#include "link/zmq/ZMQSocket.h"
#include "link/zmq/ZmqError.h"

#include <zmq.h>

namespace nzmqt {

ZMQContext::ZMQContext(int ioThreads, int maxSockets, QObject *parent)
    : QObject(parent)
    , m_context(zmq_ctx_new())
{
    if (!m_context)
        throw zmq::error_t();
    if (zmq_ctx_set(m_context, ZMQ_IO_THREADS, ioThreads) != 0
        || zmq_ctx_set(m_context, ZMQ_MAX_SOCKETS, maxSockets) != 0) {
        const zmq::error_t error;
        zmq_ctx_term(m_context);
        throw error;
    }
}

ZMQContext::~ZMQContext()
{
    // Children would go after this body, but the end of a context waits until its sockets are closed.
    qDeleteAll(findChildren<ZMQSocket *>(QString(), Qt::FindDirectChildrenOnly));
    while (zmq_ctx_term(m_context) != 0 && zmq_errno() == EINTR) {}
}

ZMQSocket *ZMQContext::createSocketInternal(int type)
{
    auto *socket = new ZMQSocket(*this, type);
    socket->setParent(this);
    return socket;
}

void ZMQContext::registerSocket(ZMQSocket *socket)
{
    if (!m_sockets.contains(socket))
        m_sockets.append(socket);
}

void ZMQContext::unregisterSocket(ZMQSocket *socket)
{
    m_sockets.removeAll(socket);
}

} // namespace nzmqt
