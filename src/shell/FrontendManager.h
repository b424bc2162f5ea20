// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "actions/ActionsListModel.h"
#include "data/ButtonsListModel.h"
#include "data/DeviceFaultsListModel.h"
#include "data/DeviceTypesListModel.h"
#include "data/DevicesListModel.h"
#include "data/ImageItemsListModel.h"
#include "data/IndicatorsListModel.h"
#include "data/RadioDevicesListModel.h"
#include "data/ServerTimeController.h"
#include "data/SettingsController.h"
#include "data/ShopController.h"
#include "data/ShopPartsListModel.h"
#include "data/UsersListModel.h"
#include "data/View3DItemsListModel.h"
#include "data/ZonesListModel.h"
#include "model/Result.h"
#include "schedules/ScheduleDaysListModel.h"
#include "shell/ConnectionsListModel.h"
#include "shell/FrontendSettings.h"
#include "shell/QmlFileDialogHelper.h"
#include "shell/RuntimePermissionsManager.h"
#include "shell/VersionController.h"
#include "statistics/DevicePowerOnStatisticsListModel.h"

#include <QObject>
#include <QPointer>
#include <QQmlApplicationEngine>
#include <QStringList>
#include <QTranslator>
#include <QUrl>
#include <memory>
#include <vector>

class AbstractBackendCommunicator;
class ErrorsListModel;

// Owns every long-lived object of the program, shows them to QML, and carries the process-wide message handler.
// Members are built in their order and destroyed in reverse, so each may hold references to those above it.
class FrontendManager : public QObject
{
    Q_OBJECT

public:
    FrontendManager(const QString &applicationDirectory, const QStringList &arguments, QObject *parent = nullptr);
    ~FrontendManager() override;

    static FrontendManager *instance() { return currentInstance; }
    bool getKioskMode() const { return m_kioskMode; }
    AbstractBackendCommunicator &getCommunicator() const { return *m_communicator; }
    RuntimePermissionsManager &getPermissionsManager() { return m_permissionsManager; }
    FrontendSettings &getFrontendSettings() { return m_frontendSettings; }
    QQmlApplicationEngine &getEngine() { return m_engine; }

    // Installs the translator in place of the last one. A live link reconnects, so that the server's texts follow.
    void changeTranslator(std::unique_ptr<QTranslator> translator);
    void reloadQml();

    // The Qt message handler: two lines to standard output for each message. May run on any thread.
    static void logFileOutput(QtMsgType type, const QMessageLogContext &context, const QString &message);

signals:
    void logMessage(int type, const QString &message);

private:
    void registerQmlTypes();
    void registerMetaTypes();
    void registerSingletons();
    void setContextProperties();
    QObject *createErrors(QQmlEngine *engine);
    void reportLocalError(const Model::Result::Error &error);

    static FrontendManager *currentInstance;

    QString m_applicationDirectory;
    QStringList m_arguments;
    bool m_kioskMode;
    RuntimePermissionsManager m_permissionsManager;
    FrontendSettings m_frontendSettings{m_permissionsManager};
    std::unique_ptr<AbstractBackendCommunicator> m_communicator;
    ShopController m_shopController;
    SettingsController m_settingsController;
    ScheduleDaysListModel m_scheduleDaysListModel;
    VersionController m_versionController;
    UsersListModel m_usersListModel;
    DeviceTypesListModel m_deviceTypesListModel;
    DevicesListModel m_devicesListModel;
    DeviceFaultsListModel m_deviceFaultsListModel;
    ShopPartsListModel m_shopPartsListModel;
    ZonesListModel m_zonesListModel;
    ButtonsListModel m_buttonsListModel;
    ImageItemsListModel m_imageItemsListModel;
    ActionsListModel m_actionsListModel;
    ServerTimeController m_serverTimeController;
    IndicatorsListModel m_indicatorsListModel;
    ConnectionsListModel m_connectionsListModel;
    RadioDevicesListModel m_radioDevicesListModel;
    View3DItemsListModel m_view3DItemsListModel;
    DevicePowerOnStatisticsListModel m_powerOnStatisticsListModel;
    QmlFileDialogHelper m_qmlFileDialogHelper;
    QQmlApplicationEngine m_engine;
    std::unique_ptr<QTranslator> m_translator;
    QUrl m_mainUrl;
    QPointer<ErrorsListModel> m_errors;
    std::vector<Model::Result::Error> m_earlyErrors; // reported before QML asked for the list of errors
};
