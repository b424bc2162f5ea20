// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "soak/ServerThread.h"
#include "soak/TcpProxy.h"

#include <QUuid>
#include <atomic>
#include <memory>

// A site of a told size on this machine, where the program looks for its server, with an ear on both wires: it knows
// when a request passed, and when a publication did. Time stands still there. It lives on threads of its own.
class WiredSite
{
public:
    explicit WiredSite(const Demo::SiteData &site);
    ~WiredSite();

    static Demo::SiteData withTiles(int zones); // on one plan, a lamp in each
    static Demo::SiteData withDevices(int devices); // in one zone

    bool start(int controlPort, int updatePort); // where the program looks
    const Demo::SiteData &data() const { return m_data; }
    void setZonePower(const QUuid &zone, double percent) { m_server.setZonePower(zone, percent); }

    // The first since the last call of listen(); 0: none yet. Of the clock of Frames.
    void listen();
    qint64 requested() const { return m_requested; }
    qint64 published() const { return m_published; }

private:
    void onThread(const std::function<void()> &job);

    Demo::SiteData m_data;
    ServerThread m_server;
    QThread m_thread;
    QObject m_agent; // lives there
    std::unique_ptr<TcpProxy> m_control; // and so do these
    std::unique_ptr<TcpProxy> m_updates;
    std::atomic<qint64> m_requested{0};
    std::atomic<qint64> m_published{0};
};
