// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/UserInfo.h"

#include <QMetaType>
#include <QVariantList>

namespace JsonAPI {

namespace {

// A null of a document is a variant of a type of its own, which does not equal an invalid one.
bool isAbsent(const QVariant &value)
{
    return !value.isValid() || value.userType() == QMetaType::Nullptr;
}

// Sorted, since the order of a set differs from run to run.
QVariantList sortedList(QStringList texts)
{
    texts.sort();
    QVariantList list;
    list.reserve(texts.size());
    for (const auto &text : qAsConst(texts))
        list << text;
    return list;
}

QVariant zonesToVariant(const boost::optional<QSet<QUuid>> &zones)
{
    if (!zones)
        return {};
    QStringList texts;
    for (const auto &zone : *zones)
        texts << zone.toString();
    return sortedList(texts);
}

boost::optional<QSet<QUuid>> zonesFromVariant(const QVariant &value)
{
    if (isAbsent(value))
        return boost::none;
    QSet<QUuid> zones;
    const auto list = value.toList();
    for (const auto &item : list) {
        const QUuid zone(item.toString());
        if (!zone.isNull()) // a null uid would open what belongs to no zone
            zones.insert(zone);
    }
    return zones;
}

QVariant rightsToVariant(const boost::optional<QSet<QString>> &rights)
{
    if (!rights)
        return {};
    return sortedList(rights->values());
}

boost::optional<QSet<QString>> rightsFromVariant(const QVariant &value)
{
    if (isAbsent(value))
        return boost::none;
    QSet<QString> rights;
    const auto list = value.toList();
    for (const auto &item : list)
        rights.insert(item.toString());
    return rights;
}

} // namespace

Entity UserInfo::toEntityNoPassword(const Model::UserInfo &user)
{
    Entity entity("user", user.login);
    entity.setAttribute("login", user.login);
    entity.setAttribute("group", user.group);
    entity.setAttribute("zones_whitelist", zonesToVariant(user.zonesWhitelist));
    entity.setAttribute("access_list", rightsToVariant(user.accessList));
    return entity;
}

QVariant UserInfo::toVariantNoPassword(const Model::UserInfo &user)
{
    return toEntityNoPassword(user).toVariant();
}

QVariant UserInfo::toVariant(const Model::UserInfo &user)
{
    auto entity = toEntityNoPassword(user);
    if (user.password)
        entity.setAttribute("password", QString::fromLatin1(user.password->toBase64()));
    return entity.toVariant();
}

Model::UserInfo UserInfo::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    Model::UserInfo user;
    user.login = attributes.value("login", entity.id).toString();
    const auto password = attributes.value("password");
    if (!isAbsent(password)) // written back, an empty one would replace the account's
        user.password = QByteArray::fromBase64(password.toString().toLatin1());
    user.group = attributes.value("group").toString();
    user.zonesWhitelist = zonesFromVariant(attributes.value("zones_whitelist"));
    user.accessList = rightsFromVariant(attributes.value("access_list"));
    return user;
}

} // namespace JsonAPI
