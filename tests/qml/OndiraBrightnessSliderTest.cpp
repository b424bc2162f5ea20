// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "shell/ColorTheme.h"
#include "support/TestBase.h"

#include <QSignalSpy>
#include <cmath>

class OndiraBrightnessSliderTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage, const QByteArray &properties = "value: 20")
    {
        return stage.show(
            "OndiraBrightnessSlider { objectName: 'slider'; x: 50; y: 50; width: 440; property int power: 20\n"
            + properties + " }");
    }
    static int current(QQuickItem *slider) { return slider->property("currentValue").toInt(); }
    static qreal value(QQuickItem *slider) { return slider->property("value").toReal(); }
    // Where the handle's middle is at that value.
    static QPoint place(Stage &stage, QQuickItem *slider, qreal value)
    {
        auto *handle = stage.item("brightnessHandle");
        const qreal way = slider->property("availableWidth").toReal() - handle->width();
        const qreal x = slider->property("leftPadding").toReal() + handle->width() / 2 + way * value / 100;
        return slider->mapToScene({x, slider->height() / 2}).toPoint();
    }
    static QColor color(Stage &stage, const char *part) { return stage.item(part)->property("color").value<QColor>(); }

private slots:
    void goesFrom0To100InWholeSteps()
    {
        Stage stage;
        auto *slider = show(stage);

        QCOMPARE(slider->property("from").toReal(), 0.0);
        QCOMPARE(slider->property("to").toReal(), 100.0);
        QCOMPARE(slider->property("stepSize").toReal(), 1.0);
        QVERIFY(!slider->property("live").toBool());
        QCOMPARE(slider->property("snapMode").toInt(), 1); // always
    }

    void theLabelMovesWhileTheValueDoesNot()
    {
        Stage stage;
        auto *slider = show(stage);
        QSignalSpy changed(slider, SIGNAL(valueChanged()));
        QSignalSpy labelled(slider, SIGNAL(currentValueChanged()));
        auto *window = stage.window();

        QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, place(stage, slider, 20));
        for (const int step : {30, 45, 60, 80}) {
            QTest::mouseMove(window, place(stage, slider, step));
            QVERIFY2(std::abs(current(slider) - step) <= 1, qPrintable(QString::number(current(slider))));
            QCOMPARE(value(slider), 20.0);
        }
        QVERIFY(labelled.count() >= 4);
        QCOMPARE(changed.count(), 0);
        const int last = current(slider);
        QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, place(stage, slider, 80));

        QCOMPARE(changed.count(), 1); // one release, one change
        QCOMPARE(value(slider), qreal(last));
        QCOMPARE(value(slider), std::floor(value(slider)));
    }

    void aReleaseAtTheOldValueSaysNothing()
    {
        Stage stage;
        auto *slider = show(stage);
        QSignalSpy changed(slider, SIGNAL(valueChanged()));
        auto *window = stage.window();

        QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, place(stage, slider, 20));
        QTest::mouseMove(window, place(stage, slider, 70));
        QTest::mouseMove(window, place(stage, slider, 20));
        QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, place(stage, slider, 20));

        QCOMPARE(changed.count(), 0);
    }

    void showsEveryWholeValueAsItIs()
    {
        Stage stage;
        auto *slider = show(stage);

        for (int i = 0; i <= 100; ++i) {
            slider->setProperty("value", i);
            QCOMPARE(current(slider), i);
        }
        slider->setProperty("value", 250);
        QCOMPARE(current(slider), 100);
        slider->setProperty("value", -3);

        QCOMPARE(current(slider), 0);
    }

    void followsWhatItIsBoundTo()
    {
        Stage stage;
        auto *slider = show(stage, "value: power");

        slider->setProperty("power", 75);
        QCOMPARE(current(slider), 75);
        stage.drag(place(stage, slider, 75), place(stage, slider, 40));
        QVERIFY(std::abs(value(slider) - 40) <= 1);
        slider->setProperty("power", 10); // the binding outlives a drag

        QCOMPARE(current(slider), 10);
    }

    void theGrooveHasTheColourOfTheBrightness()
    {
        Stage stage;
        auto *slider = show(stage);
        QCOMPARE(stage.item("brightnessGroove")->height(), 10.0);

        for (const int percent : {0, 1, 20, 29, 60, 100}) {
            slider->setProperty("value", percent);
            QTRY_COMPARE(color(stage, "brightnessGroove"), ColorTheme::brightnessToColor(percent));
        }
    }

    void theGrooveChangesItsColourByAndBy()
    {
        Stage stage;
        auto *slider = show(stage);
        QTRY_COMPARE(color(stage, "brightnessGroove"), ColorTheme::brightnessToColor(20));

        slider->setProperty("value", 100);

        QCOMPARE(color(stage, "brightnessGroove"), ColorTheme::brightnessToColor(20));
        QTRY_COMPARE(color(stage, "brightnessGroove"), ColorTheme::brightnessToColor(100));
    }

    void theRestIsCoveredByTheBackground()
    {
        Stage stage;
        auto *slider = show(stage, "value: 25; backgroundColor: '#fedcba'");
        auto *groove = stage.item("brightnessGroove");
        auto *rest = stage.item("brightnessRest");

        QCOMPARE(color(stage, "brightnessRest"), QColor("#fedcba"));
        QVERIFY(std::abs(rest->x() - groove->width() / 4) < 1);
        QVERIFY(rest->x() + rest->width() <= groove->width());
        slider->setProperty("value", 100);

        QCOMPARE(rest->width(), 0.0);
    }

    void theHandleGrowsWhilePressed()
    {
        Stage stage;
        auto *slider = show(stage);
        auto *handle = stage.item("brightnessHandle");
        QCOMPARE(handle->property("radius").toReal(), handle->width() / 2);
        QCOMPARE(handle->width(), handle->height());
        QCOMPARE(color(stage, "brightnessHandle"), QColor("#1483dc"));

        QTest::mousePress(stage.window(), Qt::LeftButton, Qt::NoModifier, place(stage, slider, 20));
        QTRY_COMPARE(handle->scale(), 1.2);
        QTest::mouseRelease(stage.window(), Qt::LeftButton, Qt::NoModifier, place(stage, slider, 20));

        QTRY_COMPARE(handle->scale(), 1.0);
    }

    void disabledItIsGreyAndStillFollows()
    {
        Stage stage;
        auto *slider = show(stage, "enabled: false; value: power");
        QSignalSpy changed(slider, SIGNAL(valueChanged()));

        QTRY_COMPARE(color(stage, "brightnessGroove"), QColor::fromRgbF(0, 0, 0, 0.12));
        QCOMPARE(color(stage, "brightnessHandle"), ColorTheme().grey());
        stage.drag(place(stage, slider, 20), place(stage, slider, 90));
        QCOMPARE(changed.count(), 0);
        slider->setProperty("power", 55);

        QCOMPARE(current(slider), 55);
        QCOMPARE(changed.count(), 1);
    }

    void isDrivenByKeyboard()
    {
        Stage stage;
        auto *slider = show(stage);
        stage.key(Qt::Key_Tab);
        QCOMPARE(stage.focusName(), QString("slider"));

        stage.key(Qt::Key_Right);
        stage.key(Qt::Key_Right);
        QCOMPARE(value(slider), 22.0);
        stage.key(Qt::Key_Left);

        QCOMPARE(value(slider), 21.0);
        QCOMPARE(current(slider), 21);
    }

    void isHitByAFinger()
    {
        Stage stage;

        QVERIFY(show(stage)->height() >= 48);
    }
};

ONDIRA_TEST(OndiraBrightnessSliderTest)
#include "OndiraBrightnessSliderTest.moc"
