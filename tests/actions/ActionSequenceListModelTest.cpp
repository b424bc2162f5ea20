// SPDX-License-Identifier: GPL-3.0-or-later
#include "actions/ActionSequenceListModel.h"
#include "data/Records.h"
#include "data/ScriptTools.h"
#include "data/SignalLog.h"
#include "model/StandardBlueprints.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>

using namespace Records;
using Model::ActionDatatype;
using Role = ActionSequenceListModel::Role;

namespace {

Model::NodePropertyInstance exposed(const QString &id, const QString &description, const ActionDatatype &value)
{
    Model::NodePropertyInstance property(id);
    property.name = "name of " + id;
    property.globalName = id;
    property.userDescription = description;
    property.value = value;
    property.valueLimits = Model::ActionValueLimits(value.type());
    property.exposed = true;
    return property;
}

Model::ActionBlueprint blueprint(uint n, const std::vector<Model::NodePropertyInstance> &properties)
{
    Model::ActionBlueprint record(QStringLiteral("Blueprint %1").arg(n), uid(n));
    Model::NodeInstance node(QStringLiteral("constant"), uid(n + 1000));
    node.properties = properties;
    record.nodes.push_back(node);
    return record;
}

Model::ActionBlueprintInstance instance(uint n, const std::vector<Model::ExposedPropertyValue> &properties = {},
                                        const QSet<QUuid> &zones = {})
{
    return {uid(n), properties, zones};
}

QVariant sequence(const std::vector<Model::ActionBlueprintInstance> &instances)
{
    return Model::ActionSequence{instances}.toVariant();
}

std::vector<Model::ActionBlueprintInstance> instancesOf(const ActionSequenceListModel &model)
{
    return Model::ActionSequence::fromVariant(model.getActionSequence()).instances;
}

Model::ActionBlueprint lamp()
{
    auto hidden = exposed("hidden", {}, ActionDatatype(1LL));
    hidden.exposed = false;
    return blueprint(
        1, {exposed("power", "Мощность", ActionDatatype(50LL)), hidden, exposed("ramp", {}, ActionDatatype(1.5))});
}

} // namespace

class ActionSequenceListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void namesItsRoles()
    {
        const QHash<int, QByteArray> expected{{257, "blueprint"}, {258, "zones"}, {259, "properties"}, {260, "values"}};

        QCOMPARE(ActionSequenceListModel().roleNames(), expected);
    }

    void presentsAnInstance()
    {
        ActionSequenceListModel model;
        model.setBlueprints({lamp()});

        model.setActionSequence(sequence({instance(1, {{"ramp", ActionDatatype(2.5)}}, {uid(10)})}));

        QCOMPARE(value(model, 0, Role::Blueprint), QVariant(text(1)));
        QCOMPARE(value(model, 0, Role::Zones).toStringList(), QStringList({text(10)}));
        const auto properties = value(model, 0, Role::Properties).toList();
        QCOMPARE(properties,
                 (QVariantList{QVariantMap{{"name", "power"}, {"description", "Мощность"}, {"type", "integer"}},
                               QVariantMap{{"name", "ramp"}, {"description", "name of ramp"}, {"type", "double"}}}));
        const auto values = value(model, 0, Role::Values).toList();
        QCOMPARE(values.size(), 2);
        const auto power = values[0].toMap();
        QCOMPARE(power.value("definition"), Model::ActionValueLimits(ActionDatatype::Type::Integer).toVariant());
        QCOMPARE(power.value("value").toInt(), 50); // the blueprint's own
        QCOMPARE(power.value("displayValue"), QVariant("50"));
        QCOMPARE(values[1].toMap().value("value"), QVariant(2.5)); // the instance's
        QVERIFY(!value(model, 0, Qt::DisplayRole).isValid());
        QVERIFY(!value(model, 1, Role::Blueprint).isValid());
    }

    void fitsASequenceToItsBlueprints()
    {
        ActionSequenceListModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        model.setBlueprints({lamp()});
        SignalLog log(model);
        QSignalSpy changed(&model, &ActionSequenceListModel::actionSequenceChanged);

        model.setActionSequence(sequence({instance(
            1, {{"gone", ActionDatatype(1LL)}, {"ramp", ActionDatatype(2.5)}, {"hidden", ActionDatatype(3LL)}})}));

        QVERIFY(instancesOf(model)
                == std::vector<Model::ActionBlueprintInstance>(
                    {instance(1, {{"ramp", ActionDatatype(2.5)}, {"power", ActionDatatype(50LL)}})}));
        QCOMPARE(log.take(), QStringList({"resetting", "reset"}));
        QCOMPARE(changed.count(), 1);
    }

    void anUnknownBlueprintStaysAsItIs_data()
    {
        QTest::addColumn<QUuid>("blueprint");

        QTest::newRow("any") << uid(9);
        QTest::newRow("null") << QUuid();
        QTest::newRow("power, which is built in") << Model::StandardBlueprints::setPowerUid();
    }

    void anUnknownBlueprintStaysAsItIs()
    {
        QFETCH(QUuid, blueprint);
        ActionSequenceListModel model;
        const Model::ActionBlueprintInstance kept{blueprint, {{"own", ActionDatatype(1LL)}}, {uid(10)}};

        model.setActionSequence(sequence({kept}));

        QVERIFY(instancesOf(model) == std::vector<Model::ActionBlueprintInstance>{kept});
    }

    void anUnknownBlueprintShowsNoProperties_data()
    {
        QTest::addColumn<QUuid>("blueprint");

        QTest::newRow("any") << uid(9);
        QTest::newRow("power, without its value") << Model::StandardBlueprints::setPowerUid();
    }

    void anUnknownBlueprintShowsNoProperties()
    {
        QFETCH(QUuid, blueprint);
        ActionSequenceListModel model;

        model.setActionSequence(sequence({{blueprint, {{"own", ActionDatatype(1LL)}}, {}}}));

        QCOMPARE(value(model, 0, Role::Properties).toList(), QVariantList());
        QCOMPARE(value(model, 0, Role::Values).toList(), QVariantList());
    }

    void healsWhenItsBlueprintsCome()
    {
        ActionSequenceListModel model;
        model.setActionSequence(sequence({instance(1, {{"gone", ActionDatatype(1LL)}})}));
        QSignalSpy blueprints(&model, &ActionSequenceListModel::blueprintsChanged);
        QSignalSpy changed(&model, &ActionSequenceListModel::actionSequenceChanged);
        SignalLog log(model);

        QVERIFY(model.setProperty("blueprints", QVariant::fromValue(std::vector<Model::ActionBlueprint>{lamp()})));

        QCOMPARE(blueprints.count(), 1);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(log.take(), QStringList({"resetting", "reset"}));
        QVERIFY(instancesOf(model)[0] == instance(1, {{"power", ActionDatatype(50LL)}, {"ramp", ActionDatatype(1.5)}}));
        QCOMPARE(model.getBlueprints().size(), std::size_t(1));
    }

    void whatIsNoSequenceIsEmpty()
    {
        ActionSequenceListModel model;

        for (const QVariant &given : {QVariant(), QVariant("x"), QVariant(5), QVariant(QVariantMap{{"a", 1}})}) {
            model.setActionSequence(given);
            QCOMPARE(model.rowCount(), 0);
        }
        model.setActionSequence(QVariantList{5, QVariant(), "x"});
        QCOMPARE(model.rowCount(), 3);
        QCOMPARE(value(model, 2, Role::Properties).toList(), QVariantList());
    }

    void addsPowerBeforeAnyBlueprintCame()
    {
        ActionSequenceListModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(model);
        QSignalSpy changed(&model, &ActionSequenceListModel::actionSequenceChanged);

        model.add();

        QCOMPARE(log.take(), QStringList({"inserting 0-0", "inserted 0-0"}));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(value(model, 0, Role::Blueprint), QVariant(Model::StandardBlueprints::setPowerUid().toString()));
        QCOMPARE(value(model, 0, Role::Zones).toList(), QVariantList());
        QCOMPARE(value(model, 0, Role::Properties).toList().value(0).toMap().value("name"), QVariant("power"));
        QVERIFY(instancesOf(model)[0].properties == Model::StandardBlueprints::setPower().getExposedProperties());
        model.setPropertyValue(0, "power", 40);
        QCOMPARE(value(model, 0, Role::Values).toList().value(0).toMap().value("value").toInt(), 40);
    }

    void addsThePowerOfTheServer()
    {
        ActionSequenceListModel model;
        auto power = lamp();
        power.uid = Model::StandardBlueprints::setPowerUid();
        model.setBlueprints({power});

        model.add();

        QVERIFY(instancesOf(model)[0].properties == power.getExposedProperties());
        QCOMPARE(value(model, 0, Role::Properties).toList().size(), 2);
    }

    void removesARow()
    {
        ActionSequenceListModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        model.setActionSequence(sequence({instance(1), instance(2), instance(3)}));
        SignalLog log(model);
        QSignalSpy changed(&model, &ActionSequenceListModel::actionSequenceChanged);

        model.remove(1);

        QCOMPARE(column(model, Role::Blueprint), QStringList({text(1), text(3)}));
        QCOMPARE(log.take(), QStringList({"removing 1-1", "removed 1-1"}));
        QCOMPARE(changed.count(), 1);
    }

    void takesAnotherBlueprint()
    {
        ActionSequenceListModel model;
        model.setBlueprints({lamp(), blueprint(2, {exposed("speed", "Speed", ActionDatatype(3LL))})});
        model.setActionSequence(sequence({instance(1, {}, {uid(10)})}));
        SignalLog log(model);
        QSignalSpy changed(&model, &ActionSequenceListModel::actionSequenceChanged);

        model.setBlueprint(0, text(1));
        QCOMPARE(log.take(), QStringList());
        QCOMPARE(changed.count(), 0);

        model.setBlueprint(0, text(2));
        QVERIFY(instancesOf(model)[0] == instance(2, {{"speed", ActionDatatype(3LL)}}, {uid(10)}));
        QCOMPARE(log.take(), QStringList({"changed 0-0: 257 259", "changed 0-0: 260"}));
        QCOMPARE(changed.count(), 1);

        model.setBlueprint(0, text(9));
        QVERIFY(instancesOf(model)[0] == instance(9, {}, {uid(10)}));
        QCOMPARE(changed.count(), 2);
    }

    void setsAValueOfTheSameType_data()
    {
        QTest::addColumn<QString>("id");
        QTest::addColumn<QVariant>("given");
        QTest::addColumn<QVariant>("expected");
        QTest::addColumn<bool>("changed");

        QTest::newRow("integer") << "power" << QVariant(40) << QVariant(40LL) << true;
        QTest::newRow("integer from a double") << "power" << QVariant(40.9) << QVariant(40LL) << true;
        QTest::newRow("the same") << "power" << QVariant(50) << QVariant(50LL) << false;
        QTest::newRow("double from an integer") << "ramp" << QVariant(2) << QVariant(2.0) << true;
    }

    void setsAValueOfTheSameType()
    {
        QFETCH(QString, id);
        QFETCH(QVariant, given);
        QFETCH(QVariant, expected);
        QFETCH(bool, changed);
        ActionSequenceListModel model;
        model.setBlueprints({lamp()});
        model.setActionSequence(sequence({instance(1)}));
        const auto before = instancesOf(model)[0].property(id)->value.type();
        SignalLog log(model);
        QSignalSpy announced(&model, &ActionSequenceListModel::actionSequenceChanged);

        model.setPropertyValue(0, id, given);

        const auto now = instancesOf(model)[0].property(id)->value;
        QCOMPARE(now.type(), before);
        QCOMPARE(now.valueToVariant(), expected);
        QCOMPARE(log.take(), changed ? QStringList{"changed 0-0: 260"} : QStringList());
        QCOMPARE(announced.count(), changed ? 1 : 0);
    }

    void anUnknownPropertyIsAnnouncedAlone()
    {
        ActionSequenceListModel model;
        model.setBlueprints({lamp()});
        model.setActionSequence(sequence({instance(1)}));
        const auto before = instancesOf(model);
        SignalLog log(model);
        QSignalSpy changed(&model, &ActionSequenceListModel::actionSequenceChanged);

        model.setPropertyValue(0, "unknown", 5);

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(changed.count(), 1);
        QVERIFY(instancesOf(model) == before);
    }

    void setsZones()
    {
        ActionSequenceListModel model;
        model.setActionSequence(sequence({instance(1, {}, {uid(10)})}));
        QSignalSpy changed(&model, &ActionSequenceListModel::actionSequenceChanged);

        model.setZones(0, {text(11), text(12), text(11)});

        QVERIFY(instancesOf(model)[0].zones == QSet<QUuid>({uid(11), uid(12)}));
        QCOMPARE(changed.count(), 1);
        model.setZones(0, {});
        QVERIFY(instancesOf(model)[0].zones.isEmpty());
    }

    void refusesRowsThatAreNotThere_data()
    {
        QTest::addColumn<QString>("call");

        for (const auto row : {"1", "-1", "2147483647"}) {
            for (const auto call :
                 {"remove(%1)", "setZones(%1, [])", "setBlueprint(%1, '')", "setPropertyValue(%1, 'power', 1)"})
                QTest::addRow("%s, %s", call, row) << QString(call).arg(row);
        }
    }

    void refusesRowsThatAreNotThere()
    {
        QFETCH(QString, call);
        ActionSequenceListModel model;
        model.setActionSequence(sequence({instance(1)}));
        SignalLog log(model);
        QSignalSpy changed(&model, &ActionSequenceListModel::actionSequenceChanged);
        QJSEngine engine;
        expose(engine, "model", model);
        expectMessage(QtWarningMsg, "^The sequence has no action -?\\d+$");

        const auto result = engine.evaluate("model." + call);

        QVERIFY2(!result.isError(), qPrintable(result.toString()));
        QCOMPARE(model.rowCount(), 1);
        QCOMPARE(log.take(), QStringList());
        QCOMPARE(changed.count(), 0);
    }
};

ONDIRA_TEST(ActionSequenceListModelTest)
#include "ActionSequenceListModelTest.moc"
