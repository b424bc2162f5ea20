// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/RowKeys.h"
#include "data/qqsfpm/filters/FilterContainer.h"
#include "data/qqsfpm/sorters/Sorter.h"

namespace qqsfpm {

// Puts the rows that its filters accept before the others.
class FilterSorter : public Sorter, public FilterContainer
{
    Q_OBJECT
    Q_INTERFACES(qqsfpm::FilterContainer)
    Q_PROPERTY(QQmlListProperty<qqsfpm::Filter> filters READ filtersListProperty)
    Q_CLASSINFO("DefaultProperty", "filters")

public:
    using Sorter::Sorter;

    int compare(const QModelIndex &left, const QModelIndex &right,
                const QQmlSortFilterProxyModel &proxyModel) const override;

    void keepKeysFor(const QQmlSortFilterProxyModel *owner) override;
    void dropKeys() override;
    // Not for some rows alone: a filter may look at others than its own.
    using Sorter::dropKeys;
    bool isSteady() const override { return true; }

private:
    QObject *object() override { return this; }
    void onChildrenChanged(const Filter *) override;
    void onChildInvalidated(const Filter *) override;

    mutable RowKeys<bool> m_accepted;
};

} // namespace qqsfpm
