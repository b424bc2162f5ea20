// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/Site.h"

#include <QVariant>

namespace JsonAPI {

// A plan as an entity "shop_part", id the uid.
class ShopPart
{
public:
    static QVariant toVariant(const Model::ShopPart &part);
    static Model::ShopPart fromVariant(const Entity &entity);
};

} // namespace JsonAPI
