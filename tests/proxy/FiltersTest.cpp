// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProxyTest.h"
#include "data/qqsfpm/filters/AllOfFilter.h"
#include "data/qqsfpm/filters/AnyOfFilter.h"
#include "data/qqsfpm/filters/ExpressionFilter.h"
#include "data/qqsfpm/filters/IndexFilter.h"
#include "data/qqsfpm/filters/RangeFilter.h"
#include "data/qqsfpm/filters/RegExpFilter.h"
#include "data/qqsfpm/filters/ValueFilter.h"

using namespace qqsfpm;

class FiltersTest : public TestBase
{
    Q_OBJECT

private slots:
    void passesRowsInQml_data();
    void passesRowsInQml();
    void passesRowsByRange_data();
    void passesRowsByRange();
    void passesRowsByIndex_data();
    void passesRowsByIndex();
    void passesRowsByPattern_data();
    void passesRowsByPattern();
    void defaults();
    void changedPropertyIsAnswered_data();
    void changedPropertyIsAnswered();
    void sameValueIsNotAnswered();
    void valueOfAnotherTypeIsAChange();
    void disabledFilterKeepsQuiet();
    void enablingIsAlwaysTold();
    void childOfChildIsForwarded();
    void ringOfContainersIsRefused();
    void sameChildCountsOnce();
    void deletedFilterLeaves();
    void deletedChildOfContainerLeaves();
    void listIsChangedFromQml();
    void nullInListIsPassedOver();
    void indexBoundsFollowRowsThatComeAndGo();
    void firstRefusalEndsTheRow();
    void abstractTypesAreNotCreatable_data();
    void abstractTypesAreNotCreatable();
};

void FiltersTest::passesRowsInQml_data()
{
    QTest::addColumn<QByteArray>("filters");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &filters, const QString &expected) {
        QTest::newRow(name) << filters << expected;
    };
    const QString all = "carol alice Bob dave eve";

    row("no filter", "[]", all);
    row("equal value", "ValueFilter { roleName: 'age'; value: 30 }", "carol Bob");
    row("equal text of a number", "ValueFilter { roleName: 'age'; value: '30' }", "carol Bob");
    row("texts are equal with their case only", "ValueFilter { roleName: 'name'; value: 'bob' }", "");
    row("undefined value", "ValueFilter { roleName: 'age'; value: undefined }", all);
    row("value never set", "ValueFilter { roleName: 'age' }", all);
    row("role that is missing", "ValueFilter { roleName: 'height'; value: 3 }", "");
    row("inverted", "ValueFilter { roleName: 'age'; value: 30; inverted: true }", "alice dave eve");
    row("disabled", "ValueFilter { roleName: 'age'; value: 30; enabled: false }", all);
    row("disabled and inverted", "ValueFilter { roleName: 'age'; value: 30; enabled: false; inverted: true }", all);
    row("two filters, both must pass",
        "[ValueFilter { roleName: 'age'; value: 30 }, ValueFilter { roleName: 'town'; value: 'Perm' }]", "Bob");
    row("any of",
        "AnyOf { ValueFilter { roleName: 'age'; value: 41 } ValueFilter { roleName: 'town'; value: 'Tver' } }",
        "dave eve");
    row("any of, by its list",
        "AnyOf { filters: [ValueFilter { roleName: 'age'; value: 41 }, ValueFilter { roleName: 'age'; value: 30 }] }",
        "carol Bob dave");
    row("any of nothing", "AnyOf {}", "");
    row("any of disabled ones", "AnyOf { ValueFilter { enabled: false } }", "");
    row("any of, a disabled one counts for nothing",
        "AnyOf { ValueFilter { enabled: false } ValueFilter { roleName: 'age'; value: 41 } }", "dave");
    row("inverted any of nothing", "AnyOf { inverted: true }", all);
    row("all of",
        "AllOf { ValueFilter { roleName: 'age'; value: 30 } ValueFilter { roleName: 'town'; value: 'Perm' } }", "Bob");
    row("all of nothing", "AllOf {}", all);
    row("all of disabled ones", "AllOf { ValueFilter { roleName: 'age'; value: 1; enabled: false } }", all);
    row("inverted all of nothing", "AllOf { inverted: true }", "");
    row("any of in all of",
        "AllOf { ValueFilter { roleName: 'town'; value: 'Omsk' }"
        " AnyOf { ValueFilter { roleName: 'age'; value: 41 } ValueFilter { roleName: 'age'; value: 25 } } }",
        "dave");
    row("expression", "ExpressionFilter { expression: model.age > 26 && model.name !== 'dave' }", "carol Bob");
    row("block of statements", "ExpressionFilter { expression: { var young = model.age < 30; return !young } }",
        "carol Bob dave");
    row("expression of the row number", "ExpressionFilter { expression: model.index % 2 === 0 }", "carol Bob eve");
    row("literal expression", "ExpressionFilter { expression: true }", all);
    row("no expression", "ExpressionFilter {}", all);
    row("no expression, inverted", "ExpressionFilter { inverted: true }", "");
    row("number as truth", "ExpressionFilter { expression: model.age - 30 }", "alice dave eve");
    row("undefined bounds", "RangeFilter { roleName: 'age' }", all);
}

void FiltersTest::passesRowsInQml()
{
    QFETCH(QByteArray, filters);
    QFETCH(QString, expected);
    PeopleModel people;

    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; filters: " + filters + " }", &people);

    QVERIFY(qml.proxy);
    QAbstractItemModelTester tester(qml.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);
    QCOMPARE(shown(*qml.proxy), expected);
    QCOMPARE(qml.proxy->count(), expected.isEmpty() ? 0 : expected.split(' ').size());
}

void FiltersTest::passesRowsByRange_data()
{
    QTest::addColumn<QVariant>("minimum");
    QTest::addColumn<bool>("minimumInclusive");
    QTest::addColumn<QVariant>("maximum");
    QTest::addColumn<bool>("maximumInclusive");
    QTest::addColumn<QString>("role");
    QTest::addColumn<QString>("expected");
    const QVariant none;

    QTest::newRow("minimum") << QVariant(30) << true << none << true << "age"
                             << "carol Bob dave";
    QTest::newRow("minimum, not inclusive") << QVariant(30) << false << none << true << "age"
                                            << "dave";
    QTest::newRow("maximum") << none << true << QVariant(30) << true << "age"
                             << "carol alice Bob eve";
    QTest::newRow("maximum, not inclusive") << none << true << QVariant(30) << false << "age"
                                            << "alice eve";
    QTest::newRow("both") << QVariant(26) << true << QVariant(40) << true << "age"
                          << "carol Bob";
    QTest::newRow("both, not inclusive") << QVariant(25) << false << QVariant(41) << false << "age"
                                         << "carol Bob";
    QTest::newRow("one value") << QVariant(30) << true << QVariant(30) << true << "age"
                               << "carol Bob";
    QTest::newRow("crossed") << QVariant(40) << true << QVariant(20) << true << "age"
                             << "";
    QTest::newRow("fraction") << QVariant(29.5) << true << QVariant(30.5) << true << "age"
                              << "carol Bob";
    QTest::newRow("texts ignore case") << QVariant("b") << true << QVariant("D") << true << "name"
                                       << "carol Bob";
    QTest::newRow("equal but for the case") << QVariant("BOB") << true << QVariant("bob") << true << "name"
                                            << "Bob";
    QTest::newRow("equal but for the case, excluded") << QVariant("BOB") << false << none << true << "name"
                                                      << "carol dave eve";
    QTest::newRow("missing role is below") << QVariant(1) << true << none << true << "height"
                                           << "";
}

void FiltersTest::passesRowsByRange()
{
    QFETCH(QVariant, minimum);
    QFETCH(bool, minimumInclusive);
    QFETCH(QVariant, maximum);
    QFETCH(bool, maximumInclusive);
    QFETCH(QString, role);
    PeopleModel people;
    Proxy proxy;
    RangeFilter filter;
    proxy.setSourceModel(&people);
    proxy.appendFilter(&filter);
    proxy.componentComplete();

    filter.setRoleName(role);
    filter.setMinimumValue(minimum);
    filter.setMinimumInclusive(minimumInclusive);
    filter.setMaximumValue(maximum);
    filter.setMaximumInclusive(maximumInclusive);

    QTEST(shown(proxy), "expected");
}

void FiltersTest::passesRowsByIndex_data()
{
    QTest::addColumn<QVariant>("minimum");
    QTest::addColumn<QVariant>("maximum");
    QTest::addColumn<QString>("expected");
    const QVariant none;
    const QString all = "carol alice Bob dave eve";

    QTest::newRow("no bounds") << none << none << all;
    QTest::newRow("from") << QVariant(3) << none << "dave eve";
    QTest::newRow("to") << none << QVariant(1) << "carol alice";
    QTest::newRow("from to") << QVariant(1) << QVariant(2) << "alice Bob";
    QTest::newRow("to the last") << none << QVariant(-1) << all;
    QTest::newRow("the last two") << QVariant(-2) << none << "dave eve";
    QTest::newRow("all but the ends") << QVariant(1) << QVariant(-2) << "alice Bob dave";
    QTest::newRow("before the first") << QVariant(-9) << none << all;
    QTest::newRow("to before the first") << none << QVariant(-9) << "";
    QTest::newRow("after the last") << QVariant(9) << none << "";
    QTest::newRow("to after the last") << none << QVariant(9) << all;
    QTest::newRow("null is no bound") << QVariant::fromValue(nullptr) << QVariant::fromValue(nullptr) << all;
    QTest::newRow("text that is no number") << QVariant("first") << QVariant("last") << all;
    QTest::newRow("text that is a number") << QVariant("3") << none << "dave eve";
    QTest::newRow("infinite") << QVariant(-qInf()) << QVariant(qInf()) << all;
    QTest::newRow("not a number") << QVariant(qQNaN()) << QVariant(qQNaN()) << all;
    QTest::newRow("huge") << QVariant(-1e300) << QVariant(1e300) << all;
}

void FiltersTest::passesRowsByIndex()
{
    QFETCH(QVariant, minimum);
    QFETCH(QVariant, maximum);
    PeopleModel people;
    Proxy proxy;
    IndexFilter filter;
    proxy.setSourceModel(&people);
    proxy.appendFilter(&filter);
    proxy.componentComplete();

    filter.setMinimumIndex(minimum);
    filter.setMaximumIndex(maximum);

    QTEST(shown(proxy), "expected");
}

void FiltersTest::passesRowsByPattern_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<int>("syntax");
    QTest::addColumn<Qt::CaseSensitivity>("caseSensitivity");
    QTest::addColumn<QString>("expected");
    const QString all = "carol alice Bob dave eve";

    QTest::newRow("empty") << "" << 0 << Qt::CaseSensitive << all;
    QTest::newRow("anywhere") << "av" << 0 << Qt::CaseSensitive << "dave";
    QTest::newRow("anchored") << "^[ae]" << 0 << Qt::CaseSensitive << "alice eve";
    QTest::newRow("case counts") << "C" << 0 << Qt::CaseSensitive << "";
    QTest::newRow("case does not count") << "C" << 0 << Qt::CaseInsensitive << "carol alice";
    QTest::newRow("wildcard, anywhere") << "v?" << 1 << Qt::CaseSensitive << "dave eve";
    QTest::newRow("wildcard star") << "a*e" << 1 << Qt::CaseSensitive << "alice dave";
    QTest::newRow("fixed") << "o" << 2 << Qt::CaseSensitive << "carol Bob";
    QTest::newRow("fixed: a dot is a dot") << "." << 2 << Qt::CaseSensitive << "";
    QTest::newRow("second regular syntax") << "o+" << 3 << Qt::CaseSensitive << "carol Bob";
    QTest::newRow("Unix wildcard") << "[cd]a" << 4 << Qt::CaseSensitive << "carol dave";
    QTest::newRow("XML schema") << "e.e" << 5 << Qt::CaseSensitive << "eve";
    QTest::newRow("broken pattern") << "(" << 0 << Qt::CaseSensitive << "";
}

void FiltersTest::passesRowsByPattern()
{
    QFETCH(QString, pattern);
    QFETCH(int, syntax);
    QFETCH(Qt::CaseSensitivity, caseSensitivity);
    PeopleModel people;
    Proxy proxy;
    RegExpFilter filter;
    filter.setRoleName("name");
    proxy.setSourceModel(&people);
    proxy.appendFilter(&filter);
    proxy.componentComplete();

    filter.setPattern(pattern);
    filter.setSyntax(RegExpFilter::PatternSyntax(syntax));
    filter.setCaseSensitivity(caseSensitivity);

    QTEST(shown(proxy), "expected");
    QCOMPARE(filter.pattern(), pattern);
    QCOMPARE(int(filter.syntax()), syntax);
}

void FiltersTest::defaults()
{
    const ValueFilter value;
    const RangeFilter range;
    const RegExpFilter regExp;

    QVERIFY(value.enabled());
    QVERIFY(!value.inverted());
    QVERIFY(!value.value().isValid());
    QVERIFY(range.minimumInclusive());
    QVERIFY(range.maximumInclusive());
    QCOMPARE(regExp.syntax(), RegExpFilter::RegExp);
    QCOMPARE(regExp.caseSensitivity(), Qt::CaseSensitive);
}

void FiltersTest::changedPropertyIsAnswered_data()
{
    QTest::addColumn<QByteArray>("filter");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("expected");

    const QByteArray value = "ValueFilter { roleName: 'age'; value: 30 }";
    QTest::newRow("enabled") << value << QByteArray("enabled") << QVariant(false) << "carol alice Bob dave eve";
    QTest::newRow("inverted") << value << QByteArray("inverted") << QVariant(true) << "alice dave eve";
    QTest::newRow("value") << value << QByteArray("value") << QVariant(41) << "dave";
    QTest::newRow("role name") << value << QByteArray("roleName") << QVariant("name") << "";
    const QByteArray range = "RangeFilter { roleName: 'age'; minimumValue: 30; maximumValue: 41 }";
    QTest::newRow("minimum value") << range << QByteArray("minimumValue") << QVariant(35) << "dave";
    QTest::newRow("maximum value") << range << QByteArray("maximumValue") << QVariant(35) << "carol Bob";
    QTest::newRow("minimum inclusive") << range << QByteArray("minimumInclusive") << QVariant(false) << "dave";
    QTest::newRow("maximum inclusive") << range << QByteArray("maximumInclusive") << QVariant(false) << "carol Bob";
    const QByteArray index = "IndexFilter { minimumIndex: 1; maximumIndex: 3 }";
    QTest::newRow("minimum index") << index << QByteArray("minimumIndex") << QVariant(2) << "Bob dave";
    QTest::newRow("maximum index") << index << QByteArray("maximumIndex") << QVariant(1) << "alice";
    const QByteArray regExp = "RegExpFilter { roleName: 'name'; pattern: 'o' }";
    QTest::newRow("pattern") << regExp << QByteArray("pattern") << QVariant("v") << "dave eve";
    QTest::newRow("syntax") << regExp << QByteArray("syntax") << QVariant(2) << "carol Bob";
    QTest::newRow("case sensitivity") << QByteArray("RegExpFilter { roleName: 'name'; pattern: 'BO' }")
                                      << QByteArray("caseSensitivity") << QVariant(int(Qt::CaseInsensitive)) << "Bob";
}

void FiltersTest::changedPropertyIsAnswered()
{
    QFETCH(QByteArray, filter);
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    PeopleModel people;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; filters: " + filter + " }", &people);
    QAbstractItemModelTester tester(qml.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);
    auto *changed = qml.proxy->filters().first();
    QSignalSpy told(changed,
                    changed->metaObject()->property(changed->metaObject()->indexOfProperty(property)).notifySignal());
    QSignalSpy resets(qml.proxy, &QAbstractItemModel::modelReset);

    changed->setProperty(property, value);

    QCOMPARE(told.count(), 1);
    QCOMPARE(resets.count(), 0);
    QTEST(shown(*qml.proxy), "expected");
}

void FiltersTest::sameValueIsNotAnswered()
{
    ValueFilter filter;
    filter.setRoleName("age");
    filter.setValue(30);
    QSignalSpy told(&filter, &ValueFilter::valueChanged);
    QSignalSpy invalidated(&filter, &Filter::invalidated);

    filter.setValue(30);
    filter.setRoleName("age");
    filter.setEnabled(true);
    filter.setInverted(false);

    QVERIFY(told.isEmpty());
    QVERIFY(invalidated.isEmpty());
}

void FiltersTest::valueOfAnotherTypeIsAChange()
{
    ValueFilter filter;
    filter.setValue(30);
    QSignalSpy told(&filter, &ValueFilter::valueChanged);

    filter.setValue(QStringLiteral("30"));

    QCOMPARE(told.count(), 1);
    QCOMPARE(filter.value().type(), QVariant::String);
}

void FiltersTest::disabledFilterKeepsQuiet()
{
    ValueFilter filter;
    filter.setEnabled(false);
    QSignalSpy invalidated(&filter, &Filter::invalidated);

    filter.setValue(3);
    filter.setInverted(true);

    QVERIFY(invalidated.isEmpty());
}

void FiltersTest::enablingIsAlwaysTold()
{
    ValueFilter filter;
    QSignalSpy invalidated(&filter, &Filter::invalidated);

    filter.setEnabled(false);
    filter.setEnabled(true);

    QCOMPARE(invalidated.count(), 2);
}

void FiltersTest::childOfChildIsForwarded()
{
    PeopleModel people;
    Proxy proxy;
    AllOfFilter outer;
    AnyOfFilter inner;
    ValueFilter filter;
    filter.setRoleName("age");
    filter.setValue(30);
    inner.appendFilter(&filter);
    outer.appendFilter(&inner);
    proxy.setSourceModel(&people);
    proxy.appendFilter(&outer);
    proxy.componentComplete();
    QCOMPARE(shown(proxy), QString("carol Bob"));

    filter.setValue(41);

    QCOMPARE(shown(proxy), QString("dave"));
}

void FiltersTest::ringOfContainersIsRefused()
{
    AnyOfFilter first;
    AllOfFilter second;
    first.appendFilter(&second);

    first.appendFilter(&first);
    second.appendFilter(&first);

    QCOMPARE(first.filters(), QList<Filter *>{&second});
    QVERIFY(second.filters().isEmpty());
}

void FiltersTest::sameChildCountsOnce()
{
    Proxy proxy;
    ValueFilter filter;

    proxy.appendFilter(&filter);
    proxy.appendFilter(&filter);
    proxy.appendFilter(nullptr);

    QCOMPARE(proxy.filters().size(), 1);
    proxy.removeFilter(&filter);
    QVERIFY(proxy.filters().isEmpty());
    proxy.removeFilter(&filter);
    QVERIFY(proxy.filters().isEmpty());
}

void FiltersTest::deletedFilterLeaves()
{
    PeopleModel people;
    Proxy proxy;
    auto filter = std::make_unique<ValueFilter>();
    filter->setRoleName("age");
    filter->setValue(30);
    proxy.setSourceModel(&people);
    proxy.appendFilter(filter.get());
    proxy.componentComplete();

    filter.reset();

    QVERIFY(proxy.filters().isEmpty());
    QCOMPARE(shown(proxy), QString("carol alice Bob dave eve"));
}

void FiltersTest::deletedChildOfContainerLeaves()
{
    PeopleModel people;
    Proxy proxy;
    AnyOfFilter any;
    ValueFilter stays;
    stays.setRoleName("age");
    stays.setValue(41);
    auto goes = std::make_unique<ValueFilter>();
    goes->setRoleName("age");
    goes->setValue(30);
    any.appendFilter(goes.get());
    any.appendFilter(&stays);
    proxy.setSourceModel(&people);
    proxy.appendFilter(&any);
    proxy.componentComplete();
    QCOMPARE(shown(proxy), QString("carol Bob dave"));

    goes.reset();

    QCOMPARE(any.filters(), QList<Filter *>{&stays});
    QCOMPARE(shown(proxy), QString("dave"));
}

void FiltersTest::listIsChangedFromQml()
{
    PeopleModel people;
    const QmlProxy qml(R"(QtObject {
        property var proxy: SortFilterProxyModel { sourceModel: people }
        property var age: ValueFilter { roleName: 'age'; value: 30 }
        property var town: ValueFilter { roleName: 'town'; value: 'Perm' }
    })",
                       &people);

    qml.run("proxy.filters.push(age)");
    QCOMPARE(qml.run("proxy.filters.length").toInt(), 1);
    QCOMPARE(shown(*qml.proxy), QString("carol Bob"));

    qml.run("proxy.filters = [age, town]");
    QCOMPARE(shown(*qml.proxy), QString("Bob"));

    qml.run("proxy.filters = []");
    QCOMPARE(qml.run("proxy.filters.length").toInt(), 0);
    QCOMPARE(shown(*qml.proxy), QString("carol alice Bob dave eve"));

    qml.run("age.value = 41"); // out of the list: nobody listens
    QCOMPARE(shown(*qml.proxy), QString("carol alice Bob dave eve"));
}

void FiltersTest::nullInListIsPassedOver()
{
    PeopleModel people;
    const QmlProxy qml(R"(QtObject {
        property var proxy: SortFilterProxyModel { sourceModel: people }
        property ValueFilter none: null
    })",
                       &people);

    qml.run("proxy.filters = [none]");

    QVERIFY(qml.proxy->filters().isEmpty());
    QCOMPARE(qml.proxy->count(), 5);
}

void FiltersTest::indexBoundsFollowRowsThatComeAndGo()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        filters: AllOf { IndexFilter { minimumIndex: -2 } }
    })",
                       &people);
    QAbstractItemModelTester tester(qml.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);
    QCOMPARE(shown(*qml.proxy), QString("dave eve"));

    people.append({{"name", "frank"}});
    QTRY_COMPARE(shown(*qml.proxy), QString("eve frank"));

    people.remove(4, 2);
    QTRY_COMPARE(shown(*qml.proxy), QString("Bob dave"));

    people.move(3, 0);
    QTRY_COMPARE(shown(*qml.proxy), QString("alice Bob"));
}

void FiltersTest::firstRefusalEndsTheRow()
{
    PeopleModel people;
    const QmlProxy qml(R"(QtObject {
        id: root
        property int asked: 0
        function ask() { ++asked; return true }
        property var proxy: SortFilterProxyModel {
            sourceModel: people
            filters: [ValueFilter { roleName: 'age'; value: 30 }, ExpressionFilter { expression: root.ask() }]
        }
    })",
                       &people);

    QCOMPARE(qml.proxy->count(), 2);
    QCOMPARE(qml.root->property("asked").toInt(), 2);
}

void FiltersTest::abstractTypesAreNotCreatable_data()
{
    QTest::addColumn<QByteArray>("type");
    for (const char *type : {"Filter", "RoleFilter", "FilterContainerFilter", "Sorter", "ProxyRole", "SingleRole"})
        QTest::newRow(type) << QByteArray(type);
}

void FiltersTest::abstractTypesAreNotCreatable()
{
    QFETCH(QByteArray, type);
    expectMessage(QtWarningMsg, type + " is an abstract class");

    const QmlProxy qml(type + " {}", nullptr);

    QVERIFY(!qml.root);
}

ONDIRA_TEST(FiltersTest)

#include "FiltersTest.moc"
