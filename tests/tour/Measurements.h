// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace Measurements {

// Resident memory of this process now, in bytes.
qint64 residentMemory();

// The part of it that is this process's own, in bytes. The pages of its files come and go as the system likes.
qint64 ownMemory();

// Processor time of this process so far, all threads, in seconds.
double processorTime();

// The longest time for which the main loop took no event, in milliseconds, while it ran for that long.
double longestStall(int durationMs);

// Bytes in an hour.
struct Growth
{
    double own = 0; // resident and the process's own
    double heap = 0; // of that, what is allocated and not released
};

// Of the straight line through one look a second, after a time that does not count, while the main loop runs.
Growth growth(int warmUpSeconds, int seconds);

} // namespace Measurements
