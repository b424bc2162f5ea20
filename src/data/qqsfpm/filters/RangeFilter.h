// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/filters/RoleFilter.h"

namespace qqsfpm {

// Passes rows whose role lies between two values in the order of QVariant; an undefined bound is none.
class RangeFilter : public RoleFilter
{
    Q_OBJECT
    Q_PROPERTY(QVariant minimumValue READ minimumValue WRITE setMinimumValue NOTIFY minimumValueChanged)
    Q_PROPERTY(bool minimumInclusive READ minimumInclusive WRITE setMinimumInclusive NOTIFY minimumInclusiveChanged)
    Q_PROPERTY(QVariant maximumValue READ maximumValue WRITE setMaximumValue NOTIFY maximumValueChanged)
    Q_PROPERTY(bool maximumInclusive READ maximumInclusive WRITE setMaximumInclusive NOTIFY maximumInclusiveChanged)

public:
    using RoleFilter::RoleFilter;

    const QVariant &minimumValue() const { return m_minimumValue; }
    void setMinimumValue(const QVariant &minimumValue);

    bool minimumInclusive() const { return m_minimumInclusive; }
    void setMinimumInclusive(bool minimumInclusive);

    const QVariant &maximumValue() const { return m_maximumValue; }
    void setMaximumValue(const QVariant &maximumValue);

    bool maximumInclusive() const { return m_maximumInclusive; }
    void setMaximumInclusive(bool maximumInclusive);

    bool filterRow(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const override;

signals:
    void minimumValueChanged();
    void minimumInclusiveChanged();
    void maximumValueChanged();
    void maximumInclusiveChanged();

private:
    QVariant m_minimumValue;
    bool m_minimumInclusive = true;
    QVariant m_maximumValue;
    bool m_maximumInclusive = true;
};

} // namespace qqsfpm
