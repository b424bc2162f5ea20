// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

// How much of the time a transport may send. QML knows the enumeration as "DutyCycle" of module radio.
class RadioDutyCycle
{
    Q_GADGET

public:
    enum DutyCycle : int { Duty50 = 0, Duty100 = 1, Duty33 = 2, Duty25 = 3, Duty10 = 4, Duty1 = 5 };
    Q_ENUM(DutyCycle)

    static QString toString(DutyCycle cycle); // "duty50" and so on; "duty50" for a value outside the enumeration
    static DutyCycle fromString(const QString &text); // Duty50 for an unknown text
};
