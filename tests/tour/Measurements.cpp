// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/Measurements.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTimer>
#include <algorithm>
#include <ctime>
#include <malloc.h>
#include <unistd.h>
#include <vector>

namespace {

// Of the straight line with the least squares, for values one step apart.
double slope(const std::vector<double> &values)
{
    const double middle = (static_cast<double>(values.size()) - 1) / 2;
    double above = 0;
    double below = 0;
    for (size_t i = 0; i < values.size(); ++i) {
        above += (static_cast<double>(i) - middle) * values[i];
        below += (static_cast<double>(i) - middle) * (static_cast<double>(i) - middle);
    }
    return below > 0 ? above / below : 0;
}

} // namespace

qint64 Measurements::residentMemory()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const auto fields = file.readAll().split(' ');
    return fields.size() > 1 ? fields.at(1).toLongLong() * sysconf(_SC_PAGESIZE) : 0;
}

qint64 Measurements::ownMemory()
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    constexpr qint64 kibibyte = 1024;
    const auto lines = file.readAll().split('\n');
    for (const auto &line : lines) {
        if (line.startsWith("RssAnon:"))
            return line.mid(line.indexOf(':') + 1).simplified().split(' ').first().toLongLong() * kibibyte;
    }
    return 0;
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

Measurements::Growth Measurements::growth(int warmUpSeconds, int seconds)
{
    constexpr int secondsOfAnHour = 3600;
    std::vector<double> own;
    std::vector<double> heap;
    QEventLoop loop;
    QTimer tick;
    int passed = 0;
    QObject::connect(&tick, &QTimer::timeout, &loop, [&] {
        if (++passed > warmUpSeconds) {
            const auto known = mallinfo2();
            own.push_back(static_cast<double>(ownMemory()));
            heap.push_back(static_cast<double>(known.uordblks + known.hblkhd));
        }
        if (passed >= seconds)
            loop.quit();
    });
    tick.start(1000);
    loop.exec();
    return {slope(own) * secondsOfAnHour, slope(heap) * secondsOfAnHour};
}
