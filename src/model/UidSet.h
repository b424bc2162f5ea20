// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSet>
#include <QStringList>
#include <QUuid>
#include <QVariant>
#include <QVariantList>

namespace Model {

// A set of uids as a list of texts with braces. Sorted, so that equal sets make equal documents.
inline QVariant uidsToVariant(const QSet<QUuid> &uids)
{
    QStringList texts;
    texts.reserve(uids.size());
    for (const auto &uid : uids)
        texts.append(uid.toString());
    texts.sort();
    QVariantList list;
    list.reserve(texts.size());
    for (const auto &text : texts)
        list.append(text);
    return list;
}

inline QSet<QUuid> uidsFromVariant(const QVariant &variant)
{
    const auto list = variant.toList();
    QSet<QUuid> uids;
    uids.reserve(list.size());
    for (const auto &item : list)
        uids.insert(item.toUuid());
    return uids;
}

} // namespace Model
