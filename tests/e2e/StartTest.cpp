// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/TestBase.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

// What the start of the process sets, by option and by what it finds.
class StartTest : public TestBase
{
    Q_OBJECT

private:
    struct Told
    {
        QJsonObject values;
        QString log;
    };

    static Told start(const QStringList &arguments, const QProcessEnvironment &extra = {}, const QString &home = {})
    {
        QTemporaryDir fresh;
        QProcess probe;
        auto environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"QT_OPENGL_DLL", "QT_IM_MODULE", "QML_XHR_ALLOW_FILE_READ",
                                 "QT_AUTO_SCREEN_SCALE_FACTOR", "LIBGL_ALWAYS_SOFTWARE"})
            environment.remove(QString::fromLatin1(name));
        environment.insert(QStringLiteral("XDG_DATA_HOME"), home.isEmpty() ? fresh.path() : home);
        environment.insert(extra);
        probe.setProcessEnvironment(environment);
        probe.start(QStringLiteral(ONDIRA_PROBE), arguments);
        probe.waitForFinished(60000);
        const QString output = QString::fromUtf8(probe.readAllStandardOutput());
        const int mark = output.indexOf(QLatin1String("PROBE "));
        const auto line = output.mid(mark + 6).section('\n', 0, 0);
        return {mark < 0 ? QJsonObject() : QJsonDocument::fromJson(line.toUtf8()).object(), output};
    }

    static QString variable(const Told &told, const char *name)
    {
        return told.values["environment"][QLatin1String(name)].toString(QStringLiteral("unset"));
    }

    static void writeLocale(const QString &home, const QByteArray &content)
    {
        QDir(home).mkpath(QStringLiteral(".ondirasmart/frontend"));
        QFile file(home + QStringLiteral("/.ondirasmart/frontend/frontend_locale.json"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

private slots:
    void withoutOptionsAsksForOpenGlEs();
    void optionsSetTheOpenGlChoice_data();
    void optionsSetTheOpenGlChoice();
    void environmentIsOverwrittenButForTheScreenScale();
    void optionsReachTheContextProperties_data();
    void optionsReachTheContextProperties();
    void secondManagerIsRefused();
    void pathsAreSet();
    void storedLocaleChoosesTheLanguage_data();
    void storedLocaleChoosesTheLanguage();
};

void StartTest::withoutOptionsAsksForOpenGlEs()
{
    const auto told = start({});

    QVERIFY2(!told.values.isEmpty(), qPrintable(told.log));
    QCOMPARE(told.values["useOpenGLES"].toBool(), true);
    QCOMPARE(told.values["useSoftwareOpenGL"].toBool(), false);
    QCOMPARE(told.values["useHighDpiPixmaps"].toBool(), true);
    QCOMPARE(told.values["version"].toString(), QStringLiteral("4.5.2"));
    QCOMPARE(told.values["icon"].toBool(), true);
    QCOMPARE(told.values["title"].toString(), QStringLiteral("Ondira Smart 4.5.2"));
    QCOMPARE(told.values["fullScreen"].toBool(), false);
    QCOMPARE(variable(told, "QT_IM_MODULE"), QStringLiteral("qtvirtualkeyboard"));
    QCOMPARE(variable(told, "QT_VIRTUALKEYBOARD_DESKTOP_DISABLE"), QStringLiteral("1"));
    QCOMPARE(variable(told, "QML_XHR_ALLOW_FILE_READ"), QStringLiteral("1"));
    QCOMPARE(variable(told, "QT_AUTO_SCREEN_SCALE_FACTOR"), QStringLiteral("1"));
    QCOMPARE(variable(told, "QT_OPENGL_DLL"), QStringLiteral("unset"));
    const QStringList objects = told.values["context"]["objects"].toVariant().toStringList();
    QCOMPARE(objects.size(), 25);
}

void StartTest::optionsSetTheOpenGlChoice_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("es");
    QTest::addColumn<bool>("software");
    QTest::addColumn<QString>("library");

    QTest::newRow("software") << QStringList{"--mesa"} << false << true << "opengl32sw.dll";
    QTest::newRow("left to Qt") << QStringList{"--no-gles"} << false << false << "unset";
    QTest::newRow("software wins") << QStringList{"--no-gles", "--mesa"} << false << true << "opengl32sw.dll";
    QTest::newRow("other case is no option") << QStringList{"--MESA"} << true << false << "unset";
    QTest::newRow("unknown option") << QStringList{"--whatever"} << true << false << "unset";
    QTest::newRow("part of an argument is no option") << QStringList{"--mesa=1"} << true << false << "unset";
}

void StartTest::optionsSetTheOpenGlChoice()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, es);
    QFETCH(bool, software);
    QFETCH(QString, library);

    const auto told = start(arguments);

    QVERIFY2(!told.values.isEmpty(), qPrintable(told.log));
    QCOMPARE(told.values["useOpenGLES"].toBool(), es);
    QCOMPARE(told.values["useSoftwareOpenGL"].toBool(), software);
    QCOMPARE(variable(told, "QT_OPENGL_DLL"), library);
    QCOMPARE(variable(told, "LIBGL_ALWAYS_SOFTWARE"), software ? QStringLiteral("1") : QStringLiteral("unset"));
}

void StartTest::environmentIsOverwrittenButForTheScreenScale()
{
    QProcessEnvironment given;
    given.insert(QStringLiteral("QT_IM_MODULE"), QStringLiteral("xim"));
    given.insert(QStringLiteral("QML_XHR_ALLOW_FILE_READ"), QStringLiteral("0"));
    given.insert(QStringLiteral("QT_AUTO_SCREEN_SCALE_FACTOR"), QStringLiteral("0"));

    const auto told = start({}, given);
    const auto untouched = start({QStringLiteral("--no-pixel-ratio")});

    QCOMPARE(variable(told, "QT_IM_MODULE"), QStringLiteral("qtvirtualkeyboard"));
    QCOMPARE(variable(told, "QML_XHR_ALLOW_FILE_READ"), QStringLiteral("1"));
    QCOMPARE(variable(told, "QT_AUTO_SCREEN_SCALE_FACTOR"), QStringLiteral("0"));
    QVERIFY2(!untouched.values.isEmpty(), qPrintable(untouched.log));
    QCOMPARE(variable(untouched, "QT_AUTO_SCREEN_SCALE_FACTOR"), QStringLiteral("unset"));
}

void StartTest::optionsReachTheContextProperties_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<bool>("kiosk");
    QTest::addColumn<bool>("fullscreen");
    QTest::addColumn<bool>("noChildWindows");

    QTest::newRow("none") << "" << false << false << false;
    QTest::newRow("kiosk") << "--kiosk" << true << false << false;
    QTest::newRow("other case") << "--Kiosk" << false << false << false;
    QTest::newRow("full screen") << "--fullscreen" << false << true << false;
    QTest::newRow("no child windows") << "--no-child-windows" << false << false << true;
    QTest::newRow("keyboard") << "--keyboard" << false << false << true;
}

void StartTest::optionsReachTheContextProperties()
{
    QFETCH(QString, argument);
    QFETCH(bool, kiosk);
    QFETCH(bool, fullscreen);
    QFETCH(bool, noChildWindows);

    const auto told = start({argument});

    const auto context = told.values["context"];
    QVERIFY2(!told.values.isEmpty(), qPrintable(told.log));
    QCOMPARE(context["kioskMode"].toBool(), kiosk);
    QCOMPARE(told.values["kiosk"].toBool(), kiosk);
    QCOMPARE(context["startFullscreen"].toBool(), fullscreen);
    QCOMPARE(told.values["fullScreen"].toBool(), fullscreen);
    QCOMPARE(context["noChildWindows"].toBool(), noChildWindows);
    QCOMPARE(context["ondiraRPi"].toBool(true), false);
}

void StartTest::secondManagerIsRefused()
{
    const auto told = start({});

    QVERIFY(told.log.contains(QLatin1String("[C]:  Can not have more than one FrontendManager instance!")));
    QCOMPARE(told.values["instanceIsFirst"].toBool(), true);
    QCOMPARE(told.values["secondHasWindow"].toBool(true), false);
}

void StartTest::pathsAreSet()
{
    const auto told = start({});

    const QString directory = told.values["directory"].toString();
    const auto imports = told.values["importPaths"].toVariant().toStringList();
    QCOMPARE(directory, QFileInfo(QStringLiteral(ONDIRA_PROBE)).absolutePath());
    QVERIFY(imports.contains(QStringLiteral("qrc:/")));
    QVERIFY(imports.contains(QStringLiteral("qrc:/qml/")) || imports.contains(QStringLiteral("qrc:/qml")));
}

void StartTest::storedLocaleChoosesTheLanguage_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("word");

    QTest::newRow("Russian") << QByteArray(R"({"locale": "ru_RU"})") << "ru_RU"
                             << "Ок";
    QTest::newRow("English") << QByteArray(R"({"locale": "en_GB"})") << "en_GB"
                             << "OK";
    QTest::newRow("no key is Russian") << QByteArray("{}") << "ru_RU"
                                       << "Ок";
    QTest::newRow("unknown name falls back") << QByteArray(R"({"locale": "qqq"})") << "ru_RU"
                                             << "Ок";
    QTest::newRow("no catalogue runs untranslated") << QByteArray(R"({"locale": "de_DE"})") << "de_DE"
                                                    << "Ок";
}

void StartTest::storedLocaleChoosesTheLanguage()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, locale);
    QFETCH(QString, word);
    QTemporaryDir home;
    writeLocale(home.path(), file);

    const auto told = start({}, {}, home.path());

    QVERIFY2(!told.values.isEmpty(), qPrintable(told.log));
    QCOMPARE(told.values["locale"].toString(), locale);
    QCOMPARE(told.values["word"].toString(), word);
}

ONDIRA_TEST(StartTest)
#include "StartTest.moc"
