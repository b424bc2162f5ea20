// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/UsersListModel.h"

#include "link/AbstractBackendCommunicator.h"
#include "model/UidSet.h"

#include <algorithm>

UsersListModel::UsersListModel(AbstractBackendCommunicator &communicator, QObject *parent)
    : QAbstractListModel(parent)
    , m_controller(communicator)
    , m_communicator(communicator)
{
    auto &cache = communicator.getDataCache();
    connect(&cache, &BackendDataCache::usersChanged, this, &UsersListModel::onUserListReceived);
    connect(&m_controller, &UsersController::usersListUpdated, this, &UsersListModel::onUserListReceived);
    onUserListReceived(cache.getUsers());
}

int UsersListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_users.size());
}

QVariant UsersListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.model() != this || index.row() >= rowCount())
        return {};
    const auto &user = m_users[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Login: return user.login;
    case UserRole: return user.group;
    case LocalRole: return user.group == QLatin1String("admin") ? tr("Администратор") : tr("Пользователь");
    case ZonesWhitelist:
        // No whitelist and an empty one mean opposite things, so the one reads as undefined.
        return user.zonesWhitelist ? Model::uidsToVariant(*user.zonesWhitelist) : QVariant();
    case Acl: {
        if (!user.accessList)
            return {};
        auto rights = user.accessList->values();
        rights.sort();
        return QStringList(rights);
    }
    }
    return {};
}

QHash<int, QByteArray> UsersListModel::roleNames() const
{
    static const QHash<int, QByteArray> names{{Login, "login"},
                                              {UserRole, "role"},
                                              {LocalRole, "localRole"},
                                              {ZonesWhitelist, "zonesWhitelist"},
                                              {Acl, "acl"}};
    return names;
}

Qt::ItemFlags UsersListModel::flags(const QModelIndex &index) const
{
    return index.isValid() ? Qt::ItemIsSelectable | Qt::ItemIsEnabled : Qt::NoItemFlags;
}

void UsersListModel::onUserListReceived(const std::vector<Model::UserInfo> &userList)
{
    beginResetModel();
    m_users = userList;
    const auto login = m_communicator.getCurrentLogin();
    const auto user = std::find_if(m_users.begin(), m_users.end(), [&](const auto &row) { return row.login == login; });
    // A list without the current login leaves the rights as they were.
    if (user != m_users.end() && *user != m_currentUser) {
        m_currentUser = *user;
        emit currentUserChanged();
    }
    endResetModel();
    emit usersChanged();
}
