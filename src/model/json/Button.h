// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/PlanObjects.h"

#include <QVariant>

namespace JsonAPI {

// A button on a plan as the entity "button", id the uid.
class Button
{
public:
    static QVariant toVariant(const Model::Button &button);
    static Model::Button fromVariant(const Entity &entity);
};

} // namespace JsonAPI
