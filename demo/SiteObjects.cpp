// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/SiteObjects.h"

#include "demo/RecordChecks.h"
#include "demo/RequestErrors.h"
#include "demo/SettingsChecks.h"
#include "model/StandardBlueprints.h"
#include "model/json/ActionBlueprint.h"
#include "model/json/Button.h"
#include "model/json/DevicePowerOnInfo.h"
#include "model/json/ImageItem.h"
#include "model/json/Indicator.h"
#include "model/json/NodeDescription.h"
#include "model/json/ScheduleDay.h"
#include "model/json/Settings.h"
#include "model/json/View3DItem.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSet>
#include <QtDebug>
#include <algorithm>
#include <cmath>

// Outside of any namespace: the resource of a static library is linked only when it is asked for.
static void initSiteResource()
{
    Q_INIT_RESOURCE(demo_site);
}

namespace Demo {

namespace {

using JsonAPI::Entity;
using JsonAPI::Errors;
using Measure = IndicatorRule::Measure;

QByteArray resource(const QString &name)
{
    SiteObjects::initResources();
    QFile file(QStringLiteral(":/demo/") + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The program does not carry %s", qPrintable(name));
    return file.readAll();
}

// Of the server's own nodes; what the shared blueprints of sensors are made of is the client's affair.
Model::ActionBlueprint graph(const QString &name)
{
    return Model::ActionBlueprint::fromVariant(QJsonDocument::fromJson(resource(name)).toVariant());
}

QMap<QString, QVariantMap> translationsFrom(const QVariant &languages)
{
    QMap<QString, QVariantMap> translations;
    const auto map = languages.toMap();
    for (auto it = map.begin(); it != map.end(); ++it)
        translations.insert(it.key(), it.value().toMap());
    return translations;
}

QVariantMap translationsTo(const QMap<QString, QVariantMap> &translations)
{
    QVariantMap map;
    for (auto it = translations.begin(); it != translations.end(); ++it)
        map.insert(it.key(), it.value());
    return map;
}

const QHash<QString, Measure> &measureWords()
{
    static const QHash<QString, Measure> words{
        {"failed_devices", Measure::FailedDevices},
        {"mean_power", Measure::MeanPower},
        {"device_value", Measure::DeviceValue},
    };
    return words;
}

boost::optional<QString> optionalText(const QVariantMap &map, const QString &key)
{
    return map.contains(key) ? boost::make_optional(map.value(key).toString()) : boost::none;
}

boost::optional<IndicatorRule> ruleFrom(const QVariantMap &map, Errors &errors)
{
    if (map.isEmpty())
        return boost::none;
    IndicatorRule rule;
    const auto measure = map.value("measure").toString();
    if (!measureWords().contains(measure))
        RequestErrors::invalidData(errors, QStringLiteral("measure \"%1\"").arg(measure));
    rule.measure = measureWords().value(measure);
    rule.scope = QUuid(map.value("scope").toString());
    rule.property = map.value("property").toString();
    const auto looks = map.value("looks").toList();
    for (const auto &variant : looks) {
        const auto look = variant.toMap();
        const double from = look.value("from").toDouble();
        const double opacity = look.value("opacity", 1.0).toDouble();
        if (!std::isfinite(from) || !std::isfinite(opacity))
            RequestErrors::invalidData(errors, QStringLiteral("\"looks\""));
        rule.looks.push_back({from, opacity, optionalText(look, "text"), optionalText(look, "text_color"),
                              optionalText(look, "icon"), optionalText(look, "icon_color")});
    }
    std::stable_sort(rule.looks.begin(), rule.looks.end(),
                     [](const auto &left, const auto &right) { return left.from < right.from; });
    return rule;
}

void insertText(QVariantMap &map, const QString &key, const boost::optional<QString> &text)
{
    if (text)
        map.insert(key, *text);
}

QVariantMap ruleTo(const IndicatorRule &rule)
{
    QVariantList looks;
    for (const auto &look : rule.looks) {
        QVariantMap map{{"from", look.from}, {"opacity", look.opacity}};
        insertText(map, "text", look.text);
        insertText(map, "text_color", look.textColor);
        insertText(map, "icon", look.icon);
        insertText(map, "icon_color", look.iconColor);
        looks << map;
    }
    return {{"measure", measureWords().key(rule.measure)},
            {"scope", rule.scope.toString()},
            {"property", rule.property},
            {"looks", looks}};
}

// A file is in the site file itself, or one that the program carries, told by its name.
QByteArray bytesFrom(const QVariantMap &map, Errors &errors)
{
    static const QRegularExpression plainName(QStringLiteral("^[A-Za-z0-9_]+\\.[a-z0-9]+$"));
    QByteArray bytes;
    const auto name = map.value("resource").toString();
    if (plainName.match(name).hasMatch()) {
        QFile file(QStringLiteral(":/demo/") + name);
        if (file.open(QIODevice::ReadOnly))
            bytes = file.readAll();
    } else {
        bytes = QByteArray::fromBase64(map.value("data").toString().toLatin1());
    }
    if (bytes.isEmpty())
        RequestErrors::invalidData(errors, QStringLiteral("\"data\""));
    return bytes;
}

QString base64(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.toBase64());
}

// Reads the lists of one site; stops at the first complaint.
class Reader
{
public:
    Reader(const QJsonObject &site, const SiteData &data, QString &error)
        : m_site(site)
        , m_error(error)
    {
        const auto knows = [](const auto &records, auto uidOf) {
            QSet<QUuid> uids;
            for (const auto &record : records)
                uids.insert(uidOf(record));
            return [uids](const QUuid &uid) { return uids.contains(uid); };
        };
        m_known.part = knows(data.parts, [](const auto &part) { return part.uid; });
        m_known.zone = knows(data.zones, [](const auto &zone) { return zone.zone.uid; });
        m_known.device = knows(data.devices, [](const auto &device) { return device.descriptor.uid; });
        m_known.blueprint = [&data](const QUuid &uid) {
            return std::any_of(data.blueprints.begin(), data.blueprints.end(),
                               [&uid](const auto &known) { return known.blueprint.uid == uid; });
        };
    }

    // Calls take(entity, map, errors) for each entity that passes the check.
    template <typename Take>
    void each(const char *list, void (*check)(const Entity &entity, Errors &errors), Take take)
    {
        const auto value = m_site.value(QLatin1String(list));
        if (!value.isUndefined() && !value.isArray())
            complain(QStringLiteral("%1 is not a list").arg(QLatin1String(list)));
        const auto elements = value.toArray();
        QSet<QUuid> uids;
        for (int i = 0; i < elements.size() && m_error.isEmpty(); ++i) {
            const auto map = elements.at(i).toObject().toVariantMap();
            const Entity entity{QVariant(map)};
            const QUuid uid(entity.id);
            Errors errors;
            if (uid.isNull() || uids.contains(uid))
                RequestErrors::invalidData(errors, QStringLiteral("id \"%1\"").arg(entity.id));
            uids.insert(uid);
            check(entity, errors);
            if (errors.isEmpty())
                take(entity, map, errors);
            if (!errors.isEmpty())
                complain(
                    QStringLiteral("%1[%2]: %3").arg(QLatin1String(list)).arg(i).arg(errors.list().front().detail));
        }
    }

    template <typename Record>
    void checkReferences(const Record &record, Errors &errors) const
    {
        RecordChecks::references(m_known, record, errors);
    }

    bool hasDevice(const QUuid &uid) const { return m_known.device(uid); }

private:
    void complain(const QString &complaint)
    {
        if (m_error.isEmpty())
            m_error = complaint;
    }

    QJsonObject m_site;
    QString &m_error;
    References m_known;
};

void checkPowerOn(const Entity &, Errors &) {}

QJsonObject withKeys(const QVariant &entity, const QVariantMap &more)
{
    auto map = entity.toMap();
    for (auto it = more.begin(); it != more.end(); ++it)
        map.insert(it.key(), it.value());
    return QJsonObject::fromVariantMap(map);
}

} // namespace

void SiteObjects::initResources()
{
    initSiteResource();
}

bool SiteObjects::read(const QJsonObject &site, SiteData &data, QString &error)
{
    initResources();
    data.nodes = nodes();
    data.blueprints = standardBlueprints();
    Reader reader(site, data, error);
    reader.each("blueprints", RecordChecks::blueprint,
                [&](const Entity &entity, const QVariantMap &map, Errors &errors) {
                    SiteBlueprint blueprint{JsonAPI::ActionBlueprint::fromVariant(entity),
                                            translationsFrom(map["translations"])};
                    blueprint.blueprint.system = false;
                    reader.checkReferences(blueprint.blueprint, errors);
                    if (std::any_of(data.blueprints.begin(), data.blueprints.end(),
                                    [&](const auto &known) { return known.blueprint.uid == blueprint.blueprint.uid; }))
                        RequestErrors::invalidData(errors, QStringLiteral("id \"%1\"").arg(entity.id));
                    data.blueprints.push_back(blueprint);
                });
    reader.each("buttons", RecordChecks::button, [&](const Entity &entity, const QVariantMap &map, Errors &errors) {
        using State = Model::ButtonState::State;
        const SiteButton button{JsonAPI::Button::fromVariant(entity),
                                map["state"].toInt() == 1 ? State::On : State::Off};
        reader.checkReferences(button.button, errors);
        data.buttons.push_back(button);
    });
    reader.each("indicators", RecordChecks::indicator,
                [&](const Entity &entity, const QVariantMap &map, Errors &errors) {
                    const SiteIndicator indicator{JsonAPI::Indicator::fromVariant(entity),
                                                  ruleFrom(map["rule"].toMap(), errors)};
                    reader.checkReferences(indicator.indicator, errors);
                    data.indicators.push_back(indicator);
                });
    reader.each("image_items", RecordChecks::imageItem,
                [&](const Entity &entity, const QVariantMap &map, Errors &errors) {
                    const SiteImage image{JsonAPI::ImageItem::fromVariant(entity),
                                          {bytesFrom(map, errors), map["format"].toString()}};
                    reader.checkReferences(image.item, errors);
                    data.images.push_back(image);
                });
    reader.each("view_3d_items", RecordChecks::view3DItem,
                [&](const Entity &entity, const QVariantMap &map, Errors &errors) {
                    auto item = JsonAPI::View3DItem::fromVariant(entity);
                    item.modelData = bytesFrom(map, errors);
                    reader.checkReferences(item, errors);
                    data.view3DItems.push_back(item);
                });
    reader.each("schedule_days", RecordChecks::scheduleDay,
                [&](const Entity &entity, const QVariantMap &, Errors &errors) {
                    data.days.push_back(JsonAPI::ScheduleDay::fromVariant(entity));
                    reader.checkReferences(data.days.back(), errors);
                });
    reader.each("power_on_statistics", checkPowerOn, [&](const Entity &entity, const QVariantMap &, Errors &errors) {
        const auto info = JsonAPI::DevicePowerOnInfo::fromVariant(entity);
        if (!reader.hasDevice(info.uid))
            RequestErrors::unknownRecord(errors, entity.id);
        data.powerOn.insert(info.uid, info);
    });
    if (site.contains(QLatin1String("settings")) && error.isEmpty()) {
        data.settings = Model::Settings::fromVariant(site.value(QLatin1String("settings")).toObject().toVariantMap());
        Errors errors;
        SettingsChecks::settings(Entity(JsonAPI::Settings::toVariant(data.settings)), errors);
        if (!errors.isEmpty())
            error = QStringLiteral("settings: %1").arg(errors.list().front().detail);
    }
    if (error.isEmpty())
        data.journal = Journal::fromJson(site.value(QLatin1String("journal")), &error).value_or(Journal());
    return error.isEmpty();
}

void SiteObjects::write(const SiteData &data, QJsonObject &site)
{
    QJsonArray blueprints;
    for (const auto &record : data.blueprints) {
        if (!record.blueprint.system)
            blueprints.append(withKeys(JsonAPI::ActionBlueprint::toVariant(record.blueprint),
                                       {{"translations", translationsTo(record.translations)}}));
    }
    QJsonArray buttons;
    for (const auto &record : data.buttons)
        buttons.append(withKeys(JsonAPI::Button::toVariant(record.button), {{"state", int(record.state)}}));
    QJsonArray indicators;
    for (const auto &record : data.indicators)
        indicators.append(withKeys(JsonAPI::Indicator::toVariant(record.indicator),
                                   record.rule ? QVariantMap{{"rule", ruleTo(*record.rule)}} : QVariantMap()));
    QJsonArray images;
    for (const auto &record : data.images)
        images.append(withKeys(JsonAPI::ImageItem::toVariant(record.item),
                               {{"format", record.image.format}, {"data", base64(record.image.data)}}));
    QJsonArray items;
    for (const auto &item : data.view3DItems)
        items.append(withKeys(JsonAPI::View3DItem::toVariant(item), {{"data", base64(item.modelData)}}));
    QJsonArray days;
    for (const auto &day : data.days)
        days.append(withKeys(JsonAPI::ScheduleDay::toVariant(day), {}));
    QJsonArray hours;
    for (const auto &device : data.devices) {
        const auto found = data.powerOn.constFind(device.descriptor.uid);
        if (found != data.powerOn.constEnd())
            hours.append(withKeys(JsonAPI::DevicePowerOnInfo::toVariant(*found), {}));
    }
    site.insert("blueprints", blueprints);
    site.insert("buttons", buttons);
    site.insert("indicators", indicators);
    site.insert("image_items", images);
    site.insert("view_3d_items", items);
    site.insert("schedule_days", days);
    site.insert("journal", data.journal.toJson());
    site.insert("power_on_statistics", hours);
    site.insert("settings", QJsonObject::fromVariantMap(data.settings.toVariant().toMap()));
}

std::vector<SiteNode> SiteObjects::nodes()
{
    std::vector<SiteNode> nodes;
    const auto list = QJsonDocument::fromJson(resource(QStringLiteral("nodes.json"))).array();
    for (const auto &element : list) {
        const auto map = element.toObject().toVariantMap();
        nodes.push_back({JsonAPI::NodeDescription::fromVariant(Entity(QVariant(map))),
                         translationsFrom(map.value("translations"))});
    }
    return nodes;
}

std::vector<SiteBlueprint> SiteObjects::standardBlueprints()
{
    using namespace Model::StandardBlueprints;
    const auto texts = QJsonDocument::fromJson(resource(QStringLiteral("standard_blueprints.json"))).object();
    std::vector<Model::NodeDescription> descriptions;
    for (const auto &node : nodes())
        descriptions.push_back(node.description);
    std::vector<SiteBlueprint> blueprints;
    for (const auto &blueprint :
         {graph(QStringLiteral("indoor_sensor.json")), setPower(), setAutoMode(),
          graph(QStringLiteral("outdoor_sensor.json")), setManualMode(), debugAllNodes(descriptions)}) {
        const auto overlays = texts.value(blueprint.uid.toString()).toObject().toVariantMap();
        blueprints.push_back({blueprint, translationsFrom(overlays)});
    }
    return blueprints;
}

void SiteObjects::addCopies(const SiteData &original, int copy, QUuid (*copyOf)(const QUuid &uid, int copy),
                            SiteData &data)
{
    const auto moveZones = [&](Model::ActionSequence &sequence) {
        for (auto &instance : sequence.instances) {
            QSet<QUuid> zones;
            for (const auto &zone : qAsConst(instance.zones))
                zones.insert(copyOf(zone, copy));
            instance.zones = zones;
        }
    };
    for (auto button : original.buttons) {
        button.button.uid = copyOf(button.button.uid, copy);
        button.button.partUid = copyOf(button.button.partUid, copy);
        moveZones(button.button.blueprints);
        data.buttons.push_back(button);
    }
    for (auto indicator : original.indicators) {
        auto &record = indicator.indicator;
        record.uid = copyOf(record.uid, copy);
        record.partUid = copyOf(record.partUid, copy);
        if (record.displayValue)
            record.displayValue->device = copyOf(record.displayValue->device, copy);
        if (indicator.rule && !indicator.rule->scope.isNull())
            indicator.rule->scope = copyOf(indicator.rule->scope, copy);
        data.indicators.push_back(indicator);
    }
}

} // namespace Demo
