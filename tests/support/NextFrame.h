// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QEventLoop>
#include <QQuickWindow>
#include <QTimer>

// Asks for a frame and waits until it is on screen; false when none came in time. The window may be painted by a thread
// of its own, and QSignalSpy writes in the thread that sends: it has no place here.
inline bool nextFrame(QQuickWindow *window, int timeoutMs)
{
    QEventLoop loop;
    QObject::connect(window, &QQuickWindow::frameSwapped, &loop, [&loop] { loop.exit(0); });
    QTimer::singleShot(timeoutMs, &loop, [&loop] { loop.exit(1); });
    window->update();
    return loop.exec() == 0;
}
