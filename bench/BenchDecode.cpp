// SPDX-License-Identifier: GPL-3.0-or-later
// Ten thousand device states, as published by a large site: from the packed body to records, on both roads.
#include "link/document/Compression.h"
#include "link/document/Response.h"
#include "model/json/DeviceState.h"
#include "model/json/DeviceStatesReader.h"

#include <QRandomGenerator>
#include <benchmark/benchmark.h>
#include <iterator>

namespace {

constexpr int deviceCount = 10000;

QByteArray packedStates()
{
    static const QByteArray packed = [] {
        QRandomGenerator random(1);
        std::vector<JsonAPI::Entity> entities;
        for (int i = 0; i < deviceCount; ++i) {
            Model::DeviceState state;
            quint32 bytes[4];
            random.generate(std::begin(bytes), std::end(bytes));
            state.uid = QUuid::fromRfc4122(QByteArray::fromRawData(reinterpret_cast<char *>(bytes), sizeof bytes));
            state.state = {{"isConnected", random.bounded(50) != 0},
                           {"power", random.bounded(101)},
                           {"temperature", 20 + random.bounded(100) / 10.0},
                           {"currentMode", random.bounded(2) ? "Auto" : "Manual"},
                           {"lastSeen", 1714564830000LL + random.bounded(100000)}};
            entities.emplace_back(JsonAPI::DeviceState::toVariant(state));
        }
        return qCompress(JsonAPI::Response(entities).toByteArray());
    }();
    return packed;
}

void UnpackStates(benchmark::State &state)
{
    const auto packed = packedStates();
    for (auto _ : state)
        benchmark::DoNotOptimize(Compression::unpack(packed));
    state.counters["bytes"] = Compression::unpack(packed)->size();
}

void DecodeStatesFast(benchmark::State &state)
{
    const auto packed = packedStates();
    for (auto _ : state) {
        const auto body = Compression::unpack(packed);
        auto read = JsonAPI::DeviceStatesReader::read(*body);
        if (!read || read->states.size() != deviceCount)
            state.SkipWithError("The fast road gave the document up");
        // Freed with the next publication, outside of this road.
        state.PauseTiming();
        read = boost::none;
        state.ResumeTiming();
    }
}

void DecodeStatesPlain(benchmark::State &state)
{
    const auto packed = packedStates();
    for (auto _ : state) {
        const auto body = Compression::unpack(packed);
        const auto response = JsonAPI::Response::fromByteArray(*body);
        auto states = JsonAPI::Entity::toType(response.data, JsonAPI::DeviceState::fromVariant);
        if (states.size() != deviceCount)
            state.SkipWithError("The plain road lost states");
        state.PauseTiming();
        states.clear();
        state.ResumeTiming();
    }
}

BENCHMARK(UnpackStates)->Unit(benchmark::kMillisecond);
BENCHMARK(DecodeStatesFast)->Unit(benchmark::kMillisecond);
BENCHMARK(DecodeStatesPlain)->Unit(benchmark::kMillisecond);

} // namespace
