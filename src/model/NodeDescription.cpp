// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/NodeDescription.h"

#include "model/RecordLists.h"

#include <QVariantMap>
#include <tuple>

namespace Model {

namespace {

auto fields(const NodeIODescription &socket)
{
    return std::tie(socket.name, socket.description, socket.acceptedTypes, socket.linkedProperty, socket.defaultValue);
}

auto fields(const NodePropertyDescription &property)
{
    return std::tie(property.name, property.description, property.defaultValue, property.valueLimits);
}

auto fields(const NodeDescription &node)
{
    return std::tie(node.type, node.name, node.description, node.category, node.inputs, node.outputs, node.properties);
}

} // namespace

QVariant NodeIODescription::toVariant() const
{
    QVariantList types;
    types.reserve(static_cast<int>(acceptedTypes.size()));
    for (const auto type : acceptedTypes)
        types.append(ActionDatatype::typeToString(type));
    return QVariantMap{
        {"name", name},
        {"description", description},
        {"acceptedTypes", types},
        {"linkedProperty", linkedProperty},
        {"defaultValue", defaultValue.toVariantMap()},
    };
}

NodeIODescription NodeIODescription::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    NodeIODescription socket;
    socket.name = map.value("name").toString();
    socket.description = map.value("description").toString();
    const auto types = map.value("acceptedTypes").value<QVariantList>();
    socket.acceptedTypes.reserve(static_cast<std::size_t>(types.size()));
    for (const auto &type : types)
        socket.acceptedTypes.push_back(ActionDatatype::typeFromString(type.toString()));
    socket.linkedProperty = map.value("linkedProperty").toString();
    socket.defaultValue = ActionDatatype::fromVariantMap(map.value("defaultValue"));
    return socket;
}

NodePropertyDescription::NodePropertyDescription(const QString &name, const QString &description,
                                                 const ActionDatatype &defaultValue,
                                                 const ActionValueLimits &valueLimits)
    : name(name)
    , description(description)
    , defaultValue(defaultValue)
    , valueLimits(valueLimits.isVoid() ? ActionValueLimits(defaultValue.type()) : valueLimits)
{}

QVariant NodePropertyDescription::toVariant() const
{
    return QVariantMap{
        {"name", name},
        {"description", description},
        {"defaultValue", defaultValue.toVariantMap()},
        {"valueLimits", valueLimits.toVariant()},
    };
}

NodePropertyDescription NodePropertyDescription::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    return {map.value("name").toString(), map.value("description").toString(),
            ActionDatatype::fromVariantMap(map.value("defaultValue")),
            ActionValueLimits::fromVariant(map.value("valueLimits"))};
}

NodeDescription::NodeDescription(const QString &type, const QString &name)
    : type(type)
    , name(name)
{}

const NodeIODescription *NodeDescription::input(const QString &name) const
{
    return findNamed(inputs, name);
}

const NodeIODescription *NodeDescription::output(const QString &name) const
{
    return findNamed(outputs, name);
}

const NodePropertyDescription *NodeDescription::property(const QString &name) const
{
    return findNamed(properties, name);
}

bool operator==(const NodeIODescription &left, const NodeIODescription &right)
{
    return fields(left) == fields(right);
}

bool operator==(const NodePropertyDescription &left, const NodePropertyDescription &right)
{
    return fields(left) == fields(right);
}

bool operator==(const NodeDescription &left, const NodeDescription &right)
{
    return fields(left) == fields(right);
}

} // namespace Model
