// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QAccessible>
#include <QQmlEngine>
#include <QQmlProperty>
#include <QStandardItemModel>
#include <QStringListModel>

class MenuFieldTest : public TestBase
{
    Q_OBJECT

private:
    enum { NameRole = Qt::UserRole + 1, IdRole };

    static QQuickItem *show(Stage &stage, const QByteArray &properties, const QByteArray &type = "MenuField",
                            const QByteArray &more = {})
    {
        stage.show("Item { anchors.fill: parent; property var told: []; property int escapes: 0\n"
                   "Keys.onEscapePressed: ++escapes\n"
                   + type
                   + " { objectName: \"menu\"; x: 20; y: 20; width: 240;"
                     " onItemSelected: parent.told = parent.told.concat([index]); "
                   + properties + "}\nTextField { objectName: \"next\"; x: 300; width: 100 }\n" + more + " }");
        return stage.item("menu");
    }

    static QVariantList told(QQuickItem *menu) { return menu->parentItem()->property("told").toList(); }

    static QString selected(QQuickItem *menu) { return menu->property("selectedText").toString(); }

    static int index(QQuickItem *menu) { return menu->property("selectedIndex").toInt(); }

    static QObject *popup(QQuickItem *menu) { return menu->property("popup").value<QObject *>(); }

    static QQuickItem *list(QQuickItem *menu) { return menu->property("list").value<QQuickItem *>(); }

    static void open(Stage &stage, QQuickItem *menu)
    {
        stage.click(menu);
        QTRY_VERIFY(popup(menu)->property("opened").toBool());
    }

    static QRectF place(QQuickItem *item) { return item->mapRectToScene(QRectF(0, 0, item->width(), item->height())); }

    static QRectF popupPlace(QQuickItem *menu)
    {
        return place(popup(menu)->property("contentItem").value<QQuickItem *>()->parentItem());
    }

    static QVariant get(QQuickItem *menu, int row)
    {
        QVariant value;
        QMetaObject::invokeMethod(menu, "get", Q_RETURN_ARG(QVariant, value), Q_ARG(QVariant, row));
        return value;
    }

    static bool select(QQuickItem *menu, const QString &role, const QVariant &value)
    {
        QVariant found;
        QMetaObject::invokeMethod(menu, "select", Q_RETURN_ARG(QVariant, found), Q_ARG(QVariant, role),
                                  Q_ARG(QVariant, value));
        return found.toBool();
    }

    static QVariantMap mapOf(const QVariant &value)
    {
        return value.userType() == qMetaTypeId<QJSValue>() ? value.value<QJSValue>().toVariant().toMap()
                                                           : value.toMap();
    }

    static void fill(QStandardItemModel &model, const QStringList &names)
    {
        model.setItemRoleNames({{NameRole, "name"}, {IdRole, "id"}});
        for (int i = 0; i < names.size(); ++i) {
            auto *item = new QStandardItem;
            item->setData(names.at(i), NameRole);
            item->setData(i + 1, IdRole);
            model.appendRow(item);
        }
    }

    static void give(QQuickItem *menu, QAbstractItemModel &model)
    {
        QQmlEngine::setObjectOwnership(&model, QQmlEngine::CppOwnership);
        menu->setProperty("model", QVariant::fromValue<QObject *>(&model));
    }

private slots:

    void defaults()
    {
        Stage stage;
        auto *menu = show(stage, "");

        QCOMPARE(index(menu), 0);
        QCOMPARE(selected(menu), QString());
        QCOMPARE(menu->property("maxVisibleItems").toInt(), 4);
        QCOMPARE(menu->property("floatingLabel").toBool(), true);
        QCOMPARE(menu->property("hasError").toBool(), false);
        for (const auto *name : {"textRole", "iconNameRole", "iconSourceRole", "label", "helperText", "errorText"})
            QCOMPARE(menu->property(name).toString(), QString());
        QVERIFY(menu->height() >= 48);
    }

    void readsAnyKindOfModel_data()
    {
        QTest::addColumn<QByteArray>("properties");
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("text");

        QTest::newRow("values") << QByteArray("model: [\"один\", \"два\"]; selectedIndex: 1") << 2 << "два";
        QTest::newRow("numbers") << QByteArray("model: [5, 0, 7]; selectedIndex: 1") << 3 << "0";
        QTest::newRow("holes") << QByteArray("model: [null, undefined, \"\"]; selectedIndex: 1") << 3 << "";
        QTest::newRow("count") << QByteArray("model: 3; selectedIndex: 2") << 3 << "2";
        QTest::newRow("objects") << QByteArray("model: [{ n: \"а\" }, { n: \"б\" }]; textRole: \"n\"; selectedIndex: 1")
                                 << 2 << "б";
        QTest::newRow("objects without the role")
            << QByteArray("model: [{ n: \"а\" }]; textRole: \"title\"") << 1 << "";
        QTest::newRow("list model") << QByteArray("model: ListModel { ListElement { n: \"а\"; k: 1 }"
                                                  " ListElement { n: \"б\"; k: 2 } } textRole: \"n\"; selectedIndex: 1")
                                    << 2 << "б";
        QTest::newRow("list model of one role")
            << QByteArray("model: ListModel { ListElement { n: \"а\" } } textRole: \"n\"") << 1 << "а";
        QTest::newRow("absent role") << QByteArray("model: ListModel { ListElement { n: \"а\" } } textRole: \"title\"")
                                     << 1 << "";
        QTest::newRow("empty") << QByteArray("model: []") << 0 << "";
        QTest::newRow("null") << QByteArray("model: null") << 0 << "";
        QTest::newRow("undefined") << QByteArray("model: undefined") << 0 << "";
        QTest::newRow("a text") << QByteArray("model: \"abc\"") << 0 << "";
        QTest::newRow("an object") << QByteArray("model: ({ a: 1 })") << 0 << "";
        QTest::newRow("negative count") << QByteArray("model: -3") << 0 << "";
        QTest::newRow("past the end") << QByteArray("model: [\"a\"]; selectedIndex: 5") << 1 << "";
        QTest::newRow("none") << QByteArray("model: [\"a\"]; selectedIndex: -1") << 1 << "";
        QTest::newRow("far below") << QByteArray("model: [\"a\"]; selectedIndex: -1000") << 1 << "";
    }

    void readsAnyKindOfModel()
    {
        QFETCH(QByteArray, properties);
        QFETCH(int, count);
        Stage stage;
        auto *menu = show(stage, properties);

        QCOMPARE(menu->property("count").toInt(), count);
        QTEST(selected(menu), "text");
        open(stage, menu);
        QCOMPARE(list(menu)->property("count").toInt(), count);
        QCOMPARE(stage.has("menuEmptyLabel"), count == 0);
        for (auto key : {Qt::Key_Down, Qt::Key_End, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_Return})
            stage.key(key);
        QTRY_VERIFY(count == 0 || !popup(menu)->property("visible").toBool());
        QCOMPARE(popup(menu)->property("visible").toBool(), count == 0);
    }

    void readsAnItemModel()
    {
        Stage stage;
        QStandardItemModel model;
        fill(model, {"Зал", "Склад", "Касса"});
        auto *menu = show(stage, "textRole: \"name\"");

        give(menu, model);
        QCOMPARE(selected(menu), QString("Зал"));
        menu->setProperty("selectedIndex", 2);
        QCOMPARE(selected(menu), QString("Касса"));
        QCOMPARE(mapOf(get(menu, 1)).value("name").toString(), QString("Склад"));
        QCOMPARE(mapOf(get(menu, 1)).value("id").toInt(), 2);
        QVERIFY(!get(menu, 3).isValid());
        QVERIFY(!get(menu, -1).isValid());
        QVERIFY(select(menu, "id", 2));
        QCOMPARE(selected(menu), QString("Склад"));

        QStringListModel plain({"а", "б"});
        menu->setProperty("textRole", "display");
        give(menu, plain);
        QCOMPARE(selected(menu), QString("б"));
        menu->setProperty("textRole", "");
        QCOMPARE(selected(menu), QString("б"));
        menu->setProperty("model", QVariant());
    }

    void theSelectionStaysWithItsRow()
    {
        Stage stage;
        QStandardItemModel model;
        fill(model, {"Зал", "Склад", "Касса"});
        auto *menu = show(stage, "textRole: \"name\"");
        give(menu, model);
        menu->setProperty("selectedIndex", 1);

        auto *first = new QStandardItem;
        first->setData("Вход", NameRole);
        model.insertRow(0, first);
        QCOMPARE(index(menu), 2);
        QCOMPARE(selected(menu), QString("Склад"));
        model.removeRow(0);
        QCOMPARE(index(menu), 1);
        model.setData(model.index(1, 0), "Архив", NameRole);
        QCOMPARE(selected(menu), QString("Архив"));
        model.setSortRole(NameRole);
        model.sort(0);
        QCOMPARE(index(menu), 0);
        QCOMPARE(selected(menu), QString("Архив"));
        model.removeRow(2);
        QCOMPARE(index(menu), 0);
        model.removeRow(0);
        QCOMPARE(index(menu), -1);
        QCOMPARE(selected(menu), QString());
        QVERIFY(told(menu).isEmpty());
        menu->setProperty("model", QVariant());
    }

    void aListThatIsFilledAnewKeepsTheIndex()
    {
        Stage stage;
        QStandardItemModel model;
        fill(model, {"Зал", "Склад"});
        auto *menu = show(stage, "textRole: \"name\"; selectedIndex: 1");
        give(menu, model);

        model.removeRows(0, 2);
        QCOMPARE(selected(menu), QString());
        fill(model, {"а", "б", "в"});
        QCOMPARE(selected(menu), QString("б"));
        model.clear();
        QCOMPARE(selected(menu), QString());
        fill(model, {"г", "д"});
        QCOMPARE(selected(menu), QString("д"));
        menu->setProperty("model", QVariantList{"x", "y"});
        QCOMPARE(index(menu), 1);
        menu->setProperty("textRole", "");
        QCOMPARE(selected(menu), QString("y"));
        menu->setProperty("model", QVariantList{"x"});
        QCOMPARE(selected(menu), QString());
    }

    void aModelThatDiesLeavesNothing()
    {
        Stage stage;
        auto model = std::make_unique<QStandardItemModel>();
        fill(*model, {"Зал"});
        auto *menu = show(stage, "textRole: \"name\"");
        give(menu, *model);
        QCOMPARE(selected(menu), QString("Зал"));

        model.reset();

        QTRY_COMPARE(selected(menu), QString());
        open(stage, menu);
        QVERIFY(stage.has("menuEmptyLabel"));
    }

    void selectsByValue()
    {
        Stage stage;
        auto *menu =
            show(stage, "model: [{ id: 1, n: \"а\" }, { id: 2, n: \"б\" }, { n: \"в\" }, null]; textRole: \"n\"");

        QVERIFY(select(menu, "id", 2));
        QCOMPARE(selected(menu), QString("б"));
        QVERIFY(!select(menu, "id", 3));
        QCOMPARE(index(menu), -1);
        QCOMPARE(selected(menu), QString());
        QVERIFY(!select(menu, "id", "2"));
        QVERIFY(select(menu, "n", "в"));
        QCOMPARE(index(menu), 2);
        QVERIFY(!select(menu, "nothing", 1));
        QVERIFY(told(menu).isEmpty());

        menu->setProperty("model", QVariantList{"x", "y"});
        QVERIFY(select(menu, "", "y"));
        QCOMPARE(index(menu), 1);
    }

    void aClickChoosesAndTells()
    {
        Stage stage;
        auto *menu = show(stage, "model: [\"а\", \"б\", \"в\"]");

        open(stage, menu);
        QCOMPARE(stage.focusName(), QString("menu"));
        stage.click("menuRow2");

        QTRY_VERIFY(!popup(menu)->property("visible").toBool());
        QCOMPARE(selected(menu), QString("в"));
        QCOMPARE(told(menu), QVariantList{2});
        open(stage, menu);
        stage.click("menuRow2"); // again the same is no choice
        QTRY_VERIFY(!popup(menu)->property("visible").toBool());
        QCOMPARE(told(menu), QVariantList{2});
    }

    void aClickOnTheFieldOrOutsideCloses()
    {
        Stage stage;
        auto *menu = show(stage, "model: [\"а\", \"б\"]");

        open(stage, menu);
        stage.clickAt(stage.middleOf(menu));
        QTRY_VERIFY(!popup(menu)->property("visible").toBool());
        open(stage, menu);
        stage.clickAt({700, 500});
        QTRY_VERIFY(!popup(menu)->property("visible").toBool());

        QVERIFY(told(menu).isEmpty());
    }

    void aDragScrollsAndChoosesNothing()
    {
        Stage stage;
        auto *menu = show(stage, "model: 50");
        open(stage, menu);
        const auto middle = stage.middleOf(list(menu));

        stage.drag(middle + QPoint(0, 60), middle - QPoint(0, 60));

        QVERIFY(popup(menu)->property("visible").toBool());
        QVERIFY(told(menu).isEmpty());
    }

    void hasAtMostSoManyRowsAndScrolls()
    {
        Stage stage;
        auto *menu = show(stage, "model: 50; selectedIndex: 30");

        open(stage, menu);
        QCOMPARE(list(menu)->height(), 4 * 48.0);
        QTRY_VERIFY(stage.has("menuRow30")); // in sight
        QVERIFY(popupPlace(menu).contains(place(stage.item("menuRow30"))));
        stage.key(Qt::Key_Escape);
        QTRY_VERIFY(!popup(menu)->property("visible").toBool());
        menu->setProperty("maxVisibleItems", 6);
        open(stage, menu);
        QCOMPARE(list(menu)->height(), 6 * 48.0);
        menu->setProperty("model", 2);
        QTRY_COMPARE(list(menu)->height(), 2 * 48.0);
    }

    void opensWhereThereIsRoom_data()
    {
        QTest::addColumn<int>("y");
        QTest::addColumn<bool>("isBelow");

        QTest::newRow("top") << 20 << true;
        QTest::newRow("middle") << 300 << true;
        QTest::newRow("bottom") << 740 << false;
    }

    void opensWhereThereIsRoom()
    {
        QFETCH(int, y);
        QFETCH(bool, isBelow);
        Stage stage;
        auto *menu = show(stage, "model: 10");
        menu->setY(y);

        open(stage, menu);

        const auto field = place(menu);
        QTRY_VERIFY(isBelow ? popupPlace(menu).top() >= field.bottom() - 1
                            : popupPlace(menu).bottom() <= field.top() + 1);
        QVERIFY(QRectF(0, 0, 1280, 800).contains(popupPlace(menu)));
    }

    void fitsALowWindow()
    {
        Stage stage;
        auto *menu = show(stage, "model: 30; maxVisibleItems: 20");
        stage.resize({360, 320});

        open(stage, menu);

        QTRY_VERIFY(QRectF(0, 0, 360, 320).contains(popupPlace(menu)));
        for (int i = 0; i < 25; ++i)
            stage.key(Qt::Key_Down);
        QTRY_VERIFY(stage.has("menuRow25"));
        QVERIFY(popupPlace(menu).contains(place(stage.item("menuRow25"))));
    }

    void isDrivenByKeys()
    {
        Stage stage;
        auto *menu = show(stage, "model: 20; selectedIndex: 3");
        menu->forceActiveFocus();
        QCOMPARE(stage.focusName(), QString("menu"));

        stage.key(Qt::Key_Down);
        QCOMPARE(index(menu), 4); // closed, the arrows choose
        stage.key(Qt::Key_Up);
        stage.key(Qt::Key_Home);
        QCOMPARE(index(menu), 0);
        stage.key(Qt::Key_Up);
        QCOMPARE(index(menu), 0);
        stage.key(Qt::Key_End);
        QCOMPARE(index(menu), 19);
        QCOMPARE(told(menu), (QVariantList{4, 3, 0, 19}));

        stage.key(Qt::Key_Space);
        QTRY_VERIFY(popup(menu)->property("opened").toBool());
        QCOMPARE(list(menu)->property("currentIndex").toInt(), 19);
        stage.key(Qt::Key_Home);
        stage.key(Qt::Key_Down);
        QCOMPARE(index(menu), 19); // open, only Return does
        stage.key(Qt::Key_PageDown);
        QCOMPARE(list(menu)->property("currentIndex").toInt(), 5);
        stage.key(Qt::Key_Return);
        QTRY_VERIFY(!popup(menu)->property("visible").toBool());
        QCOMPARE(index(menu), 5);
        QCOMPARE(told(menu).size(), 5);

        stage.key(Qt::Key_Return);
        QTRY_VERIFY(popup(menu)->property("opened").toBool());
        stage.key(Qt::Key_End);
        QVERIFY(stage.has("menuRow19"));
        stage.key(Qt::Key_Escape);
        QTRY_VERIFY(!popup(menu)->property("visible").toBool());
        QCOMPARE(index(menu), 5);
        stage.key(Qt::Key_Escape); // now it is for others
        QCOMPARE(menu->parentItem()->property("escapes").toInt(), 1);
    }

    void tabGoesOnAndCloses()
    {
        Stage stage;
        auto *menu = show(stage, "model: 3");
        open(stage, menu);

        stage.key(Qt::Key_Tab);

        QTRY_VERIFY(!popup(menu)->property("visible").toBool());
        QCOMPARE(stage.focusName(), QString("next"));
    }

    void lettersFindARow()
    {
        Stage stage;
        auto *menu = show(stage, "model: [\"Зал\", \"Касса\", \"Кафе\", \"Склад\", \"Зал 2\"]");
        menu->forceActiveFocus();

        stage.type("к");
        QCOMPARE(selected(menu), QString("Касса"));
        stage.type("аф");
        QCOMPARE(selected(menu), QString("Кафе"));
        stage.type("щ"); // there is none
        QCOMPARE(selected(menu), QString("Кафе"));
        open(stage, menu);
        stage.object("menu")->findChild<QObject *>("menuTypedTimer")->setProperty("text", "");
        stage.type("З");
        QCOMPARE(list(menu)->property("currentIndex").toInt(), 4);
        stage.type("з");
        QCOMPARE(list(menu)->property("currentIndex").toInt(), 0);
        stage.type("ал 2");
        QCOMPARE(selected(menu), QString("Кафе")); // not before Return
        stage.key(Qt::Key_Return);

        QVERIFY(index(menu) != 2);
    }

    void escapeInADialogClosesTheListAlone()
    {
        Stage stage;
        stage.show("Item { QC2.Popup { objectName: \"dialog\"; parent: QC2.Overlay.overlay; modal: true; focus: true;"
                   " visible: true; width: 400; height: 300; MenuField { objectName: \"menu\"; width: 200; focus: true;"
                   " model: 5 } } }");
        auto *dialog = stage.object("dialog");
        QTRY_VERIFY(dialog->property("opened").toBool());
        auto *menu = stage.item("menu");
        open(stage, menu);
        stage.key(Qt::Key_Down);

        stage.key(Qt::Key_Escape);
        QTRY_VERIFY(!popup(menu)->property("visible").toBool());
        QVERIFY(dialog->property("opened").toBool());
        open(stage, menu);
        stage.click("menuRow3");
        QTRY_COMPARE(index(menu), 3);
        QTRY_VERIFY(!popup(menu)->property("visible").toBool());
        stage.key(Qt::Key_Escape);

        QTRY_VERIFY(!dialog->property("visible").toBool());
    }

    void aDisabledFieldDoesNotOpen()
    {
        Stage stage;
        auto *menu = show(stage, "model: 3");
        open(stage, menu);
        menu->setEnabled(false);
        QTRY_VERIFY(!popup(menu)->property("visible").toBool());
        QCOMPARE(menu->opacity(), 0.5);

        stage.click(menu);

        QVERIFY(!popup(menu)->property("visible").toBool());
    }

    void theLabelFloatsOverAText()
    {
        Stage stage;
        auto *menu = show(stage,
                          "label: \"Зона\"; model: [\"а\"]; selectedIndex: -1; helperText: \"помощь\";"
                          " errorText: \"ошибка\"");
        QCOMPARE(menu->property("isLabelFloating").toBool(), false);

        menu->setProperty("selectedIndex", 0);
        QCOMPARE(menu->property("isLabelFloating").toBool(), true);
        QCOMPARE(menu->property("shownText").toString(), QString("помощь"));
        menu->setProperty("hasError", true);

        QCOMPARE(menu->property("shownText").toString(), QString("ошибка"));
    }

    void showsIcons()
    {
        Stage stage;
        const QByteArray picture = "qrc:/qt-project.org/imports/QtQuick/Controls.2/Material/images/check.png";
        auto *menu = show(stage,
                          "model: [{ n: \"а\", i: \"action/home\" }, { n: \"б\", s: \"" + picture
                              + "\" }]; textRole: \"n\"; iconNameRole: \"i\"; iconSourceRole: \"s\"");

        QCOMPARE(menu->property("selectedIcon").toString(), QString("action/home"));
        menu->setProperty("selectedIndex", 1);
        QCOMPARE(menu->property("selectedIcon").toString(), QString(picture));
        open(stage, menu);
        QCOMPARE(stage.item("menuRow0")->property("iconName").toString(), QString("action/home"));
        QCOMPARE(stage.item("menuRow1")->property("iconSource").toString(), QString(picture));
    }

    void rowsMayBeDrawnByAnother()
    {
        Stage stage;
        auto *menu = show(stage,
                          "model: [\"а\", \"б\"]; delegate: Component { Rectangle { objectName: \"own\" + index;"
                          " width: 240; height: 48; property string text: modelData; enabled: index !== 1 } }");

        open(stage, menu);
        QCOMPARE(stage.text("own1"), QString("б"));
        stage.click("own1"); // disabled
        QVERIFY(popup(menu)->property("visible").toBool());
        menu->setProperty("selectedIndex", 1);
        stage.click("own0");

        QTRY_VERIFY(!popup(menu)->property("visible").toBool());
        QCOMPARE(told(menu), QVariantList{0});
    }

    void rowsOfAModelAreLive()
    {
        Stage stage;
        QStandardItemModel model;
        fill(model, {"Зал", "Склад"});
        auto *menu = show(stage, "textRole: \"name\"");
        give(menu, model);
        open(stage, menu);
        QCOMPARE(stage.text("menuRow1"), QString("Склад"));

        model.setData(model.index(1, 0), "Архив", NameRole);
        QTRY_COMPARE(stage.text("menuRow1"), QString("Архив"));
        model.removeRow(0);
        QTRY_COMPARE(stage.text("menuRow0"), QString("Архив"));
        model.clear();
        QTRY_VERIFY(stage.has("menuEmptyLabel"));
        menu->setProperty("model", QVariant());
    }

    void isAComboBoxToAssistants()
    {
        Stage stage;
        auto *menu = show(stage, "label: \"Зона\"; model: [\"Зал\"]");
        menu->forceActiveFocus();

        auto *focused = stage.window()->activeFocusItem();
        const auto told = [&](const char *name) { return QQmlProperty::read(focused, name, qmlContext(focused)); };
        QCOMPARE(told("Accessible.role").toInt(), int(QAccessible::ComboBox));
        QCOMPARE(told("Accessible.name").toString(), QString("Зона"));
        QCOMPARE(told("Accessible.description").toString(), QString("Зал"));
    }

    void theSearchFilters_data()
    {
        QTest::addColumn<bool>("isItemModel");

        QTest::newRow("list") << false;
        QTest::newRow("item model") << true;
    }

    void theSearchFilters()
    {
        QFETCH(bool, isItemModel);
        Stage stage;
        QStandardItemModel model;
        fill(model, {"Зал", "Склад", "Касса 1", "Касса 2", "Кафе"});
        auto *menu = show(stage,
                          "textRole: \"name\"; model: [\"Зал\", \"Склад\", \"Касса 1\", \"Касса 2\", \"Кафе\"]"
                          ".map(name => ({ name: name }))",
                          "MenuFieldWithSearch");
        if (isItemModel)
            give(menu, model);
        open(stage, menu);
        QTRY_COMPARE(stage.focusName(), QString("menuSearchField"));

        stage.type("КАС");
        QCOMPARE(list(menu)->property("count").toInt(), 2);
        QTRY_COMPARE(stage.text("menuRow1"), QString("Касса 2"));
        stage.key(Qt::Key_Down);
        stage.key(Qt::Key_Return);
        QTRY_VERIFY(!popup(menu)->property("visible").toBool());
        QCOMPARE(index(menu), 3);
        QCOMPARE(told(menu), QVariantList{3});

        open(stage, menu); // all again, at the chosen one
        QCOMPARE(stage.text("menuSearchField"), QString());
        QCOMPARE(list(menu)->property("count").toInt(), 5);
        QCOMPARE(list(menu)->property("currentIndex").toInt(), 3);
        stage.type("ф");
        QTRY_COMPARE(stage.text("menuRow0"), QString("Кафе"));
        stage.settle(); // rows find their places
        stage.click("menuRow0");
        QTRY_COMPARE(index(menu), 4);
        QTRY_VERIFY(!popup(menu)->property("visible").toBool());

        open(stage, menu);
        stage.type("нет такого");
        QCOMPARE(list(menu)->property("count").toInt(), 0);
        QTRY_COMPARE(stage.text("menuEmptyLabel"), QString("Ничего не найдено"));
        stage.key(Qt::Key_Return);
        stage.key(Qt::Key_Down);
        QCOMPARE(index(menu), 4);
        stage.key(Qt::Key_Escape); // the search first
        QCOMPARE(list(menu)->property("count").toInt(), 5);
        QVERIFY(popup(menu)->property("visible").toBool());
        stage.key(Qt::Key_Escape);
        QTRY_VERIFY(!popup(menu)->property("visible").toBool());
        menu->setProperty("model", QVariant());
    }

    void theSearchTakesNoPatterns()
    {
        Stage stage;
        auto *menu = show(stage, "model: [\"a.b\", \"axb\", \"(\", \"50%\"]", "MenuFieldWithSearch");
        open(stage, menu);

        for (const auto *text : {"a.b", "(", "%"}) {
            menu->findChild<QObject *>("menuSearchField")->setProperty("text", text);
            QCOMPARE(list(menu)->property("count").toInt(), 1);
        }
    }
};

ONDIRA_TEST(MenuFieldTest)
#include "MenuFieldTest.moc"
