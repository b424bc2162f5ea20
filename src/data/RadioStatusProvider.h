// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/RadioStatus.h"

#include <QObject>
#include <QTimer>
#include <QVariant>
#include <vector>

class AbstractBackendCommunicator;

// Polls how the server's transports are doing, and holds the last answer. QML knows it as singleton
// "RadioStatusProvider".
class RadioStatusProvider : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool running READ isRunning WRITE setRunning NOTIFY runningChanged)
    Q_PROPERTY(int interval READ getInterval WRITE setInterval NOTIFY intervalChanged)

public:
    explicit RadioStatusProvider(AbstractBackendCommunicator &communicator, QObject *parent = nullptr);

    bool isRunning() const { return m_timer.isActive(); }
    void setRunning(bool running);
    int getInterval() const { return m_interval; }
    void setInterval(int interval); // milliseconds; a running timer takes it over

    // A map of what was last reported of that transport ("mrf", 0), or an invalid value.
    Q_INVOKABLE QVariant statusFor(const QString &deviceType, int index) const;
    Q_INVOKABLE void start(int interval);
    Q_INVOKABLE void start();
    Q_INVOKABLE void stop();
    Q_INVOKABLE void update();

public slots:
    void onStatusUpdated(const std::vector<Model::RadioStatus> &status);

signals:
    void runningChanged();
    void intervalChanged();
    void radioStatusChanged();

private:
    AbstractBackendCommunicator &m_communicator;
    QTimer m_timer;
    int m_interval = 0;
    std::vector<Model::RadioStatus> m_status;
};
