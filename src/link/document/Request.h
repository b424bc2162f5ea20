// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "link/document/Included.h"
#include "model/UserInfo.h"

#include <QByteArray>
#include <QString>
#include <QUrlQuery>
#include <QVariant>
#include <QVersionNumber>
#include <boost/optional.hpp>
#include <vector>

namespace JsonAPI {

// A request document: a method and a link ("zones/{uid}?from=1"), entities, and related records.
class Request
{
public:
    enum class Method { Post = 0, Get = 1, Delete = 2 };

    Request();
    explicit Request(const QVariant &document); // reads a document, for a server

    template <typename T>
    Request(Method method, const QString &type, const std::vector<T> &records, QVariant (*converter)(const T &))
        : Request()
    {
        this->method = method;
        this->type = type;
        data.reserve(records.size());
        for (const auto &record : records)
            data.emplace_back(converter(record));
    }

    static Request get(const QString &type, const QString &id = {}); // an empty id is left out
    static Request post(const QString &type, const QString &id, const Entity &entity); // an empty id stays: "type/"
    static Request deleteRequest(const QString &type, const QString &id);

    Method method = Method::Post;
    QString type; // the resource name
    boost::optional<QString> id;
    boost::optional<QUrlQuery> query;
    std::vector<Entity> data;
    Included included;
    Model::UserInfo user; // for a server: who asks; not part of the document
    QByteArray connection; // for a server: the peer's routing id; not part of the document
    QString locale; // for a server: the peer's language; not part of the document
    QVersionNumber clientVersion;

    Entity datum() const; // the first entity, or an empty one
    std::vector<Entity> withUid() const; // those whose id is a non-null uid
    std::vector<Entity> withoutUid() const;
    std::vector<Entity> withId() const; // those whose id is not empty
    std::vector<Entity> withoutId() const;

    QVariant toVariant() const;
    QByteArray toByteArray() const; // indented JSON, UTF-8
};

} // namespace JsonAPI
