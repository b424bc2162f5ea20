// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QSignalSpy>

class ScaleSliderTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage, double value, double minimum = 0.3, double maximum = 4)
    {
        return stage.show(QStringLiteral("ScaleSlider { value: %1; minimum: %2; maximum: %3\n"
                                         "property real asked: -1; onMoved: asked = scale }")
                              .arg(value, 0, 'g', 17)
                              .arg(minimum)
                              .arg(maximum)
                              .toUtf8());
    }

private slots:
    void stepsToTheNextTenth_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("button");
        QTest::addColumn<double>("asked");

        QTest::newRow("up from 1") << 1.0 << "scaleUp" << 1.1;
        QTest::newRow("down from 1") << 1.0 << "scaleDown" << 0.9;
        QTest::newRow("up from what the pixels left of 0.9") << 3686 / 4096.0 << "scaleUp" << 1.0;
        QTest::newRow("down from what the pixels left of 0.9") << 3686 / 4096.0 << "scaleDown" << 0.8;
        QTest::newRow("up from between") << 1.24 << "scaleUp" << 1.3;
        QTest::newRow("down from between") << 1.26 << "scaleDown" << 1.2;
        QTest::newRow("to the maximum") << 3.9 << "scaleUp" << 4.0;
        QTest::newRow("to the minimum") << 0.4 << "scaleDown" << 0.3;
        QTest::newRow("reset") << 2.5 << "scaleLabel" << 1.0;
    }

    void stepsToTheNextTenth()
    {
        QFETCH(double, value);
        QFETCH(QString, button);
        Stage stage;
        auto *slider = show(stage, value);

        stage.click(button);

        QTEST(slider->property("asked").toDouble(), "asked");
        QCOMPARE(slider->property("value").toDouble(), value); // who shows the slider decides
    }

    void stepsOnlyWhereThereIsRoom_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<bool>("down");
        QTest::addColumn<bool>("reset");
        QTest::addColumn<bool>("up");

        QTest::newRow("in the middle") << 2.0 << true << true << true;
        QTest::newRow("at 1") << 1.0 << true << false << true;
        QTest::newRow("close to the minimum") << 0.39 << false << true << true;
        QTest::newRow("close to the maximum") << 3.91 << true << true << false;
    }

    void stepsOnlyWhereThereIsRoom()
    {
        QFETCH(double, value);
        Stage stage;
        auto *slider = show(stage, value);

        QTEST(stage.item("scaleDown")->isEnabled(), "down");
        QTEST(stage.item("scaleLabel")->isEnabled(), "reset");
        QTEST(stage.item("scaleUp")->isEnabled(), "up");
        if (!stage.item("scaleUp")->isEnabled()) {
            stage.click("scaleUp");
            QCOMPARE(slider->property("asked").toDouble(), -1.0);
        }
    }

    void showsPercent_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("text");

        QTest::newRow("1") << 1.0 << "100%";
        QTest::newRow("rounded down") << 0.999 << "99%";
        QTest::newRow("what the pixels left of 0.9") << 3686 / 4096.0 << "90%";
        QTest::newRow("what the pixels left of 0.7") << 2867 / 4096.0 << "70%";
        QTest::newRow("2.3 times 100 is less than 230") << 2.3 << "230%";
        QTest::newRow("a tenth of a percent off") << 0.899 << "89%";
    }

    void showsPercent()
    {
        QFETCH(double, value);
        Stage stage;
        show(stage, value);

        QTEST(stage.text("scaleLabel"), "text");
    }

    void theLockOnlyAsks()
    {
        Stage stage;
        auto *slider = show(stage, 2.0);
        QSignalSpy requested(slider, SIGNAL(lockRequested(bool)));

        stage.click("scaleLock");
        QCOMPARE(requested.count(), 1);
        QCOMPARE(requested.at(0).at(0).toBool(), true);
        QVERIFY(!slider->property("locked").toBool()); // who shows the slider decides
        slider->setProperty("locked", true);
        stage.item("scaleLock")->forceActiveFocus(Qt::TabFocusReason);
        stage.key(Qt::Key_Return);

        QCOMPARE(requested.count(), 2);
        QCOMPARE(requested.at(1).at(0).toBool(), false);
    }

    void lockedItDoesNotStep()
    {
        Stage stage;
        auto *slider = show(stage, 2.0);

        slider->setProperty("locked", true);
        for (const auto *button : {"scaleDown", "scaleLabel", "scaleUp"}) {
            QVERIFY(!stage.item(button)->isEnabled());
            stage.click(button);
        }

        QCOMPARE(slider->property("asked").toDouble(), -1.0);
        QCOMPARE(stage.text("scaleLabel"), QString("200%"));
        slider->setProperty("locked", false);
        stage.click("scaleUp");
        QCOMPARE(slider->property("asked").toDouble(), 2.1);
    }

    void isDrivenByKeyboard()
    {
        Stage stage;
        auto *slider = show(stage, 2.0);

        stage.key(Qt::Key_Tab);
        QCOMPARE(stage.focusName(), QString("scaleDown"));
        stage.key(Qt::Key_Space);
        QCOMPARE(slider->property("asked").toDouble(), 1.9);
        stage.key(Qt::Key_Tab);
        stage.key(Qt::Key_Tab);
        stage.key(Qt::Key_Return);

        QCOMPARE(slider->property("asked").toDouble(), 2.1);
    }
};

ONDIRA_TEST(ScaleSliderTest)
#include "ScaleSliderTest.moc"
