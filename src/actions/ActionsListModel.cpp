// SPDX-License-Identifier: GPL-3.0-or-later
#include "actions/ActionsListModel.h"

#include "actions/ClipboardRecords.h"
#include "data/JsValues.h"
#include "link/AbstractBackendCommunicator.h"
#include "model/RecordLists.h"

#include <algorithm>

namespace {

const Model::ActionBlueprint *find(const Rows<ActionsListModel::Item> &items, const QUuid &uid)
{
    const auto item =
        std::find_if(items.begin(), items.end(), [&](const auto &row) { return row.blueprint.uid == uid; });
    return item == items.end() ? nullptr : &item->blueprint;
}

} // namespace

ActionsListModel::ActionsListModel(AbstractBackendCommunicator &communicator, QObject *parent)
    : UidKeyAbstractListModel(parent)
    , m_communicator(communicator)
{
    auto &cache = communicator.getDataCache();
    connect(&cache, &BackendDataCache::blueprintsChanged, this, &ActionsListModel::onBlueprintsUpdated);
    connect(&cache, &BackendDataCache::actionNodesChanged, this, &ActionsListModel::onAvailableNodesUpdated);
    onAvailableNodesUpdated(cache.getActionNodes());
    onBlueprintsUpdated(cache.getBlueprints());
}

int ActionsListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_items.size();
}

QVariant ActionsListModel::data(const QModelIndex &index, int role) const
{
    if (!holds(index))
        return {};
    const auto &item = m_items.at(index.row());
    const auto &blueprint = item.blueprint;
    switch (role) {
    case Uid: return blueprint.uid.toString();
    case Name: return blueprint.name;
    case System: return blueprint.system;
    case Nodes: return Model::recordsToVariant(blueprint.nodes);
    case Parameters: return Model::recordsToVariant(item.properties);
    case Sort: return (blueprint.system ? '0' : '1') + blueprint.name;
    }
    return {};
}

QHash<int, QByteArray> ActionsListModel::roleNames() const
{
    static const QHash<int, QByteArray> names{
        {Uid, "uid"}, {Name, "name"}, {System, "system"}, {Nodes, "nodes"}, {Parameters, "parameters"}, {Sort, "sort"},
    };
    return names;
}

std::vector<Model::ActionBlueprint> ActionsListModel::getBlueprints() const
{
    std::vector<Model::ActionBlueprint> blueprints;
    blueprints.reserve(static_cast<std::size_t>(m_items.size()));
    for (const auto &item : m_items)
        blueprints.push_back(item.blueprint);
    return blueprints;
}

QVariant ActionsListModel::getAvailableNodesBlueprint() const
{
    Model::ActionBlueprint blueprint(QStringLiteral("All nodes"), QUuid());
    for (const auto &node : m_nodes)
        blueprint.addNode(node.type, QUuid::createUuid());
    return blueprint.toVariant();
}

QStringList ActionsListModel::getAvailableNodeCategories() const
{
    QStringList categories;
    for (const auto &node : m_nodes)
        categories << node.category;
    categories.removeDuplicates();
    return categories;
}

void ActionsListModel::add(const QJSValue &callback)
{
    m_communicator.addBlueprints({Model::ActionBlueprint(tr("Новое действие"), QUuid())},
                                 JsValues::uidsCompletion(this, callback));
}

void ActionsListModel::change(const QVariant &blueprint, const QVariantList &sortOrder)
{
    auto changed = Model::ActionBlueprint::fromVariant(JsValues::plain(blueprint));
    QHash<QUuid, int> positions;
    for (int i = 0; i < sortOrder.size(); ++i)
        positions.insert(JsValues::plain(sortOrder.at(i)).toMap().value(QStringLiteral("uid")).toUuid(), i);
    const auto position = [&](const Model::NodeInstance &node) { return positions.value(node.uid, -1); };
    if (!positions.isEmpty()) {
        std::stable_sort(changed.nodes.begin(), changed.nodes.end(),
                         [&](const auto &left, const auto &right) { return position(left) < position(right); });
    }
    m_communicator.changeBlueprints({changed});
}

void ActionsListModel::remove(const QString &uid)
{
    const QUuid removed(uid);
    if (!removed.isNull())
        m_communicator.removeBlueprints({Model::ActionBlueprint(QString(), removed)});
}

void ActionsListModel::copyToClipboard(const QString &uid) const
{
    if (const auto *blueprint = find(m_items, QUuid(uid)))
        ClipboardRecords::put(blueprint->toVariant().toMap(), ClipboardRecords::blueprint);
}

void ActionsListModel::addFromClipboard(const QJSValue &callback)
{
    const auto record = ClipboardRecords::take(ClipboardRecords::blueprint);
    if (!record)
        return;
    auto blueprint = Model::ActionBlueprint::fromVariant(*record);
    blueprint.uid = QUuid();
    blueprint.system = false;
    blueprint.name += ' ' + tr("Копия");
    m_communicator.addBlueprints({blueprint}, JsValues::uidsCompletion(this, callback));
}

void ActionsListModel::onBlueprintsUpdated(const std::vector<Model::ActionBlueprint> &blueprints)
{
    std::vector<Item> items;
    items.reserve(blueprints.size());
    for (const auto &blueprint : blueprints)
        items.push_back({blueprint, blueprint.getExposedProperties()});
    using Merge = DiffTransform<Rows<Item>, Item>;
    Merge(
        m_items, std::move(items), [](const auto &item) { return item.blueprint.uid; }, *this)
        .transform();
    emit blueprintsChanged();
}

void ActionsListModel::onAvailableNodesUpdated(const std::vector<Model::NodeDescription> &nodes)
{
    m_nodes = nodes;
    emit availableNodesChanged(m_nodes);
}
