// SPDX-License-Identifier: GPL-3.0-or-later
// The two documents of a graph: that of the clipboard and that of the server.
#include "model/JsonTexts.h"
#include "model/json/ActionBlueprint.h"
#include "support/TestBase.h"

using Model::ActionBlueprint;
using Model::ActionDatatype;
using Model::ActionValueLimits;
using Model::NodeInputInstance;
using Model::NodeInstance;
using Model::NodeOutputInstance;
using Model::NodePropertyInstance;

namespace {

const QUuid uid("{99999999-9999-9999-9999-999999999999}");
const QUuid first("{11111111-1111-1111-1111-111111111111}");
const QUuid second("{22222222-2222-2222-2222-222222222222}");

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

const QByteArray limitsText = R"({"type": "list", "minLength": 1, "maxLength": 3, "listType": "integer",
    "elementLimits": {"type": "integer", "min": 0, "max": 100}})";

// The document of a clipboard.
QByteArray modelText()
{
    return R"({"uid": "{99999999-9999-9999-9999-999999999999}", "name": "Свет", "system": true, "nodes": [
        {"uid": "{11111111-1111-1111-1111-111111111111}", "type": "type/integer", "x": -128.5, "y": 256,
         "inputs": [], "outputs": [{"name": "value"}],
         "properties": [{"name": "value", "userDescription": "Мощность", "value": {"type": "integer", "value": 60},
                         "valueLimits": )"
        + limitsText + R"(, "exposed": true, "globalName": "power"}]},
        {"uid": "{22222222-2222-2222-2222-222222222222}", "type": "output", "x": 640, "y": 0,
         "inputs": [{"name": "value", "connectionNode": "{11111111-1111-1111-1111-111111111111}",
                     "connectionProperty": "value"},
                    {"name": "free", "connectionNode": "{00000000-0000-0000-0000-000000000000}",
                     "connectionProperty": ""}],
         "outputs": [], "properties": []}]})";
}

// The document of the server: snake_case, but for the limits; the source of a connection has no braces.
QByteArray entityText()
{
    return R"({"type": "action_blueprint", "id": "{99999999-9999-9999-9999-999999999999}", "attributes": {
        "name": "Свет", "system": true, "nodes": [
        {"uid": "{11111111-1111-1111-1111-111111111111}", "type": "type/integer", "x": -128.5, "y": 256,
         "inputs": [], "outputs": [{"name": "value"}],
         "properties": [{"name": "value", "user_description": "Мощность", "value": {"type": "integer", "value": 60},
                         "value_limits": )"
        + limitsText + R"(, "exposed": true, "global_name": "power"}]},
        {"uid": "{22222222-2222-2222-2222-222222222222}", "type": "output", "x": 640, "y": 0,
         "inputs": [{"name": "value", "connection_node": "11111111-1111-1111-1111-111111111111",
                     "connection_property": "value"},
                    {"name": "free", "connection_node": "00000000-0000-0000-0000-000000000000",
                     "connection_property": ""}],
         "outputs": [], "properties": []}]}})";
}

ActionBlueprint readEntity(const QByteArray &attributes)
{
    return JsonAPI::ActionBlueprint::fromVariant(
        JsonTexts::entity(R"({"type": "action_blueprint", "id": "x", "attributes": )" + attributes + "}"));
}

} // namespace

class ActionBlueprintDocumentsTest : public TestBase
{
    Q_OBJECT

private slots:
    void writesModelForm();
    void readsModelForm();
    void writesEntity();
    void connectionStaysAUidOnTheWire();
    void readsEntity();
    void bothDocumentsAgree();
    void eachDocumentReadsItsOwnKeys();
    void emptyNodeWritesAllItsKeys();
    void readsConnections_data();
    void readsConnections();
    void readsNumbers_data();
    void readsNumbers();
    void readsFlags_data();
    void readsFlags();
    void readsWhatItCan_data();
    void readsWhatItCan();
    void elementsThatAreNoMapsAreEmpty();
    void readsPropertyWithoutGlobalName();
    void readsValues_data();
    void readsValues();
    void keepsNodesOfOneUid();
    void readsTenThousandNodes();
    void readsDeepLists();
};

void ActionBlueprintDocumentsTest::writesModelForm()
{
    QCOMPARE(JsonTexts::written(someBlueprint().toVariant()), JsonTexts::compact(modelText()));
    QCOMPARE(JsonTexts::written(ActionBlueprint().toVariant()), JsonTexts::compact(R"({
        "uid": "{00000000-0000-0000-0000-000000000000}", "name": "", "system": false, "nodes": []})"));
}

void ActionBlueprintDocumentsTest::readsModelForm()
{
    const auto blueprint = ActionBlueprint::fromVariant(JsonTexts::read(modelText()));

    QVERIFY(blueprint == someBlueprint());
    QVERIFY(ActionBlueprint::fromVariant(someBlueprint().toVariant()) == someBlueprint());
}

void ActionBlueprintDocumentsTest::writesEntity()
{
    QCOMPARE(JsonTexts::written(JsonAPI::ActionBlueprint::toVariant(someBlueprint())),
             JsonTexts::compact(entityText()));
    QCOMPARE(JsonTexts::written(JsonAPI::ActionBlueprint::toVariant({})), JsonTexts::compact(R"({
        "type": "action_blueprint", "id": "{00000000-0000-0000-0000-000000000000}",
        "attributes": {"name": "", "system": false, "nodes": []}})"));
}

void ActionBlueprintDocumentsTest::connectionStaysAUidOnTheWire()
{
    const auto attributes = JsonAPI::ActionBlueprint::toVariant(someBlueprint()).toMap().value("attributes").toMap();
    const auto node = attributes.value("nodes").toList().at(1).toMap();
    const auto input = node.value("inputs").toList().at(0).toMap();

    QCOMPARE(input.value("connection_node").userType(), int(QMetaType::QUuid));
    QCOMPARE(input.value("connection_node").toUuid(), first);
    QCOMPARE(node.value("uid").userType(), int(QMetaType::QString));
}

void ActionBlueprintDocumentsTest::readsEntity()
{
    const auto blueprint = JsonAPI::ActionBlueprint::fromVariant(JsonTexts::entity(entityText()));

    QVERIFY(blueprint == someBlueprint());
    QCOMPARE(blueprint.nodes.at(1).inputs.at(0).connectionNode, first);
    QCOMPARE(blueprint.nodes.at(1).inputs.at(0).connectionProperty, QString("value"));
    QVERIFY(JsonAPI::ActionBlueprint::fromVariant(JsonAPI::Entity(JsonAPI::ActionBlueprint::toVariant(someBlueprint())))
            == someBlueprint());
}

void ActionBlueprintDocumentsTest::bothDocumentsAgree()
{
    const auto fromServer = JsonAPI::ActionBlueprint::fromVariant(JsonTexts::entity(entityText()));
    QCOMPARE(JsonTexts::written(fromServer.toVariant()), JsonTexts::compact(modelText()));

    const auto fromClipboard = ActionBlueprint::fromVariant(JsonTexts::read(modelText()));
    QCOMPARE(JsonTexts::written(JsonAPI::ActionBlueprint::toVariant(fromClipboard)), JsonTexts::compact(entityText()));
}

void ActionBlueprintDocumentsTest::eachDocumentReadsItsOwnKeys()
{
    const QByteArray snake = R"({"inputs": [{"connection_node": "{11111111-1111-1111-1111-111111111111}",
        "connection_property": "out"}], "properties": [{"user_description": "U", "global_name": "G",
        "value_limits": {"type": "bool"}}]})";
    const QByteArray camel = R"({"inputs": [{"connectionNode": "{11111111-1111-1111-1111-111111111111}",
        "connectionProperty": "out"}], "properties": [{"userDescription": "U", "globalName": "G",
        "valueLimits": {"type": "bool"}}]})";

    NodeInstance empty;
    empty.inputs.resize(1);
    empty.properties.resize(1);
    QVERIFY(ActionBlueprint::fromVariant(JsonTexts::read("{\"nodes\": [" + snake + "]}")).nodes.front() == empty);
    QVERIFY(readEntity("{\"nodes\": [" + camel + "]}").nodes.front() == empty);
}

void ActionBlueprintDocumentsTest::emptyNodeWritesAllItsKeys()
{
    QCOMPARE(JsonTexts::written(NodeInstance().toVariant()), JsonTexts::compact(R"({
        "uid": "{00000000-0000-0000-0000-000000000000}", "type": "", "x": 0, "y": 0,
        "inputs": [], "outputs": [], "properties": []})"));
    QCOMPARE(JsonTexts::written(NodePropertyInstance().toVariant()), JsonTexts::compact(R"({
        "name": "", "userDescription": "", "value": null, "valueLimits": {"type": "void"}, "exposed": false,
        "globalName": ""})"));
    QCOMPARE(JsonTexts::written(NodeInputInstance().toVariant()), JsonTexts::compact(R"({
        "name": "", "connectionNode": "{00000000-0000-0000-0000-000000000000}", "connectionProperty": ""})"));
    QCOMPARE(JsonTexts::written(NodeOutputInstance().toVariant()), QByteArray(R"({"name":""})"));
}

void ActionBlueprintDocumentsTest::readsConnections_data()
{
    QTest::addColumn<QByteArray>("node");
    QTest::addColumn<QUuid>("expected");

    QTest::newRow("braces") << QByteArray("\"{11111111-1111-1111-1111-111111111111}\"") << first;
    QTest::newRow("no braces") << QByteArray("\"11111111-1111-1111-1111-111111111111\"") << first;
    QTest::newRow("null uid") << QByteArray("\"00000000-0000-0000-0000-000000000000\"") << QUuid();
    QTest::newRow("damaged") << QByteArray("\"{11111111-1111\"") << QUuid();
    QTest::newRow("empty") << QByteArray("\"\"") << QUuid();
    QTest::newRow("null") << QByteArray("null") << QUuid();
    QTest::newRow("number") << QByteArray("1") << QUuid();
    QTest::newRow("list") << QByteArray("[\"11111111-1111-1111-1111-111111111111\"]") << QUuid();
    QTest::newRow("absent") << QByteArray() << QUuid();
}

void ActionBlueprintDocumentsTest::readsConnections()
{
    QFETCH(QByteArray, node);
    QFETCH(QUuid, expected);

    const auto text = [&node](const QByteArray &key) {
        const auto connection = node.isEmpty() ? QByteArray() : ", \"" + key + "\": " + node;
        return R"({"nodes": [{"inputs": [{"name": "x")" + connection + "}]}]}";
    };
    const auto model = ActionBlueprint::fromVariant(JsonTexts::read(text("connectionNode"))).nodes.at(0).inputs.at(0);
    const auto wire = readEntity(text("connection_node")).nodes.at(0).inputs.at(0);

    QCOMPARE(model.connectionNode, expected);
    QCOMPARE(wire.connectionNode, expected);
    QCOMPARE(wire.isConnected(), !expected.isNull());
    QCOMPARE(wire.name, QString("x"));
}

void ActionBlueprintDocumentsTest::readsNumbers_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<double>("expected");

    QTest::newRow("fraction") << QByteArray("-0.5") << -0.5;
    QTest::newRow("large") << QByteArray("1e300") << 1e300;
    QTest::newRow("text") << QByteArray("\"12.5\"") << 12.5;
    QTest::newRow("text that is no number") << QByteArray("\"left\"") << 0.0;
    QTest::newRow("nan") << QByteArray("\"nan\"") << 0.0;
    QTest::newRow("inf") << QByteArray("\"-inf\"") << 0.0;
    QTest::newRow("null") << QByteArray("null") << 0.0;
    QTest::newRow("map") << QByteArray("{}") << 0.0;
    QTest::newRow("list") << QByteArray("[5]") << 0.0;
}

void ActionBlueprintDocumentsTest::readsNumbers()
{
    QFETCH(QByteArray, number);
    QFETCH(double, expected);

    const QByteArray text = R"({"nodes": [{"x": )" + number + ", \"y\": " + number + "}]}";
    const Model::Position position{expected, expected};

    QVERIFY(ActionBlueprint::fromVariant(JsonTexts::read(text)).nodes.at(0).position == position);
    QVERIFY(readEntity(text).nodes.at(0).position == position);
}

void ActionBlueprintDocumentsTest::readsFlags_data()
{
    QTest::addColumn<QByteArray>("flag");
    QTest::addColumn<bool>("expected");

    QTest::newRow("true") << QByteArray("true") << true;
    QTest::newRow("false") << QByteArray("false") << false;
    QTest::newRow("one") << QByteArray("1") << true;
    QTest::newRow("zero") << QByteArray("0") << false;
    QTest::newRow("text true") << QByteArray("\"true\"") << true;
    QTest::newRow("text false") << QByteArray("\"false\"") << false;
    QTest::newRow("null") << QByteArray("null") << false;
    QTest::newRow("list") << QByteArray("[true]") << false;
    QTest::newRow("map") << QByteArray("{}") << false;
}

void ActionBlueprintDocumentsTest::readsFlags()
{
    QFETCH(QByteArray, flag);
    QFETCH(bool, expected);

    const QByteArray text = R"({"system": )" + flag + R"(, "nodes": [{"properties": [{"exposed": )" + flag + "}]}]}";
    const auto model = ActionBlueprint::fromVariant(JsonTexts::read(text));
    const auto wire = readEntity(text);

    QCOMPARE(model.system, expected);
    QCOMPARE(model.nodes.at(0).properties.at(0).exposed, expected);
    QCOMPARE(wire.system, expected);
    QCOMPARE(wire.nodes.at(0).properties.at(0).exposed, expected);
}

void ActionBlueprintDocumentsTest::readsWhatItCan_data()
{
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("empty") << QByteArray("{}");
    QTest::newRow("nulls") << QByteArray(R"({"uid": null, "name": null, "system": null, "nodes": null})");
    QTest::newRow("wrong types") << QByteArray(R"({"uid": 5, "name": [], "system": {}, "nodes": "a"})");
    QTest::newRow("map of nodes") << QByteArray(R"({"nodes": {"a": {"uid": 1}}})");
    QTest::newRow("no map") << QByteArray("[1]");
    QTest::newRow("other keys") << QByteArray(R"({"id": "{11111111-1111-1111-1111-111111111111}", "title": "x"})");
}

void ActionBlueprintDocumentsTest::readsWhatItCan()
{
    QFETCH(QByteArray, text);

    QVERIFY(ActionBlueprint::fromVariant(JsonTexts::read(text)) == ActionBlueprint());
    QVERIFY(readEntity(text) == ActionBlueprint());
}

void ActionBlueprintDocumentsTest::elementsThatAreNoMapsAreEmpty()
{
    const QByteArray text = R"({"nodes": [5, null, "a", [{"uid": 1}],
        {"inputs": [1, null], "outputs": [2, {"name": "o"}], "properties": [null, []]}]})";

    for (const auto &blueprint : {ActionBlueprint::fromVariant(JsonTexts::read(text)), readEntity(text)}) {
        QCOMPARE(blueprint.nodes.size(), std::size_t(5));
        for (int i = 0; i < 4; ++i)
            QVERIFY(blueprint.nodes.at(i) == NodeInstance());
        const auto &node = blueprint.nodes.back();
        QVERIFY(node.inputs == std::vector<NodeInputInstance>(2));
        QVERIFY(node.outputs == (std::vector<NodeOutputInstance>{{""}, {"o"}}));
        QVERIFY(node.properties == std::vector<NodePropertyInstance>(2));
    }
}

void ActionBlueprintDocumentsTest::readsPropertyWithoutGlobalName()
{
    const QByteArray text =
        R"({"nodes": [{"uid": "{11111111-1111-1111-1111-111111111111}", "properties": [{"name": "value"}]}]})";

    for (const auto &blueprint : {ActionBlueprint::fromVariant(JsonTexts::read(text)), readEntity(text)}) {
        QCOMPARE(blueprint.nodes.at(0).uid, first);
        QVERIFY(blueprint.nodes.at(0).properties.at(0) == NodePropertyInstance("value"));
    }
}

void ActionBlueprintDocumentsTest::readsValues_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("expected");

    QTest::newRow("integer") << QByteArray(R"({"type": "integer", "value": 5})") << "5";
    QTest::newRow("number as text") << QByteArray(R"({"type": "integer", "value": "5"})") << "5";
    QTest::newRow("integer beyond its range")
        << QByteArray(R"({"type": "integer", "value": 1e300})") << "9223372036854775807";
    QTest::newRow("enum") << QByteArray(R"({"type": "enum", "value": {"index": 2}})") << "2";
    QTest::newRow("list in a list") << QByteArray(
        R"({"type": "list", "value": [{"type": "list", "value": [{"type": "bool", "value": true}]}]})")
                                    << "[[True]]";
    QTest::newRow("unknown type") << QByteArray(R"({"type": "colour", "value": 5})") << "";
    QTest::newRow("bare") << QByteArray("5") << "";
    QTest::newRow("null") << QByteArray("null") << "";
}

void ActionBlueprintDocumentsTest::readsValues()
{
    QFETCH(QByteArray, value);
    QFETCH(QString, expected);

    const QByteArray text = R"({"nodes": [{"properties": [{"value": )" + value + "}]}]}";

    QCOMPARE(ActionBlueprint::fromVariant(JsonTexts::read(text)).nodes.at(0).properties.at(0).value.toString(),
             expected);
    QCOMPARE(readEntity(text).nodes.at(0).properties.at(0).value.toString(), expected);
}

void ActionBlueprintDocumentsTest::keepsNodesOfOneUid()
{
    const QByteArray text = R"({"nodes": [
        {"uid": "{11111111-1111-1111-1111-111111111111}", "type": "a"},
        {"uid": "{11111111-1111-1111-1111-111111111111}", "type": "b"},
        {"uid": "{00000000-0000-0000-0000-000000000000}", "type": "c"}]})";

    for (auto blueprint : {ActionBlueprint::fromVariant(JsonTexts::read(text)), readEntity(text)}) {
        QCOMPARE(blueprint.nodes.size(), std::size_t(3));
        QCOMPARE(blueprint.node(first)->type, QString("a"));
        QCOMPARE(blueprint.node(QUuid())->type, QString("c"));
    }
}

void ActionBlueprintDocumentsTest::readsTenThousandNodes()
{
    ActionBlueprint blueprint("Large", uid);
    blueprint.nodes.assign(10000, someBlueprint().nodes.at(1));

    const auto wire = JsonTexts::written(JsonAPI::ActionBlueprint::toVariant(blueprint));
    const auto read = JsonAPI::ActionBlueprint::fromVariant(JsonTexts::entity(wire));

    QVERIFY(read == blueprint);
    QVERIFY(ActionBlueprint::fromVariant(blueprint.toVariant()) == blueprint);
    QCOMPARE(read.getOutputConnections(first, "value").size(), std::size_t(10000));
}

void ActionBlueprintDocumentsTest::readsDeepLists()
{
    QVariant value = QVariantMap{{"type", "list"}, {"value", QVariantList()}};
    for (int depth = 0; depth < 5000; ++depth)
        value = QVariantMap{{"type", "list"}, {"value", QVariantList{value}}};
    const QVariantMap property{{"name", "value"}, {"value", value}};
    const QVariantList nodes{QVariantMap{{"properties", QVariantList{property}}}};
    JsonAPI::Entity entity("action_blueprint", "x");
    entity.setAttribute("nodes", nodes);

    QCOMPARE(JsonAPI::ActionBlueprint::fromVariant(entity).nodes.at(0).properties.at(0).value.type(),
             ActionDatatype::Type::List);
    QCOMPARE(ActionBlueprint::fromVariant(QVariantMap{{"nodes", nodes}}).nodes.at(0).properties.at(0).value.type(),
             ActionDatatype::Type::List);
}

ONDIRA_TEST(ActionBlueprintDocumentsTest)
#include "ActionBlueprintDocumentsTest.moc"
