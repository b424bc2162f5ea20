// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProxyTest.h"
#include "data/qqsfpm/filters/ValueFilter.h"
#include "data/qqsfpm/proxyroles/JoinRole.h"
#include "data/qqsfpm/sorters/RoleSorter.h"

using namespace qqsfpm;

// When passes are made: at once, or one for all changes of a turn.
class DelayedTest : public TestBase
{
    Q_OBJECT

private slots:
    void changesAreAnsweredAtOnceByDefault();
    void manyChangesOfAFilterCostOnePass();
    void tenRoleChangesCostOneInvalidate();
    void tenChangesOfTheSortRoleCostOneInvalidate();
    void ownPropertiesAreDelayedToo();
    void rolesAreToldOnce();
    void nextTurnIsAnsweredAgain();
    void explicitPassTakesThePendingOneWithIt();
    void changeBeforeCompletionCostsNothing();
    void changeWithinASignalOfThePassWaits();
    void countIsToldOncePerChange();
    void deletedWhilePending();
};

// A filter that counts what it is asked.
class CountingFilter : public Filter
{
public:
    bool filterRow(const QModelIndex &, const Proxy &) const override
    {
        ++asked;
        return true;
    }
    mutable int asked = 0;
};

void DelayedTest::changesAreAnsweredAtOnceByDefault()
{
    PeopleModel people;
    Proxy proxy;
    ValueFilter filter;
    filter.setRoleName("age");
    CountingFilter counting;
    proxy.setSourceModel(&people);
    proxy.appendFilter(&counting);
    proxy.appendFilter(&filter);
    proxy.componentComplete();
    QCOMPARE(proxy.count(), 5);
    QVERIFY(!proxy.delayed());
    counting.asked = 0;

    filter.setValue(30);
    QCOMPARE(counting.asked, 5);
    filter.setValue(25);
    QCOMPARE(counting.asked, 10);
    QCOMPARE(shown(proxy), QString("alice eve"));
}

void DelayedTest::manyChangesOfAFilterCostOnePass()
{
    PeopleModel people;
    Proxy proxy;
    ValueFilter filter;
    filter.setRoleName("age");
    CountingFilter counting;
    proxy.setSourceModel(&people);
    proxy.appendFilter(&counting);
    proxy.appendFilter(&filter);
    proxy.setDelayed(true);
    proxy.componentComplete();
    QCOMPARE(proxy.count(), 5);
    counting.asked = 0;

    for (int age = 21; age <= 30; ++age)
        filter.setValue(age);
    filter.setInverted(true);

    QCOMPARE(counting.asked, 0);
    QCOMPARE(proxy.count(), 5);
    QTRY_COMPARE(shown(proxy), QString("alice dave eve"));
    QCoreApplication::processEvents();
    QCOMPARE(counting.asked, 5);
}

void DelayedTest::tenRoleChangesCostOneInvalidate()
{
    PeopleModel people;
    Proxy proxy;
    RoleSorter sorter;
    sorter.setRoleName("town");
    proxy.setSourceModel(&people);
    proxy.appendSorter(&sorter);
    proxy.setDelayed(true);
    proxy.componentComplete();
    QCOMPARE(proxy.count(), 5);
    const LayoutSpy layouts(proxy);

    for (int i = 0; i < 5; ++i) {
        sorter.setRoleName("age");
        sorter.setRoleName("name");
    }

    QCOMPARE(layouts.count(), 0);
    QTRY_COMPARE(layouts.count(), 1);
    QCoreApplication::processEvents();
    QCOMPARE(layouts.count(), 1);
    QCOMPARE(shown(proxy), QString("alice Bob carol dave eve"));
}

void DelayedTest::tenChangesOfTheSortRoleCostOneInvalidate()
{
    PeopleModel people;
    Proxy proxy;
    proxy.setSourceModel(&people);
    proxy.setSortRoleName("town");
    proxy.setDelayed(true);
    proxy.componentComplete();
    QCOMPARE(proxy.count(), 5);
    const LayoutSpy layouts(proxy);

    for (int i = 0; i < 5; ++i) {
        proxy.setSortRoleName("name");
        proxy.setSortRoleName("age");
    }

    QTRY_COMPARE(layouts.count(), 1);
    QCoreApplication::processEvents();
    QCOMPARE(layouts.count(), 1);
    QCOMPARE(shown(proxy), QString("alice eve carol Bob dave"));
}

void DelayedTest::ownPropertiesAreDelayedToo()
{
    PeopleModel people;
    Proxy proxy;
    CountingFilter counting;
    proxy.setSourceModel(&people);
    proxy.appendFilter(&counting);
    proxy.setFilterRoleName("name");
    proxy.setDelayed(true);
    proxy.componentComplete();
    QCOMPARE(proxy.count(), 5);
    counting.asked = 0;

    proxy.setFilterPattern("x");
    proxy.setFilterPattern("E");
    proxy.setFilterPatternSyntax(Proxy::FixedString);
    proxy.setFilterPattern("e");
    QCOMPARE(proxy.count(), 5);

    QTRY_COMPARE(shown(proxy), QString("alice dave eve"));
    QCoreApplication::processEvents();
    QCOMPARE(counting.asked, 3);
}

void DelayedTest::rolesAreToldOnce()
{
    PeopleModel people;
    Proxy proxy;
    JoinRole role;
    role.setName("made");
    proxy.setSourceModel(&people);
    proxy.appendProxyRole(&role);
    proxy.setDelayed(true);
    proxy.componentComplete();
    QCOMPARE(proxy.count(), 5);
    QSignalSpy changed(&proxy, &QAbstractItemModel::dataChanged);

    role.setRoleNames({"name"});
    role.setSeparator("-");
    role.setRoleNames({"name", "age"});

    QCOMPARE(changed.count(), 0);
    QTRY_COMPARE(changed.count(), 1);
    QCoreApplication::processEvents();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().at(2).value<QVector<int>>(), QVector<int>{proxy.roleForName("made")});
}

void DelayedTest::nextTurnIsAnsweredAgain()
{
    PeopleModel people;
    Proxy proxy;
    ValueFilter filter;
    filter.setRoleName("age");
    proxy.setSourceModel(&people);
    proxy.appendFilter(&filter);
    proxy.setDelayed(true);
    proxy.componentComplete();

    filter.setValue(30);
    QTRY_COMPARE(shown(proxy), QString("carol Bob"));
    filter.setValue(41);
    QTRY_COMPARE(shown(proxy), QString("dave"));
}

void DelayedTest::explicitPassTakesThePendingOneWithIt()
{
    PeopleModel people;
    Proxy proxy;
    ValueFilter filter;
    filter.setRoleName("age");
    CountingFilter counting;
    proxy.setSourceModel(&people);
    proxy.appendFilter(&counting);
    proxy.appendFilter(&filter);
    proxy.setDelayed(true);
    proxy.componentComplete();
    QCOMPARE(proxy.count(), 5);
    counting.asked = 0;

    filter.setValue(30);
    proxy.invalidateFilter();
    QCOMPARE(shown(proxy), QString("carol Bob"));
    QCoreApplication::processEvents();

    QCOMPARE(counting.asked, 5);
}

void DelayedTest::changeBeforeCompletionCostsNothing()
{
    PeopleModel people;
    Proxy proxy;
    ValueFilter filter;
    CountingFilter counting;
    proxy.setSourceModel(&people);
    proxy.appendFilter(&counting);
    proxy.appendFilter(&filter);

    filter.setRoleName("age");
    filter.setValue(30);
    proxy.setFilterValue(3);
    proxy.setFilterPattern("nobody");
    proxy.invalidate();
    proxy.invalidateFilter();

    QCOMPARE(proxy.count(), 5);
    QCOMPARE(proxy.rowCount(), 5);
    QCOMPARE(counting.asked, 0);
}

void DelayedTest::changeWithinASignalOfThePassWaits()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        id: root
        sourceModel: people
        sorters: RoleSorter { id: sorter; roleName: 'age' }
        filters: [ValueFilter { id: age; roleName: 'age' }, ValueFilter { id: town; roleName: 'town' }]
        onCountChanged: if (age.value === 30) { town.value = 'Perm'; sorter.roleName = 'name' }
    })",
                       &people);
    QAbstractItemModelTester tester(qml.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);

    qobject_cast<ValueFilter *>(qml.proxy->filters().first())->setValue(30);

    QTRY_COMPARE(shown(*qml.proxy), QString("Bob"));
}

void DelayedTest::countIsToldOncePerChange()
{
    PeopleModel people;
    Proxy proxy;
    ValueFilter filter;
    filter.setRoleName("age");
    proxy.setSourceModel(&people);
    proxy.appendFilter(&filter);
    proxy.componentComplete();
    QSignalSpy counts(&proxy, &Proxy::countChanged);

    filter.setValue(41);
    QCOMPARE(counts.count(), 2); // dave stays between two blocks that go
    counts.clear();

    people.set(3, "name", "david");
    proxy.invalidate();
    QCOMPARE(counts.count(), 0);

    people.remove(3);
    QCOMPARE(counts.count(), 1);
    QCOMPARE(proxy.count(), 0);

    people.reset({});
    QCOMPARE(counts.count(), 1);
}

void DelayedTest::deletedWhilePending()
{
    PeopleModel people;
    auto proxy = std::make_unique<Proxy>();
    ValueFilter filter;
    CountingFilter counting;
    filter.setRoleName("age");
    proxy->setSourceModel(&people);
    proxy->appendFilter(&counting);
    proxy->appendFilter(&filter);
    proxy->setDelayed(true);
    proxy->componentComplete();
    QCOMPARE(proxy->count(), 5);
    counting.asked = 0;

    filter.setValue(30);
    proxy.reset();
    QCoreApplication::processEvents();
    filter.setValue(25);

    QCOMPARE(counting.asked, 0);
}

ONDIRA_TEST(DelayedTest)

#include "DelayedTest.moc"
