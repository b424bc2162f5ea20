// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/document/Request.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

using JsonAPI::Entity;
using JsonAPI::Included;
using JsonAPI::Request;

Q_DECLARE_METATYPE(Request)
Q_DECLARE_METATYPE(Request::Method)

namespace {

QString linkOf(const Request &request)
{
    return request.toVariant().toMap().value("link").toString();
}

QVariant numberToVariant(const int &number)
{
    Entity entity("number", QString::number(number));
    entity.setAttribute("twice", 2 * number);
    return entity.toVariant();
}

QStringList ids(const std::vector<Entity> &entities)
{
    QStringList ids;
    for (const auto &entity : entities)
        ids << entity.id;
    return ids;
}

} // namespace

class RequestTest : public TestBase
{
    Q_OBJECT

private slots:
    void startsAsAPostOfThisProgram();
    void writesALogin();
    void writesRecordsThroughTheirConverter();
    void writesEveryMethod();
    void writesTheLink_data();
    void writesTheLink();
    void writesIncludedRecords();
    void writesIndentedText();
    void keepsServerFieldsOutOfTheDocument();
    void readsTheMethodInAnyCase_data();
    void readsTheMethodInAnyCase();
    void readsTheLink_data();
    void readsTheLink();
    void readsEntitiesAndVersion();
    void readsWhatItCan_data();
    void readsWhatItCan();
    void queryComesThroughTheWire();
    void picksEntitiesByTheirId();
    void datumIsTheFirstOrEmpty();
};

void RequestTest::startsAsAPostOfThisProgram()
{
    const Request request;

    QCOMPARE(request.method, Request::Method::Post);
    QVERIFY(!request.id);
    QVERIFY(!request.query);
    QCOMPARE(request.clientVersion, QVersionNumber(4, 5, 2));
    QCOMPARE(JsonTexts::written(request.toVariant()), JsonTexts::compact(R"({
        "method": "POST", "link": "", "data": [], "included": [], "client_version": "4.5.2"})"));
}

void RequestTest::writesALogin()
{
    Entity entity("auth", "1");
    entity.setAttribute("login", "admin");
    entity.setAttribute("password", "secret");
    entity.setAttribute("locale", "ru_RU");

    const auto request = Request::post("auth", QString(), entity);

    QCOMPARE(JsonTexts::written(request.toVariant()), JsonTexts::compact(R"({
        "method": "POST", "link": "auth/",
        "data": [{"type": "auth", "id": "1",
                  "attributes": {"login": "admin", "password": "secret", "locale": "ru_RU"}}],
        "included": [], "client_version": "4.5.2"})"));
}

void RequestTest::writesRecordsThroughTheirConverter()
{
    const Request request(Request::Method::Delete, "numbers", std::vector<int>{3, 1}, numberToVariant);

    QCOMPARE(JsonTexts::written(request.toVariant()), JsonTexts::compact(R"({
        "method": "DELETE", "link": "numbers",
        "data": [{"type": "number", "id": "3", "attributes": {"twice": 6}},
                 {"type": "number", "id": "1", "attributes": {"twice": 2}}],
        "included": [], "client_version": "4.5.2"})"));
}

void RequestTest::writesEveryMethod()
{
    const auto word = [](const Request &request) { return request.toVariant().toMap().value("method").toString(); };

    QCOMPARE(word(Request::post("a", {}, {})), QString("POST"));
    QCOMPARE(word(Request::get("a")), QString("GET"));
    QCOMPARE(word(Request::deleteRequest("a", {})), QString("DELETE"));
}

void RequestTest::writesTheLink_data()
{
    QTest::addColumn<Request>("request");
    QTest::addColumn<QString>("link");

    const Entity none;
    const auto withQuery = [](Request request, const QUrlQuery &query) {
        request.query = query;
        return request;
    };
    QTest::newRow("post") << Request::post("settings", "1", none) << "settings/1";
    QTest::newRow("post with an empty id") << Request::post("ping", {}, none) << "ping/";
    QTest::newRow("get") << Request::get("users") << "users";
    QTest::newRow("get with an empty id") << Request::get("users", "") << "users";
    QTest::newRow("get with an id") << Request::get("image_items", "{1}") << "image_items/{1}";
    QTest::newRow("delete") << Request::deleteRequest("zones", "7") << "zones/7";
    QTest::newRow("delete with an empty id") << Request::deleteRequest("zones", {}) << "zones/";
    QTest::newRow("records") << Request(Request::Method::Post, "numbers", std::vector<int>{}, numberToVariant)
                             << "numbers";
    QTest::newRow("query") << withQuery(Request::get("system_log"), {{"from", "1"}, {"to", "2"}})
                           << "system_log?from=1&to=2";
    QTest::newRow("id and query") << withQuery(Request::get("a", "b"), {{"c", "d"}}) << "a/b?c=d";
    QTest::newRow("empty query") << withQuery(Request::get("a"), {}) << "a?";
}

void RequestTest::writesTheLink()
{
    QFETCH(Request, request);
    QFETCH(QString, link);

    QCOMPARE(linkOf(request), link);
}

void RequestTest::writesIncludedRecords()
{
    auto request = Request::post("shops", "1", Entity("shop", "1"));
    request.included.add(Entity("zone", "2"));

    QCOMPARE(JsonTexts::written(request.toVariant()), JsonTexts::compact(R"({
        "method": "POST", "link": "shops/1", "data": [{"type": "shop", "id": "1"}],
        "included": [{"type": "zone", "id": "2"}], "client_version": "4.5.2"})"));
}

void RequestTest::writesIndentedText()
{
    const auto request = Request::get("users");

    QCOMPARE(request.toByteArray(),
             QByteArray("{\n"
                        "    \"client_version\": \"4.5.2\",\n"
                        "    \"data\": [\n"
                        "    ],\n"
                        "    \"included\": [\n"
                        "    ],\n"
                        "    \"link\": \"users\",\n"
                        "    \"method\": \"GET\"\n"
                        "}\n"));
}

void RequestTest::keepsServerFieldsOutOfTheDocument()
{
    auto request = Request::get("users");
    const auto before = request.toByteArray();
    request.user.login = "admin";
    request.connection = "peer";
    request.locale = "en_US";

    QCOMPARE(request.toByteArray(), before);
}

void RequestTest::readsTheMethodInAnyCase_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<Request::Method>("method");

    QTest::newRow("get") << QByteArray(R"({"method": "GET"})") << Request::Method::Get;
    QTest::newRow("small") << QByteArray(R"({"method": "get"})") << Request::Method::Get;
    QTest::newRow("mixed") << QByteArray(R"({"method": "DeLeTe"})") << Request::Method::Delete;
    QTest::newRow("post") << QByteArray(R"({"method": "Post"})") << Request::Method::Post;
    QTest::newRow("unknown") << QByteArray(R"({"method": "PATCH"})") << Request::Method::Post;
    QTest::newRow("absent") << QByteArray("{}") << Request::Method::Post;
    QTest::newRow("number") << QByteArray(R"({"method": 1})") << Request::Method::Post;
}

void RequestTest::readsTheMethodInAnyCase()
{
    QFETCH(QByteArray, document);

    const Request request(JsonTexts::read(document));

    QTEST(request.method, "method");
}

void RequestTest::readsTheLink_data()
{
    QTest::addColumn<QString>("link");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("id"); // "-" for none
    QTest::addColumn<QString>("query"); // "-" for none

    QTest::newRow("type") << "zones"
                          << "zones"
                          << "-"
                          << "-";
    QTest::newRow("empty id") << "zones/"
                              << "zones"
                              << "-"
                              << "-";
    QTest::newRow("id") << "zones/7"
                        << "zones"
                        << "7"
                        << "-";
    QTest::newRow("uid") << "image_items/{11111111-1111-1111-1111-111111111111}"
                         << "image_items"
                         << "{11111111-1111-1111-1111-111111111111}"
                         << "-";
    QTest::newRow("empty parts") << "//zones///7//"
                                 << "zones"
                                 << "7"
                                 << "-";
    QTest::newRow("more parts") << "zones/7/8"
                                << "zones"
                                << "7"
                                << "-";
    QTest::newRow("query") << "system_log?from=1&to=2"
                           << "system_log"
                           << "-"
                           << "from=1&to=2";
    QTest::newRow("id and query") << "a/b?c=d"
                                  << "a"
                                  << "b"
                                  << "c=d";
    QTest::newRow("empty query") << "a?"
                                 << "a"
                                 << "-"
                                 << "";
    QTest::newRow("empty") << ""
                           << ""
                           << "-"
                           << "-";
    QTest::newRow("slashes") << "///"
                             << ""
                             << "-"
                             << "-";
    QTest::newRow("letters beyond ASCII") << "users/админ"
                                          << "users"
                                          << "админ"
                                          << "-";
    QTest::newRow("encoded") << "users/a%20b"
                             << "users"
                             << "a b"
                             << "-";
}

void RequestTest::readsTheLink()
{
    QFETCH(QString, link);

    const Request request(QVariant(QVariantMap{{"link", link}}));

    QTEST(request.type, "type");
    QTEST(request.id.value_or("-"), "id");
    QTEST((request.query ? request.query->toString() : QString("-")), "query");
}

void RequestTest::readsEntitiesAndVersion()
{
    const Request request(JsonTexts::read(R"({
        "method": "POST", "link": "zones", "data": [{"type": "zone", "id": "1"}, {"type": "zone", "id": "2"}],
        "included": [{"type": "label", "id": "3"}], "client_version": "4.3.10"})"));

    QCOMPARE(ids(request.data), (QStringList{"1", "2"}));
    QCOMPARE(request.included.toVariant().size(), 1);
    QCOMPARE(request.clientVersion, QVersionNumber(4, 3, 10));
}

void RequestTest::readsWhatItCan_data()
{
    QTest::addColumn<QByteArray>("document");

    QTest::newRow("list") << QByteArray("[1]");
    QTest::newRow("empty") << QByteArray("{}");
    QTest::newRow("nulls") << QByteArray(R"({"method": null, "link": null, "data": null, "included": null})");
    QTest::newRow("wrong types") << QByteArray(R"({"method": [], "link": {}, "data": 5, "included": "x"})");
    QTest::newRow("host in the link") << QByteArray(R"({"link": "?#"})");
}

void RequestTest::readsWhatItCan()
{
    QFETCH(QByteArray, document);

    const Request request(JsonTexts::read(document));

    QCOMPARE(request.method, Request::Method::Post);
    QCOMPARE(request.type, QString());
    QVERIFY(!request.id);
    QVERIFY(request.data.empty());
    QVERIFY(request.included.isEmpty());
    QCOMPARE(request.clientVersion, QVersionNumber(4, 5, 2));
}

void RequestTest::queryComesThroughTheWire()
{
    const QString value = R"({"{11111111-1111-1111-1111-111111111111}":["power & light","50%","a#b","c+d=е"]})";
    auto request = Request::get("statistics");
    QUrlQuery query;
    query.addQueryItem("entities", QString::fromLatin1(QUrl::toPercentEncoding(value)));
    query.addQueryItem("from", "1");
    request.query = query;

    const Request read(JsonTexts::read(request.toByteArray()));

    QCOMPARE(read.type, QString("statistics"));
    QVERIFY(read.query);
    QCOMPARE(read.query->queryItemValue("entities", QUrl::FullyDecoded), value);
    QCOMPARE(read.query->queryItemValue("from"), QString("1"));
}

void RequestTest::picksEntitiesByTheirId()
{
    const QString uid = "{11111111-1111-1111-1111-111111111111}";
    Request request;
    for (const auto &id : {QString(), QString("7"), uid, QUuid().toString()})
        request.data.emplace_back("zone", id);

    QCOMPARE(ids(request.withUid()), (QStringList{uid}));
    QCOMPARE(ids(request.withoutUid()), (QStringList{QString(), "7", QUuid().toString()}));
    QCOMPARE(ids(request.withId()), (QStringList{"7", uid, QUuid().toString()}));
    QCOMPARE(ids(request.withoutId()), (QStringList{QString()}));
}

void RequestTest::datumIsTheFirstOrEmpty()
{
    Request request;
    QCOMPARE(request.datum().type, QString());

    request.data = {Entity("zone", "1"), Entity("zone", "2")};
    QCOMPARE(request.datum().id, QString("1"));
}

ONDIRA_TEST(RequestTest)
#include "RequestTest.moc"
