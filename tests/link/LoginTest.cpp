// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestLink.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

using Link = AbstractBackendCommunicator;

// From the login to a connection that stands, or to its refusal.
class LoginTest : public TestBase
{
    Q_OBJECT

private slots:
    void loginRequestIsExact();
    void loginTellsTheLocaleOfTheMoment();
    void acceptedLoginGoesOnInOrder();
    void publicationsAreNotSubscribedBeforeTheLogin();
    void groupIsStoredAndAnnounced_data();
    void groupIsStoredAndAnnounced();
    void versionDecides_data();
    void versionDecides();
    void replyWithoutAVersionIsCompatible();
    void refusedVersionIsExplained_data();
    void refusedVersionIsExplained();
    void loginWithErrorsDisconnects();
    void loginWithoutDataStaysConnecting();
    void authErrorDisconnectsAndIsShown();
    void authErrorInAPublicationDisconnects();
    void authNeededReconnectsAndIsShown();
    void authNeededInAPublicationReconnects();
    void authNeededAsAnswerToTheLoginEndsHere();
    void otherErrorsAreShownAndTheConnectionStays();
    void errorsOfOneReplyAreShownTogether();
    void refusedPublicationAddressIsReported();
};

namespace {

QByteArray errorDocument(const QByteArray &codes)
{
    QByteArray errors;
    for (const auto &code : codes.split(' ')) {
        if (!errors.isEmpty())
            errors += ',';
        errors += R"({"code":")" + code + R"(","title":"title of )" + code + R"(","detail":"detail"})";
    }
    return R"({"errors":[)" + errors + R"(],"data":[{"type":"auth","id":"1"}]})";
}

void settle() // lets what is queued or on its way arrive
{
    QEventLoop loop;
    QTimer::singleShot(60, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

void LoginTest::loginRequestIsExact()
{
    FakeServer server;
    TestCommunicator link;

    link.init("127.0.0.1", "инженер", "se\"cret", server.controlPort(), server.updatePort());
    QTRY_COMPARE(server.count("auth"), 1);

    const auto request = server.last("auth");
    QCOMPARE(int(request.flags), FakeServer::Json | FakeServer::Compressed);
    const auto expected = QJsonDocument::fromJson(R"({
        "method": "POST",
        "link": "auth/",
        "data": [{"type": "auth", "id": "1",
                  "attributes": {"login": "инженер", "password": "se\"cret", "locale": "ru_RU"}}],
        "included": [],
        "client_version": "4.5.2"
    })");
    QCOMPARE(QJsonDocument(request.document).toJson(), expected.toJson());
}

void LoginTest::loginTellsTheLocaleOfTheMoment()
{
    FakeServer server;
    TestCommunicator link;
    QLocale::setDefault(QLocale("en_US"));
    link.initFor(server);
    QLocale::setDefault(QLocale("ru_RU"));

    QTRY_COMPARE(server.count("auth"), 1);

    QCOMPARE(server.last("auth").document["data"][0]["attributes"]["locale"].toString(), QString("en_US"));
}

void LoginTest::acceptedLoginGoesOnInOrder()
{
    FakeServer server;
    TestCommunicator link;
    QStringList steps;
    connect(&link, &Link::userGroupChanged, &link, [&] { steps << "group"; });
    connect(&link, &Link::statusChanged, &link, [&] { steps << QString::number(link.getStatus()); });

    QVERIFY(logIn(link, server));

    QCOMPARE(steps, (QStringList{"1", "group", "2"}));
    QList<QByteArray> resources;
    for (const auto &request : server.requests)
        resources << request.resource();
    QCOMPARE(resources, (QList<QByteArray>{"auth", "system_time", "ping"}));
    QCOMPARE(server.subscriptions.size(), 18);
    QCOMPARE(link.errors.size(), size_t(0));
}

void LoginTest::publicationsAreNotSubscribedBeforeTheLogin()
{
    FakeServer server;
    server.answer = nullptr;
    TestCommunicator link;
    link.initFor(server);
    QTRY_COMPARE(server.count("auth"), 1);

    settle();

    QCOMPARE(server.subscriptions.size(), 0);
}

void LoginTest::groupIsStoredAndAnnounced_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("expected");

    QTest::newRow("given") << QByteArray(R"({"group":"user"})") << "user";
    QTest::newRow("absent") << QByteArray(R"({})") << "";
    QTest::newRow("null") << QByteArray(R"({"group":null})") << "";
    QTest::newRow("an object") << QByteArray(R"({"group":{"a":1}})") << "";
    QTest::newRow("no attributes") << QByteArray(R"(7)") << "";
}

void LoginTest::groupIsStoredAndAnnounced()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QString, expected);
    FakeServer server;
    server.loginReply = R"({"data":{"type":"auth","id":"1","attributes":)" + attributes + "}}";
    TestCommunicator link;
    QSignalSpy group(&link, &Link::userGroupChanged);

    link.initFor(server);

    QTRY_COMPARE(link.getStatus(), Link::Connected);
    QCOMPARE(group.size(), 1);
    QCOMPARE(link.property("userGroup").toString(), expected);
}

void LoginTest::versionDecides_data()
{
    QTest::addColumn<QByteArray>("version");
    QTest::addColumn<bool>("compatible");

    QTest::newRow("0.0.0") << QByteArray("0.0.0") << false;
    QTest::newRow("4") << QByteArray("4") << false;
    QTest::newRow("4.1.9") << QByteArray("4.1.9") << false;
    QTest::newRow("4.2.0, a known one") << QByteArray("4.2.0") << false;
    QTest::newRow("4.2.5") << QByteArray("4.2.5") << false;
    QTest::newRow("4.2.99") << QByteArray("4.2.99") << false;
    QTest::newRow("4.3 lies below 4.3.0") << QByteArray("4.3") << false;
    QTest::newRow("4.3.0, a known one") << QByteArray("4.3.0") << true;
    QTest::newRow("4.3.0.1") << QByteArray("4.3.0.1") << true;
    QTest::newRow("4.4.1") << QByteArray("4.4.1") << true;
    QTest::newRow("4.5.2, the program's own") << QByteArray("4.5.2") << true;
    QTest::newRow("4.5.3") << QByteArray("4.5.3") << true;
    QTest::newRow("5.0.0") << QByteArray("5.0.0") << true;
    QTest::newRow("5") << QByteArray("5") << true;
    QTest::newRow("not a version") << QByteArray("newest") << false;
    QTest::newRow("empty") << QByteArray("") << false;
}

void LoginTest::versionDecides()
{
    QFETCH(QByteArray, version);
    QFETCH(bool, compatible);
    FakeServer server;
    server.loginReply = FakeServer::loginDocument(version);
    TestCommunicator link;
    QStringList statuses;
    connect(&link, &Link::statusChanged, &link, [&] { statuses << QString::number(link.getStatus()); });

    link.initFor(server);

    QTRY_COMPARE(statuses, (QStringList{"1", compatible ? "2" : "0"}));
    QCOMPARE(link.errorCodes.contains("incompatible_server_version"), !compatible);
    QCOMPARE(link.isCompatible(QVersionNumber::fromString(version)), compatible);
    settle();
    QCOMPARE(server.subscriptions.isEmpty(), !compatible);
}

void LoginTest::replyWithoutAVersionIsCompatible()
{
    FakeServer server;
    server.loginReply = R"({"data":[{"type":"auth","id":"1"}]})";
    TestCommunicator link;

    link.initFor(server);

    QTRY_COMPARE(link.getStatus(), Link::Connected);
}

void LoginTest::refusedVersionIsExplained_data()
{
    QTest::addColumn<QByteArray>("version");
    QTest::addColumn<QString>("detail");

    QTest::newRow("with a first segment")
        << QByteArray("4.2.5")
        << "Внимание! Версия клиента (4.5.2) новее, чем версия сервера (4.2.5). Для продолжения работы, "
           "воспользуйтесь более старой версией программы или обновите прошивку сервера.";
    const QString withoutServer =
        "Внимание! Версия клиента (4.5.2) новее, чем версия сервера. Для продолжения работы, воспользуйтесь более "
        "старой версией программы или обновите прошивку сервера.";
    QTest::newRow("zero") << QByteArray("0.0.0") << withoutServer;
    QTest::newRow("zero point nine") << QByteArray("0.9.1") << withoutServer;
}

void LoginTest::refusedVersionIsExplained()
{
    QFETCH(QByteArray, version);
    QFETCH(QString, detail);
    FakeServer server;
    server.loginReply = FakeServer::loginDocument(version);
    TestCommunicator link;
    QSignalSpy group(&link, &Link::userGroupChanged);

    link.initFor(server);
    QTRY_COMPARE(link.errors.size(), size_t(1));

    QCOMPARE(link.errors.at(0).size(), size_t(1));
    const auto error = link.errors.at(0).at(0);
    QCOMPARE(error.code, QString("incompatible_server_version"));
    QCOMPARE(error.title, QString("Несовместимая версия сервера"));
    QCOMPARE(error.detail, detail);
    QTRY_COMPARE(link.getStatus(), Link::Disconnected);
    QCOMPARE(group.size(), 0);
}

void LoginTest::loginWithErrorsDisconnects()
{
    FakeServer server;
    server.loginReply = errorDocument("wrong_password");
    TestCommunicator link;

    link.initFor(server);

    QTRY_COMPARE(link.errorCodes, QStringList{"wrong_password"});
    QTRY_COMPARE(link.getStatus(), Link::Disconnected);
    settle();
    QCOMPARE(link.errorCodes.size(), 1);
    QCOMPARE(server.subscriptions.size(), 0);
}

void LoginTest::loginWithoutDataStaysConnecting()
{
    auto timings = testTimings();
    timings.pingInterval = 20;
    FakeServer server;
    server.loginReply = R"({"data":[],"server_version":"4.5.2"})";
    TestCommunicator link(timings);
    QSignalSpy group(&link, &Link::userGroupChanged);

    link.initFor(server);

    QTRY_VERIFY(server.count("ping") >= 3); // the pings go on
    QCOMPARE(link.getStatus(), Link::Connecting);
    QCOMPARE(server.count("auth"), 1);
    QCOMPARE(group.size(), 0);
    QCOMPARE(server.subscriptions.size(), 0);
}

void LoginTest::authErrorDisconnectsAndIsShown()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    link.request("zones");
    QTRY_COMPARE(server.count("zones"), 1);

    server.reply(server.last("zones"), errorDocument("auth_error"));

    QTRY_COMPARE(link.errorCodes, QStringList{"auth_error"});
    QTRY_COMPARE(link.getStatus(), Link::Disconnected);
    settle();
    QCOMPARE(link.logins, 1);
}

void LoginTest::authErrorInAPublicationDisconnects()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));

    server.publish("zones", errorDocument("auth_error"));

    QTRY_COMPARE(link.errorCodes, QStringList{"auth_error"});
    QTRY_COMPARE(link.getStatus(), Link::Disconnected);
}

void LoginTest::authNeededReconnectsAndIsShown()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    int replies = 0;
    link.request("zones")->onReply([&](const QByteArray &) { ++replies; });
    QTRY_COMPARE(server.count("zones"), 1);

    server.reply(server.last("zones"), errorDocument("auth_needed"));

    QTRY_COMPARE(link.logins, 2);
    QTRY_COMPARE(link.getStatus(), Link::Connected);
    QCOMPARE(link.errorCodes, QStringList{"auth_needed"});
    QCOMPARE(replies, 0); // dropped with all that was pending
    QCOMPARE(server.last("auth").document["data"][0]["attributes"]["password"].toString(), QString("secret"));
}

void LoginTest::authNeededInAPublicationReconnects()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    const auto first = server.last("auth").body;

    server.publish("blueprints/ru_RU", errorDocument("auth_needed"));

    QTRY_COMPARE(server.count("auth"), 2);
    QTRY_COMPARE(link.getStatus(), Link::Connected);
    QCOMPARE(link.errorCodes, QStringList{"auth_needed"});
    QCOMPARE(server.last("auth").body, first);
}

void LoginTest::authNeededAsAnswerToTheLoginEndsHere()
{
    FakeServer server;
    server.loginReply = errorDocument("auth_needed");
    TestCommunicator link;

    link.initFor(server);

    QTRY_COMPARE(link.getStatus(), Link::Disconnected);
    settle();
    QCOMPARE(link.errorCodes, QStringList{"auth_needed"});
    QCOMPARE(server.count("auth"), 1); // and not once for each round trip
}

void LoginTest::otherErrorsAreShownAndTheConnectionStays()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    link.request("zones");
    QTRY_COMPARE(server.count("zones"), 1);

    server.reply(server.last("zones"), errorDocument("access_denied_error"));
    server.publish("zones", errorDocument("broken_list"));

    QTRY_COMPARE(link.errorCodes.size(), 2);
    link.errorCodes.sort();
    QCOMPARE(link.errorCodes, (QStringList{"access_denied_error", "broken_list"}));
    settle();
    QCOMPARE(link.getStatus(), Link::Connected);
    QCOMPARE(link.logins, 1);
}

void LoginTest::errorsOfOneReplyAreShownTogether()
{
    FakeServer server;
    TestCommunicator link;
    QVERIFY(logIn(link, server));
    link.request("zones");
    QTRY_COMPARE(server.count("zones"), 1);

    server.reply(server.last("zones"), errorDocument("first second auth_error"));
    QTRY_COMPARE(link.errors.size(), size_t(1));

    QCOMPARE(link.errorCodes, (QStringList{"first", "second", "auth_error"}));
    QCOMPARE(link.errors.at(0).at(1).title, QString("title of second"));
    QCOMPARE(link.errors.at(0).at(1).detail, QString("detail"));
}

void LoginTest::refusedPublicationAddressIsReported()
{
    FakeServer server;
    TestCommunicator link;
    QSignalSpy errors(&link, &Link::errorOccured);
    link.initFor(server);
    link.setAddress(" a b "); // only for what comes next, the publications
    QTRY_COMPARE(errors.size(), 1);

    QVERIFY(errors.at(0).at(0).toString().startsWith("Некорректный адрес сервера ("));
    QTRY_COMPARE(link.getStatus(), Link::Disconnected);
}

ONDIRA_TEST(LoginTest)
#include "LoginTest.moc"
