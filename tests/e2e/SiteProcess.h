// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

// A child process that does not outlive this one, however it ends.
class ChildProcess : public QProcess
{
protected:
    void setupChildProcess() override;
};

// The demo site as a process of its own, on a loopback address of its own with the ports that the program expects.
class SiteProcess
{
public:
    explicit SiteProcess(const QString &address);
    ~SiteProcess();

    bool start(const QStringList &options = {}); // waits until it listens
    void stop();
    const QString &address() const { return m_address; }

private:
    QString m_address;
    ChildProcess m_process;
};

// Saves one connection to that address in the data home of this process.
bool saveConnection(const QString &name, const QString &address, const QString &login, const QString &password);
