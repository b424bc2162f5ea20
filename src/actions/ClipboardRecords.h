// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <QVariantMap>
#include <boost/optional.hpp>

// Records on the clipboard: indented JSON with the key "meta_info", by whose marker they are known.
namespace ClipboardRecords {

const QLatin1String blueprint("OndiraSmart blueprint data");
const QLatin1String schedule("OndiraSmart schedule data");
const QLatin1String schedulePoint("OndiraSmart schedule point data");

void put(QVariantMap record, QLatin1String marker);

// None when the clipboard's text does not hold the marker, wherever that be, or is larger than 16 MiB. A text with the
// marker that is no JSON object gives an empty record.
boost::optional<QVariantMap> take(QLatin1String marker);

} // namespace ClipboardRecords
