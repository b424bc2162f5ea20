// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/UserInfo.h"

#include <tuple>

namespace Model {

namespace {

auto fields(const UserInfo &user)
{
    return std::tie(user.login, user.password, user.group, user.zonesWhitelist, user.accessList);
}

} // namespace

bool UserInfo::hasAccess(const QUuid &zoneUid) const
{
    return !zonesWhitelist || zonesWhitelist->contains(zoneUid);
}

bool operator==(const UserInfo &left, const UserInfo &right)
{
    return fields(left) == fields(right);
}

} // namespace Model
