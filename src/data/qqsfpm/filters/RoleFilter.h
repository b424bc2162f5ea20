// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/RoleLookup.h"
#include "data/qqsfpm/filters/Filter.h"

#include <QVariant>

namespace qqsfpm {

// Base of the filters that look at the value of one role.
class RoleFilter : public Filter
{
    Q_OBJECT
    Q_PROPERTY(QString roleName READ roleName WRITE setRoleName NOTIFY roleNameChanged)

public:
    using Filter::Filter;

    const QString &roleName() const { return m_roleName; }
    void setRoleName(const QString &roleName);

signals:
    void roleNameChanged();

protected:
    QVariant sourceData(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const;

private:
    QString m_roleName;
    mutable RoleLookup m_role;
};

} // namespace qqsfpm
