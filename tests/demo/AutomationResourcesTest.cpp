// SPDX-License-Identifier: GPL-3.0-or-later
#include "Documents.h"
#include "SiteFixture.h"
#include "support/TestBase.h"

#include <QSignalSpy>

using namespace SiteFixture;
using List = Demo::DemoSite::List;

namespace {

const QByteArray nullUid = "{00000000-0000-0000-0000-000000000000}";
const QByteArray setPowerUid = "{00000ec0-0002-0000-0000-000000000002}";

QByteArray node(const QByteArray &uid, const QByteArray &type, const QByteArray &inputs = "[]")
{
    return R"({"uid": ")" + uid + R"(", "type": ")" + type + R"(", "x": 1, "y": 2, "inputs": )" + inputs
        + R"(, "outputs": [], "properties": []})";
}

QByteArray graph(const QByteArray &id, const QByteArray &nodes)
{
    return entity("action_blueprint", id, R"({"name": "Новый", "system": true, "nodes": )" + nodes + "}");
}

QByteArray day(const QByteArray &id, const QByteArray &attributes, const QByteArray &zones = "[]")
{
    return R"({"type": "schedule_day", "id": ")" + id + R"(", "attributes": )" + attributes
        + R"(, "relationships": {"zones": {"data": )" + zones + "}}}";
}

QByteArray instance(const QByteArray &uid, const QByteArray &zones, const QByteArray &properties = "[]")
{
    return entity("oneshot_blueprint", uid, R"({"zones": )" + zones + R"(, "properties": )" + properties + "}");
}

int powerOf(const Desk &desk, const char *device)
{
    return desk.site.device(QUuid(device))->state.value("power", -1).toInt();
}

} // namespace

class AutomationResourcesTest : public TestBase
{
    Q_OBJECT

private slots:
    void addsBlueprint();
    void changesBlueprintAndForgetsItsOldName();
    void removedBlueprintLeavesSequences();
    void systemBlueprintsStay_data();
    void systemBlueprintsStay();
    void refusesBlueprint_data();
    void refusesBlueprint();
    void runsUserBlueprint_data();
    void runsUserBlueprint();
    void blueprintWithAnUnknownNodeIsAnError();
    void sensorBlueprintWithoutSensorDoesNothing();
    void tooManyInstancesAreAnError();
    void runIsNoted();
    void addsDay();
    void pointsComeInAnyOrder();
    void dayIsChangedWithItsZones();
    void removesDay();
    void refusesDay_data();
    void refusesDay();
    void userMayOnlyRun_data();
    void userMayOnlyRun();
};

void AutomationResourcesTest::addsBlueprint()
{
    Desk desk(fullData());
    QSignalSpy changed(&desk.site, &Demo::DemoSite::changed);

    const auto reply = desk.post("blueprints", listOf({graph(nullUid, listOf({node(nobody, "output_mode")}))}));

    const auto added = related(reply, "added");
    QCOMPARE(added.size(), 1);
    const auto record = desk.site.blueprint(QUuid(added.first()))->blueprint;
    QCOMPARE(record.name, QString("Новый"));
    QVERIFY(!record.system); // that is not for clients to say
    QCOMPARE(record.nodes.size(), size_t(1));
    QCOMPARE(record.nodes.front().position.y, 2.0);
    QCOMPARE(changed.size(), 2);
    QCOMPARE(changed[0].first().value<List>(), List::Blueprints);
    QCOMPARE(changed[1].first().value<List>(), List::ActionNodes);
}

void AutomationResourcesTest::changesBlueprintAndForgetsItsOldName()
{
    Desk desk(fullData());
    QCOMPARE(desk.site.blueprint(QUuid(blueprint))->localized("en").name, QString("Twice"));

    const auto reply =
        desk.post("blueprints", listOf({entity("action_blueprint", blueprint, R"({"name": "Вдвое больше"})")}));

    QCOMPARE(related(reply, "changed"), QStringList(blueprint));
    const auto *record = desk.site.blueprint(QUuid(blueprint));
    QCOMPARE(record->blueprint.nodes.size(), size_t(3));
    QCOMPARE(record->localized("en").name, QString("Вдвое больше"));
}

void AutomationResourcesTest::removedBlueprintLeavesSequences()
{
    Desk desk(fullData());
    const auto twice = QByteArray(R"({"blueprint": ")") + blueprint + R"(", "zones": [], "properties": []})";
    desk.post("buttons",
              listOf({entity("button", button, R"({"blueprints": )" + listOf({twice, powerStep("[]", "1")}) + "}")}));

    QCOMPARE(related(desk.remove("blueprints", listOf({entity("action_blueprint", blueprint)})), "deleted"),
             QStringList(blueprint));

    const auto &left = desk.site.button(QUuid(button))->button.blueprints.instances;
    QCOMPARE(left.size(), size_t(1));
    QCOMPARE(left.front().blueprint, QUuid(setPowerUid));
}

void AutomationResourcesTest::systemBlueprintsStay_data()
{
    QTest::addColumn<QByteArray>("uid");

    for (int n = 1; n <= 6; ++n) {
        const auto number = QByteArray::number(n);
        QTest::addRow("%d", n) << "{00000ec0-000" + number + "-0000-0000-00000000000" + number + "}";
    }
}

void AutomationResourcesTest::systemBlueprintsStay()
{
    QFETCH(QByteArray, uid);
    Desk desk(fullData());
    QVERIFY(desk.site.blueprint(QUuid(uid)));

    QCOMPARE(codes(desk.post("blueprints", listOf({graph(uid, "[]")}))), QStringList("invalid_data_error"));
    QCOMPARE(codes(desk.remove("blueprints", listOf({entity("action_blueprint", uid)}))),
             QStringList("invalid_data_error"));

    QVERIFY(!desk.site.blueprint(QUuid(uid))->blueprint.nodes.empty());
    QVERIFY(desk.site.blueprint(QUuid(uid))->blueprint.system);
}

void AutomationResourcesTest::refusesBlueprint_data()
{
    QTest::addColumn<QByteArray>("data");

    const auto of = [](const QByteArray &nodes) { return graph(blueprint, nodes); };
    QTest::newRow("other type") << entity("button", blueprint);
    QTest::newRow("name is a number") << entity("action_blueprint", blueprint, R"({"name": 7})");
    QTest::newRow("nodes is a map") << of("{}");
    QTest::newRow("node is a text") << of(R"(["output"])");
    QTest::newRow("node without uid") << of(R"([{"type": "output"}])");
    QTest::newRow("node of a null uid") << of(listOf({node(nullUid, "output")}));
    QTest::newRow("two nodes of one uid") << of(listOf({node(nobody, "output"), node(nobody, "output")}));
    QTest::newRow("type is a number") << of(QByteArray(R"([{"uid": ")") + nobody + R"(", "type": 1}])");
    QTest::newRow("inputs is a text") << of(listOf({node(nobody, "output", "\"value\"")}));
    QTest::newRow("input without name") << of(listOf({node(nobody, "output", "[{}]")}));
    QTest::newRow("id is a word") << graph("night", "[]");
}

void AutomationResourcesTest::refusesBlueprint()
{
    QFETCH(QByteArray, data);
    Desk desk(fullData());
    QSignalSpy changed(&desk.site, &Demo::DemoSite::changed);

    QCOMPARE(codes(desk.post("blueprints", listOf({data}))), QStringList("invalid_data_error"));
    QVERIFY(changed.isEmpty());
}

void AutomationResourcesTest::runsUserBlueprint_data()
{
    QTest::addColumn<QByteArray>("properties");
    QTest::addColumn<int>("expected");

    const QByteArray value = R"(, "value": {"type": "integer", "value": 20}}])";
    QTest::newRow("as its author left it") << QByteArray("[]") << 30;
    QTest::newRow("by global name") << R"([{"node": "", "property": "half")" + value << 40;
    QTest::newRow("by node and name") << R"([{"node": "{b1000000-0000-0000-0000-000000000001}", "property": "value")"
            + value << 40;
    QTest::newRow("unknown property") << R"([{"node": "", "property": "third")" + value << 30;
}

void AutomationResourcesTest::runsUserBlueprint()
{
    QFETCH(QByteArray, properties);
    QFETCH(int, expected);
    Desk desk(fullData());

    const auto reply =
        desk.post("oneshot_blueprint", listOf({instance(blueprint, listOf({quoted(till)}), properties)}));

    QCOMPARE(codes(reply), QStringList());
    QCOMPARE(powerOf(desk, lamp), expected);
    QCOMPARE(powerOf(desk, contactor), 0); // in another zone
}

void AutomationResourcesTest::blueprintWithAnUnknownNodeIsAnError()
{
    Desk desk(fullData());
    desk.post("blueprints", listOf({graph(blueprint, listOf({node(nobody, "output_rocket")}))}));

    QCOMPARE(codes(desk.post("oneshot_blueprint", listOf({instance(blueprint, listOf({quoted(till)}))}))),
             QStringList("unknown_blueprint_error"));
}

void AutomationResourcesTest::sensorBlueprintWithoutSensorDoesNothing()
{
    Desk desk(fullData());
    QSignalSpy changed(&desk.site, &Demo::DemoSite::changed);

    for (const auto *uid : {"{00000ec0-0001-0000-0000-000000000001}", "{00000ec0-0004-0000-0000-000000000004}"})
        QCOMPARE(codes(desk.post("oneshot_blueprint", listOf({instance(uid, listOf({quoted(till)}))}))), QStringList());

    QVERIFY(changed.isEmpty());
}

void AutomationResourcesTest::tooManyInstancesAreAnError()
{
    Desk desk(fullData());
    QByteArray many = instance(blueprint, "[]");
    for (int i = 0; i < 1000; ++i)
        many += "," + instance(blueprint, "[]");

    QCOMPARE(codes(desk.post("oneshot_blueprint", "[" + many + "]")), QStringList("invalid_data_error"));
}

void AutomationResourcesTest::runIsNoted()
{
    Desk desk(fullData());
    QSignalSpy noted(&desk.site, &Demo::DemoSite::noted);

    desk.ask(document("POST", "oneshot_blueprint", listOf({instance(blueprint, listOf({quoted(till)}))})), "user");

    QCOMPARE(noted.size(), 1);
    QCOMPARE(noted.first().at(1).toString(), QString("user"));
    QCOMPARE(noted.first().at(2).toString(), QString("Вдвое"));
}

void AutomationResourcesTest::addsDay()
{
    Desk desk(fullData());

    const auto reply =
        desk.post("schedule_days",
                  listOf({day(nullUid,
                              R"({"name": "День", "week_days": [], "points": [{"time": "00:00:00", "blueprints": [)"
                                  + powerStep("[]", "0") + "]}]}")}));

    const auto added = related(reply, "added");
    QCOMPARE(added.size(), 1);
    const auto *record = desk.site.day(QUuid(added.first()));
    QCOMPARE(record->name, QString("День"));
    QVERIFY(record->daysOfWeek.isEmpty());
    QCOMPARE(record->points.size(), size_t(1));
    QCOMPARE(record->points.front().actions.instances.size(), size_t(1));
}

void AutomationResourcesTest::pointsComeInAnyOrder()
{
    Desk desk(fullData());

    desk.post("schedule_days", listOf({day(schedule, R"({"points": [{"time": "21:00:00"}, {"time": "07:30:15"}]})")}));

    const auto &points = desk.site.day(QUuid(schedule))->points;
    QCOMPARE(points.size(), size_t(2));
    QCOMPARE(points.front().time, QTime(7, 30, 15));
}

void AutomationResourcesTest::dayIsChangedWithItsZones()
{
    Desk desk(fullData());

    desk.post("schedule_days", listOf({day(schedule, R"({"name": "Другой"})", listOf({entity("zone", door)}))}));
    QCOMPARE(desk.site.day(QUuid(schedule))->zones, QSet<QUuid>{QUuid(door)});
    QCOMPARE(desk.site.day(QUuid(schedule))->points.size(), size_t(2));

    desk.post("schedule_days", listOf({entity("schedule_day", schedule, R"({"name": "Третий"})")}));
    QVERIFY(desk.site.day(QUuid(schedule))->zones.isEmpty()); // no relation is written for no zone
}

void AutomationResourcesTest::removesDay()
{
    Desk desk(fullData());

    QCOMPARE(related(desk.remove("schedule_days", listOf({entity("schedule_day", schedule)})), "deleted"),
             QStringList(schedule));
    QVERIFY(desk.site.data().days.empty());
}

void AutomationResourcesTest::refusesDay_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("code");

    const auto point = [](const QByteArray &map) { return day(schedule, R"({"points": [)" + map + "]}"); };
    QTest::newRow("eighth day") << day(schedule, R"({"week_days": [7]})") << "invalid_data_error";
    QTest::newRow("day by name") << day(schedule, R"({"week_days": ["Monday"]})") << "invalid_data_error";
    QTest::newRow("days is a number") << day(schedule, R"({"week_days": 1})") << "invalid_data_error";
    QTest::newRow("points is a map") << day(schedule, R"({"points": {}})") << "invalid_data_error";
    QTest::newRow("point without time") << point("{}") << "invalid_data_error";
    QTest::newRow("time is no time") << point(R"({"time": "noon"})") << "invalid_data_error";
    QTest::newRow("hour too late") << point(R"({"time": "25:00:00"})") << "invalid_data_error";
    QTest::newRow("sequence is a text") << point(R"({"time": "12:00:00", "blueprints": "x"})") << "invalid_data_error";
    QTest::newRow("unknown blueprint") << point(QByteArray(R"({"time": "12:00:00", "blueprints": [{"blueprint": ")")
                                                + nobody + "\"}]}")
                                       << "unknown_blueprint_error";
    QTest::newRow("unknown zone") << day(schedule, "{}", listOf({entity("zone", nobody)})) << "unknown_uid_error";
    QTest::newRow("other type") << entity("zone", schedule) << "invalid_data_error";
}

void AutomationResourcesTest::refusesDay()
{
    QFETCH(QByteArray, data);
    QFETCH(QString, code);
    Desk desk(fullData());
    QSignalSpy changed(&desk.site, &Demo::DemoSite::changed);

    QCOMPARE(codes(desk.post("schedule_days", listOf({data}))), QStringList(code));
    QVERIFY(changed.isEmpty());
}

void AutomationResourcesTest::userMayOnlyRun_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QByteArray>("link");
    QTest::addColumn<bool>("isAllowed");

    for (const auto *resource : {"blueprints", "schedule_days"}) {
        QTest::addRow("change %s", resource) << QByteArray("POST") << QByteArray(resource) << false;
        QTest::addRow("remove %s", resource) << QByteArray("DELETE") << QByteArray(resource) << false;
    }
    QTest::newRow("run") << QByteArray("POST") << QByteArray("oneshot_blueprint") << true;
}

void AutomationResourcesTest::userMayOnlyRun()
{
    QFETCH(QByteArray, method);
    QFETCH(QByteArray, link);
    QFETCH(bool, isAllowed);
    Desk desk(fullData());

    QCOMPARE(codes(desk.ask(document(method, link), "user")),
             isAllowed ? QStringList() : QStringList("access_denied_error"));
}

ONDIRA_TEST(AutomationResourcesTest)
#include "AutomationResourcesTest.moc"
