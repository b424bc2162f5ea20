// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/StatisticsInfoProvider.h"

#include "data/SharedModels.h"

namespace {

// Whole kilobytes count.
double megabytes(qint64 bytes)
{
    return static_cast<double>(bytes / 1024) * 0.0009765625;
}

} // namespace

StatisticsInfoProvider::StatisticsInfoProvider(QObject *parent)
    : StatisticsInfoProvider(SharedModels::instance().communicator, parent)
{}

StatisticsInfoProvider::StatisticsInfoProvider(AbstractBackendCommunicator &communicator, QObject *parent)
    : StatisticsInfoProvider(&communicator, parent)
{}

StatisticsInfoProvider::StatisticsInfoProvider(AbstractBackendCommunicator *communicator, QObject *parent)
    : QObject(parent)
    , m_communicator(communicator)
{
    if (!communicator)
        return;
    auto &cache = communicator->getDataCache();
    connect(&cache, &BackendDataCache::devicesChanged, this, &StatisticsInfoProvider::onDevicesUpdated);
    connect(&cache, &BackendDataCache::zonesChanged, this, &StatisticsInfoProvider::onZonesUpdated);
    connect(&cache, &BackendDataCache::shopPartsChanged, this, &StatisticsInfoProvider::onPartsUpdated);
    onDevicesUpdated(cache.getDeviceDescriptors());
    onZonesUpdated(cache.getZones());
    onPartsUpdated(cache.getShopParts());
}

void StatisticsInfoProvider::refresh()
{
    if (!m_communicator)
        return;
    const QPointer<StatisticsInfoProvider> self(this);
    m_communicator->getStatisticsInfo([self](const Model::StatisticsInfo &info) {
        if (self)
            self->onInfoReceived(info);
    });
}

void StatisticsInfoProvider::onDevicesUpdated(const std::vector<Model::DeviceDescriptor> &devices)
{
    QHash<QUrl, int> counts; // hashed first: making a text of each url would cost more
    for (const auto &device : devices)
        ++counts[device.url];
    m_countByUrl.clear();
    for (auto count = counts.cbegin(); count != counts.cend(); ++count) {
        const auto url = count.key().toString();
        m_countByUrl.insert(url, m_countByUrl.value(url).toInt() + count.value());
    }
    m_devicesCount = static_cast<int>(devices.size());
    emit shopInfoUpdated();
}

void StatisticsInfoProvider::onZonesUpdated(const std::vector<Model::Zone> &zones)
{
    m_zonesCount = static_cast<int>(zones.size());
    emit shopInfoUpdated();
}

void StatisticsInfoProvider::onPartsUpdated(const std::vector<Model::ShopPart> &parts)
{
    m_partsCount = static_cast<int>(parts.size());
    emit shopInfoUpdated();
}

void StatisticsInfoProvider::onInfoReceived(const Model::StatisticsInfo &info)
{
    m_statisticsStart = info.dataStart;
    m_statisticsEnd = info.dataEnd;
    m_databaseSizeMb = megabytes(info.statisticsSize);
    m_logSizeMb = megabytes(info.logSize);
    m_availableSpaceMb = megabytes(info.availableSize);
    emit statisticsInfoUpdated();
}
