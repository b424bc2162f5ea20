// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/FrontendSettings.h"
#include "shell/FileManager.h"
#include "shell/RuntimePermissionsManager.h"
#include "support/TestBase.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>

namespace {

const QStringList names{"hideExit",          "hideActionsEditor",     "usePincode", "lockConnections", "pincode",
                        "useScreenPoweroff", "screenPoweroffInterval"};
const QVariantList withoutAFile{false, true, false, false, "", false, 60000};
const QVariantList withoutKeys{false, false, false, false, "", false, 600000};

} // namespace

class FrontendSettingsTest : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void withoutAFileTheDefaultsHold();
    void readsItsFile_data();
    void readsItsFile();
    void unreadableFileIsToldOfAndLeft_data();
    void unreadableFileIsToldOfAndLeft();
    void aChangeIsToldOnce_data();
    void aChangeIsToldOnce();
    void changesAreWrittenTogether();
    void theSameValueIsNoChange();
    void whatIsNotWrittenYetIsWrittenAtTheEnd();
    void nothingChangedIsNotWritten();
    void onlyTheOwnerReadsTheFile();
    void unwritableFileKeepsTheChoice();
    void grantedStorageLoads();
    void grantedStorageKeepsWhatWasChangedMeanwhile();

private:
    static QString path();
    static void write(const QByteArray &content);
    static QJsonObject written();
    static QVariantList values(const FrontendSettings &settings);

    RuntimePermissionsManager m_permissions;
};

QString FrontendSettingsTest::path()
{
    return FileManager("frontend", FileManager::Root::PerUser).getDirectory().filePath("frontend_settings.json");
}

void FrontendSettingsTest::write(const QByteArray &content)
{
    QVERIFY(FileManager("frontend", FileManager::Root::PerUser).createDirectory());
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

QJsonObject FrontendSettingsTest::written()
{
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

QVariantList FrontendSettingsTest::values(const FrontendSettings &settings)
{
    QVariantList list;
    for (const auto &name : names)
        list << settings.property(qPrintable(name));
    return list;
}

void FrontendSettingsTest::init()
{
    TestBase::init();
    QFile::remove(FileManager::getParentDirectory().path());
    FileManager::getParentDirectory().removeRecursively();
}

void FrontendSettingsTest::withoutAFileTheDefaultsHold()
{
    FrontendSettings settings(m_permissions);

    QCOMPARE(values(settings), withoutAFile);
    QVERIFY(!settings.property("loaded").toBool());
    QVERIFY(!QFile::exists(path()));
}

void FrontendSettingsTest::readsItsFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QVariantList>("expected");

    QTest::newRow("full") << QByteArray(R"({"hide_exit": true, "hide_actions_editor": true, "use_pincode": true,)"
                                        R"("lock_connections": true, "pincode": "0123", "use_screen_poweroff": true,)"
                                        R"("screen_poweroff_interval": 120000})")
                          << QVariantList{true, true, true, true, "0123", true, 120000};
    QTest::newRow("no keys") << QByteArray("{}") << withoutKeys;
    QTest::newRow("a lock that an empty entry opens")
        << QByteArray(R"({"use_pincode": true})") << QVariantList{false, false, true, false, "", false, 600000};
    QTest::newRow("wrong types") << QByteArray(
        R"({"hide_exit": "yes", "hide_actions_editor": 1, "use_pincode": [], "lock_connections": {}, "pincode": 1234,)"
        R"("use_screen_poweroff": null, "screen_poweroff_interval": "long"})")
                                 << withoutKeys;
    QTest::newRow("odd intervals") << QByteArray(R"({"screen_poweroff_interval": 1e300})") << withoutKeys;
    QTest::newRow("more keys") << QByteArray(R"({"theme": "dark"})") << withoutKeys;
}

void FrontendSettingsTest::readsItsFile()
{
    QFETCH(QByteArray, content);
    QFETCH(QVariantList, expected);
    write(content);

    FrontendSettings settings(m_permissions);

    QCOMPARE(values(settings), expected);
    QVERIFY(settings.property("loaded").toBool());
}

void FrontendSettingsTest::unreadableFileIsToldOfAndLeft_data()
{
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut off") << QByteArray(R"({"hide_exit": tr)");
    QTest::newRow("a list") << QByteArray(R"([{"hide_exit": true}])");
    QTest::newRow("zeros") << QByteArray(4096, '\0');
    QTest::newRow("huge") << QByteArray(R"({"hide_exit": true, "x": ")") + QByteArray(2 << 20, 'x') + "\"}";
}

void FrontendSettingsTest::unreadableFileIsToldOfAndLeft()
{
    QFETCH(QByteArray, content);
    write(content);
    expectMessage(QtWarningMsg, "Can not read the settings");

    {
        FrontendSettings settings(m_permissions);
        QCOMPARE(values(settings), withoutAFile);
        QVERIFY(!settings.property("loaded").toBool());
    }

    QCOMPARE(QFileInfo(path()).size(), qint64(content.size()));
}

void FrontendSettingsTest::aChangeIsToldOnce_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("key");

    QTest::newRow("hideExit") << "hideExit" << QVariant(true) << "hide_exit";
    QTest::newRow("hideActionsEditor") << "hideActionsEditor" << QVariant(false) << "hide_actions_editor";
    QTest::newRow("usePincode") << "usePincode" << QVariant(true) << "use_pincode";
    QTest::newRow("lockConnections") << "lockConnections" << QVariant(true) << "lock_connections";
    QTest::newRow("pincode") << "pincode" << QVariant("7410") << "pincode";
    QTest::newRow("useScreenPoweroff") << "useScreenPoweroff" << QVariant(true) << "use_screen_poweroff";
    QTest::newRow("screenPoweroffInterval")
        << "screenPoweroffInterval" << QVariant(180000) << "screen_poweroff_interval";
}

void FrontendSettingsTest::aChangeIsToldOnce()
{
    QFETCH(QString, name);
    QFETCH(QVariant, value);
    QFETCH(QString, key);
    {
        FrontendSettings settings(m_permissions);
        QSignalSpy changed(&settings, qPrintable(QString("2%1Changed()").arg(name)));

        settings.setProperty(qPrintable(name), value);
        settings.setProperty(qPrintable(name), value);

        QCOMPARE(settings.property(qPrintable(name)), value);
        QCOMPARE(changed.size(), 1);
    }
    QCOMPARE(written().value(key).toVariant(), value);
    QCOMPARE(written().size(), names.size());
    FrontendSettings next(m_permissions);
    QCOMPARE(next.property(qPrintable(name)), value);
}

void FrontendSettingsTest::changesAreWrittenTogether()
{
    QCOMPARE(FrontendSettings::defaultWriteDelay, 10000);
    FrontendSettings settings(m_permissions, nullptr, 200);
    settings.setHideExit(true);
    QVERIFY(!QFile::exists(path()));
    settings.setPincode("1");
    settings.setPincode("12");
    QVERIFY(!QFile::exists(path()));

    QTRY_VERIFY(QFile::exists(path()));

    QCOMPARE(written().value("hide_exit"), QJsonValue(true));
    QCOMPARE(written().value("pincode"), QJsonValue("12"));
    QVERIFY(QFile::remove(path()));
    QTest::qWait(500); // no second write comes
    QVERIFY(!QFile::exists(path()));
}

void FrontendSettingsTest::theSameValueIsNoChange()
{
    {
        FrontendSettings settings(m_permissions);
        settings.setHideExit(false);
        settings.setScreenPoweroffInterval(60000);
    }
    QVERIFY(!QFile::exists(path()));
}

void FrontendSettingsTest::whatIsNotWrittenYetIsWrittenAtTheEnd()
{
    {
        FrontendSettings settings(m_permissions);
        settings.setScreenPoweroffInterval(1440 * 60000);
    }
    QCOMPARE(written().value("screen_poweroff_interval"), QJsonValue(1440 * 60000));
    QCOMPARE(written().value("hide_actions_editor"), QJsonValue(true));
}

void FrontendSettingsTest::nothingChangedIsNotWritten()
{
    write(R"({"hide_exit": true, "mine": 1})");
    {
        FrontendSettings settings(m_permissions);
    }
    QCOMPARE(written().value("mine"), QJsonValue(1));
}

void FrontendSettingsTest::onlyTheOwnerReadsTheFile()
{
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    for (const char *pincode : {"1234", "5678"}) {
        {
            FrontendSettings settings(m_permissions);
            settings.setPincode(pincode);
        }
        QCOMPARE(written().value("pincode"), QJsonValue(pincode));
        QCOMPARE(QFile::permissions(path()) & others, QFile::Permissions());
        QVERIFY(QFile::setPermissions(path(), QFile::permissions(path()) | others)); // as if it had been copied here
    }
}

void FrontendSettingsTest::unwritableFileKeepsTheChoice()
{
    QFile inTheWay(FileManager::getParentDirectory().path()); // where the folder should be
    QVERIFY(QDir().mkpath(QFileInfo(inTheWay).path()));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    {
        FrontendSettings settings(m_permissions, nullptr, 0);
        settings.setHideExit(true);
        QTest::qWait(50);
        QVERIFY(settings.getHideExit());
    }
    QVERIFY(inTheWay.remove());
}

void FrontendSettingsTest::grantedStorageLoads()
{
    FrontendSettings settings(m_permissions);
    QSignalSpy loaded(&settings, &FrontendSettings::loadedChanged);
    QSignalSpy exit(&settings, &FrontendSettings::hideExitChanged);
    write(R"({"hide_exit": true})");

    settings.onPermissionsGranted();
    settings.onPermissionsGranted();

    QVERIFY(settings.isLoaded());
    QVERIFY(settings.getHideExit());
    QCOMPARE(loaded.size(), 1);
    QCOMPARE(exit.size(), 1);
    QCOMPARE(settings.getScreenPoweroffInterval(), 600000);
}

void FrontendSettingsTest::grantedStorageKeepsWhatWasChangedMeanwhile()
{
    FrontendSettings settings(m_permissions);
    settings.setPincode("9");
    write(R"({"pincode": "1"})");

    settings.onPermissionsGranted();

    QCOMPARE(settings.getPincode(), QString("9"));
    QVERIFY(settings.isLoaded());
}

ONDIRA_TEST(FrontendSettingsTest)
#include "FrontendSettingsTest.moc"
