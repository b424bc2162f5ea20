// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/UsersController.h"

#include "data/JsValues.h"
#include "link/AbstractBackendCommunicator.h"

#include <QPointer>

namespace {

// Not QVariant::isNull(), which counts the empty text of a script as null too.
bool isNull(const QVariant &value)
{
    return !value.isValid() || value.userType() == QMetaType::Nullptr;
}

Model::UserInfo userFrom(const QString &login, const QVariant &password, const QString &role, const QVariant &whitelist)
{
    Model::UserInfo user;
    user.login = login;
    user.group = role;
    if (!isNull(password))
        user.password = password.toString().toUtf8();
    const auto list = JsValues::plain(whitelist);
    if (!isNull(list)) {
        QSet<QUuid> uids;
        const auto texts = list.toList();
        for (const auto &text : texts)
            uids.insert(QUuid(text.toString()));
        uids.remove(QUuid()); // of a text that is no uid
        user.zonesWhitelist = uids;
    }
    return user;
}

} // namespace

UsersController::UsersController(AbstractBackendCommunicator &communicator, QObject *parent)
    : AbstractController(communicator, parent)
{
    connect(&communicator, &AbstractBackendCommunicator::statusChanged, this, [this] {
        if (this->communicator().getStatus() == AbstractBackendCommunicator::Connected)
            requestUserList();
    });
}

void UsersController::requestUserList()
{
    const QPointer<UsersController> self(this); // the link outlives its callers
    communicator().getUserList([self](const std::vector<Model::UserInfo> &users) {
        if (self)
            emit self->usersListUpdated(users);
    });
}

void UsersController::addUser(const QString &login, const QString &password, const QString &role,
                              const QVariant &whitelist, const QJSValue &callback)
{
    // A null text of C++ is an empty password here: a new account has no old one to keep.
    auto user = userFrom(login, QVariant(), role, whitelist);
    user.password = password.toUtf8();
    communicator().addUsers({user}, JsValues::completion(this, callback, {true}));
}

void UsersController::removeUser(const QString &login)
{
    Model::UserInfo user;
    user.login = login;
    const QPointer<UsersController> self(this);
    communicator().removeUsers({user}, [self] {
        if (self)
            self->requestUserList();
    });
}

void UsersController::changeUser(const QString &login, const QVariant &password, const QString &role,
                                 const QVariant &whitelist, const QJSValue &callback)
{
    const auto user = userFrom(login, JsValues::plain(password), role, whitelist);
    communicator().changeUsers({user}, JsValues::completion(this, callback, {true}));
}
