// SPDX-License-Identifier: GPL-3.0-or-later
#include "Peer.h"

#include "link/document/ZmqMessageHeader.h"

#include <QJsonDocument>
#include <zmq.h>

namespace {

// The document of a header and a body, empty when they are not what they should be.
QJsonObject read(const QByteArray &header, const QByteArray &body)
{
    const auto flags = ZmqMessageHeader::fromByteArray(header);
    if (!flags || !flags->isJson())
        return {};
    return QJsonDocument::fromJson(flags->isCompressed() ? qUncompress(body) : body).object();
}

} // namespace

Peer::Peer(int controlPort, int updatePort)
    : m_context(1, 16, 5)
{
    const auto create = [this](int type, int port) {
        std::unique_ptr<nzmqt::ZMQSocket> socket(m_context.createSocketInternal(type));
        socket->setParent(nullptr);
        socket->setOption(ZMQ_LINGER, 0);
        m_context.registerSocket(socket.get());
        socket->connectTo(QStringLiteral("tcp://127.0.0.1:%1").arg(port));
        return socket;
    };
    m_requests = create(ZMQ_DEALER, controlPort);
    m_publications = create(ZMQ_SUB, updatePort);
    QObject::connect(m_requests.get(), &nzmqt::ZMQSocket::messageReceived,
                     [this](const QList<QByteArray> &parts) { onReply(parts); });
    QObject::connect(m_publications.get(), &nzmqt::ZMQSocket::messageReceived,
                     [this](const QList<QByteArray> &parts) { onPublication(parts); });
    m_context.start();
}

Peer::~Peer()
{
    m_context.stop();
}

QByteArray Peer::ask(const QByteArray &document)
{
    using Flags = ZmqMessageHeader::Flags;
    const QByteArray id = "peer:" + QByteArray::number(++m_counter);
    send({QByteArray(), ZmqMessageHeader({Flags::Json, Flags::Compressed}, id).toByteArray(), qCompress(document)});
    return id;
}

void Peer::send(const QList<QByteArray> &frames)
{
    m_requests->sendMessage(frames);
}

void Peer::subscribe(const QByteArray &topic)
{
    m_publications->setOption(ZMQ_SUBSCRIBE, topic);
}

void Peer::onReply(const QList<QByteArray> &parts)
{
    const auto header = parts.size() == 3 ? ZmqMessageHeader::fromByteArray(parts.at(1)) : boost::none;
    const auto document = header && parts.first().isEmpty() ? read(parts.at(1), parts.at(2)) : QJsonObject();
    if (document.isEmpty() || !document.value("server_version").isString())
        ++m_unreadable;
    else
        m_replies.insert(header->id(), document);
}

void Peer::onPublication(const QList<QByteArray> &parts)
{
    const auto document = parts.size() == 4 && parts.at(1).isEmpty() ? read(parts.at(2), parts.at(3)) : QJsonObject();
    if (document.isEmpty() || !document.value("server_version").isString()) {
        ++m_unreadable;
        return;
    }
    m_lists.insert(parts.first(), document);
    ++m_counts[parts.first()];
}
