// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVariant>
#include <QtNumeric>

namespace JsonAPI {

// A number of a document, 0 for what is none. Texts convert too, and of them "nan" and "inf" must not reach geometry.
inline double finiteNumber(const QVariant &value)
{
    const double number = value.toDouble();
    return qIsFinite(number) ? number : 0.0;
}

} // namespace JsonAPI
