// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/FakeCommunicator.h"

FakeCommunicator::FakeCommunicator(QObject *parent)
    : AbstractBackendCommunicator(WithoutSockets(), parent)
{}

template <typename T>
void FakeCommunicator::note(const char *operation, T &member, const T &value)
{
    operations << QString::fromLatin1(operation);
    member = value;
}

void FakeCommunicator::logIn(const QString &login, const QString &group)
{
    init(getAddress(), login, QString(), getControlPort(), getUpdatePort());
    setUserGroup(group);
    setStatus(Connected);
}

void FakeCommunicator::auth(const QString &, const QString &)
{
    operations << QStringLiteral("auth");
}

void FakeCommunicator::addZones(const std::vector<Model::Zone> &list, const UidsCallback &done)
{
    note("addZones", zones, list);
    uidsCallback = done;
}

void FakeCommunicator::changeZones(const std::vector<Model::Zone> &list)
{
    note("changeZones", zones, list);
}

void FakeCommunicator::removeZones(const std::vector<Model::Zone> &list)
{
    note("removeZones", zones, list);
}

void FakeCommunicator::addShopParts(const std::vector<Model::ShopPart> &list, const UidsCallback &done)
{
    note("addShopParts", shopParts, list);
    uidsCallback = done;
}

void FakeCommunicator::changeShopParts(const std::vector<Model::ShopPart> &list)
{
    note("changeShopParts", shopParts, list);
}

void FakeCommunicator::removeShopParts(const std::vector<Model::ShopPart> &list)
{
    note("removeShopParts", shopParts, list);
}

void FakeCommunicator::addDevices(const std::vector<Model::DeviceDescriptor> &list, const UidsCallback &done)
{
    note("addDevices", devices, list);
    uidsCallback = done;
}

void FakeCommunicator::changeDevices(const std::vector<Model::DeviceDescriptor> &list)
{
    note("changeDevices", devices, list);
}

void FakeCommunicator::removeDevices(const std::vector<Model::DeviceDescriptor> &list)
{
    note("removeDevices", devices, list);
}

void FakeCommunicator::setDeviceState(const std::vector<Model::DeviceState> &list)
{
    note("setDeviceState", deviceStates, list);
}

void FakeCommunicator::runActionSequences(const std::vector<Model::ActionSequence> &list)
{
    note("runActionSequences", sequences, list);
}

void FakeCommunicator::addUsers(const std::vector<Model::UserInfo> &list, const Done &done)
{
    note("addUsers", users, list);
    doneCallback = done;
}

void FakeCommunicator::removeUsers(const std::vector<Model::UserInfo> &list, const Done &done)
{
    note("removeUsers", users, list);
    doneCallback = done;
}

void FakeCommunicator::changeUsers(const std::vector<Model::UserInfo> &list, const Done &done)
{
    note("changeUsers", users, list);
    doneCallback = done;
}

void FakeCommunicator::changeUsersRoles(const std::vector<Model::UserInfo> &list, const Done &done)
{
    note("changeUsersRoles", users, list);
    doneCallback = done;
}

void FakeCommunicator::getUserList(const UsersCallback &done)
{
    operations << QStringLiteral("getUserList");
    usersCallback = done;
}

void FakeCommunicator::ping()
{
    operations << QStringLiteral("ping");
}

void FakeCommunicator::setSystemTime(const Model::TimeInfo &info, const Done &done)
{
    note("setSystemTime", timeInfo, info);
    doneCallback = done;
}

void FakeCommunicator::getSystemTime()
{
    operations << QStringLiteral("getSystemTime");
}

void FakeCommunicator::getBackup(const BackupCallback &done)
{
    operations << QStringLiteral("getBackup");
    backupCallback = done;
}

void FakeCommunicator::restoreBackup(const QByteArray &bytes, const Done &done)
{
    note("restoreBackup", backup, bytes);
    doneCallback = done;
}

void FakeCommunicator::factoryReset()
{
    operations << QStringLiteral("factoryReset");
}

void FakeCommunicator::setShop(const Model::Shop &site)
{
    note("setShop", shop, site);
}

void FakeCommunicator::getAvailableComPorts()
{
    operations << QStringLiteral("getAvailableComPorts");
}
