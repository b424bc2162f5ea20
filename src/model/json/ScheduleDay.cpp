// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/ScheduleDay.h"

#include <QVariantList>
#include <QVariantMap>
#include <algorithm>

namespace JsonAPI {

// The document differs from the record's own map by names: "week_days" for "daysOfWeek", "blueprints" for "actions" of
// a point; and its zones are relations. The contents of both read alike, so that the record reads them.

QVariant ScheduleDay::toVariant(const Model::ScheduleDay &day)
{
    const auto map = day.toVariant().toMap();
    QVariantList points;
    points.reserve(static_cast<int>(day.points.size()));
    for (const auto &point : day.points)
        points.append(
            QVariantMap{{"time", point.time.toString(Qt::ISODate)}, {"blueprints", point.actions.toVariant()}});

    Entity entity("schedule_day", day.uid.toString());
    entity.setAttribute("name", day.name);
    entity.setAttribute("week_days", map.value("daysOfWeek"));
    entity.setAttribute("points", points);
    const auto zones = map.value("zones").toList(); // in order, so that equal days make equal documents
    for (const auto &zone : zones)
        entity.relationships.add("zone", zone.toString());
    return entity.toVariant();
}

Model::ScheduleDay ScheduleDay::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    auto points = attributes.value("points").value<QVariantList>();
    for (auto &point : points) {
        const auto map = point.toMap();
        point = QVariantMap{{"time", map.value("time")}, {"actions", map.value("blueprints")}};
    }
    auto day = Model::ScheduleDay::fromVariant(QVariantMap{
        {"uid", entity.id},
        {"name", attributes.value("name")},
        {"points", points},
        {"daysOfWeek", attributes.value("week_days")},
    });
    const auto zones = entity.relationships.getRelations("zones");
    for (const auto &zone : zones)
        day.zones.insert(QUuid(zone.id));
    return day;
}

} // namespace JsonAPI
