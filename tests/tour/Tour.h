// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tour/Hands.h"

#include <QSize>

// The tour: a day's work on a site with the plan of a shop, at the size of a desktop and of a phone. Lights are driven
// and released, a button is pressed, and in a part of its own a zone comes, is moved, renamed, gets a device and a
// schedule, and goes. Leaves pictures of it, and is only content when each step was seen to work in the lists that the
// server publishes and the log holds no warning.
class Tour : private Hands
{
public:
    Tour(Driver &driver, const QString &pictureFolder);

    bool run();

private:
    Driver &driver() const override { return m_driver; }

    bool day(const QString &shape, const QSize &size);
    bool operate();
    bool administrate();

    bool step(const QString &name, const std::function<bool()> &action);
    bool takePicture(const QString &name);
    bool waitFor(const std::function<bool()> &condition) { return m_driver.waitFor(condition, 10000); }

    // As an operator.
    bool chooseTwoZones();
    bool setChosenTo60();
    bool releaseChosen();
    bool pressButton();

    // As an administrator, in the part that is added. On a phone the panel is a drawer.
    bool isPhone() const { return m_size.width() < 960; }
    bool openPanel();
    bool closePanel();
    bool startEditing();
    bool endEditing();
    bool save(); // the dialog that is open
    QString newOne(const char *model, const QStringList &before) const; // uid, or ""
    bool addPart();
    bool addZone();
    bool moveZone();
    bool renameZone();
    bool addDevice();
    bool editDevice();
    bool setSchedule();
    bool removeZone();
    bool removePart();

    Driver &m_driver;
    QString m_folder;
    QString m_shape;
    QSize m_size;
    QStringList m_chosen; // zone uids
    QString m_part;
    QString m_zone;
    QString m_device;
    int m_pictures = 0;
};
