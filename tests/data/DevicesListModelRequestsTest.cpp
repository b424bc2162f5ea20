// SPDX-License-Identifier: GPL-3.0-or-later
// What the list of devices tells scripts of its rows, and what it sends for them.
#include "DevicesSite.h"
#include "Records.h"
#include "ScriptTools.h"
#include "support/TestBase.h"

#include <QJSEngine>

using namespace Records;
using Site = DevicesSite;

class DevicesListModelRequestsTest : public TestBase
{
    Q_OBJECT

private slots:
    void tellsModesAndStatesOfAZone()
    {
        Site site;
        site.link.publishDevices({device(1, 5), device(2, 6), device(3, 5)});
        site.link.publishDeviceStates({state(1, power(1)), state(2, power(2))});
        site.link.publishDeviceModes({manual(3)});

        QVERIFY(site.devices.getDeviceModes(uid(5)) == (std::vector<Model::DeviceMode>{automatic(1), manual(3)}));
        QVERIFY(site.devices.getDeviceStates(uid(5))
                == (std::vector<Model::DeviceState>{state(1, power(1)), state(3, {})}));
        QCOMPARE(site.devices.getDeviceModes(QUuid()).size(), std::size_t(3));
        QCOMPARE(site.devices.getDeviceStates(QUuid()).size(), std::size_t(3));
        QVERIFY(site.devices.getDeviceModes(uid(9)).empty());
        QVERIFY(site.devices.getDeviceStates(uid(9)).empty());
    }

    void tellsTheTypeOfADevice()
    {
        Site site;
        site.link.publishDevices({device(1, 0, "lamp.qml"), device(2, 0, "other.qml")});
        site.link.publishDeviceTypes({type("lamp.qml", "Lamp")});

        QCOMPARE(site.devices.getTypeInfoForDevice(uid(1)).name, QString("Lamp"));
        QCOMPARE(site.devices.getTypeInfoForDevice(uid(2)).name, QString("No name"));
        QCOMPARE(site.devices.getTypeInfoForDevice(uid(9)).name, QString("No name"));
    }

    void convertsZonesToDevicesAndBack()
    {
        Site site;
        site.link.publishDevices({device(1, 5), device(2, 6), device(3, 5), device(4)});

        QCOMPARE(site.devices.zonesToDevices({text(5)}), QStringList({text(1), text(3)}));
        QCOMPARE(site.devices.zonesToDevices({text(6), text(5), text(9)}), QStringList({text(1), text(2), text(3)}));
        QCOMPARE(site.devices.zonesToDevices({}), QStringList());
        QCOMPARE(site.devices.devicesToZones({text(3), text(1), text(2)}), QStringList({text(5), text(6)}));
        QCOMPARE(site.devices.devicesToZones({text(9)}), QStringList());
        QCOMPARE(site.devices.devicesToZones({}), QStringList());
    }

    void readsADeviceFromAnObject()
    {
        Site site;
        QJSEngine engine;
        const auto value = engine.evaluate(
            QString("[{uid: '%1', url: 'lamp.qml', zoneUid: '%2', address: 42, version: 1, radioType: 3,"
                    " radioIndex: 2, data: {name: 'Hall', list: [1, 2]}}]")
                .arg(text(1), text(5)));

        site.devices.addDevice(value, engine.evaluate("(function(uids) { got = uids.join(); })"));
        site.link.uidsCallback({uid(7)});

        QCOMPARE(site.link.operations, QStringList({"addDevices"}));
        const Model::DeviceDescriptor expected(QUrl("lamp.qml"), uid(1), uid(5), 1, 42,
                                               {{"name", "Hall"}, {"list", QVariantList{1, 2}}},
                                               Model::RadioStatus::DeviceType::LoRa, 2);
        QVERIFY(site.link.devices == std::vector<Model::DeviceDescriptor>{expected});
        QCOMPARE(engine.globalObject().property("got").toString(), text(7));
    }

    void readsOnlyWhatTheObjectHas()
    {
        Site site;
        QJSEngine engine;

        site.devices.changeDevice(engine.evaluate(QString("[{uid: '%1', address: 3}, {}]").arg(text(1))));

        QCOMPARE(site.link.operations, QStringList({"changeDevices"}));
        const Model::DeviceDescriptor first({}, uid(1), {}, 0, 3, {}, Model::RadioStatus::DeviceType::None, -1);
        const Model::DeviceDescriptor second({}, {}, {}, 0, 0, {}, Model::RadioStatus::DeviceType::None, -1);
        QVERIFY(site.link.devices == (std::vector<Model::DeviceDescriptor>{first, second}));
    }

    void passesOverElementsThatAreNoObjects()
    {
        Site site;
        QJSEngine engine;

        site.devices.addDevice(engine.evaluate("[null, 5, 'text', undefined, {address: 9}, , true]"));

        QCOMPARE(site.link.devices.size(), std::size_t(1));
        QCOMPARE(site.link.devices[0].address, 9);
    }

    void valuesOfAWrongTypeAreConverted()
    {
        Site site;
        QJSEngine engine;

        site.devices.addDevice(engine.evaluate(
            "[{uid: 5, url: null, zoneUid: {}, address: 'x', version: 1.9, radioType: 99, radioIndex: NaN, data: 7}]"));

        const Model::DeviceDescriptor expected(QUrl("null"), {}, {}, 1, 0, {},
                                               static_cast<Model::RadioStatus::DeviceType>(99), 0);
        QVERIFY(site.link.devices == std::vector<Model::DeviceDescriptor>{expected});
    }

    void takesNothingButArrays_data()
    {
        QTest::addColumn<QString>("value");

        for (const auto *const text :
             {"undefined", "null", "'text'", "5", "({length: 1, 0: {}})", "[]", "[1, 2]", "(function() {})"})
            QTest::newRow(text) << text;
    }

    void takesNothingButArrays()
    {
        Site site;
        QJSEngine engine;
        QFETCH(QString, value);

        site.devices.addDevice(engine.evaluate(value));
        site.devices.changeDevice(engine.evaluate(value));

        QCOMPARE(site.link.operations, QStringList());
    }

    void removesByUids()
    {
        Site site;

        site.devices.removeDevices({text(1), "no uid", text(2)});
        const Model::DeviceDescriptor first({}, uid(1), {}, 0, 0, {}, Model::RadioStatus::DeviceType::None, -1);
        const Model::DeviceDescriptor second({}, uid(2), {}, 0, 0, {}, Model::RadioStatus::DeviceType::None, -1);
        QVERIFY(site.link.devices == (std::vector<Model::DeviceDescriptor>{first, second}));
        site.devices.removeDevices({});

        QCOMPARE(site.link.operations, QStringList({"removeDevices"}));
    }

    void scriptsMayPassAnything()
    {
        // Qt warns of arguments that it cannot convert.
        allowMessages("Could not convert argument|%entry@|incompatible arguments|TypeError in future");
        Site site;
        QJSEngine engine;
        site.link.publishDevices({device(1, 5)});
        expose(engine, "devices", site.devices);

        for (const auto *const call :
             {"devices.removeDevices(undefined)", "devices.removeDevices(5)", "devices.removeDevices('text')",
              "devices.addDevice(undefined)", "devices.addDevice()", "devices.changeDevice('text')",
              "devices.zonesToDevices(undefined)", "devices.devicesToZones({})", "devices.getByUid(7)"})
            engine.evaluate(call);
        QCOMPARE(site.link.operations, QStringList());
        const auto zones = engine.evaluate(QString("devices.zonesToDevices(['%1']).join()").arg(text(5)));

        QCOMPARE(zones.toString(), text(1));
    }
};

ONDIRA_TEST(DevicesListModelRequestsTest)
#include "DevicesListModelRequestsTest.moc"
