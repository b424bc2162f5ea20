// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Schedule.h"

#include <QObject>
#include <QVariantList>
#include <memory>

// One point of a day, for a form. QML knows it as "SchedulePoint".
class SchedulePointWrapper : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int hours READ getHours WRITE setHours NOTIFY hoursChanged)
    Q_PROPERTY(int minutes READ getMinutes WRITE setMinutes NOTIFY minutesChanged)
    Q_PROPERTY(int seconds READ getSeconds WRITE setSeconds NOTIFY secondsChanged)
    // The sequence as a list of maps.
    Q_PROPERTY(QVariantList actions READ getActions WRITE setActions NOTIFY actionsChanged)
    Q_PROPERTY(int duration READ getDuration CONSTANT) // seconds

public:
    using QObject::QObject;

    static std::unique_ptr<SchedulePointWrapper> fromDayPoint(const Model::ScheduleDayPoint &point, int duration);

    int getHours() const { return m_hours; }
    int getMinutes() const { return m_minutes; }
    int getSeconds() const { return m_seconds; }
    QVariantList getActions() const { return m_actions; }
    int getDuration() const { return m_duration; }

    // Values outside the clock are drawn to its ends.
    void setHours(int hours);
    void setMinutes(int minutes);
    void setSeconds(int seconds);
    void setActions(const QVariantList &actions);

signals:
    void hoursChanged();
    void minutesChanged();
    void secondsChanged();
    void actionsChanged();

private:
    int m_hours = 0;
    int m_minutes = 0;
    int m_seconds = 0;
    int m_duration = 0;
    QVariantList m_actions;
};
