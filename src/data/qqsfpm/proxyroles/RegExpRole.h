// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/proxyroles/ProxyRole.h"

#include <QRegularExpression>

namespace qqsfpm {

// Takes the text of a role apart: each named group of a regular expression becomes a role of that name.
class RegExpRole : public ProxyRole
{
    Q_OBJECT
    Q_PROPERTY(QString roleName READ roleName WRITE setRoleName NOTIFY roleNameChanged)
    Q_PROPERTY(QString pattern READ pattern WRITE setPattern NOTIFY patternChanged)
    Q_PROPERTY(
        Qt::CaseSensitivity caseSensitivity READ caseSensitivity WRITE setCaseSensitivity NOTIFY caseSensitivityChanged)

public:
    using ProxyRole::ProxyRole;

    const QString &roleName() const { return m_roleName; }
    void setRoleName(const QString &roleName);

    QString pattern() const { return m_regExp.pattern(); }
    void setPattern(const QString &pattern);

    Qt::CaseSensitivity caseSensitivity() const;
    void setCaseSensitivity(Qt::CaseSensitivity caseSensitivity);

    QStringList names() const override;
    QVariant data(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel,
                  const QString &name) const override;

signals:
    void roleNameChanged();
    void patternChanged();
    void caseSensitivityChanged();

private:
    QString m_roleName;
    QRegularExpression m_regExp;
};

} // namespace qqsfpm
