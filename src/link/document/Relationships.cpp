// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/document/Relationships.h"

#include <QStringList>
#include <QVariant>
#include <QVariantList>

namespace JsonAPI {

Relationships::Relationships(const QVariant &entity)
{
    const auto names = entity.toMap().value("relationships").toMap();
    for (auto it = names.cbegin(); it != names.cend(); ++it) {
        const auto relations = it.value().toMap().value("data").toList();
        for (const auto &relation : relations) {
            if (relation.type() != QVariant::Map)
                continue;
            const auto map = relation.toMap();
            add(it.key(), map.value("type").toString(), map.value("id").toString(), map.value("meta").toMap());
        }
    }
}

void Relationships::add(const QString &name, const QString &type, const QString &id, const QVariantMap &meta)
{
    m_relations[name].push_back({type, id, meta});
}

void Relationships::add(const QString &type, const QString &id, const QVariantMap &meta)
{
    add(type + "s", type, id, meta);
}

std::vector<Relationships::Relation> Relationships::getRelations(const QString &name) const
{
    return m_relations.value(name);
}

QStringList Relationships::names() const
{
    auto names = m_relations.keys();
    names.sort(); // the order of the hash differs from run to run
    return names;
}

QVariantMap Relationships::toVariant() const
{
    QVariantMap map;
    for (auto it = m_relations.cbegin(); it != m_relations.cend(); ++it) {
        QVariantList data;
        for (const auto &relation : it.value())
            data << QVariantMap{{"type", relation.type}, {"id", relation.id}, {"meta", relation.meta}};
        map.insert(it.key(), QVariantMap{{"data", data}});
    }
    return map;
}

void Relationships::insertInto(QVariantMap &map) const
{
    if (!isEmpty())
        map.insert("relationships", toVariant());
}

} // namespace JsonAPI
