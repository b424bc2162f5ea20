// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

class TilesJSTest : public TestBase
{
    Q_OBJECT

private slots:
    void snapsAValue_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("snapped");

        QTest::newRow("0") << 0.0 << 0.0;
        QTest::newRow("the middle goes down") << 8.0 << 0.0;
        QTest::newRow("beyond the middle") << 9.0 << 16.0;
        QTest::newRow("a fraction beyond") << 8.5 << 16.0;
        QTest::newRow("on the grid") << 32.0 << 32.0;
        QTest::newRow("24") << 24.0 << 16.0;
        QTest::newRow("below 0") << -3.0 << 16.0;
        QTest::newRow("far below 0") << -160.0 << 16.0;
    }

    void snapsAValue()
    {
        QFETCH(double, value);
        QFETCH(double, snapped);
        Stage stage;
        auto *item = stage.show("Item { property point place: TilesJS.snapPosToGrid(" + QByteArray::number(value) + ", "
                                + QByteArray::number(value) + ", 16) }");

        QCOMPARE(item->property("place").toPointF(), QPointF(snapped, snapped));
    }

    void snapsAnItemNoSmallerThanTwoSteps()
    {
        Stage stage;
        auto *item = stage.show("Item { x: 41; y: -7; width: 20; height: 105; property var place\n"
                                "Component.onCompleted: place = TilesJS.snapToGrid(this, 16) }");

        QCOMPARE(QRectF(item->x(), item->y(), item->width(), item->height()), QRectF(48, 16, 32, 112));
        const auto place = item->property("place").toMap();
        QCOMPARE(place.value("x").toDouble(), 48.0);
        QCOMPARE(place.value("height").toDouble(), 112.0);
    }

    void anyPlaceIsTurnedIntoNumbersThatCanBeDrawn()
    {
        Stage stage;
        auto *item = stage.show("Item { property rect a: TilesJS.placeOf(NaN, undefined, -5, Infinity)\n"
                                "property rect b: TilesJS.placeOf(-1e300, 1e9, 96, 'x') }");

        QCOMPARE(item->property("a").toRectF(), QRectF(0, 0, 0, 1e9));
        QCOMPARE(item->property("b").toRectF(), QRectF(-1e9, 1e9, 96, 0));
    }
};

ONDIRA_TEST(TilesJSTest)
#include "TilesJSTest.moc"
