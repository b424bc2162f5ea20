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
    connect(&communicator, &Link::buttonStateListReceived, this, &Cache::setButtonStates);
    connect(&communicator, &Link::backendUserListReceived, this, &Cache::setUsers);
    connect(&communicator, &Link::devicesStatesReceived, this, &Cache::setDeviceStates);
    connect(&communicator, &Link::devicesTypesReceived, this, &Cache::setDeviceTypes);
    connect(&communicator, &Link::devicesModesReceived, this, &Cache::setDeviceModes);
    connect(&communicator, &Link::actionNodesReceived, this, &Cache::setActionNodes);
    connect(&communicator, &Link::shopPartsReceived, this, &Cache::setShopParts);
    connect(&communicator, &Link::zonesReceived, this, &Cache::setZones);
    connect(&communicator, &Link::buttonsReceived, this, &Cache::setButtons);
    connect(&communicator, &Link::indicatorsReceived, this, &Cache::setIndicators);
    connect(&communicator, &Link::indicatorStatesReceived, this, &Cache::setIndicatorStates);
    connect(&communicator, &Link::devicesReceived, this, &Cache::setDeviceDescriptors);
    connect(&communicator, &Link::blueprintsReceived, this, &Cache::setBlueprints);
    connect(&communicator, &Link::schedulesReceived, this, &Cache::setScheduleDays);
    connect(&communicator, &Link::settingsReceived, this, &Cache::setSettings);
    connect(&communicator, &Link::systemTimeReceived, this, &Cache::setTimeInfo);
    connect(&communicator, &Link::timeReceived, this, &Cache::setTime);
    connect(&communicator, &Link::imageItemsReceived, this, &Cache::setImageItems);
    connect(&communicator, &Link::view3DItemsReceived, this, &Cache::setView3DItems);
    connect(&communicator, &Link::powerOnStatisticsReceived, this, &Cache::setPowerOnStatistics);
    connect(&communicator, &Link::statusChanged, this, &Cache::onBackendStatusChanged);
}

// No test for change: a publication equal to the last one is announced as well.
template <typename T>
void BackendDataCache::replace(T &member, const T &value, void (BackendDataCache::*changed)(const T &))
{
    member = value;
    emit(this->*changed)(value);
}

void BackendDataCache::setButtonStates(const std::vector<Model::ButtonState> &states)
{
    replace(m_buttonStates, states, &BackendDataCache::buttonStatesChanged);
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

void BackendDataCache::setActionNodes(const std::vector<Model::NodeDescription> &nodes)
{
    replace(m_actionNodes, nodes, &BackendDataCache::actionNodesChanged);
}

void BackendDataCache::setShopParts(const std::vector<Model::ShopPart> &parts)
{
    replace(m_shopParts, parts, &BackendDataCache::shopPartsChanged);
}

void BackendDataCache::setZones(const std::vector<Model::Zone> &zones)
{
    replace(m_zones, zones, &BackendDataCache::zonesChanged);
}

void BackendDataCache::setButtons(const std::vector<Model::Button> &buttons)
{
    replace(m_buttons, buttons, &BackendDataCache::buttonsChanged);
}

void BackendDataCache::setIndicators(const std::vector<Model::Indicator> &indicators)
{
    replace(m_indicators, indicators, &BackendDataCache::indicatorsChanged);
}

void BackendDataCache::setDeviceDescriptors(const std::vector<Model::DeviceDescriptor> &devices)
{
    replace(m_devices, devices, &BackendDataCache::devicesChanged);
}

void BackendDataCache::setBlueprints(const std::vector<Model::ActionBlueprint> &blueprints)
{
    replace(m_blueprints, blueprints, &BackendDataCache::blueprintsChanged);
}

void BackendDataCache::setScheduleDays(const std::vector<Model::ScheduleDay> &days)
{
    replace(m_scheduleDays, days, &BackendDataCache::schedulesChanged);
}

void BackendDataCache::setSettings(const Model::Settings &settings)
{
    replace(m_settings, settings, &BackendDataCache::settingsChanged);
}

void BackendDataCache::setTimeInfo(const Model::TimeInfo &info)
{
    replace(m_timeInfo, info, &BackendDataCache::systemTimeChanged);
}

void BackendDataCache::setTime(const QDateTime &time)
{
    replace(m_time, time, &BackendDataCache::timeChanged);
}

void BackendDataCache::setImageItems(const std::vector<Model::ImageItem> &items)
{
    replace(m_imageItems, items, &BackendDataCache::imageItemsChanged);
}

void BackendDataCache::setIndicatorStates(const std::vector<Model::IndicatorState> &states)
{
    replace(m_indicatorStates, states, &BackendDataCache::indicatorStatesChanged);
}

void BackendDataCache::setView3DItems(const std::vector<Model::View3DItem> &items)
{
    replace(m_view3DItems, items, &BackendDataCache::view3DItemsChanged);
}

void BackendDataCache::setPowerOnStatistics(const std::vector<Model::DevicePowerOnInfo> &infos)
{
    replace(m_powerOnStatistics, infos, &BackendDataCache::powerOnStatisticsChanged);
}

void BackendDataCache::onBackendStatusChanged()
{
    if (m_communicator.getStatus() != AbstractBackendCommunicator::Disconnected)
        return;
    setButtonStates({});
    setUsers({});
    setDeviceStates({});
    setDeviceTypes({});
    setDeviceModes({});
    setActionNodes({});
    setShopParts({});
    setZones({});
    setButtons({});
    setIndicators({});
    setDeviceDescriptors({});
    setBlueprints({});
    setScheduleDays({});
    setSettings({});
    setTimeInfo(initialTimeInfo());
    setTime({});
    setImageItems({});
    setIndicatorStates({});
    setView3DItems({});
    setPowerOnStatistics({});
}
