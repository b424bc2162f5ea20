// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMutex>

// A cancel flag that two threads share: the one that asked for an operation and the one that carries it out.
class OperationStatus
{
public:
    // Never waits: while the other thread looks at the flag, the call does nothing.
    void cancel();
    bool isCancelled() const;

private:
    enum State { Running = 0, Cancelled = 1, Succeeded = 2, Failed = 3 };

    int m_state = Running;
    mutable QMutex m_mutex;
};
