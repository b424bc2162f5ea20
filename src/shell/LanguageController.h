// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/FileManager.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTranslator>
#include <functional>
#include <memory>

class RuntimePermissionsManager;

// The language of the interface and the layouts of the on-screen keyboard, kept in a file of their own. Who owns the
// running translator gives a changer, through which a new language reaches it.
class LanguageController : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString locale READ getLocale NOTIFY localeChanged)
    Q_PROPERTY(QStringList activeLayouts READ getActiveLayouts NOTIFY activeLayoutsChanged)
    Q_PROPERTY(QString languageAbbriviation READ getLanguageAbbriviation NOTIFY localeChanged)

public:
    using TranslatorChanger = std::function<void(std::unique_ptr<QTranslator> translator)>;

    explicit LanguageController(RuntimePermissionsManager &permissions, QObject *parent = nullptr);

    // An empty function takes the changer away.
    static void setTranslatorChanger(const TranslatorChanger &changer);

    QString getLocale() const { return m_locale; }
    QStringList getActiveLayouts() const { return m_activeLayouts; }
    QString getLanguageAbbriviation() const;

    Q_INVOKABLE void set(const QString &locale, const QStringList &layouts);

public slots:
    void onPermissionGranted();

signals:
    void localeChanged();
    void activeLayoutsChanged();

private:
    struct Stored
    {
        QString locale;
        QStringList activeLayouts;
    };

    bool load(Stored &stored) const; // false leaves the values as they are
    void save(const Stored &stored) const;
    void apply(const Stored &stored);
    QString filePath() const;

    FileManager m_directory;
    QString m_locale;
    QStringList m_activeLayouts;
};
