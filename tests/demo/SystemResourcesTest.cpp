// SPDX-License-Identifier: GPL-3.0-or-later
#include "SiteFixture.h"
#include "demo/SiteLoader.h"
#include "support/TestBase.h"

#include <QJsonArray>
#include <QSignalSpy>

using namespace SiteFixture;

namespace {

QByteArray user(const QByteArray &login, const QByteArray &attributes)
{
    return R"([{"type": "user", "id": ")" + login + R"(", "attributes": )" + attributes + "}]";
}

QByteArray clockEntity(const QByteArray &attributes)
{
    return R"([{"type": "time_info", "id": "0", "attributes": )" + attributes + "}]";
}

const QByteArray factoryReset = R"([{"type": "factory_reset", "id": ""}])";

} // namespace

class SystemResourcesTest : public TestBase
{
    Q_OBJECT

private slots:
    void pingTellsTheTime();
    void usersComeWithoutPasswords();
    void addsUser();
    void changedUserKeepsWhatIsLeftOut();
    void nullWhitelistLiftsTheRestriction();
    void refusesUser_data();
    void refusesUser();
    void removesUser();
    void refusesToRemoveUser_data();
    void refusesToRemoveUser();
    void lastAdministratorStays_data();
    void lastAdministratorStays();
    void systemTimeTellsClockAndZones();
    void setsClock_data();
    void setsClock();
    void networkTimeShowsTheTrueTime();
    void changesTimezoneAlone();
    void refusesClock_data();
    void refusesClock();
    void comPorts();
    void backupRestores();
    void restoreBringsItsTimezone();
    void refusesBackup_data();
    void refusesBackup();
    void userMayNotRestore();
    void factoryResetBringsBackTheDeliveredSite();
    void factoryResetNeedsItsEntity();
};

void SystemResourcesTest::pingTellsTheTime()
{
    Desk desk;
    desk.clock.setTimezone("UTC+03:00");

    const auto reply = desk.post("ping/", R"([{"type": "", "id": ""}])");

    QCOMPARE(reply.value("data").toObject().value("id").toString(), QString("2026-11-21T13:30:00+03:00"));
}

void SystemResourcesTest::usersComeWithoutPasswords()
{
    Desk desk;

    const auto users = desk.get("users").value("data").toArray();

    QCOMPARE(users.size(), 2);
    for (const auto &entry : users) {
        const auto attributes = entry.toObject().value("attributes").toObject();
        QVERIFY(!attributes.contains("password"));
        QCOMPARE(attributes.value("login"), entry.toObject().value("id"));
        QVERIFY(attributes.value("zones_whitelist").isNull());
    }
}

void SystemResourcesTest::addsUser()
{
    Desk desk;
    QSignalSpy changed(&desk.site, &Demo::DemoSite::changed);

    const auto reply = desk.post("users", user("anna", R"({"login": "anna", "password": "c2VzYW1l", "group": "user",
        "zones_whitelist": [], "access_list": ["zones"]})"));

    QCOMPARE(related(reply, "added"), QStringList("anna"));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.first().first().value<Demo::DemoSite::List>(), Demo::DemoSite::List::Users);
    QVERIFY(desk.site.user("anna")->zonesWhitelist);
    QVERIFY(desk.site.user("anna")->zonesWhitelist->isEmpty());
    QCOMPARE(codes(desk.ask(loginDocument("anna", "sesame"), "anna")), QStringList());
}

void SystemResourcesTest::changedUserKeepsWhatIsLeftOut()
{
    Desk desk;

    const auto reply = desk.post("users", user("user", R"({"login": "user", "access_list": ["log"]})"));

    QCOMPARE(related(reply, "changed"), QStringList("user"));
    QCOMPARE(desk.site.user("user")->group, QString("user"));
    QCOMPARE(*desk.site.user("user")->accessList, QSet<QString>{"log"});
    QCOMPARE(codes(desk.ask(loginDocument("user", "word"), "again")), QStringList());
}

void SystemResourcesTest::nullWhitelistLiftsTheRestriction()
{
    Desk desk;
    desk.post("users", user("user", R"({"zones_whitelist": []})"));
    QVERIFY(desk.site.user("user")->zonesWhitelist);

    desk.post("users", user("user", R"({"zones_whitelist": null})"));

    QVERIFY(!desk.site.user("user")->zonesWhitelist);
}

void SystemResourcesTest::refusesUser_data()
{
    QTest::addColumn<QByteArray>("data");

    QTest::newRow("new without password") << user("anna", R"({"login": "anna", "group": "user"})");
    QTest::newRow("new without group") << user("anna", R"({"login": "anna", "password": "eA=="})");
    QTest::newRow("no login") << user("", R"({"password": "eA==", "group": "user"})");
    QTest::newRow("login and id differ") << user("anna", R"({"login": "ann", "password": "eA==", "group": "user"})");
    QTest::newRow("group is a number") << user("user", R"({"group": 1})");
    QTest::newRow("whitelist of words") << user("user", R"({"zones_whitelist": ["till"]})");
    QTest::newRow("access list is a text") << user("user", R"({"access_list": "all"})");
    QTest::newRow("other type") << QByteArray(R"([{"type": "person", "id": "user"}])");
}

void SystemResourcesTest::refusesUser()
{
    QFETCH(QByteArray, data);
    Desk desk;

    QCOMPARE(codes(desk.post("users", data)).value(0), QString("invalid_data_error"));
    QCOMPARE(desk.site.data().users, SiteFixture::data().users);
}

void SystemResourcesTest::removesUser()
{
    Desk desk;

    const auto reply = desk.remove("users", user("user", "{}"));

    QCOMPARE(related(reply, "deleted"), QStringList("user"));
    QVERIFY(!desk.site.user("user"));
    QCOMPARE(codes(desk.ask(loginDocument("user", "word"), "again")), QStringList("auth_error"));
}

void SystemResourcesTest::refusesToRemoveUser_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("code");

    QTest::newRow("unknown") << user("anna", "{}") << "unknown_uid_error";
    QTest::newRow("no login") << user("", "{}") << "unknown_uid_error";
    QTest::newRow("other type") << QByteArray(R"([{"type": "zone", "id": "user"}])") << "invalid_data_error";
}

void SystemResourcesTest::refusesToRemoveUser()
{
    QFETCH(QByteArray, data);
    QFETCH(QString, code);
    Desk desk;

    QCOMPARE(codes(desk.remove("users", data)), QStringList(code));
    QCOMPARE(desk.site.data().users.size(), size_t(2));
}

void SystemResourcesTest::lastAdministratorStays_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QByteArray>("data");

    QTest::newRow("removed") << QByteArray("DELETE") << user("admin", "{}");
    QTest::newRow("made a user") << QByteArray("POST") << user("admin", R"({"group": "user"})");
}

void SystemResourcesTest::lastAdministratorStays()
{
    QFETCH(QByteArray, method);
    QFETCH(QByteArray, data);
    Desk desk;

    QCOMPARE(codes(desk.ask(document(method, "users", data))), QStringList("last_admin_error"));
    QCOMPARE(desk.site.user("admin")->group, QString("admin"));

    desk.post("users", user("user", R"({"group": "admin"})"));
    QCOMPARE(codes(desk.ask(document(method, "users", data))), QStringList());
}

void SystemResourcesTest::systemTimeTellsClockAndZones()
{
    Desk desk;

    const auto entity = desk.get("system_time").value("data").toObject();

    QCOMPARE(entity.value("type").toString(), QString("time_info"));
    QCOMPARE(entity.value("id").toString(), QString::number(desk.time.toMSecsSinceEpoch()));
    const auto attributes = entity.value("attributes").toObject();
    QCOMPARE(attributes.value("timezone").toString(), QString("UTC"));
    QCOMPARE(attributes.value("ntp").toBool(), true);
    QVERIFY(attributes.value("timezones_list").toArray().contains("UTC"));
}

void SystemResourcesTest::setsClock_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("expected");

    QTest::newRow("with an offset") << QByteArray(
        R"({"time": "2030-01-02T03:04:05Z", "timezone": "UTC+03:00", "ntp": false})")
                                    << "2030-01-02T06:04:05+03:00";
    QTest::newRow("local time of the zone")
        << QByteArray(R"({"time": "2030-01-02T03:04:05", "timezone": "UTC+03:00", "ntp": false})")
        << "2030-01-02T03:04:05+03:00";
    QTest::newRow("in the past") << QByteArray(R"({"time": "1999-12-31T23:59:59Z", "timezone": "UTC", "ntp": false})")
                                 << "1999-12-31T23:59:59Z";
}

void SystemResourcesTest::setsClock()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QString, expected);
    Desk desk;

    QCOMPARE(codes(desk.post("system_time/", clockEntity(attributes))), QStringList());

    QCOMPARE(desk.clock.now(), QDateTime::fromString(expected, Qt::ISODate));
    const auto told = desk.get("system_time").value("data").toObject().value("attributes").toObject();
    QCOMPARE(QDateTime::fromString(told.value("time").toString(), Qt::ISODate),
             QDateTime::fromString(expected, Qt::ISODate));
    QCOMPARE(told.value("ntp").toBool(), false);
    desk.time = desk.time.addSecs(60); // and it goes on
    QCOMPARE(desk.clock.now(), QDateTime::fromString(expected, Qt::ISODate).addSecs(60));
}

void SystemResourcesTest::networkTimeShowsTheTrueTime()
{
    Desk desk;
    desk.post("system_time/", clockEntity(R"({"time": "2030-01-02T03:04:05Z", "timezone": "UTC", "ntp": false})"));
    QVERIFY(desk.clock.now() != desk.time);

    desk.post("system_time/", clockEntity(R"({"time": "2040-01-02T03:04:05Z", "timezone": "UTC", "ntp": true})"));

    QCOMPARE(desk.clock.now(), desk.time);
}

void SystemResourcesTest::changesTimezoneAlone()
{
    Desk desk;

    QCOMPARE(codes(desk.post("system_time/", clockEntity(R"({"timezone": "UTC+05:00"})"))), QStringList());

    QCOMPARE(desk.clock.now(), desk.time);
    QCOMPARE(desk.clock.now().toString(Qt::ISODate), QString("2026-11-21T15:30:00+05:00"));
}

void SystemResourcesTest::refusesClock_data()
{
    QTest::addColumn<QByteArray>("data");

    QTest::newRow("unknown zone") << clockEntity(R"({"timezone": "Mars/Olympus"})");
    QTest::newRow("empty zone") << clockEntity(R"({"timezone": ""})");
    QTest::newRow("bad time") << clockEntity(R"({"time": "noon", "ntp": false})");
    QTest::newRow("time is a number") << clockEntity(R"({"time": 12})");
    QTest::newRow("ntp is a text") << clockEntity(R"({"ntp": "yes"})");
    QTest::newRow("nothing") << QByteArray("[]");
    QTest::newRow("other type") << QByteArray(R"([{"type": "time", "id": "0"}])");
}

void SystemResourcesTest::refusesClock()
{
    QFETCH(QByteArray, data);
    Desk desk;

    QCOMPARE(codes(desk.post("system_time/", data)).value(0), QString("invalid_data_error"));
    QCOMPARE(desk.clock.now(), desk.time);
}

void SystemResourcesTest::comPorts()
{
    Desk desk;

    const auto ports = desk.get("available_com_ports").value("data").toArray();

    QCOMPARE(ports.size(), 2);
    QCOMPARE(ports.at(0).toObject().value("id").toString(), QString("ttyS0"));
    QCOMPARE(ports.at(1).toObject().value("id").toString(), QString("ttyUSB0"));
}

void SystemResourcesTest::backupRestores()
{
    Desk desk;
    const auto file = desk.getFile("system_backup");
    QVERIFY(file.get("filename"));
    QCOMPARE(*file.get("filename"), QByteArray("ondira-demo-2026-11-21.qvb2"));
    desk.remove("zones", R"([{"type": "zone", "id": ")" + QByteArray(till) + "\"}]");
    desk.post("users", user("user", R"({"password": "bmV3"})"));
    QSignalSpy replaced(&desk.site, &Demo::DemoSite::replaced);

    const auto reply = desk.upload("system_backup_restore", *file.get("data"));

    QCOMPARE(codes(reply), QStringList());
    QCOMPARE(replaced.size(), 1);
    QCOMPARE(desk.site.data().zones.size(), size_t(2));
    QCOMPARE(desk.site.device(QUuid(manualLamp))->state, SiteFixture::data().devices[1].state);
    QCOMPARE(desk.site.device(QUuid(manualLamp))->mode, Model::DeviceMode::Mode::Manual);
    QCOMPARE(desk.site.data().users, SiteFixture::data().users);
}

void SystemResourcesTest::restoreBringsItsTimezone()
{
    Desk desk;
    desk.post("system_time/", clockEntity(R"({"timezone": "UTC+02:00"})"));
    const auto file = desk.getFile("system_backup");
    desk.post("system_time/", clockEntity(R"({"timezone": "UTC+07:00"})"));

    desk.upload("system_backup_restore", *file.get("data"));

    QCOMPARE(desk.clock.info().timezone, QString("UTC+02:00"));
}

void SystemResourcesTest::refusesBackup_data()
{
    QTest::addColumn<QByteArray>("bytes");

    const auto whole = qCompress(Demo::SiteLoader::toJson(SiteFixture::data()));
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("other file") << QByteArray("PK\3\4 this is something else");
    QTest::newRow("broken off") << whole.chopped(whole.size() / 2);
    QTest::newRow("packed nonsense") << qCompress("nonsense");
    QTest::newRow("another document") << qCompress(R"({"format": "recipe"})");
    QTest::newRow("of a later program") << qCompress(
        Demo::SiteLoader::toJson(SiteFixture::data())
            .replace(R"("version":1,"view_3d_items")", R"("version":9,"view_3d_items")"));
}

void SystemResourcesTest::refusesBackup()
{
    QFETCH(QByteArray, bytes);
    Desk desk;
    QSignalSpy replaced(&desk.site, &Demo::DemoSite::replaced);

    QCOMPARE(codes(desk.upload("system_backup_restore", bytes)), QStringList("corrupted_backup"));
    QVERIFY(replaced.isEmpty());
}

void SystemResourcesTest::userMayNotRestore()
{
    Desk desk;
    const auto file = desk.getFile("system_backup");

    QCOMPARE(codes(desk.upload("system_backup_restore", *file.get("data"), "user")),
             QStringList("access_denied_error"));
    QCOMPARE(codes(desk.upload("system_backup_restore", *file.get("data"), "stranger")), QStringList("auth_needed"));
}

void SystemResourcesTest::factoryResetBringsBackTheDeliveredSite()
{
    Desk desk;
    desk.remove("shop_parts", R"([{"type": "shop_part", "id": ")" + QByteArray(hall) + "\"}]");
    desk.remove("users", user("user", "{}"));
    QSignalSpy changed(&desk.site, &Demo::DemoSite::changed);

    QCOMPARE(codes(desk.post("system_factory_reset/", factoryReset)), QStringList());

    QCOMPARE(desk.site.data().zones.size(), size_t(2));
    QVERIFY(desk.site.device(QUuid(lamp)));
    QCOMPARE(desk.site.data().users.size(), size_t(2));
    QCOMPARE(changed.size(), 18); // every list
}

void SystemResourcesTest::factoryResetNeedsItsEntity()
{
    Desk desk;

    QCOMPARE(codes(desk.post("system_factory_reset/", "[]")), QStringList("invalid_data_error"));
}

ONDIRA_TEST(SystemResourcesTest)
#include "SystemResourcesTest.moc"
