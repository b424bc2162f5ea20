// SPDX-License-Identifier: GPL-3.0-or-later
// 10,000 device states, already read, to the announcement of every row that they change.
#include "data/DeviceFaultsListModel.h"
#include "data/DevicesListModel.h"
#include "data/UsersListModel.h"
#include "data/ZonesListModel.h"
#include "support/FakeCommunicator.h"

#include <benchmark/benchmark.h>

namespace {

constexpr uint deviceCount = 10000;
constexpr uint zoneCount = 400;

QUuid deviceUid(uint n)
{
    return QUuid(n, 0x10, 0, 1, 2, 3, 4, 5, 6, 7, 8);
}

QUuid zoneUid(uint n)
{
    return QUuid(n, 0x20, 0, 1, 2, 3, 4, 5, 6, 7, 8);
}

std::vector<Model::DeviceState> states(int power)
{
    std::vector<Model::DeviceState> list;
    for (uint i = 0; i < deviceCount; ++i) {
        list.push_back({deviceUid(i),
                        {{QStringLiteral("power"), power + static_cast<int>(i % 7)},
                         {QStringLiteral("brightness"), 50.0},
                         {QStringLiteral("errors"), QVariantList()},
                         {QStringLiteral("rssidBm"), -70}}});
    }
    return list;
}

void StatesToRowsAnnounced(benchmark::State &state)
{
    FakeCommunicator link;
    UsersListModel users(link);
    DevicesListModel devices(link);
    DeviceFaultsListModel faults(link, devices);
    ZonesListModel zones(link, devices, faults, users);
    std::vector<Model::Zone> zoneList(zoneCount);
    for (uint i = 0; i < zoneCount; ++i)
        zoneList[i].uid = zoneUid(i);
    std::vector<Model::DeviceDescriptor> deviceList(deviceCount);
    for (uint i = 0; i < deviceCount; ++i) {
        deviceList[i].uid = deviceUid(i);
        deviceList[i].zoneUid = zoneUid(i % zoneCount);
    }
    link.publishZones(zoneList);
    link.publishDevices(deviceList);
    int changed = 0;
    QObject::connect(&devices, &QAbstractItemModel::dataChanged, [&] { ++changed; });
    QObject::connect(&zones, &QAbstractItemModel::dataChanged, [&] { ++changed; });

    const std::vector<Model::DeviceState> lists[]{states(10), states(60)};
    std::size_t turn = 0;
    for (auto _ : state)
        link.publishDeviceStates(lists[turn++ % 2]);
    if (changed != static_cast<int>(turn * (deviceCount + zoneCount)))
        state.SkipWithError("not every row was announced");
}
BENCHMARK(StatesToRowsAnnounced)->Unit(benchmark::kMillisecond);

// The list of devices itself, each time with the same uids: every text of every row is made anew.
void DevicesToRowsAnnounced(benchmark::State &state)
{
    FakeCommunicator link;
    DevicesListModel devices(link);
    Model::DeviceTypeInfo type;
    type.url = QUrl(QStringLiteral("lamp.qml"));
    type.name = QStringLiteral("Lamp");
    link.publishDeviceTypes({type});
    std::vector<Model::DeviceDescriptor> list(deviceCount);
    for (uint i = 0; i < deviceCount; ++i) {
        list[i].uid = deviceUid(i);
        list[i].url = type.url;
        list[i].zoneUid = zoneUid(i % zoneCount);
        list[i].address = static_cast<int>(i);
        list[i].data = {{QStringLiteral("name"), QStringLiteral("Lamp %1").arg(i)}};
    }
    for (auto _ : state)
        link.publishDevices(list);
    if (devices.rowCount() != static_cast<int>(deviceCount))
        state.SkipWithError("rows are missing");
}
BENCHMARK(DevicesToRowsAnnounced)->Unit(benchmark::kMillisecond);

} // namespace
