// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/WiredSite.h"

#include "demo/SiteLoader.h"
#include "tour/Frames.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int canvasSize = 4096;
constexpr int grid = 16;
constexpr int largestPitch = 160;
constexpr int longestPing = 64; // bytes of what keeps the link alive, which is no request of anybody

QUuid numbered(const QUuid &uid, int number)
{
    return QUuid::createUuidV5(uid, QByteArray::number(number));
}

// The users, the kinds of devices and the settings of the built-in site, and its first plan with nothing on it.
Demo::SiteData emptied(Demo::SiteData site)
{
    site.parts.resize(1);
    site.zones.clear();
    site.devices.clear();
    site.buttons.clear();
    site.indicators.clear();
    site.images.clear();
    site.view3DItems.clear();
    site.days.clear();
    site.powerOn.clear();
    return site;
}

Demo::SiteZone zoneOf(const Demo::SiteData &site, int number, int pitch)
{
    const int columns = canvasSize / pitch;
    Demo::SiteZone zone;
    zone.zone.uid = numbered(site.uid, number);
    zone.zone.partUid = site.parts.front().uid;
    zone.zone.name = QStringLiteral("Zone %1").arg(number + 1);
    zone.zone.position.x = number % columns * pitch;
    zone.zone.position.y = number / columns * pitch;
    zone.zone.width = zone.zone.height = pitch - grid;
    return zone;
}

Demo::SiteDevice deviceOf(const Demo::SiteDevice &pattern, const QUuid &zone, int number)
{
    auto device = pattern;
    device.descriptor.uid = numbered(pattern.descriptor.uid, number);
    device.descriptor.zoneUid = zone;
    device.descriptor.address = number + 1;
    return device;
}

} // namespace

WiredSite::WiredSite(const Demo::SiteData &site)
    : m_data(site)
    , m_server(site, 0, 0, 0)
{
    m_agent.moveToThread(&m_thread);
    m_thread.start();
}

WiredSite::~WiredSite()
{
    onThread([this] {
        m_control.reset();
        m_updates.reset();
    });
    m_thread.quit();
    m_thread.wait();
}

Demo::SiteData WiredSite::withTiles(int zones)
{
    const auto pattern = Demo::SiteLoader::builtIn();
    auto site = emptied(pattern);
    const int rowLength = static_cast<int>(std::ceil(std::sqrt(zones)));
    const int pitch = std::min(largestPitch, canvasSize / rowLength / grid * grid);
    for (int i = 0; i < zones; ++i) {
        site.zones.push_back(zoneOf(site, i, pitch));
        site.devices.push_back(deviceOf(pattern.devices.front(), site.zones.back().zone.uid, i));
    }
    return site;
}

// Of all kinds, in turn.
Demo::SiteData WiredSite::withDevices(int devices)
{
    const auto pattern = Demo::SiteLoader::builtIn();
    auto site = emptied(pattern);
    site.zones.push_back(zoneOf(site, 0, largestPitch));
    for (int i = 0; i < devices; ++i)
        site.devices.push_back(
            deviceOf(pattern.devices[static_cast<size_t>(i) % pattern.devices.size()], site.zones.front().zone.uid, i));
    return site;
}

bool WiredSite::start(int controlPort, int updatePort)
{
    if (!m_server.start())
        return false;
    const auto host = QStringLiteral("127.0.0.1");
    bool opened = false;
    onThread([&] {
        m_control = std::make_unique<TcpProxy>(host, controlPort, m_server.controlPort());
        m_updates = std::make_unique<TcpProxy>(host, updatePort, m_server.updatePort());
        QObject::connect(m_control.get(), &TcpProxy::uploaded, m_control.get(), [this](const QByteArray &bytes) {
            if (bytes.size() > longestPing && m_requested == 0)
                m_requested = Frames::now();
        });
        QObject::connect(m_updates.get(), &TcpProxy::downloaded, m_updates.get(), [this](const QByteArray &bytes) {
            if (bytes.size() > longestPing && m_published == 0)
                m_published = Frames::now();
        });
        opened = m_control->open() && m_updates->open();
    });
    return opened;
}

void WiredSite::listen()
{
    m_requested = 0;
    m_published = 0;
}

void WiredSite::onThread(const std::function<void()> &job)
{
    QMetaObject::invokeMethod(&m_agent, job, Qt::BlockingQueuedConnection);
}
