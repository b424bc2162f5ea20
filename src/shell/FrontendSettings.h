// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/FileManager.h"

#include <QObject>
#include <QString>
#include <QTimer>

class QJsonObject;
class RuntimePermissionsManager;

// What this device does with the interface, its lock and its screen, kept in a file of its own. A change reaches the
// file with all others of its ten seconds, or when the program ends.
class FrontendSettings : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool hideExit READ getHideExit WRITE setHideExit NOTIFY hideExitChanged)
    Q_PROPERTY(
        bool hideActionsEditor READ getHideActionsEditor WRITE setHideActionsEditor NOTIFY hideActionsEditorChanged)
    Q_PROPERTY(bool usePincode READ getUsePincode WRITE setUsePincode NOTIFY usePincodeChanged)
    Q_PROPERTY(bool lockConnections READ getLockConnections WRITE setLockConnections NOTIFY lockConnectionsChanged)
    Q_PROPERTY(QString pincode READ getPincode WRITE setPincode NOTIFY pincodeChanged)
    Q_PROPERTY(
        bool useScreenPoweroff READ getUseScreenPoweroff WRITE setUseScreenPoweroff NOTIFY useScreenPoweroffChanged)
    Q_PROPERTY(int screenPoweroffInterval READ getScreenPoweroffInterval WRITE setScreenPoweroffInterval NOTIFY
                   screenPoweroffIntervalChanged)
    Q_PROPERTY(bool loaded READ isLoaded NOTIFY loadedChanged)

public:
    static constexpr int defaultWriteDelay = 10000; // milliseconds

    explicit FrontendSettings(RuntimePermissionsManager &permissions, QObject *parent = nullptr,
                              int writeDelay = defaultWriteDelay);
    ~FrontendSettings() override;

    bool getHideExit() const { return m_values.hideExit; }
    void setHideExit(bool hide);
    bool getHideActionsEditor() const { return m_values.hideActionsEditor; }
    void setHideActionsEditor(bool hide);
    bool getUsePincode() const { return m_values.usePincode; }
    void setUsePincode(bool use);
    bool getLockConnections() const { return m_values.lockConnections; }
    void setLockConnections(bool lock);
    QString getPincode() const { return m_values.pincode; } // digits
    void setPincode(const QString &pincode);
    bool getUseScreenPoweroff() const { return m_values.useScreenPoweroff; }
    void setUseScreenPoweroff(bool use);
    int getScreenPoweroffInterval() const { return m_values.screenPoweroffInterval; } // milliseconds
    void setScreenPoweroffInterval(int interval);
    bool isLoaded() const { return m_loaded; } // the storage has been looked into

public slots:
    void onPermissionsGranted();

signals:
    void hideExitChanged();
    void hideActionsEditorChanged();
    void usePincodeChanged();
    void lockConnectionsChanged();
    void pincodeChanged();
    void useScreenPoweroffChanged();
    void screenPoweroffIntervalChanged();
    void loadedChanged();

private:
    // These hold before there is a file.
    struct Values
    {
        bool hideExit = false;
        bool hideActionsEditor = true;
        bool usePincode = false;
        bool lockConnections = false;
        QString pincode;
        bool useScreenPoweroff = false;
        int screenPoweroffInterval = 60000;
    };

    template <typename T>
    bool assign(T Values::*field, const T &value, void (FrontendSettings::*changed)());
    template <typename T>
    void change(T Values::*field, const T &value, void (FrontendSettings::*changed)());
    bool load();
    void fill(const QJsonObject &object);
    void setLoaded();
    void invalidate();
    void commit();
    QString filePath() const;

    FileManager m_directory;
    Values m_values;
    bool m_loaded = false;
    bool m_dirty = false;
    QTimer m_writing;
};
