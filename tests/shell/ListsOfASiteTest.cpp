// SPDX-License-Identifier: GPL-3.0-or-later
#include "actions/ActionsListModel.h"
#include "data/ButtonsListModel.h"
#include "data/DeviceFaultsListModel.h"
#include "data/DeviceTypesListModel.h"
#include "data/DevicesListModel.h"
#include "data/ImageItemsListModel.h"
#include "data/IndicatorsListModel.h"
#include "data/Records.h"
#include "data/ShopPartsListModel.h"
#include "data/UsersListModel.h"
#include "data/View3DItemsListModel.h"
#include "data/ZonesListModel.h"
#include "schedules/ScheduleDaysListModel.h"
#include "statistics/DevicePowerOnStatisticsListModel.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

using namespace Records;

namespace {

template <typename Record>
Record withUid(uint n)
{
    Record record;
    record.uid = uid(n);
    return record;
}

} // namespace

// All lists of a site on one link.
class ListsOfASiteTest : public TestBase
{
    Q_OBJECT

private slots:
    void aClosedLinkEmptiesThemAll()
    {
        FakeCommunicator link;
        UsersListModel users(link);
        DeviceTypesListModel types(link);
        DevicesListModel devices(link);
        DeviceFaultsListModel faults(link, devices);
        ShopPartsListModel parts(link, users);
        ZonesListModel zones(link, devices, faults, users);
        ButtonsListModel buttons(link, users);
        IndicatorsListModel indicators(link, users);
        ImageItemsListModel images(link, users);
        View3DItemsListModel meshes(link, users);
        ActionsListModel actions(link);
        ScheduleDaysListModel days(link);
        DevicePowerOnStatisticsListModel runHours(link);
        const std::vector<const QAbstractItemModel *> lists{&users,   &types,      &devices, &parts,  &zones,
                                                            &buttons, &indicators, &images,  &meshes, &actions,
                                                            &days,    &runHours,   &faults};
        link.logIn("anna", "admin");
        link.publishUsers({user("anna", "admin")});
        link.publishDeviceTypes({type("lamp.qml", "Lamp")});
        auto silent = device(1, 5, "lamp.qml");
        silent.data = {{"pollingInterval", 1000}};
        link.publishDevices({silent});
        link.publishDeviceStates({state(1, {{"errors", 100}})});
        link.publishShopParts({part(3, "Floor")});
        link.publishZones({zone(5, {}, 3)});
        link.publishButtons({withUid<Model::Button>(6)});
        link.publishIndicators({withUid<Model::Indicator>(7)});
        link.publishImageItems({withUid<Model::ImageItem>(8)});
        link.publishView3DItems({withUid<Model::View3DItem>(9)});
        link.publishBlueprints({Model::ActionBlueprint("Night", uid(10))});
        link.publishSchedules({withUid<Model::ScheduleDay>(11)});
        link.publishPowerOnStatistics({{uid(1), 12, QDateTime(QDate(2024, 5, 1), QTime(12, 0), Qt::UTC)}});
        for (const auto *list : lists)
            QVERIFY2(list->rowCount() == 1, list->metaObject()->className());

        link.enter(FakeCommunicator::Disconnected);

        for (const auto *list : lists)
            QVERIFY2(list->rowCount() == 0, list->metaObject()->className());
    }
};

ONDIRA_TEST(ListsOfASiteTest)
#include "ListsOfASiteTest.moc"
