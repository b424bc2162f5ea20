// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/RoleLookup.h"
#include "data/qqsfpm/RowKeys.h"
#include "data/qqsfpm/sorters/Sorter.h"

#include <QVariant>

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
    // A value made ready: texts folded, so that comparing code units gives what comparing without case gives.
    struct Key
    {
        enum class Kind { Text, Number, Other };

        Kind kind = Kind::Other;
        int number = 0;
        QString text;
        QVariant value;
    };

    static Key makeKey(const QVariant &value);
    static int compareKeys(const Key &left, const Key &right);

    QString m_roleName;
    mutable RoleLookup m_role;
    mutable RowKeys<Key> m_keys;
};

} // namespace qqsfpm
