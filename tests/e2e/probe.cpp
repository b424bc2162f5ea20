// SPDX-License-Identifier: GPL-3.0-or-later
// Starts the program as it is, and instead of running it tells in one line of JSON what the start has set.
#include "shell/FrontendManager.h"
#include "shell/ProcessSetup.h"

#include <QApplication>
#include <QIcon>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QQmlContext>
#include <QQuickWindow>
#include <cstdio>

namespace {

QJsonObject environment()
{
    QJsonObject values;
    for (const char *name : {"QT_OPENGL_DLL", "QT_IM_MODULE", "QML_XHR_ALLOW_FILE_READ", "QT_AUTO_SCREEN_SCALE_FACTOR",
                             "QT_VIRTUALKEYBOARD_DESKTOP_DISABLE", "LIBGL_ALWAYS_SOFTWARE"}) {
        if (qEnvironmentVariableIsSet(name))
            values.insert(QString::fromLatin1(name), QString::fromLocal8Bit(qgetenv(name)));
    }
    return values;
}

QJsonObject contextProperties(FrontendManager &manager)
{
    QJsonObject values;
    for (const char *name : {"kioskMode", "startFullscreen", "noChildWindows", "ondiraRPi"}) {
        values.insert(QString::fromLatin1(name),
                      manager.getEngine().rootContext()->contextProperty(QString::fromLatin1(name)).toBool());
    }
    QJsonArray objects;
    for (const char *name : {"shopController",        "settingsController",
                             "versionController",     "actionsListModel",
                             "backendCommunicator",   "appSettings",
                             "settingsControllser",   "schedulesListModel",
                             "zonesListModel",        "buttonsListModel",
                             "shopPartsListModel",    "imageItemsListModel",
                             "usersListModel",        "usersController",
                             "devicesListModel",      "deviceTypesListModel",
                             "serverTimeController",  "indicatorsListModel",
                             "connectionsListModel",  "radioDevicesListModel",
                             "view3DItemsListModel",  "powerOnStatisticsListModel",
                             "deviceFaultsListModel", "permissionsManager",
                             "QmlFileDialogHelper"}) {
        const auto value = manager.getEngine().rootContext()->contextProperty(QString::fromLatin1(name));
        if (value.value<QObject *>())
            objects.append(QString::fromLatin1(name));
    }
    values.insert(QStringLiteral("objects"), objects);
    return values;
}

} // namespace

int main(int argc, char **argv)
{
    const QString directory = ProcessSetup::beforeApplication(argc, argv);
    QApplication application(argc, argv);
    ProcessSetup::afterApplication();
    FrontendManager manager(directory, QCoreApplication::arguments());
    FrontendManager second(directory, QCoreApplication::arguments());

    QJsonObject told;
    told.insert(QStringLiteral("environment"), environment());
    told.insert(QStringLiteral("useOpenGLES"), QCoreApplication::testAttribute(Qt::AA_UseOpenGLES));
    told.insert(QStringLiteral("useSoftwareOpenGL"), QCoreApplication::testAttribute(Qt::AA_UseSoftwareOpenGL));
    told.insert(QStringLiteral("useHighDpiPixmaps"), QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps));
    told.insert(QStringLiteral("version"), QCoreApplication::applicationVersion());
    told.insert(QStringLiteral("icon"), !QApplication::windowIcon().isNull());
    told.insert(QStringLiteral("kiosk"), manager.getKioskMode());
    told.insert(QStringLiteral("instanceIsFirst"), FrontendManager::instance() == &manager);
    told.insert(QStringLiteral("secondHasWindow"), !second.getEngine().rootObjects().isEmpty());
    told.insert(QStringLiteral("locale"), QLocale().name());
    told.insert(QStringLiteral("word"), QCoreApplication::translate("ErrorPopup", "Ок"));
    told.insert(QStringLiteral("context"), contextProperties(manager));
    told.insert(QStringLiteral("directory"), directory);
    told.insert(QStringLiteral("libraryPaths"), QJsonArray::fromStringList(QCoreApplication::libraryPaths()));
    told.insert(QStringLiteral("importPaths"), QJsonArray::fromStringList(manager.getEngine().importPathList()));
    const auto objects = manager.getEngine().rootObjects();
    for (auto *object : objects) {
        if (auto *window = qobject_cast<QQuickWindow *>(object)) {
            told.insert(QStringLiteral("title"), window->title());
            told.insert(QStringLiteral("fullScreen"), window->visibility() == QWindow::FullScreen);
        }
    }
    std::printf("PROBE %s\n", QJsonDocument(told).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
    return 0;
}
