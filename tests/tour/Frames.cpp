// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/Frames.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cmath>

namespace {

constexpr double frameOfAScreen = 1000.0 / 60;
constexpr double nanosecondsPerMs = 1e6;

} // namespace

Frames::Frames(QQuickWindow *window)
    : m_window(window)
{
    // The main thread stands still while a frame takes over the items, so that they can be looked at from there.
    connect(window, &QQuickWindow::beforeSynchronizing, this, &Frames::onSynchronizing, Qt::DirectConnection);
    connect(window, &QQuickWindow::frameSwapped, this, &Frames::onSwapped, Qt::DirectConnection);
}

qint64 Frames::now()
{
    using namespace std::chrono;
    return duration_cast<nanoseconds>(steady_clock::now().time_since_epoch()).count();
}

qint64 Frames::shown(const std::function<void()> &action, const std::function<bool()> &condition, int timeoutMs)
{
    begin();
    m_condition = condition;
    action();
    m_window->update();
    if (m_shown == 0) {
        QTimer timeout;
        timeout.setSingleShot(true);
        connect(&timeout, &QTimer::timeout, &m_loop, &QEventLoop::quit);
        timeout.start(timeoutMs);
        m_loop.exec();
    }
    m_condition = {};
    return m_shown;
}

Frames::Rhythm Frames::drive(int steps, const std::function<void(int)> &step)
{
    begin();
    int done = 0;
    m_afterFrame = [&] {
        if (done == steps)
            return m_loop.quit();
        step(done++);
        m_window->update();
    };
    m_window->update();
    m_loop.exec();
    m_afterFrame = {};
    return rhythm();
}

Frames::Rhythm Frames::watch(const std::function<void()> &action, const std::function<bool()> &end)
{
    begin();
    m_afterFrame = [&] {
        if (end())
            return m_loop.quit();
        m_window->update();
    };
    action();
    m_window->update();
    m_loop.exec();
    m_afterFrame = {};
    return rhythm();
}

void Frames::onSynchronizing()
{
    if (m_condition && !m_isMet && m_condition())
        m_isMet = true;
}

void Frames::onSwapped()
{
    // A frame that is only asked for is on no screen: where the processor paints, that is most of the work.
    if (auto *context = QOpenGLContext::currentContext())
        context->functions()->glFinish();
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_moments.push_back(now());
    }
    if (m_isMet && m_shown == 0) {
        m_shown = now();
        QMetaObject::invokeMethod(&m_loop, &QEventLoop::quit, Qt::QueuedConnection);
    }
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_afterFrame)
                m_afterFrame();
        },
        Qt::QueuedConnection);
}

void Frames::begin()
{
    m_isMet = false;
    m_shown = 0;
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_moments.clear();
}

Frames::Rhythm Frames::rhythm()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<double> gaps;
    for (size_t i = 1; i < m_moments.size(); ++i)
        gaps.push_back((m_moments[i] - m_moments[i - 1]) / nanosecondsPerMs);
    Rhythm result;
    if (gaps.empty())
        return result;
    std::sort(gaps.begin(), gaps.end());
    result.median = gaps[gaps.size() / 2];
    result.longest = gaps.back();
    for (const double gap : gaps)
        result.missed += std::max(0, static_cast<int>(std::lround(gap / frameOfAScreen)) - 1);
    return result;
}
