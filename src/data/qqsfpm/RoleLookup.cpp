// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/RoleLookup.h"

#include "data/qqsfpm/QQmlSortFilterProxyModel.h"

namespace qqsfpm {

int RoleLookup::find(const QQmlSortFilterProxyModel &proxyModel, const QString &name)
{
    if (m_generation != proxyModel.roleGeneration()) {
        m_generation = proxyModel.roleGeneration();
        m_role = proxyModel.roleForName(name);
    }
    return m_role;
}

} // namespace qqsfpm
