// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/Actions.h"

#include <QVariant>

namespace JsonAPI {

// A script action as the entity "action", id the uid.
class Action
{
public:
    static QVariant toVariant(const Model::Action &action);
    static Model::Action fromVariant(const Entity &entity);
};

} // namespace JsonAPI
