// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVersionNumber>

// The program's own version, which also goes out with every request.
namespace Version {

inline QString text()
{
    return QStringLiteral("4.5.2");
}

inline QVersionNumber number()
{
    return QVersionNumber(4, 5, 2);
}

} // namespace Version
