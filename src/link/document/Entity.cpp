// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/document/Entity.h"

namespace JsonAPI {

Entity::Entity(const QString &type, const QString &id)
    : type(type)
    , id(id)
{}

Entity::Entity(const QVariant &map)
    : relationships(map)
{
    const auto fields = map.toMap();
    type = fields.value("type").toString();
    id = fields.value("id").toString();
    attributes = fields.value("attributes").toMap();
}

Entity::Entity(const QJsonObject &object)
    : type(object.value(QLatin1String("type")).toVariant().toString())
    , id(object.value(QLatin1String("id")).toVariant().toString())
    , attributes(object.value(QLatin1String("attributes")).toObject().toVariantMap())
{
    const auto relations = object.value(QLatin1String("relationships"));
    if (relations.isObject())
        relationships = Relationships(QVariantMap{{"relationships", relations.toVariant()}});
}

void Entity::setAttribute(const QString &key, const QVariant &value)
{
    attributes.insert(key, value);
}

QVariant Entity::toVariant() const
{
    QVariantMap map{{"type", type}, {"id", id}};
    if (!attributes.isEmpty())
        map.insert("attributes", attributes);
    relationships.insertInto(map);
    return map;
}

} // namespace JsonAPI
