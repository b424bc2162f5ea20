// SPDX-License-Identifier: GPL-3.0-or-later
// What the manager shows to QML: types, singletons, meta types and context properties.
#include "actions/ActionSequenceBuilder.h"
#include "actions/ActionWrapperBuilder.h"
#include "data/ErrorsListModel.h"
#include "data/ModelToListAdapter.h"
#include "data/QmlStringSet.h"
#include "data/UidFilterProxyModel.h"
#include "data/UsersController.h"
#include "data/qqsfpm/Registration.h"
#include "link/AbstractBackendCommunicator.h"
#include "shell/ColorTheme.h"
#include "shell/FrontendManager.h"
#include "shell/LanguageController.h"

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

QObject *createLanguageController(QQmlEngine *engine, QJSEngine *)
{
    return new LanguageController(FrontendManager::instance()->getPermissionsManager(), engine);
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
    registerType<QmlStringSet>("StringSet");
    qqsfpm::registerTypes();

    registerMetaTypes();
    registerSingletons();
}

void FrontendManager::registerMetaTypes()
{
    qRegisterMetaType<Model::ActionSequence>();
    qRegisterMetaType<Model::ActionWrapper>();
    qRegisterMetaType<Model::TimeInfo>();
    qRegisterMetaType<QJSValueList>();
    qRegisterMetaType<std::vector<Model::UserInfo>>();
    qRegisterMetaType<std::vector<Model::Result::Error>>();
    qRegisterMetaType<std::vector<Model::ShopPart>>();
    qRegisterMetaType<std::vector<Model::Zone>>();
    qRegisterMetaType<std::vector<Model::DeviceDescriptor>>();
    qRegisterMetaType<std::vector<Model::DeviceState>>();
    qRegisterMetaType<std::vector<Model::DeviceTypeInfo>>();
    qRegisterMetaType<std::vector<Model::DeviceMode>>();
}

void FrontendManager::registerSingletons()
{
    qmlRegisterSingletonType<AbstractBackendCommunicator>("Backend", 1, 0, "Backend", createBackend);
    qmlRegisterSingletonType<ColorTheme>("colors", 1, 0, "Colors", createColors);
    qmlRegisterSingletonType<ErrorsListModel>("Errors", 1, 0, "Errors", [](QQmlEngine *engine, QJSEngine *) {
        return FrontendManager::instance()->createErrors(engine);
    });
    qmlRegisterSingletonType<LanguageController>("LanguageController", 1, 0, "LanguageController",
                                                 createLanguageController);
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
    context->setContextProperty(QStringLiteral("shopController"), &m_shopController);
    context->setContextProperty(QStringLiteral("versionController"), &m_versionController);
    context->setContextProperty(QStringLiteral("backendCommunicator"), m_communicator.get());
    context->setContextProperty(QStringLiteral("zonesListModel"), &m_zonesListModel);
    context->setContextProperty(QStringLiteral("shopPartsListModel"), &m_shopPartsListModel);
    context->setContextProperty(QStringLiteral("usersListModel"), &m_usersListModel);
    context->setContextProperty(QStringLiteral("usersController"), &m_usersListModel.getUsersController());
    context->setContextProperty(QStringLiteral("devicesListModel"), &m_devicesListModel);
    context->setContextProperty(QStringLiteral("deviceTypesListModel"), &m_deviceTypesListModel);
    context->setContextProperty(QStringLiteral("serverTimeController"), &m_serverTimeController);
    context->setContextProperty(QStringLiteral("connectionsListModel"), &m_connectionsListModel);
    const bool keyboard = m_arguments.contains(QStringLiteral("--keyboard"));
    context->setContextProperty(QStringLiteral("noChildWindows"),
                                keyboard || m_arguments.contains(QStringLiteral("--no-child-windows")));
    context->setContextProperty(QStringLiteral("startFullscreen"),
                                m_arguments.contains(QStringLiteral("--fullscreen")));
    context->setContextProperty(QStringLiteral("kioskMode"), m_kioskMode);
    context->setContextProperty(QStringLiteral("ondiraRPi"), false);
    context->setContextProperty(QStringLiteral("permissionsManager"), &m_permissionsManager);
}
