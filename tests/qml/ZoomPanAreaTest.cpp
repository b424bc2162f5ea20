// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/NextFrame.h"
#include "support/TestBase.h"

#include <QtNumeric>
#include <limits>

// An area of 400 by 300 with a content of 1000 by 1000 that may grow to 4000.
class ZoomPanAreaTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage)
    {
        auto *area =
            stage.show("ZoomPanArea { width: 400; height: 300; maximumContentWidth: 4000\n"
                       "maximumContentHeight: 4000; flickable.contentWidth: 1000; flickable.contentHeight: 1000\n"
                       "Rectangle { id: inner; objectName: 'inner'; width: 1000; height: 1000; color: 'green'\n"
                       "MouseArea { anchors.fill: parent; property int clicks: 0; objectName: 'mouse'\n"
                       "onClicked: ++clicks } } }");
        return area;
    }

    static QQuickItem *flickable(QQuickItem *area) { return area->property("flickable").value<QQuickItem *>(); }
    static QSizeF size(QQuickItem *area)
    {
        return {flickable(area)->property("contentWidth").toReal(),
                flickable(area)->property("contentHeight").toReal()};
    }
    static QPointF offset(QQuickItem *area)
    {
        return {flickable(area)->property("contentX").toReal(), flickable(area)->property("contentY").toReal()};
    }
    static void scrollTo(QQuickItem *area, qreal x, qreal y)
    {
        flickable(area)->setProperty("contentX", x);
        flickable(area)->setProperty("contentY", y);
    }
    static void zoom(QQuickItem *area, const QPointF &center, const QVariant &factor)
    {
        QMetaObject::invokeMethod(area, "zoom", Q_ARG(QVariant, center), Q_ARG(QVariant, factor));
    }

private slots:
    void zoomsInWholeUnits()
    {
        Stage stage;
        auto *area = show(stage);

        zoom(area, {0, 0}, 1.2345);
        QCOMPARE(size(area), QSizeF(1235, 1235)); // 1234.5 is rounded
        zoom(area, {0, 0}, 0.5);

        QCOMPARE(size(area), QSizeF(618, 618));
    }

    void neverReachesTheMaximum()
    {
        Stage stage;
        auto *area = show(stage);

        zoom(area, {0, 0}, 4);
        QCOMPARE(size(area), QSizeF(1000, 1000));
        zoom(area, {0, 0}, 100);
        QCOMPARE(size(area), QSizeF(1000, 1000));
        zoom(area, {0, 0}, 3.9994);
        QCOMPARE(size(area), QSizeF(3999, 3999));
        zoom(area, {0, 0}, 1.0002);

        QCOMPARE(size(area), QSizeF(3999, 3999));
    }

    void oneSideAtItsMaximumStopsBoth()
    {
        Stage stage;
        auto *area = show(stage);
        area->setProperty("maximumContentHeight", 1500);

        zoom(area, {0, 0}, 1.5);
        QCOMPARE(size(area), QSizeF(1000, 1000));
        zoom(area, {0, 0}, 1.4);

        QCOMPARE(size(area), QSizeF(1400, 1400));
    }

    void stopsAtItsMinimum()
    {
        Stage stage;
        auto *area = show(stage);

        zoom(area, {0, 0}, 0.001);

        QCOMPARE(size(area), QSizeF(400, 300)); // by default that of the area
        QCOMPARE(offset(area), QPointF(0, 0));
    }

    void staysInItsBounds()
    {
        Stage stage;
        auto *area = show(stage);
        scrollTo(area, 600, 700);

        zoom(area, {1000, 1000}, 0.5);

        QCOMPARE(size(area), QSizeF(500, 500));
        QCOMPARE(offset(area), QPointF(100, 200));
        QMetaObject::invokeMethod(area, "pan", Q_ARG(QVariant, -1000), Q_ARG(QVariant, 1000));
        QCOMPARE(offset(area), QPointF(0, 200));
    }

    void badFactorsChangeNothing_data()
    {
        QTest::addColumn<QVariant>("factor");

        QTest::newRow("zero") << QVariant(0);
        QTest::newRow("negative") << QVariant(-1.5);
        QTest::newRow("no number") << QVariant(qQNaN());
        QTest::newRow("infinite") << QVariant(qInf());
        QTest::newRow("none") << QVariant();
        QTest::newRow("text") << QVariant("wide");
    }

    void badFactorsChangeNothing()
    {
        QFETCH(QVariant, factor);
        Stage stage;
        auto *area = show(stage);
        scrollTo(area, 10, 20);

        zoom(area, {0, 0}, factor);

        QCOMPARE(size(area), QSizeF(1000, 1000));
        QCOMPARE(offset(area), QPointF(10, 20));
    }

    void wheelStepsByATenthAboutThePointer()
    {
        Stage stage;
        auto *area = show(stage);
        scrollTo(area, 300, 400);

        stage.wheel({100, 50}, 1);

        QCOMPARE(size(area), QSizeF(1100, 1100));
        // The point of the content under the pointer, 400 and 450, is there still, a tenth further.
        QCOMPARE(offset(area), QPointF(340, 445));
        stage.wheel({100, 50}, -1);
        QCOMPARE(size(area), QSizeF(990, 990));
        QCOMPARE(offset(area), QPointF(296, 395.5));
    }

    void aSidewaysWheelDoesNotZoom()
    {
        Stage stage;
        auto *area = show(stage);

        QWheelEvent event(QPointF(100, 50), QPointF(100, 50), QPoint(), QPoint(120, 0), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(stage.window(), &event);

        QCOMPARE(size(area), QSizeF(1000, 1000));
    }

    void wheelComesToAnEndAtBothEnds()
    {
        Stage stage;
        auto *area = show(stage);

        stage.wheel({200, 150}, 100);
        QVERIFY(size(area).width() < 4000);
        QVERIFY(size(area).width() > 3600);
        stage.wheel({200, 150}, -100);

        QCOMPARE(size(area), QSizeF(400, 300));
        QCOMPARE(offset(area), QPointF(0, 0));
    }

    void dragPans()
    {
        Stage stage;
        auto *area = show(stage);
        scrollTo(area, 300, 300);

        stage.drag({300, 200}, {200, 150});

        QTRY_VERIFY(!flickable(area)->property("moving").toBool());
        QVERIFY(offset(area).x() > 300);
        QVERIFY(offset(area).y() > 300);
        QCOMPARE(stage.item("mouse")->property("clicks").toInt(), 0);
    }

    void twoFingersZoomAboutTheirMiddle_data()
    {
        QTest::addColumn<QPointF>("offset");
        QTest::addColumn<QPoint>("travel"); // of the middle

        QTest::newRow("not scrolled") << QPointF(0, 0) << QPoint(0, 0);
        QTest::newRow("scrolled") << QPointF(300, 300) << QPoint(0, 0);
        QTest::newRow("panned meanwhile") << QPointF(300, 300) << QPoint(60, -40);
        QTest::newRow("far end") << QPointF(600, 700) << QPoint(0, 0);
    }

    void twoFingersZoomAboutTheirMiddle()
    {
        QFETCH(QPointF, offset);
        QFETCH(QPoint, travel);
        Stage stage;
        auto *area = show(stage);
        scrollTo(area, offset.x(), offset.y());
        auto *window = stage.window();
        auto *device = QTest::createTouchDevice();

        QTest::touchEvent(window, device).press(0, QPoint(150, 150), window).press(1, QPoint(250, 150), window);
        std::vector<QPointF> middles; // the point of the content in the middle of the fingers, of a content of 1
        for (int step = 1; step <= 10; ++step) {
            const QPoint moved = travel * step / 10;
            QTest::touchEvent(window, device)
                .move(0, QPoint(150 - 10 * step, 150) + moved, window)
                .move(1, QPoint(250 + 10 * step, 150) + moved, window);
            // Moves are gathered until the next frame.
            QVERIFY(nextFrame(window, patience));
            middles.push_back((this->offset(area) + QPointF(200, 150) + moved) / size(area).width());
        }
        QTest::touchEvent(window, device)
            .release(0, QPoint(50, 150) + travel, window)
            .release(1, QPoint(350, 150) + travel, window);

        const qreal factor = size(area).width() / 1000;
        QVERIFY2(factor > 2 && factor < 3.01, qPrintable(QString::number(factor)));
        // From the moment the pinch began, that point stays between the fingers.
        const QPointF drift = (middles.back() - middles.at(3)) * size(area).width();
        QVERIFY2(drift.manhattanLength() < 10, qPrintable(QString::number(drift.manhattanLength())));
        QCOMPARE(stage.item("mouse")->property("clicks").toInt(), 0);
    }

    void oneFingerPans()
    {
        Stage stage;
        auto *area = show(stage);
        scrollTo(area, 300, 300);
        auto *window = stage.window();
        auto *device = QTest::createTouchDevice();

        QTest::touchEvent(window, device).press(0, QPoint(300, 200), window);
        for (int step = 1; step <= 10; ++step) {
            QTest::touchEvent(window, device).move(0, QPoint(300 - 10 * step, 200), window);
            QVERIFY(nextFrame(window, patience));
        }
        QTest::touchEvent(window, device).release(0, QPoint(200, 200), window);

        QVERIFY(offset(area).x() > 340);
        QCOMPARE(offset(area).y(), 300.0);
        QCOMPARE(size(area), QSizeF(1000, 1000));
    }

    void lockedItNeitherZoomsNorPansButLetsClicksThrough()
    {
        Stage stage;
        auto *area = show(stage);
        scrollTo(area, 300, 300);
        area->setProperty("locked", true);

        stage.wheel({100, 100}, 5);
        stage.drag({300, 200}, {200, 100});
        stage.clickAt({100, 100});

        QCOMPARE(size(area), QSizeF(1000, 1000));
        QCOMPARE(offset(area), QPointF(300, 300));
        QVERIFY(stage.item("mouse")->property("clicks").toInt() >= 1);
    }

    void aLargerAreaStretchesItsContent()
    {
        Stage stage;
        auto *area = show(stage);
        zoom(area, {0, 0}, 0.01);
        QCOMPARE(size(area), QSizeF(400, 300));

        area->setSize({800, 700});

        QTRY_COMPARE(size(area), QSizeF(800, 700));
    }

    void revealsWithTheLeastScrolling()
    {
        Stage stage;
        auto *area = show(stage);
        const auto reveal = [&](int x, int y, int width, int height) {
            QMetaObject::invokeMethod(area, "reveal", Q_ARG(QVariant, x), Q_ARG(QVariant, y), Q_ARG(QVariant, width),
                                      Q_ARG(QVariant, height));
        };

        reveal(100, 100, 50, 50);
        QCOMPARE(offset(area), QPointF(0, 0));
        reveal(500, 400, 100, 100);
        QCOMPARE(offset(area), QPointF(200, 200));
        reveal(10, 300, 50, 50);
        QCOMPARE(offset(area), QPointF(10, 200));
        reveal(100, 0, 900, 1000); // larger than the area: its left top counts
        QCOMPARE(offset(area), QPointF(100, 0));
        reveal(990, 990, 500, 500);
        QCOMPARE(offset(area), QPointF(600, 700));
    }
};

ONDIRA_TEST(ZoomPanAreaTest)
#include "ZoomPanAreaTest.moc"
