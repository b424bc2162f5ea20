// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/sorters/StringSorter.h"

namespace qqsfpm {

void StringSorter::setCaseSensitivity(Qt::CaseSensitivity caseSensitivity)
{
    if (m_collator.caseSensitivity() == caseSensitivity)
        return;
    m_collator.setCaseSensitivity(caseSensitivity);
    dropKeys();
    emit caseSensitivityChanged();
    invalidate();
}

void StringSorter::setIgnorePunctation(bool ignorePunctation)
{
    if (m_collator.ignorePunctuation() == ignorePunctation)
        return;
    m_collator.setIgnorePunctuation(ignorePunctation);
    dropKeys();
    emit ignorePunctationChanged();
    invalidate();
}

void StringSorter::setLocale(const QLocale &locale)
{
    if (m_collator.locale() == locale)
        return;
    m_collator.setLocale(locale);
    dropKeys();
    emit localeChanged();
    invalidate();
}

void StringSorter::setNumericMode(bool numericMode)
{
    if (m_collator.numericMode() == numericMode)
        return;
    m_collator.setNumericMode(numericMode);
    dropKeys();
    emit numericModeChanged();
    invalidate();
}

int StringSorter::compare(const QModelIndex &left, const QModelIndex &right,
                          const QQmlSortFilterProxyModel &proxyModel) const
{
    const auto fetch = [&](const QModelIndex &index) { return makeKey(sourceData(index, proxyModel).toString()); };
    if (!m_keys.cover(left, right, proxyModel))
        return compareKeys(fetch(left), fetch(right));
    const Key *leftKey = m_keys.find(left);
    const Key *rightKey = m_keys.find(right);
    if (!leftKey || !rightKey) {
        m_keys.at(left, fetch);
        rightKey = &m_keys.at(right, fetch);
        leftKey = &m_keys.at(left, fetch);
    }
    return compareKeys(*leftKey, *rightKey);
}

void StringSorter::keepKeysFor(const QQmlSortFilterProxyModel *owner)
{
    m_keys.reset(owner);
}

void StringSorter::dropKeys()
{
    m_keys.dropAll();
}

void StringSorter::dropKeys(int firstRow, int lastRow)
{
    m_keys.drop(firstRow, lastRow);
}

StringSorter::Key StringSorter::makeKey(const QString &text) const
{
    Key key;
    // There the keys of Qt order otherwise than its comparison: in the locale "C" they know nothing of case and
    // numbers, and with punctuation ignored they make equal what the comparison doesn't.
    if (m_collator.locale().language() == QLocale::C || m_collator.ignorePunctuation())
        key.text = text;
    else
        key.sortKey = m_collator.sortKey(text);
    return key;
}

int StringSorter::compareKeys(const Key &left, const Key &right) const
{
    const int order = left.sortKey && right.sortKey ? left.sortKey->compare(*right.sortKey)
                                                    : m_collator.compare(left.text, right.text);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

} // namespace qqsfpm
