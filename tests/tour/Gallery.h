// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tour/Driver.h"

#include <QSize>

// A picture of every screen, dialog and state, at the size of a desktop and of a phone. Begins with a data home that
// holds no connection, and goes on as a user would, against the demo site at that address.
class Gallery
{
public:
    Gallery(Driver &driver, const QString &pictureFolder, const QString &siteAddress);

    bool run();

private:
    bool step(const QString &name, const std::function<bool()> &action);
    bool take(const QString &name);
    bool takeBoth(const QString &name); // at both sizes
    bool takePhone(const QString &name); // at the size of a phone, then back
    bool openConnections();
    bool chooseTab(int index);
    int tabOf(const QString &name) const; // -1 for a name that no tab in sight bears
    bool chooseTiles(int count);
    bool isStatus(int status);
    QObject *model(const char *name) const;

    bool firstSteps();
    bool plan();
    bool sidebar();
    bool settings();
    bool emptyStates();
    bool lostServer();

    Driver &m_driver;
    QString m_folder;
    QString m_address;
    QSize m_size;
    int m_pictures = 0;
};
