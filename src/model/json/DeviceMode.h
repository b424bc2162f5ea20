// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/Devices.h"

#include <QVariant>

namespace JsonAPI {

// Whether a device follows automation, as the entity "device_mode".
class DeviceMode
{
public:
    static QVariant toVariant(const Model::DeviceMode &mode);
    static Model::DeviceMode fromVariant(const Entity &entity);
};

} // namespace JsonAPI
