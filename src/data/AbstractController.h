// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class AbstractBackendCommunicator;

// Base of the objects that offer operations of the server to QML.
class AbstractController : public QObject
{
    Q_OBJECT

public:
    explicit AbstractController(AbstractBackendCommunicator &communicator, QObject *parent = nullptr);

protected:
    AbstractBackendCommunicator &communicator() const { return m_communicator; }

private:
    AbstractBackendCommunicator &m_communicator;
};
