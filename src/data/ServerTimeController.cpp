// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ServerTimeController.h"

#include "data/JsValues.h"
#include "link/AbstractBackendCommunicator.h"

#include <QMutexLocker>
#include <QtConcurrent>
#include <algorithm>

ServerTimeController::ServerTimeController(AbstractBackendCommunicator &communicator, QObject *parent, int tickInterval)
    : AbstractController(communicator, parent)
{
    m_timer.setInterval(tickInterval);
    connect(&m_timer, &QTimer::timeout, this, &ServerTimeController::tick);
    connect(this, &ServerTimeController::timeChanged, this, &ServerTimeController::updateTimeString);
    // To the link itself, not to its cache, which announces a null time when the link goes: the clock ticks on.
    connect(&communicator, &AbstractBackendCommunicator::timeReceived, this, &ServerTimeController::update);
    connect(&communicator, &AbstractBackendCommunicator::systemTimeReceived, this,
            &ServerTimeController::onTimeInfoReceived);

    const auto &cache = communicator.getDataCache();
    onTimeInfoReceived(cache.getTimeInfo());
    if (cache.getTime().isValid())
        update(cache.getTime());
}

// A request that is still being posted refers to the link, which may go right after this.
ServerTimeController::~ServerTimeController()
{
    for (auto &refresh : m_refreshes)
        refresh.waitForFinished();
}

void ServerTimeController::setTime(const QDateTime &time, const QString &timezone, bool ntp, const QJSValue &callback)
{
    Model::TimeInfo info;
    info.time = time;
    info.timezone = timezone;
    info.ntp = ntp;
    communicator().setSystemTime(info, JsValues::completion(this, callback));
}

// The answer arrives as a signal of the link.
void ServerTimeController::refreshTimeInfo()
{
    m_refreshes.erase(std::remove_if(m_refreshes.begin(), m_refreshes.end(),
                                     [](const auto &refresh) { return refresh.isFinished(); }),
                      m_refreshes.end());
    auto &link = communicator();
    m_refreshes.push_back(QtConcurrent::run([&link] { link.getSystemTime(); }));
}

void ServerTimeController::update(const QDateTime &time)
{
    QMutexLocker locker(&m_mutex);
    m_timer.stop();
    m_time = time;
    emit timeChanged();
    m_timer.start();
}

void ServerTimeController::onTimeInfoReceived(const Model::TimeInfo &info)
{
    m_timeInfo = {{QStringLiteral("time"), info.time},
                  {QStringLiteral("timezone"), info.timezone},
                  {QStringLiteral("ntp"), info.ntp},
                  {QStringLiteral("timezonesList"), info.timezones}};
    emit timeInfoChanged();
    update(info.time);
}

void ServerTimeController::tick()
{
    {
        QMutexLocker locker(&m_mutex);
        m_time = m_time.addSecs(1);
    }
    emit timeChanged();
}

void ServerTimeController::updateTimeString()
{
    const auto text = m_time.toString(QStringLiteral("HH:mm dd.MM.yyyy"));
    if (text == m_timeString)
        return;
    m_timeString = text;
    emit timeStringChanged();
}
