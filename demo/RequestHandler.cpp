// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/RequestHandler.h"

#include "demo/RequestErrors.h"
#include "demo/RequestReader.h"
#include "link/document/Compression.h"

#include <algorithm>

namespace Demo {

namespace {

using Errors = JsonAPI::Errors;
using Kind = RequestReader::Kind;
using JsonAPI::Request;
using JsonAPI::Response;

constexpr qint64 largestDocument = 64 * 1024 * 1024;
constexpr qint64 largestUpload = 160 * 1024 * 1024; // a mesh, and room for what is said of it
constexpr int mostSessions = 10000; // routing ids of lost peers never come back, so the table would only grow

Response complaint(void (*complain)(Errors &errors))
{
    Errors errors;
    complain(errors);
    return RequestErrors::response(errors);
}

Response complaint(void (*complain)(Errors &errors, const QString &detail), const QString &detail)
{
    Errors errors;
    complain(errors, detail);
    return RequestErrors::response(errors);
}

bool mayAsk(Access access, const Model::UserInfo &user)
{
    return access == Access::User || user.group == QLatin1String("admin");
}

template <typename Row, typename Predicate>
const Row *findRow(const std::vector<Row> &rows, Predicate predicate)
{
    const auto found = std::find_if(rows.begin(), rows.end(), predicate);
    return found == rows.end() ? nullptr : &*found;
}

const Resource *findResource(const Request &request, bool &nameKnown)
{
    for (const auto *rows : {&siteResources(), &planResources(), &automationResources(), &systemResources(),
                             &serviceResources(), &statisticsResources()}) {
        for (const auto &row : *rows) {
            if (request.type != QLatin1String(row.name))
                continue;
            nameKnown = true;
            if (row.method == request.method)
                return &row;
        }
    }
    return nullptr;
}

} // namespace

RequestHandler::RequestHandler(DemoSite &site, SiteClock &clock, const QVersionNumber &version, quint32 seed)
    : m_context{site, clock, seed}
    , m_version(version)
{}

Message RequestHandler::answer(const QByteArray &connection, const Message &request)
{
    auto outcome = answerBody(connection, request);
    using Flags = ZmqMessageHeader::Flags;
    Message reply{ZmqMessageHeader({outcome.binary ? Flags::Raw : Flags::Json}, request.header.id()), {}};
    outcome.response.serverVersion = m_version;
    reply.body = outcome.binary ? outcome.binary->toByteArray() : outcome.response.toByteArray();
    if (request.header.isCompressed()) {
        reply.header.setCompressed(true);
        reply.body = qCompress(reply.body);
    }
    return reply;
}

Outcome RequestHandler::answerBody(const QByteArray &connection, const Message &request)
{
    if (request.header.isJson() == request.header.isRaw())
        return complaint(RequestErrors::badRequest, QStringLiteral("flags %1").arg(request.header.flags()));
    auto body = request.body;
    if (request.header.isCompressed()) {
        const auto unpacked = Compression::unpack(body, request.header.isRaw() ? largestUpload : largestDocument);
        if (!unpacked)
            return complaint(RequestErrors::badRequest, QStringLiteral("too large"));
        body = *unpacked;
    }
    return request.header.isJson() ? answerDocument(connection, body) : answerUpload(connection, body);
}

Outcome RequestHandler::answerDocument(const QByteArray &connection, const QByteArray &json)
{
    Errors errors;
    auto request = RequestReader::read(json, errors);
    if (!errors.isEmpty())
        return RequestErrors::response(errors);
    request.connection = connection;
    if (request.type == QLatin1String("auth"))
        return logIn(request);

    const auto *user = userOf(connection);
    if (!user)
        return complaint(RequestErrors::authNeeded);
    request.user = *user;
    request.locale = m_sessions.value(connection).locale;

    bool nameKnown = false;
    const auto *resource = findResource(request, nameKnown);
    if (!resource)
        return complaint(nameKnown ? RequestErrors::wrongMethod : RequestErrors::unknownResource, request.type);
    if (!mayAsk(resource->access, *user))
        return Response::Prepared::accessDenied();
    if ((request.query && !resource->takesQuery) || (request.id && !request.id->isEmpty() && !resource->takesId))
        return complaint(RequestErrors::badRequest, QStringLiteral("\"link\""));
    m_context.login = user->login;
    return resource->answer(m_context, request);
}

Outcome RequestHandler::answerUpload(const QByteArray &connection, const QByteArray &body)
{
    const auto message = ZmqBinaryMessage::fromByteArray(body);
    const auto *topic = message.get("topic");
    if (!topic)
        return complaint(RequestErrors::badRequest, QStringLiteral("\"topic\""));
    const auto *user = userOf(connection);
    if (!user)
        return complaint(RequestErrors::authNeeded);
    const auto isTopic = [topic](const Upload &row) { return *topic == row.topic; };
    const auto *upload = findRow(uploads(), isTopic);
    if (!upload)
        upload = findRow(planUploads(), isTopic);
    if (!upload)
        return complaint(RequestErrors::unknownResource, QString::fromUtf8(*topic));
    if (!mayAsk(upload->access, *user))
        return Response::Prepared::accessDenied();
    m_context.login = user->login;
    return upload->answer(m_context, message);
}

Outcome RequestHandler::logIn(const Request &request)
{
    m_sessions.remove(request.connection); // a failed login leaves nobody logged in
    Errors errors;
    const auto entity = request.datum();
    if (request.method != Request::Method::Post)
        RequestErrors::wrongMethod(errors, request.type);
    else if (request.data.size() != 1)
        RequestErrors::invalidData(errors, QStringLiteral("%1 entities").arg(request.data.size()));
    RequestReader::check(entity, "auth", {}, errors);
    for (const auto *key : {"login", "password", "locale"}) {
        if (!RequestReader::isOfKind(entity.attributes.value(QLatin1String(key)), Kind::Text))
            RequestErrors::invalidData(errors, QStringLiteral("\"%1\"").arg(QLatin1String(key)));
    }
    if (!errors.isEmpty())
        return RequestErrors::response(errors);

    const auto login = entity.attributes.value("login").toString();
    const auto *user = m_context.site.user(login);
    if (!user || user->password != entity.attributes.value("password").toString().toUtf8())
        return complaint(RequestErrors::authFailed);
    if (m_sessions.size() >= mostSessions)
        m_sessions.erase(m_sessions.begin());
    m_sessions.insert(request.connection, {login, entity.attributes.value("locale").toString()});
    m_context.login = login;
    m_context.note(JournalTexts::loggedIn());

    JsonAPI::Entity reply("auth", "1");
    reply.setAttribute("group", user->group);
    return Response(reply.toVariant());
}

const Model::UserInfo *RequestHandler::userOf(const QByteArray &connection) const
{
    const auto session = m_sessions.constFind(connection);
    return session == m_sessions.constEnd() ? nullptr : m_context.site.user(session->login);
}

} // namespace Demo
