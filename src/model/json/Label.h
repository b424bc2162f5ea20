// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/Site.h"

#include <QVariant>

namespace JsonAPI {

// A text on a plan as an entity "label", id the uid.
class Label
{
public:
    static QVariant toVariant(const Model::TextLabel &label);
    static Model::TextLabel fromVariant(const Entity &entity);
};

} // namespace JsonAPI
