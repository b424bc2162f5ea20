// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DeviceTypeInfo.h"
#include "model/Devices.h"
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

    std::vector<Model::UserInfo> getUsers() const { return m_users; }
    std::vector<Model::DeviceState> getDeviceStates() const { return m_deviceStates; }
    std::vector<Model::DeviceTypeInfo> getDeviceTypes() const { return m_deviceTypes; }
    std::vector<Model::DeviceMode> getDeviceModes() const { return m_deviceModes; }
    std::vector<Model::ShopPart> getShopParts() const { return m_shopParts; }
    std::vector<Model::Zone> getZones() const { return m_zones; }
    std::vector<Model::DeviceDescriptor> getDeviceDescriptors() const { return m_devices; }
    Model::TimeInfo getTimeInfo() const { return m_timeInfo; }
    QDateTime getTime() const { return m_time; }

public slots:
    void setUsers(const std::vector<Model::UserInfo> &users);
    void setDeviceStates(const std::vector<Model::DeviceState> &states);
    void setDeviceTypes(const std::vector<Model::DeviceTypeInfo> &types);
    void setDeviceModes(const std::vector<Model::DeviceMode> &modes);
    void setShopParts(const std::vector<Model::ShopPart> &parts);
    void setZones(const std::vector<Model::Zone> &zones);
    void setDeviceDescriptors(const std::vector<Model::DeviceDescriptor> &devices);
    void setTimeInfo(const Model::TimeInfo &info);
    void setTime(const QDateTime &time);

    void onBackendStatusChanged();

signals:
    void usersChanged(const std::vector<Model::UserInfo> &users);
    void devicesStatesChanged(const std::vector<Model::DeviceState> &states);
    void devicesTypesChanged(const std::vector<Model::DeviceTypeInfo> &types);
    void devicesModesChanged(const std::vector<Model::DeviceMode> &modes);
    void shopPartsChanged(const std::vector<Model::ShopPart> &parts);
    void zonesChanged(const std::vector<Model::Zone> &zones);
    void devicesChanged(const std::vector<Model::DeviceDescriptor> &devices);
    void systemTimeChanged(const Model::TimeInfo &info);
    void timeChanged(const QDateTime &time);

private:
    template <typename T>
    void replace(T &member, const T &value, void (BackendDataCache::*changed)(const T &));

    AbstractBackendCommunicator &m_communicator;
    std::vector<Model::UserInfo> m_users;
    std::vector<Model::DeviceState> m_deviceStates;
    std::vector<Model::DeviceTypeInfo> m_deviceTypes;
    std::vector<Model::DeviceMode> m_deviceModes;
    std::vector<Model::ShopPart> m_shopParts;
    std::vector<Model::Zone> m_zones;
    std::vector<Model::DeviceDescriptor> m_devices;
    Model::TimeInfo m_timeInfo;
    QDateTime m_time;
};
