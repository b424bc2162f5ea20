// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/sorters/RoleSorter.h"

#include "data/qqsfpm/QQmlSortFilterProxyModel.h"
#include "data/qqsfpm/Variants.h"

namespace qqsfpm {

void RoleSorter::setRoleName(const QString &roleName)
{
    if (m_roleName == roleName)
        return;
    m_roleName = roleName;
    m_role.reset();
    dropKeys();
    emit roleNameChanged();
    invalidate();
}

int RoleSorter::compare(const QModelIndex &left, const QModelIndex &right,
                        const QQmlSortFilterProxyModel &proxyModel) const
{
    if (!m_keys.cover(left, right, proxyModel))
        return compareVariants(sourceData(left, proxyModel), sourceData(right, proxyModel));

    const SortKey *leftKey = m_keys.find(left);
    const SortKey *rightKey = m_keys.find(right);
    if (!leftKey || !rightKey) {
        const auto fetch = [&](const QModelIndex &index) {
            return SortKey::make(sourceData(index, proxyModel), Qt::CaseInsensitive);
        };
        m_keys.at(left, fetch);
        rightKey = &m_keys.at(right, fetch);
        leftKey = &m_keys.at(left, fetch);
    }
    return SortKey::areComparable(*leftKey, *rightKey) ? SortKey::compare(*leftKey, *rightKey, Qt::CaseInsensitive)
                                                       : compareVariants(leftKey->value, rightKey->value);
}

void RoleSorter::keepKeysFor(const QQmlSortFilterProxyModel *owner)
{
    m_keys.reset(owner);
}

void RoleSorter::dropKeys()
{
    m_keys.dropAll();
}

void RoleSorter::dropKeys(int firstRow, int lastRow)
{
    m_keys.drop(firstRow, lastRow);
}

QVariant RoleSorter::sourceData(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const
{
    return proxyModel.sourceData(sourceIndex, m_role.find(proxyModel, m_roleName));
}

} // namespace qqsfpm
