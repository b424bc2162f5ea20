// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QTemporaryDir>
#include <QtGlobal>

// A source tree in a temporary folder, for tests of the rules.
class MadeUpTree
{
public:
    QString root() const { return m_folder.path(); }

    void write(const QString &path, const QByteArray &content) const
    {
        const auto file = m_folder.filePath(path);
        QFile target(file);
        const bool written = QDir().mkpath(QFileInfo(file).path()) && target.open(QIODevice::WriteOnly)
            && target.write(content) == content.size();
        if (!written)
            qFatal("The tree cannot be written: %s", qPrintable(file));
    }

private:
    QTemporaryDir m_folder;
};
