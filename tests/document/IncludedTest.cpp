// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/document/Included.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

using JsonAPI::Entity;
using JsonAPI::Included;

namespace {

const QUuid hall("{11111111-1111-1111-1111-111111111111}");
const QUuid kitchen("{22222222-2222-2222-2222-222222222222}");

QString nameOf(const Entity &entity)
{
    return entity.attributes.value("name").toString();
}

} // namespace

class IncludedTest : public TestBase
{
    Q_OBJECT

private slots:
    void readsAList();
    void readsTheListOfAMap();
    void readsNothingFromOthers_data();
    void readsNothingFromOthers();
    void getPicksByType();
    void getKeepsTheLastOfEqualUids();
    void getPassesOverWhatIsNoEntity();
    void addAppends();
};

void IncludedTest::readsAList()
{
    const Included included(JsonTexts::read(R"([{"type": "zone", "id": "1"}, {"type": "label", "id": "2"}])"));

    QVERIFY(!included.isEmpty());
    QCOMPARE(JsonTexts::written(included.toVariant()),
             JsonTexts::compact(R"([{"type": "zone", "id": "1"}, {"type": "label", "id": "2"}])"));
}

void IncludedTest::readsTheListOfAMap()
{
    const Included included(JsonTexts::read(R"({"type": "shop", "included": [{"type": "zone", "id": "1"}]})"));

    QCOMPARE(JsonTexts::written(included.toVariant()), JsonTexts::compact(R"([{"type": "zone", "id": "1"}])"));
}

void IncludedTest::readsNothingFromOthers_data()
{
    QTest::addColumn<QVariant>("variant");

    QTest::newRow("invalid") << QVariant();
    QTest::newRow("null") << QVariant::fromValue(nullptr);
    QTest::newRow("number") << QVariant(5);
    QTest::newRow("text") << QVariant("zone");
    QTest::newRow("empty list") << QVariant(QVariantList());
    QTest::newRow("map without the key") << QVariant(QVariantMap{{"type", "zone"}});
    QTest::newRow("map whose key is a map") << QVariant(QVariantMap{{"included", QVariantMap{{"type", "zone"}}}});
}

void IncludedTest::readsNothingFromOthers()
{
    QFETCH(QVariant, variant);

    const Included included(variant);

    QVERIFY(included.isEmpty());
    QVERIFY(included.toVariant().isEmpty());
}

void IncludedTest::getPicksByType()
{
    const Included included(JsonTexts::read(R"([
        {"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}", "attributes": {"name": "Hall"}},
        {"type": "label", "id": "{22222222-2222-2222-2222-222222222222}", "attributes": {"name": "Text"}},
        {"type": "zone", "id": "{22222222-2222-2222-2222-222222222222}", "attributes": {"name": "Kitchen"}}])"));

    QCOMPARE(included.get("zone", nameOf), (QHash<QUuid, QString>{{hall, "Hall"}, {kitchen, "Kitchen"}}));
    QVERIFY(included.get("device", nameOf).isEmpty());
}

void IncludedTest::getKeepsTheLastOfEqualUids()
{
    const Included included(JsonTexts::read(R"([
        {"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}", "attributes": {"name": "Old"}},
        {"type": "zone", "id": "{11111111-1111-1111-1111-111111111111}", "attributes": {"name": "New"}}])"));

    QCOMPARE(included.get("zone", nameOf), (QHash<QUuid, QString>{{hall, "New"}}));
}

void IncludedTest::getPassesOverWhatIsNoEntity()
{
    const Included included(JsonTexts::read(R"([1, null, "zone", [], {"type": 5}])"));

    QVERIFY(included.get("zone", nameOf).isEmpty());
}

void IncludedTest::addAppends()
{
    Included included;
    QVERIFY(included.isEmpty());

    included.add(Entity("zone", "1"));
    included.add(Entity("zone", "2"));

    QCOMPARE(JsonTexts::written(included.toVariant()),
             JsonTexts::compact(R"([{"type": "zone", "id": "1"}, {"type": "zone", "id": "2"}])"));
}

ONDIRA_TEST(IncludedTest)
#include "IncludedTest.moc"
