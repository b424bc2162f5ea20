// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemModel>
#include <QHash>
#include <QJSValue>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QVariant>
#include <QVector>

// Keeps an array in step with the rows of a model, for properties that take arrays. In QML its name is
// ModelToArrayAdapter.
class ModelToListAdapter : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariantList array READ array NOTIFY arrayChanged)
    Q_PROPERTY(QAbstractItemModel *model READ model WRITE setModel NOTIFY modelChanged)
    Q_PROPERTY(QStringList roles READ roles WRITE setRoles NOTIFY rolesChanged)
    Q_PROPERTY(QJSValue action READ action WRITE setAction NOTIFY actionChanged)

public:
    explicit ModelToListAdapter(QObject *parent = nullptr);

    const QVariantList &array() const { return m_array; }

    QAbstractItemModel *model() const { return m_model; }
    void setModel(QAbstractItemModel *model);

    // One role: the array holds its bare values. None: maps of all roles. Several: maps of those.
    const QStringList &roles() const { return m_roles; }
    void setRoles(const QStringList &roles);

    // A function that turns the value of a row into the element of the array.
    QJSValue action() const { return m_action; }
    void setAction(const QJSValue &action);

signals:
    void arrayChanged();
    void modelChanged();
    void rolesChanged();
    void actionChanged();

private:
    void connectModel();
    void resetModel();
    void onRowsInserted(const QModelIndex &parent, int first, int last);
    void onRowsRemoved(const QModelIndex &parent, int first, int last);
    void onDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight);
    void onModelDestroyed();

    QVariant get(int row) const;
    QVariant roleValues(int row) const;

    QVariantList m_array;
    QPointer<QAbstractItemModel> m_model;
    QVector<QMetaObject::Connection> m_connections;
    QStringList m_roles;
    QJSValue m_action;
    QHash<int, QByteArray> m_roleNames; // of the model at its latest reset
};
