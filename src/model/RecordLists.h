// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVariant>
#include <QVariantList>
#include <algorithm>
#include <iterator>
#include <vector>

// Lists of records that have a map form of their own.
namespace Model {

template <typename Record>
QVariantList recordsToVariant(const std::vector<Record> &records)
{
    QVariantList list;
    list.reserve(static_cast<int>(records.size()));
    for (const auto &record : records)
        list.append(record.toVariant());
    return list;
}

// One record for each element, whatever it is. Takes any sequence; what is none gives no records.
template <typename Record>
std::vector<Record> recordsFromVariant(const QVariant &variant)
{
    const auto list = variant.value<QVariantList>();
    std::vector<Record> records;
    records.reserve(static_cast<std::size_t>(list.size()));
    std::transform(list.begin(), list.end(), std::back_inserter(records), Record::fromVariant);
    return records;
}

// The first record of that name, or null.
template <typename Records>
auto *findNamed(Records &records, const QString &name)
{
    const auto found =
        std::find_if(records.begin(), records.end(), [&](const auto &record) { return record.name == name; });
    return found == records.end() ? nullptr : &*found;
}

} // namespace Model
