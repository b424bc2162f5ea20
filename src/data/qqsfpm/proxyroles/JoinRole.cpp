// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/proxyroles/JoinRole.h"

#include "data/qqsfpm/QQmlSortFilterProxyModel.h"

namespace qqsfpm {

void JoinRole::setRoleNames(const QStringList &roleNames)
{
    if (m_roleNames == roleNames)
        return;
    m_roleNames = roleNames;
    emit roleNamesChanged();
    emit invalidated();
}

void JoinRole::setSeparator(const QString &separator)
{
    if (m_separator == separator)
        return;
    m_separator = separator;
    emit separatorChanged();
    emit invalidated();
}

QVariant JoinRole::data(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel,
                        const QString &) const
{
    QStringList texts;
    for (const auto &roleName : m_roleNames)
        texts << proxyModel.sourceData(sourceIndex, roleName).toString();
    return texts.join(m_separator);
}

} // namespace qqsfpm
