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
    std::vector<Model::UserInfo> users;
    Model::TimeInfo timeInfo;
    QByteArray backup;
    Model::Shop shop;

    // The callbacks of the last call that had one, to be run by the test as the server's answer.
    UidsCallback uidsCallback;
    Done doneCallback;
    UsersCallback usersCallback;
    BackupCallback backupCallback;

    void publishUsers(const std::vector<Model::UserInfo> &list) { emit backendUserListReceived(list); }
    void publishDeviceStates(const std::vector<Model::DeviceState> &list) { emit devicesStatesReceived(list); }
    void publishDeviceTypes(const std::vector<Model::DeviceTypeInfo> &list) { emit devicesTypesReceived(list); }
    void publishDeviceModes(const std::vector<Model::DeviceMode> &list) { emit devicesModesReceived(list); }
    void publishShopParts(const std::vector<Model::ShopPart> &list) { emit shopPartsReceived(list); }
    void publishZones(const std::vector<Model::Zone> &list) { emit zonesReceived(list); }
    void publishDevices(const std::vector<Model::DeviceDescriptor> &list) { emit devicesReceived(list); }
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
    void setSystemTime(const Model::TimeInfo &info, const Done &done) override;
    void getSystemTime() override;
    void getBackup(const BackupCallback &done) override;
    void restoreBackup(const QByteArray &bytes, const Done &done) override;
    void factoryReset() override;
    void setShop(const Model::Shop &site) override;
    void getAvailableComPorts() override;

protected:
    void auth(const QString &login, const QString &password) override;
    void onSubMessageReceived(const QList<QByteArray> &) override {}

private:
    template <typename T>
    void note(const char *operation, T &member, const T &value);
};
