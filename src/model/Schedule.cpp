// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Schedule.h"

#include "model/RecordLists.h"
#include "model/UidSet.h"
#include "model/VariantReading.h"

#include <QVariantList>
#include <QVariantMap>
#include <algorithm>
#include <limits>
#include <tuple>

namespace Model {

namespace {

auto fields(const ScheduleDayPoint &point)
{
    return std::tie(point.time, point.actions);
}

auto fields(const ScheduleDay &day)
{
    return std::tie(day.uid, day.name, day.points, day.daysOfWeek, day.zones);
}

auto fields(const ScheduleWeek &week)
{
    return std::tie(week.uid, week.name, week.days);
}

QVariantList daysToVariant(const QSet<int> &days)
{
    auto sorted = days.values();
    std::sort(sorted.begin(), sorted.end()); // so that equal sets make equal documents
    QVariantList list;
    list.reserve(sorted.size());
    for (const int day : qAsConst(sorted))
        list.append(day);
    return list;
}

QSet<int> daysFromVariant(const QVariant &variant)
{
    constexpr auto none = std::numeric_limits<long long>::min();
    const auto list = variant.value<QVariantList>();
    QSet<int> days;
    for (const auto &day : list) {
        if (integerFrom(day, none) != none) // what is no number must not become a Monday
            days.insert(intFrom(day));
    }
    return days;
}

} // namespace

QVariant ScheduleDayPoint::toVariant() const
{
    return QVariantMap{{"time", time.toString(Qt::ISODate)}, {"actions", actions.toVariant()}};
}

ScheduleDayPoint ScheduleDayPoint::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    ScheduleDayPoint point;
    const auto time = QTime::fromString(map.value("time").toString(), Qt::ISODate);
    if (time.isValid())
        point.time = QTime(time.hour(), time.minute(), time.second());
    point.actions = ActionSequence::fromVariant(map.value("actions"));
    return point;
}

ScheduleDay::ScheduleDay(const QUuid &uid, const QString &name, const std::vector<ScheduleDayPoint> &points,
                         const QSet<int> &daysOfWeek)
    : uid(uid)
    , name(name)
    , points(points)
    , daysOfWeek(daysOfWeek)
{}

void ScheduleDay::sortPoints()
{
    std::stable_sort(points.begin(), points.end(),
                     [](const auto &left, const auto &right) { return left.time < right.time; });
}

QVariant ScheduleDay::toVariant() const
{
    return QVariantMap{
        {"uid", uid.toString()},
        {"name", name},
        {"points", recordsToVariant(points)},
        {"daysOfWeek", daysToVariant(daysOfWeek)},
        {"zones", uidsToVariant(zones)},
    };
}

ScheduleDay ScheduleDay::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    ScheduleDay day(map.value("uid").toUuid(), map.value("name").toString(),
                    recordsFromVariant<ScheduleDayPoint>(map.value("points")),
                    daysFromVariant(map.value("daysOfWeek")));
    day.zones = uidsFromVariant(map.value("zones"));
    day.sortPoints();
    return day;
}

bool operator==(const ScheduleDayPoint &left, const ScheduleDayPoint &right)
{
    return fields(left) == fields(right);
}

bool operator==(const ScheduleDay &left, const ScheduleDay &right)
{
    return fields(left) == fields(right);
}

bool operator==(const ScheduleWeek &left, const ScheduleWeek &right)
{
    return fields(left) == fields(right);
}

} // namespace Model
