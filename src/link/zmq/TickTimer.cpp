// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/zmq/TickTimer.h"

#include <QSocketNotifier>
#include <QtGlobal>

#ifdef Q_OS_LINUX
#include <sys/timerfd.h>
#include <unistd.h>
#endif

namespace nzmqt {

namespace {

constexpr qint64 nanosecondsInMillisecond = 1000000;

} // namespace

TickTimer::TickTimer(QObject *parent)
    : QObject(parent)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &TickTimer::timeout);
#ifdef Q_OS_LINUX
    m_descriptor = timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC);
    if (m_descriptor >= 0) {
        m_notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
        connect(m_notifier, &QSocketNotifier::activated, this, &TickTimer::onReadable);
    }
#endif
}

TickTimer::~TickTimer()
{
#ifdef Q_OS_LINUX
    delete m_notifier;
    if (m_descriptor >= 0)
        close(m_descriptor);
#endif
}

void TickTimer::start(int milliseconds)
{
    if (m_descriptor < 0)
        m_timer.start(milliseconds);
    else
        arm(qMax<qint64>(1, milliseconds * nanosecondsInMillisecond));
}

void TickTimer::stop()
{
    if (m_descriptor < 0)
        m_timer.stop();
    else
        arm(0);
}

void TickTimer::arm(qint64 nanoseconds)
{
#ifdef Q_OS_LINUX
    itimerspec time{};
    time.it_value.tv_sec = nanoseconds / (1000 * nanosecondsInMillisecond);
    time.it_value.tv_nsec = nanoseconds % (1000 * nanosecondsInMillisecond);
    timerfd_settime(m_descriptor, 0, &time, nullptr);
#else
    Q_UNUSED(nanoseconds)
#endif
}

void TickTimer::onReadable()
{
#ifdef Q_OS_LINUX
    quint64 expirations = 0;
    if (read(m_descriptor, &expirations, sizeof expirations) == sizeof expirations)
        emit timeout(); // otherwise it was armed anew since
#endif
}

} // namespace nzmqt
