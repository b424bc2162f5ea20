// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

using namespace Records;

// The plan of part 1 at 1000 by 600.
class ShopScreenTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage, const QByteArray &more = {})
    {
        auto *screen =
            stage.show("ShopScreen { objectName: 'screen'; width: 1000; height: 600; uid: '" + text(1).toUtf8()
                       + "'\n property int requests: 0; onCommandsRequested: ++requests\n" + more + "}");
        Stage::waitFor([&] { return stage.has("zoomArea"); });
        return screen;
    }

    static double scale(QQuickItem *screen) { return screen->property("shopScale").toDouble(); }
    static QPointF offset(QQuickItem *screen)
    {
        auto *flickable = screen->property("shopFlickable").value<QQuickItem *>();
        return {flickable->property("contentX").toReal(), flickable->property("contentY").toReal()};
    }
    static QStringList selected(QQuickItem *screen)
    {
        auto uids = screen->property("selectedZones").toStringList();
        uids.sort();
        return uids;
    }
    static void setScale(QQuickItem *screen, double value)
    {
        QMetaObject::invokeMethod(screen, "setScale", Q_ARG(QVariant, value));
    }

private slots:
    void placesTheTilesOfItsPart()
    {
        Stage stage;
        auto *screen = show(stage);
        QVERIFY(screen->property("isEmpty").toBool());
        auto hall = zone(11, "Зал", 1);
        hall.position = {320.5, 48};
        hall.width = 200;
        hall.height = 90;

        stage.link.publishZones({hall, zone(12, "Склад", 2)});

        QTRY_VERIFY(stage.tile(11));
        QVERIFY(!stage.tile(12));
        auto *tile = stage.tile(11);
        QCOMPARE(QRectF(tile->x(), tile->y(), tile->width(), tile->height()), QRectF(320.5, 48, 200, 90));
        QCOMPARE(tile->property("name").toString(), QString("Зал"));
        QVERIFY(!screen->property("isEmpty").toBool());
    }

    void aTileGlidesWhereTheServerMovesIt()
    {
        Stage stage;
        show(stage);
        auto hall = zone(11, "Зал", 1);
        stage.link.publishZones({hall});
        QTRY_VERIFY(stage.tile(11));
        QSignalSpy moved(stage.tile(11), &QQuickItem::xChanged);

        hall.position = {400, 0};
        stage.link.publishZones({hall});

        QVERIFY(stage.tile(11)->x() < 400);
        QTRY_COMPARE(stage.tile(11)->x(), 400.0);
        QVERIFY(moved.count() > 1);
    }

    void tilesFollowTheirDevices()
    {
        Stage stage;
        show(stage);
        stage.link.publishZones({zone(11, "Зал", 1)});
        stage.link.publishDevices({device(21, 11)});
        stage.link.publishDeviceStates({state(21, {{"power", 35}})});
        QTRY_VERIFY(stage.tile(11));
        QTRY_COMPARE(stage.tile(11)->property("powerPercent").toInt(), 35);
        QVERIFY(!stage.tile(11)->property("manual").toBool());

        stage.link.publishDeviceModes({manual(21)});

        QTRY_VERIFY(stage.tile(11)->property("manual").toBool());
    }

    void clicksSelectAndAClickBesideDeselects()
    {
        Stage stage;
        auto *screen = show(stage);
        stage.publishSite(3);
        QTRY_VERIFY(stage.tile(13));

        stage.click(stage.tile(11));
        stage.click(stage.tile(13));
        QCOMPARE(selected(screen), QStringList({text(11), text(13)}));
        QVERIFY(stage.tile(11)->property("selected").toBool());
        stage.clickAt({30, 30});

        QCOMPARE(selected(screen), QStringList());
        QVERIFY(!stage.tile(11)->property("selected").toBool());
    }

    void aZoneThatGoesIsNoLongerDriven()
    {
        Stage stage;
        auto *screen = show(stage);
        stage.publishSite(3);
        QTRY_VERIFY(stage.tile(13));
        stage.click(stage.tile(11));
        stage.click(stage.tile(13));

        stage.publishSite(2);

        QTRY_COMPARE(selected(screen), QStringList({text(11)}));
    }

    void scaleKeepsItsLimits()
    {
        Stage stage;
        auto *screen = show(stage);
        QCOMPARE(scale(screen), 1.0);
        QCOMPARE(screen->property("minimumScale").toDouble(), 1000 / 4096.0);
        QCOMPARE(screen->property("maximumScale").toDouble(), 4.0);

        setScale(screen, 0.9);
        QVERIFY(qAbs(scale(screen) - 0.9) < 0.0002);
        setScale(screen, 4);
        QVERIFY(qAbs(scale(screen) - 0.9) < 0.0002);
        setScale(screen, 0.01);
        QCOMPARE(scale(screen), 1000 / 4096.0);
        setScale(screen, 1);
        QCOMPARE(scale(screen), 1.0);
        QCOMPARE(stage.item("GridCanvas")->scale(), 1.0);
    }

    void wheelAtItsLargestStaysBelowFourTimesTheCanvas()
    {
        Stage stage;
        auto *screen = show(stage);

        stage.wheel({500, 300}, 100);

        QVERIFY(scale(screen) < 4);
        QVERIFY(scale(screen) > 3.6);
    }

    void lockedItDoesNotMoveButSelects()
    {
        Stage stage;
        auto *screen = show(stage);
        stage.publishSite(2);
        QTRY_VERIFY(stage.tile(12));
        screen->setProperty("lockZoomPan", true);

        stage.wheel({500, 300}, 5);
        stage.drag({800, 500}, {500, 300});
        setScale(screen, 2);
        screen->forceActiveFocus();
        stage.key(Qt::Key_Plus);
        stage.key(Qt::Key_Right);
        QCOMPARE(scale(screen), 1.0);
        QCOMPARE(offset(screen), QPointF(0, 0));
        stage.click(stage.tile(11));

        QCOMPARE(selected(screen), QStringList({text(11)}));
    }

    void isDrivenByKeyboard()
    {
        Stage stage;
        auto *screen = show(stage);
        stage.publishSite(3);
        QTRY_VERIFY(stage.tile(13));
        screen->forceActiveFocus();

        stage.key(Qt::Key_Tab);
        QCOMPARE(stage.window()->activeFocusItem(), stage.tile(11));
        stage.key(Qt::Key_Space);
        QCOMPARE(selected(screen), QStringList({text(11)}));
        stage.key(Qt::Key_Tab);
        stage.key(Qt::Key_Return);
        QCOMPARE(selected(screen), QStringList({text(11), text(12)}));
        QCOMPARE(screen->property("requests").toInt(), 1);
        stage.key(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(stage.window()->activeFocusItem(), stage.tile(11));
        stage.key(Qt::Key_Escape);

        QCOMPARE(selected(screen), QStringList());
    }

    void arrowsPanAndSignsZoom()
    {
        Stage stage;
        auto *screen = show(stage);
        screen->forceActiveFocus();

        stage.key(Qt::Key_Right);
        stage.key(Qt::Key_Down);
        stage.key(Qt::Key_Down);
        QCOMPARE(offset(screen), QPointF(64, 128));
        stage.key(Qt::Key_Left);
        stage.key(Qt::Key_Left);
        stage.key(Qt::Key_Up);
        QCOMPARE(offset(screen), QPointF(0, 64));
        stage.key(Qt::Key_Minus);
        QVERIFY(qAbs(scale(screen) - 0.9) < 0.0002);
        stage.key(Qt::Key_Plus);
        stage.key(Qt::Key_Equal);

        QVERIFY(qAbs(scale(screen) - 1.1) < 0.0002);
    }

    void theTileWithTheKeyboardIsInSight()
    {
        Stage stage;
        auto *screen = show(stage);
        stage.publishSite(20);
        QTRY_VERIFY(stage.tile(30));
        screen->forceActiveFocus();

        for (uint n = 11; n <= 30; ++n) {
            stage.key(Qt::Key_Tab);
            auto *tile = stage.tile(n);
            QCOMPARE(stage.window()->activeFocusItem(), tile);
            const QRectF place = tile->mapRectToItem(screen, QRectF(0, 0, tile->width(), tile->height()));
            QVERIFY2(QRectF(0, 0, 1000, 600).contains(place), qPrintable(QString::number(n)));
        }
        QVERIFY(offset(screen).x() > 2000);
    }

    void anEditedZoneIsDraggedOntoTheGrid()
    {
        Stage stage;
        show(stage);
        stage.publishSite(2);
        QTRY_VERIFY(stage.tile(12));
        stage.shop.enableEditing(true);
        stage.link.operations.clear();
        stage.drag({136, 136}, {236, 236}); // not selected yet
        QCOMPARE(stage.tile(11)->x(), 64.0);
        stage.click(stage.tile(11));
        QVERIFY(stage.link.operations.isEmpty());

        stage.drag({136, 136}, {156, 195});

        QCOMPARE(stage.link.operations, QStringList({"changeZones"}));
        const auto &sent = stage.link.zones.at(0);
        QCOMPARE(QRectF(sent.position.x, sent.position.y, sent.width, sent.height), QRectF(80, 128, 144, 144));
        QTRY_COMPARE(stage.tile(11)->x(), 80.0);
    }

    void keysMoveAndResizeTheSelectedTile()
    {
        Stage stage;
        auto *screen = show(stage);
        stage.publishSite(1);
        QTRY_VERIFY(stage.tile(11));
        stage.shop.enableEditing(true);
        screen->forceActiveFocus();
        stage.key(Qt::Key_Tab);
        stage.key(Qt::Key_Right, Qt::ControlModifier);
        QVERIFY(stage.link.zones.empty()); // not selected yet
        stage.key(Qt::Key_Space);

        stage.key(Qt::Key_Right, Qt::ControlModifier);
        stage.key(Qt::Key_Down, Qt::ControlModifier);
        stage.key(Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);

        const auto &sent = stage.link.zones.at(0);
        QCOMPARE(QRectF(sent.position.x, sent.position.y, sent.width, sent.height), QRectF(80, 80, 128, 144));
        QCOMPARE(offset(screen), QPointF(0, 0));
        stage.key(Qt::Key_Delete);
        QTRY_VERIFY(stage.has("positiveButton"));
    }

    void aRefusedMoveGlidesBack()
    {
        Stage stage;
        show(stage);
        stage.publishSite(1);
        QTRY_VERIFY(stage.tile(11));
        stage.shop.enableEditing(true);
        stage.click(stage.tile(11));
        stage.drag({136, 136}, {236, 236});
        QTRY_COMPARE(stage.tile(11)->x(), 160.0);

        stage.link.reportErrors({{}});

        QTRY_COMPARE(stage.tile(11)->x(), 64.0);
        QTRY_COMPARE(stage.tile(11)->y(), 64.0);
    }

    void theCanvasHoldsADraggedTile()
    {
        Stage stage;
        auto *screen = show(stage);
        auto hall = zone(11, "Зал", 1);
        hall.position = {3904, 3904};
        hall.width = 96;
        hall.height = 96;
        stage.link.publishZones({hall});
        QTRY_VERIFY(stage.tile(11));
        stage.shop.enableEditing(true);
        QMetaObject::invokeMethod(screen, "scrollTo", Q_ARG(QVariant, 9000), Q_ARG(QVariant, 9000));
        stage.click(stage.tile(11));
        const auto middle = stage.middleOf(stage.tile(11));

        stage.drag(middle, middle + QPoint(186, 186));

        const auto &sent = stage.link.zones.at(0);
        QCOMPARE(QPointF(sent.position.x, sent.position.y), QPointF(4000, 4000));
    }

    void selectedTilesOfTwoLayersAreRemovedByTheirModels()
    {
        Stage stage;
        auto *screen = show(stage);
        stage.publishSite(1);
        Model::Button button;
        button.uid = uid(31);
        button.partUid = uid(1);
        button.position = {400, 64};
        button.width = 80;
        button.height = 80;
        stage.link.publishButtons({button});
        QTRY_VERIFY(stage.tile(31));
        stage.shop.enableEditing(true);
        stage.click(stage.tile(11));
        QVERIFY(screen->property("editPossible").toBool());
        stage.click(stage.tile(31));
        QVERIFY(!screen->property("editPossible").toBool());
        QVERIFY(screen->property("removePossible").toBool());
        stage.link.operations.clear();

        QMetaObject::invokeMethod(screen, "removeSelected");
        QTRY_VERIFY(stage.has("positiveButton"));
        stage.settle();
        QVERIFY(stage.link.operations.isEmpty());
        stage.click("positiveButton");

        auto operations = stage.link.operations;
        operations.sort();
        QCOMPARE(operations, QStringList({"removeButtons", "removeZones"}));
        QCOMPARE(stage.link.zones.at(0).uid, uid(11));
        QCOMPARE(stage.link.buttons.at(0).uid, uid(31));
    }

    void aClickInEditModeDeselectsFirstAndThenAdds()
    {
        Stage stage;
        auto *screen = show(stage);
        stage.publishSite(1);
        QTRY_VERIFY(stage.tile(11));
        stage.shop.enableEditing(true);
        stage.click(stage.tile(11));

        stage.clickAt({700, 300});
        QCOMPARE(selected(screen), QStringList());
        QVERIFY(!stage.has("addZone"));
        stage.link.operations.clear();
        stage.clickAt({700, 300});
        QTRY_VERIFY(stage.has("addZone"));
        stage.settle();
        stage.click("addZone");

        QCOMPARE(stage.link.operations, QStringList({"addZones"}));
        const auto &sent = stage.link.zones.at(0);
        QCOMPARE(QRectF(sent.position.x, sent.position.y, sent.width, sent.height), QRectF(704, 304, 96, 96));
        QCOMPARE(sent.partUid, uid(1));
    }

    void anEditedZoneOpensItsPage()
    {
        Stage stage;
        auto *screen = show(stage);
        stage.publishSite(1);
        QTRY_VERIFY(stage.tile(11));
        stage.shop.enableEditing(true);
        stage.click(stage.tile(11));

        QMetaObject::invokeMethod(screen, "editSelected");

        const auto shown = stage.window()->property("nav").value<QObject *>()->property("shown").toList();
        QCOMPARE(shown.size(), 1);
        QCOMPARE(shown.at(0).toMap().value("link").toString(), QString("zone"));
        QCOMPARE(shown.at(0).toMap().value("properties").toMap().value("uid").toString(), text(11));
    }

    void aDialogEditsTheButtonItWasOpenedFor()
    {
        Stage stage;
        auto *screen = show(stage);
        Model::Button button;
        button.uid = uid(31);
        button.partUid = uid(1);
        button.position = {400, 64};
        button.width = 80;
        button.height = 80;
        auto other = button;
        other.uid = uid(32);
        other.position = {640, 64};
        stage.link.publishButtons({button, other});
        QTRY_VERIFY(stage.tile(32));
        stage.shop.enableEditing(true);
        stage.click(stage.tile(32));
        QMetaObject::invokeMethod(screen, "editSelected");
        QTRY_VERIFY(stage.has("positiveButton"));
        QCOMPARE(stage.text("dialogTitle"), QString("Редактирование кнопки"));
        stage.settle();
        stage.link.operations.clear();

        stage.link.publishButtons({other, button});
        stage.click("positiveButton");

        QCOMPARE(stage.link.operations, QStringList({"changeButtons"}));
        QCOMPARE(stage.link.buttons.at(0).uid, uid(32));
    }

    void aPictureAloneIsNotAnEmptyPart()
    {
        allowMessages("mage");
        Stage stage;
        auto *screen = show(stage);
        Model::ImageItem picture;
        picture.uid = uid(41);
        picture.partUid = uid(1);

        stage.link.publishImageItems({picture});

        QTRY_VERIFY(!screen->property("isEmpty").toBool());
    }

    void aNewLinkTakesNoPressUntilItsTilesAreThere()
    {
        Stage stage;
        auto *screen = show(stage);
        stage.publishSite(1);
        QTRY_VERIFY(stage.tile(11));

        stage.link.enter(FakeCommunicator::Connecting);
        QVERIFY(!screen->property("loaded").toBool());
        QVERIFY(!stage.has("zoomArea"));
        QVERIFY(stage.has("busyIndicator"));
        stage.link.enter(FakeCommunicator::Connected);

        QTRY_VERIFY(stage.has("zoomArea"));
        QTRY_VERIFY(!stage.has("busyIndicator"));
    }

    void thePartMayChangeWhileItsTilesAreMade()
    {
        Stage stage;
        auto *screen = show(stage);
        stage.publishSite(60);
        QTRY_VERIFY(stage.tile(70));
        stage.click(stage.tile(11));
        QCOMPARE(selected(screen), QStringList{text(11)});

        stage.link.enter(FakeCommunicator::Connecting);
        stage.link.enter(FakeCommunicator::Connected);
        QVERIFY(!screen->property("loaded").toBool());
        screen->setProperty("uid", text(2));
        stage.link.publishZones({zone(11, "А", 1), zone(12, "Б", 2)});
        stage.link.enter(FakeCommunicator::Connecting);
        screen->setProperty("uid", text(1));
        stage.link.enter(FakeCommunicator::Connected);
        screen->setProperty("uid", text(2));

        QTRY_VERIFY(stage.tile(12));
        QTRY_VERIFY(stage.has("zoomArea"));
        stage.settle();
        QVERIFY(!stage.tile(11));
        QVERIFY(selected(screen).isEmpty());
        stage.click(stage.tile(12));
        QCOMPARE(selected(screen), QStringList{text(12)});
    }

    void placesFromOutsideTheCanvasAreHarmless()
    {
        Stage stage;
        show(stage);
        auto far = zone(11, "far", 1);
        far.position = {1e9, -1e9};
        auto negative = zone(12, "negative", 1);
        negative.width = -50;
        negative.height = -1;
        auto huge = zone(13, "huge", 1);
        huge.width = 1e7;
        huge.height = 1e7;

        stage.link.publishZones({far, negative, huge});

        QTRY_VERIFY(stage.tile(13));
        stage.settle();
        QCOMPARE(stage.tile(11)->x(), 1e9);
    }
};

ONDIRA_TEST(ShopScreenTest)
#include "ShopScreenTest.moc"
