// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/BackendDataCache.h"
#include "link/BackendReplyHandler.h"
#include "link/LinkTimings.h"
#include "link/PublicationWatch.h"
#include "link/StallWatch.h"
#include "link/document/ZmqMessageHeader.h"
#include "model/ActionBlueprint.h"
#include "model/Actions.h"
#include "model/DeviceTypeInfo.h"
#include "model/Devices.h"
#include "model/NodeDescription.h"
#include "model/PlanObjects.h"
#include "model/RadioStatus.h"
#include "model/Result.h"
#include "model/Schedule.h"
#include "model/Settings.h"
#include "model/Site.h"
#include "model/Statistics.h"
#include "model/TimeInfo.h"
#include "model/UserInfo.h"

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QList>
#include <QMutex>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QVersionNumber>
#include <atomic>
#include <boost/optional.hpp>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace nzmqt {
class PollingZMQContext;
class ZMQSocket;
}

// The client of the server: owns both sockets, sends requests, matches replies to callbacks, watches time-outs, keeps
// the link alive by pinging, and knows its status. What the documents mean is the derived class's business.
// Lives on the main thread; operations called elsewhere post themselves there. QML knows it as "Backend".
class AbstractBackendCommunicator : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString address READ getAddress WRITE setAddress NOTIFY addressChanged)
    Q_PROPERTY(int controlPort READ getControlPort WRITE setControlPort NOTIFY controlPortChanged)
    Q_PROPERTY(int updatePort READ getUpdatePort WRITE setUpdatePort NOTIFY updatePortChanged)
    Q_PROPERTY(QString userGroup READ getUserGroup NOTIFY userGroupChanged)
    Q_PROPERTY(int status READ getStatus NOTIFY statusChanged)
    Q_PROPERTY(bool publicationsAlive READ getPublicationsAlive NOTIFY publicationsAliveChanged)
    Q_PROPERTY(int versionMajor READ getVersionMajor NOTIFY serverVersionChanged)
    Q_PROPERTY(int versionMinor READ getVersionMinor NOTIFY serverVersionChanged)
    Q_PROPERTY(int versionPatch READ getVersionPatch NOTIFY serverVersionChanged)
    Q_PROPERTY(QString login READ getCurrentLogin NOTIFY userCredentialsChanged)
    Q_PROPERTY(QString password READ getCurrentPassword NOTIFY userCredentialsChanged)

public:
    enum Status { Disconnected = 0, Connecting = 1, Connected = 2 };
    Q_ENUM(Status)

    using Done = std::function<void()>;
    using UidsCallback = std::function<void(const std::vector<QUuid> &uids)>;
    using UsersCallback = std::function<void(const std::vector<Model::UserInfo> &users)>;
    using LogCallback = std::function<void(const std::vector<Model::LogEntry> &entries)>;
    using StatisticsInfoCallback = std::function<void(const Model::StatisticsInfo &info)>;
    using ImageCallback = std::function<void(const Model::ImageItem::Image &image)>;
    using View3DItemCallback = std::function<void(const Model::View3DItem &item)>;
    using BackupCallback = std::function<void(const QString &fileName, const QByteArray &data)>;

    enum class StatisticsGrain { Minute, Hour };
    using StatisticsEntities = std::vector<std::pair<QUuid, QString>>; // devices or zones with types of series

    explicit AbstractBackendCommunicator(QObject *parent = nullptr, const LinkTimings &timings = {});
    ~AbstractBackendCommunicator() override;

    // Connects and logs in. False if the address was refused. Blanks around the address are dropped.
    Q_INVOKABLE bool init(const QString &address, const QString &login, const QString &password,
                          int controlPort = 23137, int updatePort = 23138);
    Q_INVOKABLE bool reinit(); // with the stored values
    Q_INVOKABLE void reconnect();
    Q_INVOKABLE void disconnectFromServer();
    Q_INVOKABLE QString getCurrentLogin() const { return m_login; }
    Q_INVOKABLE QString getCurrentPassword() const { return m_password; }

    // Setters store and notify; they take effect at the next init.
    QString getAddress() const { return m_address; }
    void setAddress(const QString &address); // only a text with blanks around it is taken, without them
    int getControlPort() const { return m_controlPort; }
    void setControlPort(int port);
    int getUpdatePort() const { return m_updatePort; }
    void setUpdatePort(int port);

    QString getUserGroup() const { return m_userGroup; }
    Status getStatus() const { return m_status; }
    // False while connected with a publication socket that is down: what is on screen may be old.
    bool getPublicationsAlive() const { return m_publicationWatch.isAlive(); }
    int getVersionMajor() const { return m_serverVersion.segmentCount() > 0 ? m_serverVersion.segmentAt(0) : 0; }
    int getVersionMinor() const { return m_serverVersion.segmentCount() > 1 ? m_serverVersion.segmentAt(1) : 0; }
    int getVersionPatch() const { return m_serverVersion.segmentCount() > 2 ? m_serverVersion.segmentAt(2) : 0; }

    BackendDataCache &getDataCache() { return m_dataCache; }
    const BackendDataCache &getDataCache() const { return m_dataCache; }

    // The operations of the server. Most have no callback: their result is the next publication. A callback may never
    // come (an error, a lost link).
    virtual void addZones(const std::vector<Model::Zone> &zones, const UidsCallback &done) = 0;
    virtual void changeZones(const std::vector<Model::Zone> &zones) = 0;
    virtual void removeZones(const std::vector<Model::Zone> &zones) = 0;
    virtual void addDays(const std::vector<Model::ScheduleDay> &days, const UidsCallback &done) = 0;
    virtual void changeDays(const std::vector<Model::ScheduleDay> &days) = 0;
    virtual void removeDays(const std::vector<Model::ScheduleDay> &days) = 0;
    virtual void addButtons(const std::vector<Model::Button> &buttons, const UidsCallback &done) = 0;
    virtual void changeButtons(const std::vector<Model::Button> &buttons) = 0;
    virtual void removeButtons(const std::vector<Model::Button> &buttons) = 0;
    virtual void setButtonStates(const std::vector<Model::ButtonState> &states) = 0;
    virtual void addShopParts(const std::vector<Model::ShopPart> &parts, const UidsCallback &done) = 0;
    virtual void changeShopParts(const std::vector<Model::ShopPart> &parts) = 0;
    virtual void removeShopParts(const std::vector<Model::ShopPart> &parts) = 0;
    virtual void addDevices(const std::vector<Model::DeviceDescriptor> &devices, const UidsCallback &done) = 0;
    virtual void changeDevices(const std::vector<Model::DeviceDescriptor> &devices) = 0;
    virtual void removeDevices(const std::vector<Model::DeviceDescriptor> &devices) = 0;
    virtual void setDeviceState(const std::vector<Model::DeviceState> &states) = 0;
    virtual void runActionSequences(const std::vector<Model::ActionSequence> &sequences) = 0;
    virtual void addUsers(const std::vector<Model::UserInfo> &users, const Done &done) = 0;
    virtual void removeUsers(const std::vector<Model::UserInfo> &users, const Done &done) = 0;
    virtual void changeUsers(const std::vector<Model::UserInfo> &users, const Done &done) = 0;
    virtual void changeUsersRoles(const std::vector<Model::UserInfo> &users, const Done &done) = 0;
    virtual void getUserList(const UsersCallback &done) = 0;
    Q_INVOKABLE virtual void ping() = 0;
    // Always answered by statisticsReceived with that id, empty when the reply is lost or has no data. An empty type
    // asks for every series of its device or zone.
    virtual void getStatistics(const QDateTime &from, const QDateTime &to, const StatisticsEntities &entities,
                               StatisticsGrain grain, const QUuid &requestId) = 0;
    virtual void getLog(const QDateTime &from, const QDateTime &to, const LogCallback &done) = 0;
    virtual void getStatisticsInfo(const StatisticsInfoCallback &done) = 0;
    virtual void setSystemTime(const Model::TimeInfo &info, const Done &done) = 0;
    virtual void getSystemTime() = 0;
    virtual void addImageItem(const Model::ImageItem &item, const UidsCallback &done) = 0;
    virtual void changeImageItem(const Model::ImageItem &item, const Done &done) = 0;
    virtual void removeImageItems(const std::vector<Model::ImageItem> &items, const Done &done) = 0;
    // failed is called when the answer is an error or never comes.
    virtual void getImage(const QUuid &uid, const ImageCallback &done, const Done &failed) = 0;
    virtual void addIndicators(const std::vector<Model::Indicator> &indicators, const UidsCallback &done) = 0;
    virtual void changeIndicators(const std::vector<Model::Indicator> &indicators) = 0;
    virtual void removeIndicators(const std::vector<Model::Indicator> &indicators) = 0;
    virtual void addBlueprints(const std::vector<Model::ActionBlueprint> &blueprints, const UidsCallback &done) = 0;
    virtual void changeBlueprints(const std::vector<Model::ActionBlueprint> &blueprints) = 0;
    virtual void removeBlueprints(const std::vector<Model::ActionBlueprint> &blueprints) = 0;
    virtual void getBackup(const BackupCallback &done) = 0;
    virtual void restoreBackup(const QByteArray &bytes, const Done &done) = 0;
    virtual void factoryReset() = 0;
    virtual void setShop(const Model::Shop &shop) = 0;
    virtual void setSettings(const Model::Settings &settings) = 0;
    virtual void getRadioStatus() = 0;
    virtual void getAvailableComPorts() = 0;
    virtual void addView3DItem(const Model::View3DItem &item, const UidsCallback &done) = 0;
    virtual void changeView3DItem(const Model::View3DItem &item, const Done &done) = 0;
    virtual void removeView3DItems(const std::vector<Model::View3DItem> &items, const Done &done) = 0;
    // The record with its mesh. failed is called when the answer is an error or never comes.
    virtual void getView3DItem(const QUuid &uid, const View3DItemCallback &done, const Done &failed) = 0;
    virtual void setPowerOnStatistics(const std::vector<Model::DevicePowerOnInfo> &infos) = 0;

signals:
    void addressChanged();
    void controlPortChanged();
    void updatePortChanged();
    void errorOccured(const QString &message);
    void authRequired();
    void userGroupChanged();
    void statusChanged();
    void publicationsAliveChanged();
    void serverVersionChanged();
    void userCredentialsChanged();
    void backendMessageReceived(const QString &message);
    void errorsReceived(const std::vector<Model::Result::Error> &errors);

    void shopReceived(const Model::Shop &shop);
    void buttonStateListReceived(const std::vector<Model::ButtonState> &states);
    void backendUserListReceived(const std::vector<Model::UserInfo> &users);
    void devicesStatesReceived(const std::vector<Model::DeviceState> &states);
    void devicesTypesReceived(const std::vector<Model::DeviceTypeInfo> &types);
    void devicesModesReceived(const std::vector<Model::DeviceMode> &modes);
    void actionNodesReceived(const std::vector<Model::NodeDescription> &nodes);
    void shopPartsReceived(const std::vector<Model::ShopPart> &parts);
    void zonesReceived(const std::vector<Model::Zone> &zones);
    void buttonsReceived(const std::vector<Model::Button> &buttons);
    void indicatorsReceived(const std::vector<Model::Indicator> &indicators);
    void indicatorStatesReceived(const std::vector<Model::IndicatorState> &states);
    void devicesReceived(const std::vector<Model::DeviceDescriptor> &devices);
    void blueprintsReceived(const std::vector<Model::ActionBlueprint> &blueprints);
    void schedulesReceived(const std::vector<Model::ScheduleDay> &days);
    void settingsReceived(const Model::Settings &settings);
    void systemTimeReceived(const Model::TimeInfo &info);
    void timeReceived(const QDateTime &time);
    void imageItemsReceived(const std::vector<Model::ImageItem> &items);
    void view3DItemsReceived(const std::vector<Model::View3DItem> &items);
    void powerOnStatisticsReceived(const std::vector<Model::DevicePowerOnInfo> &infos);
    void radioStatusReceived(const std::vector<Model::RadioStatus> &status);
    void statisticsReceived(const Model::Statistics &statistics, const QUuid &requestId);
    void availableComPortsReceived(const QStringList &ports);

protected:
    enum class MessageType { Json = 0, Binary = 1 };

    struct ParsedMessage
    {
        MessageType type = MessageType::Json;
        QByteArray id;
        QByteArray body; // unpacked
    };

    struct WithoutSockets
    {};
    // For a communicator that only notes operations and publishes lists: no sockets, no timers, no wait at the end.
    AbstractBackendCommunicator(WithoutSockets, QObject *parent);

    virtual void auth(const QString &login, const QString &password) = 0;
    virtual QStringList subscriptionTopics() const { return {}; }
    virtual void onSubMessageReceived(const QList<QByteArray> &parts) = 0;
    virtual void onReplyMessageReceived(const QList<QByteArray> &parts);
    virtual void handleCommonErrors(const ParsedMessage &) {}

    // None for a message without the empty delimiter, too short, with a bad header, neither JSON nor raw, or that
    // unpacks to more than is allowed.
    static boost::optional<ParsedMessage> parseMessage(const QList<QByteArray> &parts);

    // Tags the header with id:counter, sends, and returns the handler to attach callbacks to. Throws zmq::error_t.
    std::shared_ptr<BackendReplyHandler> sendRequest(ZmqMessageHeader header, const QByteArray &body, int timeoutMs);
    void sendMessage(nzmqt::ZMQSocket &socket, QList<QByteArray> parts); // behind an empty frame
    void subscribe(const QStringList &topics);
    void createRequestSocket();
    void destroyRequestSocket();
    void createSubscriberSocket();
    void destroySubscriberSocket();
    void addReplyHandle(const std::shared_ptr<BackendReplyHandler> &handler);
    std::shared_ptr<BackendReplyHandler> takeReplyHandle(const QByteArray &id);
    QString responseSocketAddress() const;
    QString publisherSocketAddress() const;
    void checkReplyTimeouts();
    void abortAllRequests();
    void setStatus(Status status);
    void setUserGroup(const QString &group);
    const QVersionNumber &getServerVersion() const { return m_serverVersion; }
    void setServerVersion(const QVersionNumber &version);
    const LinkTimings &timings() const { return m_timings; }

    // The transport of requests, none without sockets.
    nzmqt::PollingZMQContext *requestContext() const { return m_requestContext.get(); }

    // For the connections made from now on; the library closes one whose peer sends a larger frame.
    void setLargestMessage(qint64 bytes);

    // The last derived destructor calls it first: discard callbacks run here and may still call operations, which are
    // refused from now on.
    void shutDown();

private:
    using ReplyHandles = QHash<QByteArray, std::shared_ptr<BackendReplyHandler>>;

    void createSockets();
    void dropReplyHandles();
    void dropLateReplyHandles();
    ReplyHandles takeReplyHandles(bool aborting);
    void onPingTick();
    void onPollTick();
    void onPublicationsLost();

    // Members are destroyed in reverse order: sockets before their contexts, the cache last.
    BackendDataCache m_dataCache;
    LinkTimings m_timings;
    QString m_address = QStringLiteral("127.0.0.1");
    QString m_login;
    QString m_password;
    int m_controlPort = 23137;
    int m_updatePort = 23138;
    QString m_requestEndpoint; // what the sockets are connected to, whatever was set since; empty: nothing
    QString m_subscriberEndpoint;
    std::unique_ptr<nzmqt::PollingZMQContext> m_requestContext;
    std::unique_ptr<nzmqt::ZMQSocket> m_requestSocket;
    std::unique_ptr<nzmqt::PollingZMQContext> m_subscriberContext;
    std::unique_ptr<nzmqt::ZMQSocket> m_subscriberSocket;
    QStringList m_subscribedTopics;
    ReplyHandles m_replyHandles;
    QTimer m_replyTimeoutTimer;
    QMutex m_requestMutex; // over sending and the swap of the reply handles
    QTimer m_pingTimer;
    PublicationWatch m_publicationWatch;
    StallWatch m_stallWatch;
    std::atomic<bool> m_aborting{false};
    bool m_shutDown = false;
    int m_session = 0; // counts the calls that begin or end a connection: a slot of one may begin the next
    QString m_userGroup;
    Status m_status = Disconnected;
    QVersionNumber m_serverVersion;
};
