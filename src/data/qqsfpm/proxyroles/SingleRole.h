// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/proxyroles/ProxyRole.h"

namespace qqsfpm {

// Base of the proxy roles that are one role.
class SingleRole : public ProxyRole
{
    Q_OBJECT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)

public:
    using ProxyRole::ProxyRole;

    const QString &name() const { return m_name; }
    void setName(const QString &name);

    QStringList names() const override;

signals:
    void nameChanged();

private:
    QString m_name;
};

} // namespace qqsfpm
