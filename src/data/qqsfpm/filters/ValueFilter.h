// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/filters/RoleFilter.h"

namespace qqsfpm {

// Passes rows whose role equals a value; as long as the value is undefined, every row.
class ValueFilter : public RoleFilter
{
    Q_OBJECT
    Q_PROPERTY(QVariant value READ value WRITE setValue NOTIFY valueChanged)

public:
    using RoleFilter::RoleFilter;

    const QVariant &value() const { return m_value; }
    void setValue(const QVariant &value);

    bool filterRow(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const override;

signals:
    void valueChanged();

private:
    QVariant m_value;
};

} // namespace qqsfpm
