// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/StatisticsStore.h"

#include "demo/Simulation.h"

#include <algorithm>
#include <cmath>

namespace Demo {

namespace {

constexpr qint64 minuteMs = 60000;
constexpr qint64 hourMinutes = 60;
constexpr qint64 dayMinutes = 24 * 60;
constexpr int sampleMinutes = 15; // an hour's mean is that of its quarters
constexpr double lampWatts = 60;
constexpr double otherWatts = 900; // what else hangs on a meter's line
constexpr int outdoorSwing = 50; // zones that daylight moves by more are under the sky
constexpr qint64 meterMounted = 18262 * dayMinutes; // the first day of 2020, when meters showed nothing

// Rounded down, also before the epoch.
qint64 floorDiv(qint64 value, qint64 by)
{
    return value / by - (value % by < 0 ? 1 : 0);
}

// Three digits, without the tail that binary fractions leave.
double tidy(double value)
{
    return std::round(value * 1000) / 1000;
}

quint64 mixed(quint64 value)
{
    value += 0x9e3779b97f4a7c15ULL;
    value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9ULL;
    value = (value ^ (value >> 27)) * 0x94d049bb133111ebULL;
    return value ^ (value >> 31);
}

quint64 keyOf(const QUuid &uid)
{
    quint64 key = (quint64(uid.data1) << 32) | (quint64(uid.data2) << 16) | uid.data3;
    for (const auto byte : uid.data4)
        key = mixed(key ^ byte);
    return key;
}

bool isLight(const QString &commonType)
{
    return commonType == "lamp" || commonType == "polling_lamp" || commonType == "lamp_group";
}

double daylightAt(int minuteOfDay)
{
    return Simulation::daylight(QTime::fromMSecsSinceStartOfDay(static_cast<int>(minuteOfDay * minuteMs)));
}

// The columns of a kind of device; none where nothing is kept.
QStringList schemaOf(const QString &commonType)
{
    static const QStringList power{"power"};
    static const QHash<QString, QStringList> schemas{
        {"lamp", power},
        {"polling_lamp", power},
        {"lamp_group", power},
        {"polling_contactor", power},
        {"polling_light_sensor", {"brightness"}},
        {"polling_temp_sensor", {"temperature"}},
        {"beacon", {"active"}},
        {"polling_rs_electric_meter",
         {"voltage_0", "voltage_1", "voltage_2", "amperage_0", "amperage_1", "amperage_2", "power_0", "power_1",
          "power_2", "cosphi_0", "cosphi_1", "cosphi_2", "power_accum"}},
    };
    return schemas.value(commonType);
}

} // namespace

StatisticsStore::StatisticsStore(const DemoSite &site, quint32 seed, const QDateTime &now, const QByteArray &timezone)
    : m_site(site)
    , m_seed(seed)
    , m_now(floorDiv(now.toMSecsSinceEpoch(), minuteMs))
    , m_start(floorDiv(m_now - days * dayMinutes, hourMinutes) * hourMinutes)
{
    const QTimeZone zone(timezone);
    m_offset = zone.isValid() ? floorDiv(zone.standardTimeOffset(now), 60) : 0;
}

QDateTime StatisticsStore::start() const
{
    return QDateTime::fromMSecsSinceEpoch(m_start * minuteMs, Qt::UTC);
}

QDateTime StatisticsStore::end() const
{
    return QDateTime::fromMSecsSinceEpoch(m_now * minuteMs, Qt::UTC);
}

bool StatisticsStore::isKnown(const QUuid &uid) const
{
    return m_site.device(uid) || m_site.zone(uid);
}

std::vector<StatisticsStore::Series> StatisticsStore::series(const QUuid &uid, const QStringList &types) const
{
    using Group = Model::DeviceTypeInfo::StatisticsInfo::Group;
    std::vector<Series> found;
    const auto take = [&](const Model::DeviceTypeInfo &info) {
        const auto schema = schemaOf(info.commonType);
        const auto type = info.statistics.interface;
        const bool wanted = types.isEmpty() || types.contains(QString()) || types.contains(type);
        const bool again =
            std::any_of(found.begin(), found.end(), [&type](const auto &known) { return known.type == type; });
        if (!schema.isEmpty() && !type.isEmpty() && wanted && !again)
            found.push_back({uid, type, schema});
    };
    if (const auto *device = m_site.device(uid)) {
        if (const auto *type = m_site.deviceType(device->descriptor.url))
            take(type->info);
    } else if (m_site.zone(uid)) {
        for (const auto &standing : m_site.data().devices) {
            const auto *type = m_site.deviceType(standing.descriptor.url);
            const bool counts = standing.descriptor.zoneUid == uid && type && isLight(type->info.commonType);
            if (counts && type->info.statistics.group == Group::Zone)
                take(type->info);
        }
    }
    return found;
}

qint64 StatisticsStore::seriesCount() const
{
    qint64 count = 0;
    QSet<QUuid> lit;
    for (const auto &device : m_site.data().devices) {
        const auto *type = m_site.deviceType(device.descriptor.url);
        count += static_cast<qint64>(series(device.descriptor.uid, {}).size());
        if (type && isLight(type->info.commonType))
            lit.insert(device.descriptor.zoneUid);
    }
    return count + lit.size();
}

StatisticsStore::Range StatisticsStore::rangeOf(const QDateTime &from, const QDateTime &to, Grain grain) const
{
    const qint64 minutes = grain == Grain::Hour ? hourMinutes : 1;
    const qint64 step = minutes * minuteMs;
    const qint64 last = floorDiv(m_now - (minutes - 1), minutes); // the hour that is over
    const qint64 first = std::max(-floorDiv(-from.toMSecsSinceEpoch(), step), m_start / minutes);
    return {first, std::max<qint64>(std::min(floorDiv(to.toMSecsSinceEpoch(), step), last) - first + 1, 0)};
}

qint64 StatisticsStore::rowCount(const QDateTime &from, const QDateTime &to, Grain grain) const
{
    return rangeOf(from, to, grain).count;
}

std::vector<Model::Statistics::Item> StatisticsStore::rows(const Series &series, const QDateTime &from,
                                                           const QDateTime &to, Grain grain)
{
    const auto range = rangeOf(from, to, grain);
    const qint64 minutes = grain == Grain::Hour ? hourMinutes : 1;
    const bool counts = series.schema.last() == QLatin1String("power_accum"); // what is reached, not a mean
    std::vector<Model::Statistics::Item> items;
    items.reserve(static_cast<size_t>(range.count));
    for (qint64 row = range.first; row < range.first + range.count; ++row) {
        const qint64 minute = row * minutes;
        auto values = valuesAt(series, minute);
        const double reached = values.back();
        int samples = 1;
        for (qint64 next = sampleMinutes; next < minutes; next += sampleMinutes, ++samples) {
            const auto more = valuesAt(series, minute + next);
            std::transform(values.begin(), values.end(), more.begin(), values.begin(), std::plus<>());
        }
        QVariantList list;
        list.reserve(static_cast<int>(values.size()));
        for (const double value : values)
            list.append(tidy(value / samples));
        if (counts)
            list.last() = tidy(reached);
        items.push_back({QDateTime::fromMSecsSinceEpoch(minute * minuteMs, Qt::UTC), list});
    }
    return items;
}

double StatisticsStore::runHours(const SiteDevice &device, const QDateTime &from, const QDateTime &to) const
{
    const auto range = rangeOf(from, to, Grain::Minute);
    const qint64 last = range.first + range.count - 1; // which has just begun
    qint64 on = 0;
    for (qint64 minute = range.first; minute < last; minute += sampleMinutes) {
        if (lampPower(device, minute) > 0)
            on += std::min<qint64>(sampleMinutes, last - minute);
    }
    return static_cast<double>(on) / hourMinutes;
}

int StatisticsStore::minuteOfDay(qint64 minute) const
{
    return static_cast<int>(minute + m_offset - day(minute) * dayMinutes);
}

qint64 StatisticsStore::day(qint64 minute) const
{
    return floorDiv(minute + m_offset, dayMinutes);
}

double StatisticsStore::chance(quint64 key, qint64 index) const
{
    constexpr double range = 9007199254740992.0; // what a double tells apart
    return static_cast<double>(mixed(key ^ mixed(m_seed ^ mixed(static_cast<quint64>(index)))) >> 11) / range;
}

double StatisticsStore::wave(quint64 key, qint64 minute, int period) const
{
    const qint64 step = floorDiv(minute, period);
    const double part = static_cast<double>(minute - step * period) / period;
    return 2 * (chance(key, step) * (1 - part) + chance(key, step + 1) * part) - 1;
}

StatisticsStore::Values StatisticsStore::valuesAt(const Series &series, qint64 minute)
{
    const auto *device = m_site.device(series.uid);
    if (!device)
        return {lightPower(*m_site.zone(series.uid), minute)};
    const auto kind = m_site.deviceType(device->descriptor.url)->info.commonType;
    const auto key = keyOf(series.uid);
    const auto *zone = m_site.zone(device->descriptor.zoneUid);
    const double sun = daylightAt(minuteOfDay(minute));
    if (isLight(kind))
        return {lampPower(*device, minute)};
    if (kind == "polling_contactor")
        return {zone && Simulation::automaticPower(*zone, sun) >= 50 ? 100.0 : 0.0};
    if (kind == "polling_light_sensor") {
        const bool outdoor = zone && zone->swing > outdoorSwing;
        const double sky = sun * (outdoor ? 12000 : 150) * (0.8 + 0.2 * wave(key, minute, 180));
        const double lamps = zone ? lightPower(*zone, minute) * (outdoor ? 0.4 : 4) : 0;
        return {(sky + lamps) * (1 + 0.03 * wave(key + 1, minute, 5)) + 2};
    }
    if (kind == "polling_temp_sensor")
        return {20 + 4 * (chance(key, 0) - 0.5) + sun + 0.8 * wave(key, minute, 240) + 0.2 * wave(key + 1, minute, 10)};
    if (kind == "beacon")
        return {chance(key, floorDiv(minute, 20)) < 0.5 ? 1.0 : 0.0};
    return meterValues(*device, minute);
}

// As the zone's rule has it, by a few percent more or less from day to day.
double StatisticsStore::lightPower(const SiteZone &zone, qint64 minute) const
{
    const double sun = daylightAt(minuteOfDay(minute));
    const double power = zone.level + zone.swing * (0.5 - sun) + 3 * wave(keyOf(zone.zone.uid), minute, dayMinutes);
    return qBound(0.0, std::round(power), 100.0);
}

double StatisticsStore::lampPower(const SiteDevice &device, qint64 minute) const
{
    const auto *zone = m_site.zone(device.descriptor.zoneUid);
    return zone ? lightPower(*zone, minute) : 0;
}

StatisticsStore::Values StatisticsStore::meterValues(const SiteDevice &device, qint64 minute)
{
    const auto *zone = m_site.zone(device.descriptor.zoneUid);
    const auto &energy = energyOf(zone ? zone->zone.partUid : QUuid());
    const auto at = static_cast<size_t>(minuteOfDay(minute));
    const double load = (energy[at + 1] - energy[at]) * 1000 * hourMinutes;
    const auto key = keyOf(device.descriptor.uid);
    constexpr double shares[] = {0.36, 0.33, 0.31};
    Values values(13);
    for (size_t phase = 0; phase < 3; ++phase) {
        const double voltage = 229.5 + 3.5 * wave(key + 3 * phase, minute, 30);
        const double power = load * shares[phase] * (1 + 0.02 * wave(key + 3 * phase + 1, minute, 3));
        const double cosine = 0.955 + 0.025 * wave(key + 3 * phase + 2, minute, 60);
        values[phase] = voltage;
        values[3 + phase] = power / voltage / cosine;
        values[6 + phase] = power;
        values[9 + phase] = cosine;
    }
    const auto passed = static_cast<double>(day(minute) - floorDiv(meterMounted, dayMinutes));
    values[12] = std::max(passed, 0.0) * energy.back() + energy[at];
    return values;
}

const StatisticsStore::Values &StatisticsStore::energyOf(const QUuid &part)
{
    const auto known = m_energy.constFind(part);
    if (known != m_energy.constEnd())
        return *known;
    QHash<QUuid, int> lamps; // by zone
    for (const auto &device : m_site.data().devices) {
        const auto *type = m_site.deviceType(device.descriptor.url);
        if (type && isLight(type->info.commonType) && type->info.commonType != "lamp_group")
            ++lamps[device.descriptor.zoneUid];
    }
    Values energy{0};
    energy.reserve(dayMinutes + 1);
    for (int minute = 0; minute < dayMinutes; ++minute) {
        double watts = otherWatts;
        for (const auto &zone : m_site.data().zones) {
            if (zone.zone.partUid == part)
                watts +=
                    lamps.value(zone.zone.uid) * lampWatts / 100 * Simulation::automaticPower(zone, daylightAt(minute));
        }
        energy.push_back(energy.back() + watts / 1000 / hourMinutes);
    }
    return *m_energy.insert(part, energy);
}

} // namespace Demo
