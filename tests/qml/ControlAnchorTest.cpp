// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

// The handles of a selected tile at (200, 200), 96 by 96.
class ControlAnchorTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage)
    {
        auto *tile = stage.show("ZoneTile { objectName: 'tile'; place: Qt.rect(200, 200, 96, 96); editable: true\n"
                                "selected: true; property var asked: []\n"
                                "onGeometryRequested: asked = [x, y, width, height] }");
        stage.settle();
        return tile;
    }

    static QPoint handle(Stage &stage, Qt::Edge edge)
    {
        return stage.middleOf(stage.item(QStringLiteral("anchor%1").arg(edge)));
    }

    static void press(Stage &stage, const QPoint &place)
    {
        QTest::mousePress(stage.window(), Qt::LeftButton, Qt::NoModifier, place);
    }

    static void move(Stage &stage, const QPoint &place) { QTest::mouseMove(stage.window(), place); }

private slots:
    void standsInTheMiddleOfEachEdge()
    {
        Stage stage;
        show(stage);

        QCOMPARE(handle(stage, Qt::LeftEdge), QPoint(200, 248));
        QCOMPARE(handle(stage, Qt::RightEdge), QPoint(296, 248));
        QCOMPARE(handle(stage, Qt::TopEdge), QPoint(248, 200));
        QCOMPARE(handle(stage, Qt::BottomEdge), QPoint(248, 296));
        QCOMPARE(stage.item(QStringLiteral("anchor%1").arg(Qt::LeftEdge))->width(), 30.0);
    }

    void isThereOnlyForASelectedTileThatMayBeEdited()
    {
        Stage stage;
        auto *tile = show(stage);
        const auto name = QStringLiteral("anchor%1").arg(Qt::LeftEdge);

        tile->setProperty("selected", false);
        QVERIFY(!stage.has(name));
        tile->setProperty("selected", true);
        QVERIFY(stage.has(name));
        tile->setProperty("editable", false);
        QVERIFY(!stage.has(name));
    }

    void theRightOneTakesTheWholeWayAndSnapsAtRelease()
    {
        Stage stage;
        auto *tile = show(stage);
        const auto from = handle(stage, Qt::RightEdge);
        press(stage, from);
        QVERIFY(!tile->property("enableAnimations").toBool());
        move(stage, from + QPoint(30, 0));
        QCOMPARE(tile->width(), 126.0);

        QTest::mouseRelease(stage.window(), Qt::LeftButton, Qt::NoModifier, from + QPoint(30, 0));

        QVERIFY(tile->property("enableAnimations").toBool());
        QCOMPARE(tile->property("asked").toList(), QVariantList({192.0, 192.0, 128.0, 96.0}));
    }

    void theLeftOneTakesHalfOfIt()
    {
        Stage stage;
        auto *tile = show(stage);
        const auto from = handle(stage, Qt::LeftEdge);
        press(stage, from);

        move(stage, from - QPoint(20, 0));

        QCOMPARE(tile->width(), 106.0);
        QCOMPARE(tile->x(), 190.0);
    }

    void theUpperOneNeedsAWaySideways()
    {
        Stage stage;
        auto *tile = show(stage);
        const auto from = handle(stage, Qt::TopEdge);
        press(stage, from);

        move(stage, from - QPoint(0, 20));
        QCOMPARE(QRectF(tile->x(), tile->y(), tile->width(), tile->height()), QRectF(200, 200, 96, 96));
        move(stage, from - QPoint(1, 20));

        QCOMPARE(tile->height(), 106.0);
        QCOMPARE(tile->y(), 190.0);
    }

    void noEdgeComesNearerThan32()
    {
        Stage stage;
        auto *tile = show(stage);
        const auto from = handle(stage, Qt::RightEdge);
        press(stage, from);

        move(stage, from - QPoint(60, 0));
        QCOMPARE(tile->width(), 36.0);
        move(stage, from - QPoint(80, 0));

        QCOMPARE(tile->width(), 36.0);
    }
};

ONDIRA_TEST(ControlAnchorTest)
#include "ControlAnchorTest.moc"
