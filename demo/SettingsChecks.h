// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "link/document/Errors.h"

namespace Demo {

// What the site file and requests demand alike of the hardware settings: kinds of values, and ranges that the
// transports know. Looks at the entity, since a record that is read from it has all its numbers in range.
namespace SettingsChecks {

constexpr int mostTransports = 64; // of each kind

void settings(const JsonAPI::Entity &entity, JsonAPI::Errors &errors);

} // namespace SettingsChecks
} // namespace Demo
