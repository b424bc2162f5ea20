// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractListModel>
#include <QVariantMap>
#include <QVector>

// A list of maps with fixed roles, of which each test changes what it likes. Counts what is read.
class RowsModel : public QAbstractListModel
{
public:
    using Row = QVariantMap;

    explicit RowsModel(const QList<QByteArray> &roles, const QVector<Row> &rows = {})
        : m_rows(rows)
    {
        for (const auto &role : roles)
            m_roleNames.insert(Qt::UserRole + 1 + m_roleNames.size(), role);
    }

    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : m_rows.size(); }
    QHash<int, QByteArray> roleNames() const override { return m_roleNames; }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (!checkIndex(index, CheckIndexOption::IndexIsValid))
            return {};
        ++reads;
        return m_rows.at(index.row()).value(QString::fromUtf8(m_roleNames.value(role)));
    }

    void insert(int row, const QVector<Row> &rows)
    {
        beginInsertRows({}, row, row + rows.size() - 1);
        for (int i = 0; i < rows.size(); ++i)
            m_rows.insert(row + i, rows.at(i));
        endInsertRows();
    }
    void append(const Row &row) { insert(m_rows.size(), {row}); }
    void remove(int row, int count = 1)
    {
        beginRemoveRows({}, row, row + count - 1);
        m_rows.remove(row, count);
        endRemoveRows();
    }
    void move(int from, int to)
    {
        beginMoveRows({}, from, from, {}, to > from ? to + 1 : to);
        m_rows.move(from, to);
        endMoveRows();
    }
    void set(int row, const QString &role, const QVariant &value)
    {
        m_rows[row][role] = value;
        emit dataChanged(index(row), index(row), {m_roleNames.key(role.toUtf8())});
    }
    void setSilently(int row, const QString &role, const QVariant &value) { m_rows[row][role] = value; }
    void reset(const QVector<Row> &rows)
    {
        beginResetModel();
        m_rows = rows;
        endResetModel();
    }
    void reverse()
    {
        emit layoutAboutToBeChanged();
        QModelIndexList from = persistentIndexList();
        QModelIndexList to;
        for (const auto &index : from)
            to << this->index(m_rows.size() - 1 - index.row());
        std::reverse(m_rows.begin(), m_rows.end());
        changePersistentIndexList(from, to);
        emit layoutChanged();
    }
    void setRoles(const QList<QByteArray> &roles)
    {
        beginResetModel();
        m_roleNames.clear();
        for (const auto &role : roles)
            m_roleNames.insert(Qt::UserRole + 1 + m_roleNames.size(), role);
        endResetModel();
    }

    mutable int reads = 0;

private:
    QVector<Row> m_rows;
    QHash<int, QByteArray> m_roleNames;
};
