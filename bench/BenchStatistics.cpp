// SPDX-License-Identifier: GPL-3.0-or-later
// A year of minutes of one lamp: from the document, in both forms of time, to records.
#include "link/document/Response.h"
#include "model/json/Statistics.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int minutes = 365 * 24 * 60;

enum Form { Universal, Local };

QByteArray year(Form form)
{
    QByteArray rows;
    auto time = QDateTime({2024, 1, 1}, {0, 0}, Qt::UTC);
    for (int i = 0; i < minutes; ++i, time = time.addSecs(60)) {
        rows += i == 0 ? "[\"" : ",[\"";
        rows += time.toString("yyyy-MM-ddTHH:mm:ss").toLatin1() + (form == Universal ? "Z\"," : "\",");
        rows += QByteArray::number(i % 101) + "," + QByteArray::number(20 + i % 100 / 10.0) + "]";
    }
    return R"({"data":[{"type":"statistics","id":"","attributes":{"from":"2024-01-01T00:00:00Z",
        "to":"2024-12-31T00:00:00Z","data":[{"entity":"{11111111-1111-1111-1111-111111111111}","type":"Lamp.qml",
        "schema":["power","temperature"],"values":[)"
        + rows + "]}]}}],\"server_version\":\"4.5.2\"}";
}

void check(benchmark::State &state, const Model::Statistics &statistics)
{
    if (statistics.size() != minutes || !statistics.categories.front().to().isValid())
        state.SkipWithError("Rows were lost");
}

// What reading the document costs beyond parsing it.
void StatisticsToRecords(benchmark::State &state)
{
    const auto response = JsonAPI::Response::fromByteArray(year(static_cast<Form>(state.range(0))));
    for (auto _ : state) {
        auto statistics = JsonAPI::Statistics::fromVariant(response.datum());
        check(state, statistics);
        state.PauseTiming();
        statistics = {};
        state.ResumeTiming();
    }
}

void ReadStatistics(benchmark::State &state)
{
    const auto body = year(static_cast<Form>(state.range(0)));
    for (auto _ : state) {
        const auto response = JsonAPI::Response::fromByteArray(body);
        check(state, JsonAPI::Statistics::fromVariant(response.datum()));
    }
    state.counters["bytes"] = body.size();
}

BENCHMARK(StatisticsToRecords)->ArgName("local")->Arg(Universal)->Arg(Local)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadStatistics)->ArgName("local")->Arg(Universal)->Arg(Local)->Unit(benchmark::kMillisecond);

} // namespace
