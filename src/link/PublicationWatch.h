// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

// Knows whether publications can arrive. The library heals a dropped connection by itself, but not one that it closed
// over a message it refused, and pings go by another socket: without this watch the screen would quietly grow old.
class PublicationWatch : public QObject
{
    Q_OBJECT

public:
    // Milliseconds: how long a drop may last, and how long after a reconnect that did not help.
    PublicationWatch(int healing, int retry, QObject *parent = nullptr);

    bool isAlive() const { return m_alive; }

    void open(); // the socket has been told to connect
    void close(); // and to disconnect; what was lost stays lost, since the link may be reconnecting
    void forget(); // another server, or none: nothing is known to be lost

public slots:
    void onConnected();
    void onDropped();

signals:
    void aliveChanged();
    void healingFailed(); // a connection that stood was dropped and did not come back

private:
    void onWaitOver();
    void setAlive(bool alive);

    QTimer m_wait;
    int m_healing;
    int m_retry;
    bool m_open = false;
    bool m_standing = false;
    bool m_lost = false; // it stood once; a port that never stood is no reason to reconnect
    bool m_alive = true;
};
