// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/ScheduleRunner.h"

#include "demo/BlueprintRunner.h"

#include <algorithm>

namespace Demo {

namespace {

constexpr qint64 longestStep = 10 * 60; // seconds; beyond, somebody has set the clock

bool holdsOn(const Model::ScheduleDay &day, const QDate &date)
{
    return day.daysOfWeek.contains(date.dayOfWeek() - 1);
}

struct Firing
{
    QDateTime time;
    const Model::ScheduleDay *day;
    const Model::ScheduleDayPoint *point;
};

} // namespace

ScheduleRunner::ScheduleRunner(DemoSite &site, const QDateTime &siteTime)
    : m_site(site)
    , m_last(siteTime)
{}

void ScheduleRunner::advance(const QDateTime &siteTime)
{
    const qint64 step = m_last.secsTo(siteTime);
    const bool wasSet = siteTime < m_last || step > longestStep;
    if (wasSet)
        fireInForce(siteTime);
    else
        fireBetween(m_last, siteTime);
    m_last = siteTime;
}

// In the order of their times, whichever schedule they stand in; midnight may lie between.
void ScheduleRunner::fireBetween(const QDateTime &from, const QDateTime &until)
{
    std::vector<Firing> due;
    for (auto date = from.date(); date <= until.date(); date = date.addDays(1)) {
        for (const auto &day : m_site.data().days) {
            if (!holdsOn(day, date))
                continue;
            for (const auto &point : day.points) {
                auto time = until; // keeps the offset from UTC
                time.setDate(date);
                time.setTime(point.time);
                if (point.time.isValid() && time > from && time <= until)
                    due.push_back({time, &day, &point});
            }
        }
    }
    std::stable_sort(due.begin(), due.end(),
                     [](const auto &left, const auto &right) { return left.time < right.time; });
    for (const auto &firing : due)
        fire(*firing.day, *firing.point, until);
}

void ScheduleRunner::fireInForce(const QDateTime &siteTime)
{
    for (const auto &day : m_site.data().days) {
        if (!holdsOn(day, siteTime.date()))
            continue;
        const Model::ScheduleDayPoint *inForce = nullptr;
        for (const auto &point : day.points) { // by time
            if (point.time.isValid() && point.time <= siteTime.time())
                inForce = &point;
        }
        if (inForce)
            fire(day, *inForce, siteTime);
    }
}

void ScheduleRunner::fire(const Model::ScheduleDay &day, const Model::ScheduleDayPoint &point,
                          const QDateTime &siteTime)
{
    BlueprintRunner(m_site, siteTime).run(point.actions, day.zones);
    m_site.note({siteTime, Model::LogEntry::Cause::Schedule, {}, JournalTexts::schedulePoint(day.name, point.time)});
}

} // namespace Demo
