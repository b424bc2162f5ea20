// SPDX-License-Identifier: GPL-3.0-or-later
// A JSON body as reply, publication and request, and its entities as every kind of record.
#include "document/ExactResponse.h"
#include "fuzz/Fuzz.h"
#include "link/document/Request.h"
#include "link/document/Response.h"
#include "model/ActionDatatype.h"
#include "model/ActionValueLimits.h"
#include "model/Actions.h"
#include "model/BothRoads.h"
#include "model/ParameterDeclaration.h"
#include "model/json/ActionBlueprintInstance.h"
#include "model/json/Button.h"
#include "model/json/ButtonState.h"
#include "model/json/Device.h"
#include "model/json/DeviceMode.h"
#include "model/json/DeviceState.h"
#include "model/json/DeviceStatesReader.h"
#include "model/json/DeviceType.h"
#include "model/json/ImageItem.h"
#include "model/json/Indicator.h"
#include "model/json/IndicatorState.h"
#include "model/json/Label.h"
#include "model/json/RadioStatus.h"
#include "model/json/Settings.h"
#include "model/json/Shop.h"
#include "model/json/ShopPart.h"
#include "model/json/TimeInfo.h"
#include "model/json/UserInfo.h"
#include "model/json/View3DItem.h"
#include "model/json/Zone.h"

#include <QJsonDocument>
#include <cmath>
#include <sanitizer/lsan_interface.h>

namespace {

using JsonAPI::Entity;

// The parser of Qt 5.15 loses the map or list of a key that stands twice in an object: its leaks are not ours.
QVariant parsed(const QByteArray &json)
{
    __lsan::ScopedDisabler disabler;
    return QJsonDocument::fromJson(json).toVariant();
}

JsonAPI::Response replyIn(const QByteArray &json)
{
    __lsan::ScopedDisabler disabler;
    return JsonAPI::Response::fromByteArray(json);
}

// Written and read again, a record stays what it was.
template <typename Converter>
void readRecord(const Entity &entity, const char *what)
{
    const auto record = Converter::fromVariant(entity);
    const auto again = Converter::fromVariant(Entity(Converter::toVariant(record)));
    Fuzz::require(record == again, what);
}

void readEntity(const Entity &entity)
{
    readRecord<JsonAPI::ButtonState>(entity, "the state of a button stays the same");
    readRecord<JsonAPI::ImageItem>(entity, "a picture stays the same");
    readRecord<JsonAPI::Indicator>(entity, "an indicator stays the same");
    readRecord<JsonAPI::IndicatorState>(entity, "the state of an indicator stays the same");
    readRecord<JsonAPI::Label>(entity, "a label stays the same");
    readRecord<JsonAPI::RadioStatus>(entity, "the state of a radio stays the same");
    readRecord<JsonAPI::Settings>(entity, "settings stay the same");
    readRecord<JsonAPI::ShopPart>(entity, "a plan stays the same");
    readRecord<JsonAPI::UserInfo>(entity, "a user stays the same");
    readRecord<JsonAPI::View3DItem>(entity, "a mesh stays the same");
    readRecord<JsonAPI::Zone>(entity, "a zone stays the same");
    const auto zone = JsonAPI::Zone::fromVariant(entity);
    Fuzz::require(std::isfinite(zone.position.x) && std::isfinite(zone.position.y) && std::isfinite(zone.width)
                      && std::isfinite(zone.height),
                  "geometry is finite");

    JsonAPI::ActionBlueprintInstance::toVariant(JsonAPI::ActionBlueprintInstance::fromVariant(entity));
    JsonAPI::Button::toVariant(JsonAPI::Button::fromVariant(entity));
    JsonAPI::Device::toVariant(JsonAPI::Device::fromVariant(entity));
    JsonAPI::DeviceMode::toVariant(JsonAPI::DeviceMode::fromVariant(entity));
    JsonAPI::DeviceState::toVariant(JsonAPI::DeviceState::fromVariant(entity));
    JsonAPI::DeviceType::toVariant(JsonAPI::DeviceType::fromVariant(entity));
    JsonAPI::TimeInfo::toVariant(JsonAPI::TimeInfo::fromVariant(entity));
}

// The forms that carry no entity around them.
void readMap(const QVariant &map)
{
    Model::ActionDatatype::fromVariantMap(map).toVariantMap();
    Model::ActionSequence::fromVariant(map).toVariant();
    Model::ActionValueLimits::fromVariant(map).toVariant();
    Model::ActionWrapper::fromVariant(map).toVariant();
    Model::DeviceTypeInfo::fromVariant(map.toMap()).toVariant();
    Model::ParameterDeclaration::fromVariant(map).toVariant();
}

void readReply(const JsonAPI::Response &response)
{
    Fuzz::require(response.errors.isEmpty() || response.data.empty(), "errors hide the data");
    const auto again = JsonAPI::Response::fromByteArray(response.toByteArray());
    Fuzz::require(again.data.size() == response.data.size(), "a written reply keeps its entities");
    Fuzz::require(again.errors.list().size() == response.errors.list().size(), "a written reply keeps its errors");

    for (const auto &entity : response.data) {
        readEntity(entity);
        readMap(entity.attributes);
        for (const auto &attribute : entity.attributes)
            readMap(attribute);
        const auto shop = JsonAPI::Shop::fromVariant(entity, response.included);
        const auto variant = JsonAPI::Shop::toVariant(shop);
        const auto shopAgain = JsonAPI::Shop::fromVariant(Entity(variant), JsonAPI::Included(variant));
        Fuzz::require(shopAgain.zones.size() == shop.zones.size(), "a written site keeps its zones");
    }
}

void readRequest(const QVariant &document)
{
    const JsonAPI::Request request(document);
    Fuzz::require(request.withUid().size() + request.withoutUid().size() == request.data.size(),
                  "each has a uid or not");
    Fuzz::require(request.withId().size() + request.withoutId().size() == request.data.size(), "each has an id or not");
    const JsonAPI::Request again(QJsonDocument::fromJson(request.toByteArray()).toVariant());
    Fuzz::require(again.method == request.method && again.data.size() == request.data.size(), "a request is kept");
}

} // namespace

void Fuzz::fuzzOne(const QByteArray &input)
{
    const auto document = parsed(input);
    const auto response = JsonAPI::Response::fromVariant(document);
    require(exactBytes(response) == exactBytes(replyIn(input)), "a text reads as its variant");
    readReply(response);
    readRequest(document);
    const auto fast = JsonAPI::DeviceStatesReader::read(input);
    require(!fast || BothRoads::same(*fast, BothRoads::plainRoad(response)), "both roads read the same states");
}
