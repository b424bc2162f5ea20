// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/filters/FilterContainer.h"

namespace qqsfpm {

// Base of the filters that are made of other filters.
class FilterContainerFilter : public Filter, public FilterContainer
{
    Q_OBJECT
    Q_INTERFACES(qqsfpm::FilterContainer)
    Q_PROPERTY(QQmlListProperty<qqsfpm::Filter> filters READ filtersListProperty)
    Q_CLASSINFO("DefaultProperty", "filters")

public:
    using Filter::Filter;

    bool dependsOnPosition() const override { return filtersDependOnPosition(); }

private:
    QObject *object() override { return this; }
    void onChildrenChanged(const Filter *) override { invalidate(); }
    void onChildInvalidated(const Filter *) override { invalidate(); }
};

} // namespace qqsfpm
