// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/Rows.h"
#include "data/UidIndex.h"
#include "data/UidKeyAbstractListModel.h"
#include "model/DeviceTypeInfo.h"
#include "model/Devices.h"
#include "model/Settings.h"

#include <QHash>
#include <QJSValue>
#include <QStringList>
#include <QUrl>
#include <unordered_map>

class AbstractBackendCommunicator;

// All configured devices: descriptors joined with types, states, modes, run hours and the radios of the settings, each
// of which arrives on its own and in any order. What came before its device is kept for it. QML knows it as
// "devicesListModel".
class DevicesListModel : public UidKeyAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        Uid = Qt::UserRole + 1,
        Address,
        Url,
        Version,
        Data,
        State,
        TypeInfo,
        Mode,
        PrettyString,
        Sort,
        ZoneUid,
        CommonType,
        RadioType,
        RadioIndex,
        IsRadioValid,
        RadioString,
        PowerOnHours
    };

    struct Item
    {
        Model::DeviceDescriptor descriptor;
        Model::DeviceState state;
        Model::DeviceMode mode;
        bool isRadioValid = false; // its radio is among those of the settings
        Model::DevicePowerOnInfo powerOnInfo;
        QString sortString;
        QString prettyString;
    };

    explicit DevicesListModel(AbstractBackendCommunicator &communicator, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    // value: an array of device objects; anything else is passed over. The callback gets the array of new uids.
    Q_INVOKABLE void addDevice(const QJSValue &value, const QJSValue &callback = QJSValue());
    Q_INVOKABLE void changeDevice(const QJSValue &value);
    Q_INVOKABLE void removeDevices(const QStringList &uids);
    Q_INVOKABLE QStringList zonesToDevices(const QStringList &zoneUids) const; // in row order
    Q_INVOKABLE QStringList devicesToZones(const QStringList &deviceUids) const; // each zone once, in row order

    const Rows<Item> &getDevices() const { return m_items; }
    const QHash<QUrl, Model::DeviceTypeInfo> &getDeviceTypes() const { return m_types; }
    // Of the rows in that zone; of all rows for the null uid.
    std::vector<Model::DeviceMode> getDeviceModes(const QUuid &zoneUid = {}) const;
    std::vector<Model::DeviceState> getDeviceStates(const QUuid &zoneUid = {}) const;
    Model::DeviceTypeInfo getTypeInfoForDevice(const QUuid &uid) const; // the fallback record when unknown

public slots:
    void onDevicesUpdated(const std::vector<Model::DeviceDescriptor> &descriptors);
    void onDeviceStatesUpdated(const std::vector<Model::DeviceState> &states);
    void onDeviceTypesUpdated(const std::vector<Model::DeviceTypeInfo> &types);
    void onDeviceModesUpdated(const std::vector<Model::DeviceMode> &modes);
    void onSettingsUpdated(const Model::Settings &settings);
    void onDevicePowerOnInfoUpdated(const std::vector<Model::DevicePowerOnInfo> &infos);
    void onBackendConnectionStatusChanged(int status);

signals:
    void deviceTypesUpdated();
    void deviceStatesUpdated(const std::vector<Model::DeviceState> &states);
    void devicesUpdated(const std::vector<Model::DeviceDescriptor> &descriptors);
    void deviceModesUpdated();

private:
    const Model::DeviceTypeInfo &typeOf(const Model::DeviceDescriptor &descriptor) const;
    bool checkRadioValidity(const Model::DeviceDescriptor &descriptor) const;
    Item itemOf(const Model::DeviceDescriptor &descriptor) const;
    void announceAll(const QVector<int> &roles);

    AbstractBackendCommunicator &m_communicator;
    Rows<Item> m_items;
    QHash<QUrl, Model::DeviceTypeInfo> m_types;
    std::unordered_map<QUuid, Model::DeviceState, UidHash> m_states;
    std::unordered_map<QUuid, Model::DeviceMode, UidHash> m_modes;
    QHash<QUuid, Model::DevicePowerOnInfo> m_powerOnInfos;
    Model::Settings m_settings;
};
