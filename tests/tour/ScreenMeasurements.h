// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tour/Driver.h"
#include "tour/Frames.h"

#include <QElapsedTimer>
#include <QString>
#include <vector>

class WiredSite;

// How long the user of a screen waits, and how evenly it moves. Each prints its figures, a name and a number a line,
// and tells whether all came about.
class ScreenMeasurements
{
public:
    explicit ScreenMeasurements(Driver &driver);

    bool shell(); // pages, a dialog, the language
    bool plan(WiredSite &site); // from the login on
    bool zone(WiredSite &site);

    // The plan under a finger that never rests, as one step.
    void pan();
    void settle(); // until nothing is painted any more

private:
    bool switchPages();
    bool openDialog();
    bool switchLanguage();
    bool publish(WiredSite &site);
    bool tap(WiredSite &site);
    bool moveThePlan();
    void sendMouse(QEvent::Type type, const QPointF &place);
    void turnWheel(int direction);
    bool isPage(const char *link) const; // on top, and at rest
    void show(const char *link, const QVariantMap &properties = {});

    Driver &m_driver;
    Frames m_frames;
    QObject *m_stack = nullptr;
    QPointF m_finger;
    int m_panned = 0;
    ulong m_timestamp = 1000;
};
