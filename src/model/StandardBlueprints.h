// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUuid>

// The built-in blueprints that every server knows under these uids.
namespace Model {
namespace StandardBlueprints {

// First field 3776, second field n, third 0, last byte the low byte of n, all others 0.
QUuid persistentUID(unsigned short n);

QUuid indoorLuxSensorUid(); // 1
QUuid setPowerUid(); // 2
QUuid setAutoModeUid(); // 3
QUuid outdoorLuxSensorUid(); // 4
QUuid setManualModeUid(); // 5
QUuid debugAllNodesUid(); // 6

} // namespace StandardBlueprints
} // namespace Model
