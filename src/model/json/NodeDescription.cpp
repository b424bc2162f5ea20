// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/NodeDescription.h"

#include "model/RecordLists.h"

namespace JsonAPI {

QVariant NodeDescription::toVariant(const Model::NodeDescription &description)
{
    Entity entity("node_description", description.type);
    entity.setAttribute("name", description.name);
    entity.setAttribute("description", description.description);
    entity.setAttribute("category", description.category);
    entity.setAttribute("inputs", Model::recordsToVariant(description.inputs));
    entity.setAttribute("outputs", Model::recordsToVariant(description.outputs));
    entity.setAttribute("properties", Model::recordsToVariant(description.properties));
    return entity.toVariant();
}

Model::NodeDescription NodeDescription::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    Model::NodeDescription description(entity.id, attributes.value("name").toString());
    description.description = attributes.value("description").toString();
    description.category = attributes.value("category").toString();
    description.inputs = Model::recordsFromVariant<Model::NodeIODescription>(attributes.value("inputs"));
    description.outputs = Model::recordsFromVariant<Model::NodeIODescription>(attributes.value("outputs"));
    description.properties = Model::recordsFromVariant<Model::NodePropertyDescription>(attributes.value("properties"));
    return description;
}

} // namespace JsonAPI
