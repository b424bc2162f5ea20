// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/document/Relationships.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

using JsonAPI::Relationships;

class RelationshipsTest : public TestBase
{
    Q_OBJECT

private slots:
    void filesUnderTheGivenName();
    void filesUnderThePluralOfTheType();
    void keepsTheOrderOfRelations();
    void unknownNameHasNoRelations();
    void namesAreSorted();
    void insertsOnlyWhatIsThere();
    void writesTheWireForm();
    void passesOverWhatIsNoRelation_data();
    void passesOverWhatIsNoRelation();
};

void RelationshipsTest::filesUnderTheGivenName()
{
    Relationships relationships;
    relationships.add("added", "zone", "1", {{"row", 3}});

    const auto relations = relationships.getRelations("added");

    QCOMPARE(relations.size(), size_t(1));
    QCOMPARE(relations.front().type, QString("zone"));
    QCOMPARE(relations.front().id, QString("1"));
    QCOMPARE(relations.front().meta, (QVariantMap{{"row", 3}}));
    QVERIFY(relationships.getRelations("zones").empty());
}

void RelationshipsTest::filesUnderThePluralOfTheType()
{
    Relationships relationships;
    relationships.add("zone", "1");
    relationships.add("shop_part", "2", {{"a", 1}});

    QCOMPARE(relationships.getRelations("zones").size(), size_t(1));
    QVERIFY(relationships.getRelations("zones").front().meta.isEmpty());
    QCOMPARE(relationships.getRelations("shop_parts").front().type, QString("shop_part"));
    QCOMPARE(relationships.getRelations("shop_parts").front().meta, (QVariantMap{{"a", 1}}));
}

void RelationshipsTest::keepsTheOrderOfRelations()
{
    Relationships relationships;
    for (const auto *id : {"3", "1", "2", "1"})
        relationships.add("zone", id);

    QStringList ids;
    for (const auto &relation : relationships.getRelations("zones"))
        ids << relation.id;

    QCOMPARE(ids, (QStringList{"3", "1", "2", "1"}));
}

void RelationshipsTest::unknownNameHasNoRelations()
{
    Relationships relationships;
    QVERIFY(relationships.getRelations("added").empty());

    relationships.add("zone", "1");

    QVERIFY(relationships.getRelations("zone").empty());
    QVERIFY(relationships.getRelations({}).empty());
}

void RelationshipsTest::namesAreSorted()
{
    Relationships relationships;
    for (const auto *type : {"zone", "device", "button", "label"})
        relationships.add(type, "1");

    QCOMPARE(relationships.names(), (QStringList{"buttons", "devices", "labels", "zones"}));
    QVERIFY(Relationships().names().isEmpty());
}

void RelationshipsTest::insertsOnlyWhatIsThere()
{
    QVariantMap map{{"id", "1"}};

    Relationships().insertInto(map);
    QVERIFY(!map.contains("relationships"));

    Relationships relationships;
    relationships.add("zone", "1");
    relationships.insertInto(map);
    QVERIFY(map.contains("relationships"));
    QCOMPARE(map.value("id").toString(), QString("1"));
}

void RelationshipsTest::writesTheWireForm()
{
    Relationships relationships;
    relationships.add("zone", "1");
    relationships.add("zone", "2", {{"k", "v"}});
    relationships.add("deleted", "device", "3", {});

    QCOMPARE(JsonTexts::written(relationships.toVariant()), JsonTexts::compact(R"({
        "deleted": {"data": [{"type": "device", "id": "3", "meta": {}}]},
        "zones": {"data": [{"type": "zone", "id": "1", "meta": {}}, {"type": "zone", "id": "2", "meta": {"k": "v"}}]}
    })"));
}

void RelationshipsTest::passesOverWhatIsNoRelation_data()
{
    QTest::addColumn<QByteArray>("relationships");
    QTest::addColumn<int>("expected");

    QTest::newRow("one") << QByteArray(R"({"zones": {"data": [{"id": "1"}]}})") << 1;
    QTest::newRow("absent fields") << QByteArray(R"({"zones": {"data": [{}]}})") << 1;
    QTest::newRow("elements that are no maps")
        << QByteArray(R"({"zones": {"data": [1, null, "x", [], {"id": "1"}]}})") << 1;
    QTest::newRow("data is a map") << QByteArray(R"({"zones": {"data": {"id": "1"}}})") << 0;
    QTest::newRow("data is null") << QByteArray(R"({"zones": {"data": null}})") << 0;
    QTest::newRow("no data") << QByteArray(R"({"zones": {}})") << 0;
    QTest::newRow("name holds a list") << QByteArray(R"({"zones": [{"id": "1"}]})") << 0;
    QTest::newRow("name holds null") << QByteArray(R"({"zones": null})") << 0;
    QTest::newRow("a list") << QByteArray(R"([{"zones": 1}])") << 0;
    QTest::newRow("null") << QByteArray("null") << 0;
}

void RelationshipsTest::passesOverWhatIsNoRelation()
{
    QFETCH(QByteArray, relationships);
    QFETCH(int, expected);

    const Relationships read(JsonTexts::read("{\"relationships\": " + relationships + "}"));

    QCOMPARE(int(read.getRelations("zones").size()), expected);
    QCOMPARE(read.isEmpty(), expected == 0);
}

ONDIRA_TEST(RelationshipsTest)
#include "RelationshipsTest.moc"
