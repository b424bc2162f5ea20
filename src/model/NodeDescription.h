// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/ActionDatatype.h"
#include "model/ActionValueLimits.h"

#include <QMetaType>
#include <QString>
#include <QVariant>
#include <QVariantList>
#include <vector>

// What the server says a type of node is. The client knows no node type of its own; it edits instances of these.
namespace Model {

// One input or output of a node type.
struct NodeIODescription
{
    QString name;
    QString description;
    std::vector<ActionDatatype::Type> acceptedTypes; // Void among them: the socket may go without a signal
    QString linkedProperty; // empty, or the property of the same node whose row the socket shares
    ActionDatatype defaultValue;

    QVariant toVariant() const;
    static NodeIODescription fromVariant(const QVariant &map);
};

// One settable property of a node type.
struct NodePropertyDescription
{
    NodePropertyDescription() = default;
    // Void limits are replaced by limits of the default value's type with no range.
    NodePropertyDescription(const QString &name, const QString &description, const ActionDatatype &defaultValue,
                            const ActionValueLimits &valueLimits = {});

    QString name;
    QString description;
    ActionDatatype defaultValue;
    ActionValueLimits valueLimits;

    QVariant toVariant() const;
    static NodePropertyDescription fromVariant(const QVariant &map);
};

struct NodeDescription
{
    NodeDescription() = default;
    NodeDescription(const QString &type, const QString &name);

    QString type; // the key that instances refer to
    QString name;
    QString description;
    QString category; // groups node types in the picker
    std::vector<NodeIODescription> inputs;
    std::vector<NodeIODescription> outputs;
    std::vector<NodePropertyDescription> properties;

    // The first element of that name, or null. Valid until the list changes.
    const NodeIODescription *input(const QString &name) const;
    const NodeIODescription *output(const QString &name) const;
    const NodePropertyDescription *property(const QString &name) const;
};

bool operator==(const NodeIODescription &left, const NodeIODescription &right);
bool operator==(const NodePropertyDescription &left, const NodePropertyDescription &right);
bool operator==(const NodeDescription &left, const NodeDescription &right);

} // namespace Model

Q_DECLARE_METATYPE(Model::NodeDescription)
Q_DECLARE_METATYPE(std::vector<Model::NodeDescription>)
