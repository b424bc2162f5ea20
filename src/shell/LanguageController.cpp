// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/LanguageController.h"

#include "shell/RuntimePermissionsManager.h"
#include "shell/Startup.h"

#include <QDebug>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QSaveFile>

namespace {

constexpr qint64 largestFile = 1024 * 1024;

LanguageController::TranslatorChanger &translatorChanger()
{
    static LanguageController::TranslatorChanger changer;
    return changer;
}

} // namespace

LanguageController::LanguageController(RuntimePermissionsManager &permissions, QObject *parent)
    : QObject(parent)
    , m_directory(QStringLiteral("frontend"), FileManager::Root::PerUser)
    , m_locale(QLocale::system().name())
{
    connect(&permissions, &RuntimePermissionsManager::storageGranted, this, &LanguageController::onPermissionGranted);
    Stored stored;
    if (load(stored)) {
        m_locale = stored.locale;
        m_activeLayouts = stored.activeLayouts;
    }
}

void LanguageController::setTranslatorChanger(const TranslatorChanger &changer)
{
    translatorChanger() = changer;
}

QString LanguageController::getLanguageAbbriviation() const
{
    return m_locale.size() < 2 ? QStringLiteral("RU") : m_locale.left(2).toUpper();
}

void LanguageController::set(const QString &locale, const QStringList &layouts)
{
    const Stored stored{locale, layouts};
    save(stored);
    apply(stored);
}

void LanguageController::onPermissionGranted()
{
    Stored stored;
    if (load(stored))
        apply(stored);
}

bool LanguageController::load(Stored &stored) const
{
    QFile file(filePath());
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const auto document = file.size() <= largestFile ? QJsonDocument::fromJson(file.readAll()) : QJsonDocument();
    if (!document.isObject()) {
        qWarning().noquote() << "Can not read the language settings, defaults are used:" << file.fileName();
        return false;
    }
    const auto object = document.object();
    stored.locale = object.value(QStringLiteral("locale")).toString(QStringLiteral("ru_RU"));
    stored.activeLayouts.clear();
    for (const QJsonValue &layout : object.value(QStringLiteral("activeLayouts")).toArray()) {
        if (layout.isString())
            stored.activeLayouts << layout.toString();
    }
    return true;
}

void LanguageController::save(const Stored &stored) const
{
    m_directory.createDirectory();
    const QJsonObject object{{QStringLiteral("locale"), stored.locale},
                             {QStringLiteral("activeLayouts"), QJsonArray::fromStringList(stored.activeLayouts)}};
    const QByteArray json = QJsonDocument(object).toJson();
    QSaveFile file(filePath());
    // A failure is not shown: the choice then lasts until the program ends.
    if (!file.open(QIODevice::WriteOnly) || file.write(json) != json.size() || !file.commit())
        qDebug().noquote() << "Can not write the language settings:" << file.fileName() << file.errorString();
}

void LanguageController::apply(const Stored &stored)
{
    if (stored.activeLayouts != m_activeLayouts) {
        m_activeLayouts = stored.activeLayouts;
        emit activeLayoutsChanged();
    }
    if (stored.locale == m_locale)
        return;
    const QLocale locale(stored.locale);
    QLocale::setDefault(locale);
    auto translator = Startup::translatorForLocale(QStringLiteral("frontend"), locale);
    if (translatorChanger())
        translatorChanger()(std::move(translator));
    m_locale = stored.locale;
    emit localeChanged();
}

QString LanguageController::filePath() const
{
    return m_directory.getDirectory().filePath(QStringLiteral("frontend_locale.json"));
}
