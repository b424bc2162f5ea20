// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/Blueprints.h"

#include <QVariant>

namespace JsonAPI {

// A blueprint applied once, as the entity "oneshot_blueprint", whose id is the uid of the blueprint.
class ActionBlueprintInstance
{
public:
    static QVariant toVariant(const Model::ActionBlueprintInstance &instance);
    static Model::ActionBlueprintInstance fromVariant(const Entity &entity);
};

} // namespace JsonAPI
