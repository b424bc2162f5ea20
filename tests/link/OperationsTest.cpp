// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestLink.h"
#include "model/StandardBlueprints.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QThread>
#include <QtEndian>

using Link = AbstractBackendCommunicator;
using Operation = std::function<void(TestCommunicator &)>;
Q_DECLARE_METATYPE(Operation)

namespace {

const QUuid hallUid("{11111111-1111-1111-1111-111111111111}");
const QUuid partUid("{22222222-2222-2222-2222-222222222222}");

Model::Zone hall()
{
    Model::Zone zone;
    zone.uid = hallUid;
    zone.partUid = partUid;
    zone.name = QStringLiteral("Холл");
    zone.position = {1.5, 2};
    zone.width = 30;
    zone.height = 40;
    return zone;
}

Model::ShopPart floorPlan()
{
    Model::ShopPart part;
    part.uid = partUid;
    part.name = QStringLiteral("Этаж");
    return part;
}

Model::DeviceDescriptor lamp()
{
    return {QUrl("Lamp.qml"), hallUid, partUid, 1, 17, {{"name", "Лампа"}}, Model::RadioStatus::DeviceType::LoRa, 2};
}

Model::UserInfo user()
{
    Model::UserInfo info;
    info.login = QStringLiteral("user");
    info.password = QByteArray("secret");
    info.group = QStringLiteral("user");
    info.zonesWhitelist = QSet<QUuid>{hallUid};
    return info;
}

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

QByteArray entry(const QByteArray &key, const QByteArray &value)
{
    const auto length = [](const QByteArray &bytes) {
        QByteArray number(4, '\0');
        qToLittleEndian<qint32>(bytes.size(), number.data());
        return number;
    };
    return length(key) + key + length(value) + value;
}

const QByteArray failed = R"({"errors":[{"code":"failed","title":"t","detail":"d"}]})";

QByteArray resultDocument()
{
    return R"({"data":[
        {"type":"response","id":"1","relationships":{
            "deleted":{"data":[{"type":"zone","id":"{00000000-0000-0000-0000-00000000000d}","meta":{}}]},
            "changed":{"data":[{"type":"zone","id":"{00000000-0000-0000-0000-00000000000c}","meta":{}}]},
            "added":{"data":[{"type":"zone","id":"{00000000-0000-0000-0000-00000000000a}","meta":{}},
                             {"type":"zone","id":"{00000000-0000-0000-0000-00000000000b}","meta":{}}]}}},
        {"type":"other","id":"2","relationships":{
            "added":{"data":[{"type":"zone","id":"{00000000-0000-0000-0000-0000000000ff}","meta":{}}]}}},
        {"type":"response","id":"3","relationships":{
            "added":{"data":[{"type":"zone","id":"no uid","meta":{}}]}}}]})";
}

const std::vector<QUuid> resultUids{
    QUuid("{00000000-0000-0000-0000-00000000000a}"), QUuid("{00000000-0000-0000-0000-00000000000b}"),
    QUuid("{00000000-0000-0000-0000-00000000000c}"), QUuid("{00000000-0000-0000-0000-00000000000d}"), QUuid()};

} // namespace

// Each operation: its document to the key, and what its reply becomes.
class OperationsTest : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void documentIsExact_data();
    void documentIsExact();
    void timeoutIsThatOfItsKind_data();
    void timeoutIsThatOfItsKind();
    void uncompressedRequestsSaySo();

    void addedUidsReachTheCallback_data();
    void addedUidsReachTheCallback();
    void uidListOfAnErrorIsEmpty();
    void doneIsCalledUnlessThereAreErrors_data();
    void doneIsCalledUnlessThereAreErrors();
    void errorsAreReportedOnce_data();
    void errorsAreReportedOnce();
    void errorsAreReportedTwice_data();
    void errorsAreReportedTwice();
    void missingCallbacksAreNoHarm();
    void usersReachTheCallback();
    void pingTellsTheServersClock_data();
    void pingTellsTheServersClock();
    void systemTimeIsAnnounced();
    void emptySystemTimeIsNotAnnounced();
    void comPortsAreAnnounced();
    void comPortsWithErrorsAreNot();

    void backupReachesTheCallback();
    void damagedBackupIsReported_data();
    void damagedBackupIsReported();
    void backupRefusedByTheServerIsReported();
    void restoredBackupIsUploadedRaw();

    void resultDocumentAsResults();
    void errorsAsResults();
    void operationOnAnotherThreadIsPosted();
    void uploadOnAnotherThreadIsPosted();
    void callbackMayCallTheNextOperation();

private:
    // Waits for the next request of that resource; the login has asked for some already.
    FakeServer::Request awaitRequest(const QByteArray &resource);
    void answerNext(const QByteArray &resource, const QByteArray &document);

    std::unique_ptr<FakeServer> m_server;
    std::unique_ptr<TestCommunicator> m_link;
};

void OperationsTest::init()
{
    TestBase::init();
    m_server = std::make_unique<FakeServer>();
    m_link = std::make_unique<TestCommunicator>();
    QVERIFY(logIn(*m_link, *m_server));
    m_server->requests.clear();
}

void OperationsTest::cleanup()
{
    m_link.reset();
    m_server.reset();
    TestBase::cleanup();
}

FakeServer::Request OperationsTest::awaitRequest(const QByteArray &resource)
{
    if (!QTest::qWaitFor([&] { return m_server->count(resource) > 0; }))
        qWarning() << "No request for" << resource;
    return m_server->last(resource);
}

void OperationsTest::answerNext(const QByteArray &resource, const QByteArray &document)
{
    const auto request = awaitRequest(resource);
    QCOMPARE(request.resource(), resource);
    m_link->seenReplies.clear();
    m_server->reply(request, document);
    QTRY_VERIFY(m_link->seenReplies.contains(request.id));
}

void OperationsTest::documentIsExact_data()
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

void OperationsTest::documentIsExact()
{
    QFETCH(Operation, operation);
    QFETCH(QByteArray, resource);
    QFETCH(QByteArray, expected);

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
}

void OperationsTest::timeoutIsThatOfItsKind_data()
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

void OperationsTest::timeoutIsThatOfItsKind()
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

void OperationsTest::uncompressedRequestsSaySo()
{
    m_link->setCompressRequests(false);

    m_link->changeZones({hall()});
    const auto request = awaitRequest("zones");

    QCOMPARE(int(request.flags), int(FakeServer::Json));
    QVERIFY(request.body.startsWith("{\n"));
    QCOMPARE(request.document["data"].toArray().size(), 1);
}

void OperationsTest::addedUidsReachTheCallback_data()
{
    QTest::addColumn<QByteArray>("resource");
    QTest::newRow("zones") << QByteArray("zones");
    QTest::newRow("parts") << QByteArray("shop_parts");
    QTest::newRow("devices") << QByteArray("devices");
}

void OperationsTest::addedUidsReachTheCallback()
{
    QFETCH(QByteArray, resource);
    std::vector<std::vector<QUuid>> calls;
    const auto done = [&](const std::vector<QUuid> &uids) { calls.push_back(uids); };
    if (resource == "zones")
        m_link->addZones({hall()}, done);
    else if (resource == "shop_parts")
        m_link->addShopParts({floorPlan()}, done);
    else
        m_link->addDevices({lamp()}, done);

    answerNext(resource, resultDocument());

    QCOMPARE(calls.size(), size_t(1));
    QCOMPARE(calls.front(), resultUids); // added, changed, deleted of each result; an odd text is a null uid
}

void OperationsTest::uidListOfAnErrorIsEmpty()
{
    std::vector<std::vector<QUuid>> calls;
    m_link->addZones({hall()}, [&](const std::vector<QUuid> &uids) { calls.push_back(uids); });

    answerNext("zones", failed);

    QCOMPARE(calls.size(), size_t(1));
    QVERIFY(calls.front().empty());
    QCOMPARE(m_link->errorCodes, QStringList{"failed"});
}

void OperationsTest::doneIsCalledUnlessThereAreErrors_data()
{
    QTest::addColumn<QByteArray>("resource");
    QTest::addColumn<QByteArray>("operation");
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<int>("calls");

    const std::vector<std::pair<QByteArray, QByteArray>> operations{
        {"addUsers", "users"},         {"removeUsers", "users"},         {"changeUsers", "users"},
        {"changeUsersRoles", "users"}, {"setSystemTime", "system_time"}, {"restoreBackup", "system_backup_restore"}};
    for (const auto &operation : operations) {
        QTest::newRow(operation.first + ", result") << operation.second << operation.first << resultDocument() << 1;
        QTest::newRow(operation.first + ", empty") << operation.second << operation.first << QByteArray("{}") << 1;
        QTest::newRow(operation.first + ", errors") << operation.second << operation.first << failed << 0;
    }
}

void OperationsTest::doneIsCalledUnlessThereAreErrors()
{
    QFETCH(QByteArray, resource);
    QFETCH(QByteArray, operation);
    QFETCH(QByteArray, reply);
    QFETCH(int, calls);
    int called = 0;
    const auto done = [&] { ++called; };
    const std::vector<Model::UserInfo> users{user()};
    if (operation == "addUsers")
        m_link->addUsers(users, done);
    else if (operation == "removeUsers")
        m_link->removeUsers(users, done);
    else if (operation == "changeUsers")
        m_link->changeUsers(users, done);
    else if (operation == "changeUsersRoles")
        m_link->changeUsersRoles(users, done);
    else if (operation == "setSystemTime")
        m_link->setSystemTime({}, done);
    else
        m_link->restoreBackup("x", done);

    answerNext(resource, reply);

    QCOMPARE(called, calls);
    QCOMPARE(m_link->errorCodes.isEmpty(), calls == 1);
}

void OperationsTest::errorsAreReportedOnce_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QByteArray>("resource");

    using L = TestCommunicator;
    QTest::newRow("changeZones") << Operation([](L &l) { l.changeZones({hall()}); }) << QByteArray("zones");
    QTest::newRow("runActionSequences") << Operation([](L &l) { l.runActionSequences({}); })
                                        << QByteArray("oneshot_blueprint");
    QTest::newRow("setShop") << Operation([](L &l) { l.setShop({}); }) << QByteArray("shops");
    QTest::newRow("setDeviceState") << Operation([](L &l) { l.setDeviceState({}); }) << QByteArray("device_states");
    QTest::newRow("ping") << Operation([](L &l) { l.ping(); }) << QByteArray("ping");
    QTest::newRow("getSystemTime") << Operation([](L &l) { l.getSystemTime(); }) << QByteArray("system_time");
}

void OperationsTest::errorsAreReportedOnce()
{
    QFETCH(Operation, operation);
    QFETCH(QByteArray, resource);

    operation(*m_link);
    answerNext(resource, failed);

    QCOMPARE(m_link->errorCodes, QStringList{"failed"});
    QCOMPARE(m_link->getStatus(), Link::Connected);
}

void OperationsTest::errorsAreReportedTwice_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QByteArray>("resource");

    using L = TestCommunicator;
    QTest::newRow("restoreBackup") << Operation([](L &l) { l.restoreBackup("x", {}); })
                                   << QByteArray("system_backup_restore");
    QTest::newRow("getAvailableComPorts")
        << Operation([](L &l) { l.getAvailableComPorts(); }) << QByteArray("available_com_ports");
    QTest::newRow("factoryReset") << Operation([](L &l) { l.factoryReset(); }) << QByteArray("system_factory_reset");
}

void OperationsTest::errorsAreReportedTwice()
{
    QFETCH(Operation, operation);
    QFETCH(QByteArray, resource);

    operation(*m_link);
    answerNext(resource, failed);

    QCOMPARE(m_link->errorCodes, (QStringList{"failed", "failed"}));
    QCOMPARE(m_link->errors.size(), size_t(2));
}

void OperationsTest::missingCallbacksAreNoHarm()
{
    m_link->addZones({hall()}, {});
    answerNext("zones", resultDocument());
    m_link->addUsers({user()}, {});
    answerNext("users", "{}");
    m_server->requests.clear();
    m_link->getUserList({});
    answerNext("users", R"({"data":[{"type":"user","id":"a"}]})");
    m_link->getBackup({});
    const auto request = awaitRequest("system_backup");
    m_server->replyBinary(request, entry("filename", "a") + entry("data", "b"));
    QTRY_VERIFY(m_link->seenReplies.contains(request.id));

    QCOMPARE(m_link->errors.size(), size_t(0));
    QCOMPARE(m_link->getStatus(), Link::Connected);
}

void OperationsTest::usersReachTheCallback()
{
    std::vector<std::vector<Model::UserInfo>> calls;
    m_link->getUserList([&](const std::vector<Model::UserInfo> &users) { calls.push_back(users); });

    answerNext("users", R"({"data":[
        {"type":"user","id":"admin","attributes":{"login":"admin","group":"admin","zones_whitelist":null}},
        {"type":"user","id":"b","attributes":{"login":"b","group":"user",
            "zones_whitelist":["{11111111-1111-1111-1111-111111111111}"]}}]})");

    QCOMPARE(calls.size(), size_t(1));
    QCOMPARE(calls.front().size(), size_t(2));
    QCOMPARE(calls.front().at(0).login, QString("admin"));
    QVERIFY(!calls.front().at(0).zonesWhitelist);
    QCOMPARE(*calls.front().at(1).zonesWhitelist, QSet<QUuid>{hallUid});
}

void OperationsTest::pingTellsTheServersClock_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<int>("announced");
    QTest::addColumn<QDateTime>("time");

    const QDateTime time(QDate(2026, 1, 2), QTime(3, 4, 5), Qt::UTC);
    QTest::newRow("given") << QByteArray(R"({"data":[{"type":"ping","id":"2026-01-02T03:04:05Z"}]})") << 1 << time;
    QTest::newRow("as an object") << QByteArray(R"({"data":{"type":"ping","id":"2026-01-02T03:04:05Z"}})") << 1 << time;
    QTest::newRow("no time") << QByteArray(R"({"data":[{"type":"ping","id":"now"}]})") << 1 << QDateTime();
    QTest::newRow("no data") << QByteArray(R"({"data":[]})") << 0 << QDateTime();
}

void OperationsTest::pingTellsTheServersClock()
{
    QFETCH(QByteArray, document);
    QFETCH(int, announced);
    QFETCH(QDateTime, time);
    QSignalSpy times(m_link.get(), &Link::timeReceived);

    m_link->ping();
    answerNext("ping", document);

    QCOMPARE(times.size(), announced);
    if (announced)
        QCOMPARE(times.at(0).at(0).toDateTime(), time);
    QCOMPARE(m_link->getDataCache().getTime(), time);
}

void OperationsTest::systemTimeIsAnnounced()
{
    m_link->getSystemTime();
    answerNext("system_time", R"({"data":[{"type":"time_info","id":"1","attributes":{"time":"2026-01-02T03:04:05Z",
        "timezone":"Europe/Moscow","ntp":true,"timezones_list":["UTC","Europe/Moscow"]}},
        {"type":"time_info","id":"2","attributes":{"timezone":"second"}}]})");

    const auto info = m_link->getDataCache().getTimeInfo();
    QCOMPARE(info.timezone, QString("Europe/Moscow"));
    QCOMPARE(info.time, QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5), Qt::UTC));
    QCOMPARE(info.ntp, true);
    QCOMPARE(info.timezones, (QStringList{"UTC", "Europe/Moscow"}));
}

void OperationsTest::emptySystemTimeIsNotAnnounced()
{
    QSignalSpy times(m_link.get(), &Link::systemTimeReceived);
    m_link->getSystemTime();

    answerNext("system_time", R"({"data":[]})");

    QCOMPARE(times.size(), 0);
}

void OperationsTest::comPortsAreAnnounced()
{
    QSignalSpy ports(m_link.get(), &Link::availableComPortsReceived);
    m_link->getAvailableComPorts();

    answerNext("available_com_ports", R"({"data":[{"type":"com_port","id":"ttyS0"},{"type":"com_port","id":"COM3"}]})");

    QCOMPARE(ports.size(), 1);
    QCOMPARE(ports.at(0).at(0).toStringList(), (QStringList{"ttyS0", "COM3"}));
}

void OperationsTest::comPortsWithErrorsAreNot()
{
    QSignalSpy ports(m_link.get(), &Link::availableComPortsReceived);
    m_link->getAvailableComPorts();
    answerNext("available_com_ports", failed);
    QCOMPARE(ports.size(), 0);

    m_server->requests.clear();
    m_link->getAvailableComPorts();
    answerNext("available_com_ports", R"({"data":[]})");

    QCOMPARE(ports.size(), 1);
    QCOMPARE(ports.at(0).at(0).toStringList(), QStringList());
}

void OperationsTest::backupReachesTheCallback()
{
    QString fileName;
    QByteArray data;
    int calls = 0;
    m_link->getBackup([&](const QString &name, const QByteArray &bytes) {
        ++calls;
        fileName = name;
        data = bytes;
    });
    const auto request = awaitRequest("system_backup");

    // Packed, in any order, with entries of no concern.
    const auto body = entry("topic", "system_backup") + entry("data", QByteArray("\0\1\2", 3)) + entry("", "")
        + entry("filename", "копия.bak") + entry("filename", "second");
    m_server->sendFrames(
        request.peer, {"", FakeServer::header(FakeServer::Raw | FakeServer::Compressed, request.id), qCompress(body)});

    QTRY_COMPARE(calls, 1);
    QCOMPARE(fileName, QString("копия.bak"));
    QCOMPARE(data, QByteArray("\0\1\2", 3));
    QCOMPARE(m_link->errors.size(), size_t(0));
}

void OperationsTest::damagedBackupIsReported_data()
{
    QTest::addColumn<QByteArray>("body");

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no data") << entry("filename", "a");
    QTest::newRow("no file name") << entry("data", "a");
    QTest::newRow("cut short") << (entry("filename", "a") + entry("data", "abcdef")).chopped(3);
    QTest::newRow("negative length") << entry("filename", "a") + QByteArray("\xff\xff\xff\xff", 4);
    QTest::newRow("enormous length") << entry("filename", "a") + QByteArray("\xff\xff\xff\x7f", 4) + "data";
    QTest::newRow("other keys") << entry("Filename", "a") + entry("DATA", "b");
}

void OperationsTest::damagedBackupIsReported()
{
    QFETCH(QByteArray, body);
    allowMessages("^Byte consumer trying to consume");
    int calls = 0;
    m_link->getBackup([&](const QString &, const QByteArray &) { ++calls; });
    const auto request = awaitRequest("system_backup");

    m_server->replyBinary(request, body);

    QTRY_COMPARE(m_link->errors.size(), size_t(1));
    QCOMPARE(m_link->errors.at(0).size(), size_t(1));
    QCOMPARE(m_link->errors.at(0).at(0).code, QString("corrupted_backup"));
    QCOMPARE(m_link->errors.at(0).at(0).title, QString("Файл резервной копии поврежден"));
    QCOMPARE(m_link->errors.at(0).at(0).detail, QString());
    QCOMPARE(calls, 0);
}

void OperationsTest::backupRefusedByTheServerIsReported()
{
    int calls = 0;
    m_link->getBackup([&](const QString &, const QByteArray &) { ++calls; });

    answerNext("system_backup", failed);

    QCOMPARE(m_link->errorCodes, QStringList{"failed"});
    QCOMPARE(calls, 0);
}

void OperationsTest::restoredBackupIsUploadedRaw()
{
    QByteArray file("PK\0\1", 4);
    file += QByteArray(300000, 'x');

    m_link->restoreBackup(file, {});
    const auto request = awaitRequest("system_backup_restore");

    QCOMPARE(int(request.flags), int(FakeServer::Raw));
    QCOMPARE(request.body, entry("topic", "system_backup_restore") + entry("data", file));
}

void OperationsTest::resultDocumentAsResults()
{
    using Model::Result;

    const auto results = m_link->dispatchJsonReply(JsonAPI::Response::fromByteArray(resultDocument()));

    QCOMPARE(results.size(), size_t(6));
    QVERIFY(results.at(0) == Result::added(QString("{00000000-0000-0000-0000-00000000000a}")));
    QVERIFY(results.at(2) == Result::changed(QString("{00000000-0000-0000-0000-00000000000c}")));
    QVERIFY(results.at(3) == Result::deleted(QString("{00000000-0000-0000-0000-00000000000d}")));
    QCOMPARE(results.at(4).key, QByteArray("data"));
    QCOMPARE(results.at(4).value.toMap().value("type").toString(), QString("other"));
    QCOMPARE(m_link->errors.size(), size_t(0));
}

void OperationsTest::errorsAsResults()
{
    QTest::ignoreMessage(QtDebugMsg, "ERROR: \"failed\" \"t\" \"d\"");

    const auto results = m_link->dispatchJsonReply(JsonAPI::Response::fromByteArray(failed));

    QVERIFY(results.empty());
    QCOMPARE(m_link->errorCodes, QStringList{"failed"});
}

void OperationsTest::operationOnAnotherThreadIsPosted()
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

void OperationsTest::uploadOnAnotherThreadIsPosted()
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

void OperationsTest::callbackMayCallTheNextOperation()
{
    m_link->addZones({hall()}, [&](const std::vector<QUuid> &) { m_link->changeZones({hall()}); });

    answerNext("zones", resultDocument());

    QTRY_COMPARE(m_server->count("zones"), 2);
}

ONDIRA_TEST(OperationsTest)
#include "OperationsTest.moc"
