// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "link/document/Included.h"
#include "model/Site.h"

#include <QVariant>

namespace JsonAPI {

// The whole site as an entity "shop", id the uid: relations name its records, which are sent in full beside it.
class Shop
{
public:
    static QVariant toVariant(const Model::Shop &shop); // the entity's map with one more key, "included"
    static Model::Shop fromVariant(const Entity &entity, const Included &included);
};

} // namespace JsonAPI
