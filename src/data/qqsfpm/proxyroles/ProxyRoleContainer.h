// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/Container.h"
#include "data/qqsfpm/proxyroles/ProxyRole.h"

namespace qqsfpm {

// Whatever has a list of proxy roles.
class ProxyRoleContainer : public Container<ProxyRole>
{
public:
    ~ProxyRoleContainer() override;

    const QList<ProxyRole *> &proxyRoles() const { return children(); }
    void appendProxyRole(ProxyRole *proxyRole) { append(proxyRole); }
    void removeProxyRole(ProxyRole *proxyRole) { remove(proxyRole); }
    void clearProxyRoles() { clear(); }

    QQmlListProperty<ProxyRole> proxyRolesListProperty() { return listProperty(); }
};

} // namespace qqsfpm

Q_DECLARE_INTERFACE(qqsfpm::ProxyRoleContainer, "ondira.qqsfpm.ProxyRoleContainer")
