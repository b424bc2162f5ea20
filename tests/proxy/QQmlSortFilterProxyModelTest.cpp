// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProxyTest.h"
#include "data/qqsfpm/filters/ValueFilter.h"

#include <QStandardItemModel>

using namespace qqsfpm;

class QQmlSortFilterProxyModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void defaults();
    void filtersByPattern_data();
    void filtersByPattern();
    void filtersByValue_data();
    void filtersByValue();
    void patternAndValueAndFiltersMustAllPass();
    void propertiesAreTold_data();
    void propertiesAreTold();
    void patternSyntaxEqualsThatOfQRegExp();
    void unknownFilterRoleHasNoText();
    void filterRoleIsGivenUpAgain();
    void caseSensitivityOfTheBaseClassHolds();
    void givesRows();
    void givesNothingForRowsOutOfRange();
    void givesOneValue();
    void knowsRolesByName();
    void mapsRows();
    void mapsIndexes();
    void mapsFromQml();
    void removesAndInsertsBlocks();
    void changedValueMovesItsRow();
    void countOfAnIncompleteProxyIsThatOfTheSource();
    void hasNoDefaultProperty();
    void treeIsFilteredOnEachLevel();
    void completingTwiceIsOnce();
    void deletedProxyLeavesItsChildrenAlone();
};

void QQmlSortFilterProxyModelTest::defaults()
{
    const Proxy proxy;

    QCOMPARE(proxy.count(), 0);
    QVERIFY(!proxy.delayed());
    QCOMPARE(proxy.filterRoleName(), QString());
    QCOMPARE(proxy.filterPattern(), QString());
    QCOMPARE(proxy.filterPatternSyntax(), Proxy::RegExp);
    QVERIFY(!proxy.filterValue().isValid());
    QCOMPARE(proxy.sortRoleName(), QString());
    QVERIFY(proxy.ascendingSortOrder());
    QCOMPARE(proxy.roleForName("nothing"), -1);
    QVERIFY(proxy.get(0).isEmpty());
    QCOMPARE(proxy.mapToSource(0), -1);
    QCOMPARE(proxy.mapFromSource(0), -1);
}

void QQmlSortFilterProxyModelTest::filtersByPattern_data()
{
    QTest::addColumn<QByteArray>("properties");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &properties, const QString &expected) {
        QTest::newRow(name) << properties << expected;
    };

    row("empty", "filterPattern: ''", "carol alice Bob dave eve");
    row("regular", "filterPattern: 'a.*e'", "alice dave");
    row("wildcard", "filterPattern: 'a*e'; filterPatternSyntax: SortFilterProxyModel.Wildcard", "alice dave");
    row("fixed", "filterPattern: 'a.'; filterPatternSyntax: SortFilterProxyModel.FixedString", "");
    row("fixed, found", "filterPattern: 'ar'; filterPatternSyntax: SortFilterProxyModel.FixedString", "carol");
    row("second regular", "filterPattern: '^.{3}$'; filterPatternSyntax: SortFilterProxyModel.RegExp2", "Bob eve");
    row("Unix wildcard", "filterPattern: '?ve'; filterPatternSyntax: SortFilterProxyModel.WildcardUnix", "dave eve");
    row("XML schema", "filterPattern: 'B.b'; filterPatternSyntax: SortFilterProxyModel.W3CXmlSchema11", "Bob");
    row("broken", "filterPattern: '('", "");
}

void QQmlSortFilterProxyModelTest::filtersByPattern()
{
    QFETCH(QByteArray, properties);
    PeopleModel people;

    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; filterRoleName: 'name'; " + properties + " }",
                       &people);

    QVERIFY(qml.proxy);
    QTEST(shown(*qml.proxy), "expected");
}

void QQmlSortFilterProxyModelTest::filtersByValue_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("expected");

    QTest::newRow("number") << QVariant(30) << "carol Bob";
    QTest::newRow("text of a number") << QVariant("25") << "alice eve";
    QTest::newRow("fraction") << QVariant(41.0) << "dave";
    QTest::newRow("none such") << QVariant(1) << "";
    QTest::newRow("undefined") << QVariant() << "carol alice Bob dave eve";
}

void QQmlSortFilterProxyModelTest::filtersByValue()
{
    QFETCH(QVariant, value);
    PeopleModel people;
    Proxy proxy;
    proxy.setSourceModel(&people);
    proxy.componentComplete();
    QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::Warning);

    proxy.setFilterRoleName("age");
    proxy.setFilterValue(value);

    QTEST(shown(proxy), "expected");
}

void QQmlSortFilterProxyModelTest::patternAndValueAndFiltersMustAllPass()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        filterRoleName: 'town'
        filterPattern: '^P'
        filterValue: 'Perm'
        filters: ValueFilter { roleName: 'age'; value: 25 }
    })",
                       &people);
    QCOMPARE(shown(*qml.proxy), QString("alice"));

    qml.proxy->setFilterValue("Omsk");
    QCOMPARE(shown(*qml.proxy), QString());

    qml.proxy->setFilterValue(QVariant());
    qml.proxy->setFilterPattern("^T");
    QCOMPARE(shown(*qml.proxy), QString("eve"));
}

void QQmlSortFilterProxyModelTest::propertiesAreTold_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("delayed") << QByteArray("delayed") << QVariant(true);
    QTest::newRow("filter role name") << QByteArray("filterRoleName") << QVariant("name");
    QTest::newRow("filter pattern") << QByteArray("filterPattern") << QVariant("a");
    QTest::newRow("filter pattern syntax") << QByteArray("filterPatternSyntax") << QVariant(2);
    QTest::newRow("filter value") << QByteArray("filterValue") << QVariant(3);
    QTest::newRow("sort role name") << QByteArray("sortRoleName") << QVariant("age");
    QTest::newRow("ascending sort order") << QByteArray("ascendingSortOrder") << QVariant(false);
}

void QQmlSortFilterProxyModelTest::propertiesAreTold()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    PeopleModel people;
    Proxy proxy;
    proxy.setSourceModel(&people);
    proxy.componentComplete();
    const auto meta = proxy.metaObject()->property(proxy.metaObject()->indexOfProperty(property));
    QVERIFY(meta.hasNotifySignal());
    QSignalSpy told(&proxy, meta.notifySignal());

    proxy.setProperty(property, value);
    QCOMPARE(told.count(), 1);
    QCOMPARE(proxy.property(property), value);

    proxy.setProperty(property, value);
    QCOMPARE(told.count(), 1);
}

void QQmlSortFilterProxyModelTest::patternSyntaxEqualsThatOfQRegExp()
{
    QCOMPARE(int(Proxy::RegExp), 0);
    QCOMPARE(int(Proxy::Wildcard), 1);
    QCOMPARE(int(Proxy::FixedString), 2);
    QCOMPARE(int(Proxy::RegExp2), 3);
    QCOMPARE(int(Proxy::WildcardUnix), 4);
    QCOMPARE(int(Proxy::W3CXmlSchema11), 5);
}

void QQmlSortFilterProxyModelTest::unknownFilterRoleHasNoText()
{
    PeopleModel people;
    Proxy proxy;
    proxy.setSourceModel(&people);
    proxy.setFilterRoleName("height");
    proxy.componentComplete();
    QCOMPARE(proxy.count(), 5);
    people.reads = 0;

    proxy.setFilterPattern("a");
    QCOMPARE(proxy.count(), 0);
    proxy.setFilterPattern("^$");
    QCOMPARE(proxy.count(), 5);
    QCOMPARE(people.reads, 0); // a source isn't asked for role -1
}

void QQmlSortFilterProxyModelTest::filterRoleIsGivenUpAgain()
{
    PeopleModel people;
    Proxy proxy;
    proxy.setSourceModel(&people);
    proxy.componentComplete();

    proxy.setFilterRoleName("name");
    QCOMPARE(proxy.filterRole(), Qt::UserRole + 1);
    proxy.setFilterRoleName("");
    QCOMPARE(proxy.filterRole(), int(Qt::DisplayRole));
}

void QQmlSortFilterProxyModelTest::caseSensitivityOfTheBaseClassHolds()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        filterRoleName: 'name'
        filterCaseSensitivity: Qt.CaseInsensitive
        filterPattern: 'b'
    })",
                       &people);
    QCOMPARE(shown(*qml.proxy), QString("Bob"));

    qml.proxy->setFilterPattern("O");
    QCOMPARE(shown(*qml.proxy), QString("carol Bob"));

    qml.proxy->setFilterCaseSensitivity(Qt::CaseSensitive);
    QCOMPARE(shown(*qml.proxy), QString());
}

void QQmlSortFilterProxyModelTest::givesRows()
{
    PeopleModel people;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; sortRoleName: 'age' }", &people);

    QCOMPARE(qml.proxy->get(0), (QVariantMap{{"name", "alice"}, {"age", 25}, {"town", "Perm"}}));
    QCOMPARE(qml.run("get(4).name").toString(), QString("dave"));
}

void QQmlSortFilterProxyModelTest::givesNothingForRowsOutOfRange()
{
    PeopleModel people;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people }", &people);

    QVERIFY(qml.proxy->get(-1).isEmpty());
    QVERIFY(qml.proxy->get(5).isEmpty());
    QVERIFY(!qml.proxy->get(5, "name").isValid());
    QVERIFY(!qml.proxy->get(-1, "name").isValid());
    QCOMPARE(qml.run("Object.keys(get(99)).length").toInt(), 0);
}

void QQmlSortFilterProxyModelTest::givesOneValue()
{
    PeopleModel people;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people }", &people);

    QCOMPARE(qml.proxy->get(3, "age"), QVariant(41));
    QVERIFY(!qml.proxy->get(3, "height").isValid());
    QCOMPARE(qml.run("get(2, 'name')").toString(), QString("Bob"));
}

void QQmlSortFilterProxyModelTest::knowsRolesByName()
{
    PeopleModel people;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people }", &people);

    QCOMPARE(qml.proxy->roleForName("age"), Qt::UserRole + 2);
    QCOMPARE(qml.proxy->roleForName("nothing"), -1);
    QCOMPARE(qml.proxy->roleForName("Age"), -1);
    QCOMPARE(qml.proxy->roleForName(""), -1);
    QCOMPARE(qml.run("roleForName('nothing')").toInt(), -1);
}

void QQmlSortFilterProxyModelTest::mapsRows()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        filters: ValueFilter { roleName: 'age'; value: 25; inverted: true }
        sorters: RoleSorter { roleName: 'name' }
    })",
                       &people);
    QCOMPARE(shown(*qml.proxy), QString("Bob carol dave"));

    QCOMPARE(qml.proxy->mapToSource(0), 2);
    QCOMPARE(qml.proxy->mapFromSource(2), 0);
    QCOMPARE(qml.proxy->mapFromSource(1), -1); // filtered out
    for (const int row : {-1, 3, 99})
        QCOMPARE(qml.proxy->mapToSource(row), -1);
    for (const int row : {-1, 5, 99})
        QCOMPARE(qml.proxy->mapFromSource(row), -1);
}

void QQmlSortFilterProxyModelTest::mapsIndexes()
{
    PeopleModel people;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; sorters: RoleSorter { roleName: 'name' } }",
                       &people);

    QCOMPARE(qml.proxy->mapToSource(qml.proxy->index(0, 0)), people.index(1));
    QCOMPARE(qml.proxy->mapFromSource(people.index(1)), qml.proxy->index(0, 0));
    QVERIFY(!qml.proxy->mapToSource(QModelIndex()).isValid());
    QVERIFY(!qml.proxy->mapFromSource(QModelIndex()).isValid());
}

void QQmlSortFilterProxyModelTest::mapsFromQml()
{
    PeopleModel people;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; sorters: RoleSorter { roleName: 'name' } }",
                       &people);

    QCOMPARE(qml.run("mapToSource(0)").toInt(), 1);
    QCOMPARE(qml.run("mapFromSource(0)").toInt(), 2);
    QCOMPARE(qml.run("mapToSource(index(0, 0)).row").toInt(), 1);
    QCOMPARE(qml.run("mapFromSource(people.index(0, 0)).row").toInt(), 2);
}

void QQmlSortFilterProxyModelTest::removesAndInsertsBlocks()
{
    PeopleModel people;
    Proxy proxy;
    ValueFilter filter;
    filter.setRoleName("town");
    proxy.setSourceModel(&people);
    proxy.appendFilter(&filter);
    proxy.componentComplete();
    QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::Warning);
    QCOMPARE(proxy.count(), 5);
    const QPersistentModelIndex alice = proxy.index(1, 0);
    QSignalSpy removed(&proxy, &QAbstractItemModel::rowsRemoved);
    QSignalSpy inserted(&proxy, &QAbstractItemModel::rowsInserted);
    QSignalSpy resets(&proxy, &QAbstractItemModel::modelReset);

    filter.setValue("Perm");
    QCOMPARE(removed.count(), 2); // dave and eve, then carol
    QCOMPARE(alice.row(), 0);

    filter.setEnabled(false);
    QCOMPARE(inserted.count(), 2);
    QCOMPARE(alice.row(), 1);
    QVERIFY(resets.isEmpty());
}

void QQmlSortFilterProxyModelTest::changedValueMovesItsRow()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        sorters: RoleSorter { roleName: 'name' }
        filters: ValueFilter { roleName: 'age'; value: 41; inverted: true }
    })",
                       &people);
    QAbstractItemModelTester tester(qml.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);

    people.set(1, "name", "zoe");
    QCOMPARE(shown(*qml.proxy), QString("Bob carol eve zoe"));
    people.set(3, "age", 42);
    QCOMPARE(shown(*qml.proxy), QString("Bob carol dave eve zoe"));
    people.set(0, "age", 41);
    QCOMPARE(shown(*qml.proxy), QString("Bob dave eve zoe"));
}

void QQmlSortFilterProxyModelTest::countOfAnIncompleteProxyIsThatOfTheSource()
{
    PeopleModel people;
    Proxy proxy;
    ValueFilter filter;
    filter.setRoleName("age");
    filter.setValue(30);
    proxy.appendFilter(&filter);
    QSignalSpy counts(&proxy, &Proxy::countChanged);

    proxy.setSourceModel(&people);
    QCOMPARE(proxy.count(), 5);
    QCOMPARE(counts.count(), 1);

    proxy.componentComplete();
    QCOMPARE(proxy.count(), 2);
    QCOMPARE(counts.count(), 2);
}

void QQmlSortFilterProxyModelTest::hasNoDefaultProperty()
{
    expectMessage(QtWarningMsg, "Cannot assign to non-existent default property");

    const QmlProxy qml("SortFilterProxyModel { ValueFilter {} }", nullptr);

    QVERIFY(!qml.root);
}

void QQmlSortFilterProxyModelTest::treeIsFilteredOnEachLevel()
{
    QStandardItemModel tree;
    for (const char *name : {"b", "a", "hidden"}) {
        auto *parent = new QStandardItem(name);
        for (const char *child : {"z", "hidden", "y"})
            parent->appendRow(new QStandardItem(child));
        tree.appendRow(parent);
    }
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        filters: ValueFilter { roleName: 'display'; value: 'hidden'; inverted: true }
        sorters: RoleSorter { roleName: 'display' }
    })",
                       &tree);
    QAbstractItemModelTester tester(qml.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);

    QCOMPARE(shown(*qml.proxy, "display"), QString("a b"));
    const QModelIndex first = qml.proxy->index(0, 0);
    QCOMPARE(qml.proxy->rowCount(first), 2);
    QCOMPARE(qml.proxy->index(0, 0, first).data().toString(), QString("y"));
    QCOMPARE(qml.proxy->index(1, 0, first).data().toString(), QString("z"));
    QCOMPARE(qml.proxy->index(0, 0, qml.proxy->index(1, 0)).data().toString(), QString("y"));
}

void QQmlSortFilterProxyModelTest::completingTwiceIsOnce()
{
    PeopleModel people;
    Proxy proxy;
    proxy.setSourceModel(&people);
    proxy.setSortRoleName("name");
    proxy.componentComplete();
    QCOMPARE(proxy.count(), 5);
    const LayoutSpy layouts(proxy);

    proxy.componentComplete();

    QCOMPARE(layouts.count(), 0);
}

void QQmlSortFilterProxyModelTest::deletedProxyLeavesItsChildrenAlone()
{
    PeopleModel people;
    ValueFilter filter;
    {
        Proxy proxy;
        proxy.setSourceModel(&people);
        proxy.appendFilter(&filter);
        proxy.componentComplete();
    }
    QSignalSpy invalidated(&filter, &Filter::invalidated);

    filter.setValue(3);

    QCOMPARE(invalidated.count(), 1);
}

ONDIRA_TEST(QQmlSortFilterProxyModelTest)

#include "QQmlSortFilterProxyModelTest.moc"
