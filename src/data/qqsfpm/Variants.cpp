// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/Variants.h"

#include <QJSValue>

namespace qqsfpm {

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED
int compareVariants(const QVariant &left, const QVariant &right)
{
    if (left < right)
        return -1;
    return right < left ? 1 : 0;
}
QT_WARNING_POP

QVariant plainVariant(const QVariant &value)
{
    return value.userType() == qMetaTypeId<QJSValue>() ? value.value<QJSValue>().toVariant() : value;
}

bool isSameVariant(const QVariant &left, const QVariant &right)
{
    return left.userType() == right.userType() && left == right;
}

} // namespace qqsfpm
