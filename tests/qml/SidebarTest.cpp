// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QQmlExpression>
#include <QQmlProperty>

using Link = AbstractBackendCommunicator;

// The way through the program: what it offers to whom, its two shapes, and the dialogs that it opens.
class SidebarTest : public TestBase
{
    Q_OBJECT

private:
    static QString link(const Stage &stage) { return stage.object("nav")->property("currentLink").toString(); }

    static QStringList entries(const Stage &stage)
    {
        QStringList found;
        for (const char *link : {"loading", "desktop", "sliders", "settings"}) {
            if (stage.has(QStringLiteral("sidebarEntry_") + link))
                found << link;
        }
        return found;
    }

    static void start(Stage &stage, const QString &group = "admin", const QSize &size = {1280, 800})
    {
        stage.connections.add("Дом", "10.0.0.1", "anna", "p");
        stage.showMain(size);
        stage.link.logIn("anna", group);
        stage.publishSite(2);
        QTRY_COMPARE(link(stage), QString("desktop"));
        stage.settle();
    }

    static void openDrawer(Stage &stage)
    {
        QTRY_VERIFY(!stage.object("leftSidebar")->property("visible").toBool()); // after a change of the shape
        stage.click("leftAction");
        QTRY_VERIFY(stage.object("leftSidebar")->property("opened").toBool());
        stage.settle();
    }

    static bool isOpen(const Stage &stage, const QString &dialog)
    {
        return stage.object(dialog)->property("opened").toBool();
    }

private slots:
    void offersWhatTheUserCanDo_data()
    {
        QTest::addColumn<QString>("group");
        QTest::addColumn<int>("status");
        QTest::addColumn<QStringList>("expected");

        const QStringList all{"desktop", "sliders", "settings"};
        QTest::newRow("administrator") << "admin" << int(Link::Connected) << all;
        QTest::newRow("user") << "user" << int(Link::Connected) << QStringList{"desktop", "sliders"};
        QTest::newRow("connecting") << "user" << int(Link::Connecting) << QStringList{"loading", "settings"};
        QTest::newRow("disconnected") << "admin" << int(Link::Disconnected) << QStringList{"loading", "settings"};
    }

    void offersWhatTheUserCanDo()
    {
        QFETCH(QString, group);
        QFETCH(int, status);
        QFETCH(QStringList, expected);
        Stage stage;
        start(stage, group);

        if (status != Link::Connected)
            stage.link.enter(Link::Status(status));

        QCOMPARE(entries(stage), expected);
    }

    void isNarrowBelow960()
    {
        Stage stage;
        stage.showMain({960, 600});
        QVERIFY(!stage.object("leftSidebar")->property("mobileAspect").toBool());
        QTRY_COMPARE(stage.object("leftSidebar")->property("position").toReal(), 1.0);
        QTRY_COMPARE(stage.object("leftSidebar")->property("width").toReal(), 100.0);
        QTRY_COMPARE(stage.item("pageStack")->mapToScene({}).x(), 100.0);
        QVERIFY(!stage.has("leftAction"));

        stage.resize({959, 600});

        QVERIFY(stage.object("leftSidebar")->property("mobileAspect").toBool());
        QVERIFY(stage.object("leftSidebar")->property("compact").toBool());
        QTRY_VERIFY(!stage.object("leftSidebar")->property("visible").toBool());
        QTRY_COMPARE(stage.item("pageStack")->mapToScene({}).x(), 0.0);
        QVERIFY(stage.has("leftAction"));
        stage.resize({960, 600});
        QTRY_COMPARE(stage.item("pageStack")->mapToScene({}).x(), 100.0);
    }

    void anEntryShowsItsPage()
    {
        Stage stage;
        start(stage);
        QVERIFY(stage.item("sidebarEntry_desktop")->property("highlighted").toBool());

        stage.click("sidebarEntry_settings");

        QCOMPARE(link(stage), QString("settings"));
        QVERIFY(stage.item("sidebarEntry_settings")->property("highlighted").toBool());
        QVERIFY(!stage.item("sidebarEntry_desktop")->property("highlighted").toBool());
        stage.item("sidebarEntry_desktop")->forceActiveFocus();
        stage.key(Qt::Key_Return);
        QCOMPARE(link(stage), QString("desktop"));
    }

    void theDrawerClosesWithTheChoice()
    {
        Stage stage;
        start(stage, "admin", {420, 800});
        openDrawer(stage);

        stage.click("sidebarEntry_settings");

        QCOMPARE(link(stage), QString("settings"));
        QTRY_VERIFY(!stage.object("leftSidebar")->property("visible").toBool());
    }

    void theDrawerTellsTheConnection()
    {
        Stage stage;
        start(stage, "user", {420, 800});
        openDrawer(stage);

        QCOMPARE(stage.text("connectionItem"), QString("Дом"));
        QVERIFY(stage.item("connectionItem")->property("subText").toString().startsWith("10.0.0.1"));
        stage.link.enter(Link::Disconnected);
        QVERIFY(stage.item("connectionItem")->property("subText").toString().endsWith("Отключен"));

        stage.settle();
        stage.click("connectionItem");

        QTRY_VERIFY(isOpen(stage, "connectionsDrawer"));
    }

    void theBackKey_data()
    {
        QTest::addColumn<int>("width");

        QTest::newRow("desktop") << 1280;
        QTest::newRow("phone") << 420;
    }

    void theBackKey()
    {
        QFETCH(int, width);
        Stage stage;
        start(stage, "admin", {width, 800});
        QMetaObject::invokeMethod(stage.object("nav"), "show", Q_ARG(QVariant, "settings"),
                                  Q_ARG(QVariant, QVariantMap()));
        stage.settle();

        stage.key(Qt::Key_Back);
        QCOMPARE(link(stage), QString("desktop"));
        stage.key(Qt::Key_Back);

        QCOMPARE(link(stage), QString("desktop"));
        QVERIFY(stage.window()->isVisible());
        if (width < 960) {
            QTRY_VERIFY(stage.object("leftSidebar")->property("opened").toBool());
            stage.key(Qt::Key_Back);
            QTRY_VERIFY(!stage.object("leftSidebar")->property("visible").toBool());
        }
    }

    void theKeyboardComesAndGoes()
    {
        Stage stage;
        start(stage);
        QVERIFY(!stage.object("leftSidebar")->property("hasKeyboard").toBool());

        stage.key(Qt::Key_F6);
        QTRY_COMPARE(stage.focusName(), QString("logoButton"));
        QStringList names(stage.focusName());
        while (names.last() != "exitButton" && names.size() < 20) {
            stage.key(Qt::Key_Tab);
            names << stage.focusName();
        }
        for (const char *name : {"logoButton", "sidebarEntry_desktop", "sidebarEntry_sliders", "sidebarEntry_settings",
                                 "userButton", "languageButton", "exitButton"})
            QVERIFY2(names.contains(name), name);
        QVERIFY(stage.object("leftSidebar")->property("hasKeyboard").toBool());
        stage.key(Qt::Key_F6);

        QVERIFY(!stage.object("leftSidebar")->property("hasKeyboard").toBool());
    }

    // A shadow costs: a column beside the page casts none.
    void castsAShadowOnlyAsADrawer()
    {
        Stage stage;
        start(stage);
        auto *background = stage.object("leftSidebar")->property("background").value<QQuickItem *>();
        const QQmlProperty shadow(background, "layer.enabled");
        QCOMPARE(shadow.read(), QVariant(false));

        stage.resize({420, 800});
        openDrawer(stage);

        QCOMPARE(shadow.read(), QVariant(true));
    }

    void theDrawerStaysOpenWhenTheTextsChange()
    {
        Stage stage;
        start(stage, "admin", {420, 800});
        openDrawer(stage);

        qmlEngine(stage.window())->retranslate();
        stage.settle();

        QVERIFY(stage.object("leftSidebar")->property("opened").toBool());
        stage.key(Qt::Key_Escape);
        QTRY_VERIFY(!stage.object("leftSidebar")->property("visible").toBool());
        stage.resize({1280, 800});
        QTRY_VERIFY(stage.object("leftSidebar")->property("opened").toBool());
    }

    void leavingIsAskedFor()
    {
        Stage stage;
        start(stage);
        stage.click("exitButton");
        QTRY_VERIFY(isOpen(stage, "confirmationDialog"));
        QCOMPARE(stage.text("confirmationText"), QString("Выйти из программы?"));
        QCOMPARE(stage.text("positiveButton"), QString("Выйти"));
        QCOMPARE(stage.text("negativeButton"), QString("Отмена"));

        stage.key(Qt::Key_Escape);

        QTRY_VERIFY(!isOpen(stage, "confirmationDialog"));
        QVERIFY(stage.window()->isVisible());
    }

    void leavingCanBeHidden()
    {
        Stage stage;
        start(stage);
        QVERIFY(stage.has("exitButton"));

        stage.settings.setHideExit(true);
        QVERIFY(!stage.has("exitButton"));
        stage.resize({420, 800});
        openDrawer(stage);
        QVERIFY(!stage.has("exitButton"));

        stage.settings.setHideExit(false);
        QVERIFY(stage.has("exitButton"));
    }

    void aConfirmationRunsItsFunctionOnlyWhenAccepted()
    {
        Stage stage;
        start(stage);
        const auto ask = [&] {
            QQmlExpression ask(qmlContext(stage.window()), stage.window(),
                               "mainWindow.openConfirmationDialog('Точно?', 'Да', 'Нет', function() "
                               "{ mainWindow.title += '!' })");
            ask.evaluate();
            QTRY_VERIFY(isOpen(stage, "confirmationDialog"));
        };
        const auto title = stage.window()->title();

        ask();
        stage.click("negativeButton");
        QTRY_VERIFY(!stage.object("confirmationDialog")->property("visible").toBool());
        QCOMPARE(stage.window()->title(), title);
        ask();
        QCOMPARE(stage.text("confirmationText"), QString("Точно?"));
        stage.click("positiveButton");

        QCOMPARE(stage.window()->title(), title + '!');
    }

    void theUserChangesForThisConnection()
    {
        Stage stage;
        start(stage);
        QCOMPARE(stage.text("userButton"), QString("anna"));
        stage.link.operations.clear();
        stage.click("userButton");
        QTRY_VERIFY(isOpen(stage, "userDialog"));
        QCOMPARE(stage.focusName(), QString("userLoginField"));

        stage.type("boris");
        stage.key(Qt::Key_Tab);
        stage.type("тайна");
        stage.key(Qt::Key_Return);

        QTRY_VERIFY(!isOpen(stage, "userDialog"));
        QCOMPARE(stage.connections.getCurrentLogin(), QString("boris"));
        QCOMPARE(stage.connections.getCurrentPassword(), QString("тайна"));
        QCOMPARE(stage.connections.rowCount(), 2); // a temporary one
        QCOMPARE(stage.link.operations, QStringList({"auth"}));
    }

    void theUserButtonWaitsForTheServer()
    {
        Stage stage;
        start(stage);
        QVERIFY(stage.has("userButton"));

        stage.link.enter(Link::Connecting);

        QVERIFY(!stage.has("userButton"));
    }

    void theLanguageChangesAtOnce()
    {
        Stage stage;
        stage.language.set("ru_RU", {"en_GB"});
        start(stage);
        QCOMPARE(stage.text("languageButton"), QString("RU"));
        stage.click("languageButton");
        QTRY_VERIFY(isOpen(stage, "languageDialog"));
        QVERIFY(stage.item("layoutBox_en_GB")->property("checked").toBool());
        QVERIFY(!stage.item("layoutBox_ru_RU")->property("checked").toBool());
        QCOMPARE(stage.text("layoutBox_ru_RU"), QString("Русский"));
        QCOMPARE(stage.text("layoutBox_de_DE"), QString("Deutsch"));

        stage.click("layoutBox_ru_RU");
        stage.click("layoutBox_en_GB");
        stage.click("layoutBox_en_GB");
        stage.click("positiveButton");

        QTRY_VERIFY(!isOpen(stage, "languageDialog"));
        QCOMPARE(stage.language.getLocale(), QString("ru_RU"));
        QCOMPARE(stage.language.getActiveLayouts(), QStringList({"en_GB", "ru_RU"})); // in the order of the list
    }

    void aCancelledLanguageChangesNothing()
    {
        Stage stage;
        stage.language.set("ru_RU", {"de_DE"});
        start(stage);
        stage.click("languageButton");
        QTRY_VERIFY(isOpen(stage, "languageDialog"));

        stage.click("layoutBox_de_DE");
        stage.key(Qt::Key_Escape);
        QTRY_VERIFY(!stage.object("languageDialog")->property("visible").toBool());
        stage.click("languageButton");

        QTRY_VERIFY(isOpen(stage, "languageDialog"));
        QCOMPARE(stage.language.getActiveLayouts(), QStringList({"de_DE"}));
        QVERIFY(stage.item("layoutBox_de_DE")->property("checked").toBool());
    }

    void errorsThatNobodyReadAreShown()
    {
        Stage stage;
        start(stage);
        QVERIFY(!stage.has("errorsButton"));

        stage.link.reportErrors({{"1", "Ошибка", "Подробно"}});
        QTRY_VERIFY(isOpen(stage, "errorPopup"));
        QVERIFY(stage.has("errorsButton"));
        stage.settle();
        stage.key(Qt::Key_Return);

        QTRY_VERIFY(!stage.has("errorsButton"));
    }

    void theVersionIsTold()
    {
        Stage stage;
        start(stage);
        stage.link.tellVersion({4, 5, 2});
        stage.click("logoButton");
        QTRY_VERIFY(isOpen(stage, "versionDialog"));
        QCOMPARE(stage.text("versionLabel"), QString("Версия ") + stage.version.version());
        QCOMPARE(stage.text("revisionLabel"), QString("rev. ") + stage.version.revision());
        QCOMPARE(stage.text("serverVersionLabel"), QString("Версия сервера 4.5.2"));

        stage.link.enter(Link::Disconnected);
        QVERIFY(!stage.has("serverVersionLabel"));
        stage.click("changelogItem");
        QTRY_VERIFY(isOpen(stage, "changelogDialog"));
        QTRY_VERIFY(stage.item("changelogText")->property("count").toInt() > 5);
        stage.key(Qt::Key_Escape);
        QTRY_VERIFY(!stage.has("changelogText"));
        stage.click("licensesItem");
        QTRY_VERIFY(isOpen(stage, "licensesDialog"));
        QTRY_VERIFY(stage.item("licenseText")->property("count").toInt() > 500);
        const int own = stage.item("licenseText")->property("count").toInt();
        stage.settle();
        stage.click("thirdPartyLicensesTab");
        QTRY_VERIFY(stage.item("licenseText")->property("count").toInt() != own);
    }

    void connectionsCanBeLocked()
    {
        Stage stage;
        start(stage, "user");
        QVERIFY(stage.object("connectionsDrawer")->property("canEdit").toBool());

        stage.settings.setLockConnections(true);
        QVERIFY(!stage.object("connectionsDrawer")->property("canEdit").toBool());

        stage.link.logIn("anna", "admin");
        QVERIFY(stage.object("connectionsDrawer")->property("canEdit").toBool());
    }
};

ONDIRA_TEST(SidebarTest)
#include "SidebarTest.moc"
