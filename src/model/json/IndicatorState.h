// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/PlanObjects.h"

#include <QVariant>

namespace JsonAPI {

// What rules override of an indicator, as the entity "indicator_state", id the indicator's uid.
class IndicatorState
{
public:
    static QVariant toVariant(const Model::IndicatorState &state);
    static Model::IndicatorState fromVariant(const Entity &entity);
};

} // namespace JsonAPI
