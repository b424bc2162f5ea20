// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/filters/Filter.h"

namespace qqsfpm {

Filter::Filter(QObject *parent)
    : QObject(parent)
{}

void Filter::setEnabled(bool enabled)
{
    if (m_enabled == enabled)
        return;
    m_enabled = enabled;
    emit enabledChanged();
    emit invalidated();
}

void Filter::setInverted(bool inverted)
{
    if (m_inverted == inverted)
        return;
    m_inverted = inverted;
    emit invertedChanged();
    invalidate();
}

bool Filter::filterAcceptsRow(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const
{
    return !m_enabled || filterRow(sourceIndex, proxyModel) != m_inverted;
}

void Filter::invalidate()
{
    if (m_enabled)
        emit invalidated();
}

} // namespace qqsfpm
