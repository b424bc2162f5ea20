// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/RoleLookup.h"
#include "data/qqsfpm/RowKeys.h"
#include "data/qqsfpm/SortKey.h"
#include "data/qqsfpm/sorters/Sorter.h"

namespace qqsfpm {

// Sorts by the value of one role in the order of QVariant, which ignores the case of texts.
class RoleSorter : public Sorter
{
    Q_OBJECT
    Q_PROPERTY(QString roleName READ roleName WRITE setRoleName NOTIFY roleNameChanged)

public:
    using Sorter::Sorter;

    const QString &roleName() const { return m_roleName; }
    void setRoleName(const QString &roleName);

    int compare(const QModelIndex &left, const QModelIndex &right,
                const QQmlSortFilterProxyModel &proxyModel) const override;

    void keepKeysFor(const QQmlSortFilterProxyModel *owner) override;
    void dropKeys() override;
    void dropKeys(int firstRow, int lastRow) override;
    bool isSteady() const override { return true; }

signals:
    void roleNameChanged();

protected:
    QVariant sourceData(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const;

private:
    QString m_roleName;
    mutable RoleLookup m_role;
    mutable RowKeys<SortKey> m_keys;
};

} // namespace qqsfpm
