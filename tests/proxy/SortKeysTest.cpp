// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProxyTest.h"
#include "data/qqsfpm/Variants.h"
#include "data/qqsfpm/filters/ValueFilter.h"
#include "data/qqsfpm/sorters/FilterSorter.h"
#include "data/qqsfpm/sorters/RoleSorter.h"
#include "data/qqsfpm/sorters/StringSorter.h"

#include <random>

using namespace qqsfpm;

// Sorters that keep the values of rows sort as if they asked for them each time.
class SortKeysTest : public TestBase
{
    Q_OBJECT

private slots:
    void keptValuesCompareAsVariants();
    void sortRoleComparesAsTheBaseClass_data();
    void sortRoleComparesAsTheBaseClass();
    void sortRoleFollowsTheCaseSensitivity();
    void keptTextsCompareAsTheCollator_data();
    void keptTextsCompareAsTheCollator();
    void eachValueIsReadOnceForASort();
    void changedRowIsReadAgain();
    void changesAreFollowed();
    void dataThatChangedSilentlyIsSeenByInvalidate();
    void sorterInTwoProxies();
    void sorterMovedToAnotherProxy();
    void filterSorterFollowsItsRows();
};

namespace {

QVariantList oddValues()
{
    const auto text = [](const char *utf8) { return QVariant(QString::fromUtf8(utf8)); };
    return {text("a"),
            text("A"),
            text("b"),
            text("B1"),
            text("b10"),
            text("b2"),
            text(""),
            QVariant(QString()),
            text("Ёж"),
            text("ёж"),
            text("Еж"),
            text("straße"),
            text("STRASSE"),
            text("strasse"),
            text("ǅ"),
            text("ǆ"),
            text("İ"),
            text("i"),
            text("ſ"),
            text("s"),
            text("K"), // the sign of kelvin
            text("k"),
            text("𐐀"), // Deseret, letters of two units with case
            text("𐐨"),
            text("𐐀b"),
            text("\uFFFD"),
            text("a long text with the same beginning, b"),
            text("A long text with the same beginning, A"),
            text("a long text with the same beginning"),
            text("eleven unit𐐀"), // the letter of two units stands across the end of what is kept of it
            text("eleven unit𐐨"),
            text("eleven units𐐀"),
            text("eleven units𐐨b"),
            QVariant(QString("a") + QChar(0)),
            QVariant(QString("a") + QChar(0) + "b"),
            text("_"),
            text("["),
            text("z"),
            QVariant(0),
            QVariant(1),
            QVariant(-1),
            QVariant(10),
            QVariant(9),
            QVariant(1.5),
            QVariant(true),
            QVariant(false),
            QVariant(10LL),
            QVariant(QDate(2020, 1, 2)),
            QVariant(QDate(2019, 1, 2))};
}

} // namespace

void SortKeysTest::keptValuesCompareAsVariants()
{
    RowsModel model({"value"});
    const auto values = oddValues();
    QVector<RowsModel::Row> rows;
    for (const auto &value : values)
        rows.append({{"value", value}});
    model.reset(rows);
    Proxy proxy;
    RoleSorter sorter;
    sorter.setRoleName("value");
    proxy.setSourceModel(&model);
    proxy.appendSorter(&sorter);

    for (int left = 0; left < values.size(); ++left) {
        for (int right = 0; right < values.size(); ++right) {
            const int order = sorter.compareRows(model.index(left), model.index(right), proxy);
            const int expected = compareVariants(values.at(left), values.at(right));
            QVERIFY2(order == expected, qPrintable(QString("%1 and %2: %3").arg(left).arg(right).arg(order)));
        }
    }
    QCOMPARE(model.reads, values.size());
}

void SortKeysTest::sortRoleComparesAsTheBaseClass_data()
{
    QTest::addColumn<Qt::CaseSensitivity>("caseSensitivity");
    QTest::addColumn<bool>("localeAware");
    QTest::addColumn<bool>("textsOnly");

    QTest::newRow("texts by case") << Qt::CaseSensitive << false << true;
    QTest::newRow("texts without case") << Qt::CaseInsensitive << false << true;
    QTest::newRow("texts by locale") << Qt::CaseSensitive << true << true;
    QTest::newRow("whole numbers") << Qt::CaseSensitive << false << false;
}

void SortKeysTest::sortRoleComparesAsTheBaseClass()
{
    QFETCH(Qt::CaseSensitivity, caseSensitivity);
    QFETCH(bool, localeAware);
    QFETCH(bool, textsOnly);
    RowsModel model({"value", "row"});
    QVector<RowsModel::Row> rows;
    const auto values = oddValues();
    for (const auto &value : values) {
        if ((value.type() == QVariant::String) == textsOnly && (textsOnly || value.type() == QVariant::Int))
            rows.append({{"value", value}, {"row", rows.size()}});
    }
    model.reset(rows);
    QSortFilterProxyModel base;
    base.setSortRole(Qt::UserRole + 1);
    base.setSortCaseSensitivity(caseSensitivity);
    base.setSortLocaleAware(localeAware);
    base.setSourceModel(&model);
    base.sort(0);

    Proxy proxy;
    proxy.setSortRoleName("value");
    proxy.setSortCaseSensitivity(caseSensitivity);
    proxy.setSortLocaleAware(localeAware);
    proxy.setSourceModel(&model);
    proxy.componentComplete();

    QCOMPARE(shown(proxy, "row"), shown(base, "row"));
    model.setSilently(0, "value", textsOnly ? QVariant("m") : QVariant(5));
    base.invalidate();
    proxy.invalidate();
    QCOMPARE(shown(proxy, "row"), shown(base, "row"));
}

void SortKeysTest::sortRoleFollowsTheCaseSensitivity()
{
    PeopleModel people;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; sortRoleName: 'name' }", &people);
    QCOMPARE(shown(*qml.proxy), QString("Bob alice carol dave eve"));

    qml.proxy->setSortCaseSensitivity(Qt::CaseInsensitive);
    QCOMPARE(shown(*qml.proxy), QString("alice Bob carol dave eve"));
    people.set(0, "name", "Zoe");
    QCOMPARE(shown(*qml.proxy), QString("alice Bob dave eve Zoe"));

    qml.proxy->setSortCaseSensitivity(Qt::CaseSensitive);
    QCOMPARE(shown(*qml.proxy), QString("Bob Zoe alice dave eve"));
    people.set(2, "name", "bert");
    QCOMPARE(shown(*qml.proxy), QString("Zoe alice bert dave eve"));
}

void SortKeysTest::keptTextsCompareAsTheCollator_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<Qt::CaseSensitivity>("caseSensitivity");
    QTest::addColumn<bool>("numeric");
    QTest::addColumn<bool>("ignorePunctuation");

    for (const char *name : {"C", "en_US", "ru_RU"}) {
        for (int set = 0; set < 8; ++set) {
            QTest::addRow("%s %d", name, set) << QLocale(name) << (set & 1 ? Qt::CaseSensitive : Qt::CaseInsensitive)
                                              << bool(set & 2) << bool(set & 4);
        }
    }
}

void SortKeysTest::keptTextsCompareAsTheCollator()
{
    QFETCH(QLocale, locale);
    QFETCH(Qt::CaseSensitivity, caseSensitivity);
    QFETCH(bool, numeric);
    QFETCH(bool, ignorePunctuation);
    RowsModel model({"value"});
    const auto values = oddValues();
    QVector<RowsModel::Row> rows;
    for (const auto &value : values)
        rows.append({{"value", value}});
    model.reset(rows);
    Proxy proxy;
    StringSorter sorter;
    sorter.setRoleName("value");
    sorter.setLocale(locale);
    sorter.setCaseSensitivity(caseSensitivity);
    sorter.setNumericMode(numeric);
    sorter.setIgnorePunctation(ignorePunctuation);
    proxy.setSourceModel(&model);
    proxy.appendSorter(&sorter);
    QCollator collator(locale);
    collator.setCaseSensitivity(caseSensitivity);
    collator.setNumericMode(numeric);
    collator.setIgnorePunctuation(ignorePunctuation);

    for (int left = 0; left < values.size(); ++left) {
        for (int right = 0; right < values.size(); ++right) {
            const int order = sorter.compareRows(model.index(left), model.index(right), proxy);
            const int expected = collator.compare(values.at(left).toString(), values.at(right).toString());
            QCOMPARE(order, expected < 0 ? -1 : expected > 0 ? 1 : 0);
        }
    }
}

void SortKeysTest::eachValueIsReadOnceForASort()
{
    PeopleModel people;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; sorters: RoleSorter { roleName: 'name' } }",
                       &people);
    QCOMPARE(qml.proxy->count(), 5);
    people.reads = 0;

    qml.proxy->invalidate();

    QCOMPARE(people.reads, 5);
}

void SortKeysTest::changedRowIsReadAgain()
{
    PeopleModel people;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; sorters: RoleSorter { roleName: 'name' } }",
                       &people);
    QCOMPARE(qml.proxy->count(), 5);
    people.reads = 0;

    people.set(0, "name", "zoe");

    QCOMPARE(people.reads, 1);
    QCOMPARE(shown(*qml.proxy), QString("alice Bob dave eve zoe"));
}

void SortKeysTest::changesAreFollowed()
{
    // Whatever happens to the source, the order is that of a fresh proxy over it.
    RowsModel model({"text", "number"});
    std::mt19937 random(7);
    const auto below = [&](int end) { return int(random() % unsigned(end)); };
    const auto makeRow = [&] {
        return RowsModel::Row{{"text", QString("%1%2").arg(QChar('a' + below(3))).arg(QChar('A' + below(3)))},
                              {"number", below(4)}};
    };
    const QByteArray document = R"(SortFilterProxyModel {
        sourceModel: people
        filters: ValueFilter { roleName: 'number'; value: 3; inverted: true }
        sorters: [
            FilterSorter { ValueFilter { roleName: 'number'; value: 1 } },
            RoleSorter { roleName: 'text' },
            StringSorter { roleName: 'number'; ascendingOrder: false }
        ]
    })";
    const QmlProxy followed(document, &model);
    const QByteArray simple = "SortFilterProxyModel { sourceModel: people; sortRoleName: 'text' }";
    const QmlProxy simpleFollowed(simple, &model);
    QAbstractItemModelTester tester(followed.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);

    for (int step = 0; step < 400; ++step) {
        const int count = model.rowCount();
        switch (count < 3 ? 0 : below(8)) {
        case 0:
        case 1: model.insert(below(count + 1), {makeRow(), makeRow()}); break;
        case 2: model.remove(below(count)); break;
        case 3: model.set(below(count), "text", makeRow().value("text")); break;
        case 4: model.set(below(count), "number", below(4)); break;
        case 5: model.move(below(count - 1), count - 1); break;
        case 6: model.reverse(); break;
        case 7: followed.proxy->sorters().at(below(3))->setAscendingOrder(below(2) == 1); break;
        }
        if (step % 10 != 9)
            continue;
        const QmlProxy fresh(document, &model);
        for (int i = 0; i < 3; ++i)
            fresh.proxy->sorters().at(i)->setAscendingOrder(followed.proxy->sorters().at(i)->ascendingOrder());
        QCOMPARE(shown(*followed.proxy, "text"), shown(*fresh.proxy, "text"));
        QCOMPARE(shown(*followed.proxy, "number"), shown(*fresh.proxy, "number"));
        const QmlProxy simpleFresh(simple, &model);
        QCOMPARE(shown(*simpleFollowed.proxy, "text"), shown(*simpleFresh.proxy, "text"));
        QCOMPARE(shown(*simpleFollowed.proxy, "number"), shown(*simpleFresh.proxy, "number"));
    }
}

void SortKeysTest::dataThatChangedSilentlyIsSeenByInvalidate()
{
    PeopleModel people;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; sorters: RoleSorter { roleName: 'name' } }",
                       &people);
    people.setSilently(1, "name", "zoe");
    QCOMPARE(shown(*qml.proxy), QString("zoe Bob carol dave eve"));

    qml.proxy->invalidate();

    QCOMPARE(shown(*qml.proxy), QString("Bob carol dave eve zoe"));
}

void SortKeysTest::sorterInTwoProxies()
{
    PeopleModel people;
    RowsModel others({"name"}, {{{"name", "z"}}, {{"name", "x"}}, {{"name", "y"}}});
    RoleSorter sorter;
    sorter.setRoleName("name");
    Proxy first;
    Proxy second;
    first.setSourceModel(&people);
    second.setSourceModel(&others);
    first.appendSorter(&sorter);
    second.appendSorter(&sorter);
    first.componentComplete();
    second.componentComplete();

    QCOMPARE(shown(first), QString("alice Bob carol dave eve"));
    QCOMPARE(shown(second), QString("x y z"));
    people.set(1, "name", "zoe");
    others.set(1, "name", "zz");
    QCOMPARE(shown(first), QString("Bob carol dave eve zoe"));
    QCOMPARE(shown(second), QString("y z zz"));
}

void SortKeysTest::sorterMovedToAnotherProxy()
{
    PeopleModel people;
    RowsModel others({"name"}, {{{"name", "z"}}, {{"name", "x"}}, {{"name", "y"}}});
    RoleSorter sorter;
    sorter.setRoleName("name");
    Proxy first;
    Proxy second;
    first.setSourceModel(&people);
    second.setSourceModel(&others);
    first.appendSorter(&sorter);
    first.componentComplete();
    second.componentComplete();
    QCOMPARE(shown(first), QString("alice Bob carol dave eve"));

    first.clearSorters();
    second.appendSorter(&sorter);

    QCOMPARE(shown(first), QString("carol alice Bob dave eve"));
    QCOMPARE(shown(second), QString("x y z"));
}

void SortKeysTest::filterSorterFollowsItsRows()
{
    PeopleModel people;
    Proxy proxy;
    FilterSorter sorter;
    ValueFilter filter;
    filter.setRoleName("age");
    filter.setValue(41);
    sorter.appendFilter(&filter);
    proxy.setSourceModel(&people);
    proxy.appendSorter(&sorter);
    proxy.componentComplete();
    QCOMPARE(shown(proxy), QString("dave carol alice Bob eve"));

    people.set(4, "age", 41);
    QCOMPARE(shown(proxy), QString("dave eve carol alice Bob"));
    people.set(3, "age", 1);
    QCOMPARE(shown(proxy), QString("eve carol alice Bob dave"));
    filter.setInverted(true);
    QCOMPARE(shown(proxy), QString("carol alice Bob dave eve"));
}

ONDIRA_TEST(SortKeysTest)

#include "SortKeysTest.moc"
