// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemModel>
#include <vector>

namespace qqsfpm {

class QQmlSortFilterProxyModel;

// What a sorter compares, fetched once for each source row instead of at each comparison. Rows fill as they are asked
// for. The proxy that lists the sorter owns the keys and has them dropped at each change of the source, before the base
// class sorts by it; for any other proxy, and for rows that don't belong to the level seen first, there are none.
template <typename Key>
class RowKeys
{
public:
    void reset(const QQmlSortFilterProxyModel *owner)
    {
        m_owner = owner;
        dropAll();
    }

    void dropAll()
    {
        ++m_generation; // a mark for each row, so that dropping all costs nothing
        m_levelKnown = false;
    }

    void drop(int first, int last)
    {
        const int size = int(m_rows.size());
        for (int row = qMax(first, 0); row <= last && row < size; ++row)
            m_rows[std::size_t(row)].generation = 0;
    }

    bool cover(const QModelIndex &left, const QModelIndex &right, const QQmlSortFilterProxyModel &proxyModel)
    {
        if (m_owner != &proxyModel || left.column() != 0 || right.column() != 0 || left.row() < 0 || right.row() < 0)
            return false;
        if (!m_levelKnown) {
            m_levelKnown = true;
            m_level = left.internalId();
        }
        if (left.internalId() != m_level || right.internalId() != m_level)
            return false;
        const std::size_t needed = std::size_t(qMax(left.row(), right.row())) + 1;
        if (m_rows.size() < needed)
            m_rows.resize(qMax(needed, std::size_t(left.model()->rowCount(left.parent()))));
        return true;
    }

    // The key if the row has one, only after cover().
    const Key *find(const QModelIndex &index) const
    {
        const Row &row = m_rows[std::size_t(index.row())];
        return row.generation == m_generation ? &row.key : nullptr;
    }

    // Only after cover(); references stay good until the next cover() or fetch.
    template <typename Fetch>
    const Key &at(const QModelIndex &index, Fetch fetch)
    {
        const std::size_t row = std::size_t(index.row());
        if (m_rows[row].generation != m_generation) {
            Key key = fetch(index); // may ask for other keys, or drop all
            if (row >= m_rows.size())
                m_rows.resize(row + 1);
            m_rows[row].key = std::move(key);
            m_rows[row].generation = m_generation;
        }
        return m_rows[row].key;
    }

private:
    struct Row
    {
        quint64 generation = 0;
        Key key{};
    };

    std::vector<Row> m_rows;
    const QQmlSortFilterProxyModel *m_owner = nullptr;
    quint64 m_generation = 1;
    quintptr m_level = 0; // the internal id that all rows of one level share
    bool m_levelKnown = false;
};

} // namespace qqsfpm
