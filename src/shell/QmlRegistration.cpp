// SPDX-License-Identifier: GPL-3.0-or-later
// What the manager shows to QML: types, singletons, meta types and context properties.
#include "actions/ActionSequenceBuilder.h"
#include "actions/ActionSequenceListModel.h"
#include "actions/ActionWrapperBuilder.h"
#include "data/ErrorsListModel.h"
#include "data/ModelToListAdapter.h"
#include "data/QmlStringSet.h"
#include "data/QuaternionHelper.h"
#include "data/RadioStatusProvider.h"
#include "data/RadioTypes.h"
#include "data/UidFilterProxyModel.h"
#include "data/UsersController.h"
#include "data/qqsfpm/Registration.h"
#include "link/AbstractBackendCommunicator.h"
#include "model/RadioDutyCycle.h"
#include "schedules/SchedulePointWrapper.h"
#include "schedules/SchedulePointsListModel.h"
#include "schedules/ScheduleWeeksListModel.h"
#include "shell/AppSettingsProxy.h"
#include "shell/ColorTheme.h"
#include "shell/FrontendManager.h"
#include "shell/FrontendSettings.h"
#include "shell/IconSet.h"
#include "shell/LanguageController.h"
#include "statistics/StatisticsInfoProvider.h"
#include "statistics/StatisticsProvider.h"
#include "statistics/SystemLogProvider.h"

#include <QJSValue>
#include <QQmlContext>
#include <QtQml>

namespace {

// Module and element have the same name.
template <typename T>
void registerType(const char *name)
{
    qmlRegisterType<T>(name, 1, 0, name);
}

QObject *createBackend(QQmlEngine *, QJSEngine *)
{
    auto *backend = &FrontendManager::instance()->getCommunicator();
    QQmlEngine::setObjectOwnership(backend, QQmlEngine::CppOwnership);
    return backend;
}

QObject *createColors(QQmlEngine *, QJSEngine *)
{
    return new ColorTheme;
}

QObject *createFrontendSettings(QQmlEngine *, QJSEngine *)
{
    auto *settings = &FrontendManager::instance()->getFrontendSettings();
    QQmlEngine::setObjectOwnership(settings, QQmlEngine::CppOwnership);
    return settings;
}

QObject *createIconSet(QQmlEngine *engine, QJSEngine *)
{
    return new IconSet(engine);
}

QObject *createLanguageController(QQmlEngine *engine, QJSEngine *)
{
    return new LanguageController(FrontendManager::instance()->getPermissionsManager(), engine);
}

QObject *createStatisticsInfo(QQmlEngine *engine, QJSEngine *)
{
    return new StatisticsInfoProvider(engine);
}

QObject *createRadioStatus(QQmlEngine *engine, QJSEngine *)
{
    return new RadioStatusProvider(FrontendManager::instance()->getCommunicator(), engine);
}

QObject *createQuaternionHelper(QQmlEngine *engine, QJSEngine *)
{
    return new QuaternionHelper(engine);
}

// Enumerations alone, for the forms of radios.
void registerRadioEnums()
{
    qmlRegisterUncreatableType<RadioDevicesListModel>(
        "radio", 1, 0, "RadioDevicesListModel",
        QStringLiteral("Only enums, for other things use global object radioDevicesListModel"));
    qmlRegisterUncreatableMetaObject(Radio::staticMetaObject, "radio", 1, 0, "Radio",
                                     QStringLiteral("Only for RadioType enums"));
    qmlRegisterUncreatableMetaObject(RadioDutyCycle::staticMetaObject, "radio", 1, 0, "DutyCycle",
                                     QStringLiteral("Only for RadioDutyCycle enums"));
}

} // namespace

void FrontendManager::registerQmlTypes()
{
    m_engine.addPluginPath(m_applicationDirectory + QStringLiteral("/qml"));
    m_engine.addImportPath(m_applicationDirectory + QStringLiteral("/qml"));
    m_engine.addImportPath(m_applicationDirectory + QStringLiteral("/../../commonqml"));
    m_engine.addImportPath(m_applicationDirectory + QStringLiteral("/../../../commonqml"));
    m_engine.addImportPath(QStringLiteral("qrc:/"));
    m_engine.addImportPath(QStringLiteral("qrc:/qml/"));

    qmlRegisterType<UidFilterProxyModel>("UidFilterProxyModel", 0, 1, "UidFilterProxyModel");
    registerType<ActionSequenceBuilder>("ActionSequenceBuilder");
    registerType<ActionWrapperBuilder>("ActionWrapper");
    registerType<ModelToListAdapter>("ModelToArrayAdapter");
    registerType<SchedulePointWrapper>("SchedulePoint");
    registerType<SchedulePointsListModel>("SchedulePointsListModel");
    registerType<ScheduleWeeksListModel>("ScheduleWeeksListModel");
    registerType<ActionSequenceListModel>("ActionSequenceListModel");
    registerType<StatisticsProvider>("StatisticsProvider");
    registerType<SystemLogProvider>("SystemLogProvider");
    registerType<QmlStringSet>("StringSet");
    qqsfpm::registerTypes();

    registerMetaTypes();
    registerSingletons();
    registerRadioEnums();
}

void FrontendManager::registerMetaTypes()
{
    qRegisterMetaType<Model::ActionSequence>();
    qRegisterMetaType<Model::ActionWrapper>();
    qRegisterMetaType<Model::TimeInfo>();
    qRegisterMetaType<Model::Statistics>();
    qRegisterMetaType<Model::ActionBlueprint>();
    qRegisterMetaType<QJSValueList>();
    qRegisterMetaType<std::vector<Model::ScheduleDayPoint>>();
    qRegisterMetaType<std::vector<Model::UserInfo>>();
    qRegisterMetaType<std::vector<Model::Result::Error>>();
    qRegisterMetaType<std::vector<Model::LogEntry>>();
    qRegisterMetaType<std::vector<Model::Statistics::Item>>();
    qRegisterMetaType<std::vector<Model::ActionBlueprint>>();
    qRegisterMetaType<std::vector<Model::NodeDescription>>();
    qRegisterMetaType<std::vector<Model::ShopPart>>();
    qRegisterMetaType<std::vector<Model::Zone>>();
    qRegisterMetaType<std::vector<Model::Button>>();
    qRegisterMetaType<std::vector<Model::Indicator>>();
    qRegisterMetaType<std::vector<Model::IndicatorState>>();
    qRegisterMetaType<std::vector<Model::DeviceDescriptor>>();
    qRegisterMetaType<std::vector<Model::ScheduleDay>>();
    qRegisterMetaType<std::vector<Model::ButtonState>>();
    qRegisterMetaType<std::vector<Model::DeviceState>>();
    qRegisterMetaType<std::vector<Model::DeviceTypeInfo>>();
    qRegisterMetaType<std::vector<Model::DeviceMode>>();
    qRegisterMetaType<std::vector<Model::RadioStatus>>();
}

void FrontendManager::registerSingletons()
{
    qmlRegisterSingletonType<AbstractBackendCommunicator>("Backend", 1, 0, "Backend", createBackend);
    qmlRegisterSingletonType<ColorTheme>("colors", 1, 0, "Colors", createColors);
    qmlRegisterSingletonType<ErrorsListModel>("Errors", 1, 0, "Errors", [](QQmlEngine *engine, QJSEngine *) {
        return FrontendManager::instance()->createErrors(engine);
    });
    qmlRegisterSingletonType<FrontendSettings>("FrontendSettings", 1, 0, "FrontendSettings", createFrontendSettings);
    qmlRegisterSingletonType<IconSet>("IconSet", 1, 0, "IconSet", createIconSet);
    qmlRegisterSingletonType<LanguageController>("LanguageController", 1, 0, "LanguageController",
                                                 createLanguageController);
    qmlRegisterSingletonType<StatisticsInfoProvider>("StatisticsInfoProvider", 1, 0, "StatisticsInfoProvider",
                                                     createStatisticsInfo);
    qmlRegisterSingletonType<RadioStatusProvider>("RadioStatusProvider", 1, 0, "RadioStatusProvider",
                                                  createRadioStatus);
    qmlRegisterSingletonType<QuaternionHelper>("QuaternionHelper", 1, 0, "Quat", createQuaternionHelper);
}

QObject *FrontendManager::createErrors(QQmlEngine *engine)
{
    m_errors = new ErrorsListModel(engine);
    connect(m_communicator.get(), &AbstractBackendCommunicator::errorsReceived, m_errors, &ErrorsListModel::logErrors);
    if (!m_earlyErrors.empty()) {
        // Queued, so that whoever asked for the list has connected to it before the first row comes.
        const auto errors = std::move(m_earlyErrors);
        m_earlyErrors.clear();
        QMetaObject::invokeMethod(
            m_errors, [this, errors] { m_errors->logErrors(errors); }, Qt::QueuedConnection);
    }
    return m_errors;
}

void FrontendManager::setContextProperties()
{
    auto *context = m_engine.rootContext();
    const std::pair<const char *, QObject *> objects[] = {
        {"shopController", &m_shopController},
        {"settingsController", &m_settingsController},
        {"versionController", &m_versionController},
        {"actionsListModel", &m_actionsListModel},
        {"backendCommunicator", m_communicator.get()},
        {"appSettings", m_settingsController.getAppSettings()},
        {"settingsControllser", &m_settingsController}, // an old slip of the pen that scripts go by
        {"schedulesListModel", &m_scheduleDaysListModel},
        {"zonesListModel", &m_zonesListModel},
        {"buttonsListModel", &m_buttonsListModel},
        {"shopPartsListModel", &m_shopPartsListModel},
        {"imageItemsListModel", &m_imageItemsListModel},
        {"usersListModel", &m_usersListModel},
        {"usersController", &m_usersListModel.getUsersController()},
        {"devicesListModel", &m_devicesListModel},
        {"deviceTypesListModel", &m_deviceTypesListModel},
        {"serverTimeController", &m_serverTimeController},
        {"indicatorsListModel", &m_indicatorsListModel},
        {"connectionsListModel", &m_connectionsListModel},
        {"radioDevicesListModel", &m_radioDevicesListModel},
        {"view3DItemsListModel", &m_view3DItemsListModel},
        {"powerOnStatisticsListModel", &m_powerOnStatisticsListModel},
        {"deviceFaultsListModel", &m_deviceFaultsListModel},
        {"permissionsManager", &m_permissionsManager},
        {"QmlFileDialogHelper", &m_qmlFileDialogHelper},
    };
    for (const auto &object : objects)
        context->setContextProperty(QString::fromLatin1(object.first), object.second);
    const bool keyboard = m_arguments.contains(QStringLiteral("--keyboard"));
    context->setContextProperty(QStringLiteral("noChildWindows"),
                                keyboard || m_arguments.contains(QStringLiteral("--no-child-windows")));
    context->setContextProperty(QStringLiteral("startFullscreen"),
                                m_arguments.contains(QStringLiteral("--fullscreen")));
    context->setContextProperty(QStringLiteral("kioskMode"), m_kioskMode);
    context->setContextProperty(QStringLiteral("ondiraRPi"), false);
}
