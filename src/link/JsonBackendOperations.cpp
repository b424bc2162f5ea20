// SPDX-License-Identifier: GPL-3.0-or-later
// The operations of the server, each in a line or two: the request, the time it may take, and what its reply does.
#include "link/JsonBackendCommunicator.h"
#include "model/json/ActionBlueprint.h"
#include "model/json/ActionBlueprintInstance.h"
#include "model/json/Button.h"
#include "model/json/ButtonState.h"
#include "model/json/Device.h"
#include "model/json/DevicePowerOnInfo.h"
#include "model/json/DeviceState.h"
#include "model/json/ImageItem.h"
#include "model/json/Indicator.h"
#include "model/json/LogEntry.h"
#include "model/json/RadioStatus.h"
#include "model/json/ScheduleDay.h"
#include "model/json/Settings.h"
#include "model/json/Shop.h"
#include "model/json/ShopPart.h"
#include "model/json/Statistics.h"
#include "model/json/StatisticsInfo.h"
#include "model/json/TimeInfo.h"
#include "model/json/UserInfo.h"
#include "model/json/View3DItem.h"
#include "model/json/Zone.h"

using JsonAPI::Entity;
using JsonAPI::Request;
using JsonAPI::Response;
using Method = JsonAPI::Request::Method;

void JsonBackendCommunicator::addZones(const std::vector<Model::Zone> &zones, const UidsCallback &done)
{
    perform(Request(Method::Post, "zones", zones, JsonAPI::Zone::toVariant), timings().reply, uidList(done));
}

void JsonBackendCommunicator::changeZones(const std::vector<Model::Zone> &zones)
{
    perform(Request(Method::Post, "zones", zones, JsonAPI::Zone::toVariant), timings().reply);
}

void JsonBackendCommunicator::removeZones(const std::vector<Model::Zone> &zones)
{
    perform(Request(Method::Delete, "zones", zones, JsonAPI::Zone::toVariant), timings().reply);
}

void JsonBackendCommunicator::addDays(const std::vector<Model::ScheduleDay> &days, const UidsCallback &done)
{
    perform(Request(Method::Post, "schedule_days", days, JsonAPI::ScheduleDay::toVariant), timings().reply,
            uidList(done));
}

void JsonBackendCommunicator::changeDays(const std::vector<Model::ScheduleDay> &days)
{
    perform(Request(Method::Post, "schedule_days", days, JsonAPI::ScheduleDay::toVariant), timings().reply);
}

void JsonBackendCommunicator::removeDays(const std::vector<Model::ScheduleDay> &days)
{
    perform(Request(Method::Delete, "schedule_days", days, JsonAPI::ScheduleDay::toVariant), timings().reply);
}

void JsonBackendCommunicator::addButtons(const std::vector<Model::Button> &buttons, const UidsCallback &done)
{
    perform(Request(Method::Post, "buttons", buttons, JsonAPI::Button::toVariant), timings().reply, uidList(done));
}

void JsonBackendCommunicator::changeButtons(const std::vector<Model::Button> &buttons)
{
    perform(Request(Method::Post, "buttons", buttons, JsonAPI::Button::toVariant), timings().reply);
}

void JsonBackendCommunicator::removeButtons(const std::vector<Model::Button> &buttons)
{
    perform(Request(Method::Delete, "buttons", buttons, JsonAPI::Button::toVariant), timings().reply);
}

void JsonBackendCommunicator::setButtonStates(const std::vector<Model::ButtonState> &states)
{
    perform(Request(Method::Post, "button_states", states, JsonAPI::ButtonState::toVariant), timings().reply);
}

void JsonBackendCommunicator::addShopParts(const std::vector<Model::ShopPart> &parts, const UidsCallback &done)
{
    perform(Request(Method::Post, "shop_parts", parts, JsonAPI::ShopPart::toVariant), timings().reply, uidList(done));
}

void JsonBackendCommunicator::changeShopParts(const std::vector<Model::ShopPart> &parts)
{
    perform(Request(Method::Post, "shop_parts", parts, JsonAPI::ShopPart::toVariant), timings().reply);
}

void JsonBackendCommunicator::removeShopParts(const std::vector<Model::ShopPart> &parts)
{
    perform(Request(Method::Delete, "shop_parts", parts, JsonAPI::ShopPart::toVariant), timings().reply);
}

void JsonBackendCommunicator::addDevices(const std::vector<Model::DeviceDescriptor> &devices, const UidsCallback &done)
{
    perform(Request(Method::Post, "devices", devices, JsonAPI::Device::toVariant), timings().reply, uidList(done));
}

void JsonBackendCommunicator::changeDevices(const std::vector<Model::DeviceDescriptor> &devices)
{
    perform(Request(Method::Post, "devices", devices, JsonAPI::Device::toVariant), timings().reply);
}

void JsonBackendCommunicator::removeDevices(const std::vector<Model::DeviceDescriptor> &devices)
{
    perform(Request(Method::Delete, "devices", devices, JsonAPI::Device::toVariant), timings().reply);
}

void JsonBackendCommunicator::setDeviceState(const std::vector<Model::DeviceState> &states)
{
    perform(Request(Method::Post, "device_states", states, JsonAPI::DeviceState::toVariant), timings().reply);
}

void JsonBackendCommunicator::runActionSequences(const std::vector<Model::ActionSequence> &sequences)
{
    std::vector<Model::ActionBlueprintInstance> instances;
    for (const auto &sequence : sequences)
        instances.insert(instances.end(), sequence.instances.begin(), sequence.instances.end());
    perform(Request(Method::Post, "oneshot_blueprint", instances, JsonAPI::ActionBlueprintInstance::toVariant),
            timings().reply);
}

void JsonBackendCommunicator::addUsers(const std::vector<Model::UserInfo> &users, const Done &done)
{
    changeUsers(users, done);
}

void JsonBackendCommunicator::removeUsers(const std::vector<Model::UserInfo> &users, const Done &done)
{
    perform(Request(Method::Delete, "users", users, JsonAPI::UserInfo::toVariant), timings().reply, whenDone(done));
}

void JsonBackendCommunicator::changeUsers(const std::vector<Model::UserInfo> &users, const Done &done)
{
    perform(Request(Method::Post, "users", users, JsonAPI::UserInfo::toVariant), timings().reply, whenDone(done));
}

void JsonBackendCommunicator::changeUsersRoles(const std::vector<Model::UserInfo> &users, const Done &done)
{
    changeUsers(users, done);
}

void JsonBackendCommunicator::getUserList(const UsersCallback &done)
{
    perform(Request::get("users"), timings().reply, records(JsonAPI::UserInfo::fromVariant, done));
}

// The reply carries the server's clock, as the id of its entity.
void JsonBackendCommunicator::ping()
{
    perform(Request::post("ping", QString(), Entity()), timings().quickReply, [this](BackendReplyHandler &reply) {
        reply.onReply([this](const QByteArray &body) {
            const auto response = Response::fromByteArray(body);
            if (!response.data.empty())
                emit timeReceived(QDateTime::fromString(response.datum().id, Qt::ISODate));
        });
    });
}

void JsonBackendCommunicator::getStatistics(const QDateTime &from, const QDateTime &to,
                                            const StatisticsEntities &entities, StatisticsGrain grain,
                                            const QUuid &requestId)
{
    JsonAPI::Statistics::Filter filter;
    filter.from = from;
    filter.to = to;
    for (const auto &entity : entities)
        filter.addEntity(entity.first, entity.second);
    auto request = Request::get("statistics");
    request.query = filter.toQuery();
    request.query->addQueryItem(QStringLiteral("resolution"),
                                grain == StatisticsGrain::Hour ? QStringLiteral("hour") : QStringLiteral("minute"));
    perform(request, timings().reply, [this, requestId](BackendReplyHandler &reply) {
        reply.onReply([this, requestId](const QByteArray &body) {
            const auto response = Response::fromByteArray(body);
            emit statisticsReceived(response.data.empty() ? Model::Statistics()
                                                          : JsonAPI::Statistics::fromVariant(response.datum()),
                                    requestId);
        });
        reply.onBinaryReply([this, requestId](const QByteArray &) { emit statisticsReceived({}, requestId); });
        whenLost(reply, [this, requestId] { emit statisticsReceived({}, requestId); });
    });
}

void JsonBackendCommunicator::getLog(const QDateTime &from, const QDateTime &to, const LogCallback &done)
{
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("from"), QString::number(from.toMSecsSinceEpoch()));
    query.addQueryItem(QStringLiteral("to"), QString::number(to.toMSecsSinceEpoch()));
    auto request = Request::get("system_log");
    request.query = query;
    perform(request, timings().reply, records(JsonAPI::LogEntry::fromVariant, done));
}

void JsonBackendCommunicator::getStatisticsInfo(const StatisticsInfoCallback &done)
{
    perform(Request::get("statistics_info"), timings().quickReply, [done](BackendReplyHandler &reply) {
        reply.onReply([done](const QByteArray &body) {
            const auto response = Response::fromByteArray(body);
            if (!response.data.empty() && done)
                done(JsonAPI::StatisticsInfo::fromVariant(response.datum()));
        });
    });
}

void JsonBackendCommunicator::setSystemTime(const Model::TimeInfo &info, const Done &done)
{
    perform(Request::post("system_time", QString(), Entity(JsonAPI::TimeInfo::toVariant(info))), timings().reply,
            whenDone(done));
}

void JsonBackendCommunicator::getSystemTime()
{
    perform(Request::get("system_time"), timings().reply, [this](BackendReplyHandler &reply) {
        reply.onReply([this](const QByteArray &body) {
            const auto response = Response::fromByteArray(body);
            if (!response.data.empty())
                emit systemTimeReceived(JsonAPI::TimeInfo::fromVariant(response.datum()));
        });
    });
}

void JsonBackendCommunicator::addImageItem(const Model::ImageItem &item, const UidsCallback &done)
{
    const QByteArray resource("image_items");
    const auto number = [](double value) { return QByteArray::number(value, 'g', 6); };
    const auto image = item.image.value_or(Model::ImageItem::Image());
    ZmqBinaryMessage message(resource);
    message.add("part_uid", item.partUid.toRfc4122());
    message.add("image", image.data);
    message.add("format", image.format.toUtf8());
    message.add("x", number(item.x));
    message.add("y", number(item.y));
    message.add("width", number(item.width));
    message.add("height", number(item.height));
    message.add("name", item.name.toUtf8());
    upload(message, resource, Packing::Plain, timings().upload, uidList(done));
}

void JsonBackendCommunicator::changeImageItem(const Model::ImageItem &item, const Done &done)
{
    perform(Request::post("image_items", QString(), Entity(JsonAPI::ImageItem::toVariant(item))), timings().reply,
            whenDone(done));
}

void JsonBackendCommunicator::removeImageItems(const std::vector<Model::ImageItem> &items, const Done &done)
{
    perform(Request(Method::Delete, "image_items", items, JsonAPI::ImageItem::toVariant), timings().reply,
            whenDone(done));
}

void JsonBackendCommunicator::getImage(const QUuid &uid, const ImageCallback &done, const Done &failed)
{
    perform(Request::get("image_items", uid.toString()), timings().reply, [=](BackendReplyHandler &reply) {
        errorsAgain()(reply);
        whenFailed(reply, failed);
        reply.onBinaryReply([=](const QByteArray &body) { onImageReply(body, done, failed); });
    });
}

void JsonBackendCommunicator::onImageReply(const QByteArray &body, const ImageCallback &done, const Done &failed)
{
    const auto message = ZmqBinaryMessage::fromByteArray(body);
    const auto *image = message.get("image");
    const auto *format = message.get("format");
    if (!image || !format) {
        reportError(QStringLiteral("image_load_failed"), tr("Не удалось загрузить изображение"));
        if (failed)
            failed();
        return;
    }
    if (done)
        done(Model::ImageItem::Image(*image, QString::fromUtf8(*format)));
}

void JsonBackendCommunicator::whenLost(BackendReplyHandler &reply, const Done &lost)
{
    if (reply.receivedReply()) // refused: not while its caller is still asking
        QMetaObject::invokeMethod(this, lost, Qt::QueuedConnection);
    reply.onDiscard([lost](BackendReplyHandler::DiscardReason) { lost(); });
}

void JsonBackendCommunicator::whenFailed(BackendReplyHandler &reply, const Done &failed)
{
    if (!failed)
        return;
    reply.onReply([failed](const QByteArray &) { failed(); });
    whenLost(reply, failed);
}

void JsonBackendCommunicator::addIndicators(const std::vector<Model::Indicator> &indicators, const UidsCallback &done)
{
    perform(Request(Method::Post, "indicators", indicators, JsonAPI::Indicator::toVariant), timings().reply,
            uidList(done));
}

void JsonBackendCommunicator::changeIndicators(const std::vector<Model::Indicator> &indicators)
{
    perform(Request(Method::Post, "indicators", indicators, JsonAPI::Indicator::toVariant), timings().reply);
}

void JsonBackendCommunicator::removeIndicators(const std::vector<Model::Indicator> &indicators)
{
    perform(Request(Method::Delete, "indicators", indicators, JsonAPI::Indicator::toVariant), timings().reply);
}

void JsonBackendCommunicator::addBlueprints(const std::vector<Model::ActionBlueprint> &blueprints,
                                            const UidsCallback &done)
{
    perform(Request(Method::Post, "blueprints", blueprints, JsonAPI::ActionBlueprint::toVariant), timings().reply,
            uidList(done));
}

void JsonBackendCommunicator::changeBlueprints(const std::vector<Model::ActionBlueprint> &blueprints)
{
    perform(Request(Method::Post, "blueprints", blueprints, JsonAPI::ActionBlueprint::toVariant), timings().reply);
}

void JsonBackendCommunicator::removeBlueprints(const std::vector<Model::ActionBlueprint> &blueprints)
{
    perform(Request(Method::Delete, "blueprints", blueprints, JsonAPI::ActionBlueprint::toVariant), timings().reply);
}

void JsonBackendCommunicator::getBackup(const BackupCallback &done)
{
    perform(Request::get("system_backup"), timings().reply, [this, done](BackendReplyHandler &reply) {
        reply.onBinaryReply([this, done](const QByteArray &body) { onBackupReply(body, done); });
    });
}

void JsonBackendCommunicator::onBackupReply(const QByteArray &body, const BackupCallback &done)
{
    const auto message = ZmqBinaryMessage::fromByteArray(body);
    const auto *fileName = message.get("filename");
    const auto *data = message.get("data");
    if (!fileName || !data)
        return reportError(QStringLiteral("corrupted_backup"), tr("Файл резервной копии поврежден"));
    if (done)
        done(QString::fromUtf8(*fileName), *data);
}

void JsonBackendCommunicator::restoreBackup(const QByteArray &bytes, const Done &done)
{
    const QByteArray resource("system_backup_restore");
    ZmqBinaryMessage message(resource);
    message.add("data", bytes);
    upload(message, resource, Packing::Plain, timings().upload, [this, done](BackendReplyHandler &reply) {
        errorsAgain()(reply);
        whenDone(done)(reply);
    });
}

void JsonBackendCommunicator::factoryReset()
{
    perform(Request::post("system_factory_reset", QString(), Entity("factory_reset", QString())), timings().reply,
            errorsAgain());
}

void JsonBackendCommunicator::setShop(const Model::Shop &shop)
{
    const auto document = JsonAPI::Shop::toVariant(shop);
    auto request = Request::post("shops", shop.uid.toString(), Entity(document));
    request.included = JsonAPI::Included(document);
    perform(request, timings().reply);
}

void JsonBackendCommunicator::setSettings(const Model::Settings &settings)
{
    perform(Request::post("settings", QStringLiteral("1"), Entity(JsonAPI::Settings::toVariant(settings))),
            timings().reply);
}

void JsonBackendCommunicator::getRadioStatus()
{
    perform(Request::get("radio_status"), timings().reply, [this](BackendReplyHandler &reply) {
        errorsAgain()(reply);
        reply.onReply([this](const QByteArray &body) {
            const auto response = Response::fromByteArray(body);
            if (response.errors.isEmpty())
                emit radioStatusReceived(Entity::toType(response.data, JsonAPI::RadioStatus::fromVariant));
        });
    });
}

void JsonBackendCommunicator::getAvailableComPorts()
{
    perform(Request::get("available_com_ports"), timings().reply, [this](BackendReplyHandler &reply) {
        errorsAgain()(reply);
        reply.onReply([this](const QByteArray &body) {
            const auto response = Response::fromByteArray(body);
            if (!response.errors.isEmpty())
                return; // the choices of before still stand
            QStringList ports;
            for (const auto &entity : response.data)
                ports << entity.id;
            emit availableComPortsReceived(ports);
        });
    });
}

void JsonBackendCommunicator::addView3DItem(const Model::View3DItem &item, const UidsCallback &done)
{
    const QByteArray resource("view_3d_items");
    ZmqBinaryMessage message(resource);
    JsonAPI::View3DItem::toBinaryMessage(message, item);
    upload(message, resource, Packing::Compressed, timings().upload, uidList(done));
}

void JsonBackendCommunicator::changeView3DItem(const Model::View3DItem &item, const Done &done)
{
    perform(Request::post("view_3d_items", QString(), Entity(JsonAPI::View3DItem::toVariant(item))), timings().reply,
            whenDone(done));
}

void JsonBackendCommunicator::removeView3DItems(const std::vector<Model::View3DItem> &items, const Done &done)
{
    perform(Request(Method::Delete, "view_3d_items", items, JsonAPI::View3DItem::toVariant), timings().reply,
            whenDone(done));
}

void JsonBackendCommunicator::getView3DItem(const QUuid &uid, const View3DItemCallback &done, const Done &failed)
{
    perform(Request::get("view_3d_items", uid.toString()), timings().reply, [=](BackendReplyHandler &reply) {
        errorsAgain()(reply);
        whenFailed(reply, failed);
        reply.onBinaryReply([=](const QByteArray &body) { onView3DItemReply(body, done, failed); });
    });
}

void JsonBackendCommunicator::onView3DItemReply(const QByteArray &body, const View3DItemCallback &done,
                                                const Done &failed)
{
    const auto item = JsonAPI::View3DItem::fromBinaryMessage(ZmqBinaryMessage::fromByteArray(body));
    if (item.uid.isNull()) {
        reportError(QStringLiteral("view_3d_item_load_failed"), tr("Не удалось загрузить 3D объект"));
        if (failed)
            failed();
        return;
    }
    if (done)
        done(item);
}

void JsonBackendCommunicator::setPowerOnStatistics(const std::vector<Model::DevicePowerOnInfo> &infos)
{
    perform(Request(Method::Post, "power_on_statistics", infos, JsonAPI::DevicePowerOnInfo::toVariant), timings().reply,
            errorsAgain());
}

template <typename T>
JsonBackendCommunicator::Attach
JsonBackendCommunicator::records(T (*converter)(const Entity &),
                                 const std::function<void(const std::vector<T> &)> &done)
{
    return [converter, done](BackendReplyHandler &reply) {
        reply.onReply([converter, done](const QByteArray &body) {
            const auto list = Entity::toType(Response::fromByteArray(body).data, converter);
            if (done)
                done(list);
        });
    };
}
