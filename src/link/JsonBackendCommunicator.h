// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/AbstractBackendCommunicator.h"
#include "link/document/Request.h"
#include "link/document/Response.h"
#include "link/document/ZmqBinaryMessage.h"

#include <QMap>
#include <vector>

// Turns each operation of the server into a document, each reply into records, and each publication into a signal.
// The only class that knows the names of resources. The operations stand in JsonBackendOperations.cpp.
class JsonBackendCommunicator : public AbstractBackendCommunicator
{
    Q_OBJECT

public:
    explicit JsonBackendCommunicator(QObject *parent = nullptr, const LinkTimings &timings = {});
    ~JsonBackendCommunicator() override;

    void addZones(const std::vector<Model::Zone> &zones, const UidsCallback &done) override;
    void changeZones(const std::vector<Model::Zone> &zones) override;
    void removeZones(const std::vector<Model::Zone> &zones) override;
    void addDays(const std::vector<Model::ScheduleDay> &days, const UidsCallback &done) override;
    void changeDays(const std::vector<Model::ScheduleDay> &days) override;
    void removeDays(const std::vector<Model::ScheduleDay> &days) override;
    void addButtons(const std::vector<Model::Button> &buttons, const UidsCallback &done) override;
    void changeButtons(const std::vector<Model::Button> &buttons) override;
    void removeButtons(const std::vector<Model::Button> &buttons) override;
    void setButtonStates(const std::vector<Model::ButtonState> &states) override;
    void addShopParts(const std::vector<Model::ShopPart> &parts, const UidsCallback &done) override;
    void changeShopParts(const std::vector<Model::ShopPart> &parts) override;
    void removeShopParts(const std::vector<Model::ShopPart> &parts) override;
    void addDevices(const std::vector<Model::DeviceDescriptor> &devices, const UidsCallback &done) override;
    void changeDevices(const std::vector<Model::DeviceDescriptor> &devices) override;
    void removeDevices(const std::vector<Model::DeviceDescriptor> &devices) override;
    void setDeviceState(const std::vector<Model::DeviceState> &states) override;
    void runActionSequences(const std::vector<Model::ActionSequence> &sequences) override;
    void addUsers(const std::vector<Model::UserInfo> &users, const Done &done) override;
    void removeUsers(const std::vector<Model::UserInfo> &users, const Done &done) override;
    void changeUsers(const std::vector<Model::UserInfo> &users, const Done &done) override;
    void changeUsersRoles(const std::vector<Model::UserInfo> &users, const Done &done) override;
    void getUserList(const UsersCallback &done) override;
    void ping() override;
    void getStatistics(const QDateTime &from, const QDateTime &to, const StatisticsEntities &entities,
                       StatisticsGrain grain, const QUuid &requestId) override;
    void getLog(const QDateTime &from, const QDateTime &to, const LogCallback &done) override;
    void getStatisticsInfo(const StatisticsInfoCallback &done) override;
    void setSystemTime(const Model::TimeInfo &info, const Done &done) override;
    void getSystemTime() override;
    void addImageItem(const Model::ImageItem &item, const UidsCallback &done) override;
    void changeImageItem(const Model::ImageItem &item, const Done &done) override;
    void removeImageItems(const std::vector<Model::ImageItem> &items, const Done &done) override;
    void getImage(const QUuid &uid, const ImageCallback &done, const Done &failed) override;
    void addIndicators(const std::vector<Model::Indicator> &indicators, const UidsCallback &done) override;
    void changeIndicators(const std::vector<Model::Indicator> &indicators) override;
    void removeIndicators(const std::vector<Model::Indicator> &indicators) override;
    void addBlueprints(const std::vector<Model::ActionBlueprint> &blueprints, const UidsCallback &done) override;
    void changeBlueprints(const std::vector<Model::ActionBlueprint> &blueprints) override;
    void removeBlueprints(const std::vector<Model::ActionBlueprint> &blueprints) override;
    void getBackup(const BackupCallback &done) override;
    void restoreBackup(const QByteArray &bytes, const Done &done) override;
    void factoryReset() override;
    void setShop(const Model::Shop &shop) override;
    void setSettings(const Model::Settings &settings) override;
    void getRadioStatus() override;
    void getAvailableComPorts() override;
    void addView3DItem(const Model::View3DItem &item, const UidsCallback &done) override;
    void changeView3DItem(const Model::View3DItem &item, const Done &done) override;
    void removeView3DItems(const std::vector<Model::View3DItem> &items, const Done &done) override;
    void getView3DItem(const QUuid &uid, const View3DItemCallback &done, const Done &failed) override;
    void setPowerOnStatistics(const std::vector<Model::DevicePowerOnInfo> &infos) override;

protected:
    // Requests are refused; publications and replies are taken from whoever hands them over.
    JsonBackendCommunicator(WithoutSockets, QObject *parent);

    void auth(const QString &login, const QString &password) override;
    QStringList subscriptionTopics() const override;
    void onSubMessageReceived(const QList<QByteArray> &parts) override;
    void handleCommonErrors(const ParsedMessage &message) override;

    // The one road out for documents. Main thread only; throws zmq::error_t.
    std::shared_ptr<BackendReplyHandler> send(const JsonAPI::Request &request, int timeoutMs);
    void setCompressRequests(bool compress) { m_compressRequests = compress; }

    void dispatchSub(const QByteArray &topic, const JsonAPI::Response &response);
    void handleJsonErrors(const QByteArray &body);
    void handleResponseErrors(const JsonAPI::Response &response, bool mayReconnect = true);
    bool isCompatible(const QVersionNumber &serverVersion) const;

    // The uids of a result document: for each of its entities those added, then changed, then deleted.
    static std::vector<QUuid> parseResultResponse(const JsonAPI::Response &response);
    // A reply as a list of results. Errors are logged and reported, and give an empty list.
    std::vector<Model::Result> dispatchJsonReply(const JsonAPI::Response &response);

private:
    using Attach = std::function<void(BackendReplyHandler &)>;
    using Send = std::function<std::shared_ptr<BackendReplyHandler>()>;
    using TopicHandler = void (JsonBackendCommunicator::*)(const JsonAPI::Response &);

    struct Topic
    {
        const char *name;
        bool localised; // published in each language, as name/language
        TopicHandler handler; // none: its lists are not known here, only the version and the errors count
    };
    static const std::vector<Topic> &topics();

    // Every operation goes out by one of these two, from any thread; an error of the socket becomes a reconnect.
    void perform(const JsonAPI::Request &request, int timeoutMs, const Attach &attach = {});
    enum class Packing { Plain, Compressed };
    void upload(const ZmqBinaryMessage &message, const QByteArray &resource, Packing packing, int timeoutMs,
                const Attach &attach);
    bool isOnOwnThread() const;
    void attempt(const Send &send, const Attach &attach);

    // What is done with a reply, one for each kind. An operation without any has its errors shown all the same.
    static Attach uidList(const UidsCallback &done);
    static Attach whenDone(const Done &done);
    Attach errorsAgain();
    template <typename T>
    static Attach records(T (*converter)(const JsonAPI::Entity &),
                          const std::function<void(const std::vector<T> &)> &done);

    void onLoginReply(const QByteArray &body);
    void refuseServer(const QVersionNumber &serverVersion);
    // Calls lost when no reply will come, also of a request that was refused.
    void whenLost(BackendReplyHandler &reply, const Done &lost);
    // The same, and for a reply that is a document where a file was asked for.
    void whenFailed(BackendReplyHandler &reply, const Done &failed);
    void onImageReply(const QByteArray &body, const ImageCallback &done, const Done &failed);
    void onView3DItemReply(const QByteArray &body, const View3DItemCallback &done, const Done &failed);
    void onBackupReply(const QByteArray &body, const BackupCallback &done);
    void reportError(const QString &code, const QString &title, const QString &detail = {});

    bool publishStatesFast(const QByteArray &body);
    // A published list becomes records and one signal with all of them.
    template <auto fromVariant, auto received>
    void onListReceived(const JsonAPI::Response &response)
    {
        emit(this->*received)(JsonAPI::Entity::toType(response.data, fromVariant));
    }
    void onSettingsReceived(const JsonAPI::Response &response);

    bool m_compressRequests = true;
    QMap<QVersionNumber, bool> m_serverCompatibility; // each holds from its version up to the next
};
