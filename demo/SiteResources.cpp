// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/RequestErrors.h"
#include "demo/RequestReader.h"
#include "demo/Resources.h"
#include "model/Blueprints.h"
#include "model/StandardBlueprints.h"
#include "model/json/ActionBlueprintInstance.h"
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

// What adding and changing, which share a resource, need to know of a kind of record.
template <typename Record>
struct RecordKind
{
    const char *type; // of its entities
    QVariant (*toVariant)(const Record &record);
    Record (*fromVariant)(const Entity &entity);
    void (*checkEntity)(const Entity &entity, Errors &errors); // kinds of values
    void (*checkRecord)(const Context &context, const Record &record, Errors &errors); // what it refers to
    const Record *(*find)(const DemoSite &site, const QUuid &uid);
};

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

Response done()
{
    return Response("response", std::vector<Model::Result>());
}

// The record as it will be: what the entity leaves out stays as it was. A null or missing uid gets a fresh one.
template <typename Record>
Record readRecord(const Context &context, const RecordKind<Record> &kind, const Entity &entity, Errors &errors)
{
    if (!entity.id.isEmpty() && !RequestReader::isOfKind(entity.id, Kind::Uid))
        RequestErrors::invalidData(errors, QStringLiteral("id \"%1\"").arg(entity.id));
    kind.checkEntity(entity, errors);
    if (!errors.isEmpty())
        return {};

    Entity merged(entity.type, entity.id);
    if (const auto *known = kind.find(context.site, QUuid(entity.id)))
        merged.attributes = Entity(kind.toVariant(*known)).attributes;
    for (auto it = entity.attributes.begin(); it != entity.attributes.end(); ++it)
        merged.setAttribute(it.key(), it.value());
    auto record = kind.fromVariant(merged);
    if (record.uid.isNull())
        record.uid = QUuid::createUuid();
    kind.checkRecord(context, record, errors);
    return record;
}

// All of a request is done, or nothing.
template <typename Record>
Outcome putRecords(Context &context, const Request &request, const RecordKind<Record> &kind)
{
    Errors errors;
    std::vector<Record> records;
    for (const auto &entity : request.data)
        records.push_back(readRecord(context, kind, entity, errors));
    if (!errors.isEmpty())
        return RequestErrors::response(errors);

    std::vector<Model::Result> results;
    for (const auto &record : records) {
        const bool known = kind.find(context.site, record.uid) != nullptr;
        context.site.put(record);
        results.push_back(known ? Model::Result::changed(record.uid) : Model::Result::added(record.uid));
    }
    return Response(kind.type, results);
}

template <typename Record>
Outcome removeRecords(Context &context, const Request &request, const RecordKind<Record> &kind,
                      QStringList (DemoSite::*remove)(const QSet<QUuid> &uids))
{
    Errors errors;
    QSet<QUuid> uids;
    for (const auto &entity : request.data) {
        if (entity.type != QLatin1String(kind.type))
            RequestErrors::invalidData(errors, QStringLiteral("type \"%1\"").arg(entity.type));
        else if (!kind.find(context.site, QUuid(entity.id)))
            RequestErrors::unknownRecord(errors, entity.id);
        uids.insert(QUuid(entity.id));
    }
    if (!errors.isEmpty())
        return RequestErrors::response(errors);

    std::vector<Model::Result> results;
    if (!uids.isEmpty()) {
        const auto removed = (context.site.*remove)(uids);
        for (const auto &uid : removed)
            results.push_back(Model::Result::deleted(uid));
    }
    return Response(kind.type, results);
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

// Only what the device's type lets be told; a value outside the limits is clamped.
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
        if (field == fields.end() || field->access == Model::DeviceTypeInfo::Parameter::Access::Out
            || !canSet(*field, it.value()))
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

using Instance = Model::ActionBlueprintInstance;

// Whether the instance gives the power that the blueprint sets. JavaScript writes whole numbers as either kind.
bool givesPower(const Instance &instance)
{
    const auto *power = instance.property(QStringLiteral("power"));
    return power && (power->value.type() == Type::Integer || power->value.type() == Type::Double);
}

void checkInstance(const Context &context, const Entity &entity, Errors &errors)
{
    RequestReader::check(entity, "oneshot_blueprint", {{"properties", Kind::List}, {"zones", Kind::UidList}}, errors);
    if (!errors.isEmpty())
        return;
    const auto instance = JsonAPI::ActionBlueprintInstance::fromVariant(entity);
    using namespace Model::StandardBlueprints;
    if (instance.blueprint != setPowerUid() && instance.blueprint != setAutoModeUid()
        && instance.blueprint != setManualModeUid())
        RequestErrors::unknownBlueprint(errors, entity.id);
    else if (instance.blueprint == setPowerUid() && !givesPower(instance))
        RequestErrors::invalidData(errors, QStringLiteral("property \"power\""));
    for (const auto &zone : instance.zones) {
        if (!context.site.zone(zone))
            RequestErrors::unknownRecord(errors, zone.toString());
    }
}

void run(Context &context, const Instance &instance)
{
    using namespace Model::StandardBlueprints;
    using Mode = Model::DeviceMode::Mode;
    if (instance.blueprint == setPowerUid())
        context.site.setZonesPower(instance.zones, instance.property(QStringLiteral("power"))->value.toDouble());
    else
        context.site.setZonesMode(instance.zones,
                                  instance.blueprint == setManualModeUid() ? Mode::Manual : Mode::Automatic);
}

Outcome runBlueprints(Context &context, const Request &request)
{
    Errors errors;
    std::vector<Instance> instances;
    for (const auto &entity : request.data) {
        checkInstance(context, entity, errors);
        instances.push_back(JsonAPI::ActionBlueprintInstance::fromVariant(entity));
    }
    if (!errors.isEmpty())
        return RequestErrors::response(errors);
    for (const auto &instance : instances) {
        for (const auto &zone : instance.zones) {
            if (!request.user.hasAccess(zone))
                return Response::Prepared::accessDenied();
        }
    }
    for (const auto &instance : instances)
        run(context, instance);
    return done();
}

void checkIncluded(const Request &request, Errors &errors)
{
    const auto included = request.included.toVariant();
    for (const auto &record : included) {
        const Entity entity(record);
        if (QUuid(entity.id).isNull())
            RequestErrors::invalidData(errors, QStringLiteral("id \"%1\"").arg(entity.id));
        if (entity.type == QLatin1String("shop_part"))
            checkPartEntity(entity, errors);
        else if (entity.type == QLatin1String("zone"))
            checkZoneEntity(entity, errors);
        else if (entity.type == QLatin1String("device"))
            checkDeviceEntity(entity, errors);
    }
}

// Records may refer to the site's or to each other.
void checkShop(const Context &context, const Model::Shop &shop, Errors &errors)
{
    for (const auto &zone : shop.zones) {
        if (!shop.shopParts.contains(zone.partUid))
            checkZone(context, zone, errors);
    }
    for (const auto &device : shop.devices) {
        if (!shop.zones.contains(device.zoneUid) && !context.site.zone(device.zoneUid))
            RequestErrors::unknownRecord(errors, device.zoneUid.toString());
        checkDeviceAlone(context, device, errors);
    }
}

// The site under its uid, or under the null uid, since no list tells clients the site's own. Records that come with it
// are added or changed; nothing is removed by being left out. Labels are in no list of this site.
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
    for (const auto &part : shop.shopParts)
        context.site.put(part);
    for (const auto &zone : shop.zones)
        context.site.put(zone);
    for (const auto &device : shop.devices)
        context.site.put(device);
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
        {"oneshot_blueprint", Method::Post, Access::User, runBlueprints},
        {"shop_parts", Method::Post, Access::Admin, putParts},
        {"shop_parts", Method::Delete, Access::Admin, removeParts},
        {"shops", Method::Post, Access::Admin, putShop, true},
        {"zones", Method::Post, Access::Admin, putZones},
        {"zones", Method::Delete, Access::Admin, removeZones},
    };
    return resources;
}

} // namespace Demo
