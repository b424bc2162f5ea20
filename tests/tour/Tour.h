// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tour/Driver.h"

// The short tour: log in, the plan, two zones to 60 %, each page. Leaves a picture of each step, and is only content
// when each step was seen to work and the log holds no warning.
class Tour
{
public:
    Tour(Driver &driver, const QString &pictureFolder);

    bool run();

private:
    bool step(const QString &name, const std::function<bool()> &action);
    bool takePicture(const QString &name);
    bool chooseTwoZones();
    bool setChosenTo60();

    Driver &m_driver;
    QString m_folder;
    QStringList m_chosen; // zone uids
    int m_pictures = 0;
};
