// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/DeviceFaultsListModel.h"

#include "data/DevicesListModel.h"
#include "link/AbstractBackendCommunicator.h"
#include "model/VariantReading.h"

#include <QVersionNumber>
#include <algorithm>
#include <limits>

namespace {

QVariant pollingIntervalOf(const Model::DeviceDescriptor &descriptor)
{
    static const auto key = QStringLiteral("pollingInterval");
    return descriptor.data.value(key);
}

bool isSame(const DeviceFaultsListModel::FaultInfo &left, const DeviceFaultsListModel::FaultInfo &right)
{
    return left.errorCount == right.errorCount && left.faultTime == right.faultTime
        && left.faultLengthSec == right.faultLengthSec;
}

} // namespace

DeviceFaultsListModel::DeviceFaultsListModel(AbstractBackendCommunicator &communicator, DevicesListModel &devices,
                                             QObject *parent)
    : UidKeyAbstractListModel(parent)
    , m_communicator(communicator)
    , m_devices(devices)
{
    connect(&devices, &DevicesListModel::devicesUpdated, this, &DeviceFaultsListModel::onDevicesUpdated);
    // Names and the order of rows depend on the types.
    connect(&devices, &DevicesListModel::deviceTypesUpdated, this, &DeviceFaultsListModel::onDevicesUpdated);
    connect(&devices, &DevicesListModel::deviceStatesUpdated, this, &DeviceFaultsListModel::onDeviceStatesUpdated);
    connect(&communicator, &AbstractBackendCommunicator::statusChanged, this, &DeviceFaultsListModel::onStatusChanged);
    onDeviceStatesUpdated(communicator.getDataCache().getDeviceStates()); // also of devices that are to come
    onDeviceStatesUpdated(devices.getDeviceStates());
    onDevicesUpdated();
}

int DeviceFaultsListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_items.size();
}

QVariant DeviceFaultsListModel::data(const QModelIndex &index, int role) const
{
    if (!holds(index))
        return {};
    const auto &item = m_items.at(index.row());
    switch (role) {
    case Uid: return item.uid.toString();
    case ZoneUid: return item.zoneUid;
    case Name: return item.name;
    case Sort: return item.sort;
    case ErrorCount: return item.fault.errorCount;
    case FaultTime: return item.fault.faultTime;
    case FaultLengthSec: return item.fault.faultLengthSec;
    }
    return {};
}

QHash<int, QByteArray> DeviceFaultsListModel::roleNames() const
{
    static const QHash<int, QByteArray> names{
        {Uid, "uid"},
        {ZoneUid, "zoneUid"},
        {Name, "name"},
        {Sort, "sort"},
        {ErrorCount, "errorCount"},
        {FaultTime, "faultTime"},
        {FaultLengthSec, "faultLengthSec"},
    };
    return names;
}

DeviceFaultsListModel::FaultInfo DeviceFaultsListModel::getFaultInfo(const Model::DeviceDescriptor &descriptor,
                                                                     const Model::DeviceState &state,
                                                                     const QDateTime &now) const
{
    return faultOf(descriptor.url, pollingIntervalOf(descriptor), state.state, Moment(now));
}

DeviceFaultsListModel::FaultInfo DeviceFaultsListModel::faultOf(const QUrl &url, const QVariant &pollingInterval,
                                                                const QVariantMap &state, const Moment &now) const
{
    static const QVersionNumber countsBeacons(4, 5, 0);
    static const QUrl beacon(QStringLiteral("Beacon.qml"));
    static const auto errorsKey = QStringLiteral("errors");
    FaultInfo info;
    info.faultTime = now.time;
    const int errors = Model::intFrom(state.value(errorsKey));
    const int interval = Model::intFrom(pollingInterval);
    if (errors <= 0 || interval <= 0)
        return info;
    const QVersionNumber server(m_communicator.getVersionMajor(), m_communicator.getVersionMinor(),
                                m_communicator.getVersionPatch());
    if (server < countsBeacons && url == beacon)
        return info; // older servers had no reliable counter for them
    // In 64 bits: two full ints make 2^62 milliseconds at most.
    const qint64 intoInterval = (now.milliseconds % interval + interval) % interval;
    const qint64 length = intoInterval + static_cast<qint64>(errors) * interval;
    constexpr qint64 longest = std::numeric_limits<int>::max();
    info.errorCount = errors;
    info.faultTime.setMSecsSinceEpoch(now.milliseconds - length); // keeps the time zone
    info.faultLengthSec = static_cast<int>(qMin(length / 1000, longest));
    return info;
}

void DeviceFaultsListModel::onDevicesUpdated()
{
    const Moment now(m_clock());
    const auto &devices = m_devices.getDevices();
    std::vector<Item> items;
    items.reserve(static_cast<std::size_t>(devices.size()));
    for (const auto &device : devices) {
        const auto &descriptor = device.descriptor;
        const auto state = m_states.find(descriptor.uid);
        Item item;
        item.url = descriptor.url;
        item.uid = descriptor.uid;
        item.zoneUid = descriptor.zoneUid;
        item.pollingInterval = pollingIntervalOf(descriptor);
        item.name = device.prettyString;
        item.sort = device.sortString;
        item.fault =
            faultOf(item.url, item.pollingInterval, state == m_states.end() ? QVariantMap() : state->second.state, now);
        items.push_back(std::move(item));
    }
    std::stable_sort(items.begin(), items.end(),
                     [](const auto &left, const auto &right) { return left.sort < right.sort; });
    using Merge = DiffTransform<Rows<Item>, Item>;
    Merge(
        m_items, std::move(items), [](const auto &item) { return item.uid; }, *this)
        .transform();
    emit deviceFaultsUpdated();
}

void DeviceFaultsListModel::onDeviceStatesUpdated(const std::vector<Model::DeviceState> &states)
{
    static const QVector<int> roles{ErrorCount, FaultTime, FaultLengthSec};
    const Moment now(m_clock());
    UidIndex incoming(states.size());
    for (std::size_t i = 0; i < states.size(); ++i) {
        incoming.insertLast(states[i].uid, static_cast<int>(i));
        m_states[states[i].uid] = states[i];
    }
    for (int row = 0; row < m_items.size(); ++row) {
        auto &item = m_items.at(row);
        const int position = incoming.find(item.uid);
        if (position < 0)
            continue;
        const auto &state = states[static_cast<std::size_t>(position)].state;
        auto fault = faultOf(item.url, item.pollingInterval, state, now);
        if (isSame(fault, item.fault))
            continue;
        item.fault = std::move(fault);
        const auto place = index(row);
        emit dataChanged(place, place, roles);
    }
    emit deviceFaultsUpdated();
}

// A fresh connection: nothing old may be joined to what the new server sends. Rows stay until its list comes.
void DeviceFaultsListModel::onStatusChanged()
{
    if (m_communicator.getStatus() == AbstractBackendCommunicator::Connecting)
        m_states.clear();
}
