// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/SettingsController.h"

#include "data/JsValues.h"
#include "link/AbstractBackendCommunicator.h"
#include "shell/AppSettingsProxy.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QPointer>
#include <QSaveFile>
#include <QStandardPaths>

namespace {

Q_LOGGING_CATEGORY(backups, "ondira.backups")

constexpr qint64 largestBackup = 256LL * 1024 * 1024;

bool writeWhole(const QString &path, const QByteArray &data)
{
    QSaveFile file(path);
    file.setDirectWriteFallback(false); // never touch the old file before the new one is complete
    if (data.isEmpty()) {
        qCWarning(backups) << "The server gave an empty backup for" << path;
        return false;
    }
    const QFileInfo old(path);
    if (old.exists() && !old.isFile()) { // a rename would put the backup in the place of a device
        qCWarning(backups) << "Can not write the backup" << path << "over what is no file";
        return false;
    }
    if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size() || !file.commit()) {
        qCWarning(backups) << "Can not write the backup" << path << file.errorString();
        return false;
    }
    return true;
}

// Devices and pipes may give bytes without end, so only a file that tells its size is read.
bool readWhole(const QString &path, QByteArray &data)
{
    const QFileInfo info(path);
    if (!info.isFile() || info.size() > largestBackup) {
        qCWarning(backups) << "Can not restore from" << path << "of" << info.size() << "bytes";
        return false;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qCWarning(backups) << "Can not open" << path << file.errorString();
        return false;
    }
    data = file.read(largestBackup + 1);
    return file.error() == QFile::NoError && data.size() <= largestBackup;
}

} // namespace

SettingsController::SettingsController(AbstractBackendCommunicator &communicator, QObject *parent)
    : AbstractController(communicator, parent)
    , m_appSettings(std::make_unique<AppSettingsProxy>(QStringLiteral("frontend.ini"), QStringLiteral("OndiraSmart")))
{
    auto &cache = communicator.getDataCache();
    connect(&cache, &BackendDataCache::settingsChanged, this, &SettingsController::onSettingsReceived);
    onSettingsReceived(cache.getSettings());
}

SettingsController::~SettingsController() = default;

void SettingsController::setBackendSettings(const QVariant &settings)
{
    const auto map = JsValues::plain(settings);
    if (map.userType() != QMetaType::QVariantMap)
        return; // it would read as settings without a single transport
    communicator().setSettings(Model::Settings::fromVariant(map));
    emit backendSettingsChanged();
}

void SettingsController::onSettingsReceived(const Model::Settings &settings)
{
    m_settings = settings;
    emit backendSettingsChanged();
}

bool SettingsController::backup(const QUrl &fileUrl)
{
    const auto path = fileUrl.toLocalFile();
    if (path.isEmpty())
        return false;
    requestBackup(path);
    return true;
}

bool SettingsController::restore(const QUrl &fileUrl)
{
    QByteArray bytes;
    if (!readWhole(fileUrl.toLocalFile(), bytes))
        return false;
    const QPointer<SettingsController> self(this);
    communicator().restoreBackup(bytes, [self] {
        if (self)
            emit self->restoreFinished();
    });
    return true;
}

QString SettingsController::androidBackup()
{
    const QDir downloads(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation));
    downloads.mkpath(QStringLiteral("."));
    // Without colons, which the file systems of memory cards refuse.
    const auto time = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd_HH-mm-ss"));
    const auto path = downloads.filePath(time + QStringLiteral(".qvb2"));
    requestBackup(path);
    return path;
}

void SettingsController::resetSettings()
{
    communicator().factoryReset();
}

void SettingsController::requestBackup(const QString &path)
{
    const QPointer<SettingsController> self(this);
    communicator().getBackup([self, path](const QString &, const QByteArray &data) {
        const bool written = writeWhole(path, data);
        if (self)
            emit self->backupFinished(path, written);
    });
}
