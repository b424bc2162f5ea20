// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/sorters/SorterContainer.h"

#include <algorithm>

namespace qqsfpm {

QList<Sorter *> SorterContainer::orderedSorters() const
{
    QList<Sorter *> ordered;
    for (auto *sorter : sorters()) {
        if (sorter->enabled())
            ordered.append(sorter);
    }
    std::stable_sort(ordered.begin(), ordered.end(),
                     [](const Sorter *left, const Sorter *right) { return left->priority() > right->priority(); });
    return ordered;
}

} // namespace qqsfpm
