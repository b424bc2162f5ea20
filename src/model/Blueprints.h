// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/ActionDatatype.h"

#include <QMetaType>
#include <QSet>
#include <QString>
#include <QUuid>
#include <QVariant>
#include <vector>

namespace Model {

// A value given to one exposed property of a blueprint.
struct ExposedPropertyValue
{
    ExposedPropertyValue() = default;
    ExposedPropertyValue(const QString &property, const ActionDatatype &value);
    ExposedPropertyValue(const QUuid &node, const QString &property, const ActionDatatype &value);

    QUuid node; // null when the property is addressed by its global name alone
    QString property; // the property's name, or its global name when node is null
    ActionDatatype value;

    QString globalID() const; // the property, or node + "|" + property
    bool isValid() const; // property is not empty

    QVariant toVariant() const;
    static ExposedPropertyValue fromVariant(const QVariant &map);
};

// A blueprint applied once: values for its exposed properties, and the zones it acts on.
struct ActionBlueprintInstance
{
    QUuid blueprint;
    std::vector<ExposedPropertyValue> properties;
    QSet<QUuid> zones;

    // The first value of that global identity, or null. Valid until properties changes.
    const ExposedPropertyValue *property(const QString &globalName) const;

    QVariant toVariant() const;
    static ActionBlueprintInstance fromVariant(const QVariant &map);
};

bool operator==(const ExposedPropertyValue &left, const ExposedPropertyValue &right);
bool operator==(const ActionBlueprintInstance &left, const ActionBlueprintInstance &right);

} // namespace Model
