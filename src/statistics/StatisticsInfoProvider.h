// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/AbstractBackendCommunicator.h"
#include "model/Statistics.h"

#include <QDateTime>
#include <QObject>
#include <QPointer>
#include <QVariantMap>
#include <vector>

// How much the site has, and how large the server's store is. QML knows it as singleton "StatisticsInfoProvider".
class StatisticsInfoProvider : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int devicesCount READ getDevicesCount NOTIFY shopInfoUpdated)
    Q_PROPERTY(int partsCount READ getPartsCount NOTIFY shopInfoUpdated)
    Q_PROPERTY(int zonesCount READ getZonesCount NOTIFY shopInfoUpdated)
    Q_PROPERTY(QVariantMap countByUrl READ getCountByUrl NOTIFY shopInfoUpdated)
    Q_PROPERTY(QDateTime statisticsStart READ getStatisticsStart NOTIFY statisticsInfoUpdated)
    Q_PROPERTY(QDateTime statisticsEnd READ getStatisticsEnd NOTIFY statisticsInfoUpdated)
    Q_PROPERTY(double databaseSizeMb READ getDatabaseSizeMb NOTIFY statisticsInfoUpdated)
    Q_PROPERTY(double logSizeMb READ getLogSizeMb NOTIFY statisticsInfoUpdated)
    Q_PROPERTY(double availableSpaceMb READ getAvailableSpaceMb NOTIFY statisticsInfoUpdated)

public:
    explicit StatisticsInfoProvider(QObject *parent = nullptr);
    explicit StatisticsInfoProvider(AbstractBackendCommunicator &communicator, QObject *parent = nullptr);

    int getDevicesCount() const { return m_devicesCount; }
    int getPartsCount() const { return m_partsCount; }
    int getZonesCount() const { return m_zonesCount; }
    QVariantMap getCountByUrl() const { return m_countByUrl; } // devices by the url of their type
    QDateTime getStatisticsStart() const { return m_statisticsStart; }
    QDateTime getStatisticsEnd() const { return m_statisticsEnd; }
    double getDatabaseSizeMb() const { return m_databaseSizeMb; }
    double getLogSizeMb() const { return m_logSizeMb; }
    double getAvailableSpaceMb() const { return m_availableSpaceMb; }

    Q_INVOKABLE void refresh(); // asks for the figures of the store

public slots:
    void onDevicesUpdated(const std::vector<Model::DeviceDescriptor> &devices);
    void onZonesUpdated(const std::vector<Model::Zone> &zones);
    void onPartsUpdated(const std::vector<Model::ShopPart> &parts);

signals:
    void shopInfoUpdated();
    void statisticsInfoUpdated();

private:
    StatisticsInfoProvider(AbstractBackendCommunicator *communicator, QObject *parent);
    void onInfoReceived(const Model::StatisticsInfo &info);

    QPointer<AbstractBackendCommunicator> m_communicator;
    int m_devicesCount = 0;
    int m_partsCount = 0;
    int m_zonesCount = 0;
    QVariantMap m_countByUrl;
    QDateTime m_statisticsStart;
    QDateTime m_statisticsEnd;
    double m_databaseSizeMb = 0.0;
    double m_logSizeMb = 0.0;
    double m_availableSpaceMb = 0.0;
};
