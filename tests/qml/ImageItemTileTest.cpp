// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QBuffer>

using namespace Records;

// The tile of picture 41.
class ImageItemTileTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage, const QByteArray &more = {})
    {
        stage.link.enter(AbstractBackendCommunicator::Connected);
        return stage.show("ImageItemTile { objectName: 'tile'; enableAnimations: false; uid: '" + text(41).toUtf8()
                          + "'\n property var asked: []; property int toggles: 0; property var locks: []\n"
                            "onGeometryRequested: asked = [x, y, width, height]\n onToggled: ++toggles\n"
                            "onLockRequested: locks = [locked]\n"
                          + more + "}");
    }

    // What the server sends of it.
    static bool answer(Stage &stage, const QSize &size)
    {
        if (!QTest::qWaitFor([&] { return bool(stage.link.imageCallback); }, patience))
            return false;
        QByteArray bytes;
        QBuffer buffer(&bytes);
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(Qt::red);
        picture.save(&buffer, "PNG");
        const auto callback = std::exchange(stage.link.imageCallback, {});
        Model::ImageItem::Image image;
        image.data = size.isEmpty() ? QByteArray("no picture") : bytes;
        callback(image);
        return true;
    }

private slots:
    void aLostServerIsNotAsked()
    {
        Stage stage;
        auto *tile = show(stage, "place: Qt.rect(20, 30, 0, 0)");
        QVERIFY(answer(stage, {200, 100}));
        QTRY_VERIFY(tile->property("ratio").toDouble() > 0);

        stage.link.enter(AbstractBackendCommunicator::Connecting);
        stage.settle();
        QCOMPARE(tile->property("ratio").toDouble(), 0.0);
        QVERIFY(!stage.link.imageCallback);
        stage.link.enter(AbstractBackendCommunicator::Connected);

        QVERIFY(answer(stage, {300, 100}));
        QTRY_COMPARE(tile->property("ratio").toDouble(), 3.0);
    }

    void withoutASizeItHasThatOfThePicture()
    {
        Stage stage;
        auto *tile = show(stage, "place: Qt.rect(20, 30, 0, 0)");

        QVERIFY(answer(stage, {200, 100}));

        QTRY_COMPARE(QSizeF(tile->width(), tile->height()), QSizeF(200, 100));
        QVERIFY(tile->property("keepAspectRatio").toBool());
        QCOMPARE(stage.link.requestedUid, uid(41));
    }

    void aStretchedPictureKeepsItsShape()
    {
        Stage stage;
        auto *tile = show(stage, "place: Qt.rect(20, 30, 300, 300); editable: true");

        QVERIFY(answer(stage, {200, 100}));
        QTRY_VERIFY(tile->property("ratio").toDouble() > 0);
        QVERIFY(!tile->property("keepAspectRatio").toBool());
        QCOMPARE(QSizeF(tile->width(), tile->height()), QSizeF(300, 300));
        stage.click("ratioButton");

        QCOMPARE(QSizeF(tile->width(), tile->height()), QSizeF(600, 300));
        QCOMPARE(tile->property("asked").toList(), QVariantList({20.0, 30.0, 600.0, 300.0}));
    }

    void whatIsSentIsWhatIsShown()
    {
        Stage stage;
        auto *tile = show(stage, "place: Qt.rect(20, 30, 300, 301); editable: true");
        QVERIFY(answer(stage, {100, 200}));
        QTRY_VERIFY(tile->property("ratio").toDouble() > 0);

        stage.click("ratioButton");

        QCOMPARE(QSizeF(tile->width(), tile->height()), QSizeF(151, 301)); // half of the height, rounded
        QCOMPARE(tile->property("asked").toList(), QVariantList({20.0, 30.0, 151.0, 301.0}));
    }

    void aPictureThatFailsIsReadThreeTimesMore()
    {
        allowMessages("mage");
        Stage stage;
        auto *tile = show(stage, "place: Qt.rect(20, 30, 100, 100)");

        QVERIFY(answer(stage, {}));

        QTRY_COMPARE(tile->property("tries").toInt(), 3);
        stage.settle();
        QCOMPARE(tile->property("tries").toInt(), 3);
    }

    void aLockedPictureIsNotSelected()
    {
        Stage stage;
        auto *tile = show(stage, "place: Qt.rect(20, 30, 200, 200); editable: true; locked: true");
        stage.clickAt({60, 180});
        QCOMPARE(tile->property("toggles").toInt(), 0);

        stage.click("lockButton");
        QCOMPARE(tile->property("locks").toList(), QVariantList({false}));
        tile->setProperty("locked", false);
        stage.clickAt({60, 180});

        QCOMPARE(tile->property("toggles").toInt(), 1);
    }

    void inViewModeItHasNoTools()
    {
        Stage stage;
        auto *tile = show(stage, "place: Qt.rect(20, 30, 200, 200)");

        stage.click(tile);

        QCOMPARE(tile->property("toggles").toInt(), 0);
        QVERIFY(!stage.has("lockButton"));
    }

    void isNotSnappedAndNotSmallerThan64()
    {
        Stage stage;
        auto *tile = show(stage, "place: Qt.rect(20, 30, 200, 40); editable: true; selected: true");
        stage.settle();

        stage.drag({60, 50}, {65, 53});

        QCOMPARE(tile->property("asked").toList(), QVariantList({25.0, 33.0, 200.0, 64.0}));
    }
};

ONDIRA_TEST(ImageItemTileTest)
#include "ImageItemTileTest.moc"
