// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Startup.h"

#include <QDebug>
#include <QDir>
#include <QFile>

namespace {

constexpr qint64 longestLocaleFile = 4096;

} // namespace

QLocale Startup::determineLocale(const QString &directory)
{
    const QLocale russian(QStringLiteral("ru_RU"));
    QFile file(QDir(directory).filePath(QStringLiteral("ondira.locale")));
    if (!file.open(QIODevice::ReadOnly)) {
        file.setFileName(QStringLiteral(":/ondira.locale"));
        if (!file.open(QIODevice::ReadOnly))
            return russian;
    }
    QByteArray name = file.read(longestLocaleFile);
    const int end = name.indexOf('\0');
    if (end >= 0)
        name.truncate(end);
    // Editors end the file with a line feed, which no locale name has.
    const QLocale locale(QString::fromUtf8(name).trimmed());
    return locale.name() == QStringLiteral("C") ? russian : locale;
}

std::unique_ptr<QTranslator> Startup::translatorForLocale(const QString &prefix, const QLocale &locale)
{
    const QString directory = QStringLiteral(":/translations");
    const QString language = locale.name().left(2).toLower();
    if (!QFile::exists(QStringLiteral(":/translations/%1_%2.qm").arg(prefix, language)))
        return nullptr;
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(prefix + '_' + language, directory)) {
        qWarning().noquote() << "Can not load the translation" << prefix + '_' + language;
        return nullptr;
    }
    return translator;
}
