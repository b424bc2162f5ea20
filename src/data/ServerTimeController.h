// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/AbstractController.h"
#include "model/TimeInfo.h"

#include <QDateTime>
#include <QFuture>
#include <QJSValue>
#include <QMutex>
#include <QTimer>
#include <QVariantMap>
#include <vector>

// A ticking copy of the server's clock, set right by each message that tells its time. QML knows it as
// "serverTimeController".
class ServerTimeController : public AbstractController
{
    Q_OBJECT
    Q_PROPERTY(QDateTime time READ getTime NOTIFY timeChanged)
    Q_PROPERTY(QString timeString READ getTimeString NOTIFY timeStringChanged)
    Q_PROPERTY(QVariant timeInfo READ getTimeInfo NOTIFY timeInfoChanged)

public:
    // Each tick is one second of the clock, whatever the interval in milliseconds.
    explicit ServerTimeController(AbstractBackendCommunicator &communicator, QObject *parent = nullptr,
                                  int tickInterval = 1000);
    ~ServerTimeController() override;

    QDateTime getTime() const { return m_time; }
    QString getTimeString() const { return m_timeString; } // "HH:mm dd.MM.yyyy"
    QVariant getTimeInfo() const { return m_timeInfo; } // "time", "timezone", "ntp", "timezonesList"

    // The callback is called without arguments when the server has done it.
    Q_INVOKABLE void setTime(const QDateTime &time, const QString &timezone, bool ntp,
                             const QJSValue &callback = QJSValue());
    Q_INVOKABLE void refreshTimeInfo();

public slots:
    void update(const QDateTime &time);
    void onTimeInfoReceived(const Model::TimeInfo &info);

signals:
    void timeChanged();
    void timeStringChanged();
    void timeInfoChanged();

private:
    void tick();
    void updateTimeString();

    QDateTime m_time;
    QString m_timeString;
    QVariantMap m_timeInfo;
    QTimer m_timer;
    QRecursiveMutex m_mutex; // keeps tick and update apart; a slot of timeChanged may call update
    std::vector<QFuture<void>> m_refreshes;
};
