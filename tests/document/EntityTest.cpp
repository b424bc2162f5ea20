// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/document/Entity.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

using JsonAPI::Entity;

class EntityTest : public TestBase
{
    Q_OBJECT

private slots:
    void writesTypeAndIdAlone();
    void writesAttributesAndRelationships();
    void setAttributeReplaces();
    void readsEveryPart();
    void readsWhatItCan_data();
    void readsWhatItCan();
    void convertsAList();
};

void EntityTest::writesTypeAndIdAlone()
{
    QCOMPARE(JsonTexts::written(Entity("zone", "7").toVariant()), JsonTexts::compact(R"({"type": "zone", "id": "7"})"));
    QCOMPARE(JsonTexts::written(Entity().toVariant()), JsonTexts::compact(R"({"type": "", "id": ""})"));
}

void EntityTest::writesAttributesAndRelationships()
{
    Entity entity("shop", "1");
    entity.setAttribute("name", QStringLiteral("Завод"));
    entity.setAttribute("height", 2.5);
    entity.relationships.add("zone", "9");

    const QVariant written = entity; // converts by itself

    QCOMPARE(JsonTexts::written(written), JsonTexts::compact(R"({
        "type": "shop", "id": "1",
        "attributes": {"name": "Завод", "height": 2.5},
        "relationships": {"zones": {"data": [{"type": "zone", "id": "9", "meta": {}}]}}
    })"));
}

void EntityTest::setAttributeReplaces()
{
    Entity entity;
    entity.setAttribute("x", 1);
    entity.setAttribute("x", "2");

    QCOMPARE(entity.attributes, (QVariantMap{{"x", "2"}}));
}

void EntityTest::readsEveryPart()
{
    const Entity entity(JsonTexts::read(R"({
        "type": "response", "id": "5", "extra": true,
        "attributes": {"a": {"b": [1, null]}},
        "relationships": {"added": {"data": [{"type": "zone", "id": "x", "meta": {"m": 1}}, {"id": "y"}]}}
    })"));

    QCOMPARE(entity.type, QString("response"));
    QCOMPARE(entity.id, QString("5"));
    QCOMPARE(JsonTexts::written(entity.attributes), QByteArray(R"({"a":{"b":[1,null]}})"));
    const auto added = entity.relationships.getRelations("added");
    QCOMPARE(added.size(), size_t(2));
    QCOMPARE(added.at(0).type, QString("zone"));
    QCOMPARE(added.at(0).id, QString("x"));
    QCOMPARE(added.at(0).meta.value("m").toInt(), 1);
    QCOMPARE(added.at(1).type, QString());
    QCOMPARE(added.at(1).id, QString("y"));
}

void EntityTest::readsWhatItCan_data()
{
    QTest::addColumn<QVariant>("variant");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("id");
    QTest::addColumn<int>("attributes");

    const auto in = [](const char *json) { return JsonTexts::read(QByteArray("[") + json + "]").toList().first(); };
    QTest::newRow("invalid variant") << QVariant() << ""
                                     << "" << 0;
    QTest::newRow("null") << in("null") << ""
                          << "" << 0;
    QTest::newRow("number") << in("5") << ""
                            << "" << 0;
    QTest::newRow("text") << in("\"zone\"") << ""
                          << "" << 0;
    QTest::newRow("list") << in("[{\"type\": \"zone\"}]") << ""
                          << "" << 0;
    QTest::newRow("empty map") << in("{}") << ""
                               << "" << 0;
    QTest::newRow("nulls") << in(R"({"type": null, "id": null, "attributes": null, "relationships": null})") << ""
                           << "" << 0;
    QTest::newRow("numbers") << in(R"({"type": 1, "id": 2.5, "attributes": 3, "relationships": 4})") << "1"
                             << "2.5" << 0;
    QTest::newRow("id as a whole number") << in(R"({"id": 17})") << ""
                                          << "17" << 0;
    QTest::newRow("lists") << in(R"({"type": [], "id": {}, "attributes": [1], "relationships": [2]})") << ""
                           << "" << 0;
    QTest::newRow("keys in another case") << in(R"({"Type": "zone", "ID": "1"})") << ""
                                          << "" << 0;
    QTest::newRow("attribute without a name") << in(R"({"attributes": {"": 1}})") << ""
                                              << "" << 1;
}

void EntityTest::readsWhatItCan()
{
    QFETCH(QVariant, variant);

    const Entity entity(variant);

    QTEST(entity.type, "type");
    QTEST(entity.id, "id");
    QTEST(entity.attributes.size(), "attributes");
    QVERIFY(entity.relationships.isEmpty());
}

void EntityTest::convertsAList()
{
    const std::vector<Entity> entities{Entity("zone", "b"), Entity("zone", "a"), Entity("zone", "b")};

    const auto ids = Entity::toType<QString>(entities, [](const Entity &entity) { return entity.id; });

    QCOMPARE(ids, (std::vector<QString>{"b", "a", "b"}));
    QVERIFY(Entity::toType<QString>({}, [](const Entity &entity) { return entity.id; }).empty());
}

ONDIRA_TEST(EntityTest)
#include "EntityTest.moc"
