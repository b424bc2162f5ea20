// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "shell/ColorTheme.h"
#include "support/TestBase.h"

#include <limits>

using namespace Records;

// The card of one device, which is the first row of the devices.
class DeviceTilesTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage, const QString &commonType, const QVariantMap &data,
                            const QVariantMap &stateValues, const QByteArray &tile = "DeviceTile")
    {
        auto kind = type("device:1", "Тип", 0, commonType);
        Model::DeviceTypeInfo::Parameter reported;
        reported.identificator = "speed";
        reported.description = "Скорость";
        kind.state = {reported};
        Model::DeviceTypeInfo::Parameter told;
        told.identificator = "list";
        told.description = "Список";
        kind.parameters = {told};
        stage.link.publishDeviceTypes({kind});
        publish(stage, data);
        stage.link.publishDeviceStates({state(21, stateValues)});
        auto *item =
            stage.show("ListView { id: list; objectName: 'list'; width: 272; height: 192; model: devicesListModel\n"
                       "property int clicks: 0; property int closes: 0\n"
                       "delegate: FocusScope { width: 272; height: 192; property var row: model\n"
                       + tile
                       + " { objectName: 'tile'; anchors.fill: parent; focus: true; model: parent.row\n"
                         "onClicked: ++list.clicks; onCloseClicked: ++list.closes } } }");
        return item;
    }
    static void publish(Stage &stage, const QVariantMap &data, int radioIndex = 0)
    {
        Model::Settings settings;
        settings.mrf.resize(1);
        stage.link.publishSettings(settings);
        auto record = device(21, 11, "device:1", 4);
        record.data = data;
        record.radioType = Model::RadioStatus::DeviceType::Mrf;
        record.radioIndex = radioIndex;
        stage.link.publishDevices({record});
    }
    static QString file(const Stage &stage)
    {
        auto *card = stage.item("tile")->property("card").value<QObject *>();
        return card ? QString(card->metaObject()->className()).section("_QML", 0, 0) : QString();
    }
    static QColor color(const Stage &stage, const char *name)
    {
        auto *item = stage.item(name);
        return item ? item->property("color").value<QColor>() : QColor();
    }
    static QString rowText(const Stage &stage, int row)
    {
        QStringList cells;
        auto *item = stage.item(QStringLiteral("meterRow%1").arg(row));
        const auto children = item ? item->childItems() : QList<QQuickItem *>();
        for (auto *child : children) {
            if (child->inherits("QQuickText"))
                cells << child->property("text").toString();
        }
        return cells.join('|');
    }

private slots:
    void theKindChoosesTheCard_data()
    {
        QTest::addColumn<QString>("card");

        for (const char *kind : {"lamp", "polling_lamp"})
            QTest::newRow(kind) << "LampTile";
        QTest::newRow("polling_light_sensor") << "LightSensorTile";
        QTest::newRow("polling_temp_sensor") << "TemperatureSensorTile";
        QTest::newRow("polling_contactor") << "Quadrel16Tile";
        QTest::newRow("polling_rs_electric_meter") << "ElectricMeterTile";
        QTest::newRow("sensor_contact") << "Brindle6Tile";
        QTest::newRow("beacon") << "BeaconTile";
        QTest::newRow("lamp_group") << "LampGroupTile";
        QTest::newRow("something_else") << "DummyDeviceTile";
        QTest::newRow("hasOwnProperty") << "DummyDeviceTile";
        QTest::newRow("") << "DummyDeviceTile";
    }

    void theKindChoosesTheCard()
    {
        QFETCH(QString, card);
        Stage stage;
        show(stage, QTest::currentDataTag(), {}, {});

        QTRY_COMPARE(file(stage), card);
        stage.link.publishDeviceTypes({type("device:1", "Тип", 0, card == "LampTile" ? "beacon" : "lamp")});
        QTRY_COMPARE(file(stage), card == "LampTile" ? QString("BeaconTile") : QString("LampTile"));
    }

    void badValuesAreBorne_data()
    {
        QTest::addColumn<QVariant>("value");

        for (const QString kind : {"lamp", "polling_light_sensor", "polling_temp_sensor", "polling_contactor",
                                   "polling_rs_electric_meter", "sensor_contact", "beacon", "lamp_group", "unknown"}) {
            QTest::newRow(qPrintable(kind + " text")) << QVariant("nan");
            QTest::newRow(qPrintable(kind + " list")) << QVariant(QVariantList{1, "a", QVariantMap()});
            QTest::newRow(qPrintable(kind + " map")) << QVariant(QVariantMap{{"a", 1}});
            QTest::newRow(qPrintable(kind + " null")) << QVariant::fromValue(nullptr);
            QTest::newRow(qPrintable(kind + " huge")) << QVariant(1e300);
            QTest::newRow(qPrintable(kind + " infinite")) << QVariant(std::numeric_limits<double>::infinity());
            QTest::newRow(qPrintable(kind + " negative")) << QVariant(-5);
        }
    }

    void badValuesAreBorne()
    {
        QFETCH(QVariant, value);
        QVariantMap values;
        for (const char *key : {"power",
                                "errors",
                                "rssidBm",
                                "brightness",
                                "temperature",
                                "voltages",
                                "amperages",
                                "powers",
                                "cosines",
                                "energy",
                                "state",
                                "active",
                                "activeTime",
                                "inactiveTime",
                                "input1",
                                "switch1",
                                "name",
                                "pollingInterval",
                                "contactorAddress",
                                "contactAddress",
                                "groupNumber",
                                "addresses",
                                "multiplier",
                                "speed",
                                "list"})
            values.insert(key, value);
        Stage stage;
        show(stage, QString(QTest::currentDataTag()).section(' ', 0, 0), values, values);

        QTRY_VERIFY(stage.has("cardTitle"));
        stage.settle();

        QVERIFY(!file(stage).isEmpty());
    }

    void theFrameSaysWhatItIs()
    {
        Stage stage;
        auto *list = show(stage, "lamp", {}, {});
        QTRY_COMPARE(stage.text("cardTitle"), QString("4"));
        QCOMPARE(stage.text("cardType"), QString("Тип"));
        QVERIFY(color(stage, "cardType") != ColorTheme().red());

        publish(stage, {}, 3);
        QTRY_COMPARE(stage.text("cardTitle"), QString("4, Нет передатчика"));
        QCOMPARE(color(stage, "cardType"), ColorTheme().red());
        Model::Settings settings;
        settings.mrf.resize(2);
        stage.link.publishSettings(settings);
        QTRY_COMPARE(stage.text("cardTitle"), QString("4, Нет передатчика, MRF-3"));

        stage.click("cardTitle");
        QCOMPARE(list->property("clicks").toInt(), 1);
        stage.click("cardClose");
        QCOMPARE(list->property("clicks").toInt(), 1);
        QCOMPARE(list->property("closes").toInt(), 1);
        stage.item("tile")->forceActiveFocus();
        stage.item("tile")->property("card").value<QQuickItem *>()->forceActiveFocus();
        stage.key(Qt::Key_Return);
        QCOMPARE(list->property("clicks").toInt(), 2);
        stage.item("cardClose")->forceActiveFocus();
        stage.key(Qt::Key_Return);
        QCOMPARE(list->property("closes").toInt(), 2);
        QCOMPARE(list->property("clicks").toInt(), 2);
    }

    void aLampShowsItsPowerAndItsErrors()
    {
        Stage stage;
        show(stage, "lamp", {{"pollingInterval", 60000}}, {{"power", 40}, {"errors", 2}, {"rssidBm", -60}});

        QTRY_COMPARE(stage.text("powerBar"), QString("40%"));
        QCOMPARE(color(stage, "powerBar"), ColorTheme::brightnessToColor(40));
        QVERIFY(!stage.has("answerText"));
        QCOMPARE(color(stage, "cardCircle"), ColorTheme().blue());
        QVERIFY(qAbs(stage.item("signal")->opacity() - 1.0 / 3) < 0.001);
        stage.link.publishDeviceStates({state(21, {{"power", 40}, {"errors", 3}, {"rssidBm", -60}})});
        QTRY_COMPARE(stage.text("answerText"), QString("Не отвечает: >3 мин"));
        QVERIFY(!stage.has("signal"));
        QCOMPARE(color(stage, "cardCircle"), ColorTheme().red());
        stage.link.publishDeviceStates({state(21, {{"power", 0}, {"errors", 0}, {"rssidBm", -60}})});
        QTRY_COMPARE(stage.text("powerBar"), QString("0%"));
        QCOMPARE(stage.item("signal")->opacity(), 1.0);
        QVERIFY(!stage.has("answerText"));
    }

    void silenceIsToldInSteps_data()
    {
        QTest::addColumn<int>("errors");
        QTest::addColumn<int>("interval");
        QTest::addColumn<QString>("text");

        QTest::newRow("no interval") << 5 << 0 << "Не отвечает: >0 с";
        QTest::newRow("seconds") << 59 << 1000 << "Не отвечает: >59 с";
        QTest::newRow("a minute of seconds") << 60 << 1000 << "Не отвечает: >60 с";
        QTest::newRow("minutes") << 61 << 1000 << "Не отвечает: >1 мин";
        QTest::newRow("an hour of minutes") << 60 << 60000 << "Не отвечает: >60 мин";
        QTest::newRow("hours") << 119 << 60000 << "Не отвечает: >1 ч";
        QTest::newRow("a day of hours") << 24 << 3600000 << "Не отвечает: >24 ч";
        QTest::newRow("days") << 49 << 3600000 << "Не отвечает: >2 д";
        QTest::newRow("half seconds") << 3 << 500 << "Не отвечает: >1 с";
    }

    void silenceIsToldInSteps()
    {
        QFETCH(int, errors);
        QFETCH(int, interval);
        Stage stage;
        show(stage, "lamp", {{"pollingInterval", interval}}, {{"errors", errors}});

        QTRY_VERIFY(stage.has("answerText"));
        QTEST(stage.text("answerText"), "text");
    }

    void aGroupOfLampsSaysItsNumberAndAddresses()
    {
        Stage stage;
        show(stage, "lamp_group", {{"groupNumber", 7}, {"addresses", QVariantList{1, 2, 15}}}, {{"power", 100}});

        QTRY_COMPARE(stage.text("cardTitle"), QString("Группа 7"));
        QCOMPARE(stage.text("powerBar"), QString("100%"));
        QCOMPARE(stage.text("addressesText"), QString("Адреса: 1, 2, 15"));
    }

    void aContactorShowsItsSwitches()
    {
        Stage stage;
        show(stage, "polling_contactor",
             {{"contactorAddress", 12}, {"switch1", true}, {"switch2", true}, {"switch3", true}, {"switch4", true}},
             {{"power", 100}});
        QTRY_COMPARE(stage.text("cardTitle"), QString("4 [12]"));
        const auto check = [&](const QColor &used) {
            for (int i = 1; i <= 16; ++i) {
                auto *cell = stage.item(QStringLiteral("cell%1").arg(i));
                QVERIFY(cell);
                QCOMPARE(cell->opacity(), i <= 4 ? 1.0 : 0.3);
                QCOMPARE(cell->property("color").value<QColor>(), i <= 4 ? used : ColorTheme().grey());
                QCOMPARE(cell->y() > 0, i % 2 == 0); // top to bottom, then the next column
                QCOMPARE(cell->x(), stage.item(QStringLiteral("cell%1").arg((i - 1) / 2 * 2 + 1))->x());
            }
        };

        check(ColorTheme().green());
        stage.link.publishDeviceStates({state(21, {{"power", 0}})});
        QTRY_COMPARE(color(stage, "cell1"), ColorTheme().grey());

        check(ColorTheme().grey());
    }

    void aContactorOfOneSwitchIsGreenOrRed()
    {
        Stage stage;
        show(stage, "x", {{"switchIndex", 3}}, {{"power", 1}}, "ContactorTile");

        QTRY_COMPARE(color(stage, "cell"), ColorTheme().green());
        QCOMPARE(stage.item("cell")->property("number").toInt(), 3);
        QCOMPARE(stage.item("cell")->opacity(), 1.0);
        stage.link.publishDeviceStates({state(21, {{"power", 0}})});
        QTRY_COMPARE(color(stage, "cell"), ColorTheme().red());
    }

    void aSensorOfContactsShowsItsInputs()
    {
        Stage stage;
        show(stage, "sensor_contact", {{"contactAddress", 9}, {"input1", true}, {"input2", true}, {"input3", false}},
             {{"input1", true}, {"input2", false}, {"input3", true}});

        QTRY_COMPARE(stage.text("cardTitle"), QString("4 [9]"));
        QCOMPARE(color(stage, "cell1"), ColorTheme().green());
        QVERIFY(stage.item("cell1")->isEnabled() && stage.item("cell2")->isEnabled());
        QVERIFY(color(stage, "cell2") != ColorTheme().green());
        for (const char *unused : {"cell3", "cell4", "cell5", "cell6"}) {
            QVERIFY(!stage.item(unused)->isEnabled());
            QVERIFY(color(stage, unused) != ColorTheme().green());
        }
        QCOMPARE(stage.item("cell3")->y(), 0.0);
        QVERIFY(stage.item("cell4")->y() > 0);
        QVERIFY(!stage.has("cell7"));
    }

    void aSensorOfTemperatureSaysWhetherItAnswers()
    {
        Stage stage;
        show(stage, "polling_temp_sensor", {{"pollingInterval", 60000}},
             {{"temperature", 21.46}, {"errors", 0}, {"rssidBm", -60}});

        QTRY_COMPARE(stage.text("valueText"), QString("21.5 °C"));
        QCOMPARE(stage.text("intervalText"), QString("Интервал опроса: 60 с"));
        QCOMPARE(stage.text("answerText"), QString("Получен ответ"));
        QCOMPARE(color(stage, "cardCircle"), ColorTheme().blue());
        QCOMPARE(stage.item("signal")->opacity(), 1.0);
        stage.link.publishDeviceStates({state(21, {{"temperature", -5}, {"errors", 9}, {"rssidBm", -60}})});
        QTRY_COMPARE(stage.text("answerText"), QString("Не отвечает: >9 мин"));
        QCOMPARE(stage.text("valueText"), QString("-5 °C"));
        QCOMPARE(color(stage, "cardCircle"), ColorTheme().red());
        QVERIFY(qAbs(stage.item("signal")->opacity() - 0.1) < 0.001);
        stage.link.publishDeviceStates({state(21, {{"errors", 10}, {"rssidBm", -60}})});
        QTRY_VERIFY(!stage.has("signal"));
        QCOMPARE(stage.text("valueText"), QString("— °C"));
    }

    void aSensorOfLightPalesWithTheLight()
    {
        Stage stage;
        show(stage, "polling_light_sensor", {{"pollingInterval", 1500}, {"multiplier", 1.25}},
             {{"brightness", 0}, {"errors", 0}});
        QTRY_COMPARE(stage.text("valueText"), QString("0 лк"));
        QCOMPARE(stage.text("multiplierText"), QString("Множитель нормализации: 1.25"));
        QCOMPARE(stage.text("intervalText"), QString("Интервал опроса: 1.5 с"));
        const QColor dark = color(stage, "cardCircle");

        stage.link.publishDeviceStates({state(21, {{"brightness", 200}, {"errors", 0}})});
        QTRY_COMPARE(stage.text("valueText"), QString("200 лк"));
        const QColor light = color(stage, "cardCircle");
        QVERIFY(light != dark);
        stage.link.publishDeviceStates({state(21, {{"brightness", 5000}, {"errors", 0}})});
        QTRY_COMPARE(stage.text("valueText"), QString("5000 лк"));
        QCOMPARE(color(stage, "cardCircle"), light);
        stage.link.publishDeviceStates({state(21, {{"brightness", 100}, {"errors", 0}})});
        QTRY_COMPARE(color(stage, "cardCircle").red(), ColorTheme::blend(dark, light, 0.5).red());
        stage.link.publishDeviceStates({state(21, {{"brightness", 100}, {"errors", 1}})});
        QTRY_COMPARE(color(stage, "cardCircle"), ColorTheme().red());
    }

    void aBeaconSaysSinceWhen()
    {
        Stage stage;
        show(stage, "beacon", {{"name", ""}},
             {{"active", true}, {"activeTime", 180}, {"inactiveTime", 0}, {"rssidBm", -60}});

        QTRY_COMPARE(stage.text("activityBar"), QString("Активен: 3 мин"));
        QCOMPARE(color(stage, "activityBar"), ColorTheme().green());
        QVERIFY(!stage.has("nameText"));
        QCOMPARE(stage.item("signal")->opacity(), 1.0);
        publish(stage, {{"name", "Тележка"}});
        QTRY_COMPARE(stage.text("nameText"), QString("Название: Тележка"));
        stage.link.publishDeviceStates({state(21, {{"active", false}, {"inactiveTime", 15}, {"rssidBm", -60}})});
        QTRY_COMPARE(stage.text("activityBar"), QString("Неактивен: 15 с"));
        QCOMPARE(color(stage, "activityBar"), ColorTheme().grey());
        QCOMPARE(stage.item("signal")->opacity(), 0.5);
        stage.link.publishDeviceStates({state(21, {{"active", false}, {"inactiveTime", 30}, {"rssidBm", -60}})});
        QTRY_VERIFY(!stage.has("signal"));
    }

    void aMeterShowsItsPhases()
    {
        Stage stage;
        show(stage, "polling_rs_electric_meter", {{"pollingInterval", 60000}},
             {{"voltages", QVariantList{220.04, 221, 219.5}},
              {"amperages", QVariantList{1, 2.345, 3}},
              {"powers", QVariantList{100, 200.5, 1300}},
              {"cosines", QVariantList{0.95, 1}},
              {"energy", 1234.9},
              {"state", "u"},
              {"errors", 9}});

        QTRY_COMPARE(stage.text("meterPower"), QString("1600.5 Вт"));
        QCOMPARE(stage.text("meterEnergy"), QString("1234 кВт-ч"));
        QCOMPARE(rowText(stage, 0), QString("V, В|220|221|219.5"));
        QVERIFY(rowText(stage, 1).startsWith("I, А|1|2.3"));
        QCOMPARE(rowText(stage, 2), QString("P, кВт|0.1|0.2|1.3"));
        QCOMPARE(rowText(stage, 3), QString("cosϕ|0.95|1|—"));
        QCOMPARE(stage.text("answerText"), QString("Получение U"));
        stage.link.publishDeviceStates({state(21, {{"state", "u"}, {"errors", 10}})});
        QTRY_COMPARE(stage.text("answerText"), QString("Не отвечает: >10 мин"));
        QCOMPARE(color(stage, "answerText"), ColorTheme().red());
        QCOMPARE(stage.text("meterPower"), QString("N/A"));
        QCOMPARE(rowText(stage, 0), QString("V, В|—|—|—"));
    }

    void aMeterSaysItsStep_data()
    {
        QTest::addColumn<QString>("step");
        QTest::addColumn<QString>("text");

        QTest::newRow("init") << "init"
                              << "Соединение";
        QTest::newRow("u") << "u"
                           << "Получение U";
        QTest::newRow("i") << "i"
                           << "Получение I";
        QTest::newRow("p") << "p"
                           << "Получение P";
        QTest::newRow("c") << "c"
                           << "Получение cos";
        QTest::newRow("e") << "e"
                           << "Получение E";
        QTest::newRow("none") << ""
                              << "Ожидание";
    }

    void aMeterSaysItsStep()
    {
        QFETCH(QString, step);
        Stage stage;
        show(stage, "polling_rs_electric_meter", {}, {{"state", step}});

        QTRY_VERIFY(stage.has("answerText"));
        QTEST(stage.text("answerText"), "text");
    }

    void anUnknownKindShowsAllItHas()
    {
        Stage stage;
        show(stage, "unknown", {{"list", QVariantList{1, "a"}}}, {{"speed", 12.5}});

        QTRY_COMPARE(stage.text("description0"), QString("Скорость"));
        QCOMPARE(stage.text("value0"), QString("12.5"));
        QCOMPARE(stage.text("description1"), QString("Список"));
        QCOMPARE(stage.text("value1"), QString("[1,\"a\"]"));
        stage.link.publishDeviceStates({state(21, {{"speed", "fast"}})});
        QTRY_COMPARE(stage.text("value0"), QString("\"fast\""));
        stage.link.publishDeviceStates({state(21, {})});
        QTRY_COMPARE(stage.text("value0"), QString());
    }

    void theSignalHasFourBars_data()
    {
        QTest::addColumn<int>("radio");
        QTest::addColumn<double>("rssi");
        QTest::addColumn<int>("bars");

        QTest::newRow("short, below") << 1 << -91.0 << 0;
        QTest::newRow("short, least") << 1 << -90.0 << 0;
        QTest::newRow("short, middle") << 1 << -62.5 << 2;
        QTest::newRow("short, most") << 1 << -35.0 << 4;
        QTest::newRow("short, above") << 1 << -10.0 << 4;
        QTest::newRow("long, below") << 3 << -121.0 << 0;
        QTest::newRow("long, one") << 3 << -97.5 << 1;
        QTest::newRow("long, three") << 3 << -52.5 << 3;
        QTest::newRow("long, above") << 3 << -29.0 << 4;
        QTest::newRow("network") << 2 << -90.0 << 0;
        QTest::newRow("wire") << 4 << -35.0 << 4;
    }

    void theSignalHasFourBars()
    {
        QFETCH(int, radio);
        QFETCH(double, rssi);
        Stage stage;
        auto *shown = stage.show("TileSignalIndicator { objectName: 'shown'; radioType: " + QByteArray::number(radio)
                                 + "; rssi: " + QByteArray::number(rssi) + " }");

        QTEST(shown->property("bars").toInt(), "bars");
        QCOMPARE(stage.text("signalText"), QString::number(rssi) + " dBm");
        shown->setProperty("rssi", QVariant());
        QVERIFY(!stage.has("shown"));
    }
};

ONDIRA_TEST(DeviceTilesTest)
#include "DeviceTilesTest.moc"
