// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/filters/RoleFilter.h"

#include "data/qqsfpm/QQmlSortFilterProxyModel.h"

namespace qqsfpm {

void RoleFilter::setRoleName(const QString &roleName)
{
    if (m_roleName == roleName)
        return;
    m_roleName = roleName;
    m_role.reset();
    emit roleNameChanged();
    invalidate();
}

QVariant RoleFilter::sourceData(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const
{
    return proxyModel.sourceData(sourceIndex, m_role.find(proxyModel, m_roleName));
}

} // namespace qqsfpm
