// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/IsoTime.h"

namespace JsonAPI {

namespace {

constexpr int localLength = 19; // of "yyyy-MM-ddTHH:mm:ss"
constexpr int none = -1;

int digits(const QChar *begin, int count)
{
    int number = 0;
    for (int i = 0; i < count; ++i) {
        const ushort digit = begin[i].unicode() - ushort('0');
        if (digit > 9)
            return none;
        number = number * 10 + digit;
    }
    return number;
}

} // namespace

QDateTime isoTime(const QString &text)
{
    const QChar *at = text.constData();
    const bool isLocal = text.size() == localLength;
    const bool isUtc = text.size() == localLength + 1 && at[localLength] == 'Z';
    if ((isLocal || isUtc) && at[4] == '-' && at[7] == '-' && at[10] == 'T' && at[13] == ':' && at[16] == ':') {
        const QDate date(digits(at, 4), digits(at + 5, 2), digits(at + 8, 2));
        const QTime time(digits(at + 11, 2), digits(at + 14, 2), digits(at + 17, 2));
        if (date.isValid() && date.year() > 0 && time.isValid())
            return QDateTime(date, time, isLocal ? Qt::LocalTime : Qt::UTC);
    }
    return QDateTime::fromString(text, Qt::ISODate);
}

} // namespace JsonAPI
