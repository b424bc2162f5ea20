// SPDX-License-Identifier: GPL-3.0-or-later
// The operations of the server, each in a line or two: the request, the time it may take, and what its reply does.
#include "link/JsonBackendCommunicator.h"
#include "model/json/ActionBlueprintInstance.h"
#include "model/json/Device.h"
#include "model/json/DeviceState.h"
#include "model/json/Shop.h"
#include "model/json/ShopPart.h"
#include "model/json/TimeInfo.h"
#include "model/json/UserInfo.h"
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
    upload(message, resource, timings().upload, [this, done](BackendReplyHandler &reply) {
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
