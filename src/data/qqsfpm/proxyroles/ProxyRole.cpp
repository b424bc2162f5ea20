// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/proxyroles/ProxyRole.h"

namespace qqsfpm {

ProxyRole::ProxyRole(QObject *parent)
    : QObject(parent)
{}

QVariant ProxyRole::roleData(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel,
                             const QString &name)
{
    if (!m_mutex.tryLock())
        return {};
    const QVariant value = data(sourceIndex, proxyModel, name);
    m_mutex.unlock();
    return value;
}

} // namespace qqsfpm
