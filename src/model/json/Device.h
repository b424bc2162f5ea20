// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/Devices.h"

#include <QVariant>

namespace JsonAPI {

// A configured device as the entity "device".
class Device
{
public:
    static QVariant toVariant(const Model::DeviceDescriptor &device);
    static Model::DeviceDescriptor fromVariant(const Entity &entity);
};

} // namespace JsonAPI
