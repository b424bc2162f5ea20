// SPDX-License-Identifier: GPL-3.0-or-later
#include "schedules/SchedulePointsListModel.h"

#include "actions/ClipboardRecords.h"
#include "data/ButtonsListModel.h"
#include "data/DevicesListModel.h"
#include "data/IndicatorsListModel.h"
#include "data/JsValues.h"
#include "data/SharedModels.h"
#include "model/VariantReading.h"

#include <QDateTime>
#include <QDebug>
#include <algorithm>
#include <utility>

namespace {

constexpr int wholeDay = 86400; // seconds

QTime endOfDay()
{
    return QTime(23, 59, 59, 999);
}

QTime endOf(const SchedulePointsListModel::Item &item)
{
    return item.time.addSecs(item.duration);
}

const QVector<int> &timeRoles()
{
    using Model = SchedulePointsListModel;
    static const QVector<int> roles{Model::Hour, Model::Minute, Model::Second, Model::Time};
    return roles;
}

} // namespace

SchedulePointsListModel::SchedulePointsListModel(QObject *parent)
    : SchedulePointsListModel(SharedModels::instance().devices, SharedModels::instance().buttons,
                              SharedModels::instance().indicators, parent)
{}

SchedulePointsListModel::SchedulePointsListModel(UidKeyAbstractListModel *devices, UidKeyAbstractListModel *buttons,
                                                 UidKeyAbstractListModel *indicators, QObject *parent)
    : QAbstractListModel(parent)
{
    m_texts.devices = devices;
    m_texts.buttons = buttons;
    m_texts.indicators = indicators;
}

int SchedulePointsListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
}

QVariant SchedulePointsListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.model() != this || index.row() >= rowCount())
        return {};
    const auto &item = m_items[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Hour: return item.time.hour();
    case Minute: return item.time.minute();
    case Second: return item.time.second();
    case Time: return QDateTime(QDate(2010, 1, 1), item.time);
    case Duration: return item.duration;
    case Actions: return item.actions;
    case ActionsDescription: return item.actionsDescription;
    case Color: return item.color;
    }
    return {};
}

QHash<int, QByteArray> SchedulePointsListModel::roleNames() const
{
    static const QHash<int, QByteArray> names{
        {Hour, "hour"},
        {Minute, "minute"},
        {Second, "second"},
        {Time, "time"},
        {Duration, "duration"},
        {Actions, "actions"},
        {ActionsDescription, "actionsDescription"},
        {Color, "color"},
    };
    return names;
}

std::vector<Model::ScheduleDayPoint> SchedulePointsListModel::getPoints() const
{
    std::vector<Model::ScheduleDayPoint> points;
    points.reserve(m_items.size());
    for (const auto &item : m_items)
        points.push_back({item.time, Model::ActionSequence::fromVariant(item.actions)});
    return points;
}

void SchedulePointsListModel::reset(const std::vector<Model::ScheduleDayPoint> &points)
{
    auto day = points;
    if (day.empty() || day.front().time != QTime(0, 0))
        day.insert(day.begin(), {QTime(0, 0), {}});
    resetModelFromPoints(day);
    emit pointsChanged();
}

std::vector<Model::ActionBlueprint> SchedulePointsListModel::getBlueprints() const
{
    return {m_texts.blueprints.begin(), m_texts.blueprints.end()};
}

void SchedulePointsListModel::setBlueprints(const std::vector<Model::ActionBlueprint> &blueprints)
{
    m_texts.blueprints.clear();
    for (const auto &blueprint : blueprints)
        m_texts.blueprints.insert(blueprint.uid, blueprint);
    resetModelFromPoints(getPoints());
    emit blueprintsChanged();
}

void SchedulePointsListModel::setDevicesModel(UidKeyAbstractListModel *model)
{
    m_texts.devices = model;
    resetModelFromPoints(getPoints());
    emit devicesModelChanged();
}

void SchedulePointsListModel::add(int h, int m, int s, int duration, const QVariant &actions)
{
    qDebug() << "Adding";
    const QTime start(h, m, s);
    if (!start.isValid()) {
        qWarning() << "There is no such time:" << h << m << s;
        return;
    }
    if (start.addSecs(duration) < start)
        duration = start.secsTo(endOfDay());
    const auto item = pointToItem({start, Model::ActionSequence::fromVariant(JsValues::plain(actions))}, duration);
    const QTime end = start.addSecs(duration);

    moveTail(start, end);
    eraseCovered(start, end);
    const int place = firstRowFrom(start);
    qDebug() << "Place index" << place;
    insert(place, item);

    // The segment that the new one cut into goes on after it.
    if (place > 0) {
        const bool isLast = place + 1 == rowCount();
        const QTime next = isLast ? endOfDay() : m_items[static_cast<std::size_t>(place) + 1].time;
        if (end.secsTo(next) > 0) {
            auto rest = m_items[static_cast<std::size_t>(place) - 1];
            rest.time = end;
            insert(place + 1, rest);
        }
    }
    updateDurations();
}

// The last row that begins under the new segment and outlasts it begins after it instead.
void SchedulePointsListModel::moveTail(const QTime &start, const QTime &end)
{
    const auto tail = std::find_if(m_items.rbegin(), m_items.rend(), [&](const auto &row) {
        return row.time >= start && row.time < end && endOf(row) > end;
    });
    if (tail == m_items.rend())
        return;
    const int row = static_cast<int>(std::distance(tail, m_items.rend())) - 1;
    qDebug() << "After point:" << row;
    tail->time = end;
    emit dataChanged(index(row), index(row), timeRoles());
    updateDurations();
    qDebug() << "After point done";
}

void SchedulePointsListModel::eraseCovered(const QTime &start, const QTime &end)
{
    const int first = firstRowFrom(start);
    const int last = firstRowFrom(end);
    if (first >= last)
        return;
    qDebug() << "Erasing" << first << " < " << last;
    beginRemoveRows(QModelIndex(), first, last - 1);
    m_items.erase(m_items.begin() + first, m_items.begin() + last);
    endRemoveRows();
}

int SchedulePointsListModel::firstRowFrom(const QTime &time) const
{
    const auto row = std::lower_bound(m_items.begin(), m_items.end(), time,
                                      [](const auto &item, const QTime &moment) { return item.time < moment; });
    return static_cast<int>(std::distance(m_items.begin(), row));
}

void SchedulePointsListModel::insert(int row, const Item &item)
{
    beginInsertRows(QModelIndex(), row, row);
    m_items.insert(m_items.begin() + row, item);
    endInsertRows();
}

void SchedulePointsListModel::updateDurations()
{
    if (m_items.empty())
        return;
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        const QTime next = i + 1 < m_items.size() ? m_items[i + 1].time : endOfDay();
        m_items[i].duration = m_items[i].time.secsTo(next);
    }
    emit dataChanged(index(0), index(rowCount() - 1), {Duration});
}

void SchedulePointsListModel::split(int index)
{
    if (index < 0 || index >= rowCount()) {
        qWarning().nospace() << "Point index '" << index << "' is out of bounds";
        return;
    }
    auto half = m_items[static_cast<std::size_t>(index)];
    half.time = half.time.addSecs(half.duration / 2);
    m_items.insert(m_items.begin() + index + 1, half);
    updateDurations();
}

void SchedulePointsListModel::change(int index, const QVariant &obj)
{
    if (!hasRow(index))
        return;
    const auto old = m_items[static_cast<std::size_t>(index)];
    const auto map = JsValues::plain(obj).toMap();
    const auto number = [&](const char *key, int fallback) {
        return Model::intFrom(map.value(QString::fromLatin1(key), fallback), fallback);
    };
    const int hour = number("hour", old.time.hour());
    const int minute = number("minute", old.time.minute());
    const int second = number("second", old.time.second());
    const int duration = number("duration", old.duration);
    if (!QTime(hour, minute, second).isValid()) {
        qWarning() << "There is no such time:" << hour << minute << second;
        return; // the row must not be lost
    }
    remove(index);
    add(hour, minute, second, duration, map.value(QStringLiteral("actions"), old.actions));
}

void SchedulePointsListModel::remove(int index)
{
    if (!hasRow(index))
        return;
    beginRemoveRows(QModelIndex(), index, index);
    m_items.erase(m_items.begin() + index);
    endRemoveRows();
    if (m_items.empty())
        insert(0, pointToItem({QTime(0, 0), {}}, wholeDay));
    updateDurations();
}

void SchedulePointsListModel::swap(int from, int to)
{
    if (from == to || !hasRow(from) || !hasRow(to))
        return;
    beginMoveRows(QModelIndex(), from, from, QModelIndex(), from < to ? to + 1 : to);
    auto &one = m_items[static_cast<std::size_t>(from)];
    auto &other = m_items[static_cast<std::size_t>(to)];
    std::swap(one, other);
    std::swap(one.time, other.time);
    endMoveRows();
    updateDurations();
    emit dataChanged(index(0), index(rowCount() - 1), timeRoles());
    // To a view, rows between the two have moved by one; they have not.
    if (qAbs(from - to) > 1)
        emit dataChanged(index(qMin(from, to)), index(qMax(from, to)), {Actions, ActionsDescription, Color});
}

void SchedulePointsListModel::copyToClipboard(int index) const
{
    if (!hasRow(index))
        return;
    const auto &item = m_items[static_cast<std::size_t>(index)];
    ClipboardRecords::put({{"hours", item.time.hour()},
                           {"minutes", item.time.minute()},
                           {"seconds", item.time.second()},
                           {"duration", item.duration},
                           {"actions", item.actions}},
                          ClipboardRecords::schedulePoint);
}

SchedulePointsListModel::Item SchedulePointsListModel::pointToItem(const Model::ScheduleDayPoint &point,
                                                                   int duration) const
{
    const auto info = m_texts.describe(point.actions);
    return {point.time, duration, point.actions.toVariant(), info.text, info.color};
}

void SchedulePointsListModel::resetModelFromPoints(const std::vector<Model::ScheduleDayPoint> &points)
{
    beginResetModel();
    m_items.clear();
    m_items.reserve(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        const QTime next = i + 1 < points.size() ? points[i + 1].time : endOfDay();
        m_items.push_back(pointToItem(points[i], points[i].time.secsTo(next)));
    }
    endResetModel();
}

bool SchedulePointsListModel::hasRow(int index) const
{
    const bool there = index >= 0 && index < rowCount();
    if (!there)
        qWarning() << "The day has no point" << index;
    return there;
}
