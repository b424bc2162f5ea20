// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/OperationStatus.h"

void OperationStatus::cancel()
{
    if (!m_mutex.tryLock())
        return;
    if (m_state != Cancelled && m_state != Succeeded && m_state != Failed)
        m_state = Cancelled;
    m_mutex.unlock();
}

bool OperationStatus::isCancelled() const
{
    QMutexLocker locker(&m_mutex);
    return m_state == Cancelled;
}
