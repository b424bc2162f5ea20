// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/BackendDataCache.h"

#include "link/AbstractBackendCommunicator.h"

namespace {

Model::TimeInfo initialTimeInfo()
{
    Model::TimeInfo info;
    info.time = QDateTime::currentDateTimeUtc();
    info.timezone = QStringLiteral("UTC");
    return info;
}

} // namespace

BackendDataCache::BackendDataCache(AbstractBackendCommunicator &communicator, QObject *parent)
    : QObject(parent)
    , m_communicator(communicator)
    , m_timeInfo(initialTimeInfo())
{
    using Link = AbstractBackendCommunicator;
    using Cache = BackendDataCache;
    connect(&communicator, &Link::backendUserListReceived, this, &Cache::setUsers);
    connect(&communicator, &Link::devicesStatesReceived, this, &Cache::setDeviceStates);
    connect(&communicator, &Link::devicesTypesReceived, this, &Cache::setDeviceTypes);
    connect(&communicator, &Link::devicesModesReceived, this, &Cache::setDeviceModes);
    connect(&communicator, &Link::shopPartsReceived, this, &Cache::setShopParts);
    connect(&communicator, &Link::zonesReceived, this, &Cache::setZones);
    connect(&communicator, &Link::devicesReceived, this, &Cache::setDeviceDescriptors);
    connect(&communicator, &Link::systemTimeReceived, this, &Cache::setTimeInfo);
    connect(&communicator, &Link::timeReceived, this, &Cache::setTime);
    connect(&communicator, &Link::statusChanged, this, &Cache::onBackendStatusChanged);
}

// No test for change: a publication equal to the last one is announced as well.
template <typename T>
void BackendDataCache::replace(T &member, const T &value, void (BackendDataCache::*changed)(const T &))
{
    member = value;
    emit(this->*changed)(value);
}

void BackendDataCache::setUsers(const std::vector<Model::UserInfo> &users)
{
    replace(m_users, users, &BackendDataCache::usersChanged);
}

void BackendDataCache::setDeviceStates(const std::vector<Model::DeviceState> &states)
{
    replace(m_deviceStates, states, &BackendDataCache::devicesStatesChanged);
}

void BackendDataCache::setDeviceTypes(const std::vector<Model::DeviceTypeInfo> &types)
{
    replace(m_deviceTypes, types, &BackendDataCache::devicesTypesChanged);
}

void BackendDataCache::setDeviceModes(const std::vector<Model::DeviceMode> &modes)
{
    replace(m_deviceModes, modes, &BackendDataCache::devicesModesChanged);
}

void BackendDataCache::setShopParts(const std::vector<Model::ShopPart> &parts)
{
    replace(m_shopParts, parts, &BackendDataCache::shopPartsChanged);
}

void BackendDataCache::setZones(const std::vector<Model::Zone> &zones)
{
    replace(m_zones, zones, &BackendDataCache::zonesChanged);
}

void BackendDataCache::setDeviceDescriptors(const std::vector<Model::DeviceDescriptor> &devices)
{
    replace(m_devices, devices, &BackendDataCache::devicesChanged);
}

void BackendDataCache::setTimeInfo(const Model::TimeInfo &info)
{
    replace(m_timeInfo, info, &BackendDataCache::systemTimeChanged);
}

void BackendDataCache::setTime(const QDateTime &time)
{
    replace(m_time, time, &BackendDataCache::timeChanged);
}

void BackendDataCache::onBackendStatusChanged()
{
    if (m_communicator.getStatus() != AbstractBackendCommunicator::Disconnected)
        return;
    setUsers({});
    setDeviceStates({});
    setDeviceTypes({});
    setDeviceModes({});
    setShopParts({});
    setZones({});
    setDeviceDescriptors({});
    setTimeInfo(initialTimeInfo());
    setTime({});
}
