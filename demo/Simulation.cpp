// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/Simulation.h"

#include <algorithm>
#include <cmath>

namespace Demo {

namespace {

constexpr qint64 second = 1000;
constexpr qint64 minute = 60 * second;
constexpr qint64 pollDefault = 10 * second;
constexpr qint64 failureEvery = 3 * minute; // of a site of typical size
constexpr qint64 runHoursEvery = 6 * minute; // a tenth of an hour
constexpr int typicalSize = 150; // devices
constexpr double lampWatts = 60;
constexpr int outdoorSwing = 50; // zones that daylight moves by more are under the sky
constexpr double pi = 3.14159265358979323846;

QString powerKey()
{
    return QStringLiteral("power");
}
QString errorsKey()
{
    return QStringLiteral("errors");
}
QString signalKey()
{
    return QStringLiteral("rssidBm");
}

double rounded(double value, double step)
{
    return std::round(value / step) * step;
}

// Three digits, without the tail that binary fractions leave.
double tidy(double value)
{
    return std::round(value * 1000) / 1000;
}

bool isLamp(const QString &commonType)
{
    return commonType == "lamp" || commonType == "polling_lamp";
}

qint64 pollInterval(const SiteDevice &device)
{
    const auto interval = device.descriptor.data.value("pollingInterval").toLongLong();
    return interval > 0 ? std::max(interval, second) : pollDefault;
}

bool isAutomatic(const SiteDevice &device)
{
    return device.mode == Model::DeviceMode::Mode::Automatic;
}

} // namespace

Simulation::Simulation(DemoSite &site, quint32 seed)
    : m_site(site)
    , m_random(seed)
    , m_nextFailure(failureEvery)
    , m_nextRunHours(runHoursEvery)
{}

double Simulation::uniform(double least, double most)
{
    constexpr double range = 4294967296.0;
    return least + (most - least) * (m_random() / range);
}

double Simulation::daylight(const QTime &time)
{
    constexpr double sunrise = 6;
    constexpr double sunset = 20;
    const double hour = time.msecsSinceStartOfDay() / 3600000.0;
    if (hour <= sunrise || hour >= sunset)
        return 0;
    return std::sin(pi * (hour - sunrise) / (sunset - sunrise));
}

int Simulation::automaticPower(const SiteZone &zone, double daylight)
{
    return qBound(0, static_cast<int>(std::lround(zone.level + zone.swing * (0.5 - daylight))), 100);
}

Simulation::Behaviour Simulation::behaviourOf(const QString &commonType)
{
    static const QHash<QString, Behaviour> behaviours{
        {"lamp", &Simulation::lamp},
        {"polling_lamp", &Simulation::lamp},
        {"lamp_group", &Simulation::lampGroup},
        {"polling_light_sensor", &Simulation::lightSensor},
        {"polling_temp_sensor", &Simulation::temperatureSensor},
        {"polling_contactor", &Simulation::contactor},
        {"polling_rs_electric_meter", &Simulation::meter},
        {"sensor_contact", &Simulation::contactSensor},
        {"beacon", &Simulation::beacon},
    };
    return behaviours.value(commonType, nullptr);
}

void Simulation::settle(const QDateTime &siteTime)
{
    m_daylight = daylight(siteTime.time());
    for (const auto &device : m_site.data().devices) {
        if (!isAutomatic(device) || !m_site.hasPower(device))
            continue;
        auto state = device.state;
        followDaylight(device, state, 100);
        m_site.setState(device.descriptor.uid, state);
    }
}

void Simulation::advance(qint64 milliseconds, const QDateTime &siteTime)
{
    m_now += std::max<qint64>(milliseconds, 0);
    m_siteTime = siteTime;
    m_daylight = daylight(siteTime.time());
    m_light.clear();
    m_load.clear();
    if (m_now >= m_nextFailure)
        failSomeLamp();
    // By position: a state changes in place, the list itself does not.
    for (size_t row = 0; row < m_site.data().devices.size(); ++row) {
        const auto &device = m_site.data().devices[row];
        auto &track = trackOf(device);
        if (track.nextPoll <= m_now)
            poll(device, track);
    }
    if (m_now >= m_nextRunHours)
        tellRunHours();
    if (m_tracks.size() > static_cast<int>(m_site.data().devices.size()))
        forgetRemoved();
}

void Simulation::forgetRemoved()
{
    for (auto it = m_tracks.begin(); it != m_tracks.end();) {
        if (m_site.device(it.key()))
            ++it;
        else
            it = m_tracks.erase(it);
    }
}

// Polls are spread over the interval, so that not all answers come at once.
Simulation::Track &Simulation::trackOf(const SiteDevice &device)
{
    const auto known = m_tracks.find(device.descriptor.uid);
    if (known != m_tracks.end())
        return *known;
    Track track;
    track.lastPoll = m_now;
    track.nextPoll = m_now + static_cast<qint64>(uniform(0, double(pollInterval(device))));
    track.since = m_now;
    track.reference = device.state.value("temperature").toDouble();
    if (device.state.value(errorsKey()).toInt() > 0)
        track.recoversAt = m_now + 15 * minute; // the site is delivered with a lamp that fails
    return *m_tracks.insert(device.descriptor.uid, track);
}

void Simulation::poll(const SiteDevice &device, Track &track)
{
    const auto *type = m_site.deviceType(device.descriptor.url);
    const auto behaviour = type ? behaviourOf(type->info.commonType) : nullptr;
    if (behaviour) {
        if (isLamp(type->info.commonType) && device.state.value(powerKey()).toInt() > 0)
            track.ran += m_now - track.lastPoll;
        auto state = device.state;
        (this->*behaviour)(device, track, state);
        m_site.setState(device.descriptor.uid, state);
    }
    const auto interval = pollInterval(device);
    track.lastPoll = m_now;
    track.nextPoll += (m_now - track.nextPoll) / interval * interval + interval;
}

void Simulation::failSomeLamp()
{
    QVector<QUuid> lamps;
    for (const auto &device : m_site.data().devices) {
        const auto *type = m_site.deviceType(device.descriptor.url);
        if (type && isLamp(type->info.commonType))
            lamps << device.descriptor.uid;
    }
    const auto size = std::max<qint64>(static_cast<qint64>(m_site.data().devices.size()), 1);
    m_nextFailure = m_now + std::max(failureEvery * typicalSize / size, second);
    if (lamps.isEmpty())
        return;
    const auto chosen = std::min(static_cast<int>(uniform(0, lamps.size())), lamps.size() - 1);
    const auto *device = m_site.device(lamps.at(chosen));
    trackOf(*device).recoversAt = m_now + static_cast<qint64>(uniform(2 * minute, 6 * minute));
}

// All at once, so that one publication tells them. Hours that were set in between count from then on.
void Simulation::tellRunHours()
{
    m_nextRunHours = m_now + runHoursEvery;
    for (const auto &device : m_site.data().devices) {
        auto &track = trackOf(device);
        if (track.ran <= 0)
            continue;
        auto info = m_site.data().powerOn.value(device.descriptor.uid);
        const auto since = info.lastUpdate.isValid() ? info.lastUpdate.msecsTo(m_siteTime) : track.ran;
        info.uid = device.descriptor.uid;
        info.powerOnHours += double(since < 0 ? track.ran : std::min(track.ran, since)) / (60 * minute);
        info.lastUpdate = m_siteTime;
        track.ran = 0;
        m_site.put(info);
    }
}

void Simulation::note(const QString &action)
{
    m_site.note({m_siteTime, Model::LogEntry::Cause::System, {}, action});
}

void Simulation::followDaylight(const SiteDevice &device, QVariantMap &state, int step)
{
    const auto *zone = m_site.zone(device.descriptor.zoneUid);
    if (!zone || !isAutomatic(device))
        return;
    const int power = state.value(powerKey()).toInt();
    const int target = automaticPower(*zone, m_daylight);
    state.insert(powerKey(), power + qBound(-step, target - power, step));
}

void Simulation::drift(QVariantMap &state, const QString &key, int least, int most)
{
    const int change = static_cast<int>(std::floor(uniform(-1, 2))); // -1, 0 or 1
    state.insert(key, qBound(least, state.value(key).toInt() + change, most));
}

void Simulation::lamp(const SiteDevice &device, Track &track, QVariantMap &state)
{
    const bool answered = state.value(errorsKey()).toInt() == 0;
    if (m_now < track.recoversAt) {
        if (answered)
            note(JournalTexts::noAnswer(device.title(m_site.deviceType(device.descriptor.url))));
        state.insert(errorsKey(), state.value(errorsKey()).toInt() + 1); // no answer, so nothing else is known
        return;
    }
    if (!answered)
        note(JournalTexts::answersAgain(device.title(m_site.deviceType(device.descriptor.url))));
    state.insert(errorsKey(), 0);
    drift(state, signalKey(), -95, -40);
    followDaylight(device, state, 3);
}

void Simulation::lampGroup(const SiteDevice &device, Track &, QVariantMap &state)
{
    followDaylight(device, state, 3);
}

void Simulation::measureLight()
{
    for (const auto &device : m_site.data().devices) {
        const auto *type = m_site.deviceType(device.descriptor.url);
        if (!type || !isLamp(type->info.commonType))
            continue;
        auto &light = m_light[device.descriptor.zoneUid];
        light.sum += device.state.value(powerKey()).toInt();
        ++light.count;
    }
    for (const auto &zone : m_site.data().zones)
        m_load[zone.zone.partUid] += m_light[zone.zone.uid].sum / 100 * lampWatts; // an entry for every zone
}

double Simulation::zonePower(const QUuid &zone)
{
    if (m_light.isEmpty())
        measureLight();
    const auto light = m_light.value(zone);
    return light.count > 0 ? light.sum / light.count : 0;
}

double Simulation::partLoad(const QUuid &part)
{
    if (m_light.isEmpty())
        measureLight();
    return m_load.value(part);
}

void Simulation::lightSensor(const SiteDevice &device, Track &, QVariantMap &state)
{
    const auto *zone = m_site.zone(device.descriptor.zoneUid);
    const bool outdoor = zone && zone->swing > outdoorSwing;
    const double sky = m_daylight * (outdoor ? 12000 : 150);
    const double lamps = zonePower(device.descriptor.zoneUid) * (outdoor ? 0.4 : 4);
    state.insert(QStringLiteral("brightness"), tidy(rounded((sky + lamps) * uniform(0.97, 1.03) + 2, 0.1)));
    state.insert(errorsKey(), 0);
    drift(state, signalKey(), -95, -40);
}

void Simulation::temperatureSensor(const SiteDevice &, Track &track, QVariantMap &state)
{
    const auto key = QStringLiteral("temperature");
    const double value = state.value(key).toDouble();
    const double pull = 0.1 * (track.reference + m_daylight - value);
    state.insert(key, tidy(rounded(value + pull + uniform(-0.3, 0.3), 0.1)));
    state.insert(errorsKey(), 0);
    drift(state, signalKey(), -95, -40);
}

void Simulation::contactor(const SiteDevice &device, Track &, QVariantMap &state)
{
    const auto *zone = m_site.zone(device.descriptor.zoneUid);
    if (zone && isAutomatic(device))
        state.insert(powerKey(), automaticPower(*zone, m_daylight) >= 50 ? 100 : 0); // it knows on and off only
    state.insert(errorsKey(), 0);
    drift(state, signalKey(), -95, -40);
}

// The load of the plan's lamps and of what else hangs on the line, on three phases that are not quite equal.
void Simulation::meter(const SiteDevice &device, Track &track, QVariantMap &state)
{
    const auto *zone = m_site.zone(device.descriptor.zoneUid);
    const double load = (zone ? partLoad(zone->zone.partUid) : 0) + 900;
    QVariantList voltages, amperages, powers, cosines;
    double sum = 0;
    for (const double share : {0.36, 0.33, 0.31}) {
        const double power = tidy(rounded(load * share * uniform(0.98, 1.02), 0.1));
        const double voltage = tidy(rounded(uniform(226, 233), 0.1));
        const double cosine = tidy(rounded(uniform(0.93, 0.98), 0.001));
        voltages << voltage;
        powers << power;
        cosines << cosine;
        amperages << tidy(power / voltage / cosine);
        sum += power;
    }
    state.insert(QStringLiteral("voltages"), voltages);
    state.insert(QStringLiteral("amperages"), amperages);
    state.insert(QStringLiteral("powers"), powers);
    state.insert(QStringLiteral("cosines"), cosines);
    const double hours = double(m_now - track.lastPoll) / (60 * minute);
    const auto energy = QStringLiteral("energy");
    // Not rounded: what a few seconds add is less than a watt-hour.
    state.insert(energy, state.value(energy).toDouble() + sum / 1000 * hours);
    static const QStringList steps{"u", "i", "p", "c", "e", ""};
    const auto step = QStringLiteral("state");
    state.insert(step, steps.at((steps.indexOf(state.value(step).toString()) + 1) % steps.size()));
    state.insert(errorsKey(), 0);
}

void Simulation::contactSensor(const SiteDevice &device, Track &, QVariantMap &state)
{
    for (int input = 1; input <= 6; ++input) {
        const auto key = QStringLiteral("input%1").arg(input);
        if (device.descriptor.data.value(key).toBool() && chance(0.15))
            state.insert(key, !state.value(key).toBool());
    }
    state.insert(errorsKey(), 0);
    drift(state, signalKey(), -95, -40);
}

void Simulation::beacon(const SiteDevice &, Track &track, QVariantMap &state)
{
    const auto active = QStringLiteral("active");
    if (chance(0.1)) {
        state.insert(active, !state.value(active).toBool());
        track.since = m_now;
    }
    const int seconds = static_cast<int>((m_now - track.since) / second);
    const bool isActive = state.value(active).toBool();
    state.insert(QStringLiteral("activeTime"), isActive ? seconds : 0);
    state.insert(QStringLiteral("inactiveTime"), isActive ? 0 : seconds);
    drift(state, signalKey(), -95, -40);
}

} // namespace Demo
