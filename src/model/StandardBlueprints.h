// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/ActionBlueprint.h"
#include "model/NodeDescription.h"

#include <QUuid>
#include <vector>

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

// The graphs themselves, all of them system blueprints: what stands in when the server's are not there yet.
ActionBlueprint setPower(); // one parameter, "power", 0 to 100
ActionBlueprint setManualMode();
ActionBlueprint setAutoMode();
ActionBlueprint indoorLuxSensor(); // both from a resource; empty when it cannot be read
ActionBlueprint outdoorLuxSensor();
ActionBlueprint debugAllNodes(const std::vector<NodeDescription> &descriptions); // one node of each type

} // namespace StandardBlueprints
} // namespace Model
