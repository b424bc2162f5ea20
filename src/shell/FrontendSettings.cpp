// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/FrontendSettings.h"

#include "shell/RuntimePermissionsManager.h"

#include <QDebug>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

namespace {

constexpr qint64 largestFile = 1024 * 1024;
constexpr int intervalOfFilesWithout = 600000; // ten minutes, where no file at all means one

} // namespace

FrontendSettings::FrontendSettings(RuntimePermissionsManager &permissions, QObject *parent, int writeDelay)
    : QObject(parent)
    , m_directory(QStringLiteral("frontend"), FileManager::Root::PerUser)
{
    m_writing.setSingleShot(true);
    m_writing.setInterval(writeDelay);
    connect(&m_writing, &QTimer::timeout, this, &FrontendSettings::commit);
    connect(&permissions, &RuntimePermissionsManager::storageGranted, this, &FrontendSettings::onPermissionsGranted);
    if (load())
        setLoaded();
}

FrontendSettings::~FrontendSettings()
{
    commit();
}

void FrontendSettings::setHideExit(bool hide)
{
    change(&Values::hideExit, hide, &FrontendSettings::hideExitChanged);
}

void FrontendSettings::setHideActionsEditor(bool hide)
{
    change(&Values::hideActionsEditor, hide, &FrontendSettings::hideActionsEditorChanged);
}

void FrontendSettings::setUsePincode(bool use)
{
    change(&Values::usePincode, use, &FrontendSettings::usePincodeChanged);
}

void FrontendSettings::setLockConnections(bool lock)
{
    change(&Values::lockConnections, lock, &FrontendSettings::lockConnectionsChanged);
}

void FrontendSettings::setPincode(const QString &pincode)
{
    change(&Values::pincode, pincode, &FrontendSettings::pincodeChanged);
}

void FrontendSettings::setUseScreenPoweroff(bool use)
{
    change(&Values::useScreenPoweroff, use, &FrontendSettings::useScreenPoweroffChanged);
}

void FrontendSettings::setScreenPoweroffInterval(int interval)
{
    change(&Values::screenPoweroffInterval, interval, &FrontendSettings::screenPoweroffIntervalChanged);
}

void FrontendSettings::onPermissionsGranted()
{
    if (!m_dirty) // what was changed meanwhile is newer than the file
        load();
    setLoaded();
}

template <typename T>
bool FrontendSettings::assign(T Values::*field, const T &value, void (FrontendSettings::*changed)())
{
    if (m_values.*field == value)
        return false;
    m_values.*field = value;
    emit(this->*changed)();
    return true;
}

template <typename T>
void FrontendSettings::change(T Values::*field, const T &value, void (FrontendSettings::*changed)())
{
    if (assign(field, value, changed))
        invalidate();
}

bool FrontendSettings::load()
{
    QFile file(filePath());
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const auto document = file.size() <= largestFile ? QJsonDocument::fromJson(file.readAll()) : QJsonDocument();
    if (!document.isObject()) {
        qWarning().noquote() << "Can not read the settings, defaults are used:" << file.fileName();
        return false;
    }
    fill(document.object());
    return true;
}

void FrontendSettings::fill(const QJsonObject &object)
{
    const auto flag = [&object](const char *key) { return object.value(QLatin1String(key)).toBool(false); };
    assign(&Values::hideExit, flag("hide_exit"), &FrontendSettings::hideExitChanged);
    assign(&Values::hideActionsEditor, flag("hide_actions_editor"), &FrontendSettings::hideActionsEditorChanged);
    assign(&Values::usePincode, flag("use_pincode"), &FrontendSettings::usePincodeChanged);
    assign(&Values::lockConnections, flag("lock_connections"), &FrontendSettings::lockConnectionsChanged);
    assign(&Values::pincode, object.value(QLatin1String("pincode")).toString(), &FrontendSettings::pincodeChanged);
    assign(&Values::useScreenPoweroff, flag("use_screen_poweroff"), &FrontendSettings::useScreenPoweroffChanged);
    assign(&Values::screenPoweroffInterval,
           object.value(QLatin1String("screen_poweroff_interval")).toInt(intervalOfFilesWithout),
           &FrontendSettings::screenPoweroffIntervalChanged);
}

void FrontendSettings::setLoaded()
{
    if (m_loaded)
        return;
    m_loaded = true;
    emit loadedChanged();
}

void FrontendSettings::invalidate()
{
    m_dirty = true;
    m_writing.start();
}

void FrontendSettings::commit()
{
    m_writing.stop();
    if (!m_dirty)
        return;
    m_dirty = false;
    m_directory.createDirectory();
    const QJsonObject object{{QStringLiteral("hide_exit"), m_values.hideExit},
                             {QStringLiteral("hide_actions_editor"), m_values.hideActionsEditor},
                             {QStringLiteral("use_pincode"), m_values.usePincode},
                             {QStringLiteral("lock_connections"), m_values.lockConnections},
                             {QStringLiteral("pincode"), m_values.pincode},
                             {QStringLiteral("use_screen_poweroff"), m_values.useScreenPoweroff},
                             {QStringLiteral("screen_poweroff_interval"), m_values.screenPoweroffInterval}};
    const QByteArray json = QJsonDocument(object).toJson();
    QSaveFile file(filePath());
    // A failure is not shown: the choice then lasts until the program ends. The PIN is for its owner alone to read.
    if (!file.open(QIODevice::WriteOnly) || !file.setPermissions(QFile::ReadOwner | QFile::WriteOwner)
        || file.write(json) != json.size() || !file.commit())
        qDebug().noquote() << "Can not write the settings:" << file.fileName() << file.errorString();
}

QString FrontendSettings::filePath() const
{
    return m_directory.getDirectory().filePath(QStringLiteral("frontend_settings.json"));
}
