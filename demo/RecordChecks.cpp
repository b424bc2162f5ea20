// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/RecordChecks.h"

#include "demo/RequestErrors.h"
#include "demo/RequestReader.h"

namespace Demo {

namespace {

using Kind = RequestReader::Kind;
using JsonAPI::Entity;
using JsonAPI::Errors;

constexpr size_t mostNodes = 2000; // of one blueprint
constexpr int mostPoints = 1440; // of one schedule: one each minute
constexpr int mostInstances = 1000; // of one sequence

void complain(const Entity &entity, const QString &what, Errors &errors)
{
    RequestErrors::invalidData(errors, QStringLiteral("\"%1\" of \"%2\"").arg(what, entity.id));
}

bool isIn(const QVariant &value, int least, int most)
{
    return RequestReader::isOfKind(value, Kind::Integer) && value.toInt() >= least && value.toInt() <= most;
}

// A key that may be missing, but not of another kind.
bool isGood(const QVariantMap &map, const char *key, Kind kind)
{
    const auto found = map.constFind(QLatin1String(key));
    return found == map.constEnd() || RequestReader::isOfKind(*found, kind);
}

bool isListOfMaps(const QVariant &list, bool (*isGoodMap)(const QVariantMap &map))
{
    if (!RequestReader::isOfKind(list, Kind::List))
        return false;
    const auto elements = list.toList();
    return std::all_of(elements.begin(), elements.end(), [isGoodMap](const auto &element) {
        return RequestReader::isOfKind(element, Kind::Map) && isGoodMap(element.toMap());
    });
}

bool isValueOfProperty(const QVariantMap &map)
{
    return isGood(map, "property", Kind::Text);
}

bool isInstance(const QVariantMap &map)
{
    return RequestReader::isOfKind(map.value("blueprint"), Kind::Uid) && isGood(map, "zones", Kind::UidList)
        && (!map.contains("properties") || isListOfMaps(map.value("properties"), isValueOfProperty));
}

bool isSequence(const QVariant &list)
{
    return isListOfMaps(list, isInstance) && list.toList().size() <= mostInstances;
}

bool isPoint(const QVariantMap &map)
{
    const auto time = map.value("time");
    return RequestReader::isOfKind(time, Kind::Text) && QTime::fromString(time.toString(), Qt::ISODate).isValid()
        && (!map.contains("blueprints") || isSequence(map.value("blueprints")));
}

bool isSocket(const QVariantMap &map)
{
    return RequestReader::isOfKind(map.value("name"), Kind::Text) && isGood(map, "connection_property", Kind::Text);
}

bool isProperty(const QVariantMap &map)
{
    return RequestReader::isOfKind(map.value("name"), Kind::Text) && isGood(map, "user_description", Kind::Text)
        && isGood(map, "global_name", Kind::Text) && isGood(map, "exposed", Kind::Flag);
}

bool isNode(const QVariantMap &map)
{
    return RequestReader::isOfKind(map.value("uid"), Kind::Uid)
        && RequestReader::isOfKind(map.value("type"), Kind::Text) && isGood(map, "x", Kind::Number)
        && isGood(map, "y", Kind::Number) && (!map.contains("inputs") || isListOfMaps(map.value("inputs"), isSocket))
        && (!map.contains("outputs") || isListOfMaps(map.value("outputs"), isSocket))
        && (!map.contains("properties") || isListOfMaps(map.value("properties"), isProperty));
}

void checkPart(const References &known, const QUuid &part, Errors &errors)
{
    if (!known.part(part))
        RequestErrors::unknownRecord(errors, part.toString());
}

void checkSequence(const References &known, const Model::ActionSequence &sequence, Errors &errors)
{
    for (const auto &instance : sequence.instances) {
        if (!known.blueprint(instance.blueprint))
            RequestErrors::unknownBlueprint(errors, instance.blueprint.toString());
        for (const auto &zone : instance.zones) {
            if (!known.zone(zone))
                RequestErrors::unknownRecord(errors, zone.toString());
        }
    }
}

} // namespace

References References::of(const DemoSite &site)
{
    return {[&site](const QUuid &uid) { return site.part(uid) != nullptr; },
            [&site](const QUuid &uid) { return site.zone(uid) != nullptr; },
            [&site](const QUuid &uid) { return site.device(uid) != nullptr; },
            [&site](const QUuid &uid) { return site.blueprint(uid) != nullptr; }};
}

void RecordChecks::button(const Entity &entity, Errors &errors)
{
    RequestReader::check(entity, "button",
                         {{"part_uid", Kind::Uid},
                          {"name", Kind::Text},
                          {"x", Kind::Number},
                          {"y", Kind::Number},
                          {"width", Kind::Number},
                          {"height", Kind::Number},
                          {"on_color", Kind::Text},
                          {"off_color", Kind::Text},
                          {"toggle", Kind::Flag}},
                         errors);
    if (entity.attributes.contains("blueprints") && !isSequence(entity.attributes.value("blueprints")))
        complain(entity, QStringLiteral("blueprints"), errors);
}

void RecordChecks::indicator(const Entity &entity, Errors &errors)
{
    RequestReader::check(entity, "indicator",
                         {{"part_uid", Kind::Uid},
                          {"label", Kind::Text},
                          {"icon", Kind::Text},
                          {"x", Kind::Number},
                          {"y", Kind::Number},
                          {"width", Kind::Number},
                          {"height", Kind::Number},
                          {"text_color", Kind::Text},
                          {"icon_color", Kind::Text},
                          {"display_value_device", Kind::Uid},
                          {"display_value_property", Kind::Text}},
                         errors);
    if (entity.attributes.contains("indicator_type") && !isIn(entity.attributes.value("indicator_type"), 0, 1))
        complain(entity, QStringLiteral("indicator_type"), errors);
    if (entity.attributes.contains("horizontal_alignment")
        && !isIn(entity.attributes.value("horizontal_alignment"), 0, 3))
        complain(entity, QStringLiteral("horizontal_alignment"), errors);
}

void RecordChecks::imageItem(const Entity &entity, Errors &errors)
{
    RequestReader::check(entity, "image_item",
                         {{"part_uid", Kind::Uid},
                          {"name", Kind::Text},
                          {"x", Kind::Number},
                          {"y", Kind::Number},
                          {"width", Kind::Number},
                          {"height", Kind::Number},
                          {"crop_x", Kind::Number},
                          {"crop_y", Kind::Number},
                          {"crop_width", Kind::Number},
                          {"crop_height", Kind::Number},
                          {"opacity", Kind::Number},
                          {"on_top", Kind::Flag},
                          {"locked", Kind::Flag}},
                         errors);
}

void RecordChecks::view3DItem(const Entity &entity, Errors &errors)
{
    RequestReader::check(entity, "view_3d_item",
                         {{"part_uid", Kind::Uid},
                          {"name", Kind::Text},
                          {"x", Kind::Number},
                          {"y", Kind::Number},
                          {"z", Kind::Number},
                          {"scale_x", Kind::Number},
                          {"scale_y", Kind::Number},
                          {"scale_z", Kind::Number},
                          {"rotation_x", Kind::Number},
                          {"rotation_y", Kind::Number},
                          {"rotation_z", Kind::Number},
                          {"opacity", Kind::Number},
                          {"locked", Kind::Flag}},
                         errors);
}

void RecordChecks::blueprint(const Entity &entity, Errors &errors)
{
    RequestReader::check(entity, "action_blueprint", {{"name", Kind::Text}, {"system", Kind::Flag}}, errors);
    if (entity.attributes.contains("nodes") && !isListOfMaps(entity.attributes.value("nodes"), isNode))
        complain(entity, QStringLiteral("nodes"), errors);
}

void RecordChecks::scheduleDay(const Entity &entity, Errors &errors)
{
    RequestReader::check(entity, "schedule_day", {{"name", Kind::Text}, {"week_days", Kind::List}}, errors);
    const auto days = entity.attributes.value("week_days").toList();
    if (!std::all_of(days.begin(), days.end(), [](const auto &day) { return isIn(day, 0, 6); }))
        complain(entity, QStringLiteral("week_days"), errors);
    const auto points = entity.attributes.value("points");
    if (entity.attributes.contains("points") && (!isListOfMaps(points, isPoint) || points.toList().size() > mostPoints))
        complain(entity, QStringLiteral("points"), errors);
}

void RecordChecks::references(const References &known, const Model::Button &button, Errors &errors)
{
    checkPart(known, button.partUid, errors);
    checkSequence(known, button.blueprints, errors);
}

// An indicator may wait for its device to be chosen.
void RecordChecks::references(const References &known, const Model::Indicator &indicator, Errors &errors)
{
    checkPart(known, indicator.partUid, errors);
    const auto &shown = indicator.displayValue;
    if (shown && !shown->device.isNull() && !known.device(shown->device))
        RequestErrors::unknownRecord(errors, shown->device.toString());
}

void RecordChecks::references(const References &known, const Model::ImageItem &item, Errors &errors)
{
    checkPart(known, item.partUid, errors);
}

void RecordChecks::references(const References &known, const Model::View3DItem &item, Errors &errors)
{
    checkPart(known, item.partUid, errors);
}

// Wires and values may refer to what is not there: such a graph can be edited, and does less when it runs.
void RecordChecks::references(const References &, const Model::ActionBlueprint &blueprint, Errors &errors)
{
    QSet<QUuid> uids;
    for (const auto &node : blueprint.nodes) {
        if (node.uid.isNull() || uids.contains(node.uid))
            RequestErrors::invalidData(errors, QStringLiteral("node \"%1\"").arg(node.uid.toString()));
        uids.insert(node.uid);
    }
    if (blueprint.nodes.size() > mostNodes)
        RequestErrors::invalidData(errors, QStringLiteral("%1 nodes").arg(blueprint.nodes.size()));
}

void RecordChecks::references(const References &known, const Model::ScheduleDay &day, Errors &errors)
{
    for (const auto &zone : day.zones) {
        if (!known.zone(zone))
            RequestErrors::unknownRecord(errors, zone.toString());
    }
    for (const auto &point : day.points)
        checkSequence(known, point.actions, errors);
}

} // namespace Demo
