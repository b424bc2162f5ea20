// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ActionBlueprint.h"

#include "model/RecordLists.h"
#include "model/VariantReading.h"

#include <QVariantMap>
#include <QtNumeric>
#include <algorithm>
#include <tuple>

namespace Model {

namespace {

auto fields(const NodeInputInstance &input)
{
    return std::tie(input.name, input.connectionNode, input.connectionProperty);
}

auto fields(const NodePropertyInstance &property)
{
    return std::tie(property.name, property.userDescription, property.value, property.valueLimits, property.exposed,
                    property.globalName);
}

auto fields(const NodeInstance &node)
{
    return std::tie(node.uid, node.type, node.position, node.inputs, node.outputs, node.properties);
}

auto fields(const ActionBlueprint &blueprint)
{
    return std::tie(blueprint.name, blueprint.uid, blueprint.system, blueprint.nodes);
}

template <typename Nodes>
auto *findNode(Nodes &nodes, const QUuid &uid)
{
    const auto found = std::find_if(nodes.begin(), nodes.end(), [&](const auto &node) { return node.uid == uid; });
    return found == nodes.end() ? nullptr : &*found;
}

template <typename Properties>
auto *findGlobal(Properties &properties, const QString &globalName)
{
    const auto found = std::find_if(properties.begin(), properties.end(),
                                    [&](const auto &property) { return property.globalName == globalName; });
    return found == properties.end() ? nullptr : &*found;
}

// Texts convert too, and of them "nan" and "inf" must not reach geometry.
double coordinateFrom(const QVariant &value)
{
    const double coordinate = doubleFrom(value);
    return qIsFinite(coordinate) ? coordinate : 0.0;
}

void clearConnection(NodeInputInstance &input)
{
    input.connectionNode = QUuid();
    input.connectionProperty.clear();
}

template <typename Condition>
void clearConnections(std::vector<NodeInstance> &nodes, Condition condition)
{
    for (auto &node : nodes) {
        for (auto &input : node.inputs) {
            if (condition(input))
                clearConnection(input);
        }
    }
}

} // namespace

QVariant NodeInputInstance::toVariant() const
{
    return QVariantMap{
        {"name", name},
        {"connectionNode", connectionNode.toString()},
        {"connectionProperty", connectionProperty},
    };
}

NodeInputInstance NodeInputInstance::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    NodeInputInstance input;
    input.name = map.value("name").toString();
    input.connectionNode = map.value("connectionNode").toUuid();
    input.connectionProperty = map.value("connectionProperty").toString();
    return input;
}

QVariant NodeOutputInstance::toVariant() const
{
    return QVariantMap{{"name", name}};
}

NodeOutputInstance NodeOutputInstance::fromVariant(const QVariant &variant)
{
    return {variant.toMap().value("name").toString()};
}

NodePropertyInstance::NodePropertyInstance(const QString &name)
    : name(name)
{}

NodePropertyInstance::NodePropertyInstance(const QUuid &node, const QString &name)
    : name(name)
    , globalName(node.toString() + '|' + name)
{}

QVariant NodePropertyInstance::toVariant() const
{
    return QVariantMap{
        {"name", name},
        {"userDescription", userDescription},
        {"value", value.toVariantMap()},
        {"valueLimits", valueLimits.toVariant()},
        {"exposed", exposed},
        {"globalName", globalName},
    };
}

NodePropertyInstance NodePropertyInstance::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    NodePropertyInstance property(map.value("name").toString());
    property.userDescription = map.value("userDescription").toString();
    property.value = ActionDatatype::fromVariantMap(map.value("value"));
    property.valueLimits = ActionValueLimits::fromVariant(map.value("valueLimits"));
    property.exposed = map.value("exposed").toBool();
    property.globalName = map.value("globalName").toString();
    return property;
}

NodeInstance::NodeInstance(const QString &type, const QUuid &uid)
    : uid(uid)
    , type(type)
{}

const NodeInputInstance *NodeInstance::input(const QString &name) const
{
    return findNamed(inputs, name);
}

const NodeOutputInstance *NodeInstance::output(const QString &name) const
{
    return findNamed(outputs, name);
}

const NodePropertyInstance *NodeInstance::property(const QString &name) const
{
    return findNamed(properties, name);
}

NodeInputInstance &NodeInstance::input(const QString &name)
{
    if (auto *found = findNamed(inputs, name))
        return *found;
    inputs.push_back({name, QUuid(), QString()});
    return inputs.back();
}

NodeOutputInstance &NodeInstance::output(const QString &name)
{
    if (auto *found = findNamed(outputs, name))
        return *found;
    outputs.push_back({name});
    return outputs.back();
}

NodePropertyInstance &NodeInstance::property(const QString &name)
{
    if (auto *found = findNamed(properties, name))
        return *found;
    properties.emplace_back(uid, name);
    return properties.back();
}

const NodePropertyInstance *NodeInstance::globalProperty(const QString &globalName) const
{
    return findGlobal(properties, globalName);
}

NodePropertyInstance *NodeInstance::globalProperty(const QString &globalName)
{
    return findGlobal(properties, globalName);
}

QVariant NodeInstance::toVariant() const
{
    return QVariantMap{
        {"uid", uid.toString()},
        {"type", type},
        {"x", position.x},
        {"y", position.y},
        {"inputs", recordsToVariant(inputs)},
        {"outputs", recordsToVariant(outputs)},
        {"properties", recordsToVariant(properties)},
    };
}

NodeInstance NodeInstance::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    NodeInstance node(map.value("type").toString(), map.value("uid").toUuid());
    node.position = {coordinateFrom(map.value("x")), coordinateFrom(map.value("y"))};
    node.inputs = recordsFromVariant<NodeInputInstance>(map.value("inputs"));
    node.outputs = recordsFromVariant<NodeOutputInstance>(map.value("outputs"));
    node.properties = recordsFromVariant<NodePropertyInstance>(map.value("properties"));
    return node;
}

ActionBlueprint::ActionBlueprint(const QString &name, const QUuid &uid)
    : name(name)
    , uid(uid)
{}

const NodeInstance *ActionBlueprint::node(const QUuid &uid) const
{
    return findNode(nodes, uid);
}

NodeInstance *ActionBlueprint::node(const QUuid &uid)
{
    return findNode(nodes, uid);
}

const NodeInputInstance *ActionBlueprint::input(const QUuid &uid, const QString &name) const
{
    const auto *found = node(uid);
    return found ? found->input(name) : nullptr;
}

NodeInputInstance *ActionBlueprint::input(const QUuid &uid, const QString &name)
{
    auto *found = node(uid);
    return found ? &found->input(name) : nullptr;
}

const NodeOutputInstance *ActionBlueprint::output(const QUuid &uid, const QString &name) const
{
    const auto *found = node(uid);
    return found ? found->output(name) : nullptr;
}

NodeOutputInstance *ActionBlueprint::output(const QUuid &uid, const QString &name)
{
    auto *found = node(uid);
    return found ? &found->output(name) : nullptr;
}

const NodePropertyInstance *ActionBlueprint::property(const QUuid &uid, const QString &name) const
{
    const auto *found = node(uid);
    return found ? found->property(name) : nullptr;
}

NodePropertyInstance *ActionBlueprint::property(const QUuid &uid, const QString &name)
{
    auto *found = node(uid);
    return found ? &found->property(name) : nullptr;
}

const NodePropertyInstance *ActionBlueprint::property(const QString &globalName) const
{
    for (const auto &node : nodes) {
        if (const auto *property = node.globalProperty(globalName))
            return property;
    }
    return nullptr;
}

NodePropertyInstance *ActionBlueprint::property(const QString &globalName)
{
    for (auto &node : nodes) {
        if (auto *property = node.globalProperty(globalName))
            return property;
    }
    return nullptr;
}

QUuid ActionBlueprint::addNode(const QString &type, const QUuid &uid)
{
    nodes.emplace_back(type, uid);
    return nodes.back().uid;
}

void ActionBlueprint::removeNode(const QUuid &uid)
{
    const QUuid removed = uid; // a copy, since it may be that of the node itself
    nodes.erase(std::remove_if(nodes.begin(), nodes.end(), [&](const auto &node) { return node.uid == removed; }),
                nodes.end());
    disconnectFromSource(removed);
}

void ActionBlueprint::connect(const QUuid &source, const QString &output, const QUuid &target, const QString &input)
{
    auto *node = findNode(nodes, target);
    if (!node)
        return;
    const NodeInputInstance connected{input, source, output};
    node->input(connected.name) = connected;
}

void ActionBlueprint::disconnect(const QUuid &uid, const QString &input)
{
    auto *node = findNode(nodes, uid);
    auto *found = node ? findNamed(node->inputs, input) : nullptr; // not made for this
    if (found)
        clearConnection(*found);
}

void ActionBlueprint::disconnectFromSource(const QUuid &uid)
{
    // By copies here and below, since the names may be those of a connection that is cleared on the way.
    clearConnections(nodes, [uid](const auto &input) { return input.connectionNode == uid; });
}

void ActionBlueprint::disconnectFromSource(const QUuid &uid, const QString &output)
{
    clearConnections(nodes, [uid, output](const auto &input) {
        return input.connectionNode == uid && input.connectionProperty == output;
    });
}

std::vector<std::pair<QUuid, QString>> ActionBlueprint::getOutputConnections(const QUuid &uid,
                                                                             const QString &output) const
{
    std::vector<std::pair<QUuid, QString>> targets;
    for (const auto &node : nodes) {
        for (const auto &input : node.inputs) {
            if (input.isConnected() && input.connectionNode == uid && input.connectionProperty == output)
                targets.emplace_back(node.uid, input.name);
        }
    }
    return targets;
}

std::vector<ExposedPropertyValue> ActionBlueprint::getExposedProperties() const
{
    std::vector<ExposedPropertyValue> values;
    for (const auto &node : nodes) {
        for (const auto &property : node.properties) {
            if (property.exposed)
                values.emplace_back(property.globalName, property.value);
        }
    }
    return values;
}

QVariant ActionBlueprint::toVariant() const
{
    return QVariantMap{
        {"uid", uid.toString()},
        {"name", name},
        {"system", system},
        {"nodes", recordsToVariant(nodes)},
    };
}

ActionBlueprint ActionBlueprint::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    ActionBlueprint blueprint(map.value("name").toString(), map.value("uid").toUuid());
    blueprint.system = map.value("system").toBool();
    blueprint.nodes = recordsFromVariant<NodeInstance>(map.value("nodes"));
    return blueprint;
}

bool operator==(const NodeInputInstance &left, const NodeInputInstance &right)
{
    return fields(left) == fields(right);
}

bool operator==(const NodeOutputInstance &left, const NodeOutputInstance &right)
{
    return left.name == right.name;
}

bool operator==(const NodePropertyInstance &left, const NodePropertyInstance &right)
{
    return fields(left) == fields(right);
}

bool operator==(const NodeInstance &left, const NodeInstance &right)
{
    return fields(left) == fields(right);
}

bool operator==(const ActionBlueprint &left, const ActionBlueprint &right)
{
    return fields(left) == fields(right);
}

} // namespace Model
