// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/DemoSite.h"

#include <QDateTime>

namespace Demo {

// Fires the points of the site's schedules when their times have come. Told the time again and again; a clock that was
// set fires what is in force then, not all that lies between.
class ScheduleRunner
{
public:
    ScheduleRunner(DemoSite &site, const QDateTime &siteTime);

    void advance(const QDateTime &siteTime);

private:
    void fireBetween(const QDateTime &from, const QDateTime &until);
    void fireInForce(const QDateTime &siteTime);
    void fire(const Model::ScheduleDay &day, const Model::ScheduleDayPoint &point, const QDateTime &siteTime);

    DemoSite &m_site;
    QDateTime m_last;
};

} // namespace Demo
