// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVariant>

namespace qqsfpm {

// The comparison of QVariant as an order: -1, 0 or 1. It is asked both ways, since for texts that differ in case alone
// Qt finds neither less than the other, yet each greater than the other.
int compareVariants(const QVariant &left, const QVariant &right);

// Scripts hand over arrays and objects as QJSValue, which equals nothing: such a value is taken out of its wrapping.
QVariant plainVariant(const QVariant &value);

// Same type and equal: a property that goes from 1 to "1" has changed, although QVariant finds both equal.
bool isSameVariant(const QVariant &left, const QVariant &right);

} // namespace qqsfpm
