// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/PublicationWatch.h"

PublicationWatch::PublicationWatch(int healing, int retry, QObject *parent)
    : QObject(parent)
    , m_healing(healing)
    , m_retry(retry)
{
    m_wait.setSingleShot(true);
    connect(&m_wait, &QTimer::timeout, this, &PublicationWatch::onWaitOver);
}

void PublicationWatch::open()
{
    m_open = true;
    m_standing = false;
    m_wait.start(m_lost ? m_retry : m_healing);
}

void PublicationWatch::close()
{
    m_open = false;
    m_standing = false;
    m_wait.stop();
}

void PublicationWatch::forget()
{
    m_lost = false;
    setAlive(true);
}

void PublicationWatch::onConnected()
{
    if (!m_open)
        return;
    m_standing = true;
    m_lost = false;
    m_wait.stop();
    setAlive(true);
}

void PublicationWatch::onDropped()
{
    if (!m_standing)
        return;
    m_standing = false;
    m_lost = true;
    m_wait.start(m_healing);
    setAlive(false);
}

void PublicationWatch::onWaitOver()
{
    setAlive(false);
    if (m_lost)
        emit healingFailed();
}

void PublicationWatch::setAlive(bool alive)
{
    if (m_alive == alive)
        return;
    m_alive = alive;
    emit aliveChanged();
}
