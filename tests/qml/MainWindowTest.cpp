// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

using Link = AbstractBackendCommunicator;

class MainWindowTest : public TestBase
{
    Q_OBJECT

private:
    static QStringList row(const Stage &stage, int row)
    {
        const auto values = stage.connections.get(row).toMap();
        return {values.value("name").toString(), values.value("address").toString(), values.value("login").toString(),
                values.value("password").toString()};
    }

    static void openForm(Stage &stage, const QString &button)
    {
        stage.click(button);
        QTRY_VERIFY(stage.has("positiveButton"));
        stage.settle();
    }

    static void openDrawer(Stage &stage)
    {
        stage.click("connectionButton");
        QTRY_VERIFY(stage.object("connectionsDrawer")->property("opened").toBool());
        stage.settle();
    }

    static void typeForm(Stage &stage, const QStringList &values)
    {
        for (int i = 0; i < values.size(); ++i) {
            stage.type(values.at(i));
            if (i + 1 < values.size())
                stage.key(Qt::Key_Tab);
        }
    }

private slots:
    void tellsNameAndVersion()
    {
        Stage stage;
        stage.showMain();

        QCOMPARE(stage.window()->title(), "Ondira Smart " + stage.version.version());
        QVERIFY(stage.window()->minimumWidth() >= 320);
    }

    void connectsToTheFirstConnectionAtStart()
    {
        Stage stage;
        stage.connections.add("Первое", "10.0.0.1", "one", "1");
        stage.connections.add("Второе", "10.0.0.2", "two", "2");

        stage.showMain();

        QCOMPARE(stage.connections.getCurrentIndex(), 0);
        QCOMPARE(stage.link.getCurrentLogin(), QString("one"));
        QCOMPARE(stage.link.operations, QStringList({"auth"}));
        QVERIFY(stage.has("loadingScreen"));
    }

    void connectsAsSoonAsTheListIsThere()
    {
        {
            Stage earlier;
            earlier.connections.add("Первое", "10.0.0.1", "one", "1");
        }
        Stage stage(Stage::Storage::NotYet);
        stage.showMain();
        QCOMPARE(stage.connections.getCurrentIndex(), -1);
        QCOMPARE(stage.link.operations, QStringList());

        stage.connections.onPermissionsGranted();

        QCOMPARE(stage.connections.getCurrentIndex(), 0);
        QCOMPARE(stage.link.getCurrentLogin(), QString("one"));
    }

    void planAndWaitingTakeTurns()
    {
        Stage stage;
        stage.connections.add("Дом", "127.0.0.1", "admin", "");
        stage.showMain();
        QVERIFY(stage.has("loadingScreen"));
        QVERIFY(!stage.has("desktop"));

        stage.link.logIn("admin", "admin");
        stage.publishSite(2);
        QTRY_VERIFY(stage.tile(12));
        QTRY_VERIFY(!stage.has("loadingScreen"));
        QTRY_VERIFY(stage.item("shopScreen")->property("loaded").toBool());
        stage.settle();
        stage.click(stage.tile(11));
        QTRY_VERIFY(stage.has("autoModeButton"));
        stage.link.enter(Link::Connecting);

        QVERIFY(stage.has("loadingScreen"));
        QTRY_VERIFY(!stage.has("autoModeButton"));
        stage.link.enter(Link::Connected);
        QTRY_VERIFY(stage.tile(11));
        QVERIFY(stage.tile(11)->property("selected").toBool());
        QTRY_VERIFY(stage.has("autoModeButton"));
    }

    void barOfBrightnessStandsBesideTheSidebar()
    {
        Stage stage;
        stage.connections.add("Дом", "127.0.0.1", "admin", "");
        stage.showMain();
        stage.link.logIn("admin", "admin");
        stage.publishSite(2);
        QTRY_VERIFY(stage.tile(11));
        QTRY_VERIFY(stage.item("shopScreen")->property("loaded").toBool());
        stage.settle();
        stage.click(stage.tile(11));
        QTRY_VERIFY(stage.has("autoModeButton"));
        const auto placeOfBar = [&] {
            auto *bar = stage.item("brightnessControl");
            return bar->mapRectToScene(bar->boundingRect());
        };

        QTRY_COMPARE(placeOfBar(), QRectF(100, 800 - 86, 1180, 86));
        stage.resize({420, 800});
        QTRY_COMPARE(placeOfBar(), QRectF(0, 800 - 110, 420, 110));
        stage.resize({1280, 800});
        QTRY_COMPARE(placeOfBar(), QRectF(100, 800 - 86, 1180, 86));
        stage.click("exitButton"); // at the foot of the sidebar
        QTRY_VERIFY(stage.object("confirmationDialog")->property("opened").toBool());
    }

    void theKeyboardGoesWithTheScreen()
    {
        Stage stage;
        stage.connections.add("Дом", "127.0.0.1", "admin", "");
        stage.showMain();
        QTRY_COMPARE(stage.focusName(), QString("connectButton"));

        stage.link.logIn("admin", "admin");
        stage.publishSite(2);
        QTRY_VERIFY(stage.tile(11));
        stage.key(Qt::Key_Tab);
        QCOMPARE(stage.window()->activeFocusItem(), stage.tile(11));
        stage.link.enter(Link::Connecting);

        QTRY_COMPARE(stage.focusName(), QString("connectButton"));
    }

    void aNewConnectionIsAddedAndActivated()
    {
        Stage stage;
        stage.connections.add("Дом", "10.0.0.1", "a", "a");
        stage.showMain();
        openDrawer(stage);
        openForm(stage, "addConnectionButton");
        QCOMPARE(stage.focusName(), QString("nameField"));
        QVERIFY(!stage.item("positiveButton")->isEnabled());

        typeForm(stage, {"Офис", "10.0.0.2", "admin", "тайна"});
        QVERIFY(stage.item("positiveButton")->isEnabled());
        stage.key(Qt::Key_Return);

        QCOMPARE(row(stage, 1), QStringList({"Офис", "10.0.0.2", "admin", "тайна"}));
        QCOMPARE(stage.connections.getCurrentIndex(), 1);
        QCOMPARE(stage.link.getAddress(), QString("10.0.0.2"));
        QTRY_VERIFY(!stage.has("positiveButton"));
    }

    void theFormIsEmptyEachTime()
    {
        Stage stage;
        stage.showMain();
        openForm(stage, "placeholderButton");
        typeForm(stage, {"a", "b", "c", "d"});
        stage.key(Qt::Key_Escape);
        QTRY_VERIFY(!stage.has("positiveButton"));

        openForm(stage, "placeholderButton");

        for (const auto *field : {"nameField", "addressField", "loginField", "passwordField"})
            QCOMPARE(stage.text(field), QString());
        QCOMPARE(stage.connections.rowCount(), 0);
    }

    void aRefusedConnectionLeavesTheLinkAlone()
    {
        Stage stage;
        stage.connections.add("Дом", "10.0.0.1", "admin", "p");
        stage.connections.add("Офис", "10.0.0.2", "admin", "p");
        stage.showMain();
        stage.link.operations.clear();
        openDrawer(stage);
        openForm(stage, "addConnectionButton");
        expectMessage(QtWarningMsg, "UNIQUE constraint failed");

        typeForm(stage, {"Офис", "10.0.0.2", "admin", "p"});
        stage.key(Qt::Key_Return);

        QCOMPARE(stage.connections.rowCount(), 2);
        QCOMPARE(stage.connections.getCurrentIndex(), 0);
        QCOMPARE(stage.link.operations, QStringList());
        QVERIFY(stage.has("refusalLabel"));
        QVERIFY(stage.has("positiveButton")); // open, so that what was typed can be changed
        stage.type("2");
        QVERIFY(!stage.has("refusalLabel"));
        stage.click("positiveButton");

        QCOMPARE(row(stage, 2), QStringList({"Офис", "10.0.0.2", "admin", "p2"}));
        QCOMPARE(stage.connections.getCurrentIndex(), 2);
    }

    void anIncompleteFormIsNotSubmitted()
    {
        Stage stage;
        stage.showMain();
        openForm(stage, "placeholderButton");

        stage.type("Офис");
        stage.key(Qt::Key_Return);
        stage.click("positiveButton");

        QVERIFY(stage.has("positiveButton"));
        QCOMPARE(stage.connections.rowCount(), 0);
    }

    void aClickBesideKeepsWhatWasTyped()
    {
        Stage stage;
        stage.showMain();
        openForm(stage, "placeholderButton");
        stage.type("Офис");

        stage.clickAt({5, 790});
        stage.settle();

        QCOMPARE(stage.text("nameField"), QString("Офис"));
        stage.click("negativeButton");
        QTRY_VERIFY(!stage.has("positiveButton"));
    }

    void aSavedConnectionIsChanged()
    {
        Stage stage;
        stage.connections.add("Дом", "10.0.0.1", "a", "1");
        stage.connections.add("Офис", "10.0.0.2", "b", "2");
        stage.showMain();
        stage.link.operations.clear();
        openDrawer(stage);
        stage.key(Qt::Key_Down);
        stage.key(Qt::Key_F2);
        QTRY_VERIFY(stage.has("positiveButton"));
        QCOMPARE(stage.text("nameField"), QString("Офис"));
        QCOMPARE(stage.text("addressField"), QString("10.0.0.2"));
        QCOMPARE(stage.text("loginField"), QString("b"));
        QCOMPARE(stage.text("passwordField"), QString("2"));
        stage.settle();

        stage.key(Qt::Key_Tab);
        stage.key(Qt::Key_A, Qt::ControlModifier);
        stage.type("10.0.0.9");
        stage.key(Qt::Key_Return);

        QCOMPARE(row(stage, 1), QStringList({"Офис", "10.0.0.9", "b", "2"}));
        QCOMPARE(row(stage, 0), QStringList({"Дом", "10.0.0.1", "a", "1"}));
        QCOMPARE(stage.connections.getCurrentIndex(), 0);
        QCOMPARE(stage.link.operations, QStringList()); // another one than that in use
        QTRY_VERIFY(!stage.has("positiveButton"));
    }

    void theConnectionInUseReconnectsWhenChanged()
    {
        Stage stage;
        stage.connections.add("Дом", "10.0.0.1", "a", "1");
        stage.showMain();
        stage.link.operations.clear();
        openDrawer(stage);
        stage.key(Qt::Key_F2);
        QTRY_VERIFY(stage.has("positiveButton"));
        stage.settle();
        stage.item("passwordField")->forceActiveFocus();

        stage.type("23");
        stage.click("positiveButton");

        QCOMPARE(row(stage, 0), QStringList({"Дом", "10.0.0.1", "a", "123"}));
        QCOMPARE(stage.link.operations, QStringList({"auth"}));
        QCOMPARE(stage.link.getCurrentPassword(), QString("123"));
    }

    void aChangeIntoAnotherConnectionIsRefused()
    {
        Stage stage;
        stage.connections.add("Дом", "10.0.0.1", "a", "");
        stage.connections.add("Дом", "10.0.0.1", "b", "");
        stage.showMain();
        openDrawer(stage);
        stage.key(Qt::Key_F2);
        QTRY_VERIFY(stage.has("positiveButton"));
        stage.settle();
        stage.item("loginField")->setProperty("text", "b");
        expectMessage(QtWarningMsg, "UNIQUE constraint failed");

        stage.click("positiveButton");

        QVERIFY(stage.has("refusalLabel"));
        QCOMPARE(row(stage, 0), QStringList({"Дом", "10.0.0.1", "a", ""}));
        stage.click("negativeButton");
        QTRY_VERIFY(!stage.has("positiveButton"));
    }

    void theListClosesByItsOwnButton()
    {
        Stage stage;
        stage.connections.add("Дом", "10.0.0.1", "a", "");
        stage.showMain();
        openDrawer(stage);

        stage.click("connectionButton");
        stage.settle();

        QVERIFY(!stage.object("connectionsDrawer")->property("visible").toBool());
    }

    void aFormInALowWindowShowsTheFieldWithTheKeyboard()
    {
        Stage stage;
        stage.showMain({320, 320});
        openForm(stage, "placeholderButton");

        for (const auto *field : {"nameField", "addressField", "loginField", "passwordField"}) {
            QCOMPARE(stage.focusName(), QString(field));
            auto *item = stage.item(field);
            auto *form = stage.object("tabAddDialog")->property("flickable").value<QQuickItem *>();
            const QRectF place = item->mapRectToItem(form, QRectF(0, 0, item->width(), item->height()));
            QVERIFY2(QRectF(0, -0.5, form->width(), form->height() + 1).contains(place), field);
            stage.key(Qt::Key_Tab);
        }
        auto *button = stage.item("positiveButton");
        QVERIFY(button->mapToScene(QPointF(0, button->height())).y() <= 320);
    }

    void errorsComeOverDialogs()
    {
        Stage stage;
        stage.showMain();
        openForm(stage, "placeholderButton");

        stage.link.reportErrors({{"1", "Ошибка", "Подробно"}});
        QTRY_VERIFY(stage.object("errorPopup")->property("opened").toBool());
        stage.settle();
        stage.key(Qt::Key_Return);

        QTRY_VERIFY(!stage.has("errorText"));
        QVERIFY(stage.has("positiveButton"));
        QTRY_COMPARE(stage.focusName(), QString("nameField"));
    }

    void thePartOnShowSurvivesALostLink()
    {
        Stage stage;
        stage.connections.add("Дом", "10.0.0.1", "a", "");
        stage.showMain();
        stage.link.logIn("a", "user");
        stage.link.publishShopParts({Records::part(1, "А"), Records::part(2, "Б")});
        QTRY_VERIFY(stage.has("partTab1"));
        stage.settle();
        stage.click("partTab1");
        QTRY_COMPARE(stage.item("partsTabBar")->property("currentIndex").toInt(), 1);

        stage.link.enter(Link::Connecting);
        stage.link.enter(Link::Connected);

        QCOMPARE(stage.item("shopScreen")->property("uid").toString(), Records::text(2));
        QCOMPARE(stage.item("partsTabBar")->property("currentIndex").toInt(), 1);
    }
};

ONDIRA_TEST(MainWindowTest)
#include "MainWindowTest.moc"
