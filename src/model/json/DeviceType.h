// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/DeviceTypeInfo.h"

#include <QVariant>

namespace JsonAPI {

// A driver description as the entity "device_type", whose id is the url.
class DeviceType
{
public:
    static QVariant toVariant(const Model::DeviceTypeInfo &type);
    static Model::DeviceTypeInfo fromVariant(const Entity &entity);
};

} // namespace JsonAPI
