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

void FakeCommunicator::addDays(const std::vector<Model::ScheduleDay> &list, const UidsCallback &done)
{
    note("addDays", days, list);
    uidsCallback = done;
}

void FakeCommunicator::changeDays(const std::vector<Model::ScheduleDay> &list)
{
    note("changeDays", days, list);
}

void FakeCommunicator::removeDays(const std::vector<Model::ScheduleDay> &list)
{
    note("removeDays", days, list);
}

void FakeCommunicator::addButtons(const std::vector<Model::Button> &list, const UidsCallback &done)
{
    note("addButtons", buttons, list);
    uidsCallback = done;
}

void FakeCommunicator::changeButtons(const std::vector<Model::Button> &list)
{
    note("changeButtons", buttons, list);
}

void FakeCommunicator::removeButtons(const std::vector<Model::Button> &list)
{
    note("removeButtons", buttons, list);
}

void FakeCommunicator::addIndicators(const std::vector<Model::Indicator> &list, const UidsCallback &done)
{
    note("addIndicators", indicators, list);
    uidsCallback = done;
}

void FakeCommunicator::changeIndicators(const std::vector<Model::Indicator> &list)
{
    note("changeIndicators", indicators, list);
}

void FakeCommunicator::removeIndicators(const std::vector<Model::Indicator> &list)
{
    note("removeIndicators", indicators, list);
}

void FakeCommunicator::addBlueprints(const std::vector<Model::ActionBlueprint> &list, const UidsCallback &done)
{
    note("addBlueprints", blueprints, list);
    uidsCallback = done;
}

void FakeCommunicator::changeBlueprints(const std::vector<Model::ActionBlueprint> &list)
{
    note("changeBlueprints", blueprints, list);
}

void FakeCommunicator::removeBlueprints(const std::vector<Model::ActionBlueprint> &list)
{
    note("removeBlueprints", blueprints, list);
}

void FakeCommunicator::setButtonStates(const std::vector<Model::ButtonState> &list)
{
    note("setButtonStates", buttonStates, list);
}

void FakeCommunicator::setPowerOnStatistics(const std::vector<Model::DevicePowerOnInfo> &list)
{
    note("setPowerOnStatistics", powerOnInfos, list);
}

void FakeCommunicator::setSettings(const Model::Settings &value)
{
    note("setSettings", settings, value);
}

void FakeCommunicator::getRadioStatus()
{
    operations << QStringLiteral("getRadioStatus");
}

void FakeCommunicator::addImageItem(const Model::ImageItem &item, const UidsCallback &done)
{
    note("addImageItem", imageItems, {item});
    uidsCallback = done;
}

void FakeCommunicator::changeImageItem(const Model::ImageItem &item, const Done &done)
{
    note("changeImageItem", imageItems, {item});
    doneCallback = done;
}

void FakeCommunicator::removeImageItems(const std::vector<Model::ImageItem> &list, const Done &done)
{
    note("removeImageItems", imageItems, list);
    doneCallback = done;
}

void FakeCommunicator::addView3DItem(const Model::View3DItem &item, const UidsCallback &done)
{
    note("addView3DItem", view3DItems, {item});
    uidsCallback = done;
}

void FakeCommunicator::changeView3DItem(const Model::View3DItem &item, const Done &done)
{
    note("changeView3DItem", view3DItems, {item});
    doneCallback = done;
}

void FakeCommunicator::removeView3DItems(const std::vector<Model::View3DItem> &list, const Done &done)
{
    note("removeView3DItems", view3DItems, list);
    doneCallback = done;
}

void FakeCommunicator::getImage(const QUuid &uid, const ImageCallback &done, const Done &failed)
{
    note("getImage", requestedUid, uid);
    imageCallback = done;
    failedCallback = failed;
}

void FakeCommunicator::getView3DItem(const QUuid &uid, const View3DItemCallback &done, const Done &failed)
{
    note("getView3DItem", requestedUid, uid);
    view3DItemCallback = done;
    failedCallback = failed;
}

void FakeCommunicator::getStatistics(const QDateTime &start, const QDateTime &end, const StatisticsEntities &entities,
                                     StatisticsGrain grain, const QUuid &requestId)
{
    operations << QStringLiteral("getStatistics");
    from = start;
    to = end;
    statisticsEntities = entities;
    statisticsGrain = grain;
    statisticsRequest = requestId;
}

void FakeCommunicator::getLog(const QDateTime &start, const QDateTime &end, const LogCallback &done)
{
    operations << QStringLiteral("getLog");
    from = start;
    to = end;
    logCallback = done;
}

void FakeCommunicator::getStatisticsInfo(const StatisticsInfoCallback &done)
{
    operations << QStringLiteral("getStatisticsInfo");
    statisticsInfoCallback = done;
}
