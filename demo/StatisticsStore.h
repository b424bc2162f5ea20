// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/DemoSite.h"
#include "model/Statistics.h"

#include <QDateTime>
#include <QHash>
#include <QStringList>
#include <QTimeZone>
#include <QUuid>
#include <vector>

namespace Demo {

// A year of statistics of the site, made by formula: what a row tells depends on the site, the seed and the time of
// the row alone. Nothing is kept; made for one request.
class StatisticsStore
{
public:
    enum class Grain { Minute, Hour };

    static constexpr qint64 mostRows = 600000; // of one reply
    static constexpr int days = 365;

    // One series that the site keeps of a device or a zone.
    struct Series
    {
        QUuid uid;
        QString type; // the statistics interface
        QStringList schema;
    };

    StatisticsStore(const DemoSite &site, quint32 seed, const QDateTime &now, const QByteArray &timezone);

    QDateTime start() const; // of the first row of a minute
    QDateTime end() const; // of the last one

    bool isKnown(const QUuid &uid) const; // a device or a zone
    // An empty list of types, or an empty type, means all. What the site does not keep is left out.
    std::vector<Series> series(const QUuid &uid, const QStringList &types) const;
    qint64 seriesCount() const; // of the whole site

    // Times of rows are those of whole minutes or hours; both ends belong to the range. Of hours a row tells the mean
    // of the hour that begins there, so that the current one has none.
    qint64 rowCount(const QDateTime &from, const QDateTime &to, Grain grain) const;
    std::vector<Model::Statistics::Item> rows(const Series &series, const QDateTime &from, const QDateTime &to,
                                              Grain grain);

    // How long the device was on, as far as the statistics tell.
    double runHours(const SiteDevice &device, const QDateTime &from, const QDateTime &to) const;

private:
    struct Range
    {
        qint64 first; // in grains since the epoch
        qint64 count;
    };

    using Values = std::vector<double>;

    Range rangeOf(const QDateTime &from, const QDateTime &to, Grain grain) const;
    int minuteOfDay(qint64 minute) const;
    qint64 day(qint64 minute) const;
    double chance(quint64 key, qint64 index) const; // 0 to 1, always the same
    double wave(quint64 key, qint64 minute, int period) const; // -1 to 1, without jumps

    Values valuesAt(const Series &series, qint64 minute);
    double lightPower(const SiteZone &zone, qint64 minute) const;
    double lampPower(const SiteDevice &device, qint64 minute) const;
    Values meterValues(const SiteDevice &device, qint64 minute);
    const Values &energyOf(const QUuid &part); // kilowatt-hours from midnight to each minute of a day, and to its end

    const DemoSite &m_site;
    quint32 m_seed;
    qint64 m_now; // in minutes since the epoch
    qint64 m_start;
    qint64 m_offset; // minutes ahead of UTC; the sun knows no summer time
    QHash<QUuid, Values> m_energy; // by plan
};

} // namespace Demo
