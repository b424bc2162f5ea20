// SPDX-License-Identifier: GPL-3.0-or-later
#include "soak/ServerThread.h"

ServerThread::ServerThread(const Demo::SiteData &site, int controlPort, int updatePort, int tickMs)
    : m_site(site)
{
    m_settings.controlPort = controlPort;
    m_settings.updatePort = updatePort;
    m_settings.tick = tickMs;
    m_agent.moveToThread(&m_thread);
    m_thread.start();
}

ServerThread::~ServerThread()
{
    stop();
    m_thread.quit();
    m_thread.wait();
}

bool ServerThread::start()
{
    bool started = false;
    run([&] {
        QString error;
        m_server = std::make_unique<Demo::DemoServer>(m_site, m_settings);
        started = m_server->start(&error);
        m_settings.controlPort = m_server->controlPort();
        m_settings.updatePort = m_server->updatePort();
        if (!started)
            qWarning() << "The server did not start:" << error;
    });
    return started;
}

void ServerThread::stop()
{
    run([&] { m_server.reset(); });
}

Demo::SiteData ServerThread::data()
{
    Demo::SiteData copy;
    run([&] { copy = m_server->site().data(); });
    return copy;
}

void ServerThread::setZonePower(const QUuid &zone, double percent)
{
    run([&] { m_server->site().setZonesPower({zone}, percent); });
}

void ServerThread::run(const std::function<void()> &job)
{
    QMetaObject::invokeMethod(&m_agent, job, Qt::BlockingQueuedConnection);
}
