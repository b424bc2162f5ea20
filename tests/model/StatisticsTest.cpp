// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/Statistics.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

using Model::Statistics;
using Filter = JsonAPI::Statistics::Filter;

namespace {

const QUuid lamp("{11111111-1111-1111-1111-111111111111}");
const QUuid meter("{22222222-2222-2222-2222-222222222222}");
const QDateTime noon({2024, 5, 1}, {12, 0, 30}, Qt::UTC);
const QDateTime start({2024, 5, 1}, {0, 0}, Qt::UTC);
const QDateTime end({2024, 5, 2}, {0, 0}, Qt::UTC);

Statistics someStatistics()
{
    Statistics statistics;
    statistics.from = start;
    statistics.to = end;
    statistics.categories = {
        {lamp, "Lamp.qml", {"power", "state"}, {{noon, {60, "on"}}, {noon.addSecs(60), {0, "off"}}}},
        {meter, "ElectricMeter.qml", {"energy"}, {{noon, {1.5}}}},
    };
    return statistics;
}

const QByteArray entityText = R"({"type": "statistics", "id": "", "attributes": {
    "from": "2024-05-01T00:00:00Z", "to": "2024-05-02T00:00:00Z", "data": [
    {"entity": "{11111111-1111-1111-1111-111111111111}", "type": "Lamp.qml", "schema": ["power", "state"],
     "values": [["2024-05-01T12:00:30Z", 60, "on"], ["2024-05-01T12:01:30Z", 0, "off"]]},
    {"entity": "{22222222-2222-2222-2222-222222222222}", "type": "ElectricMeter.qml", "schema": ["energy"],
     "values": [["2024-05-01T12:00:30Z", 1.5]]}]}})";

Statistics withAttributes(const QByteArray &attributes)
{
    return JsonAPI::Statistics::fromVariant(
        JsonTexts::entity(R"({"type": "statistics", "attributes": )" + attributes + "}"));
}

std::vector<Statistics::Item> rows(const QByteArray &values)
{
    const auto statistics = withAttributes(R"({"data": [{"schema": ["power"], "values": )" + values + "}]}");
    return statistics.categories.at(0).items;
}

} // namespace

class StatisticsTest : public TestBase
{
    Q_OBJECT

private slots:
    void countsItems();
    void categoryTellsItsSpan();
    void mapsItems_data();
    void mapsItems();
    void addsItemsToTheirCategory();
    void seriesOfOtherSchemaStayApart();
    void addsItemsInOrder();
    void addsItemsOfItsOwn();
    void absorbsAnotherReply();
    void absorbsItself();
    void absorbsSpans_data();
    void absorbsSpans();
    void writesTheFormForQml();
    void readsTheFormForQml();
    void readsRowsWithGaps();
    void readsTextsAsTimesForQml();
    void readsWhatItCanForQml_data();
    void readsWhatItCanForQml();
    void writesEntity();
    void writesAnEmptyReply();
    void readsEntity();
    void goesThroughTheText();
    void shortRowsAreSkipped_data();
    void shortRowsAreSkipped();
    void readsValuesOfEveryKind();
    void readsTimesOfRows_data();
    void readsTimesOfRows();
    void rowMayBeLongerThanTheSchema();
    void keepsSeriesInTheOrderOfArrival();
    void readsUids_data();
    void readsUids();
    void readsWhatItCan_data();
    void readsWhatItCan();
    void elementsThatAreNoMapsAreEmptySeries();
    void readsAYearOfMinutes();
    void filterCollectsTypes();
    void writesQuery();
    void queryKeepsToItsItems();
    void readsQuery();
    void readsDamagedQuery_data();
    void readsDamagedQuery();
    void queryGoesThroughAText_data();
    void queryGoesThroughAText();
    void filterOfTenThousandEntities();
    void comparesByAllFields();
};

void StatisticsTest::countsItems()
{
    QCOMPARE(Statistics().size(), 0);
    QCOMPARE(someStatistics().size(), 3);
    QCOMPARE(someStatistics().flat().size(), std::size_t(2));
    QVERIFY(someStatistics().flat() == someStatistics().categories);
}

void StatisticsTest::categoryTellsItsSpan()
{
    const auto category = someStatistics().categories.front();

    QCOMPARE(category.from(), noon);
    QCOMPARE(category.to(), noon.addSecs(60));
    QVERIFY(!Statistics::Category().from().isValid());
    QVERIFY(!Statistics::Category().to().isValid());
}

void StatisticsTest::mapsItems_data()
{
    QTest::addColumn<QStringList>("schema");
    QTest::addColumn<QVariantList>("values");
    QTest::addColumn<QVariantMap>("expected");

    QTest::newRow("each value by its name") << QStringList{"power", "state"} << QVariantList{60, "on"}
                                            << QVariantMap{{"time", noon}, {"power", 60}, {"state", "on"}};
    QTest::newRow("name without a value")
        << QStringList{"power", "state"} << QVariantList{60} << QVariantMap{{"time", noon}, {"power", 60}};
    QTest::newRow("value without a name")
        << QStringList{"power"} << QVariantList{60, "on"} << QVariantMap{{"time", noon}, {"power", 60}};
    QTest::newRow("nothing") << QStringList() << QVariantList() << QVariantMap{{"time", noon}};
    QTest::newRow("null value") << QStringList{"power"} << QVariantList{QVariant()}
                                << QVariantMap{{"time", noon}, {"power", QVariant()}};
    QTest::newRow("column of time") << QStringList{"time", "power"} << QVariantList{1, 2}
                                    << QVariantMap{{"time", noon}, {"power", 2}};
}

void StatisticsTest::mapsItems()
{
    QFETCH(QStringList, schema);
    QFETCH(QVariantList, values);
    const Statistics::Category category{lamp, "Lamp.qml", schema, {}};

    QTEST(category.toMap({noon, values}), "expected");
}

void StatisticsTest::addsItemsToTheirCategory()
{
    Statistics statistics;

    statistics.addData(lamp, {"power"}, "Lamp.qml", noon, {1});
    statistics.addData(meter, {"power"}, "Lamp.qml", noon, {2});
    statistics.addData(lamp, {"power"}, "Lamp.qml", noon.addSecs(1), {3});

    QCOMPARE(statistics.categories.size(), std::size_t(2));
    QVERIFY((statistics.categories.at(0)
             == Statistics::Category{lamp, "Lamp.qml", {"power"}, {{noon, {1}}, {noon.addSecs(1), {3}}}}));
    QVERIFY((statistics.categories.at(1) == Statistics::Category{meter, "Lamp.qml", {"power"}, {{noon, {2}}}}));
}

void StatisticsTest::seriesOfOtherSchemaStayApart()
{
    Statistics statistics;

    statistics.addData(lamp, {"power"}, "Lamp.qml", noon, {1});
    statistics.addData(lamp, {"power", "state"}, "Lamp.qml", noon, {1, "on"});
    statistics.addData(lamp, {"Power"}, "Lamp.qml", noon, {1});
    statistics.addData(lamp, {"power"}, "Beacon.qml", noon, {1});
    statistics.addData(lamp, {"power"}, "Lamp.qml", noon, {2});

    QCOMPARE(statistics.categories.size(), std::size_t(4));
    QCOMPARE(statistics.categories.at(0).items.size(), std::size_t(2));
    QCOMPARE(statistics.size(), 5);
}

void StatisticsTest::addsItemsInOrder()
{
    Statistics statistics;

    statistics.addData(lamp, {"power"}, "Lamp.qml", {{noon, {1}}, {start, {2}}});
    statistics.addData(lamp, {"power"}, "Lamp.qml", std::vector<Statistics::Item>());
    statistics.addData(lamp, {"power"}, "Lamp.qml", {{end, {3}}});
    statistics.addData(meter, {"power"}, "Lamp.qml", std::vector<Statistics::Item>());

    QVERIFY(statistics.categories.at(0).items
            == (std::vector<Statistics::Item>{{noon, {1}}, {start, {2}}, {end, {3}}}));
    QVERIFY((statistics.categories.at(1) == Statistics::Category{meter, "Lamp.qml", {"power"}, {}}));
}

void StatisticsTest::addsItemsOfItsOwn()
{
    auto statistics = someStatistics();
    const auto &category = statistics.categories.front();

    statistics.addData(category.uid, category.schema, category.type, category.items);

    QCOMPARE(statistics.categories.front().items.size(), std::size_t(4));
    QVERIFY((statistics.categories.front().items.back() == Statistics::Item{noon.addSecs(60), {0, "off"}}));
}

void StatisticsTest::absorbsAnotherReply()
{
    auto statistics = someStatistics();
    Statistics other;
    other.from = start.addDays(-1);
    other.to = end.addDays(1);
    other.categories = {
        {meter, "ElectricMeter.qml", {"energy"}, {{end, {2.5}}}},
        {meter, "ElectricMeter.qml", {"energy", "phase"}, {{end, {2.5, 1}}}},
    };

    statistics.absorb(other);

    QCOMPARE(statistics.from, start.addDays(-1));
    QCOMPARE(statistics.to, end.addDays(1));
    QCOMPARE(statistics.categories.size(), std::size_t(3));
    QVERIFY(statistics.categories.at(1).items == (std::vector<Statistics::Item>{{noon, {1.5}}, {end, {2.5}}}));
    QCOMPARE(statistics.categories.at(2).schema, (QStringList{"energy", "phase"}));
    QCOMPARE(statistics.size(), 5);
}

void StatisticsTest::absorbsItself()
{
    auto statistics = someStatistics();

    statistics.absorb(statistics);

    QCOMPARE(statistics.categories.size(), std::size_t(2));
    QCOMPARE(statistics.size(), 6);
    QCOMPARE(statistics.from, start);
    QCOMPARE(statistics.to, end);
}

void StatisticsTest::absorbsSpans_data()
{
    QTest::addColumn<QDateTime>("from");
    QTest::addColumn<QDateTime>("to");
    QTest::addColumn<QDateTime>("expectedFrom");
    QTest::addColumn<QDateTime>("expectedTo");

    QTest::newRow("inside") << noon << noon << start << end;
    QTest::newRow("before") << start.addDays(-2) << start.addDays(-1) << start.addDays(-2) << end;
    QTest::newRow("after") << end.addDays(1) << end.addDays(2) << start << end.addDays(2);
    QTest::newRow("no start is the earliest") << QDateTime() << end.addDays(2) << QDateTime() << end.addDays(2);
    QTest::newRow("no end is the earliest") << start.addDays(-1) << QDateTime() << start.addDays(-1) << end;
    const QDateTime old({1950, 1, 1}, {0, 0}, Qt::UTC);
    QTest::newRow("before the epoch") << old << old << old << end;
}

void StatisticsTest::absorbsSpans()
{
    QFETCH(QDateTime, from);
    QFETCH(QDateTime, to);
    Statistics statistics;
    statistics.from = start;
    statistics.to = end;
    Statistics other;
    other.from = from;
    other.to = to;

    statistics.absorb(other);

    QTEST(statistics.from, "expectedFrom");
    QTEST(statistics.to, "expectedTo");
    other.absorb(Statistics());
    QVERIFY(!other.from.isValid());
    QCOMPARE(other.to, to);
}

void StatisticsTest::writesTheFormForQml()
{
    const auto map = someStatistics().toVariant().toMap();

    QCOMPARE(map.keys(), (QStringList{"data", "from", "to"}));
    QCOMPARE(map.value("from"), QVariant(start));
    QCOMPARE(map.value("to"), QVariant(end));
    const auto data = map.value("data").toList();
    QCOMPARE(data.size(), 2);
    const auto series = data.at(0).toMap();
    QCOMPARE(series.keys(), (QStringList{"schema", "type", "uid", "values"}));
    QCOMPARE(series.value("uid"), QVariant(QString("{11111111-1111-1111-1111-111111111111}")));
    QCOMPARE(series.value("type").toString(), QString("Lamp.qml"));
    QCOMPARE(series.value("schema").toStringList(), (QStringList{"power", "state"}));
    const QVariantList values{QVariantMap{{"time", noon}, {"power", 60}, {"state", "on"}},
                              QVariantMap{{"time", noon.addSecs(60)}, {"power", 0}, {"state", "off"}}};
    QCOMPARE(series.value("values").toList(), values);
}

void StatisticsTest::readsTheFormForQml()
{
    QVERIFY(Statistics::fromVariant(someStatistics().toVariant()) == someStatistics());
    QVERIFY(Statistics::fromVariant(Statistics().toVariant()) == Statistics());
}

void StatisticsTest::readsRowsWithGaps()
{
    const QVariantMap series{
        {"schema", QStringList{"a", "b", "c"}},
        {"values", QVariantList{QVariantMap{{"time", noon}, {"b", 2}}, QVariantMap{{"time", noon}, {"d", 2}}, 5}},
    };

    const auto statistics = Statistics::fromVariant(QVariantMap{{"data", QVariantList{series}}});

    const std::vector<Statistics::Item> expected{{noon, {QVariant(), 2}}, {noon, {}}, {QDateTime(), {}}};
    QVERIFY(statistics.categories.at(0).items == expected);
}

void StatisticsTest::readsTextsAsTimesForQml()
{
    const auto statistics = Statistics::fromVariant(JsonTexts::read(R"({"from": "2024-05-01T12:00:30Z",
        "data": [{"uid": "11111111-1111-1111-1111-111111111111", "schema": ["a"],
                  "values": [{"time": "2024-05-01T12:00:30Z", "a": 5}]}]})"));

    QCOMPARE(statistics.from, noon);
    QVERIFY(!statistics.to.isValid());
    QCOMPARE(statistics.categories.at(0).uid, lamp);
    QCOMPARE(statistics.categories.at(0).items.at(0).time, noon);
    QCOMPARE(statistics.categories.at(0).items.at(0).values, QVariantList{5});
}

void StatisticsTest::readsWhatItCanForQml_data()
{
    QTest::addColumn<QVariant>("variant");

    QTest::newRow("invalid") << QVariant();
    QTest::newRow("null") << QVariant::fromValue(nullptr);
    QTest::newRow("list") << QVariant(QVariantList{1});
    QTest::newRow("empty") << QVariant(QVariantMap());
    QTest::newRow("nulls") << JsonTexts::read(R"({"from": null, "to": null, "data": null})");
    QTest::newRow("wrong types") << JsonTexts::read(R"({"from": [1], "to": "yesterday", "data": {"uid": 1}})");
}

void StatisticsTest::readsWhatItCanForQml()
{
    QFETCH(QVariant, variant);

    QVERIFY(Statistics::fromVariant(variant) == Statistics());
}

void StatisticsTest::writesEntity()
{
    QCOMPARE(JsonTexts::written(JsonAPI::Statistics::toVariant(someStatistics())), JsonTexts::compact(entityText));
}

void StatisticsTest::writesAnEmptyReply()
{
    QCOMPARE(
        JsonTexts::written(JsonAPI::Statistics::toVariant({})),
        JsonTexts::compact(R"({"type": "statistics", "id": "", "attributes": {"from": "", "to": "", "data": []}})"));
    Statistics statistics;
    statistics.categories = {{QUuid(), "", {}, {}}};
    QCOMPARE(JsonTexts::written(JsonAPI::Statistics::toVariant(statistics)), JsonTexts::compact(R"({
        "type": "statistics", "id": "", "attributes": {"from": "", "to": "", "data": [
            {"entity": "{00000000-0000-0000-0000-000000000000}", "type": "", "schema": [], "values": []}]}})"));
}

void StatisticsTest::readsEntity()
{
    const auto statistics = JsonAPI::Statistics::fromVariant(JsonTexts::entity(entityText));

    QCOMPARE(statistics.from, start);
    QCOMPARE(statistics.to, end);
    QCOMPARE(statistics.categories.size(), std::size_t(2));
    QCOMPARE(statistics.categories.at(0).uid, lamp);
    QCOMPARE(statistics.categories.at(0).type, QString("Lamp.qml"));
    QCOMPARE(statistics.categories.at(0).schema, (QStringList{"power", "state"}));
    QCOMPARE(statistics.categories.at(0).items.at(1).time, noon.addSecs(60));
    QCOMPARE(statistics.categories.at(0).items.at(1).values, (QVariantList{0, "off"}));
    QVERIFY(statistics == someStatistics());
}

void StatisticsTest::goesThroughTheText()
{
    const auto text = JsonTexts::written(JsonAPI::Statistics::toVariant(someStatistics()));

    QVERIFY(JsonAPI::Statistics::fromVariant(JsonTexts::entity(text)) == someStatistics());
    QVERIFY(JsonAPI::Statistics::fromVariant(JsonAPI::Entity(JsonAPI::Statistics::toVariant(someStatistics())))
            == someStatistics());
}

void StatisticsTest::shortRowsAreSkipped_data()
{
    QTest::addColumn<QByteArray>("values");
    QTest::addColumn<int>("expected");

    QTest::newRow("time alone") << QByteArray(R"([["2024-05-01T12:00:30Z"], ["2024-05-01T12:00:30Z", 1]])") << 1;
    QTest::newRow("empty") << QByteArray(R"([[], ["2024-05-01T12:00:30Z", 1]])") << 1;
    QTest::newRow("no lists") << QByteArray(R"([5, null, "row", {"time": "2024-05-01T12:00:30Z", "power": 1}])") << 0;
    QTest::newRow("null value") << QByteArray(R"([["2024-05-01T12:00:30Z", null]])") << 1;
    QTest::newRow("list in a list") << QByteArray(R"([[["2024-05-01T12:00:30Z", 1]]])") << 0;
    QTest::newRow("none") << QByteArray("[]") << 0;
    QTest::newRow("no rows") << QByteArray("\"rows\"") << 0;
    QTest::newRow("null") << QByteArray("null") << 0;
}

void StatisticsTest::shortRowsAreSkipped()
{
    QFETCH(QByteArray, values);

    const auto items = rows(values);

    QTEST(static_cast<int>(items.size()), "expected");
    for (const auto &item : items)
        QCOMPARE(item.time, noon);
}

void StatisticsTest::readsValuesOfEveryKind()
{
    const auto items = rows(R"([["2024-05-01T12:00:30Z", 1, 1.5, "on", true, null, [1, [2]], {"a": 1}]])");

    const auto &values = items.at(0).values;
    QCOMPARE(values.size(), 7);
    QCOMPARE(values.at(0).toInt(), 1);
    QCOMPARE(values.at(1).toDouble(), 1.5);
    QCOMPARE(values.at(2).toString(), QString("on"));
    QCOMPARE(values.at(3), QVariant(true));
    QVERIFY(values.at(4).isNull());
    QCOMPARE(values.at(5).toList().at(1).toList().at(0).toInt(), 2);
    QCOMPARE(values.at(6).toMap().value("a").toInt(), 1);
}

void StatisticsTest::readsTimesOfRows_data()
{
    QTest::addColumn<QByteArray>("time");
    QTest::addColumn<QDateTime>("expected");

    QTest::newRow("UTC") << QByteArray("\"2024-05-01T12:00:30Z\"") << noon;
    QTest::newRow("offset") << QByteArray("\"2024-05-01T15:00:30+03:00\"") << noon;
    QTest::newRow("local") << QByteArray("\"2024-05-01T12:00:30\"") << QDateTime({2024, 5, 1}, {12, 0, 30});
    QTest::newRow("milliseconds") << QByteArray("\"2024-05-01T12:00:30.250Z\"") << noon.addMSecs(250);
    QTest::newRow("bad") << QByteArray("\"noon\"") << QDateTime();
    QTest::newRow("null") << QByteArray("null") << QDateTime();
    QTest::newRow("number") << QByteArray("1714564830") << QDateTime();
}

void StatisticsTest::readsTimesOfRows()
{
    QFETCH(QByteArray, time);
    QFETCH(QDateTime, expected);

    const auto items = rows("[[" + time + ", 1]]");

    QCOMPARE(items.size(), std::size_t(1));
    QCOMPARE(items.at(0).time.isValid(), expected.isValid());
    QCOMPARE(items.at(0).time, expected);
    const auto whole = withAttributes("{\"from\": " + time + ", \"to\": " + time + "}");
    QCOMPARE(whole.from, expected);
    QCOMPARE(whole.to, expected);
}

void StatisticsTest::rowMayBeLongerThanTheSchema()
{
    const auto items = rows(R"([["2024-05-01T12:00:30Z", 1, 2, 3]])");

    QCOMPARE(items.at(0).values, (QVariantList{1, 2, 3}));
}

void StatisticsTest::keepsSeriesInTheOrderOfArrival()
{
    const auto statistics = withAttributes(R"({"data": [
        {"entity": "{22222222-2222-2222-2222-222222222222}", "type": "b", "values": [["2024-05-01T12:00:30Z", 1]]},
        {"entity": "{11111111-1111-1111-1111-111111111111}", "type": "a", "values": []},
        {"entity": "{22222222-2222-2222-2222-222222222222}", "type": "b", "values": [["2024-05-01T12:00:30Z", 2]]}]})");

    QCOMPARE(statistics.categories.size(), std::size_t(3));
    QCOMPARE(statistics.categories.at(0).uid, meter);
    QCOMPARE(statistics.categories.at(1).uid, lamp);
    QCOMPARE(statistics.categories.at(2).items.at(0).values, QVariantList{2});
}

void StatisticsTest::readsUids_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QUuid>("expected");

    QTest::newRow("braces") << QByteArray("\"{11111111-1111-1111-1111-111111111111}\"") << lamp;
    QTest::newRow("no braces") << QByteArray("\"11111111-1111-1111-1111-111111111111\"") << lamp;
    QTest::newRow("no uid") << QByteArray("\"lamp\"") << QUuid();
    QTest::newRow("null") << QByteArray("null") << QUuid();
    QTest::newRow("number") << QByteArray("1") << QUuid();
}

void StatisticsTest::readsUids()
{
    QFETCH(QByteArray, text);
    QFETCH(QUuid, expected);

    QCOMPARE(withAttributes("{\"data\": [{\"entity\": " + text + "}]}").categories.at(0).uid, expected);
    QCOMPARE(Statistics::fromVariant(JsonTexts::read("{\"data\": [{\"uid\": " + text + "}]}")).categories.at(0).uid,
             expected);
}

void StatisticsTest::readsWhatItCan_data()
{
    QTest::addColumn<QByteArray>("attributes");

    QTest::newRow("empty") << QByteArray("{}");
    QTest::newRow("nulls") << QByteArray(R"({"from": null, "to": null, "data": null})");
    QTest::newRow("wrong types") << QByteArray(R"({"from": [1], "to": {}, "data": "rows"})");
    QTest::newRow("one map") << QByteArray(R"({"data": {"entity": "{11111111-1111-1111-1111-111111111111}"}})");
    QTest::newRow("no map") << QByteArray("[1]");
}

void StatisticsTest::readsWhatItCan()
{
    QFETCH(QByteArray, attributes);

    QVERIFY(withAttributes(attributes) == Statistics());
}

void StatisticsTest::elementsThatAreNoMapsAreEmptySeries()
{
    const auto statistics = withAttributes(R"({"data": [5, null, [{"type": "a"}],
        {"entity": null, "type": null, "schema": null, "values": null},
        {"entity": [], "type": {}, "schema": "power", "values": 7}]})");

    QCOMPARE(statistics.categories.size(), std::size_t(5));
    for (int i = 0; i < 4; ++i)
        QVERIFY(statistics.categories.at(i) == Statistics::Category());
    QVERIFY(statistics.categories.at(4).items.empty());
}

void StatisticsTest::readsAYearOfMinutes()
{
    constexpr int minutes = 365 * 24 * 60;
    Statistics year;
    year.categories = {{lamp, "Lamp.qml", {"power"}, {}}};
    auto &items = year.categories.front().items;
    items.reserve(minutes);
    for (int i = 0; i < minutes; ++i)
        items.push_back({start.addSecs(60LL * i), {i % 101}});

    const auto read = JsonAPI::Statistics::fromVariant(JsonAPI::Entity(JsonAPI::Statistics::toVariant(year)));

    QCOMPARE(read.size(), minutes);
    QVERIFY(read == year);
    QCOMPARE(read.categories.front().to(), start.addSecs(60LL * (minutes - 1)));
}

void StatisticsTest::filterCollectsTypes()
{
    Filter filter;

    filter.addEntity(lamp, "Lamp.qml");
    filter.addEntity(meter, "ElectricMeter.qml");
    filter.addEntity(lamp, "Beacon.qml");
    filter.addEntity(lamp, "Lamp.qml");

    QCOMPARE(filter.entities.size(), 2);
    QCOMPARE(filter.entities.value(lamp), (QStringList{"Lamp.qml", "Beacon.qml", "Lamp.qml"}));
    QCOMPARE(filter.entities.value(meter), QStringList{"ElectricMeter.qml"});
}

void StatisticsTest::writesQuery()
{
    Filter filter;
    filter.from = start;
    filter.to = noon;
    filter.addEntity(meter, "ElectricMeter.qml");
    filter.addEntity(lamp, "Lamp.qml");
    filter.addEntity(lamp, "Beacon.qml");

    const auto query = filter.toQuery();

    QCOMPARE(query.queryItemValue("from", QUrl::FullyDecoded), QString("2024-05-01T00:00:00Z"));
    QCOMPARE(query.queryItemValue("to", QUrl::FullyDecoded), QString("2024-05-01T12:00:30Z"));
    QCOMPARE(query.queryItemValue("entities", QUrl::FullyDecoded),
             QString(R"({"{11111111-1111-1111-1111-111111111111}":["Lamp.qml","Beacon.qml"],)"
                     R"("{22222222-2222-2222-2222-222222222222}":["ElectricMeter.qml"]})"));
    QCOMPARE(query.queryItems().size(), 3);
}

void StatisticsTest::queryKeepsToItsItems()
{
    const auto empty = Filter().toQuery();
    QVERIFY(!empty.hasQueryItem("from"));
    QVERIFY(!empty.hasQueryItem("to"));
    QCOMPARE(empty.queryItemValue("entities", QUrl::FullyDecoded), QString("{}"));

    Filter half;
    half.to = noon;
    QVERIFY(!half.toQuery().hasQueryItem("from"));
    QVERIFY(half.toQuery().hasQueryItem("to"));
}

void StatisticsTest::readsQuery()
{
    QUrlQuery query;
    query.addQueryItem("from", "2024-05-01T00:00:00Z");
    query.addQueryItem("to", "2024-05-01T12:00:30Z");
    query.addQueryItem("entities",
                       R"({"{11111111-1111-1111-1111-111111111111}":["Lamp.qml"],)"
                       R"("22222222-2222-2222-2222-222222222222":[],"11111111-1111-1111-1111-111111111111":["x"]})");

    const auto filter = Filter::fromQuery(query);

    QCOMPARE(filter.from, start);
    QCOMPARE(filter.to, noon);
    auto types = filter.entities.value(lamp); // of both keys
    types.sort();
    QCOMPARE(types, (QStringList{"Lamp.qml", "x"}));
    QVERIFY(filter.entities.contains(meter));
    QCOMPARE(filter.entities.value(meter), QStringList());
}

void StatisticsTest::readsDamagedQuery_data()
{
    QTest::addColumn<QString>("entities");
    QTest::addColumn<int>("expected");

    QTest::newRow("empty") << "" << 0;
    QTest::newRow("no document") << "{" << 0;
    QTest::newRow("list") << "[\"Lamp.qml\"]" << 0;
    QTest::newRow("null") << "null" << 0;
    QTest::newRow("number") << "5" << 0;
    QTest::newRow("bad uid is a null one") << R"({"lamp":["Lamp.qml"]})" << 1;
    QTest::newRow("list of other kinds") << R"({"lamp":[1,null,{}]})" << 1;
    QTest::newRow("no list of types") << R"({"lamp":null})" << 1;
}

void StatisticsTest::readsDamagedQuery()
{
    QFETCH(QString, entities);
    QFETCH(int, expected);
    QUrlQuery query;
    query.addQueryItem("from", "yesterday");
    query.addQueryItem("entities", entities);

    const auto filter = Filter::fromQuery(query);

    QVERIFY(!filter.from.isValid());
    QVERIFY(!filter.to.isValid());
    QCOMPARE(filter.entities.size(), expected);
    QCOMPARE(filter.entities.contains(QUuid()), expected == 1);
    QVERIFY(Filter::fromQuery(QUrlQuery()).entities.isEmpty());
}

void StatisticsTest::queryGoesThroughAText_data()
{
    QTest::addColumn<QString>("type");

    for (const auto *type : {"Lamp.qml", "Лампа", "a&b=c", "a#b", "a%41b", "100%", "a+b c", "\"quoted\\\"", "{}", ""})
        QTest::newRow(type) << QString(type);
}

void StatisticsTest::queryGoesThroughAText()
{
    QFETCH(QString, type);
    Filter filter;
    filter.from = noon.toOffsetFromUtc(3 * 3600);
    filter.addEntity(lamp, type);

    // Encoded, as the link of a request carries it.
    const QUrl url("ondira://backend/statistics?" + filter.toQuery().toString(QUrl::FullyEncoded));
    const auto read = Filter::fromQuery(QUrlQuery(url));

    QCOMPARE(read.from, noon);
    QCOMPARE(read.entities, filter.entities);
}

void StatisticsTest::filterOfTenThousandEntities()
{
    Filter filter;
    for (int i = 0; i < 10000; ++i)
        filter.addEntity(QUuid(static_cast<uint>(i) + 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0), "Lamp.qml");

    QCOMPARE(Filter::fromQuery(filter.toQuery()).entities, filter.entities);
}

void StatisticsTest::comparesByAllFields()
{
    const auto differs = [](void (*change)(Statistics &)) {
        auto statistics = someStatistics();
        change(statistics);
        return !(statistics == someStatistics());
    };
    QVERIFY(someStatistics() == someStatistics());
    QVERIFY(differs([](auto &statistics) { statistics.from = noon; }));
    QVERIFY(differs([](auto &statistics) { statistics.to = noon; }));
    QVERIFY(differs([](auto &statistics) { statistics.categories.pop_back(); }));
    QVERIFY(differs([](auto &statistics) { statistics.categories.front().uid = meter; }));
    QVERIFY(differs([](auto &statistics) { statistics.categories.front().type = "lamp.qml"; }));
    QVERIFY(differs([](auto &statistics) { statistics.categories.front().schema << "x"; }));
    QVERIFY(differs([](auto &statistics) { statistics.categories.front().items.pop_back(); }));
    QVERIFY(differs([](auto &statistics) { statistics.categories.front().items.front().time = end; }));
    QVERIFY(differs([](auto &statistics) { statistics.categories.front().items.front().values[0] = 61; }));
}

ONDIRA_TEST(StatisticsTest)
#include "StatisticsTest.moc"
