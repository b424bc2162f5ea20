// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/FileManager.h"

#include <QCoreApplication>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStandardPaths>
#include <QXmlStreamReader>

namespace {

constexpr int deepestElement = 512;

QDir directoryFor(const QString &name, FileManager::Root root)
{
    switch (root) {
    case FileManager::Root::PerUser: return QDir(FileManager::getParentDirectory().path() + QDir::separator() + name);
    case FileManager::Root::Application: return QDir(QCoreApplication::applicationDirPath() + QDir::separator() + name);
    }
    return QDir();
}

void collectFiles(const QDir &directory, const QStringList &nameFilters, QSet<QString> &visited, QStringList &found)
{
    // A link to a directory above would lead round for ever.
    const QString canonicalPath = directory.canonicalPath();
    if (canonicalPath.isEmpty() || visited.contains(canonicalPath))
        return;
    visited.insert(canonicalPath);
    for (const QFileInfo &file : directory.entryInfoList(nameFilters, QDir::Files))
        found << file.absoluteFilePath();
    for (const QFileInfo &child : directory.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
        collectFiles(QDir(child.absoluteFilePath()), nameFilters, visited, found);
}

// A document keeps its elements as a tree that is taken down by recursion: one that nests too deep would end the
// program, so it is measured before the tree is built.
bool isTooDeep(QIODevice &device)
{
    QXmlStreamReader reader(&device);
    reader.setNamespaceProcessing(false);
    int depth = 0;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::StartElement && ++depth > deepestElement)
            return true;
        if (token == QXmlStreamReader::EndElement)
            --depth;
    }
    return false;
}

} // namespace

FileManager::FileManager(const QString &name, Root root)
    : m_directory(directoryFor(name, root))
{}

FileManager::FileManager(const QDir &directory)
    : m_directory(directory)
{}

QDir FileManager::getDirectory() const
{
    return m_directory;
}

QDir FileManager::getParentDirectory()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QDir::separator()
                + QStringLiteral(".ondirasmart"));
}

bool FileManager::createDirectory() const
{
    return m_directory.exists() || m_directory.mkpath(QStringLiteral("."));
}

bool FileManager::exists(const QString &fileName) const
{
    return m_directory.exists(fileName);
}

QStringList FileManager::findFiles(const QDir &directory, const QStringList &nameFilters)
{
    QStringList found;
    QSet<QString> visited;
    collectFiles(directory, nameFilters, visited, found);
    return found;
}

bool FileManager::readFromFile(QDomDocument &document, const QString &fileName) const
{
    QFile file(m_directory.filePath(fileName));
    if (!file.open(QIODevice::ReadOnly) || isTooDeep(file) || !file.seek(0))
        return false;
    return document.setContent(&file);
}
