// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/ProgramFixture.h"
#include "shell/ConnectionsListModel.h"

// The way of a new user from the first start: a connection, who works with it, the language, and a server that goes
// and comes back. Each step goes on from the one before.
class ShellRoadTest : public ProgramFixture
{
    Q_OBJECT

public:
    ShellRoadTest()
        : ProgramFixture(QStringLiteral("127.0.6.5"))
    {}

private:
    ConnectionsListModel *connections() const { return object<ConnectionsListModel>("connectionsListModel"); }
    QString page() const // by its name in the navigation
    {
        return m_driver->window()->findChild<QObject *>("nav")->property("currentLink").toString();
    }
    bool changeUser(const QString &login, const QString &password);
    bool chooseLanguage(const QString &name);
    void loseServer();
    void findServer();

private slots:
    void initTestCase();
    void emptyHomeAsksForAConnection();
    void firstConnectionIsMadeByItsDialog();
    void anotherUserSeesWhatIsHis();
    void wrongPasswordIsToldAndLogsNobodyIn();
    void anAddressThatIsNoneIsTold();
    void administratorComesBack();
    void languageChangesAtOnce();
    void administratorComesBackToTheSettings();
    void userComesBackToThePlan();
    void userComesBackToTheTable();
    void connectionIsThereAfterARestart();
    void deletedConnectionLeavesNone();
    void cleanupTestCase();
};

void ShellRoadTest::initTestCase()
{
    QVERIFY(m_site.start());
    QVERIFY(startProgram(1280, 800));
}

void ShellRoadTest::emptyHomeAsksForAConnection()
{
    QTRY_COMPARE(page(), QStringLiteral("loading"));
    QTRY_VERIFY(find("noConnections"));
    QCOMPARE(connections()->rowCount(), 0);
    QCOMPARE(link().getStatus(), Link::Disconnected);
    QTRY_COMPARE(textOf("loadingHeadline"), QStringLiteral("Сервер отключен"));
    QVERIFY(!find("userButton"));
    QTRY_VERIFY(find("sidebarEntry_loading"));
    QVERIFY(find("sidebarEntry_settings"));
    QVERIFY(!find("sidebarEntry_desktop"));
    QVERIFY(!find("sidebarEntry_sliders"));
}

void ShellRoadTest::firstConnectionIsMadeByItsDialog()
{
    QVERIFY(press("placeholderButton"));
    QTRY_COMPARE(textOf("dialogTitle"), QStringLiteral("Добавление подключения"));
    QVERIFY(!find("positiveButton")->isEnabled());
    QVERIFY(write("nameField", "Магазин"));
    QVERIFY(write("addressField", m_site.address()));
    QVERIFY(write("loginField", "admin"));
    QVERIFY(write("passwordField", "admin"));
    QVERIFY(press("positiveButton"));

    QVERIFY(waitForGroup("admin"));
    QVERIFY(m_driver->waitForPlan(4));
    QCOMPARE(page(), QStringLiteral("desktop"));
    QCOMPARE(connections()->rowCount(), 1);
    QCOMPARE(connections()->getCurrentConnectionName(), QStringLiteral("Магазин"));
    QTRY_COMPARE(textOf("userButton"), QStringLiteral("admin"));
    QTRY_COMPARE(textOf("connectionName"), QStringLiteral("Магазин"));
    QVERIFY(find("editModeAction"));
    QVERIFY(find("sidebarEntry_settings"));
    QVERIFY(!find("sidebarEntry_loading"));
}

bool ShellRoadTest::changeUser(const QString &login, const QString &password)
{
    return press("userButton") && write("userLoginField", login) && write("userPasswordField", password)
        && press("positiveButton") && m_driver->waitFor([this] { return !find("userLoginField"); }, 10000);
}

void ShellRoadTest::anotherUserSeesWhatIsHis()
{
    QVERIFY(changeUser("user", "user"));

    QVERIFY(waitForGroup("user"));
    QTRY_COMPARE(textOf("userButton"), QStringLiteral("user"));
    QVERIFY(m_driver->waitForPlan(4));
    QTRY_VERIFY(!find("editModeAction"));
    QTRY_VERIFY(!find("sidebarEntry_settings"));
    QVERIFY(find("sidebarEntry_sliders"));
}

void ShellRoadTest::wrongPasswordIsToldAndLogsNobodyIn()
{
    QVERIFY(changeUser("admin", "wrong"));

    QTRY_COMPARE(textOf("errorText"), QStringLiteral("Неверное имя пользователя или пароль"));
    QVERIFY(press("errorButton"));
    QTRY_VERIFY(!find("errorText"));
    QTRY_COMPARE(link().getStatus(), Link::Disconnected);
    QTRY_COMPARE(page(), QStringLiteral("loading"));
    QCOMPARE(textOf("loadingHeadline"), QStringLiteral("Сервер отключен"));
    QCOMPARE(textOf("connectButton"), QStringLiteral("Переподключиться"));
}

void ShellRoadTest::anAddressThatIsNoneIsTold()
{
    QVERIFY(!link().init(QStringLiteral("a b"), QStringLiteral("admin"), QStringLiteral("admin"),
                         link().getControlPort(), link().getUpdatePort()));

    QTRY_VERIFY(textOf("errorText").startsWith(QStringLiteral("Некорректный адрес сервера (")));
    QVERIFY(press("errorButton"));
    QTRY_VERIFY(!find("errorText"));
}

void ShellRoadTest::administratorComesBack()
{
    QVERIFY(press("connectionButton"));
    QVERIFY(press("connectionRow0"));

    // The saved connection is as it was saved, whoever came after.
    QVERIFY(waitForGroup("admin"));
    QVERIFY(m_driver->waitForPlan(4));
    QCOMPARE(connections()->rowCount(), 1);
    QTRY_COMPARE(textOf("userButton"), QStringLiteral("admin"));
    QTRY_VERIFY(find("sidebarEntry_settings"));
    QTRY_VERIFY(find("editModeAction"));
}

bool ShellRoadTest::chooseLanguage(const QString &name)
{
    return press("languageButton") && choose("languagePicker", name) && press("positiveButton")
        && m_driver->waitFor([this] { return !find("languagePicker"); }, 10000);
}

void ShellRoadTest::languageChangesAtOnce()
{
    QCOMPARE(textOf("sidebarEntry_sliders"), QStringLiteral("Таблица управления"));
    QSignalSpy statuses(&link(), &Link::statusChanged);

    QVERIFY(chooseLanguage("English"));
    QTRY_COMPARE(textOf("languageButton"), QStringLiteral("EN"));
    QTRY_VERIFY(statuses.size() >= 2); // what the server says is asked for anew, in that language
    QVERIFY(waitForGroup("admin"));
    QVERIFY(m_driver->waitForPlan(4));
    QTRY_COMPARE(textOf("sidebarEntry_sliders"), QStringLiteral("Control table"));
    QVERIFY(press("sidebarEntry_settings"));
    QTRY_COMPARE(textOf("appBarTitle"), QStringLiteral("Settings"));

    QVERIFY(chooseLanguage("Русский"));
    QTRY_COMPARE(textOf("languageButton"), QStringLiteral("RU"));
    QVERIFY(waitForGroup("admin"));
    QTRY_COMPARE(textOf("sidebarEntry_sliders"), QStringLiteral("Таблица управления"));
    // The page on show is back with the server, in the other language.
    QTRY_COMPARE(page(), QStringLiteral("settings"));
    QTRY_COMPARE(textOf("appBarTitle"), QStringLiteral("Настройки"));
}

void ShellRoadTest::loseServer()
{
    m_site.stop();
    QTRY_COMPARE_WITH_TIMEOUT(link().getStatus(), Link::Connecting, 20000);
    QTRY_COMPARE(page(), QStringLiteral("loading"));
    QTRY_COMPARE(textOf("loadingHeadline"), QStringLiteral("Подключение..."));
    QTRY_VERIFY(find("sidebarEntry_settings")); // nobody's rights are known now
    QTRY_VERIFY(!find("sidebarEntry_desktop"));
}

void ShellRoadTest::findServer()
{
    QVERIFY(m_site.start());
    QTRY_COMPARE_WITH_TIMEOUT(link().getStatus(), Link::Connected, 10000);
    QTRY_VERIFY(!find("loadingHeadline"));
}

void ShellRoadTest::administratorComesBackToTheSettings()
{
    QCOMPARE(page(), QStringLiteral("settings"));
    loseServer();
    findServer();

    QCOMPARE(page(), QStringLiteral("settings"));
    QTRY_VERIFY(find("settingsTabBar"));
    QTRY_VERIFY(find("clientSettingsRow0"));
}

void ShellRoadTest::userComesBackToThePlan()
{
    QVERIFY(changeUser("user", "user"));
    QVERIFY(waitForGroup("user"));

    // The settings of the administrator are closed to who comes after him.
    QTRY_COMPARE(page(), QStringLiteral("desktop"));
    QVERIFY(m_driver->waitForPlan(4));
    QTRY_VERIFY(!find("sidebarEntry_settings"));
}

void ShellRoadTest::userComesBackToTheTable()
{
    QVERIFY(press("sidebarEntry_sliders"));
    QTRY_COMPARE(page(), QStringLiteral("sliders"));
    loseServer();

    // Meanwhile the settings are open to all, and offer nothing.
    QVERIFY(press("sidebarEntry_settings"));
    QTRY_COMPARE(page(), QStringLiteral("settings"));
    QTRY_VERIFY(find("noSettings"));
    QVERIFY(!find("clientSettingsRow0"));
    findServer();

    QTRY_COMPARE(page(), QStringLiteral("sliders"));
    QVERIFY(isConnectedAs("user"));
    QTRY_VERIFY(find("zonesControlList"));
    QTRY_VERIFY(!find("sidebarEntry_settings"));
}

void ShellRoadTest::connectionIsThereAfterARestart()
{
    QVERIFY(restartProgram());

    QVERIFY(waitForGroup("admin"));
    QVERIFY(m_driver->waitForPlan(4));
    QCOMPARE(connections()->rowCount(), 1);
    QCOMPARE(textOf("connectionName"), QStringLiteral("Магазин"));
    QCOMPARE(textOf("languageButton"), QStringLiteral("RU"));
}

void ShellRoadTest::deletedConnectionLeavesNone()
{
    QVERIFY(press("connectionButton"));
    QVERIFY(press("connectionMenuButton0"));
    QVERIFY(press("deleteConnection0"));

    QTRY_COMPARE(connections()->rowCount(), 0);
    // The link stays as it was, but its plan is covered.
    QTRY_VERIFY(find("noSavedConnections"));
    QCOMPARE(link().getStatus(), Link::Connected);
    QVERIFY(restartProgram());
    QTRY_VERIFY(find("noConnections"));
    QCOMPARE(connections()->rowCount(), 0);
    QCOMPARE(link().getStatus(), Link::Disconnected);
}

void ShellRoadTest::cleanupTestCase()
{
    QVERIFY(m_driver);
    QCOMPARE(m_driver->warnings(), QStringList());
    stopProgram();
}

ONDIRA_TEST(ShellRoadTest)
#include "ShellRoadTest.moc"
