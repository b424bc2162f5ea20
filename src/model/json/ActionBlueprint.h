// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/ActionBlueprint.h"

#include <QVariant>

namespace JsonAPI {

// A graph as the entity "action_blueprint", id the uid.
class ActionBlueprint
{
public:
    static QVariant toVariant(const Model::ActionBlueprint &blueprint);
    static Model::ActionBlueprint fromVariant(const Entity &entity);
};

} // namespace JsonAPI
