// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/DemoSite.h"
#include "SiteFixture.h"
#include "support/TestBase.h"

#include <QSignalSpy>

using Demo::DemoSite;
using List = DemoSite::List;
using namespace SiteFixture;

namespace {

QList<List> listsOf(const QSignalSpy &changed)
{
    QList<List> lists;
    for (const auto &signal : changed)
        lists << signal.first().value<List>();
    return lists;
}

} // namespace

class DemoSiteTest : public TestBase
{
    Q_OBJECT

private slots:
    void equalStateAnnouncesNothing();
    void eachStateHasARevisionOfItsOwn();
    void unknownDeviceIsPassedOver();
    void equalModeAnnouncesNothing();
    void powerIsClamped_data();
    void powerIsClamped();
    void zoneKeepsItsRuleWhenChanged();
    void removalKeepsTheOthersFindable();
    void resetAnnouncesEveryList();
    void replacedStatesHaveNewRevisions();
};

void DemoSiteTest::equalStateAnnouncesNothing()
{
    DemoSite site(data());
    QSignalSpy changed(&site, &DemoSite::changed);

    site.setState(QUuid(lamp), site.device(QUuid(lamp))->state);
    QVERIFY(changed.isEmpty());

    site.setState(QUuid(lamp), {{"power", 1}});
    QCOMPARE(listsOf(changed), QList<List>{List::DeviceStates});
}

void DemoSiteTest::eachStateHasARevisionOfItsOwn()
{
    DemoSite site(data());
    QSet<quint64> revisions;
    for (const auto &device : site.data().devices)
        revisions.insert(device.stateRevision);
    QCOMPARE(revisions.size(), 4);

    site.setState(QUuid(lamp), {{"power", 1}});

    QVERIFY(!revisions.contains(site.device(QUuid(lamp))->stateRevision));
}

void DemoSiteTest::unknownDeviceIsPassedOver()
{
    DemoSite site(data());
    QSignalSpy changed(&site, &DemoSite::changed);

    site.setState(QUuid(nobody), {{"power", 1}});
    site.setMode(QUuid(nobody), Model::DeviceMode::Mode::Manual);

    QVERIFY(changed.isEmpty());
    QVERIFY(!site.device(QUuid(nobody)));
    QVERIFY(!site.device(QUuid()));
}

void DemoSiteTest::equalModeAnnouncesNothing()
{
    DemoSite site(data());
    QSignalSpy changed(&site, &DemoSite::changed);

    site.setMode(QUuid(manualLamp), Model::DeviceMode::Mode::Manual);
    QVERIFY(changed.isEmpty());

    site.setMode(QUuid(lamp), Model::DeviceMode::Mode::Manual);
    QCOMPARE(listsOf(changed), QList<List>{List::DeviceModes});
}

void DemoSiteTest::powerIsClamped_data()
{
    QTest::addColumn<double>("power");
    QTest::addColumn<int>("expected");

    QTest::newRow("within") << 33.0 << 33;
    QTest::newRow("rounded up") << 33.5 << 34;
    QTest::newRow("below") << -5.0 << 0;
    QTest::newRow("above") << 100.4 << 100;
    QTest::newRow("beyond any int") << 1e30 << 100;
    QTest::newRow("far below any int") << -1e30 << 0;
}

void DemoSiteTest::powerIsClamped()
{
    QFETCH(double, power);
    QFETCH(int, expected);
    DemoSite site(data());

    site.setZonesPower({QUuid(till)}, power);

    QCOMPARE(site.device(QUuid(lamp))->state.value("power"), QVariant(expected));
}

void DemoSiteTest::zoneKeepsItsRuleWhenChanged()
{
    auto given = data();
    given.zones.front().level = 33;
    DemoSite site(given);
    auto zone = site.zone(QUuid(till))->zone;
    zone.name = "Другая";

    site.put(zone);

    QCOMPARE(site.zone(QUuid(till))->level, 33);
    QCOMPARE(site.zone(QUuid(till))->zone.name, QString("Другая"));
}

void DemoSiteTest::removalKeepsTheOthersFindable()
{
    DemoSite site(data());

    QCOMPARE(site.removeDevices({QUuid(lamp), QUuid(nobody)}), QStringList(lamp));

    for (const auto *uid : {manualLamp, sensor, contactor})
        QCOMPARE(site.device(QUuid(uid))->descriptor.uid, QUuid(uid));
}

void DemoSiteTest::resetAnnouncesEveryList()
{
    DemoSite site(data());
    site.removeParts({QUuid(hall)});
    QSignalSpy changed(&site, &DemoSite::changed);

    site.reset();

    QCOMPARE(listsOf(changed),
             (QList<List>{List::ActionNodes, List::Blueprints, List::Buttons, List::ButtonStates, List::DeviceModes,
                          List::DeviceStates, List::DeviceTypes, List::Devices, List::ImageItems, List::IndicatorStates,
                          List::Indicators, List::PowerOnStatistics, List::Schedules, List::Settings, List::ShopParts,
                          List::Users, List::View3DItems, List::Zones}));
    QVERIFY(site.part(QUuid(hall)));
    QVERIFY(site.zone(QUuid(door)));
    QVERIFY(site.device(QUuid(contactor)));
    QVERIFY(site.deviceType(QUrl("Lamp.qml")));
}

void DemoSiteTest::replacedStatesHaveNewRevisions()
{
    DemoSite site(data());
    const auto before = site.device(QUuid(lamp))->stateRevision;

    site.replace(data());

    QVERIFY(site.device(QUuid(lamp))->stateRevision > before);
}

ONDIRA_TEST(DemoSiteTest)
#include "DemoSiteTest.moc"
