// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace qqsfpm {

class QQmlSortFilterProxyModel;

// The number of a role known by its name, looked up again only when the names of the proxy have changed.
class RoleLookup
{
public:
    int find(const QQmlSortFilterProxyModel &proxyModel, const QString &name);
    void reset() { m_generation = 0; }

private:
    quint64 m_generation = 0; // unique among all proxies; 0 belongs to none
    int m_role = -1;
};

} // namespace qqsfpm
