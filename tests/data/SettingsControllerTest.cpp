// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/SettingsController.h"
#include "ScriptTools.h"
#include "shell/AppSettingsProxy.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJSEngine>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <csignal>
#include <memory>
#include <sys/resource.h>

namespace {

struct Site
{
    Site()
        : controller(std::make_unique<SettingsController>(link))
    {}

    QString path(const QString &name) const { return folder.filePath(name); }
    QUrl url(const QString &name) const { return QUrl::fromLocalFile(path(name)); }
    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    QTemporaryDir folder;
    FakeCommunicator link;
    std::unique_ptr<SettingsController> controller;
};

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
}

Model::Settings twoRadios()
{
    Model::Settings settings;
    settings.mrf.resize(1);
    settings.mrf[0].hostPan = 5;
    settings.rs485.resize(1);
    return settings;
}

} // namespace

class SettingsControllerTest : public TestBase
{
    Q_OBJECT

private slots:
    void showsThePublishedSettings()
    {
        Site site;
        QSignalSpy changed(site.controller.get(), &SettingsController::backendSettingsChanged);

        site.link.publishSettings(twoRadios());

        QCOMPARE(changed.count(), 1);
        QCOMPARE(site.controller->property("backendSettings").toMap(), twoRadios().toVariant().toMap());
        QCOMPARE(SettingsController(site.link).getBackendSettings().toMap(), twoRadios().toVariant().toMap());
    }

    void writesToTheServer()
    {
        Site site;
        site.link.publishSettings(twoRadios());
        QSignalSpy changed(site.controller.get(), &SettingsController::backendSettingsChanged);
        auto map = twoRadios().toVariant().toMap();
        auto pwm = map["pwm"].toMap();
        pwm["byteFor100Power"] = 250;
        map["pwm"] = pwm;

        site.controller->setProperty("backendSettings", map);

        auto expected = twoRadios();
        expected.pwm.byteFor100Power = 250;
        QCOMPARE(site.link.operations, QStringList({"setSettings"}));
        QVERIFY(site.link.settings == expected);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(site.controller->getBackendSettings().toMap(), twoRadios().toVariant().toMap());
    }

    void takesTheSettingsThatAScriptEdits()
    {
        Site site;
        QJSEngine engine;
        site.link.publishSettings(twoRadios());
        expose(engine, "controller", *site.controller);

        engine.evaluate("var s = controller.backendSettings; s.pwm.byteFor0Power = 3; controller.backendSettings = s");

        auto expected = twoRadios();
        expected.pwm.byteFor0Power = 3;
        QVERIFY(site.link.settings == expected);
    }

    void whatIsNoMapIsPassedOver()
    {
        Site site;

        for (const auto &value : {QVariant(), QVariant(5), QVariant("text"), QVariant(QVariantList{1})})
            site.controller->setBackendSettings(value);

        QCOMPARE(site.link.operations, QStringList());
    }

    void writesABackupWhenItComes()
    {
        Site site;
        QSignalSpy finished(site.controller.get(), &SettingsController::backupFinished);

        QVERIFY(site.controller->backup(site.url("site.qvb2")));
        QCOMPARE(site.link.operations, QStringList({"getBackup"}));
        QCOMPARE(site.files(), QStringList());
        site.link.backupCallback("server.bin", QByteArray("data\0more", 9));

        QCOMPARE(read(site.path("site.qvb2")), QByteArray("data\0more", 9));
        QCOMPARE(site.files(), QStringList({"site.qvb2"}));
        QCOMPARE(finished.count(), 1);
        QCOMPARE(finished[0], (QVariantList{site.path("site.qvb2"), true}));
    }

    void replacesAnOlderBackup()
    {
        Site site;
        write(site.path("site.qvb2"), "an older and longer one");

        site.controller->backup(site.url("site.qvb2"));
        site.link.backupCallback({}, "new");

        QCOMPARE(read(site.path("site.qvb2")), QByteArray("new"));
    }

    void anEmptyBackupReplacesNothing()
    {
        Site site;
        QSignalSpy finished(site.controller.get(), &SettingsController::backupFinished);
        write(site.path("site.qvb2"), "old");
        expectMessage(QtWarningMsg, "empty backup");

        site.controller->backup(site.url("site.qvb2"));
        site.link.backupCallback({}, {});

        QCOMPARE(read(site.path("site.qvb2")), QByteArray("old"));
        QCOMPARE(site.files(), QStringList({"site.qvb2"}));
        QCOMPARE(finished[0][1].toBool(), false);
    }

    void aBackupThatCannotBeWrittenLeavesNothing_data()
    {
        QTest::addColumn<QString>("name");

        QTest::newRow("folder that is not there") << "nowhere/site.qvb2";
        QTest::newRow("folder in its place") << "taken";
        QTest::newRow("device in its place") << "/dev/null";
    }

    void aBackupThatCannotBeWrittenLeavesNothing()
    {
        QFETCH(QString, name);
        Site site;
        QDir(site.folder.path()).mkdir("taken");
        QSignalSpy finished(site.controller.get(), &SettingsController::backupFinished);
        expectMessage(QtWarningMsg, "Can not write the backup");

        QVERIFY(site.controller->backup(name.startsWith('/') ? QUrl::fromLocalFile(name) : site.url(name)));
        site.link.backupCallback({}, "new");

        QCOMPARE(finished.count(), 1);
        QCOMPARE(finished[0][1].toBool(), false);
        QCOMPARE(site.files(), QStringList());
    }

    void aFullDiskKeepsTheOlderBackup()
    {
        Site site;
        write(site.path("site.qvb2"), "old");
        QSignalSpy finished(site.controller.get(), &SettingsController::backupFinished);
        expectMessage(QtWarningMsg, "Can not write the backup");
        site.controller->backup(site.url("site.qvb2"));

        // Files of this process may not grow, as on a full disk.
        rlimit before;
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit small{1000, before.rlim_max};
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
        site.link.backupCallback({}, QByteArray(100000, 'x'));
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);

        QCOMPARE(finished.count(), 1);
        QCOMPARE(finished[0][1].toBool(), false);
        QCOMPARE(read(site.path("site.qvb2")), QByteArray("old"));
        QCOMPARE(site.files(), QStringList({"site.qvb2"}));
    }

    void onlyLocalFilesAreWritten_data()
    {
        QTest::addColumn<QUrl>("url");

        QTest::newRow("empty") << QUrl();
        QTest::newRow("web") << QUrl("http://example.com/site.qvb2");
        QTest::newRow("without a scheme") << QUrl("site.qvb2");
    }

    void onlyLocalFilesAreWritten()
    {
        QFETCH(QUrl, url);
        Site site;
        allowMessages("Can not restore");

        QVERIFY(!site.controller->backup(url));
        QVERIFY(!site.controller->restore(url));

        QCOMPARE(site.link.operations, QStringList());
    }

    void aBackupIsWrittenAlsoWhenTheScreenIsGone()
    {
        Site site;
        site.controller->backup(site.url("site.qvb2"));

        site.controller.reset();
        site.link.backupCallback({}, "new");

        QCOMPARE(read(site.path("site.qvb2")), QByteArray("new"));
    }

    void restoresTheBytesOfAFile()
    {
        Site site;
        QSignalSpy finished(site.controller.get(), &SettingsController::restoreFinished);
        const QByteArray bytes("all\0of it", 9);
        write(site.path("site.qvb2"), bytes);

        QVERIFY(site.controller->restore(site.url("site.qvb2")));
        QCOMPARE(site.link.operations, QStringList({"restoreBackup"}));
        QCOMPARE(site.link.backup, bytes);
        QCOMPARE(finished.count(), 0);
        site.link.doneCallback();
        QCOMPARE(finished.count(), 1);
        site.controller.reset();
        site.link.doneCallback();

        QCOMPARE(finished.count(), 1);
    }

    void restoresNothingThatCannotBeRead_data()
    {
        QTest::addColumn<QString>("path");

        QTest::newRow("absent") << "nowhere";
        QTest::newRow("folder") << ".";
        QTest::newRow("device without end") << "/dev/zero";
        QTest::newRow("too large") << "large";
    }

    void restoresNothingThatCannotBeRead()
    {
        QFETCH(QString, path);
        Site site;
        QFile large(site.path("large")); // without taking the room on the disk
        QVERIFY(large.open(QIODevice::WriteOnly));
        QVERIFY(large.resize(256LL * 1024 * 1024 + 1));
        expectMessage(QtWarningMsg, "Can not restore from");

        QVERIFY(!site.controller->restore(path.startsWith('/') ? QUrl::fromLocalFile(path) : site.url(path)));

        QCOMPARE(site.link.operations, QStringList());
    }

    void backsUpIntoTheDownloads()
    {
        Site site;

        const auto path = site.controller->androidBackup();
        site.link.backupCallback({}, "new");

        const QRegularExpression name("^\\d{4}-\\d\\d-\\d\\d_\\d\\d-\\d\\d-\\d\\d\\.qvb2$");
        QVERIFY2(name.match(QFileInfo(path).fileName()).hasMatch(), qPrintable(path));
        QCOMPARE(read(path), QByteArray("new"));
    }

    void resetsTheServer()
    {
        Site site;

        site.controller->resetSettings();

        QCOMPARE(site.link.operations, QStringList({"factoryReset"}));
    }

    void holdsTheSettingsOfTheProgram()
    {
        Site site;

        site.controller->getAppSettings()->setValue("colour", "green");

        QCOMPARE(site.controller->getAppSettings()->getValue("colour").toString(), QString("green"));
        QCOMPARE(QFileInfo(site.controller->getAppSettings()->fileName()).fileName(), QString("frontend.ini"));
        QVERIFY(site.controller->getAppSettings()->fileName().contains("OndiraSmart"));
    }
};

ONDIRA_TEST(SettingsControllerTest)
#include "SettingsControllerTest.moc"
