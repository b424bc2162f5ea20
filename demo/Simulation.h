// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/DemoSite.h"

#include <QDateTime>
#include <QHash>
#include <QUuid>
#include <random>

namespace Demo {

// What happens on the site by itself: lamps in automatic mode follow daylight, sensors drift, meters count, a lamp
// fails now and then and recovers. Devices report when they are polled, each at its own interval. Time is given from
// outside, and equal seeds and times give equal states.
class Simulation
{
public:
    Simulation(DemoSite &site, quint32 seed);

    // Puts devices in automatic mode where they would be by now.
    void settle(const QDateTime &siteTime);
    void advance(qint64 milliseconds, const QDateTime &siteTime);

    static double daylight(const QTime &time); // 0 at night, 1 at one in the afternoon
    static int automaticPower(const SiteZone &zone, double daylight); // percent

private:
    // What the site does not report of a device.
    struct Track
    {
        qint64 lastPoll = 0;
        qint64 nextPoll = 0;
        qint64 recoversAt = 0; // of a failed lamp
        qint64 since = 0; // when a beacon changed
        double reference = 0; // what a value drifts around
        qint64 ran = 0; // milliseconds that a lamp was on since its run hours were told
    };

    struct Light // of one zone
    {
        double sum = 0;
        int count = 0;
    };

    using Behaviour = void (Simulation::*)(const SiteDevice &device, Track &track, QVariantMap &state);

    static Behaviour behaviourOf(const QString &commonType);
    Track &trackOf(const SiteDevice &device);
    void poll(const SiteDevice &device, Track &track);
    void failSomeLamp();
    void tellRunHours();
    void forgetRemoved();
    double zonePower(const QUuid &zone); // mean percent
    double partLoad(const QUuid &part); // watts
    void measureLight();

    void lamp(const SiteDevice &device, Track &track, QVariantMap &state);
    void lampGroup(const SiteDevice &device, Track &track, QVariantMap &state);
    void lightSensor(const SiteDevice &device, Track &track, QVariantMap &state);
    void temperatureSensor(const SiteDevice &device, Track &track, QVariantMap &state);
    void contactor(const SiteDevice &device, Track &track, QVariantMap &state);
    void meter(const SiteDevice &device, Track &track, QVariantMap &state);
    void contactSensor(const SiteDevice &device, Track &track, QVariantMap &state);
    void beacon(const SiteDevice &device, Track &track, QVariantMap &state);

    void followDaylight(const SiteDevice &device, QVariantMap &state, int step);
    void note(const QString &action);
    void drift(QVariantMap &state, const QString &key, int least, int most);
    double uniform(double least, double most);
    bool chance(double probability) { return uniform(0, 1) < probability; }

    DemoSite &m_site;
    std::mt19937 m_random; // its sequence is the same everywhere, unlike that of the standard distributions
    QHash<QUuid, Track> m_tracks;
    QHash<QUuid, Light> m_light; // by zone; empty when not measured since the last step
    QHash<QUuid, double> m_load; // by plan
    qint64 m_now = 0; // milliseconds since the start
    QDateTime m_siteTime;
    qint64 m_nextFailure;
    qint64 m_nextRunHours;
    double m_daylight = 0;
};

} // namespace Demo
