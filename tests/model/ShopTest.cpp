// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/Shop.h"
#include "link/document/Response.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

namespace {

const QUuid shopUid("{00000000-0000-0000-0000-000000000001}");
const QUuid hall("{11111111-1111-1111-1111-111111111111}");
const QUuid kitchen("{22222222-2222-2222-2222-222222222222}");
const QUuid floorUid("{33333333-3333-3333-3333-333333333333}");
const QUuid entrance("{44444444-4444-4444-4444-444444444444}");
const QUuid lamp("{55555555-5555-5555-5555-555555555555}");
const QUuid button("{66666666-6666-6666-6666-666666666666}");
const QUuid indicator("{77777777-7777-7777-7777-777777777777}");
const QUuid day("{88888888-8888-8888-8888-888888888888}");
const QUuid action("{99999999-9999-9999-9999-999999999999}");

// One record of every kind that is written.
Model::Shop fullSite()
{
    Model::Shop shop;
    shop.uid = shopUid;
    Model::ScheduleDay workday;
    workday.uid = day;
    workday.name = "Workday";
    shop.scheduleDays.insert(day, workday);
    Model::Action dim;
    dim.uid = action;
    dim.name = "Dim";
    shop.actions.insert(action, dim);
    Model::Button light;
    light.uid = button;
    light.name = "Light";
    shop.buttons.insert(button, light);
    Model::Indicator alarm;
    alarm.uid = indicator;
    alarm.label = "Alarm";
    shop.indicators.insert(indicator, alarm);
    Model::DeviceDescriptor device;
    device.uid = lamp;
    shop.devices.insert(lamp, device);
    shop.shopParts.insert(floorUid, {floorUid, "Floor"});
    shop.labels.insert(entrance, {entrance, floorUid, "Entrance", {}, 0, 0});
    shop.zones.insert(hall, {hall, floorUid, "Hall", {}, 0, 0});
    return shop;
}

Model::Shop read(const QByteArray &document)
{
    const auto variant = JsonTexts::read(document);
    return JsonAPI::Shop::fromVariant(JsonAPI::Entity(variant), JsonAPI::Included(variant));
}

} // namespace

class ShopTest : public TestBase
{
    Q_OBJECT

private slots:
    void newSiteHasItsNames();
    void writesAnEmptySite();
    void writesRelationsAndRecords();
    void writesKindsInOrder();
    void whatIsNotSentIsNotWritten();
    void readsEveryKind();
    void ofIncludedRecordsWithOneUidTheLastCounts();
    void oddRelationshipsGiveAnEmptySite_data();
    void oddRelationshipsGiveAnEmptySite();
    void tenThousandZonesAreKept();
    void includedRecordWithoutARelationIsLeftOut();
    void relationWithoutARecordIsPassedOver();
    void recordUnderAnotherNameIsLeftOut();
    void readsTheName_data();
    void readsTheName();
    void readsASiteThroughAReply();
    void comparesByAllFields();
};

void ShopTest::newSiteHasItsNames()
{
    const Model::Shop shop;

    QCOMPARE(shop.name, QString("Завод"));
    QCOMPARE(shop.terminalName, QString("Терминал"));
    QVERIFY(shop.uid.isNull());
}

void ShopTest::writesAnEmptySite()
{
    Model::Shop shop;
    shop.uid = shopUid;

    QCOMPARE(JsonTexts::written(JsonAPI::Shop::toVariant(shop)), JsonTexts::compact(R"({
        "type": "shop", "id": "{00000000-0000-0000-0000-000000000001}",
        "attributes": {"name": "Завод"}, "included": []})"));
}

void ShopTest::writesRelationsAndRecords()
{
    Model::Shop shop;
    shop.uid = shopUid;
    shop.name = "Site";
    shop.zones.insert(kitchen, {kitchen, floorUid, "Kitchen", {3, 4}, 5, 6});
    shop.zones.insert(hall, {hall, floorUid, "Hall", {1, 2}, 3, 4});
    shop.shopParts.insert(floorUid, {floorUid, "Floor"});

    QCOMPARE(JsonTexts::written(JsonAPI::Shop::toVariant(shop)), JsonTexts::compact(R"({
        "type": "shop", "id": "{00000000-0000-0000-0000-000000000001}", "attributes": {"name": "Site"},
        "relationships": {
            "zones": {"data": [{"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}", "meta": {}},
                               {"type": "zone", "id": "{22222222-2222-2222-2222-222222222222}", "meta": {}}]},
            "shop_parts": {"data": [
                {"type": "shop_part", "id": "{33333333-3333-3333-3333-333333333333}", "meta": {}}]}},
        "included": [
            {"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}", "attributes": {
                "part_uid": "{33333333-3333-3333-3333-333333333333}", "name": "Hall",
                "x": 1, "y": 2, "width": 3, "height": 4}},
            {"type": "zone", "id": "{22222222-2222-2222-2222-222222222222}", "attributes": {
                "part_uid": "{33333333-3333-3333-3333-333333333333}", "name": "Kitchen",
                "x": 3, "y": 4, "width": 5, "height": 6}},
            {"type": "shop_part", "id": "{33333333-3333-3333-3333-333333333333}",
             "attributes": {"name": "Floor"}}]})"));
}

void ShopTest::writesKindsInOrder()
{
    const QStringList kinds{"schedule_day", "action", "button", "zone", "label", "shop_part", "device", "indicator"};

    const auto variant = JsonAPI::Shop::toVariant(fullSite());

    QStringList types;
    const auto included = JsonAPI::Included(variant).toVariant();
    for (const auto &entity : included)
        types << JsonAPI::Entity(entity).type;
    QCOMPARE(types, kinds);
    const auto relationships = variant.toMap().value("relationships").toMap();
    QCOMPARE(relationships.size(), kinds.size());
    for (const auto &kind : kinds) {
        const auto relations = relationships.value(kind + "s").toMap().value("data").toList();
        QCOMPARE(relations.size(), 1);
        QCOMPARE(relations.front().toMap().value("type").toString(), kind);
        QCOMPARE(relations.front().toMap().value("meta"), QVariant(QVariantMap()));
    }
}

void ShopTest::whatIsNotSentIsNotWritten()
{
    auto shop = fullSite();
    const auto written = JsonTexts::written(JsonAPI::Shop::toVariant(shop));

    shop.terminalName = "Other";
    shop.scheduleWeeks.insert(day, {});
    shop.sensors.insert(lamp, {lamp});
    shop.imageItems.insert(hall, {});

    QCOMPARE(JsonTexts::written(JsonAPI::Shop::toVariant(shop)), written);
}

void ShopTest::readsEveryKind()
{
    const auto shop = read(R"({
        "type": "shop", "id": "{00000000-0000-0000-0000-000000000001}", "attributes": {"name": "Site"},
        "relationships": {
            "zones": {"data": [{"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}"}]},
            "labels": {"data": [{"type": "label", "id": "{44444444-4444-4444-4444-444444444444}"}]},
            "shop_parts": {"data": [{"type": "shop_part", "id": "{33333333-3333-3333-3333-333333333333}"}]},
            "schedule_days": {"data": [{"type": "schedule_day", "id": "{88888888-8888-8888-8888-888888888888}"}]},
            "actions": {"data": [{"type": "action", "id": "{99999999-9999-9999-9999-999999999999}"}]},
            "buttons": {"data": [{"type": "button", "id": "{66666666-6666-6666-6666-666666666666}"}]},
            "indicators": {"data": [{"type": "indicator", "id": "{77777777-7777-7777-7777-777777777777}"}]},
            "devices": {"data": [{"type": "device", "id": "{55555555-5555-5555-5555-555555555555}"}]}},
        "included": [
            {"type": "indicator", "id": "{77777777-7777-7777-7777-777777777777}", "attributes": {"label": "Alarm"}},
            {"type": "button", "id": "{66666666-6666-6666-6666-666666666666}", "attributes": {"name": "Light"}},
            {"type": "action", "id": "{99999999-9999-9999-9999-999999999999}", "attributes": {"name": "Dim"}},
            {"type": "schedule_day", "id": "{88888888-8888-8888-8888-888888888888}", "attributes": {"name": "Work"}},
            {"type": "label", "id": "{44444444-4444-4444-4444-444444444444}", "attributes": {"text": "Entrance"}},
            {"type": "device", "id": "{55555555-5555-5555-5555-555555555555}"},
            {"type": "shop_part", "id": "{33333333-3333-3333-3333-333333333333}"},
            {"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}", "attributes": {"name": "Hall"}}]})");

    QCOMPARE(shop.uid, shopUid);
    QCOMPARE(shop.name, QString("Site"));
    QCOMPARE(shop.zones.keys(), QList<QUuid>{hall});
    QCOMPARE(shop.zones.value(hall).name, QString("Hall"));
    QCOMPARE(shop.zones.value(hall).width, 0.0);
    QCOMPARE(shop.labels.keys(), QList<QUuid>{entrance});
    QCOMPARE(shop.labels.value(entrance).text, QString("Entrance"));
    QCOMPARE(shop.shopParts.keys(), QList<QUuid>{floorUid});
    QCOMPARE(shop.shopParts.value(floorUid).name, QString("Объект"));
    QCOMPARE(shop.devices.keys(), QList<QUuid>{lamp});
    QCOMPARE(shop.devices.value(lamp).uid, lamp);
    QCOMPARE(shop.scheduleDays.keys(), QList<QUuid>{day});
    QCOMPARE(shop.scheduleDays.value(day).name, QString("Work"));
    QCOMPARE(shop.actions.keys(), QList<QUuid>{action});
    QCOMPARE(shop.actions.value(action).name, QString("Dim"));
    QCOMPARE(shop.buttons.keys(), QList<QUuid>{button});
    QCOMPARE(shop.buttons.value(button).name, QString("Light"));
    QCOMPARE(shop.buttons.value(button).width, 80.0);
    QCOMPARE(shop.indicators.keys(), QList<QUuid>{indicator});
    QCOMPARE(shop.indicators.value(indicator).label, QString("Alarm"));
}

void ShopTest::ofIncludedRecordsWithOneUidTheLastCounts()
{
    const auto shop = read(R"({
        "relationships": {"zones": {"data": [{"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}"}]}},
        "included": [{"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}", "attributes": {"name": "A"}},
                     {"type": "label", "id": "{11111111-1111-1111-1111-111111111111}", "attributes": {"name": "B"}},
                     {"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}", "attributes": {"name": "C"}}]})");

    QCOMPARE(shop.zones.size(), 1);
    QCOMPARE(shop.zones.value(hall).name, QString("C"));
    QVERIFY(shop.labels.isEmpty());
}

void ShopTest::oddRelationshipsGiveAnEmptySite_data()
{
    QTest::addColumn<QByteArray>("rest");

    const QByteArray included = R"("included": [{"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}"}])";
    QTest::newRow("none") << included;
    QTest::newRow("null") << R"("relationships": null, )" + included;
    QTest::newRow("list") << R"("relationships": [{"zones": []}], )" + included;
    QTest::newRow("kind that is a list") << R"("relationships": {"zones": [5]}, )" + included;
    QTest::newRow("data that is null") << R"("relationships": {"zones": {"data": null}}, )" + included;
    QTest::newRow("nothing included") << QByteArray(
        R"("relationships": {"zones": {"data": [{"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}"}]}})");
    QTest::newRow("included that is a map") << QByteArray(
        R"("relationships": {"zones": {"data": [{"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}"}]}},
           "included": {"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}"})");
}

void ShopTest::oddRelationshipsGiveAnEmptySite()
{
    QFETCH(QByteArray, rest);

    QVERIFY(read("{" + rest + "}") == Model::Shop());
}

void ShopTest::tenThousandZonesAreKept()
{
    Model::Shop shop;
    for (int i = 0; i < 10000; ++i) {
        const auto uid = QUuid::createUuidV5(hall, QString::number(i));
        shop.zones.insert(uid, {uid, floorUid, QString::number(i), {1, 2}, 3, 4});
    }

    QVERIFY(read(JsonTexts::written(JsonAPI::Shop::toVariant(shop))) == shop);
}

void ShopTest::includedRecordWithoutARelationIsLeftOut()
{
    const auto shop = read(R"({
        "relationships": {"zones": {"data": [{"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}"}]}},
        "included": [{"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}"},
                     {"type": "zone", "id": "{22222222-2222-2222-2222-222222222222}"}]})");

    QCOMPARE(shop.zones.keys(), QList<QUuid>{hall});
}

void ShopTest::relationWithoutARecordIsPassedOver()
{
    const auto shop = read(R"({
        "relationships": {"zones": {"data": [{"type": "zone", "id": "{22222222-2222-2222-2222-222222222222}"},
                                             {"type": "zone", "id": "no uid"}, {}, 5,
                                             {"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}"},
                                             {"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}"}]}},
        "included": [{"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}"}]})");

    QCOMPARE(shop.zones.keys(), QList<QUuid>{hall});
}

void ShopTest::recordUnderAnotherNameIsLeftOut()
{
    const auto shop = read(R"({
        "relationships": {"labels": {"data": [{"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}"}]},
                          "zone": {"data": [{"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}"}]}},
        "included": [{"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}"}]})");

    QVERIFY(shop.zones.isEmpty());
    QVERIFY(shop.labels.isEmpty());
}

void ShopTest::readsTheName_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("name");

    QTest::newRow("given") << QByteArray(R"({"attributes": {"name": "Site"}})") << "Site";
    QTest::newRow("empty") << QByteArray(R"({"attributes": {"name": ""}})") << "";
    QTest::newRow("absent") << QByteArray("{}") << "Завод";
    QTest::newRow("list") << QByteArray(R"({"attributes": {"name": [1]}})") << "";
}

void ShopTest::readsTheName()
{
    QFETCH(QByteArray, document);

    QTEST(read(document).name, "name");
}

void ShopTest::readsASiteThroughAReply()
{
    const auto shop = fullSite();
    const auto body = JsonAPI::Response(JsonAPI::Shop::toVariant(shop)).toByteArray();

    const auto reply = JsonAPI::Response::fromByteArray(body);

    QCOMPARE(reply.data.size(), size_t(1));
    QVERIFY(JsonAPI::Shop::fromVariant(reply.datum(), reply.included) == shop);
}

void ShopTest::comparesByAllFields()
{
    const Model::Shop shop;
    QVERIFY(shop == Model::Shop());

    const auto differs = [&shop](const std::function<void(Model::Shop &)> &change) {
        auto other = shop;
        change(other);
        return !(other == shop);
    };
    QVERIFY(differs([](Model::Shop &other) { other.uid = shopUid; }));
    QVERIFY(differs([](Model::Shop &other) { other.name = "Other"; }));
    QVERIFY(differs([](Model::Shop &other) { other.terminalName = "Other"; }));
    QVERIFY(differs([](Model::Shop &other) { other.zones.insert(hall, {}); }));
    QVERIFY(differs([](Model::Shop &other) { other.labels.insert(entrance, {}); }));
    QVERIFY(differs([](Model::Shop &other) { other.shopParts.insert(floorUid, {}); }));
    QVERIFY(differs([](Model::Shop &other) { other.devices.insert(lamp, {}); }));
    QVERIFY(differs([](Model::Shop &other) { other.scheduleDays.insert(day, {}); }));
    QVERIFY(differs([](Model::Shop &other) { other.scheduleWeeks.insert(day, {}); }));
    QVERIFY(differs([](Model::Shop &other) { other.sensors.insert(lamp, {}); }));
    QVERIFY(differs([](Model::Shop &other) { other.actions.insert(action, {}); }));
    QVERIFY(differs([](Model::Shop &other) { other.buttons.insert(button, {}); }));
    QVERIFY(differs([](Model::Shop &other) { other.imageItems.insert(hall, {}); }));
    QVERIFY(differs([](Model::Shop &other) { other.indicators.insert(indicator, {}); }));
}

ONDIRA_TEST(ShopTest)
#include "ShopTest.moc"
