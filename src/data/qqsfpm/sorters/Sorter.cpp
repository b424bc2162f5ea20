// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/sorters/Sorter.h"

namespace qqsfpm {

Sorter::Sorter(QObject *parent)
    : QObject(parent)
{}

void Sorter::setEnabled(bool enabled)
{
    if (m_enabled == enabled)
        return;
    m_enabled = enabled;
    emit enabledChanged();
    emit invalidated();
}

void Sorter::setAscendingOrder(bool ascendingOrder)
{
    setSortOrder(ascendingOrder ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void Sorter::setSortOrder(Qt::SortOrder sortOrder)
{
    if (m_sortOrder == sortOrder)
        return;
    m_sortOrder = sortOrder;
    emit sortOrderChanged();
    invalidate();
}

void Sorter::setPriority(int priority)
{
    if (m_priority == priority)
        return;
    m_priority = priority;
    emit priorityChanged();
    invalidate();
}

int Sorter::compare(const QModelIndex &left, const QModelIndex &right, const QQmlSortFilterProxyModel &proxyModel) const
{
    if (lessThan(left, right, proxyModel))
        return -1;
    return lessThan(right, left, proxyModel) ? 1 : 0;
}

bool Sorter::lessThan(const QModelIndex &, const QModelIndex &, const QQmlSortFilterProxyModel &) const
{
    return false;
}

void Sorter::dropKeys(int, int)
{
    dropKeys();
}

void Sorter::invalidate()
{
    if (m_enabled)
        emit invalidated();
}

} // namespace qqsfpm
