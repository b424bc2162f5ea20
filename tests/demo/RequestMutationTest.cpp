// SPDX-License-Identifier: GPL-3.0-or-later
#include "Documents.h"
#include "SiteFixture.h"
#include "demo/IndicatorRules.h"
#include "demo/Publisher.h"
#include "demo/SiteLoader.h"
#include "model/json/View3DItem.h"
#include "support/JsonLeaks.h"
#include "support/TestBase.h"

#include <QJsonDocument>
#include <random>

using namespace SiteFixture;
using Flags = ZmqMessageHeader::Flags;

namespace {

QByteArray idsOf(const char *type, std::initializer_list<const char *> uids)
{
    QByteArray list;
    for (const auto *uid : uids)
        list += QByteArray(list.isEmpty() ? "" : ", ") + R"({"type": ")" + type + R"(", "id": ")" + uid + "\"}";
    return "[" + list + "]";
}

// Good requests, of which each round spoils one.
QList<QByteArray> goodRequests()
{
    const QByteArray tillText = till;
    return {
        loginDocument("admin", "secret"),
        document("POST", "ping/", R"([{"type": "", "id": ""}])"),
        document("GET", "users"),
        document("GET", "system_time"),
        document("POST", "zones",
                 R"([{"type": "zone", "id": ")" + tillText + R"(", "attributes": {"name": "Я",
            "part_uid": ")"
                     + hall + R"(", "x": 16, "y": 32.5, "width": 96, "height": 96}}])"),
        document("DELETE", "zones", idsOf("zone", {till, door})),
        document("POST", "devices",
                 R"([{"type": "device", "id": "{00000000-0000-0000-0000-000000000000}",
            "attributes": {"url": "Lamp.qml", "zone_uid": ")"
                     + tillText + R"(", "address": 7,
            "persistentData": {"name": "A"}, "radio_type": "mrf", "radio_index": 0}}])"),
        document("POST", "device_states",
                 R"([{"type": "device_state", "id": ")" + QByteArray(lamp)
                     + R"(", "attributes": {"state": {"power": 50}}}])"),
        document("POST", "oneshot_blueprint",
                 R"([{"type": "oneshot_blueprint",
            "id": "{00000ec0-0002-0000-0000-000000000002}", "attributes": {"zones": [")"
                     + tillText + R"("],
            "properties": [{"node": "", "property": "power", "value": {"type": "integer", "value": 50}}]}}])"),
        document("POST", "users", R"([{"type": "user", "id": "anna", "attributes": {"login": "anna",
            "password": "eA==", "group": "user", "zones_whitelist": null}}])"),
        document("POST", "system_time/", R"([{"type": "time_info", "id": "0", "attributes":
            {"time": "2030-01-02T03:04:05Z", "timezone": "UTC", "ntp": false}}])"),
        document("POST", "shops/" + QByteArray(site),
                 R"([{"type": "shop", "id": ")" + QByteArray(site) + R"(", "attributes": {"name": "A"},
            "relationships": {"shop_parts": {"data": [{"type": "shop_part", "id": ")"
                     + hall + R"(", "meta": {}}]}}}])",
                 R"([{"type": "shop_part", "id": ")" + QByteArray(hall) + R"(", "attributes": {"name": "B"}}])"),
        document("DELETE", "shop_parts", idsOf("shop_part", {hall})),
        document("POST", "buttons",
                 listOf({entity("button", button,
                                R"({"name": "Я", "x": 8, "toggle": true, "on_color": "#00ff00", "blueprints": [)"
                                    + powerStep(listOf({quoted(till)}), "30") + "]}")})),
        document("DELETE", "buttons", idsOf("button", {button})),
        document("POST", "button_states", listOf({entity("button_state", button, R"({"state": 1})")})),
        document("POST", "indicators",
                 listOf({entity("indicator", indicator,
                                QByteArray(R"({"label": "Я", "indicator_type": 1, "horizontal_alignment": 2,
                                    "display_value_property": "power", "display_value_device": ")")
                                    + lamp + "\"}")})),
        document("DELETE", "indicators", idsOf("indicator", {indicator})),
        document("POST", "image_items/", listOf({entity("image_item", picture, R"({"x": 7, "opacity": 0.5})")})),
        document("GET", QByteArray("image_items/") + picture),
        document("DELETE", "image_items", idsOf("image_item", {picture})),
        document("POST", "view_3d_items/", listOf({entity("view_3d_item", mesh, R"({"z": 7, "locked": true})")})),
        document("GET", QByteArray("view_3d_items/") + mesh),
        document("DELETE", "view_3d_items", idsOf("view_3d_item", {mesh})),
        document("POST", "blueprints",
                 listOf({entity("action_blueprint", blueprint, R"({"name": "Я", "system": false, "nodes": [
                    {"uid": "{b1000000-0000-0000-0000-000000000003}", "type": "output", "x": 1, "y": 2.5,
                     "inputs": [{"name": "value", "connection_node": "{b1000000-0000-0000-0000-000000000001}",
                     "connection_property": "value"}], "outputs": [], "properties": []},
                    {"uid": "{b1000000-0000-0000-0000-000000000001}", "type": "type/integer", "x": 1, "y": 2,
                     "inputs": [{"name": "value", "connection_node": "{b1000000-0000-0000-0000-000000000001}",
                     "connection_property": "value"}], "outputs": [{"name": "value"}], "properties": [{"name": "value",
                     "exposed": true, "global_name": "half", "user_description": "Я",
                     "value": {"type": "integer", "value": 5}}]}]})")})),
        document("DELETE", "blueprints", idsOf("action_blueprint", {blueprint})),
        document("POST", "oneshot_blueprint",
                 listOf({entity("oneshot_blueprint", blueprint, R"({"zones": [")" + tillText + R"("], "properties": [
                     {"node": "", "property": "half", "value": {"type": "integer", "value": 5}}]})")})),
        document("POST", "schedule_days",
                 R"([{"type": "schedule_day", "id": ")" + QByteArray(schedule)
                     + R"(", "attributes": {"name": "Я", "week_days": [0, 6], "points": [{"time": "12:00:00",
                     "blueprints": [)"
                     + powerStep("[]", "30") + R"(]}]}, "relationships": {"zones": {"data": )" + idsOf("zone", {till})
                     + "}}}]"),
        document("DELETE", "schedule_days", idsOf("schedule_day", {schedule})),
        document("POST", "settings/1", listOf({entity("settings", "1", R"({"pwm": {"100": 250, "80": 200, "60": 150,
            "40": 100, "20": 50, "0": 0}, "mrf": [{"pan": 1, "address": 2, "channel": 11, "duty_cycle": "duty25"}],
            "radio": {"pan": 1, "address": 2, "channel": 11, "duty_cycle": "duty25"},
            "lora": [{"frequency": 868900000, "power": 14, "bandwidth": 7, "spreading_factor": 9, "coding_rate": 4,
            "address": 5, "port_name": "ttyUSB0", "duty_cycle": "duty10", "maximum_reply_length": 128}],
            "rs485": [{"address": 6, "speed": 9600, "reply_wait_time": 50, "duty_cycle": "duty100",
            "port_name": "ttyS0"}]})")})),
        document("GET", "radio_status"),
        document("GET", "available_com_ports"),
        document("GET", "system_log?from=1795170600000&to=1795260600000"),
        document("GET",
                 "statistics?from=2026-11-21T09%3A00%3A00Z&to=2026-11-21T10%3A00%3A00Z&entities=%7B%22"
                     + QUuid(lamp).toString().toUtf8().toPercentEncoding()
                     + "%22%3A%5B%22Lamp.qml%22%5D%7D&resolution=minute"),
        document("GET", "statistics_info"),
        document("POST", "power_on_statistics", listOf({entity("device_power_on_info", lamp, R"({"power_on_hours": 12.5,
                     "last_update": "2026-11-21T10:30:00Z"})")})),
        document("POST", "system_factory_reset/", R"([{"type": "factory_reset", "id": ""}])"),
    };
}

class Spoiler
{
public:
    explicit Spoiler(quint32 seed)
        : m_random(seed)
    {}

    int number(int below) { return below <= 0 ? 0 : int(m_random() % quint32(below)); }

    QByteArray spoil(QByteArray bytes)
    {
        static const QByteArrayList pieces{
            "null", "[]",      "{}",     "\"\"", "1e308", "-1", "true", "\\u0000", "\xff", "99999999999999999999",
            "[[[[", "\"id\":", "DELETE", "GET",  ",",     "\""};
        for (int i = number(4); i >= 0; --i) {
            const int at = number(bytes.size());
            switch (number(6)) {
            case 0: bytes[at < bytes.size() ? at : 0] = char(number(256)); break;
            case 1: bytes.remove(at, 1 + number(20)); break;
            case 2: bytes.insert(at, pieces.at(number(pieces.size()))); break;
            case 3: bytes.truncate(at); break;
            case 4: bytes.insert(at, bytes.mid(number(bytes.size()), number(60))); break;
            default: bytes.replace(at, 1 + number(8), pieces.at(number(pieces.size()))); break;
            }
            if (bytes.isEmpty())
                bytes = "{";
        }
        return bytes;
    }

private:
    std::mt19937 m_random;
};

// A reply is readable, has the request's id and packing, and holds either data or errors with code and title.
bool isHonest(const Demo::Message &request, const Demo::Message &reply)
{
    if (reply.header.id() != request.header.id() || reply.header.isCompressed() != request.header.isCompressed())
        return false;
    const auto body = reply.header.isCompressed() ? qUncompress(reply.body) : reply.body;
    if (reply.header.isRaw())
        return !ZmqBinaryMessage::fromByteArray(body).entries().empty();
    const auto document = QJsonDocument::fromJson(body).object();
    const auto errors = codes(document);
    return document.value("server_version").toString() == "4.5.2"
        && document.contains("data") == !document.contains("errors") && !errors.contains(QString());
}

// What the site holds is always something that it could be delivered with.
bool holdsTogether(const Demo::DemoSite &site, QString *error)
{
    return bool(Demo::SiteLoader::fromJson(Demo::SiteLoader::toJson(site.data()), error));
}

} // namespace

class RequestMutationTest : public TestBase
{
    Q_OBJECT

private slots:
    void goodRequestsAreAnswered();
    void spoiltDocumentsAreAnswered();
    void spoiltMessagesAreAnswered();
    void spoiltUploadsAreAnswered();
    void spoiltFilesAreAnswered();
};

void RequestMutationTest::goodRequestsAreAnswered()
{
    for (const auto &request : goodRequests()) {
        Desk desk(fullData());
        const Demo::Message message{ZmqMessageHeader({Flags::Json}, "test:1"), request};
        QVERIFY2(isHonest(message, desk.handler.answer("admin", message)), request);
        desk.site.reset();
        desk.ask(loginDocument("admin", "secret"));
        QVERIFY2(codes(desk.ask(request)).isEmpty(), request);
    }
}

void RequestMutationTest::spoiltDocumentsAreAnswered()
{
    const JsonLeaks uncounted;
    Desk desk(fullData());
    Demo::Publisher publisher(desk.site, QVersionNumber(4, 5, 2));
    Demo::IndicatorRules rules(desk.site);
    Spoiler spoiler(20261121);
    const auto requests = goodRequests();
    const ZmqMessageHeader header({Flags::Json}, "zones:1");
    int refused = 0;

    for (int round = 0; round < 4000; ++round) {
        const Demo::Message request{header, spoiler.spoil(requests.at(spoiler.number(requests.size())))};
        const auto reply = desk.handler.answer("admin", request);
        QVERIFY2(isHonest(request, reply), request.body);
        refused += reply.body.contains("errors") ? 1 : 0;
        if (round % 50 == 0) { // somebody logs in again and puts things right
            QString error;
            QVERIFY2(holdsTogether(desk.site, &error), qPrintable(error));
            for (const auto &topic : Demo::Publisher::plainTopics())
                QVERIFY(!publisher.document(topic).isEmpty());
            for (const auto &topic : Demo::Publisher::localizedTopics())
                QVERIFY(!publisher.document(topic + "/en_US").isEmpty());
            rules.evaluate();
            desk.site.reset();
            desk.ask(loginDocument("admin", "secret"));
        }
    }

    QVERIFY(refused > 2000);
    QVERIFY(refused < 4000); // some stay readable
    desk.site.reset();
    desk.ask(loginDocument("admin", "secret"));
    QCOMPARE(codes(desk.get("users")), QStringList());
}

void RequestMutationTest::spoiltMessagesAreAnswered()
{
    const JsonLeaks uncounted;
    allowMessages("Byte consumer|bytes");
    Desk desk;
    Spoiler spoiler(7);
    const auto requests = goodRequests();

    for (int round = 0; round < 2000; ++round) {
        const auto document = requests.at(spoiler.number(requests.size()));
        const auto header = ZmqMessageHeader(quint8(spoiler.number(256)), "id:" + QByteArray::number(round));
        const Demo::Message request{header, spoiler.spoil(spoiler.number(2) ? qCompress(document) : document)};
        const auto reply = desk.handler.answer("admin", request);
        QVERIFY2(isHonest(request, reply), request.body.toHex());
        if (round % 50 == 0) {
            desk.site.reset();
            desk.ask(loginDocument("admin", "secret"));
        }
    }

    desk.site.reset();
    desk.ask(loginDocument("admin", "secret"));
    QCOMPARE(codes(desk.get("users")), QStringList());
}

void RequestMutationTest::spoiltUploadsAreAnswered()
{
    const JsonLeaks uncounted;
    allowMessages("Byte consumer|bytes|Unknown parameter type|map:");
    Desk desk;
    Spoiler spoiler(9);
    const auto json = Demo::SiteLoader::toJson(data());
    int restored = 0;

    for (int round = 0; round < 300; ++round) {
        ZmqBinaryMessage message("system_backup_restore");
        message.add("data", qCompress(spoiler.spoil(json), 1));
        auto body = message.toByteArray();
        if (round % 3 == 0)
            body = spoiler.spoil(body);
        const Demo::Message request{ZmqMessageHeader({Flags::Raw}, "system_backup_restore:1"), body};
        const auto reply = desk.handler.answer("admin", request);
        QVERIFY(isHonest(request, reply));
        restored += reply.body.contains("errors") ? 0 : 1;
        QString error;
        QVERIFY2(holdsTogether(desk.site, &error), qPrintable(error));
        desk.site.reset();
        desk.ask(loginDocument("admin", "secret"));
    }

    QVERIFY(restored < 300);
    QCOMPARE(desk.site.data().zones.size(), size_t(2));
}

void RequestMutationTest::spoiltFilesAreAnswered()
{
    const JsonLeaks uncounted;
    allowMessages("Byte consumer|bytes");
    Desk desk(fullData());
    Spoiler spoiler(11);
    ZmqBinaryMessage image("image_items");
    image.add("part_uid", QUuid(hall).toRfc4122());
    image.add("image", "<svg/>");
    image.add("format", "svg");
    for (const auto *key : {"x", "y", "width", "height"})
        image.add(key, "16.5");
    image.add("name", "Plan");
    ZmqBinaryMessage object("view_3d_items");
    JsonAPI::View3DItem::toBinaryMessage(object, *desk.site.view3DItem(QUuid(mesh)));
    int taken = 0;

    for (int round = 0; round < 2000; ++round) {
        const auto &whole = round % 2 == 0 ? image : object;
        const auto spoilt = spoiler.number(20) == 0 ? whole.toByteArray() : spoiler.spoil(whole.toByteArray());
        ZmqMessageHeader header({Flags::Raw}, "upload:1");
        header.setCompressed(round % 3 == 0);
        const Demo::Message request{header, header.isCompressed() ? qCompress(spoilt, 1) : spoilt};
        const auto reply = desk.handler.answer("admin", request);
        QVERIFY(isHonest(request, reply));
        const auto body = header.isCompressed() ? qUncompress(reply.body) : reply.body;
        taken += body.contains("errors") ? 0 : 1;
        if (round % 100 == 0) {
            QString error;
            QVERIFY2(holdsTogether(desk.site, &error), qPrintable(error));
        }
    }

    QVERIFY(taken > 0);
    QVERIFY(taken < 2000);
}

ONDIRA_TEST(RequestMutationTest)
#include "RequestMutationTest.moc"
