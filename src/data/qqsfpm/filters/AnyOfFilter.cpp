// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/filters/AnyOfFilter.h"

namespace qqsfpm {

bool AnyOfFilter::filterRow(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const
{
    for (int i = 0; i < filters().size(); ++i) {
        const auto *filter = filters().at(i);
        if (filter->enabled() && filter->filterAcceptsRow(sourceIndex, proxyModel))
            return true;
    }
    return false;
}

} // namespace qqsfpm
