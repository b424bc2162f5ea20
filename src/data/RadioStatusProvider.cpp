// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/RadioStatusProvider.h"

#include "link/AbstractBackendCommunicator.h"

#include <QVariantMap>
#include <algorithm>

namespace {

QVariant statusToVariant(const Model::RadioStatus &status)
{
    return QVariantMap{
        {QStringLiteral("deviceType"), Model::RadioStatus::deviceTypeToString(status.deviceType)},
        {QStringLiteral("deviceIndex"), status.deviceIndex},
        {QStringLiteral("working"), status.deviceOpen},
        {QStringLiteral("lowPriorityLatency"), status.lowQueueLatency},
        {QStringLiteral("normalPriorityLatency"), status.normalQueueLatency},
        {QStringLiteral("highPriorityLatency"), status.highQueueLatency},
    };
}

} // namespace

RadioStatusProvider::RadioStatusProvider(AbstractBackendCommunicator &communicator, QObject *parent)
    : QObject(parent)
    , m_communicator(communicator)
{
    connect(&m_timer, &QTimer::timeout, this, &RadioStatusProvider::update);
    connect(&communicator, &AbstractBackendCommunicator::radioStatusReceived, this,
            &RadioStatusProvider::onStatusUpdated);
}

void RadioStatusProvider::setRunning(bool running)
{
    if (running)
        start();
    else
        stop();
}

void RadioStatusProvider::setInterval(int interval)
{
    const int milliseconds = qMax(0, interval);
    if (milliseconds == m_interval)
        return;
    m_interval = milliseconds;
    if (m_timer.isActive())
        m_timer.setInterval(m_interval);
    emit intervalChanged();
}

QVariant RadioStatusProvider::statusFor(const QString &deviceType, int index) const
{
    const auto type = Model::RadioStatus::deviceTypeFromString(deviceType);
    const auto status = std::find_if(m_status.begin(), m_status.end(), [&](const auto &report) {
        return report.deviceType == type && report.deviceIndex == index;
    });
    return status == m_status.end() ? QVariant() : statusToVariant(*status);
}

void RadioStatusProvider::start(int interval)
{
    setInterval(interval);
    start();
}

void RadioStatusProvider::start()
{
    m_timer.start(m_interval);
    emit runningChanged();
}

void RadioStatusProvider::stop()
{
    m_timer.stop();
    emit runningChanged();
}

void RadioStatusProvider::update()
{
    m_communicator.getRadioStatus();
}

void RadioStatusProvider::onStatusUpdated(const std::vector<Model::RadioStatus> &status)
{
    m_status = status;
    emit radioStatusChanged();
}
