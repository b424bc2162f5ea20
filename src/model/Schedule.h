// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Actions.h"

#include <QMetaType>
#include <QSet>
#include <QString>
#include <QTime>
#include <QUuid>
#include <QVariant>
#include <vector>

namespace Model {

// One moment of a day and what it fires. It lasts until the next one.
struct ScheduleDayPoint
{
    QTime time; // whole seconds
    ActionSequence actions;

    QVariant toVariant() const;
    static ScheduleDayPoint fromVariant(const QVariant &map);
};

// One kind of day: its points, the days of the week on which it holds, and the zones that it controls.
// Two documents, as blueprints have: this one for the clipboard and QML, that of model/json/ for the server.
struct ScheduleDay
{
    ScheduleDay() = default;
    ScheduleDay(const QUuid &uid, const QString &name, const std::vector<ScheduleDayPoint> &points,
                const QSet<int> &daysOfWeek);

    QUuid uid;
    QString name;
    std::vector<ScheduleDayPoint> points; // by time, ascending
    QSet<int> daysOfWeek; // 0 Monday to 6 Sunday; a day without any never fires
    QSet<QUuid> zones;

    void sortPoints(); // by time, keeping the order of equal ones

    QVariant toVariant() const;
    static ScheduleDay fromVariant(const QVariant &map); // sorts the points
};

// An older view: seven days by name.
struct ScheduleWeek
{
    QUuid uid;
    QString name;
    std::vector<QUuid> days; // of schedule days, Monday first
};

bool operator==(const ScheduleDayPoint &left, const ScheduleDayPoint &right);
bool operator==(const ScheduleDay &left, const ScheduleDay &right);
bool operator==(const ScheduleWeek &left, const ScheduleWeek &right);

} // namespace Model

Q_DECLARE_METATYPE(Model::ScheduleDayPoint)
Q_DECLARE_METATYPE(Model::ScheduleDay)
Q_DECLARE_METATYPE(std::vector<Model::ScheduleDayPoint>)
Q_DECLARE_METATYPE(std::vector<Model::ScheduleDay>)
