// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

class QSocketNotifier;

namespace nzmqt {

// A single-shot timer for the ticks of a context. The event loop waits for whole milliseconds, rounded up anew each
// time it wakes for something else, so a QTimer comes up to one millisecond late, half of one on average. Where the
// system lends a timer as a descriptor, that one is watched; elsewhere, or when none is left, it is a QTimer.
class TickTimer : public QObject
{
    Q_OBJECT

public:
    explicit TickTimer(QObject *parent = nullptr);
    ~TickTimer() override;

    // Starts anew where it runs. From 0 upwards; 0 is the next turn of the loop.
    void start(int milliseconds);
    void stop();

signals:
    void timeout();

private:
    void arm(qint64 nanoseconds); // 0 disarms
    void onReadable();

    int m_descriptor = -1;
    QSocketNotifier *m_notifier = nullptr;
    QTimer m_timer; // without a descriptor
};

} // namespace nzmqt
