// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

// The program's version for the interface. QML knows it as "versionController".
class VersionController : public QObject
{
    Q_OBJECT

public:
    explicit VersionController(QObject *parent = nullptr);

    Q_INVOKABLE QString version() const;
    Q_INVOKABLE QString revision() const;
    Q_INVOKABLE QString verboseVersion() const;
    Q_INVOKABLE int versionMajor() const;
    Q_INVOKABLE int versionMinor() const;
    Q_INVOKABLE int versionPatch() const;
    // Negative, 0 or positive, as the first version is older than, equal to or newer than the other.
    Q_INVOKABLE static int compareVersions(int major, int minor, int patch, int otherMajor, int otherMinor,
                                           int otherPatch);
};
