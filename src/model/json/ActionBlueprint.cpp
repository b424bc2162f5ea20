// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/ActionBlueprint.h"

#include "model/RecordLists.h"
#include "model/json/Numbers.h"

#include <QVariantList>
#include <QVariantMap>
#include <algorithm>
#include <iterator>

namespace JsonAPI {

namespace {

template <typename Record>
QVariantList toList(const std::vector<Record> &records, QVariantMap (*toMap)(const Record &))
{
    QVariantList list;
    list.reserve(static_cast<int>(records.size()));
    std::transform(records.begin(), records.end(), std::back_inserter(list), toMap);
    return list;
}

template <typename Record>
std::vector<Record> fromList(const QVariant &variant, Record (*fromMap)(const QVariantMap &))
{
    const auto list = variant.value<QVariantList>();
    std::vector<Record> records;
    records.reserve(static_cast<std::size_t>(list.size()));
    std::transform(list.begin(), list.end(), std::back_inserter(records),
                   [fromMap](const QVariant &element) { return fromMap(element.toMap()); });
    return records;
}

QVariantMap inputToMap(const Model::NodeInputInstance &input)
{
    return {
        {"name", input.name},
        {"connection_node", input.connectionNode}, // stays a uid: the text has no braces, and both forms are read
        {"connection_property", input.connectionProperty},
    };
}

Model::NodeInputInstance inputFromMap(const QVariantMap &map)
{
    Model::NodeInputInstance input;
    input.name = map.value("name").toString();
    input.connectionNode = map.value("connection_node").toUuid();
    input.connectionProperty = map.value("connection_property").toString();
    return input;
}

QVariantMap propertyToMap(const Model::NodePropertyInstance &property)
{
    return {
        {"name", property.name},
        {"user_description", property.userDescription},
        {"value", property.value.toVariantMap()},
        {"value_limits", property.valueLimits.toVariant()},
        {"exposed", property.exposed},
        {"global_name", property.globalName},
    };
}

Model::NodePropertyInstance propertyFromMap(const QVariantMap &map)
{
    Model::NodePropertyInstance property(map.value("name").toString());
    property.userDescription = map.value("user_description").toString();
    property.value = Model::ActionDatatype::fromVariantMap(map.value("value"));
    property.valueLimits = Model::ActionValueLimits::fromVariant(map.value("value_limits"));
    property.exposed = map.value("exposed").toBool();
    property.globalName = map.value("global_name").toString();
    return property;
}

QVariantMap nodeToMap(const Model::NodeInstance &node)
{
    return {
        {"uid", node.uid.toString()},
        {"type", node.type},
        {"x", node.position.x},
        {"y", node.position.y},
        {"inputs", toList(node.inputs, inputToMap)},
        {"outputs", Model::recordsToVariant(node.outputs)}, // the same in both documents
        {"properties", toList(node.properties, propertyToMap)},
    };
}

Model::NodeInstance nodeFromMap(const QVariantMap &map)
{
    Model::NodeInstance node(map.value("type").toString(), map.value("uid").toUuid());
    node.position = {finiteNumber(map.value("x")), finiteNumber(map.value("y"))};
    node.inputs = fromList(map.value("inputs"), inputFromMap);
    node.outputs = Model::recordsFromVariant<Model::NodeOutputInstance>(map.value("outputs"));
    node.properties = fromList(map.value("properties"), propertyFromMap);
    return node;
}

} // namespace

QVariant ActionBlueprint::toVariant(const Model::ActionBlueprint &blueprint)
{
    Entity entity("action_blueprint", blueprint.uid.toString());
    entity.setAttribute("name", blueprint.name);
    entity.setAttribute("system", blueprint.system);
    entity.setAttribute("nodes", toList(blueprint.nodes, nodeToMap));
    return entity.toVariant();
}

Model::ActionBlueprint ActionBlueprint::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    Model::ActionBlueprint blueprint(attributes.value("name").toString(), QUuid(entity.id));
    blueprint.system = attributes.value("system").toBool();
    blueprint.nodes = fromList(attributes.value("nodes"), nodeFromMap);
    return blueprint;
}

} // namespace JsonAPI
