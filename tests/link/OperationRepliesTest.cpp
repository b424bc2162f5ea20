// SPDX-License-Identifier: GPL-3.0-or-later
#include "OperationsTestBase.h"

using Link = AbstractBackendCommunicator;
using Operation = std::function<void(TestCommunicator &)>;
using Addition = std::function<void(TestCommunicator &, const Link::UidsCallback &)>;
using Change = std::function<void(TestCommunicator &, const Link::Done &)>;
Q_DECLARE_METATYPE(Operation)
Q_DECLARE_METATYPE(Addition)
Q_DECLARE_METATYPE(Change)

// What becomes of the reply to each operation.
class OperationRepliesTest : public OperationsTestBase
{
    Q_OBJECT

private slots:
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
    void resultDocumentAsResults();
    void errorsAsResults();
    void callbackMayCallTheNextOperation();
};

void OperationRepliesTest::addedUidsReachTheCallback_data()
{
    QTest::addColumn<Addition>("add");
    QTest::addColumn<QByteArray>("resource");

    const auto row = [](const QByteArray &resource, const Addition &add) {
        QTest::newRow(resource) << add << resource;
    };
    using L = TestCommunicator;
    using Uids = Link::UidsCallback;
    row("zones", [](L &l, const Uids &done) { l.addZones({hall()}, done); });
    row("shop_parts", [](L &l, const Uids &done) { l.addShopParts({floorPlan()}, done); });
    row("devices", [](L &l, const Uids &done) { l.addDevices({lamp()}, done); });
    row("schedule_days", [](L &l, const Uids &done) { l.addDays({workday()}, done); });
    row("buttons", [](L &l, const Uids &done) { l.addButtons({lightButton()}, done); });
    row("indicators", [](L &l, const Uids &done) { l.addIndicators({alarm()}, done); });
    row("blueprints", [](L &l, const Uids &done) { l.addBlueprints({evening()}, done); });
    row("image_items", [](L &l, const Uids &done) { l.addImageItem(picture(), done); });
    row("view_3d_items", [](L &l, const Uids &done) { l.addView3DItem(machine(), done); });
}

void OperationRepliesTest::addedUidsReachTheCallback()
{
    QFETCH(Addition, add);
    QFETCH(QByteArray, resource);
    std::vector<std::vector<QUuid>> calls;

    add(*m_link, [&](const std::vector<QUuid> &uids) { calls.push_back(uids); });
    answerNext(resource, resultDocument());

    QCOMPARE(calls.size(), size_t(1));
    QCOMPARE(calls.front(), resultUids); // added, changed, deleted of each result; an odd text is a null uid
}

void OperationRepliesTest::uidListOfAnErrorIsEmpty()
{
    std::vector<std::vector<QUuid>> calls;
    m_link->addZones({hall()}, [&](const std::vector<QUuid> &uids) { calls.push_back(uids); });

    answerNext("zones", failed);

    QCOMPARE(calls.size(), size_t(1));
    QVERIFY(calls.front().empty());
    QCOMPARE(m_link->errorCodes, QStringList{"failed"});
}

void OperationRepliesTest::doneIsCalledUnlessThereAreErrors_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QByteArray>("resource");
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<int>("calls");

    const auto row = [](const QByteArray &name, const QByteArray &resource, const Change &change) {
        QTest::newRow(name + ", result") << change << resource << resultDocument() << 1;
        QTest::newRow(name + ", empty") << change << resource << QByteArray("{}") << 1;
        QTest::newRow(name + ", errors") << change << resource << failed << 0;
    };
    using L = TestCommunicator;
    using Done = Link::Done;
    row("addUsers", "users", [](L &l, const Done &done) { l.addUsers({user()}, done); });
    row("removeUsers", "users", [](L &l, const Done &done) { l.removeUsers({user()}, done); });
    row("changeUsers", "users", [](L &l, const Done &done) { l.changeUsers({user()}, done); });
    row("changeUsersRoles", "users", [](L &l, const Done &done) { l.changeUsersRoles({user()}, done); });
    row("setSystemTime", "system_time", [](L &l, const Done &done) { l.setSystemTime({}, done); });
    row("restoreBackup", "system_backup_restore", [](L &l, const Done &done) { l.restoreBackup("x", done); });
    row("changeImageItem", "image_items", [](L &l, const Done &done) { l.changeImageItem(picture(), done); });
    row("removeImageItems", "image_items", [](L &l, const Done &done) { l.removeImageItems({picture()}, done); });
    row("changeView3DItem", "view_3d_items", [](L &l, const Done &done) { l.changeView3DItem(machine(), done); });
    row("removeView3DItems", "view_3d_items", [](L &l, const Done &done) { l.removeView3DItems({machine()}, done); });
}

void OperationRepliesTest::doneIsCalledUnlessThereAreErrors()
{
    QFETCH(Change, change);
    QFETCH(QByteArray, resource);
    QFETCH(QByteArray, reply);
    QFETCH(int, calls);
    int called = 0;

    change(*m_link, [&] { ++called; });
    answerNext(resource, reply);

    QCOMPARE(called, calls);
    QCOMPARE(m_link->errorCodes.isEmpty(), calls == 1);
}

void OperationRepliesTest::errorsAreReportedOnce_data()
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
    const auto row = [](const char *name, const char *resource, const Operation &operation) {
        QTest::newRow(name) << operation << QByteArray(resource);
    };
    row("removeZones", "zones", [](L &l) { l.removeZones({}); });
    row("changeDays", "schedule_days", [](L &l) { l.changeDays({}); });
    row("removeDays", "schedule_days", [](L &l) { l.removeDays({}); });
    row("changeButtons", "buttons", [](L &l) { l.changeButtons({}); });
    row("removeButtons", "buttons", [](L &l) { l.removeButtons({}); });
    row("setButtonStates", "button_states", [](L &l) { l.setButtonStates({}); });
    row("changeShopParts", "shop_parts", [](L &l) { l.changeShopParts({}); });
    row("removeShopParts", "shop_parts", [](L &l) { l.removeShopParts({}); });
    row("changeDevices", "devices", [](L &l) { l.changeDevices({}); });
    row("removeDevices", "devices", [](L &l) { l.removeDevices({}); });
    row("changeIndicators", "indicators", [](L &l) { l.changeIndicators({}); });
    row("removeIndicators", "indicators", [](L &l) { l.removeIndicators({}); });
    row("changeBlueprints", "blueprints", [](L &l) { l.changeBlueprints({}); });
    row("removeBlueprints", "blueprints", [](L &l) { l.removeBlueprints({}); });
    row("setSettings", "settings", [](L &l) { l.setSettings({}); });
    row("getUserList", "users", [](L &l) { l.getUserList({}); });
    row("getBackup", "system_backup", [](L &l) { l.getBackup({}); });
    row("addZones", "zones", [](L &l) { l.addZones({}, {}); });
    row("changeUsers", "users", [](L &l) { l.changeUsers({}, {}); });
    QTest::newRow("getSystemTime") << Operation([](L &l) { l.getSystemTime(); }) << QByteArray("system_time");
}

void OperationRepliesTest::errorsAreReportedOnce()
{
    QFETCH(Operation, operation);
    QFETCH(QByteArray, resource);

    operation(*m_link);
    answerNext(resource, failed);

    QCOMPARE(m_link->errorCodes, QStringList{"failed"});
    QCOMPARE(m_link->getStatus(), Link::Connected);
}

void OperationRepliesTest::errorsAreReportedTwice_data()
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

void OperationRepliesTest::errorsAreReportedTwice()
{
    QFETCH(Operation, operation);
    QFETCH(QByteArray, resource);

    operation(*m_link);
    answerNext(resource, failed);

    QCOMPARE(m_link->errorCodes, (QStringList{"failed", "failed"}));
    QCOMPARE(m_link->errors.size(), size_t(2));
}

void OperationRepliesTest::missingCallbacksAreNoHarm()
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

void OperationRepliesTest::usersReachTheCallback()
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

void OperationRepliesTest::pingTellsTheServersClock_data()
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

void OperationRepliesTest::pingTellsTheServersClock()
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

void OperationRepliesTest::systemTimeIsAnnounced()
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

void OperationRepliesTest::emptySystemTimeIsNotAnnounced()
{
    QSignalSpy times(m_link.get(), &Link::systemTimeReceived);
    m_link->getSystemTime();

    answerNext("system_time", R"({"data":[]})");

    QCOMPARE(times.size(), 0);
}

void OperationRepliesTest::comPortsAreAnnounced()
{
    QSignalSpy ports(m_link.get(), &Link::availableComPortsReceived);
    m_link->getAvailableComPorts();

    answerNext("available_com_ports", R"({"data":[{"type":"com_port","id":"ttyS0"},{"type":"com_port","id":"COM3"}]})");

    QCOMPARE(ports.size(), 1);
    QCOMPARE(ports.at(0).at(0).toStringList(), (QStringList{"ttyS0", "COM3"}));
}

void OperationRepliesTest::comPortsWithErrorsAreNot()
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

void OperationRepliesTest::backupReachesTheCallback()
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

void OperationRepliesTest::damagedBackupIsReported_data()
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

void OperationRepliesTest::damagedBackupIsReported()
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

void OperationRepliesTest::backupRefusedByTheServerIsReported()
{
    int calls = 0;
    m_link->getBackup([&](const QString &, const QByteArray &) { ++calls; });

    answerNext("system_backup", failed);

    QCOMPARE(m_link->errorCodes, QStringList{"failed"});
    QCOMPARE(calls, 0);
}

void OperationRepliesTest::resultDocumentAsResults()
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

void OperationRepliesTest::errorsAsResults()
{
    QTest::ignoreMessage(QtDebugMsg, "ERROR: \"failed\" \"t\" \"d\"");

    const auto results = m_link->dispatchJsonReply(JsonAPI::Response::fromByteArray(failed));

    QVERIFY(results.empty());
    QCOMPARE(m_link->errorCodes, QStringList{"failed"});
}

void OperationRepliesTest::callbackMayCallTheNextOperation()
{
    m_link->addZones({hall()}, [&](const std::vector<QUuid> &) { m_link->changeZones({hall()}); });

    answerNext("zones", resultDocument());

    QTRY_COMPARE(m_server->count("zones"), 2);
}

ONDIRA_TEST(OperationRepliesTest)
#include "OperationRepliesTest.moc"
