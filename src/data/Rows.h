// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>
#include <vector>

// The rows of a list model: a vector with one hole that travels forward. Blocks removed in ascending order widen the
// hole, so that each row behind them moves once in all, while size() and at() tell the right rows at every moment
// between. settle() closes the hole, and so does whatever appends.
template <typename T>
class Rows
{
    template <typename Owner, typename Value>
    class Cursor
    {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        using pointer = Value *;
        using reference = Value &;

        Cursor() = default;
        Cursor(Owner *rows, int row)
            : m_rows(rows)
            , m_row(row)
        {}

        reference operator*() const { return m_rows->at(m_row); }
        pointer operator->() const { return &m_rows->at(m_row); }
        Cursor &operator++()
        {
            ++m_row;
            return *this;
        }
        Cursor operator++(int)
        {
            auto before = *this;
            ++m_row;
            return before;
        }
        bool operator==(const Cursor &other) const { return m_row == other.m_row; }
        bool operator!=(const Cursor &other) const { return m_row != other.m_row; }

    private:
        Owner *m_rows = nullptr;
        int m_row = 0;
    };

public:
    using value_type = T;
    using iterator = Cursor<Rows, T>;
    using const_iterator = Cursor<const Rows, const T>;

    Rows() = default;
    explicit Rows(std::vector<T> rows)
        : m_slots(std::move(rows))
    {}

    int size() const { return static_cast<int>(m_slots.size()) - m_holeSize; }
    bool empty() const { return size() == 0; }

    T &at(int row) { return m_slots[slotOf(row)]; }
    const T &at(int row) const { return m_slots[slotOf(row)]; }
    T &operator[](int row) { return at(row); }
    const T &operator[](int row) const { return at(row); }

    iterator begin() { return {this, 0}; }
    iterator end() { return {this, size()}; }
    const_iterator begin() const { return {this, 0}; }
    const_iterator end() const { return {this, size()}; }

    // Rows before the block move down into the hole, if it stood before them. Records of removed rows live on in the
    // hole until they are moved over or it closes.
    void erase(int first, int count)
    {
        Q_ASSERT(first >= 0 && count >= 0 && first + count <= size());
        if (m_holeSize == 0)
            m_hole = first;
        moveHoleTo(first);
        m_holeSize += count;
    }

    void settle()
    {
        if (m_holeSize == 0)
            return;
        moveHoleTo(size());
        m_slots.erase(m_slots.end() - m_holeSize, m_slots.end());
        m_holeSize = 0;
    }

    void reserve(int count)
    {
        settle();
        // Grows by half at least: exact room for each merge would move all rows at each.
        const auto wanted = static_cast<std::size_t>(count);
        if (wanted > m_slots.capacity())
            m_slots.reserve(std::max(wanted, m_slots.capacity() + m_slots.capacity() / 2));
    }

    void push_back(const T &row)
    {
        settle();
        m_slots.push_back(row);
    }

    void push_back(T &&row)
    {
        settle();
        m_slots.push_back(std::move(row));
    }

    void clear()
    {
        m_slots.clear();
        m_hole = 0;
        m_holeSize = 0;
    }

private:
    std::size_t slotOf(int row) const
    {
        Q_ASSERT(row >= 0 && row < size());
        return static_cast<std::size_t>(row < m_hole ? row : row + m_holeSize);
    }

    void moveHoleTo(int row)
    {
        const auto start = m_slots.begin();
        if (m_holeSize > 0 && row > m_hole)
            std::move(start + m_hole + m_holeSize, start + row + m_holeSize, start + m_hole);
        else if (m_holeSize > 0 && row < m_hole)
            std::move_backward(start + row, start + m_hole, start + m_hole + m_holeSize);
        m_hole = row;
    }

    std::vector<T> m_slots;
    int m_hole = 0; // the row before which the hole lies
    int m_holeSize = 0;
};
