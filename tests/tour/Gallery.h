// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tour/Driver.h"

#include <memory>

// A picture of every screen, dialog and state, at the size of a desktop and of a phone. Begins with a data home that
// holds no connection, and goes on as a user would, against the demo site at that address. Each picture names the file
// under qml/ that it is of, which must be on screen then.
class Gallery
{
public:
    Gallery(Driver &driver, const QString &pictureFolder, const QString &siteAddress);

    bool run();

private:
    bool step(const QString &name, const std::function<bool()> &action);
    bool take(const QString &name);
    bool takeBoth(const QString &name, const QString &file); // at both sizes
    bool takeDesktop(const QString &name, const QString &file); // at the size of a desktop
    bool takePhone(const QString &name, const QString &file); // at the size of a phone, then back
    bool takeEnd(const QString &name, const QString &objectName); // of a long form that holds it: what lies below
    bool appears(const QString &objectName);
    bool openConnections();
    bool choosePart(const QString &name);
    bool chooseTab(int index);
    int tabOf(const QString &name) const; // -1 for a name that no tab in sight bears
    bool chooseTiles(int count);
    bool chooseTile(const QString &type); // the first one of that type whose middle can be clicked
    bool chooseRow(const QString &menu, int row);
    bool showWholePlan();
    bool openZone(const QString &name); // its page
    QStringList uidsOf(const char *model, const QString &role, const QVariant &value) const;
    QString uidOf(const char *model, const QString &name) const;
    bool isStatus(int status);
    QObject *model(const char *name) const;
    bool isLogClean() const;

    // Each begins where the one before it ends.
    bool shell();
    bool firstSteps();
    bool sidebar();
    bool settings();
    bool messages();
    bool emptyStates();
    bool lostServer();
    bool covers();

    bool plans();
    bool plan();
    bool tiles();
    bool editing();
    bool editors();

    bool objects();
    bool panel();
    bool controlTable();
    bool cards();
    bool devices();

    bool sheets(); // of the controls, each in all of its states
    bool sheet(const QString &name);
    bool pickers();
    std::unique_ptr<QQuickWindow> sheetWindow(const QString &name) const;

    Driver &m_driver;
    QString m_folder;
    QString m_address;
    int m_pictures = 0;
};
