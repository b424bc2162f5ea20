// SPDX-License-Identifier: GPL-3.0-or-later
#include "actions/ActionWrapperBuilder.h"
#include "support/TestBase.h"

#include <QJSEngine>

class ActionWrapperBuilderTest : public TestBase
{
    Q_OBJECT

private slots:
    void buildsAWrapper()
    {
        ActionWrapperBuilder builder;
        builder.setAction("{00000001-0000-0000-0000-000000000000}");
        builder.setZones({"{00000002-0000-0000-0000-000000000000}", "{00000002-0000-0000-0000-000000000000}",
                          "{00000003-0000-0000-0000-000000000000}"});
        builder.setParams(QVariantMap{{"power", 40}});

        const auto wrapper = builder.toWrapper();

        QCOMPARE(wrapper.action, QUuid(1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0));
        QCOMPARE(wrapper.controlledZones.size(), 2);
        QCOMPARE(wrapper.passedParameters, (QVariantMap{{"power", 40}}));
    }

    void isEmptyAtFirst()
    {
        const auto wrapper = ActionWrapperBuilder().toWrapper();

        QVERIFY(wrapper.action.isNull());
        QVERIFY(wrapper.controlledZones.isEmpty());
        QVERIFY(wrapper.passedParameters.isEmpty());
    }

    void announcesOnlyChanges()
    {
        ActionWrapperBuilder builder;
        QSignalSpy action(&builder, &ActionWrapperBuilder::actionChanged);
        QSignalSpy zones(&builder, &ActionWrapperBuilder::zonesChanged);
        QSignalSpy params(&builder, &ActionWrapperBuilder::paramsChanged);

        for (int i = 0; i < 2; ++i) {
            builder.setAction("a");
            builder.setZones({"z"});
            builder.setParams(QVariantMap{{"power", "x"}});
        }
        QCOMPARE(action.count(), 1);
        QCOMPARE(zones.count(), 1);
        QCOMPARE(params.count(), 1);
        builder.setAction("A");
        builder.setZones({"Z"});
        builder.setParams(QVariantMap{{"power", "X"}});

        QCOMPARE(action.count(), 2);
        QCOMPARE(zones.count(), 2);
        QCOMPARE(params.count(), 2);
    }

    void equalScriptObjectsAreNoChange()
    {
        QJSEngine engine;
        ActionWrapperBuilder builder;
        QSignalSpy params(&builder, &ActionWrapperBuilder::paramsChanged);

        builder.setParams(QVariant::fromValue(engine.evaluate("({power: 40})")));
        builder.setParams(QVariant::fromValue(engine.evaluate("({power: 40})")));

        QCOMPARE(params.count(), 1);
        QCOMPARE(builder.toWrapper().passedParameters.value("power").toInt(), 40);
    }

    void paramsOutliveTheirEngine()
    {
        ActionWrapperBuilder builder;
        {
            QJSEngine engine;
            builder.setParams(QVariant::fromValue(engine.evaluate("({power: 40})")));
        }

        QCOMPARE(builder.toWrapper().passedParameters.value("power").toInt(), 40);
    }

    void paramsOfAnotherKindAreNone_data()
    {
        QTest::addColumn<QVariant>("params");

        QTest::newRow("text") << QVariant("power");
        QTest::newRow("number") << QVariant(5);
        QTest::newRow("list") << QVariant(QVariantList{1});
        QTest::newRow("null") << QVariant::fromValue(nullptr);
        QTest::newRow("nothing") << QVariant();
    }

    void paramsOfAnotherKindAreNone()
    {
        ActionWrapperBuilder builder;
        builder.setParams(QVariantMap{{"power", 40}});
        QFETCH(QVariant, params);

        builder.setParams(params);

        QVERIFY(builder.toWrapper().passedParameters.isEmpty());
    }
};

ONDIRA_TEST(ActionWrapperBuilderTest)
#include "ActionWrapperBuilderTest.moc"
