// SPDX-License-Identifier: GPL-3.0-or-later
#include "actions/ActionSequenceBuilder.h"
#include "actions/ActionWrapperBuilder.h"
#include "data/ShopController.h"
#include "model/StandardBlueprints.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QQmlComponent>
#include <QQmlEngine>

namespace {

const char *const document = R"(
    import ActionSequenceBuilder 1.0
    import ActionWrapper 1.0
    ActionSequenceBuilder {
        property var zoneUids: ["{00000001-0000-0000-0000-000000000000}", "{00000002-0000-0000-0000-000000000000}"]
        property int power: 40
        function standard(n) { return getStandardAction(n) }
        ActionWrapper { action: standard(ActionSequenceBuilder.SetManualMode); zones: zoneUids }
        ActionWrapper {
            action: standard(ActionSequenceBuilder.SetPower)
            zones: zoneUids
            params: ({ "power": power })
        }
    }
)";

} // namespace

class ActionSequenceBuilderTest : public TestBase
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        qmlRegisterType<ActionSequenceBuilder>("ActionSequenceBuilder", 1, 0, "ActionSequenceBuilder");
        qRegisterMetaType<Model::ActionSequence>();
        qmlRegisterType<ActionWrapperBuilder>("ActionWrapper", 1, 0, "ActionWrapper");
    }

    void buildsWhatIsDeclared()
    {
        const auto builder = create();

        const auto sequence = builder->toSequence();

        QCOMPARE(sequence.instances.size(), std::size_t(2));
        const QSet<QUuid> zones{QUuid(1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0), QUuid(2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0)};
        QCOMPARE(sequence.instances[0].blueprint, Model::StandardBlueprints::setManualModeUid());
        QVERIFY(sequence.instances[0].zones == zones);
        QVERIFY(sequence.instances[0].properties.empty());
        QCOMPARE(sequence.instances[1].blueprint, Model::StandardBlueprints::setPowerUid());
        QVERIFY(sequence.instances[1].zones == zones);
        QCOMPARE(sequence.instances[1].properties.size(), std::size_t(1));
        QCOMPARE(sequence.instances[1].properties[0].globalID(), QString("power"));
        QCOMPARE(sequence.instances[1].properties[0].value.toInteger(), 40LL);
    }

    void followsItsBindings()
    {
        const auto builder = create();

        builder->setProperty("power", 75);

        QCOMPARE(builder->toSequence().instances[1].properties[0].value.toInteger(), 75LL);
    }

    void scriptsPassTheSequenceOn()
    {
        const auto builder = create();
        FakeCommunicator link;
        ShopController shop(link);
        for (auto *const object : {static_cast<QObject *>(builder.get()), static_cast<QObject *>(&shop)})
            QQmlEngine::setObjectOwnership(object, QQmlEngine::CppOwnership);
        m_engine.globalObject().setProperty("builder", m_engine.newQObject(builder.get()));
        m_engine.globalObject().setProperty("shop", m_engine.newQObject(&shop));

        const auto result = m_engine.evaluate("shop.runActionSequence(builder.toSequence())");

        QVERIFY2(!result.isError(), qPrintable(result.toString()));
        QCOMPARE(link.operations, QStringList({"runActionSequences"}));
        QVERIFY(link.sequences == std::vector<Model::ActionSequence>{builder->toSequence()});
        QCOMPARE(link.sequences[0].instances.size(), std::size_t(2));
    }

    void isEmptyWithoutSteps()
    {
        const ActionSequenceBuilder builder;

        QVERIFY(builder.toSequence().instances.empty());
    }

    void aStepThatIsGoneIsPassedOver()
    {
        const auto builder = create();
        auto list = builder->getActions();
        QCOMPARE(list.count(&list), 2);

        delete list.at(&list, 0);

        const auto sequence = builder->toSequence();
        QCOMPARE(sequence.instances.size(), std::size_t(1));
        QCOMPARE(sequence.instances[0].blueprint, Model::StandardBlueprints::setPowerUid());
    }

    void stepsMayBeClearedAndAppended()
    {
        ActionSequenceBuilder builder;
        ActionWrapperBuilder step;
        step.setAction(Model::StandardBlueprints::setAutoModeUid().toString());
        auto list = builder.getActions();

        list.append(&list, &step);
        list.append(&list, nullptr);
        QCOMPARE(builder.toSequence().instances.size(), std::size_t(1));
        QCOMPARE(list.at(&list, 99), nullptr);
        list.clear(&list);

        QVERIFY(builder.toSequence().instances.empty());
    }

    void knowsTheStandardActions_data()
    {
        QTest::addColumn<int>("action");
        QTest::addColumn<QString>("expected");

        QTest::newRow("ByIndoorLightSensor") << 1 << "{00000ec0-0001-0000-0000-000000000001}";
        QTest::newRow("SetPower") << 2 << "{00000ec0-0002-0000-0000-000000000002}";
        QTest::newRow("SetAutoMode") << 3 << "{00000ec0-0003-0000-0000-000000000003}";
        QTest::newRow("ByOutdoorLightSensor") << 4 << "{00000ec0-0004-0000-0000-000000000004}";
        QTest::newRow("SetManualMode") << 5 << "{00000ec0-0005-0000-0000-000000000005}";
    }

    void knowsTheStandardActions()
    {
        QFETCH(int, action);
        const ActionSequenceBuilder builder;

        QTEST(builder.getStandardAction(static_cast<ActionSequenceBuilder::StandardAction>(action)), "expected");
    }

private:
    std::unique_ptr<ActionSequenceBuilder> create()
    {
        QQmlComponent component(&m_engine);
        component.setData(document, QUrl());
        auto *const object = component.create();
        if (!object)
            qWarning() << component.errorString();
        return std::unique_ptr<ActionSequenceBuilder>(qobject_cast<ActionSequenceBuilder *>(object));
    }

    QQmlEngine m_engine;
};

ONDIRA_TEST(ActionSequenceBuilderTest)
#include "ActionSequenceBuilderTest.moc"
