// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/SiteProcess.h"

#include "link/JsonBackendCommunicator.h"
#include "shell/ConnectionsListModel.h"
#include "shell/RuntimePermissionsManager.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <csignal>
#include <sys/prctl.h>

void ChildProcess::setupChildProcess()
{
    prctl(PR_SET_PDEATHSIG, SIGTERM);
}

SiteProcess::SiteProcess(const QString &address)
    : m_address(address)
{}

SiteProcess::~SiteProcess()
{
    stop();
}

bool SiteProcess::start(const QStringList &options)
{
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.start(QStringLiteral(ONDIRA_SITE), QStringList{QStringLiteral("--bind"), m_address} + options);
    QByteArray output;
    QElapsedTimer timer;
    timer.start();
    while (!output.contains("Listening") && timer.elapsed() < 20000 && m_process.state() != QProcess::NotRunning) {
        m_process.waitForReadyRead(200);
        output += m_process.readAll();
    }
    return output.contains("Listening");
}

void SiteProcess::stop()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.terminate();
    if (!m_process.waitForFinished(5000))
        m_process.kill();
    m_process.waitForFinished(5000);
}

bool saveConnection(const QString &name, const QString &address, const QString &login, const QString &password)
{
    JsonBackendCommunicator link;
    RuntimePermissionsManager permissions;
    ConnectionsListModel connections(link, permissions);
    permissions.getStoragePermission();
    QCoreApplication::sendPostedEvents(&permissions);
    while (connections.rowCount() > 0) {
        if (!connections.remove(0))
            return false;
    }
    return connections.add(name, address, login, password);
}
