// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DeviceTypeInfo.h"
#include "model/Devices.h"
#include "model/Site.h"
#include "model/UserInfo.h"

#include <QAbstractItemModel>
#include <QUuid>

// Records for the tests of models. The hash of uid(n) is n, which makes sort keys easy to write by hand.
namespace Records {

inline QUuid uid(uint n)
{
    return QUuid(n, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
}

inline QString text(uint n)
{
    return uid(n).toString();
}

inline Model::Zone zone(uint n, const QString &name = {}, uint part = 0)
{
    Model::Zone zone;
    zone.uid = uid(n);
    zone.name = name;
    zone.partUid = part == 0 ? QUuid() : uid(part);
    return zone;
}

inline Model::ShopPart part(uint n, const QString &name)
{
    Model::ShopPart part;
    part.uid = uid(n);
    part.name = name;
    return part;
}

inline Model::DeviceDescriptor device(uint n, uint zone = 0, const QString &url = {}, int address = 0)
{
    Model::DeviceDescriptor device;
    device.uid = uid(n);
    device.zoneUid = zone == 0 ? QUuid() : uid(zone);
    device.url = QUrl(url);
    device.address = address;
    return device;
}

inline Model::DeviceState state(uint n, const QVariantMap &values)
{
    return {uid(n), values};
}

inline Model::DeviceMode manual(uint n)
{
    return {uid(n), Model::DeviceMode::Mode::Manual};
}

inline Model::DeviceMode automatic(uint n)
{
    return {uid(n), Model::DeviceMode::Mode::Automatic};
}

inline Model::DeviceTypeInfo type(const QString &url, const QString &name, int sortOrder = 0,
                                  const QString &commonType = QStringLiteral("lamp"))
{
    Model::DeviceTypeInfo type;
    type.url = QUrl(url);
    type.version = 1;
    type.name = name;
    type.sortOrder = sortOrder;
    type.commonType = commonType;
    return type;
}

inline Model::UserInfo user(const QString &login, const QString &group = QStringLiteral("user"))
{
    Model::UserInfo user;
    user.login = login;
    user.group = group;
    return user;
}

inline Model::UserInfo limitedUser(const QString &login, const QSet<QUuid> &whitelist)
{
    auto record = user(login);
    record.zonesWhitelist = whitelist;
    return record;
}

inline QVariant value(const QAbstractItemModel &model, int row, int role)
{
    return model.data(model.index(row, 0), role);
}

// That role of all rows, as texts.
inline QStringList column(const QAbstractItemModel &model, int role)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts << value(model, row, role).toString();
    return texts;
}

} // namespace Records
