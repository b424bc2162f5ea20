// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/Measurements.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTimer>
#include <algorithm>
#include <ctime>
#include <unistd.h>

qint64 Measurements::residentMemory()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const auto fields = file.readAll().split(' ');
    return fields.size() > 1 ? fields.at(1).toLongLong() * sysconf(_SC_PAGESIZE) : 0;
}

double Measurements::processorTime()
{
    timespec time;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return time.tv_sec + time.tv_nsec / 1e9;
}

double Measurements::longestStall(int durationMs)
{
    QEventLoop loop;
    QTimer tick;
    QElapsedTimer sinceTick;
    qint64 longest = 0;
    tick.setTimerType(Qt::PreciseTimer);
    QObject::connect(&tick, &QTimer::timeout, &loop, [&] {
        longest = std::max(longest, sinceTick.nsecsElapsed());
        sinceTick.start();
    });
    QTimer::singleShot(durationMs, &loop, &QEventLoop::quit);
    sinceTick.start();
    tick.start(1);
    loop.exec();
    return longest / 1e6;
}
