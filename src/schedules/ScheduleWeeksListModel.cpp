// SPDX-License-Identifier: GPL-3.0-or-later
#include "schedules/ScheduleWeeksListModel.h"

#include <QVariantList>
#include <algorithm>
#include <tuple>

int ScheduleWeeksListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_weeks.size();
}

QVariant ScheduleWeeksListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.model() != this || index.row() >= rowCount())
        return {};
    const auto &week = m_weeks.at(index.row());
    switch (role) {
    case Days: return daysOf(week);
    case Name: return week.name;
    case Uid: return week.uid.toString();
    }
    return {};
}

QHash<int, QByteArray> ScheduleWeeksListModel::roleNames() const
{
    static const QHash<int, QByteArray> names{{Days, "days"}, {Name, "name"}, {Uid, "uid"}};
    return names;
}

int ScheduleWeeksListModel::indexForUid(const QString &uid) const
{
    const QUuid wanted(uid);
    const auto week = std::find_if(m_weeks.begin(), m_weeks.end(), [&](const auto &row) { return row.uid == wanted; });
    return week == m_weeks.end() ? -1 : static_cast<int>(std::distance(m_weeks.begin(), week));
}

QString ScheduleWeeksListModel::uidForIndex(int index) const
{
    return index >= 0 && index < m_weeks.size() ? m_weeks.at(index).uid.toString() : QString();
}

void ScheduleWeeksListModel::update(const Model::Shop &shop)
{
    auto weeks = shop.scheduleWeeks.values();
    std::sort(weeks.begin(), weeks.end(), [](const auto &left, const auto &right) {
        return std::tie(left.name, left.uid) < std::tie(right.name, right.uid);
    });
    m_shop = shop;
    const int before = m_weeks.size();
    const int after = weeks.size();
    if (after > before) {
        beginInsertRows(QModelIndex(), before, after - 1);
        m_weeks = weeks;
        endInsertRows();
    } else if (after < before) {
        beginRemoveRows(QModelIndex(), after, before - 1);
        m_weeks = weeks;
        endRemoveRows();
    } else {
        m_weeks = weeks;
    }
    const int kept = qMin(before, after);
    if (kept > 0)
        emit dataChanged(index(0), index(kept - 1));
}

QVariant ScheduleWeeksListModel::daysOf(const Model::ScheduleWeek &week) const
{
    QVariantList days;
    for (const auto &uid : week.days) {
        auto day = m_shop.scheduleDays.value(uid);
        day.sortPoints();
        days << day.toVariant();
    }
    return days;
}
