// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/document/Response.h"
#include "document/ExactResponse.h"
#include "model/JsonTexts.h"
#include "support/JsonLeaks.h"
#include "support/TestBase.h"

#include <QJsonDocument>

using JsonAPI::Entity;
using JsonAPI::Response;
using Model::Result;

namespace {

const QVersionNumber ownVersion(4, 5, 2);

QStringList ids(const Response &response)
{
    QStringList ids;
    for (const auto &entity : response.data)
        ids << entity.id;
    return ids;
}

} // namespace

class ResponseTest : public TestBase
{
    Q_OBJECT

private slots:
    void readsEntitiesIncludedAndVersion();
    void oneEntityMayStandAlone();
    void errorsHideTheData();
    void readsTheVersion_data();
    void readsTheVersion();
    void versionComesWithErrorsToo();
    void readsData_data();
    void readsData();
    void readsErrors_data();
    void readsErrors();
    void readsIncluded_data();
    void readsIncluded();
    void unreadableTextIsAnEmptyReply_data();
    void unreadableTextIsAnEmptyReply();
    void readsATextAsItsVariant_data();
    void readsATextAsItsVariant();
    void readsALongList();
    void writesOneEntityAsAnObject();
    void writesAListAsAnArray();
    void writesErrorsAlone();
    void writesARecordWithItsIncluded();
    void writesARead();
    void buildsAResultDocument();
    void resultDocumentHoldsFailures();
    void resultDocumentPassesOverOtherKeys();
    void accessDeniedIsPrepared();
};

void ResponseTest::readsEntitiesIncludedAndVersion()
{
    const auto response = Response::fromByteArray(R"({
        "data": [{"type": "zone", "id": "1", "attributes": {"name": "Зал"}}, {"type": "zone", "id": "2"}],
        "included": [{"type": "label", "id": "3"}], "server_version": "4.4.1", "extra": 1})");

    QCOMPARE(ids(response), (QStringList{"1", "2"}));
    QCOMPARE(response.datum().attributes.value("name").toString(), QString("Зал"));
    QCOMPARE(response.included.toVariant().size(), 1);
    QCOMPARE(response.serverVersion, QVersionNumber(4, 4, 1));
    QVERIFY(response.errors.isEmpty());
}

void ResponseTest::oneEntityMayStandAlone()
{
    const auto object = Response::fromByteArray(R"({"data": {"type": "zone", "id": "1"}})");
    const auto array = Response::fromByteArray(R"({"data": [{"type": "zone", "id": "1"}]})");

    for (const auto &response : {object, array}) {
        QCOMPARE(response.data.size(), size_t(1));
        QCOMPARE(response.datum().type, QString("zone"));
        QCOMPARE(response.datum().id, QString("1"));
    }
    QVERIFY(object.single);
    QVERIFY(!array.single);
}

void ResponseTest::errorsHideTheData()
{
    const auto response = Response::fromByteArray(R"({
        "errors": [{"code": "a", "title": "b", "detail": "c"}, {"code": "d"}],
        "data": [{"type": "zone", "id": "1"}], "included": [{"type": "zone", "id": "2"}]})");

    QVERIFY(response.data.empty());
    QVERIFY(response.included.isEmpty());
    QCOMPARE(response.errors.list().size(), size_t(2));
    QCOMPARE(response.errors.list().at(0).code, QString("a"));
    QCOMPARE(response.errors.list().at(1).code, QString("d"));
}

void ResponseTest::readsTheVersion_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QVersionNumber>("version");

    QTest::newRow("given") << QByteArray(R"({"server_version": "5.0.0"})") << QVersionNumber(5, 0, 0);
    QTest::newRow("absent is the program's own") << QByteArray("{}") << ownVersion;
    QTest::newRow("with a suffix") << QByteArray(R"({"server_version": "4.3.0-rc1"})") << QVersionNumber(4, 3, 0);
    QTest::newRow("two numbers") << QByteArray(R"({"server_version": "4.3"})") << QVersionNumber(4, 3);
    QTest::newRow("zeros") << QByteArray(R"({"server_version": "0.0.0"})") << QVersionNumber(0, 0, 0);
    QTest::newRow("a number") << QByteArray(R"({"server_version": 4.25})") << QVersionNumber(4, 25);
    QTest::newRow("no version") << QByteArray(R"({"server_version": "new"})") << QVersionNumber();
    QTest::newRow("too large") << QByteArray(R"({"server_version": "99999999999.1"})") << QVersionNumber();
    QTest::newRow("empty") << QByteArray(R"({"server_version": ""})") << QVersionNumber();
    QTest::newRow("null") << QByteArray(R"({"server_version": null})") << QVersionNumber();
}

void ResponseTest::readsTheVersion()
{
    QFETCH(QByteArray, document);

    QTEST(Response::fromByteArray(document).serverVersion, "version");
}

void ResponseTest::versionComesWithErrorsToo()
{
    const auto response = Response::fromByteArray(R"({"errors": [{"code": "a"}], "server_version": "4.3.0"})");

    QCOMPARE(response.serverVersion, QVersionNumber(4, 3, 0));
}

void ResponseTest::readsData_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("array") << QByteArray(R"([{"id": "1"}, {"id": "2"}])") << QStringList{"1", "2"};
    QTest::newRow("empty array") << QByteArray("[]") << QStringList();
    QTest::newRow("object") << QByteArray(R"({"id": "1"})") << QStringList{"1"};
    QTest::newRow("empty object") << QByteArray("{}") << QStringList{""};
    QTest::newRow("null") << QByteArray("null") << QStringList();
    QTest::newRow("number") << QByteArray("5") << QStringList{""};
    QTest::newRow("text") << QByteArray("\"zone\"") << QStringList{""};
    QTest::newRow("array of others") << QByteArray(R"([1, null, "x", [], {"id": "2"}])")
                                     << QStringList{"", "", "", "", "2"};
}

void ResponseTest::readsData()
{
    QFETCH(QByteArray, data);

    QTEST(ids(Response::fromByteArray("{\"data\": " + data + "}")), "expected");
}

void ResponseTest::readsErrors_data()
{
    QTest::addColumn<QByteArray>("errors");
    QTest::addColumn<int>("errorCount");
    QTest::addColumn<int>("dataCount");

    QTest::newRow("empty list lets the data pass") << QByteArray("[]") << 0 << 1;
    QTest::newRow("null lets the data pass") << QByteArray("null") << 0 << 1;
    QTest::newRow("an object is no list") << QByteArray(R"({"code": "a"})") << 0 << 1;
    QTest::newRow("an unreadable error is one") << QByteArray("[5]") << 1 << 0;
}

void ResponseTest::readsErrors()
{
    QFETCH(QByteArray, errors);

    const auto response = Response::fromByteArray("{\"data\": [{}], \"errors\": " + errors + "}");

    QTEST(int(response.errors.list().size()), "errorCount");
    QTEST(int(response.data.size()), "dataCount");
}

void ResponseTest::readsIncluded_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<int>("expected");

    QTest::newRow("list") << QByteArray(R"({"included": [{"id": "1"}, {"id": "2"}]})") << 2;
    QTest::newRow("absent") << QByteArray("{}") << 0;
    QTest::newRow("null") << QByteArray(R"({"included": null})") << 0;
    QTest::newRow("text") << QByteArray(R"({"included": "x"})") << 0;
}

void ResponseTest::readsIncluded()
{
    QFETCH(QByteArray, document);

    QTEST(Response::fromByteArray(document).included.toVariant().size(), "expected");
}

void ResponseTest::unreadableTextIsAnEmptyReply_data()
{
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("null") << QByteArray();
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("no JSON") << QByteArray("hello");
    QTest::newRow("cut") << QByteArray(R"({"data": [{"id": "1"}], "errors": [{"code")");
    QTest::newRow("rubbish after the document") << QByteArray(R"({"data": [{"id": "1"}]} x)");
    QTest::newRow("a list") << QByteArray(R"([{"data": [{"id": "1"}]}])");
    QTest::newRow("bytes that are no UTF-8") << QByteArray("{\"data\": [\"\xff\xfe\"]}");
    QTest::newRow("too deep") << "{\"data\": " + QByteArray(100000, '[') + QByteArray(100000, ']') + "}";
    QTest::newRow("too deep and cut") << QByteArray(1000000, '[');
    QTest::newRow("too deep in maps") << QByteArray("{\"data\":").repeated(100000);
}

void ResponseTest::unreadableTextIsAnEmptyReply()
{
    QFETCH(QByteArray, text);

    const auto response = Response::fromByteArray(text);

    QVERIFY(response.data.empty());
    QVERIFY(response.errors.isEmpty());
    QVERIFY(response.included.isEmpty());
    QCOMPARE(response.serverVersion, ownVersion);
}

void ResponseTest::readsATextAsItsVariant_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("entities");

    QTest::newRow("numbers") << QByteArray(R"({"data": [{"attributes": {"a": 1, "b": 1.0, "c": 1.5, "d": -0.0,
        "e": 9007199254740993, "f": 1e300, "g": 123456789012345678901}}]})")
                             << 1;
    QTest::newRow("values of all types") << QByteArray(R"({"data": [{"attributes": {"a": null, "b": true, "c": "",
        "d": [], "e": {}, "f": [1, "x", [null]], "g": {"h": {"i": [{}]}}}}]})")
                                         << 1;
    QTest::newRow("odd types and ids") << QByteArray(R"({"data": [{"type": 1, "id": 2}, {"type": 1.5, "id": true},
        {"type": null, "id": []}, {"type": {}, "id": ""}, {"type": ["zone"], "id": 9007199254740993}, {}]})")
                                       << 6;
    QTest::newRow("odd attributes") << QByteArray(R"({"data": [{"attributes": []}, {"attributes": "x"},
        {"attributes": null}, {"attributes": 1}, {"attributes": [["a", 1]]}, {"attributes": {"": 1}}]})")
                                    << 6;
    QTest::newRow("relations") << QByteArray(R"({"data": [{"relationships": {"zones": {"data": [
        {"type": "zone", "id": "1", "meta": {"a": 1}}, {"type": "zone", "id": 2}, 3]}, "parts": {"data": []}}},
        {"relationships": []}, {"relationships": null}, {"relationships": {"zones": []}},
        {"relationships": {"zones": {"data": {"id": "1"}}}}]})")
                               << 5;
    QTest::newRow("keys that stand twice") << QByteArray(R"({"data": [{"id": "1", "id": "2",
        "attributes": {"a": 1, "a": 2}}], "data": [{"id": "3"}, {"id": "4"}]})")
                                           << 2;
    QTest::newRow("no entities") << QByteArray(R"({"data": [1, null, "x", [{"id": "1"}]]})") << 4;
    QTest::newRow("errors") << QByteArray(R"({"errors": [{"code": "a"}], "data": [{"id": "1"}],
        "included": [{"id": "2"}], "server_version": "4.3.0"})")
                            << 0;
    QTest::newRow("all that there is") << QByteArray(R"({"errors": [], "data": [{"type": "zone", "id": "1"}],
        "included": [{"type": "zone", "id": "2"}], "server_version": "4.3.0", "more": [1]})")
                                       << 1;
    QTest::newRow("one") << QByteArray(R"({"data": {"id": "1", "attributes": {"a": 1}}, "included": [{"id": "2"}]})")
                         << 1;
    QTest::newRow("a list") << QByteArray(R"([{"data": [{"id": "1"}]}])") << 0;
    QTest::newRow("other letters") << QByteArray(R"({"data": [{"id": "\u0000я\ud83d\ude00", "attributes":
        {"имя": "Холл \"А\"\n"}}]})")
                                   << 1;
}

// Entities are read from the document itself, as if its variant were read.
void ResponseTest::readsATextAsItsVariant()
{
    QFETCH(QByteArray, text);
    const JsonLeaks leaks;

    const auto response = Response::fromByteArray(text);

    QTEST(static_cast<int>(response.data.size()), "entities");
    QCOMPARE(exactBytes(response), exactBytes(Response::fromVariant(QJsonDocument::fromJson(text).toVariant())));
}

void ResponseTest::readsALongList()
{
    QByteArray text = "{\"data\": [{}";
    for (int i = 1; i < 100000; ++i)
        text += ",{\"id\":\"" + QByteArray::number(i) + "\"}";

    const auto response = Response::fromByteArray(text + "]}");

    QCOMPARE(response.data.size(), size_t(100000));
    QCOMPARE(response.data.back().id, QString("99999"));
}

void ResponseTest::writesOneEntityAsAnObject()
{
    const Response response(Entity("zone", "1").toVariant());

    QVERIFY(response.single);
    QCOMPARE(JsonTexts::compact(response.toByteArray()),
             JsonTexts::compact(R"({"data": {"type": "zone", "id": "1"}, "server_version": "4.5.2"})"));
}

void ResponseTest::writesAListAsAnArray()
{
    const auto expected = JsonTexts::compact(R"({"data": [{"type": "zone", "id": "1"}], "server_version": "4.5.2"})");

    QCOMPARE(JsonTexts::compact(Response(QVariantList{Entity("zone", "1").toVariant()}).toByteArray()), expected);
    QCOMPARE(JsonTexts::compact(Response(std::vector<Entity>{Entity("zone", "1")}).toByteArray()), expected);
    QCOMPARE(JsonTexts::compact(Response(QVariantList()).toByteArray()),
             JsonTexts::compact(R"({"data": [], "server_version": "4.5.2"})"));
    QCOMPARE(JsonTexts::compact(Response().toByteArray()),
             JsonTexts::compact(R"({"data": [], "server_version": "4.5.2"})"));
}

void ResponseTest::writesErrorsAlone()
{
    auto response = Response::error("code", "title");
    response.data.emplace_back("zone", "1");

    QCOMPARE(JsonTexts::compact(response.toByteArray()), JsonTexts::compact(R"({
        "errors": [{"code": "code", "title": "title", "detail": ""}], "server_version": "4.5.2"})"));
    QCOMPARE(Response::error("code", "title", "detail").errors.list().front().detail, QString("detail"));
}

void ResponseTest::writesARecordWithItsIncluded()
{
    const Response response(
        JsonTexts::read(R"({"type": "shop", "id": "1", "included": [{"type": "zone", "id": "2"}]})"));

    QCOMPARE(JsonTexts::compact(response.toByteArray()), JsonTexts::compact(R"({
        "data": {"type": "shop", "id": "1"}, "included": [{"type": "zone", "id": "2"}], "server_version": "4.5.2"})"));
}

void ResponseTest::writesARead()
{
    for (const QByteArray &text :
         {QByteArray(R"({"data":[{"id":"1","type":"a"},{"id":"2","type":"b"}],"server_version":"4.3.0"})"),
          QByteArray(R"({"data":{"attributes":{"x":0.5},"id":"1","type":"a"},"server_version":"4.3.0"})")})
        QCOMPARE(Response::fromByteArray(text).toByteArray(), text);
}

void ResponseTest::buildsAResultDocument()
{
    const QUuid uid("{11111111-1111-1111-1111-111111111111}");

    const Response response("zone",
                            {Result::added(uid), Result::changed(QString("2")), Result::deleted(QString("3")),
                             Result::added(QString("4"))});

    QCOMPARE(JsonTexts::compact(response.toByteArray()), JsonTexts::compact(R"({
        "data": {"type": "response", "id": "", "relationships": {
            "added": {"data": [{"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}", "meta": {}},
                               {"type": "zone", "id": "4", "meta": {}}]},
            "changed": {"data": [{"type": "zone", "id": "2", "meta": {}}]},
            "deleted": {"data": [{"type": "zone", "id": "3", "meta": {}}]}}},
        "server_version": "4.5.2"})"));
}

void ResponseTest::resultDocumentHoldsFailures()
{
    const Response response("zone", {Result::added(QString("1")), Result::error("code", "title", "detail")});

    QCOMPARE(JsonTexts::compact(response.toByteArray()), JsonTexts::compact(R"({
        "errors": [{"code": "code", "title": "title", "detail": "detail"}], "server_version": "4.5.2"})"));
}

void ResponseTest::resultDocumentPassesOverOtherKeys()
{
    const Response response("zone", {Result::ok(), Result::ok("moved", "1"), Result::custom("added", "2")});

    QCOMPARE(response.data.size(), size_t(1));
    QCOMPARE(response.datum().type, QString("response"));
    QVERIFY(response.datum().relationships.isEmpty());
}

void ResponseTest::accessDeniedIsPrepared()
{
    const auto errors = Response::Prepared::accessDenied().errors.list();

    QCOMPARE(errors.size(), size_t(1));
    QCOMPARE(errors.front().code, QString("access_denied_error"));
    QCOMPARE(errors.front().title, QString("У пользователя нет привилегий для доступа к ресурсу"));
    QCOMPARE(errors.front().detail, QString());
}

ONDIRA_TEST(ResponseTest)
#include "ResponseTest.moc"
