// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/QmlFileDialogHelper.h"

#include <QDir>
#include <algorithm>
#include <iterator>

QmlFileDialogHelper::QmlFileDialogHelper(QObject *parent)
    : QObject(parent)
{}

QStringList QmlFileDialogHelper::getDrives() const
{
    const auto drives = QDir::drives();
    QStringList roots;
    std::transform(drives.cbegin(), drives.cend(), std::back_inserter(roots),
                   [](const QFileInfo &drive) { return drive.absoluteFilePath(); });
    return roots;
}
