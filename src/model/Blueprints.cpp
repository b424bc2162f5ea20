// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Blueprints.h"

#include "model/UidSet.h"

#include <QVariantList>
#include <QVariantMap>
#include <algorithm>

namespace Model {

ExposedPropertyValue::ExposedPropertyValue(const QString &property, const ActionDatatype &value)
    : property(property)
    , value(value)
{}

ExposedPropertyValue::ExposedPropertyValue(const QUuid &node, const QString &property, const ActionDatatype &value)
    : node(node)
    , property(property)
    , value(value)
{}

QString ExposedPropertyValue::globalID() const
{
    return node.isNull() ? property : node.toString() + '|' + property;
}

bool ExposedPropertyValue::isValid() const
{
    return !property.isEmpty();
}

QVariant ExposedPropertyValue::toVariant() const
{
    // The node stays a uid: the document writes it without braces, and both forms are read.
    return QVariantMap{{"node", node}, {"property", property}, {"value", value.toVariantMap()}};
}

ExposedPropertyValue ExposedPropertyValue::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    return {map.value("node").toUuid(), map.value("property").toString(),
            ActionDatatype::fromVariantMap(map.value("value"))};
}

const ExposedPropertyValue *ActionBlueprintInstance::property(const QString &globalName) const
{
    const auto found = std::find_if(properties.begin(), properties.end(),
                                    [&](const auto &property) { return property.globalID() == globalName; });
    return found == properties.end() ? nullptr : &*found;
}

QVariant ActionBlueprintInstance::toVariant() const
{
    QVariantList list;
    list.reserve(static_cast<int>(properties.size()));
    for (const auto &property : properties)
        list.append(property.toVariant());
    return QVariantMap{{"blueprint", blueprint.toString()}, {"properties", list}, {"zones", uidsToVariant(zones)}};
}

ActionBlueprintInstance ActionBlueprintInstance::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    ActionBlueprintInstance instance;
    instance.blueprint = map.value("blueprint").toUuid();
    const auto list = map.value("properties").toList();
    instance.properties.reserve(static_cast<std::size_t>(list.size()));
    for (const auto &property : list)
        instance.properties.push_back(ExposedPropertyValue::fromVariant(property));
    instance.zones = uidsFromVariant(map.value("zones"));
    return instance;
}

bool operator==(const ExposedPropertyValue &left, const ExposedPropertyValue &right)
{
    return left.node == right.node && left.property == right.property && left.value == right.value;
}

bool operator==(const ActionBlueprintInstance &left, const ActionBlueprintInstance &right)
{
    return left.blueprint == right.blueprint && left.properties == right.properties && left.zones == right.zones;
}

} // namespace Model
