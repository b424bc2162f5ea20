// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/UsersController.h"
#include "model/UserInfo.h"

#include <QAbstractListModel>
#include <vector>

// The accounts, and the rights of the one that is logged in, by which the other models choose their rows. Until a list
// with the current login has come, everything is allowed. QML knows it as "usersListModel".
class UsersListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role { Login = Qt::UserRole + 1, UserRole, LocalRole, ZonesWhitelist, Acl };

    explicit UsersListModel(AbstractBackendCommunicator &communicator, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    UsersController &getUsersController() { return m_controller; }
    Model::UserInfo getCurrentUser() const { return m_currentUser; }

public slots:
    void onUserListReceived(const std::vector<Model::UserInfo> &userList);

signals:
    void currentUserChanged();
    void usersChanged();

private:
    UsersController m_controller;
    AbstractBackendCommunicator &m_communicator;
    std::vector<Model::UserInfo> m_users;
    Model::UserInfo m_currentUser;
};
