// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Relationships.h"

#include <QJsonObject>
#include <QString>
#include <QVariant>
#include <QVariantMap>
#include <vector>

namespace JsonAPI {

// One resource of a document: its type, id, attributes and references.
struct Entity
{
    Entity() = default;
    Entity(const QString &type, const QString &id);
    explicit Entity(const QVariant &map); // missing keys leave empty fields
    explicit Entity(const QJsonObject &object); // as from the variant of it, which need not be made

    QString type;
    QString id; // for records with a uid its text with braces
    QVariantMap attributes;
    Relationships relationships;

    void setAttribute(const QString &key, const QVariant &value);

    QVariant toVariant() const; // "attributes" and "relationships" are left out when empty
    operator QVariant() const { return toVariant(); }

    template <typename T>
    static std::vector<T> toType(const std::vector<Entity> &entities, T (*converter)(const Entity &))
    {
        std::vector<T> records;
        records.reserve(entities.size());
        for (const auto &entity : entities)
            records.push_back(converter(entity));
        return records;
    }
};

} // namespace JsonAPI
