// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/filters/RangeFilter.h"

#include "data/qqsfpm/Variants.h"

namespace qqsfpm {

void RangeFilter::setMinimumValue(const QVariant &minimumValue)
{
    const QVariant plain = plainVariant(minimumValue);
    if (isSameVariant(m_minimumValue, plain))
        return;
    m_minimumValue = plain;
    emit minimumValueChanged();
    invalidate();
}

void RangeFilter::setMinimumInclusive(bool minimumInclusive)
{
    if (m_minimumInclusive == minimumInclusive)
        return;
    m_minimumInclusive = minimumInclusive;
    emit minimumInclusiveChanged();
    invalidate();
}

void RangeFilter::setMaximumValue(const QVariant &maximumValue)
{
    const QVariant plain = plainVariant(maximumValue);
    if (isSameVariant(m_maximumValue, plain))
        return;
    m_maximumValue = plain;
    emit maximumValueChanged();
    invalidate();
}

void RangeFilter::setMaximumInclusive(bool maximumInclusive)
{
    if (m_maximumInclusive == maximumInclusive)
        return;
    m_maximumInclusive = maximumInclusive;
    emit maximumInclusiveChanged();
    invalidate();
}

bool RangeFilter::filterRow(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const
{
    const QVariant value = plainVariant(sourceData(sourceIndex, proxyModel));
    if (m_minimumValue.isValid()) {
        const int order = compareVariants(value, m_minimumValue);
        if (order < 0 || (order == 0 && !m_minimumInclusive))
            return false;
    }
    if (m_maximumValue.isValid()) {
        const int order = compareVariants(value, m_maximumValue);
        if (order > 0 || (order == 0 && !m_maximumInclusive))
            return false;
    }
    return true;
}

} // namespace qqsfpm
