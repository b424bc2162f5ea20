// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

// Every QML file that the program carries: it is a type of its module, and an instance says nothing in the log.
class QmlFilesTest : public TestBase
{
    Q_OBJECT

private:
    static QString source(const QString &path)
    {
        QFile file(QStringLiteral(ONDIRA_QML_DIR "/") + path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    static QStringList files()
    {
        QStringList found;
        auto match = QRegularExpression("<file>([^<]+\\.qml)</file>").globalMatch(source("qml.qrc"));
        while (match.hasNext())
            found << match.next().captured(1);
        return found;
    }

    // The folder of the module that the file belongs to: the nearest one that describes a module.
    static QString moduleFolder(const QString &file)
    {
        QString folder = file.section('/', 0, -2);
        while (!folder.isEmpty() && source(folder + "/qmldir").isEmpty())
            folder = folder.section('/', 0, -2);
        return folder;
    }

    // The line of the module that names the file, in its words: "singleton", the type, the version, the file.
    static QStringList typeOf(const QString &file)
    {
        const QString folder = moduleFolder(file);
        const auto lines = source(folder + "/qmldir").split('\n');
        for (const auto &line : lines) {
            const auto words = line.split(' ');
            if (words.size() >= 3 && words.last() == file.mid(folder.size() + 1))
                return words;
        }
        return {};
    }

    // Files of a selector stand in for the type of the same name.
    static void typedFiles()
    {
        QTest::addColumn<QString>("file");

        for (const auto &file : files()) {
            if (file != "main.qml" && !file.contains("/+"))
                QTest::newRow(qPrintable(file)) << file;
        }
    }

private slots:
    void theListOfResourcesIsComplete()
    {
        QStringList onDisk;
        const QDir root(ONDIRA_QML_DIR);
        QDirIterator all(root.path(), {"*.qml"}, QDir::Files, QDirIterator::Subdirectories);
        while (all.hasNext())
            onDisk << root.relativeFilePath(all.next());
        onDisk.sort();
        auto listed = files();
        listed.sort();

        QVERIFY(!listed.isEmpty());
        QCOMPARE(listed, onDisk);
    }

    void isATypeOfItsModule_data() { typedFiles(); }

    void isATypeOfItsModule()
    {
        QFETCH(QString, file);
        const QString folder = moduleFolder(file);
        QString module = folder;
        const auto type = typeOf(file);

        QVERIFY(source(folder + "/qmldir").split('\n').contains("module " + module.replace('/', '.')));
        QVERIFY(!type.isEmpty());
        QCOMPARE(type.at(type.size() - 2), QString("1.0"));
        QCOMPARE(type.first() == "singleton", source(file).contains("\npragma Singleton\n"));
    }

    void aVariantStandsInForAType()
    {
        for (const auto &file : files()) {
            if (file.contains("/+"))
                QVERIFY2(!typeOf(QString(file).replace(QRegularExpression("/\\+[a-z0-9]+/"), "/")).isEmpty(),
                         qPrintable(file));
        }
    }

    void anInstanceSaysNothing_data() { typedFiles(); }

    void anInstanceSaysNothing()
    {
        QFETCH(QString, file);
        auto type = typeOf(file);
        QVERIFY(!type.isEmpty());
        const bool isSingleton = type.first() == "singleton";
        const QString folder = moduleFolder(file);
        const QString prefix = folder == "Fluid/Core" ? "FLC." : folder == "Fluid/Controls" ? "FL." : "";
        const QByteArray name = (prefix + type.at(isSingleton ? 1 : 0)).toUtf8();
        Stage stage;

        stage.show(isSingleton ? "property var subject: " + name : "property var subject: " + name + " {}");

        QVERIFY(stage.window());
        QVERIFY(stage.window()->property("subject").value<QObject *>());
        stage.settle();
    }

    void theWindowSaysNothingInAnyState()
    {
        Stage stage;
        stage.showMain();
        QVERIFY(stage.window());

        stage.connections.add("Дом", "127.0.0.1", "admin", "admin");
        stage.connections.activate(0);
        stage.link.logIn("admin", "admin");
        stage.publishSite(3);
        QTRY_VERIFY(stage.tile(11));
        stage.link.enter(FakeCommunicator::Connecting);
        stage.settle();
        stage.link.enter(FakeCommunicator::Disconnected);
        stage.settle();
        stage.link.publishZones({});
        stage.link.publishShopParts({});
        stage.link.enter(FakeCommunicator::Connected);
        stage.settle();

        QVERIFY(stage.has("noParts"));
    }
};

ONDIRA_TEST(QmlFilesTest)
#include "QmlFilesTest.moc"
