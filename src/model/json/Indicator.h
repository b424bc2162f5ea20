// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/PlanObjects.h"

#include <QVariant>

namespace JsonAPI {

// An indicator on a plan as the entity "indicator", id the uid.
class Indicator
{
public:
    static QVariant toVariant(const Model::Indicator &indicator);
    static Model::Indicator fromVariant(const Entity &entity);
};

} // namespace JsonAPI
