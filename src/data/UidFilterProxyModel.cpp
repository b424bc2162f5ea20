// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/UidFilterProxyModel.h"

void UidFilterProxyModel::setAllowedUids(const QStringList &allowedUids)
{
    QSet<QString> added(allowedUids.cbegin(), allowedUids.cend());
    added.subtract(m_allowedUids);
    if (added.isEmpty())
        return;
    m_allowedUids = added;
    queueInvalidateFilter();
}

void UidFilterProxyModel::setFilterEnabled(bool filterEnabled)
{
    m_filterEnabled = filterEnabled;
    queueInvalidateFilter();
    emit filterEnabledChanged();
}

bool UidFilterProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const
{
    if (!m_filterEnabled)
        return true;
    const QModelIndex sourceIndex = sourceModel()->index(sourceRow, 0, sourceParent);
    if (!filterRoleName().isEmpty())
        return !sourceIndex.isValid() || m_allowedUids.contains(sourceData(sourceIndex, filterRoleName()).toString());
    const auto roles = sourceModel()->roleNames().keys();
    for (const int role : roles) {
        if (m_allowedUids.contains(sourceIndex.data(role).toString()))
            return true;
    }
    return false;
}
