// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QElapsedTimer>
#include <algorithm>

class DeviceAddScreenTest : public TestBase
{
    Q_OBJECT

private:
    static void publishTypes(Stage &stage)
    {
        using Model::ActionValueLimits;
        auto lamp = Records::type("file:///lamp.qml", "Лампа", 1);
        lamp.parameters.push_back({"minimum", "Минимум", {}, ActionValueLimits::integer(0, 100), 10LL});
        lamp.parameters.push_back(
            {"name", "Название", {}, ActionValueLimits::string(0, 20, QString()), QString("Новая")});
        auto sensor = Records::type("file:///sensor.qml", "Датчик", 2);
        sensor.parameters.push_back({"period", "Период", {}, ActionValueLimits::integer(1, 60), 5LL});
        auto beacon = Records::type("file:///beacon.qml", "Маяк", 3);
        beacon.customAddress = "serial";
        stage.link.publishDeviceTypes({sensor, beacon, lamp});
    }

    static void publishRadios(Stage &stage, int count)
    {
        Model::Settings settings;
        settings.mrf.resize(count > 0 ? 1 : 0);
        settings.lora.resize(static_cast<std::size_t>(std::max(0, count - 1)));
        stage.link.publishSettings(settings);
    }

    static QObject *show(Stage &stage, const QSize &size = {1280, 800})
    {
        stage.show("property alias dialog: dialog\n property var uids\n"
                   "DeviceAddDialog { id: dialog; objectName: \"dialog\"; zoneUid: \""
                       + Records::text(11).toUtf8() + "\"; callback: list => uids = list }",
                   size);
        open(stage);
        return stage.object("dialog");
    }

    static void open(Stage &stage)
    {
        auto *dialog = stage.object("dialog");
        QMetaObject::invokeMethod(dialog, "open");
        QTRY_VERIFY(dialog->property("opened").toBool());
        stage.settle();
    }

    static void choose(Stage &stage, const char *field, int row)
    {
        stage.click(field);
        const auto name = QStringLiteral("menuRow%1").arg(row);
        QTRY_VERIFY(stage.has(name));
        stage.settle();
        stage.click(name);
        QTRY_VERIFY(!stage.has(name));
        stage.settle();
    }

    static void enter(Stage &stage, const QString &addresses)
    {
        stage.click("addressField");
        stage.key(Qt::Key_A, Qt::ControlModifier);
        stage.key(Qt::Key_Delete);
        stage.type(addresses);
    }

    static bool canAccept(Stage &stage) { return stage.item("positiveButton")->isEnabled(); }

    static QList<int> sent(const Stage &stage)
    {
        QList<int> addresses;
        for (const auto &device : stage.link.devices)
            addresses << device.address;
        return addresses;
    }

private slots:
    void makesADeviceForEachAddress()
    {
        Stage stage;
        publishTypes(stage);
        publishRadios(stage, 1);
        auto *dialog = show(stage);
        QCOMPARE(dialog->property("title").toString(), QString("Добавление устройства"));
        QCOMPARE(dialog->property("width").toInt(), 520);
        QVERIFY(!stage.has("radioMenu"));
        QVERIFY(!canAccept(stage));

        enter(stage, "1-3, 7");
        QVERIFY(canAccept(stage));
        stage.click("positiveButton");

        QTRY_VERIFY(!dialog->property("visible").toBool());
        QCOMPARE(stage.link.operations.last(), QString("addDevices"));
        QCOMPARE(sent(stage), (QList<int>{1, 2, 3, 7}));
        const auto device = stage.link.devices.front();
        QCOMPARE(device.url, QUrl("file:///lamp.qml"));
        QCOMPARE(device.zoneUid, Records::uid(11));
        QVERIFY(device.uid.isNull());
        QCOMPARE(device.version, 1);
        QCOMPARE(device.data, (QVariantMap{{"minimum", 10}, {"name", "Новая"}}));
        QCOMPARE(device.radioType, Model::RadioStatus::DeviceType::Mrf);
        QCOMPARE(device.radioIndex, 0);

        stage.link.uidsCallback({Records::uid(21)});
        QCOMPARE(stage.window()->property("uids").value<QJSValue>().property(0).toString(), Records::text(21));
    }

    void addressesAreExpanded_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isAccepted");
        QTest::addColumn<QList<int>>("addresses");

        QTest::newRow("one") << "5" << true << QList<int>{5};
        QTest::newRow("list") << "5,3" << true << QList<int>{5, 3};
        QTest::newRow("twice") << "5,5" << true << QList<int>{5, 5};
        QTest::newRow("range of one") << "4-4" << true << QList<int>{4};
        QTest::newRow("zero in a list") << "0, 2" << true << QList<int>{2};
        QTest::newRow("from zero") << "0-5, 2" << true << QList<int>{2};
        QTest::newRow("upside down") << "5-1, 2" << true << QList<int>{2};
        QTest::newRow("end") << "65534-70000" << true << QList<int>{65534, 65535};
        QTest::newRow("far end") << "65535-999999999" << true << QList<int>{65535};
        QTest::newRow("beyond") << "70000-80000, 1" << true << QList<int>{1};
        QTest::newRow("beyond all") << "99999999999999999999999, 1" << true << QList<int>{1};
        QTest::newRow("empty") << "" << false << QList<int>{};
        QTest::newRow("no end") << "1-" << false << QList<int>{};
        QTest::newRow("no next") << "1," << false << QList<int>{};
        QTest::newRow("letters") << "a" << false << QList<int>{};
    }

    void addressesAreExpanded()
    {
        QFETCH(QString, text);
        QFETCH(bool, isAccepted);
        QFETCH(QList<int>, addresses);
        Stage stage;
        publishTypes(stage);
        show(stage);

        enter(stage, text);

        QCOMPARE(canAccept(stage), isAccepted);
        stage.click("positiveButton");
        QCOMPARE(sent(stage), addresses);
        QCOMPARE(stage.link.operations.count("addDevices"), isAccepted ? 1 : 0);
    }

    void withoutAnAddressNothingIsSent()
    {
        Stage stage;
        publishTypes(stage);
        auto *dialog = show(stage);

        for (const char *text : {"5-1", "0", "70000"}) {
            enter(stage, text);
            QVERIFY(canAccept(stage));
            stage.click("positiveButton");
            QVERIFY(dialog->property("opened").toBool());
            QCOMPARE(stage.text("fieldText"),
                     QString("Адреса устройств от 1 до 65535, через запятую или диапазоном: 1-3, 7"));
        }
        QVERIFY(!stage.link.operations.contains("addDevices"));
        enter(stage, "5");
        stage.click("positiveButton");
        QCOMPARE(sent(stage), QList<int>{5});
    }

    void allAddressesAtOnce()
    {
        Stage stage;
        publishTypes(stage);
        show(stage);
        enter(stage, "1-999999999,1-70000");
        QElapsedTimer timer;
        timer.start();

        stage.click("positiveButton");

        QCOMPARE(stage.link.devices.size(), std::size_t(65535));
        QCOMPARE(stage.link.devices.back().address, 65535);
        QVERIFY2(timer.elapsed() < 10000, qPrintable(QString::number(timer.elapsed())));
    }

    void aTypeThatAddressesItselfMakesOne()
    {
        Stage stage;
        publishTypes(stage);
        show(stage);
        QVERIFY(stage.has("addressField"));

        choose(stage, "typePicker", 2);

        QVERIFY(!stage.has("addressField"));
        QVERIFY(canAccept(stage));
        stage.click("positiveButton");
        QCOMPARE(sent(stage), QList<int>{0});
        QCOMPARE(stage.link.devices.front().url, QUrl("file:///beacon.qml"));
        QCOMPARE(stage.link.devices.front().radioType, Model::RadioStatus::DeviceType::None);
        QCOMPARE(stage.link.devices.front().radioIndex, 0);
    }

    void anotherTypeResetsTheProperties()
    {
        Stage stage;
        publishTypes(stage);
        show(stage);
        stage.click("parameter_minimum");
        stage.key(Qt::Key_A, Qt::ControlModifier);
        stage.type("50");
        enter(stage, "1");
        stage.click("parameter_minimum");
        stage.key(Qt::Key_A, Qt::ControlModifier);
        stage.type("500");
        QVERIFY(!canAccept(stage));

        choose(stage, "typePicker", 1);
        QVERIFY(stage.has("parameter_period"));
        QVERIFY(!stage.has("parameter_minimum"));
        QVERIFY(canAccept(stage));
        choose(stage, "typePicker", 0);
        stage.click("positiveButton");

        QCOMPARE(stage.link.devices.front().data.value("minimum").toInt(), 10);
    }

    void theRadioIsChosenAmongSeveral()
    {
        Stage stage;
        publishTypes(stage);
        publishRadios(stage, 3);
        show(stage);
        QVERIFY(stage.has("radioMenu"));

        choose(stage, "radioMenu", 2);
        enter(stage, "1");
        stage.click("positiveButton");

        QCOMPARE(stage.link.devices.front().radioType, Model::RadioStatus::DeviceType::LoRa);
        QCOMPARE(stage.link.devices.front().radioIndex, 1);
    }

    void whatWasTypedStays()
    {
        Stage stage;
        publishTypes(stage);
        auto *dialog = show(stage);
        enter(stage, "12");
        stage.click("parameter_name");
        stage.key(Qt::Key_A, Qt::ControlModifier);
        stage.type("Моя");
        stage.click("negativeButton");
        QTRY_VERIFY(!dialog->property("visible").toBool());
        QVERIFY(!stage.link.operations.contains("addDevices"));

        open(stage);

        QCOMPARE(stage.text("addressField"), QString("12"));
        stage.click("positiveButton");
        QCOMPARE(stage.link.devices.front().data.value("name").toString(), QString("Моя"));
    }

    void returnInAFieldTakesWhatIsInIt()
    {
        Stage stage;
        publishTypes(stage);
        show(stage);
        enter(stage, "12");
        stage.click("parameter_name");
        stage.key(Qt::Key_A, Qt::ControlModifier);
        stage.type("Моя");

        stage.key(Qt::Key_Return);

        QCOMPARE(sent(stage), QList<int>{12});
        QCOMPARE(stage.link.devices.front().data.value("name").toString(), QString("Моя"));
    }

    void withoutTypesNothingCanBeAdded()
    {
        Stage stage;
        show(stage);
        enter(stage, "1");
        QVERIFY(!canAccept(stage));

        publishTypes(stage);

        QTRY_VERIFY(canAccept(stage));
        stage.click("positiveButton");
        QCOMPARE(stage.link.devices.front().data.value("minimum").toInt(), 10);
    }

    void typesThatAreSentAgainKeepTheForm()
    {
        Stage stage;
        publishTypes(stage);
        show(stage);
        choose(stage, "typePicker", 1);
        stage.click("parameter_period");
        stage.key(Qt::Key_A, Qt::ControlModifier);
        stage.type("42");
        enter(stage, "1");

        publishTypes(stage);
        stage.settle();
        stage.click("positiveButton");

        QCOMPARE(stage.link.devices.front().url, QUrl("file:///sensor.qml"));
        QCOMPARE(stage.link.devices.front().data.value("period").toInt(), 42);
    }

    void fitsASmallWindow()
    {
        Stage stage;
        publishTypes(stage);
        auto *dialog = show(stage, {360, 640});

        QVERIFY(dialog->property("width").toReal() <= 360);
        QVERIFY(stage.has("typePicker"));
    }
};

ONDIRA_TEST(DeviceAddScreenTest)
#include "DeviceAddScreenTest.moc"
