// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/UidKeyAbstractListModel.h"
#include "model/ActionBlueprint.h"
#include "model/Schedule.h"

#include <QColor>
#include <QCoreApplication>
#include <QHash>
#include <QPointer>
#include <QString>
#include <QUuid>

// What a segment of a day says and which colour it has, by the actions that it fires.
class SchedulePointTexts
{
    Q_DECLARE_TR_FUNCTIONS(SchedulePointsListModel)

public:
    struct Info
    {
        QString text;
        QColor color;
    };

    // Without a model its objects are named by their uids.
    QPointer<UidKeyAbstractListModel> devices;
    QPointer<UidKeyAbstractListModel> buttons;
    QPointer<UidKeyAbstractListModel> indicators;
    QHash<QUuid, Model::ActionBlueprint> blueprints;

    Info describe(const Model::ActionSequence &actions) const;
    // One action, each of its parameters in a line of its own, or all in one line when nested.
    Info extractWrapperInfo(const Model::ActionBlueprintInstance &instance, bool nested, int indent) const;

    static QString datatypeValueToString(const Model::ActionDatatype &value, const Model::ActionValueLimits &limits);

private:
    QString entityName(const Model::ActionDatatype &value) const;
};
