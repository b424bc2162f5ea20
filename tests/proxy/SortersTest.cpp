// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProxyTest.h"
#include "data/qqsfpm/sorters/ExpressionSorter.h"
#include "data/qqsfpm/sorters/FilterSorter.h"
#include "data/qqsfpm/sorters/RoleSorter.h"
#include "data/qqsfpm/sorters/StringSorter.h"

using namespace qqsfpm;

class SortersTest : public TestBase
{
    Q_OBJECT

private slots:
    void sortsInQml_data();
    void sortsInQml();
    void defaults();
    void comparesRows();
    void ascendingOrderAndSortOrderAreOne();
    void changedPropertyIsAnswered_data();
    void changedPropertyIsAnswered();
    void disabledSorterKeepsQuiet();
    void equalRowsStayInSourceOrderWhenOneIsInserted();
    void equalRowsStayInSourceOrderWhenDescending();
    void textsThatDifferInCaseAloneAreEqual();
    void deletedSorterLeaves();
    void sortersAreClearedFromQml();
    void sortsByNumbersInTexts();
    void sortsByLanguage();
    void sortsByAnotherLanguage();
    void ignoresPunctuation();
    void scriptIsAskedBothWays();
    void scriptWithoutReasonDoesNoHarm();
    void filterOfSorterIsForwarded();
};

void SortersTest::sortsInQml_data()
{
    QTest::addColumn<QByteArray>("properties");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &properties, const QString &expected) {
        QTest::newRow(name) << properties << expected;
    };
    const QString source = "carol alice Bob dave eve";

    row("nothing", "", source);
    row("sort role, by case as the base class does", "sortRoleName: 'name'", "Bob alice carol dave eve");
    row("sort role, without case", "sortRoleName: 'name'; sortCaseSensitivity: Qt.CaseInsensitive",
        "alice Bob carol dave eve");
    row("sort role, descending", "sortRoleName: 'age'; ascendingSortOrder: false", "dave carol Bob alice eve");
    row("sort role that is missing", "sortRoleName: 'height'", source);
    row("sort role that is missing, then a sorter", "sortRoleName: 'height'; sorters: RoleSorter { roleName: 'name' }",
        "alice Bob carol dave eve");
    row("sort role goes before sorters", "sortRoleName: 'age'; sorters: RoleSorter { roleName: 'name' }",
        "alice eve Bob carol dave");
    row("role sorter ignores case", "sorters: RoleSorter { roleName: 'name' }", "alice Bob carol dave eve");
    row("role sorter of numbers, ties by row", "sorters: RoleSorter { roleName: 'age' }", "alice eve carol Bob dave");
    row("descending, ties by row", "sorters: RoleSorter { roleName: 'age'; sortOrder: Qt.DescendingOrder }",
        "dave carol Bob alice eve");
    row("not ascending", "sorters: RoleSorter { roleName: 'name'; ascendingOrder: false }", "eve dave carol Bob alice");
    row("role that is missing", "sorters: RoleSorter { roleName: 'height' }", source);
    row("role without a name", "sorters: RoleSorter {}", source);
    row("disabled", "sorters: RoleSorter { roleName: 'name'; enabled: false }", source);
    row("two, in their order", "sorters: [RoleSorter { roleName: 'town' }, RoleSorter { roleName: 'name' }]",
        "carol dave alice Bob eve");
    row("two of a priority, in their order",
        "sorters: [RoleSorter { roleName: 'age'; priority: 3 }, RoleSorter { roleName: 'name'; priority: 3 }]",
        "alice eve Bob carol dave");
    row("higher priority goes first",
        "sorters: [RoleSorter { roleName: 'town' }, RoleSorter { roleName: 'age'; priority: 1 }]",
        "alice eve carol Bob dave");
    row("negative priority goes last",
        "sorters: [RoleSorter { roleName: 'town'; priority: -1 }, RoleSorter { roleName: 'age' }]",
        "alice eve carol Bob dave");
    row("string sorter", "sorters: StringSorter { roleName: 'name'; locale: Qt.locale('en_US') }",
        "alice Bob carol dave eve");
    row("script", "sorters: ExpressionSorter { expression: modelLeft.age < modelRight.age }",
        "alice eve carol Bob dave");
    row("script, descending",
        "sorters: ExpressionSorter { expression: modelLeft.age < modelRight.age; ascendingOrder: false }",
        "dave carol Bob alice eve");
    row("script of row numbers", "sorters: ExpressionSorter { expression: modelLeft.index > modelRight.index }",
        "eve dave Bob alice carol");
    row("no script", "sorters: ExpressionSorter {}", source);
    row("accepted rows first", "sorters: FilterSorter { ValueFilter { roleName: 'town'; value: 'Perm' } }",
        "alice Bob carol dave eve");
    row("accepted rows last",
        "sorters: FilterSorter { ascendingOrder: false; filters: ValueFilter { roleName: 'age'; value: 30 } }",
        "alice dave eve carol Bob");
    row("accepted by all filters",
        "sorters: FilterSorter { ValueFilter { roleName: 'age'; value: 30 } ValueFilter { roleName: 'town'; value: "
        "'Perm' } }",
        "Bob carol alice dave eve");
    row("filter sorter without filters", "sorters: FilterSorter {}", source);
}

void SortersTest::sortsInQml()
{
    QFETCH(QByteArray, properties);
    PeopleModel people;

    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; " + properties + " }", &people);

    QVERIFY(qml.proxy);
    QAbstractItemModelTester tester(qml.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);
    QTEST(shown(*qml.proxy), "expected");
}

void SortersTest::defaults()
{
    const RoleSorter sorter;
    const Proxy proxy;

    QVERIFY(sorter.enabled());
    QVERIFY(sorter.ascendingOrder());
    QCOMPARE(sorter.sortOrder(), Qt::AscendingOrder);
    QCOMPARE(sorter.priority(), 0);
    QVERIFY(proxy.ascendingSortOrder());
}

void SortersTest::comparesRows()
{
    PeopleModel people;
    Proxy proxy;
    proxy.setSourceModel(&people);
    RoleSorter sorter; // in no list: nothing is kept for it
    sorter.setRoleName("age");
    const auto compare = [&](int left, int right) {
        return sorter.compareRows(people.index(left), people.index(right), proxy);
    };

    QCOMPARE(compare(1, 0), -1);
    QCOMPARE(compare(3, 0), 1);
    QCOMPARE(compare(0, 2), 0);
    people.setSilently(0, "age", 99);
    QCOMPARE(compare(0, 2), 1);
    sorter.setSortOrder(Qt::DescendingOrder);
    QCOMPARE(compare(0, 2), -1);
    QCOMPARE(sorter.compare(people.index(0), people.index(2), proxy), 1);
}

void SortersTest::ascendingOrderAndSortOrderAreOne()
{
    RoleSorter sorter;
    QSignalSpy told(&sorter, &Sorter::sortOrderChanged);

    sorter.setAscendingOrder(false);
    QCOMPARE(sorter.sortOrder(), Qt::DescendingOrder);
    sorter.setSortOrder(Qt::DescendingOrder);
    QCOMPARE(told.count(), 1);

    sorter.setSortOrder(Qt::AscendingOrder);
    QVERIFY(sorter.ascendingOrder());
    QCOMPARE(told.count(), 2);
}

void SortersTest::changedPropertyIsAnswered_data()
{
    QTest::addColumn<QByteArray>("sorters");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("expected");

    const QByteArray age = "[RoleSorter { roleName: 'age' }, RoleSorter { roleName: 'name'; priority: -1 }]";
    QTest::newRow("enabled") << age << QByteArray("enabled") << QVariant(false) << "alice Bob carol dave eve";
    QTest::newRow("ascending order") << age << QByteArray("ascendingOrder") << QVariant(false)
                                     << "dave Bob carol alice eve";
    QTest::newRow("sort order") << age << QByteArray("sortOrder") << QVariant(int(Qt::DescendingOrder))
                                << "dave Bob carol alice eve";
    QTest::newRow("priority") << age << QByteArray("priority") << QVariant(-2) << "alice Bob carol dave eve";
    QTest::newRow("role name") << age << QByteArray("roleName") << QVariant("town") << "carol dave alice Bob eve";
}

void SortersTest::changedPropertyIsAnswered()
{
    QFETCH(QByteArray, sorters);
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    PeopleModel people;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; sorters: " + sorters + " }", &people);
    QAbstractItemModelTester tester(qml.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);
    auto *sorter = qml.proxy->sorters().first();
    const auto meta = sorter->metaObject()->property(sorter->metaObject()->indexOfProperty(property));
    QSignalSpy told(sorter, meta.notifySignal());

    meta.write(sorter, value);

    QCOMPARE(told.count(), 1);
    QTEST(shown(*qml.proxy), "expected");
}

void SortersTest::disabledSorterKeepsQuiet()
{
    RoleSorter sorter;
    sorter.setEnabled(false);
    QSignalSpy invalidated(&sorter, &Sorter::invalidated);

    sorter.setRoleName("age");
    sorter.setPriority(3);
    sorter.setAscendingOrder(false);
    QVERIFY(invalidated.isEmpty());

    sorter.setEnabled(true);
    QCOMPARE(invalidated.count(), 1);
}

void SortersTest::equalRowsStayInSourceOrderWhenOneIsInserted()
{
    PeopleModel people;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; sorters: RoleSorter { roleName: 'age' } }",
                       &people);
    QAbstractItemModelTester tester(qml.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);
    QCOMPARE(shown(*qml.proxy), QString("alice eve carol Bob dave"));

    people.insert(1, {{{"name", "frank"}, {"age", 30}}, {{"name", "grace"}, {"age", 25}}});

    QCOMPARE(shown(*qml.proxy), QString("grace alice eve carol frank Bob dave"));
}

void SortersTest::equalRowsStayInSourceOrderWhenDescending()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        sorters: RoleSorter { roleName: 'age'; ascendingOrder: false }
    })",
                       &people);

    people.set(3, "age", 25);

    QCOMPARE(shown(*qml.proxy), QString("carol Bob alice dave eve"));
}

void SortersTest::textsThatDifferInCaseAloneAreEqual()
{
    RowsModel model({"name"}, {{{"name", "b"}}, {{"name", "A"}}, {{"name", "B"}}, {{"name", "a"}}});
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; sorters: RoleSorter { roleName: 'name' } }",
                       &model);
    QCOMPARE(shown(*qml.proxy), QString("A a b B"));

    qml.proxy->sorters().first()->setAscendingOrder(false);

    QCOMPARE(shown(*qml.proxy), QString("b B A a"));
}

void SortersTest::deletedSorterLeaves()
{
    PeopleModel people;
    Proxy proxy;
    auto sorter = std::make_unique<RoleSorter>();
    sorter->setRoleName("name");
    proxy.setSourceModel(&people);
    proxy.appendSorter(sorter.get());
    proxy.componentComplete();
    QCOMPARE(shown(proxy), QString("alice Bob carol dave eve"));

    sorter.reset();

    QVERIFY(proxy.sorters().isEmpty());
    QCOMPARE(shown(proxy), QString("carol alice Bob dave eve"));
    people.append({{"name", "abel"}});
    QCOMPARE(shown(proxy), QString("carol alice Bob dave eve abel"));
}

void SortersTest::sortersAreClearedFromQml()
{
    PeopleModel people;
    const QmlProxy qml(R"(QtObject {
        property var age: RoleSorter { roleName: 'age' }
        property var proxy: SortFilterProxyModel { sourceModel: people; sorters: RoleSorter { roleName: 'name' } }
    })",
                       &people);

    qml.run("proxy.sorters = [age]");
    QCOMPARE(shown(*qml.proxy), QString("alice eve carol Bob dave"));

    qml.run("proxy.sorters = []");
    QCOMPARE(shown(*qml.proxy), QString("carol alice Bob dave eve"));
}

void SortersTest::sortsByNumbersInTexts()
{
    RowsModel model({"name"}, {{{"name", "n10"}}, {{"name", "n9"}}, {{"name", "n1"}}});
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        sorters: StringSorter { roleName: 'name'; locale: Qt.locale('en_US') }
    })",
                       &model);
    QCOMPARE(shown(*qml.proxy), QString("n1 n10 n9"));

    qobject_cast<StringSorter *>(qml.proxy->sorters().first())->setNumericMode(true);

    QCOMPARE(shown(*qml.proxy), QString("n1 n9 n10"));
}

void SortersTest::sortsByLanguage()
{
    const auto row = [](const char *name) { return RowsModel::Row{{"name", QString::fromUtf8(name)}}; };
    RowsModel model({"name"}, {row("Яма"), row("ель"), row("Ёлка"), row("Жук"), row("елка")});
    Proxy proxy;
    StringSorter sorter;
    sorter.setRoleName("name");
    sorter.setLocale(QLocale("ru_RU"));
    sorter.setCaseSensitivity(Qt::CaseInsensitive);
    proxy.setSourceModel(&model);
    proxy.appendSorter(&sorter);
    proxy.componentComplete();

    QCOMPARE(shown(proxy), QString::fromUtf8("елка Ёлка ель Жук Яма"));
}

void SortersTest::sortsByAnotherLanguage()
{
    RowsModel model({"name"}, {{{"name", "z"}}, {{"name", "t"}}});
    Proxy proxy;
    StringSorter sorter;
    sorter.setRoleName("name");
    sorter.setLocale(QLocale("en_US"));
    proxy.setSourceModel(&model);
    proxy.appendSorter(&sorter);
    proxy.componentComplete();
    QCOMPARE(shown(proxy), QString("t z"));

    sorter.setLocale(QLocale("et_EE")); // there z stands before t

    QCOMPARE(shown(proxy), QString("z t"));
}

void SortersTest::ignoresPunctuation()
{
    RowsModel model({"name"}, {{{"name", "-b"}}, {{"name", "a"}}, {{"name", "c"}}});
    Proxy proxy;
    StringSorter sorter;
    sorter.setRoleName("name");
    sorter.setLocale(QLocale("en_US"));
    proxy.setSourceModel(&model);
    proxy.appendSorter(&sorter);
    proxy.componentComplete();
    QCOMPARE(shown(proxy), QString("-b a c"));

    sorter.setProperty("ignorePunctation", true);

    QCOMPARE(shown(proxy), QString("a -b c"));
}

void SortersTest::scriptIsAskedBothWays()
{
    PeopleModel people;
    const QmlProxy qml(R"(QtObject {
        id: root
        property string asked
        property bool always: false
        function ask(left, right) { asked += left + '<' + right + ' '; return always }
        property var proxy: SortFilterProxyModel { sourceModel: people }
        property var sorter: ExpressionSorter { expression: root.ask(modelLeft.name, modelRight.name) }
    })",
                       &people);
    const auto *sorter = qml.child<ExpressionSorter>("sorter");

    QCOMPARE(sorter->compareRows(people.index(0), people.index(1), *qml.proxy), 0);
    QCOMPARE(qml.root->property("asked").toString(), QString("carol<alice alice<carol "));

    qml.root->setProperty("always", true);
    QCOMPARE(sorter->compareRows(people.index(0), people.index(1), *qml.proxy), -1);
    QVERIFY(sorter->lessThan(people.index(1), people.index(0), *qml.proxy));
}

void SortersTest::scriptWithoutReasonDoesNoHarm()
{
    RowsModel model({"name"});
    QVector<RowsModel::Row> rows;
    for (int i = 0; i < 300; ++i)
        rows.append({{"name", QString::number(i)}});
    model.reset(rows);

    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        sorters: ExpressionSorter { expression: Math.random() < 0.5 }
    })",
                       &model);
    for (int i = 0; i < 50; ++i)
        qml.proxy->invalidate();

    QSet<int> sourceRows;
    for (int row = 0; row < qml.proxy->count(); ++row)
        sourceRows.insert(qml.proxy->mapToSource(row));
    QCOMPARE(sourceRows.size(), 300);
}

void SortersTest::filterOfSorterIsForwarded()
{
    PeopleModel people;
    const QmlProxy qml(R"(QtObject {
        property var filter: ValueFilter { roleName: 'age'; value: 41 }
        property var proxy: SortFilterProxyModel { sourceModel: people; sorters: FilterSorter { filters: filter } }
    })",
                       &people);
    QCOMPARE(shown(*qml.proxy), QString("dave carol alice Bob eve"));

    qml.run("filter.value = 25");
    QCOMPARE(shown(*qml.proxy), QString("alice eve carol Bob dave"));

    qml.run("proxy.sorters[0].filters = []");
    QCOMPARE(shown(*qml.proxy), QString("carol alice Bob dave eve"));
}

ONDIRA_TEST(SortersTest)

#include "SortersTest.moc"
