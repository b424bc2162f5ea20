// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/Zone.h"

#include "model/json/Numbers.h"

namespace JsonAPI {

QVariant Zone::toVariant(const Model::Zone &zone)
{
    Entity entity("zone", zone.uid.toString());
    entity.setAttribute("part_uid", zone.partUid.toString());
    entity.setAttribute("name", zone.name);
    entity.setAttribute("x", zone.position.x);
    entity.setAttribute("y", zone.position.y);
    entity.setAttribute("width", zone.width);
    entity.setAttribute("height", zone.height);
    return entity.toVariant();
}

Model::Zone Zone::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    Model::Zone zone;
    zone.uid = QUuid(entity.id);
    zone.partUid = QUuid(attributes.value("part_uid").toString());
    zone.name = attributes.value("name").toString();
    zone.position.x = finiteNumber(attributes.value("x"));
    zone.position.y = finiteNumber(attributes.value("y"));
    zone.width = finiteNumber(attributes.value("width")); // 0 when absent: 100 is for zones made here
    zone.height = finiteNumber(attributes.value("height"));
    return zone;
}

} // namespace JsonAPI
