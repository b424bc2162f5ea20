// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/filters/FilterContainer.h"
#include "data/qqsfpm/proxyroles/SingleRole.h"

namespace qqsfpm {

// Whether all its filters accept the row.
class FilterRole : public SingleRole, public FilterContainer
{
    Q_OBJECT
    Q_INTERFACES(qqsfpm::FilterContainer)
    Q_PROPERTY(QQmlListProperty<qqsfpm::Filter> filters READ filtersListProperty)
    Q_CLASSINFO("DefaultProperty", "filters")

public:
    using SingleRole::SingleRole;

    QVariant data(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel,
                  const QString &name) const override;

private:
    QObject *object() override { return this; }
    void onChildrenChanged(const Filter *) override { emit invalidated(); }
    void onChildInvalidated(const Filter *) override { emit invalidated(); }
};

} // namespace qqsfpm
