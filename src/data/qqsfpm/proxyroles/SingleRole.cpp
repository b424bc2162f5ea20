// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/proxyroles/SingleRole.h"

namespace qqsfpm {

void SingleRole::setName(const QString &name)
{
    if (m_name == name)
        return;
    m_name = name;
    emit nameChanged();
    emit namesChanged();
}

QStringList SingleRole::names() const
{
    return {m_name};
}

} // namespace qqsfpm
