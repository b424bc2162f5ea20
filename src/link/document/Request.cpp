// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/document/Request.h"

#include "shell/Version.h"

#include <QHash>
#include <QJsonDocument>
#include <QStringList>
#include <QUrl>
#include <QUuid>
#include <QVariantList>
#include <QVariantMap>
#include <algorithm>
#include <iterator>

namespace JsonAPI {

namespace {

const auto &methodWords() // as read, in lower case
{
    using M = Request::Method;
    static const QHash<QString, M> words{{"post", M::Post}, {"get", M::Get}, {"delete", M::Delete}};
    return words;
}

template <typename Predicate>
std::vector<Entity> filtered(const std::vector<Entity> &entities, Predicate predicate)
{
    std::vector<Entity> result;
    std::copy_if(entities.begin(), entities.end(), std::back_inserter(result), predicate);
    return result;
}

bool hasUid(const Entity &entity)
{
    return !QUuid(entity.id).isNull();
}

} // namespace

Request::Request()
    : clientVersion(Version::number())
{}

Request::Request(const QVariant &document)
    : Request()
{
    const auto map = document.toMap();
    method = methodWords().value(map.value("method").toString().toLower(), method);

    // On the wire a link has neither scheme nor host; with both it parses like any other address.
    const QUrl url("ondira://backend/" + map.value("link").toString());
    const auto path = url.path(QUrl::FullyDecoded).split('/', Qt::SkipEmptyParts);
    type = path.value(0);
    if (path.size() > 1)
        id = path.at(1);
    if (url.hasQuery())
        query = QUrlQuery(url);

    const auto entities = map.value("data").toList();
    data.reserve(static_cast<size_t>(entities.size()));
    for (const auto &entity : entities)
        data.emplace_back(entity);
    included = Included(map.value("included"));
    if (map.contains("client_version"))
        clientVersion = QVersionNumber::fromString(map.value("client_version").toString());
}

Request Request::get(const QString &type, const QString &id)
{
    Request request;
    request.method = Method::Get;
    request.type = type;
    if (!id.isEmpty())
        request.id = id;
    return request;
}

Request Request::post(const QString &type, const QString &id, const Entity &entity)
{
    Request request;
    request.method = Method::Post;
    request.type = type;
    request.id = id;
    request.data.push_back(entity);
    return request;
}

Request Request::deleteRequest(const QString &type, const QString &id)
{
    Request request;
    request.method = Method::Delete;
    request.type = type;
    request.id = id;
    return request;
}

Entity Request::datum() const
{
    return data.empty() ? Entity() : data.front();
}

std::vector<Entity> Request::withUid() const
{
    return filtered(data, hasUid);
}

std::vector<Entity> Request::withoutUid() const
{
    return filtered(data, [](const Entity &entity) { return !hasUid(entity); });
}

std::vector<Entity> Request::withId() const
{
    return filtered(data, [](const Entity &entity) { return !entity.id.isEmpty(); });
}

std::vector<Entity> Request::withoutId() const
{
    return filtered(data, [](const Entity &entity) { return entity.id.isEmpty(); });
}

QVariant Request::toVariant() const
{
    QString link = type;
    if (id)
        link += "/" + *id;
    if (query)
        link += "?" + query->toString(QUrl::FullyEncoded); // a decoded "#" in a value would end the query

    QVariantList entities;
    entities.reserve(static_cast<int>(data.size()));
    for (const auto &entity : data)
        entities << entity.toVariant();

    return QVariantMap{
        {"method", methodWords().key(method).toUpper()},
        {"link", link},
        {"data", entities},
        {"included", included.toVariant()},
        {"client_version", clientVersion.toString()},
    };
}

QByteArray Request::toByteArray() const
{
    return QJsonDocument::fromVariant(toVariant()).toJson();
}

} // namespace JsonAPI
