// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QQuickWindow>
#include <QtTest>

// The render loop makes its OpenGL context when the first window is exposed, and lets it go with the last one. While it
// makes one, the offscreen platform handles the events that wait; a second exposure among them (the window that is
// shown has taken another size) would draw without a context, and crash. So an empty window is exposed all by itself
// once, and stays hidden until the application goes.
inline void keepScene()
{
    static QQuickWindow *kept = nullptr;
    if (kept)
        return;
    kept = new QQuickWindow;
    kept->resize(1, 1);
    kept->show();
    QTest::qWaitForWindowExposed(kept);
    kept->hide();
    qAddPostRoutine([] {
        delete kept;
        kept = nullptr;
    });
}
