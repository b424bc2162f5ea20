// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUuid>

// Parts of the texts by which proxies order rows.
namespace SortKeys {

// Makes rows of equal names keep one order: the hash of a uid with the seed 0, eight hexadecimal digits.
inline QString hash(const QUuid &uid)
{
    return QString::number(qHash(uid, 0), 16).rightJustified(8, '0');
}

} // namespace SortKeys
