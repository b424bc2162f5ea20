// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/filters/FilterContainerFilter.h"

namespace qqsfpm {

// Passes a row that every child accepts; a disabled child accepts, and without children every row passes.
class AllOfFilter : public FilterContainerFilter
{
    Q_OBJECT

public:
    using FilterContainerFilter::FilterContainerFilter;

    bool filterRow(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const override;
};

} // namespace qqsfpm
