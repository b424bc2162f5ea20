// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/zmq/ZMQSocket.h"

#include "link/zmq/ZMQContext.h"
#include "link/zmq/ZmqError.h"

#include <QPointer>
#include <atomic>
#include <cstring>
#include <limits>
#include <zmq.h>

namespace nzmqt {

namespace {

// One frame, closed on every road out.
class Frame
{
public:
    Frame() { zmq_msg_init(&m_message); }
    explicit Frame(const QByteArray &bytes)
    {
        if (zmq_msg_init_size(&m_message, static_cast<size_t>(bytes.size())) != 0)
            throw zmq::error_t();
        std::memcpy(zmq_msg_data(&m_message), bytes.constData(), static_cast<size_t>(bytes.size()));
    }
    ~Frame() { zmq_msg_close(&m_message); }
    Frame(const Frame &) = delete;
    Frame &operator=(const Frame &) = delete;

    zmq_msg_t *handle() { return &m_message; }
    size_t size() { return zmq_msg_size(&m_message); }
    QByteArray bytes()
    {
        return QByteArray(static_cast<const char *>(zmq_msg_data(&m_message)), static_cast<int>(size()));
    }

private:
    zmq_msg_t m_message;
};

void check(int result)
{
    if (result != 0)
        throw zmq::error_t();
}

int intOptionOf(void *socket, int option)
{
    int value = 0;
    size_t size = sizeof value;
    check(zmq_getsockopt(socket, option, &value, &size));
    return value;
}

QList<QByteArray> receiveFrom(void *socket)
{
    QList<QByteArray> parts;
    bool tooLarge = false; // for a byte array; the library's own limit is off by default
    do {
        Frame frame;
        if (zmq_msg_recv(frame.handle(), socket, ZMQ_DONTWAIT) < 0) {
            if (zmq_errno() == EAGAIN)
                break;
            throw zmq::error_t();
        }
        tooLarge = tooLarge || frame.size() > static_cast<size_t>(std::numeric_limits<int>::max() / 2);
        if (!tooLarge)
            parts << frame.bytes();
    } while (intOptionOf(socket, ZMQ_RCVMORE));
    if (tooLarge)
        throw zmq::error_t(EMSGSIZE);
    return parts;
}

} // namespace

ZMQSocket::ZMQSocket(ZMQContext &context, int type)
    : m_context(&context)
    , m_socket(zmq_socket(context.handle(), type))
    , m_type(type)
{
    if (!m_socket)
        throw zmq::error_t();
}

ZMQSocket::~ZMQSocket()
{
    m_context->unregisterSocket(this);
    stopMonitor();
    zmq_close(m_socket);
}

void ZMQSocket::setOption(int option, int value)
{
    check(zmq_setsockopt(m_socket, option, &value, sizeof value));
}

void ZMQSocket::setOption(int option, qint64 value)
{
    check(zmq_setsockopt(m_socket, option, &value, sizeof value));
}

void ZMQSocket::setOption(int option, const QByteArray &value)
{
    check(zmq_setsockopt(m_socket, option, value.constData(), static_cast<size_t>(value.size())));
}

int ZMQSocket::intOption(int option) const
{
    return intOptionOf(m_socket, option);
}

void ZMQSocket::connectTo(const QString &address)
{
    check(zmq_connect(m_socket, address.toUtf8().constData()));
}

void ZMQSocket::disconnectFrom(const QString &address)
{
    check(zmq_disconnect(m_socket, address.toUtf8().constData()));
    m_standing = 0; // the library tells nothing of a connection that is closed from here
}

void ZMQSocket::bindTo(const QString &address)
{
    check(zmq_bind(m_socket, address.toUtf8().constData()));
}

void ZMQSocket::unbindFrom(const QString &address)
{
    check(zmq_unbind(m_socket, address.toUtf8().constData()));
}

QString ZMQSocket::lastEndpoint() const
{
    char endpoint[1024];
    size_t size = sizeof endpoint;
    check(zmq_getsockopt(m_socket, ZMQ_LAST_ENDPOINT, endpoint, &size));
    return QString::fromUtf8(endpoint);
}

bool ZMQSocket::sendMessage(const QList<QByteArray> &parts)
{
    for (int i = 0; i < parts.size(); ++i) {
        Frame frame(parts.at(i));
        const int more = i + 1 < parts.size() ? ZMQ_SNDMORE : 0;
        if (zmq_msg_send(frame.handle(), m_socket, ZMQ_DONTWAIT | more) < 0) {
            if (zmq_errno() == EAGAIN)
                return false;
            throw zmq::error_t();
        }
    }
    return true;
}

QList<QByteArray> ZMQSocket::receiveMessage()
{
    return receiveFrom(m_socket);
}

void ZMQSocket::startMonitor()
{
    stopMonitor(); // what an earlier monitor has not told is no longer true
    static std::atomic<quint64> counter{0};
    const QByteArray address = "inproc://monitor-" + QByteArray::number(++counter);
    check(zmq_socket_monitor(m_socket, address.constData(), ZMQ_EVENT_HANDSHAKE_SUCCEEDED | ZMQ_EVENT_DISCONNECTED));
    m_monitor = zmq_socket(m_context->handle(), ZMQ_PAIR);
    if (!m_monitor || zmq_connect(m_monitor, address.constData()) != 0) {
        const zmq::error_t error;
        stopMonitor();
        throw error;
    }
}

void ZMQSocket::stopMonitor()
{
    m_standing = 0;
    zmq_socket_monitor(m_socket, nullptr, 0);
    if (m_monitor)
        zmq_close(m_monitor);
    m_monitor = nullptr;
}

void ZMQSocket::readMonitor()
{
    const QPointer<ZMQSocket> self(this); // a slot may delete the socket or stop the monitor
    while (self && m_monitor) {
        const auto parts = receiveFrom(m_monitor); // the event with its value, and the address
        if (parts.isEmpty())
            return;
        quint16 event = 0;
        if (parts.first().size() >= int(sizeof event))
            std::memcpy(&event, parts.first().constData(), sizeof event);
        if (event == ZMQ_EVENT_HANDSHAKE_SUCCEEDED) {
            ++m_standing;
            emit connected();
        } else if (event == ZMQ_EVENT_DISCONNECTED && m_standing > 0) { // else a handshake that failed
            --m_standing;
            emit disconnected();
        }
    }
}

} // namespace nzmqt
