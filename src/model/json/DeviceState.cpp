// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/DeviceState.h"

namespace JsonAPI {

QVariant DeviceState::toVariant(const Model::DeviceState &state)
{
    Entity entity("device_state", state.uid.toString());
    entity.setAttribute("state", state.state);
    return entity.toVariant();
}

Model::DeviceState DeviceState::fromVariant(const Entity &entity)
{
    return {QUuid(entity.id), entity.attributes.value("state").toMap()};
}

} // namespace JsonAPI
