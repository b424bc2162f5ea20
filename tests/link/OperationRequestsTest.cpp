// SPDX-License-Identifier: GPL-3.0-or-later
#include "OperationsTestBase.h"
#include "model/StandardBlueprints.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QThread>

using Operation = std::function<void(TestCommunicator &)>;
Q_DECLARE_METATYPE(Operation)

namespace {

Model::ActionBlueprintInstance setPower(double power)
{
    Model::ActionBlueprintInstance instance;
    instance.blueprint = Model::StandardBlueprints::setPowerUid();
    instance.properties = {Model::ExposedPropertyValue("power", Model::ActionDatatype(power))};
    instance.zones = {hallUid};
    return instance;
}

const QByteArray zoneEntity = R"({"type":"zone","id":"{11111111-1111-1111-1111-111111111111}","attributes":{
    "part_uid":"{22222222-2222-2222-2222-222222222222}","name":"Холл","x":1.5,"y":2,"width":30,"height":40}})";
const QByteArray partEntity =
    R"({"type":"shop_part","id":"{22222222-2222-2222-2222-222222222222}","attributes":{"name":"Этаж"}})";
const QByteArray deviceEntity = R"({"type":"device","id":"{11111111-1111-1111-1111-111111111111}","attributes":{
    "url":"Lamp.qml","zone_uid":"{22222222-2222-2222-2222-222222222222}","version":1,"address":17,
    "persistentData":{"name":"Лампа"},"radio_type":"lora","radio_index":2}})";
const QByteArray userEntity = R"({"type":"user","id":"user","attributes":{"login":"user","group":"user",
    "zones_whitelist":["{11111111-1111-1111-1111-111111111111}"],"access_list":null,"password":"c2VjcmV0"}})";

QByteArray instanceEntity(const QByteArray &power)
{
    return R"({"type":"oneshot_blueprint","id":"{00000ec0-0002-0000-0000-000000000002}","attributes":{
        "zones":["{11111111-1111-1111-1111-111111111111}"],
        "properties":[{"node":"00000000-0000-0000-0000-000000000000","property":"power",
                       "value":{"type":"double","value":)"
        + power + "}}]}}";
}

QByteArray document(const QByteArray &method, const QByteArray &link, const QByteArray &data,
                    const QByteArray &included = {})
{
    return R"({"method":")" + method + R"(","link":")" + link + R"(","data":[)" + data + R"(],"included":[)" + included
        + R"(],"client_version":"4.5.2"})";
}

} // namespace

// What each operation sends, to the key, and how long it may take.
class OperationRequestsTest : public OperationsTestBase
{
    Q_OBJECT

private slots:
    void documentIsExact_data();
    void documentIsExact();
    void timeoutIsThatOfItsKind_data();
    void timeoutIsThatOfItsKind();
    void uncompressedRequestsSaySo();
    void restoredBackupIsUploadedRaw();
    void operationOnAnotherThreadIsPosted();
    void uploadOnAnotherThreadIsPosted();
};

void OperationRequestsTest::documentIsExact_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QByteArray>("resource");
    QTest::addColumn<QByteArray>("expected");

    const auto row = [](const char *name, const Operation &operation, const QByteArray &resource,
                        const QByteArray &expected) { QTest::newRow(name) << operation << resource << expected; };
    using L = TestCommunicator;

    row(
        "addZones", [](L &l) { l.addZones({hall()}, {}); }, "zones", document("POST", "zones", zoneEntity));
    row(
        "changeZones",
        [](L &l) {
            l.changeZones({hall(), hall()});
        },
        "zones", document("POST", "zones", zoneEntity + "," + zoneEntity));
    row(
        "removeZones", [](L &l) { l.removeZones({hall()}); }, "zones", document("DELETE", "zones", zoneEntity));
    row(
        "no zones", [](L &l) { l.changeZones({}); }, "zones", document("POST", "zones", ""));
    row(
        "addShopParts", [](L &l) { l.addShopParts({floorPlan()}, {}); }, "shop_parts",
        document("POST", "shop_parts", partEntity));
    row(
        "changeShopParts", [](L &l) { l.changeShopParts({floorPlan()}); }, "shop_parts",
        document("POST", "shop_parts", partEntity));
    row(
        "removeShopParts", [](L &l) { l.removeShopParts({floorPlan()}); }, "shop_parts",
        document("DELETE", "shop_parts", partEntity));
    row(
        "addDevices", [](L &l) { l.addDevices({lamp()}, {}); }, "devices", document("POST", "devices", deviceEntity));
    row(
        "changeDevices", [](L &l) { l.changeDevices({lamp()}); }, "devices", document("POST", "devices", deviceEntity));
    row(
        "removeDevices", [](L &l) { l.removeDevices({lamp()}); }, "devices",
        document("DELETE", "devices", deviceEntity));
    row(
        "setDeviceState",
        [](L &l) {
            l.setDeviceState({Model::DeviceState{hallUid, {{"power", 40}, {"on", true}}}});
        },
        "device_states",
        document("POST", "device_states",
                 R"({"type":"device_state","id":"{11111111-1111-1111-1111-111111111111}",
                     "attributes":{"state":{"power":40,"on":true}}})"));
    row(
        "runActionSequences, all instances in order",
        [](L &l) {
            l.runActionSequences({{{setPower(10), setPower(20)}}, {}, {{setPower(30)}}});
        },
        "oneshot_blueprint",
        document("POST", "oneshot_blueprint",
                 instanceEntity("10") + "," + instanceEntity("20") + "," + instanceEntity("30")));
    row(
        "addUsers", [](L &l) { l.addUsers({user()}, {}); }, "users", document("POST", "users", userEntity));
    row(
        "removeUsers", [](L &l) { l.removeUsers({user()}, {}); }, "users", document("DELETE", "users", userEntity));
    row(
        "changeUsers", [](L &l) { l.changeUsers({user()}, {}); }, "users", document("POST", "users", userEntity));
    row(
        "changeUsersRoles", [](L &l) { l.changeUsersRoles({user()}, {}); }, "users",
        document("POST", "users", userEntity));
    row(
        "getUserList", [](L &l) { l.getUserList({}); }, "users", document("GET", "users", ""));
    row(
        "ping", [](L &l) { l.ping(); }, "ping", document("POST", "ping/", R"({"type":"","id":""})"));
    row(
        "setSystemTime",
        [](L &l) {
            Model::TimeInfo info;
            info.time = QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5), Qt::UTC);
            info.timezone = "Europe/Moscow";
            info.ntp = true;
            l.setSystemTime(info, {});
        },
        "system_time",
        document("POST", "system_time/",
                 R"({"type":"time_info","id":"1767323045000","attributes":{"time":"2026-01-02T03:04:05Z",
                     "timezone":"Europe/Moscow","ntp":true,"timezones_list":[]}})"));
    row(
        "getSystemTime", [](L &l) { l.getSystemTime(); }, "system_time", document("GET", "system_time", ""));
    row(
        "getBackup", [](L &l) { l.getBackup({}); }, "system_backup", document("GET", "system_backup", ""));
    row(
        "factoryReset", [](L &l) { l.factoryReset(); }, "system_factory_reset",
        document("POST", "system_factory_reset/", R"({"type":"factory_reset","id":""})"));
    row(
        "setShop",
        [](L &l) {
            Model::Shop shop;
            shop.uid = partUid;
            shop.name = "Завод №1";
            shop.zones.insert(hallUid, hall());
            shop.shopParts.insert(partUid, floorPlan());
            l.setShop(shop);
        },
        "shops",
        document("POST", "shops/{22222222-2222-2222-2222-222222222222}",
                 R"({"type":"shop","id":"{22222222-2222-2222-2222-222222222222}","attributes":{"name":"Завод №1"},
                     "relationships":{
                        "zones":{"data":[{"type":"zone","id":"{11111111-1111-1111-1111-111111111111}","meta":{}}]},
                        "shop_parts":{"data":[{"type":"shop_part","id":"{22222222-2222-2222-2222-222222222222}",
                                               "meta":{}}]}}})",
                 zoneEntity + "," + partEntity));
    row(
        "getAvailableComPorts", [](L &l) { l.getAvailableComPorts(); }, "available_com_ports",
        document("GET", "available_com_ports", ""));
}

void OperationRequestsTest::documentIsExact()
{
    QFETCH(Operation, operation);
    QFETCH(QByteArray, resource);
    QFETCH(QByteArray, expected);
    m_server->answer = nullptr;

    operation(*m_link);
    const auto request = awaitRequest(resource);

    QCOMPARE(request.resource(), resource);
    QCOMPARE(int(request.flags), FakeServer::Json | FakeServer::Compressed);
    QCOMPARE(request.frames.at(1), QByteArray());
    QCOMPARE(int(request.frames.at(2).at(0)), 0);
    const auto wanted = QJsonDocument::fromJson(expected);
    QVERIFY(!wanted.isNull());
    QCOMPARE(QJsonDocument(request.document).toJson(), wanted.toJson());
    QCOMPARE(qUncompress(request.body), wanted.toJson()); // indented, keys sorted
    QCOMPARE(m_server->requests.size(), size_t(1));
    const auto handler = m_link->takeReplyHandle(request.id);
    QVERIFY(handler);
    const int timeout = resource == "ping" ? testTimings().quickReply : testTimings().reply;
    QVERIFY(handler->remainingTime() <= timeout && handler->remainingTime() > timeout - 5000);
}

void OperationRequestsTest::timeoutIsThatOfItsKind_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QByteArray>("resource");
    QTest::addColumn<int>("timeout");

    const LinkTimings timings;
    QCOMPARE(timings.quickReply, 3000);
    QCOMPARE(timings.upload, 25000);
    QCOMPARE(timings.reply, 120000);
    const auto test = testTimings();
    const auto row = [](const char *name, const Operation &operation, const QByteArray &resource, int timeout) {
        QTest::newRow(name) << operation << resource << timeout;
    };
    using L = TestCommunicator;
    row(
        "ping", [](L &l) { l.ping(); }, "ping", test.quickReply);
    row(
        "login", [](L &l) { l.reinit(); }, "auth", test.quickReply);
    row(
        "restoreBackup", [](L &l) { l.restoreBackup("x", {}); }, "system_backup_restore", test.upload);
    row(
        "getBackup", [](L &l) { l.getBackup({}); }, "system_backup", test.reply);
    row(
        "changeZones", [](L &l) { l.changeZones({}); }, "zones", test.reply);
    row(
        "getUserList", [](L &l) { l.getUserList({}); }, "users", test.reply);
    row(
        "setShop", [](L &l) { l.setShop({}); }, "shops", test.reply);
}

void OperationRequestsTest::timeoutIsThatOfItsKind()
{
    QFETCH(Operation, operation);
    QFETCH(QByteArray, resource);
    QFETCH(int, timeout);
    m_server->answer = nullptr;

    operation(*m_link);
    const auto request = awaitRequest(resource);
    const auto handler = m_link->takeReplyHandle(request.id);

    QVERIFY(handler);
    QVERIFY2(handler->remainingTime() <= timeout && handler->remainingTime() > timeout - 5000,
             qPrintable(QString::number(handler->remainingTime())));
}

void OperationRequestsTest::uncompressedRequestsSaySo()
{
    m_link->setCompressRequests(false);

    m_link->changeZones({hall()});
    const auto request = awaitRequest("zones");

    QCOMPARE(int(request.flags), int(FakeServer::Json));
    QVERIFY(request.body.startsWith("{\n"));
    QCOMPARE(request.document["data"].toArray().size(), 1);
}

void OperationRequestsTest::restoredBackupIsUploadedRaw()
{
    QByteArray file("PK\0\1", 4);
    file += QByteArray(300000, 'x');

    m_link->restoreBackup(file, {});
    const auto request = awaitRequest("system_backup_restore");

    QCOMPARE(int(request.flags), int(FakeServer::Raw));
    QCOMPARE(request.body, entry("topic", "system_backup_restore") + entry("data", file));
}

void OperationRequestsTest::operationOnAnotherThreadIsPosted()
{
    QThread *callbackThread = nullptr;
    std::vector<QUuid> uids;
    std::unique_ptr<QThread> caller(QThread::create([&] {
        m_link->addZones({hall()}, [&](const std::vector<QUuid> &list) {
            callbackThread = QThread::currentThread();
            uids = list;
        });
    }));
    caller->start();
    QVERIFY(caller->wait()); // it does not wait for the main thread

    const auto request = awaitRequest("zones");
    QCOMPARE(request.document["data"].toArray().size(), 1);
    m_server->reply(request, resultDocument());

    QTRY_COMPARE(uids, resultUids);
    QCOMPARE(callbackThread, thread());
}

void OperationRequestsTest::uploadOnAnotherThreadIsPosted()
{
    int calls = 0;
    std::unique_ptr<QThread> caller(QThread::create([&] { m_link->restoreBackup("file", [&] { ++calls; }); }));
    caller->start();
    QVERIFY(caller->wait());

    const auto request = awaitRequest("system_backup_restore");
    QCOMPARE(request.body, entry("topic", "system_backup_restore") + entry("data", "file"));
    m_server->reply(request, "{}");

    QTRY_COMPARE(calls, 1);
}

ONDIRA_TEST(OperationRequestsTest)
#include "OperationRequestsTest.moc"
