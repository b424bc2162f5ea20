// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QQmlExpression>

// A list of rows with a name, each with a page that shows the name in a field.
class EditorViewTest : public TestBase
{
    Q_OBJECT

private:
    static constexpr const char *array = "[{ name: 'А' }, { name: 'Б' }, { name: 'В' }]";

    // The model is a binding of QML, and "rows" an item model that the test may ask for.
    static QQuickItem *show(Stage &stage, const QByteArray &model = array, int width = 800,
                            const QByteArray &more = QByteArray())
    {
        return stage.show("EditorView { id: view; objectName: 'view'; width: " + QByteArray::number(width)
                          + "; height: 500\n"
                            "property var rows: ListModel { ListElement { name: 'А'; sort: 1 }\n"
                            "ListElement { name: 'Б'; sort: 2 } ListElement { name: 'В'; sort: 3 } }\n"
                            "property int pagesMade: 0\nproperty int pagesGone: 0\n"
                            "model: "
                          + model
                          + "\nlistDelegate: EditorViewDelegate { objectName: 'row' + index\n"
                            "text: typeof modelData === 'undefined' ? model.name : modelData.name }\n"
                            "delegate: FocusScope { id: content; objectName: 'page'\n"
                            "property string name: typeof modelData === 'undefined' ? model.name : modelData.name\n"
                            "property int row: index\n"
                            "Component.onCompleted: ++view.pagesMade; Component.onDestruction: ++view.pagesGone\n"
                            "QC2.TextField { objectName: 'field'; focus: true; width: 200; text: content.name } }\n"
                          + more + "}");
    }
    static void run(QQuickItem *view, const char *code)
    {
        QQmlExpression expression(qmlContext(view), view, code);
        expression.evaluate();
        QVERIFY2(!expression.hasError(), qPrintable(expression.error().toString()));
    }
    static QQuickItem *page(QQuickItem *view) { return view->property("currentItem").value<QQuickItem *>(); }
    static QString pageName(QQuickItem *view)
    {
        return page(view) ? page(view)->property("name").toString() : QStringLiteral("(none)");
    }
    static int current(QQuickItem *view) { return view->property("currentIndex").toInt(); }
    static QQuickItem *list(QQuickItem *view) { return view->property("list").value<QQuickItem *>(); }

private slots:
    void wideShowsBothWithTheFirstRowSelected()
    {
        Stage stage;
        auto *view = show(stage);

        QTRY_COMPARE(current(view), 0);
        QCOMPARE(pageName(view), QString("А"));
        QVERIFY(!view->property("mobile").toBool());
        QVERIFY(!view->property("canGoBack").toBool());
        QVERIFY(stage.item("row0")->property("highlighted").toBool());
        QVERIFY(!stage.item("row1")->property("highlighted").toBool());
        QCOMPARE(list(view)->width(), 200.0);
        QCOMPARE(list(view)->property("currentIndex").toInt(), 0);
        QVERIFY(!stage.has("editorBackButton"));
        auto *shown = page(view);
        QCOMPARE(shown->mapToScene({0, 0}), QPointF(201, 0));
        QCOMPARE(shown->size(), QSizeF(599, 500));
        QVERIFY(shown->isVisible());
    }

    void theListsWidthIsTold()
    {
        Stage stage;
        auto *view = show(stage, array, 800, "listWidth: 320\n");

        QTRY_COMPARE(list(view)->width(), 320.0);
        QCOMPARE(page(view)->width(), 479.0);
    }

    void aClickShowsThePageOfTheRow()
    {
        Stage stage;
        auto *view = show(stage);
        QTRY_COMPARE(current(view), 0);

        stage.click("row2");

        QCOMPARE(current(view), 2);
        QCOMPARE(pageName(view), QString("В"));
        QVERIFY(stage.item("row2")->property("highlighted").toBool());
        QVERIFY(!stage.item("row0")->property("highlighted").toBool());
        QCOMPARE(list(view)->property("currentIndex").toInt(), 2);
        QTRY_COMPARE(view->property("pagesGone").toInt(), 1); // one page at a time
        QCOMPARE(view->property("pagesMade").toInt(), 2);
        stage.click("row2"); // again: nothing is made anew
        QCOMPARE(view->property("pagesMade").toInt(), 2);
    }

    void narrowBeginsWithTheListAlone()
    {
        Stage stage;
        auto *view = show(stage, array, 499);
        stage.settle();

        QVERIFY(view->property("mobile").toBool());
        QCOMPARE(current(view), -1);
        QVERIFY(!page(view));
        QVERIFY(!view->property("canGoBack").toBool());
        QVERIFY(!stage.has("editorPage"));
        QCOMPARE(list(view)->width(), 499.0);
        for (const auto *row : {"row0", "row1", "row2"})
            QVERIFY(!stage.item(row)->property("highlighted").toBool());
    }

    void fiveHundredIsWide()
    {
        Stage stage;
        auto *view = show(stage, array, 500);

        QVERIFY(!view->property("mobile").toBool());
        QTRY_COMPARE(current(view), 0);
    }

    void narrowASelectionPutsThePageOverTheList()
    {
        Stage stage;
        auto *view = show(stage, array, 360);
        stage.settle();

        stage.click("row1");

        QCOMPARE(pageName(view), QString("Б"));
        QVERIFY(view->property("canGoBack").toBool());
        QVERIFY(!stage.has("editorList"));
        QCOMPARE(page(view)->mapToScene({0, 0}), QPointF(0, 48)); // below the way back
        QCOMPARE(page(view)->size(), QSizeF(360, 452));
        QCOMPARE(stage.focusName(), QString("field"));
        stage.click("editorBackButton");
        QCOMPARE(current(view), -1);
        QVERIFY(!page(view));
        QVERIFY(stage.has("editorList"));
        QCOMPARE(stage.focusName(), QString("row1"));
        stage.click("row1"); // the same row opens again
        QCOMPARE(pageName(view), QString("Б"));
    }

    void keysLeadBack_data()
    {
        QTest::addColumn<int>("key");

        QTest::newRow("Escape") << int(Qt::Key_Escape);
        QTest::newRow("Back") << int(Qt::Key_Back);
    }

    void keysLeadBack()
    {
        QFETCH(int, key);
        Stage stage;
        auto *view = show(stage, array, 360);
        stage.settle();
        stage.click("row0");
        QVERIFY(page(view));

        stage.key(Qt::Key(key));

        QVERIFY(!page(view));
        QCOMPARE(current(view), -1);
    }

    void theShellMayLeadBackByItself()
    {
        Stage stage;
        auto *view = show(stage, array, 360, "backRow: false\n");
        stage.settle();
        QMetaObject::invokeMethod(view, "goBack"); // nothing to go back from
        QCOMPARE(current(view), -1);

        stage.click("row2");
        QVERIFY(!stage.has("editorBackButton"));
        QCOMPARE(page(view)->mapToScene({0, 0}), QPointF(0, 0));
        QMetaObject::invokeMethod(view, "goBack");

        QCOMPARE(current(view), -1);
        QVERIFY(!page(view));
    }

    void crossingTheThresholdKeepsThePage()
    {
        Stage stage;
        auto *view = show(stage);
        QTRY_COMPARE(current(view), 0);
        stage.click("row1");
        stage.item("field")->setProperty("text", "не сохранено");

        view->setWidth(400);
        stage.settle();
        QVERIFY(view->property("canGoBack").toBool());
        QCOMPARE(pageName(view), QString("Б"));
        QCOMPARE(stage.text("field"), QString("не сохранено"));
        QVERIFY(!stage.has("editorList"));
        view->setWidth(900);
        stage.settle();

        QCOMPARE(current(view), 1);
        QCOMPARE(stage.text("field"), QString("не сохранено"));
        QVERIFY(stage.has("editorList"));
        QVERIFY(stage.item("row1")->property("highlighted").toBool());
        QCOMPARE(view->property("pagesMade").toInt(), 2);
    }

    void aListThatBecomesWideSelectsItsFirstRow()
    {
        Stage stage;
        auto *view = show(stage, array, 400);
        stage.settle();
        QCOMPARE(current(view), -1);

        view->setWidth(700);

        QTRY_COMPARE(current(view), 0);
        QCOMPARE(pageName(view), QString("А"));
    }

    void anEmptyModelShowsNothing_data()
    {
        QTest::addColumn<QByteArray>("model");
        QTest::addColumn<int>("width");

        for (const auto *model : {"[]", "null", "undefined", "emptyList"}) {
            for (const int width : {360, 800})
                QTest::newRow(qPrintable(QString("%1 at %2").arg(model).arg(width))) << QByteArray(model) << width;
        }
    }

    void anEmptyModelShowsNothing()
    {
        QFETCH(QByteArray, model);
        QFETCH(int, width);
        Stage stage;
        auto *view = show(stage, model, width, "ListModel { id: emptyList }\n");
        stage.settle();

        QCOMPARE(current(view), -1);
        QVERIFY(!page(view));
        QCOMPARE(view->property("count").toInt(), 0);
        view->setProperty("currentIndex", 5);
        stage.settle();
        QCOMPARE(current(view), -1);
        run(view, "model = [{ name: 'Новый' }]");

        QTRY_COMPARE(pageName(view), QString(width == 800 ? "Новый" : "(none)"));
    }

    void codeMaySelect()
    {
        Stage stage;
        auto *view = show(stage);
        QTRY_COMPARE(current(view), 0);

        view->setProperty("currentIndex", 1);
        QCOMPARE(pageName(view), QString("Б"));
        view->setProperty("currentIndex", 77); // no such row
        QTRY_COMPARE(current(view), 2);
        QCOMPARE(pageName(view), QString("В"));
        view->setProperty("currentIndex", -1); // a wide view is never without a page

        QTRY_COMPARE(pageName(view), QString("А"));
    }

    void anArrayMadeAnewKeepsTheRowThatIsTheSame()
    {
        Stage stage;
        auto *view = show(stage);
        QTRY_COMPARE(current(view), 0);
        stage.click("row1");

        run(view, "model = [{ name: 'Новый' }, { name: 'А' }, { name: 'Б' }]");
        QTRY_COMPARE(current(view), 2);
        QCOMPARE(pageName(view), QString("Б"));
        QCOMPARE(list(view)->property("currentIndex").toInt(), 2);
        run(view, "model = [{ name: 'Новый' }, { name: 'А' }]"); // gone: the first one

        QTRY_COMPARE(pageName(view), QString("Новый"));
        QCOMPARE(current(view), 0);
        run(view, "model = []");
        QTRY_COMPARE(current(view), -1);
        QVERIFY(!page(view));
    }

    void narrowAnArrayMadeAnewKeepsOrClosesThePage()
    {
        Stage stage;
        auto *view = show(stage, array, 360);
        stage.settle();
        stage.click("row1");

        run(view, "model = [{ name: 'Б' }, { name: 'В' }]");
        QTRY_COMPARE(current(view), 0);
        QCOMPARE(pageName(view), QString("Б"));
        run(view, "model = [{ name: 'В' }]");

        QTRY_COMPARE(current(view), -1);
        QVERIFY(!page(view));
        QVERIFY(stage.has("editorList"));
    }

    void narrowRowsThatComeSelectNothing()
    {
        Stage stage;
        auto *view = show(stage, "rows", 360);
        stage.settle();

        run(view, "rows.append({ name: 'Г' })");
        run(view, "rows.insert(0, { name: 'Д' })");
        stage.settle();

        QCOMPARE(current(view), -1);
        QCOMPARE(list(view)->property("currentIndex").toInt(), -1);
        QVERIFY(!page(view));
    }

    void thePageFollowsItsRow()
    {
        Stage stage;
        auto *view = show(stage, "rows");
        QTRY_COMPARE(current(view), 0);
        stage.click("row1");
        stage.item("field")->setProperty("text", "не сохранено");

        run(view, "rows.insert(0, { name: 'Новый' })");
        QTRY_COMPARE(current(view), 2);
        run(view, "rows.move(2, 0, 1)");
        QTRY_COMPARE(current(view), 0);
        QCOMPARE(stage.text("field"), QString("не сохранено"));
        run(view, "rows.setProperty(0, 'name', 'Переименован')");

        QCOMPARE(pageName(view), QString("Переименован"));
        QCOMPARE(page(view)->property("row").toInt(), 0);
        QCOMPARE(view->property("pagesMade").toInt(), 2);
    }

    void aRowThatIsRemovedTakesItsPage_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("removed");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("page");

        QTest::newRow("wide: the next one steps in") << 800 << 1 << 1 << "В";
        QTest::newRow("wide: the last one gives way to the one above") << 800 << 2 << 1 << "Б";
        QTest::newRow("narrow: back to the list") << 360 << 1 << -1 << "(none)";
    }

    void aRowThatIsRemovedTakesItsPage()
    {
        QFETCH(int, removed);
        QFETCH(int, width);
        Stage stage;
        auto *view = show(stage, "rows", width);
        stage.settle();
        stage.click(QString("row%1").arg(removed));
        QVERIFY(page(view));

        run(view, qPrintable(QString("rows.remove(%1)").arg(removed)));

        QTRY_COMPARE(view->property("count").toInt(), 2);
        stage.settle();
        QTEST(current(view), "index");
        QTEST(pageName(view), "page");
        QTEST(list(view)->property("currentIndex").toInt(), "index");
    }

    void rowsThatAreReplacedKeepThePlace_data()
    {
        QTest::addColumn<int>("width");

        QTest::newRow("wide") << 800;
        QTest::newRow("narrow") << 360;
    }

    void rowsThatAreReplacedKeepThePlace()
    {
        QFETCH(int, width);
        Stage stage;
        auto *view = show(stage, "rows", width);
        stage.settle();
        stage.click("row1");

        run(view, "rows.clear(); rows.append([{ name: 'Г' }, { name: 'Д' }, { name: 'Е' }])");

        QTRY_COMPARE(pageName(view), QString("Д"));
        QCOMPARE(current(view), 1);
        run(view, "rows.clear()");
        QTRY_COMPARE(current(view), -1);
        QVERIFY(!page(view));
    }

    void aThousandChangesLeaveOnePage()
    {
        Stage stage;
        auto *view = show(stage, "rows");
        QTRY_COMPARE(current(view), 0);

        for (int i = 0; i < 1000; ++i)
            view->setProperty("currentIndex", i % 3);

        stage.settle();
        QCOMPARE(pageName(view), QString("А"));
        QCOMPARE(view->property("pagesMade").toInt() - view->property("pagesGone").toInt(), 1);
    }

    void isDrivenByKeyboard_data()
    {
        QTest::addColumn<int>("width");

        QTest::newRow("wide") << 800;
        QTest::newRow("narrow") << 360;
    }

    void isDrivenByKeyboard()
    {
        QFETCH(int, width);
        Stage stage;
        auto *view = show(stage, array, width);
        stage.settle();
        stage.key(Qt::Key_Tab);
        while (stage.focusName() != "row0")
            stage.key(Qt::Key_Tab);

        stage.key(Qt::Key_Down);
        QCOMPARE(stage.focusName(), QString("row1"));
        stage.key(Qt::Key_Down);
        stage.key(Qt::Key_Down); // there is no further
        QCOMPARE(stage.focusName(), QString("row2"));
        stage.key(Qt::Key_Up);
        QCOMPARE(current(view), width == 800 ? 0 : -1); // looking is not choosing
        stage.key(Qt::Key_Return);
        QCOMPARE(pageName(view), QString("Б"));
        if (width == 360) {
            stage.key(Qt::Key_Escape);
            QCOMPARE(stage.focusName(), QString("row1"));
        }
        stage.key(Qt::Key_Down);
        stage.key(Qt::Key_Space);

        QCOMPARE(pageName(view), QString("В"));
    }

    void theFooterStandsBelowTheList()
    {
        Stage stage;
        auto *view =
            show(stage, array, 800, "footer: QC2.Button { objectName: 'add'; height: 50; text: 'Добавить' }\n");
        stage.settle();

        auto *footer = stage.item("add");
        QVERIFY(footer);
        QCOMPARE(footer->mapToScene({0, footer->height()}).y(), 500.0);
        QCOMPARE(footer->width(), 200.0);
        QCOMPARE(list(view)->height(), 500 - footer->height());
    }

    void withoutDelegatesNothingIsShown()
    {
        Stage stage;
        auto *view = stage.show("EditorView { width: 800; height: 400; model: 3 }");
        stage.settle();

        QVERIFY(!page(view));
        QCOMPARE(current(view), -1);
    }
};

ONDIRA_TEST(EditorViewTest)
#include "EditorViewTest.moc"
