// SPDX-License-Identifier: GPL-3.0-or-later
// Plans, zones, devices and their states, and the site as a whole.
#include "demo/RecordChecks.h"
#include "demo/RecordRequests.h"
#include "model/json/Device.h"
#include "model/json/DeviceState.h"
#include "model/json/Shop.h"
#include "model/json/ShopPart.h"
#include "model/json/Zone.h"

#include <algorithm>

namespace Demo {

namespace {

using Kind = RequestReader::Kind;
using Errors = JsonAPI::Errors;
using JsonAPI::Entity;
using JsonAPI::Request;
using JsonAPI::Response;
using Type = Model::ActionDatatype::Type;

const Model::ShopPart *findPart(const DemoSite &site, const QUuid &uid)
{
    return site.part(uid);
}

const Model::Zone *findZone(const DemoSite &site, const QUuid &uid)
{
    const auto *zone = site.zone(uid);
    return zone ? &zone->zone : nullptr;
}

const Model::DeviceDescriptor *findDevice(const DemoSite &site, const QUuid &uid)
{
    const auto *device = site.device(uid);
    return device ? &device->descriptor : nullptr;
}

void checkPartEntity(const Entity &entity, Errors &errors)
{
    RequestReader::check(entity, "shop_part", {{"name", Kind::Text}}, errors);
}

void checkZoneEntity(const Entity &entity, Errors &errors)
{
    RequestReader::check(entity, "zone",
                         {{"part_uid", Kind::Uid},
                          {"name", Kind::Text},
                          {"x", Kind::Number},
                          {"y", Kind::Number},
                          {"width", Kind::Number},
                          {"height", Kind::Number}},
                         errors);
}

void checkDeviceEntity(const Entity &entity, Errors &errors)
{
    RequestReader::check(entity, "device",
                         {{"url", Kind::Text},
                          {"zone_uid", Kind::Uid},
                          {"version", Kind::Integer},
                          {"address", Kind::Integer},
                          {"persistentData", Kind::Map},
                          {"radio_type", Kind::Text},
                          {"radio_index", Kind::Integer}},
                         errors);
    const auto radio = entity.attributes.value("radio_type", "none").toString();
    using Model::RadioStatus;
    if (RadioStatus::deviceTypeToString(RadioStatus::deviceTypeFromString(radio)) != radio.toLower())
        RequestErrors::invalidData(errors, QStringLiteral("\"radio_type\" of \"%1\"").arg(entity.id));
}

void checkPart(const Context &, const Model::ShopPart &, Errors &) {}

void checkZone(const Context &context, const Model::Zone &zone, Errors &errors)
{
    if (!context.site.part(zone.partUid))
        RequestErrors::unknownRecord(errors, zone.partUid.toString());
}

void checkDeviceAlone(const Context &context, const Model::DeviceDescriptor &device, Errors &errors)
{
    if (!context.site.deviceType(device.url))
        RequestErrors::invalidData(errors, QStringLiteral("url \"%1\"").arg(device.url.toString()));
    if (device.address < 0 || device.address > 65535)
        RequestErrors::invalidData(errors, QStringLiteral("address %1").arg(device.address));
}

void checkDevice(const Context &context, const Model::DeviceDescriptor &device, Errors &errors)
{
    if (!context.site.zone(device.zoneUid))
        RequestErrors::unknownRecord(errors, device.zoneUid.toString());
    checkDeviceAlone(context, device, errors);
}

const RecordKind<Model::ShopPart> &partKind()
{
    static const RecordKind<Model::ShopPart> kind{
        "shop_part", JsonAPI::ShopPart::toVariant, JsonAPI::ShopPart::fromVariant, checkPartEntity, checkPart,
        findPart};
    return kind;
}

const RecordKind<Model::Zone> &zoneKind()
{
    static const RecordKind<Model::Zone> kind{
        "zone", JsonAPI::Zone::toVariant, JsonAPI::Zone::fromVariant, checkZoneEntity, checkZone, findZone};
    return kind;
}

const RecordKind<Model::DeviceDescriptor> &deviceKind()
{
    static const RecordKind<Model::DeviceDescriptor> kind{
        "device", JsonAPI::Device::toVariant, JsonAPI::Device::fromVariant, checkDeviceEntity, checkDevice, findDevice};
    return kind;
}

Outcome putParts(Context &context, const Request &request)
{
    return putRecords(context, request, partKind());
}

Outcome putZones(Context &context, const Request &request)
{
    return putRecords(context, request, zoneKind());
}

// Missing parameters of a new device come from its type.
Outcome putDevices(Context &context, const Request &request)
{
    auto completed = request;
    for (auto &entity : completed.data) {
        if (context.site.device(QUuid(entity.id)) || entity.type != QLatin1String("device"))
            continue;
        const auto given = entity.attributes.value("persistentData");
        const auto *type = context.site.deviceType(QUrl(entity.attributes.value("url").toString()));
        if (!type || (given.isValid() && !RequestReader::isOfKind(given, Kind::Map)))
            continue;
        auto data = type->info.defaultParametersValues();
        const auto values = given.toMap();
        for (auto it = values.begin(); it != values.end(); ++it)
            data.insert(it.key(), it.value());
        entity.setAttribute("persistentData", data);
    }
    return putRecords(context, completed, deviceKind());
}

Outcome removeParts(Context &context, const Request &request)
{
    return removeRecords(context, request, partKind(), &DemoSite::removeParts);
}

Outcome removeZones(Context &context, const Request &request)
{
    return removeRecords(context, request, zoneKind(), &DemoSite::removeZones);
}

Outcome removeDevices(Context &context, const Request &request)
{
    return removeRecords(context, request, deviceKind(), &DemoSite::removeDevices);
}

bool canSet(const Model::DeviceTypeInfo::Parameter &field, const QVariant &value)
{
    switch (field.limits.type()) {
    case Type::Integer: return RequestReader::isOfKind(value, Kind::Integer);
    case Type::Double: return RequestReader::isOfKind(value, Kind::Number);
    case Type::String: return RequestReader::isOfKind(value, Kind::Text);
    case Type::List: return RequestReader::isOfKind(value, Kind::List);
    case Type::Enum: return RequestReader::isOfKind(value, Kind::Integer);
    default: return RequestReader::isOfKind(value, Kind::Flag);
    }
}

QVariant boundedValue(const Model::DeviceTypeInfo::Parameter &field, const QVariant &value)
{
    if (field.limits.type() == Type::Integer) {
        const auto limits = field.limits.toInteger();
        return static_cast<int>(qBound(limits.min, value.toLongLong(), limits.max));
    }
    if (field.limits.type() == Type::Double) {
        const auto limits = field.limits.toDouble();
        return qBound(limits.min, value.toDouble(), limits.max);
    }
    return value;
}

// Only what the device's type lets be told; a value outside the limits is clamped. What a device only reports is passed
// over, since clients send back the whole state that they have.
QVariantMap readState(const Context &context, const Model::DeviceState &told, Errors &errors)
{
    const auto *device = context.site.device(told.uid);
    const auto *type = device ? context.site.deviceType(device->descriptor.url) : nullptr;
    if (!type) {
        RequestErrors::unknownRecord(errors, told.uid.toString());
        return {};
    }
    auto state = device->state;
    for (auto it = told.state.begin(); it != told.state.end(); ++it) {
        const auto &fields = type->info.state;
        const auto field = std::find_if(fields.begin(), fields.end(),
                                        [&it](const auto &field) { return field.identificator == it.key(); });
        if (field != fields.end() && field->access == Model::DeviceTypeInfo::Parameter::Access::Out)
            continue;
        if (field == fields.end() || !canSet(*field, it.value()))
            RequestErrors::invalidData(errors, QStringLiteral("\"%1\" of \"%2\"").arg(it.key(), told.uid.toString()));
        else
            state.insert(it.key(), boundedValue(*field, it.value()));
    }
    return state;
}

Outcome putStates(Context &context, const Request &request)
{
    Errors errors;
    for (const auto &entity : request.data) {
        RequestReader::check(entity, "device_state", {{"state", Kind::Map}}, errors);
        readState(context, JsonAPI::DeviceState::fromVariant(entity), errors);
    }
    if (!errors.isEmpty())
        return RequestErrors::response(errors);

    std::vector<Model::Result> results;
    for (const auto &entity : request.data) {
        const auto told = JsonAPI::DeviceState::fromVariant(entity);
        context.site.setState(told.uid, readState(context, told, errors)); // anew: one device may come twice
        results.push_back(Model::Result::changed(told.uid));
    }
    return Response("device_state", results);
}

void checkIncluded(const Request &request, Errors &errors)
{
    static const QHash<QString, void (*)(const Entity &, Errors &)> checks{
        {"button", RecordChecks::button},       {"device", checkDeviceEntity},
        {"indicator", RecordChecks::indicator}, {"schedule_day", RecordChecks::scheduleDay},
        {"shop_part", checkPartEntity},         {"zone", checkZoneEntity},
    };
    const auto included = request.included.toVariant();
    for (const auto &record : included) {
        const Entity entity(record);
        if (QUuid(entity.id).isNull())
            RequestErrors::invalidData(errors, QStringLiteral("id \"%1\"").arg(entity.id));
        if (const auto check = checks.value(entity.type))
            check(entity, errors);
    }
}

// Records may refer to the site's or to each other.
void checkShop(const Context &context, const Model::Shop &shop, Errors &errors)
{
    const auto &site = context.site;
    const References known{[&](const QUuid &uid) { return shop.shopParts.contains(uid) || site.part(uid); },
                           [&](const QUuid &uid) { return shop.zones.contains(uid) || site.zone(uid); },
                           [&](const QUuid &uid) { return shop.devices.contains(uid) || site.device(uid); },
                           [&](const QUuid &uid) { return site.blueprint(uid) != nullptr; }};
    for (const auto &zone : shop.zones) {
        if (!known.part(zone.partUid))
            RequestErrors::unknownRecord(errors, zone.partUid.toString());
    }
    for (const auto &device : shop.devices) {
        if (!known.zone(device.zoneUid))
            RequestErrors::unknownRecord(errors, device.zoneUid.toString());
        checkDeviceAlone(context, device, errors);
    }
    for (const auto &button : shop.buttons)
        RecordChecks::references(known, button, errors);
    for (const auto &indicator : shop.indicators)
        RecordChecks::references(known, indicator, errors);
    for (const auto &day : shop.scheduleDays)
        RecordChecks::references(known, day, errors);
}

// By uid, since the order of a hash differs from run to run.
template <typename Record>
void putAll(DemoSite &site, const QHash<QUuid, Record> &records)
{
    auto uids = records.keys();
    std::sort(uids.begin(), uids.end());
    for (const auto &uid : qAsConst(uids))
        site.put(*records.constFind(uid));
}

// The site under its uid, or under the null uid, since no list tells clients the site's own. Records that come with it
// are added or changed; nothing is removed by being left out. Labels and script actions are in no list of this site.
Outcome putShop(Context &context, const Request &request)
{
    Errors errors;
    const auto entity = request.datum();
    const QUuid uid(entity.id);
    RequestReader::check(entity, "shop", {{"name", Kind::Text}}, errors);
    if (request.data.size() != 1 || !RequestReader::isOfKind(entity.id, Kind::Uid)
        || request.id.value_or(QString()) != entity.id)
        RequestErrors::invalidData(errors, QStringLiteral("id \"%1\"").arg(entity.id));
    else if (!uid.isNull() && uid != context.site.data().uid)
        RequestErrors::unknownRecord(errors, entity.id);
    checkIncluded(request, errors);
    if (!errors.isEmpty())
        return RequestErrors::response(errors);
    const auto shop = JsonAPI::Shop::fromVariant(entity, request.included);
    checkShop(context, shop, errors);
    if (!errors.isEmpty())
        return RequestErrors::response(errors);

    if (entity.attributes.contains("name"))
        context.site.rename(shop.name);
    putAll(context.site, shop.shopParts);
    putAll(context.site, shop.zones);
    putAll(context.site, shop.devices);
    putAll(context.site, shop.buttons);
    putAll(context.site, shop.indicators);
    putAll(context.site, shop.scheduleDays);
    return Response("shop", {Model::Result::changed(context.site.data().uid)});
}

} // namespace

const std::vector<Resource> &siteResources()
{
    using Method = Request::Method;
    static const std::vector<Resource> resources{
        {"device_states", Method::Post, Access::Admin, putStates},
        {"devices", Method::Post, Access::Admin, putDevices},
        {"devices", Method::Delete, Access::Admin, removeDevices},
        {"shop_parts", Method::Post, Access::Admin, putParts},
        {"shop_parts", Method::Delete, Access::Admin, removeParts},
        {"shops", Method::Post, Access::Admin, putShop, true},
        {"zones", Method::Post, Access::Admin, putZones},
        {"zones", Method::Delete, Access::Admin, removeZones},
    };
    return resources;
}

} // namespace Demo
