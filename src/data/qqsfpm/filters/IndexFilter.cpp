// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/filters/IndexFilter.h"

#include "data/qqsfpm/QQmlSortFilterProxyModel.h"
#include "data/qqsfpm/Variants.h"

#include <boost/optional.hpp>
#include <cmath>

namespace qqsfpm {

namespace {

// None: no bound, since the value is undefined, null or no number.
boost::optional<double> boundRow(const QVariant &bound, int rowCount)
{
    bool isNumber = false;
    const double row = std::round(bound.toDouble(&isNumber));
    if (!isNumber || bound.isNull() || !std::isfinite(row))
        return boost::none;
    return row < 0 ? row + rowCount : row;
}

} // namespace

void IndexFilter::setMinimumIndex(const QVariant &minimumIndex)
{
    if (isSameVariant(m_minimumIndex, minimumIndex))
        return;
    m_minimumIndex = minimumIndex;
    emit minimumIndexChanged();
    invalidate();
}

void IndexFilter::setMaximumIndex(const QVariant &maximumIndex)
{
    if (isSameVariant(m_maximumIndex, maximumIndex))
        return;
    m_maximumIndex = maximumIndex;
    emit maximumIndexChanged();
    invalidate();
}

bool IndexFilter::filterRow(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const
{
    const auto *model = proxyModel.sourceModel();
    const int rowCount = model ? model->rowCount(sourceIndex.parent()) : 0;
    const auto minimum = boundRow(m_minimumIndex, rowCount);
    const auto maximum = boundRow(m_maximumIndex, rowCount);
    return (!minimum || sourceIndex.row() >= *minimum) && (!maximum || sourceIndex.row() <= *maximum);
}

} // namespace qqsfpm
