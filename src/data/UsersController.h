// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/AbstractController.h"
#include "model/UserInfo.h"

#include <QJSValue>
#include <QVariant>
#include <vector>

// Edits the accounts of the server, and asks for their list at each login. QML knows it as "usersController".
class UsersController : public AbstractController
{
    Q_OBJECT

public:
    explicit UsersController(AbstractBackendCommunicator &communicator, QObject *parent = nullptr);

public slots:
    void requestUserList();
    // whitelist: uid texts, or null for no restriction. The callback gets true when the server has done it.
    void addUser(const QString &login, const QString &password, const QString &role, const QVariant &whitelist,
                 const QJSValue &callback = QJSValue());
    void removeUser(const QString &login);
    // A null password keeps the old one.
    void changeUser(const QString &login, const QVariant &password, const QString &role, const QVariant &whitelist,
                    const QJSValue &callback = QJSValue());

signals:
    void usersListUpdated(const std::vector<Model::UserInfo> &users);
};
