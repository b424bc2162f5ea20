// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ZonesListModel.h"

#include "data/DeviceFaultsListModel.h"
#include "data/DevicesListModel.h"
#include "data/JsValues.h"
#include "data/SortKeys.h"
#include "data/UsersListModel.h"
#include "link/AbstractBackendCommunicator.h"
#include "model/VariantReading.h"

#include <QtNumeric>
#include <cmath>

namespace {

constexpr double canvasWidth = 4096.0;

// By part, then by name within it. Names of parts are aligned at their right so that the fields stand at one place.
template <typename Items>
void updateSortOrders(Items &items)
{
    int width = 0;
    for (const auto &item : items)
        width = qMax(width, item.partName.size());
    for (auto &item : items) {
        item.sort = item.partName.rightJustified(width, '#') + ':' + SortKeys::hash(item.zone.partUid) + ':'
            + item.zone.name + ':' + SortKeys::hash(item.zone.uid);
    }
}

} // namespace

ZonesListModel::ZonesListModel(AbstractBackendCommunicator &communicator, DevicesListModel &devices,
                               DeviceFaultsListModel &faults, UsersListModel &users, QObject *parent)
    : UidKeyAbstractListModel(parent)
    , m_communicator(communicator)
    , m_devices(devices)
    , m_faults(faults)
    , m_users(users)
{
    auto &cache = communicator.getDataCache();
    connect(&cache, &BackendDataCache::zonesChanged, this, &ZonesListModel::onZonesReceived);
    connect(&cache, &BackendDataCache::shopPartsChanged, this, &ZonesListModel::onPartsReceived);
    connect(&cache, &BackendDataCache::schedulesChanged, this, &ZonesListModel::onSchedulesReceived);
    // Users and zones come in any order, so the rights that came last choose anew among the last list.
    connect(&users, &UsersListModel::currentUserChanged, this,
            [this] { onZonesReceived(m_communicator.getDataCache().getZones()); });
    connect(&devices, &DevicesListModel::deviceTypesUpdated, this, &ZonesListModel::onDeviceTypesUpdated);
    connect(&devices, &DevicesListModel::deviceStatesUpdated, this, &ZonesListModel::onDeviceStatesUpdated);
    connect(&devices, &DevicesListModel::deviceModesUpdated, this, &ZonesListModel::onDeviceModesUpdated);
    // A device may come after its state, move to another zone, or go.
    connect(&devices, &DevicesListModel::devicesUpdated, this, [this] {
        onDeviceModesUpdated();
        onDeviceStatesUpdated();
    });
    connect(&faults, &DeviceFaultsListModel::deviceFaultsUpdated, this, &ZonesListModel::onDeviceFaultsUpdated);
    onPartsReceived(cache.getShopParts());
    onSchedulesReceived(cache.getScheduleDays());
    onDeviceFaultsUpdated();
    onZonesReceived(cache.getZones());
}

int ZonesListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_items.size();
}

QVariant ZonesListModel::data(const QModelIndex &index, int role) const
{
    if (!holds(index))
        return {};
    const auto &item = m_items.at(index.row());
    switch (role) {
    case Uid: return item.zone.uid.toString();
    case Name: return item.zone.name;
    case ScheduleName: return item.scheduleNames;
    case X: return item.zone.position.x;
    case Y: return item.zone.position.y;
    case Width: return item.zone.width;
    case Height: return item.zone.height;
    case PartUid: return item.zone.partUid.toString();
    case PartName: return item.partName;
    case Sort: return item.sort;
    case Manual: return item.manual;
    case Power: return item.power;
    case ErroredDevicesCount: return item.erroredDevicesCount;
    }
    return {};
}

QHash<int, QByteArray> ZonesListModel::roleNames() const
{
    static const QHash<int, QByteArray> names{
        {Uid, "uid"},
        {Name, "name"},
        {ScheduleName, "scheduleName"},
        {X, "x"},
        {Y, "y"},
        {Width, "width"},
        {Height, "height"},
        {PartUid, "partUid"},
        {PartName, "partName"},
        {Sort, "sort"},
        {Manual, "manual"},
        {Power, "power"},
        {ErroredDevicesCount, "erroredDevicesCount"},
    };
    return names;
}

void ZonesListModel::addZone(const QJSValue &value, const QJSValue &callback)
{
    if (!value.isObject())
        return;
    Model::Zone zone;
    zone.uid = QUuid::createUuid();
    zone.partUid = QUuid(value.property(QStringLiteral("partUid")).toString());
    zone.width = JsValues::number(value, QStringLiteral("width"), zone.width);
    zone.height = JsValues::number(value, QStringLiteral("height"), zone.height);
    const double x = JsValues::number(value, QStringLiteral("x"), qQNaN());
    const double y = JsValues::number(value, QStringLiteral("y"), qQNaN());
    zone.position = std::isnan(x) || std::isnan(y) ? freePlace(zone.partUid, zone.width) : Model::Position{x, y};
    m_communicator.addZones({zone}, JsValues::uidsCompletion(this, callback));
}

// Behind the last zone of the lowest line, or at the start of a line of its own under it. The candidate is kept in
// single precision at each step, as plans were always laid out.
Model::Position ZonesListModel::freePlace(const QUuid &partUid, double width) const
{
    float x = 0.0F;
    float y = 0.0F;
    const auto zones = m_communicator.getDataCache().getZones();
    for (const auto &zone : zones) {
        if (zone.partUid != partUid)
            continue;
        const double right = zone.position.x + zone.width;
        const double top = zone.position.y;
        const bool onSameLine = std::trunc(top) == std::trunc(static_cast<double>(y));
        if (!(top > static_cast<double>(y) || (onSameLine && right > static_cast<double>(x))))
            continue;
        x = static_cast<float>(right);
        y = static_cast<float>(top);
        if (static_cast<double>(x) + width > canvasWidth) {
            x = 0.0F;
            y = static_cast<float>(top + zone.height);
        }
    }
    const bool isOnPlan = std::isfinite(x) && std::isfinite(y); // a published length may be as large as it likes
    return isOnPlan ? Model::Position{static_cast<double>(x), static_cast<double>(y)} : Model::Position();
}

void ZonesListModel::changeZoneGeometry(const QString &uid, double x, double y, double width, double height)
{
    const auto *const item = itemOf(QUuid(uid));
    if (!item || !qIsFinite(x) || !qIsFinite(y) || !qIsFinite(width) || !qIsFinite(height))
        return;
    auto zone = item->zone;
    zone.position = {x, y};
    zone.width = width;
    zone.height = height;
    m_communicator.changeZones({zone});
}

void ZonesListModel::changeZoneName(const QString &zoneUid, const QString &name)
{
    const auto *const item = itemOf(QUuid(zoneUid));
    if (!item)
        return;
    auto zone = item->zone;
    zone.name = name;
    m_communicator.changeZones({zone});
}

void ZonesListModel::removeZones(const QStringList &uids)
{
    std::vector<Model::Zone> zones;
    for (const auto &uid : uids) {
        Model::Zone zone;
        zone.uid = QUuid(uid);
        if (!zone.uid.isNull())
            zones.push_back(zone);
    }
    if (!zones.empty())
        m_communicator.removeZones(zones);
}

void ZonesListModel::onZonesReceived(const std::vector<Model::Zone> &zones)
{
    const auto user = m_users.getCurrentUser();
    std::vector<ZoneModelItem> items;
    items.reserve(zones.size());
    for (const auto &zone : zones) {
        if (!user.hasAccess(zone.uid))
            continue;
        ZoneModelItem item;
        item.zone = zone;
        item.partName = m_parts.value(zone.partUid).name;
        item.scheduleNames = m_scheduleNames.value(zone.uid);
        item.erroredDevicesCount = m_erroredDevices.value(zone.uid);
        items.push_back(std::move(item));
    }
    updateSortOrders(items);
    using Merge = DiffTransform<Rows<ZoneModelItem>, ZoneModelItem>;
    Merge(
        m_items, std::move(items), [](const auto &item) { return item.zone.uid; }, *this)
        .transform();
    onDeviceModesUpdated();
    onDeviceStatesUpdated();
}

void ZonesListModel::onPartsReceived(const std::vector<Model::ShopPart> &parts)
{
    m_parts.clear();
    for (const auto &part : parts)
        m_parts.insert(part.uid, part);
    if (m_items.empty())
        return;
    for (auto &item : m_items)
        item.partName = m_parts.value(item.zone.partUid).name;
    updateSortOrders(m_items);
    emit dataChanged(index(0), index(rowCount() - 1), {PartName, Sort});
}

void ZonesListModel::onSchedulesReceived(const std::vector<Model::ScheduleDay> &days)
{
    m_scheduleNames.clear();
    for (const auto &day : days) {
        for (const auto &zone : day.zones) {
            auto &names = m_scheduleNames[zone];
            if (!names.contains(day.name))
                names.append(day.name);
        }
    }
    for (int row = 0; row < m_items.size(); ++row) {
        auto &item = m_items.at(row);
        auto names = m_scheduleNames.value(item.zone.uid);
        if (names == item.scheduleNames)
            continue;
        item.scheduleNames = std::move(names);
        announceRow(row, ScheduleName);
    }
}

// Nothing of a zone depends on the types of its devices.
void ZonesListModel::onDeviceTypesUpdated() {}

void ZonesListModel::onDeviceStatesUpdated()
{
    static const auto key = QStringLiteral("power");
    m_powers.clear();
    for (const auto &device : m_devices.getDevices()) {
        const auto power = device.state.state.constFind(key);
        if (power == device.state.state.constEnd())
            continue;
        auto &info = m_powers[device.descriptor.zoneUid];
        info.sum += Model::intFrom(*power);
        ++info.count;
    }
    for (auto &info : m_powers)
        info.sum /= info.count;
    for (int row = 0; row < m_items.size(); ++row) {
        auto &item = m_items.at(row);
        const auto info = m_powers.constFind(item.zone.uid);
        const int power = info == m_powers.constEnd() ? 100 : static_cast<int>(info->sum);
        if (power == item.power)
            continue;
        item.power = power;
        announceRow(row, Power);
    }
}

void ZonesListModel::onDeviceModesUpdated()
{
    m_manualZones.clear();
    for (const auto &device : m_devices.getDevices()) {
        if (device.mode.mode == Model::DeviceMode::Mode::Manual)
            m_manualZones.insert(device.descriptor.zoneUid);
    }
    for (int row = 0; row < m_items.size(); ++row) {
        auto &item = m_items.at(row);
        const bool manual = m_manualZones.contains(item.zone.uid);
        if (manual == item.manual)
            continue;
        item.manual = manual;
        announceRow(row, Manual);
    }
}

void ZonesListModel::onDeviceFaultsUpdated()
{
    m_erroredDevices.clear();
    for (const auto &device : m_faults.rows()) {
        if (device.fault.errorCount > DeviceFaultsListModel::toleratedErrors)
            ++m_erroredDevices[device.zoneUid];
    }
    for (int row = 0; row < m_items.size(); ++row) {
        auto &item = m_items.at(row);
        const int count = m_erroredDevices.value(item.zone.uid);
        if (count == item.erroredDevicesCount)
            continue;
        item.erroredDevicesCount = count;
        announceRow(row, ErroredDevicesCount);
    }
}

const ZonesListModel::ZoneModelItem *ZonesListModel::itemOf(const QUuid &uid) const
{
    const auto item =
        std::find_if(m_items.begin(), m_items.end(), [&](const auto &row) { return row.zone.uid == uid; });
    return item == m_items.end() ? nullptr : &*item;
}

void ZonesListModel::announceRow(int row, int role)
{
    const auto place = index(row);
    emit dataChanged(place, place, {role});
}
