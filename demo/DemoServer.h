// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/DemoSite.h"
#include "demo/Garbage.h"
#include "demo/IndicatorRules.h"
#include "demo/Publisher.h"
#include "demo/RequestHandler.h"
#include "demo/ScheduleRunner.h"
#include "demo/Simulation.h"
#include "demo/SiteClock.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <QVersionNumber>
#include <memory>

namespace nzmqt {
class PollingZMQContext;
class ZMQSocket;
}

namespace Demo {

// The site on two sockets: requests on one, publications on the other. Owns everything that runs.
class DemoServer : public QObject
{
    Q_OBJECT

public:
    // What a bad server or network does to its clients, on demand.
    struct Faults
    {
        bool silent = false; // takes requests and never answers
        int slow = 0; // milliseconds that each reply waits
        int drop = 0; // every so many replies one is lost
        bool garbage = false; // broken messages in between
        bool noPublications = false;
    };

    struct Settings
    {
        QString bind = QStringLiteral("127.0.0.1");
        int controlPort = 23140; // 0: any that is free
        int updatePort = 23141;
        QVersionNumber version{4, 5, 2};
        int tick = 1000; // milliseconds between steps of the simulation; 0: time stands still
        quint32 seed = 1;
        Faults faults;
    };

    DemoServer(const SiteData &site, const Settings &settings,
               const SiteClock::Source &clock = &QDateTime::currentDateTimeUtc, QObject *parent = nullptr);
    ~DemoServer() override;

    // False with a message when a socket cannot be bound; then nothing is bound.
    bool start(QString *error);
    void stop();

    int controlPort() const { return m_controlPort; } // the real ones
    int updatePort() const { return m_updatePort; }
    DemoSite &site() { return m_site; }
    Simulation &simulation() { return m_simulation; }
    SiteClock &clock() { return m_clock; }

private:
    void bindSockets();
    void onRequest(const QList<QByteArray> &parts);
    void onTick();
    void reply(const QList<QByteArray> &parts);
    void publish(const QList<QByteArray> &parts);
    static void send(nzmqt::ZMQSocket *socket, const QList<QByteArray> &parts);

    Settings m_settings;
    DemoSite m_site;
    SiteClock m_clock;
    Simulation m_simulation;
    ScheduleRunner m_schedules;
    IndicatorRules m_rules;
    Publisher m_publisher;
    RequestHandler m_handler;
    Garbage m_garbage;
    std::unique_ptr<nzmqt::PollingZMQContext> m_context;
    std::unique_ptr<nzmqt::ZMQSocket> m_requests; // closed before the context
    std::unique_ptr<nzmqt::ZMQSocket> m_publications;
    int m_controlPort = 0;
    int m_updatePort = 0;
    int m_replies = 0;
    QTimer m_ticks;
    QElapsedTimer m_sinceTick;
};

} // namespace Demo
