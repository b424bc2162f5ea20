// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

// The kinds of radio that forms offer. QML knows them as members of "Radio" of module radio.
// Not the numbers of the link: those are Model::RadioStatus::DeviceType.
class Radio
{
    Q_GADGET

public:
    enum RadioType { None = 0, MRF = 1, LoRa = 2, RS485 = 3 };
    Q_ENUM(RadioType)
};
