// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/sorters/StringSorter.h"

namespace qqsfpm {

void StringSorter::setCaseSensitivity(Qt::CaseSensitivity caseSensitivity)
{
    if (m_collator.caseSensitivity() == caseSensitivity)
        return;
    m_collator.setCaseSensitivity(caseSensitivity);
    emit caseSensitivityChanged();
    invalidate();
}

void StringSorter::setIgnorePunctation(bool ignorePunctation)
{
    if (m_collator.ignorePunctuation() == ignorePunctation)
        return;
    m_collator.setIgnorePunctuation(ignorePunctation);
    emit ignorePunctationChanged();
    invalidate();
}

void StringSorter::setLocale(const QLocale &locale)
{
    if (m_collator.locale() == locale)
        return;
    m_collator.setLocale(locale);
    emit localeChanged();
    invalidate();
}

void StringSorter::setNumericMode(bool numericMode)
{
    if (m_collator.numericMode() == numericMode)
        return;
    m_collator.setNumericMode(numericMode);
    emit numericModeChanged();
    invalidate();
}

int StringSorter::compare(const QModelIndex &left, const QModelIndex &right,
                          const QQmlSortFilterProxyModel &proxyModel) const
{
    const auto fetch = [&](const QModelIndex &index) { return sourceData(index, proxyModel).toString(); };
    int order = 0;
    if (m_texts.cover(left, right, proxyModel)) {
        m_texts.at(left, fetch);
        const QString &rightText = m_texts.at(right, fetch);
        order = m_collator.compare(m_texts.at(left, fetch), rightText);
    } else {
        order = m_collator.compare(fetch(left), fetch(right));
    }
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

void StringSorter::keepKeysFor(const QQmlSortFilterProxyModel *owner)
{
    m_texts.reset(owner);
}

void StringSorter::dropKeys()
{
    m_texts.dropAll();
}

void StringSorter::dropKeys(int firstRow, int lastRow)
{
    m_texts.drop(firstRow, lastRow);
}

} // namespace qqsfpm
