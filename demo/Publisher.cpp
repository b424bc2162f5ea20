// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/Publisher.h"

#include "link/document/Response.h"
#include "link/document/ZmqMessageHeader.h"
#include "model/StandardBlueprints.h"
#include "model/json/ActionBlueprint.h"
#include "model/json/Button.h"
#include "model/json/ButtonState.h"
#include "model/json/Device.h"
#include "model/json/DeviceMode.h"
#include "model/json/DevicePowerOnInfo.h"
#include "model/json/DeviceState.h"
#include "model/json/DeviceType.h"
#include "model/json/ImageItem.h"
#include "model/json/Indicator.h"
#include "model/json/IndicatorState.h"
#include "model/json/NodeDescription.h"
#include "model/json/ScheduleDay.h"
#include "model/json/Settings.h"
#include "model/json/ShopPart.h"
#include "model/json/UserInfo.h"
#include "model/json/View3DItem.h"
#include "model/json/Zone.h"

#include <QJsonDocument>
#include <QRegularExpression>

namespace Demo {

namespace {

using List = DemoSite::List;

struct Topic
{
    QByteArray name;
    bool localized;
    List list;
    void (*write)(const DemoSite &site, const QString &language, QVariantList &entities); // null: see document()
};

QString languageOf(const QByteArray &locale)
{
    return QString::fromLatin1(locale.split('_').first().toLower());
}

// A list whose records are written as they are.
template <typename Record>
void writeAll(const std::vector<Record> &records, QVariant (*toVariant)(const Record &), QVariantList &entities)
{
    for (const auto &record : records)
        entities << toVariant(record);
}

// Each blueprint serves others as a node, but for the one that shows all nodes.
void writeNodes(const DemoSite &site, const QString &language, QVariantList &entities)
{
    for (const auto &node : site.data().nodes)
        entities << JsonAPI::NodeDescription::toVariant(node.localized(language));
    for (const auto &blueprint : site.data().blueprints) {
        if (blueprint.blueprint.uid != Model::StandardBlueprints::debugAllNodesUid())
            entities << JsonAPI::NodeDescription::toVariant(blueprint.asNode(language));
    }
}

void writeBlueprints(const DemoSite &site, const QString &language, QVariantList &entities)
{
    for (const auto &blueprint : site.data().blueprints)
        entities << JsonAPI::ActionBlueprint::toVariant(blueprint.localized(language));
}

void writeButtons(const DemoSite &site, const QString &, QVariantList &entities)
{
    for (const auto &button : site.data().buttons)
        entities << JsonAPI::Button::toVariant(button.button);
}

void writeButtonStates(const DemoSite &site, const QString &, QVariantList &entities)
{
    for (const auto &button : site.data().buttons)
        entities << JsonAPI::ButtonState::toVariant({button.button.uid, button.state});
}

void writeDevices(const DemoSite &site, const QString &, QVariantList &entities)
{
    for (const auto &device : site.data().devices)
        entities << JsonAPI::Device::toVariant(device.descriptor);
}

void writeDeviceTypes(const DemoSite &site, const QString &language, QVariantList &entities)
{
    for (const auto &type : site.data().deviceTypes) {
        auto info = type.info;
        if (const auto *overlay = overlayFor(type.translations, language))
            info.localize(*overlay);
        entities << JsonAPI::DeviceType::toVariant(info);
    }
}

void writeImages(const DemoSite &site, const QString &, QVariantList &entities)
{
    for (const auto &image : site.data().images)
        entities << JsonAPI::ImageItem::toVariant(image.item);
}

void writeIndicators(const DemoSite &site, const QString &, QVariantList &entities)
{
    for (const auto &indicator : site.data().indicators)
        entities << JsonAPI::Indicator::toVariant(indicator.indicator);
}

void writeIndicatorStates(const DemoSite &site, const QString &, QVariantList &entities)
{
    writeAll(site.indicatorStates(), JsonAPI::IndicatorState::toVariant, entities);
}

void writeModes(const DemoSite &site, const QString &, QVariantList &entities)
{
    QHash<QUrl, bool> driven;
    for (const auto &type : site.data().deviceTypes)
        driven.insert(type.info.url, type.hasPower());
    for (const auto &device : site.data().devices) {
        if (driven.value(device.descriptor.url))
            entities << JsonAPI::DeviceMode::toVariant({device.descriptor.uid, device.mode});
    }
}

void writeParts(const DemoSite &site, const QString &, QVariantList &entities)
{
    writeAll(site.data().parts, JsonAPI::ShopPart::toVariant, entities);
}

// In the order of the devices.
void writePowerOn(const DemoSite &site, const QString &, QVariantList &entities)
{
    const auto &known = site.data().powerOn;
    for (const auto &device : site.data().devices) {
        const auto found = known.constFind(device.descriptor.uid);
        if (found != known.constEnd())
            entities << JsonAPI::DevicePowerOnInfo::toVariant(*found);
    }
}

void writeSchedules(const DemoSite &site, const QString &, QVariantList &entities)
{
    writeAll(site.data().days, JsonAPI::ScheduleDay::toVariant, entities);
}

void writeSettings(const DemoSite &site, const QString &, QVariantList &entities)
{
    entities << JsonAPI::Settings::toVariant(site.data().settings);
}

void writeUsers(const DemoSite &site, const QString &, QVariantList &entities)
{
    writeAll(site.data().users, JsonAPI::UserInfo::toVariantNoPassword, entities);
}

void writeView3DItems(const DemoSite &site, const QString &, QVariantList &entities)
{
    writeAll(site.data().view3DItems, JsonAPI::View3DItem::toVariant, entities);
}

void writeZones(const DemoSite &site, const QString &, QVariantList &entities)
{
    for (const auto &zone : site.data().zones)
        entities << JsonAPI::Zone::toVariant(zone.zone);
}

const std::vector<Topic> &topics()
{
    static const std::vector<Topic> rows{
        {"action_nodes", true, List::ActionNodes, writeNodes},
        {"blueprints", true, List::Blueprints, writeBlueprints},
        {"button_states", false, List::ButtonStates, writeButtonStates},
        {"buttons", false, List::Buttons, writeButtons},
        {"device_modes", false, List::DeviceModes, writeModes},
        {"device_states", false, List::DeviceStates, nullptr},
        {"device_types", true, List::DeviceTypes, writeDeviceTypes},
        {"devices", false, List::Devices, writeDevices},
        {"image_items", false, List::ImageItems, writeImages},
        {"indicator_states", false, List::IndicatorStates, writeIndicatorStates},
        {"indicators", false, List::Indicators, writeIndicators},
        {"power_on_statistics", false, List::PowerOnStatistics, writePowerOn},
        {"schedules", false, List::Schedules, writeSchedules},
        {"settings", false, List::Settings, writeSettings},
        {"shop_parts", false, List::ShopParts, writeParts},
        {"users", false, List::Users, writeUsers},
        {"view_3d_items", false, List::View3DItems, writeView3DItems},
        {"zones", false, List::Zones, writeZones},
    };
    return rows;
}

const Topic *topicOf(const QByteArray &name)
{
    for (const auto &topic : topics()) {
        if (topic.localized ? name.startsWith(topic.name + "/") : name == topic.name)
            return &topic;
    }
    return nullptr;
}

bool isLocale(const QByteArray &text)
{
    static const QRegularExpression pattern(QStringLiteral("^[A-Za-z]{1,8}(_[A-Za-z0-9]{1,8}){0,3}$"));
    return pattern.match(QString::fromLatin1(text)).hasMatch();
}

// A subscriber may invent locales; each costs a packed list.
constexpr int mostSubscriptions = 256;

} // namespace

Publisher::Publisher(DemoSite &site, const QVersionNumber &version, QObject *parent)
    : QObject(parent)
    , m_site(site)
    , m_version(version)
{
    m_flushTimer.setSingleShot(true);
    m_flushTimer.setInterval(0);
    connect(&m_flushTimer, &QTimer::timeout, this, &Publisher::flush);
    connect(&site, &DemoSite::changed, this, &Publisher::onChanged);
}

void Publisher::onSubscription(const QByteArray &frame)
{
    const auto subscription = frame.mid(1);
    if (frame.startsWith('\0')) {
        m_subscriptions.remove(subscription);
        return;
    }
    if (!frame.startsWith('\1'))
        return;
    const auto names = topicsOf(subscription);
    if (names.isEmpty())
        return;
    if (m_subscriptions.size() < mostSubscriptions)
        m_subscriptions.insert(subscription, names);
    for (const auto &name : names)
        publish(name);
}

QList<QByteArray> Publisher::plainTopics()
{
    QList<QByteArray> names;
    for (const auto &topic : topics()) {
        if (!topic.localized)
            names << topic.name;
    }
    return names;
}

QList<QByteArray> Publisher::localizedTopics()
{
    QList<QByteArray> names;
    for (const auto &topic : topics()) {
        if (topic.localized)
            names << topic.name;
    }
    return names;
}

// A subscription is a prefix. One that does not reach the locale stands for both languages of the site.
QList<QByteArray> Publisher::topicsOf(const QByteArray &subscription) const
{
    QList<QByteArray> names;
    for (const auto &topic : topics()) {
        const QByteArray stem = topic.localized ? topic.name + "/" : topic.name;
        if (stem.startsWith(subscription)) {
            if (topic.localized)
                names << stem + "ru_RU" << stem + "en_US";
            else
                names << stem;
        } else if (topic.localized && subscription.startsWith(stem) && isLocale(subscription.mid(stem.size()))) {
            names << subscription;
        }
    }
    return names;
}

void Publisher::onChanged(DemoSite::List list)
{
    m_changed.insert(int(list));
    if (!m_flushTimer.isActive())
        m_flushTimer.start();
}

void Publisher::flush()
{
    m_flushTimer.stop();
    const auto isChanged = [this](const QByteArray &name) { return m_changed.contains(int(topicOf(name)->list)); };
    const auto packed = m_packed.keys();
    for (const auto &name : packed) {
        if (isChanged(name))
            m_packed.remove(name);
    }
    QSet<QByteArray> names;
    for (const auto &subscribed : qAsConst(m_subscriptions)) {
        for (const auto &name : subscribed) {
            if (isChanged(name))
                names.insert(name);
        }
    }
    m_changed.clear();
    auto sorted = names.values();
    std::sort(sorted.begin(), sorted.end()); // the order of the set differs from run to run
    for (const auto &name : qAsConst(sorted))
        publish(name);
}

void Publisher::publish(const QByteArray &topic)
{
    using Flags = ZmqMessageHeader::Flags;
    const ZmqMessageHeader header({Flags::Json, Flags::Compressed}, {});
    emit published({topic, QByteArray(), header.toByteArray(), packed(topic)});
}

QByteArray Publisher::packed(const QByteArray &topic)
{
    const auto *row = topicOf(topic);
    if (row && m_changed.contains(int(row->list))) // a change that flush() has still to tell to the others
        return qCompress(document(topic));
    auto body = m_packed.value(topic);
    if (body.isEmpty()) {
        body = qCompress(document(topic));
        m_packed.insert(topic, body);
    }
    return body;
}

QByteArray Publisher::document(const QByteArray &topic)
{
    const auto *row = topicOf(topic);
    if (row && !row->write)
        return statesDocument(); // long and often, so written by hand
    QVariantList entities;
    if (row)
        row->write(m_site, languageOf(topic.mid(row->name.size() + 1)), entities);
    JsonAPI::Response response(entities);
    response.serverVersion = m_version;
    return response.toByteArray();
}

// The list that goes out each second is put together from texts, of which most stay from one time to the next.
QByteArray Publisher::statesDocument()
{
    const auto &devices = m_site.data().devices;
    m_fragments.resize(devices.size());
    int size = 64;
    for (size_t row = 0; row < devices.size(); ++row) {
        const auto &device = devices[row];
        auto &fragment = m_fragments[row];
        if (fragment.revision != device.stateRevision) {
            const auto entity = JsonAPI::DeviceState::toVariant({device.descriptor.uid, device.state});
            fragment.text = QJsonDocument::fromVariant(entity).toJson(QJsonDocument::Compact);
            fragment.revision = device.stateRevision;
        }
        size += fragment.text.size() + 1;
    }
    QByteArray document;
    document.reserve(size);
    document += R"({"data":[)";
    for (size_t row = 0; row < m_fragments.size(); ++row) {
        if (row > 0)
            document += ',';
        document += m_fragments[row].text;
    }
    document += R"(],"server_version":")";
    document += m_version.toString().toLatin1();
    document += R"("})";
    return document;
}

} // namespace Demo
