// SPDX-License-Identifier: GPL-3.0-or-later
#include "soak/TcpProxy.h"

#include <QHostAddress>

TcpProxy::TcpProxy(const QString &host, int targetPort, QObject *parent)
    : TcpProxy(host, 0, targetPort, parent)
{}

TcpProxy::TcpProxy(const QString &host, int port, int targetPort, QObject *parent)
    : QObject(parent)
    , m_host(host)
    , m_targetPort(targetPort)
    , m_port(port)
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
        const auto upload = [this, client, server] {
            if (server->state() != QAbstractSocket::ConnectedState)
                return;
            const auto bytes = client->readAll();
            emit uploaded(bytes);
            server->write(bytes);
        };
        const auto download = [this, client, server] {
            const auto bytes = server->readAll();
            emit downloaded(bytes);
            client->write(bytes);
        };
        // Small messages pass at once.
        client->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        connect(client, &QTcpSocket::readyRead, server, upload);
        connect(server, &QTcpSocket::readyRead, client, download);
        connect(client, &QTcpSocket::disconnected, this, [this, client] { drop(client); });
        connect(server, &QTcpSocket::disconnected, this, [this, client] { drop(client); });
        connect(server, &QTcpSocket::connected, client, [server, upload] {
            server->setSocketOption(QAbstractSocket::LowDelayOption, 1);
            upload();
        });
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
