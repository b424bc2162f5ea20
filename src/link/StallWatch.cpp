// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/StallWatch.h"

#include <QDeadlineTimer>
#ifdef Q_OS_LINUX
#include <time.h>
#endif

StallWatch::StallWatch(int limitMs, const Clock &clock)
    : m_clock(clock)
    , m_limit(limitMs)
    , m_last(clock())
{}

bool StallWatch::tick()
{
    const qint64 now = m_clock();
    const bool stalled = now - m_last > m_limit;
    m_last = now;
    return stalled;
}

qint64 StallWatch::timeSinceBoot()
{
#ifdef Q_OS_LINUX
    timespec now{};
    if (clock_gettime(CLOCK_BOOTTIME, &now) == 0) // Qt's own clock stops while the machine sleeps
        return qint64(now.tv_sec) * 1000 + now.tv_nsec / 1000000;
#endif
    return QDeadlineTimer::current().deadline();
}
