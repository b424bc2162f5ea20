// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QEventLoop>
#include <QObject>
#include <QQuickWindow>
#include <atomic>
#include <functional>
#include <mutex>
#include <vector>

// Watches the frames of a window as a user sees them: when a frame is on screen that was painted from a state, and how
// evenly they come. Moments are nanoseconds of one steady clock.
class Frames : public QObject
{
public:
    explicit Frames(QQuickWindow *window);

    static qint64 now();

    // Does it, and gives the moment at which the first frame was on screen for which the condition held; 0 when none
    // came in time.
    qint64 shown(const std::function<void()> &action, const std::function<bool()> &condition, int timeoutMs = 30000);

    struct Rhythm
    {
        double median = 0; // milliseconds from frame to frame
        double longest = 0;
        int missed = 0; // frames of a screen of 60 a second
    };

    // One step, and when its frame is on screen the next; so many in all.
    Rhythm drive(int steps, const std::function<void(int)> &step);
    // While the program does as it wants, until the condition holds.
    Rhythm watch(const std::function<void()> &action, const std::function<bool()> &end);

private:
    void onSynchronizing();
    void onSwapped();
    void begin();
    Rhythm rhythm();

    QQuickWindow *m_window;
    QEventLoop m_loop;
    std::function<bool()> m_condition;
    std::function<void()> m_afterFrame; // on the main thread
    std::atomic<bool> m_isMet{false};
    std::atomic<qint64> m_shown{0};
    std::mutex m_mutex; // of the moments: frames may be painted by a thread of their own
    std::vector<qint64> m_moments;
};
