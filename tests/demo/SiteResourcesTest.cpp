// SPDX-License-Identifier: GPL-3.0-or-later
#include "SiteFixture.h"
#include "support/TestBase.h"

#include <QJsonArray>
#include <QSignalSpy>

using namespace SiteFixture;
using Mode = Model::DeviceMode::Mode;

namespace {

const QByteArray nullUid = "{00000000-0000-0000-0000-000000000000}";
const QByteArray setPower = "{00000ec0-0002-0000-0000-000000000002}";
const QByteArray setAuto = "{00000ec0-0003-0000-0000-000000000003}";
const QByteArray setManual = "{00000ec0-0005-0000-0000-000000000005}";

QByteArray entity(const QByteArray &type, const QByteArray &id, const QByteArray &attributes = "{}")
{
    return R"({"type": ")" + type + R"(", "id": ")" + id + R"(", "attributes": )" + attributes + "}";
}

QByteArray instance(const QByteArray &blueprint, const QByteArray &zones, const QByteArray &properties = "[]")
{
    return entity("oneshot_blueprint", blueprint, R"({"zones": )" + zones + R"(, "properties": )" + properties + "}");
}

QByteArray power(const QByteArray &type, const QByteArray &value)
{
    return R"([{"node": "{00000000-0000-0000-0000-000000000000}", "property": "power", "value": {"type": ")" + type
        + R"(", "value": )" + value + "}}]";
}

QByteArray listOf(std::initializer_list<QByteArray> elements)
{
    QByteArray list;
    for (const auto &element : elements)
        list += (list.isEmpty() ? "" : ", ") + element;
    return "[" + list + "]";
}

QByteArray quoted(const QByteArray &text)
{
    return "\"" + text + "\"";
}

int powerOf(const Desk &desk, const char *device)
{
    return desk.site.device(QUuid(device))->state.value("power", -1).toInt();
}

} // namespace

class SiteResourcesTest : public TestBase
{
    Q_OBJECT

private slots:
    void addsZone_data();
    void addsZone();
    void changesZoneAndKeepsWhatIsLeftOut();
    void refusesZone_data();
    void refusesZone();
    void badZoneAmongGoodOnesChangesNothing();
    void removedZoneTakesItsDevicesAlong();
    void removesZoneNamedTwiceOnce();
    void refusesToRemove_data();
    void refusesToRemove();
    void addsAndRenamesPlan();
    void removedPlanTakesAllAlong();
    void addsDeviceWithItsTypesDefaults();
    void movedDeviceKeepsItsState();
    void deviceOfAnotherTypeStartsAnew();
    void refusesDevice_data();
    void refusesDevice();
    void removesDevice();
    void setsState_data();
    void setsState();
    void refusesState_data();
    void refusesState();
    void setsPower_data();
    void setsPower();
    void setsPowerOfNamedZonesAlone();
    void runsInstancesInOrder();
    void setsModes();
    void refusesInstance_data();
    void refusesInstance();
    void badInstanceAmongGoodOnesChangesNothing();
    void whitelistBoundsSequences();
    void renamesSite_data();
    void renamesSite();
    void takesRecordsThatComeWithTheSite();
    void refusesSite_data();
    void refusesSite();
    void manyComplaintsAreCutShort();
};

void SiteResourcesTest::addsZone_data()
{
    QTest::addColumn<QByteArray>("id");
    QTest::addColumn<bool>("keepsId");

    QTest::newRow("null uid gets a fresh one") << nullUid << false;
    QTest::newRow("empty id gets a fresh one") << QByteArray() << false;
    QTest::newRow("unknown uid stays") << QByteArray(nobody) << true;
}

void SiteResourcesTest::addsZone()
{
    QFETCH(QByteArray, id);
    QFETCH(bool, keepsId);
    Desk desk;
    QSignalSpy changed(&desk.site, &Demo::DemoSite::changed);

    const auto reply = desk.post("zones",
                                 listOf({entity("zone", id,
                                                R"({"name": "Новая", "part_uid": ")" + QByteArray(hall)
                                                    + R"(", "x": 320, "y": 64.5, "width": 128, "height": 96})")}));

    QCOMPARE(codes(reply), QStringList());
    const auto added = related(reply, "added");
    QCOMPARE(added.size(), 1);
    QCOMPARE(related(reply, "changed"), QStringList());
    QCOMPARE(added.first().toLatin1() == id, keepsId);
    const auto *zone = desk.site.zone(QUuid(added.first()));
    QVERIFY(zone);
    QCOMPARE(zone->zone.name, QString("Новая"));
    QCOMPARE(zone->zone.position.y, 64.5);
    QCOMPARE(zone->zone.width, 128.0);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.first().first().value<Demo::DemoSite::List>(), Demo::DemoSite::List::Zones);
}

void SiteResourcesTest::changesZoneAndKeepsWhatIsLeftOut()
{
    Desk desk;

    const auto reply = desk.post("zones", listOf({entity("zone", till, R"({"name": "Касса 2", "x": 512})")}));

    QCOMPARE(related(reply, "changed"), QStringList(till));
    QCOMPARE(related(reply, "added"), QStringList());
    const auto zone = desk.site.zone(QUuid(till))->zone;
    QCOMPARE(zone.name, QString("Касса 2"));
    QCOMPARE(zone.position.x, 512.0);
    QCOMPARE(zone.position.y, 64.0);
    QCOMPARE(zone.height, 112.0);
    QCOMPARE(zone.partUid, QUuid(hall));
    QCOMPARE(desk.site.data().zones.size(), size_t(2));
}

void SiteResourcesTest::refusesZone_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("code");

    const auto part = QByteArray(R"("part_uid": ")") + hall + "\"";
    QTest::newRow("unknown plan") << entity("zone", nullUid, QByteArray(R"({"part_uid": ")") + nobody + "\"}")
                                  << "unknown_uid_error";
    QTest::newRow("no plan") << entity("zone", nullUid, R"({"name": "A"})") << "unknown_uid_error";
    QTest::newRow("plan is a word") << entity("zone", nullUid, R"({"part_uid": "hall"})") << "invalid_data_error";
    QTest::newRow("id is a word") << entity("zone", "till", "{" + part + "}") << "invalid_data_error";
    QTest::newRow("other type") << entity("button", nullUid, "{" + part + "}") << "invalid_data_error";
    QTest::newRow("x is a text") << entity("zone", till, R"({"x": "64"})") << "invalid_data_error";
    QTest::newRow("y is null") << entity("zone", till, R"({"y": null})") << "invalid_data_error";
    QTest::newRow("width is a list") << entity("zone", till, R"({"width": [96]})") << "invalid_data_error";
    QTest::newRow("name is a number") << entity("zone", till, R"({"name": 1})") << "invalid_data_error";
}

void SiteResourcesTest::refusesZone()
{
    QFETCH(QByteArray, data);
    QFETCH(QString, code);
    Desk desk;
    QSignalSpy changed(&desk.site, &Demo::DemoSite::changed);

    const auto reply = desk.post("zones", listOf({data}));

    QCOMPARE(codes(reply), QStringList(code));
    QVERIFY(!reply.contains("data"));
    QVERIFY(changed.isEmpty());
}

void SiteResourcesTest::badZoneAmongGoodOnesChangesNothing()
{
    Desk desk;

    const auto reply = desk.post(
        "zones", listOf({entity("zone", till, R"({"name": "Другая"})"), entity("zone", door, R"({"x": "left"})")}));

    QCOMPARE(codes(reply), QStringList("invalid_data_error"));
    QCOMPARE(desk.site.zone(QUuid(till))->zone.name, QString("Касса"));
}

void SiteResourcesTest::removedZoneTakesItsDevicesAlong()
{
    Desk desk;

    const auto reply = desk.remove("zones", listOf({entity("zone", till)}));

    QCOMPARE(related(reply, "deleted"), QStringList({till, lamp, manualLamp, sensor}));
    QVERIFY(!desk.site.zone(QUuid(till)));
    QVERIFY(!desk.site.device(QUuid(lamp)));
    QVERIFY(desk.site.device(QUuid(contactor)));
    QCOMPARE(desk.site.data().devices.size(), size_t(1));
}

void SiteResourcesTest::removesZoneNamedTwiceOnce()
{
    Desk desk;

    const auto reply = desk.remove("zones", listOf({entity("zone", door), entity("zone", door)}));

    QCOMPARE(related(reply, "deleted"), QStringList({door, contactor}));
}

void SiteResourcesTest::refusesToRemove_data()
{
    QTest::addColumn<QByteArray>("link");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("code");

    QTest::newRow("unknown zone") << QByteArray("zones") << entity("zone", nobody) << "unknown_uid_error";
    QTest::newRow("zone without uid") << QByteArray("zones") << entity("zone", "") << "unknown_uid_error";
    QTest::newRow("a device as a zone") << QByteArray("zones") << entity("zone", lamp) << "unknown_uid_error";
    QTest::newRow("other type") << QByteArray("zones") << entity("device", till) << "invalid_data_error";
    QTest::newRow("unknown plan") << QByteArray("shop_parts") << entity("shop_part", nobody) << "unknown_uid_error";
    QTest::newRow("unknown device") << QByteArray("devices") << entity("device", nobody) << "unknown_uid_error";
}

void SiteResourcesTest::refusesToRemove()
{
    QFETCH(QByteArray, link);
    QFETCH(QByteArray, data);
    QFETCH(QString, code);
    Desk desk;

    QCOMPARE(codes(desk.remove(link, listOf({data}))), QStringList(code));
    QCOMPARE(desk.site.data().zones.size(), size_t(2));
    QCOMPARE(desk.site.data().devices.size(), size_t(4));
}

void SiteResourcesTest::addsAndRenamesPlan()
{
    Desk desk;

    const auto added =
        related(desk.post("shop_parts", listOf({entity("shop_part", nullUid, R"({"name": "Склад"})")})), "added");
    QCOMPARE(added.size(), 1);
    const auto reply =
        desk.post("shop_parts", listOf({entity("shop_part", added.first().toLatin1(), R"({"name": "Подвал"})")}));

    QCOMPARE(related(reply, "changed"), added);
    QCOMPARE(desk.site.part(QUuid(added.first()))->name, QString("Подвал"));
    QCOMPARE(desk.site.data().parts.size(), size_t(2));
}

void SiteResourcesTest::removedPlanTakesAllAlong()
{
    Desk desk;

    const auto reply = desk.remove("shop_parts", listOf({entity("shop_part", hall)}));

    QCOMPARE(related(reply, "deleted"), QStringList({hall, till, door, lamp, manualLamp, sensor, contactor}));
    QVERIFY(desk.site.data().zones.empty());
    QVERIFY(desk.site.data().devices.empty());
}

void SiteResourcesTest::addsDeviceWithItsTypesDefaults()
{
    Desk desk;

    const auto reply =
        desk.post("devices",
                  listOf({entity("device", nullUid,
                                 QByteArray(R"({"url": "PollingLamp.qml", "zone_uid": ")") + door
                                     + R"(", "version": 1, "address": 17, "persistentData": {"name": "У двери"},
                                          "radio_type": "mrf", "radio_index": 1})")}));

    const auto added = related(reply, "added");
    QCOMPARE(added.size(), 1);
    const auto *device = desk.site.device(QUuid(added.first()));
    QCOMPARE(device->descriptor.address, 17);
    QCOMPARE(device->descriptor.radioType, Model::RadioStatus::DeviceType::Mrf);
    QCOMPARE(device->descriptor.radioIndex, 1);
    QCOMPARE(device->descriptor.data.value("name").toString(), QString("У двери"));
    QCOMPARE(device->descriptor.data.value("pollingInterval").toInt(), 10000);
    QCOMPARE(device->state.value("power").toInt(), 0);
    QCOMPARE(device->state.value("errors").toInt(), 0);
    QCOMPARE(device->mode, Mode::Automatic);
}

void SiteResourcesTest::movedDeviceKeepsItsState()
{
    Desk desk;

    desk.post("devices", listOf({entity("device", manualLamp, QByteArray(R"({"zone_uid": ")") + door + "\"}")}));

    const auto *device = desk.site.device(QUuid(manualLamp));
    QCOMPARE(device->descriptor.zoneUid, QUuid(door));
    QCOMPARE(device->descriptor.address, 2);
    QCOMPARE(device->mode, Mode::Manual);
    QCOMPARE(powerOf(desk, manualLamp), 60);
}

void SiteResourcesTest::deviceOfAnotherTypeStartsAnew()
{
    Desk desk;

    desk.post("devices", listOf({entity("device", manualLamp, R"({"url": "PollingTempSensor.qml"})")}));

    const auto *device = desk.site.device(QUuid(manualLamp));
    QCOMPARE(powerOf(desk, manualLamp), -1);
    QVERIFY(device->state.contains("temperature"));
    QCOMPARE(device->mode, Mode::Automatic);
}

void SiteResourcesTest::refusesDevice_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("code");

    QTest::newRow("unknown type") << QByteArray(R"({"url": "Toaster.qml"})") << "invalid_data_error";
    QTest::newRow("unknown zone") << QByteArray(R"({"zone_uid": ")") + nobody + "\"}"
                                  << "unknown_uid_error";
    QTest::newRow("address too large") << QByteArray(R"({"address": 65536})") << "invalid_data_error";
    QTest::newRow("address below 0") << QByteArray(R"({"address": -1})") << "invalid_data_error";
    QTest::newRow("address with a fraction") << QByteArray(R"({"address": 1.5})") << "invalid_data_error";
    QTest::newRow("data is a list") << QByteArray(R"({"persistentData": []})") << "invalid_data_error";
    QTest::newRow("unknown radio") << QByteArray(R"({"radio_type": "wifi"})") << "invalid_data_error";
    QTest::newRow("url is a number") << QByteArray(R"({"url": 1})") << "invalid_data_error";
}

void SiteResourcesTest::refusesDevice()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QString, code);
    Desk desk;

    QCOMPARE(codes(desk.post("devices", listOf({entity("device", lamp, attributes)}))), QStringList(code));
    QCOMPARE(desk.site.device(QUuid(lamp))->descriptor, data().devices.front().descriptor);
}

void SiteResourcesTest::removesDevice()
{
    Desk desk;

    const auto reply = desk.remove("devices", listOf({entity("device", sensor)}));

    QCOMPARE(related(reply, "deleted"), QStringList(sensor));
    QVERIFY(!desk.site.device(QUuid(sensor)));
    QCOMPARE(powerOf(desk, manualLamp), 60); // rows behind it are still found
    QCOMPARE(desk.site.device(QUuid(contactor))->descriptor.address, 4);
}

void SiteResourcesTest::setsState_data()
{
    QTest::addColumn<QByteArray>("power");
    QTest::addColumn<int>("expected");

    QTest::newRow("within") << QByteArray("55") << 55;
    QTest::newRow("above") << QByteArray("101") << 100;
    QTest::newRow("below") << QByteArray("-1") << 0;
}

void SiteResourcesTest::setsState()
{
    QFETCH(QByteArray, power);
    QFETCH(int, expected);
    Desk desk;

    const auto reply =
        desk.post("device_states",
                  listOf({entity("device_state", lamp, R"({"state": {"errors": 77, "power": )" + power + "}}")}));

    QCOMPARE(related(reply, "changed"), QStringList(lamp));
    QCOMPARE(powerOf(desk, lamp), expected);
    QCOMPARE(desk.site.device(QUuid(lamp))->state.value("errors").toInt(), 0); // what is only reported stays
}

void SiteResourcesTest::refusesState_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("code");

    const auto state = [](const char *uid, const char *state) {
        return entity("device_state", uid, QByteArray(R"({"state": )") + state + "}");
    };
    QTest::newRow("unknown device") << state(nobody, R"({"power": 1})") << "unknown_uid_error";
    QTest::newRow("unknown key") << state(lamp, R"({"colour": 1})") << "invalid_data_error";
    QTest::newRow("text") << state(lamp, R"({"power": "50"})") << "invalid_data_error";
    QTest::newRow("fraction") << state(lamp, R"({"power": 50.5})") << "invalid_data_error";
    QTest::newRow("state is a list") << state(lamp, "[1]") << "invalid_data_error";
    QTest::newRow("other type") << entity("device", lamp, R"({"state": {"power": 1}})") << "invalid_data_error";
}

void SiteResourcesTest::refusesState()
{
    QFETCH(QByteArray, data);
    QFETCH(QString, code);
    Desk desk;

    QCOMPARE(codes(desk.post("device_states", listOf({data}))).value(0), code);
    QCOMPARE(powerOf(desk, lamp), 40);
}

void SiteResourcesTest::setsPower_data()
{
    QTest::addColumn<QByteArray>("properties");
    QTest::addColumn<int>("expected");

    QTest::newRow("integer") << power("integer", "75") << 75;
    QTest::newRow("double") << power("double", "75.0") << 75;
    QTest::newRow("fraction is rounded") << power("double", "74.6") << 75;
    QTest::newRow("above is clamped") << power("integer", "150") << 100;
    QTest::newRow("below is clamped") << power("integer", "-1") << 0;
    QTest::newRow("huge is clamped") << power("double", "1e300") << 100;
}

void SiteResourcesTest::setsPower()
{
    QFETCH(QByteArray, properties);
    QFETCH(int, expected);
    Desk desk;
    QSignalSpy changed(&desk.site, &Demo::DemoSite::changed);

    const auto reply = desk.ask(
        document("POST", "oneshot_blueprint", listOf({instance(setPower, listOf({quoted(till)}), properties)})),
        "user");

    QCOMPARE(codes(reply), QStringList());
    QCOMPARE(reply.value("data").toObject().value("type").toString(), QString("response"));
    QCOMPARE(powerOf(desk, lamp), expected);
    QCOMPARE(powerOf(desk, manualLamp), expected);
    QCOMPARE(desk.site.device(QUuid(lamp))->mode, Mode::Automatic); // the power alone
    QVERIFY(!changed.isEmpty());
    for (const auto &signal : changed)
        QCOMPARE(signal.first().value<Demo::DemoSite::List>(), Demo::DemoSite::List::DeviceStates);
}

void SiteResourcesTest::setsPowerOfNamedZonesAlone()
{
    Desk desk;

    desk.post("oneshot_blueprint", listOf({instance(setPower, listOf({quoted(door)}), power("integer", "100"))}));

    QCOMPARE(powerOf(desk, contactor), 100);
    QCOMPARE(powerOf(desk, lamp), 40);
    QCOMPARE(powerOf(desk, sensor), -1); // a sensor has none and gets none
}

void SiteResourcesTest::runsInstancesInOrder()
{
    Desk desk;
    const auto zones = listOf({quoted(till)});

    desk.post("oneshot_blueprint",
              listOf({instance(setPower, zones, power("integer", "10")), instance(setManual, zones),
                      instance(setPower, zones, power("integer", "20"))}));

    QCOMPARE(powerOf(desk, lamp), 20);
    QCOMPARE(desk.site.device(QUuid(lamp))->mode, Mode::Manual);
}

void SiteResourcesTest::setsModes()
{
    Desk desk;
    const auto zones = listOf({quoted(till), quoted(door)});

    desk.post("oneshot_blueprint", listOf({instance(setManual, zones)}));
    QCOMPARE(desk.site.device(QUuid(lamp))->mode, Mode::Manual);
    QCOMPARE(desk.site.device(QUuid(contactor))->mode, Mode::Manual);
    QCOMPARE(desk.site.device(QUuid(sensor))->mode, Mode::Automatic); // nothing to be driven
    QCOMPARE(powerOf(desk, lamp), 40);

    desk.post("oneshot_blueprint", listOf({instance(setAuto, zones)}));
    QCOMPARE(desk.site.device(QUuid(lamp))->mode, Mode::Automatic);
    QCOMPARE(desk.site.device(QUuid(manualLamp))->mode, Mode::Automatic);
}

void SiteResourcesTest::refusesInstance_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("code");

    const auto zones = listOf({quoted(till)});
    QTest::newRow("unknown blueprint") << instance(nobody, zones) << "unknown_blueprint_error";
    QTest::newRow("unknown zone") << instance(setManual, listOf({quoted(nobody)})) << "unknown_uid_error";
    QTest::newRow("zone is a word") << instance(setManual, R"(["till"])") << "invalid_data_error";
    QTest::newRow("zones is a text") << instance(setManual, quoted(till)) << "invalid_data_error";
    QTest::newRow("no power") << instance(setPower, zones) << "invalid_data_error";
    QTest::newRow("power is a text") << instance(setPower, zones, power("string", "\"50\"")) << "invalid_data_error";
    QTest::newRow("power of no type") << instance(setPower, zones, power("void", "50")) << "invalid_data_error";
    QTest::newRow("properties is a map") << instance(setPower, zones, "{}") << "invalid_data_error";
    QTest::newRow("other type") << entity("blueprint", setManual) << "invalid_data_error";
}

void SiteResourcesTest::refusesInstance()
{
    QFETCH(QByteArray, data);
    QFETCH(QString, code);
    Desk desk;
    QSignalSpy changed(&desk.site, &Demo::DemoSite::changed);

    QCOMPARE(codes(desk.post("oneshot_blueprint", listOf({data}))), QStringList(code));
    QVERIFY(changed.isEmpty());
}

void SiteResourcesTest::badInstanceAmongGoodOnesChangesNothing()
{
    Desk desk;
    const auto zones = listOf({quoted(till)});

    desk.post("oneshot_blueprint",
              listOf({instance(setPower, zones, power("integer", "90")), instance(nobody, zones)}));

    QCOMPARE(powerOf(desk, lamp), 40);
}

void SiteResourcesTest::whitelistBoundsSequences()
{
    Desk desk;
    desk.post("users", listOf({entity("user", "user", R"({"zones_whitelist": [)" + quoted(door) + "]}")}));

    const auto refused = desk.ask(
        document("POST", "oneshot_blueprint", listOf({instance(setManual, listOf({quoted(till), quoted(door)}))})),
        "user");
    const auto allowed =
        desk.ask(document("POST", "oneshot_blueprint", listOf({instance(setManual, listOf({quoted(door)}))})), "user");

    QCOMPARE(codes(refused), QStringList("access_denied_error"));
    QCOMPARE(codes(allowed), QStringList());
    QCOMPARE(desk.site.device(QUuid(lamp))->mode, Mode::Automatic);
    QCOMPARE(desk.site.device(QUuid(contactor))->mode, Mode::Manual);
}

void SiteResourcesTest::renamesSite_data()
{
    QTest::addColumn<QByteArray>("uid");

    QTest::newRow("own uid") << QByteArray(site);
    QTest::newRow("null uid, since no list tells the own") << nullUid;
}

void SiteResourcesTest::renamesSite()
{
    QFETCH(QByteArray, uid);
    Desk desk;

    const auto reply = desk.post("shops/" + uid, listOf({entity("shop", uid, R"({"name": "Рынок"})")}));

    QCOMPARE(related(reply, "changed"), QStringList(site));
    QCOMPARE(desk.site.data().name, QString("Рынок"));
    QCOMPARE(desk.site.data().zones.size(), size_t(2));
}

void SiteResourcesTest::takesRecordsThatComeWithTheSite()
{
    Desk desk;
    const QByteArray part = "{20000000-0000-0000-0000-000000000002}";
    const QByteArray named = "{30000000-0000-0000-0000-000000000007}";
    const QByteArray data = R"([{"type": "shop", "id": ")" + QByteArray(site) + R"(", "attributes": {"name": "A"},
        "relationships": {"shop_parts": {"data": [{"type": "shop_part", "id": ")"
        + part + R"(", "meta": {}}]},
                          "zones": {"data": [{"type": "zone", "id": ")"
        + named + R"(", "meta": {}}]}}}])";
    const auto zoneAttributes = R"({"name": "Новая", "part_uid": ")" + part + R"(", "width": 96, "height": 96})";

    const auto reply =
        desk.post("shops/" + QByteArray(site), data,
                  listOf({entity("shop_part", part, R"({"name": "Второй"})"), entity("zone", named, zoneAttributes),
                          entity("zone", nobody, zoneAttributes)}));

    QCOMPARE(codes(reply), QStringList());
    QCOMPARE(desk.site.part(QUuid(part))->name, QString("Второй"));
    QCOMPARE(desk.site.zone(QUuid(named))->zone.name, QString("Новая"));
    QVERIFY(!desk.site.zone(QUuid(nobody))); // no relation names it
    QVERIFY(desk.site.zone(QUuid(till))); // left out is not removed
}

void SiteResourcesTest::refusesSite_data()
{
    QTest::addColumn<QByteArray>("link");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QByteArray>("included");
    QTest::addColumn<QString>("code");

    const QByteArray link = "shops/" + QByteArray(site);
    QTest::newRow("another site") << "shops/" + QByteArray(nobody) << listOf({entity("shop", nobody)})
                                  << QByteArray("[]") << "unknown_uid_error";
    QTest::newRow("link and entity differ")
        << link << listOf({entity("shop", nullUid)}) << QByteArray("[]") << "invalid_data_error";
    QTest::newRow("no entity") << link << QByteArray("[]") << QByteArray("[]") << "invalid_data_error";
    QTest::newRow("name is a number") << link << listOf({entity("shop", site, R"({"name": 4})")}) << QByteArray("[]")
                                      << "invalid_data_error";
    QTest::newRow("included zone without uid")
        << link << listOf({entity("shop", site)}) << listOf({entity("zone", nullUid)}) << "invalid_data_error";
    QTest::newRow("included zone with a bad place")
        << link << listOf({entity("shop", site)}) << listOf({entity("zone", nobody, R"({"x": "1"})")})
        << "invalid_data_error";
    const QByteArray naming = R"([{"type": "shop", "id": ")" + QByteArray(site)
        + R"(", "relationships": {"zones": {"data": [{"type": "zone", "id": ")" + nobody + R"(", "meta": {}}]}}}])";
    QTest::newRow("included zone of no plan")
        << link << naming << listOf({entity("zone", nobody)}) << "unknown_uid_error";
}

void SiteResourcesTest::refusesSite()
{
    QFETCH(QByteArray, link);
    QFETCH(QByteArray, data);
    QFETCH(QByteArray, included);
    QFETCH(QString, code);
    Desk desk;

    QCOMPARE(codes(desk.post(link, data, included)).value(0), code);
    QCOMPARE(desk.site.data().name, QString("Магазин"));
    QCOMPARE(desk.site.data().zones.size(), size_t(2));
}

void SiteResourcesTest::manyComplaintsAreCutShort()
{
    Desk desk;
    QByteArray zones = entity("zone", nobody);
    for (int i = 0; i < 999; ++i)
        zones += "," + entity("zone", nobody);

    QCOMPARE(codes(desk.remove("zones", "[" + zones + "]")).size(), 20);
}

ONDIRA_TEST(SiteResourcesTest)
#include "SiteResourcesTest.moc"
