// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/AbstractBackendCommunicator.h"

// A communicator without sockets: notes the operations called on it, in order, and publishes lists on demand.
class FakeCommunicator : public AbstractBackendCommunicator
{
    Q_OBJECT

public:
    explicit FakeCommunicator(QObject *parent = nullptr);

    // What was called, by the name of the operation, oldest first.
    QStringList operations;

    // The arguments of the last call of each kind.
    std::vector<Model::Zone> zones;
    std::vector<Model::ShopPart> shopParts;
    std::vector<Model::DeviceDescriptor> devices;
    std::vector<Model::DeviceState> deviceStates;
    std::vector<Model::ActionSequence> sequences;
    std::vector<Model::ScheduleDay> days;
    std::vector<Model::Button> buttons;
    std::vector<Model::ButtonState> buttonStates;
    std::vector<Model::Indicator> indicators;
    std::vector<Model::ActionBlueprint> blueprints;
    std::vector<Model::ImageItem> imageItems;
    std::vector<Model::View3DItem> view3DItems;
    std::vector<Model::DevicePowerOnInfo> powerOnInfos;
    Model::Settings settings;
    QUuid requestedUid; // of the picture or mesh asked for last
    QDateTime from; // of the statistics or the journal asked for last
    QDateTime to;
    StatisticsEntities statisticsEntities;
    StatisticsGrain statisticsGrain = StatisticsGrain::Minute;
    QUuid statisticsRequest;
    std::vector<Model::UserInfo> users;
    Model::TimeInfo timeInfo;
    QByteArray backup;
    Model::Shop shop;

    // The callbacks of the last call that had one, to be run by the test as the server's answer.
    UidsCallback uidsCallback;
    Done doneCallback;
    UsersCallback usersCallback;
    BackupCallback backupCallback;
    LogCallback logCallback;
    StatisticsInfoCallback statisticsInfoCallback;
    ImageCallback imageCallback;
    View3DItemCallback view3DItemCallback;
    Done failedCallback;

    void publishButtonStates(const std::vector<Model::ButtonState> &list) { emit buttonStateListReceived(list); }
    void tellVersion(const QVersionNumber &version) { setServerVersion(version); }
    void publishUsers(const std::vector<Model::UserInfo> &list) { emit backendUserListReceived(list); }
    void publishDeviceStates(const std::vector<Model::DeviceState> &list) { emit devicesStatesReceived(list); }
    void publishDeviceTypes(const std::vector<Model::DeviceTypeInfo> &list) { emit devicesTypesReceived(list); }
    void publishDeviceModes(const std::vector<Model::DeviceMode> &list) { emit devicesModesReceived(list); }
    void publishActionNodes(const std::vector<Model::NodeDescription> &list) { emit actionNodesReceived(list); }
    void publishShopParts(const std::vector<Model::ShopPart> &list) { emit shopPartsReceived(list); }
    void publishZones(const std::vector<Model::Zone> &list) { emit zonesReceived(list); }
    void publishButtons(const std::vector<Model::Button> &list) { emit buttonsReceived(list); }
    void publishIndicators(const std::vector<Model::Indicator> &list) { emit indicatorsReceived(list); }
    void publishIndicatorStates(const std::vector<Model::IndicatorState> &list) { emit indicatorStatesReceived(list); }
    void publishDevices(const std::vector<Model::DeviceDescriptor> &list) { emit devicesReceived(list); }
    void publishBlueprints(const std::vector<Model::ActionBlueprint> &list) { emit blueprintsReceived(list); }
    void publishSchedules(const std::vector<Model::ScheduleDay> &list) { emit schedulesReceived(list); }
    void publishImageItems(const std::vector<Model::ImageItem> &list) { emit imageItemsReceived(list); }
    void publishView3DItems(const std::vector<Model::View3DItem> &list) { emit view3DItemsReceived(list); }
    void publishPowerOnStatistics(const std::vector<Model::DevicePowerOnInfo> &list)
    {
        emit powerOnStatisticsReceived(list);
    }
    void publishSettings(const Model::Settings &value) { emit settingsReceived(value); }
    void publishRadioStatus(const std::vector<Model::RadioStatus> &list) { emit radioStatusReceived(list); }
    void publishComPorts(const QStringList &ports) { emit availableComPortsReceived(ports); }
    void answerStatistics(const Model::Statistics &statistics, const QUuid &requestId)
    {
        emit statisticsReceived(statistics, requestId);
    }
    void publishSystemTime(const Model::TimeInfo &info) { emit systemTimeReceived(info); }
    void publishTime(const QDateTime &time) { emit timeReceived(time); }
    void reportErrors(const std::vector<Model::Result::Error> &errors) { emit errorsReceived(errors); }

    // The link as if it had logged in, lost the server, or been closed. The login sets what getCurrentLogin() gives.
    void enter(Status status) { setStatus(status); }
    void logIn(const QString &login, const QString &group);

    using AbstractBackendCommunicator::setServerVersion;

    void addZones(const std::vector<Model::Zone> &list, const UidsCallback &done) override;
    void changeZones(const std::vector<Model::Zone> &list) override;
    void removeZones(const std::vector<Model::Zone> &list) override;
    void addDays(const std::vector<Model::ScheduleDay> &list, const UidsCallback &done) override;
    void changeDays(const std::vector<Model::ScheduleDay> &list) override;
    void removeDays(const std::vector<Model::ScheduleDay> &list) override;
    void addButtons(const std::vector<Model::Button> &list, const UidsCallback &done) override;
    void changeButtons(const std::vector<Model::Button> &list) override;
    void removeButtons(const std::vector<Model::Button> &list) override;
    void setButtonStates(const std::vector<Model::ButtonState> &list) override;
    void addShopParts(const std::vector<Model::ShopPart> &list, const UidsCallback &done) override;
    void changeShopParts(const std::vector<Model::ShopPart> &list) override;
    void removeShopParts(const std::vector<Model::ShopPart> &list) override;
    void addDevices(const std::vector<Model::DeviceDescriptor> &list, const UidsCallback &done) override;
    void changeDevices(const std::vector<Model::DeviceDescriptor> &list) override;
    void removeDevices(const std::vector<Model::DeviceDescriptor> &list) override;
    void setDeviceState(const std::vector<Model::DeviceState> &list) override;
    void runActionSequences(const std::vector<Model::ActionSequence> &list) override;
    void addUsers(const std::vector<Model::UserInfo> &list, const Done &done) override;
    void removeUsers(const std::vector<Model::UserInfo> &list, const Done &done) override;
    void changeUsers(const std::vector<Model::UserInfo> &list, const Done &done) override;
    void changeUsersRoles(const std::vector<Model::UserInfo> &list, const Done &done) override;
    void getUserList(const UsersCallback &done) override;
    void ping() override;
    void getStatistics(const QDateTime &start, const QDateTime &end, const StatisticsEntities &entities,
                       StatisticsGrain grain, const QUuid &requestId) override;
    void getLog(const QDateTime &start, const QDateTime &end, const LogCallback &done) override;
    void getStatisticsInfo(const StatisticsInfoCallback &done) override;
    void setSystemTime(const Model::TimeInfo &info, const Done &done) override;
    void getSystemTime() override;
    void addImageItem(const Model::ImageItem &item, const UidsCallback &done) override;
    void changeImageItem(const Model::ImageItem &item, const Done &done) override;
    void removeImageItems(const std::vector<Model::ImageItem> &list, const Done &done) override;
    void getImage(const QUuid &uid, const ImageCallback &done, const Done &failed) override;
    void addIndicators(const std::vector<Model::Indicator> &list, const UidsCallback &done) override;
    void changeIndicators(const std::vector<Model::Indicator> &list) override;
    void removeIndicators(const std::vector<Model::Indicator> &list) override;
    void addBlueprints(const std::vector<Model::ActionBlueprint> &list, const UidsCallback &done) override;
    void changeBlueprints(const std::vector<Model::ActionBlueprint> &list) override;
    void removeBlueprints(const std::vector<Model::ActionBlueprint> &list) override;
    void getBackup(const BackupCallback &done) override;
    void restoreBackup(const QByteArray &bytes, const Done &done) override;
    void factoryReset() override;
    void setShop(const Model::Shop &site) override;
    void setSettings(const Model::Settings &value) override;
    void getRadioStatus() override;
    void getAvailableComPorts() override;
    void addView3DItem(const Model::View3DItem &item, const UidsCallback &done) override;
    void changeView3DItem(const Model::View3DItem &item, const Done &done) override;
    void removeView3DItems(const std::vector<Model::View3DItem> &list, const Done &done) override;
    void getView3DItem(const QUuid &uid, const View3DItemCallback &done, const Done &failed) override;
    void setPowerOnStatistics(const std::vector<Model::DevicePowerOnInfo> &list) override;

protected:
    void auth(const QString &login, const QString &password) override;
    void onSubMessageReceived(const QList<QByteArray> &) override {}

private:
    template <typename T>
    void note(const char *operation, T &member, const T &value);
};
