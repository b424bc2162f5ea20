// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "shell/ColorTheme.h"
#include "support/TestBase.h"

#include <QFontInfo>
#include <QGuiApplication>
#include <QStyleHints>

class ZoneTileTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage, int width, int height, const QByteArray &more = {})
    {
        return stage.show("ZoneTile { objectName: 'tile'; x: 20; y: 20; enableAnimations: false; name: 'Зал'\n"
                          "property int toggles: 0; property int entries: 0\n"
                          "onToggled: ++toggles\n onEntered: ++entries\n width: "
                          + QByteArray::number(width) + "; height: " + QByteArray::number(height) + "\n" + more + "}");
    }

    static QColor colorOf(const Stage &stage, const QString &name)
    {
        return stage.item(name)->property("color").value<QColor>();
    }

    // In the tile.
    static QRectF placeOf(const Stage &stage, const QString &name)
    {
        auto *item = stage.item(name);
        return item ? item->mapRectToItem(stage.item("tile"), QRectF(0, 0, item->width(), item->height())) : QRectF();
    }

private slots:
    void textColourFollowsPowerAndMode_data()
    {
        QTest::addColumn<int>("power");
        QTest::addColumn<QColor>("manual");
        QTest::addColumn<QColor>("automatic");

        const QColor dark("#313c43");
        QTest::newRow("off") << 0 << QColor("black") << dark;
        QTest::newRow("1") << 1 << QColor("white") << QColor("white");
        QTest::newRow("39") << 39 << QColor("white") << QColor("white");
        QTest::newRow("40") << 40 << QColor("white") << dark;
        QTest::newRow("59") << 59 << QColor("white") << dark;
        QTest::newRow("60") << 60 << QColor("black") << dark;
        QTest::newRow("100") << 100 << QColor("black") << dark;
        QTest::newRow("below nothing") << -5 << QColor("black") << dark;
        QTest::newRow("beyond full") << 250 << QColor("black") << dark;
    }

    void textColourFollowsPowerAndMode()
    {
        QFETCH(int, power);
        QFETCH(QColor, manual);
        QFETCH(QColor, automatic);
        Stage stage;
        auto *tile = show(stage, 200, 160, "manual: true; powerPercent: " + QByteArray::number(power));

        for (const auto *label : {"zoneName", "zonePower", "zoneMode"})
            QCOMPARE(colorOf(stage, label), manual);
        tile->setProperty("manual", false);
        for (const auto *label : {"zoneName", "zonePower"})
            QCOMPARE(colorOf(stage, label), automatic);
        QCOMPARE(stage.text("zonePower"), QStringLiteral("%1%").arg(power));
        QCOMPARE(colorOf(stage, "zoneFace"), ColorTheme::brightnessToColor(power));
    }

    void manualModeHasAFrameOf8AndSaysSo()
    {
        Stage stage;
        auto *tile = show(stage, 200, 160, "powerPercent: 100");
        QCOMPARE(placeOf(stage, "zoneFace"), QRectF(0, 0, 200, 160));
        QVERIFY(!stage.has("zoneMode"));
        QVERIFY(!stage.has("zoneCheckers"));

        tile->setProperty("manual", true);

        QCOMPARE(placeOf(stage, "zoneFace"), QRectF(8, 8, 184, 144));
        QCOMPARE(stage.text("zoneMode"), QString("(Ручной режим)"));
        QCOMPARE(stage.item("zoneCheckers")->opacity(), 0.2);
        stage.settle();
        const QImage picture = stage.window()->grabWindow();
        QCOMPARE(picture.pixelColor(24, 100).name(), QString("#212121")); // the frame, grey shade 900
        QStringList fields{picture.pixelColor(60, 96).name(), picture.pixelColor(68, 96).name()};
        fields.sort();
        QCOMPARE(fields, QStringList({"#009c3b", "#00c34a"})); // a fifth darker, and not
    }

    void theFrameComesInTheTimeOfAnAnimation()
    {
        Stage stage;
        auto *tile = show(stage, 200, 160);
        tile->setProperty("enableAnimations", true);

        tile->setProperty("manual", true);

        QCOMPARE(placeOf(stage, "zoneFace"), QRectF(0, 0, 200, 160));
        QTRY_COMPARE(placeOf(stage, "zoneFace"), QRectF(8, 8, 184, 144));
    }

    void badgeCountsTheDevicesInTrouble()
    {
        Stage stage;
        auto *tile = show(stage, 200, 160);
        QVERIFY(!stage.has("zoneBadge"));

        tile->setProperty("erroredDevicesCount", 12);

        QCOMPARE(stage.text("zoneErrors"), QString("12"));
        QCOMPARE(stage.item("zoneBadge")->height(), 28.0);
        QCOMPARE(colorOf(stage, "zoneBadge"), ColorTheme().red());
        tile->setProperty("erroredDevicesCount", 0);
        QVERIFY(!stage.has("zoneBadge"));
    }

    void nameIsInTheGeometricBold()
    {
        Stage stage;
        show(stage, 200, 160);

        const auto font = stage.item("zoneName")->property("font").value<QFont>();
        QCOMPARE(font.family(), QString("Manrope"));
        QCOMPARE(QFontInfo(font).family(), QString("Manrope"));
        QVERIFY(font.bold());
        QCOMPARE(font.pixelSize(), 14);
    }

    void anyNameStaysInTheTile_data()
    {
        QTest::addColumn<QString>("name");

        QTest::newRow("empty") << QString();
        QTest::newRow("blanks") << QString("   ");
        QTest::newRow("10,000 letters without a blank") << QString(10000, QChar(u'Ж'));
        QTest::newRow("10,000 words") << QString("слово ").repeated(10000);
        QTest::newRow("10,000 line feeds") << QString(10000, QChar('\n'));
        QTest::newRow("right to left") << QStringLiteral("מסדרון ראשי של הבניין");
        QTest::newRow("both directions") << QStringLiteral("Hall \u202eמסדרון\u202c 1");
        QTest::newRow("combining") << QString("е") + QString(500, QChar(0x0301));
        QTest::newRow("half a pair") << QString(QChar(0xd83d));
        QTest::newRow("zero bytes") << QString(5, QChar(0));
    }

    void anyNameStaysInTheTile()
    {
        QFETCH(QString, name);
        Stage stage;
        auto *tile = show(stage, 160, 120, "erroredDevicesCount: 3");

        tile->setProperty("name", name);
        stage.settle();

        auto *label = stage.item("zoneName");
        QVERIFY(label);
        QVERIFY(QRectF(0, 0, 160, 120).contains(placeOf(stage, "zoneName")));
        QVERIFY(label->property("contentHeight").toReal() <= label->height() + 1);
        QVERIFY(label->property("contentWidth").toReal() <= label->width() + 1);
        QCOMPARE(tile->property("name").toString(), name);
    }

    void manyHugeNamesDoNotStall()
    {
        Stage stage;
        auto *tile = show(stage, 160, 120);

        for (int i = 0; i < 50; ++i) // laid out in full, this would take minutes
            tile->setProperty("name", QString(1000000, QChar(u'Ж')) + QString::number(i));

        QVERIFY(stage.item("zoneName")->property("truncated").toBool());
    }

    void markupIsShownAsItIs()
    {
        Stage stage;
        auto *tile = show(stage, 300, 160);
        const QString name = "<b>Hall</b><img src='http://127.0.0.1:1/x.png'> &amp; co";

        tile->setProperty("name", name);

        QCOMPARE(stage.text("zoneName"), name);
        QCOMPARE(stage.item("zoneName")->property("textFormat").toInt(), static_cast<int>(Qt::PlainText));
        QVERIFY(stage.item("zoneName")->property("contentWidth").toReal() > 200);
    }

    void smallTilesAreArrangedAnew_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::addColumn<QString>("state");

        QTest::newRow("large") << 300 << 240 << "";
        QTest::newRow("wide and low") << 300 << 60 << "lowheight";
        QTest::newRow("narrow and tall") << 80 << 240 << "lowwidth";
        QTest::newRow("a new zone") << 96 << 96 << "lowwidth";
        QTest::newRow("wider than tall") << 100 << 64 << "lowheight";
        QTest::newRow("smallest") << 32 << 32 << "lowwidth";
        QTest::newRow("a line") << 32 << 4 << "lowheight";
        QTest::newRow("nothing") << 0 << 0 << "lowwidth";
    }

    void smallTilesAreArrangedAnew()
    {
        QFETCH(int, width);
        QFETCH(int, height);
        Stage stage;
        auto *tile = show(stage, width, height, "powerPercent: 100; erroredDevicesCount: 2");

        QTEST(tile->property("state").toString(), "state");
    }

    void nothingOverlapsOrLeavesTheTile_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("manual");
        QTest::addColumn<int>("errors");

        for (const QSize size : {QSize(300, 240), QSize(300, 60), QSize(160, 48), QSize(80, 240), QSize(96, 96),
                                 QSize(128, 64), QSize(64, 64), QSize(1000, 40)}) {
            for (const bool manual : {false, true}) {
                for (const int errors : {0, 7, 1234})
                    QTest::addRow("%dx%d %d %d", size.width(), size.height(), manual, errors)
                        << size << manual << errors;
            }
        }
    }

    void nothingOverlapsOrLeavesTheTile()
    {
        QFETCH(QSize, size);
        QFETCH(bool, manual);
        QFETCH(int, errors);
        Stage stage;
        auto *tile = show(stage, size.width(), size.height(), "powerPercent: 100");
        tile->setProperty("manual", manual);
        tile->setProperty("erroredDevicesCount", errors);
        stage.settle();

        const QRectF bounds(0, 0, size.width(), size.height());
        std::vector<QRectF> places;
        for (const auto *name : {"zonePower", "zoneBadge", "zoneName", "zoneMode"}) {
            if (!stage.has(name))
                continue;
            const QRectF place = placeOf(stage, name);
            QVERIFY2(bounds.adjusted(-0.5, -0.5, 0.5, 0.5).contains(place), name);
            for (const auto &other : places)
                QVERIFY2(!other.adjusted(1, 1, -1, -1).intersects(place), name);
            places.push_back(place);
        }
        QCOMPARE(stage.has("zoneBadge"), errors > 0);
        QVERIFY(stage.has("zonePower"));
    }

    void theCountGoesWhereARowHasNoRoomForIt()
    {
        Stage stage;
        auto *tile = show(stage, 300, 60, "powerPercent: 100; erroredDevicesCount: 5");
        QVERIFY(stage.has("zoneErrors"));

        tile->setWidth(110);

        QCOMPARE(tile->property("state").toString(), QString("lowheight"));
        QVERIFY(stage.has("zoneBadge"));
        QVERIFY(!stage.has("zoneErrors"));
    }

    void aClickAsksToToggle()
    {
        Stage stage;
        auto *tile = show(stage, 200, 160);

        stage.click(tile);
        stage.clickAt({21, 21});
        stage.clickAt({19, 21});

        QCOMPARE(tile->property("toggles").toInt(), 2);
        QVERIFY(!tile->property("selected").toBool()); // whoever shows the tile decides
    }

    void aHoldIsNoClick()
    {
        Stage stage;
        auto *tile = show(stage, 200, 160);
        auto *hints = QGuiApplication::styleHints();
        const int usual = hints->mousePressAndHoldInterval();
        hints->setMousePressAndHoldInterval(20);

        QTest::mousePress(stage.window(), Qt::LeftButton, {}, stage.middleOf(tile));
        QTest::qWait(100);
        QTest::mouseRelease(stage.window(), Qt::LeftButton, {}, stage.middleOf(tile));
        hints->setMousePressAndHoldInterval(usual);

        QCOMPARE(tile->property("toggles").toInt(), 0);
        stage.click(tile);
        QCOMPARE(tile->property("toggles").toInt(), 1);
    }

    void selectionIsMarked()
    {
        Stage stage;
        auto *tile = show(stage, 200, 160);
        QVERIFY(!stage.has("selectionMark"));

        tile->setProperty("selected", true);

        QTRY_VERIFY(stage.has("selectionMark"));
        QTRY_COMPARE(stage.item("selectionMark")->scale(), 1.0);
        QCOMPARE(placeOf(stage, "selectionMark"), QRectF(20, 160 - 20 - 36, 36, 36));
        QCOMPARE(colorOf(stage, "selectionMark"), ColorTheme().blue());
        tile->setProperty("selected", false);
        QTRY_VERIFY(!stage.has("selectionMark"));
    }

    void theMarkFitsIntoATinyTile()
    {
        Stage stage;
        show(stage, 32, 32, "selected: true");

        QTRY_VERIFY(stage.has("selectionMark") && stage.item("selectionMark")->scale() > 0.8);
        QVERIFY(QRectF(-0.5, -0.5, 33, 33).contains(placeOf(stage, "selectionMark")));
    }

    void isDrivenByKeyboard()
    {
        Stage stage;
        auto *tile = show(stage, 200, 160);
        QVERIFY(!stage.has("focusFrame"));
        stage.key(Qt::Key_Tab);
        QCOMPARE(stage.focusName(), QString("tile"));
        QVERIFY(stage.has("focusFrame"));

        stage.key(Qt::Key_Space);
        QCOMPARE(tile->property("toggles").toInt(), 1);
        stage.key(Qt::Key_Return);

        QCOMPARE(tile->property("entries").toInt(), 1);
        QCOMPARE(tile->property("toggles").toInt(), 1);
    }
};

ONDIRA_TEST(ZoneTileTest)
#include "ZoneTileTest.moc"
