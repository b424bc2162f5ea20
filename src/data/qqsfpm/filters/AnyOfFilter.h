// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/filters/FilterContainerFilter.h"

namespace qqsfpm {

// Passes a row that some enabled child accepts. Without an enabled child it refuses every row.
class AnyOfFilter : public FilterContainerFilter
{
    Q_OBJECT

public:
    using FilterContainerFilter::FilterContainerFilter;

    bool filterRow(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const override;
};

} // namespace qqsfpm
