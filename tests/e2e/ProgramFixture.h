// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "e2e/SiteProcess.h"
#include "link/AbstractBackendCommunicator.h"
#include "shell/FrontendManager.h"
#include "support/TestBase.h"
#include "tour/Hands.h"

#include <QTemporaryDir>
#include <memory>

// Base of the tests that use the whole program for a day: a demo site of its own, a data home of its own, the program
// in this process, and the hands of a user. What was asked for is read from the lists that the server published.
class ProgramFixture : public TestBase, protected Hands
{
    Q_OBJECT

protected:
    using Link = AbstractBackendCommunicator;

    explicit ProgramFixture(const QString &address);
    ~ProgramFixture() override;

    bool startProgram(int width, int height);
    void stopProgram();
    bool restartProgram(); // as a user who leaves and comes back; the log is watched all the same

    Link &link() const { return m_manager->getCommunicator(); }
    bool isConnectedAs(const QString &group) const;
    bool waitForGroup(const QString &group) const; // connected, and the plan or another page is there

    Driver &driver() const override { return *m_driver; }

    SiteProcess m_site;
    std::unique_ptr<FrontendManager> m_manager;
    std::unique_ptr<Driver> m_driver;

private:
    QTemporaryDir m_home;
    QByteArray m_formerHome;
};
