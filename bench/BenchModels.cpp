// SPDX-License-Identifier: GPL-3.0-or-later
// What is derived from the lists of a large site: joined devices, mean power of zones, faults.
#include "data/DeviceFaultsListModel.h"
#include "data/DevicesListModel.h"
#include "data/UsersListModel.h"
#include "data/ZonesListModel.h"
#include "support/FakeCommunicator.h"

#include <benchmark/benchmark.h>

namespace {

constexpr uint deviceCount = 10000;
constexpr uint zoneCount = 2000;
constexpr uint typeCount = 20;

QUuid deviceUid(uint n)
{
    return QUuid(n, 0x10, 0, 1, 2, 3, 4, 5, 6, 7, 8);
}

QUuid zoneUid(uint n)
{
    return QUuid(n, 0x20, 0, 1, 2, 3, 4, 5, 6, 7, 8);
}

QUrl typeUrl(uint n)
{
    return QUrl(QStringLiteral("type%1.qml").arg(n));
}

std::vector<Model::DeviceDescriptor> devices()
{
    std::vector<Model::DeviceDescriptor> list(deviceCount);
    for (uint i = 0; i < deviceCount; ++i) {
        list[i].uid = deviceUid(i);
        list[i].url = typeUrl(i % typeCount);
        list[i].zoneUid = zoneUid(i % zoneCount);
        list[i].address = static_cast<int>(i);
        list[i].data = {{QStringLiteral("name"), QStringLiteral("Lamp %1").arg(i)},
                        {QStringLiteral("pollingInterval"), 1000}};
    }
    return list;
}

std::vector<Model::DeviceState> states(int power, int errors)
{
    std::vector<Model::DeviceState> list;
    for (uint i = 0; i < deviceCount; ++i) {
        list.push_back({deviceUid(i),
                        {{QStringLiteral("power"), power + static_cast<int>(i % 7)},
                         {QStringLiteral("errors"), i % 10 == 0 ? errors : 0}}});
    }
    return list;
}

std::vector<Model::Zone> zones()
{
    std::vector<Model::Zone> list(zoneCount);
    for (uint i = 0; i < zoneCount; ++i)
        list[i].uid = zoneUid(i);
    return list;
}

// The lists of a site as they come after a login, into an empty model.
void DevicesJoined(benchmark::State &state)
{
    std::vector<Model::DeviceTypeInfo> types(typeCount);
    for (uint i = 0; i < typeCount; ++i) {
        types[i].url = typeUrl(i);
        types[i].name = QStringLiteral("Type %1").arg(i);
    }
    const auto deviceList = devices();
    const auto stateList = states(10, 7);
    std::vector<Model::DeviceMode> modes;
    for (uint i = 0; i < deviceCount; ++i)
        modes.push_back({deviceUid(i), Model::DeviceMode::Mode::Manual});
    for (auto _ : state) {
        FakeCommunicator link;
        DevicesListModel model(link);
        link.publishDevices(deviceList);
        link.publishDeviceTypes(types);
        link.publishDeviceStates(stateList);
        link.publishDeviceModes(modes);
        const auto last = model.index(static_cast<int>(deviceCount) - 1);
        if (last.data(DevicesListModel::PrettyString).toString() != QLatin1String("Type 19: 9999 (Lamp 9999)"))
            state.SkipWithError("a device is not joined with its type");
    }
}
BENCHMARK(DevicesJoined)->Unit(benchmark::kMillisecond);

void MeanPowerOfZones(benchmark::State &state)
{
    FakeCommunicator link;
    UsersListModel users(link);
    DevicesListModel deviceModel(link);
    DeviceFaultsListModel faults(link, deviceModel);
    ZonesListModel model(link, deviceModel, faults, users);
    link.publishZones(zones());
    link.publishDevices(devices());
    link.publishDeviceStates(states(10, 0));
    for (auto _ : state)
        model.onDeviceStatesUpdated();
    if (model.index(0).data(ZonesListModel::Power).toInt() == 100)
        state.SkipWithError("a zone has no power");
}
BENCHMARK(MeanPowerOfZones)->Unit(benchmark::kMillisecond);

// A second passes between two messages, so that every row changes.
void FaultsOfStates(benchmark::State &state)
{
    FakeCommunicator link;
    DevicesListModel deviceModel(link);
    DeviceFaultsListModel model(link, deviceModel);
    auto now = QDateTime::fromMSecsSinceEpoch(1714564830000);
    model.setClock([&now] { return now; });
    link.publishDevices(devices());
    const auto list = states(10, 7);
    int changed = 0;
    QObject::connect(&model, &QAbstractItemModel::dataChanged, [&] { ++changed; });
    int turns = 0;
    for (auto _ : state) {
        now = now.addSecs(1);
        ++turns;
        model.onDeviceStatesUpdated(list);
    }
    if (changed != turns * static_cast<int>(deviceCount))
        state.SkipWithError("not every row was announced");
}
BENCHMARK(FaultsOfStates)->Unit(benchmark::kMillisecond);

} // namespace
