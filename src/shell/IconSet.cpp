// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/IconSet.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QRegularExpression>

namespace {

const char *const root = ":/icons/material";
constexpr int mostWarnings = 100; // names come from the server too

QString pathOf(const QString &name)
{
    return QStringLiteral("%1/%2.svg").arg(QLatin1String(root), name);
}

} // namespace

bool IconSet::contains(const QString &name) const
{
    static const QRegularExpression wellFormed(QStringLiteral("\\A[a-z0-9_]{1,64}/[a-z0-9_]{1,64}\\z"));
    return wellFormed.match(name).hasMatch() && QFile::exists(pathOf(name));
}

QString IconSet::url(const QString &name)
{
    static const QRegularExpression address(QStringLiteral("\\A[a-z][a-z0-9_+.-]*:"));
    if (name.isEmpty() || address.match(name).hasMatch())
        return name;
    if (contains(name))
        return QStringLiteral("qrc") + pathOf(name);
    if (m_unknown.size() < mostWarnings && !m_unknown.contains(name)) {
        m_unknown << name;
        qWarning().noquote() << "There is no icon" << name.left(100);
    }
    return {};
}

QStringList IconSet::names() const
{
    QStringList all;
    const auto groups = QDir(QLatin1String(root)).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const auto &group : groups) {
        const auto icons = QDir(QStringLiteral("%1/%2").arg(QLatin1String(root), group))
                               .entryList({QStringLiteral("*.svg")}, QDir::Files, QDir::Name);
        for (const auto &icon : icons)
            all << group + QLatin1Char('/') + icon.chopped(4);
    }
    return all;
}
