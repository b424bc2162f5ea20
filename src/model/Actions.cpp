// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Actions.h"

#include "model/RecordLists.h"
#include "model/UidSet.h"

#include <QVariantList>

namespace Model {

QVariant ActionSequence::toVariant() const
{
    QVariantList list;
    list.reserve(static_cast<int>(instances.size()));
    for (const auto &instance : instances)
        list.append(instance.toVariant());
    return list;
}

ActionSequence ActionSequence::fromVariant(const QVariant &variant)
{
    const auto list = variant.toList();
    ActionSequence sequence;
    sequence.instances.reserve(static_cast<std::size_t>(list.size()));
    for (const auto &instance : list)
        sequence.instances.push_back(ActionBlueprintInstance::fromVariant(instance));
    return sequence;
}

ActionBlueprintInstance ActionWrapper::toBlueprint() const
{
    ActionBlueprintInstance instance;
    instance.blueprint = action;
    instance.zones = controlledZones;
    instance.properties.reserve(static_cast<std::size_t>(passedParameters.size()));
    for (auto parameter = passedParameters.begin(); parameter != passedParameters.end(); ++parameter)
        instance.properties.emplace_back(parameter.key(), ActionDatatype(parameter.value()));
    return instance;
}

QVariant ActionWrapper::toVariant() const
{
    return QVariantMap{
        {"action", action.toString()},
        {"controlledZones", uidsToVariant(controlledZones)},
        {"passedParameters", passedParameters},
    };
}

ActionWrapper ActionWrapper::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    ActionWrapper wrapper;
    wrapper.action = map.value("action").toUuid();
    wrapper.controlledZones = uidsFromVariant(map.value("controlledZones"));
    wrapper.passedParameters = map.value("passedParameters").toMap();
    return wrapper;
}

QVariantList Action::parametersToList(const std::vector<ParameterDeclaration> &parameters)
{
    return recordsToVariant(parameters);
}

std::vector<ParameterDeclaration> Action::parametersFromList(const QVariantList &list)
{
    return recordsFromVariant<ParameterDeclaration>(list);
}

QVariant Action::toVariant() const
{
    return QVariantMap{
        {"uid", uid.toString()},
        {"name", name},
        {"script", script},
        {"category", category},
        {"parametersDeclaration", parametersToList(parametersDeclaration)},
    };
}

Action Action::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    Action action;
    action.uid = map.value("uid").toUuid();
    action.name = map.value("name").toString();
    action.script = map.value("script").toString();
    action.category = map.value("category").toString();
    action.parametersDeclaration = parametersFromList(map.value("parametersDeclaration").toList());
    return action;
}

bool operator==(const ActionSequence &left, const ActionSequence &right)
{
    return left.instances == right.instances;
}

bool operator==(const ActionWrapper &left, const ActionWrapper &right)
{
    return left.action == right.action && left.controlledZones == right.controlledZones
        && left.passedParameters == right.passedParameters;
}

bool operator==(const Action &left, const Action &right)
{
    return left.uid == right.uid && left.name == right.name && left.script == right.script
        && left.category == right.category && left.parametersDeclaration == right.parametersDeclaration;
}

} // namespace Model
