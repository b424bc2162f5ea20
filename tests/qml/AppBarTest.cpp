// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QAccessible>
#include <QJSValue>
#include <QQmlComponent>
#include <QQmlEngine>

// The window of pages: its stack, and the bar that shows the title and the actions of the page on top.
class AppBarTest : public TestBase
{
    Q_OBJECT

private:
    // A page with so many actions, "a0", "a1" and so on; each adds its number to the page's list of what was done.
    static QByteArray page(int actions)
    {
        return "Item { width: 400; height: 56; property alias page: page\n"
               "FL.AppBar { objectName: 'bar'; width: parent.width; page: page }\n"
               "FL.Page { id: page; objectName: 'page'; visible: false; title: 'План'; property var done: []\n"
               "property int count: "
            + QByteArray::number(actions)
            + "\nactions: { var list = []; for (var i = 0; i < count; ++i) list.push(maker.createObject(page, "
              "{ number: i, text: 'Действие ' + i, objectName: 'a' + i })); return list }\n"
              "Component { id: maker; FL.Action { property int number; iconName: 'action/done'\n"
              "onTriggered: page.done = page.done.concat([number]) } } } }";
    }

    static int directActions(const Stage &stage)
    {
        return int(stage
                       .items([](QQuickItem *item) {
                           return item->objectName().startsWith('a') && item->objectName().size() == 2;
                       })
                       .size());
    }

    static QVariantList done(const Stage &stage)
    {
        return stage.object("page")->property("done").value<QJSValue>().toVariant().toList();
    }

private slots:
    void theTitleOfThePageIsShown();
    void aBarWithoutAPageIsEmpty();
    void theContentOfThePageStandsInPlaceOfTheTitle();
    void theLeftActionLeadsAway();
    void actionsAreButtons();
    void actionsThatFindNoRoomAreInAMenu();
    void aWiderBarShowsMore();
    void aDisabledActionDoesNothing();
    void aHiddenActionIsNotThere();
    void buttonsAreLargeEnoughForAFinger();
    void buttonsSpeak();
    void theBarIsAsHighAsThePageSays();
    void pagesComeAndGo();
    void theLastPageStays();
};

void AppBarTest::theTitleOfThePageIsShown()
{
    Stage stage;
    stage.show(page(0));
    QCOMPARE(stage.text("appBarTitle"), QString("План"));

    stage.object("page")->setProperty("title", QString(10000, 'x') + "\n<b>");
    stage.settle();

    auto *title = stage.item("appBarTitle");
    QVERIFY(title->property("truncated").toBool());
    QVERIFY(title->mapToScene({title->width(), 0}).x() <= 400);
}

void AppBarTest::aBarWithoutAPageIsEmpty()
{
    Stage stage;
    auto *bar = stage.show("FL.AppBar { objectName: 'bar'; width: 400 }");
    stage.settle();

    QCOMPARE(bar->height(), 56.0);
    QCOMPARE(stage.text("appBarTitle"), QString());
    QVERIFY(!stage.has("leftAction"));
    QVERIFY(!stage.has("overflowButton"));
}

void AppBarTest::theContentOfThePageStandsInPlaceOfTheTitle()
{
    Stage stage;
    stage.show(page(0));
    QQmlEngine *engine = qmlEngine(stage.object("page"));
    QQmlComponent component(engine);
    component.setData("import QtQuick 2.15\nItem { objectName: 'custom'; implicitWidth: 100; implicitHeight: 40 }",
                      QUrl("qrc:/custom.qml"));
    auto *custom = qobject_cast<QQuickItem *>(component.create());
    custom->setParent(stage.object("page"));

    stage.object("page")->setProperty("customContent", QVariant::fromValue(custom));
    stage.settle();
    QVERIFY(stage.has("custom"));
    QVERIFY(!stage.has("appBarTitle"));

    stage.object("page")->setProperty("customContent", QVariant::fromValue<QQuickItem *>(nullptr));
    QTRY_VERIFY(stage.has("appBarTitle"));
}

void AppBarTest::theLeftActionLeadsAway()
{
    Stage stage;
    auto *root = stage.show("Item { property alias action: action; width: 400; height: 56\n"
                            "FL.AppBar { width: 400; page: FL.Page { visible: false; leftAction: action } }\n"
                            "FL.Action { id: action; property int count: 0; text: 'Назад'\n"
                            "iconName: 'navigation/arrow_back'; onTriggered: ++count } }");
    auto *action = root->property("action").value<QObject *>();

    stage.click("leftAction");
    QCOMPARE(action->property("count").toInt(), 1);
    QVERIFY(stage.item("leftAction")->mapToScene({0, 0}).x() < 8);

    action->setProperty("visible", false);
    QVERIFY(!stage.has("leftAction"));
}

void AppBarTest::actionsAreButtons()
{
    Stage stage;
    stage.show(page(2));

    stage.click("a1");
    stage.click("a0");
    stage.item("a0")->forceActiveFocus(Qt::TabFocusReason);
    stage.key(Qt::Key_Return);
    stage.key(Qt::Key_Space);

    QCOMPARE(done(stage), (QVariantList{1, 0, 0, 0}));
    QVERIFY(!stage.has("overflowButton"));
}

void AppBarTest::actionsThatFindNoRoomAreInAMenu()
{
    Stage stage;
    stage.show(page(7)); // half of 400 is room for four
    QCOMPARE(directActions(stage), 3);
    auto *button = stage.item("overflowButton");
    QVERIFY(button);
    QVERIFY(button->mapToScene({button->width(), 0}).x() <= 400);

    stage.click(button);
    QTRY_VERIFY(stage.object("overflowMenu")->property("opened").toBool());
    QCOMPARE(stage.object("overflowMenu")->property("count").toInt(), 4);
    const auto rows = stage.items([](QQuickItem *item) {
        return item->property("text").toString() == "Действие 5" && item->inherits("QQuickMenuItem");
    });
    QCOMPARE(rows.size(), size_t(1));
    QVERIFY(rows.front()->height() >= 48);
    stage.click(rows.front());

    QCOMPARE(done(stage), (QVariantList{5}));
    QTRY_VERIFY(!stage.object("overflowMenu")->property("visible").toBool());
}

void AppBarTest::aWiderBarShowsMore()
{
    Stage stage;
    auto *root = stage.show(page(7));
    QCOMPARE(directActions(stage), 3);

    root->setWidth(800);
    stage.settle();
    QCOMPARE(directActions(stage), 7);
    QVERIFY(!stage.has("overflowButton"));
    root->setWidth(120);
    stage.settle();

    QCOMPARE(directActions(stage), 0);
    QVERIFY(stage.has("overflowButton"));
    QCOMPARE(stage.object("overflowMenu")->property("count").toInt(), 7);
}

void AppBarTest::aDisabledActionDoesNothing()
{
    Stage stage;
    stage.show(page(1));
    auto *action = stage.object("page")->findChild<QObject *>("a0");
    action->setProperty("enabled", false);

    stage.click("a0");

    QVERIFY(done(stage).isEmpty());
    QVERIFY(!stage.item("a0")->isEnabled());
}

void AppBarTest::aHiddenActionIsNotThere()
{
    Stage stage;
    stage.show(page(2));

    stage.object("page")->findChild<QObject *>("a0")->setProperty("visible", false);
    stage.settle();

    QVERIFY(!stage.has("a0"));
    auto *other = stage.item("a1");
    QVERIFY(other->mapToScene({other->width(), 0}).x() >= 390); // without a gap
}

void AppBarTest::buttonsAreLargeEnoughForAFinger()
{
    Stage stage;
    stage.show(page(7));

    for (const char *name : {"a0", "a1", "a2", "overflowButton"}) {
        QCOMPARE(stage.item(name)->width(), 48.0);
        QCOMPARE(stage.item(name)->height(), 48.0);
    }
}

void AppBarTest::buttonsSpeak()
{
    Stage stage;
    stage.show(page(7));

    auto *action = QAccessible::queryAccessibleInterface(stage.item("a0"));
    QCOMPARE(action->role(), QAccessible::Button);
    QCOMPARE(action->text(QAccessible::Name), QString("Действие 0"));
    auto *more = QAccessible::queryAccessibleInterface(stage.item("overflowButton"));
    QCOMPARE(more->text(QAccessible::Name), QString("Ещё"));
}

void AppBarTest::theBarIsAsHighAsThePageSays()
{
    allowMessages("does not support setParent"); // a window within a window
    Stage stage;
    stage.show("Item {}\nproperty var inner: FL.ApplicationWindow { width: 400; height: 300; visible: true\n"
               "Component.onCompleted: pageStack.push(one)\n"
               "Component { id: one; FL.Page { title: 'Один'; appBarHeight: 90 } } }");
    auto *inner = stage.window()->property("inner").value<QObject *>();
    auto *bar = inner->property("appBar").value<QQuickItem *>();

    QTRY_COMPARE(bar->height(), 90.0);
}

void AppBarTest::pagesComeAndGo()
{
    allowMessages("does not support setParent"); // a window within a window
    Stage stage;
    stage.show("Item {}\nproperty var inner: FL.ApplicationWindow { width: 400; height: 300; visible: true\n"
               "function push(name) { pageStack.push(page, { title: name }) }\n"
               "Component { id: page; FL.Page {} } }");
    auto *inner = stage.window()->property("inner").value<QObject *>();
    auto *stack = inner->property("pageStack").value<QQuickItem *>();
    const auto title = [inner] { return inner->findChild<QObject *>("appBarTitle")->property("text").toString(); };

    QMetaObject::invokeMethod(inner, "push", Q_ARG(QVariant, "Один"));
    QMetaObject::invokeMethod(inner, "push", Q_ARG(QVariant, "Два"));
    QTRY_COMPARE(title(), QString("Два"));
    auto *top = stack->property("currentItem").value<QQuickItem *>();
    QVERIFY(top->property("canGoBack").toBool());
    QTRY_VERIFY(!stack->property("busy").toBool());
    QMetaObject::invokeMethod(top, "pop");

    QTRY_COMPARE(title(), QString("Один"));
    QCOMPARE(stack->property("depth").toInt(), 1);
}

void AppBarTest::theLastPageStays()
{
    allowMessages("does not support setParent"); // a window within a window
    Stage stage;
    stage.show("Item {}\nproperty var inner: FL.ApplicationWindow { width: 400; height: 300; visible: true\n"
               "Component.onCompleted: pageStack.push(page)\n"
               "Component { id: page; FL.Page { title: 'Один' } } }");
    auto *stack = stage.window()->property("inner").value<QObject *>()->property("pageStack").value<QQuickItem *>();
    auto *top = stack->property("currentItem").value<QQuickItem *>();

    QVERIFY(!top->property("canGoBack").toBool());
    QMetaObject::invokeMethod(top, "pop");

    QCOMPARE(stack->property("depth").toInt(), 1);
    QCOMPARE(stack->property("currentItem").value<QQuickItem *>(), top);
}

ONDIRA_TEST(AppBarTest)
#include "AppBarTest.moc"
