// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QString>
#include <QStringList>

class QDomDocument;

// Names one directory below a fixed root: the place of all local files. Does not touch the disk unless asked.
class FileManager
{
public:
    enum class Root { PerUser = 0, Application = 1 };

    FileManager(const QString &name, Root root);
    explicit FileManager(const QDir &directory);

    QDir getDirectory() const;
    static QDir getParentDirectory(); // the per-user root itself
    bool createDirectory() const;
    bool exists(const QString &fileName) const;

    // Absolute paths of the files that match, in the directory and in all below it.
    static QStringList findFiles(const QDir &directory, const QStringList &nameFilters);

    // False if the file does not open, is not well-formed, or nests deeper than a document ever does.
    bool readFromFile(QDomDocument &document, const QString &fileName) const;

private:
    QDir m_directory;
};
