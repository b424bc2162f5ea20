// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProxyTest.h"
#include "data/qqsfpm/filters/ValueFilter.h"

using namespace qqsfpm;

// A source that is set late, replaced or deleted, and one that finds its roles only with its first row.
class SourceChangesTest : public TestBase
{
    Q_OBJECT

private slots:
    void sourceSetLater();
    void sourceReplaced();
    void sourceReplacedByOneWithOtherRoles();
    void sourceTakenAway();
    void sourceDeletedWhileSet();
    void sourceDeletedBeforeCompletion();
    void sameSourceIsNoChange();
    void oldSourceIsNotListenedTo();
    void listModelWithoutRowsHasNoRoles();
    void listModelThatGainsARole();
    void rolesChangedByAReset();
    void viewOfAListModel();
    void rowsMovedInTheSource();
    void sourceThatIsReversed();
    void sourceSetBeforeAndAfterCompletionAgree();
};

void SourceChangesTest::sourceSetLater()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        filterRoleName: 'age'
        filterPattern: '30|25'
        sortRoleName: 'name'
        sortCaseSensitivity: Qt.CaseInsensitive
        filters: ValueFilter { roleName: 'town'; value: 'Perm' }
    })",
                       &people);
    QAbstractItemModelTester tester(qml.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);
    QCOMPARE(qml.proxy->count(), 0);
    QSignalSpy counts(qml.proxy, &Proxy::countChanged);

    qml.proxy->setSourceModel(&people);

    QCOMPARE(shown(*qml.proxy), QString("alice Bob"));
    QCOMPARE(counts.count(), 1);
}

void SourceChangesTest::sourceReplaced()
{
    PeopleModel people;
    PeopleModel others;
    others.set(0, "age", 1);
    Proxy proxy;
    ValueFilter filter;
    filter.setRoleName("age");
    filter.setValue(30);
    proxy.setSourceModel(&people);
    proxy.appendFilter(&filter);
    proxy.componentComplete();
    QCOMPARE(shown(proxy), QString("carol Bob"));
    QSignalSpy resets(&proxy, &QAbstractItemModel::modelReset);

    proxy.setSourceModel(&others);

    QCOMPARE(resets.count(), 1);
    QCOMPARE(shown(proxy), QString("Bob"));
}

void SourceChangesTest::sourceReplacedByOneWithOtherRoles()
{
    PeopleModel people;
    RowsModel others({"town", "name"}, {{{"name", "z"}, {"town", "b"}}, {{"name", "y"}, {"town", "a"}}});
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        sorters: RoleSorter { roleName: 'town' }
        filters: ExpressionFilter { expression: model.name !== 'eve' }
        filterRoleName: 'name'
        filterPattern: '.'
        proxyRoles: JoinRole { name: 'made'; roleNames: ['town', 'name'] }
    })",
                       &people);
    QAbstractItemModelTester tester(qml.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);
    QCOMPARE(shown(*qml.proxy), QString("carol dave alice Bob"));

    qml.proxy->setSourceModel(&others);

    QCOMPARE(shown(*qml.proxy, "made"), QString("a y b z"));
    QCOMPARE(qml.proxy->roleForName("age"), -1);
    QCOMPARE(qml.proxy->roleForName("made"), Qt::UserRole + 3);
}

void SourceChangesTest::sourceTakenAway()
{
    PeopleModel people;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; sortRoleName: 'name' }", &people);
    QCOMPARE(qml.proxy->count(), 5);

    qml.proxy->setProperty("sourceModel", QVariant::fromValue<QAbstractItemModel *>(nullptr));

    QCOMPARE(qml.proxy->count(), 0);
    QVERIFY(qml.proxy->roleNames().isEmpty());
    qml.proxy->setSourceModel(&people);
    QCOMPARE(shown(*qml.proxy), QString("Bob alice carol dave eve"));
}

void SourceChangesTest::sourceDeletedWhileSet()
{
    auto people = std::make_unique<PeopleModel>();
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        sorters: RoleSorter { roleName: 'name' }
        filters: ExpressionFilter { expression: model.age < 40 }
        proxyRoles: JoinRole { name: 'made'; roleNames: ['name'] }
    })",
                       people.get());
    QCOMPARE(qml.proxy->count(), 4);
    QSignalSpy resets(qml.proxy, &QAbstractItemModel::modelReset);
    QSignalSpy counts(qml.proxy, &Proxy::countChanged);
    QSignalSpy sources(qml.proxy, &QAbstractProxyModel::sourceModelChanged);

    people.reset();

    QCOMPARE(qml.proxy->sourceModel(), nullptr);
    QCOMPARE(qml.proxy->count(), 0);
    QCOMPARE(resets.count(), 1);
    QCOMPARE(counts.count(), 1);
    QCOMPARE(sources.count(), 1);
    QCOMPARE(qml.proxy->roleForName("name"), -1);
    qml.proxy->invalidate();
    qml.proxy->invalidateFilter();
    qml.proxy->invalidateProxyRoles();
    QVERIFY(qml.proxy->get(0).isEmpty());

    PeopleModel others;
    qml.proxy->setSourceModel(&others);
    QCOMPARE(shown(*qml.proxy, "made"), QString("alice Bob carol eve"));
}

void SourceChangesTest::sourceDeletedBeforeCompletion()
{
    Proxy proxy;
    {
        PeopleModel people;
        proxy.setSourceModel(&people);
        QCOMPARE(proxy.count(), 5);
    }

    proxy.componentComplete();

    QCOMPARE(proxy.count(), 0);
}

void SourceChangesTest::sameSourceIsNoChange()
{
    PeopleModel people;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people }", &people);
    QSignalSpy resets(qml.proxy, &QAbstractItemModel::modelReset);

    qml.proxy->setSourceModel(&people);

    QVERIFY(resets.isEmpty());
}

void SourceChangesTest::oldSourceIsNotListenedTo()
{
    PeopleModel people;
    PeopleModel others;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; sorters: RoleSorter { roleName: 'name' } }",
                       &people);
    qml.proxy->setSourceModel(&others);
    QCOMPARE(qml.proxy->count(), 5);

    people.append({{"name", "frank"}});
    people.setRoles({"other"});

    QCOMPARE(shown(*qml.proxy), QString("alice Bob carol dave eve"));
}

void SourceChangesTest::listModelWithoutRowsHasNoRoles()
{
    const QmlProxy qml(R"(QtObject {
        property var list: ListModel {}
        property var proxy: SortFilterProxyModel {
            sourceModel: list
            sortRoleName: 'name'
            filterRoleName: 'age'
            filterPattern: '^3'
            filters: ExpressionFilter { expression: model.name !== 'x' }
            sorters: RoleSorter { roleName: 'age' }
            proxyRoles: JoinRole { name: 'made'; roleNames: ['name', 'age'] }
        }
    })",
                       nullptr);
    QVERIFY(qml.proxy);
    QCOMPARE(qml.proxy->count(), 0);
    QCOMPARE(qml.proxy->roleForName("name"), -1);

    qml.run("list.append({ name: 'carol', age: 30 })");
    qml.run("list.append({ name: 'x', age: 30 })");
    qml.run("list.append({ name: 'alice', age: 31 })");
    qml.run("list.append({ name: 'bob', age: 29 })");

    QCOMPARE(shown(*qml.proxy, "made"), QString("alice 31 carol 30"));
    QVERIFY(qml.proxy->roleForName("age") >= 0);
}

void SourceChangesTest::listModelThatGainsARole()
{
    const QmlProxy qml(R"(QtObject {
        property var list: ListModel { ListElement { name: 'carol' } ListElement { name: 'alice' } }
        property var proxy: SortFilterProxyModel {
            sourceModel: list
            filters: ValueFilter { roleName: 'age'; value: 30 }
            sortRoleName: 'age'
            proxyRoles: JoinRole { name: 'made'; roleNames: ['name', 'age'] }
        }
    })",
                       nullptr);
    QCOMPARE(qml.proxy->count(), 0);
    QSignalSpy resets(qml.proxy, &QAbstractItemModel::modelReset);

    qml.run("list.append({ name: 'bob', age: 30 })");
    QCOMPARE(shown(*qml.proxy, "made"), QString("bob 30"));
    QCOMPARE(resets.count(), 1); // the proxy role has got another number

    qml.run("list.setProperty(0, 'town', 'Omsk')");
    QCOMPARE(resets.count(), 2);
    QCOMPARE(shown(*qml.proxy, "made"), QString("bob 30"));
    QCOMPARE(qml.proxy->roleNames().size(), 4);
}

void SourceChangesTest::rolesChangedByAReset()
{
    RowsModel model({"name"}, {{{"name", "b"}, {"age", 1}}, {{"name", "a"}, {"age", 2}}});
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        sorters: RoleSorter { roleName: 'age'; ascendingOrder: false }
        filterRoleName: 'age'
        filterValue: 2
    })",
                       &model);
    QCOMPARE(qml.proxy->count(), 0);
    QSignalSpy resets(qml.proxy, &QAbstractItemModel::modelReset);

    model.setRoles({"age", "name"});

    QCOMPARE(resets.count(), 1);
    QCOMPARE(shown(*qml.proxy), QString("a"));
}

void SourceChangesTest::viewOfAListModel()
{
    const QmlProxy qml(R"(QtObject {
        id: root
        property var list: ListModel {}
        property var proxy: SortFilterProxyModel {
            sourceModel: root.list
            sorters: RoleSorter { roleName: 'name' }
            proxyRoles: ExpressionRole { name: 'made'; expression: model.name + '!' }
        }
        property var view: Instantiator {
            model: root.proxy
            QtObject { property string text: model.made }
        }
    })",
                       nullptr);
    QCOMPARE(qml.run("view.count").toInt(), 0);

    qml.run("list.append({ name: 'b' })");
    qml.run("list.append({ name: 'a' })");

    QCOMPARE(qml.run("[view.objectAt(0).text, view.objectAt(1).text].join()").toString(), QString("a!,b!"));
}

void SourceChangesTest::rowsMovedInTheSource()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        filters: ExpressionFilter { expression: model.index > 0 }
    })",
                       &people);
    QAbstractItemModelTester tester(qml.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);
    QCOMPARE(shown(*qml.proxy), QString("alice Bob dave eve"));

    people.move(2, 0);

    QTRY_COMPARE(shown(*qml.proxy), QString("carol alice dave eve"));
}

void SourceChangesTest::sourceThatIsReversed()
{
    PeopleModel people;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; sorters: RoleSorter { roleName: 'age' } }",
                       &people);
    QAbstractItemModelTester tester(qml.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);
    QCOMPARE(shown(*qml.proxy), QString("alice eve carol Bob dave"));

    people.reverse();

    QCOMPARE(shown(*qml.proxy), QString("eve alice Bob carol dave"));
}

void SourceChangesTest::sourceSetBeforeAndAfterCompletionAgree()
{
    PeopleModel people;
    Proxy before;
    before.setSourceModel(&people);
    QCOMPARE(before.rowCount(), 5); // the base class has listed the rows by now
    before.setSortRoleName("age");
    before.setFilterRoleName("town");
    before.setFilterPattern("Perm|Tver");
    before.componentComplete();

    Proxy after;
    after.setSortRoleName("age");
    after.setFilterRoleName("town");
    after.setFilterPattern("Perm|Tver");
    after.componentComplete();
    after.setSourceModel(&people);

    QCOMPARE(shown(before), QString("alice eve Bob"));
    QCOMPARE(shown(after), shown(before));
}

ONDIRA_TEST(SourceChangesTest)

#include "SourceChangesTest.moc"
