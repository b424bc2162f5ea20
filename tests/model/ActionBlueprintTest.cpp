// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ActionBlueprint.h"
#include "support/TestBase.h"

using Model::ActionBlueprint;
using Model::ActionDatatype;
using Model::ActionValueLimits;
using Model::NodeInputInstance;
using Model::NodeInstance;
using Model::NodePropertyInstance;
using Target = std::pair<QUuid, QString>;

namespace {

const QUuid uid("{99999999-9999-9999-9999-999999999999}");
const QUuid first("{11111111-1111-1111-1111-111111111111}");
const QUuid second("{22222222-2222-2222-2222-222222222222}");
const QUuid third("{33333333-3333-3333-3333-333333333333}");
const QUuid unknown("{77777777-7777-7777-7777-777777777777}");

ActionBlueprint someBlueprint()
{
    ActionBlueprint blueprint("Свет", uid);
    blueprint.system = true;

    NodeInstance number("type/integer", first);
    number.position = {-128.5, 256};
    number.outputs = {{"value"}};
    NodePropertyInstance value("value");
    value.userDescription = "Мощность";
    value.value = ActionDatatype(60LL);
    value.valueLimits = ActionValueLimits::list(ActionValueLimits::integer(0, 100), 1, 3);
    value.exposed = true;
    value.globalName = "power";
    number.properties = {value};

    NodeInstance output("output", second);
    output.position = {640, 0};
    output.inputs = {{"value", first, "value"}, {"free", QUuid(), ""}};
    blueprint.nodes = {number, output};
    return blueprint;
}

// Three nodes: the first feeds both inputs of the second and one of the third, which the second feeds, too.
ActionBlueprint chain()
{
    ActionBlueprint blueprint("Chain", uid);
    blueprint.addNode("a", first);
    blueprint.addNode("b", second);
    blueprint.addNode("c", third);
    blueprint.connect(first, "out", second, "x");
    blueprint.connect(first, "other", second, "y");
    blueprint.connect(first, "out", third, "x");
    blueprint.connect(second, "out", third, "y");
    return blueprint;
}

} // namespace

class ActionBlueprintTest : public TestBase
{
    Q_OBJECT

private slots:
    void newBlueprintIsEmpty();
    void newPropertyIsVoid();
    void propertyOfANodeHasItsGlobalName();
    void inputIsConnectedByItsNode();

    void nodeMakesWhatIsMissing();
    void constNodeMakesNothing();
    void nodeFindsTheFirstOfAName();
    void globalPropertyIsNeverMade();

    void findsNodes();
    void findsSocketsOfNodes();
    void socketsOfAnUnknownNodeAreNotMade();
    void findsPropertyByGlobalName();
    void addsNodes();
    void removesNodeAndItsWires();
    void removesUnknownNode();
    void removesEveryNodeOfAUid();
    void removesNodeByItsOwnUid();
    void connects();
    void connectingReplacesTheSource();
    void connectingToNothingChangesNothing();
    void connectsByNamesOfItsOwn();
    void disconnectsOneInput();
    void disconnectsFromSource();
    void disconnectsFromOneOutput();
    void disconnectsByTheConnectionItself();
    void tellsWhereAnOutputLeads();
    void exposedPropertiesFollowTheNodes();
    void nothingExposed();
    void comparesByAllFields();
};

void ActionBlueprintTest::newBlueprintIsEmpty()
{
    const ActionBlueprint empty;
    QCOMPARE(empty.name, QString());
    QVERIFY(empty.uid.isNull());
    QVERIFY(!empty.system);
    QVERIFY(empty.nodes.empty());

    const ActionBlueprint named("Свет", uid);
    QCOMPARE(named.name, QString("Свет"));
    QCOMPARE(named.uid, uid);
    QVERIFY(!named.system);
    QVERIFY(named.nodes.empty());
}

void ActionBlueprintTest::newPropertyIsVoid()
{
    const NodePropertyInstance property("value");

    QCOMPARE(property.name, QString("value"));
    QCOMPARE(property.globalName, QString());
    QCOMPARE(property.userDescription, QString());
    QVERIFY(property.value.isVoid());
    QVERIFY(property.valueLimits.isVoid());
    QVERIFY(!property.exposed);
}

void ActionBlueprintTest::propertyOfANodeHasItsGlobalName()
{
    const NodePropertyInstance property(first, "value");

    QCOMPARE(property.name, QString("value"));
    QCOMPARE(property.globalName, QString("{11111111-1111-1111-1111-111111111111}|value"));
    QVERIFY(property.value.isVoid());
    QVERIFY(property.valueLimits.isVoid());
    QVERIFY(!property.exposed);
    QCOMPARE(NodePropertyInstance(QUuid(), "value").globalName,
             QString("{00000000-0000-0000-0000-000000000000}|value"));
}

void ActionBlueprintTest::inputIsConnectedByItsNode()
{
    QVERIFY(!NodeInputInstance().isConnected());
    QVERIFY(!(NodeInputInstance{"x", QUuid(), "out"}.isConnected()));
    QVERIFY((NodeInputInstance{"x", first, ""}.isConnected()));
}

void ActionBlueprintTest::nodeMakesWhatIsMissing()
{
    NodeInstance node("a", first);

    auto &input = node.input("x");
    QCOMPARE(input.name, QString("x"));
    QVERIFY(!input.isConnected());
    QCOMPARE(node.output("out").name, QString("out"));
    QCOMPARE(node.property("value").globalName, first.toString() + "|value");
    QCOMPARE(node.inputs.size(), std::size_t(1));
    QCOMPARE(node.outputs.size(), std::size_t(1));
    QCOMPARE(node.properties.size(), std::size_t(1));

    QVERIFY(&node.input("x") == &node.inputs.front());
    QVERIFY(&node.output("out") == &node.outputs.front());
    QVERIFY(&node.property("value") == &node.properties.front());
    QCOMPARE(node.inputs.size() + node.outputs.size() + node.properties.size(), std::size_t(3));
}

void ActionBlueprintTest::constNodeMakesNothing()
{
    const NodeInstance node("a", first);

    QVERIFY(!node.input("x"));
    QVERIFY(!node.output("out"));
    QVERIFY(!node.property("value"));
    QVERIFY(node.inputs.empty() && node.outputs.empty() && node.properties.empty());
}

void ActionBlueprintTest::nodeFindsTheFirstOfAName()
{
    NodeInstance node("a", first);
    node.inputs = {{"x", second, "one"}, {"x", third, "two"}};

    const auto &constant = node;
    QVERIFY(constant.input("x") == &node.inputs.front());
    QCOMPARE(node.input("x").connectionProperty, QString("one"));
    QVERIFY(!constant.input("X"));
}

void ActionBlueprintTest::globalPropertyIsNeverMade()
{
    auto node = someBlueprint().nodes.front();

    QVERIFY(node.globalProperty("power") == &node.properties.front());
    QVERIFY(!node.globalProperty("value"));
    QVERIFY(!node.globalProperty(""));
    QCOMPARE(node.properties.size(), std::size_t(1));
    const auto &constant = node;
    QVERIFY(constant.globalProperty("power") == &node.properties.front());
}

void ActionBlueprintTest::findsNodes()
{
    auto blueprint = chain();
    const auto &constant = blueprint;

    QVERIFY(blueprint.node(second) == &blueprint.nodes.at(1));
    QVERIFY(constant.node(second) == &blueprint.nodes.at(1));
    QVERIFY(!blueprint.node(unknown));
    QVERIFY(!constant.node(QUuid()));
    QVERIFY(!ActionBlueprint().node(QUuid()));
}

void ActionBlueprintTest::findsSocketsOfNodes()
{
    auto blueprint = chain();
    const auto &constant = blueprint;

    QCOMPARE(constant.input(second, "x")->connectionNode, first);
    QVERIFY(!constant.input(second, "z"));
    QVERIFY(!constant.output(second, "out"));
    QVERIFY(!constant.property(second, "value"));

    QCOMPARE(blueprint.input(second, "z")->name, QString("z"));
    QCOMPARE(blueprint.output(second, "out")->name, QString("out"));
    QCOMPARE(blueprint.property(second, "value")->globalName, second.toString() + "|value");
    QVERIFY(constant.input(second, "z") && constant.output(second, "out") && constant.property(second, "value"));
}

void ActionBlueprintTest::socketsOfAnUnknownNodeAreNotMade()
{
    auto blueprint = chain();

    QVERIFY(!blueprint.input(unknown, "x"));
    QVERIFY(!blueprint.output(unknown, "out"));
    QVERIFY(!blueprint.property(unknown, "value"));
    QVERIFY(blueprint == chain());
}

void ActionBlueprintTest::findsPropertyByGlobalName()
{
    auto blueprint = someBlueprint();
    blueprint.property(second, "value")->globalName = "power";
    blueprint.property(second, "other")->globalName = "other";
    const auto &constant = blueprint;

    QVERIFY(blueprint.property("power") == &blueprint.nodes.at(0).properties.front());
    QVERIFY(constant.property("power") == &blueprint.nodes.at(0).properties.front());
    QVERIFY(blueprint.property("other") == &blueprint.nodes.at(1).properties.back());
    QVERIFY(!blueprint.property("value"));
    QVERIFY(!constant.property("nothing"));
}

void ActionBlueprintTest::addsNodes()
{
    ActionBlueprint blueprint;

    QCOMPARE(blueprint.addNode("a", first), first);
    QCOMPARE(blueprint.addNode(blueprint.nodes.front().type, second), second);

    QCOMPARE(blueprint.nodes.size(), std::size_t(2));
    QCOMPARE(blueprint.nodes.at(0).uid, first);
    QCOMPARE(blueprint.nodes.at(1).uid, second);
    QCOMPARE(blueprint.nodes.at(1).type, QString("a"));
    QVERIFY(blueprint.nodes.at(1).position == Model::Position());
}

void ActionBlueprintTest::removesNodeAndItsWires()
{
    auto blueprint = chain();

    blueprint.removeNode(first);

    QVERIFY(!blueprint.node(first));
    QCOMPARE(blueprint.nodes.size(), std::size_t(2));
    QVERIFY(!blueprint.input(second, "x")->isConnected());
    QCOMPARE(blueprint.input(second, "x")->connectionProperty, QString());
    QVERIFY(!blueprint.input(second, "y")->isConnected());
    QVERIFY(!blueprint.input(third, "x")->isConnected());
    QCOMPARE(blueprint.input(third, "y")->connectionNode, second);
}

void ActionBlueprintTest::removesUnknownNode()
{
    auto blueprint = chain();
    blueprint.connect(unknown, "out", second, "x");

    blueprint.removeNode(unknown);

    QCOMPARE(blueprint.nodes.size(), std::size_t(3));
    QVERIFY(!blueprint.input(second, "x")->isConnected());
    QCOMPARE(blueprint.input(second, "y")->connectionNode, first);
}

void ActionBlueprintTest::removesEveryNodeOfAUid()
{
    auto blueprint = chain();
    blueprint.addNode("d", first);

    blueprint.removeNode(first);

    QVERIFY(!blueprint.node(first));
    QCOMPARE(blueprint.nodes.size(), std::size_t(2));
}

void ActionBlueprintTest::removesNodeByItsOwnUid()
{
    auto blueprint = chain();

    blueprint.removeNode(blueprint.nodes.front().uid);

    QCOMPARE(blueprint.nodes.size(), std::size_t(2));
    QVERIFY(!blueprint.input(second, "x")->isConnected());
    QVERIFY(!blueprint.input(third, "x")->isConnected());
    QVERIFY(blueprint.input(third, "y")->isConnected());
}

void ActionBlueprintTest::connects()
{
    ActionBlueprint blueprint;
    blueprint.addNode("a", first);
    blueprint.addNode("b", second);

    blueprint.connect(first, "out", second, "x");

    QVERIFY(blueprint.nodes.at(1).inputs == (std::vector<NodeInputInstance>{{"x", first, "out"}}));
    QVERIFY(blueprint.nodes.at(0).outputs.empty()); // only what was touched
    QVERIFY(blueprint.nodes.at(0).inputs.empty());
}

void ActionBlueprintTest::connectingReplacesTheSource()
{
    auto blueprint = chain();

    blueprint.connect(third, "new", second, "x");

    QVERIFY(blueprint.node(second)->inputs
            == (std::vector<NodeInputInstance>{{"x", third, "new"}, {"y", first, "other"}}));
    QVERIFY(blueprint.getOutputConnections(first, "out") == (std::vector<Target>{{third, "x"}}));
}

void ActionBlueprintTest::connectingToNothingChangesNothing()
{
    auto blueprint = chain();

    blueprint.connect(first, "out", unknown, "x");

    QVERIFY(blueprint == chain());
}

void ActionBlueprintTest::connectsByNamesOfItsOwn()
{
    auto blueprint = chain();
    const auto &input = blueprint.nodes.at(1).inputs.front();

    blueprint.connect(input.connectionNode, input.connectionProperty, third, input.name);
    blueprint.connect(input.connectionNode, input.name, second, input.connectionProperty);

    QVERIFY(blueprint.node(second)->inputs.back() == (NodeInputInstance{"out", first, "x"}));
}

void ActionBlueprintTest::disconnectsOneInput()
{
    auto blueprint = chain();

    blueprint.disconnect(second, "x");
    blueprint.disconnect(second, "none");
    blueprint.disconnect(unknown, "x");

    QVERIFY(blueprint.node(second)->inputs
            == (std::vector<NodeInputInstance>{{"x", QUuid(), ""}, {"y", first, "other"}}));
    QCOMPARE(blueprint.input(third, "x")->connectionNode, first);
}

void ActionBlueprintTest::disconnectsFromSource()
{
    auto blueprint = chain();

    blueprint.disconnectFromSource(first);

    QVERIFY(blueprint.node(second)->inputs == (std::vector<NodeInputInstance>{{"x", QUuid(), ""}, {"y", QUuid(), ""}}));
    QVERIFY(blueprint.node(third)->inputs
            == (std::vector<NodeInputInstance>{{"x", QUuid(), ""}, {"y", second, "out"}}));
}

void ActionBlueprintTest::disconnectsFromOneOutput()
{
    auto blueprint = chain();

    blueprint.disconnectFromSource(first, "out");

    QVERIFY(blueprint.node(second)->inputs
            == (std::vector<NodeInputInstance>{{"x", QUuid(), ""}, {"y", first, "other"}}));
    QVERIFY(blueprint.node(third)->inputs
            == (std::vector<NodeInputInstance>{{"x", QUuid(), ""}, {"y", second, "out"}}));
}

void ActionBlueprintTest::disconnectsByTheConnectionItself()
{
    auto blueprint = chain();
    const auto &input = blueprint.nodes.at(1).inputs.front();
    blueprint.disconnectFromSource(input.connectionNode, input.connectionProperty);
    QVERIFY(blueprint.getOutputConnections(first, "out").empty());

    blueprint = chain();
    blueprint.disconnectFromSource(blueprint.nodes.at(1).inputs.front().connectionNode);
    QVERIFY(blueprint.getOutputConnections(first, "out").empty());
    QVERIFY(blueprint.getOutputConnections(first, "other").empty());
}

void ActionBlueprintTest::tellsWhereAnOutputLeads()
{
    const auto blueprint = chain();

    QVERIFY(blueprint.getOutputConnections(first, "out") == (std::vector<Target>{{second, "x"}, {third, "x"}}));
    QVERIFY(blueprint.getOutputConnections(first, "other") == (std::vector<Target>{{second, "y"}}));
    QVERIFY(blueprint.getOutputConnections(second, "out") == (std::vector<Target>{{third, "y"}}));
    QVERIFY(blueprint.getOutputConnections(third, "out").empty());
    QVERIFY(blueprint.getOutputConnections(unknown, "out").empty());
    QVERIFY(someBlueprint().getOutputConnections(QUuid(), "").empty()); // free inputs lead from nowhere
}

void ActionBlueprintTest::exposedPropertiesFollowTheNodes()
{
    auto blueprint = chain();
    const auto expose = [&blueprint](const QUuid &node, const QString &name, long long value) {
        auto *property = blueprint.property(node, name);
        property->exposed = true;
        property->value = ActionDatatype(value);
    };
    expose(third, "c", 3);
    expose(first, "b", 2);
    expose(first, "a", 1);
    blueprint.property(first, "b")->globalName = "power";
    blueprint.property(second, "hidden")->value = ActionDatatype(9LL);

    const std::vector<Model::ExposedPropertyValue> expected{
        {"power", ActionDatatype(2LL)},
        {first.toString() + "|a", ActionDatatype(1LL)},
        {third.toString() + "|c", ActionDatatype(3LL)},
    };
    QVERIFY(blueprint.getExposedProperties() == expected);
}

void ActionBlueprintTest::nothingExposed()
{
    QVERIFY(chain().getExposedProperties().empty());
    QVERIFY(ActionBlueprint().getExposedProperties().empty());
}

void ActionBlueprintTest::comparesByAllFields()
{
    QVERIFY(someBlueprint() == someBlueprint());
    QVERIFY(!(someBlueprint() != someBlueprint()));
    const auto differs = [](void (*change)(ActionBlueprint &)) {
        auto blueprint = someBlueprint();
        change(blueprint);
        return blueprint != someBlueprint();
    };
    QVERIFY(differs([](auto &blueprint) { blueprint.name = "свет"; }));
    QVERIFY(differs([](auto &blueprint) { blueprint.uid = first; }));
    QVERIFY(differs([](auto &blueprint) { blueprint.system = false; }));
    QVERIFY(differs([](auto &blueprint) { std::swap(blueprint.nodes.at(0), blueprint.nodes.at(1)); }));
    QVERIFY(differs([](auto &blueprint) { blueprint.nodes.pop_back(); }));
    QVERIFY(differs([](auto &blueprint) { blueprint.nodes.at(0).uid = second; }));
    QVERIFY(differs([](auto &blueprint) { blueprint.nodes.at(0).type = "type/double"; }));
    QVERIFY(differs([](auto &blueprint) { blueprint.nodes.at(0).position.x = 0; }));
    QVERIFY(differs([](auto &blueprint) { blueprint.nodes.at(0).position.y = 0; }));
    QVERIFY(differs([](auto &blueprint) { blueprint.nodes.at(0).outputs.at(0).name = "o"; }));
    QVERIFY(differs([](auto &blueprint) { blueprint.nodes.at(1).inputs.at(0).name = "i"; }));
    QVERIFY(differs([](auto &blueprint) { blueprint.nodes.at(1).inputs.at(0).connectionNode = second; }));
    QVERIFY(differs([](auto &blueprint) { blueprint.nodes.at(1).inputs.at(0).connectionProperty = "o"; }));
    QVERIFY(differs([](auto &blueprint) { blueprint.nodes.at(0).properties.at(0).name = "p"; }));
    QVERIFY(differs([](auto &blueprint) { blueprint.nodes.at(0).properties.at(0).userDescription = "p"; }));
    QVERIFY(differs([](auto &blueprint) { blueprint.nodes.at(0).properties.at(0).value = {}; }));
    QVERIFY(differs([](auto &blueprint) { blueprint.nodes.at(0).properties.at(0).valueLimits = {}; }));
    QVERIFY(differs([](auto &blueprint) { blueprint.nodes.at(0).properties.at(0).exposed = false; }));
    QVERIFY(differs([](auto &blueprint) { blueprint.nodes.at(0).properties.at(0).globalName = "p"; }));
}

ONDIRA_TEST(ActionBlueprintTest)
#include "ActionBlueprintTest.moc"
