// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/Rows.h"
#include "data/UidIndex.h"

#include <QAbstractListModel>
#include <QUuid>
#include <QVariantMap>
#include <functional>
#include <utility>
#include <vector>

// Base of the list models whose rows the server owns and a uid names. Rows stand in the order of their arrival; what
// order is shown is the business of a proxy in QML.
class UidKeyAbstractListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    struct Range
    {
        int first;
        int count;
    };

    template <typename Container, typename Row>
    class DiffTransform;

    using QAbstractListModel::QAbstractListModel;

    // All roles of the row of that uid by their names; empty if there is none. The text must have braces.
    Q_INVOKABLE QVariantMap getByUid(const QString &uid) const;

    Qt::ItemFlags flags(const QModelIndex &index) const override;

protected:
    // Whether the index names a row of this model. Unlike checkIndex() it says nothing in the log: views and proxies
    // ask for rows that are not there as a matter of course.
    bool holds(const QModelIndex &index) const;

private:
    quint64 m_merges = 0;
};

// Turns the rows of a model into a fresh list by the fewest row signals: rows that persist stay where they are, so
// that their delegates do, blocks of rows that are gone are removed in ascending order, all others are announced as
// changed at once, and new rows come last. Never sorts. Lives on the stack of one update.
// The container is Rows<Row> or std::vector<Row>.
template <typename Container, typename Row>
class UidKeyAbstractListModel::DiffTransform
{
public:
    using Hook = std::function<void(const Range &range)>;
    using UidFunction = std::function<QUuid(const Row &row)>;

    DiffTransform(Container &items, const std::vector<Row> &newItems, const UidFunction &uidOf,
                  UidKeyAbstractListModel &model)
        : m_items(items)
        , m_newItems(newItems)
        , m_uidOf(uidOf)
        , m_model(model)
    {
        auto *const target = &m_model;
        beginInsert = [target](const Range &range) {
            target->beginInsertRows(QModelIndex(), range.first, range.first + range.count - 1);
        };
        endInsert = [target](const Range &) { target->endInsertRows(); };
        beginRemove = [target](const Range &range) {
            target->beginRemoveRows(QModelIndex(), range.first, range.first + range.count - 1);
        };
        endRemove = [target](const Range &) { target->endRemoveRows(); };
        dataChanged = [target](const Range &range) {
            static const QVector<int> roles = target->roleNames().keys().toVector();
            emit target->dataChanged(target->index(range.first), target->index(range.first + range.count - 1), roles);
        };
    }

    // A fresh list that was made for this merge: its records are moved into the rows rather than copied.
    DiffTransform(Container &items, std::vector<Row> &&newItems, const UidFunction &uidOf,
                  UidKeyAbstractListModel &model)
        : DiffTransform(items, static_cast<const std::vector<Row> &>(newItems), uidOf, model)
    {
        m_source = &newItems;
    }

    DiffTransform(const DiffTransform &) = delete;
    DiffTransform &operator=(const DiffTransform &) = delete;

    // A model may replace these before transform().
    Hook dataChanged;
    Hook beginInsert;
    Hook endInsert;
    Hook beginRemove;
    Hook endRemove;

    void transform()
    {
        m_turn = ++m_model.m_merges;
        indexNewItems();
        removeGone();
        if (isCurrent())
            updatePresent();
        if (isCurrent())
            insertNew();
    }

private:
    static constexpr int none = -1;

    // False when a slot of one of the signals has merged another list, by closing the link for instance: that list is
    // the newer one, and stands.
    bool isCurrent() const { return m_model.m_merges == m_turn; }

    void indexNewItems()
    {
        m_incoming = UidIndex(m_newItems.size());
        m_standsFor.reserve(m_newItems.size());
        for (const auto &row : m_newItems)
            m_standsFor.push_back(m_incoming.insertFirst(m_uidOf(row), static_cast<int>(m_standsFor.size())));
        m_uses.resize(m_newItems.size(), 0);
    }

    void removeGone()
    {
        m_matches.reserve(static_cast<std::size_t>(m_items.size()));
        Range gone{0, 0};
        for (int row = 0; row < rowCount();) {
            const int match = m_incoming.find(m_uidOf(itemAt(row)));
            if (match == none) {
                if (gone.count == 0)
                    gone.first = row;
                ++gone.count;
                ++row;
                continue;
            }
            if (gone.count > 0) {
                remove(gone);
                if (!isCurrent())
                    return;
                row = gone.first; // where the row just found present stands now
                gone.count = 0;
            }
            m_matches.push_back(match);
            ++m_uses[static_cast<std::size_t>(match)];
            ++row;
        }
        if (gone.count > 0)
            remove(gone);
    }

    void remove(const Range &range)
    {
        beginRemove(range);
        eraseRows(m_items, range);
        endRemove(range);
    }

    // Every record is overwritten, changed or not, and announced once: comparing would cost more than it spares.
    void updatePresent()
    {
        settleRows(m_items);
        auto uses = m_uses; // rows that share a uid take one record: only the last of them may take it away
        for (int row = 0; row < rowCount(); ++row) {
            const auto match = static_cast<std::size_t>(m_matches[static_cast<std::size_t>(row)]);
            --uses[match];
            take(match, uses[match] == 0, [&](auto &&record) { itemAt(row) = std::forward<decltype(record)>(record); });
        }
        dataChanged({0, rowCount()});
    }

    void insertNew()
    {
        int count = 0;
        for (const int first : m_standsFor)
            count += m_uses[static_cast<std::size_t>(first)] == 0 ? 1 : 0;
        if (count == 0)
            return;
        const Range range{rowCount(), count};
        beginInsert(range);
        reserveRows(m_items, range.first + count);
        for (std::size_t i = 0; i < m_newItems.size(); ++i) {
            if (m_uses[static_cast<std::size_t>(m_standsFor[i])] == 0)
                take(i, true, [&](auto &&record) { m_items.push_back(std::forward<decltype(record)>(record)); });
        }
        endInsert(range);
    }

    template <typename Give>
    void take(std::size_t i, bool last, const Give &give)
    {
        if (m_source && last)
            give(std::move((*m_source)[i]));
        else
            give(m_newItems[i]);
    }

    int rowCount() const { return static_cast<int>(m_items.size()); }
    Row &itemAt(int row) { return itemAt(m_items, row); }

    static Row &itemAt(Rows<Row> &items, int row) { return items.at(row); }
    static Row &itemAt(std::vector<Row> &items, int row) { return items[static_cast<std::size_t>(row)]; }
    static void eraseRows(Rows<Row> &items, const Range &range) { items.erase(range.first, range.count); }
    static void eraseRows(std::vector<Row> &items, const Range &range)
    {
        const auto first = items.begin() + range.first;
        items.erase(first, first + range.count);
    }
    static void settleRows(Rows<Row> &items) { items.settle(); }
    static void settleRows(std::vector<Row> &) {}
    static void reserveRows(Rows<Row> &items, int count) { items.reserve(count); }
    static void reserveRows(std::vector<Row> &, int) {}

    Container &m_items;
    const std::vector<Row> &m_newItems;
    std::vector<Row> *m_source = nullptr; // the same list, where its records may be moved
    UidFunction m_uidOf;
    UidKeyAbstractListModel &m_model;
    quint64 m_turn = 0;
    UidIndex m_incoming{0};
    std::vector<int> m_standsFor; // for each new row the first new row of its uid
    std::vector<int> m_uses; // for each new row the number of present rows that take its record
    std::vector<int> m_matches; // for each present row the new row whose record it takes
};
