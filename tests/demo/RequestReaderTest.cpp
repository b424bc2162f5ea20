// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/RequestReader.h"
#include "SiteFixture.h"
#include "support/TestBase.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <limits>

using Demo::RequestReader;
using Kind = RequestReader::Kind;
using SiteFixture::document;

Q_DECLARE_METATYPE(Demo::RequestReader::Kind)

class RequestReaderTest : public TestBase
{
    Q_OBJECT

private slots:
    void readsRequest();
    void readsWhatClientsWrite_data();
    void readsWhatClientsWrite();
    void refusesDocument_data();
    void refusesDocument();
    void missingKeyIsAnError_data();
    void missingKeyIsAnError();
    void tellsKinds_data();
    void tellsKinds();
    void checksAttributesThatAreThere();
};

void RequestReaderTest::readsRequest()
{
    JsonAPI::Errors errors;

    const auto request = RequestReader::read(
        document("delete", "zones/7", R"([{"type": "zone", "id": "a", "attributes": {"x": 1.5}}])"), errors);

    QVERIFY(errors.isEmpty());
    QCOMPARE(request.method, JsonAPI::Request::Method::Delete);
    QCOMPARE(request.type, QString("zones"));
    QCOMPARE(*request.id, QString("7"));
    QCOMPARE(request.data.size(), size_t(1));
    QCOMPARE(request.data.front().attributes.value("x").toDouble(), 1.5);
}

void RequestReaderTest::readsWhatClientsWrite_data()
{
    QTest::addColumn<QByteArray>("json");

    JsonAPI::Entity empty;
    QTest::newRow("ping with an empty entity") << JsonAPI::Request::post("ping", {}, empty).toByteArray();
    QTest::newRow("get") << JsonAPI::Request::get("users").toByteArray();
    QTest::newRow("delete") << JsonAPI::Request::deleteRequest("zones", "").toByteArray();
    JsonAPI::Entity related("shop", SiteFixture::site);
    related.relationships.add("zone", SiteFixture::till);
    auto shop = JsonAPI::Request::post("shops", SiteFixture::site, related);
    shop.included.add(JsonAPI::Entity("zone", SiteFixture::till).toVariant());
    QTest::newRow("relationships and included records") << shop.toByteArray();
}

void RequestReaderTest::readsWhatClientsWrite()
{
    QFETCH(QByteArray, json);
    JsonAPI::Errors errors;

    const auto request = RequestReader::read(json, errors);

    QVERIFY(errors.isEmpty());
    auto expected = QJsonDocument::fromJson(json).object();
    auto link = expected.value("link").toString();
    if (link.endsWith('/')) // an empty id is no id
        link.chop(1);
    expected.insert("link", link);
    QCOMPARE(QJsonDocument::fromJson(request.toByteArray()).object(), expected);
}

void RequestReaderTest::refusesDocument_data()
{
    QTest::addColumn<QByteArray>("json");

    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("no JSON") << QByteArray("zones");
    QTest::newRow("broken off") << document("GET", "zones").chopped(1);
    QTest::newRow("more than one document") << document("GET", "zones") + "{}";
    QTest::newRow("a list") << "[" + document("GET", "zones") + "]";
    QTest::newRow("null") << QByteArray("null");
    QTest::newRow("too deep") << document("GET", "zones", QByteArray(3000, '[') + QByteArray(3000, ']'));
    QTest::newRow("no UTF-8") << document("GET", "zo\xff\xfenes");
    QTest::newRow("unknown method") << document("PUT", "zones");
    QTest::newRow("empty method") << document("", "zones");
    QTest::newRow("empty link") << document("GET", "");
    QTest::newRow("link of slashes") << document("GET", "//");
    QTest::newRow("three steps") << document("GET", "a/b/c");
    QTest::newRow("data is an object") << document("POST", "zones", "{}");
    QTest::newRow("data is null") << document("POST", "zones", "null");
    QTest::newRow("entity is a text") << document("POST", "zones", R"(["zone"])");
    QTest::newRow("entity is null") << document("POST", "zones", "[null]");
    QTest::newRow("entity without type") << document("POST", "zones", R"([{"id": "1"}])");
    QTest::newRow("entity without id") << document("POST", "zones", R"([{"type": "zone"}])");
    QTest::newRow("id is a number") << document("POST", "zones", R"([{"type": "zone", "id": 1}])");
    QTest::newRow("attributes is a list")
        << document("POST", "zones", R"([{"type": "zone", "id": "", "attributes": []}])");
    QTest::newRow("relationships is a list")
        << document("POST", "zones", R"([{"type": "zone", "id": "", "relationships": []}])");
    QTest::newRow("relationship without data")
        << document("POST", "zones", R"([{"type": "zone", "id": "", "relationships": {"zones": {}}}])");
    QTest::newRow("relation without id") << document(
        "POST", "zones", R"([{"type": "zone", "id": "", "relationships": {"zones": {"data": [{"type": "zone"}]}}}])");
    QTest::newRow("included is an object") << document("POST", "zones", "[]", "{}");
    QTest::newRow("included is a list of texts") << document("POST", "zones", "[]", R"(["zone"])");
    QTest::newRow("version is a number") << QByteArray(
        R"({"method": "GET", "link": "zones", "data": [], "included": [], "client_version": 4})");
    QTest::newRow("version is a word") << QByteArray(
        R"({"method": "GET", "link": "zones", "data": [], "included": [], "client_version": "new"})");
}

void RequestReaderTest::refusesDocument()
{
    QFETCH(QByteArray, json);
    JsonAPI::Errors errors;

    const auto request = RequestReader::read(json, errors);

    QVERIFY(!errors.isEmpty());
    QCOMPARE(errors.list().front().code, QString("bad_request_error"));
    QVERIFY(request.type.isEmpty());
}

void RequestReaderTest::missingKeyIsAnError_data()
{
    QTest::addColumn<QString>("key");

    for (const auto *key : {"method", "link", "data", "included", "client_version"})
        QTest::newRow(key) << QString(key);
}

void RequestReaderTest::missingKeyIsAnError()
{
    QFETCH(QString, key);
    auto object = QJsonDocument::fromJson(document("GET", "zones")).object();
    object.remove(key);
    JsonAPI::Errors errors;

    RequestReader::read(QJsonDocument(object).toJson(), errors);

    QCOMPARE(errors.list().size(), size_t(1));
    QCOMPARE(errors.list().front().detail, "\"" + key + "\"");
}

void RequestReaderTest::tellsKinds_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<bool>("expected");

    const auto row = [](const char *name, const char *json, Kind kind, bool expected) {
        QTest::newRow(name) << QByteArray(json) << kind << expected;
    };
    row("number", "1.5", Kind::Number, true);
    row("whole number", "-3", Kind::Number, true);
    row("text is no number", "\"1\"", Kind::Number, false);
    row("null is no number", "null", Kind::Number, false);
    row("flag is no number", "true", Kind::Number, false);
    row("integer", "65535", Kind::Integer, true);
    row("whole double", "60.0", Kind::Integer, true);
    row("fraction is no integer", "1.5", Kind::Integer, false);
    row("huge is no integer", "1e300", Kind::Integer, false);
    row("beyond int is no integer", "2147483648", Kind::Integer, false);
    row("flag", "false", Kind::Flag, true);
    row("0 is no flag", "0", Kind::Flag, false);
    row("text", "\"\"", Kind::Text, true);
    row("list is no text", "[]", Kind::Text, false);
    row("map", "{}", Kind::Map, true);
    row("list is no map", "[]", Kind::Map, false);
    row("list", "[1, null]", Kind::List, true);
    row("map is no list", "{}", Kind::List, false);
    row("uid", "\"{20000000-0000-0000-0000-000000000001}\"", Kind::Uid, true);
    row("null uid", "\"{00000000-0000-0000-0000-000000000000}\"", Kind::Uid, true);
    row("word is no uid", "\"hall\"", Kind::Uid, false);
    row("empty is no uid", "\"\"", Kind::Uid, false);
    row("uids", "[\"{20000000-0000-0000-0000-000000000001}\"]", Kind::UidList, true);
    row("no uids", "[]", Kind::UidList, true);
    row("a word among uids", "[\"x\"]", Kind::UidList, false);
    row("null is no list of uids", "null", Kind::UidList, false);
    row("null may stand for uids", "null", Kind::UidListOrNull, true);
    row("number does not stand for uids", "1", Kind::UidListOrNull, false);
    row("null may stand for texts", "null", Kind::TextListOrNull, true);
    row("texts", "[\"a\", \"\"]", Kind::TextListOrNull, true);
    row("a number among texts", "[\"a\", 1]", Kind::TextListOrNull, false);
}

void RequestReaderTest::tellsKinds()
{
    QFETCH(QByteArray, json);
    QFETCH(Kind, kind);
    QFETCH(bool, expected);
    const auto value = QJsonDocument::fromJson("[" + json + "]").array().first().toVariant();

    QCOMPARE(RequestReader::isOfKind(value, kind), expected);
}

void RequestReaderTest::checksAttributesThatAreThere()
{
    JsonAPI::Entity entity("zone", "z");
    entity.setAttribute("x", "left");
    entity.setAttribute("unknown", 5);
    JsonAPI::Errors errors;

    RequestReader::check(entity, "zone", {{"x", Kind::Number}, {"y", Kind::Number}}, errors);

    QCOMPARE(errors.list().size(), size_t(1));
    QCOMPARE(errors.list().front().code, QString("invalid_data_error"));
    QCOMPARE(errors.list().front().detail, QString("\"x\" of \"z\""));
}

ONDIRA_TEST(RequestReaderTest)
#include "RequestReaderTest.moc"
