// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/Rows.h"
#include "data/UidKeyAbstractListModel.h"
#include "model/ActionBlueprint.h"
#include "model/NodeDescription.h"

#include <QJSValue>
#include <QStringList>
#include <vector>

class AbstractBackendCommunicator;

// The library of action graphs: every blueprint of the server, and the types of nodes that they are made of. The only
// place where blueprints are added, changed and removed. QML knows it as "actionsListModel".
class ActionsListModel : public UidKeyAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(std::vector<Model::ActionBlueprint> blueprints READ getBlueprints NOTIFY blueprintsChanged)
    Q_PROPERTY(std::vector<Model::NodeDescription> availableNodes READ getAvailableNodes NOTIFY availableNodesChanged)
    Q_PROPERTY(QVariant availableNodesBlueprint READ getAvailableNodesBlueprint NOTIFY availableNodesChanged)
    Q_PROPERTY(QStringList availableNodesCategories READ getAvailableNodeCategories NOTIFY availableNodesChanged)

public:
    enum Role { Uid = Qt::UserRole + 1, Name, System, Nodes, Parameters, Sort };

    struct Item
    {
        Model::ActionBlueprint blueprint;
        std::vector<Model::ExposedPropertyValue> properties; // the exposed ones, in the order of forms
    };

    explicit ActionsListModel(AbstractBackendCommunicator &communicator, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    std::vector<Model::ActionBlueprint> getBlueprints() const;
    const std::vector<Model::NodeDescription> &getAvailableNodes() const { return m_nodes; }
    // A graph to throw away with one node of each type, in its own map form: real tiles for the picker of nodes.
    QVariant getAvailableNodesBlueprint() const;
    QStringList getAvailableNodeCategories() const; // each once, in the order in which they come

    // Callbacks get the array of new uids.
    Q_INVOKABLE void add(const QJSValue &callback = QJSValue());
    // blueprint: its map form. sortOrder: maps with the key "uid", the nodes with exposed properties in the order of
    // their parameters on forms; those of other nodes come first. Empty: the order stays.
    Q_INVOKABLE void change(const QVariant &blueprint, const QVariantList &sortOrder);
    Q_INVOKABLE void remove(const QString &uid);
    Q_INVOKABLE void copyToClipboard(const QString &uid) const;
    Q_INVOKABLE void addFromClipboard(const QJSValue &callback = QJSValue());

public slots:
    void onBlueprintsUpdated(const std::vector<Model::ActionBlueprint> &blueprints);
    void onAvailableNodesUpdated(const std::vector<Model::NodeDescription> &nodes);

signals:
    void blueprintsChanged();
    void availableNodesChanged(const std::vector<Model::NodeDescription> &nodes);

private:
    AbstractBackendCommunicator &m_communicator;
    Rows<Item> m_items;
    std::vector<Model::NodeDescription> m_nodes;
};
