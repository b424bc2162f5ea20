// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/filters/ValueFilter.h"

#include "data/qqsfpm/Variants.h"

namespace qqsfpm {

void ValueFilter::setValue(const QVariant &value)
{
    const QVariant plain = plainVariant(value);
    if (isSameVariant(m_value, plain))
        return;
    m_value = plain;
    emit valueChanged();
    invalidate();
}

bool ValueFilter::filterRow(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const
{
    return !m_value.isValid() || m_value == plainVariant(sourceData(sourceIndex, proxyModel));
}

} // namespace qqsfpm
