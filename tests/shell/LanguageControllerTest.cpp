// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/LanguageController.h"
#include "shell/FileManager.h"
#include "shell/RuntimePermissionsManager.h"
#include "support/TestBase.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QSignalSpy>

class LanguageControllerTest : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void withoutAFileTheSystemDecides();
    void readsItsFile_data();
    void readsItsFile();
    void unreadableFileIsToldOfAndLeft_data();
    void unreadableFileIsToldOfAndLeft();
    void abbreviatesTheLocale_data();
    void abbreviatesTheLocale();
    void writesItsFile();
    void changesTheLanguage();
    void russianHasNoTranslator();
    void sameLocaleLoadsNoTranslator();
    void sameLayoutsAreNotTold();
    void layoutsMayBeCleared();
    void unwritableFileKeepsTheChoice();
    void grantedStorageAppliesWhatIsStored();
    void grantedStorageWithoutAFileChangesNothing();
    void worksWithoutAChanger();

private:
    static QString path();
    static void write(const QByteArray &content);

    int m_changes = 0;
    std::unique_ptr<QTranslator> m_translator;
};

QString LanguageControllerTest::path()
{
    return FileManager("frontend", FileManager::Root::PerUser).getDirectory().filePath("frontend_locale.json");
}

void LanguageControllerTest::write(const QByteArray &content)
{
    QVERIFY(FileManager("frontend", FileManager::Root::PerUser).createDirectory());
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

void LanguageControllerTest::init()
{
    TestBase::init();
    QFile::remove(FileManager::getParentDirectory().path());
    FileManager::getParentDirectory().removeRecursively();
    QLocale::setDefault(QLocale("ru_RU"));
    m_changes = 0;
    m_translator.reset();
    LanguageController::setTranslatorChanger([this](std::unique_ptr<QTranslator> translator) {
        ++m_changes;
        m_translator = std::move(translator);
    });
}

void LanguageControllerTest::cleanup()
{
    LanguageController::setTranslatorChanger({});
    QLocale::setDefault(QLocale("ru_RU"));
    TestBase::cleanup();
}

void LanguageControllerTest::withoutAFileTheSystemDecides()
{
    RuntimePermissionsManager permissions;
    LanguageController controller(permissions);

    QCOMPARE(controller.getLocale(), QLocale::system().name());
    QCOMPARE(controller.getActiveLayouts(), QStringList());
    QVERIFY(!QFile::exists(path()));
    QCOMPARE(m_changes, 0);
}

void LanguageControllerTest::readsItsFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QStringList>("layouts");

    QTest::newRow("full") << QByteArray(R"({"locale": "en_GB", "activeLayouts": ["en_GB", "ru_RU"]})") << "en_GB"
                          << QStringList{"en_GB", "ru_RU"};
    QTest::newRow("no locale") << QByteArray(R"({"activeLayouts": ["de_DE"]})") << "ru_RU" << QStringList{"de_DE"};
    QTest::newRow("no layouts") << QByteArray(R"({"locale": "en_GB"})") << "en_GB" << QStringList();
    QTest::newRow("empty object") << QByteArray("{}") << "ru_RU" << QStringList();
    QTest::newRow("nulls") << QByteArray(R"({"locale": null, "activeLayouts": null})") << "ru_RU" << QStringList();
    QTest::newRow("wrong types") << QByteArray(R"({"locale": 5, "activeLayouts": "en_GB"})") << "ru_RU"
                                 << QStringList();
    QTest::newRow("odd layouts") << QByteArray(R"({"locale": "", "activeLayouts": [1, "fi_FI", null, {}]})") << ""
                                 << QStringList{"fi_FI"};
    QTest::newRow("more keys") << QByteArray(R"({"locale": "en_GB", "theme": "dark"})") << "en_GB" << QStringList();
}

void LanguageControllerTest::readsItsFile()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, locale);
    QFETCH(QStringList, layouts);
    write(content);
    RuntimePermissionsManager permissions;

    LanguageController controller(permissions);

    QCOMPARE(controller.getLocale(), locale);
    QCOMPARE(controller.getActiveLayouts(), layouts);
    QCOMPARE(m_changes, 0);
}

void LanguageControllerTest::unreadableFileIsToldOfAndLeft_data()
{
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut off") << QByteArray(R"({"locale": "en_)");
    QTest::newRow("an array") << QByteArray(R"(["en_GB"])");
    QTest::newRow("zeros") << QByteArray(4096, '\0');
    QTest::newRow("huge") << QByteArray(R"({"locale": "en_GB", "x": ")") + QByteArray(2 << 20, 'x') + "\"}";
}

void LanguageControllerTest::unreadableFileIsToldOfAndLeft()
{
    QFETCH(QByteArray, content);
    write(content);
    expectMessage(QtWarningMsg, "Can not read the language settings");
    RuntimePermissionsManager permissions;

    LanguageController controller(permissions);

    QCOMPARE(controller.getLocale(), QLocale::system().name());
    QCOMPARE(controller.getActiveLayouts(), QStringList());
    QCOMPARE(QFileInfo(path()).size(), qint64(content.size()));
}

void LanguageControllerTest::abbreviatesTheLocale_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("abbreviation");

    QTest::newRow("Russian") << "ru_RU"
                             << "RU";
    QTest::newRow("English") << "en_GB"
                             << "EN";
    QTest::newRow("two letters") << "fi"
                                 << "FI";
    QTest::newRow("one letter") << "C"
                                << "RU";
    QTest::newRow("nothing") << ""
                             << "RU";
}

void LanguageControllerTest::abbreviatesTheLocale()
{
    QFETCH(QString, locale);
    QFETCH(QString, abbreviation);
    write(QJsonDocument(QJsonObject{{"locale", locale}}).toJson());
    RuntimePermissionsManager permissions;
    LanguageController controller(permissions);

    QCOMPARE(controller.property("languageAbbriviation").toString(), abbreviation);
}

void LanguageControllerTest::writesItsFile()
{
    RuntimePermissionsManager permissions;
    LanguageController controller(permissions);

    controller.set("en_GB", {"en_GB", "ru_RU"});

    QFile file(path());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QJsonDocument::fromJson(file.readAll()),
             QJsonDocument::fromJson(R"({"locale": "en_GB", "activeLayouts": ["en_GB", "ru_RU"]})"));
    LanguageController next(permissions);
    QCOMPARE(next.getLocale(), QString("en_GB"));
    QCOMPARE(next.getActiveLayouts(), QStringList({"en_GB", "ru_RU"}));
}

void LanguageControllerTest::changesTheLanguage()
{
    RuntimePermissionsManager permissions;
    LanguageController controller(permissions);
    QSignalSpy localeChanged(&controller, &LanguageController::localeChanged);
    QSignalSpy layoutsChanged(&controller, &LanguageController::activeLayoutsChanged);

    controller.set("en_GB", {});

    QCOMPARE(m_changes, 1);
    QVERIFY(m_translator);
    QVERIFY(!m_translator->translate("ConnectionsListModel", "Не удалось удалить подключение").isEmpty());
    QCOMPARE(QLocale().name(), QString("en_GB"));
    QCOMPARE(controller.getLocale(), QString("en_GB"));
    QCOMPARE(localeChanged.size(), 1);
    QCOMPARE(layoutsChanged.size(), 0);
}

void LanguageControllerTest::russianHasNoTranslator()
{
    write(R"({"locale": "en_GB"})");
    RuntimePermissionsManager permissions;
    LanguageController controller(permissions);

    controller.set("ru_RU", {});

    QCOMPARE(m_changes, 1);
    QVERIFY(!m_translator);
    QCOMPARE(QLocale().name(), QString("ru_RU"));
}

void LanguageControllerTest::sameLocaleLoadsNoTranslator()
{
    write(R"({"locale": "en_GB"})");
    RuntimePermissionsManager permissions;
    LanguageController controller(permissions);
    QSignalSpy localeChanged(&controller, &LanguageController::localeChanged);
    QSignalSpy layoutsChanged(&controller, &LanguageController::activeLayoutsChanged);

    controller.set("en_GB", {"fi_FI"});

    QCOMPARE(m_changes, 0);
    QCOMPARE(localeChanged.size(), 0);
    QCOMPARE(layoutsChanged.size(), 1);
    QCOMPARE(QLocale().name(), QString("ru_RU"));
}

void LanguageControllerTest::sameLayoutsAreNotTold()
{
    write(R"({"locale": "en_GB", "activeLayouts": ["fi_FI"]})");
    RuntimePermissionsManager permissions;
    LanguageController controller(permissions);
    QSignalSpy layoutsChanged(&controller, &LanguageController::activeLayoutsChanged);

    controller.set("en_GB", {"fi_FI"});

    QCOMPARE(layoutsChanged.size(), 0);
}

void LanguageControllerTest::layoutsMayBeCleared()
{
    write(R"({"locale": "en_GB", "activeLayouts": ["fi_FI"]})");
    RuntimePermissionsManager permissions;
    LanguageController controller(permissions);

    controller.set("en_GB", {});

    QCOMPARE(controller.getActiveLayouts(), QStringList());
    QCOMPARE(LanguageController(permissions).getActiveLayouts(), QStringList());
}

void LanguageControllerTest::unwritableFileKeepsTheChoice()
{
    QFile obstacle(FileManager::getParentDirectory().path());
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    RuntimePermissionsManager permissions;
    LanguageController controller(permissions);

    controller.set("en_GB", {"en_GB"});
    QCOMPARE(m_changes, 1);
    controller.onPermissionGranted();

    QCOMPARE(m_changes, 1);
    QCOMPARE(controller.getLocale(), QString("en_GB"));
    QCOMPARE(controller.getActiveLayouts(), QStringList{"en_GB"});
}

void LanguageControllerTest::grantedStorageAppliesWhatIsStored()
{
    RuntimePermissionsManager permissions;
    LanguageController controller(permissions);
    QSignalSpy localeChanged(&controller, &LanguageController::localeChanged);
    write(R"({"locale": "en_GB", "activeLayouts": ["fi_FI"]})");

    permissions.getStoragePermission();

    QVERIFY(localeChanged.wait(patience));
    QCOMPARE(controller.getLocale(), QString("en_GB"));
    QCOMPARE(controller.getActiveLayouts(), QStringList{"fi_FI"});
    QCOMPARE(m_changes, 1);
    QVERIFY(m_translator);
}

void LanguageControllerTest::grantedStorageWithoutAFileChangesNothing()
{
    RuntimePermissionsManager permissions;
    LanguageController controller(permissions);
    QSignalSpy granted(&permissions, &RuntimePermissionsManager::storageGranted);
    QSignalSpy localeChanged(&controller, &LanguageController::localeChanged);

    permissions.getStoragePermission();

    QVERIFY(granted.wait(patience));
    QCOMPARE(localeChanged.size(), 0);
    QCOMPARE(m_changes, 0);
}

void LanguageControllerTest::worksWithoutAChanger()
{
    LanguageController::setTranslatorChanger({});
    RuntimePermissionsManager permissions;
    LanguageController controller(permissions);

    controller.set("en_GB", {});

    QCOMPARE(controller.getLocale(), QString("en_GB"));
    QCOMPARE(m_changes, 0);
}

ONDIRA_TEST(LanguageControllerTest)
#include "LanguageControllerTest.moc"
