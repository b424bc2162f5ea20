// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "model/StandardBlueprints.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

using namespace Records;

class DesktopPageTest : public TestBase
{
    Q_OBJECT

private:
    // A connection is saved, and somebody is logged in.
    static QQuickItem *show(Stage &stage, const QString &group = QStringLiteral("admin"))
    {
        stage.connections.add("Дом", "127.0.0.1", "someone", "");
        stage.link.logIn("someone", group);
        stage.link.operations.clear();
        return stage.show("DesktopPage { objectName: 'page'; anchors.fill: parent; focus: true\n"
                          "property int adds: tabAddDialog.opened }");
    }

    static QString shownPart(const Stage &stage) { return stage.item("shopScreen")->property("uid").toString(); }
    static int currentTab(const Stage &stage) { return stage.item("partsTabBar")->property("currentIndex").toInt(); }
    static QStringList tabNames(const Stage &stage)
    {
        QStringList names;
        for (int i = 0; stage.has(QStringLiteral("partTab%1").arg(i)); ++i)
            names << stage.text(QStringLiteral("partTab%1").arg(i));
        return names;
    }
    static int selectedCount(const Stage &stage)
    {
        return stage.item("shopScreen")->property("selectedZones").toStringList().size();
    }

private slots:
    void tabsAreSortedByName()
    {
        Stage stage;
        show(stage);

        stage.link.publishShopParts({part(1, "Этаж 10"), part(2, "Этаж 9"), part(3, "Подвал")});

        QTRY_COMPARE(tabNames(stage), QStringList({"Подвал", "Этаж 9", "Этаж 10"}));
        QTRY_COMPARE(shownPart(stage), text(3));
        QCOMPARE(currentTab(stage), 0);
    }

    void theTabOfThePartIsInSight_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<int>("current");

        const QStringList names{"А", "Б", "В", "Г", "Д", "Е", "Ж", "Крытая парковка за атриумом"};
        QTest::newRow("first") << names << 0;
        QTest::newRow("amid") << names << 4;
        QTest::newRow("last") << names << 7;
    }
    void theTabOfThePartIsInSight()
    {
        QFETCH(QStringList, names);
        QFETCH(int, current);
        Stage stage;
        show(stage);
        std::vector<Model::ShopPart> parts;
        for (const auto &name : names)
            parts.push_back(part(1 + static_cast<uint>(parts.size()), name));
        stage.link.publishShopParts(parts);
        QTRY_COMPARE(tabNames(stage), names);
        stage.resize({1280, 600});
        stage.click(QStringLiteral("partTab%1").arg(current));
        const auto isInSight = [&] {
            const auto *tab = stage.item(QStringLiteral("partTab%1").arg(current));
            const auto place = tab->mapRectToScene(tab->boundingRect());
            return currentTab(stage) == current && place.left() > -1 && place.right() < stage.window()->width() + 1;
        };

        QTRY_VERIFY(isInSight());
        stage.resize({420, 600});
        QTRY_VERIFY(isInSight());
        stage.settle();
        QVERIFY(isInSight());
    }

    void aTabShowsItsPart()
    {
        Stage stage;
        show(stage);
        stage.link.publishShopParts({part(1, "А"), part(2, "Б")});
        stage.link.publishZones({zone(11, "a", 1), zone(12, "b", 2)});
        QTRY_VERIFY(stage.tile(11));

        stage.click("partTab1");

        QTRY_VERIFY(stage.tile(12));
        QTRY_VERIFY(!stage.tile(11));
        QCOMPARE(shownPart(stage), text(2));
        QCOMPARE(currentTab(stage), 1);
        stage.item("partTab0")->forceActiveFocus();
        stage.key(Qt::Key_Return);
        QTRY_COMPARE(shownPart(stage), text(1));
        QTRY_COMPARE(currentTab(stage), 0);
    }

    void aRemovedPartGivesWayToTheFirst()
    {
        Stage stage;
        show(stage);
        stage.link.publishShopParts({part(1, "А"), part(2, "Б"), part(3, "В")});
        QTRY_COMPARE(shownPart(stage), text(1));
        stage.click("partTab2");
        QTRY_COMPARE(currentTab(stage), 2);

        stage.link.publishShopParts({part(1, "А"), part(2, "Б")});
        QCOMPARE(shownPart(stage), text(3)); // not at once

        QTRY_COMPARE(shownPart(stage), text(1));
        QTRY_COMPARE(currentTab(stage), 0);
    }

    void aPartThatReturnsInTimeIsKept()
    {
        Stage stage;
        show(stage);
        stage.link.publishShopParts({part(1, "А"), part(2, "Б")});
        QTRY_COMPARE(shownPart(stage), text(1));
        stage.click("partTab1");
        QTRY_COMPARE(currentTab(stage), 1);
        QSignalSpy moved(stage.item("shopScreen"), SIGNAL(uidChanged()));

        stage.link.publishShopParts({});
        stage.link.publishShopParts({part(1, "А"), part(2, "Б")});

        QTRY_COMPARE(currentTab(stage), 1);
        QVERIFY(!moved.wait(1200));
        QCOMPARE(shownPart(stage), text(2));
    }

    void theTabFollowsARenamedPart()
    {
        Stage stage;
        show(stage);
        stage.link.publishShopParts({part(1, "А"), part(2, "Б"), part(3, "В")});
        QTRY_COMPARE(shownPart(stage), text(1));

        stage.link.publishShopParts({part(1, "Я"), part(2, "Б"), part(3, "В")});

        QTRY_COMPARE(tabNames(stage), QStringList({"Б", "В", "Я"}));
        QTRY_COMPARE(currentTab(stage), 2);
        QCOMPARE(shownPart(stage), text(1));
    }

    void anotherPartDropsTheSelection()
    {
        Stage stage;
        show(stage);
        stage.link.publishShopParts({part(1, "А"), part(2, "Б")});
        auto hall = zone(11, "a", 1);
        hall.position = {200, 200};
        stage.link.publishZones({hall, zone(12, "b", 2)});
        QTRY_VERIFY(stage.tile(11));
        stage.click(stage.tile(11));
        QCOMPARE(selectedCount(stage), 1);

        stage.click("partTab1");

        QTRY_COMPARE(selectedCount(stage), 0);
        QTRY_VERIFY(!stage.has("autoModeButton"));
        stage.click("partTab0");
        QTRY_VERIFY(stage.tile(11));
        QVERIFY(!stage.tile(11)->property("selected").toBool());
    }

    void namesOfPartsAreShownAsTheyAre()
    {
        Stage stage;
        show(stage);
        const QString name = "<b>A&B</b> <img src='http://127.0.0.1:1/'>";

        stage.link.publishShopParts({part(1, name), part(2, QString(10000, QChar(u'Ж')))});

        QTRY_VERIFY(stage.has("partTab0"));
        bool found = false;
        for (auto *label : stage.items([](QQuickItem *item) { return item->inherits("QQuickText"); })) {
            if (label->property("text").toString() != name)
                continue;
            found = true;
            QCOMPARE(label->property("textFormat").toInt(), static_cast<int>(Qt::PlainText));
        }
        QVERIFY(found);
        QVERIFY(stage.item("partTab0")->width() < 320);
        QCOMPARE(stage.item("partTab1")->width(), 320.0);
    }

    void theBarShowsWhileZonesAreSelected()
    {
        Stage stage;
        auto *page = show(stage);
        stage.publishSite(3);
        QTRY_VERIFY(stage.tile(13));
        QVERIFY(!stage.has("autoModeButton"));

        stage.click(stage.tile(11));
        QTRY_VERIFY(stage.has("autoModeButton"));
        QTRY_COMPARE(stage.item("shopScreen")->height() + stage.item("brightnessControl")->height(),
                     page->height() - stage.item("partsTabBar")->height());
        page->setVisible(false);
        QTRY_VERIFY(!stage.has("autoModeButton"));
        page->setVisible(true);
        QTRY_VERIFY(stage.has("autoModeButton"));
        stage.click(stage.tile(11));

        QTRY_VERIFY(!stage.has("autoModeButton"));
    }

    void theBarDrivesExactlyTheSelectedZonesAndDropsTheSelection()
    {
        Stage stage;
        show(stage);
        stage.publishSite(4);
        QTRY_VERIFY(stage.tile(14));
        stage.click(stage.tile(12));
        stage.click(stage.tile(14));
        stage.click(stage.tile(11));
        stage.click(stage.tile(12));
        QTRY_VERIFY(stage.has("powerButton40"));
        stage.settle();

        stage.click("powerButton40");

        QCOMPARE(stage.link.operations, QStringList({"runActionSequences"}));
        for (const auto &step : stage.link.sequences.at(0).instances)
            QVERIFY((step.zones == QSet<QUuid>{uid(11), uid(14)}));
        QCOMPARE(selectedCount(stage), 0);
        QTRY_VERIFY(!stage.has("powerButton40"));
    }

    void allIsReachedByKeyboard()
    {
        Stage stage;
        auto *page = show(stage);
        stage.publishSite(2);
        QTRY_VERIFY(stage.tile(12));
        page->forceActiveFocus();

        QCOMPARE(stage.focusName(), QString("shopScreen"));
        stage.key(Qt::Key_Tab);
        QVERIFY2(stage.window()->activeFocusItem() == stage.tile(11), qPrintable(stage.focusName()));
        stage.key(Qt::Key_Return);
        QTRY_COMPARE(stage.focusName(), QString("autoModeButton"));
        stage.key(Qt::Key_Escape);
        QCOMPARE(stage.window()->activeFocusItem(), stage.tile(11));
        QCOMPARE(selectedCount(stage), 1);
        stage.key(Qt::Key_Return);
        QTRY_COMPARE(stage.focusName(), QString("autoModeButton"));
        stage.key(Qt::Key_Tab);
        stage.key(Qt::Key_Return);

        QCOMPARE(stage.link.sequences.at(0).instances.at(1).properties.at(0).value.toInteger(), 0LL);
        QTRY_COMPARE(stage.window()->activeFocusItem(), stage.tile(11));
        QTRY_VERIFY(!stage.has("autoModeButton"));
        QCOMPARE(stage.window()->activeFocusItem(), stage.tile(11));
        stage.key(Qt::Key_Tab);
        QCOMPARE(stage.window()->activeFocusItem(), stage.tile(12));
    }

    void scaleButtonsZoomThePlan()
    {
        Stage stage;
        show(stage);
        stage.publishSite(1);
        QTRY_VERIFY(stage.tile(11));
        QVERIFY(!stage.has("scaleUp"));
        stage.shop.enableEditing(true);
        QTRY_VERIFY(stage.has("scaleUp"));
        stage.settle();

        stage.click("scaleDown");
        QCOMPARE(stage.text("scaleLabel"), QString("90%"));
        stage.click("scaleDown");
        stage.click("scaleDown");
        QCOMPARE(stage.text("scaleLabel"), QString("70%"));
        stage.click("scaleLabel");
        QCOMPARE(stage.text("scaleLabel"), QString("100%"));
        stage.click("scaleUp");

        QCOMPARE(stage.text("scaleLabel"), QString("110%"));
    }

    void emptyStates_data()
    {
        QTest::addColumn<int>("parts");
        QTest::addColumn<int>("zones");
        QTest::addColumn<bool>("connection");
        QTest::addColumn<QString>("title");

        QTest::newRow("a plan") << 1 << 1 << true << "(none)";
        QTest::newRow("a part without zones") << 1 << 0 << true << "Объект пуст";
        QTest::newRow("no part") << 0 << 0 << true << "Не создано ни одного объекта";
        QTest::newRow("no part, zones of none") << 0 << 3 << true << "Не создано ни одного объекта";
        QTest::newRow("no connection") << 1 << 1 << false << "Нет подключений к серверу";
        QTest::newRow("nothing at all") << 0 << 0 << false << "Нет подключений к серверу";
    }

    void emptyStates()
    {
        QFETCH(int, parts);
        QFETCH(int, zones);
        QFETCH(bool, connection);
        QFETCH(QString, title);
        Stage stage;
        show(stage);
        stage.publishSite(zones);
        if (parts == 0)
            stage.link.publishShopParts({});
        if (!connection)
            stage.connections.remove(0);
        QTRY_COMPARE(shownPart(stage), parts == 0 ? QString() : text(1));
        stage.settle();

        // The last one lies on top.
        const auto titles =
            stage.items([](QQuickItem *item) { return item->objectName() == QLatin1String("placeholderTitle"); });
        QCOMPARE(titles.empty() ? QString("(none)") : titles.back()->property("text").toString(), title);
    }

    void whoMayAddAPart_data()
    {
        QTest::addColumn<QString>("group");
        QTest::addColumn<bool>("may");

        QTest::newRow("admin") << "admin" << true;
        QTest::newRow("user") << "user" << false;
    }

    void whoMayAddAPart()
    {
        QFETCH(QString, group);
        QFETCH(bool, may);
        Stage stage;
        show(stage, group);
        QTRY_VERIFY(stage.has("noParts"));
        stage.settle();
        QCOMPARE(stage.has("placeholderButton"), may);

        if (may) {
            stage.click("placeholderButton");
            QCOMPARE(stage.link.operations, QStringList({"addShopParts"}));
            stage.link.uidsCallback({uid(5)});
            stage.link.publishShopParts({part(5, "Объект")});
            QTRY_COMPARE(shownPart(stage), text(5));
        }
    }

    void theViewIsRememberedPerConnection()
    {
        Stage stage;
        show(stage);
        stage.link.publishShopParts({part(1, "А"), part(2, "Б")});
        QTRY_COMPARE(shownPart(stage), text(1));
        stage.connections.setCurrentIndex(0);

        stage.click("partTab1");
        stage.item("shopScreen")->setProperty("shopScale", 2);

        QCOMPARE(stage.connections.getStoredValue("shopUid").toString(), text(2));
        QTRY_COMPARE(stage.connections.getStoredValue("shopScale").toDouble(), 2.0);
        stage.connections.add("Дача", "127.0.0.2", "someone", "");
        stage.connections.setCurrentIndex(1);
        QCOMPARE(stage.item("shopScreen")->property("shopScale").toDouble(), 1.0);
        QTRY_COMPARE(shownPart(stage), text(1)); // it never chose one
        stage.connections.setCurrentIndex(0);
        QCOMPARE(shownPart(stage), text(2));
        QCOMPARE(stage.item("shopScreen")->property("shopScale").toDouble(), 2.0);
    }

    void storedValuesOfNoUseAreHarmless()
    {
        Stage stage;
        show(stage);
        stage.publishSite(1);
        QTRY_COMPARE(shownPart(stage), text(1));
        stage.connections.setCurrentIndex(0);

        stage.connections.setStoredValue("shopScale", "wide");
        stage.connections.setStoredValue("shopScale", -3);
        stage.connections.setStoredValue("shopUid", QVariant());
        stage.connections.setStoredValue("shopContentX", "left");
        stage.connections.setStoredValue("shopZoomLocked", "yes");

        QCOMPARE(stage.item("shopScreen")->property("shopScale").toDouble(), 1.0);
        QCOMPARE(stage.item("shopScreen")->property("lockZoomPan").toBool(), false);
        QTRY_COMPARE(shownPart(stage), text(1));
    }

    void lockingStoresTheOffset()
    {
        Stage stage;
        show(stage);
        stage.publishSite(1);
        QTRY_VERIFY(stage.tile(11));
        stage.connections.setCurrentIndex(0);
        stage.shop.enableEditing(true);
        QTRY_VERIFY(stage.has("scaleLock"));
        stage.settle();
        auto *flickable = stage.item("shopScreen")->property("shopFlickable").value<QQuickItem *>();
        flickable->setProperty("contentX", 320);
        flickable->setProperty("contentY", 40);
        QVERIFY(!stage.connections.getStoredValue("shopContentX").isValid());

        stage.click("scaleLock");

        QCOMPARE(stage.connections.getStoredValue("shopZoomLocked").toBool(), true);
        QCOMPARE(stage.connections.getStoredValue("shopContentX").toDouble(), 320.0);
        QCOMPARE(stage.connections.getStoredValue("shopContentY").toDouble(), 40.0);
        QVERIFY(stage.item("shopScreen")->property("lockZoomPan").toBool());
    }

    void theBarHidesInEditMode()
    {
        Stage stage;
        show(stage);
        stage.publishSite(2);
        QTRY_VERIFY(stage.tile(12));
        stage.click(stage.tile(11));
        QTRY_VERIFY(stage.has("autoModeButton"));

        stage.shop.enableEditing(true);

        QTRY_VERIFY(!stage.has("autoModeButton"));
        QTRY_VERIFY(stage.has("shopControls"));
    }

    void theMobileShapeKeepsThePanelInADrawer()
    {
        Stage stage;
        auto *page = show(stage);
        stage.publishSite(2);
        QTRY_VERIFY(stage.tile(12));
        stage.resize({400, 700});
        stage.shop.enableEditing(true);
        stage.settle();
        QVERIFY(!stage.has("shopControls"));

        QMetaObject::invokeMethod(stage.object("panelAction"), "trigger");

        QTRY_VERIFY(stage.has("shopControls"));
        QCOMPARE(stage.object("mobileSidebar")->property("width").toDouble(), 320.0);
        page->setVisible(false);
        QTRY_VERIFY(!stage.has("shopControls"));
    }

    void actionsFollowTheUser_data()
    {
        QTest::addColumn<QString>("group");
        QTest::addColumn<QStringList>("actions");

        QTest::newRow("admin") << "admin" << QStringList({"editModeAction"});
        QTest::newRow("user") << "user" << QStringList({"scaleDownAction", "scaleResetAction", "scaleUpAction"});
    }

    void actionsFollowTheUser()
    {
        QFETCH(QString, group);
        Stage stage;
        auto *page = show(stage, group);
        stage.publishSite(1);
        QTRY_VERIFY(stage.tile(11));

        QStringList names;
        for (const auto &action : page->property("actions").toList())
            names << action.value<QObject *>()->objectName();
        QTEST(names, "actions");
    }

    void anEmptyPartIsOpenedForEditing()
    {
        Stage stage;
        show(stage);
        stage.publishSite(0);
        QTRY_VERIFY(stage.has("emptyPart"));
        stage.settle();

        stage.click("placeholderButton");

        QVERIFY(stage.shop.getIsEditingEnabled());
        QTRY_VERIFY(stage.has("addZone"));
    }

    void editModeEndsWithTheRights()
    {
        Stage stage;
        show(stage);
        stage.publishSite(1);
        QTRY_VERIFY(stage.tile(11));
        stage.shop.enableEditing(true);

        stage.link.logIn("someone", "user");

        QVERIFY(!stage.shop.getIsEditingEnabled());
    }

    void withoutConnectionsItAsksForOne()
    {
        Stage stage;
        auto *page = show(stage);
        stage.connections.remove(0);
        QTRY_VERIFY(stage.has("noSavedConnections"));
        const auto button = stage.items([](QQuickItem *item) {
            return item->objectName() == QLatin1String("placeholderButton")
                && item->property("text").toString() == QStringLiteral("Создать");
        });
        QCOMPARE(button.size(), std::size_t(1));

        stage.click(button.front());

        QCOMPARE(page->property("adds").toInt(), 1);
    }
};

ONDIRA_TEST(DesktopPageTest)
#include "DesktopPageTest.moc"
