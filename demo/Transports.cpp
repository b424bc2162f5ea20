// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/Transports.h"

#include <QSet>
#include <algorithm>
#include <cmath>

namespace Demo {

namespace {

using Type = Model::RadioStatus::DeviceType;
using DutyCycle = RadioDutyCycle::DutyCycle;

constexpr double frameBits = 320; // of a request and its reply
constexpr double radioBitsPerMs = 250;
constexpr double loraSymbols = 60; // of a request and its reply
constexpr double longestWait = 60000; // milliseconds; what waits longer is given up
constexpr int devicesPerRound = 20; // so many more in the queue make it twice as long

double shareOf(DutyCycle cycle) // of the time, in which the transport may send
{
    switch (cycle) {
    case RadioDutyCycle::Duty100: return 1;
    case RadioDutyCycle::Duty50: return 0.5;
    case RadioDutyCycle::Duty33: return 0.33;
    case RadioDutyCycle::Duty25: return 0.25;
    case RadioDutyCycle::Duty10: return 0.1;
    case RadioDutyCycle::Duty1: return 0.01;
    }
    return 1;
}

double airTime(const Model::Settings::LoRa &lora) // milliseconds
{
    const double kilohertz = 62.5 * std::pow(2, lora.bandwidth - 6);
    return loraSymbols * std::pow(2, lora.spreadingFactor) / kilohertz;
}

// A number from 0 up to 1 that looks random.
double noise(quint64 seed)
{
    seed += 0x9e3779b97f4a7c15ULL;
    seed = (seed ^ (seed >> 30)) * 0xbf58476d1ce4e5b9ULL;
    seed = (seed ^ (seed >> 27)) * 0x94d049bb133111ebULL;
    seed ^= seed >> 31;
    return double(seed >> 11) / 9007199254740992.0;
}

// Ports are given out in the order of the settings, those asked for by name first.
class Ports
{
public:
    Ports(const SiteData &site)
        : m_names(site.comPorts)
    {
        for (const auto &lora : site.settings.lora)
            m_wanted.insert(lora.portName);
        for (const auto &line : site.settings.rs485)
            m_wanted.insert(line.portName);
    }

    bool take(const QString &name)
    {
        if (!m_names.contains(name) || m_taken.contains(name))
            return false;
        m_taken.insert(name);
        return true;
    }

    bool takeAny()
    {
        return std::any_of(m_names.begin(), m_names.end(),
                           [this](const auto &name) { return !m_wanted.contains(name) && take(name); });
    }

private:
    QStringList m_names;
    QSet<QString> m_wanted;
    QSet<QString> m_taken;
};

class Reporter
{
public:
    Reporter(const SiteData &site, quint32 seed, const QDateTime &now)
        : m_site(site)
        , m_seed((quint64(seed) << 40) ^ (quint64(now.toSecsSinceEpoch()) << 12))
    {}

    // The time is that of one request and its reply, in milliseconds, on a transport that may always send.
    Model::RadioStatus status(Type type, size_t index, bool isOpen, double time, DutyCycle cycle) const
    {
        Model::RadioStatus status;
        status.deviceType = type;
        status.deviceIndex = static_cast<int>(index);
        status.deviceOpen = isOpen;
        if (!isOpen)
            return status;
        const double queue =
            time / shareOf(cycle) * (1 + double(devicesOn(type, status.deviceIndex)) / devicesPerRound);
        const auto wait = [&](double factor, double spread, int level) {
            const auto seed = m_seed ^ (quint64(type) << 9) ^ (quint64(index) << 2) ^ quint64(level);
            const double milliseconds = queue * (factor + spread * noise(seed));
            return static_cast<unsigned int>(std::lround(qBound(1.0, milliseconds, longestWait)));
        };
        status.highQueueLatency = wait(0.5, 0.3, 2);
        status.normalQueueLatency = wait(1, 0.5, 1);
        status.lowQueueLatency = wait(2, 1, 0);
        return status;
    }

private:
    long devicesOn(Type type, int index) const
    {
        return std::count_if(m_site.devices.begin(), m_site.devices.end(), [type, index](const auto &device) {
            return device.descriptor.radioType == type && device.descriptor.radioIndex == index;
        });
    }

    const SiteData &m_site;
    quint64 m_seed;
};

} // namespace

std::vector<Model::RadioStatus> transportsStatus(const SiteData &site, quint32 seed, const QDateTime &now)
{
    const auto &settings = site.settings;
    const Reporter reporter(site, seed, now);
    Ports ports(site);
    std::vector<Model::RadioStatus> list;
    for (size_t i = 0; i < settings.mrf.size(); ++i)
        list.push_back(reporter.status(Type::Mrf, i, true, frameBits / radioBitsPerMs * 4, settings.mrf[i].dutyCycle));
    for (size_t i = 0; i < settings.lora.size(); ++i) {
        const auto &lora = settings.lora[i];
        const bool isOpen = lora.portName.isEmpty() ? ports.takeAny() : ports.take(lora.portName);
        list.push_back(reporter.status(Type::LoRa, i, isOpen, airTime(lora), lora.dutyCycle));
    }
    for (size_t i = 0; i < settings.rs485.size(); ++i) {
        const auto &line = settings.rs485[i];
        const double time = frameBits * 1000 / std::max(line.speed, 1) + line.replyWaitTime;
        list.push_back(reporter.status(Type::Rs485, i, ports.take(line.portName), time, line.dutyCycle));
    }
    return list;
}

} // namespace Demo
