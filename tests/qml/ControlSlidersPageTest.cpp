// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

using namespace Records;

class ControlSlidersPageTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage, const QSize &size = {1280, 800})
    {
        stage.link.logIn("someone", "admin");
        stage.link.publishShopParts({part(1, "Этаж 10"), part(2, "Этаж 9"), part(3, "подвал")});
        stage.link.publishZones({zone(11, "А", 1), zone(12, "Б", 2), zone(13, "В", 3)});
        return stage.show("ControlSlidersPage { objectName: 'page'; anchors.fill: parent; focus: true\n"
                          "function more() { actions[0].trigger() } }",
                          size);
    }
    static QStringList tabs(const Stage &stage)
    {
        QStringList texts;
        for (int i = 0; stage.has(QStringLiteral("slidersTab%1").arg(i)); ++i)
            texts << stage.text(QStringLiteral("slidersTab%1").arg(i));
        return texts;
    }
    static int current(const Stage &stage) { return stage.item("slidersTabBar")->property("currentIndex").toInt(); }
    static QString zoneName(const Stage &stage)
    {
        auto *row = stage.item("zoneControl0");
        return row ? row->property("name").toString() : QString();
    }

private slots:
    void theTabsAreThePartsByName()
    {
        Stage stage;
        auto *page = show(stage);

        QTRY_COMPARE(tabs(stage), QStringList({"подвал", "Этаж 9", "Этаж 10"}));
        QTRY_COMPARE(page->property("partUid").toString(), text(3));
        QTRY_COMPARE(zoneName(stage), QString("В"));
        QCOMPARE(stage.text("partName"), QString("подвал"));
        stage.click("slidersTab2");

        QCOMPARE(page->property("partUid").toString(), text(1));
        QTRY_COMPARE(zoneName(stage), QString("А"));
        QCOMPARE(stage.text("partName"), QString("Этаж 10"));
        QCOMPARE(current(stage), 2);
    }

    void theTitleIsTheConnectionsNameOrItsOwn()
    {
        Stage stage;
        auto *page = show(stage);
        QCOMPARE(page->property("title").toString(), QString("Управление"));

        stage.connections.add("Дом", "127.0.0.1", "someone", "");
        stage.connections.activate(0);

        QTRY_COMPARE(page->property("title").toString(), QString("Дом"));
    }

    void theTabFollowsARenamedPart()
    {
        Stage stage;
        auto *page = show(stage);
        QTRY_COMPARE(page->property("partUid").toString(), text(3));

        stage.link.publishShopParts({part(1, "Этаж 10"), part(2, "Этаж 9"), part(3, "Ядро")});

        QTRY_COMPARE(tabs(stage), QStringList({"Этаж 9", "Этаж 10", "Ядро"}));
        QTRY_COMPARE(current(stage), 2);
        QCOMPARE(page->property("partUid").toString(), text(3));
        QTRY_COMPARE(stage.text("partName"), QString("Ядро"));
    }

    void aRemovedPartGivesWayToTheFirst()
    {
        Stage stage;
        auto *page = show(stage);
        QTRY_COMPARE(tabs(stage).size(), 3);
        stage.click("slidersTab2");

        stage.link.publishShopParts({part(2, "Этаж 9"), part(3, "подвал")});
        QTRY_COMPARE(page->property("partUid").toString(), text(3));
        QTRY_COMPARE(current(stage), 0);
        stage.link.publishShopParts({});
        QTRY_COMPARE(page->property("partUid").toString(), QString());
        stage.link.publishShopParts({part(2, "Этаж 9")});

        QTRY_COMPARE(page->property("partUid").toString(), text(2));
        QTRY_COMPARE(zoneName(stage), QString("Б"));
    }

    void aPartThatReturnsInTimeIsKept()
    {
        Stage stage;
        auto *page = show(stage);
        QTRY_COMPARE(tabs(stage).size(), 3);
        stage.click("slidersTab2");
        QSignalSpy moved(page, SIGNAL(partUidChanged()));

        stage.link.publishShopParts({});
        stage.link.publishShopParts({part(1, "Этаж 10"), part(2, "Этаж 9"), part(3, "подвал")});

        QTRY_COMPARE(current(stage), 2);
        QVERIFY(!moved.wait(900));
        QCOMPARE(page->property("partUid").toString(), text(1));
    }

    void thePanelComesFromTheRight_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("width");

        QTest::newRow("wide") << QSize(1280, 800) << 320;
        QTest::newRow("narrow") << QSize(340, 640) << 308;
    }

    void thePanelComesFromTheRight()
    {
        QFETCH(QSize, size);
        Stage stage;
        auto *page = show(stage, size);
        QTRY_COMPARE(tabs(stage).size(), 3);

        QMetaObject::invokeMethod(page, "more");
        QTRY_VERIFY(stage.object("controlsDrawer")->property("opened").toBool());
        QTEST(stage.object("controlsDrawer")->property("width").toInt(), "width");
        QVERIFY(stage.has("objectRow0"));
        QVERIFY(!stage.has("scaleSlider"));
        stage.click("objectRow2");

        QTRY_COMPARE(page->property("partUid").toString(), text(1));
        QTRY_VERIFY(!stage.object("controlsDrawer")->property("visible").toBool());
        QMetaObject::invokeMethod(page, "more");
        QTRY_VERIFY(stage.object("controlsDrawer")->property("opened").toBool());
        stage.key(Qt::Key_Escape);
        QTRY_VERIFY(!stage.object("controlsDrawer")->property("visible").toBool());
    }
};

ONDIRA_TEST(ControlSlidersPageTest)
#include "ControlSlidersPageTest.moc"
