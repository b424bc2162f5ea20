// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/proxyroles/SingleRole.h"

namespace qqsfpm {

// The texts of some roles, joined.
class JoinRole : public SingleRole
{
    Q_OBJECT
    Q_PROPERTY(QStringList roleNames READ roleNames WRITE setRoleNames NOTIFY roleNamesChanged)
    Q_PROPERTY(QString separator READ separator WRITE setSeparator NOTIFY separatorChanged)

public:
    using SingleRole::SingleRole;

    const QStringList &roleNames() const { return m_roleNames; }
    void setRoleNames(const QStringList &roleNames);

    const QString &separator() const { return m_separator; }
    void setSeparator(const QString &separator);

    QVariant data(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel,
                  const QString &name) const override;

signals:
    void roleNamesChanged();
    void separatorChanged();

private:
    QStringList m_roleNames;
    QString m_separator = QStringLiteral(" ");
};

} // namespace qqsfpm
