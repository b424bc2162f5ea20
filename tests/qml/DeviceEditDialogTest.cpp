// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

class DeviceEditDialogTest : public TestBase
{
    Q_OBJECT

private:
    static void publish(Stage &stage, int loraRadios = 2)
    {
        using Model::ActionValueLimits;
        auto lamp = Records::type("file:///lamp.qml", "Лампа", 1);
        lamp.parameters.push_back({"minimum", "Минимум", {}, ActionValueLimits::integer(0, 100), 10LL});
        lamp.parameters.push_back(
            {"name", "Название", {}, ActionValueLimits::string(0, 20, QString()), QString("Новая")});
        auto beacon = Records::type("file:///beacon.qml", "Маяк", 3);
        beacon.customAddress = "serial";
        stage.link.publishDeviceTypes({beacon, lamp});
        Model::Settings settings;
        settings.lora.resize(static_cast<std::size_t>(loraRadios));
        stage.link.publishSettings(settings);
        auto first = Records::device(21, 11, "file:///lamp.qml", 5);
        first.version = 1;
        first.data = {{"name", "Окно"}, {"other", 3}};
        first.radioType = Model::RadioStatus::DeviceType::LoRa;
        first.radioIndex = 1;
        auto second = Records::device(22, 11, "file:///beacon.qml", 9);
        auto third = Records::device(23, 11, "file:///gone.qml", 9);
        stage.link.publishDevices({first, second, third});
    }

    static QObject *show(Stage &stage, uint uid)
    {
        stage.show("DeviceEditDialog { objectName: \"dialog\" }");
        auto *dialog = stage.object("dialog");
        QMetaObject::invokeMethod(dialog, "openDialog", Q_ARG(QVariant, Records::text(uid)));
        stage.settle();
        return dialog;
    }

    static void typeInto(Stage &stage, const char *field, const QString &text)
    {
        stage.click(field);
        stage.key(Qt::Key_A, Qt::ControlModifier);
        stage.type(text);
    }

private slots:
    void showsTheDevice()
    {
        Stage stage;
        publish(stage);
        auto *dialog = show(stage, 21);

        QVERIFY(dialog->property("visible").toBool());
        QCOMPARE(dialog->property("title").toString(), QString("Редактирование устройства"));
        QCOMPARE(dialog->property("width").toInt(), 520);
        QCOMPARE(stage.text("addressField"), QString("5"));
        QCOMPARE(stage.item("radioMenu")->property("label").toString(), QString("Радио передатчик"));
        QCOMPARE(stage.text("stringField"), QString("Окно"));
        QCOMPARE(stage.text("numberField"), QString("10")); // the default of a key that the data lacks
    }

    void savesWhatWasChanged()
    {
        Stage stage;
        publish(stage);
        show(stage, 21);
        typeInto(stage, "addressField", "77");
        typeInto(stage, "parameter_minimum", "20");
        typeInto(stage, "parameter_name", "Дверь");

        stage.click("positiveButton");

        QCOMPARE(stage.link.operations.last(), QString("changeDevices"));
        QCOMPARE(stage.link.devices.size(), std::size_t(1));
        const auto device = stage.link.devices.front();
        QCOMPARE(device.uid, Records::uid(21));
        QCOMPARE(device.address, 77);
        QCOMPARE(device.data, (QVariantMap{{"minimum", 20}, {"name", "Дверь"}, {"other", 3}}));
        QCOMPARE(device.radioType, Model::RadioStatus::DeviceType::LoRa);
        QCOMPARE(device.radioIndex, 1);
        QCOMPARE(device.url, QUrl("file:///lamp.qml"));
        QCOMPARE(device.zoneUid, Records::uid(11));
        QCOMPARE(device.version, 1);
    }

    void anotherRadioIsChosen()
    {
        Stage stage;
        publish(stage);
        show(stage, 21);
        stage.item("radioMenu")->forceActiveFocus();

        stage.key(Qt::Key_Home);
        stage.click("positiveButton");

        QCOMPARE(stage.link.devices.front().radioType, Model::RadioStatus::DeviceType::LoRa);
        QCOMPARE(stage.link.devices.front().radioIndex, 0);
    }

    void aRadioThatIsNotThereStays()
    {
        Stage stage;
        publish(stage, 1);
        show(stage, 21);
        QVERIFY(stage.has("radioMenu"));

        stage.click("positiveButton");

        QCOMPARE(stage.link.devices.front().radioType, Model::RadioStatus::DeviceType::LoRa);
        QCOMPARE(stage.link.devices.front().radioIndex, 1);
    }

    void withoutRadiosThereIsNone()
    {
        Stage stage;
        publish(stage, 0);
        show(stage, 21);
        QVERIFY(!stage.has("radioMenu"));

        stage.click("positiveButton");

        QCOMPARE(stage.link.devices.front().radioType, Model::RadioStatus::DeviceType::None);
        QCOMPARE(stage.link.devices.front().radioIndex, 0);
    }

    void aTypeThatAddressesItselfHasNoAddress()
    {
        Stage stage;
        publish(stage);
        show(stage, 22);
        QVERIFY(!stage.has("addressField"));

        stage.click("positiveButton");

        QCOMPARE(stage.link.devices.front().address, 9);
    }

    void anUnknownTypeHasNoProperties()
    {
        Stage stage;
        publish(stage);
        show(stage, 23);
        QCOMPARE(stage.text("addressField"), QString("9"));

        stage.click("positiveButton");

        QCOMPARE(stage.link.devices.front().uid, Records::uid(23));
        QVERIFY(stage.link.devices.front().data.isEmpty());
    }

    void errorsBlockTheButton()
    {
        Stage stage;
        publish(stage);
        show(stage, 21);
        auto *button = stage.item("positiveButton");
        QVERIFY(button->isEnabled());

        typeInto(stage, "addressField", "65536");
        QVERIFY(!button->isEnabled());
        typeInto(stage, "addressField", "65535");
        QVERIFY(button->isEnabled());
        typeInto(stage, "parameter_minimum", "101");
        QVERIFY(!button->isEnabled());
        typeInto(stage, "parameter_minimum", "100");
        QVERIFY(button->isEnabled());
    }

    void aDeviceThatIsNotThereOpensNothing()
    {
        Stage stage;
        publish(stage);
        auto *dialog = show(stage, 99);

        QVERIFY(!dialog->property("visible").toBool());
    }

    void aDeviceThatGoesMeanwhileIsLeftAlone()
    {
        Stage stage;
        publish(stage);
        auto *dialog = show(stage, 21);

        stage.link.publishDevices({});
        stage.click("positiveButton");

        QTRY_VERIFY(!dialog->property("visible").toBool());
        QVERIFY(!stage.link.operations.contains("changeDevices"));
    }

    void aPublicationLeavesWhatIsTyped()
    {
        Stage stage;
        publish(stage);
        show(stage, 21);
        typeInto(stage, "addressField", "77");

        publish(stage);
        stage.settle();

        QCOMPARE(stage.text("addressField"), QString("77"));
        stage.click("positiveButton");
        QCOMPARE(stage.link.devices.front().address, 77);
    }
};

ONDIRA_TEST(DeviceEditDialogTest)
#include "DeviceEditDialogTest.moc"
