// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/filters/FilterContainer.h"

#include <algorithm>

namespace qqsfpm {

bool FilterContainer::allFiltersAccept(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const
{
    // By number: a script among the filters may change the list.
    for (int i = 0; i < filters().size(); ++i) {
        if (!filters().at(i)->filterAcceptsRow(sourceIndex, proxyModel))
            return false;
    }
    return true;
}

bool FilterContainer::filtersDependOnPosition() const
{
    return std::any_of(filters().cbegin(), filters().cend(),
                       [](const Filter *filter) { return filter->enabled() && filter->dependsOnPosition(); });
}

bool FilterContainer::mayHold(Filter &filter)
{
    // A ring of containers would never come to a decision.
    return !isReachedFrom(filter);
}

bool FilterContainer::isReachedFrom(Filter &filter) const
{
    const auto *container = dynamic_cast<FilterContainer *>(&filter);
    if (!container)
        return false;
    return container == this
        || std::any_of(container->filters().cbegin(), container->filters().cend(),
                       [this](Filter *child) { return isReachedFrom(*child); });
}

} // namespace qqsfpm
