// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/StandardBlueprints.h"
#include "model/JsonTexts.h"
#include "model/json/ActionBlueprint.h"
#include "support/TestBase.h"

using namespace Model::StandardBlueprints;
using Model::ActionBlueprint;
using Model::ActionDatatype;
using Model::ActionValueLimits;

namespace {

// The uids of nodes are unique, and every wire comes from an output of a node that is there.
bool holdsTogether(const ActionBlueprint &blueprint)
{
    QSet<QUuid> uids;
    for (const auto &node : blueprint.nodes) {
        uids.insert(node.uid);
        for (const auto &input : node.inputs) {
            const auto *source = blueprint.node(input.connectionNode);
            if (!source || !source->output(input.connectionProperty))
                return false;
        }
    }
    return static_cast<std::size_t>(uids.size()) == blueprint.nodes.size();
}

// Whether the node feeds the power of the zones, along whatever wires.
bool leadsToOutput(const ActionBlueprint &blueprint, const QUuid &uid, const QString &output)
{
    const auto targets = blueprint.getOutputConnections(uid, output);
    return std::any_of(targets.begin(), targets.end(), [&](const auto &target) {
        const auto *node = blueprint.node(target.first);
        if (node->type == "output")
            return target.second == "value" && node->property("property")->value.toString() == "power";
        return leadsToOutput(blueprint, node->uid, "value");
    });
}

QStringList exposedNames(const ActionBlueprint &blueprint)
{
    QStringList names;
    for (const auto &property : blueprint.getExposedProperties())
        names << property.property;
    names.sort();
    return names;
}

Model::NodeDescription described(const QString &type, const QString &category, int inputs, int outputs, int properties)
{
    Model::NodeDescription description(type, type);
    description.category = category;
    description.inputs.resize(static_cast<std::size_t>(inputs));
    description.outputs.resize(static_cast<std::size_t>(outputs));
    description.properties.resize(static_cast<std::size_t>(properties));
    return description;
}

} // namespace

class StandardBlueprintsTest : public TestBase
{
    Q_OBJECT

private slots:
    void uidCarriesTheNumberTwice_data();
    void uidCarriesTheNumberTwice();
    void fixedUids();
    void setPowerIsComplete();
    void setModeIsComplete_data();
    void setModeIsComplete();
    void luxSensorsAreComplete_data();
    void luxSensorsAreComplete();
    void exposedPropertiesOfLuxSensors_data();
    void exposedPropertiesOfLuxSensors();
    void luxSensorsChooseASensor();
    void graphsGoThroughBothDocuments();
    void allNodesStandInColumns();
    void allNodesWithoutCategoryStandAtTheStart();
    void allNodesOfNothing();
    void allNodesHaveFreshUids();
};

void StandardBlueprintsTest::uidCarriesTheNumberTwice_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("expected");

    QTest::newRow("0") << 0 << "{00000ec0-0000-0000-0000-000000000000}";
    QTest::newRow("1") << 1 << "{00000ec0-0001-0000-0000-000000000001}";
    QTest::newRow("101") << 101 << "{00000ec0-0065-0000-0000-000000000065}";
    QTest::newRow("the low byte alone at the end") << 0x1234 << "{00000ec0-1234-0000-0000-000000000034}";
    QTest::newRow("256") << 256 << "{00000ec0-0100-0000-0000-000000000000}";
    QTest::newRow("largest") << 65535 << "{00000ec0-ffff-0000-0000-0000000000ff}";
}

void StandardBlueprintsTest::uidCarriesTheNumberTwice()
{
    QFETCH(int, number);
    QFETCH(QString, expected);

    QCOMPARE(persistentUID(static_cast<unsigned short>(number)).toString(), expected);
}

void StandardBlueprintsTest::fixedUids()
{
    QCOMPARE(indoorLuxSensorUid().toString(), QString("{00000ec0-0001-0000-0000-000000000001}"));
    QCOMPARE(setPowerUid().toString(), QString("{00000ec0-0002-0000-0000-000000000002}"));
    QCOMPARE(setAutoModeUid().toString(), QString("{00000ec0-0003-0000-0000-000000000003}"));
    QCOMPARE(outdoorLuxSensorUid().toString(), QString("{00000ec0-0004-0000-0000-000000000004}"));
    QCOMPARE(setManualModeUid().toString(), QString("{00000ec0-0005-0000-0000-000000000005}"));
    QCOMPARE(debugAllNodesUid().toString(), QString("{00000ec0-0006-0000-0000-000000000006}"));
}

void StandardBlueprintsTest::setPowerIsComplete()
{
    const auto blueprint = setPower();

    QCOMPARE(blueprint.name, QString("Установить мощность"));
    QCOMPARE(blueprint.uid, setPowerUid());
    QVERIFY(blueprint.system);
    QCOMPARE(blueprint.nodes.size(), std::size_t(2));

    const auto &number = blueprint.nodes.at(0);
    QCOMPARE(number.uid, persistentUID(100));
    QCOMPARE(number.type, QString("type/integer"));
    QVERIFY((number.position == Model::Position{128, 256}));
    QVERIFY(number.inputs.empty());
    QCOMPARE(number.properties.size(), std::size_t(1));
    const auto &power = number.properties.front();
    QCOMPARE(power.name, QString("value"));
    QVERIFY(power.exposed);
    QVERIFY(power.value == ActionDatatype(0LL));
    QVERIFY(power.valueLimits == ActionValueLimits::integer(0, 100));
    QCOMPARE(power.userDescription, QString("Мощность"));
    QCOMPARE(power.globalName, QString("power"));

    const auto &output = blueprint.nodes.at(1);
    QCOMPARE(output.uid, persistentUID(101));
    QCOMPARE(output.type, QString("output"));
    QVERIFY((output.position == Model::Position{640, 256}));
    QCOMPARE(output.properties.size(), std::size_t(1));
    QCOMPARE(output.properties.front().name, QString("property"));
    QVERIFY(output.properties.front().value == ActionDatatype(QString("power")));
    QVERIFY(!output.properties.front().exposed);
    QVERIFY(output.inputs == (std::vector<Model::NodeInputInstance>{{"value", persistentUID(100), "value"}}));

    QCOMPARE(exposedNames(blueprint), QStringList{"power"});
}

void StandardBlueprintsTest::setModeIsComplete_data()
{
    QTest::addColumn<bool>("automatic");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("index");

    QTest::newRow("manual") << false << "Перевести в ручной режим" << 0;
    QTest::newRow("automatic") << true << "Перевести в автоматический режим" << 1;
}

void StandardBlueprintsTest::setModeIsComplete()
{
    QFETCH(bool, automatic);
    QFETCH(QString, name);
    QFETCH(int, index);

    const auto blueprint = automatic ? setAutoMode() : setManualMode();

    QCOMPARE(blueprint.name, name);
    QCOMPARE(blueprint.uid, automatic ? setAutoModeUid() : setManualModeUid());
    QVERIFY(blueprint.system);
    QCOMPARE(blueprint.nodes.size(), std::size_t(1));
    const auto &node = blueprint.nodes.front();
    QCOMPARE(node.uid, persistentUID(101));
    QCOMPARE(node.type, QString("output_mode"));
    QVERIFY((node.position == Model::Position{128, 256}));
    QVERIFY(node.inputs.empty() && node.outputs.empty());
    QCOMPARE(node.properties.size(), std::size_t(1));
    QCOMPARE(node.properties.front().name, QString("mode"));
    QVERIFY(node.properties.front().value == ActionDatatype(ActionDatatype::EnumDatatype{index}));
    QVERIFY(blueprint.getExposedProperties().empty());
}

void StandardBlueprintsTest::luxSensorsAreComplete_data()
{
    QTest::addColumn<bool>("indoor");
    QTest::addColumn<QString>("name");

    QTest::newRow("indoor") << true << "Мощность по внутреннему датчику освещенности";
    QTest::newRow("outdoor") << false << "Мощность по внешнему датчику освещенности";
}

void StandardBlueprintsTest::luxSensorsAreComplete()
{
    QFETCH(bool, indoor);
    QFETCH(QString, name);

    const auto blueprint = indoor ? indoorLuxSensor() : outdoorLuxSensor();

    QCOMPARE(blueprint.name, name);
    QCOMPARE(blueprint.uid, indoor ? indoorLuxSensorUid() : outdoorLuxSensorUid());
    QVERIFY(blueprint.system);
    QVERIFY(blueprint.nodes.size() > 5);
    QVERIFY(holdsTogether(blueprint));
    QCOMPARE(std::count_if(blueprint.nodes.begin(), blueprint.nodes.end(),
                           [](const auto &node) { return node.type == "output"; }),
             1);
    for (const auto &node : blueprint.nodes) {
        QVERIFY(!node.type.isEmpty());
        QVERIFY2(node.type == "output" || leadsToOutput(blueprint, node.uid, "value"), qPrintable(node.type));
    }
}

void StandardBlueprintsTest::exposedPropertiesOfLuxSensors_data()
{
    QTest::addColumn<bool>("indoor");
    QTest::addColumn<QString>("globalName");
    QTest::addColumn<QString>("description");
    QTest::addColumn<int>("least");
    QTest::addColumn<int>("largest");

    const auto row = [](bool indoor, const char *globalName, const char *description, int least, int largest) {
        QTest::addRow("%s, %s", indoor ? "indoor" : "outdoor", globalName)
            << indoor << globalName << description << least << largest;
    };
    row(true, "errorMargin", "Ошибка регулирования, лк", 0, 100000);
    row(true, "targetLux", "Целевая освещенность, лк", 0, 100000);
    row(true, "lowerBound", "Нижняя граница мощности, %", 0, 100);
    row(true, "upperBound", "Верхняя граница мощности, %", 0, 100);
    row(false, "minBrightness", "Мощность 100%, если освещенность меньше", 0, 100000);
    row(false, "maxBrightness", "Мощность 0%, если освещенность больше", 0, 100000);
    row(false, "lowerBound", "Нижняя граница мощности, %", 0, 100);
    row(false, "upperBound", "Верхняя граница мощности, %", 0, 100);
}

void StandardBlueprintsTest::exposedPropertiesOfLuxSensors()
{
    QFETCH(bool, indoor);
    QFETCH(QString, globalName);
    QFETCH(QString, description);
    QFETCH(int, least);
    QFETCH(int, largest);

    const auto blueprint = indoor ? indoorLuxSensor() : outdoorLuxSensor();
    const auto *property = blueprint.property(globalName);

    QVERIFY(property);
    QVERIFY(property->exposed);
    QCOMPARE(property->userDescription, description);
    QVERIFY(property->valueLimits == ActionValueLimits::integer(least, largest));
    QCOMPARE(property->value.type(), ActionDatatype::Type::Integer);
    QVERIFY(property->value.toInteger() >= least && property->value.toInteger() <= largest);
}

void StandardBlueprintsTest::luxSensorsChooseASensor()
{
    QCOMPARE(exposedNames(indoorLuxSensor()),
             (QStringList{"errorMargin", "lightSensor", "lowerBound", "targetLux", "upperBound"}));
    QCOMPARE(exposedNames(outdoorLuxSensor()),
             (QStringList{"lightSensor", "lowerBound", "maxBrightness", "minBrightness", "upperBound"}));
    for (const auto &blueprint : {indoorLuxSensor(), outdoorLuxSensor()}) {
        const auto *sensor = blueprint.property("lightSensor");
        QCOMPARE(sensor->userDescription, QString("Датчик освещенности"));
        QVERIFY(sensor->value == ActionDatatype::device(QUuid()));
        QCOMPARE(sensor->valueLimits.toEntity().entityType, ActionDatatype::EntityDatatype::EntityType::Device);
        QCOMPARE(sensor->valueLimits.toEntity().filter, QString("polling_light_sensor"));
        QVERIFY(blueprint.property("lowerBound")->value.toInteger()
                < blueprint.property("upperBound")->value.toInteger());
    }
}

void StandardBlueprintsTest::graphsGoThroughBothDocuments()
{
    for (const auto &blueprint : {setPower(), setAutoMode(), setManualMode(), indoorLuxSensor(), outdoorLuxSensor()}) {
        const auto model = JsonTexts::read(JsonTexts::written(blueprint.toVariant()));
        QVERIFY(ActionBlueprint::fromVariant(model) == blueprint);
        const auto wire = JsonTexts::written(JsonAPI::ActionBlueprint::toVariant(blueprint));
        QVERIFY(JsonAPI::ActionBlueprint::fromVariant(JsonTexts::entity(wire)) == blueprint);
    }
}

void StandardBlueprintsTest::allNodesStandInColumns()
{
    const auto blueprint = debugAllNodes({
        described("a", "Math", 2, 1, 3),
        described("b", "Math", 0, 0, 0),
        described("c", "Math", 1, 0, 0),
        described("d", "Logic", 1, 1, 1),
        described("e", "Math", 0, 0, 0),
    });

    QCOMPARE(blueprint.name, QString("Отладка: все узлы"));
    QCOMPARE(blueprint.uid, debugAllNodesUid());
    QVERIFY(blueprint.system);
    QStringList types;
    std::vector<Model::Position> positions;
    for (const auto &node : blueprint.nodes) {
        types << node.type;
        positions.push_back(node.position);
        QVERIFY(node.inputs.empty() && node.outputs.empty() && node.properties.empty());
    }
    QCOMPARE(types, (QStringList{"a", "b", "c", "d", "e"}));
    QVERIFY(positions == (std::vector<Model::Position>{{128, 128}, {128, 544}, {128, 672}, {512, 128}, {896, 128}}));
}

void StandardBlueprintsTest::allNodesWithoutCategoryStandAtTheStart()
{
    const auto blueprint = debugAllNodes({described("a", "", 0, 0, 0), described("b", "", 0, 0, 0),
                                          described("c", "Math", 0, 0, 0), described("d", "", 0, 0, 0)});

    QVERIFY((blueprint.nodes.at(0).position == Model::Position{-256, 128}));
    QVERIFY((blueprint.nodes.at(1).position == Model::Position{-256, 256}));
    QVERIFY((blueprint.nodes.at(2).position == Model::Position{128, 128}));
    QVERIFY((blueprint.nodes.at(3).position == Model::Position{512, 128}));
}

void StandardBlueprintsTest::allNodesOfNothing()
{
    QVERIFY(debugAllNodes({}).nodes.empty());
    QVERIFY(debugAllNodes({}).system);
}

void StandardBlueprintsTest::allNodesHaveFreshUids()
{
    const std::vector<Model::NodeDescription> descriptions(1000, described("a", "Math", 1, 1, 1));

    QSet<QUuid> uids;
    for (const auto &blueprint : {debugAllNodes(descriptions), debugAllNodes(descriptions)}) {
        for (const auto &node : blueprint.nodes)
            uids.insert(node.uid);
    }

    QCOMPARE(uids.size(), 2000);
    QVERIFY(!uids.contains(QUuid()));
}

ONDIRA_TEST(StandardBlueprintsTest)
#include "StandardBlueprintsTest.moc"
