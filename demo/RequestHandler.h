// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/Resources.h"
#include "link/document/ZmqMessageHeader.h"

#include <QByteArray>
#include <QHash>
#include <QVersionNumber>

namespace Demo {

// A header and its body, as they travel.
struct Message
{
    ZmqMessageHeader header;
    QByteArray body;
};

// Answers requests: reads them, knows who is logged in on which connection, and looks up the table of resources. Knows
// nothing of sockets. Whatever comes in, one answer goes out.
class RequestHandler
{
public:
    RequestHandler(DemoSite &site, SiteClock &clock, const QVersionNumber &version, quint32 seed = 1);

    Message answer(const QByteArray &connection, const Message &request);

private:
    struct Session
    {
        QString login;
        QString locale;
    };

    Outcome answerBody(const QByteArray &connection, const Message &request);
    Outcome answerDocument(const QByteArray &connection, const QByteArray &json);
    Outcome answerUpload(const QByteArray &connection, const QByteArray &body);
    Outcome logIn(const JsonAPI::Request &request);
    // Null for a connection that has not logged in, or whose user is gone.
    const Model::UserInfo *userOf(const QByteArray &connection) const;

    Context m_context;
    QVersionNumber m_version;
    QHash<QByteArray, Session> m_sessions;
};

} // namespace Demo
