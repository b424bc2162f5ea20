// SPDX-License-Identifier: GPL-3.0-or-later
// What the list of zones sends: a new zone at a free place, changes of a copy, removal.
#include "Records.h"
#include "ScriptTools.h"
#include "ZonesSite.h"
#include "support/TestBase.h"

#include <QJSEngine>
#include <QtNumeric>

using namespace Records;
using Role = ZonesListModel::Role;
using Site = ZonesSite;

class ZonesListModelRequestsTest : public TestBase
{
    Q_OBJECT

private slots:
    void findsAFreePlace_data()
    {
        QTest::addColumn<double>("x");
        QTest::addColumn<double>("y");
        QTest::addColumn<double>("width"); // of the zone that stands there
        QTest::addColumn<double>("height");
        QTest::addColumn<double>("newWidth");
        QTest::addColumn<double>("expectedX");
        QTest::addColumn<double>("expectedY");

        QTest::newRow("behind it") << 0. << 0. << 100. << 100. << 96. << 100. << 0.;
        QTest::newRow("up to the edge") << 3000. << 0. << 1000. << 100. << 96. << 4000. << 0.;
        QTest::newRow("past the edge") << 3000. << 0. << 1000. << 100. << 97. << 0. << 100.;
        QTest::newRow("wide one wraps") << 2000. << 0. << 1000. << 500. << 3000. << 0. << 500.;
        QTest::newRow("lower line") << 50. << 700. << 100. << 100. << 96. << 150. << 700.;
        QTest::newRow("same line after truncation") << 0. << -0.5 << 100. << 10. << 96. << 100. << -0.5;
        QTest::newRow("above the canvas counts for nothing") << 0. << -50. << 100. << 10. << 96. << 0. << 0.;
        QTest::newRow("left of the canvas counts for nothing") << -500. << 0. << 100. << 10. << 96. << 0. << 0.;
        QTest::newRow("single precision")
            << 0.1 << 0.1 << 0.2 << 10. << 96. << double(float(0.1 + 0.2)) << double(0.1F);
        QTest::newRow("single precision after a wrap")
            << 4000. << 0.1 << 50. << 0.2 << 96. << 0. << double(float(0.1 + 0.2));
        QTest::newRow("not a number counts for nothing") << qQNaN() << qQNaN() << 10. << 10. << 96. << 0. << 0.;
        QTest::newRow("beyond all numbers") << 0. << 1e308 << 10. << 1e308 << 96. << 0. << 0.;
    }

    void findsAFreePlace()
    {
        QFETCH(double, x);
        QFETCH(double, y);
        QFETCH(double, width);
        QFETCH(double, height);
        QFETCH(double, newWidth);
        Site site;
        QJSEngine engine;
        site.link.publishZones({placed(1, 3, x, y, width, height)});
        auto value = engine.newObject();
        value.setProperty("width", newWidth);
        value.setProperty("height", 96);
        value.setProperty("partUid", text(3));

        site.zones.addZone(value, QJSValue());

        QCOMPARE(site.link.zones.size(), std::size_t(1));
        QTEST(site.link.zones[0].position.x, "expectedX");
        QTEST(site.link.zones[0].position.y, "expectedY");
    }

    void searchesThePartOnly()
    {
        Site site;
        QJSEngine engine;
        site.link.publishZones(
            {placed(1, 4, 0, 0, 500, 500), placed(2, 3, 0, 0, 200, 50), placed(3, 3, 0, 60, 70, 40)});

        site.zones.addZone(engine.evaluate(QString("({width: 96, height: 96, partUid: '%1'})").arg(text(3))));

        QCOMPARE(site.link.zones[0].position, (Model::Position{70, 60}));
    }

    void searchesAmongZonesThatTheUserMayNotSee()
    {
        Site site;
        QJSEngine engine;
        site.link.logIn("anna", "user");
        site.link.publishUsers({limitedUser("anna", {})});
        site.link.publishZones({placed(2, 3, 0, 0, 200, 50)});

        site.zones.addZone(engine.evaluate(QString("({width: 96, height: 96, partUid: '%1'})").arg(text(3))));

        QCOMPARE(site.link.zones[0].position, (Model::Position{200, 0}));
    }

    void searchKeepsSinglePrecisionFromStepToStep()
    {
        Site site;
        QJSEngine engine;
        // 0.7 in single precision is less than 0.7, so that the second zone of the line counts as a lower one.
        site.link.publishZones({placed(1, 3, 0, 0.7, 500, 5), placed(2, 3, 0, 0.7, 70, 5)});

        site.zones.addZone(engine.evaluate(QString("({width: 96, height: 96, partUid: '%1'})").arg(text(3))));

        QCOMPARE(site.link.zones[0].position, (Model::Position{70, double(0.7F)}));
    }

    void addsAZoneAtTheGivenPlace()
    {
        Site site;
        QJSEngine engine;
        site.link.publishZones({placed(1, 3, 0, 0, 100, 100)});

        site.zones.addZone(
            engine.evaluate(QString("({x: 1.5, y: 2, width: 30, height: 40, partUid: '%1'})").arg(text(3))));

        QCOMPARE(site.link.operations, QStringList({"addZones"}));
        const auto added = site.link.zones.at(0);
        QVERIFY(!added.uid.isNull());
        QCOMPARE(added.partUid, uid(3));
        QCOMPARE(added.name, QString());
        QCOMPARE(added.position, (Model::Position{1.5, 2}));
        QCOMPARE(added.width, 30.0);
        QCOMPARE(added.height, 40.0);
        QCOMPARE(site.zones.rowCount(), 1);
    }

    void oneCoordinateIsNoPlace()
    {
        Site site;
        QJSEngine engine;

        site.zones.addZone(engine.evaluate("({x: 50, width: 30, height: 40})"));

        QCOMPARE(site.link.zones.at(0).position, (Model::Position{0, 0}));
    }

    void aZoneWithoutSizeHasTheUsualOne_data()
    {
        QTest::addColumn<QString>("value");

        QTest::newRow("empty object") << "({})";
        QTest::newRow("no numbers") << "({width: 'wide', height: undefined, x: NaN, y: {}})";
        QTest::newRow("infinite") << "({width: Infinity, height: -Infinity, x: Infinity, y: 5})";
        QTest::newRow("array") << "[1, 2]";
    }

    void aZoneWithoutSizeHasTheUsualOne()
    {
        Site site;
        QJSEngine engine;
        QFETCH(QString, value);

        site.zones.addZone(engine.evaluate(value));

        QCOMPARE(site.link.zones.at(0).width, 100.0);
        QCOMPARE(site.link.zones.at(0).height, 100.0);
        QCOMPARE(site.link.zones.at(0).position, (Model::Position{0, 0}));
        QVERIFY(site.link.zones.at(0).partUid.isNull());
    }

    void addsNothingFromWhatIsNoObject_data()
    {
        QTest::addColumn<QString>("value");

        QTest::newRow("undefined") << "undefined";
        QTest::newRow("null") << "null";
        QTest::newRow("text") << "'zone'";
        QTest::newRow("number") << "5";
    }

    void addsNothingFromWhatIsNoObject()
    {
        Site site;
        QJSEngine engine;
        QFETCH(QString, value);

        site.zones.addZone(engine.evaluate(value));

        QCOMPARE(site.link.operations, QStringList());
    }

    void callsBackWithTheNewUids()
    {
        Site site;
        QJSEngine engine;
        const auto callback = engine.evaluate("(function(uids) { got = Array.isArray(uids) + ' ' + uids.join(); })");
        site.zones.addZone(engine.evaluate("({})"), callback);

        site.link.uidsCallback({uid(1), uid(2)});

        QCOMPARE(engine.globalObject().property("got").toString(), "true " + text(1) + ',' + text(2));
    }

    void aFailingCallbackIsLogged()
    {
        Site site;
        QJSEngine engine;
        site.zones.addZone(engine.evaluate("({})"), engine.evaluate("(function() { nosuchthing(); })"));
        expectMessage(QtWarningMsg, "A callback failed: .*nosuchthing");

        site.link.uidsCallback({uid(1)});
    }

    void aCallbackThatCannotBeCalledIsPassedOver()
    {
        Site site;
        QJSEngine engine;

        for (const auto *const text : {"undefined", "null", "'text'", "({})", "5"}) {
            site.zones.addZone(engine.evaluate("({})"), engine.evaluate(text));
            site.link.uidsCallback({uid(1)});
        }

        QCOMPARE(site.link.operations.size(), 5);
    }

    void aCallbackIsNotCalledWhenTheModelIsGone()
    {
        FakeCommunicator link;
        UsersListModel users(link);
        DevicesListModel devices(link);
        DeviceFaultsListModel faults(link, devices);
        QJSEngine engine;
        engine.evaluate("calls = 0");
        const auto callback = engine.evaluate("(function() { calls += 1; })");
        {
            ZonesListModel zones(link, devices, faults, users);
            zones.addZone(engine.evaluate("({})"), callback);
            link.uidsCallback({uid(1)});
        }

        link.uidsCallback({uid(1)});

        QCOMPARE(engine.globalObject().property("calls").toInt(), 1);
    }

    void aCallbackIsNotCalledWhenItsEngineIsGone()
    {
        Site site;
        {
            QJSEngine engine;
            site.zones.addZone(engine.evaluate("({})"), engine.evaluate("(function() {})"));
        }

        site.link.uidsCallback({uid(1)});

        QCOMPARE(site.link.operations, QStringList({"addZones"}));
    }

    void changesGeometryOfACopy()
    {
        Site site;
        auto record = placed(1, 3, 1, 2, 3, 4);
        record.name = "Hall";
        site.link.publishZones({record, zone(2)});

        site.zones.changeZoneGeometry(text(1), 10, 20, 30, 40);

        auto expected = record;
        expected.position = {10, 20};
        expected.width = 30;
        expected.height = 40;
        QCOMPARE(site.link.operations, QStringList({"changeZones"}));
        QVERIFY(site.link.zones == std::vector<Model::Zone>{expected});
        QCOMPARE(value(site.zones, 0, Role::X).toDouble(), 1.0);
    }

    void changesNameOfACopy()
    {
        Site site;
        site.link.publishZones({zone(1, "old", 3)});

        site.zones.changeZoneName(text(1), "new");

        QVERIFY(site.link.zones == std::vector<Model::Zone>{zone(1, "new", 3)});
        QCOMPARE(value(site.zones, 0, Role::Name).toString(), QString("old"));
    }

    void changesNothingOfAnUnknownZone()
    {
        Site site;
        site.link.publishZones({zone(1)});

        site.zones.changeZoneGeometry(text(2), 1, 2, 3, 4);
        site.zones.changeZoneGeometry("no uid", 1, 2, 3, 4);
        site.zones.changeZoneGeometry(text(1), qQNaN(), 2, 3, 4);
        site.zones.changeZoneGeometry(text(1), 1, 2, qInf(), 4);
        site.zones.changeZoneName(text(2), "new");
        site.zones.changeZoneName(QString(), "new");

        QCOMPARE(site.link.operations, QStringList());
    }

    void removesByUids()
    {
        Site site;

        site.zones.removeZones({text(1), "no uid", text(2)});

        QCOMPARE(site.link.operations, QStringList({"removeZones"}));
        QVERIFY(site.link.zones == (std::vector<Model::Zone>{zone(1), zone(2)}));
    }

    void scriptsMayPassAnything()
    {
        // Qt warns of arguments that it cannot convert.
        allowMessages("Could not convert argument|%entry@|incompatible arguments|TypeError in future");
        Site site;
        QJSEngine engine;
        expose(engine, "zones", site.zones);

        for (const auto *const call :
             {"zones.removeZones(undefined)", "zones.removeZones(5)", "zones.removeZones([])",
              "zones.removeZones({a: 1})", "zones.removeZones('text')", "zones.removeZones([null, 1, {}])",
              "zones.changeZoneName(null, {})", "zones.changeZoneGeometry('a', 'b', [], {}, null)",
              "zones.addZone(undefined)", "zones.getByUid(null)"})
            engine.evaluate(call);
        QCOMPARE(site.link.operations, QStringList());
        const auto result = engine.evaluate(QString("zones.removeZones(['%1']); 'done'").arg(text(1)));

        QCOMPARE(result.toString(), QString("done"));
        QCOMPARE(site.link.operations, QStringList({"removeZones"}));
        QCOMPARE(site.link.zones.at(0).uid, uid(1));
    }
};

ONDIRA_TEST(ZonesListModelRequestsTest)
#include "ZonesListModelRequestsTest.moc"
