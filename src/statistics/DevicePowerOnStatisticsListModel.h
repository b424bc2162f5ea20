// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/UidKeyAbstractListModel.h"
#include "model/Devices.h"

#include <QDateTime>
#include <QStringList>
#include <functional>
#include <vector>

class AbstractBackendCommunicator;

// How long each device has been switched on, and the setting of it. QML knows it as "powerOnStatisticsListModel".
class DevicePowerOnStatisticsListModel : public UidKeyAbstractListModel
{
    Q_OBJECT

public:
    enum Role { Uid = Qt::UserRole + 1, LastUpdate, Hours };

    using Clock = std::function<QDateTime()>;

    explicit DevicePowerOnStatisticsListModel(AbstractBackendCommunicator &communicator, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    void setClock(const Clock &clock) { m_clock = clock; } // in place of the current time, for tests

    // The rows follow when the server publishes them.
    Q_INVOKABLE void setPowerOnHours(const QStringList &uids, double hours);
    Q_INVOKABLE void setPowerOnDate(const QStringList &uids, const QDateTime &date); // the server counts from there

public slots:
    void onPowerInfoUpdated(const std::vector<Model::DevicePowerOnInfo> &infos);

private:
    void send(const QStringList &uids, double hours, const QDateTime &lastUpdate);

    AbstractBackendCommunicator &m_communicator;
    Clock m_clock = [] { return QDateTime::currentDateTime(); };
    std::vector<Model::DevicePowerOnInfo> m_infos;
};
