// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/filters/AllOfFilter.h"

namespace qqsfpm {

bool AllOfFilter::filterRow(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const
{
    return allFiltersAccept(sourceIndex, proxyModel);
}

} // namespace qqsfpm
