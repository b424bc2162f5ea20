// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "model/StandardBlueprints.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QElapsedTimer>

using namespace Records;
namespace Blueprints = Model::StandardBlueprints;

class ZonesControlListTest : public TestBase
{
    Q_OBJECT

private:
    // Part 1 with the zones 11 and 12, part 2 with 13; lamp 2n in each zone 1n.
    static QQuickItem *show(Stage &stage, const QSize &size = {1280, 800})
    {
        stage.link.publishShopParts({part(1, "Этаж"), part(2, "Атриум")});
        stage.link.publishZones({zone(12, "б", 1), zone(11, "А", 1), zone(13, "В", 2)});
        stage.link.publishDeviceTypes({type("lamp:1", "Лампа")});
        stage.link.publishDevices(
            {device(21, 11, "lamp:1", 1), device(22, 12, "lamp:1", 2), device(23, 13, "lamp:1", 3)});
        publish(stage, 60, true);
        auto *view = stage.show("ZonesControlList { objectName: 'view'; anchors.fill: parent; focus: true\n"
                                "partUid: '"
                                    + text(1).toUtf8() + "'; part: shopPartsListModel.getByUid(partUid) }",
                                size);
        Stage::waitFor([&] { return stage.has("zoneControl1"); });
        stage.settle();
        stage.link.operations.clear();
        return view;
    }
    static void publish(Stage &stage, int power, bool isManual)
    {
        stage.link.publishDeviceStates({state(21, {{"power", power}})});
        stage.link.publishDeviceModes({isManual ? manual(21) : automatic(21)});
    }
    static QQuickItem *within(const Stage &stage, const QString &name, int row = 0)
    {
        auto *found = stage.item(QStringLiteral("zoneControl%1").arg(row));
        return found ? found->findChild<QQuickItem *>(name) : nullptr;
    }
    static QString nameOf(const Stage &stage, int row)
    {
        auto *name = within(stage, "zoneName", row);
        return name ? name->property("text").toString() : QString();
    }
    static QPoint sliderPlace(const Stage &stage, double percent)
    {
        auto *slider = within(stage, "powerSlider");
        const double left = slider->property("leftPadding").toDouble() + 12;
        const double way = slider->property("availableWidth").toDouble() - 24;
        return slider->mapToScene(QPointF(left + way * percent / 100, slider->height() / 2)).toPoint();
    }
    static QString powerText(const Stage &stage) { return within(stage, "powerText")->property("text").toString(); }
    static double sliderValue(const Stage &stage) { return within(stage, "powerSlider")->property("value").toDouble(); }

    static void shapes()
    {
        QTest::addColumn<QSize>("size");

        QTest::newRow("wide") << QSize(1280, 800);
        QTest::newRow("narrow") << QSize(360, 640);
    }

private slots:
    void rowsAreThoseOfThePart()
    {
        Stage stage;
        auto *view = show(stage);
        const auto names = [&] {
            QStringList texts;
            for (int i = 0; within(stage, "zoneName", i); ++i)
                texts << nameOf(stage, i);
            return texts;
        };

        QCOMPARE(names(), QStringList({"А", "б"}));
        view->setProperty("partUid", text(2));
        QTRY_COMPARE(names(), QStringList({"В"}));
        view->setProperty("partUid", "");
        QTRY_COMPARE(names(), QStringList({"А", "б", "В"}));
        QVERIFY(!stage.has("noZones"));
        view->setProperty("partUid", text(9));
        QTRY_VERIFY(stage.has("noZones"));
    }

    void hasTwoShapes_data() { shapes(); }

    void hasTwoShapes()
    {
        QFETCH(QSize, size);
        Stage stage;
        show(stage, size);
        const bool isWide = size.width() > 960;

        QCOMPARE(stage.item("zoneControl0")->height(), isWide ? 64.0 : 96.0);
        QCOMPARE(stage.text("partName"), QString("Этаж"));
        QCOMPARE(stage.item("partName")->width(), isWide ? 200.0 : 360.0);
        QCOMPARE(stage.item("partBrightness")->height(), isWide ? 70.0 : 120.0);
        QCOMPARE(within(stage, "autoModeSwitch")->property("text").toString(), QString("Авто режим"));
        for (const char *name : {"zoneName", "autoModeSwitch", "powerText", "powerSlider"}) {
            auto *item = within(stage, name);
            QVERIFY(item->width() > 0);
            const QRectF place = item->mapRectToScene({0, 0, item->width(), item->height()});
            QVERIFY2(place.left() >= 0 && place.right() <= size.width(), name);
        }
        stage.resize({isWide ? 700 : 1100, 640});
        QTRY_COMPARE(stage.item("zoneControl0")->height(), isWide ? 96.0 : 64.0);
    }

    void oneReleaseIsOneCommand_data() { shapes(); }

    void oneReleaseIsOneCommand()
    {
        QFETCH(QSize, size);
        Stage stage;
        show(stage, size);
        QTRY_COMPARE(powerText(stage), QString("60%"));
        const QPoint from = sliderPlace(stage, 60);
        const QPoint to = sliderPlace(stage, 25);

        QTest::mousePress(stage.window(), Qt::LeftButton, Qt::NoModifier, from);
        for (int step = 1; step <= 5; ++step)
            QTest::mouseMove(stage.window(), from + (to - from) * step / 5);
        QCOMPARE(sliderValue(stage), 60.0);
        const QString moved = powerText(stage);
        QVERIFY(moved != "60%");
        QVERIFY(stage.link.operations.isEmpty());
        QTest::mouseRelease(stage.window(), Qt::LeftButton, Qt::NoModifier, to);

        QCOMPARE(stage.link.operations, QStringList({"runActionSequences"}));
        const auto steps = stage.link.sequences.at(0).instances;
        QCOMPARE(steps.size(), std::size_t(1));
        QCOMPARE(steps[0].blueprint, Blueprints::setPowerUid());
        QVERIFY(steps[0].zones == QSet<QUuid>{uid(11)});
        QCOMPARE(steps[0].properties.size(), std::size_t(1));
        QCOMPARE(steps[0].properties[0].globalID(), QString("power"));
        const auto sent = steps[0].properties[0].value.toInteger();
        QCOMPARE(moved, QStringLiteral("%1%").arg(sent));
        publish(stage, static_cast<int>(sent), true); // no echo
        stage.settle();
        QCOMPARE(stage.link.operations.size(), 1);
        QCOMPARE(sliderValue(stage), static_cast<double>(sent));
    }

    void thePowerOfTheServerMovesTheSliderWithoutACommand()
    {
        Stage stage;
        show(stage);

        for (const int power : {0, 35, 100, 29}) {
            publish(stage, power, true);
            QTRY_COMPARE(sliderValue(stage), static_cast<double>(power));
            QCOMPARE(powerText(stage), QStringLiteral("%1%").arg(power));
        }
        publish(stage, 70, false);
        QTRY_COMPARE(sliderValue(stage), 70.0);

        QVERIFY(stage.link.operations.isEmpty());
    }

    void inAutomaticModeTheSliderIsDisabled()
    {
        Stage stage;
        show(stage);
        QVERIFY(within(stage, "powerSlider")->isEnabled());

        publish(stage, 60, false);
        QTRY_VERIFY(!within(stage, "powerSlider")->isEnabled());
        stage.drag(sliderPlace(stage, 60), sliderPlace(stage, 10));
        stage.settle();

        QVERIFY(stage.link.operations.isEmpty());
        QCOMPARE(sliderValue(stage), 60.0);
    }

    void theSwitchIsOneActionAndLeavesThePower()
    {
        Stage stage;
        show(stage);
        auto *modeSwitch = within(stage, "autoModeSwitch");
        QVERIFY(!modeSwitch->property("checked").toBool());

        stage.click(modeSwitch);
        QCOMPARE(stage.link.operations, QStringList({"runActionSequences"}));
        QCOMPARE(stage.link.sequences.at(0).instances.size(), std::size_t(1));
        QCOMPARE(stage.link.sequences[0].instances[0].blueprint, Blueprints::setAutoModeUid());
        QVERIFY(stage.link.sequences[0].instances[0].zones == QSet<QUuid>{uid(11)});
        publish(stage, 60, false);
        QTRY_VERIFY(modeSwitch->property("checked").toBool());
        QVERIFY(!within(stage, "powerSlider")->isEnabled());
        stage.click(modeSwitch);

        QCOMPARE(stage.link.operations.size(), 2);
        QCOMPARE(stage.link.sequences.at(0).instances.size(), std::size_t(1));
        QCOMPARE(stage.link.sequences[0].instances[0].blueprint, Blueprints::setManualModeUid());
        QVERIFY(stage.link.sequences[0].instances[0].properties.empty());
        publish(stage, 60, true);
        QTRY_VERIFY(!modeSwitch->property("checked").toBool());
        QCOMPARE(stage.link.operations.size(), 2);
    }

    void whatTheServerRefusesFallsBack()
    {
        Stage stage;
        show(stage);
        stage.drag(sliderPlace(stage, 60), sliderPlace(stage, 10));
        stage.click(within(stage, "autoModeSwitch"));
        QCOMPARE(stage.link.operations.size(), 2);
        QVERIFY(sliderValue(stage) < 20);

        QTRY_COMPARE_WITH_TIMEOUT(sliderValue(stage), 60.0, 8000);

        QVERIFY(!within(stage, "autoModeSwitch")->property("checked").toBool());
        QCOMPARE(stage.link.operations.size(), 2);
        publish(stage, 30, true); // it follows again
        QTRY_COMPARE(sliderValue(stage), 30.0);
        publish(stage, 30, false);
        QTRY_VERIFY(within(stage, "autoModeSwitch")->property("checked").toBool());
    }

    void theBarDrivesAllZonesOfThePart()
    {
        Stage stage;
        auto *view = show(stage);

        stage.click("powerButton40");
        QCOMPARE(stage.link.operations, QStringList({"runActionSequences"}));
        const auto steps = stage.link.sequences.at(0).instances;
        QCOMPARE(steps.size(), std::size_t(2));
        QCOMPARE(steps[0].blueprint, Blueprints::setManualModeUid());
        QCOMPARE(steps[1].blueprint, Blueprints::setPowerUid());
        QVERIFY((steps[1].zones == QSet<QUuid>{uid(11), uid(12)}));
        view->setProperty("partUid", text(2));
        QTRY_COMPARE(nameOf(stage, 0), QString("В"));
        stage.click("autoModeButton");
        QVERIFY(stage.link.sequences.at(0).instances.at(0).zones == QSet<QUuid>{uid(13)});

        view->setProperty("partUid", text(9)); // without zones
        QTRY_VERIFY(stage.has("noZones"));
        stage.click("autoModeButton");
        QCOMPARE(stage.link.operations.size(), 2);
    }

    void manyZonesFollowWithoutAStall()
    {
        Stage stage;
        show(stage);
        std::vector<Model::Zone> zones;
        std::vector<Model::DeviceDescriptor> devices;
        for (uint i = 0; i < 2000; ++i) {
            zones.push_back(zone(5000 + i, QStringLiteral("Зона %1").arg(i), 1));
            devices.push_back(device(10000 + i, 5000 + i, "lamp:1", static_cast<int>(i)));
        }
        stage.link.publishZones(zones);
        stage.link.publishDevices(devices);
        QTRY_VERIFY(nameOf(stage, 0).startsWith("Зона"));
        stage.settle();

        QElapsedTimer timer;
        timer.start();
        for (const int power : {10, 20}) {
            std::vector<Model::DeviceState> states;
            for (uint i = 0; i < 2000; ++i)
                states.push_back(state(10000 + i, {{"power", power}}));
            stage.link.publishDeviceStates(states);
            QTRY_COMPARE(powerText(stage), QStringLiteral("%1%").arg(power));
        }
        const auto followed = timer.elapsed();
        qInfo("2000 zones that all change followed in %lld ms", static_cast<long long>(followed / 2));

        QVERIFY(followed < 800);
        stage.click("powerButton80");
        QCOMPARE(stage.link.sequences.at(0).instances.at(1).zones.size(), 2000);
    }

    void isDrivenByKeyboard()
    {
        Stage stage;
        show(stage);

        within(stage, "powerSlider")->forceActiveFocus();
        stage.key(Qt::Key_Right);
        QCOMPARE(stage.link.operations.size(), 1);
        QCOMPARE(stage.link.sequences.at(0).instances.at(0).properties.at(0).value.toInteger(), 61LL);
        within(stage, "autoModeSwitch")->forceActiveFocus();
        stage.key(Qt::Key_Space);

        QCOMPARE(stage.link.operations.size(), 2);
        QCOMPARE(stage.link.sequences.at(0).instances.at(0).blueprint, Blueprints::setAutoModeUid());
    }

    void aLongNameIsCut()
    {
        Stage stage;
        show(stage, {360, 640});

        stage.link.publishZones({zone(11, "<b>" + QString(3000, QChar(u'Ж')), 1), zone(12, "б", 1)});

        QTRY_COMPARE(nameOf(stage, 0).size(), 3003);
        QCOMPARE(within(stage, "zoneName")->property("truncated").toBool(), true);
        auto *name = within(stage, "zoneName");
        QVERIFY(name->x() + name->width() <= within(stage, "autoModeSwitch")->x());
    }
};

ONDIRA_TEST(ZonesControlListTest)
#include "ZonesControlListTest.moc"
