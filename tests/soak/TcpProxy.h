// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QObject>
#include <QTcpServer>
#include <QTcpSocket>

// Passes the bytes of one port on to another, until it is cut: then all its connections drop and none is taken. It
// tells what passes, so that it serves as an ear on the wire too.
class TcpProxy : public QObject
{
    Q_OBJECT

public:
    TcpProxy(const QString &host, int targetPort, QObject *parent = nullptr); // on a port that is free
    TcpProxy(const QString &host, int port, int targetPort, QObject *parent = nullptr);

    ~TcpProxy() override;

    int port() const { return m_port; }
    bool open(); // on the port of the first opening
    void cut();

signals:
    void uploaded(const QByteArray &bytes); // towards the target, before it has them
    void downloaded(const QByteArray &bytes);

private:
    void onNewConnection();
    void drop(QTcpSocket *client);

    QString m_host;
    int m_targetPort;
    int m_port = 0;
    QTcpServer m_listener;
    QHash<QTcpSocket *, QTcpSocket *> m_peers; // client to server
};
