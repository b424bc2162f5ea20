// SPDX-License-Identifier: GPL-3.0-or-later
#include "SiteFixture.h"
#include "support/TestBase.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace SiteFixture;
using Flags = ZmqMessageHeader::Flags;

class RequestHandlerTest : public TestBase
{
    Q_OBJECT

private slots:
    void loginGivesTheGroup();
    void badLoginIsRefused_data();
    void badLoginIsRefused();
    void failedLoginEndsTheSession();
    void loginCountsForItsConnectionAlone();
    void strangersMustLogIn_data();
    void strangersMustLogIn();
    void userMayNotChangeThings_data();
    void userMayNotChangeThings();
    void userMayRead_data();
    void userMayRead();
    void removedUserMustLogInAgain();
    void changedGroupCountsAtOnce();
    void unknownResourceIsAnError_data();
    void unknownResourceIsAnError();
    void wrongMethodIsAnError_data();
    void wrongMethodIsAnError();
    void linkThatAsksForMoreIsRefused_data();
    void linkThatAsksForMoreIsRefused();
    void replyIsPackedLikeTheRequest_data();
    void replyIsPackedLikeTheRequest();
    void replyTellsTheVersion();
    void headerThatTellsNoKindIsAnError_data();
    void headerThatTellsNoKindIsAnError();
    void damagedPackingIsAnError();
    void bodyThatUnpacksTooLargeIsAnError();
    void uploadWithoutTopicIsAnError();
    void uploadOfUnknownTopicIsAnError();
    void truncatedUploadIsAnError();
    void sessionsAreBounded();
};

void RequestHandlerTest::loginGivesTheGroup()
{
    Desk desk;

    const auto reply = desk.ask(loginDocument("user", "word"), "new");

    const auto entity = reply.value("data").toObject();
    QCOMPARE(entity.value("type").toString(), QString("auth"));
    QCOMPARE(entity.value("attributes").toObject().value("group").toString(), QString("user"));
    QCOMPARE(codes(reply), QStringList());
}

void RequestHandlerTest::badLoginIsRefused_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QString>("code");

    const auto login = [](const QByteArray &attributes) {
        return document("POST", "auth/", R"([{"type": "auth", "id": "1", "attributes": )" + attributes + "}]");
    };
    QTest::newRow("wrong password") << loginDocument("admin", "admin") << "auth_error";
    QTest::newRow("unknown user") << loginDocument("root", "secret") << "auth_error";
    QTest::newRow("empty password") << loginDocument("admin", "") << "auth_error";
    QTest::newRow("empty login") << loginDocument("", "") << "auth_error";
    QTest::newRow("no password") << login(R"({"login": "admin", "locale": "ru_RU"})") << "invalid_data_error";
    QTest::newRow("no locale") << login(R"({"login": "admin", "password": "secret"})") << "invalid_data_error";
    QTest::newRow("password is a number")
        << login(R"({"login": "admin", "password": 1, "locale": "ru_RU"})") << "invalid_data_error";
    QTest::newRow("no entity") << document("POST", "auth/") << "invalid_data_error";
    QTest::newRow("other type") << document("POST", "auth/", R"([{"type": "login", "id": "1", "attributes": {
        "login": "admin", "password": "secret", "locale": "ru_RU"}}])")
                                << "invalid_data_error";
    QTest::newRow("read") << document("GET", "auth/", R"([{"type": "auth", "id": "1", "attributes": {
        "login": "admin", "password": "secret", "locale": "ru_RU"}}])")
                          << "wrong_method_error";
}

void RequestHandlerTest::badLoginIsRefused()
{
    QFETCH(QByteArray, request);
    QFETCH(QString, code);
    Desk desk;

    const auto reply = desk.ask(request, "new");

    QCOMPARE(codes(reply).value(0), code);
    QCOMPARE(codes(desk.ask(document("POST", "ping/", R"([{"type": "", "id": ""}])"), "new")),
             QStringList("auth_needed"));
}

void RequestHandlerTest::failedLoginEndsTheSession()
{
    Desk desk;

    desk.ask(loginDocument("admin", "wrong"), "admin");

    QCOMPARE(codes(desk.get("users")), QStringList("auth_needed"));
}

void RequestHandlerTest::loginCountsForItsConnectionAlone()
{
    Desk desk;

    QCOMPARE(codes(desk.ask(document("GET", "users"), "admin2")), QStringList("auth_needed"));
    QCOMPARE(codes(desk.ask(document("GET", "users"), "admin")), QStringList());
}

void RequestHandlerTest::strangersMustLogIn_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QByteArray>("link");

    for (const auto *rows : {&Demo::siteResources(), &Demo::systemResources()}) {
        for (const auto &row : *rows) {
            static const QByteArrayList methods{"POST", "GET", "DELETE"};
            const auto method = methods.at(static_cast<int>(row.method));
            QTest::addRow("%s %s", method.constData(), row.name) << method << QByteArray(row.name);
        }
    }
    QTest::newRow("unknown resource") << QByteArray("GET") << QByteArray("nothing");
}

void RequestHandlerTest::strangersMustLogIn()
{
    QFETCH(QByteArray, method);
    QFETCH(QByteArray, link);
    Desk desk;

    QCOMPARE(codes(desk.ask(document(method, link), "stranger")), QStringList("auth_needed"));
}

void RequestHandlerTest::userMayNotChangeThings_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QByteArray>("link");

    QTest::newRow("zones") << QByteArray("POST") << QByteArray("zones");
    QTest::newRow("remove zones") << QByteArray("DELETE") << QByteArray("zones");
    QTest::newRow("plans") << QByteArray("POST") << QByteArray("shop_parts");
    QTest::newRow("remove plans") << QByteArray("DELETE") << QByteArray("shop_parts");
    QTest::newRow("devices") << QByteArray("POST") << QByteArray("devices");
    QTest::newRow("remove devices") << QByteArray("DELETE") << QByteArray("devices");
    QTest::newRow("states") << QByteArray("POST") << QByteArray("device_states");
    QTest::newRow("users") << QByteArray("POST") << QByteArray("users");
    QTest::newRow("remove users") << QByteArray("DELETE") << QByteArray("users");
    QTest::newRow("clock") << QByteArray("POST") << QByteArray("system_time/");
    QTest::newRow("backup, which holds the passwords") << QByteArray("GET") << QByteArray("system_backup");
    QTest::newRow("reset") << QByteArray("POST") << QByteArray("system_factory_reset/");
    QTest::newRow("site") << QByteArray("POST") << QByteArray("shops/") + site;
}

void RequestHandlerTest::userMayNotChangeThings()
{
    QFETCH(QByteArray, method);
    QFETCH(QByteArray, link);
    Desk desk;

    const auto reply = desk.ask(document(method, link), "user");

    QCOMPARE(codes(reply), QStringList("access_denied_error"));
    QCOMPARE(reply.value("errors").toArray().first().toObject().value("title").toString(),
             QString("У пользователя нет привилегий для доступа к ресурсу"));
}

void RequestHandlerTest::userMayRead_data()
{
    QTest::addColumn<QByteArray>("request");

    QTest::newRow("ping") << document("POST", "ping/", R"([{"type": "", "id": ""}])");
    QTest::newRow("users") << document("GET", "users");
    QTest::newRow("clock") << document("GET", "system_time");
    QTest::newRow("ports") << document("GET", "available_com_ports");
    QTest::newRow("sequence of nothing") << document("POST", "oneshot_blueprint");
}

void RequestHandlerTest::userMayRead()
{
    QFETCH(QByteArray, request);
    Desk desk;

    const auto reply = desk.ask(request, "user");

    QCOMPARE(codes(reply), QStringList());
    QVERIFY(reply.contains("data"));
}

void RequestHandlerTest::removedUserMustLogInAgain()
{
    Desk desk;

    desk.remove("users", R"([{"type": "user", "id": "user"}])");

    QCOMPARE(codes(desk.ask(document("GET", "users"), "user")), QStringList("auth_needed"));
}

void RequestHandlerTest::changedGroupCountsAtOnce()
{
    Desk desk;

    desk.post("users", R"([{"type": "user", "id": "user", "attributes": {"group": "admin"}}])");

    QCOMPARE(codes(desk.ask(document("POST", "zones"), "user")), QStringList());
}

void RequestHandlerTest::unknownResourceIsAnError_data()
{
    QTest::addColumn<QByteArray>("link");

    QTest::newRow("unknown") << QByteArray("nothing");
    QTest::newRow("other case") << QByteArray("Zones");
    QTest::newRow("singular") << QByteArray("zone");
    QTest::newRow("a list that is only published") << QByteArray("device_modes");
    QTest::newRow("an upload") << QByteArray("system_backup_restore");
}

void RequestHandlerTest::unknownResourceIsAnError()
{
    QFETCH(QByteArray, link);
    Desk desk;

    QCOMPARE(codes(desk.get(link)), QStringList("unknown_resource_error"));
}

void RequestHandlerTest::wrongMethodIsAnError_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QByteArray>("link");

    QTest::newRow("lists are not fetched") << QByteArray("GET") << QByteArray("zones");
    QTest::newRow("backup is not posted") << QByteArray("POST") << QByteArray("system_backup");
    QTest::newRow("clock is not removed") << QByteArray("DELETE") << QByteArray("system_time");
    QTest::newRow("ping is not fetched") << QByteArray("GET") << QByteArray("ping");
    QTest::newRow("states are not removed") << QByteArray("DELETE") << QByteArray("device_states");
}

void RequestHandlerTest::wrongMethodIsAnError()
{
    QFETCH(QByteArray, method);
    QFETCH(QByteArray, link);
    Desk desk;

    QCOMPARE(codes(desk.ask(document(method, link))), QStringList("wrong_method_error"));
}

void RequestHandlerTest::linkThatAsksForMoreIsRefused_data()
{
    QTest::addColumn<QByteArray>("link");

    QTest::newRow("one user") << QByteArray("users/admin");
    QTest::newRow("a query") << QByteArray("users?group=admin");
    QTest::newRow("deeper path") << QByteArray("users/admin/password");
    QTest::newRow("fragment") << QByteArray("users#admin");
}

void RequestHandlerTest::linkThatAsksForMoreIsRefused()
{
    QFETCH(QByteArray, link);
    Desk desk;

    QCOMPARE(codes(desk.get(link)), QStringList("bad_request_error"));
}

void RequestHandlerTest::replyIsPackedLikeTheRequest_data()
{
    QTest::addColumn<bool>("packed");
    QTest::addColumn<QByteArray>("link");
    QTest::addColumn<int>("flags");

    QTest::newRow("document") << false << QByteArray("users") << 2;
    QTest::newRow("packed document") << true << QByteArray("users") << 6;
    QTest::newRow("file") << false << QByteArray("system_backup") << 1;
    QTest::newRow("packed file") << true << QByteArray("system_backup") << 5;
}

void RequestHandlerTest::replyIsPackedLikeTheRequest()
{
    QFETCH(bool, packed);
    QFETCH(QByteArray, link);
    QFETCH(int, flags);
    Desk desk;
    ZmqMessageHeader header({Flags::Json}, link + ":77");
    header.setCompressed(packed);
    const auto request = document("GET", link);

    const auto reply = desk.handler.answer("admin", {header, packed ? qCompress(request) : request});

    QCOMPARE(int(reply.header.flags()), flags);
    QCOMPARE(reply.header.id(), link + ":77");
    const auto body = packed ? qUncompress(reply.body) : reply.body;
    if (reply.header.isRaw())
        QVERIFY(ZmqBinaryMessage::fromByteArray(body).get("data"));
    else
        QVERIFY(QJsonDocument::fromJson(body).object().contains("data"));
}

void RequestHandlerTest::replyTellsTheVersion()
{
    Desk desk;
    Demo::RequestHandler old(desk.site, desk.clock, QVersionNumber(4, 3, 0));

    const auto reply = old.answer("a", {ZmqMessageHeader({Flags::Json}, "auth:1"), loginDocument("admin", "secret")});
    const auto failure = old.answer("a", {ZmqMessageHeader({Flags::Json}, "x:1"), "nonsense"});

    for (const auto &body : {reply.body, failure.body})
        QCOMPARE(QJsonDocument::fromJson(body).object().value("server_version").toString(), QString("4.3.0"));
}

void RequestHandlerTest::headerThatTellsNoKindIsAnError_data()
{
    QTest::addColumn<int>("flags");

    QTest::newRow("neither") << 0;
    QTest::newRow("packed nothing") << 4;
    QTest::newRow("both") << 3;
    QTest::newRow("unknown bits") << 0xf8;
}

void RequestHandlerTest::headerThatTellsNoKindIsAnError()
{
    QFETCH(int, flags);
    Desk desk;

    const auto reply =
        desk.handler.answer("admin", {ZmqMessageHeader(quint8(flags), "users:5"), document("GET", "users")});

    QCOMPARE(reply.header.id(), QByteArray("users:5"));
    QVERIFY(reply.header.isJson());
    const auto body = reply.header.isCompressed() ? qUncompress(reply.body) : reply.body;
    QCOMPARE(codes(QJsonDocument::fromJson(body).object()), QStringList("bad_request_error"));
}

void RequestHandlerTest::damagedPackingIsAnError()
{
    Desk desk;
    const ZmqMessageHeader header({Flags::Json, Flags::Compressed}, "users:6");
    auto packed = qCompress(document("GET", "users"));
    packed.chop(8);

    const auto reply = desk.handler.answer("admin", {header, packed});

    QCOMPARE(codes(QJsonDocument::fromJson(qUncompress(reply.body)).object()), QStringList("bad_request_error"));
}

void RequestHandlerTest::bodyThatUnpacksTooLargeIsAnError()
{
    expectMessage(QtWarningMsg, "unpacks to more than");
    Desk desk;
    const ZmqMessageHeader header({Flags::Json, Flags::Compressed}, "users:7");
    const auto packed = qCompress(QByteArray(65 * 1024 * 1024, ' '));

    const auto reply = desk.handler.answer("admin", {header, packed});

    QCOMPARE(codes(QJsonDocument::fromJson(qUncompress(reply.body)).object()), QStringList("bad_request_error"));
}

void RequestHandlerTest::uploadWithoutTopicIsAnError()
{
    Desk desk;

    const auto reply = desk.handler.answer("admin", {ZmqMessageHeader({Flags::Raw}, "system_backup_restore:1"), {}});

    QCOMPARE(codes(QJsonDocument::fromJson(reply.body).object()), QStringList("bad_request_error"));
}

void RequestHandlerTest::uploadOfUnknownTopicIsAnError()
{
    Desk desk;

    QCOMPARE(codes(desk.upload("weather", "x")), QStringList("unknown_resource_error"));
    QCOMPARE(codes(desk.upload("weather", "x", "stranger")), QStringList("auth_needed"));
}

void RequestHandlerTest::truncatedUploadIsAnError()
{
    allowMessages("Byte consumer|bytes");
    Desk desk;

    const auto reply = desk.handler.answer("admin", {ZmqMessageHeader({Flags::Raw}, "x:1"), QByteArray(3, '\5')});

    QCOMPARE(codes(QJsonDocument::fromJson(reply.body).object()), QStringList("bad_request_error"));
}

void RequestHandlerTest::sessionsAreBounded()
{
    Desk desk;

    for (int i = 0; i < 10100; ++i)
        desk.ask(loginDocument("user", "word"), QByteArray::number(i));

    int alive = 0;
    for (int i = 0; i < 10100; ++i)
        alive += codes(desk.ask(document("GET", "users"), QByteArray::number(i))).isEmpty() ? 1 : 0;
    QVERIFY(alive <= 10000);
    QVERIFY(alive > 9000);
    QCOMPARE(codes(desk.ask(document("GET", "users"), "10099")), QStringList()); // the newest is not the one forgotten
}

ONDIRA_TEST(RequestHandlerTest)
#include "RequestHandlerTest.moc"
