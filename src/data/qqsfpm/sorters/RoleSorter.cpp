// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/sorters/RoleSorter.h"

#include "data/qqsfpm/QQmlSortFilterProxyModel.h"
#include "data/qqsfpm/Variants.h"

namespace qqsfpm {

namespace {

// The text with each letter folded by itself, as the comparison without case does it (a whole text would be folded by
// other rules: there one letter may become two). False: it holds letters of two units, which don't compare by units.
bool foldText(QString &text)
{
    const int size = text.size();
    for (int i = 0; i < size; ++i) {
        const QChar letter = qAsConst(text).at(i);
        if (letter.isSurrogate())
            return false;
        const QChar folded = letter.toCaseFolded();
        if (folded != letter)
            text[i] = folded; // the text is copied only here
    }
    return true;
}

} // namespace

void RoleSorter::setRoleName(const QString &roleName)
{
    if (m_roleName == roleName)
        return;
    m_roleName = roleName;
    m_role.reset();
    dropKeys();
    emit roleNameChanged();
    invalidate();
}

int RoleSorter::compare(const QModelIndex &left, const QModelIndex &right,
                        const QQmlSortFilterProxyModel &proxyModel) const
{
    if (!m_keys.cover(left, right, proxyModel))
        return compareVariants(sourceData(left, proxyModel), sourceData(right, proxyModel));

    const auto fetch = [&](const QModelIndex &index) { return makeKey(sourceData(index, proxyModel)); };
    m_keys.at(left, fetch);
    const Key &rightKey = m_keys.at(right, fetch);
    return compareKeys(m_keys.at(left, fetch), rightKey);
}

void RoleSorter::keepKeysFor(const QQmlSortFilterProxyModel *owner)
{
    m_keys.reset(owner);
}

void RoleSorter::dropKeys()
{
    m_keys.dropAll();
}

void RoleSorter::dropKeys(int firstRow, int lastRow)
{
    m_keys.drop(firstRow, lastRow);
}

QVariant RoleSorter::sourceData(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const
{
    return proxyModel.sourceData(sourceIndex, m_role.find(proxyModel, m_roleName));
}

RoleSorter::Key RoleSorter::makeKey(const QVariant &value)
{
    Key key;
    key.value = plainVariant(value);
    if (key.value.userType() == QMetaType::QString) {
        key.text = key.value.toString();
        if (foldText(key.text))
            key.kind = Key::Kind::Text;
    } else if (key.value.userType() == QMetaType::Int) {
        key.number = key.value.toInt();
        key.kind = Key::Kind::Number;
    }
    return key;
}

int RoleSorter::compareKeys(const Key &left, const Key &right)
{
    if (left.kind == right.kind && left.kind == Key::Kind::Text) {
        const int order = QString::compare(left.text, right.text);
        return order < 0 ? -1 : order > 0 ? 1 : 0;
    }
    if (left.kind == right.kind && left.kind == Key::Kind::Number)
        return left.number < right.number ? -1 : left.number > right.number ? 1 : 0;
    return compareVariants(left.value, right.value);
}

} // namespace qqsfpm
