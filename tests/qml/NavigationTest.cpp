// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QQmlExpression>

using Link = AbstractBackendCommunicator;

// What the connection does to the page on show, and the pages that need no server.
class NavigationTest : public TestBase
{
    Q_OBJECT

private:
    static QString link(const Stage &stage) { return stage.object("nav")->property("currentLink").toString(); }
    static int depth(const Stage &stage) { return stage.item("pageStack")->property("depth").toInt(); }

    static void show(Stage &stage, const QString &link)
    {
        QMetaObject::invokeMethod(stage.object("nav"), "show", Q_ARG(QVariant, link), Q_ARG(QVariant, QVariantMap()));
    }

    static void start(Stage &stage, const QString &group = "admin")
    {
        stage.connections.add("Дом", "10.0.0.1", "anna", "p");
        stage.showMain();
        QCOMPARE(link(stage), QString("loading"));
        stage.link.logIn("anna", group);
        stage.publishSite(2);
        QCOMPARE(link(stage), QString("desktop"));
    }

private slots:
    void aLostServerIsComeBackFrom_data()
    {
        QTest::addColumn<QString>("group");
        QTest::addColumn<QString>("page");
        QTest::addColumn<QString>("expected");

        QTest::newRow("administrator on the desktop") << "admin"
                                                      << "desktop"
                                                      << "desktop";
        QTest::newRow("administrator in the settings") << "admin"
                                                       << "settings"
                                                       << "settings";
        QTest::newRow("administrator at the table") << "admin"
                                                    << "sliders"
                                                    << "sliders";
        QTest::newRow("administrator in a zone") << "admin"
                                                 << "zone"
                                                 << "zone";
        QTest::newRow("user at the table") << "user"
                                           << "sliders"
                                           << "sliders";
        QTest::newRow("user in a zone") << "user"
                                        << "zone"
                                        << "desktop";
        QTest::newRow("user on the desktop") << "user"
                                             << "desktop"
                                             << "desktop";
        QTest::newRow("user in the settings") << "user"
                                              << "settings"
                                              << "desktop";
    }

    void aLostServerIsComeBackFrom()
    {
        QFETCH(QString, group);
        QFETCH(QString, page);
        QFETCH(QString, expected);
        Stage stage;
        start(stage, group);
        show(stage, page);
        QCOMPARE(link(stage), page);

        stage.link.enter(Link::Connecting);
        QCOMPARE(link(stage), QString("loading"));
        QCOMPARE(depth(stage), page == "zone" ? 3 : 2); // what was there stays below
        stage.link.enter(Link::Connected);

        QCOMPARE(link(stage), expected);
        QCOMPARE(depth(stage), expected == "zone" ? 2 : 1);
    }

    void theBackKeyLeavesAPageButNotTheWait()
    {
        Stage stage;
        start(stage);
        show(stage, "zone");
        stage.settle();
        stage.link.enter(Link::Connecting);
        QCOMPARE(link(stage), QString("loading"));
        stage.settle();

        stage.key(Qt::Key_Left, Qt::AltModifier);
        stage.settle();
        QCOMPARE(link(stage), QString("loading"));

        stage.link.enter(Link::Connected);
        QCOMPARE(link(stage), QString("zone"));
        stage.settle();
        stage.key(Qt::Key_Left, Qt::AltModifier);
        QTRY_COMPARE(link(stage), QString("desktop"));
    }

    void theBackKeyOpensOneMenuOnAPhone()
    {
        Stage stage;
        start(stage);
        stage.resize({420, 800});
        show(stage, "sliders");
        show(stage, "zone");
        stage.settle();

        stage.key(Qt::Key_Left, Qt::AltModifier);

        QTRY_COMPARE(link(stage), QString("sliders"));
        stage.settle();
        stage.key(Qt::Key_Left, Qt::AltModifier);
        QTRY_VERIFY(stage.object("leftSidebar")->property("opened").toBool());
        QCOMPARE(link(stage), QString("sliders"));
    }

    void twoTriesRememberTheFirstPage()
    {
        Stage stage;
        start(stage);
        show(stage, "settings");

        stage.link.enter(Link::Connecting);
        stage.link.enter(Link::Disconnected);
        QCOMPARE(link(stage), QString("loading"));
        stage.link.enter(Link::Connecting);
        stage.link.enter(Link::Connected);

        QCOMPARE(link(stage), QString("settings"));
    }

    void aLinkThatEndsLeavesThePage()
    {
        Stage stage;
        start(stage);
        show(stage, "settings");

        stage.link.enter(Link::Disconnected);

        QCOMPARE(link(stage), QString("settings"));
    }

    void theMemoryIsForOneTime()
    {
        Stage stage;
        start(stage);
        show(stage, "settings");
        stage.link.enter(Link::Connecting);
        stage.link.enter(Link::Connected);
        QCOMPARE(link(stage), QString("settings"));
        show(stage, "desktop");

        stage.link.enter(Link::Connecting);
        stage.link.enter(Link::Connected);

        QCOMPARE(link(stage), QString("desktop"));
    }

    void pagesAreKept()
    {
        Stage stage;
        start(stage);
        auto *desktop = stage.item("desktop");
        QVERIFY(desktop);

        show(stage, "settings");
        show(stage, "desktop");

        QCOMPARE(stage.item("desktop"), desktop);
    }

    void anUnknownPageIsWarnedOf()
    {
        Stage stage;
        start(stage);
        expectMessage(QtWarningMsg, "Could not find NAV PAGE 'nowhere'");

        show(stage, "nowhere");

        QCOMPARE(link(stage), QString("desktop"));
    }

    void anyModelCanBeLookedInto()
    {
        Stage stage;
        start(stage);
        QQmlExpression call(qmlContext(stage.window()), stage.window(),
                            "mainWindow.showDebugModel(shopPartsListModel)");

        call.evaluate();

        QVERIFY2(!call.hasError(), qPrintable(call.error().toString()));
        QCOMPARE(link(stage), QString("debugModel"));
        QTRY_COMPARE(stage.item("debugList")->property("count").toInt(), 1);
        stage.settle();
        bool found = false;
        for (auto *item : stage.items([](QQuickItem *item) { return item->inherits("QQuickText"); }))
            found = found || item->property("text").toString() == "\"Зал\"";
        QVERIFY(found);
        stage.link.enter(Link::Connecting);
        stage.link.enter(Link::Connected);
        QCOMPARE(link(stage), QString("debugModel"));
    }

    void splashIsGoneSoon()
    {
        Stage stage;
        stage.showMain();
        QTRY_VERIFY(!stage.has("splash"));
    }

    void nothingIsReachedWithoutStorage()
    {
        Stage stage(Stage::Storage::NotYet);
        stage.showMain();
        QTRY_VERIFY(stage.has("permissionsErrorSplash"));
        QTRY_VERIFY(!stage.has("splash"));
        QVERIFY(!stage.item("pageStack")->isEnabled());

        stage.connections.onPermissionsGranted();

        QVERIFY(!stage.has("permissionsErrorSplash"));
        QVERIFY(stage.item("pageStack")->isEnabled());
    }

    void settingsFollowTheConnection()
    {
        Stage stage;
        start(stage);
        show(stage, "settings");
        QTRY_VERIFY(stage.has("clientSettingsRow0"));
        QTRY_COMPARE(stage.text("clientSettingsRow0"), QString("Интерфейс"));
        QTRY_COMPARE(stage.text("clientSettingsRow1"), QString("Язык"));
        QVERIFY(!stage.has("noSettings"));

        stage.link.enter(Link::Disconnected);

        QVERIFY(stage.has("noSettings"));
        QVERIFY(!stage.has("clientSettingsRow0"));
    }

    void theInterfaceIsSet()
    {
        Stage stage;
        start(stage);
        show(stage, "settings");
        QTRY_VERIFY(stage.has("hideExitBox"));
        stage.settle();
        QVERIFY(stage.item("editConnectionsBox")->property("checked").toBool());
        QVERIFY(!stage.has("administratorExitButton"));

        stage.click("editConnectionsBox");
        stage.click("hideExitBox");

        QVERIFY(stage.settings.getLockConnections());
        QVERIFY(stage.settings.getHideExit());
        QVERIFY(stage.has("administratorExitButton"));
        stage.click("hideExitBox");
        stage.click("editConnectionsBox");
        QVERIFY(!stage.settings.getHideExit());
        QVERIFY(!stage.settings.getLockConnections());
    }

    void theLanguageIsSaved()
    {
        Stage stage;
        stage.language.set("ru_RU", {});
        start(stage);
        show(stage, "settings");
        QTRY_VERIFY(stage.has("clientSettingsRow1"));
        stage.settle();
        QVERIFY(!stage.has("saveButton")); // what acts at once is not saved
        stage.click("clientSettingsRow1");
        QTRY_VERIFY(stage.has("layoutBox_en_GB"));
        stage.settle();

        stage.click("layoutBox_en_GB");
        QCOMPARE(stage.language.getActiveLayouts(), QStringList());
        stage.click("saveButton");

        QCOMPARE(stage.language.getActiveLayouts(), QStringList({"en_GB"}));
        QTRY_COMPARE(stage.text("snackbarText"), QString("Сохранено"));
        QCOMPARE(stage.language.getLocale(), QString("ru_RU"));
        QCOMPARE(stage.item("layoutBox_hi_IN")->property("text").toString(), QLocale("hi_IN").nativeLanguageName());
        // Its letters are in a font of their own; the others are in the font of the program.
        QCOMPARE(stage.item("layoutBox_hi_IN")->property("font").value<QFont>().family(), QString("Lohit Devanagari"));
        QCOMPARE(stage.item("layoutBox_da_DK")->property("font").value<QFont>().family(), QString("Roboto"));
    }

    void theLanguageOfAnotherCountryStays()
    {
        Stage stage;
        stage.language.set("en_US", {});
        start(stage);
        show(stage, "settings");
        QTRY_VERIFY(stage.has("clientSettingsRow1"));
        stage.settle();
        stage.click("clientSettingsRow1");
        QTRY_VERIFY(stage.has("layoutBox_en_GB"));
        stage.settle();
        QCOMPARE(stage.item("languagePicker")->property("selectedItem").toString(), QString("en_GB"));

        stage.click("layoutBox_en_GB");
        stage.click("saveButton");

        QCOMPARE(stage.language.getActiveLayouts(), QStringList({"en_GB"}));
        QCOMPARE(stage.language.getLocale(), QString("en_US"));
    }
};

ONDIRA_TEST(NavigationTest)
#include "NavigationTest.moc"
