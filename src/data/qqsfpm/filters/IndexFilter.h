// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/filters/Filter.h"

#include <QVariant>

namespace qqsfpm {

// Passes source rows between two row numbers, both included. A negative bound counts from the end.
class IndexFilter : public Filter
{
    Q_OBJECT
    Q_PROPERTY(QVariant minimumIndex READ minimumIndex WRITE setMinimumIndex NOTIFY minimumIndexChanged)
    Q_PROPERTY(QVariant maximumIndex READ maximumIndex WRITE setMaximumIndex NOTIFY maximumIndexChanged)

public:
    using Filter::Filter;

    const QVariant &minimumIndex() const { return m_minimumIndex; }
    void setMinimumIndex(const QVariant &minimumIndex);

    const QVariant &maximumIndex() const { return m_maximumIndex; }
    void setMaximumIndex(const QVariant &maximumIndex);

    bool filterRow(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const override;
    bool dependsOnPosition() const override { return true; }

signals:
    void minimumIndexChanged();
    void maximumIndexChanged();

private:
    QVariant m_minimumIndex;
    QVariant m_maximumIndex;
};

} // namespace qqsfpm
