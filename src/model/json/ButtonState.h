// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/PlanObjects.h"

#include <QVariant>

namespace JsonAPI {

// Whether a button is on, as the entity "button_state", id the button's uid.
class ButtonState
{
public:
    static QVariant toVariant(const Model::ButtonState &state);
    static Model::ButtonState fromVariant(const Entity &entity);
};

} // namespace JsonAPI
