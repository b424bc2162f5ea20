// SPDX-License-Identifier: GPL-3.0-or-later
#include "schedules/SchedulePointWrapper.h"

std::unique_ptr<SchedulePointWrapper> SchedulePointWrapper::fromDayPoint(const Model::ScheduleDayPoint &point,
                                                                         int duration)
{
    auto wrapper = std::make_unique<SchedulePointWrapper>();
    wrapper->setHours(point.time.hour());
    wrapper->setMinutes(point.time.minute());
    wrapper->setSeconds(point.time.second());
    wrapper->setActions(point.actions.toVariant().toList());
    wrapper->m_duration = duration;
    return wrapper;
}

void SchedulePointWrapper::setHours(int hours)
{
    const int bounded = qBound(0, hours, 23);
    if (bounded == m_hours)
        return;
    m_hours = bounded;
    emit hoursChanged();
}

void SchedulePointWrapper::setMinutes(int minutes)
{
    const int bounded = qBound(0, minutes, 59);
    if (bounded == m_minutes)
        return;
    m_minutes = bounded;
    emit minutesChanged();
}

void SchedulePointWrapper::setSeconds(int seconds)
{
    const int bounded = qBound(0, seconds, 59);
    if (bounded == m_seconds)
        return;
    m_seconds = bounded;
    emit secondsChanged();
}

void SchedulePointWrapper::setActions(const QVariantList &actions)
{
    if (actions == m_actions)
        return;
    m_actions = actions;
    emit actionsChanged();
}
