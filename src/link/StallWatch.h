// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <functional>

// Notices that the main loop stood still, through a long computation or because the machine slept.
class StallWatch
{
public:
    using Clock = std::function<qint64()>; // milliseconds that only grow

    explicit StallWatch(int limitMs, const Clock &clock = timeSinceBoot);

    // To be called at each turn of the loop: whether more than the limit has passed since the last one.
    bool tick();

    static qint64 timeSinceBoot(); // counts the time asleep as well

private:
    Clock m_clock;
    int m_limit;
    qint64 m_last;
};
