// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/ActionBlueprint.h"
#include "model/Actions.h"

#include <QAbstractListModel>
#include <QHash>
#include <QUuid>
#include <QVariant>
#include <QVariantList>
#include <vector>

// One sequence of actions in a form: a row for each blueprint that is applied, with its exposed properties as the
// blueprint defines them and the values that the sequence gives them.
// Rows that are not there are refused with a warning: a call from QML must not end the program.
class ActionSequenceListModel : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(
        std::vector<Model::ActionBlueprint> blueprints READ getBlueprints WRITE setBlueprints NOTIFY blueprintsChanged)
    // The sequence as a list of maps.
    Q_PROPERTY(QVariant actionSequence READ getActionSequence WRITE setActionSequence NOTIFY actionSequenceChanged)

public:
    enum Role { Blueprint = Qt::UserRole + 1, Zones, Properties, Values };

    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    std::vector<Model::ActionBlueprint> getBlueprints() const;
    // A sequence that was read before its blueprints came is read again.
    void setBlueprints(const std::vector<Model::ActionBlueprint> &blueprints);
    QVariant getActionSequence() const { return m_sequence.toVariant(); }
    void setActionSequence(const QVariant &sequence);

    Q_INVOKABLE void add(); // sets the power, of no zone yet
    Q_INVOKABLE void remove(int index);
    Q_INVOKABLE void setBlueprint(int index, const QString &uid);
    Q_INVOKABLE void setZones(int index, const QVariantList &zones);
    // name: the global identity of the property. Its value keeps its type.
    Q_INVOKABLE void setPropertyValue(int index, const QString &name, const QVariant &value);

signals:
    void blueprintsChanged();
    void actionSequenceChanged();

private:
    bool hasRow(int index) const; // says so in the log if not
    const Model::ActionBlueprint *blueprintOf(const Model::ActionBlueprintInstance &instance) const;
    void complete(Model::ActionBlueprintInstance &instance) const;
    QVariantList propertiesOf(const Model::ActionBlueprintInstance &instance) const;
    QVariantList valuesOf(const Model::ActionBlueprintInstance &instance) const;
    void announce(int index, const QVector<int> &roles);

    QHash<QUuid, Model::ActionBlueprint> m_blueprints;
    Model::ActionSequence m_sequence;
};
