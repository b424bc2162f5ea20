// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/filters/FilterContainer.h"
#include "data/qqsfpm/proxyroles/SingleRole.h"

#include <QQmlEngine>
#include <QSet>

namespace qqsfpm {

// What `SwitchRole.value` on a filter sets.
class SwitchRoleAttached : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariant value READ value WRITE setValue NOTIFY valueChanged)

public:
    explicit SwitchRoleAttached(QObject *parent);

    const QVariant &value() const { return m_value; }
    void setValue(const QVariant &value);

signals:
    void valueChanged();

private:
    QVariant m_value;
};

// The value attached to the first enabled filter that accepts the row, else the default.
class SwitchRole : public SingleRole, public FilterContainer
{
    Q_OBJECT
    Q_INTERFACES(qqsfpm::FilterContainer)
    Q_PROPERTY(QString defaultRoleName READ defaultRoleName WRITE setDefaultRoleName NOTIFY defaultRoleNameChanged)
    Q_PROPERTY(QVariant defaultValue READ defaultValue WRITE setDefaultValue NOTIFY defaultValueChanged)
    Q_PROPERTY(QQmlListProperty<qqsfpm::Filter> filters READ filtersListProperty)
    Q_CLASSINFO("DefaultProperty", "filters")

public:
    using SingleRole::SingleRole;

    const QString &defaultRoleName() const { return m_defaultRoleName; }
    void setDefaultRoleName(const QString &defaultRoleName);

    const QVariant &defaultValue() const { return m_defaultValue; }
    void setDefaultValue(const QVariant &defaultValue);

    QVariant data(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel,
                  const QString &name) const override;

    static SwitchRoleAttached *qmlAttachedProperties(QObject *object);

signals:
    void defaultRoleNameChanged();
    void defaultValueChanged();

private:
    QObject *object() override { return this; }
    void onChildAppended(Filter *filter) override;
    void onChildRemoved(Filter *filter) override;
    void onChildrenChanged(const Filter *filter) override;
    void onChildInvalidated(const Filter *) override { emit invalidated(); }
    void warnOfMissingValue(Filter *filter) const;

    QString m_defaultRoleName;
    QVariant m_defaultValue;
    mutable QSet<const Filter *> m_warnedOf;
};

} // namespace qqsfpm

QML_DECLARE_TYPEINFO(qqsfpm::SwitchRole, QML_HAS_ATTACHED_PROPERTIES)
