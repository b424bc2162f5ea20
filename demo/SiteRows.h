// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/SiteData.h"

#include <QSet>
#include <algorithm>

// What the site does with each of its lists of records: finds, puts and removes by uid.
namespace Demo {

inline const QUuid &uidOf(const Model::ShopPart &part)
{
    return part.uid;
}
inline const QUuid &uidOf(const SiteZone &zone)
{
    return zone.zone.uid;
}
inline const QUuid &uidOf(const SiteDevice &device)
{
    return device.descriptor.uid;
}
inline const QUuid &uidOf(const SiteButton &button)
{
    return button.button.uid;
}
inline const QUuid &uidOf(const SiteIndicator &indicator)
{
    return indicator.indicator.uid;
}
inline const QUuid &uidOf(const SiteImage &image)
{
    return image.item.uid;
}
inline const QUuid &uidOf(const Model::View3DItem &item)
{
    return item.uid;
}
inline const QUuid &uidOf(const SiteBlueprint &blueprint)
{
    return blueprint.blueprint.uid;
}
inline const QUuid &uidOf(const Model::ScheduleDay &day)
{
    return day.uid;
}

template <typename Record>
QHash<QUuid, int> rowsByUid(const std::vector<Record> &records)
{
    QHash<QUuid, int> rows;
    rows.reserve(static_cast<int>(records.size()));
    for (size_t row = 0; row < records.size(); ++row)
        rows.insert(uidOf(records[row]), static_cast<int>(row));
    return rows;
}

template <typename Record>
const Record *find(const std::vector<Record> &records, const QHash<QUuid, int> &rows, const QUuid &uid)
{
    const int row = rows.value(uid, -1);
    return row < 0 ? nullptr : &records[static_cast<size_t>(row)];
}

// The record of that uid, made at the end when there is none yet.
template <typename Record>
Record &findOrAdd(std::vector<Record> &records, QHash<QUuid, int> &rows, const QUuid &uid)
{
    const int row = rows.value(uid, -1);
    if (row >= 0)
        return records[static_cast<size_t>(row)];
    rows.insert(uid, static_cast<int>(records.size()));
    records.emplace_back();
    return records.back();
}

// The uids that were there, in the order of the list.
template <typename Record>
QStringList removeFrom(std::vector<Record> &records, const QSet<QUuid> &uids)
{
    QStringList removed;
    for (const auto &record : records) {
        if (uids.contains(uidOf(record)))
            removed << uidOf(record).toString();
    }
    records.erase(std::remove_if(records.begin(), records.end(),
                                 [&uids](const auto &record) { return uids.contains(uidOf(record)); }),
                  records.end());
    return removed;
}

} // namespace Demo
