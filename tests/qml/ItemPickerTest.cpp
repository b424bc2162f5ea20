// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

class ItemPickerTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage, const QByteArray &properties)
    {
        stage.show("Item { anchors.fill: parent\n ListModel { id: rooms; objectName: \"rooms\"\n"
                   "ListElement { uid: \"z1\"; name: \"Склад\"; part: \"p1\"; place: 2 }\n"
                   "ListElement { uid: \"z2\"; name: \"Зал\"; part: \"p1\"; place: 3 }\n"
                   "ListElement { uid: \"z3\"; name: \"Касса\"; part: \"p2\"; place: 1 } }\n"
                   "ListModel { id: nothing }\n"
                   "function run(code) { return eval(code) }\n"
                   "ItemPicker { id: picker; objectName: \"picker\"; width: 240; source: rooms; "
                   + properties + "} }");
        return stage.item("picker");
    }

    static void run(QQuickItem *picker, const QString &code)
    {
        QMetaObject::invokeMethod(picker->parentItem(), "run", Q_ARG(QVariant, code));
    }

    static QVariant id(QQuickItem *picker) { return picker->property("selectedItem"); }

    static QString text(QQuickItem *picker) { return picker->property("selectedText").toString(); }

    static QStringList names(QQuickItem *picker)
    {
        auto *model = picker->property("filterModel").value<QAbstractItemModel *>();
        QStringList found;
        for (int row = 0; row < model->rowCount(); ++row)
            found << model->index(row, 0).data(model->roleNames().key("name")).toString();
        return found;
    }

private slots:

    void nothingIsSelectedAtFirst()
    {
        Stage stage;
        auto *picker = show(stage, "");

        QCOMPARE(picker->property("canSelectNothing").toBool(), true);
        QCOMPARE(picker->property("count").toInt(), 3);
        QCOMPARE(picker->property("selectedIndex").toInt(), -1);
        QVERIFY(id(picker).isNull());
        QCOMPARE(text(picker), QString());
    }

    void theInitialItemIsSelected()
    {
        Stage stage;
        auto *picker = show(stage, "initialItem: \"z2\"");

        QCOMPARE(text(picker), QString("Зал"));
        QCOMPARE(id(picker).toString(), QString("z2"));
        picker->setProperty("initialItem", "z3");
        QCOMPARE(text(picker), QString("Касса"));
        picker->setProperty("initialItem", "gone");
        QVERIFY(id(picker).isNull());
        picker->setProperty("initialItem", QVariant());
        QVERIFY(id(picker).isNull());
    }

    void theFirstIsSelectedWhereSomethingMustBe()
    {
        Stage stage;
        auto *picker = show(stage, "canSelectNothing: false; sortRole: \"place\"; initialItem: \"gone\"");

        QCOMPARE(id(picker).toString(), QString("z3"));
        picker->forceActiveFocus();
        stage.key(Qt::Key_Delete);
        QCOMPARE(id(picker).toString(), QString("z3"));
        QVERIFY(!stage.has("clearMenuButton"));
        run(picker, "rooms.clear()");
        QVERIFY(id(picker).isNull());
    }

    void sortsAndFilters()
    {
        Stage stage;
        auto *picker = show(stage, "sortRole: \"place\"; initialItem: \"z2\"");
        QCOMPARE(names(picker), (QStringList{"Касса", "Склад", "Зал"}));

        picker->setProperty("filterRole", "part");
        QCOMPARE(picker->property("count").toInt(), 3); // there is no value yet
        picker->setProperty("filter", "p1");
        QCOMPARE(names(picker), (QStringList{"Склад", "Зал"}));
        QCOMPARE(id(picker).toString(), QString("z2"));
        picker->setProperty("filter", "p2");
        QCOMPARE(names(picker), QStringList{"Касса"});
        QVERIFY(id(picker).isNull());
        picker->setProperty("filter", "p1"); // it is there again
        QCOMPARE(id(picker).toString(), QString("z2"));
        picker->setProperty("sortRole", "name");
        QCOMPARE(names(picker), (QStringList{"Зал", "Склад"}));
        QCOMPARE(text(picker), QString("Зал"));
    }

    void theSelectionOutlivesARebuild()
    {
        Stage stage;
        auto *picker = show(stage, "initialItem: \"z2\"; sortRole: \"name\"");

        run(picker, "rooms.clear()");
        QVERIFY(id(picker).isNull());
        run(picker, "rooms.append({ uid: \"z9\", name: \"Архив\", part: \"p1\", place: 1 })");
        QVERIFY(id(picker).isNull());
        run(picker, "rooms.append({ uid: \"z2\", name: \"Большой зал\", part: \"p1\", place: 1 })");
        QCOMPARE(id(picker).toString(), QString("z2"));
        QCOMPARE(text(picker), QString("Большой зал"));
        run(picker, "rooms.setProperty(1, \"name\", \"А зал\")");
        QCOMPARE(text(picker), QString("А зал"));
        run(picker, "picker.source = nothing");
        QCOMPARE(picker->property("count").toInt(), 0);
        run(picker, "picker.source = rooms");
        QCOMPARE(id(picker).toString(), QString("z2"));
        run(picker, "picker.source = null");
        QVERIFY(id(picker).isNull());
    }

    void whatTheUserChoseIsHeld()
    {
        Stage stage;
        auto *picker = show(stage, "initialItem: \"z1\"; sortRole: \"place\"");
        stage.click(picker);
        QTRY_VERIFY(picker->property("popup").value<QObject *>()->property("opened").toBool());

        stage.click("menuRow2");
        QTRY_COMPARE(id(picker).toString(), QString("z2"));
        run(picker, "rooms.insert(0, { uid: \"z0\", name: \"Вход\", part: \"p1\", place: 0 })");

        QCOMPARE(id(picker).toString(), QString("z2"));
        QCOMPARE(picker->property("selectedIndex").toInt(), 3);
    }

    void nothingMayBeChosen()
    {
        Stage stage;
        auto *picker = show(stage, "initialItem: \"z1\"");

        stage.click("clearMenuButton");
        QVERIFY(id(picker).isNull());
        QVERIFY(!stage.has("clearMenuButton"));
        run(picker, "rooms.move(0, 2, 1)");
        QVERIFY(id(picker).isNull());
        picker->setProperty("initialItem", "z3");
        picker->forceActiveFocus();
        stage.key(Qt::Key_Delete);

        QVERIFY(id(picker).isNull());
    }

    void anotherRoleIsTheId()
    {
        Stage stage;
        auto *picker = show(stage, "idRole: \"place\"; initialItem: 1; textRole: \"part\"");

        QCOMPARE(text(picker), QString("p2"));
        QCOMPARE(id(picker).toInt(), 1);
        picker->setProperty("idRole", "absent");
        QVERIFY(id(picker).isNull());
    }

    void aLongListIsSearched()
    {
        Stage stage;
        auto *picker = show(stage, "");
        QCOMPARE(picker->property("isSearchable").toBool(), false);

        run(picker,
            "for (var i = 0; i < 20; ++i) rooms.append({ uid: \"y\" + i, name: \"Ряд \" + i, part: \"\","
            " place: 9 })");

        QCOMPARE(picker->property("isSearchable").toBool(), true);
    }
};

ONDIRA_TEST(ItemPickerTest)
#include "ItemPickerTest.moc"
