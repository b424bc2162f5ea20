// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/proxyroles/SwitchRole.h"

#include "data/qqsfpm/QQmlSortFilterProxyModel.h"
#include "data/qqsfpm/Variants.h"

#include <QQmlInfo>

namespace qqsfpm {

namespace {

SwitchRoleAttached *attachedTo(Filter *filter, bool create)
{
    return qobject_cast<SwitchRoleAttached *>(qmlAttachedPropertiesObject<SwitchRole>(filter, create));
}

} // namespace

SwitchRoleAttached::SwitchRoleAttached(QObject *parent)
    : QObject(parent)
{
    if (!qobject_cast<Filter *>(parent))
        qmlWarning(parent) << "SwitchRole must be attached to a Filter";
}

void SwitchRoleAttached::setValue(const QVariant &value)
{
    const QVariant plain = plainVariant(value);
    if (isSameVariant(m_value, plain))
        return;
    m_value = plain;
    emit valueChanged();
}

void SwitchRole::setDefaultRoleName(const QString &defaultRoleName)
{
    if (m_defaultRoleName == defaultRoleName)
        return;
    m_defaultRoleName = defaultRoleName;
    emit defaultRoleNameChanged();
    emit invalidated();
}

void SwitchRole::setDefaultValue(const QVariant &defaultValue)
{
    const QVariant plain = plainVariant(defaultValue);
    if (isSameVariant(m_defaultValue, plain))
        return;
    m_defaultValue = plain;
    emit defaultValueChanged();
    emit invalidated();
}

QVariant SwitchRole::data(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel,
                          const QString &) const
{
    for (int i = 0; i < filters().size(); ++i) {
        auto *filter = filters().at(i);
        if (!filter->enabled() || !filter->filterAcceptsRow(sourceIndex, proxyModel))
            continue;
        const auto *attached = attachedTo(filter, false);
        if (attached && attached->value().isValid())
            return attached->value();
        warnOfMissingValue(filter);
    }
    return m_defaultRoleName.isEmpty() ? m_defaultValue : proxyModel.sourceData(sourceIndex, m_defaultRoleName);
}

SwitchRoleAttached *SwitchRole::qmlAttachedProperties(QObject *object)
{
    return new SwitchRoleAttached(object);
}

void SwitchRole::onChildAppended(Filter *filter)
{
    // Made here if the filter has none yet, so that a value that is set later is heard of.
    if (const auto *attached = attachedTo(filter, true)) {
        connect(attached, &SwitchRoleAttached::valueChanged, this, [this, filter] {
            m_warnedOf.remove(filter);
            emit invalidated();
        });
    }
}

void SwitchRole::onChildRemoved(Filter *filter)
{
    if (const auto *attached = attachedTo(filter, false))
        disconnect(attached, nullptr, this, nullptr);
}

void SwitchRole::onChildrenChanged(const Filter *filter)
{
    m_warnedOf.remove(filter);
    emit invalidated();
}

void SwitchRole::warnOfMissingValue(Filter *filter) const
{
    // Once for each filter: every row that it accepts would say the same.
    if (m_warnedOf.contains(filter))
        return;
    m_warnedOf.insert(filter);
    qmlWarning(filter) << "No SwitchRole.value provided for this filter";
}

} // namespace qqsfpm
