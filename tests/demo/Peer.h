// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QJsonObject>
#include <QList>
#include <memory>

#include "link/zmq/PollingZMQContext.h"
#include "link/zmq/ZMQSocket.h"

// A client on real sockets that keeps what comes, as it comes.
class Peer
{
public:
    Peer(int controlPort, int updatePort);
    ~Peer();

    QByteArray ask(const QByteArray &document); // gives the id
    void send(const QList<QByteArray> &frames); // what follows the routing id
    void subscribe(const QByteArray &topic);

    bool hasReply(const QByteArray &id) const { return m_replies.contains(id); }
    QJsonObject reply(const QByteArray &id) const { return m_replies.value(id); }
    int replies() const { return m_replies.size(); }
    bool has(const QByteArray &topic) const { return m_lists.contains(topic); }
    QJsonObject list(const QByteArray &topic) const { return m_lists.value(topic); } // the newest
    int count(const QByteArray &topic) const { return m_counts.value(topic); }
    int unreadable() const { return m_unreadable; }

private:
    void onReply(const QList<QByteArray> &parts);
    void onPublication(const QList<QByteArray> &parts);

    nzmqt::PollingZMQContext m_context;
    std::unique_ptr<nzmqt::ZMQSocket> m_requests;
    std::unique_ptr<nzmqt::ZMQSocket> m_publications;
    QHash<QByteArray, QJsonObject> m_replies; // by id
    QHash<QByteArray, QJsonObject> m_lists; // by topic
    QHash<QByteArray, int> m_counts;
    int m_unreadable = 0;
    int m_counter = 0;
};
