// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <QVariantMap>
#include <vector>

namespace JsonAPI {

// Named lists of references from one entity to others.
class Relationships
{
public:
    struct Relation
    {
        QString type;
        QString id;
        QVariantMap meta;
    };

    Relationships() = default;
    explicit Relationships(const QVariant &entity); // reads the key "relationships" of the entity's map

    void add(const QString &name, const QString &type, const QString &id, const QVariantMap &meta);
    void add(const QString &type, const QString &id, const QVariantMap &meta = {}); // named by the type and "s"
    std::vector<Relation> getRelations(const QString &name) const; // empty for an unknown name
    QStringList names() const;
    bool isEmpty() const { return m_relations.isEmpty(); }

    QVariantMap toVariant() const;
    void insertInto(QVariantMap &map) const; // puts "relationships" there if there is anything to put

private:
    QHash<QString, std::vector<Relation>> m_relations;
};

} // namespace JsonAPI
