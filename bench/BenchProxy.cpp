// SPDX-License-Identifier: GPL-3.0-or-later
// The declarative proxy over 10,000 rows, each time beside the plain class of Qt doing the same.
#include "data/qqsfpm/QQmlSortFilterProxyModel.h"
#include "data/qqsfpm/Registration.h"
#include "data/qqsfpm/filters/ValueFilter.h"
#include "data/qqsfpm/sorters/RoleSorter.h"
#include "data/qqsfpm/sorters/StringSorter.h"

#include <QCoreApplication>
#include <QEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <numeric>
#include <random>

namespace {

constexpr int rowsOfAll = 10000;
constexpr int kindCount = 4;

// Texts and numbers in no order; the kinds take turns, which is the worst for a proxy: every row is a block of its own.
class TextModel : public QAbstractListModel
{
public:
    enum Role { Text = Qt::UserRole + 1, Number, Kind };

    TextModel()
    {
        std::vector<int> numbers(rowsOfAll);
        std::iota(numbers.begin(), numbers.end(), 0);
        std::shuffle(numbers.begin(), numbers.end(), std::mt19937(1));
        for (int row = 0; row < rowsOfAll; ++row) {
            const int number = numbers[std::size_t(row)];
            m_rows.push_back({QStringLiteral("Zone %1").arg(number, 5, 10, QLatin1Char('0')), number, row % kindCount});
        }
    }

    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : int(m_rows.size()); }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (!checkIndex(index, CheckIndexOption::IndexIsValid))
            return {};
        const auto &row = m_rows[std::size_t(index.row())];
        switch (role) {
        case Text: return row.text;
        case Number: return row.number;
        case Kind: return row.kind;
        }
        return {};
    }
    QHash<int, QByteArray> roleNames() const override { return {{Text, "text"}, {Number, "number"}, {Kind, "kind"}}; }

private:
    struct Row
    {
        QString text;
        int number;
        int kind;
    };

    std::vector<Row> m_rows;
};

void ProxySortByText(benchmark::State &state)
{
    TextModel model;
    qqsfpm::QQmlSortFilterProxyModel proxy;
    qqsfpm::RoleSorter sorter;
    sorter.setRoleName(QStringLiteral("text"));
    proxy.setSourceModel(&model);
    proxy.appendSorter(&sorter);
    proxy.componentComplete();
    for (auto _ : state) {
        proxy.invalidate();
        benchmark::DoNotOptimize(proxy.rowCount());
    }
}
BENCHMARK(ProxySortByText)->Unit(benchmark::kMillisecond);

void ProxySortByTextRole(benchmark::State &state)
{
    TextModel model;
    qqsfpm::QQmlSortFilterProxyModel proxy;
    proxy.setSortRoleName(QStringLiteral("text"));
    proxy.setSourceModel(&model);
    proxy.componentComplete();
    for (auto _ : state) {
        proxy.invalidate();
        benchmark::DoNotOptimize(proxy.rowCount());
    }
}
BENCHMARK(ProxySortByTextRole)->Unit(benchmark::kMillisecond);

void ProxySortByLanguage(benchmark::State &state)
{
    TextModel model;
    qqsfpm::QQmlSortFilterProxyModel proxy;
    qqsfpm::StringSorter sorter;
    sorter.setRoleName(QStringLiteral("text"));
    sorter.setLocale(QLocale(QStringLiteral("ru_RU")));
    proxy.setSourceModel(&model);
    proxy.appendSorter(&sorter);
    proxy.componentComplete();
    for (auto _ : state) {
        proxy.invalidate();
        benchmark::DoNotOptimize(proxy.rowCount());
    }
}
BENCHMARK(ProxySortByLanguage)->Unit(benchmark::kMillisecond);

void BaseSortByText(benchmark::State &state)
{
    TextModel model;
    QSortFilterProxyModel proxy;
    proxy.setSourceModel(&model);
    proxy.setSortRole(TextModel::Text);
    proxy.sort(0);
    for (auto _ : state) {
        proxy.invalidate();
        benchmark::DoNotOptimize(proxy.rowCount());
    }
}
BENCHMARK(BaseSortByText)->Unit(benchmark::kMillisecond);

void ProxyToggleRoleFilter(benchmark::State &state)
{
    TextModel model;
    qqsfpm::QQmlSortFilterProxyModel proxy;
    qqsfpm::ValueFilter filter;
    filter.setRoleName(QStringLiteral("kind"));
    filter.setValue(0);
    proxy.setSourceModel(&model);
    proxy.appendFilter(&filter);
    proxy.componentComplete();
    benchmark::DoNotOptimize(proxy.rowCount());
    for (auto _ : state)
        filter.setEnabled(!filter.enabled());
}
BENCHMARK(ProxyToggleRoleFilter)->Unit(benchmark::kMillisecond);

void BaseToggleRoleFilter(benchmark::State &state)
{
    TextModel model;
    QSortFilterProxyModel proxy;
    proxy.setSourceModel(&model);
    proxy.setFilterRole(TextModel::Kind);
    benchmark::DoNotOptimize(proxy.rowCount());
    bool isOn = false;
    for (auto _ : state) {
        isOn = !isOn;
        proxy.setFilterFixedString(isOn ? QStringLiteral("0") : QString());
    }
}
BENCHMARK(BaseToggleRoleFilter)->Unit(benchmark::kMillisecond);

// Between the limits lie two rows, so that the script is measured and not the rows that come and go.
const char scriptedDocument[] = R"(
    import QtQml 2.12
    import SortFilterProxyModel 0.2
    QtObject {
        id: root
        property int limit: 5000
        property var accepts: function(row) { return row.number > limit && row.text !== "" }
        property var proxy: SortFilterProxyModel {
            filters: ExpressionFilter { expression: model.number > root.limit && model.text !== "" }
        }
    })";

class ScriptedDocument
{
public:
    ScriptedDocument()
    {
        qqsfpm::registerTypes();
        QQmlComponent component(&engine);
        component.setData(scriptedDocument, QUrl(QStringLiteral("bench.qml")));
        root.reset(component.create());
        if (!root)
            qFatal("%s", qPrintable(component.errorString()));
    }
    void toggle() { root->setProperty("limit", root->property("limit").toInt() == 5000 ? 4998 : 5000); }

    QQmlEngine engine;
    std::unique_ptr<QObject> root;
};

void ProxyScriptedFilter(benchmark::State &state)
{
    TextModel model;
    ScriptedDocument document;
    auto *proxy = document.root->property("proxy").value<qqsfpm::QQmlSortFilterProxyModel *>();
    proxy->setSourceModel(&model);
    benchmark::DoNotOptimize(proxy->rowCount());
    for (auto _ : state) {
        document.toggle();
        state.PauseTiming();
        QCoreApplication::sendPostedEvents(); // what was let go of is deleted
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
}
BENCHMARK(ProxyScriptedFilter)->Unit(benchmark::kMillisecond);

// A function of the document called with a map of the roles, for each row.
class CallingProxy : public QSortFilterProxyModel
{
public:
    QJSEngine *engine = nullptr;
    mutable QJSValue accepts;

    void refilter() { invalidateFilter(); }

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &) const override
    {
        if (!engine)
            return true;
        const QModelIndex index = sourceModel()->index(sourceRow, 0);
        const auto names = sourceModel()->roleNames();
        QVariantMap row;
        for (auto it = names.cbegin(); it != names.cend(); ++it)
            row.insert(QString::fromUtf8(it.value()), index.data(it.key()));
        return accepts.call({engine->toScriptValue(row)}).toBool();
    }
};

void BaseScriptedFilter(benchmark::State &state)
{
    TextModel model;
    ScriptedDocument document;
    CallingProxy proxy;
    proxy.engine = &document.engine;
    proxy.accepts = document.root->property("accepts").value<QJSValue>();
    proxy.setSourceModel(&model);
    benchmark::DoNotOptimize(proxy.rowCount());
    for (auto _ : state) {
        document.toggle();
        proxy.refilter();
    }
}
BENCHMARK(BaseScriptedFilter)->Unit(benchmark::kMillisecond);

} // namespace
