// SPDX-License-Identifier: GPL-3.0-or-later
#include "soak/Soak.h"

#include "demo/SiteLoader.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QtTest>
#include <cstdio>
#include <unistd.h>

namespace {

using Link = AbstractBackendCommunicator;

// How long the client may take to notice: two seconds without healing, or an unanswered ping.
constexpr int noticeLimitMs = 20000;
constexpr int returnLimitMs = 5000;
constexpr int listsLimitMs = 30000;
constexpr int healLimitMs = 15000;
constexpr double growthLimitMb = 5.0;

int openDescriptors()
{
    return QDir(QStringLiteral("/proc/self/fd"))
        .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
        .size();
}

double residentMb()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE) / 1048576.0;
}

template <typename T, typename Uid>
QString compareLists(const char *name, const std::vector<T> &own, const std::vector<T> &servers, Uid uidOf)
{
    if (own.size() != servers.size())
        return QStringLiteral("%1: %2 rows instead of %3").arg(name).arg(own.size()).arg(servers.size());
    QHash<decltype(uidOf(own.front())), const T *> byUid;
    for (const auto &record : servers)
        byUid.insert(uidOf(record), &record);
    for (const auto &record : own) {
        const auto *other = byUid.value(uidOf(record));
        if (!other || !(*other == record))
            return QStringLiteral("%1: a record differs").arg(name);
    }
    return {};
}

} // namespace

Soak::Soak(int devices, int tickMs)
    : m_server(Demo::SiteLoader::withDevices(Demo::SiteLoader::builtIn(), devices), 0, 0, tickMs)
{}

bool Soak::begin()
{
    if (!m_server.start())
        return false;
    m_proxy = std::make_unique<TcpProxy>(QStringLiteral("127.0.0.1"), m_server.updatePort());
    if (!m_proxy->open())
        return false;
    m_client = std::make_unique<Client>();
    m_client->link.init(QStringLiteral("127.0.0.1"), QStringLiteral("admin"), QStringLiteral("admin"),
                        m_server.controlPort(), m_proxy->port());
    return waitConnected(returnLimitMs) && waitListsEqual(listsLimitMs);
}

bool Soak::restart(int times, int seconds)
{
    const QDeadlineTimer end(seconds > 0 ? seconds * 1000LL : -1);
    int descriptors = 0;
    for (int i = 1; i <= times && !end.hasExpired(); ++i) {
        m_server.stop();
        // Every third time the server is back before the client can have noticed.
        if (i % 3 != 0
            && !QTest::qWaitFor([this] { return m_client->link.getStatus() == Link::Connecting; }, noticeLimitMs)) {
            std::printf("restart %d: the client did not notice that the server is gone\n", i);
            return false;
        }
        if (!m_server.start())
            return false;
        qint64 took = 0;
        if (!waitConnected(returnLimitMs, &took) || !waitListsEqual(listsLimitMs))
            return false;
        if (!QTest::qWaitFor([this] { return m_client->link.getPublicationsAlive(); }, returnLimitMs)) {
            std::printf("restart %d: publications come, but are said to be down\n", i);
            return false;
        }
        const int now = openDescriptors();
        if (i == 3)
            descriptors = now;
        std::printf("restart %d: connected after %lld ms, %d descriptors, %.0f MB\n", i, static_cast<long long>(took),
                    now, residentMb());
        std::fflush(stdout);
        // One connection more may be on its way down while we count.
        if (i > 3 && now > descriptors + 4) {
            std::printf("descriptors grew from %d to %d\n", descriptors, now);
            return false;
        }
    }
    return true;
}

bool Soak::killPublications(int times)
{
    for (int i = 1; i <= times; ++i) {
        QElapsedTimer timer;
        timer.start();
        m_proxy->cut();
        if (!QTest::qWaitFor([this] { return !m_client->link.getPublicationsAlive(); }, healLimitMs)) {
            std::printf("publications %d: nobody noticed that they are gone\n", i);
            return false;
        }
        const qint64 noticed = timer.restart();
        if (!m_proxy->open())
            return false;
        const auto healed = [this] {
            return m_client->link.getPublicationsAlive() && m_client->link.getStatus() == Link::Connected;
        };
        if (!QTest::qWaitFor(healed, healLimitMs) || !waitListsEqual(listsLimitMs)) {
            std::printf("publications %d: they did not come back\n", i);
            return false;
        }
        std::printf("publications %d: noticed after %lld ms, healed %lld ms after their return\n", i,
                    static_cast<long long>(noticed), static_cast<long long>(timer.elapsed()));
        std::fflush(stdout);
    }
    return true;
}

bool Soak::watchGrowth(int seconds)
{
    const int warmUp = qMin(60, seconds / 2);
    QTest::qWait(warmUp * 1000);
    const double before = residentMb();
    QTest::qWait((seconds - warmUp) * 1000);
    const double growth = residentMb() - before;
    std::printf("growth: %.1f MB in %d s after the first %d s, from %.0f MB\n", growth, seconds - warmUp, warmUp,
                before);
    return growth < growthLimitMb && waitListsEqual(listsLimitMs);
}

bool Soak::waitConnected(int limitMs, qint64 *tookMs)
{
    QElapsedTimer timer;
    timer.start();
    const bool connected = QTest::qWaitFor([this] { return m_client->link.getStatus() == Link::Connected; }, limitMs);
    if (!connected)
        std::printf("not connected within %d ms\n", limitMs);
    if (tookMs)
        *tookMs = timer.elapsed();
    return connected;
}

bool Soak::waitListsEqual(int limitMs)
{
    QString found;
    const bool equal = QTest::qWaitFor(
        [&] {
            found = difference(m_server.data());
            return found.isEmpty();
        },
        limitMs);
    if (!equal)
        std::printf("lists differ: %s\n", qPrintable(found));
    return equal;
}

QString Soak::difference(const Demo::SiteData &server) const
{
    const auto &cache = m_client->link.getDataCache();
    const auto uid = [](const auto &record) { return record.uid; };
    std::vector<Model::Zone> zones;
    for (const auto &zone : server.zones)
        zones.push_back(zone.zone);
    QSet<QUrl> withPower; // only what can be told a power has a mode
    for (const auto &type : server.deviceTypes) {
        if (type.hasPower())
            withPower.insert(type.info.url);
    }
    std::vector<Model::DeviceDescriptor> devices;
    std::vector<Model::DeviceState> states;
    std::vector<Model::DeviceMode> modes;
    for (const auto &device : server.devices) {
        devices.push_back(device.descriptor);
        states.push_back({device.descriptor.uid, device.state});
        if (withPower.contains(device.descriptor.url))
            modes.push_back({device.descriptor.uid, device.mode});
    }
    for (const auto &found : {
             compareLists("zones", cache.getZones(), zones, uid),
             compareLists("parts", cache.getShopParts(), server.parts, uid),
             compareLists("devices", cache.getDeviceDescriptors(), devices, uid),
             compareLists("modes", cache.getDeviceModes(), modes, uid),
             compareLists("states", cache.getDeviceStates(), states, uid),
         }) {
        if (!found.isEmpty())
            return found;
    }
    if (cache.getUsers().size() != server.users.size())
        return QStringLiteral("users: other rows");
    if (cache.getDeviceTypes().size() != server.deviceTypes.size())
        return QStringLiteral("device types: other rows");
    if (m_client->devices.rowCount() != static_cast<int>(devices.size())
        || m_client->zones.rowCount() != static_cast<int>(zones.size()))
        return QStringLiteral("models: other rows than the lists");
    return {};
}
