// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/ActionDatatype.h"
#include "model/ActionValueLimits.h"
#include "model/Blueprints.h"
#include "model/Position.h"

#include <QMetaType>
#include <QString>
#include <QUuid>
#include <QVariant>
#include <utility>
#include <vector>

// The graphs that the server runs. Every record has two documents: this one, with camelCase keys, for the clipboard and
// QML, and the one of model/json/, with snake_case keys, for the server. Values and limits look the same in both.
namespace Model {

struct NodeInputInstance
{
    QString name;
    QUuid connectionNode; // the node that feeds it; null when not connected
    QString connectionProperty; // the output of that node

    bool isConnected() const { return !connectionNode.isNull(); }

    QVariant toVariant() const;
    static NodeInputInstance fromVariant(const QVariant &map);
};

// Outputs hold no connection; they are listed so that the node's shape is complete.
struct NodeOutputInstance
{
    QString name;

    QVariant toVariant() const;
    static NodeOutputInstance fromVariant(const QVariant &map);
};

struct NodePropertyInstance
{
    NodePropertyInstance() = default;
    explicit NodePropertyInstance(const QString &name); // with an empty global name
    NodePropertyInstance(const QUuid &node, const QString &name); // global name: node + "|" + name

    QString name;
    QString userDescription; // the label of the property when it is exposed
    ActionDatatype value;
    ActionValueLimits valueLimits; // set by the author of the blueprint, narrower than the description's
    bool exposed = false; // shown to the user of the blueprint
    QString globalName; // identity of an exposed property within the blueprint

    QVariant toVariant() const;
    static NodePropertyInstance fromVariant(const QVariant &map);
};

// A node of a graph. It holds only what has been touched; the rest comes from its description.
struct NodeInstance
{
    NodeInstance() = default;
    NodeInstance(const QString &type, const QUuid &uid);

    QUuid uid;
    QString type; // the key of a NodeDescription
    Position position; // the top left on the editor's canvas
    std::vector<NodeInputInstance> inputs;
    std::vector<NodeOutputInstance> outputs;
    std::vector<NodePropertyInstance> properties;

    // By name: null if there is none, or made where it may be. Valid until the list changes.
    const NodeInputInstance *input(const QString &name) const;
    const NodeOutputInstance *output(const QString &name) const;
    const NodePropertyInstance *property(const QString &name) const;
    NodeInputInstance &input(const QString &name);
    NodeOutputInstance &output(const QString &name);
    NodePropertyInstance &property(const QString &name);
    // By global name, never made.
    const NodePropertyInstance *globalProperty(const QString &globalName) const;
    NodePropertyInstance *globalProperty(const QString &globalName);

    QVariant toVariant() const;
    static NodeInstance fromVariant(const QVariant &map);
};

struct ActionBlueprint
{
    ActionBlueprint() = default;
    ActionBlueprint(const QString &name, const QUuid &uid);

    QString name;
    QUuid uid;
    bool system = false; // built into the server, not edited
    std::vector<NodeInstance> nodes; // in the order of insertion

    // Null where there is no such node; the forms that are not const make the element in a node that is there.
    const NodeInstance *node(const QUuid &uid) const;
    NodeInstance *node(const QUuid &uid);
    const NodeInputInstance *input(const QUuid &uid, const QString &name) const;
    NodeInputInstance *input(const QUuid &uid, const QString &name);
    const NodeOutputInstance *output(const QUuid &uid, const QString &name) const;
    NodeOutputInstance *output(const QUuid &uid, const QString &name);
    const NodePropertyInstance *property(const QUuid &uid, const QString &name) const;
    NodePropertyInstance *property(const QUuid &uid, const QString &name);
    // The first of that global name over the nodes in order, or null.
    const NodePropertyInstance *property(const QString &globalName) const;
    NodePropertyInstance *property(const QString &globalName);

    QUuid addNode(const QString &type, const QUuid &uid);
    void removeNode(const QUuid &uid); // and what it feeds, also when it is not there itself

    // An input has at most one source: connecting replaces it. Without the target node nothing happens.
    void connect(const QUuid &source, const QString &output, const QUuid &target, const QString &input);
    void disconnect(const QUuid &uid, const QString &input);
    void disconnectFromSource(const QUuid &uid);
    void disconnectFromSource(const QUuid &uid, const QString &output);
    // Target nodes with their inputs, in the order of nodes, then of inputs.
    std::vector<std::pair<QUuid, QString>> getOutputConnections(const QUuid &uid, const QString &output) const;

    // Addressed by global name alone, in the order of nodes, then of properties.
    std::vector<ExposedPropertyValue> getExposedProperties() const;

    QVariant toVariant() const;
    static ActionBlueprint fromVariant(const QVariant &map);
};

bool operator==(const NodeInputInstance &left, const NodeInputInstance &right);
bool operator==(const NodeOutputInstance &left, const NodeOutputInstance &right);
bool operator==(const NodePropertyInstance &left, const NodePropertyInstance &right);
bool operator==(const NodeInstance &left, const NodeInstance &right);
bool operator==(const ActionBlueprint &left, const ActionBlueprint &right);
inline bool operator!=(const ActionBlueprint &left, const ActionBlueprint &right)
{
    return !(left == right);
}

} // namespace Model

Q_DECLARE_METATYPE(Model::ActionBlueprint)
Q_DECLARE_METATYPE(std::vector<Model::ActionBlueprint>)
