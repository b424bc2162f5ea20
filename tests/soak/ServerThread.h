// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/DemoServer.h"

#include <QObject>
#include <QThread>
#include <memory>

// The demo server on a thread of its own, so that it goes on publishing whatever the client does.
class ServerThread
{
public:
    ServerThread(const Demo::SiteData &site, int controlPort, int updatePort, int tickMs);
    ~ServerThread();

    bool start(); // after stop() it comes back on the same ports, knowing nobody
    void stop();
    bool isRunning() const { return m_server != nullptr; }
    int controlPort() const { return m_settings.controlPort; }
    int updatePort() const { return m_settings.updatePort; }

    Demo::SiteData data(); // a copy of what the server holds now
    void setZonePower(const QUuid &zone, double percent); // as if somebody else had done it

private:
    void run(const std::function<void()> &job); // there, and waits

    Demo::SiteData m_site;
    Demo::DemoServer::Settings m_settings;
    QThread m_thread;
    QObject m_agent; // lives there
    std::unique_ptr<Demo::DemoServer> m_server;
};
