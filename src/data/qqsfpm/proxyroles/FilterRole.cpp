// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/proxyroles/FilterRole.h"

namespace qqsfpm {

QVariant FilterRole::data(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel,
                          const QString &) const
{
    return allFiltersAccept(sourceIndex, proxyModel);
}

} // namespace qqsfpm
