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

    void isATypeOfItsModule_data()
    {
        QTest::addColumn<QString>("file");

        for (const auto &file : files()) {
            if (file != "main.qml")
                QTest::newRow(qPrintable(file)) << file;
        }
    }

    void isATypeOfItsModule()
    {
        QFETCH(QString, file);
        const QString module = file.section('/', 0, 0);
        const QString name = QFileInfo(file).completeBaseName();
        const auto lines = source(module + "/qmldir").split('\n');

        QVERIFY(lines.contains("module " + module));
        const bool isSingleton = source(file).contains("\npragma Singleton\n");
        QVERIFY(lines.contains(
            QStringLiteral("%1%2 1.0 %3").arg(isSingleton ? "singleton " : "", name, file.section('/', 1))));
    }

    void anInstanceSaysNothing_data() { isATypeOfItsModule_data(); }

    void anInstanceSaysNothing()
    {
        QFETCH(QString, file);
        const QByteArray name = QFileInfo(file).completeBaseName().toUtf8();
        const bool isSingleton = source(file).contains("\npragma Singleton\n");
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
