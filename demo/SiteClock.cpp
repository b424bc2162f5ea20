// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/SiteClock.h"

#include <QTimeZone>

namespace Demo {

SiteClock::SiteClock(const QString &timezone, const Source &source)
    : m_source(source)
{
    setTimezone(timezone);
}

void SiteClock::setTimezone(const QString &timezone)
{
    m_timezone = isKnownTimezone(timezone) ? timezone.toUtf8() : QByteArray("UTC");
}

bool SiteClock::isKnownTimezone(const QString &timezone)
{
    return QTimeZone::isTimeZoneIdAvailable(timezone.toUtf8());
}

QDateTime SiteClock::atSite(const QDateTime &utc) const
{
    // With a plain offset, so that the ISO form tells it.
    return utc.toOffsetFromUtc(QTimeZone(m_timezone).offsetFromUtc(utc));
}

QDateTime SiteClock::now() const
{
    return atSite(m_source().toUTC().addMSecs(m_offset));
}

Model::TimeInfo SiteClock::info() const
{
    Model::TimeInfo info;
    info.time = now();
    info.timezone = QString::fromUtf8(m_timezone);
    info.ntp = m_ntp;
    const auto timezones = QTimeZone::availableTimeZoneIds();
    for (const auto &timezone : timezones)
        info.timezones << QString::fromUtf8(timezone);
    return info;
}

void SiteClock::set(const Model::TimeInfo &info)
{
    m_timezone = info.timezone.toUtf8();
    m_ntp = info.ntp;
    auto time = info.time;
    if (time.timeSpec() == Qt::LocalTime)
        time = QDateTime(time.date(), time.time(), QTimeZone(m_timezone));
    m_offset = m_ntp ? 0 : m_source().msecsTo(time);
}

} // namespace Demo
