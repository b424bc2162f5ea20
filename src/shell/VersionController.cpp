// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/VersionController.h"

#include "shell/Version.h"

#include <QVersionNumber>

VersionController::VersionController(QObject *parent)
    : QObject(parent)
{}

QString VersionController::version() const
{
    return Version::text();
}

QString VersionController::revision() const
{
    return QStringLiteral("N/A");
}

QString VersionController::verboseVersion() const
{
    return QStringLiteral("Ondira Smart ") + version();
}

int VersionController::versionMajor() const
{
    return Version::number().majorVersion();
}

int VersionController::versionMinor() const
{
    return Version::number().minorVersion();
}

int VersionController::versionPatch() const
{
    return Version::number().microVersion();
}

int VersionController::compareVersions(int major, int minor, int patch, int otherMajor, int otherMinor, int otherPatch)
{
    return QVersionNumber::compare(QVersionNumber(major, minor, patch),
                                   QVersionNumber(otherMajor, otherMinor, otherPatch));
}
