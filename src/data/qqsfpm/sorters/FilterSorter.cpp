// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/sorters/FilterSorter.h"

namespace qqsfpm {

int FilterSorter::compare(const QModelIndex &left, const QModelIndex &right,
                          const QQmlSortFilterProxyModel &proxyModel) const
{
    const auto accept = [&](const QModelIndex &index) { return allFiltersAccept(index, proxyModel); };
    const bool areKept = m_accepted.cover(left, right, proxyModel);
    const bool leftAccepted = areKept ? m_accepted.at(left, accept) : accept(left);
    const bool rightAccepted = areKept ? m_accepted.at(right, accept) : accept(right);
    return int(rightAccepted) - int(leftAccepted);
}

void FilterSorter::keepKeysFor(const QQmlSortFilterProxyModel *owner)
{
    m_accepted.reset(owner);
}

void FilterSorter::dropKeys()
{
    m_accepted.dropAll();
}

void FilterSorter::onChildrenChanged(const Filter *)
{
    dropKeys();
    invalidate();
}

void FilterSorter::onChildInvalidated(const Filter *)
{
    dropKeys();
    invalidate();
}

} // namespace qqsfpm
