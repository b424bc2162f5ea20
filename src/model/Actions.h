// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Blueprints.h"
#include "model/ParameterDeclaration.h"

#include <QMetaType>
#include <QSet>
#include <QString>
#include <QUuid>
#include <QVariant>
#include <QVariantList>
#include <QVariantMap>
#include <vector>

namespace Model {

// What a button press or a schedule point fires: blueprint instances, run in order.
struct ActionSequence
{
    std::vector<ActionBlueprintInstance> instances;

    QVariant toVariant() const; // a plain list of instance maps
    static ActionSequence fromVariant(const QVariant &list); // what is no list reads as empty
};

// One action with zones and bare parameter values, the form before blueprints.
struct ActionWrapper
{
    QUuid action; // the action's or blueprint's uid
    QSet<QUuid> controlledZones;
    QVariantMap passedParameters; // by parameter name

    ActionBlueprintInstance toBlueprint() const;

    QVariant toVariant() const;
    static ActionWrapper fromVariant(const QVariant &map);
};

// A script action, the form before action graphs.
struct Action
{
    QUuid uid;
    QString name;
    QString script; // its text
    QString category;
    std::vector<ParameterDeclaration> parametersDeclaration;

    static QVariantList parametersToList(const std::vector<ParameterDeclaration> &parameters);
    static std::vector<ParameterDeclaration> parametersFromList(const QVariantList &list);

    QVariant toVariant() const;
    static Action fromVariant(const QVariant &map);
};

bool operator==(const ActionSequence &left, const ActionSequence &right);
bool operator==(const ActionWrapper &left, const ActionWrapper &right);
bool operator==(const Action &left, const Action &right);

} // namespace Model

Q_DECLARE_METATYPE(Model::ActionSequence)
Q_DECLARE_METATYPE(Model::ActionWrapper)
