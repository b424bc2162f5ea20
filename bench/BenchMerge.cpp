// SPDX-License-Identifier: GPL-3.0-or-later
// Merging a fresh list into the rows of a model: 10,000 rows, a tenth of them gone, a tenth new, with every signal.
#include "data/Rows.h"
#include "data/UidKeyAbstractListModel.h"
#include "data/qqsfpm/QQmlSortFilterProxyModel.h"
#include "model/Site.h"

#include <QSortFilterProxyModel>
#include <benchmark/benchmark.h>
#include <random>

namespace {

constexpr std::size_t rowCount = 10000;
constexpr std::size_t tenth = rowCount / 10;

using Parts = std::vector<Model::ShopPart>;

template <typename Container>
class PartsModel : public UidKeyAbstractListModel
{
public:
    enum Role { Uid = Qt::UserRole + 1, Name };

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (!holds(index))
            return {};
        const auto &part = m_rows[index.row()];
        switch (role) {
        case Uid: return part.uid.toString();
        case Name: return part.name;
        }
        return {};
    }

    QHash<int, QByteArray> roleNames() const override { return {{Uid, "uid"}, {Name, "name"}}; }

    void take(Parts parts)
    {
        using Merge = DiffTransform<Container, Model::ShopPart>;
        Merge(
            m_rows, std::move(parts), [](const auto &part) { return part.uid; }, *this)
            .transform();
    }

private:
    Container m_rows;
};

// Lists that follow each other, each with a tenth of the last one's rows gone, spread over it, and a tenth new.
class Lists
{
public:
    Lists()
    {
        while (m_parts.size() < rowCount)
            append();
    }

    Parts next()
    {
        for (std::size_t i = 0; i < tenth; ++i)
            m_parts.erase(m_parts.begin() + static_cast<std::ptrdiff_t>(m_random() % m_parts.size()));
        while (m_parts.size() < rowCount)
            append();
        return m_parts;
    }

private:
    void append()
    {
        Model::ShopPart part;
        part.uid = QUuid(m_random(), ushort(m_random()), ushort(m_random()), uchar(m_random()), uchar(m_random()),
                         uchar(m_random()), uchar(m_random()), uchar(m_random()), uchar(m_random()), uchar(m_random()),
                         uchar(m_random()));
        part.name = QStringLiteral("Part %1").arg(m_random());
        m_parts.push_back(part);
    }

    std::mt19937 m_random{1};
    Parts m_parts;
};

template <typename Container>
void merge(benchmark::State &state, PartsModel<Container> &model)
{
    Lists lists;
    model.take(lists.next());
    for (auto _ : state) {
        state.PauseTiming();
        auto parts = lists.next();
        state.ResumeTiming();
        model.take(std::move(parts));
    }
}

void MergeTenThousand(benchmark::State &state)
{
    PartsModel<Rows<Model::ShopPart>> model;
    int signalCount = 0;
    QObject::connect(&model, &QAbstractItemModel::rowsRemoved, [&] { ++signalCount; });
    QObject::connect(&model, &QAbstractItemModel::rowsInserted, [&] { ++signalCount; });
    merge(state, model);
    benchmark::DoNotOptimize(signalCount);
}
BENCHMARK(MergeTenThousand)->Unit(benchmark::kMillisecond);

void MergeTenThousandInAPlainVector(benchmark::State &state)
{
    PartsModel<Parts> model;
    merge(state, model);
}
BENCHMARK(MergeTenThousandInAPlainVector)->Unit(benchmark::kMillisecond);

void MergeUnderSortedBaseProxy(benchmark::State &state)
{
    PartsModel<Rows<Model::ShopPart>> model;
    QSortFilterProxyModel proxy;
    proxy.setSourceModel(&model);
    proxy.setSortRole(PartsModel<Parts>::Name);
    proxy.sort(0);
    merge(state, model);
}
BENCHMARK(MergeUnderSortedBaseProxy)->Unit(benchmark::kMillisecond);

void MergeUnderSortedProxy(benchmark::State &state)
{
    PartsModel<Rows<Model::ShopPart>> model;
    qqsfpm::QQmlSortFilterProxyModel proxy;
    proxy.classBegin();
    proxy.setSourceModel(&model);
    proxy.setSortRoleName(QStringLiteral("name"));
    proxy.componentComplete();
    merge(state, model);
}
BENCHMARK(MergeUnderSortedProxy)->Unit(benchmark::kMillisecond);

} // namespace
