// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/Label.h"

#include "model/json/Numbers.h"

namespace JsonAPI {

QVariant Label::toVariant(const Model::TextLabel &label)
{
    Entity entity("label", label.uid.toString());
    entity.setAttribute("part_uid", label.partUid.toString());
    entity.setAttribute("text", label.text);
    entity.setAttribute("x", label.position.x);
    entity.setAttribute("y", label.position.y);
    entity.setAttribute("width", label.width);
    entity.setAttribute("height", label.height);
    return entity.toVariant();
}

Model::TextLabel Label::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    Model::TextLabel label;
    label.uid = QUuid(entity.id);
    label.partUid = QUuid(attributes.value("part_uid").toString());
    label.text = attributes.value("text").toString();
    label.position.x = finiteNumber(attributes.value("x"));
    label.position.y = finiteNumber(attributes.value("y"));
    label.width = finiteNumber(attributes.value("width"));
    label.height = finiteNumber(attributes.value("height"));
    return label;
}

} // namespace JsonAPI
