// SPDX-License-Identifier: GPL-3.0-or-later
#include "FakeServer.h"

#include "link/zmq/ZmqError.h"

#include <QJsonDocument>
#include <QUrl>
#include <QtTest>

using nzmqt::ZMQSocket;

FakeServer::FakeServer()
    : m_context(1, 100, 1, 5)
{
    answer = [this](const Request &request) {
        if (request.resource() == "auth")
            answerLogin(request);
    };
    openControl();
    openPublications();
    m_context.start();
}

FakeServer::~FakeServer() = default;

QByteArray FakeServer::loginDocument(const QByteArray &version)
{
    return R"({"data":[{"type":"auth","id":"1","attributes":{"group":"admin"}}],"server_version":")" + version
        + R"("})";
}

QByteArray FakeServer::header(quint8 flags, const QByteArray &id)
{
    return QByteArray(1, '\0') + QByteArray(1, static_cast<char>(flags)) + id;
}

std::unique_ptr<ZMQSocket> FakeServer::bind(int type, int &port)
{
    std::unique_ptr<ZMQSocket> socket(m_context.createSocketInternal(type));
    socket->setParent(nullptr);
    socket->setOption(ZMQ_LINGER, 0);
    const auto address = QString("tcp://127.0.0.1:%1").arg(port ? QString::number(port) : QString("*"));
    for (int attempt = 0;; ++attempt) { // the port of a socket just closed is free a moment later
        try {
            socket->bindTo(address);
            break;
        } catch (const zmq::error_t &error) {
            if (error.num() != EADDRINUSE || attempt == 500)
                throw;
            QTest::qWait(10);
        }
    }
    port = QUrl(socket->lastEndpoint()).port();
    m_context.registerSocket(socket.get());
    return socket;
}

void FakeServer::openControl()
{
    m_control = bind(ZMQ_ROUTER, m_controlPort);
    connect(m_control.get(), &ZMQSocket::messageReceived, this, &FakeServer::onRequest);
}

void FakeServer::closeControl()
{
    m_control.reset();
}

void FakeServer::openPublications()
{
    m_publications = bind(ZMQ_XPUB, m_updatePort);
    m_publications->setOption(ZMQ_XPUB_VERBOSE, 1); // tells of a subscriber also while another one still stands
    connect(m_publications.get(), &ZMQSocket::messageReceived, this, &FakeServer::onSubscription);
}

void FakeServer::closePublications()
{
    m_publications.reset();
    subscriptions.clear();
}

void FakeServer::onRequest(const QList<QByteArray> &frames)
{
    Request request;
    request.frames = frames;
    request.peer = frames.value(0);
    const auto head = frames.value(2);
    request.flags = static_cast<quint8>(head.size() > 1 ? head.at(1) : 0);
    request.id = head.mid(2);
    request.body = frames.value(3);
    if (request.flags & Json) {
        const auto text = request.flags & Compressed ? qUncompress(request.body) : request.body;
        request.document = QJsonDocument::fromJson(text).object();
    }
    requests.push_back(request);
    if (answer)
        answer(request);
    emit requestReceived();
}

void FakeServer::onSubscription(const QList<QByteArray> &frames)
{
    const auto frame = frames.value(0);
    const auto topic = QString::fromUtf8(frame.mid(1));
    if (frame.startsWith('\1')) {
        if (!subscriptions.contains(topic))
            subscriptions << topic;
        emit subscribed(frame.mid(1));
    } else {
        subscriptions.removeOne(topic);
    }
}

void FakeServer::answerLogin(const Request &request)
{
    reply(request, loginReply);
}

void FakeServer::reply(const Request &request, const QByteArray &document)
{
    sendFrames(request.peer, {QByteArray(), header(Json, request.id), document});
}

void FakeServer::replyBinary(const Request &request, const QByteArray &body)
{
    sendFrames(request.peer, {QByteArray(), header(Raw, request.id), body});
}

void FakeServer::sendFrames(const QByteArray &peer, const QList<QByteArray> &frames)
{
    if (m_control)
        m_control->sendMessage(QList<QByteArray>{peer} + frames);
}

void FakeServer::publish(const QByteArray &topic, const QByteArray &document)
{
    publishFrames({topic, QByteArray(), header(Json | Compressed, topic), qCompress(document)});
}

bool FakeServer::publishFrames(const QList<QByteArray> &frames)
{
    return m_publications && m_publications->sendMessage(frames);
}

std::vector<FakeServer::Request> FakeServer::requestsFor(const QByteArray &resource) const
{
    std::vector<Request> result;
    for (const auto &request : requests) {
        if (request.resource() == resource)
            result.push_back(request);
    }
    return result;
}

const FakeServer::Request &FakeServer::last(const QByteArray &resource) const
{
    static const Request none;
    for (auto request = requests.rbegin(); request != requests.rend(); ++request) {
        if (request->resource() == resource)
            return *request;
    }
    return none;
}
