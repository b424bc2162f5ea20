// SPDX-License-Identifier: GPL-3.0-or-later
#include "soak/TcpProxy.h"

#include <QHostAddress>

TcpProxy::TcpProxy(const QString &host, int targetPort, QObject *parent)
    : QObject(parent)
    , m_host(host)
    , m_targetPort(targetPort)
{
    connect(&m_listener, &QTcpServer::newConnection, this, &TcpProxy::onNewConnection);
}

TcpProxy::~TcpProxy()
{
    cut();
}

bool TcpProxy::open()
{
    if (!m_listener.listen(QHostAddress(m_host), static_cast<quint16>(m_port)))
        return false;
    m_port = m_listener.serverPort();
    return true;
}

void TcpProxy::cut()
{
    m_listener.close();
    const auto clients = m_peers.keys();
    for (auto *client : clients)
        drop(client);
}

void TcpProxy::onNewConnection()
{
    while (auto *client = m_listener.nextPendingConnection()) {
        auto *server = new QTcpSocket(this);
        m_peers.insert(client, server);
        const auto upload = [client, server] {
            if (server->state() == QAbstractSocket::ConnectedState)
                server->write(client->readAll());
        };
        connect(client, &QTcpSocket::readyRead, server, upload);
        connect(server, &QTcpSocket::readyRead, client, [client, server] { client->write(server->readAll()); });
        connect(client, &QTcpSocket::disconnected, this, [this, client] { drop(client); });
        connect(server, &QTcpSocket::disconnected, this, [this, client] { drop(client); });
        connect(server, &QTcpSocket::connected, client, upload);
        server->connectToHost(m_host, static_cast<quint16>(m_targetPort));
    }
}

void TcpProxy::drop(QTcpSocket *client)
{
    auto *server = m_peers.take(client);
    if (!server)
        return;
    for (auto *socket : {client, server}) {
        socket->disconnect();
        socket->abort();
        socket->deleteLater();
    }
}
