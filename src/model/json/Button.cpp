// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/Button.h"

#include "model/json/Numbers.h"

namespace JsonAPI {

QVariant Button::toVariant(const Model::Button &button)
{
    Entity entity("button", button.uid.toString());
    entity.setAttribute("part_uid", button.partUid.toString());
    entity.setAttribute("name", button.name);
    entity.setAttribute("x", button.position.x);
    entity.setAttribute("y", button.position.y);
    entity.setAttribute("width", button.width);
    entity.setAttribute("height", button.height);
    entity.setAttribute("on_color", button.onColor);
    entity.setAttribute("off_color", button.offColor);
    entity.setAttribute("toggle", button.toggle);
    entity.setAttribute("blueprints", button.blueprints.toVariant());
    return entity.toVariant();
}

Model::Button Button::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    Model::Button button;
    button.uid = QUuid(entity.id);
    button.partUid = QUuid(attributes.value("part_uid").toString());
    button.name = attributes.value("name").toString();
    button.position.x = finiteNumber(attributes.value("x"));
    button.position.y = finiteNumber(attributes.value("y"));
    button.width = finiteNumber(attributes.value("width"), button.width);
    button.height = finiteNumber(attributes.value("height"), button.height);
    button.onColor = attributes.value("on_color").toString();
    button.offColor = attributes.value("off_color").toString();
    button.toggle = attributes.value("toggle").toBool();
    button.blueprints = Model::ActionSequence::fromVariant(attributes.value("blueprints"));
    return button;
}

} // namespace JsonAPI
