// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/Container.h"
#include "data/qqsfpm/filters/Filter.h"

namespace qqsfpm {

// Whatever has a list of filters: the proxy, the filters and roles made of filters, the filter sorter.
class FilterContainer : public Container<Filter>
{
public:
    const QList<Filter *> &filters() const { return children(); }
    void appendFilter(Filter *filter) { append(filter); }
    void removeFilter(Filter *filter) { remove(filter); }
    void clearFilters() { clear(); }

    QQmlListProperty<Filter> filtersListProperty() { return listProperty(); }

    // In order, up to the first refusal.
    bool allFiltersAccept(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const;
    bool filtersDependOnPosition() const;

private:
    bool mayHold(Filter &filter) override;
    bool isReachedFrom(Filter &filter) const;
};

} // namespace qqsfpm

Q_DECLARE_INTERFACE(qqsfpm::FilterContainer, "ondira.qqsfpm.FilterContainer")
