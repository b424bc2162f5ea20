// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVariant>
#include <QtNumeric>

namespace JsonAPI {

// A number of a document, the fallback for what is none. Texts convert too, and of them "nan" and "inf" must not reach
// geometry.
inline double finiteNumber(const QVariant &value, double fallback = 0.0)
{
    bool ok = false;
    const double number = value.toDouble(&ok);
    return ok && qIsFinite(number) ? number : fallback;
}

} // namespace JsonAPI
