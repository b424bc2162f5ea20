// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/AbstractBackendCommunicator.h"
#include "model/Statistics.h"

#include <QDateTime>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QUuid>
#include <QVariant>
#include <functional>
#include <memory>
#include <vector>

// Asks the server for time series of devices or zones. Only the latest answer reaches the screen: a request equal to
// the one in flight is dropped, and one with other parameters supersedes it. QML creates it.
class StatisticsProvider : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QDateTime from READ getFrom WRITE setFrom NOTIFY fromChanged)
    Q_PROPERTY(QDateTime to READ getTo WRITE setTo NOTIFY toChanged)
    Q_PROPERTY(int resolution READ getResolution WRITE setResolution NOTIFY resolutionChanged)
    Q_PROPERTY(int resolutionSeconds READ getResolutionSeconds NOTIFY resolutionSecondsChanged)
    Q_PROPERTY(QStringList objects READ getObjects WRITE setObjects NOTIFY objectsChanged)
    Q_PROPERTY(QStringList types READ getTypes WRITE setTypes NOTIFY typesChanged)
    Q_PROPERTY(bool loading READ isLoading NOTIFY loadingChanged)

public:
    enum Resolution { Auto = 0, Minute = 1, Hour = 2 };
    Q_ENUM(Resolution)

    class Request;
    using Entities = AbstractBackendCommunicator::StatisticsEntities;
    using Clock = std::function<QDateTime()>;

    explicit StatisticsProvider(QObject *parent = nullptr);
    explicit StatisticsProvider(AbstractBackendCommunicator &communicator, QObject *parent = nullptr);
    ~StatisticsProvider() override;

    void setClock(const Clock &clock) { m_clock = clock; } // in place of the current time, for tests

    QDateTime getFrom() const { return m_from; }
    void setFrom(const QDateTime &from);
    QDateTime getTo() const { return m_to; }
    void setTo(const QDateTime &to);
    int getResolution() const { return m_resolution; }
    void setResolution(int resolution);
    int getResolutionSeconds() const; // of what the server is asked for; 0 for an unknown resolution
    QStringList getObjects() const; // uids of devices or zones
    void setObjects(const QStringList &objects);
    QStringList getTypes() const { return m_types; }
    void setTypes(const QStringList &types); // of series; none: all of each object
    bool isLoading() const { return m_loading; }

public slots:
    void requestStatistics();
    void onStatisticsReceived(StatisticsProvider::Request *request, const Model::Statistics &statistics);
    void onDiscarded(StatisticsProvider::Request *request);

signals:
    void fromChanged();
    void toChanged();
    void resolutionChanged();
    void resolutionSecondsChanged();
    void objectsChanged();
    void typesChanged();
    void loadingChanged();
    void statisticsReceived(const QVariant &statistics);
    void rawStatisticsReceived(const Model::Statistics &statistics);

private:
    template <typename Change>
    void changeRange(const Change &change, void (StatisticsProvider::*changed)());
    bool asksForHours(const QDateTime &from, const QDateTime &to, int resolution) const;
    void request(const QDateTime &from, const QDateTime &to, const Entities &entities, int resolution);
    void discardLast();
    void removeRequest(Request *request);

    QPointer<AbstractBackendCommunicator> m_communicator;
    Clock m_clock = [] { return QDateTime::currentDateTime(); };
    QDateTime m_from;
    QDateTime m_to;
    int m_resolution = Auto;
    std::vector<QUuid> m_objects;
    QStringList m_types;
    bool m_loading = false;
    std::vector<std::unique_ptr<Request>> m_requests; // without an answer, oldest first; only the last may count
};
