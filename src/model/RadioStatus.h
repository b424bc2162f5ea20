// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace Model {

// The transports that reach devices, and what is known of them.
struct RadioStatus
{
    enum class DeviceType { None = 0, Mrf = 1, Network = 2, LoRa = 3, Rs485 = 4 };

    // "none", "mrf", "network", "lora", "rs485"; "unknown" for a value outside the enumeration.
    static QString deviceTypeToString(DeviceType type);
    // Letter case is folded; an unknown or absent text is None.
    static DeviceType deviceTypeFromString(const QString &text);
};

} // namespace Model
