// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

class GridCanvasTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage)
    {
        return stage.show(
            "GridCanvas { property int clicks: 0; onEmptyClicked: ++clicks\n"
            "Rectangle { x: 300; y: 300; width: 100; height: 100; MouseArea { anchors.fill: parent } } }");
    }

private slots:
    void is4096Wide()
    {
        Stage stage;
        auto *canvas = show(stage);

        QCOMPARE(canvas->width(), 4096.0);
        QCOMPARE(canvas->height(), 4096.0);
        QCOMPARE(canvas->transformOrigin(), QQuickItem::TopLeft);
        QCOMPARE(canvas->property("selectedCount").toInt(), 0);
        QMetaObject::invokeMethod(canvas, "deselectAll");
    }

    void aClickCountsUnlessItMovedRightOrDown_data()
    {
        QTest::addColumn<QPoint>("move");
        QTest::addColumn<int>("clicks");

        QTest::newRow("still") << QPoint(0, 0) << 1;
        QTest::newRow("16 right") << QPoint(16, 0) << 1;
        QTest::newRow("17 right") << QPoint(17, 0) << 0;
        QTest::newRow("16 down") << QPoint(0, 16) << 1;
        QTest::newRow("17 down") << QPoint(0, 17) << 0;
        QTest::newRow("20 left") << QPoint(-20, 0) << 1;
        QTest::newRow("100 up") << QPoint(0, -100) << 1;
        QTest::newRow("left and down") << QPoint(-50, 50) << 0;
    }

    void aClickCountsUnlessItMovedRightOrDown()
    {
        QFETCH(QPoint, move);
        Stage stage;
        auto *canvas = show(stage);

        stage.drag({150, 150}, QPoint(150, 150) + move);

        QTEST(canvas->property("clicks").toInt(), "clicks");
    }

    void aClickOnATileIsNone()
    {
        Stage stage;
        auto *canvas = show(stage);

        stage.clickAt({350, 350});
        QCOMPARE(canvas->property("clicks").toInt(), 0);
        stage.clickAt({410, 410});

        QCOMPARE(canvas->property("clicks").toInt(), 1);
    }
};

ONDIRA_TEST(GridCanvasTest)
#include "GridCanvasTest.moc"
