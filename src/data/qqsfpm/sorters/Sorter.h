// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QModelIndex>
#include <QObject>

namespace qqsfpm {

class QQmlSortFilterProxyModel;

// Base of the declarative sorters: puts two source rows in order, and tells when its order may have changed. A subclass
// gives compare() or lessThan().
class Sorter : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool enabled READ enabled WRITE setEnabled NOTIFY enabledChanged)
    Q_PROPERTY(bool ascendingOrder READ ascendingOrder WRITE setAscendingOrder NOTIFY sortOrderChanged)
    Q_PROPERTY(Qt::SortOrder sortOrder READ sortOrder WRITE setSortOrder NOTIFY sortOrderChanged)
    Q_PROPERTY(int priority READ priority WRITE setPriority NOTIFY priorityChanged)

public:
    explicit Sorter(QObject *parent = nullptr);

    bool enabled() const { return m_enabled; }
    void setEnabled(bool enabled);

    bool ascendingOrder() const { return m_sortOrder == Qt::AscendingOrder; }
    void setAscendingOrder(bool ascendingOrder);

    Qt::SortOrder sortOrder() const { return m_sortOrder; }
    void setSortOrder(Qt::SortOrder sortOrder);

    // Higher goes first.
    int priority() const { return m_priority; }
    void setPriority(int priority);

    // Below 0: left goes first. With regard to the sort order.
    int compareRows(const QModelIndex &left, const QModelIndex &right, const QQmlSortFilterProxyModel &proxyModel) const
    {
        const int order = compare(left, right, proxyModel);
        return m_sortOrder == Qt::AscendingOrder ? order : -order;
    }

    // Both in ascending order.
    virtual int compare(const QModelIndex &left, const QModelIndex &right,
                        const QQmlSortFilterProxyModel &proxyModel) const;
    virtual bool lessThan(const QModelIndex &left, const QModelIndex &right,
                          const QQmlSortFilterProxyModel &proxyModel) const;

    // A sorter that keeps something for each row keeps it for the one proxy that promises to have it dropped in time.
    virtual void keepKeysFor(const QQmlSortFilterProxyModel *owner) { Q_UNUSED(owner) }
    virtual void dropKeys() {}
    virtual void dropKeys(int firstRow, int lastRow);
    // Whether it is sure to answer the same when asked for the same rows again in one sort.
    virtual bool isSteady() const { return false; }

signals:
    void enabledChanged();
    void sortOrderChanged();
    void priorityChanged();
    void invalidated();

protected:
    // To be called when the order may have changed; a disabled sorter keeps quiet.
    void invalidate();

private:
    bool m_enabled = true;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
    int m_priority = 0;
};

} // namespace qqsfpm
