// SPDX-License-Identifier: GPL-3.0-or-later
#include "layers/PictureRules.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

PictureRules::PictureRules(const QString &root)
    : m_root(root)
{}

QStringList PictureRules::screens() const
{
    static const QRegularExpression screen(QStringLiteral("(Page|Screen|Popup|Drawer|Sidebar|Dialog\\w*)$"));
    // What other types are made of, and never is a screen itself.
    static const QStringList bases{"Fluid/Controls/Page"};
    QStringList found = pages();
    const QDir folder(m_root.filePath(QStringLiteral("qml")));
    QDirIterator files(folder.path(), {"*.qml"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const auto path = folder.relativeFilePath(files.next()).chopped(4);
        const auto type = path.section('/', -1);
        if (screen.match(type).hasMatch() && !bases.contains(path))
            found << type;
    }
    found.removeDuplicates();
    found.sort();
    return found;
}

QStringList PictureRules::violations() const
{
    static const QRegularExpression name(QStringLiteral("\"(\\w+)\""));
    QStringList named;
    const auto sources = QDir(m_root.filePath(QStringLiteral("tests/tour"))).entryList({"Gallery*.cpp"}, QDir::Files);
    for (const auto &source : sources) {
        auto names = name.globalMatch(textOf(QStringLiteral("tests/tour/") + source));
        while (names.hasNext())
            named << names.next().captured(1);
    }
    QStringList missing;
    const auto wanted = screens();
    for (const auto &screen : wanted) {
        if (screen.isEmpty())
            missing << QStringLiteral("a link of the navigator whose page cannot be read");
        else if (!named.contains(screen))
            missing << screen + QStringLiteral(" has no picture");
    }
    return missing;
}

QStringList PictureRules::pages() const
{
    static const QRegularExpression item(QStringLiteral("\\bStackItem\\s*\\{"));
    static const QRegularExpression page(QStringLiteral("^[^{}]*?\\b(\\w+)\\s*\\{\\s*\\}\\s*\\}"));
    const auto window = textOf(QStringLiteral("qml/main.qml"));
    QStringList found;
    auto items = item.globalMatch(window);
    while (items.hasNext())
        found << page.match(window.mid(items.next().capturedEnd())).captured(1);
    return found;
}

QString PictureRules::textOf(const QString &file) const
{
    QFile source(m_root.filePath(file));
    return source.open(QIODevice::ReadOnly) ? QString::fromUtf8(source.readAll()) : QString();
}
