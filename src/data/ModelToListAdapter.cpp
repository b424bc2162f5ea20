// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ModelToListAdapter.h"

#include <QQmlEngine>

ModelToListAdapter::ModelToListAdapter(QObject *parent)
    : QObject(parent)
{}

void ModelToListAdapter::setModel(QAbstractItemModel *model)
{
    if (m_model == model)
        return;
    for (const auto &connection : qAsConst(m_connections))
        disconnect(connection);
    m_connections.clear();
    m_model = model;
    resetModel();
    connectModel();
    emit modelChanged();
}

void ModelToListAdapter::setRoles(const QStringList &roles)
{
    if (m_roles == roles)
        return;
    m_roles = roles;
    resetModel();
    emit rolesChanged();
}

void ModelToListAdapter::setAction(const QJSValue &action)
{
    if (m_action.strictlyEquals(action))
        return;
    m_action = action;
    emit actionChanged();
    resetModel();
}

void ModelToListAdapter::connectModel()
{
    if (!m_model)
        return;
    using Model = QAbstractItemModel;
    using Adapter = ModelToListAdapter;
    m_connections << connect(m_model, &Model::rowsInserted, this, &Adapter::onRowsInserted)
                  << connect(m_model, &Model::rowsRemoved, this, &Adapter::onRowsRemoved)
                  << connect(m_model, &Model::rowsMoved, this, &Adapter::resetModel)
                  << connect(m_model, &Model::dataChanged, this, &Adapter::onDataChanged)
                  << connect(m_model, &Model::layoutChanged, this, &Adapter::resetModel)
                  << connect(m_model, &Model::modelReset, this, &Adapter::resetModel)
                  << connect(m_model, &QObject::destroyed, this, &Adapter::onModelDestroyed);
}

void ModelToListAdapter::resetModel()
{
    m_array.clear();
    m_roleNames.clear();
    if (m_model) {
        m_roleNames = m_model->roleNames();
        const int rowCount = m_model->rowCount();
        m_array.reserve(rowCount);
        for (int row = 0; row < rowCount; ++row)
            m_array.append(get(row));
    }
    emit arrayChanged();
}

void ModelToListAdapter::onRowsInserted(const QModelIndex &parent, int first, int last)
{
    if (parent.isValid())
        return;
    if (m_array.isEmpty() || first > m_array.size()) {
        resetModel();
        return;
    }
    QVariantList array = m_array.mid(0, first);
    array.reserve(m_array.size() + last - first + 1);
    for (int row = first; row <= last; ++row)
        array.append(get(row));
    array.append(m_array.mid(first));
    m_array = array;
    emit arrayChanged();
}

void ModelToListAdapter::onRowsRemoved(const QModelIndex &parent, int first, int last)
{
    if (parent.isValid() || first < 0 || last >= m_array.size())
        return;
    m_array.erase(m_array.begin() + first, m_array.begin() + last + 1);
    emit arrayChanged();
}

void ModelToListAdapter::onDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight)
{
    if (topLeft.parent().isValid())
        return;
    if (m_array.isEmpty()) {
        resetModel();
        return;
    }
    const int last = qMin(bottomRight.row(), m_array.size() - 1);
    for (int row = qMax(topLeft.row(), 0); row <= last; ++row)
        m_array[row] = get(row);
    emit arrayChanged();
}

void ModelToListAdapter::onModelDestroyed()
{
    m_connections.clear();
    m_model.clear();
    resetModel();
    emit modelChanged();
}

QVariant ModelToListAdapter::get(int row) const
{
    if (!m_model)
        return {};
    const QVariant values = roleValues(row);
    auto *engine = m_action.isCallable() ? qmlEngine(this) : nullptr;
    return engine ? QJSValue(m_action).call({engine->toScriptValue(values)}).toVariant() : values;
}

QVariant ModelToListAdapter::roleValues(int row) const
{
    const QModelIndex index = m_model->index(row, 0);
    if (m_roles.size() == 1) {
        const int role = m_roleNames.key(m_roles.first().toUtf8(), -1);
        return role < 0 ? QVariant() : index.data(role);
    }
    QVariantMap values;
    for (auto it = m_roleNames.cbegin(); it != m_roleNames.cend(); ++it) {
        const QString name = QString::fromUtf8(it.value());
        if (m_roles.isEmpty() || m_roles.contains(name))
            values.insert(name, index.data(it.key()));
    }
    return values;
}
