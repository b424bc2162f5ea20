// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMetaType>
#include <QSet>
#include <QString>
#include <QUuid>
#include <boost/optional.hpp>
#include <vector>

namespace Model {

// One account of the server. The login is its key.
struct UserInfo
{
    QString login;
    boost::optional<QByteArray> password; // only when set here; the server never publishes it
    QString group; // "admin", "user", or a text of the server's own
    boost::optional<QSet<QUuid>> zonesWhitelist; // none: every zone; empty: no zone at all
    boost::optional<QSet<QString>> accessList; // none: every right

    bool hasAccess(const QUuid &zoneUid) const;
};

bool operator==(const UserInfo &left, const UserInfo &right);
inline bool operator!=(const UserInfo &left, const UserInfo &right)
{
    return !(left == right);
}

} // namespace Model

Q_DECLARE_METATYPE(Model::UserInfo)
Q_DECLARE_METATYPE(std::vector<Model::UserInfo>)
