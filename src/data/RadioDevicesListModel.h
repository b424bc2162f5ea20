// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/RadioStatus.h"
#include "model/Settings.h"

#include <QAbstractListModel>
#include <QStringList>
#include <QVariantMap>
#include <vector>

class AbstractBackendCommunicator;

// All transports of the server's settings in one list (first MRF, then LoRa, then RS485), each with how it is doing.
// An edit sends the whole settings; rows follow when they are published. QML knows it as "radioDevicesListModel".
class RadioDevicesListModel : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(int count READ getCount NOTIFY countChanged)
    Q_PROPERTY(QStringList availableComPorts READ getAvailableComPorts NOTIFY availableComPortsChanged)

public:
    enum DeviceType { None = 0, MRF = 1, Network = 2, LoRa = 3, RS485 = 4 };
    Q_ENUM(DeviceType)

    enum Role {
        DeviceTypeRole = Qt::UserRole + 1,
        DeviceIndex,
        Config,
        Working,
        LowQueueLatency,
        MediumQueueLatency,
        HighQueueLatency,
        AverageLatency,
        MaximumLatency,
        PrettyString
    };

    struct Item
    {
        DeviceType deviceType = None;
        int deviceIndex = 0; // among those of its kind
        QVariantMap config;
        bool working = false;
        unsigned int lowQueueLatency = 0; // milliseconds
        unsigned int mediumQueueLatency = 0;
        unsigned int highQueueLatency = 0;
        unsigned int averageLatency = 0;
        unsigned int maximumLatency = 0;
    };

    explicit RadioDevicesListModel(AbstractBackendCommunicator &communicator, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    int getCount() const { return rowCount(); }

    Q_INVOKABLE void addDevice(int deviceType); // with the default configuration of its kind
    Q_INVOKABLE void setDeviceConfig(int deviceType, int deviceIndex, const QVariant &config);
    Q_INVOKABLE void removeDevice(int deviceType, int deviceIndex);
    Q_INVOKABLE void updateRadioStatus();
    Q_INVOKABLE void updateAvailablePorts();
    Q_INVOKABLE int indexForDevice(int deviceType, int deviceIndex) const; // -1: there is none
    Q_INVOKABLE QVariantMap get(int index) const; // all roles of that row by their names
    Q_INVOKABLE QStringList getAvailableComPorts() const { return m_availablePorts; }

public slots:
    void onSettingsChanged(const Model::Settings &settings);
    void onStatusChanged(const std::vector<Model::RadioStatus> &status);
    void onAvailablePortsChanged(const QStringList &ports);

signals:
    void countChanged();
    void availableComPortsChanged();

private:
    template <typename Entry>
    void appendItems(std::vector<Item> &items, DeviceType type, const std::vector<Entry> &entries) const;
    const Item *findItem(int deviceType, int deviceIndex) const;
    QString prettyString(const Item &item) const;

    AbstractBackendCommunicator &m_communicator;
    Model::Settings m_settings;
    std::vector<Item> m_items;
    QStringList m_availablePorts;
};
