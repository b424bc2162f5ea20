// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

class HardMouseScrollTest : public TestBase
{
    Q_OBJECT

private:
    // A list of 3000 pixels in a window of 300; the clock stands until a test moves it.
    static QQuickItem *show(Stage &stage, const QByteArray &properties = QByteArray(),
                            const QByteArray &content = "Item { width: 300; height: 3000 }")
    {
        return stage.show(
            "property real now: 1000\n"
            "Flickable { id: list; objectName: \"list\"; anchors.fill: parent; contentHeight: 3000\n"
                + content
                + "}\n"
                  "HardMouseScroll { objectName: \"scroll\"; flickable: list; clock: function() { return now }\n"
                + properties + "}",
            {300, 300});
    }

    static qreal y(const Stage &stage) { return stage.item("list")->property("contentY").toReal(); }
    static bool isFlicking(const Stage &stage) { return stage.item("list")->property("flicking").toBool(); }

    static qreal multiplier(const Stage &stage, double fraction)
    {
        QVariant answer;
        QMetaObject::invokeMethod(stage.object("scroll"), "multiplier", Q_RETURN_ARG(QVariant, answer),
                                  Q_ARG(QVariant, fraction));
        return answer.toReal();
    }

private slots:
    void countsQuickNotchesForMore_data()
    {
        QTest::addColumn<double>("fraction");
        QTest::addColumn<double>("factor");

        QTest::newRow("at once") << 0.0 << 6.0;
        QTest::newRow("below an eighth") << 0.124 << 6.0;
        QTest::newRow("an eighth") << 0.125 << 4.0;
        QTest::newRow("a quarter") << 0.25 << 1.5;
        QTest::newRow("half") << 0.5 << 1.0;
        QTest::newRow("slow") << 3.0 << 1.0;
    }

    void countsQuickNotchesForMore()
    {
        QFETCH(double, fraction);
        Stage stage;
        show(stage);

        QTEST(multiplier(stage, fraction), "factor");
    }

    void oneNotchGlidesAndStops()
    {
        Stage stage;
        show(stage);

        stage.wheel({150, 150}, -1);

        QVERIFY(isFlicking(stage));
        QTRY_VERIFY(!isFlicking(stage));
        QVERIFY2(y(stage) > 30 && y(stage) < 300, qPrintable(QString::number(y(stage))));
        const auto place = y(stage);
        stage.wheel({150, 150}, 1);
        QTRY_VERIFY(!isFlicking(stage));
        QVERIFY(y(stage) < place);
    }

    void catchesUpWithWhatWasAskedFor()
    {
        Stage stage;
        show(stage);
        stage.wheel({150, 150}, -1);
        const auto before = y(stage);

        stage.window()->setProperty("now", 1012); // a tenth of the stop timer: 6 steps, a tenth of which is due
        stage.wheel({150, 150}, -1);

        QVERIFY2(y(stage) >= before + 60 - 0.01, qPrintable(QString::number(y(stage))));
        QVERIFY(y(stage) < before + 200);
    }

    void stepsWithoutGliding()
    {
        Stage stage;
        show(stage, "smooth: false");

        stage.wheel({150, 150}, -1);
        QCOMPARE(y(stage), 100.0);
        QVERIFY(!isFlicking(stage));
        stage.window()->setProperty("now", 1040); // a third of the stop timer
        stage.wheel({150, 150}, -1);
        QCOMPARE(y(stage), 250.0);
        stage.wheel({150, 150}, 1); // another direction is a slow notch
        QCOMPARE(y(stage), 150.0);
    }

    void stepsAsFarAsTold()
    {
        Stage stage;
        show(stage, "smooth: false; scrollDistance: 30");

        stage.wheel({150, 150}, -1);

        QCOMPARE(y(stage), 30.0);
    }

    void endsAtTheEnds()
    {
        Stage stage;
        show(stage, "smooth: false");

        stage.wheel({150, 150}, 3);
        QCOMPARE(y(stage), 0.0);
        stage.wheel({150, 150}, -30);
        QCOMPARE(y(stage), 2700.0);
    }

    void glidingEndsAtTheEndsToo()
    {
        Stage stage;
        show(stage);

        stage.wheel({150, 150}, 3);
        QCOMPARE(y(stage), 0.0);
        stage.wheel({150, 150}, -200);
        QTRY_VERIFY(!isFlicking(stage));
        QTRY_VERIFY(y(stage) <= 2700.0);
    }

    void whatLiesAboveTakesTheWheelFirst()
    {
        Stage stage;
        show(stage, "smooth: false",
             "Item { width: 300; height: 3000; MouseArea { objectName: \"inner\"; width: 300; height: 300\n"
             "property int notches: 0; onWheel: ++notches } }");

        stage.wheel({150, 150}, -1);

        QCOMPARE(stage.item("inner")->property("notches").toInt(), 1);
        QCOMPARE(y(stage), 0.0);
    }

    void whatNeedsNoScrollingLeavesTheWheel()
    {
        Stage stage;
        stage.show("MouseArea { objectName: \"outer\"; anchors.fill: parent; property int notches: 0\n"
                   "onWheel: ++notches\n"
                   "Flickable { id: list; objectName: \"list\"; anchors.fill: parent; contentHeight: 100\n"
                   "interactive: contentHeight > height }\n"
                   "HardMouseScroll { flickable: list } }",
                   {300, 300});

        stage.wheel({150, 150}, -1);

        QCOMPARE(stage.item("outer")->property("notches").toInt(), 1);
        QCOMPARE(y(stage), 0.0);
    }

    void aListMayGoWhileItGlides()
    {
        Stage stage;
        stage.show("property alias shown: loader.active\n"
                   "Loader { id: loader; anchors.fill: parent; sourceComponent: Item {\n"
                   "Flickable { id: list; objectName: \"list\"; anchors.fill: parent; contentHeight: 3000 }\n"
                   "HardMouseScroll { flickable: list } } }",
                   {300, 300});
        stage.wheel({150, 150}, -1);

        stage.window()->setProperty("shown", false);
        stage.settle();

        QVERIFY(!stage.has("list"));
    }
};

ONDIRA_TEST(HardMouseScrollTest)
#include "HardMouseScrollTest.moc"
