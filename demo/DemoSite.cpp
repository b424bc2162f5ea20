// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/DemoSite.h"

#include "demo/SiteRows.h"

#include <QMetaEnum>
#include <algorithm>
#include <cmath>

namespace Demo {

DemoSite::DemoSite(const SiteData &data, QObject *parent)
    : QObject(parent)
    , m_data(data)
    , m_initial(data)
{
    qRegisterMetaType<List>();
    qRegisterMetaType<Model::LogEntry::Cause>("Model::LogEntry::Cause");
    index();
}

void DemoSite::index()
{
    m_partRows = rowsByUid(m_data.parts);
    m_zoneRows = rowsByUid(m_data.zones);
    m_deviceRows = rowsByUid(m_data.devices);
    m_buttonRows = rowsByUid(m_data.buttons);
    m_indicatorRows = rowsByUid(m_data.indicators);
    m_imageRows = rowsByUid(m_data.images);
    m_view3DRows = rowsByUid(m_data.view3DItems);
    m_blueprintRows = rowsByUid(m_data.blueprints);
    m_dayRows = rowsByUid(m_data.days);
    m_typeRows.clear();
    for (size_t row = 0; row < m_data.deviceTypes.size(); ++row)
        m_typeRows.insert(m_data.deviceTypes[row].info.url, static_cast<int>(row));
    for (auto &device : m_data.devices)
        stampState(device);
}

void DemoSite::stampState(SiteDevice &device)
{
    device.stateRevision = ++m_revision;
}

const Model::ShopPart *DemoSite::part(const QUuid &uid) const
{
    return find(m_data.parts, m_partRows, uid);
}

const SiteZone *DemoSite::zone(const QUuid &uid) const
{
    return find(m_data.zones, m_zoneRows, uid);
}

const SiteDevice *DemoSite::device(const QUuid &uid) const
{
    return find(m_data.devices, m_deviceRows, uid);
}

const Model::UserInfo *DemoSite::user(const QString &login) const
{
    const auto found = std::find_if(m_data.users.begin(), m_data.users.end(),
                                    [&login](const auto &user) { return user.login == login; });
    return found == m_data.users.end() ? nullptr : &*found;
}

const SiteDeviceType *DemoSite::deviceType(const QUrl &url) const
{
    const int row = m_typeRows.value(url, -1);
    return row < 0 ? nullptr : &m_data.deviceTypes[static_cast<size_t>(row)];
}

bool DemoSite::hasPower(const SiteDevice &device) const
{
    const auto *type = deviceType(device.descriptor.url);
    return type && type->hasPower();
}

void DemoSite::put(const Model::ShopPart &part)
{
    const int row = m_partRows.value(part.uid, -1);
    if (row < 0) {
        m_partRows.insert(part.uid, static_cast<int>(m_data.parts.size()));
        m_data.parts.push_back(part);
    } else {
        m_data.parts[static_cast<size_t>(row)] = part;
    }
    emit changed(List::ShopParts);
}

void DemoSite::put(const Model::Zone &zone)
{
    const int row = m_zoneRows.value(zone.uid, -1);
    if (row < 0) {
        m_zoneRows.insert(zone.uid, static_cast<int>(m_data.zones.size()));
        SiteZone added;
        added.zone = zone;
        m_data.zones.push_back(added);
    } else {
        m_data.zones[static_cast<size_t>(row)].zone = zone; // its level and swing stay
    }
    emit changed(List::Zones);
}

void DemoSite::put(const Model::DeviceDescriptor &descriptor)
{
    const int row = m_deviceRows.value(descriptor.uid, -1);
    const auto *type = deviceType(descriptor.url);
    const bool sameKind = row >= 0 && m_data.devices[static_cast<size_t>(row)].descriptor.url == descriptor.url;
    if (row < 0) {
        m_deviceRows.insert(descriptor.uid, static_cast<int>(m_data.devices.size()));
        m_data.devices.emplace_back();
    }
    auto &device = row < 0 ? m_data.devices.back() : m_data.devices[static_cast<size_t>(row)];
    device.descriptor = descriptor;
    emit changed(List::Devices);
    if (sameKind)
        return;
    device.state = type ? type->info.defaultStateValues() : QVariantMap();
    device.mode = Model::DeviceMode::Mode::Automatic;
    stampState(device);
    emit changed(List::DeviceStates);
    emit changed(List::DeviceModes);
}

void DemoSite::put(const Model::UserInfo &user)
{
    const auto found = std::find_if(m_data.users.begin(), m_data.users.end(),
                                    [&user](const auto &known) { return known.login == user.login; });
    if (found == m_data.users.end())
        m_data.users.push_back(user);
    else
        *found = user;
    emit changed(List::Users);
}

QStringList DemoSite::removeParts(const QSet<QUuid> &uids)
{
    auto removed = removeFrom(m_data.parts, uids);
    m_partRows = rowsByUid(m_data.parts);
    QSet<QUuid> zones;
    for (const auto &zone : m_data.zones) {
        if (uids.contains(zone.zone.partUid))
            zones.insert(zone.zone.uid);
    }
    if (!zones.isEmpty())
        removed += removeZones(zones);
    removed += removeStandingOn(uids);
    emit changed(List::ShopParts);
    return removed;
}

QStringList DemoSite::removeZones(const QSet<QUuid> &uids)
{
    auto removed = removeFrom(m_data.zones, uids);
    m_zoneRows = rowsByUid(m_data.zones);
    QSet<QUuid> devices;
    for (const auto &device : m_data.devices) {
        if (uids.contains(device.descriptor.zoneUid))
            devices.insert(device.descriptor.uid);
    }
    if (!devices.isEmpty())
        removed += removeDevices(devices);
    forgetZones(uids);
    emit changed(List::Zones);
    return removed;
}

QStringList DemoSite::removeDevices(const QSet<QUuid> &uids)
{
    const auto removed = removeFrom(m_data.devices, uids);
    m_deviceRows = rowsByUid(m_data.devices);
    forgetDevices(uids);
    emit changed(List::Devices);
    emit changed(List::DeviceStates);
    emit changed(List::DeviceModes);
    return removed;
}

void DemoSite::removeUsers(const QSet<QString> &logins)
{
    auto &users = m_data.users;
    users.erase(
        std::remove_if(users.begin(), users.end(), [&logins](const auto &user) { return logins.contains(user.login); }),
        users.end());
    emit changed(List::Users);
}

void DemoSite::setState(const QUuid &uid, const QVariantMap &state)
{
    const int row = m_deviceRows.value(uid, -1);
    if (row < 0)
        return;
    auto &device = m_data.devices[static_cast<size_t>(row)];
    if (device.state == state)
        return;
    device.state = state;
    stampState(device);
    emit changed(List::DeviceStates);
}

void DemoSite::setMode(const QUuid &uid, Model::DeviceMode::Mode mode)
{
    const int row = m_deviceRows.value(uid, -1);
    if (row < 0 || m_data.devices[static_cast<size_t>(row)].mode == mode)
        return;
    m_data.devices[static_cast<size_t>(row)].mode = mode;
    emit changed(List::DeviceModes);
}

void DemoSite::setZonesPower(const QSet<QUuid> &zones, double power)
{
    // Bounded as a double first: what lies outside an int has no defined conversion.
    const int value = static_cast<int>(std::lround(qBound(0.0, power, 100.0)));
    for (const auto &device : m_data.devices) {
        if (!zones.contains(device.descriptor.zoneUid) || !hasPower(device))
            continue;
        auto state = device.state;
        state.insert(QStringLiteral("power"), value);
        setState(device.descriptor.uid, state);
    }
}

void DemoSite::setZonesMode(const QSet<QUuid> &zones, Model::DeviceMode::Mode mode)
{
    for (const auto &device : m_data.devices) {
        if (zones.contains(device.descriptor.zoneUid) && hasPower(device))
            setMode(device.descriptor.uid, mode);
    }
}

void DemoSite::replace(const SiteData &data)
{
    m_data = data;
    m_indicatorStates.clear();
    index();
    emit replaced();
    const auto lists = QMetaEnum::fromType<List>();
    for (int i = 0; i < lists.keyCount(); ++i)
        emit changed(static_cast<List>(lists.value(i)));
}

} // namespace Demo
