// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/ScheduleDay.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

using Model::ActionBlueprintInstance;
using Model::ActionDatatype;
using Model::ScheduleDay;
using Model::ScheduleDayPoint;
using Model::ScheduleWeek;

namespace {

const QUuid uid("{99999999-9999-9999-9999-999999999999}");
const QUuid blueprint("{00000ec0-0002-0000-0000-000000000002}");
const QUuid hall("{aaaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}");
const QUuid kitchen("{0aaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}");

Model::ActionSequence power(long long value)
{
    ActionBlueprintInstance instance;
    instance.blueprint = blueprint;
    instance.properties = {{"power", ActionDatatype(value)}};
    return {{instance}};
}

ScheduleDay someDay()
{
    ScheduleDay day(uid, "Будни", {{QTime(7, 30, 15), power(100)}, {QTime(22, 0), {}}}, {4, 0, 1});
    day.zones = {hall, kitchen};
    return day;
}

QByteArray sequenceText()
{
    return R"([{"blueprint": "{00000ec0-0002-0000-0000-000000000002}", "zones": [], "properties": [
        {"node": "00000000-0000-0000-0000-000000000000", "property": "power",
         "value": {"type": "integer", "value": 100}}]}])";
}

QByteArray modelText()
{
    return R"({"uid": "{99999999-9999-9999-9999-999999999999}", "name": "Будни", "points": [
        {"time": "07:30:15", "actions": )"
        + sequenceText() + R"(}, {"time": "22:00:00", "actions": []}], "daysOfWeek": [0, 1, 4],
        "zones": ["{0aaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}", "{aaaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}"]})";
}

QByteArray entityText()
{
    return R"({"type": "schedule_day", "id": "{99999999-9999-9999-9999-999999999999}", "attributes": {
        "name": "Будни", "points": [{"time": "07:30:15", "blueprints": )"
        + sequenceText() + R"(}, {"time": "22:00:00", "blueprints": []}], "week_days": [0, 1, 4]},
        "relationships": {"zones": {"data": [
            {"type": "zone", "id": "{0aaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}", "meta": {}},
            {"type": "zone", "id": "{aaaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}", "meta": {}}]}}})";
}

ScheduleDay readEntity(const QByteArray &attributes, const QByteArray &relationships = "{}")
{
    return JsonAPI::ScheduleDay::fromVariant(JsonTexts::entity(R"({"type": "schedule_day", "attributes": )" + attributes
                                                               + R"(, "relationships": )" + relationships + "}"));
}

QList<int> sorted(const QSet<int> &set)
{
    auto list = set.values();
    std::sort(list.begin(), list.end());
    return list;
}

} // namespace

class ScheduleDayTest : public TestBase
{
    Q_OBJECT

private slots:
    void constructorTakesAllButZones();
    void writesPoint();
    void readsPoint();
    void readsTime_data();
    void readsTime();
    void writesModelForm();
    void readsModelForm();
    void writesEntity();
    void readsEntity();
    void bothDocumentsAgree();
    void eachDocumentReadsItsOwnKeys();
    void emptyDayWritesItsKeys();
    void sortsPoints();
    void pointsOfOneTimeKeepTheirOrder();
    void pointsWithoutATimeComeFirst();
    void readsDaysOfWeek_data();
    void readsDaysOfWeek();
    void anySequenceIsAList();
    void readsZonesOfRelations();
    void readsZonesOfTheModelForm();
    void readsWhatItCan_data();
    void readsWhatItCan();
    void elementsThatAreNoMapsAreEmptyPoints();
    void readsTenThousandPoints();
    void comparesByAllFields();
    void comparesWeeks();
};

void ScheduleDayTest::constructorTakesAllButZones()
{
    const ScheduleDay day(uid, "Будни", {{QTime(22, 0), {}}, {QTime(7, 0), {}}}, {0, 6});

    QCOMPARE(day.uid, uid);
    QCOMPARE(day.name, QString("Будни"));
    QCOMPARE(day.points.size(), std::size_t(2));
    QCOMPARE(day.points.front().time, QTime(22, 0)); // sorted where it is read
    QCOMPARE(day.daysOfWeek, (QSet<int>{0, 6}));
    QVERIFY(day.zones.isEmpty());
    QVERIFY(ScheduleDay().uid.isNull());
    QVERIFY(ScheduleDay().daysOfWeek.isEmpty());
}

void ScheduleDayTest::writesPoint()
{
    const ScheduleDayPoint point{QTime(7, 30, 15), power(100)};

    QCOMPARE(JsonTexts::written(point.toVariant()),
             JsonTexts::compact(R"({"time": "07:30:15", "actions": )" + sequenceText() + "}"));
    QCOMPARE(JsonTexts::written(ScheduleDayPoint{QTime(0, 0), {}}.toVariant()),
             JsonTexts::compact(R"({"time": "00:00:00", "actions": []})"));
    QCOMPARE(JsonTexts::written(ScheduleDayPoint().toVariant()), JsonTexts::compact(R"({"time": "", "actions": []})"));
}

void ScheduleDayTest::readsPoint()
{
    const auto point =
        ScheduleDayPoint::fromVariant(JsonTexts::read(R"({"time": "07:30:15", "actions": )" + sequenceText() + "}"));

    QVERIFY((point == ScheduleDayPoint{QTime(7, 30, 15), power(100)}));
    QVERIFY(ScheduleDayPoint::fromVariant(point.toVariant()) == point);
    QVERIFY(ScheduleDayPoint::fromVariant(QVariant()) == ScheduleDayPoint());
    QVERIFY(ScheduleDayPoint::fromVariant(QVariant::fromValue(nullptr)) == ScheduleDayPoint());
}

void ScheduleDayTest::readsTime_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QTime>("expected");

    QTest::newRow("seconds") << QByteArray("\"07:30:15\"") << QTime(7, 30, 15);
    QTest::newRow("milliseconds are dropped") << QByteArray("\"07:30:15.250\"") << QTime(7, 30, 15);
    QTest::newRow("no rounding up") << QByteArray("\"07:30:59.999\"") << QTime(7, 30, 59);
    QTest::newRow("no seconds") << QByteArray("\"07:30\"") << QTime(7, 30);
    QTest::newRow("midnight") << QByteArray("\"00:00:00\"") << QTime(0, 0);
    QTest::newRow("last second") << QByteArray("\"23:59:59\"") << QTime(23, 59, 59);
    QTest::newRow("no such hour") << QByteArray("\"25:00:00\"") << QTime();
    QTest::newRow("no such minute") << QByteArray("\"07:60:00\"") << QTime();
    QTest::newRow("no time") << QByteArray("\"noon\"") << QTime();
    QTest::newRow("empty") << QByteArray("\"\"") << QTime();
    QTest::newRow("null") << QByteArray("null") << QTime();
    QTest::newRow("number") << QByteArray("73015") << QTime();
    QTest::newRow("list") << QByteArray("[\"07:30:15\"]") << QTime();
}

void ScheduleDayTest::readsTime()
{
    QFETCH(QByteArray, text);
    QFETCH(QTime, expected);

    const QByteArray day = R"({"points": [{"time": )" + text + "}]}";

    for (const auto &read : {ScheduleDay::fromVariant(JsonTexts::read(day)), readEntity(day)}) {
        QCOMPARE(read.points.size(), std::size_t(1));
        QCOMPARE(read.points.front().time.isValid(), expected.isValid());
        QCOMPARE(read.points.front().time, expected);
    }
}

void ScheduleDayTest::writesModelForm()
{
    QCOMPARE(JsonTexts::written(someDay().toVariant()), JsonTexts::compact(modelText()));
}

void ScheduleDayTest::readsModelForm()
{
    const auto day = ScheduleDay::fromVariant(JsonTexts::read(modelText()));

    QCOMPARE(day.uid, uid);
    QCOMPARE(day.name, QString("Будни"));
    QCOMPARE(day.points.size(), std::size_t(2));
    QVERIFY(day.points.at(0).actions == power(100));
    QVERIFY(day == someDay());
    QVERIFY(ScheduleDay::fromVariant(someDay().toVariant()) == someDay());
}

void ScheduleDayTest::writesEntity()
{
    QCOMPARE(JsonTexts::written(JsonAPI::ScheduleDay::toVariant(someDay())), JsonTexts::compact(entityText()));
}

void ScheduleDayTest::readsEntity()
{
    QVERIFY(JsonAPI::ScheduleDay::fromVariant(JsonTexts::entity(entityText())) == someDay());
    QVERIFY(JsonAPI::ScheduleDay::fromVariant(JsonAPI::Entity(JsonAPI::ScheduleDay::toVariant(someDay())))
            == someDay());
}

void ScheduleDayTest::bothDocumentsAgree()
{
    const auto fromServer = JsonAPI::ScheduleDay::fromVariant(JsonTexts::entity(entityText()));
    QCOMPARE(JsonTexts::written(fromServer.toVariant()), JsonTexts::compact(modelText()));

    const auto fromClipboard = ScheduleDay::fromVariant(JsonTexts::read(modelText()));
    QCOMPARE(JsonTexts::written(JsonAPI::ScheduleDay::toVariant(fromClipboard)), JsonTexts::compact(entityText()));
}

void ScheduleDayTest::eachDocumentReadsItsOwnKeys()
{
    const auto model = ScheduleDay::fromVariant(
        JsonTexts::read(R"({"week_days": [1], "points": [{"time": "07:00:00", "blueprints": [{}]}]})"));
    QVERIFY(model.daysOfWeek.isEmpty());
    QVERIFY(model.points.front().actions.instances.empty());

    const auto wire = readEntity(R"({"daysOfWeek": [1], "zones": ["{aaaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}"],
                       "points": [{"time": "07:00:00", "actions": [{}]}]})");
    QVERIFY(wire.daysOfWeek.isEmpty());
    QVERIFY(wire.zones.isEmpty());
    QVERIFY(wire.points.front().actions.instances.empty());
}

void ScheduleDayTest::emptyDayWritesItsKeys()
{
    QCOMPARE(JsonTexts::written(ScheduleDay().toVariant()), JsonTexts::compact(R"({
        "uid": "{00000000-0000-0000-0000-000000000000}", "name": "", "points": [], "daysOfWeek": [], "zones": []})"));
    QCOMPARE(JsonTexts::written(JsonAPI::ScheduleDay::toVariant({})), JsonTexts::compact(R"({
        "type": "schedule_day", "id": "{00000000-0000-0000-0000-000000000000}",
        "attributes": {"name": "", "points": [], "week_days": []}})"));
}

void ScheduleDayTest::sortsPoints()
{
    const QByteArray model = R"({"points": [{"time": "22:00:00", "actions": []},
        {"time": "07:30:15", "actions": )"
        + sequenceText() + R"(}, {"time": "00:00:00", "actions": []}]})";

    for (const auto &day : {ScheduleDay::fromVariant(JsonTexts::read(model)),
                            readEntity(QByteArray(model).replace("\"actions\"", "\"blueprints\""))}) {
        QVERIFY(
            day.points
            == (std::vector<ScheduleDayPoint>{{QTime(0, 0), {}}, {QTime(7, 30, 15), power(100)}, {QTime(22, 0), {}}}));
    }
}

void ScheduleDayTest::pointsOfOneTimeKeepTheirOrder()
{
    ScheduleDay day;
    for (int i = 0; i < 100; ++i)
        day.points.push_back({QTime(i % 2, 0), power(i)});

    day.sortPoints();

    for (int i = 0; i < 50; ++i) {
        QVERIFY((day.points.at(i) == ScheduleDayPoint{QTime(0, 0), power(2 * i)}));
        QVERIFY((day.points.at(50 + i) == ScheduleDayPoint{QTime(1, 0), power(2 * i + 1)}));
    }
}

void ScheduleDayTest::pointsWithoutATimeComeFirst()
{
    const auto day = ScheduleDay::fromVariant(
        JsonTexts::read(R"({"points": [{"time": "00:00:00"}, {"time": "noon"}, {"time": "12:00:00"}]})"));

    QVERIFY(!day.points.at(0).time.isValid());
    QCOMPARE(day.points.at(1).time, QTime(0, 0));
    QCOMPARE(day.points.at(2).time, QTime(12, 0));
}

void ScheduleDayTest::readsDaysOfWeek_data()
{
    QTest::addColumn<QByteArray>("days");
    QTest::addColumn<QList<int>>("expected");

    QTest::newRow("all") << QByteArray("[6, 5, 4, 3, 2, 1, 0]") << QList<int>{0, 1, 2, 3, 4, 5, 6};
    QTest::newRow("twice") << QByteArray("[1, 1, 2]") << QList<int>{1, 2};
    QTest::newRow("texts") << QByteArray("[\"3\", \"0\"]") << QList<int>{0, 3};
    QTest::newRow("what is no number is no Monday") << QByteArray("[\"monday\", null, {}, [1], \"\"]") << QList<int>();
    QTest::newRow("beyond an int") << QByteArray("[1e300]") << QList<int>{2147483647};
    QTest::newRow("empty") << QByteArray("[]") << QList<int>();
    QTest::newRow("no list") << QByteArray("3") << QList<int>();
    QTest::newRow("text") << QByteArray("\"123\"") << QList<int>();
    QTest::newRow("null") << QByteArray("null") << QList<int>();
}

void ScheduleDayTest::readsDaysOfWeek()
{
    QFETCH(QByteArray, days);
    QFETCH(QList<int>, expected);

    QCOMPARE(sorted(ScheduleDay::fromVariant(JsonTexts::read("{\"daysOfWeek\": " + days + "}")).daysOfWeek), expected);
    QCOMPARE(sorted(readEntity("{\"week_days\": " + days + "}").daysOfWeek), expected);
    QVERIFY(ScheduleDay::fromVariant(JsonTexts::read("{}")).daysOfWeek.isEmpty());
    QVERIFY(readEntity("{}").daysOfWeek.isEmpty());
}

void ScheduleDayTest::anySequenceIsAList()
{
    const QVariantMap point{{"time", "07:00:00"}};
    JsonAPI::Entity entity("schedule_day", uid.toString());
    entity.setAttribute("week_days", QVariant::fromValue(QVector<int>{2, 5}));
    entity.setAttribute("points", QVariant::fromValue(QVector<QVariant>{point}));

    const auto day = JsonAPI::ScheduleDay::fromVariant(entity);

    QCOMPARE(day.daysOfWeek, (QSet<int>{2, 5}));
    QCOMPARE(day.points.size(), std::size_t(1));
    QCOMPARE(day.points.front().time, QTime(7, 0));
    const QVariantMap model{{"daysOfWeek", QVariant::fromValue(QList<int>{2, 5})}};
    QCOMPARE(ScheduleDay::fromVariant(model).daysOfWeek, (QSet<int>{2, 5}));
}

void ScheduleDayTest::readsZonesOfRelations()
{
    const auto day = readEntity("{}", R"({
        "zones": {"data": [{"type": "zone", "id": "aaaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee"},
                           {"type": "zone", "id": "{aaaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}"},
                           {"type": "zone", "id": "hall"}]},
        "zone": {"data": [{"type": "zone", "id": "{0aaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}"}]}})");

    QCOMPARE(day.zones, (QSet<QUuid>{hall, QUuid()}));
    QVERIFY(readEntity("{}", "null").zones.isEmpty());
    QVERIFY(readEntity("{}", R"({"zones": [1]})").zones.isEmpty());
}

void ScheduleDayTest::readsZonesOfTheModelForm()
{
    const auto day = ScheduleDay::fromVariant(JsonTexts::read(R"({"zones": ["aaaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee",
                                      "{aaaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}", "hall", null, 5]})"));

    QCOMPARE(day.zones, (QSet<QUuid>{hall, QUuid()}));
    QVERIFY(ScheduleDay::fromVariant(JsonTexts::read(R"({"zones": "hall"})")).zones.isEmpty());
}

void ScheduleDayTest::readsWhatItCan_data()
{
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("empty") << QByteArray("{}");
    QTest::newRow("nulls") << QByteArray(
        R"({"uid": null, "name": null, "points": null, "daysOfWeek": null, "week_days": null, "zones": null})");
    QTest::newRow("wrong types") << QByteArray(
        R"({"uid": 5, "name": {}, "points": "a", "daysOfWeek": {}, "week_days": {}, "zones": 5})");
    QTest::newRow("no map") << QByteArray("[1]");
}

void ScheduleDayTest::readsWhatItCan()
{
    QFETCH(QByteArray, text);

    QVERIFY(ScheduleDay::fromVariant(JsonTexts::read(text)) == ScheduleDay());
    QVERIFY(readEntity(text) == ScheduleDay());
}

void ScheduleDayTest::elementsThatAreNoMapsAreEmptyPoints()
{
    const QByteArray text = R"({"points": [5, null, [{"time": "07:00:00"}], "07:00:00"]})";

    QVERIFY(ScheduleDay::fromVariant(JsonTexts::read(text)).points == std::vector<ScheduleDayPoint>(4));
    QVERIFY(readEntity(text).points == std::vector<ScheduleDayPoint>(4));
}

void ScheduleDayTest::readsTenThousandPoints()
{
    auto day = someDay();
    day.points.clear();
    for (int i = 0; i < 10000; ++i)
        day.points.push_back({QTime(0, 0).addSecs(i), power(i)});
    auto shuffled = day;
    std::reverse(shuffled.points.begin(), shuffled.points.end());

    QVERIFY(ScheduleDay::fromVariant(shuffled.toVariant()) == day);
    const auto text = JsonTexts::written(JsonAPI::ScheduleDay::toVariant(shuffled));
    QVERIFY(JsonAPI::ScheduleDay::fromVariant(JsonTexts::entity(text)) == day);
}

void ScheduleDayTest::comparesByAllFields()
{
    const auto differs = [](void (*change)(ScheduleDay &)) {
        auto day = someDay();
        change(day);
        return !(day == someDay());
    };
    QVERIFY(someDay() == someDay());
    QVERIFY(differs([](auto &day) { day.uid = hall; }));
    QVERIFY(differs([](auto &day) { day.name.clear(); }));
    QVERIFY(differs([](auto &day) { day.points.pop_back(); }));
    QVERIFY(differs([](auto &day) { day.points.front().time = QTime(7, 30, 16); }));
    QVERIFY(differs([](auto &day) { day.points.front().actions = power(99); }));
    QVERIFY(differs([](auto &day) { day.daysOfWeek.insert(6); }));
    QVERIFY(differs([](auto &day) { day.zones.remove(hall); }));
}

void ScheduleDayTest::comparesWeeks()
{
    const ScheduleWeek week{uid, "Неделя", {hall, kitchen}};

    QVERIFY((week == ScheduleWeek{uid, "Неделя", {hall, kitchen}}));
    QVERIFY(!(week == ScheduleWeek{hall, "Неделя", {hall, kitchen}}));
    QVERIFY(!(week == ScheduleWeek{uid, "неделя", {hall, kitchen}}));
    QVERIFY(!(week == ScheduleWeek{uid, "Неделя", {kitchen, hall}}));
}

ONDIRA_TEST(ScheduleDayTest)
#include "ScheduleDayTest.moc"
