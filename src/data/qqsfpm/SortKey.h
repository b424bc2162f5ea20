// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVariant>
#include <array>

namespace qqsfpm {

// A value made ready for many comparisons, which give what comparing the values would give.
struct SortKey
{
    enum class Kind { Text, Number, Other };

    static SortKey make(const QVariant &value, Qt::CaseSensitivity caseSensitivity);

    // Whether compare() knows the order of both; else their values have to be compared by other means.
    static bool areComparable(const SortKey &left, const SortKey &right)
    {
        return left.kind == right.kind && left.kind != Kind::Other;
    }
    // Both made with that case sensitivity.
    static int compare(const SortKey &left, const SortKey &right, Qt::CaseSensitivity caseSensitivity)
    {
        if (left.kind == Kind::Number)
            return left.number < right.number ? -1 : left.number > right.number ? 1 : 0;
        for (std::size_t i = 0; i < left.head.size(); ++i) {
            if (left.head[i] != right.head[i])
                return left.head[i] < right.head[i] ? -1 : 1;
        }
        return compareTexts(left, right, caseSensitivity);
    }

    Kind kind = Kind::Other;
    int number = 0;
    // The first code units of the text, folded where case doesn't count; four in a number, the first one highest. They
    // settle most comparisons without a look at the text itself, which lies elsewhere in memory.
    std::array<quint64, 3> head{};
    QVariant value;

private:
    static int compareTexts(const SortKey &left, const SortKey &right, Qt::CaseSensitivity caseSensitivity);
    bool takeHead(const QString &text, Qt::CaseSensitivity caseSensitivity);
};

} // namespace qqsfpm
