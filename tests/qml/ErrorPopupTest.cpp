// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

class ErrorPopupTest : public TestBase
{
    Q_OBJECT

private:
    static QObject *show(Stage &stage, const QSize &size = {1280, 800})
    {
        stage.show("Item {}\n ErrorPopup {}", size);
        return stage.object("errorPopup");
    }

    static void waitForOpen(QObject *popup)
    {
        Stage::waitFor([=] { return popup->property("opened").toBool(); });
    }

private slots:
    void titleAndTextFollowTheDetail_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("detail");
        QTest::addColumn<QString>("shownTitle");
        QTest::addColumn<QString>("shownText");

        QTest::newRow("both") << "Ошибка"
                              << "Подробно"
                              << "Ошибка"
                              << "Подробно";
        QTest::newRow("no detail") << "Ошибка"
                                   << ""
                                   << "(none)"
                                   << "Ошибка";
        QTest::newRow("detail alone") << ""
                                      << "Подробно"
                                      << "(none)"
                                      << "Подробно";
        QTest::newRow("nothing") << ""
                                 << ""
                                 << "(none)"
                                 << "";
        QTest::newRow("markup") << "<h1>A</h1>"
                                << "<img src='http://127.0.0.1:1/'>"
                                << "<h1>A</h1>"
                                << "<img src='http://127.0.0.1:1/'>";
    }

    void titleAndTextFollowTheDetail()
    {
        QFETCH(QString, title);
        QFETCH(QString, detail);
        Stage stage;
        auto *popup = show(stage);
        QVERIFY(!popup->property("visible").toBool());

        stage.link.reportErrors({{"code", title, detail}});

        waitForOpen(popup);
        QTEST(stage.text("errorTitle"), "shownTitle");
        QTEST(stage.text("errorText"), "shownText");
        QCOMPARE(stage.item("errorText")->property("textFormat").toInt(), static_cast<int>(Qt::PlainText));
    }

    void aNullTextIsNone()
    {
        Stage stage;
        auto *popup = show(stage);

        stage.link.reportErrors({{QString(), QString("Ошибка"), QString()}});

        waitForOpen(popup);
        QCOMPARE(stage.text("errorText"), QString("Ошибка"));
        QCOMPARE(stage.text("errorTitle"), QString("(none)"));
    }

    void closingReadsAll_data()
    {
        QTest::addColumn<int>("way");

        QTest::newRow("button") << 0;
        QTest::newRow("Enter") << 1;
        QTest::newRow("Space") << 2;
        QTest::newRow("Escape") << 3;
    }

    void closingReadsAll()
    {
        QFETCH(int, way);
        Stage stage;
        auto *popup = show(stage);
        stage.link.reportErrors({{"1", "a", ""}, {"2", "b", ""}, {"3", "c", "d"}});
        waitForOpen(popup);
        QCOMPARE(stage.text("errorText"), QString("d"));
        QCOMPARE(stage.errors()->rowCount(), 3);
        QCOMPARE(stage.focusName(), QString("errorButton"));

        switch (way) {
        case 0: stage.click("errorButton"); break;
        case 1: stage.key(Qt::Key_Return); break;
        case 2: stage.key(Qt::Key_Space); break;
        case 3: stage.key(Qt::Key_Escape); break;
        }

        QTRY_VERIFY(!popup->property("visible").toBool());
        QCOMPARE(stage.errors()->rowCount(), 0);
    }

    void aClickBesideDoesNotClose()
    {
        Stage stage;
        auto *popup = show(stage);
        stage.link.reportErrors({{"1", "a", ""}});
        waitForOpen(popup);

        stage.clickAt({5, 5});
        stage.settle();

        QVERIFY(popup->property("opened").toBool());
        QCOMPARE(stage.errors()->rowCount(), 1);
    }

    void anErrorWhileItIsOpenOnlyChangesIt()
    {
        Stage stage;
        auto *popup = show(stage);
        stage.link.reportErrors({{"1", "a", ""}});
        waitForOpen(popup);
        QSignalSpy opened(popup, SIGNAL(opened()));

        stage.link.reportErrors({{"2", "b", "c"}});

        QCOMPARE(stage.text("errorTitle"), QString("b"));
        QCOMPARE(stage.text("errorText"), QString("c"));
        QCOMPARE(opened.count(), 0);
        stage.click("errorButton");
        QTRY_VERIFY(!popup->property("visible").toBool());
        QCOMPARE(stage.errors()->rowCount(), 0);
    }

    void aThousandErrorsAreOnePopup()
    {
        Stage stage;
        auto *popup = show(stage);
        QSignalSpy opened(popup, SIGNAL(opened()));

        for (int i = 0; i < 1000; ++i)
            stage.link.reportErrors({{"code", QStringLiteral("Ошибка %1").arg(i), ""}});

        waitForOpen(popup);
        QCOMPARE(stage.text("errorText"), QString("Ошибка 999"));
        QCOMPARE(opened.count(), 1);
        stage.key(Qt::Key_Return);
        QTRY_VERIFY(!popup->property("visible").toBool());
        QCOMPARE(stage.errors()->rowCount(), 0);
        QVERIFY(!opened.wait(300));
    }

    void theSameErrorOpensItAgain()
    {
        Stage stage;
        auto *popup = show(stage);
        for (int round = 0; round < 2; ++round) {
            stage.link.reportErrors({{"1", "a", ""}});
            waitForOpen(popup);
            QVERIFY(popup->property("opened").toBool());
            stage.key(Qt::Key_Return);
            QTRY_VERIFY(!popup->property("visible").toBool());
        }
    }

    void readElsewhereItStaysClosed()
    {
        Stage stage;
        auto *popup = show(stage);

        stage.errors()->readAll();
        stage.link.reportErrors({});

        QVERIFY(!popup->property("visible").toBool());
    }

    void widthIsBetweenItsBounds_data()
    {
        QTest::addColumn<int>("window");
        QTest::addColumn<int>("width");

        QTest::newRow("wide") << 1280 << 480;
        QTest::newRow("500") << 500 << 440;
        QTest::newRow("456") << 456 << 440;
        QTest::newRow("phone") << 360 << 344;
        QTest::newRow("smallest") << 320 << 304;
    }

    void widthIsBetweenItsBounds()
    {
        QFETCH(int, window);
        Stage stage;

        QTEST(show(stage, {window, 600})->property("width").toInt(), "width");
    }

    void isModalWithoutDimming()
    {
        Stage stage;
        auto *popup = show(stage);

        QVERIFY(popup->property("modal").toBool());
        QVERIFY(!popup->property("dim").toBool());
    }

    void aLongTextScrollsAndEndsAfter30Lines()
    {
        Stage stage;
        auto *popup = show(stage, {360, 400});

        stage.link.reportErrors({{"1", QString("Заголовок ").repeated(200), QString("строка\n").repeated(10000)}});

        waitForOpen(popup);
        stage.settle();
        QCOMPARE(stage.item("errorText")->property("lineCount").toInt(), 30);
        QVERIFY(popup->property("height").toReal() <= 384);
        auto *button = stage.item("errorButton");
        QVERIFY(button->mapToScene(QPointF(0, button->height())).y() <= 400);
        auto *flickable = stage.item("errorFlickable");
        QVERIFY(flickable->height() > 60);
        QVERIFY(flickable->property("contentHeight").toReal() > flickable->height());
        stage.key(Qt::Key_Down);
        QTRY_VERIFY(flickable->property("contentY").toReal() > 0);
        stage.link.reportErrors({{"2", "", "короткий"}});
        QTRY_COMPARE(flickable->property("contentY").toReal(), 0.0);
    }
};

ONDIRA_TEST(ErrorPopupTest)
#include "ErrorPopupTest.moc"
