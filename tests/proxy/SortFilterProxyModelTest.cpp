// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/SortFilterProxyModel.h"
#include "ProxyTest.h"

class SortFilterProxyModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void sortsByRoleName();
    void sortsDescending();
    void filters_data();
    void filters();
    void namesSetBeforeTheSourceTakeEffect();
    void namesMayChangeBackAndForth();
    void unknownRoles();
    void countIsTold();
    void sourceIsTold();
    void whatIsNoModelIsNoSource();
    void givesObjects();
    void givesNothingWithoutAnEngine();
    void settersCompare();
};

void SortFilterProxyModelTest::init()
{
    TestBase::init();
    qmlRegisterType<SortFilterProxyModel>("PlainProxy", 1, 0, "PlainProxy");
}

void SortFilterProxyModelTest::sortsByRoleName()
{
    PeopleModel people;
    SortFilterProxyModel proxy;
    QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::Warning);
    proxy.setSource(&people);

    proxy.setSortRole("name");
    QCOMPARE(shown(proxy), QString("Bob alice carol dave eve"));
    proxy.setSortRole("age");
    QCOMPARE(proxy.index(4, 0).data(Qt::UserRole + 1).toString(), QString("dave"));
}

void SortFilterProxyModelTest::sortsDescending()
{
    PeopleModel people;
    SortFilterProxyModel proxy;
    proxy.setSortRole("name");
    proxy.setSortOrder(Qt::DescendingOrder);
    proxy.setSource(&people);

    QCOMPARE(proxy.sortOrder(), Qt::DescendingOrder);
    QCOMPARE(shown(proxy), QString("eve dave carol alice Bob"));
    proxy.setSortOrder(Qt::AscendingOrder);
    QCOMPARE(shown(proxy), QString("Bob alice carol dave eve"));
}

void SortFilterProxyModelTest::filters_data()
{
    QTest::addColumn<QByteArray>("role");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("syntax");
    QTest::addColumn<QString>("expected");

    QTest::newRow("nothing") << QByteArray("name") << "" << 0 << "carol alice Bob dave eve";
    QTest::newRow("regular, anywhere") << QByteArray("name") << "[lv]" << 0 << "carol alice dave eve";
    QTest::newRow("wildcard") << QByteArray("name") << "a?x" << 1 << "";
    QTest::newRow("wildcard, found") << QByteArray("name") << "a?o" << 1 << "carol";
    QTest::newRow("fixed") << QByteArray("name") << "[" << 2 << "";
    QTest::newRow("case counts") << QByteArray("name") << "B" << 0 << "Bob";
    QTest::newRow("any role") << QByteArray() << "r" << 0 << "carol alice Bob eve";
    QTest::newRow("any role, number") << QByteArray() << "41" << 2 << "dave";
    QTest::newRow("unknown role") << QByteArray("height") << "a" << 0 << "";
}

void SortFilterProxyModelTest::filters()
{
    QFETCH(QByteArray, role);
    QFETCH(QString, text);
    QFETCH(int, syntax);
    PeopleModel people;
    SortFilterProxyModel proxy;
    QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::Warning);
    proxy.setSource(&people);

    proxy.setFilterRole(role);
    proxy.setFilterString(text);
    proxy.setFilterSyntax(SortFilterProxyModel::FilterSyntax(syntax));

    QCOMPARE(proxy.filterString(), text);
    QCOMPARE(int(proxy.filterSyntax()), syntax);
    proxy.sort(-1);
    QTEST(shown(proxy), "expected");
}

void SortFilterProxyModelTest::namesSetBeforeTheSourceTakeEffect()
{
    PeopleModel people;
    const QmlProxy qml(R"(import PlainProxy 1.0
        PlainProxy { sortRole: 'name'; filterRole: 'town'; filterString: 'Perm'; source: people })",
                       &people);
    auto *proxy = qobject_cast<SortFilterProxyModel *>(qml.root.get());
    QVERIFY(proxy);

    QCOMPARE(shown(*proxy), QString("Bob alice"));
    QCOMPARE(proxy->sortRole(), QByteArray("name"));
    QCOMPARE(proxy->filterRole(), QByteArray("town"));
    QCOMPARE(proxy->QSortFilterProxyModel::sortRole(), Qt::UserRole + 1);
}

void SortFilterProxyModelTest::namesMayChangeBackAndForth()
{
    PeopleModel people;
    SortFilterProxyModel proxy;
    proxy.setSource(&people);

    proxy.setFilterRole("name");
    proxy.setFilterString("Perm");
    QCOMPARE(proxy.count(), 0);
    proxy.setFilterRole("");
    QCOMPARE(proxy.count(), 2);
    proxy.setFilterRole("name");
    QCOMPARE(proxy.count(), 0);
}

void SortFilterProxyModelTest::unknownRoles()
{
    PeopleModel people;
    SortFilterProxyModel proxy;
    proxy.setSource(&people);

    proxy.setSortRole("height");

    QCOMPARE(proxy.count(), 5);
    QCOMPARE(shown(proxy), QString("carol alice Bob dave eve"));
}

void SortFilterProxyModelTest::countIsTold()
{
    PeopleModel people;
    SortFilterProxyModel proxy;
    proxy.setSource(&people);
    QCOMPARE(proxy.count(), 5);
    QSignalSpy counts(&proxy, &SortFilterProxyModel::countChanged);

    people.append({{"name", "frank"}});
    QCOMPARE(counts.count(), 1);
    people.remove(0);
    QCOMPARE(counts.count(), 2);
    people.reset(peopleRows());
    QVERIFY(counts.count() >= 3);
    counts.clear();
    people.reverse();
    QCOMPARE(counts.count(), 1);
}

void SortFilterProxyModelTest::sourceIsTold()
{
    PeopleModel people;
    SortFilterProxyModel proxy;
    QSignalSpy sources(&proxy, &SortFilterProxyModel::sourceChanged);
    QSignalSpy counts(&proxy, &SortFilterProxyModel::countChanged);

    proxy.setSource(&people);

    QCOMPARE(sources.count(), 1);
    QVERIFY(counts.count() >= 1);
    QCOMPARE(proxy.source(), &people);
}

void SortFilterProxyModelTest::whatIsNoModelIsNoSource()
{
    PeopleModel people;
    QObject object;
    SortFilterProxyModel proxy;
    proxy.setSource(&people);

    proxy.setSource(&object);
    QCOMPARE(proxy.source(), nullptr);
    QCOMPARE(proxy.count(), 0);
    proxy.setSource(nullptr);
    QCOMPARE(proxy.source(), nullptr);
}

void SortFilterProxyModelTest::givesObjects()
{
    PeopleModel people;
    const QmlProxy qml("import PlainProxy 1.0\nPlainProxy { source: people; sortRole: 'name' }", &people);

    QCOMPARE(qml.run("get(1).name + get(1).age").toString(), QString("alice25"));
    QCOMPARE(qml.run("Object.keys(get(-1)).length").toInt(), 0);
    QCOMPARE(qml.run("Object.keys(get(99)).length").toInt(), 3);
    QCOMPARE(qml.run("get(99).name === undefined").toBool(), true);
}

void SortFilterProxyModelTest::givesNothingWithoutAnEngine()
{
    PeopleModel people;
    SortFilterProxyModel proxy;
    proxy.setSource(&people);

    QVERIFY(proxy.get(0).isUndefined());
}

void SortFilterProxyModelTest::settersCompare()
{
    SortFilterProxyModel proxy;
    QSignalSpy sorts(&proxy, &SortFilterProxyModel::sortRoleChanged);
    QSignalSpy filters(&proxy, &SortFilterProxyModel::filterRoleChanged);

    proxy.setSortRole("a");
    proxy.setSortRole("a");
    proxy.setFilterRole("b");
    proxy.setFilterRole("b");

    QCOMPARE(sorts.count(), 1);
    QCOMPARE(filters.count(), 1);
}

ONDIRA_TEST(SortFilterProxyModelTest)

#include "SortFilterProxyModelTest.moc"
