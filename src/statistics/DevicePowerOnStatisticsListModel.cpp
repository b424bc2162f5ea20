// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/DevicePowerOnStatisticsListModel.h"

#include "link/AbstractBackendCommunicator.h"

#include <QtNumeric>

DevicePowerOnStatisticsListModel::DevicePowerOnStatisticsListModel(AbstractBackendCommunicator &communicator,
                                                                   QObject *parent)
    : UidKeyAbstractListModel(parent)
    , m_communicator(communicator)
{
    auto &cache = communicator.getDataCache();
    connect(&cache, &BackendDataCache::powerOnStatisticsChanged, this,
            &DevicePowerOnStatisticsListModel::onPowerInfoUpdated);
    onPowerInfoUpdated(cache.getPowerOnStatistics());
}

int DevicePowerOnStatisticsListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_infos.size());
}

QVariant DevicePowerOnStatisticsListModel::data(const QModelIndex &index, int role) const
{
    if (!holds(index))
        return {};
    const auto &info = m_infos[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Uid: return info.uid.toString();
    case LastUpdate: return info.lastUpdate;
    case Hours: return info.powerOnHours;
    }
    return {};
}

QHash<int, QByteArray> DevicePowerOnStatisticsListModel::roleNames() const
{
    static const QHash<int, QByteArray> names{{Uid, "uid"}, {LastUpdate, "lastUpdate"}, {Hours, "hours"}};
    return names;
}

void DevicePowerOnStatisticsListModel::setPowerOnHours(const QStringList &uids, double hours)
{
    if (qIsFinite(hours))
        send(uids, hours, m_clock());
}

void DevicePowerOnStatisticsListModel::setPowerOnDate(const QStringList &uids, const QDateTime &date)
{
    if (date.isValid())
        send(uids, 0.0, date);
}

void DevicePowerOnStatisticsListModel::onPowerInfoUpdated(const std::vector<Model::DevicePowerOnInfo> &infos)
{
    beginResetModel();
    m_infos = infos;
    endResetModel();
}

void DevicePowerOnStatisticsListModel::send(const QStringList &uids, double hours, const QDateTime &lastUpdate)
{
    std::vector<Model::DevicePowerOnInfo> infos;
    for (const auto &text : uids) {
        const QUuid uid(text);
        if (!uid.isNull())
            infos.push_back({uid, hours, lastUpdate});
    }
    if (!infos.empty())
        m_communicator.setPowerOnStatistics(infos);
}
