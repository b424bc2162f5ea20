// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/BlueprintRunner.h"
#include "SiteFixture.h"
#include "demo/SiteLoader.h"
#include "demo/SiteObjects.h"
#include "model/StandardBlueprints.h"
#include "support/TestBase.h"

using namespace SiteFixture;
using Demo::BlueprintRunner;
using Demo::DemoSite;
using Datatype = Model::ActionDatatype;
using Mode = Model::DeviceMode::Mode;

namespace {

const QUuid output("{c0000000-0000-0000-0000-000000000001}");
const QUuid worker("{c0000000-0000-0000-0000-000000000002}");

QDateTime evening()
{
    return QDateTime(QDate(2026, 11, 20), QTime(22, 30), Qt::UTC); // a Friday
}

int powerOf(const DemoSite &site, const char *device)
{
    return site.device(QUuid(device))->state.value("power", -1).toInt();
}

Model::ActionBlueprintInstance onTill(const QUuid &uid)
{
    Model::ActionBlueprintInstance instance;
    instance.blueprint = uid;
    instance.zones = {QUuid(till)};
    return instance;
}

} // namespace

class BlueprintRunnerTest : public TestBase
{
    Q_OBJECT

private slots:
    void worksOut_data();
    void worksOut();
    void missingValueLeavesThePower_data();
    void missingValueLeavesThePower();
    void circleOfWiresEnds();
    void deepChainEnds();
    void conditionDecides_data();
    void conditionDecides();
    void blueprintsWithinBlueprintsRun();
    void blueprintWithinItselfEnds();
    void outdoorSensorSetsThePower_data();
    void outdoorSensorSetsThePower();
    void indoorSensorMovesThePower_data();
    void indoorSensorMovesThePower();
    void outputPressesButtons();
    void everyNodeTypeIsKnownAndSpeaksBothLanguages();
    void builtInBlueprintsCanRun();
};

void BlueprintRunnerTest::worksOut_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QVariantMap>("properties");
    QTest::addColumn<int>("power");

    QTest::newRow("integer") << "type/integer" << QVariantMap{{"value", 33}} << 33;
    QTest::newRow("number is rounded") << "type/double" << QVariantMap{{"value", 33.6}} << 34;
    QTest::newRow("yes is full power") << "type/bool" << QVariantMap{{"value", true}} << 100;
    QTest::newRow("sum") << "math/add" << QVariantMap{{"a", 30.0}, {"b", 12.0}} << 42;
    QTest::newRow("difference below 0") << "math/subtract" << QVariantMap{{"a", 30.0}, {"b", 42.0}} << 0;
    QTest::newRow("product beyond any number") << "math/multiply" << QVariantMap{{"a", 1e300}, {"b", 1e300}} << 0;
    QTest::newRow("quotient") << "math/divide" << QVariantMap{{"a", 30.0}, {"b", 2.0}} << 15;
    QTest::newRow("division by zero") << "math/divide" << QVariantMap{{"a", 30.0}, {"b", 0.0}} << 0;
    QTest::newRow("limit") << "math/limit" << QVariantMap{{"value", 99.0}, {"max", 60.0}} << 60;
    QTest::newRow("limits the wrong way round")
        << "math/limit" << QVariantMap{{"value", 99.0}, {"min", 60.0}, {"max", 10.0}} << 60;
    QTest::newRow("scale downwards") << "math/scale" << QVariantMap{{"value", 25.0}, {"to_min", 100.0}, {"to_max", 0.0}}
                                     << 75;
    QTest::newRow("scale of an empty range")
        << "math/scale" << QVariantMap{{"value", 25.0}, {"from_min", 5.0}, {"from_max", 5.0}} << 100;
    QTest::newRow("less") << "compare/less" << QVariantMap{{"a", 1.0}, {"b", 2.0}} << 100;
    QTest::newRow("not greater") << "compare/greater" << QVariantMap{{"a", 1.0}, {"b", 2.0}} << 0;
    QTest::newRow("equal texts") << "compare/equal" << QVariantMap{{"a", "x"}, {"b", "x"}} << 100;
    QTest::newRow("text and number") << "compare/equal" << QVariantMap{{"a", "1"}, {"b", 2.0}} << 0;
    QTest::newRow("between, at the end") << "compare/between" << QVariantMap{{"value", 100.0}} << 100;
    QTest::newRow("and") << "logic/and" << QVariantMap{{"a", true}, {"b", false}} << 0;
    QTest::newRow("or") << "logic/or" << QVariantMap{{"a", true}, {"b", false}} << 100;
    QTest::newRow("not") << "logic/not" << QVariantMap{{"value", false}} << 100;
    QTest::newRow("choice") << "logic/select" << QVariantMap{{"condition", false}, {"else", 12.0}} << 12;
    QTest::newRow("weekday") << "time/weekday" << QVariantMap() << 5;
    QTest::newRow("minute, clamped") << "time/minute" << QVariantMap() << 100;
    QTest::newRow("over midnight") << "time/between" << QVariantMap{{"from", "22:00"}, {"until", "06:00"}} << 100;
    QTest::newRow("over midnight, by day") << "time/between" << QVariantMap{{"from", "23:00"}, {"until", "06:00"}} << 0;
    QTest::newRow("no time") << "time/between" << QVariantMap{{"from", "late"}} << 0;
    QTest::newRow("power of the zones") << "zones/power" << QVariantMap() << 50;
    QTest::newRow("failures of the zones") << "zones/failed" << QVariantMap() << 0;
}

void BlueprintRunnerTest::worksOut()
{
    QFETCH(QString, type);
    QFETCH(QVariantMap, properties);
    QFETCH(int, power);
    DemoSite site(fullData());
    Model::ActionBlueprint graph("Проба", QUuid(nobody));
    graph.addNode("output", output);
    graph.addNode(type, worker);
    for (auto it = properties.begin(); it != properties.end(); ++it)
        graph.property(worker, it.key())->value = Datatype(it.value());
    graph.connect(worker, "value", output, "value");
    site.put(graph);

    BlueprintRunner(site, evening()).run(onTill(graph.uid));

    QCOMPARE(powerOf(site, manualLamp), power);
    QCOMPARE(powerOf(site, contactor), 0);
}

void BlueprintRunnerTest::missingValueLeavesThePower_data()
{
    QTest::addColumn<QString>("type");

    QTest::newRow("no device") << "device/property";
    QTest::newRow("failure of no device") << "device/failed";
    QTest::newRow("unknown node") << "magic";
    QTest::newRow("an output") << "output_mode";
}

void BlueprintRunnerTest::missingValueLeavesThePower()
{
    QFETCH(QString, type);
    DemoSite site(fullData());
    Model::ActionBlueprint graph("Проба", QUuid(nobody));
    graph.addNode("output", output);
    graph.addNode(type, worker);
    const QUuid sum("{c0000000-0000-0000-0000-000000000003}");
    graph.addNode("math/add", sum);
    graph.connect(worker, "value", sum, "a");
    graph.connect(sum, "value", output, "value");
    site.put(graph);

    BlueprintRunner(site, evening()).run(onTill(graph.uid));

    QCOMPARE(powerOf(site, manualLamp), 60);
}

void BlueprintRunnerTest::circleOfWiresEnds()
{
    DemoSite site(fullData());
    Model::ActionBlueprint graph("Круг", QUuid(nobody));
    graph.addNode("math/add", worker);
    graph.addNode("output", output);
    graph.connect(worker, "value", worker, "a");
    graph.connect(worker, "value", output, "value");
    site.put(graph);

    BlueprintRunner(site, evening()).run(onTill(graph.uid));

    QCOMPARE(powerOf(site, manualLamp), 60);
}

void BlueprintRunnerTest::deepChainEnds()
{
    DemoSite site(fullData());
    Model::ActionBlueprint graph("Цепь", QUuid(nobody));
    graph.addNode("output", output);
    QUuid last = output;
    for (int i = 0; i < 2000; ++i) {
        const auto uid = graph.addNode("type/integer", QUuid::createUuid());
        graph.connect(uid, "value", last, "value");
        last = uid;
    }
    site.put(graph);

    BlueprintRunner(site, evening()).run(onTill(graph.uid));

    QCOMPARE(powerOf(site, manualLamp), 60); // too deep to be worked out
}

void BlueprintRunnerTest::conditionDecides_data()
{
    QTest::addColumn<bool>("condition");
    QTest::addColumn<int>("power");

    QTest::newRow("holds") << true << 20;
    QTest::newRow("does not") << false << 60;
}

void BlueprintRunnerTest::conditionDecides()
{
    QFETCH(bool, condition);
    QFETCH(int, power);
    DemoSite site(fullData());
    Model::ActionBlueprint graph("Условие", QUuid(nobody));
    const QUuid value("{c0000000-0000-0000-0000-000000000003}");
    graph.addNode("output", output);
    graph.addNode("type/bool", worker);
    graph.addNode("type/integer", value);
    graph.property(worker, "value")->value = Datatype(condition);
    graph.property(value, "value")->value = Datatype(20LL);
    graph.connect(worker, "value", output, "condition");
    graph.connect(value, "value", output, "value");
    site.put(graph);

    BlueprintRunner(site, evening()).run(onTill(graph.uid));

    QCOMPARE(powerOf(site, manualLamp), power);
}

void BlueprintRunnerTest::blueprintsWithinBlueprintsRun()
{
    DemoSite site(fullData());
    Model::ActionBlueprint graph("Внешний", QUuid(nobody));
    graph.addNode(QString("nested_action/") + blueprint, output);
    graph.addNode("type/integer", worker);
    graph.property(worker, "value")->value = Datatype(21LL);
    graph.connect(worker, "value", output, "half");
    site.put(graph);

    BlueprintRunner(site, evening()).run(onTill(graph.uid));

    QCOMPARE(powerOf(site, lamp), 42);
}

void BlueprintRunnerTest::blueprintWithinItselfEnds()
{
    DemoSite site(fullData());
    Model::ActionBlueprint graph("Сам", QUuid(nobody));
    for (int i = 0; i < 10; ++i)
        graph.addNode(QString("nested_action/") + nobody, QUuid::createUuid());
    graph.addNode("output_mode", output);
    site.put(graph);

    BlueprintRunner(site, evening()).run(onTill(graph.uid));

    QCOMPARE(site.device(QUuid(lamp))->mode, Mode::Manual);
}

void BlueprintRunnerTest::outdoorSensorSetsThePower_data()
{
    QTest::addColumn<double>("lux");
    QTest::addColumn<int>("power");

    QTest::newRow("dark") << 10.0 << 100;
    QTest::newRow("dusk") << 1025.0 << 50;
    QTest::newRow("bright") << 9000.0 << 0;
}

void BlueprintRunnerTest::outdoorSensorSetsThePower()
{
    QFETCH(double, lux);
    QFETCH(int, power);
    DemoSite site(fullData());
    site.setState(QUuid(sensor), {{"brightness", lux}});
    auto instance = onTill(Model::StandardBlueprints::outdoorLuxSensorUid());
    instance.properties = {{"lightSensor", Datatype::device(QUuid(sensor))}};

    BlueprintRunner(site, evening()).run(instance);

    QCOMPARE(powerOf(site, lamp), power);
}

void BlueprintRunnerTest::indoorSensorMovesThePower_data()
{
    QTest::addColumn<double>("lux");
    QTest::addColumn<int>("power");

    QTest::newRow("too dark") << 300.0 << 60; // 50 and 10 more
    QTest::newRow("far too dark: a step") << 0.0 << 70;
    QTest::newRow("about right") << 490.0 << 50;
    QTest::newRow("too bright") << 600.0 << 45;
}

void BlueprintRunnerTest::indoorSensorMovesThePower()
{
    QFETCH(double, lux);
    QFETCH(int, power);
    DemoSite site(fullData());
    site.setState(QUuid(sensor), {{"brightness", lux}});
    auto instance = onTill(Model::StandardBlueprints::indoorLuxSensorUid());
    instance.properties = {{"lightSensor", Datatype::device(QUuid(sensor))}};

    BlueprintRunner(site, evening()).run(instance);

    QCOMPARE(powerOf(site, lamp), power);
}

void BlueprintRunnerTest::outputPressesButtons()
{
    DemoSite site(fullData());
    Model::ActionBlueprint graph("Кнопка", QUuid(nobody));
    graph.addNode("output_button", output);
    graph.property(output, "button")->value = Datatype::button(QUuid(button));
    site.put(graph);

    BlueprintRunner(site, evening()).run(onTill(graph.uid));

    QCOMPARE(site.button(QUuid(button))->state, Model::ButtonState::State::On);
}

void BlueprintRunnerTest::everyNodeTypeIsKnownAndSpeaksBothLanguages()
{
    const DemoSite site(fullData());
    const auto nodes = Demo::SiteObjects::nodes();
    QVERIFY(nodes.size() >= 25);
    QSet<QString> types;
    for (const auto &node : nodes) {
        const auto &russian = node.description;
        const auto english = node.localized("en");
        QVERIFY2(BlueprintRunner::knowsNode(site, russian.type), qPrintable(russian.type));
        QVERIFY2(!types.contains(russian.type), qPrintable(russian.type));
        types.insert(russian.type);
        QVERIFY2(english.name != russian.name && english.description != russian.description
                     && english.category != russian.category,
                 qPrintable(russian.type));
        for (const auto &input : russian.inputs) {
            QVERIFY2(english.input(input.name)->description != input.description, qPrintable(russian.type));
            QVERIFY2(input.linkedProperty.isEmpty() || russian.property(input.linkedProperty),
                     qPrintable(russian.type));
        }
        for (const auto &property : russian.properties) {
            QVERIFY2(english.property(property.name)->description != property.description, qPrintable(russian.type));
            QVERIFY2(property.defaultValue.type() == property.valueLimits.type(), qPrintable(russian.type));
        }
    }
}

void BlueprintRunnerTest::builtInBlueprintsCanRun()
{
    DemoSite site(Demo::SiteLoader::builtIn());
    const auto check = [&site](const Model::ActionSequence &sequence) {
        JsonAPI::Errors errors;
        for (const auto &instance : sequence.instances)
            BlueprintRunner::check(site, instance, errors);
        return errors.isEmpty();
    };
    for (const auto &record : site.data().buttons)
        QVERIFY2(check(record.button.blueprints), qPrintable(record.button.name));
    for (const auto &day : site.data().days) {
        for (const auto &point : day.points)
            QVERIFY2(check(point.actions), qPrintable(day.name));
    }
    for (const auto &record : site.data().blueprints) {
        for (const auto &node : record.blueprint.nodes)
            QVERIFY2(BlueprintRunner::knowsNode(site, node.type), qPrintable(node.type));
    }
}

ONDIRA_TEST(BlueprintRunnerTest)
#include "BlueprintRunnerTest.moc"
