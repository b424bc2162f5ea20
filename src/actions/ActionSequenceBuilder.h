// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "actions/ActionWrapperBuilder.h"
#include "model/Actions.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QQmlListProperty>

// A fixed sequence declared in QML: its children are the steps.
class ActionSequenceBuilder : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QQmlListProperty<ActionWrapperBuilder> actions READ getActions CONSTANT)
    Q_CLASSINFO("DefaultProperty", "actions")

public:
    // The numbers of the built-in blueprints.
    enum StandardAction {
        ByIndoorLightSensor = 1,
        SetPower = 2,
        SetAutoMode = 3,
        ByOutdoorLightSensor = 4,
        SetManualMode = 5
    };
    Q_ENUM(StandardAction)

    using QObject::QObject;

    QQmlListProperty<ActionWrapperBuilder> getActions();

    Q_INVOKABLE Model::ActionSequence toSequence() const;
    Q_INVOKABLE QString getStandardAction(ActionSequenceBuilder::StandardAction action) const; // uid text

private:
    QList<QPointer<ActionWrapperBuilder>> m_actions;
};
