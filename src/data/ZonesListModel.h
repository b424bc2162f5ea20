// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/Rows.h"
#include "data/UidKeyAbstractListModel.h"
#include "model/Schedule.h"
#include "model/Site.h"

#include <QHash>
#include <QJSValue>
#include <QSet>
#include <QStringList>

class AbstractBackendCommunicator;
class DeviceFaultsListModel;
class DevicesListModel;
class UsersListModel;

// The zones that the current user may see, each with what is derived for it: the name of its part, the schedules that
// drive it, whether a device of it is driven by hand, the mean power, and how many devices do not answer. QML knows it
// as "zonesListModel".
class ZonesListModel : public UidKeyAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        Uid = Qt::UserRole + 1,
        Name,
        ScheduleName,
        X,
        Y,
        Width,
        Height,
        PartUid,
        PartName,
        Sort,
        Manual,
        Power,
        ErroredDevicesCount
    };

    struct ZoneModelItem
    {
        Model::Zone zone;
        QString partName;
        QStringList scheduleNames;
        bool manual = false;
        int power = 100; // percent; also of a zone none of whose devices reports it
        int erroredDevicesCount = 0;
        QString sort;
    };

    ZonesListModel(AbstractBackendCommunicator &communicator, DevicesListModel &devices, DeviceFaultsListModel &faults,
                   UsersListModel &users, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    // value: an object with "width", "height", "partUid", and "x" and "y", without which a free place is found.
    // The callback gets the array of new uids. The row comes with the next list.
    Q_INVOKABLE void addZone(const QJSValue &value, const QJSValue &callback = QJSValue());
    Q_INVOKABLE void changeZoneGeometry(const QString &uid, double x, double y, double width, double height);
    Q_INVOKABLE void changeZoneName(const QString &zoneUid, const QString &name);
    Q_INVOKABLE void removeZones(const QStringList &uids);

public slots:
    void onZonesReceived(const std::vector<Model::Zone> &zones);
    void onPartsReceived(const std::vector<Model::ShopPart> &parts);
    void onSchedulesReceived(const std::vector<Model::ScheduleDay> &days);
    void onDeviceTypesUpdated();
    void onDeviceStatesUpdated();
    void onDeviceModesUpdated();
    void onDeviceFaultsUpdated();

private:
    struct PowerInfo
    {
        qint64 sum = 0; // then the mean
        int count = 0;
    };

    Model::Position freePlace(const QUuid &partUid, double width) const;
    const ZoneModelItem *itemOf(const QUuid &uid) const;
    void announceRow(int row, int role);

    AbstractBackendCommunicator &m_communicator;
    DevicesListModel &m_devices;
    DeviceFaultsListModel &m_faults;
    UsersListModel &m_users;
    Rows<ZoneModelItem> m_items;
    QHash<QUuid, PowerInfo> m_powers; // by zone
    QHash<QUuid, QStringList> m_scheduleNames; // by zone
    QHash<QUuid, int> m_erroredDevices; // by zone
    QHash<QUuid, Model::ShopPart> m_parts;
    QSet<QUuid> m_manualZones;
};
