// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/ActionBlueprintInstance.h"

#include <QVariantMap>

namespace JsonAPI {

QVariant ActionBlueprintInstance::toVariant(const Model::ActionBlueprintInstance &instance)
{
    const auto map = instance.toVariant().toMap();
    Entity entity("oneshot_blueprint", instance.blueprint.toString());
    for (const auto *key : {"properties", "zones"})
        entity.setAttribute(key, map.value(key));
    return entity.toVariant();
}

Model::ActionBlueprintInstance ActionBlueprintInstance::fromVariant(const Entity &entity)
{
    QVariantMap map{{"blueprint", entity.id}};
    for (const auto *key : {"properties", "zones"}) {
        if (entity.attributes.contains(key))
            map.insert(key, entity.attributes.value(key));
    }
    return Model::ActionBlueprintInstance::fromVariant(map);
}

} // namespace JsonAPI
