// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/FrontendManager.h"

#include "data/ErrorsListModel.h"
#include "data/QuickImageLayerProvider.h"
#include "data/SharedModels.h"
#include "link/JsonBackendCommunicator.h"
#include "shell/FileManager.h"
#include "shell/LanguageController.h"
#include "shell/Startup.h"

#include <QCoreApplication>
#include <QLocale>
#include <QQmlFileSelector>
#include <QQuickWindow>
#include <QTextStream>
#include <QTime>
#include <cstdio>
#include <cstdlib>

FrontendManager *FrontendManager::currentInstance = nullptr;

FrontendManager::FrontendManager(const QString &applicationDirectory, const QStringList &arguments, QObject *parent)
    : QObject(parent)
    , m_applicationDirectory(applicationDirectory)
    , m_arguments(arguments)
    , m_kioskMode(arguments.contains(QStringLiteral("--kiosk")))
    , m_permissionsManager(nullptr)
    , m_communicator(std::make_unique<JsonBackendCommunicator>(this))
    , m_shopController(*m_communicator, this)
    , m_settingsController(*m_communicator, this)
    , m_scheduleDaysListModel(*m_communicator, this)
    , m_usersListModel(*m_communicator, this)
    , m_deviceTypesListModel(*m_communicator, this)
    , m_devicesListModel(*m_communicator, this)
    , m_deviceFaultsListModel(*m_communicator, m_devicesListModel, this)
    , m_shopPartsListModel(*m_communicator, m_usersListModel, this)
    , m_zonesListModel(*m_communicator, m_devicesListModel, m_deviceFaultsListModel, m_usersListModel, this)
    , m_buttonsListModel(*m_communicator, m_usersListModel, this)
    , m_imageItemsListModel(*m_communicator, m_usersListModel, this)
    , m_actionsListModel(*m_communicator, this)
    , m_serverTimeController(*m_communicator, this)
    , m_indicatorsListModel(*m_communicator, m_usersListModel, this)
    , m_connectionsListModel(*m_communicator, m_permissionsManager, this)
    , m_radioDevicesListModel(*m_communicator, this)
    , m_view3DItemsListModel(*m_communicator, m_usersListModel, this)
    , m_powerOnStatisticsListModel(*m_communicator, this)
{
    if (currentInstance) {
        qCritical("Can not have more than one FrontendManager instance!");
        return;
    }
    qInstallMessageHandler(logFileOutput);

    connect(&m_connectionsListModel, &ConnectionsListModel::storageFailed, this,
            [this](const QString &code, const QString &title, const QString &detail) {
                reportLocalError({code, title, detail});
            });
    connect(m_communicator.get(), &AbstractBackendCommunicator::errorOccured, this, [this](const QString &message) {
        reportLocalError({QStringLiteral("invalid_server_address"), message, QString()});
    });
    m_permissionsManager.getStoragePermission();
    // Where the answer needs no dialog it waits in the queue already. Taken now, the list of connections stands before
    // the old list is imported into it and before the first screen asks for it.
    QCoreApplication::sendPostedEvents(&m_permissionsManager, QEvent::MetaCall);

    LanguageController language(m_permissionsManager);
    QLocale locale(language.getLocale());
    if (locale.name() == QLatin1String("C"))
        locale = QLocale(Startup::determineLocale(m_applicationDirectory));
    QLocale::setDefault(locale);
    LanguageController::setTranslatorChanger(
        [this](std::unique_ptr<QTranslator> translator) { changeTranslator(std::move(translator)); });
    changeTranslator(Startup::translatorForLocale(QStringLiteral("frontend"), locale));

    // The engine takes it over.
    m_engine.addImageProvider(QStringLiteral("image_layer"), new QuickImageLayerProvider(*m_communicator));
    currentInstance = this;
    // What its members do while they go may ask for it still.
    connect(this, &QObject::destroyed, [] { currentInstance = nullptr; });
    SharedModels::instance() = {m_communicator.get(),     &m_usersListModel,     &m_deviceTypesListModel,
                                &m_devicesListModel,      &m_shopPartsListModel, &m_zonesListModel,
                                &m_deviceFaultsListModel, &m_buttonsListModel,   &m_indicatorsListModel};
    QQmlFileSelector::get(&m_engine)->setExtraSelectors({QStringLiteral("qt515")});
    registerQmlTypes();
    setContextProperties();
    m_mainUrl = QUrl(QStringLiteral("qrc:/main.qml"));
    m_connectionsListModel.importDeprecatedDatabase(
        m_engine.offlineStorageDatabaseFilePath(QStringLiteral("OndiraFrontendSettings")));
    m_engine.load(m_mainUrl);
}

FrontendManager::~FrontendManager()
{
    if (currentInstance != this)
        return;
    qInstallMessageHandler(nullptr);
    LanguageController::setTranslatorChanger({});
    SharedModels::instance() = {};
}

void FrontendManager::changeTranslator(std::unique_ptr<QTranslator> translator)
{
    if (m_translator)
        QCoreApplication::removeTranslator(m_translator.get());
    m_translator = std::move(translator);
    if (m_translator)
        QCoreApplication::installTranslator(m_translator.get());
    m_engine.retranslate();
    if (m_communicator->getStatus() == AbstractBackendCommunicator::Connected)
        m_communicator->reconnect();
}

void FrontendManager::reloadQml()
{
    const auto objects = m_engine.rootObjects();
    for (auto *object : objects) {
        if (auto *window = qobject_cast<QQuickWindow *>(object)) {
            window->close();
            m_engine.load(m_mainUrl);
            return;
        }
    }
}

void FrontendManager::reportLocalError(const Model::Result::Error &error)
{
    if (m_errors)
        m_errors->logErrors({error});
    else
        m_earlyErrors.push_back(error);
}

void FrontendManager::logFileOutput(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    static const FileManager logFolder(QStringLiteral("frontend"), FileManager::Root::PerUser);
    logFolder.createDirectory();

    const QString stamp = QStringLiteral("[%1]").arg(QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz")));
    if (currentInstance) {
        QMetaObject::invokeMethod(currentInstance, "logMessage", Qt::QueuedConnection,
                                  Q_ARG(int, static_cast<int>(type)), Q_ARG(QString, message));
    }

    QString level;
    switch (type) {
    case QtDebugMsg: level = QStringLiteral("[D][%1]: ").arg(QString::fromUtf8(context.category)); break;
    case QtWarningMsg: level = QStringLiteral("[W]: "); break;
    case QtCriticalMsg: level = QStringLiteral("[C]: "); break;
    case QtFatalMsg: level = QStringLiteral("[F]: "); break;
    case QtInfoMsg: level = QStringLiteral("[I]: "); break;
    default: level = QStringLiteral("[N]: "); break;
    }
    // One arg() call fills all places, so that a "%1" inside the message stays what it is.
    const QString text =
        QStringLiteral("%2:%3:\n%4%5 %1\n")
            .arg(message, QString::fromUtf8(context.file), QString::number(context.line), stamp, level);
    {
        QTextStream stream(stdout);
        stream.setCodec("UTF-8");
        stream << text;
    }
    if (type == QtFatalMsg)
        std::abort();
}
