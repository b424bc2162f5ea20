// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QSignalSpy>

// The controls that are a thin composition each: switches, buttons, the menu, the sidebar, the tip, the sliding row.
class SmallControlsTest : public TestBase
{
    Q_OBJECT

private:
    static bool checked(Stage &stage, const char *name) { return stage.item(name)->property("checked").toBool(); }

    static constexpr const char *sidebar =
        "Item { anchors.fill: parent; Item { id: host; objectName: 'host'; width: parent.width; height: parent.height "
        "}\n"
        "OndiraRightSidebar { objectName: 'sidebar'; page: host; Rectangle { objectName: 'inside'; color: 'white'\n"
        "anchors.fill: parent } } }";
    static constexpr const char *menu =
        "QC2.Button { id: caller; objectName: 'caller'; x: 20; y: 20; text: 'Меню'; property string done\n"
        "onClicked: menu.openAt(caller)\n"
        "OndiraMenu { id: menu; objectName: 'menu'\n"
        "QC2.Action { text: 'Удалить'; onTriggered: caller.done = text }\n"
        "QC2.Action { text: 'Копировать схему действия в буфер обмена'; onTriggered: caller.done = text } } }";

private slots:
    void switches_data()
    {
        QTest::addColumn<QByteArray>("type");

        QTest::newRow("switch") << QByteArray("OndiraSwitch");
        QTest::newRow("row") << QByteArray("OndiraSwitchButton");
        QTest::newRow("icon") << QByteArray("CheckableIconButton");
    }

    void switches()
    {
        QFETCH(QByteArray, type);
        Stage stage;
        auto *control = stage.show(type + " { objectName: 'control'; text: 'Авто режим' }");
        QSignalSpy toggled(control, SIGNAL(toggled()));
        QVERIFY(control->height() >= 48 && control->width() >= 48);

        stage.click("control");
        QVERIFY(checked(stage, "control"));
        QCOMPARE(toggled.count(), 1);
        control->forceActiveFocus(Qt::TabFocusReason);
        stage.key(Qt::Key_Space);
        QVERIFY(!checked(stage, "control"));
        stage.key(Qt::Key_Return);
        QVERIFY(checked(stage, "control"));
        stage.key(Qt::Key_Enter);
        QVERIFY(!checked(stage, "control"));
        QCOMPARE(toggled.count(), 4);
        control->setEnabled(false);
        stage.click("control");

        QVERIFY(!checked(stage, "control"));
        QCOMPARE(toggled.count(), 4);
    }

    void aSwitchRowIsHitAnywhere()
    {
        Stage stage;
        stage.show("OndiraSwitchButton { objectName: 'control'; width: 400; text: 'Авто режим'\n"
                   "subText: 'Зоной управляет расписание' }");

        stage.clickAt({10, 10});
        QVERIFY(checked(stage, "control"));
        stage.clickAt({390, 50});

        QVERIFY(!checked(stage, "control"));
        QCOMPARE(stage.text("switchSubText"), QString("Зоной управляет расписание"));
        QCOMPARE(stage.item("control")->height(), 64.0);
    }

    void longTextsWrapRatherThanBeCut_data()
    {
        QTest::addColumn<QByteArray>("type");

        QTest::newRow("switch") << QByteArray("OndiraSwitch");
        QTest::newRow("row") << QByteArray("OndiraSwitchButton");
        QTest::newRow("button") << QByteArray("OndiraButton");
    }

    void longTextsWrapRatherThanBeCut()
    {
        QFETCH(QByteArray, type);
        Stage stage;
        auto *control = stage.show(type
                                   + " { objectName: 'control'; width: 200\n"
                                     "text: 'Скрыть кнопку выхода в основном интерфейсе программы' }");
        stage.settle();

        QVERIFY(control->height() > 48);
        for (auto *text : stage.items([](QQuickItem *item) { return item->inherits("QQuickText"); })) {
            QVERIFY(!text->property("truncated").toBool());
            QVERIFY(text->property("contentHeight").toReal() <= text->height() + 0.5);
        }
    }

    void textsAreNoMarkup()
    {
        Stage stage;
        stage.show("Column { OndiraSwitch { text: '<b>x</b>' }\nOndiraSwitchButton { text: '<b>x</b>' }\n"
                   "OndiraButton { text: '<b>x</b>' } }");
        int found = 0;
        for (auto *text : stage.items([](QQuickItem *item) { return item->inherits("QQuickText"); })) {
            if (text->property("text").toString() == "<b>x</b>") {
                ++found;
                QCOMPARE(text->property("textFormat").toInt(), int(Qt::PlainText));
            }
        }

        QCOMPARE(found, 3);
    }

    void aButtonIsDrivenByMouseAndKeyboard()
    {
        Stage stage;
        auto *button = stage.show("OndiraButton { objectName: 'button'; text: 'Добавить'; property int clicks: 0\n"
                                  "onClicked: ++clicks }");

        stage.click("button");
        stage.key(Qt::Key_Tab);
        button->forceActiveFocus(Qt::TabFocusReason);
        stage.key(Qt::Key_Return);
        stage.key(Qt::Key_Space);
        QCOMPARE(button->property("clicks").toInt(), 3);
        QVERIFY(button->height() >= 48);
        const auto color = stage.item("buttonText")->property("color");
        button->setEnabled(false);
        stage.click("button");

        QCOMPARE(button->property("clicks").toInt(), 3);
        QVERIFY(stage.item("buttonText")->property("color") != color);
    }

    void aButtonWithAnIconIsWiderByIt()
    {
        Stage stage;
        auto *button = stage.show("OndiraButton { text: 'Добавить' }");
        const qreal plain = button->property("implicitWidth").toReal();

        button->setProperty("iconName", "qrc:/images/plan.svg");

        QTRY_COMPARE(button->property("implicitWidth").toReal(), plain + 24 + 8);
    }

    void aCheckedIconIsAccentedAndMayBeAnother()
    {
        Stage stage;
        auto *button =
            stage.show("CheckableIconButton { iconName: 'qrc:/images/plan.svg'\n"
                       "checkedIconName: 'qrc:/images/router.svg'; toolTip: 'Закрепить'\n"
                       "readonly property color shown: icon.color; readonly property url picture: icon.source }");
        const auto color = button->property("shown");
        QCOMPARE(button->property("picture").toUrl(), QUrl("qrc:/images/plan.svg"));

        button->setProperty("checked", true);

        QCOMPARE(button->property("picture").toUrl(), QUrl("qrc:/images/router.svg"));
        QCOMPARE(button->property("shown").value<QColor>(), QColor("#1483dc"));
        QVERIFY(button->property("shown") != color);
    }

    void aMenuFitsItsTextsAndTheWindow()
    {
        Stage stage;
        stage.show(menu, {800, 500});
        stage.click("caller");
        QTRY_VERIFY(stage.object("menu")->property("opened").toBool());

        QVERIFY(stage.object("menu")->property("width").toReal() > 250);
        for (auto *item : stage.items([](QQuickItem *item) { return item->inherits("QQuickMenuItem"); }))
            QVERIFY(item->height() >= 48);
        stage.key(Qt::Key_Escape);
        QTRY_VERIFY(!stage.object("menu")->property("visible").toBool());
        stage.resize({240, 500});
        stage.click("caller");
        QTRY_VERIFY(stage.object("menu")->property("opened").toBool());

        QCOMPARE(stage.object("menu")->property("width").toReal(), 224.0);
        QVERIFY(stage.object("menu")->property("x").toReal() + stage.item("caller")->x() + 224 <= 240);
    }

    void aMenuIsDrivenByMouseAndKeyboard()
    {
        Stage stage;
        stage.show(menu, {800, 500});
        stage.click("caller");
        QTRY_VERIFY(stage.object("menu")->property("opened").toBool());

        stage.key(Qt::Key_Down);
        stage.key(Qt::Key_Down);
        stage.key(Qt::Key_Return);
        QCOMPARE(stage.item("caller")->property("done").toString(),
                 QString("Копировать схему действия в буфер обмена"));
        QTRY_VERIFY(!stage.object("menu")->property("visible").toBool());
        stage.click("caller");
        QTRY_VERIFY(stage.object("menu")->property("opened").toBool());
        stage.settle();
        stage.click(stage.items([](QQuickItem *item) { return item->inherits("QQuickMenuItem"); }).front());

        QCOMPARE(stage.item("caller")->property("done").toString(), QString("Удалить"));
    }

    void aSidebarLeavesAStripOfItsPage_data()
    {
        QTest::addColumn<int>("window");
        QTest::addColumn<qreal>("width");

        QTest::newRow("wide") << 1280 << 320.0;
        QTest::newRow("just enough") << 352 << 320.0;
        QTest::newRow("narrow") << 340 << 308.0;
    }

    void aSidebarLeavesAStripOfItsPage()
    {
        QFETCH(int, window);
        Stage stage;
        stage.show(sidebar, {window, 600});
        QMetaObject::invokeMethod(stage.object("sidebar"), "open");
        QTRY_VERIFY(stage.object("sidebar")->property("opened").toBool());

        QTEST(stage.object("sidebar")->property("width").toReal(), "width");
        QTRY_COMPARE(stage.item("inside")->mapToScene({stage.item("inside")->width(), 0}).x(), qreal(window));
        QCOMPARE(stage.item("inside")->height(), 600.0);
    }

    void aSidebarCloses_data()
    {
        QTest::addColumn<QString>("by");

        for (const auto *by : {"Escape", "a press outside", "its page going"})
            QTest::newRow(by) << by;
    }

    void aSidebarCloses()
    {
        QFETCH(QString, by);
        Stage stage;
        stage.show(sidebar, {800, 600});
        auto *drawer = stage.object("sidebar");
        QMetaObject::invokeMethod(drawer, "open");
        QTRY_VERIFY(drawer->property("opened").toBool());
        stage.clickAt({700, 300}); // inside
        QVERIFY(drawer->property("visible").toBool());

        if (by == "Escape")
            stage.key(Qt::Key_Escape);
        else if (by == "a press outside")
            stage.clickAt({50, 300});
        else
            stage.item("host")->setVisible(false);

        QTRY_VERIFY(!drawer->property("visible").toBool());
    }

    void aTipOpensAndClosesByClick()
    {
        Stage stage;
        stage.show("HelpTipButton { objectName: 'help'; x: 600; tip: 'Адрес <b>сервера</b> без порта' }", {800, 500});
        QVERIFY(!stage.has("helpTipText"));

        stage.click("help");
        QTRY_VERIFY(stage.object("helpTip")->property("opened").toBool());
        QCOMPARE(stage.text("helpTipText"), QString("Адрес <b>сервера</b> без порта"));
        QCOMPARE(stage.item("helpTipText")->property("textFormat").toInt(), int(Qt::PlainText));
        stage.click("help");
        QTRY_VERIFY(!stage.object("helpTip")->property("visible").toBool());
        stage.click("help");
        QTRY_VERIFY(stage.object("helpTip")->property("opened").toBool());
        stage.clickAt({50, 400});

        QTRY_VERIFY(!stage.object("helpTip")->property("visible").toBool());
    }

    void aTipOpensAndClosesByKeyboard_data()
    {
        QTest::addColumn<int>("key");

        QTest::newRow("Return") << int(Qt::Key_Return);
        QTest::newRow("Enter") << int(Qt::Key_Enter);
        QTest::newRow("Space") << int(Qt::Key_Space);
    }

    void aTipOpensAndClosesByKeyboard()
    {
        QFETCH(int, key);
        Stage stage;
        stage.show("HelpTipButton { objectName: 'help'; tip: 'Без порта' }", {800, 500});
        stage.key(Qt::Key_Tab);
        QCOMPARE(stage.focusName(), QString("help"));

        stage.key(Qt::Key(key));
        QTRY_VERIFY(stage.object("helpTip")->property("opened").toBool());
        stage.key(Qt::Key(key));
        QTRY_VERIFY(!stage.object("helpTip")->property("visible").toBool());
        stage.key(Qt::Key(key));
        QTRY_VERIFY(stage.object("helpTip")->property("opened").toBool());
        stage.key(Qt::Key_Escape);

        QTRY_VERIFY(!stage.object("helpTip")->property("visible").toBool());
        QCOMPARE(stage.focusName(), QString("help"));
    }

    void aLongTipStaysInTheWindow()
    {
        Stage stage;
        stage.show("HelpTipButton { objectName: 'help'; x: 0; tip: '" + QByteArray("Длинная подсказка. ").repeated(12)
                       + "' }",
                   {300, 500});

        stage.click("help");
        QTRY_VERIFY(stage.object("helpTip")->property("opened").toBool());
        stage.settle();

        auto *label = stage.item("helpTipText");
        QVERIFY(label->mapToScene({0, 0}).x() >= 0);
        QVERIFY(label->mapToScene({label->width(), 0}).x() <= 300);
        QVERIFY(label->property("contentHeight").toReal() <= label->height() + 0.5);
        QVERIFY(label->property("lineCount").toInt() > 3);
    }

    void withoutATipThereIsNothingToAsk()
    {
        Stage stage;
        auto *button = stage.show("HelpTipButton { objectName: 'help' }");

        QVERIFY(!button->isEnabled());
        button->setProperty("tip", "Без порта");

        QVERIFY(button->isEnabled());
    }

    void aRowSlidesToItsNewPlace()
    {
        Stage stage;
        auto *row = stage.show("IndexTransitionDelegate { y: position * 50; width: 200; height: 50; position: 4\n"
                               "Rectangle { objectName: 'content'; anchors.fill: parent } }");
        auto *content = stage.item("content");
        stage.settle();
        QCOMPARE(content->mapToScene({0, 0}).y(), 200.0); // at first it is simply there
        QVERIFY(!row->property("moving").toBool());

        row->setProperty("position", 1);

        QCOMPARE(row->y(), 50.0);
        QVERIFY(row->property("moving").toBool());
        QVERIFY(content->mapToScene({0, 0}).y() > 150); // still seen near the old place
        QTRY_COMPARE(content->mapToScene({0, 0}).y(), 50.0);
        QVERIFY(!row->property("moving").toBool());
    }

    void aRowThatTurnsBackGoesOnFromWhereItIs()
    {
        Stage stage;
        auto *row = stage.show("IndexTransitionDelegate { y: position * 50; width: 200; height: 50; position: 0\n"
                               "duration: 100; Rectangle { objectName: 'content'; anchors.fill: parent } }");
        auto *content = stage.item("content");

        row->setProperty("position", 2);
        const qreal before = content->mapToScene({0, 0}).y();
        row->setProperty("position", 0);
        QCOMPARE(content->mapToScene({0, 0}).y(), before);

        QTRY_COMPARE(content->mapToScene({0, 0}).y(), 0.0);
    }

    void rowsOfAListSlideWhenTheyChangePlaces()
    {
        Stage stage;
        stage.show("ListView { objectName: 'list'; width: 200; height: 400\n"
                   "model: ListModel { objectName: 'rows'; ListElement { name: 'a' } ListElement { name: 'b' }\n"
                   "ListElement { name: 'c' } }\n"
                   "delegate: IndexTransitionDelegate { width: 200; height: 50; position: index\n"
                   "Rectangle { objectName: model.name; anchors.fill: parent } } }");
        stage.settle();

        QMetaObject::invokeMethod(stage.item("list")->property("model").value<QObject *>(), "move", Q_ARG(int, 0),
                                  Q_ARG(int, 2), Q_ARG(int, 1));

        QTRY_COMPARE(stage.item("a")->mapToScene({0, 0}).y(), 100.0);
        QTRY_COMPARE(stage.item("b")->mapToScene({0, 0}).y(), 0.0);
    }
};

ONDIRA_TEST(SmallControlsTest)
#include "SmallControlsTest.moc"
