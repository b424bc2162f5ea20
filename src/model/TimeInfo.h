// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QMetaType>
#include <QString>
#include <QStringList>

namespace Model {

// The server's clock and how it is set.
struct TimeInfo
{
    QDateTime time;
    QString timezone; // an IANA name, such as "Europe/Moscow"
    bool ntp = false; // set by network time
    QStringList timezones; // the choices that the server offers; read only
};

bool operator==(const TimeInfo &left, const TimeInfo &right);

} // namespace Model

Q_DECLARE_METATYPE(Model::TimeInfo)
