// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/Devices.h"

#include <QVariant>

namespace JsonAPI {

// Run hours of a device as the entity "device_power_on_info", id the device's uid.
class DevicePowerOnInfo
{
public:
    static QVariant toVariant(const Model::DevicePowerOnInfo &info);
    static Model::DevicePowerOnInfo fromVariant(const Entity &entity);
};

} // namespace JsonAPI
