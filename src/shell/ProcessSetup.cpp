// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/ProcessSetup.h"

#include "shell/Version.h"

#include <QApplication>
#include <QFontDatabase>
#include <QIcon>
#include <QLoggingCategory>

namespace {

bool hasRawOption(int argc, char **argv, const QString &option)
{
    for (int i = 0; i < argc; ++i) {
        if (QString::fromLocal8Bit(argv[i]) == option) // a null entry reads as an empty text
            return true;
    }
    return false;
}

void chooseOpenGl(int argc, char **argv)
{
    if (hasRawOption(argc, argv, QStringLiteral("--mesa"))) {
        qputenv("QT_OPENGL_DLL", "opengl32sw.dll");
        QCoreApplication::setAttribute(Qt::AA_UseSoftwareOpenGL);
#ifdef Q_OS_LINUX
        // The attribute and the variable above act on Windows only; these two reach Mesa and the vendor's dispatcher.
        qputenv("LIBGL_ALWAYS_SOFTWARE", "1");
        qputenv("__GLX_VENDOR_LIBRARY_NAME", "mesa");
#endif
    } else if (!hasRawOption(argc, argv, QStringLiteral("--no-gles"))) {
        QCoreApplication::setAttribute(Qt::AA_UseOpenGLES);
    }
}

} // namespace

QString ProcessSetup::beforeApplication(int &argc, char **argv)
{
    chooseOpenGl(argc, argv);
    qputenv("QT_IM_MODULE", "qtvirtualkeyboard");
    // No panel of ours is on screen, and without one the plugin covers the screen with its own.
    qputenv("QT_VIRTUALKEYBOARD_DESKTOP_DISABLE", "1");
    qputenv("QML_XHR_ALLOW_FILE_READ", "1");

    QString directory;
    bool pixelRatio = true;
    {
        // The screen scale must be settled before the real application object, and needs the parsed arguments.
        QCoreApplication application(argc, argv);
        directory = QCoreApplication::applicationDirPath();
        pixelRatio = !QCoreApplication::arguments().contains(QStringLiteral("--no-pixel-ratio"));
    }
    QCoreApplication::addLibraryPath(directory + QStringLiteral("/plugins"));
    if (pixelRatio && !qEnvironmentVariableIsSet("QT_AUTO_SCREEN_SCALE_FACTOR"))
        qputenv("QT_AUTO_SCREEN_SCALE_FACTOR", "1");
    return directory;
}

void ProcessSetup::afterApplication()
{
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setApplicationVersion(Version::text());
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/images/OndiraLogo.png")));
    QLoggingCategory::setFilterRules(loggingRules());
}

QString ProcessSetup::loggingRules()
{
    return QStringLiteral("*.debug=false\n"
                          "default.debug=true\n"
                          "qml.debug=true\n"
                          "zmqAComm=false\n"
                          "ondira.sql=false\n"
                          "qt.qml.connections=false");
}
