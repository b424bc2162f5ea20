// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProxyTest.h"
#include "data/qqsfpm/filters/ExpressionFilter.h"
#include "data/qqsfpm/proxyroles/ExpressionRole.h"
#include "data/qqsfpm/sorters/ExpressionSorter.h"

using namespace qqsfpm;

class RowScriptTest : public TestBase
{
    Q_OBJECT

private slots:
    void readsOnlyTheRolesItTouches();
    void rowIsAnOrdinaryObject();
    void missingRoleIsUndefined();
    void roleNamedIndexGoesBeforeTheRowNumber();
    void readsOwnPropertiesAndIdsOfTheDocument();
    void keptRowIsEmptyAfterwards();
    void errorIsLoggedOnceForAllRows();
    void otherErrorIsLogged();
    void valueThatIsNoBoolIsLoggedWithItsPlace_data();
    void valueThatIsNoBoolIsLoggedWithItsPlace();
    void faultyRoleIsLoggedAndInvalid();
    void faultySorterKeepsTheSourceOrder();
    void changeOfADependencyIsOnePass();
    void dependencyOfOneBranchOnlyIsHeard();
    void dependencyOfALateBranchIsHeard();
    void dependencyThatAppearsLaterIsHeard();
    void dependencyOfASorterIsHeard();
    void scriptReplacedFromQml();
    void scriptThatChangesItsOwnDependencyEnds();
    void invalidationDuringAnEvaluationWaits();
    void scriptThatAsksTheProxyGetsItsValues();
    void engineThatIsGoneRefusesRows();
    void contextThatIsGoneRefusesRows();
    void roleThatTheSourceGainsIsSeen();
};

void RowScriptTest::readsOnlyTheRolesItTouches()
{
    PeopleModel people;
    const QmlProxy qml(
        "SortFilterProxyModel { sourceModel: people; filters: ExpressionFilter { expression: model.age > 26 } }",
        &people);
    QCOMPARE(qml.proxy->count(), 3);
    people.reads = 0;

    qml.proxy->invalidateFilter();

    QCOMPARE(people.reads, 5);
}

void RowScriptTest::rowIsAnOrdinaryObject()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        proxyRoles: [
            ExpressionRole { name: 'keys'; expression: Object.keys(model).sort().join() },
            ExpressionRole {
                name: 'copy'
                expression: { var copy = Object.assign({}, model, { keys: 0, copy: 0 }); return JSON.stringify(copy.name) }
            }
        ]
    })",
                       &people);

    QCOMPARE(qml.proxy->get(1, "keys").toString(), QString("age,copy,index,keys,name,town"));
    QCOMPARE(qml.proxy->get(1, "copy").toString(), QString("\"alice\""));
}

void RowScriptTest::missingRoleIsUndefined()
{
    PeopleModel people;
    const QmlProxy qml(
        "SortFilterProxyModel { sourceModel: people; filters: ExpressionFilter { expression: model.x === undefined } }",
        &people);

    QCOMPARE(qml.proxy->count(), 5);
}

void RowScriptTest::roleNamedIndexGoesBeforeTheRowNumber()
{
    RowsModel model({"index"}, {{{"index", 7}}, {{"index", 8}}});
    const QmlProxy qml(
        "SortFilterProxyModel { sourceModel: people; filters: ExpressionFilter { expression: model.index === 8 } }",
        &model);

    QCOMPARE(shown(*qml.proxy, "index"), QString("8"));
}

void RowScriptTest::readsOwnPropertiesAndIdsOfTheDocument()
{
    PeopleModel people;
    const QmlProxy qml(R"(QtObject {
        id: root
        property int limit: 26
        property int other: 41
        property var proxy: SortFilterProxyModel {
            sourceModel: people
            filters: ExpressionFilter {
                id: self
                property string own: 'carol'
                expression: model.age > root.limit && model.age !== other && model.name !== own && self.enabled
            }
        }
    })",
                       &people);

    QCOMPARE(shown(*qml.proxy), QString("Bob"));
}

void RowScriptTest::keptRowIsEmptyAfterwards()
{
    PeopleModel people;
    const QmlProxy qml(R"(QtObject {
        id: root
        property var kept: null
        function keep(row) { kept = row; return row.age > 26 }
        property var proxy: SortFilterProxyModel {
            sourceModel: people
            filters: ExpressionFilter { expression: root.keep(model) }
        }
    })",
                       &people);

    QCOMPARE(qml.proxy->count(), 3);
    QVERIFY(!qml.run("root.kept.name").isValid());
}

void RowScriptTest::errorIsLoggedOnceForAllRows()
{
    PeopleModel people;
    expectMessage(QtWarningMsg, "test.qml:4.*ReferenceError: nothing is not defined");

    const QmlProxy qml("SortFilterProxyModel { sourceModel: people;"
                       " filters: ExpressionFilter { expression: nothing.at.all } }",
                       &people);

    QCOMPARE(qml.proxy->count(), 0);
    qml.proxy->invalidateFilter();
    QCOMPARE(qml.proxy->count(), 0);
}

void RowScriptTest::otherErrorIsLogged()
{
    PeopleModel people;
    const QmlProxy qml(R"(QtObject {
        id: root
        property string text: 'first'
        property var proxy: SortFilterProxyModel {
            sourceModel: people
            filters: ExpressionFilter { enabled: false; expression: { throw new Error(root.text) } }
        }
    })",
                       &people);

    expectMessage(QtWarningMsg, "Error: first");
    qml.run("proxy.filters[0].enabled = true");
    expectMessage(QtWarningMsg, "Error: second");
    qml.run("root.text = 'second'");

    QCOMPARE(qml.proxy->count(), 0);
}

void RowScriptTest::valueThatIsNoBoolIsLoggedWithItsPlace_data()
{
    QTest::addColumn<QByteArray>("expression");

    QTest::newRow("undefined") << QByteArray("undefined");
    QTest::newRow("null") << QByteArray("null");
    QTest::newRow("object") << QByteArray("({ a: 1 })");
    QTest::newRow("array") << QByteArray("[1]");
    QTest::newRow("missing role") << QByteArray("model.height");
}

void RowScriptTest::valueThatIsNoBoolIsLoggedWithItsPlace()
{
    QFETCH(QByteArray, expression);
    PeopleModel people;
    expectMessage(QtWarningMsg, "^test.qml:6:\\d+ : Can't convert result to bool$");

    const QmlProxy qml("SortFilterProxyModel {\n    sourceModel: people\n    filters: ExpressionFilter { expression: "
                           + expression + " }\n}",
                       &people);

    QCOMPARE(qml.proxy->count(), 0);
}

void RowScriptTest::faultyRoleIsLoggedAndInvalid()
{
    PeopleModel people;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; proxyRoles: ExpressionRole { name: 'made'; "
                       "expression: nothing() } }",
                       &people);
    expectMessage(QtWarningMsg, "ReferenceError: nothing is not defined");

    for (int row = 0; row < 5; ++row)
        QVERIFY(!qml.proxy->get(row, "made").isValid());
}

void RowScriptTest::faultySorterKeepsTheSourceOrder()
{
    PeopleModel people;
    expectMessage(QtWarningMsg, "ReferenceError: nothing is not defined");

    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        sorters: ExpressionSorter { expression: nothing.left < modelRight.age }
    })",
                       &people);

    QCOMPARE(shown(*qml.proxy), QString("carol alice Bob dave eve"));
}

void RowScriptTest::changeOfADependencyIsOnePass()
{
    PeopleModel people;
    const QmlProxy qml(R"(QtObject {
        id: root
        property int limit: 26
        property var proxy: SortFilterProxyModel {
            sourceModel: people
            filters: ExpressionFilter { id: age; expression: model.age > root.limit }
        }
        property var filter: age
    })",
                       &people);
    QCOMPARE(shown(*qml.proxy), QString("carol Bob dave"));
    QSignalSpy invalidated(qml.child("filter"), SIGNAL(invalidated()));

    qml.root->setProperty("limit", 35);

    QCOMPARE(shown(*qml.proxy), QString("dave"));
    QCOMPARE(invalidated.count(), 1);
}

void RowScriptTest::dependencyOfOneBranchOnlyIsHeard()
{
    PeopleModel people;
    const QmlProxy qml(R"(QtObject {
        id: root
        property bool first: true
        property bool others: true
        property var proxy: SortFilterProxyModel {
            sourceModel: people
            filters: ExpressionFilter { expression: model.name === 'carol' ? root.first : root.others }
        }
    })",
                       &people);
    QCOMPARE(qml.proxy->count(), 5);

    qml.root->setProperty("first", false);
    QCOMPARE(shown(*qml.proxy), QString("alice Bob dave eve"));

    qml.root->setProperty("others", false);
    QCOMPARE(shown(*qml.proxy), QString());

    qml.root->setProperty("first", true);
    QCOMPARE(shown(*qml.proxy), QString("carol"));
}

void RowScriptTest::dependencyOfALateBranchIsHeard()
{
    QVector<RowsModel::Row> rows;
    for (int i = 0; i < 1000; ++i)
        rows.append({{"age", i}, {"name", "x"}});
    RowsModel model({"age", "name"}, rows);
    const QmlProxy qml(R"(QtObject {
        id: root
        property string search: 'x'
        property var proxy: SortFilterProxyModel {
            sourceModel: people
            filters: ExpressionFilter { expression: model.age !== 500 || model.name === root.search }
        }
    })",
                       &model);
    QCOMPARE(qml.proxy->count(), 1000);

    qml.root->setProperty("search", "y");

    QCOMPARE(qml.proxy->count(), 999);
}

void RowScriptTest::dependencyThatAppearsLaterIsHeard()
{
    PeopleModel people;
    const QmlProxy qml(R"(QtObject {
        id: root
        property bool all: true
        property string town: 'Perm'
        property var proxy: SortFilterProxyModel {
            sourceModel: people
            filters: ExpressionFilter { expression: root.all || model.town === root.town }
        }
    })",
                       &people);
    QCOMPARE(qml.proxy->count(), 5);

    qml.root->setProperty("all", false);
    QCOMPARE(shown(*qml.proxy), QString("alice Bob"));

    qml.root->setProperty("town", "Omsk");
    QCOMPARE(shown(*qml.proxy), QString("carol dave"));
}

void RowScriptTest::dependencyOfASorterIsHeard()
{
    PeopleModel people;
    const QmlProxy qml(R"(QtObject {
        id: root
        property string role: 'age'
        property var proxy: SortFilterProxyModel {
            sourceModel: people
            sorters: ExpressionSorter { expression: modelLeft[root.role] < modelRight[root.role] }
        }
    })",
                       &people);
    QCOMPARE(shown(*qml.proxy), QString("alice eve carol Bob dave"));

    qml.root->setProperty("role", "town");

    QCOMPARE(shown(*qml.proxy), QString("carol dave alice Bob eve"));
}

void RowScriptTest::scriptReplacedFromQml()
{
    PeopleModel people;
    const QmlProxy qml(R"(QtObject {
        property var proxy: SortFilterProxyModel {
            sourceModel: people
            filters: ExpressionFilter { expression: model.age > 26 }
        }
        property var other: ExpressionFilter { expression: model.age < 26 }
    })",
                       &people);
    auto *filter = qobject_cast<ExpressionFilter *>(qml.proxy->filters().first());
    QSignalSpy changed(filter, &ExpressionFilter::expressionChanged);

    filter->setExpression(qml.child<ExpressionFilter>("other")->expression());
    filter->setExpression(qml.child<ExpressionFilter>("other")->expression());

    QCOMPARE(changed.count(), 1);
    QCOMPARE(shown(*qml.proxy), QString("alice eve"));

    filter->setExpression(QQmlScriptString());
    QCOMPARE(qml.proxy->count(), 5);
}

void RowScriptTest::scriptThatChangesItsOwnDependencyEnds()
{
    PeopleModel people;
    expectMessage(QtWarningMsg, "Filtering or sorting changes what it depends on");
    const QmlProxy qml(R"(QtObject {
        id: root
        property int runs: 0
        property int limit: 26
        property var proxy: SortFilterProxyModel {
            sourceModel: people
            filters: ExpressionFilter { expression: { root.runs = root.runs + 1; return model.age > root.limit } }
        }
    })",
                       &people);

    int before = -1;
    const auto isQuiet = [&] {
        const int runs = qml.root->property("runs").toInt();
        return runs == std::exchange(before, runs);
    };
    QTRY_VERIFY(isQuiet());
    QCOMPARE(qml.proxy->count(), 3);

    qml.root->setProperty("limit", 35); // a cause from outside is answered again
    expectMessage(QtWarningMsg, "Filtering or sorting changes what it depends on");
    QTRY_COMPARE(qml.proxy->count(), 1);
    before = -1;
    QTRY_VERIFY(isQuiet());
}

void RowScriptTest::invalidationDuringAnEvaluationWaits()
{
    PeopleModel people;
    const QmlProxy qml(R"(QtObject {
        id: root
        property int age: 30
        function narrow() { town.value = 'Perm'; proxy.invalidate(); return true }
        property var proxy: SortFilterProxyModel {
            sourceModel: people
            sorters: RoleSorter { roleName: 'name' }
            filters: [
                ExpressionFilter { expression: root.narrow() && model.age >= root.age },
                ValueFilter { id: town; roleName: 'town' }
            ]
        }
    })",
                       &people);
    QAbstractItemModelTester tester(qml.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);
    allowMessages("Filtering or sorting changes what it depends on"); // each pass asks for the next

    qml.root->setProperty("age", 25);

    QTRY_COMPARE(shown(*qml.proxy), QString("alice Bob"));
}

void RowScriptTest::scriptThatAsksTheProxyGetsItsValues()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        id: proxy
        sourceModel: people
        sorters: RoleSorter { roleName: 'name' }
        proxyRoles: ExpressionRole {
            name: 'place'
            expression: proxy.mapFromSource(model.index) + ':' + proxy.get(0, 'name')
        }
    })",
                       &people);

    QCOMPARE(shown(*qml.proxy, "place"), QString("0:alice 1:alice 2:alice 3:alice 4:alice"));
}

void RowScriptTest::engineThatIsGoneRefusesRows()
{
    PeopleModel people;
    QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        filters: ExpressionFilter { expression: model.age > 26 }
        sorters: ExpressionSorter { expression: modelLeft.age < modelRight.age }
        proxyRoles: ExpressionRole { name: 'made'; expression: model.age }
    })",
                 &people);
    QCOMPARE(qml.proxy->count(), 3);

    qml.engine.reset();

    QVERIFY(!qml.proxy->get(0, "made").isValid());
    people.append({{"name", "frank"}, {"age", 50}});
    qml.proxy->invalidate();
    QCOMPARE(qml.proxy->count(), 0);
}

void RowScriptTest::contextThatIsGoneRefusesRows()
{
    PeopleModel people;
    Proxy proxy;
    ExpressionFilter filter;
    {
        const QmlProxy qml("QtObject { property var filter: ExpressionFilter { expression: model.age > 26 } }",
                           &people);
        auto *written = qml.child<ExpressionFilter>("filter");
        proxy.setSourceModel(&people);
        proxy.componentComplete();
        proxy.appendFilter(written);
        QCOMPARE(proxy.count(), 3);
        filter.setExpression(written->expression()); // a filter that no document has made
        proxy.appendFilter(&filter);
        QCOMPARE(proxy.count(), 0);
    }
    QCOMPARE(proxy.filters(), QList<Filter *>{&filter});
    QCOMPARE(proxy.count(), 0);
    proxy.removeFilter(&filter);
    QCOMPARE(proxy.count(), 5);
}

void RowScriptTest::roleThatTheSourceGainsIsSeen()
{
    RowsModel model({"name"}, {{{"name", "a"}, {"age", 1}}, {{"name", "b"}, {"age", 2}}});
    const QmlProxy qml(
        "SortFilterProxyModel { sourceModel: people; filters: ExpressionFilter { expression: model.age === 2 } }",
        &model);
    QCOMPARE(qml.proxy->count(), 0);

    model.setRoles({"name", "age"});

    QCOMPARE(shown(*qml.proxy), QString("b"));
}

ONDIRA_TEST(RowScriptTest)

#include "RowScriptTest.moc"
