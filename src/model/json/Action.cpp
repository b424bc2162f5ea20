// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/Action.h"

namespace JsonAPI {

QVariant Action::toVariant(const Model::Action &action)
{
    Entity entity("action", action.uid.toString());
    entity.setAttribute("name", action.name);
    entity.setAttribute("script", action.script);
    entity.setAttribute("category", action.category);
    entity.setAttribute("parametersDeclaration", Model::Action::parametersToList(action.parametersDeclaration));
    return entity.toVariant();
}

Model::Action Action::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    Model::Action action;
    action.uid = QUuid(entity.id);
    action.name = attributes.value("name").toString();
    action.script = attributes.value("script").toString();
    action.category = attributes.value("category").toString();
    action.parametersDeclaration =
        Model::Action::parametersFromList(attributes.value("parametersDeclaration").toList());
    return action;
}

} // namespace JsonAPI
