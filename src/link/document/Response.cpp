// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/document/Response.h"

#include "shell/Version.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QVariantMap>

namespace JsonAPI {

Response::Response()
    : serverVersion(Version::number())
{}

Response::Response(const QVariant &entity)
    : Response()
{
    data.emplace_back(entity);
    single = true;
    if (entity.type() == QVariant::Map) // some records carry related ones beside their own fields
        included = Included(entity);
}

Response::Response(const QVariantList &entities)
    : Response()
{
    data.reserve(static_cast<size_t>(entities.size()));
    for (const auto &entity : entities)
        data.emplace_back(entity);
}

Response::Response(const std::vector<Entity> &entities)
    : Response()
{
    data = entities;
}

Response::Response(const QString &type, const std::vector<Model::Result> &results)
    : Response()
{
    Entity entity("response", QString());
    for (const auto &result : results) {
        if (result.failure) {
            errors.add(result.failure->code, result.failure->title, result.failure->detail);
            continue;
        }
        for (const auto *name : {"added", "changed", "deleted"}) {
            if (result.key == QByteArray(name) + "/uid")
                entity.relationships.add(name, type, result.value.toString(), {});
        }
    }
    data.push_back(entity);
    single = true;
}

Response Response::error(const QString &code, const QString &title, const QString &detail)
{
    Response response;
    response.errors.add(code, title, detail);
    return response;
}

Response Response::Prepared::accessDenied()
{
    return error("access_denied_error", QStringLiteral("У пользователя нет привилегий для доступа к ресурсу"));
}

// A list is long: its entities are read from the document itself, without a variant of the whole between.
Response Response::fromByteArray(const QByteArray &bytes)
{
    auto document = QJsonDocument::fromJson(bytes).object();
    const auto data = document.value(QLatin1String("data"));
    if (!data.isArray())
        return fromVariant(document.toVariantMap());

    document.remove(QStringLiteral("data"));
    auto response = fromVariant(document.toVariantMap());
    if (!response.errors.isEmpty())
        return response;
    const auto entities = data.toArray();
    response.data.reserve(static_cast<size_t>(entities.size()));
    for (const auto &entity : entities)
        response.data.emplace_back(entity.toObject());
    return response;
}

Response Response::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    Response response;
    response.errors = Errors(map.value("errors"));
    if (map.contains("server_version"))
        response.serverVersion = QVersionNumber::fromString(map.value("server_version").toString());
    if (!response.errors.isEmpty())
        return response;

    const auto data = map.value("data");
    if (data.canConvert(QVariant::List)) {
        const auto entities = data.toList();
        response.data.reserve(static_cast<size_t>(entities.size()));
        for (const auto &entity : entities)
            response.data.emplace_back(entity);
    } else if (!data.isNull()) {
        response.data.emplace_back(data);
        response.single = true;
    }
    response.included = Included(map.value("included"));
    return response;
}

QVariant Response::toVariant() const
{
    QVariantMap map;
    if (!errors.isEmpty()) {
        map.insert("errors", errors.toVariant());
    } else if (single && !data.empty()) {
        map.insert("data", data.front().toVariant());
    } else {
        QVariantList entities;
        entities.reserve(static_cast<int>(data.size()));
        for (const auto &entity : data)
            entities << entity.toVariant();
        map.insert("data", entities);
    }
    if (!included.isEmpty())
        map.insert("included", included.toVariant());
    map.insert("server_version", serverVersion.toString());
    return map;
}

QByteArray Response::toByteArray() const
{
    return QJsonDocument::fromVariant(toVariant()).toJson(QJsonDocument::Compact);
}

} // namespace JsonAPI
