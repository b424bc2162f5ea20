// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

class IndicatorTileTest : public TestBase
{
    Q_OBJECT

private:
    static QByteArray tile(const QByteArray &more = {})
    {
        return "IndicatorTile { objectName: 'tile'; place: Qt.rect(40, 40, 256, 80); text: '21.5'\n"
               "iconName: 'action/done'; property int toggles: 0; onToggled: ++toggles\n"
            + more + "}";
    }

private slots:
    void hasASquareIconAndItsTextBesideIt()
    {
        Stage stage;
        stage.show(tile("enableAnimations: false"));

        QCOMPARE(QSizeF(stage.item("indicatorIcon")->width(), stage.item("indicatorIcon")->height()), QSizeF(80, 80));
        auto *label = stage.item("indicatorText");
        QCOMPARE(QRectF(label->x(), label->y(), label->width(), label->height()), QRectF(96, 0, 160, 80));
        QCOMPARE(stage.text("indicatorText"), QString("21.5"));
    }

    void aTextWithoutRoomIsNotShown()
    {
        Stage stage;
        auto *item = stage.show(tile("enableAnimations: false"));

        item->setWidth(112);
        QVERIFY(stage.has("indicatorText"));
        item->setWidth(111);

        QVERIFY(!stage.has("indicatorText"));
    }

    void alignment_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("expected");

        QTest::newRow("left") << 0 << int(Qt::AlignLeft);
        QTest::newRow("right") << 1 << int(Qt::AlignRight);
        QTest::newRow("centre") << 2 << int(Qt::AlignHCenter);
        QTest::newRow("justified") << 3 << int(Qt::AlignJustify);
        QTest::newRow("unknown") << 4 << int(Qt::AlignLeft);
        QTest::newRow("negative") << -1 << int(Qt::AlignLeft);
    }

    void alignment()
    {
        QFETCH(int, value);
        Stage stage;
        stage.show(tile("horizontalAlignment: " + QByteArray::number(value)));

        QTEST(stage.item("indicatorText")->property("horizontalAlignment").toInt(), "expected");
    }

    void whatTheRulesHideIsThereInEditModeAlone()
    {
        Stage stage;
        auto *item = stage.show(tile("isShown: false; shownOpacity: 0"));
        QVERIFY(!item->isVisible());

        item->setProperty("editable", true);

        QVERIFY(item->isVisible());
        QCOMPARE(stage.item("indicatorFace")->opacity(), 0.5);
        QVERIFY(stage.has("indicatorFrame"));
        stage.click(item);
        QCOMPARE(item->property("toggles").toInt(), 1);
    }

    void inViewModeItIsOnlyLookedAt()
    {
        Stage stage;
        auto *item = stage.show(tile("shownOpacity: 0.25"));

        stage.click(item);

        QCOMPARE(item->property("toggles").toInt(), 0);
        QCOMPARE(stage.item("indicatorFace")->opacity(), 0.25);
        QVERIFY(!stage.has("indicatorFrame"));
    }
};

ONDIRA_TEST(IndicatorTileTest)
#include "IndicatorTileTest.moc"
