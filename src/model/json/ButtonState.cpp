// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/ButtonState.h"

#include "model/VariantReading.h"

namespace JsonAPI {

QVariant ButtonState::toVariant(const Model::ButtonState &state)
{
    Entity entity("button_state", state.uid.toString());
    entity.setAttribute("state", static_cast<int>(state.state));
    return entity.toVariant();
}

Model::ButtonState ButtonState::fromVariant(const Entity &entity)
{
    using State = Model::ButtonState::State;
    const bool on = Model::intFrom(entity.attributes.value("state")) == static_cast<int>(State::On);
    return {QUuid(entity.id), on ? State::On : State::Off};
}

} // namespace JsonAPI
