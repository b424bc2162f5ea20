// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/ShopPart.h"

namespace JsonAPI {

QVariant ShopPart::toVariant(const Model::ShopPart &part)
{
    Entity entity("shop_part", part.uid.toString());
    entity.setAttribute("name", part.name);
    return entity.toVariant();
}

Model::ShopPart ShopPart::fromVariant(const Entity &entity)
{
    Model::ShopPart part;
    part.uid = QUuid(entity.id);
    part.name = entity.attributes.value("name", part.name).toString();
    return part;
}

} // namespace JsonAPI
