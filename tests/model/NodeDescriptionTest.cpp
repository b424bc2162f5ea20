// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/NodeDescription.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

using Model::ActionDatatype;
using Model::ActionValueLimits;
using Model::NodeDescription;
using Model::NodeIODescription;
using Model::NodePropertyDescription;
using Type = ActionDatatype::Type;

namespace {

const QByteArray socketText = R"({"name": "a", "description": "Слагаемое", "acceptedTypes": ["double", "void"],
    "linkedProperty": "b", "defaultValue": {"type": "double", "value": 1.5}})";
const QByteArray propertyText = R"({"name": "b", "description": "Число",
    "defaultValue": {"type": "integer", "value": 7}, "valueLimits": {"type": "integer", "min": 0, "max": 10}})";

NodeIODescription someSocket()
{
    return {"a", "Слагаемое", {Type::Double, Type::Void}, "b", ActionDatatype(1.5)};
}

NodePropertyDescription someProperty()
{
    return {"b", "Число", ActionDatatype(7LL), ActionValueLimits::integer(0, 10)};
}

NodeDescription someNode()
{
    NodeDescription node("math/add", "Сложить");
    node.description = "Складывает числа";
    node.category = "Математика";
    node.inputs = {someSocket()};
    node.outputs = {{"sum", "", {Type::Double}, "", {}}};
    node.properties = {someProperty()};
    return node;
}

// As it comes from the server: the lists are camelCase inside.
QByteArray nodeText()
{
    return R"({"type": "node_description", "id": "math/add", "attributes": {
        "name": "Сложить", "description": "Складывает числа", "category": "Математика",
        "inputs": [)"
        + socketText + R"(],
        "outputs": [{"name": "sum", "description": "", "acceptedTypes": ["double"], "linkedProperty": "",
                     "defaultValue": null}],
        "properties": [)"
        + propertyText + "]}}";
}

} // namespace

class NodeDescriptionTest : public TestBase
{
    Q_OBJECT

private slots:
    void newSocketIsEmpty();
    void writesSocket();
    void readsSocket();
    void readsDamagedSocket_data();
    void readsDamagedSocket();
    void readsAcceptedTypes_data();
    void readsAcceptedTypes();
    void writesProperty();
    void readsProperty();
    void readsDamagedProperty_data();
    void readsDamagedProperty();
    void voidLimitsFollowTheDefaultValue();
    void givenLimitsStay();
    void limitsThatAreReadFollowTheDefaultValue();
    void writesEveryField();
    void readsEveryField();
    void readsWithoutTexts();
    void emptyNodeWritesEmptyLists();
    void readsDamagedNode_data();
    void readsDamagedNode();
    void listsTakeEveryElement();
    void constructorTakesTypeAndName();
    void findsTheFirstOfAName();
    void readsTenThousandSockets();
    void readsListsWithinLists();
    void comparesByAllFields();
};

void NodeDescriptionTest::newSocketIsEmpty()
{
    const NodeIODescription socket;

    QCOMPARE(socket.name, QString());
    QCOMPARE(socket.description, QString());
    QVERIFY(socket.acceptedTypes.empty());
    QCOMPARE(socket.linkedProperty, QString());
    QVERIFY(socket.defaultValue.isVoid());
}

void NodeDescriptionTest::writesSocket()
{
    QCOMPARE(JsonTexts::written(someSocket().toVariant()), JsonTexts::compact(socketText));
    QCOMPARE(JsonTexts::written(NodeIODescription().toVariant()),
             JsonTexts::compact(R"({"name": "", "description": "", "acceptedTypes": [], "linkedProperty": "",
                                   "defaultValue": null})"));
}

void NodeDescriptionTest::readsSocket()
{
    QVERIFY(NodeIODescription::fromVariant(JsonTexts::read(socketText)) == someSocket());
    QVERIFY(NodeIODescription::fromVariant(someSocket().toVariant()) == someSocket());
}

void NodeDescriptionTest::readsDamagedSocket_data()
{
    QTest::addColumn<QVariant>("variant");

    QTest::newRow("invalid") << QVariant();
    QTest::newRow("null") << QVariant::fromValue(nullptr);
    QTest::newRow("text") << QVariant("a");
    QTest::newRow("list") << QVariant(QVariantList{1});
    QTest::newRow("empty") << JsonTexts::read("{}");
    QTest::newRow("nulls") << JsonTexts::read(R"({"name": null, "description": null, "acceptedTypes": null,
                                                  "linkedProperty": null, "defaultValue": null})");
    QTest::newRow("wrong types") << JsonTexts::read(R"({"name": [], "description": {}, "acceptedTypes": "double",
                                                        "linkedProperty": [1], "defaultValue": 5})");
    QTest::newRow("other keys") << JsonTexts::read(R"({"accepted_types": ["double"], "linked_property": "b",
                                                       "default_value": {"type": "double", "value": 1}})");
}

void NodeDescriptionTest::readsDamagedSocket()
{
    QFETCH(QVariant, variant);

    QVERIFY(NodeIODescription::fromVariant(variant) == NodeIODescription());
}

void NodeDescriptionTest::readsAcceptedTypes_data()
{
    QTest::addColumn<QVariant>("types");
    QTest::addColumn<QVector<int>>("expected");

    QTest::newRow("all") << JsonTexts::read(
        R"(["void", "integer", "double", "bool", "string", "list", "entity", "enum"])")
                         << QVector<int>{0, 1, 2, 3, 4, 5, 6, 7};
    QTest::newRow("unknown is void") << JsonTexts::read(R"(["Integer", "colour", ""])") << QVector<int>{0, 0, 0};
    QTest::newRow("wrong types are void")
        << JsonTexts::read(R"([1, null, {}, ["double"]])") << QVector<int>{0, 0, 0, 0};
    QTest::newRow("twice") << JsonTexts::read(R"(["bool", "bool"])") << QVector<int>{3, 3};
    QTest::newRow("list of texts") << QVariant(QStringList{"bool", "enum"}) << QVector<int>{3, 7};
    QTest::newRow("empty") << JsonTexts::read("[]") << QVector<int>();
    QTest::newRow("no list") << QVariant("bool") << QVector<int>();
}

void NodeDescriptionTest::readsAcceptedTypes()
{
    QFETCH(QVariant, types);
    QFETCH(QVector<int>, expected);

    const auto socket = NodeIODescription::fromVariant(QVariantMap{{"acceptedTypes", types}});

    QVector<int> read;
    for (const auto type : socket.acceptedTypes)
        read.append(static_cast<int>(type));
    QCOMPARE(read, expected);
}

void NodeDescriptionTest::writesProperty()
{
    QCOMPARE(JsonTexts::written(someProperty().toVariant()), JsonTexts::compact(propertyText));
    QCOMPARE(JsonTexts::written(NodePropertyDescription().toVariant()),
             JsonTexts::compact(
                 R"({"name": "", "description": "", "defaultValue": null, "valueLimits": {"type": "void"}})"));
}

void NodeDescriptionTest::readsProperty()
{
    QVERIFY(NodePropertyDescription::fromVariant(JsonTexts::read(propertyText)) == someProperty());
    QVERIFY(NodePropertyDescription::fromVariant(someProperty().toVariant()) == someProperty());
}

void NodeDescriptionTest::readsDamagedProperty_data()
{
    QTest::addColumn<QVariant>("variant");

    QTest::newRow("invalid") << QVariant();
    QTest::newRow("null") << QVariant::fromValue(nullptr);
    QTest::newRow("number") << QVariant(5);
    QTest::newRow("empty") << JsonTexts::read("{}");
    QTest::newRow("nulls") << JsonTexts::read(
        R"({"name": null, "description": null, "defaultValue": null, "valueLimits": null})");
    QTest::newRow("wrong types") << JsonTexts::read(
        R"({"name": {}, "description": [], "defaultValue": "5", "valueLimits": [1]})");
    QTest::newRow("unknown types") << JsonTexts::read(
        R"({"defaultValue": {"type": "colour", "value": 1}, "valueLimits": {"type": "colour", "min": 1}})");
}

void NodeDescriptionTest::readsDamagedProperty()
{
    QFETCH(QVariant, variant);

    QVERIFY(NodePropertyDescription::fromVariant(variant) == NodePropertyDescription());
}

void NodeDescriptionTest::voidLimitsFollowTheDefaultValue()
{
    const NodePropertyDescription number("b", "", ActionDatatype(7LL));
    QCOMPARE(number.valueLimits.type(), Type::Integer);
    QVERIFY(!number.valueLimits.hasLimits());

    const NodePropertyDescription text("b", "", ActionDatatype(QString("x")), ActionValueLimits());
    QCOMPARE(text.valueLimits.type(), Type::String);
    QVERIFY(!text.valueLimits.hasLimits());

    QVERIFY(NodePropertyDescription("b", "", {}).valueLimits.isVoid());
    QVERIFY(NodePropertyDescription().valueLimits.isVoid());
}

void NodeDescriptionTest::givenLimitsStay()
{
    // Also where they do not go with the value, and where they have no range.
    const NodePropertyDescription other("b", "", ActionDatatype(7LL), ActionValueLimits::real(0, 1));
    QVERIFY(other.valueLimits == ActionValueLimits::real(0, 1));

    const NodePropertyDescription open("b", "", ActionDatatype(7LL), ActionValueLimits(Type::Bool));
    QVERIFY(open.valueLimits == ActionValueLimits(Type::Bool));
}

void NodeDescriptionTest::limitsThatAreReadFollowTheDefaultValue()
{
    const auto read = NodePropertyDescription::fromVariant(
        JsonTexts::read(R"({"name": "b", "defaultValue": {"type": "double", "value": 1}})"));

    QVERIFY(read.valueLimits == ActionValueLimits(Type::Double));
}

void NodeDescriptionTest::writesEveryField()
{
    QCOMPARE(JsonTexts::written(JsonAPI::NodeDescription::toVariant(someNode())), JsonTexts::compact(nodeText()));
}

void NodeDescriptionTest::readsEveryField()
{
    const auto node = JsonAPI::NodeDescription::fromVariant(JsonTexts::entity(nodeText()));

    QCOMPARE(node.type, QString("math/add"));
    QCOMPARE(node.name, QString("Сложить"));
    QCOMPARE(node.description, QString("Складывает числа"));
    QCOMPARE(node.category, QString("Математика"));
    QVERIFY(node.inputs == std::vector<NodeIODescription>{someSocket()});
    QVERIFY(node.outputs == someNode().outputs);
    QVERIFY(node.properties == std::vector<NodePropertyDescription>{someProperty()});
    QVERIFY(node == someNode());
}

void NodeDescriptionTest::readsWithoutTexts()
{
    const auto node = JsonAPI::NodeDescription::fromVariant(JsonTexts::entity(
        R"({"type": "node_description", "id": "math/add", "attributes": {"inputs": [{"name": "a"}]}})"));

    QCOMPARE(node.type, QString("math/add"));
    QCOMPARE(node.name, QString());
    QCOMPARE(node.description, QString());
    QCOMPARE(node.category, QString());
    QCOMPARE(node.inputs.size(), std::size_t(1));
    QCOMPARE(node.inputs.front().name, QString("a"));
}

void NodeDescriptionTest::emptyNodeWritesEmptyLists()
{
    QCOMPARE(JsonTexts::written(JsonAPI::NodeDescription::toVariant({})),
             JsonTexts::compact(R"({"type": "node_description", "id": "", "attributes": {"name": "",
        "description": "", "category": "", "inputs": [], "outputs": [], "properties": []}})"));
}

void NodeDescriptionTest::readsDamagedNode_data()
{
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("empty") << QByteArray("{}");
    QTest::newRow("no attributes") << QByteArray(R"({"type": "node_description"})");
    QTest::newRow("null attributes") << QByteArray(R"({"id": null, "attributes": null})");
    QTest::newRow("nulls") << QByteArray(R"({"attributes": {"name": null, "description": null, "category": null,
                                             "inputs": null, "outputs": null, "properties": null}})");
    QTest::newRow("wrong types") << QByteArray(R"({"id": [1], "attributes": {"name": {}, "description": [],
        "category": {"a": 1}, "inputs": "a", "outputs": {"name": "a"}, "properties": 5}})");
}

void NodeDescriptionTest::readsDamagedNode()
{
    QFETCH(QByteArray, text);

    QVERIFY(JsonAPI::NodeDescription::fromVariant(JsonTexts::entity(text)) == NodeDescription());
}

void NodeDescriptionTest::listsTakeEveryElement()
{
    const auto node = JsonAPI::NodeDescription::fromVariant(JsonTexts::entity(
        R"({"id": "x", "attributes": {"inputs": [1, null, {"name": "a"}, {"name": "a"}, [{"name": "b"}]]}})"));

    QCOMPARE(node.inputs.size(), std::size_t(5));
    QVERIFY(node.inputs.at(0) == NodeIODescription());
    QVERIFY(node.inputs.at(1) == NodeIODescription());
    QCOMPARE(node.inputs.at(2).name, QString("a"));
    QCOMPARE(node.inputs.at(3).name, QString("a"));
    QVERIFY(node.inputs.at(4) == NodeIODescription());
}

void NodeDescriptionTest::constructorTakesTypeAndName()
{
    const NodeDescription node("math/add", "Сложить");

    QCOMPARE(node.type, QString("math/add"));
    QCOMPARE(node.name, QString("Сложить"));
    QVERIFY(node.description.isEmpty() && node.category.isEmpty());
    QVERIFY(node.inputs.empty() && node.outputs.empty() && node.properties.empty());
}

void NodeDescriptionTest::findsTheFirstOfAName()
{
    NodeDescription node("x", "X");
    node.inputs = {{"a", "first", {}, "", {}}, {"a", "second", {}, "", {}}};
    node.outputs = {{"b", "out", {}, "", {}}};
    node.properties = {{"c", "property", ActionDatatype(1LL)}, {"c", "other", ActionDatatype(2LL)}};

    QVERIFY(node.input("a") == &node.inputs.front());
    QVERIFY(node.output("b") == &node.outputs.front());
    QVERIFY(node.property("c") == &node.properties.front());
    QVERIFY(!node.input("b"));
    QVERIFY(!node.input("A"));
    QVERIFY(!node.output("a"));
    QVERIFY(!node.property("a"));
    QVERIFY(!NodeDescription().input(""));
    QVERIFY(!NodeDescription().output(""));
    QVERIFY(!NodeDescription().property(""));
}

void NodeDescriptionTest::readsTenThousandSockets()
{
    JsonAPI::Entity entity("node_description", "x");
    entity.setAttribute("inputs", QVector<QVariant>(10000, someSocket().toVariant()).toList());

    const auto node = JsonAPI::NodeDescription::fromVariant(entity);

    QCOMPARE(node.inputs.size(), std::size_t(10000));
    QVERIFY(node.inputs.back() == someSocket());
}

void NodeDescriptionTest::readsListsWithinLists()
{
    const auto property = NodePropertyDescription::fromVariant(JsonTexts::read(R"({"name": "b",
        "defaultValue": {"type": "list", "value": [{"type": "list", "value": [{"type": "integer", "value": 3}]}]},
        "valueLimits": {"type": "list", "listType": "list", "minLength": 1, "maxLength": 2}})"));

    const ActionDatatype inner(ActionDatatype::List{ActionDatatype(3LL)});
    QVERIFY(property.defaultValue == ActionDatatype(ActionDatatype::List{inner}));
    QVERIFY(property.valueLimits == ActionValueLimits::list(Type::List, 1, 2));
}

void NodeDescriptionTest::comparesByAllFields()
{
    QVERIFY(someNode() == someNode());
    const auto differs = [](void (*change)(NodeDescription &)) {
        auto node = someNode();
        change(node);
        return !(node == someNode());
    };
    QVERIFY(differs([](auto &node) { node.type = "math/Add"; }));
    QVERIFY(differs([](auto &node) { node.name.clear(); }));
    QVERIFY(differs([](auto &node) { node.description.clear(); }));
    QVERIFY(differs([](auto &node) { node.category.clear(); }));
    QVERIFY(differs([](auto &node) { node.inputs.clear(); }));
    QVERIFY(differs([](auto &node) { node.outputs.clear(); }));
    QVERIFY(differs([](auto &node) { node.properties.clear(); }));
    QVERIFY(differs([](auto &node) { node.inputs.front().name.clear(); }));
    QVERIFY(differs([](auto &node) { node.inputs.front().description.clear(); }));
    QVERIFY(differs([](auto &node) { node.inputs.front().acceptedTypes.pop_back(); }));
    QVERIFY(differs([](auto &node) { node.inputs.front().linkedProperty.clear(); }));
    QVERIFY(differs([](auto &node) { node.inputs.front().defaultValue = ActionDatatype(2.5); }));
    QVERIFY(differs([](auto &node) { node.properties.front().name.clear(); }));
    QVERIFY(differs([](auto &node) { node.properties.front().description.clear(); }));
    QVERIFY(differs([](auto &node) { node.properties.front().defaultValue = ActionDatatype(8LL); }));
    QVERIFY(differs([](auto &node) { node.properties.front().valueLimits.clearLimits(); }));
}

ONDIRA_TEST(NodeDescriptionTest)
#include "NodeDescriptionTest.moc"
