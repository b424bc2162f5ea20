// SPDX-License-Identifier: GPL-3.0-or-later
#include "layers/SourceRules.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>
#include <utility>
#include <vector>

namespace {

// What each layer may include beside itself, from the lowest to the highest.
const QHash<QString, QStringList> &allowedLayers()
{
    static const QStringList link{"base", "model", "document", "json", "zmq", "link"};
    static const QStringList data = link + QStringList{"xlsx", "qqsfpm", "data"};
    static const QStringList actions = data + QStringList{"actions"};
    static const QStringList schedules = actions + QStringList{"schedules"};
    static const QStringList statistics = schedules + QStringList{"statistics"};
    static const QStringList all = statistics + QStringList{"terminal", "xmlapi", "shell"};
    static const QHash<QString, QStringList> layers{
        {"base", {}},
        {"xlsx", {"base"}},
        {"model", {"base"}},
        {"document", {"base", "model"}},
        {"json", {"base", "model", "document"}},
        {"zmq", {}},
        {"link", link},
        {"qqsfpm", {}},
        {"data", data},
        {"actions", actions},
        {"schedules", schedules},
        {"statistics", statistics},
        {"terminal", {"base", "model", "json"}},
        {"xmlapi", {"base", "model", "json"}},
        {"shell", all},
        {"main", all},
        {"demo", {"base", "model", "document", "json", "zmq"}},
    };
    return layers;
}

// Folders and the layers they hold; the first that fits counts.
const std::vector<std::pair<QString, QString>> &layerFolders()
{
    static const std::vector<std::pair<QString, QString>> folders{
        {"src/model/json/", "json"},
        {"src/model/", "model"},
        {"src/link/document/", "document"},
        {"src/link/zmq/", "zmq"},
        {"src/link/", "link"},
        {"src/data/BackendDataCache.", "link"},
        {"src/data/qqsfpm/", "qqsfpm"},
        {"src/data/", "data"},
        {"src/actions/", "actions"},
        {"src/schedules/", "schedules"},
        {"src/statistics/", "statistics"},
        {"src/terminal/", "terminal"},
        {"src/xmlapi/", "xmlapi"},
        {"src/xlsx/", "xlsx"},
        {"src/shell/", "shell"},
        {"src/main.cpp", "main"},
        {"demo/", "demo"},
    };
    return folders;
}

bool isSource(const QString &path)
{
    static const QSet<QString> suffixes{"cpp", "h"};
    return suffixes.contains(QFileInfo(path).suffix());
}

// Formats without comments.
bool mayLackLicence(const QString &path)
{
    static const QSet<QString> suffixes{"jpg", "json", "mesh", "png", "ttf"};
    return suffixes.contains(QFileInfo(path).suffix());
}

bool isBinary(const QByteArray &content)
{
    return content.left(8192).contains('\0');
}

} // namespace

SourceRules::SourceRules(const QString &root)
    : m_root(root)
    , m_baseFiles{"Version"} // a header without a source
{
    static const QRegularExpression base(QStringLiteral("ondira_library\\(base\\s+SOURCES([^)]*?)(LINKS[^)]*)?\\)"));
    static const QRegularExpression source(QStringLiteral("(\\w+)\\.cpp"));
    const auto list = base.match(QString::fromUtf8(contentOf(QStringLiteral("src/shell/CMakeLists.txt")))).captured(1);
    auto names = source.globalMatch(list);
    while (names.hasNext())
        m_baseFiles.insert(names.next().captured(1));
}

QStringList SourceRules::includeViolations() const
{
    static const QRegularExpression include(QStringLiteral("^\\s*#\\s*include\\s*([\"<])([^\">]+)[\">]"));
    m_checkedIncludes = 0;
    m_checkedFiles = 0;
    QStringList violations;
    for (const auto &file : filesIn({"src", "demo"})) {
        if (!isSource(file))
            continue;
        ++m_checkedFiles;
        if (layerOf(file).isEmpty()) {
            violations << file + QStringLiteral(" belongs to no layer");
            continue;
        }
        const auto lines = QString::fromUtf8(contentOf(file)).split('\n');
        for (int i = 0; i < lines.size(); ++i) {
            const auto match = include.match(lines.at(i));
            if (!match.hasMatch())
                continue;
            const auto violation = includeViolation(file, match.captured(2), match.captured(1) == QLatin1String("\""));
            if (!violation.isEmpty())
                violations << QStringLiteral("%1:%2 %3").arg(file).arg(i + 1).arg(violation);
        }
    }
    return violations;
}

QStringList SourceRules::licenceViolations() const
{
    m_checkedFiles = 0;
    QStringList violations;
    for (const auto &file : filesIn({"src", "demo", "tests", "qml", "bench"})) {
        const auto content = contentOf(file);
        if (mayLackLicence(file) || isBinary(content))
            continue;
        ++m_checkedFiles;
        // The first line may belong to a shell or to XML.
        const auto head = content.split('\n').mid(0, 3);
        const bool told = std::any_of(head.begin(), head.end(), [](const QByteArray &line) {
            return line.contains("SPDX-License-Identifier: GPL-3.0-or-later");
        });
        if (!told)
            violations << file + QStringLiteral(" has no licence line");
    }
    return violations;
}

QStringList SourceRules::wordViolations() const
{
    // In brackets, so that this file keeps the rule.
    static const QRegularExpression words(QStringLiteral("\\b(T[O]DO|F[I]XME|X[X]X|H[A]CK)\\b"));
    static const QStringList folders{".ci", "bench",     "cmake",   "demo", "docs", "packaging",
                                     "qml", "resources", "scripts", "src",  "tests"};
    static const QStringList foreign{"resources/fonts/", "resources/icons/"};
    m_checkedFiles = 0;
    QStringList files = filesIn(folders);
    for (const auto *file : {"CHANGELOG.md", "CMakeLists.txt", "README.md", "run", "test"})
        files << file;
    QStringList violations;
    for (const auto &file : files) {
        const auto content = contentOf(file);
        const bool isForeign =
            std::any_of(foreign.begin(), foreign.end(), [&](const QString &folder) { return file.startsWith(folder); });
        if (isForeign || isBinary(content))
            continue;
        ++m_checkedFiles;
        const auto lines = QString::fromUtf8(content).split('\n');
        for (int i = 0; i < lines.size(); ++i) {
            const auto match = words.match(lines.at(i));
            if (match.hasMatch())
                violations << QStringLiteral("%1:%2 holds the word %3").arg(file).arg(i + 1).arg(match.captured(1));
        }
    }
    return violations;
}

QString SourceRules::layerOf(const QString &path) const
{
    const auto &folders = layerFolders();
    const auto found =
        std::find_if(folders.begin(), folders.end(), [&](const auto &folder) { return path.startsWith(folder.first); });
    if (found == folders.end())
        return {};
    if (found->second == QLatin1String("shell") && m_baseFiles.contains(QFileInfo(path).completeBaseName()))
        return QStringLiteral("base");
    return found->second;
}

QString SourceRules::includeViolation(const QString &file, const QString &included, bool quoted) const
{
    if (included.endsWith(QLatin1String(".moc")))
        return {};
    // Paths start at src/, those of the demo site at the root.
    QString target = "src/" + included;
    if (!m_root.exists(target) && included.startsWith(QLatin1String("demo/")))
        target = included;
    if (!m_root.exists(target) || QDir::cleanPath(target) != target) {
        if (!quoted)
            return {}; // of the system
        return QStringLiteral("includes \"%1\": no file of ours, by a path that starts at src/").arg(included);
    }
    ++m_checkedIncludes;
    const auto from = layerOf(file);
    const auto to = layerOf(target);
    if (from != to && !allowedLayers().value(from).contains(to))
        return QStringLiteral("includes \"%1\": %2 may not use %3").arg(included, from, to);
    const bool isOwner = file.startsWith(QLatin1String("src/shell/")) || file == QLatin1String("src/main.cpp");
    if (target == QLatin1String("src/shell/FrontendManager.h") && !isOwner)
        return QStringLiteral("includes the manager, which only the shell may know");
    return {};
}

QStringList SourceRules::filesIn(const QStringList &folders) const
{
    QStringList files;
    for (const auto &folder : folders) {
        QDirIterator iterator(m_root.filePath(folder), QDir::Files, QDirIterator::Subdirectories);
        while (iterator.hasNext()) {
            const auto path = m_root.relativeFilePath(iterator.next());
            // Compiled scripts are no sources.
            if (!path.contains(QLatin1String("__pycache__/")))
                files << path;
        }
    }
    files.sort();
    return files;
}

QByteArray SourceRules::contentOf(const QString &file) const
{
    QFile source(m_root.filePath(file));
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
}
