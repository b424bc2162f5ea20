// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QElapsedTimer>
#include <QQmlExpression>
#include <QSignalSpy>

class SnackbarTest : public TestBase
{
    Q_OBJECT

private:
    static QObject *show(Stage &stage, const QSize &size = {1280, 800})
    {
        stage.show("property int called: 0\nproperty alias bar: bar\n"
                   "QC2.TextField { objectName: \"field\"; focus: true }\n"
                   "Snackbar { id: bar; objectName: \"bar\" }",
                   size);
        return stage.window() ? stage.object("bar") : nullptr;
    }

    static void say(const Stage &stage, const QString &arguments)
    {
        QQmlExpression call(qmlContext(stage.window()), stage.window(), "bar.open(" + arguments + ")");
        call.evaluate();
        QVERIFY2(!call.hasError(), qPrintable(call.error().toString()));
    }

    static bool isShown(const QObject *bar) { return bar->property("visible").toBool(); }
    static qreal number(const QObject *bar, const char *name) { return bar->property(name).toReal(); }

private slots:
    void showsATextAtTheBottom()
    {
        Stage stage;
        auto *bar = show(stage);
        QVERIFY(!isShown(bar));

        say(stage, "'Saved'");

        QTRY_VERIFY(bar->property("opened").toBool());
        QCOMPARE(stage.text("snackbarText"), QString("Saved"));
        QVERIFY(!stage.has("snackbarButton"));
        QCOMPARE(number(bar, "height"), 48.0);
        QCOMPARE(number(bar, "y") + number(bar, "height"), 800.0 - 16);
        QVERIFY(qAbs(number(bar, "x") + number(bar, "width") / 2 - 640) <= 1);
        QVERIFY(!bar->property("modal").toBool());
        QCOMPARE(stage.focusName(), QString("field"));
    }

    void standsWhereItIsTold()
    {
        Stage stage;
        auto *bar = show(stage);

        say(stage, "'Saved', 4000, '', null, 100");

        QCOMPARE(number(bar, "y") + number(bar, "height"), 700.0);
    }

    void closesByTimeOnly()
    {
        Stage stage;
        auto *bar = show(stage);
        QElapsedTimer timer;
        timer.start();
        say(stage, "'Saved', 600");
        QTRY_VERIFY(bar->property("opened").toBool());

        stage.clickAt({20, 700});
        stage.key(Qt::Key_Escape);
        QVERIFY(bar->property("opened").toBool());

        QTRY_VERIFY(!isShown(bar));
        QVERIFY2(timer.elapsed() >= 590, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(bar->property("queueLength").toInt(), 0);
    }

    void theSecondFollowsAfterAPause()
    {
        Stage stage;
        auto *bar = show(stage);
        QSignalSpy closed(bar, SIGNAL(closed()));
        say(stage, "'One', 300");
        say(stage, "'Two', 300");
        QCOMPARE(stage.text("snackbarText"), QString("One"));
        QCOMPARE(bar->property("queueLength").toInt(), 2);

        QVERIFY(closed.wait(patience));
        QElapsedTimer pause;
        pause.start();
        QVERIFY(!isShown(bar));
        QTRY_VERIFY(isShown(bar));

        QVERIFY2(pause.elapsed() >= 110, qPrintable(QString::number(pause.elapsed())));
        QCOMPARE(stage.text("snackbarText"), QString("Two"));
        QVERIFY(closed.wait(patience));
        QCOMPARE(bar->property("queueLength").toInt(), 0);
    }

    void whatComesInThePauseWaitsForItsTurn()
    {
        Stage stage;
        auto *bar = show(stage);
        QSignalSpy closed(bar, SIGNAL(closed()));
        say(stage, "'One', 100");
        say(stage, "'Two', 100");
        QVERIFY(closed.wait(patience));

        say(stage, "'Three', 100");

        QVERIFY(!isShown(bar));
        QTRY_VERIFY(isShown(bar));
        QCOMPARE(stage.text("snackbarText"), QString("Two"));
        QVERIFY(closed.wait(patience));
        QTRY_COMPARE(stage.text("snackbarText"), QString("Three"));
    }

    void theButtonCallsOnceAndCloses()
    {
        Stage stage;
        auto *bar = show(stage);
        say(stage, "'Removed', 60000, 'Undo', function() { ++called }");
        QTRY_VERIFY(bar->property("opened").toBool());
        QCOMPARE(stage.text("snackbarButton"), QString("Undo"));
        auto *button = stage.item("snackbarButton");

        stage.click(button);
        stage.click(button);

        QTRY_VERIFY(!isShown(bar));
        QCOMPARE(stage.window()->property("called").toInt(), 1);
    }

    void aButtonNeedsNoCallback()
    {
        Stage stage;
        auto *bar = show(stage);
        say(stage, "'Removed', 60000, 'Well', null");
        QTRY_VERIFY(bar->property("opened").toBool());

        stage.click("snackbarButton");

        QTRY_VERIFY(!isShown(bar));
    }

    void aCallbackMayOpenTheNext()
    {
        Stage stage;
        auto *bar = show(stage);
        say(stage, "'Removed', 60000, 'Undo', function() { bar.open('Undone') }");
        QTRY_VERIFY(bar->property("opened").toBool());

        stage.click("snackbarButton");

        QTRY_COMPARE(stage.text("snackbarText"), QString("Undone"));
        QVERIFY(!stage.has("snackbarButton"));
    }

    void twoLinesAreHigher()
    {
        Stage stage;
        auto *bar = show(stage, {360, 640});

        say(stage, "'A text that does not have room in one line of a telephone'");

        QTRY_VERIFY(bar->property("opened").toBool());
        QCOMPARE(number(bar, "height"), 68.0);
        QVERIFY(number(bar, "x") >= 0 && number(bar, "width") <= 360);
    }

    void aWideButtonGoesBelow()
    {
        Stage stage;
        auto *bar = show(stage, {360, 640});

        say(stage, "'Removed', 4000, 'Bring everything back', null");

        QTRY_VERIFY(bar->property("opened").toBool());
        auto *button = stage.item("snackbarButton");
        QVERIFY(button->width() > number(bar, "width") / 3);
        QCOMPARE(number(bar, "height"), 48 + button->height());
        auto *text = stage.item("snackbarText");
        QVERIFY(button->mapToScene({0, 0}).y() >= text->mapToScene({0, 0}).y() + text->height() / 2);
        QCOMPARE(text->property("truncated").toBool(), false);
    }

    void anyArgumentsWillDo_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QString>("text");

        QTest::newRow("none") << ""
                              << "";
        QTest::newRow("null") << "null, null, null, null, null"
                              << "";
        QTest::newRow("a number") << "5, 'x', 0, 7, NaN"
                                  << "5";
        QTest::newRow("markup") << "'<b>x</b>', -1, '', {}, 1e400"
                                << "<b>x</b>";
        QTest::newRow("a time beyond all") << "'long', 1e300"
                                           << "long";
    }

    void anyArgumentsWillDo()
    {
        QFETCH(QString, arguments);
        Stage stage;
        auto *bar = show(stage);

        say(stage, arguments);

        QTRY_VERIFY(bar->property("opened").toBool());
        QTEST(stage.text("snackbarText"), "text");
        QCOMPARE(number(bar, "y") + number(bar, "height"), 800.0 - 16);
    }

    void aVeryLongTextStaysInside()
    {
        Stage stage;
        auto *bar = show(stage, {360, 640});

        say(stage, "'" + QString("word ").repeated(2000) + "', 4000, 'Ok', null");

        QTRY_VERIFY(bar->property("opened").toBool());
        QCOMPARE(number(bar, "height"), 68.0);
        QVERIFY(number(bar, "width") <= 360 - 32);
    }
};

ONDIRA_TEST(SnackbarTest)
#include "SnackbarTest.moc"
