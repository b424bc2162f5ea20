// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"

#include <QHash>
#include <QUuid>
#include <QVariant>
#include <QVariantList>

namespace JsonAPI {

// Related records sent beside "data": a flat list of entity maps.
class Included
{
public:
    Included() = default;
    explicit Included(const QVariant &variant); // a list, or a map whose "included" is one

    void add(const QVariant &entity) { m_entities.append(entity); }
    bool isEmpty() const { return m_entities.isEmpty(); }
    QVariantList toVariant() const { return m_entities; }

    // The included entities of that type as records, by uid.
    template <typename T>
    QHash<QUuid, T> get(const QString &type, T (*converter)(const Entity &)) const
    {
        QHash<QUuid, T> records;
        for (const auto &variant : m_entities) {
            const Entity entity(variant);
            if (entity.type == type)
                records.insert(QUuid(entity.id), converter(entity));
        }
        return records;
    }

private:
    QVariantList m_entities;
};

} // namespace JsonAPI
