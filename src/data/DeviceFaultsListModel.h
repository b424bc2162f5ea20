// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/Rows.h"
#include "data/UidIndex.h"
#include "data/UidKeyAbstractListModel.h"
#include "model/Devices.h"

#include <QDateTime>
#include <QUrl>
#include <functional>
#include <unordered_map>
#include <vector>

class AbstractBackendCommunicator;
class DevicesListModel;

// Which devices have stopped answering, derived here from the counter of errors in their states: one row for each
// device, also for those without a fault. QML knows it as "deviceFaultsListModel".
class DeviceFaultsListModel : public UidKeyAbstractListModel
{
    Q_OBJECT

public:
    enum Role { Uid = Qt::UserRole + 1, ZoneUid, Name, Sort, ErrorCount, FaultTime, FaultLengthSec };

    using Clock = std::function<QDateTime()>;

    struct FaultInfo
    {
        int errorCount = 0; // polls in a row without an answer
        QDateTime faultTime; // of the first of them; the present when there is no fault
        int faultLengthSec = 0;
    };

    struct Item
    {
        QUrl url;
        QUuid uid;
        QUuid zoneUid;
        QVariant pollingInterval; // of the device's data, milliseconds
        QString name;
        QString sort;
        FaultInfo fault;
    };

    // A device counts as faulty when more errors than these follow each other.
    static constexpr int toleratedErrors = 5;

    DeviceFaultsListModel(AbstractBackendCommunicator &communicator, DevicesListModel &devices,
                          QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    void setClock(const Clock &clock) { m_clock = clock; } // in place of the current time, for tests

    std::vector<Item> getDeviceFaults() const { return {m_items.begin(), m_items.end()}; }
    const Rows<Item> &rows() const { return m_items; } // the same without a copy
    FaultInfo getFaultInfo(const Model::DeviceDescriptor &descriptor, const Model::DeviceState &state,
                           const QDateTime &now) const;

public slots:
    void onDevicesUpdated();
    void onDeviceStatesUpdated(const std::vector<Model::DeviceState> &states);

signals:
    void deviceFaultsUpdated();

private:
    // The present in both forms: local time is dear to convert for thousands of devices.
    struct Moment
    {
        explicit Moment(const QDateTime &present)
            : time(present)
            , milliseconds(present.toMSecsSinceEpoch())
        {}

        QDateTime time;
        qint64 milliseconds;
    };

    FaultInfo faultOf(const QUrl &url, const QVariant &pollingInterval, const QVariantMap &state,
                      const Moment &now) const;
    void onStatusChanged();

    AbstractBackendCommunicator &m_communicator;
    DevicesListModel &m_devices;
    Clock m_clock = [] { return QDateTime::currentDateTime(); };
    Rows<Item> m_items;
    std::unordered_map<QUuid, Model::DeviceState, UidHash> m_states; // also of devices that are not there yet
};
