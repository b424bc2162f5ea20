// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <QVariant>

namespace JsonAPI {

// A time of a document: what QDateTime makes of the text in the form of Qt::ISODate, invalid for what is none. The two
// forms that series come in, "2024-05-01T12:00:30" and the same with a "Z", are read without its general reader.
QDateTime isoTime(const QString &text);

inline QDateTime isoTime(const QVariant &value)
{
    return isoTime(value.toString());
}

} // namespace JsonAPI
