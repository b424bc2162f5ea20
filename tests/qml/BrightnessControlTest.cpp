// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "model/StandardBlueprints.h"
#include "qml/Stage.h"
#include "shell/ColorTheme.h"
#include "support/TestBase.h"

using namespace Records;
namespace Blueprints = Model::StandardBlueprints;

class BrightnessControlTest : public TestBase
{
    Q_OBJECT

private:
    static QByteArray bar(int width, const QList<uint> &zones)
    {
        QStringList uids;
        for (const uint zone : zones)
            uids << '"' + text(zone) + '"';
        return QStringLiteral("BrightnessControl { objectName: 'bar'; width: %1; height: implicitHeight\n"
                              "selectedZones: [%2]\n property int sent: 0\n onCommandSent: ++sent }")
            .arg(width)
            .arg(uids.join(','))
            .toUtf8();
    }

private slots:
    void aPercentIsManualModeThenPowerInOneRequest_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("percent");

        for (const int width : {320, 420, 1280}) {
            for (const int percent : {0, 20, 40, 60, 80, 100})
                QTest::addRow("%d %% at %d", percent, width) << width << percent;
        }
    }

    void aPercentIsManualModeThenPowerInOneRequest()
    {
        QFETCH(int, width);
        QFETCH(int, percent);
        Stage stage;
        auto *bar = stage.show(this->bar(width, {7, 3}));

        stage.click(QStringLiteral("powerButton%1").arg(percent));

        QCOMPARE(stage.link.operations, QStringList({"runActionSequences"}));
        QCOMPARE(stage.link.sequences.size(), std::size_t(1));
        const auto &steps = stage.link.sequences[0].instances;
        QCOMPARE(steps.size(), std::size_t(2));
        QCOMPARE(steps[0].blueprint, Blueprints::setManualModeUid());
        QVERIFY(steps[0].properties.empty());
        QCOMPARE(steps[1].blueprint, Blueprints::setPowerUid());
        QCOMPARE(steps[1].properties.size(), std::size_t(1));
        QCOMPARE(steps[1].properties[0].globalID(), QString("power"));
        QCOMPARE(steps[1].properties[0].value.toInteger(), static_cast<long long>(percent));
        for (const auto &step : steps)
            QVERIFY((step.zones == QSet<QUuid>{uid(3), uid(7)}));
        QCOMPARE(bar->property("sent").toInt(), 1);
    }

    void autoModeIsOneAction_data()
    {
        QTest::addColumn<int>("width");

        QTest::newRow("one row") << 1280;
        QTest::newRow("two rows") << 360;
    }

    void autoModeIsOneAction()
    {
        QFETCH(int, width);
        Stage stage;
        auto *bar = stage.show(this->bar(width, {5}));

        stage.click("autoModeButton");

        QCOMPARE(stage.link.operations, QStringList({"runActionSequences"}));
        const auto &steps = stage.link.sequences.at(0).instances;
        QCOMPARE(steps.size(), std::size_t(1));
        QCOMPARE(steps[0].blueprint, Blueprints::setAutoModeUid());
        QVERIFY(steps[0].zones == QSet<QUuid>{uid(5)});
        QVERIFY(steps[0].properties.empty());
        QCOMPARE(bar->property("sent").toInt(), 1);
    }

    void drivesTheZonesThatAreSelectedAtTheClick()
    {
        Stage stage;
        auto *bar = stage.show(this->bar(1280, {1, 2}));
        stage.click("powerButton20");

        bar->setProperty("selectedZones", QStringList{text(9)});
        stage.click("powerButton100");
        QVERIFY(stage.link.sequences.at(0).instances.at(1).zones == QSet<QUuid>{uid(9)});
        QCOMPARE(stage.link.sequences[0].instances[1].properties[0].value.toInteger(), 100LL);
        stage.click("autoModeButton");

        QVERIFY(stage.link.sequences.at(0).instances.at(0).zones == QSet<QUuid>{uid(9)});
        QCOMPARE(stage.link.operations.size(), 3);
    }

    void isTallerInTwoRows_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");

        QTest::newRow("two rows") << 599 << 110;
        QTest::newRow("one row") << 600 << 86;
    }

    void isTallerInTwoRows()
    {
        QFETCH(int, width);
        Stage stage;
        stage.show(bar(width, {1}));

        QTEST(static_cast<int>(stage.item("bar")->height()), "height");
    }

    void buttonsHaveTheColoursOfTheirBrightness()
    {
        Stage stage;
        stage.show(bar(1280, {1}));
        stage.settle();
        const QImage picture = stage.window()->grabWindow();

        for (const int percent : {0, 20, 40, 60, 80, 100}) {
            auto *button = stage.item(QStringLiteral("powerButton%1").arg(percent));
            const QPoint inside = button->mapToScene(QPointF(8, button->height() / 2)).toPoint();
            QCOMPARE(picture.pixelColor(inside).name(), ColorTheme::brightnessToColor(percent).name());
        }
        QCOMPARE(picture.pixelColor(2, 2).name(), QString("#313c43"));
    }

    void isDrivenByKeyboard()
    {
        Stage stage;
        auto *bar = stage.show(this->bar(1280, {4}));
        bar->forceActiveFocus();
        QCOMPARE(stage.focusName(), QString("autoModeButton"));

        stage.key(Qt::Key_Tab);
        QCOMPARE(stage.focusName(), QString("powerButton0"));
        stage.key(Qt::Key_Tab);
        stage.key(Qt::Key_Return);

        QCOMPARE(stage.link.sequences.at(0).instances.at(1).properties.at(0).value.toInteger(), 20LL);
    }
};

ONDIRA_TEST(BrightnessControlTest)
#include "BrightnessControlTest.moc"
