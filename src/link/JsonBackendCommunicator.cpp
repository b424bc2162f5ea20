// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/JsonBackendCommunicator.h"

#include "link/LinkLog.h"
#include "link/zmq/ZmqError.h"
#include "model/json/ActionBlueprint.h"
#include "model/json/Button.h"
#include "model/json/ButtonState.h"
#include "model/json/Device.h"
#include "model/json/DeviceMode.h"
#include "model/json/DevicePowerOnInfo.h"
#include "model/json/DeviceState.h"
#include "model/json/DeviceStatesReader.h"
#include "model/json/DeviceType.h"
#include "model/json/ImageItem.h"
#include "model/json/Indicator.h"
#include "model/json/IndicatorState.h"
#include "model/json/NodeDescription.h"
#include "model/json/ScheduleDay.h"
#include "model/json/Settings.h"
#include "model/json/ShopPart.h"
#include "model/json/UserInfo.h"
#include "model/json/View3DItem.h"
#include "model/json/Zone.h"
#include "shell/Version.h"

#include <QDebug>
#include <QLocale>
#include <QThread>

namespace {

constexpr int defaultControlPort = 23140;
constexpr int defaultUpdatePort = 23141;
constexpr char loginResource[] = "auth";

// Queued: whatever the caller is in the middle of comes to its end first.
void disconnectLater(AbstractBackendCommunicator *communicator)
{
    QMetaObject::invokeMethod(communicator, &AbstractBackendCommunicator::disconnectFromServer, Qt::QueuedConnection);
}

std::vector<QString> relatedIds(const JsonAPI::Entity &entity, const QString &name)
{
    std::vector<QString> ids;
    for (const auto &relation : entity.relationships.getRelations(name))
        ids.push_back(relation.id);
    return ids;
}

QMap<QVersionNumber, bool> knownVersions()
{
    return {{QVersionNumber(4, 2, 0), false}, {QVersionNumber(4, 3, 0), true}, {Version::number(), true}};
}

bool isResult(const JsonAPI::Entity &entity)
{
    return entity.type == QLatin1String("response");
}

} // namespace

JsonBackendCommunicator::JsonBackendCommunicator(QObject *parent, const LinkTimings &timings)
    : AbstractBackendCommunicator(parent, timings)
    , m_serverCompatibility(knownVersions())
{
    setControlPort(defaultControlPort);
    setUpdatePort(defaultUpdatePort);
}

JsonBackendCommunicator::JsonBackendCommunicator(WithoutSockets, QObject *parent)
    : AbstractBackendCommunicator(WithoutSockets(), parent)
    , m_serverCompatibility(knownVersions())
{}

JsonBackendCommunicator::~JsonBackendCommunicator()
{
    shutDown();
}

std::shared_ptr<BackendReplyHandler> JsonBackendCommunicator::send(const JsonAPI::Request &request, int timeoutMs)
{
    ZmqMessageHeader header({ZmqMessageHeader::Flags::Json}, request.type.toUtf8());
    header.setCompressed(m_compressRequests);
    const auto document = request.toByteArray();
    return sendRequest(header, m_compressRequests ? qCompress(document) : document, timeoutMs);
}

bool JsonBackendCommunicator::isOnOwnThread() const
{
    return QThread::currentThread() == thread();
}

void JsonBackendCommunicator::perform(const JsonAPI::Request &request, int timeoutMs, const Attach &attach)
{
    if (!isOnOwnThread()) {
        QMetaObject::invokeMethod(
            this, [=] { perform(request, timeoutMs, attach); }, Qt::QueuedConnection);
        return;
    }
    attempt([&] { return send(request, timeoutMs); }, attach);
}

void JsonBackendCommunicator::upload(const ZmqBinaryMessage &message, const QByteArray &resource, Packing packing,
                                     int timeoutMs, const Attach &attach)
{
    if (!isOnOwnThread()) {
        QMetaObject::invokeMethod(
            this, [=] { upload(message, resource, packing, timeoutMs, attach); }, Qt::QueuedConnection);
        return;
    }
    ZmqMessageHeader header({ZmqMessageHeader::Flags::Raw}, resource);
    header.setCompressed(packing == Packing::Compressed);
    const auto bytes = message.toByteArray();
    if (bytes.isEmpty())
        return; // too large, as the message has said: no empty body goes in its place
    attempt([&] { return sendRequest(header, header.isCompressed() ? qCompress(bytes) : bytes, timeoutMs); }, attach);
}

void JsonBackendCommunicator::attempt(const Send &send, const Attach &attach)
{
    try {
        const auto handler = send();
        if (attach)
            attach(*handler);
    } catch (const zmq::error_t &error) {
        qWarning() << "A request could not be sent:" << error.what();
        QMetaObject::invokeMethod(this, &AbstractBackendCommunicator::reconnect, Qt::QueuedConnection);
        BackendReplyHandler refused; // whoever must always be answered learns of it here
        if (attach)
            attach(refused);
    }
}

JsonBackendCommunicator::Attach JsonBackendCommunicator::uidList(const UidsCallback &done)
{
    return [done](BackendReplyHandler &reply) {
        reply.onReply([done](const QByteArray &body) {
            const auto uids = parseResultResponse(JsonAPI::Response::fromByteArray(body));
            if (done)
                done(uids);
        });
    };
}

JsonBackendCommunicator::Attach JsonBackendCommunicator::whenDone(const Done &done)
{
    return [done](BackendReplyHandler &reply) {
        reply.onReply([done](const QByteArray &body) {
            if (JsonAPI::Response::fromByteArray(body).errors.isEmpty() && done)
                done();
        });
    };
}

JsonBackendCommunicator::Attach JsonBackendCommunicator::errorsAgain()
{
    return [this](BackendReplyHandler &reply) {
        reply.onReply([this](const QByteArray &body) { handleJsonErrors(body); });
    };
}

// The login is sent by init, which reports an error of the socket itself.
void JsonBackendCommunicator::auth(const QString &login, const QString &password)
{
    JsonAPI::Entity entity(loginResource, QStringLiteral("1"));
    entity.setAttribute("login", login);
    entity.setAttribute("password", password);
    entity.setAttribute("locale", QLocale().name());
    const auto reply = send(JsonAPI::Request::post(loginResource, QString(), entity), timings().quickReply);
    reply->onReply([this](const QByteArray &body) { onLoginReply(body); });
}

void JsonBackendCommunicator::onLoginReply(const QByteArray &body)
{
    const auto response = JsonAPI::Response::fromByteArray(body);
    if (!response.errors.isEmpty())
        return disconnectLater(this);
    if (!isCompatible(response.serverVersion))
        return refuseServer(response.serverVersion);
    if (response.data.empty())
        return; // still connecting: the pings go on

    setUserGroup(response.datum().attributes.value("group").toString());
    try {
        createSubscriberSocket();
    } catch (const zmq::error_t &error) {
        emit errorOccured(tr("Некорректный адрес сервера (%1)").arg(QString::fromLocal8Bit(error.what())));
        return disconnectLater(this); // trying again would only fail again
    }
    getSystemTime();
    ping();
    setStatus(Connected);
}

bool JsonBackendCommunicator::isCompatible(const QVersionNumber &serverVersion) const
{
    const auto known = m_serverCompatibility.lowerBound(serverVersion);
    if (known == m_serverCompatibility.end())
        return true; // newer than all that is known
    if (known.key() == serverVersion)
        return known.value();
    return known != m_serverCompatibility.begin() && std::prev(known).value();
}

void JsonBackendCommunicator::refuseServer(const QVersionNumber &serverVersion)
{
    const auto own = Version::number().toString();
    const auto detail = serverVersion.majorVersion() > 0
        ? tr("Внимание! Версия клиента (%1) новее, чем версия сервера (%2). Для продолжения работы, воспользуйтесь "
             "более старой версией программы или обновите прошивку сервера.")
              .arg(own, serverVersion.toString())
        : tr("Внимание! Версия клиента (%1) новее, чем версия сервера. Для продолжения работы, воспользуйтесь более "
             "старой версией программы или обновите прошивку сервера.")
              .arg(own);
    reportError(QStringLiteral("incompatible_server_version"), tr("Несовместимая версия сервера"), detail);
    disconnectLater(this);
}

void JsonBackendCommunicator::reportError(const QString &code, const QString &title, const QString &detail)
{
    emit errorsReceived({{code, title, detail}});
}

void JsonBackendCommunicator::handleCommonErrors(const ParsedMessage &message)
{
    if (message.type != MessageType::Json)
        return;
    // A login that is answered with the demand to log in would go round for ever: like any failed login it ends here.
    const bool isLogin = message.id.startsWith(loginResource + QByteArray(":"));
    handleResponseErrors(JsonAPI::Response::fromByteArray(message.body), !isLogin);
}

void JsonBackendCommunicator::handleJsonErrors(const QByteArray &body)
{
    handleResponseErrors(JsonAPI::Response::fromByteArray(body));
}

void JsonBackendCommunicator::handleResponseErrors(const JsonAPI::Response &response, bool mayReconnect)
{
    if (response.errors.isEmpty())
        return;
    std::vector<Model::Result::Error> errors;
    for (const auto &error : response.errors.list()) {
        if (error.code == QLatin1String("auth_needed") && mayReconnect)
            reconnect();
        else if (error.code == QLatin1String("auth_error"))
            disconnectLater(this);
        errors.push_back({error.code, error.title, error.detail});
    }
    emit errorsReceived(errors);
}

std::vector<QUuid> JsonBackendCommunicator::parseResultResponse(const JsonAPI::Response &response)
{
    std::vector<QUuid> uids;
    for (const auto &entity : response.data) {
        if (!isResult(entity))
            continue;
        for (const char *name : {"added", "changed", "deleted"}) {
            for (const auto &id : relatedIds(entity, name))
                uids.emplace_back(id);
        }
    }
    return uids;
}

std::vector<Model::Result> JsonBackendCommunicator::dispatchJsonReply(const JsonAPI::Response &response)
{
    using Model::Result;
    std::vector<Result> results;
    if (!response.errors.isEmpty()) {
        std::vector<Result::Error> errors;
        for (const auto &error : response.errors.list()) {
            qDebug() << "ERROR:" << error.code << error.title << error.detail;
            errors.push_back({error.code, error.title, error.detail});
        }
        emit errorsReceived(errors);
        return results;
    }
    for (const auto &entity : response.data) {
        if (!isResult(entity)) {
            results.push_back(Result::data(entity.toVariant()));
            continue;
        }
        for (const auto &id : relatedIds(entity, "added"))
            results.push_back(Result::added(id));
        for (const auto &id : relatedIds(entity, "changed"))
            results.push_back(Result::changed(id));
        for (const auto &id : relatedIds(entity, "deleted"))
            results.push_back(Result::deleted(id));
    }
    return results;
}

// One line for each publication, in the order of subscription.
const std::vector<JsonBackendCommunicator::Topic> &JsonBackendCommunicator::topics()
{
    using Json = JsonBackendCommunicator;
    static const std::vector<Topic> topics{
        {"device_states", false,
         &Json::onListReceived<JsonAPI::DeviceState::fromVariant, &Json::devicesStatesReceived>},
        {"device_types", true, &Json::onListReceived<JsonAPI::DeviceType::fromVariant, &Json::devicesTypesReceived>},
        {"action_nodes", true,
         &Json::onListReceived<JsonAPI::NodeDescription::fromVariant, &Json::actionNodesReceived>},
        {"button_states", false,
         &Json::onListReceived<JsonAPI::ButtonState::fromVariant, &Json::buttonStateListReceived>},
        {"device_modes", false, &Json::onListReceived<JsonAPI::DeviceMode::fromVariant, &Json::devicesModesReceived>},
        {"users", false, &Json::onListReceived<JsonAPI::UserInfo::fromVariant, &Json::backendUserListReceived>},
        {"settings", false, &Json::onSettingsReceived},
        {"shop_parts", false, &Json::onListReceived<JsonAPI::ShopPart::fromVariant, &Json::shopPartsReceived>},
        {"zones", false, &Json::onListReceived<JsonAPI::Zone::fromVariant, &Json::zonesReceived>},
        {"buttons", false, &Json::onListReceived<JsonAPI::Button::fromVariant, &Json::buttonsReceived>},
        {"indicators", false, &Json::onListReceived<JsonAPI::Indicator::fromVariant, &Json::indicatorsReceived>},
        {"devices", false, &Json::onListReceived<JsonAPI::Device::fromVariant, &Json::devicesReceived>},
        {"blueprints", true, &Json::onListReceived<JsonAPI::ActionBlueprint::fromVariant, &Json::blueprintsReceived>},
        {"schedules", false, &Json::onListReceived<JsonAPI::ScheduleDay::fromVariant, &Json::schedulesReceived>},
        {"image_items", false, &Json::onListReceived<JsonAPI::ImageItem::fromVariant, &Json::imageItemsReceived>},
        {"indicator_states", false,
         &Json::onListReceived<JsonAPI::IndicatorState::fromVariant, &Json::indicatorStatesReceived>},
        {"view_3d_items", false, &Json::onListReceived<JsonAPI::View3DItem::fromVariant, &Json::view3DItemsReceived>},
        {"power_on_statistics", false,
         &Json::onListReceived<JsonAPI::DevicePowerOnInfo::fromVariant, &Json::powerOnStatisticsReceived>},
    };
    return topics;
}

QStringList JsonBackendCommunicator::subscriptionTopics() const
{
    QStringList names;
    for (const auto &topic : topics()) {
        const auto name = QString::fromLatin1(topic.name);
        names << (topic.localised ? name + '/' + QLocale().name() : name);
    }
    return names;
}

void JsonBackendCommunicator::onSubMessageReceived(const QList<QByteArray> &parts)
{
    if (parts.isEmpty())
        return;
    const auto &topic = parts.first();
    qCDebug(zmqAComm) << "Sub message received " << topic;
    const auto message = parseMessage(parts);
    if (!message || message->type != MessageType::Json)
        return;
    if (topic == "device_states" && publishStatesFast(message->body))
        return;
    const auto response = JsonAPI::Response::fromByteArray(message->body);
    setServerVersion(response.serverVersion);
    dispatchSub(topic, response);
}

// The hottest list skips the tree of variants. False for a body that is unusual in any way: it goes the plain road.
bool JsonBackendCommunicator::publishStatesFast(const QByteArray &body)
{
    const auto list = JsonAPI::DeviceStatesReader::read(body);
    if (!list)
        return false;
    setServerVersion(list->serverVersion);
    emit devicesStatesReceived(list->states);
    return true;
}

void JsonBackendCommunicator::dispatchSub(const QByteArray &topic, const JsonAPI::Response &response)
{
    if (!response.errors.isEmpty())
        return handleResponseErrors(response);
    for (const auto &known : topics()) {
        const bool matches = known.localised ? topic.startsWith(known.name + QByteArray("/")) : topic == known.name;
        if (!matches)
            continue;
        return (this->*known.handler)(response);
    }
}

// One record for the whole server: of several the last counts.
void JsonBackendCommunicator::onSettingsReceived(const JsonAPI::Response &response)
{
    if (!response.data.empty())
        emit settingsReceived(JsonAPI::Settings::fromVariant(response.data.back()));
}
