// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/Publisher.h"

#include "link/document/Response.h"
#include "link/document/ZmqMessageHeader.h"
#include "model/json/Device.h"
#include "model/json/DeviceMode.h"
#include "model/json/DeviceState.h"
#include "model/json/DeviceType.h"
#include "model/json/ShopPart.h"
#include "model/json/UserInfo.h"
#include "model/json/Zone.h"

#include <QJsonDocument>
#include <QRegularExpression>

namespace Demo {

namespace {

using List = DemoSite::List;

// Topics without a list are those whose records this site does not hold: they are published empty.
constexpr int noList = -1;

struct Topic
{
    QByteArray name;
    bool localized = false;
    int list = noList;
    void (*write)(const SiteData &site, const QByteArray &locale, QVariantList &entities) = nullptr;
};

QByteArray languageOf(const QByteArray &locale)
{
    return locale.split('_').first().toLower();
}

void writeDevices(const SiteData &site, const QByteArray &, QVariantList &entities)
{
    for (const auto &device : site.devices)
        entities << JsonAPI::Device::toVariant(device.descriptor);
}

// Russian is the site's own language; others than those it has see English.
void writeDeviceTypes(const SiteData &site, const QByteArray &locale, QVariantList &entities)
{
    const auto language = languageOf(locale);
    for (const auto &type : site.deviceTypes) {
        auto info = type.info;
        const auto known = QString::fromLatin1(type.translations.contains(language) ? language : "en");
        if (language != "ru" && type.translations.contains(known))
            info.localize(type.translations.value(known));
        entities << JsonAPI::DeviceType::toVariant(info);
    }
}

void writeModes(const SiteData &site, const QByteArray &, QVariantList &entities)
{
    QHash<QUrl, bool> driven;
    for (const auto &type : site.deviceTypes)
        driven.insert(type.info.url, type.hasPower());
    for (const auto &device : site.devices) {
        if (driven.value(device.descriptor.url))
            entities << JsonAPI::DeviceMode::toVariant({device.descriptor.uid, device.mode});
    }
}

void writeParts(const SiteData &site, const QByteArray &, QVariantList &entities)
{
    for (const auto &part : site.parts)
        entities << JsonAPI::ShopPart::toVariant(part);
}

void writeUsers(const SiteData &site, const QByteArray &, QVariantList &entities)
{
    for (const auto &user : site.users)
        entities << JsonAPI::UserInfo::toVariantNoPassword(user);
}

void writeZones(const SiteData &site, const QByteArray &, QVariantList &entities)
{
    for (const auto &zone : site.zones)
        entities << JsonAPI::Zone::toVariant(zone.zone);
}

const std::vector<Topic> &topics()
{
    static const std::vector<Topic> rows{
        {"action_nodes", true},
        {"blueprints", true},
        {"button_states"},
        {"buttons"},
        {"device_modes", false, int(List::DeviceModes), writeModes},
        {"device_states", false, int(List::DeviceStates)}, // written by hand: see statesDocument()
        {"device_types", true, int(List::DeviceTypes), writeDeviceTypes},
        {"devices", false, int(List::Devices), writeDevices},
        {"image_items"},
        {"indicator_states"},
        {"indicators"},
        {"power_on_statistics"},
        {"schedules"},
        {"settings"},
        {"shop_parts", false, int(List::ShopParts), writeParts},
        {"users", false, int(List::Users), writeUsers},
        {"view_3d_items"},
        {"zones", false, int(List::Zones), writeZones},
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
    const auto isChanged = [this](const QByteArray &name) { return m_changed.contains(topicOf(name)->list); };
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
    if (row && m_changed.contains(row->list)) // a change that flush() has still to tell to the others
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
    if (row && row->list == int(List::DeviceStates))
        return statesDocument();
    QVariantList entities;
    if (row && row->write)
        row->write(m_site.data(), topic.mid(row->name.size() + 1), entities);
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
