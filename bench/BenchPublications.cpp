// SPDX-License-Identifier: GPL-3.0-or-later
// Every published list, 10,000 records long, from its document to records: the plain road, packed as it travels.
#include "link/document/Response.h"
#include "model/json/ActionBlueprint.h"
#include "model/json/Button.h"
#include "model/json/ButtonState.h"
#include "model/json/Device.h"
#include "model/json/DeviceMode.h"
#include "model/json/DevicePowerOnInfo.h"
#include "model/json/DeviceType.h"
#include "model/json/ImageItem.h"
#include "model/json/Indicator.h"
#include "model/json/IndicatorState.h"
#include "model/json/NodeDescription.h"
#include "model/json/ScheduleDay.h"
#include "model/json/ShopPart.h"
#include "model/json/UserInfo.h"
#include "model/json/View3DItem.h"
#include "model/json/Zone.h"

#include <QJsonDocument>
#include <benchmark/benchmark.h>

namespace {

constexpr uint recordCount = 10000;

QUuid uid(uint n)
{
    return QUuid(n, 0x30, 0, 1, 2, 3, 4, 5, 6, 7, 8);
}

QString name(uint n)
{
    return QStringLiteral("Запись %1").arg(n);
}

Model::ActionSequence sequence(uint n)
{
    Model::ActionBlueprintInstance instance;
    instance.blueprint = uid(1);
    instance.properties.emplace_back(QStringLiteral("power"), Model::ActionDatatype(static_cast<long long>(n % 100)));
    instance.zones = {uid(n), uid(n + 1)};
    return {{instance}};
}

template <typename Record>
struct List
{
    const char *topic;
    QVariant (*toVariant)(const Record &record);
    Record (*fromVariant)(const JsonAPI::Entity &entity);
    Record (*make)(uint n);
};

template <typename Record>
void toRecords(benchmark::State &state, const List<Record> &list)
{
    QVariantList data;
    for (uint n = 0; n < recordCount; ++n)
        data << list.toVariant(list.make(n));
    const auto document = QJsonDocument::fromVariant(QVariantMap{{"data", data}, {"server_version", "4.5.2"}});
    const auto packed = qCompress(document.toJson(QJsonDocument::Compact));
    for (auto _ : state) {
        const auto response = JsonAPI::Response::fromByteArray(qUncompress(packed));
        const auto records = JsonAPI::Entity::toType(response.data, list.fromVariant);
        if (records.size() != recordCount) {
            state.SkipWithError("records are missing");
            return;
        }
    }
}

template <typename Record>
bool add(const List<Record> &list)
{
    const auto title = std::string("PublicationToRecords/") + list.topic;
    benchmark::RegisterBenchmark(title.c_str(), [list](benchmark::State &state) {
        toRecords(state, list);
    })->Unit(benchmark::kMillisecond);
    return true;
}

Model::ActionBlueprint blueprint(uint n)
{
    Model::ActionBlueprint graph(name(n), uid(n));
    const auto source = graph.addNode(QStringLiteral("type/integer"), uid(n + 1));
    auto *property = graph.property(source, QStringLiteral("value"));
    property->exposed = true;
    property->value = Model::ActionDatatype(5LL);
    property->valueLimits = Model::ActionValueLimits::integer(0, 100);
    const auto target = graph.addNode(QStringLiteral("output"), uid(n + 2));
    graph.connect(source, QStringLiteral("value"), target, QStringLiteral("value"));
    return graph;
}

// What the fields hold matters little; that each record has all that it usually has does.
const bool added[] = {
    add<Model::Zone>({"zones", JsonAPI::Zone::toVariant, JsonAPI::Zone::fromVariant,
                      [](uint n) {
                          return Model::Zone{uid(n), uid(n % 10), name(n), {n * 1.5, n * 2.5}, 160, 96};
                      }}),
    add<Model::ShopPart>({"shop_parts", JsonAPI::ShopPart::toVariant, JsonAPI::ShopPart::fromVariant,
                          [](uint n) {
                              return Model::ShopPart{uid(n), name(n)};
                          }}),
    add<Model::DeviceDescriptor>({"devices", JsonAPI::Device::toVariant, JsonAPI::Device::fromVariant,
                                  [](uint n) {
                                      return Model::DeviceDescriptor(QUrl(QStringLiteral("Lamp.qml")), uid(n),
                                                                     uid(n % 400), 1, static_cast<int>(n),
                                                                     {{"name", name(n)}, {"pollingInterval", 60000}},
                                                                     Model::RadioStatus::DeviceType::Mrf, 0);
                                  }}),
    add<Model::DeviceMode>({"device_modes", JsonAPI::DeviceMode::toVariant, JsonAPI::DeviceMode::fromVariant,
                            [](uint n) {
                                return Model::DeviceMode{uid(n), Model::DeviceMode::Mode::Manual};
                            }}),
    add<Model::DeviceTypeInfo>({"device_types", JsonAPI::DeviceType::toVariant, JsonAPI::DeviceType::fromVariant,
                                [](uint n) {
                                    Model::DeviceTypeInfo type;
                                    type.url = QUrl(name(n));
                                    type.name = name(n);
                                    Model::DeviceTypeInfo::Parameter parameter;
                                    parameter.identificator = QStringLiteral("power");
                                    parameter.limits = Model::ActionValueLimits::integer(0, 100);
                                    parameter.defaultValue = Model::ActionDatatype(0LL);
                                    type.parameters = {parameter, parameter};
                                    return type;
                                }}),
    add<Model::Button>({"buttons", JsonAPI::Button::toVariant, JsonAPI::Button::fromVariant,
                        [](uint n) {
                            Model::Button button;
                            button.uid = uid(n);
                            button.partUid = uid(n % 10);
                            button.name = name(n);
                            button.onColor = button.offColor = QStringLiteral("#ffe500");
                            button.blueprints = sequence(n);
                            return button;
                        }}),
    add<Model::ButtonState>({"button_states", JsonAPI::ButtonState::toVariant, JsonAPI::ButtonState::fromVariant,
                             [](uint n) {
                                 return Model::ButtonState{uid(n), Model::ButtonState::State::On};
                             }}),
    add<Model::Indicator>({"indicators", JsonAPI::Indicator::toVariant, JsonAPI::Indicator::fromVariant,
                           [](uint n) {
                               Model::Indicator indicator;
                               indicator.uid = uid(n);
                               indicator.partUid = uid(n % 10);
                               indicator.label = name(n);
                               indicator.displayValue = Model::Indicator::DisplayValue{uid(n), "power"};
                               return indicator;
                           }}),
    add<Model::IndicatorState>({"indicator_states", JsonAPI::IndicatorState::toVariant,
                                JsonAPI::IndicatorState::fromVariant,
                                [](uint n) {
                                    Model::IndicatorState state;
                                    state.uid = uid(n);
                                    state.text = name(n);
                                    return state;
                                }}),
    add<Model::ImageItem>({"image_items", JsonAPI::ImageItem::toVariant, JsonAPI::ImageItem::fromVariant,
                           [](uint n) {
                               Model::ImageItem item;
                               item.uid = uid(n);
                               item.name = name(n);
                               return item;
                           }}),
    add<Model::View3DItem>({"view_3d_items", JsonAPI::View3DItem::toVariant, JsonAPI::View3DItem::fromVariant,
                            [](uint n) {
                                Model::View3DItem item;
                                item.uid = uid(n);
                                item.name = name(n);
                                return item;
                            }}),
    add<Model::ActionBlueprint>(
        {"blueprints", JsonAPI::ActionBlueprint::toVariant, JsonAPI::ActionBlueprint::fromVariant, blueprint}),
    add<Model::NodeDescription>({"action_nodes", JsonAPI::NodeDescription::toVariant,
                                 JsonAPI::NodeDescription::fromVariant,
                                 [](uint n) {
                                     Model::NodeDescription node(QStringLiteral("type/%1").arg(n), name(n));
                                     Model::NodeIODescription socket;
                                     socket.name = QStringLiteral("value");
                                     socket.acceptedTypes = {Model::ActionDatatype::Type::Integer};
                                     node.inputs = {socket, socket};
                                     node.outputs = {socket};
                                     node.properties = {{QStringLiteral("value"), name(n), Model::ActionDatatype(1LL)}};
                                     return node;
                                 }}),
    add<Model::ScheduleDay>({"schedules", JsonAPI::ScheduleDay::toVariant, JsonAPI::ScheduleDay::fromVariant,
                             [](uint n) {
                                 Model::ScheduleDay day(uid(n), name(n),
                                                        {{QTime(0, 0), sequence(n)}, {QTime(8, 0), sequence(n)}},
                                                        {0, 1, 2, 3, 4});
                                 day.zones = {uid(n), uid(n + 1)};
                                 return day;
                             }}),
    add<Model::UserInfo>({"users", JsonAPI::UserInfo::toVariant, JsonAPI::UserInfo::fromVariant,
                          [](uint n) {
                              Model::UserInfo user;
                              user.login = name(n);
                              user.group = QStringLiteral("user");
                              user.zonesWhitelist = QSet<QUuid>{uid(n), uid(n + 1)};
                              return user;
                          }}),
    add<Model::DevicePowerOnInfo>(
        {"power_on_statistics", JsonAPI::DevicePowerOnInfo::toVariant, JsonAPI::DevicePowerOnInfo::fromVariant,
         [](uint n) {
             return Model::DevicePowerOnInfo{uid(n), n * 1.25, QDateTime(QDate(2024, 1, 1), QTime(12, 0), Qt::UTC)};
         }}),
};

} // namespace
