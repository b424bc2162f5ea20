// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

class MaterialTabBarTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage, const QByteArray &properties, const QByteArray &tab = QByteArray())
    {
        return stage.show(
            "TabBar { id: bar; objectName: 'bar'; width: 600; property var removed: []\n"
            "onRemovePressed: removed = removed.concat([index])\n"
            + properties
            + "\nRepeater { model: ['Клиент', 'Сервер', 'Очень длинное название раздела настроек сервера']\n"
              "TabButton { objectName: 'tab' + index; text: modelData\n"
            + tab + "} } }");
    }
    static qreal width(Stage &stage, int tab) { return stage.item(QString("tab%1").arg(tab))->width(); }
    static QVariantList removed(QQuickItem *bar) { return bar->property("removed").toList(); }

private slots:
    void isTransparent()
    {
        Stage stage;
        auto *bar = stage.show("Item { anchors.fill: parent\nRectangle { anchors.fill: parent; color: '#204060' }\n"
                               "TabBar { objectName: 'bar'; width: 600; TabButton { text: 'Клиент'; width: 200 } } }");
        QVERIFY(bar);
        stage.settle();

        QCOMPARE(QColor(stage.window()->grabWindow().pixel(500, 20)), QColor("#204060"));
    }

    void fixedTabsShareTheBar()
    {
        Stage stage;
        show(stage, "");
        stage.settle();

        for (int i = 0; i < 3; ++i)
            QCOMPARE(width(stage, i), 200.0);
    }

    void othersAreAsWideAsTheirTexts()
    {
        Stage stage;
        show(stage, "fixed: false");
        stage.settle();

        QVERIFY(width(stage, 0) >= 96 && width(stage, 0) < 160);
        QCOMPARE(width(stage, 2), 320.0); // at most
        QVERIFY(stage.item("tab2")->property("implicitWidth").toReal() > 0);
    }

    void theBarMayChangeItsKind()
    {
        Stage stage;
        auto *bar = show(stage, "fixed: false");
        stage.settle();
        const qreal own = width(stage, 0);

        bar->setProperty("fixed", true);
        QTRY_COMPARE(width(stage, 0), 200.0);
        bar->setProperty("fixed", false);

        QTRY_COMPARE(width(stage, 0), own);
    }

    void tabsThatDoNotFitScroll()
    {
        Stage stage;
        auto *bar = show(stage, "fixed: false");
        bar->setWidth(300);
        stage.settle();

        bar->setProperty("currentIndex", 2);

        QTRY_VERIFY(stage.item("tab2")->mapToScene({0, 0}).x() < 200);
        QCOMPARE(width(stage, 2), 320.0);
    }

    void isDrivenByMouseAndKeyboard()
    {
        Stage stage;
        auto *bar = show(stage, "");
        stage.settle();

        stage.click("tab1");
        QCOMPARE(bar->property("currentIndex").toInt(), 1);
        stage.item("tab2")->forceActiveFocus(Qt::TabFocusReason);
        stage.key(Qt::Key_Return);
        QCOMPARE(bar->property("currentIndex").toInt(), 2);
        stage.item("tab0")->forceActiveFocus(Qt::TabFocusReason);
        stage.key(Qt::Key_Space);

        QCOMPARE(bar->property("currentIndex").toInt(), 0);
        QVERIFY(stage.item("tab0")->property("checked").toBool());
    }

    void aRemovableTabAsksToBeRemoved()
    {
        Stage stage;
        auto *bar = show(stage, "", "removable: index > 0");
        stage.settle();
        auto buttons = stage.items([](QQuickItem *item) { return item->objectName() == "removeTabButton"; });
        QCOMPARE(buttons.size(), std::size_t(2));

        stage.click(buttons.at(1));
        QCOMPARE(removed(bar), QVariantList{2});
        QCOMPARE(bar->property("currentIndex").toInt(), 0); // asking is not choosing
        QCOMPARE(bar->property("count").toInt(), 3); // who owns the tabs decides
        stage.item("tab1")->forceActiveFocus(Qt::TabFocusReason);
        stage.key(Qt::Key_Delete);

        QCOMPARE(removed(bar), (QVariantList{2, 1}));
    }

    void anotherTabIsNotRemovedByAKey()
    {
        Stage stage;
        auto *bar = show(stage, "");
        stage.settle();

        stage.item("tab1")->forceActiveFocus(Qt::TabFocusReason);
        stage.key(Qt::Key_Delete);

        QVERIFY(removed(bar).isEmpty());
        QVERIFY(!stage.has("removeTabButton"));
    }

    void namesArePlainText()
    {
        Stage stage;
        stage.show("TabBar { width: 600; TabButton { objectName: 'tab'; text: '<b>&Зал</b>' } }");
        stage.settle();

        QCOMPARE(stage.text("tabText"), QString("<b>&Зал</b>"));
        QCOMPARE(stage.item("tabText")->property("textFormat").toInt(), int(Qt::PlainText));
    }

    void aTabIsHitByAFinger()
    {
        Stage stage;
        auto *bar = show(stage, "", "removable: true");
        stage.settle();

        QVERIFY(stage.item("tab0")->height() >= 48);
        QVERIFY(stage.item("removeTabButton")->width() >= 48);
        QVERIFY(bar->height() >= 48);
    }
};

ONDIRA_TEST(MaterialTabBarTest)
#include "MaterialTabBarTest.moc"
