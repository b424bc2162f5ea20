// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/AbstractController.h"
#include "model/Settings.h"

#include <QUrl>
#include <QVariant>
#include <memory>

class AppSettingsProxy;

// The settings of the server, its backup and restore, and the program's own settings. QML knows it as
// "settingsController".
class SettingsController : public AbstractController
{
    Q_OBJECT
    // The map form of the settings. What is written goes to the server; what is read is what it published.
    Q_PROPERTY(QVariant backendSettings READ getBackendSettings WRITE setBackendSettings NOTIFY backendSettingsChanged)

public:
    explicit SettingsController(AbstractBackendCommunicator &communicator, QObject *parent = nullptr);
    ~SettingsController() override;

    QVariant getBackendSettings() const { return m_settings.toVariant(); }
    void setBackendSettings(const QVariant &settings); // what is no map is passed over
    AppSettingsProxy *getAppSettings() const { return m_appSettings.get(); }

public slots:
    void onSettingsReceived(const Model::Settings &settings);

    // Asks for a backup and writes it to that local file when it comes, which backupFinished() tells. An existing file
    // is replaced only by a complete one. False when the url names no local file.
    bool backup(const QUrl &fileUrl);
    // False when the file cannot be read or is larger than any backup.
    bool restore(const QUrl &fileUrl);
    QString androidBackup(); // into the folder of downloads; gives the path
    void resetSettings();

signals:
    void backendSettingsChanged();
    void backupFinished(const QString &path, bool written);
    void restoreFinished();

private:
    void requestBackup(const QString &path);

    Model::Settings m_settings;
    std::unique_ptr<AppSettingsProxy> m_appSettings;
};
