// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/zmq/PollingZMQContext.h"
#include "link/zmq/ZMQSocket.h"

#include <QJsonObject>
#include <QObject>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

// A server on loopback that the test drives: it notes each request, and answers and publishes what it is told to.
// Frames and documents are taken apart by hand, so that a mistake of the program's own classes shows.
class FakeServer : public QObject
{
    Q_OBJECT

public:
    struct Request
    {
        QList<QByteArray> frames; // as received, the routing frame included
        QByteArray peer;
        quint8 flags = 0;
        QByteArray id;
        QByteArray body; // as it stood on the wire
        QJsonObject document; // of a JSON body, unpacked

        QString method() const { return document.value("method").toString(); }
        QString link() const { return document.value("link").toString(); }
        QByteArray resource() const { return id.left(id.lastIndexOf(':')); }
        quint64 counter() const { return id.mid(id.lastIndexOf(':') + 1).toULongLong(); }
    };

    enum Flag { Raw = 1, Json = 2, Compressed = 4 };

    FakeServer();
    ~FakeServer() override;

    int controlPort() const { return m_controlPort; }
    int updatePort() const { return m_updatePort; }

    std::vector<Request> requests; // oldest first
    QStringList subscriptions; // each once, in the order in which they came, until withdrawn

    // What each request gets once it is noted. The default answers a login and nothing else.
    std::function<void(const Request &)> answer;
    QByteArray loginReply = loginDocument("4.5.2");

    static QByteArray loginDocument(const QByteArray &version);
    static QByteArray header(quint8 flags, const QByteArray &id);

    void answerLogin(const Request &request);
    void reply(const Request &request, const QByteArray &document);
    void replyBinary(const Request &request, const QByteArray &body);
    void sendFrames(const QByteArray &peer, const QList<QByteArray> &frames);
    void publish(const QByteArray &topic, const QByteArray &document);
    bool publishFrames(const QList<QByteArray> &frames);

    std::vector<Request> requestsFor(const QByteArray &resource) const;
    const Request &last(const QByteArray &resource) const;
    int count(const QByteArray &resource) const { return static_cast<int>(requestsFor(resource).size()); }

    // A port that goes down drops its connections, and comes back under the same number.
    void closeControl();
    void openControl();
    void closePublications();
    void openPublications();

signals:
    void requestReceived();
    void subscribed(const QByteArray &topic);

private:
    void onRequest(const QList<QByteArray> &frames);
    void onSubscription(const QList<QByteArray> &frames);
    std::unique_ptr<nzmqt::ZMQSocket> bind(int type, int &port);

    nzmqt::PollingZMQContext m_context;
    int m_controlPort = 0;
    int m_updatePort = 0;
    std::unique_ptr<nzmqt::ZMQSocket> m_control;
    std::unique_ptr<nzmqt::ZMQSocket> m_publications;
};
