// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/TimeInfo.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <functional>

namespace Demo {

// The site's clock and time zone. It can be set like the clock of a real server; the machine's own clock stays as
// it is. Tests give it a source of time of their own.
class SiteClock
{
public:
    using Source = std::function<QDateTime()>; // the true time, in UTC

    explicit SiteClock(const QString &timezone, const Source &source = &QDateTime::currentDateTimeUtc);

    QDateTime now() const; // local time of the site, with its offset from UTC
    Model::TimeInfo info() const;

    void setTimezone(const QString &timezone); // UTC for an unknown one
    static bool isKnownTimezone(const QString &timezone);

    // A time without an offset is local time of the given zone. With network time the clock shows the true time.
    void set(const Model::TimeInfo &info);

private:
    QDateTime atSite(const QDateTime &utc) const;

    Source m_source;
    QByteArray m_timezone;
    qint64 m_offset = 0; // milliseconds ahead of the true time
    bool m_ntp = true;
};

} // namespace Demo
