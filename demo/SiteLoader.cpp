// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/SiteLoader.h"

#include "demo/SiteObjects.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QtDebug>
#include <algorithm>
#include <cmath>

namespace Demo {

namespace {

const char formatName[] = "ondira-demo-site";
constexpr int formatVersion = 1;
constexpr int mostAddress = 65535;
constexpr int mostObjectCopies = 16; // of buttons and indicators: a site of ten thousand lamps has not more to press

// Reads the fields of one object and keeps the first complaint.
class FieldReader
{
public:
    FieldReader(const QJsonObject &object, const QString &where, QString &error)
        : m_object(object)
        , m_where(where)
        , m_error(error)
    {}

    bool has(const char *key) const { return m_object.contains(QLatin1String(key)); }

    QString text(const char *key) { return field(key, QJsonValue::String, "a text").toString(); }
    QJsonObject object(const char *key) { return field(key, QJsonValue::Object, "an object").toObject(); }
    QJsonArray array(const char *key) { return field(key, QJsonValue::Array, "a list").toArray(); }

    double number(const char *key)
    {
        const double value = field(key, QJsonValue::Double, "a number").toDouble();
        if (!std::isfinite(value))
            complain(key, "a finite number");
        return value;
    }

    int integer(const char *key, int least, int most)
    {
        const double value = number(key);
        if (value != std::floor(value) || value < least || value > most) {
            complain(key, "a whole number in range");
            return least;
        }
        return static_cast<int>(value);
    }

    QUuid uid(const char *key)
    {
        const QUuid value(text(key));
        if (value.isNull())
            complain(key, "a uid");
        return value;
    }

    void complain(const char *key, const char *expected)
    {
        if (m_error.isEmpty())
            m_error = QStringLiteral("%1: \"%2\" is not %3").arg(m_where, QLatin1String(key), QLatin1String(expected));
    }

private:
    QJsonValue field(const char *key, QJsonValue::Type type, const char *expected)
    {
        const auto value = m_object.value(QLatin1String(key));
        if (value.type() != type)
            complain(key, expected);
        return value;
    }

    QJsonObject m_object;
    QString m_where;
    QString &m_error;
};

// Calls read(reader) for each object of a list; stops at the first complaint.
template <typename Read>
void eachOf(FieldReader &site, const char *list, QString &error, Read read)
{
    const auto elements = site.array(list);
    for (int i = 0; i < elements.size() && error.isEmpty(); ++i) {
        const auto where = QStringLiteral("%1[%2]").arg(QLatin1String(list)).arg(i);
        if (!elements.at(i).isObject()) {
            error = where + QStringLiteral(" is not an object");
            return;
        }
        FieldReader reader(elements.at(i).toObject(), where, error);
        read(reader);
    }
}

template <typename Key>
void once(QSet<Key> &seen, const Key &key, FieldReader &reader, const char *field)
{
    if (seen.contains(key))
        reader.complain(field, "unique");
    seen.insert(key);
}

Model::UserInfo readUser(FieldReader &reader)
{
    Model::UserInfo user;
    user.login = reader.text("login");
    user.password = reader.text("password").toUtf8();
    user.group = reader.text("group");
    if (user.login.isEmpty())
        reader.complain("login", "a login");
    if (reader.has("zones_whitelist")) {
        user.zonesWhitelist = QSet<QUuid>();
        for (const auto &uid : reader.array("zones_whitelist"))
            user.zonesWhitelist->insert(QUuid(uid.toString()));
    }
    if (reader.has("access_list")) {
        user.accessList = QSet<QString>();
        for (const auto &right : reader.array("access_list"))
            user.accessList->insert(right.toString());
    }
    return user;
}

SiteDeviceType readDeviceType(FieldReader &reader)
{
    SiteDeviceType type;
    type.info = Model::DeviceTypeInfo::fromVariant(reader.object("info").toVariantMap());
    if (type.info.url.isEmpty() || !type.info.isValid())
        reader.complain("info", "a device type");
    const auto translations = reader.object("translations");
    for (auto it = translations.begin(); it != translations.end(); ++it)
        type.translations.insert(it.key(), it.value().toObject().toVariantMap());
    return type;
}

SiteZone readZone(FieldReader &reader)
{
    SiteZone zone;
    zone.zone.uid = reader.uid("uid");
    zone.zone.partUid = reader.uid("part_uid");
    zone.zone.name = reader.text("name");
    zone.zone.position = {reader.number("x"), reader.number("y")};
    zone.zone.width = reader.number("width");
    zone.zone.height = reader.number("height");
    zone.level = reader.integer("level", 0, 100);
    zone.swing = reader.integer("swing", 0, 100);
    return zone;
}

SiteDevice readDevice(FieldReader &reader)
{
    SiteDevice device;
    auto &descriptor = device.descriptor;
    descriptor.uid = reader.uid("uid");
    descriptor.url = QUrl(reader.text("url"));
    descriptor.zoneUid = QUuid(reader.text("zone_uid"));
    descriptor.version = reader.integer("version", 0, 1000000);
    descriptor.address = reader.integer("address", 0, mostAddress);
    descriptor.radioType = Model::RadioStatus::deviceTypeFromString(reader.text("radio_type"));
    descriptor.radioIndex = reader.integer("radio_index", -1, 1000);
    descriptor.data = reader.object("data").toVariantMap();
    device.state = reader.object("state").toVariantMap();
    if (reader.has("mode") && reader.text("mode") == QLatin1String("Manual"))
        device.mode = Model::DeviceMode::Mode::Manual;
    return device;
}

// What the file leaves out comes from the type; whole numbers become such again, which JSON does not tell apart.
void completeDevice(SiteDevice &device, const SiteDeviceType &type)
{
    const auto complete = [](QVariantMap &given, const std::vector<Model::DeviceTypeInfo::Parameter> &fields) {
        for (const auto &field : fields) {
            if (!given.contains(field.identificator))
                given.insert(field.identificator, field.defaultValue.valueToVariant());
            else if (field.limits.type() == Model::ActionDatatype::Type::Integer)
                given.insert(field.identificator, given.value(field.identificator).toInt());
        }
    };
    complete(device.descriptor.data, type.info.parameters);
    complete(device.state, type.info.state);
}

SiteData readSite(const QJsonObject &object, QString &error)
{
    FieldReader reader(object, QStringLiteral("site"), error);
    SiteData site;
    if (reader.text("format") != QLatin1String(formatName))
        reader.complain("format", formatName);
    if (reader.integer("version", 0, 1000000) != formatVersion)
        reader.complain("version", "a version that this program reads");
    site.uid = reader.uid("uid");
    site.name = reader.text("name");
    site.timezone = reader.text("timezone");
    for (const auto &port : reader.array("com_ports"))
        site.comPorts << port.toString();

    QSet<QString> logins;
    eachOf(reader, "users", error, [&](FieldReader &user) {
        site.users.push_back(readUser(user));
        once(logins, site.users.back().login, user, "login");
    });
    if (std::none_of(site.users.begin(), site.users.end(), [](const auto &user) { return user.group == "admin"; }))
        reader.complain("users", "a list with an administrator");

    QHash<QUrl, SiteDeviceType> types;
    eachOf(reader, "device_types", error, [&](FieldReader &type) {
        site.deviceTypes.push_back(readDeviceType(type));
        const auto &url = site.deviceTypes.back().info.url;
        if (types.contains(url))
            type.complain("info", "unique");
        types.insert(url, site.deviceTypes.back());
    });

    QSet<QUuid> uids;
    QSet<QUuid> parts;
    eachOf(reader, "parts", error, [&](FieldReader &part) {
        Model::ShopPart record;
        record.uid = part.uid("uid");
        record.name = part.text("name");
        once(uids, record.uid, part, "uid");
        parts.insert(record.uid);
        site.parts.push_back(record);
    });

    QSet<QUuid> zones;
    eachOf(reader, "zones", error, [&](FieldReader &zone) {
        site.zones.push_back(readZone(zone));
        const auto &record = site.zones.back().zone;
        once(uids, record.uid, zone, "uid");
        zones.insert(record.uid);
        if (!parts.contains(record.partUid))
            zone.complain("part_uid", "the uid of a plan");
    });

    eachOf(reader, "devices", error, [&](FieldReader &device) {
        auto record = readDevice(device);
        once(uids, record.descriptor.uid, device, "uid");
        if (!zones.contains(record.descriptor.zoneUid))
            device.complain("zone_uid", "the uid of a zone");
        if (types.contains(record.descriptor.url))
            completeDevice(record, types[record.descriptor.url]);
        else
            device.complain("url", "a known device type");
        site.devices.push_back(record);
    });
    if (error.isEmpty())
        SiteObjects::read(object, site, error);
    return site;
}

QJsonObject userToJson(const Model::UserInfo &user)
{
    QJsonObject object{{"login", user.login},
                       {"password", QString::fromUtf8(user.password.value_or(QByteArray()))},
                       {"group", user.group}};
    if (user.zonesWhitelist) {
        QJsonArray zones;
        for (const auto &uid : *user.zonesWhitelist)
            zones.append(uid.toString());
        object.insert("zones_whitelist", zones);
    }
    if (user.accessList) {
        QJsonArray rights;
        for (const auto &right : *user.accessList)
            rights.append(right);
        object.insert("access_list", rights);
    }
    return object;
}

QJsonObject deviceToJson(const SiteDevice &device)
{
    const auto &descriptor = device.descriptor;
    return {{"uid", descriptor.uid.toString()},
            {"url", descriptor.url.toString()},
            {"zone_uid", descriptor.zoneUid.toString()},
            {"version", descriptor.version},
            {"address", descriptor.address},
            {"radio_type", Model::RadioStatus::deviceTypeToString(descriptor.radioType)},
            {"radio_index", descriptor.radioIndex},
            {"data", QJsonObject::fromVariantMap(descriptor.data)},
            {"state", QJsonObject::fromVariantMap(device.state)},
            {"mode", device.mode == Model::DeviceMode::Mode::Manual ? "Manual" : "Auto"}};
}

QUuid copyOf(const QUuid &uid, int copy)
{
    return QUuid::createUuidV5(uid, QByteArray::number(copy));
}

// What showed or counted for a device that was cut off.
void forgetMissingDevices(SiteData &site)
{
    QSet<QUuid> left;
    for (const auto &device : site.devices)
        left.insert(device.descriptor.uid);
    for (auto &indicator : site.indicators) {
        auto &shown = indicator.indicator.displayValue;
        if (shown && !left.contains(shown->device))
            shown = boost::none;
    }
    for (auto it = site.powerOn.begin(); it != site.powerOn.end();)
        it = left.contains(it.key()) ? std::next(it) : site.powerOn.erase(it);
}

} // namespace

boost::optional<SiteData> SiteLoader::fromJson(const QByteArray &json, QString *error)
{
    QString complaint;
    QJsonParseError parsing;
    const auto document = QJsonDocument::fromJson(json, &parsing);
    SiteData site;
    if (parsing.error != QJsonParseError::NoError)
        complaint = QStringLiteral("the site is not JSON: %1").arg(parsing.errorString());
    else if (!document.isObject())
        complaint = QStringLiteral("the site is not an object");
    else
        site = readSite(document.object(), complaint);
    if (error)
        *error = complaint;
    if (!complaint.isEmpty())
        return boost::none;
    return site;
}

boost::optional<SiteData> SiteLoader::fromFile(const QString &path, QString *error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = file.errorString();
        return boost::none;
    }
    return fromJson(file.readAll(), error);
}

SiteData SiteLoader::builtIn()
{
    SiteObjects::initResources();
    QString error;
    const auto site = fromFile(QStringLiteral(":/demo/site.json"), &error);
    if (!site)
        qFatal("The site that the program carries cannot be read: %s", qPrintable(error));
    return *site;
}

QByteArray SiteLoader::toJson(const SiteData &site)
{
    QJsonArray users;
    for (const auto &user : site.users)
        users.append(userToJson(user));
    QJsonArray types;
    for (const auto &type : site.deviceTypes) {
        QJsonObject translations;
        for (auto it = type.translations.begin(); it != type.translations.end(); ++it)
            translations.insert(it.key(), QJsonObject::fromVariantMap(it.value()));
        types.append(
            QJsonObject{{"info", QJsonObject::fromVariantMap(type.info.toVariant())}, {"translations", translations}});
    }
    QJsonArray parts;
    for (const auto &part : site.parts)
        parts.append(QJsonObject{{"uid", part.uid.toString()}, {"name", part.name}});
    QJsonArray zones;
    for (const auto &zone : site.zones) {
        zones.append(QJsonObject{{"uid", zone.zone.uid.toString()},
                                 {"part_uid", zone.zone.partUid.toString()},
                                 {"name", zone.zone.name},
                                 {"x", zone.zone.position.x},
                                 {"y", zone.zone.position.y},
                                 {"width", zone.zone.width},
                                 {"height", zone.zone.height},
                                 {"level", zone.level},
                                 {"swing", zone.swing}});
    }
    QJsonArray devices;
    for (const auto &device : site.devices)
        devices.append(deviceToJson(device));
    QJsonObject object{
        {"format", formatName}, {"version", formatVersion},  {"uid", site.uid.toString()},
        {"name", site.name},    {"timezone", site.timezone}, {"com_ports", QJsonArray::fromStringList(site.comPorts)},
        {"users", users},       {"device_types", types},     {"parts", parts},
        {"zones", zones},       {"devices", devices}};
    SiteObjects::write(site, object);
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

SiteData SiteLoader::scaled(const SiteData &site, int copies, int devices)
{
    SiteData result = site;
    int step = 0;
    for (const auto &device : site.devices)
        step = std::max(step, device.descriptor.address);
    const auto full = [&result, devices] { return static_cast<int>(result.devices.size()) >= devices; };
    for (int copy = 2; copy <= copies && !full(); ++copy) {
        for (auto part : site.parts) {
            part.uid = copyOf(part.uid, copy);
            part.name = QStringLiteral("%1 %2").arg(part.name).arg(copy);
            result.parts.push_back(part);
        }
        for (auto zone : site.zones) {
            zone.zone.uid = copyOf(zone.zone.uid, copy);
            zone.zone.partUid = copyOf(zone.zone.partUid, copy);
            result.zones.push_back(zone);
        }
        for (auto device : site.devices) {
            device.descriptor.uid = copyOf(device.descriptor.uid, copy);
            device.descriptor.zoneUid = copyOf(device.descriptor.zoneUid, copy);
            if (device.descriptor.address > 0) // each on an address of its own, as far as there are any
                device.descriptor.address = (device.descriptor.address + (copy - 1) * step - 1) % mostAddress + 1;
            result.devices.push_back(device);
        }
        if (copy <= mostObjectCopies)
            SiteObjects::addCopies(site, copy, copyOf, result);
    }
    if (static_cast<int>(result.devices.size()) > devices) {
        result.devices.erase(result.devices.begin() + devices, result.devices.end());
        forgetMissingDevices(result);
    }
    return result;
}

SiteData SiteLoader::withDevices(const SiteData &site, int devices)
{
    const int own = static_cast<int>(site.devices.size());
    if (own == 0)
        return site;
    return scaled(site, (devices + own - 1) / own, devices);
}

} // namespace Demo
