// SPDX-License-Identifier: GPL-3.0-or-later
#include "SiteFixture.h"

#include "demo/SiteLoader.h"
#include "demo/SiteObjects.h"
#include "model/StandardBlueprints.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace SiteFixture {

const char site[] = "{10000000-0000-0000-0000-000000000001}";
const char hall[] = "{20000000-0000-0000-0000-000000000001}";
const char till[] = "{30000000-0000-0000-0000-000000000001}";
const char door[] = "{30000000-0000-0000-0000-000000000002}";
const char lamp[] = "{40000000-0000-0000-0000-000000000001}";
const char manualLamp[] = "{40000000-0000-0000-0000-000000000002}";
const char sensor[] = "{40000000-0000-0000-0000-000000000003}";
const char contactor[] = "{40000000-0000-0000-0000-000000000004}";
const char button[] = "{50000000-0000-0000-0000-000000000001}";
const char indicator[] = "{60000000-0000-0000-0000-000000000001}";
const char picture[] = "{70000000-0000-0000-0000-000000000001}";
const char mesh[] = "{80000000-0000-0000-0000-000000000001}";
const char schedule[] = "{a0000000-0000-0000-0000-000000000001}";
const char blueprint[] = "{b0000000-0000-0000-0000-000000000001}";
const char nobody[] = "{90000000-0000-0000-0000-000000000009}";

namespace {

Demo::SiteZone zone(const char *uid, const QString &name, double x)
{
    Demo::SiteZone zone;
    zone.zone.uid = QUuid(uid);
    zone.zone.partUid = QUuid(hall);
    zone.zone.name = name;
    zone.zone.position = {x, 64};
    zone.zone.width = 96;
    zone.zone.height = 112;
    return zone;
}

Demo::SiteDevice device(const Demo::SiteData &site, const char *uid, const char *zone, const char *url, int address)
{
    Demo::SiteDevice device;
    device.descriptor.uid = QUuid(uid);
    device.descriptor.zoneUid = QUuid(zone);
    device.descriptor.url = QUrl(url);
    device.descriptor.version = 1;
    device.descriptor.address = address;
    device.descriptor.radioType = Model::RadioStatus::DeviceType::Mrf;
    for (const auto &type : site.deviceTypes) {
        if (type.info.url == device.descriptor.url) {
            device.descriptor.data = type.info.defaultParametersValues();
            device.state = type.info.defaultStateValues();
        }
    }
    return device;
}

Model::UserInfo user(const QString &login, const QByteArray &password)
{
    Model::UserInfo user;
    user.login = login;
    user.password = password;
    user.group = login;
    return user;
}

} // namespace

Demo::SiteData data()
{
    Demo::SiteData data;
    data.uid = QUuid(site);
    data.name = "Магазин";
    data.timezone = "UTC";
    data.comPorts = QStringList{"ttyS0", "ttyUSB0"};
    data.users = {user("admin", "secret"), user("user", "word")};
    data.deviceTypes = Demo::SiteLoader::builtIn().deviceTypes;
    Model::ShopPart part;
    part.uid = QUuid(hall);
    part.name = "Зал";
    data.parts = {part};
    data.zones = {zone(till, "Касса", 64), zone(door, "Дверь", 176)};
    data.devices = {device(data, lamp, till, "PollingLamp.qml", 1), device(data, manualLamp, till, "Lamp.qml", 2),
                    device(data, sensor, till, "PollingLightSensor.qml", 3),
                    device(data, contactor, door, "Quadrel16.qml", 4)};
    data.devices[0].state.insert("power", 40);
    data.devices[1].state.insert("power", 60);
    data.devices[1].mode = Model::DeviceMode::Mode::Manual;
    data.nodes = Demo::SiteObjects::nodes();
    data.blueprints = Demo::SiteObjects::standardBlueprints();
    return data;
}

namespace {

Model::ActionBlueprintInstance powerInstance(const QSet<QUuid> &zones, int power)
{
    Model::ActionBlueprintInstance instance;
    instance.blueprint = Model::StandardBlueprints::setPowerUid();
    instance.zones = zones;
    instance.properties = {{QStringLiteral("power"), Model::ActionDatatype(static_cast<long long>(power))}};
    return instance;
}

// A power of twice what it is told, by a graph of its own.
Model::ActionBlueprint doubled()
{
    const QUuid number("{b1000000-0000-0000-0000-000000000001}");
    const QUuid product("{b1000000-0000-0000-0000-000000000002}");
    const QUuid output("{b1000000-0000-0000-0000-000000000003}");
    Model::ActionBlueprint graph(QStringLiteral("Вдвое"), QUuid(blueprint));
    graph.addNode(QStringLiteral("output"), output);
    graph.addNode(QStringLiteral("math/multiply"), product);
    graph.addNode(QStringLiteral("type/integer"), number);
    auto *value = graph.property(number, QStringLiteral("value"));
    value->value = Model::ActionDatatype(15LL);
    value->exposed = true;
    value->globalName = QStringLiteral("half");
    graph.property(product, QStringLiteral("b"))->value = Model::ActionDatatype(2.0);
    graph.connect(number, QStringLiteral("value"), product, QStringLiteral("a"));
    graph.connect(product, QStringLiteral("value"), output, QStringLiteral("value"));
    return graph;
}

} // namespace

Demo::SiteData fullData()
{
    auto site = data();
    Demo::SiteButton press;
    press.button.uid = QUuid(button);
    press.button.partUid = QUuid(hall);
    press.button.name = "Свет";
    press.button.toggle = true;
    press.button.blueprints.instances = {powerInstance({QUuid(till), QUuid(door)}, 70)};
    site.buttons = {press};

    Demo::SiteIndicator lamp;
    lamp.indicator.uid = QUuid(indicator);
    lamp.indicator.partUid = QUuid(hall);
    lamp.indicator.label = "Отказы";
    lamp.indicator.indicatorType = Model::Indicator::deviceValue;
    lamp.indicator.displayValue = Model::Indicator::DisplayValue{QUuid(sensor), "brightness"};
    site.indicators = {lamp};

    Demo::SiteImage plan;
    plan.item.uid = QUuid(picture);
    plan.item.partUid = QUuid(hall);
    plan.item.name = "План";
    plan.image = {"<svg/>", "svg"};
    site.images = {plan};

    Model::View3DItem rack;
    rack.uid = QUuid(mesh);
    rack.partUid = QUuid(hall);
    rack.name = "Стеллаж";
    rack.modelData = QByteArray("\x4d\x7f\xa0\xc8", 4);
    site.view3DItems = {rack};

    site.blueprints.push_back({doubled(), {{"en", {{"name", "Twice"}}}}});

    Model::ScheduleDay day(QUuid(schedule), "Будни", {}, {0, 1, 2, 3, 4});
    day.zones = {QUuid(till)};
    Model::ScheduleDayPoint morning;
    morning.time = QTime(8, 0);
    morning.actions.instances = {powerInstance({}, 80)};
    Model::ScheduleDayPoint evening;
    evening.time = QTime(20, 0);
    evening.actions.instances = {powerInstance({QUuid(door)}, 5)};
    day.points = {morning, evening};
    site.days = {day};
    return site;
}

QByteArray document(const QByteArray &method, const QByteArray &link, const QByteArray &data,
                    const QByteArray &included)
{
    return QByteArray(R"({"method": ")") + method + R"(", "link": ")" + link + R"(", "data": )" + data
        + R"(, "included": )" + included + R"(, "client_version": "4.5.2"})";
}

QByteArray loginDocument(const QByteArray &login, const QByteArray &password)
{
    return document("POST", "auth/",
                    R"([{"type": "auth", "id": "1", "attributes": {"login": ")" + login + R"(", "password": ")"
                        + password + R"(", "locale": "ru_RU"}}])");
}

Desk::Desk(const Demo::SiteData &given)
    : site(given)
    , time(QDate(2026, 11, 21), QTime(10, 30), Qt::UTC)
    , clock("UTC", [this] { return time; })
    , handler(site, clock, QVersionNumber(4, 5, 2))
{
    ask(loginDocument("admin", "secret"), "admin");
    ask(loginDocument("user", "word"), "user");
}

QJsonObject Desk::ask(const QByteArray &document, const QByteArray &connection)
{
    using Flags = ZmqMessageHeader::Flags;
    const auto reply = handler.answer(connection, {ZmqMessageHeader({Flags::Json}, "test:1"), document});
    return QJsonDocument::fromJson(reply.body).object();
}

QJsonObject Desk::post(const QByteArray &link, const QByteArray &data, const QByteArray &included)
{
    return ask(document("POST", link, data, included));
}

QJsonObject Desk::remove(const QByteArray &link, const QByteArray &data)
{
    return ask(document("DELETE", link, data));
}

QJsonObject Desk::get(const QByteArray &link)
{
    return ask(document("GET", link));
}

QJsonObject Desk::send(const ZmqBinaryMessage &message, const QByteArray &connection, bool isPacked)
{
    using Flags = ZmqMessageHeader::Flags;
    ZmqMessageHeader header({Flags::Raw}, "upload:4");
    header.setCompressed(isPacked);
    const auto body = message.toByteArray();
    const auto reply = handler.answer(connection, {header, isPacked ? qCompress(body) : body});
    return QJsonDocument::fromJson(isPacked ? qUncompress(reply.body) : reply.body).object();
}

QJsonObject Desk::upload(const QByteArray &topic, const QByteArray &data, const QByteArray &connection)
{
    using Flags = ZmqMessageHeader::Flags;
    ZmqBinaryMessage message(topic);
    message.add("data", data);
    const ZmqMessageHeader header({Flags::Raw}, topic + ":2");
    return QJsonDocument::fromJson(handler.answer(connection, {header, message.toByteArray()}).body).object();
}

ZmqBinaryMessage Desk::getFile(const QByteArray &link)
{
    using Flags = ZmqMessageHeader::Flags;
    const auto reply = handler.answer("admin", {ZmqMessageHeader({Flags::Json}, "test:3"), document("GET", link)});
    return reply.header.isRaw() ? ZmqBinaryMessage::fromByteArray(reply.body) : ZmqBinaryMessage();
}

QStringList codes(const QJsonObject &reply)
{
    QStringList codes;
    const auto errors = reply.value("errors").toArray();
    for (const auto &error : errors)
        codes << error.toObject().value("code").toString();
    return codes;
}

QStringList related(const QJsonObject &reply, const char *relationship)
{
    QStringList ids;
    const auto relationships = reply.value("data").toObject().value("relationships").toObject();
    const auto relations = relationships.value(QLatin1String(relationship)).toObject().value("data").toArray();
    for (const auto &relation : relations)
        ids << relation.toObject().value("id").toString();
    return ids;
}

} // namespace SiteFixture
