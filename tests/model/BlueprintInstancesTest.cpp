// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Actions.h"
#include "model/Blueprints.h"
#include "model/JsonTexts.h"
#include "model/json/ActionBlueprintInstance.h"
#include "support/TestBase.h"

using Model::ActionBlueprintInstance;
using Model::ActionDatatype;
using Model::ActionSequence;
using Model::ActionWrapper;
using Model::ExposedPropertyValue;

namespace {

const QString nodeText = QStringLiteral("{11111111-2222-3333-4444-555555555555}");
const QUuid node(QStringLiteral("{11111111-2222-3333-4444-555555555555}"));
const QUuid blueprint(QStringLiteral("{00000ec0-0002-0000-0000-000000000002}"));
const QUuid hall(QStringLiteral("{aaaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}"));
const QUuid kitchen(QStringLiteral("{0aaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}"));

ActionDatatype integer(long long value)
{
    return ActionDatatype(value);
}

ActionBlueprintInstance someInstance()
{
    ActionBlueprintInstance instance;
    instance.blueprint = blueprint;
    instance.properties = {{"power", integer(60)}, {node, "mode", ActionDatatype(true)}};
    instance.zones = {hall, kitchen};
    return instance;
}

// The properties and zones as they lie in a map and in the attributes of an entity.
const QByteArray propertiesText = R"("properties":[
    {"node":"00000000-0000-0000-0000-000000000000","property":"power","value":{"type":"integer","value":60}},
    {"node":"11111111-2222-3333-4444-555555555555","property":"mode","value":{"type":"bool","value":true}}])";
const QByteArray zonesText =
    R"("zones":["{0aaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}","{aaaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}"])";
const QByteArray blueprintText = R"("{00000ec0-0002-0000-0000-000000000002}")";

QByteArray instanceText()
{
    return R"({"blueprint":)" + blueprintText + ',' + propertiesText + ',' + zonesText + '}';
}

QByteArray entityText()
{
    return R"({"type":"oneshot_blueprint","id":)" + blueprintText + R"(,"attributes":{)" + propertiesText + ','
        + zonesText + "}}";
}

} // namespace

class BlueprintInstancesTest : public TestBase
{
    Q_OBJECT

private slots:
    void globalIdOfNullNodeIsTheProperty();
    void globalIdJoinsNodeAndProperty();
    void propertyWithoutNameIsInvalid();
    void propertyKeepsItsNodeAsUid();
    void readsProperty_data();
    void readsProperty();
    void findsPropertyByGlobalId();
    void writesInstance();
    void readsInstance();
    void readsDamagedInstance_data();
    void readsDamagedInstance();
    void zonesAreWrittenInOrder();
    void writesEntity();
    void readsEntity();
    void emptyInstanceWritesEmptyLists();
    void readsEntityWithoutAttributes();
    void otherAttributesAreNotRead();
    void sequenceIsAPlainList();
    void readsSequence();
    void whatIsNoListIsAnEmptySequence_data();
    void whatIsNoListIsAnEmptySequence();
    void elementThatIsNoMapIsAnEmptyInstance();
    void readsTenThousandInstances();
    void writesWrapper();
    void readsWrapper();
    void wrapperBecomesInstance();
    void wrapperWithoutParametersBecomesInstance();
    void equalityNeedsEveryField();
};

void BlueprintInstancesTest::globalIdOfNullNodeIsTheProperty()
{
    QCOMPARE(ExposedPropertyValue("power", integer(1)).globalID(), QString("power"));
    QCOMPARE(ExposedPropertyValue().globalID(), QString());
}

void BlueprintInstancesTest::globalIdJoinsNodeAndProperty()
{
    QCOMPARE(ExposedPropertyValue(node, "power", integer(1)).globalID(), nodeText + "|power");
}

void BlueprintInstancesTest::propertyWithoutNameIsInvalid()
{
    QVERIFY(ExposedPropertyValue("power", {}).isValid());
    QVERIFY(!ExposedPropertyValue("", integer(1)).isValid());
    QVERIFY(!ExposedPropertyValue().isValid());
}

void BlueprintInstancesTest::propertyKeepsItsNodeAsUid()
{
    const auto map = ExposedPropertyValue(node, "power", integer(1)).toVariant().toMap();

    QCOMPARE(map.value("node").userType(), int(QMetaType::QUuid));
    QCOMPARE(JsonTexts::written(map),
             JsonTexts::compact(R"({"node":"11111111-2222-3333-4444-555555555555","property":"power",
        "value":{"type":"integer","value":1}})"));
    QCOMPARE(JsonTexts::written(ExposedPropertyValue("power", {}).toVariant()),
             JsonTexts::compact(R"({"node":"00000000-0000-0000-0000-000000000000","property":"power","value":null})"));
}

void BlueprintInstancesTest::readsProperty_data()
{
    QTest::addColumn<QVariant>("variant");
    QTest::addColumn<QUuid>("expectedNode");
    QTest::addColumn<QString>("expectedProperty");
    QTest::addColumn<QString>("expectedValue");

    const auto row = [](const char *name, const QByteArray &document, const QUuid &node, const QString &property,
                        const QString &value) {
        QTest::newRow(name) << JsonTexts::read(document) << node << property << value;
    };
    row("node with braces", R"({"node":"{11111111-2222-3333-4444-555555555555}","property":"power",
        "value":{"type":"integer","value":7}})",
        node, "power", "7");
    row("node without braces", R"({"node":"11111111-2222-3333-4444-555555555555","property":"power",
        "value":{"type":"integer","value":7}})",
        node, "power", "7");
    QTest::newRow("node as a uid") << QVariant(QVariantMap{{"node", node}, {"property", "power"}}) << node << "power"
                                   << "";
    row("no node", R"({"property":"power","value":{"type":"bool","value":true}})", QUuid(), "power", "True");
    row("null node", R"({"node":null,"property":"power"})", QUuid(), "power", "");
    row("damaged node", R"({"node":"first","property":"power"})", QUuid(), "power", "");
    row("bare value is void", R"({"property":"power","value":5})", QUuid(), "power", "");
    row("wrong types", R"({"node":[1],"property":{"a":1},"value":[2]})", QUuid(), "", "");
    row("empty", "{}", QUuid(), "", "");
    QTest::newRow("null") << QVariant::fromValue(nullptr) << QUuid() << ""
                          << "";
    QTest::newRow("invalid") << QVariant() << QUuid() << ""
                             << "";
}

void BlueprintInstancesTest::readsProperty()
{
    QFETCH(QVariant, variant);
    QFETCH(QUuid, expectedNode);
    QFETCH(QString, expectedProperty);
    QFETCH(QString, expectedValue);

    const auto property = ExposedPropertyValue::fromVariant(variant);

    QCOMPARE(property.node, expectedNode);
    QCOMPARE(property.property, expectedProperty);
    QCOMPARE(property.value.toString(), expectedValue);
}

void BlueprintInstancesTest::findsPropertyByGlobalId()
{
    auto instance = someInstance();
    instance.properties.emplace_back("power", integer(70));

    QVERIFY(instance.property("power"));
    QVERIFY(instance.property("power")->value == integer(60));
    QVERIFY(instance.property(nodeText + "|mode"));
    QVERIFY(!instance.property("mode"));
    QVERIFY(!instance.property(""));
    QVERIFY(!ActionBlueprintInstance().property("power"));
}

void BlueprintInstancesTest::writesInstance()
{
    QCOMPARE(JsonTexts::written(someInstance().toVariant()), JsonTexts::compact(instanceText()));
}

void BlueprintInstancesTest::readsInstance()
{
    QVERIFY(ActionBlueprintInstance::fromVariant(JsonTexts::read(instanceText())) == someInstance());
    QVERIFY(ActionBlueprintInstance::fromVariant(someInstance().toVariant()) == someInstance());
}

void BlueprintInstancesTest::readsDamagedInstance_data()
{
    QTest::addColumn<QVariant>("variant");

    QTest::newRow("invalid") << QVariant();
    QTest::newRow("null") << QVariant::fromValue(nullptr);
    QTest::newRow("number") << QVariant(5);
    QTest::newRow("list") << QVariant(QVariantList{1});
    QTest::newRow("empty map") << QVariant(QVariantMap());
    QTest::newRow("nulls") << JsonTexts::read(R"({"blueprint":null,"properties":null,"zones":null})");
    QTest::newRow("wrong types") << JsonTexts::read(R"({"blueprint":5,"properties":"power","zones":{"a":1}})");
    QTest::newRow("damaged uid") << JsonTexts::read(R"({"blueprint":"set power"})");
}

void BlueprintInstancesTest::readsDamagedInstance()
{
    QFETCH(QVariant, variant);

    QVERIFY(ActionBlueprintInstance::fromVariant(variant) == ActionBlueprintInstance());
}

void BlueprintInstancesTest::zonesAreWrittenInOrder()
{
    ActionBlueprintInstance instance;
    QStringList expected;
    for (int i = 0; i < 100; ++i) {
        const QUuid zone(1, 0, 0, 0, 0, 0, 0, 0, 0, 0, static_cast<uchar>(i));
        instance.zones.insert(zone);
        expected.append(zone.toString());
    }

    QCOMPARE(instance.toVariant().toMap().value("zones").toStringList(), expected);
}

void BlueprintInstancesTest::writesEntity()
{
    QCOMPARE(JsonTexts::written(JsonAPI::ActionBlueprintInstance::toVariant(someInstance())),
             JsonTexts::compact(entityText()));
}

void BlueprintInstancesTest::readsEntity()
{
    QVERIFY(JsonAPI::ActionBlueprintInstance::fromVariant(JsonTexts::entity(entityText())) == someInstance());
}

void BlueprintInstancesTest::emptyInstanceWritesEmptyLists()
{
    QCOMPARE(JsonTexts::written(JsonAPI::ActionBlueprintInstance::toVariant({})),
             JsonTexts::compact(R"({"type":"oneshot_blueprint","id":"{00000000-0000-0000-0000-000000000000}",
        "attributes":{"properties":[],"zones":[]}})"));
}

void BlueprintInstancesTest::readsEntityWithoutAttributes()
{
    ActionBlueprintInstance expected;
    expected.blueprint = blueprint;

    QVERIFY(JsonAPI::ActionBlueprintInstance::fromVariant(JsonAPI::Entity("oneshot_blueprint", blueprint.toString()))
            == expected);
    QVERIFY(JsonAPI::ActionBlueprintInstance::fromVariant(JsonAPI::Entity()) == ActionBlueprintInstance());
}

void BlueprintInstancesTest::otherAttributesAreNotRead()
{
    JsonAPI::Entity entity("oneshot_blueprint", blueprint.toString());
    entity.setAttribute("blueprint", hall.toString());

    QCOMPARE(JsonAPI::ActionBlueprintInstance::fromVariant(entity).blueprint, blueprint);
}

void BlueprintInstancesTest::sequenceIsAPlainList()
{
    const ActionSequence sequence{{someInstance(), ActionBlueprintInstance()}};

    QCOMPARE(
        JsonTexts::written(sequence.toVariant()),
        JsonTexts::compact('[' + instanceText()
                           + R"(,{"blueprint":"{00000000-0000-0000-0000-000000000000}","properties":[],"zones":[]}])"));
    QCOMPARE(JsonTexts::written(ActionSequence().toVariant()), QByteArray("[]"));
}

void BlueprintInstancesTest::readsSequence()
{
    const auto sequence =
        ActionSequence::fromVariant(JsonTexts::read('[' + instanceText() + ',' + instanceText() + ']'));

    QVERIFY((sequence == ActionSequence{{someInstance(), someInstance()}}));
}

void BlueprintInstancesTest::whatIsNoListIsAnEmptySequence_data()
{
    QTest::addColumn<QVariant>("variant");

    QTest::newRow("invalid") << QVariant();
    QTest::newRow("null") << QVariant::fromValue(nullptr);
    QTest::newRow("map") << QVariant(someInstance().toVariant());
    QTest::newRow("text") << QVariant("sequence");
    QTest::newRow("number") << QVariant(1);
}

void BlueprintInstancesTest::whatIsNoListIsAnEmptySequence()
{
    QFETCH(QVariant, variant);

    QVERIFY(ActionSequence::fromVariant(variant).instances.empty());
}

void BlueprintInstancesTest::elementThatIsNoMapIsAnEmptyInstance()
{
    const auto sequence = ActionSequence::fromVariant(QVariantList{5, someInstance().toVariant(), "x", QVariant()});

    QCOMPARE(sequence.instances.size(), std::size_t(4));
    QVERIFY(sequence.instances.at(0) == ActionBlueprintInstance());
    QVERIFY(sequence.instances.at(1) == someInstance());
    QVERIFY(sequence.instances.at(2) == ActionBlueprintInstance());
    QVERIFY(sequence.instances.at(3) == ActionBlueprintInstance());
}

void BlueprintInstancesTest::readsTenThousandInstances()
{
    const QVariantList list = QVector<QVariant>(10000, someInstance().toVariant()).toList();

    const auto sequence = ActionSequence::fromVariant(list);

    QCOMPARE(sequence.instances.size(), std::size_t(10000));
    QVERIFY(sequence.instances.back() == someInstance());
}

void BlueprintInstancesTest::writesWrapper()
{
    const ActionWrapper wrapper{blueprint, {hall, kitchen}, {{"power", 60}}};

    QCOMPARE(JsonTexts::written(wrapper.toVariant()),
             JsonTexts::compact(R"({"action":)" + blueprintText
                                + R"(,"controlledZones":["{0aaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}",
        "{aaaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}"],"passedParameters":{"power":60}})"));
}

void BlueprintInstancesTest::readsWrapper()
{
    const auto wrapper = ActionWrapper::fromVariant(JsonTexts::read(
        R"({"action":"00000ec0-0002-0000-0000-000000000002",
        "controlledZones":["{aaaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}"],"passedParameters":{"power":60}})"));

    QVERIFY((wrapper == ActionWrapper{blueprint, {hall}, {{"power", 60}}}));
    QVERIFY(ActionWrapper::fromVariant(QVariant()) == ActionWrapper());
    QVERIFY(
        ActionWrapper::fromVariant(JsonTexts::read(R"({"action":null,"controlledZones":null,"passedParameters":[1]})"))
        == ActionWrapper());
}

void BlueprintInstancesTest::wrapperBecomesInstance()
{
    const ActionWrapper wrapper{blueprint, {hall}, {{"power", 60}, {"colour", "red"}, {"lamp", node}}};

    const auto instance = wrapper.toBlueprint();

    QCOMPARE(instance.blueprint, blueprint);
    QCOMPARE(instance.zones, QSet<QUuid>{hall});
    const std::vector<ExposedPropertyValue> expected{
        {"colour", ActionDatatype(QString("red"))},
        {"lamp", ActionDatatype(ActionDatatype::EntityDatatype(node))},
        {"power", integer(60)},
    };
    QVERIFY(instance.properties == expected);
}

void BlueprintInstancesTest::wrapperWithoutParametersBecomesInstance()
{
    const auto instance = ActionWrapper{blueprint, {hall, kitchen}, {}}.toBlueprint();

    QVERIFY(instance.properties.empty());
    QCOMPARE(instance.zones, (QSet<QUuid>{hall, kitchen}));
}

void BlueprintInstancesTest::equalityNeedsEveryField()
{
    const ExposedPropertyValue property(node, "power", integer(1));
    QVERIFY(property == ExposedPropertyValue(node, "power", integer(1)));
    QVERIFY(!(property == ExposedPropertyValue(hall, "power", integer(1))));
    QVERIFY(!(property == ExposedPropertyValue(node, "mode", integer(1))));
    QVERIFY(!(property == ExposedPropertyValue(node, "power", integer(2))));

    auto other = someInstance();
    other.blueprint = hall;
    QVERIFY(!(someInstance() == other));
    other = someInstance();
    other.properties.pop_back();
    QVERIFY(!(someInstance() == other));
    other = someInstance();
    other.zones.remove(hall);
    QVERIFY(!(someInstance() == other));

    const ActionWrapper wrapper{blueprint, {hall}, {{"power", 60}}};
    QVERIFY(!(wrapper == ActionWrapper{hall, {hall}, {{"power", 60}}}));
    QVERIFY(!(wrapper == ActionWrapper{blueprint, {kitchen}, {{"power", 60}}}));
    QVERIFY(!(wrapper == ActionWrapper{blueprint, {hall}, {{"power", 61}}}));
}

ONDIRA_TEST(BlueprintInstancesTest)
#include "BlueprintInstancesTest.moc"
