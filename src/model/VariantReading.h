// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMetaType>
#include <QString>
#include <QVariant>
#include <QtGlobal>
#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

// Numbers and texts out of variants that came from outside: what is none gives the fallback, and a double beyond the
// range of the integer gives its end, since converting such a double is undefined.
namespace Model {

template <typename Conversion>
long long saturatedBy(Conversion conversion, double value)
{
    // 2^63 itself has no place in 64 bits; -2^63 has.
    constexpr double end = 9223372036854775808.0;
    if (std::isnan(value))
        return 0;
    if (value >= end)
        return std::numeric_limits<long long>::max();
    if (value <= -end)
        return std::numeric_limits<long long>::min();
    return conversion(value);
}

// Truncates toward zero.
inline long long saturated(double value)
{
    return saturatedBy([](double inRange) { return static_cast<long long>(inRange); }, value);
}

// A double is rounded as QVariant does: a half goes up, also below zero.
inline long long integerFrom(const QVariant &value, long long fallback = 0)
{
    if (value.userType() == QMetaType::Double || value.userType() == QMetaType::Float) {
        const double number = value.toDouble();
        return std::isnan(number) ? fallback : saturatedBy([](double inRange) { return qRound64(inRange); }, number);
    }
    bool ok = false;
    const long long number = value.toLongLong(&ok);
    return ok ? number : fallback;
}

inline int intFrom(const QVariant &value, int fallback = 0)
{
    constexpr long long least = std::numeric_limits<int>::min();
    constexpr long long largest = std::numeric_limits<int>::max();
    return static_cast<int>(qBound(least, integerFrom(value, fallback), largest));
}

// Of an unsigned type: what lies beyond its range gives its nearer end.
template <typename Unsigned>
Unsigned unsignedFrom(const QVariant &value, Unsigned fallback = 0)
{
    static_assert(std::is_unsigned<Unsigned>::value, "for unsigned types");
    constexpr auto largest = static_cast<qulonglong>(std::numeric_limits<Unsigned>::max());
    if (value.userType() == QMetaType::ULongLong)
        return static_cast<Unsigned>(std::min(value.toULongLong(), largest));
    const auto number = integerFrom(value, static_cast<long long>(fallback));
    return number < 0 ? 0 : static_cast<Unsigned>(std::min(static_cast<qulonglong>(number), largest));
}

inline double doubleFrom(const QVariant &value, double fallback = 0.0)
{
    bool ok = false;
    const double number = value.toDouble(&ok);
    return ok ? number : fallback;
}

inline QString textFrom(const QVariant &value, const QString &fallback)
{
    const bool isText = value.isValid() && value.userType() != QMetaType::Nullptr && value.canConvert<QString>();
    return isText ? value.toString() : fallback;
}

} // namespace Model
