// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/ActionBlueprint.h"
#include "model/DeviceTypeInfo.h"
#include "model/Devices.h"
#include "model/NodeDescription.h"
#include "model/PlanObjects.h"
#include "model/Schedule.h"
#include "model/Settings.h"
#include "model/Site.h"
#include "model/TimeInfo.h"
#include "model/UserInfo.h"

#include <QDateTime>
#include <QObject>
#include <vector>

class AbstractBackendCommunicator;

// The last published copy of every list of the server. A publication replaces one list wholesale and is announced,
// equal or not. Lives inside the communicator; list models listen to it and read it when they are made.
// Lists stay on screen while the link reconnects, and go when it is disconnected.
class BackendDataCache : public QObject
{
    Q_OBJECT

public:
    // Connects itself to the communicator, of which only the QObject part stands at this moment.
    explicit BackendDataCache(AbstractBackendCommunicator &communicator, QObject *parent = nullptr);

    std::vector<Model::ButtonState> getButtonStates() const { return m_buttonStates; }
    std::vector<Model::UserInfo> getUsers() const { return m_users; }
    std::vector<Model::DeviceState> getDeviceStates() const { return m_deviceStates; }
    std::vector<Model::DeviceTypeInfo> getDeviceTypes() const { return m_deviceTypes; }
    std::vector<Model::DeviceMode> getDeviceModes() const { return m_deviceModes; }
    std::vector<Model::NodeDescription> getActionNodes() const { return m_actionNodes; }
    std::vector<Model::ShopPart> getShopParts() const { return m_shopParts; }
    std::vector<Model::Zone> getZones() const { return m_zones; }
    std::vector<Model::Button> getButtons() const { return m_buttons; }
    std::vector<Model::Indicator> getIndicators() const { return m_indicators; }
    std::vector<Model::DeviceDescriptor> getDeviceDescriptors() const { return m_devices; }
    std::vector<Model::ActionBlueprint> getBlueprints() const { return m_blueprints; }
    std::vector<Model::ScheduleDay> getScheduleDays() const { return m_scheduleDays; }
    Model::Settings getSettings() const { return m_settings; }
    Model::TimeInfo getTimeInfo() const { return m_timeInfo; }
    QDateTime getTime() const { return m_time; }
    std::vector<Model::ImageItem> getImageItems() const { return m_imageItems; }
    std::vector<Model::IndicatorState> getIndicatorStates() const { return m_indicatorStates; }
    std::vector<Model::View3DItem> getView3DItems() const { return m_view3DItems; }
    std::vector<Model::DevicePowerOnInfo> getPowerOnStatistics() const { return m_powerOnStatistics; }

public slots:
    void setButtonStates(const std::vector<Model::ButtonState> &states);
    void setUsers(const std::vector<Model::UserInfo> &users);
    void setDeviceStates(const std::vector<Model::DeviceState> &states);
    void setDeviceTypes(const std::vector<Model::DeviceTypeInfo> &types);
    void setDeviceModes(const std::vector<Model::DeviceMode> &modes);
    void setActionNodes(const std::vector<Model::NodeDescription> &nodes);
    void setShopParts(const std::vector<Model::ShopPart> &parts);
    void setZones(const std::vector<Model::Zone> &zones);
    void setButtons(const std::vector<Model::Button> &buttons);
    void setIndicators(const std::vector<Model::Indicator> &indicators);
    void setDeviceDescriptors(const std::vector<Model::DeviceDescriptor> &devices);
    void setBlueprints(const std::vector<Model::ActionBlueprint> &blueprints);
    void setScheduleDays(const std::vector<Model::ScheduleDay> &days);
    void setSettings(const Model::Settings &settings);
    void setTimeInfo(const Model::TimeInfo &info);
    void setTime(const QDateTime &time);
    void setImageItems(const std::vector<Model::ImageItem> &items);
    void setIndicatorStates(const std::vector<Model::IndicatorState> &states);
    void setView3DItems(const std::vector<Model::View3DItem> &items);
    void setPowerOnStatistics(const std::vector<Model::DevicePowerOnInfo> &infos);

    void onBackendStatusChanged();

signals:
    void buttonStatesChanged(const std::vector<Model::ButtonState> &states);
    void usersChanged(const std::vector<Model::UserInfo> &users);
    void devicesStatesChanged(const std::vector<Model::DeviceState> &states);
    void devicesTypesChanged(const std::vector<Model::DeviceTypeInfo> &types);
    void devicesModesChanged(const std::vector<Model::DeviceMode> &modes);
    void actionNodesChanged(const std::vector<Model::NodeDescription> &nodes);
    void shopPartsChanged(const std::vector<Model::ShopPart> &parts);
    void zonesChanged(const std::vector<Model::Zone> &zones);
    void buttonsChanged(const std::vector<Model::Button> &buttons);
    void indicatorsChanged(const std::vector<Model::Indicator> &indicators);
    void devicesChanged(const std::vector<Model::DeviceDescriptor> &devices);
    void blueprintsChanged(const std::vector<Model::ActionBlueprint> &blueprints);
    void schedulesChanged(const std::vector<Model::ScheduleDay> &days);
    void settingsChanged(const Model::Settings &settings);
    void systemTimeChanged(const Model::TimeInfo &info);
    void timeChanged(const QDateTime &time);
    void imageItemsChanged(const std::vector<Model::ImageItem> &items);
    void indicatorStatesChanged(const std::vector<Model::IndicatorState> &states);
    void view3DItemsChanged(const std::vector<Model::View3DItem> &items);
    void powerOnStatisticsChanged(const std::vector<Model::DevicePowerOnInfo> &infos);

private:
    template <typename T>
    void replace(T &member, const T &value, void (BackendDataCache::*changed)(const T &));

    AbstractBackendCommunicator &m_communicator;
    std::vector<Model::ButtonState> m_buttonStates;
    std::vector<Model::UserInfo> m_users;
    std::vector<Model::DeviceState> m_deviceStates;
    std::vector<Model::DeviceTypeInfo> m_deviceTypes;
    std::vector<Model::DeviceMode> m_deviceModes;
    std::vector<Model::NodeDescription> m_actionNodes;
    std::vector<Model::ShopPart> m_shopParts;
    std::vector<Model::Zone> m_zones;
    std::vector<Model::Button> m_buttons;
    std::vector<Model::Indicator> m_indicators;
    std::vector<Model::DeviceDescriptor> m_devices;
    std::vector<Model::ActionBlueprint> m_blueprints;
    std::vector<Model::ScheduleDay> m_scheduleDays;
    Model::Settings m_settings;
    Model::TimeInfo m_timeInfo;
    QDateTime m_time;
    std::vector<Model::ImageItem> m_imageItems;
    std::vector<Model::IndicatorState> m_indicatorStates;
    std::vector<Model::View3DItem> m_view3DItems;
    std::vector<Model::DevicePowerOnInfo> m_powerOnStatistics;
};
