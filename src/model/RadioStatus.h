// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMetaType>
#include <QString>
#include <vector>

namespace Model {

// How one transport is doing.
struct RadioStatus
{
    enum class DeviceType { None = 0, Mrf = 1, Network = 2, LoRa = 3, Rs485 = 4 };

    DeviceType deviceType = DeviceType::None;
    int deviceIndex = 0; // among those of its kind in the settings
    bool deviceOpen = false;
    unsigned int lowQueueLatency = 0; // milliseconds
    unsigned int normalQueueLatency = 0;
    unsigned int highQueueLatency = 0;

    // "none", "mrf", "network", "lora", "rs485"; "unknown" for a value outside the enumeration.
    static QString deviceTypeToString(DeviceType type);
    // Letter case is folded; an unknown or absent text is None.
    static DeviceType deviceTypeFromString(const QString &text);
};

bool operator==(const RadioStatus &left, const RadioStatus &right);
inline bool operator!=(const RadioStatus &left, const RadioStatus &right)
{
    return !(left == right);
}

} // namespace Model

Q_DECLARE_METATYPE(Model::RadioStatus)
Q_DECLARE_METATYPE(std::vector<Model::RadioStatus>)
