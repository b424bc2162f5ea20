// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/SortKey.h"

#include "data/qqsfpm/Variants.h"

namespace qqsfpm {

namespace {

ushort folded(ushort unit)
{
    if (unit < 0x80)
        return unit >= 'A' && unit <= 'Z' ? ushort(unit + ('a' - 'A')) : unit;
    return QChar(unit).toCaseFolded().unicode();
}

} // namespace

SortKey SortKey::make(const QVariant &value, Qt::CaseSensitivity caseSensitivity)
{
    SortKey key;
    key.value = plainVariant(value);
    if (key.value.userType() == QMetaType::QString) {
        if (key.takeHead(key.value.toString(), caseSensitivity))
            key.kind = Kind::Text;
    } else if (key.value.userType() == QMetaType::Int) {
        key.number = key.value.toInt();
        key.kind = Kind::Number;
    }
    return key;
}

int SortKey::compareTexts(const SortKey &left, const SortKey &right, Qt::CaseSensitivity caseSensitivity)
{
    const int order = left.value.toString().compare(right.value.toString(), caseSensitivity);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

bool SortKey::takeHead(const QString &text, Qt::CaseSensitivity caseSensitivity)
{
    const int size = qMin(text.size(), int(head.size()) * 4);
    for (int i = 0; i < size; ++i) {
        const QChar letter = text.at(i);
        if (caseSensitivity == Qt::CaseInsensitive && letter.isSurrogate())
            return false; // a letter of two units is folded as a whole
        const ushort unit = caseSensitivity == Qt::CaseSensitive ? letter.unicode() : folded(letter.unicode());
        head[std::size_t(i) / 4] |= quint64(unit) << (48 - i % 4 * 16);
    }
    return true;
}

} // namespace qqsfpm
