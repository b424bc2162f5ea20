// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/Devices.h"

#include <QVariant>

namespace JsonAPI {

// What a device last reported, as the entity "device_state".
class DeviceState
{
public:
    static QVariant toVariant(const Model::DeviceState &state);
    static Model::DeviceState fromVariant(const Entity &entity);
};

} // namespace JsonAPI
