// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/Container.h"
#include "data/qqsfpm/sorters/Sorter.h"

namespace qqsfpm {

// Whatever has a list of sorters.
class SorterContainer : public Container<Sorter>
{
public:
    const QList<Sorter *> &sorters() const { return children(); }
    void appendSorter(Sorter *sorter) { append(sorter); }
    void removeSorter(Sorter *sorter) { remove(sorter); }
    void clearSorters() { clear(); }

    QQmlListProperty<Sorter> sortersListProperty() { return listProperty(); }

    // The enabled ones by descending priority; of equal priority, in the order of the list.
    QList<Sorter *> orderedSorters() const;
};

} // namespace qqsfpm

Q_DECLARE_INTERFACE(qqsfpm::SorterContainer, "ondira.qqsfpm.SorterContainer")
