// SPDX-License-Identifier: GPL-3.0-or-later
#include "actions/ActionSequenceListModel.h"

#include "data/JsValues.h"
#include "model/StandardBlueprints.h"
#include "model/UidSet.h"

#include <QDebug>
#include <algorithm>

int ActionSequenceListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_sequence.instances.size());
}

QVariant ActionSequenceListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount() || index.model() != this)
        return {};
    const auto &instance = m_sequence.instances[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Blueprint: return instance.blueprint.toString();
    case Zones: return Model::uidsToVariant(instance.zones);
    case Properties: return propertiesOf(instance);
    case Values: return valuesOf(instance);
    }
    return {};
}

QHash<int, QByteArray> ActionSequenceListModel::roleNames() const
{
    static const QHash<int, QByteArray> names{
        {Blueprint, "blueprint"}, {Zones, "zones"}, {Properties, "properties"}, {Values, "values"}};
    return names;
}

std::vector<Model::ActionBlueprint> ActionSequenceListModel::getBlueprints() const
{
    return {m_blueprints.begin(), m_blueprints.end()};
}

void ActionSequenceListModel::setBlueprints(const std::vector<Model::ActionBlueprint> &blueprints)
{
    m_blueprints.clear();
    for (const auto &blueprint : blueprints)
        m_blueprints.insert(blueprint.uid, blueprint);
    emit blueprintsChanged();
    setActionSequence(getActionSequence());
}

void ActionSequenceListModel::setActionSequence(const QVariant &sequence)
{
    beginResetModel();
    m_sequence = Model::ActionSequence::fromVariant(JsValues::plain(sequence));
    for (auto &instance : m_sequence.instances)
        complete(instance);
    endResetModel();
    emit actionSequenceChanged();
}

// What the blueprint no longer shows goes, and what it shows by now comes with the blueprint's own value. Only a
// blueprint of the server counts here: the built-in one may show less, and values must not be lost until it comes.
void ActionSequenceListModel::complete(Model::ActionBlueprintInstance &instance) const
{
    const auto blueprint = m_blueprints.constFind(instance.blueprint);
    if (blueprint == m_blueprints.constEnd())
        return;
    const auto exposed = blueprint->getExposedProperties();
    auto &own = instance.properties;
    own.erase(std::remove_if(own.begin(), own.end(),
                             [&](const auto &property) {
                                 const auto id = property.globalID();
                                 return std::none_of(exposed.begin(), exposed.end(),
                                                     [&](const auto &one) { return one.globalID() == id; });
                             }),
              own.end());
    for (const auto &property : exposed) {
        if (!instance.property(property.globalID()))
            own.push_back(property);
    }
}

void ActionSequenceListModel::add()
{
    const auto uid = Model::StandardBlueprints::setPowerUid();
    const auto known = m_blueprints.constFind(uid);
    const auto blueprint = known == m_blueprints.constEnd() ? Model::StandardBlueprints::setPower() : *known;
    beginInsertRows(QModelIndex(), rowCount(), rowCount());
    m_sequence.instances.push_back({uid, blueprint.getExposedProperties(), {}});
    endInsertRows();
    emit actionSequenceChanged();
}

void ActionSequenceListModel::remove(int index)
{
    if (!hasRow(index))
        return;
    beginRemoveRows(QModelIndex(), index, index);
    m_sequence.instances.erase(m_sequence.instances.begin() + index);
    endRemoveRows();
    emit actionSequenceChanged();
}

void ActionSequenceListModel::setBlueprint(int index, const QString &uid)
{
    if (!hasRow(index))
        return;
    auto &instance = m_sequence.instances[static_cast<std::size_t>(index)];
    const QUuid blueprint(uid);
    if (instance.blueprint == blueprint)
        return;
    instance.blueprint = blueprint;
    instance.properties = m_blueprints.value(blueprint).getExposedProperties();
    emit actionSequenceChanged();
    announce(index, {Blueprint, Properties});
    announce(index, {Values}); // they are those of the new properties
}

void ActionSequenceListModel::setZones(int index, const QVariantList &zones)
{
    if (!hasRow(index))
        return;
    auto &instance = m_sequence.instances[static_cast<std::size_t>(index)];
    auto chosen = Model::uidsFromVariant(zones);
    if (chosen == instance.zones)
        return;
    instance.zones = chosen;
    announce(index, {Zones});
    emit actionSequenceChanged();
}

void ActionSequenceListModel::setPropertyValue(int index, const QString &name, const QVariant &value)
{
    if (!hasRow(index))
        return;
    auto &properties = m_sequence.instances[static_cast<std::size_t>(index)].properties;
    const auto property =
        std::find_if(properties.begin(), properties.end(), [&](const auto &one) { return one.globalID() == name; });
    if (property == properties.end()) {
        emit actionSequenceChanged();
        return;
    }
    auto changed = property->value;
    changed.setValue(Model::ActionDatatype(value));
    if (changed == property->value)
        return;
    property->value = changed;
    announce(index, {Values});
    emit actionSequenceChanged();
}

bool ActionSequenceListModel::hasRow(int index) const
{
    const bool there = index >= 0 && index < rowCount();
    if (!there)
        qWarning() << "The sequence has no action" << index;
    return there;
}

const Model::ActionBlueprint *ActionSequenceListModel::blueprintOf(const Model::ActionBlueprintInstance &instance) const
{
    const auto blueprint = m_blueprints.constFind(instance.blueprint);
    if (blueprint != m_blueprints.constEnd())
        return &*blueprint;
    static const auto builtIn = Model::StandardBlueprints::setPower();
    return instance.blueprint == builtIn.uid ? &builtIn : nullptr;
}

// An instance lacks what its blueprint exposes only while the built-in one stands in for one that is still to come.
// Such a property could not be set, so it is not shown.
QVariantList ActionSequenceListModel::propertiesOf(const Model::ActionBlueprintInstance &instance) const
{
    QVariantList list;
    const auto *blueprint = blueprintOf(instance);
    if (!blueprint)
        return list;
    for (const auto &exposed : blueprint->getExposedProperties()) {
        const auto *own = instance.property(exposed.globalID());
        if (!own)
            continue;
        const auto *property = blueprint->property(exposed.globalID());
        const auto description = property && !property->userDescription.isEmpty() ? property->userDescription
            : property                                                            ? property->name
                                                                                  : exposed.property;
        list << QVariantMap{{"name", exposed.globalID()},
                            {"description", description},
                            {"type", Model::ActionDatatype::typeToString(own->value.type())}};
    }
    return list;
}

QVariantList ActionSequenceListModel::valuesOf(const Model::ActionBlueprintInstance &instance) const
{
    QVariantList list;
    const auto *blueprint = blueprintOf(instance);
    if (!blueprint)
        return list;
    for (const auto &exposed : blueprint->getExposedProperties()) {
        const auto *own = instance.property(exposed.globalID());
        if (!own)
            continue;
        const auto *property = blueprint->property(exposed.globalID());
        list << QVariantMap{{"definition", property ? property->valueLimits.toVariant() : QVariant()},
                            {"value", own->value.valueToVariant()},
                            {"displayValue", own->value.toString()}};
    }
    return list;
}

void ActionSequenceListModel::announce(int row, const QVector<int> &roles)
{
    const auto place = index(row);
    emit dataChanged(place, place, roles);
}
