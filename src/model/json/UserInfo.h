// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/UserInfo.h"

#include <QVariant>

namespace JsonAPI {

// An account as an entity "user", id the login.
class UserInfo
{
public:
    // What may be published: without the password. An absent list is written as null.
    static Entity toEntityNoPassword(const Model::UserInfo &user);
    static QVariant toVariantNoPassword(const Model::UserInfo &user);

    // With the password if one is set; without it the server keeps the old one.
    static QVariant toVariant(const Model::UserInfo &user);
    static Model::UserInfo fromVariant(const Entity &entity);
};

} // namespace JsonAPI
