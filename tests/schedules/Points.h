// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/Records.h"
#include "schedules/SchedulePointsListModel.h"

// Days for the tests of the timeline. The actions of a row are told apart by a number: the one action of row n is of
// the blueprint uid(n), and 0 stands for no action.
namespace Points {

using Role = SchedulePointsListModel::Role;

inline Model::ActionSequence actions(uint label)
{
    Model::ActionSequence sequence;
    if (label > 0)
        sequence.instances.push_back({Records::uid(label), {}, {}});
    return sequence;
}

inline QVariant actionsMap(uint label)
{
    return actions(label).toVariant();
}

inline uint labelOf(const QVariant &actions)
{
    const auto sequence = Model::ActionSequence::fromVariant(actions);
    return sequence.instances.empty() ? 0 : sequence.instances.front().blueprint.data1;
}

inline Model::ScheduleDayPoint point(const QString &time, uint label)
{
    return {QTime::fromString(time, Qt::ISODate), actions(label)};
}

// A row for each start, labelled 1, 2, 3 and so on.
inline std::vector<Model::ScheduleDayPoint> day(const QStringList &starts)
{
    std::vector<Model::ScheduleDayPoint> points;
    for (const auto &start : starts)
        points.push_back(point(start, static_cast<uint>(points.size()) + 1));
    return points;
}

inline QTime timeOf(const QAbstractItemModel &model, int row)
{
    using namespace Records;
    return QTime(value(model, row, Role::Hour).toInt(), value(model, row, Role::Minute).toInt(),
                 value(model, row, Role::Second).toInt());
}

// "start duration label" of each row.
inline QStringList rows(const QAbstractItemModel &model)
{
    QStringList list;
    for (int row = 0; row < model.rowCount(); ++row) {
        list << QStringLiteral("%1 %2 %3")
                    .arg(timeOf(model, row).toString(Qt::ISODate))
                    .arg(Records::value(model, row, Role::Duration).toInt())
                    .arg(labelOf(Records::value(model, row, Role::Actions)));
    }
    return list;
}

} // namespace Points
