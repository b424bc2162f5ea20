// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/ColorTheme.h"
#include "support/TestBase.h"

#include <QQmlEngine>
#include <climits>
#include <cmath>
#include <limits>

class ColorThemeTest : public TestBase
{
    Q_OBJECT

private slots:
    void paletteIsConstant_data();
    void paletteIsConstant();
    void showsBrightness_data();
    void showsBrightness();
    void rampNeverLeavesItsStops();
    void scriptsReadAnythingAsBrightness_data();
    void scriptsReadAnythingAsBrightness();
    void blends_data();
    void blends();
    void blendsAlphaToo();
    void oddMixStaysAColor_data();
    void oddMixStaysAColor();
};

void ColorThemeTest::paletteIsConstant_data()
{
    QTest::addColumn<QString>("color");

    QTest::newRow("blue") << "#1483dc";
    QTest::newRow("grey") << "#dde1e4";
    QTest::newRow("green") << "#00a84c";
    QTest::newRow("red") << "#99110a";
    QTest::newRow("yellow") << "#e1e500";
    QTest::newRow("orange") << "#ff7900";
}

void ColorThemeTest::paletteIsConstant()
{
    QFETCH(QString, color);
    ColorTheme theme;

    QCOMPARE(theme.property(QTest::currentDataTag()).value<QColor>().name(), color);
}

void ColorThemeTest::showsBrightness_data()
{
    QTest::addColumn<int>("brightness");
    QTest::addColumn<QString>("color");

    const QString off = "#d0d5d9";
    QTest::newRow("lowest") << INT_MIN << off;
    QTest::newRow("negative") << -1 << off;
    QTest::newRow("off") << 0 << off;
    // A twentieth of the way from #792420 to #f24841: 127.05, 37.8, 33.65.
    QTest::newRow("just on") << 1 << QColor(127, 37, 33).name();
    QTest::newRow("stop at 20") << 20 << "#f24841";
    QTest::newRow("half between 20 and 40") << 30 << QColor(248, 96, 32).name();
    QTest::newRow("stop at 40") << 40 << "#ff7900";
    QTest::newRow("half between 40 and 60") << 50 << QColor(255, 148, 0).name();
    QTest::newRow("stop at 60") << 60 << "#ffb000";
    QTest::newRow("half between 60 and 80") << 70 << QColor(255, 202, 0).name();
    QTest::newRow("stop at 80 is not the yellow") << 80 << "#ffe500";
    QTest::newRow("half between 80 and 100") << 90 << QColor(127, 212, 37).name();
    QTest::newRow("full") << 100 << "#00c34a";
    QTest::newRow("beyond full") << 250 << "#00c34a";
    QTest::newRow("highest") << INT_MAX << "#00c34a";
}

void ColorThemeTest::showsBrightness()
{
    QFETCH(int, brightness);
    QFETCH(QString, color);

    const QColor shown = ColorTheme::brightnessToColor(brightness);

    QCOMPARE(shown.name(), color);
    QCOMPARE(shown.alpha(), 255);
}

void ColorThemeTest::rampNeverLeavesItsStops()
{
    const auto isBetween = [](int value, int first, int second) {
        return value >= qMin(first, second) - 1 && value <= qMax(first, second);
    };
    for (int brightness = 21; brightness < 100; ++brightness) {
        const QColor low = ColorTheme::brightnessToColor(brightness / 20 * 20);
        const QColor high = ColorTheme::brightnessToColor(brightness / 20 * 20 + 20);
        const QColor color = ColorTheme::brightnessToColor(brightness);
        QVERIFY2(isBetween(color.red(), low.red(), high.red()), qPrintable(QString::number(brightness)));
        QVERIFY2(isBetween(color.green(), low.green(), high.green()), qPrintable(QString::number(brightness)));
        QVERIFY2(isBetween(color.blue(), low.blue(), high.blue()), qPrintable(QString::number(brightness)));
    }
}

void ColorThemeTest::scriptsReadAnythingAsBrightness_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QString>("color");

    QTest::newRow("number") << "100"
                            << "#00c34a";
    QTest::newRow("part of a percent") << "0.9"
                                       << "#d0d5d9";
    QTest::newRow("undefined") << "undefined"
                               << "#d0d5d9";
    QTest::newRow("not a number") << "NaN"
                                  << "#d0d5d9";
}

void ColorThemeTest::scriptsReadAnythingAsBrightness()
{
    QFETCH(QString, expression);
    QFETCH(QString, color);
    QQmlEngine engine;
    ColorTheme theme;
    QQmlEngine::setObjectOwnership(&theme, QQmlEngine::CppOwnership);
    engine.globalObject().setProperty("Colors", engine.newQObject(&theme));

    const QJSValue result = engine.evaluate(QString("Colors.brightnessToColor(%1)").arg(expression));

    QVERIFY2(!result.isError(), qPrintable(result.toString()));
    QCOMPARE(result.toVariant().value<QColor>().name(), color);
}

void ColorThemeTest::blends_data()
{
    QTest::addColumn<qreal>("mix");
    QTest::addColumn<QColor>("expected");

    QTest::newRow("the first") << 0.0 << QColor(200, 0, 100);
    QTest::newRow("a quarter") << 0.25 << QColor(150, 25, 125);
    QTest::newRow("half") << 0.5 << QColor(100, 50, 150);
    QTest::newRow("the second") << 1.0 << QColor(0, 100, 200);
}

void ColorThemeTest::blends()
{
    QFETCH(qreal, mix);
    QFETCH(QColor, expected);

    const QColor blended = ColorTheme::blend(QColor(200, 0, 100), QColor(0, 100, 200), mix);

    QCOMPARE(blended.rgba(), expected.rgba());
}

void ColorThemeTest::blendsAlphaToo()
{
    const QColor blended = ColorTheme::blend(QColor(10, 10, 10, 0), QColor(10, 10, 10, 200), 0.5);

    QCOMPARE(blended.alpha(), 100);
    QCOMPARE(blended.red(), 10);
}

void ColorThemeTest::oddMixStaysAColor_data()
{
    QTest::addColumn<qreal>("mix");
    QTest::addColumn<QColor>("expected");

    const QColor first(200, 0, 100);
    QTest::newRow("below the first") << -1.0 << QColor(255, 0, 0);
    QTest::newRow("beyond the second") << 3.0 << QColor(0, 255, 255);
    QTest::newRow("not a number") << std::nan("") << first;
    QTest::newRow("infinite") << std::numeric_limits<qreal>::infinity() << first;
}

void ColorThemeTest::oddMixStaysAColor()
{
    QFETCH(qreal, mix);
    QFETCH(QColor, expected);

    const QColor blended = ColorTheme::blend(QColor(200, 0, 100), QColor(0, 100, 200), mix);

    QVERIFY(blended.isValid());
    QCOMPARE(blended.rgba(), expected.rgba());
}

ONDIRA_TEST(ColorThemeTest)
#include "ColorThemeTest.moc"
