// SPDX-License-Identifier: GPL-3.0-or-later
// Editing a day of a thousand points, and the schedules and blueprints of a large site.
#include "actions/ActionsListModel.h"
#include "model/StandardBlueprints.h"
#include "schedules/ScheduleDaysListModel.h"
#include "schedules/SchedulePointsListModel.h"
#include "support/FakeCommunicator.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int pointCount = 1000;
constexpr int step = 86; // seconds between two points
constexpr uint recordCount = 10000;

QUuid recordUid(uint n)
{
    return QUuid(n, 0x30, 0, 1, 2, 3, 4, 5, 6, 7, 8);
}

Model::ActionSequence power(int value)
{
    return {{{Model::StandardBlueprints::setPowerUid(),
              {{QStringLiteral("power"), Model::ActionDatatype(static_cast<long long>(value))}},
              {}}}};
}

std::vector<Model::ScheduleDayPoint> points(int count)
{
    std::vector<Model::ScheduleDayPoint> list;
    for (int i = 0; i < count; ++i)
        list.push_back({QTime(0, 0).addSecs(i * step), power(i % 101)});
    return list;
}

void quiet(QtMsgType, const QMessageLogContext &, const QString &) {}

// A day in the editor, whose log is not part of the figure.
class Day
{
public:
    Day()
    {
        model.setBlueprints({Model::StandardBlueprints::setPower()});
        model.reset(points(pointCount));
    }
    ~Day() { qInstallMessageHandler(m_handler); }

    SchedulePointsListModel model{nullptr, nullptr, nullptr};

private:
    QtMessageHandler m_handler = qInstallMessageHandler(quiet);
};

void TimelineLoaded(benchmark::State &state)
{
    Day day;
    const auto list = points(pointCount);
    for (auto _ : state)
        day.model.reset(list);
    if (day.model.rowCount() != pointCount)
        state.SkipWithError("the day has lost points");
}
BENCHMARK(TimelineLoaded)->Unit(benchmark::kMicrosecond);

// Into the middle of a segment, which then goes on after it; both additional rows are removed again.
void TimelineAddedAndRemoved(benchmark::State &state)
{
    Day day;
    const auto actions = power(40).toVariant();
    const int row = pointCount / 2;
    const QTime time = QTime(0, 0).addSecs(row * step + 10);
    for (auto _ : state) {
        day.model.add(time.hour(), time.minute(), time.second(), 20, actions);
        day.model.remove(row + 2);
        day.model.remove(row + 1);
    }
    if (day.model.rowCount() != pointCount)
        state.SkipWithError("the day has other points");
}
BENCHMARK(TimelineAddedAndRemoved)->Unit(benchmark::kMicrosecond);

void TimelineChanged(benchmark::State &state)
{
    Day day;
    const QVariantMap change{{QStringLiteral("actions"), power(40).toVariant()}};
    for (auto _ : state)
        day.model.change(pointCount / 2, change);
    if (day.model.rowCount() != pointCount)
        state.SkipWithError("the day has other points");
}
BENCHMARK(TimelineChanged)->Unit(benchmark::kMicrosecond);

// The list as it comes again after one of its records was changed.
void SchedulesMerged(benchmark::State &state)
{
    std::vector<Model::ScheduleDay> list;
    for (uint i = 0; i < recordCount; ++i) {
        list.emplace_back(recordUid(i), QStringLiteral("Day %1").arg(i), points(10), QSet<int>{0, 1, 2, 3, 4});
        list.back().zones = {recordUid(i % 100), recordUid(i % 101)};
    }
    FakeCommunicator link;
    ScheduleDaysListModel model(link);
    link.publishSchedules(list);
    for (auto _ : state)
        model.onSchedulesUpdated(list);
    if (model.rowCount() != static_cast<int>(recordCount))
        state.SkipWithError("schedules are missing");
}
BENCHMARK(SchedulesMerged)->Unit(benchmark::kMillisecond);

void BlueprintsMerged(benchmark::State &state)
{
    std::vector<Model::ActionBlueprint> list(recordCount, Model::StandardBlueprints::setPower());
    for (uint i = 0; i < recordCount; ++i)
        list[i].uid = recordUid(i);
    FakeCommunicator link;
    ActionsListModel model(link);
    link.publishBlueprints(list);
    for (auto _ : state)
        model.onBlueprintsUpdated(list);
    if (model.rowCount() != static_cast<int>(recordCount))
        state.SkipWithError("blueprints are missing");
}
BENCHMARK(BlueprintsMerged)->Unit(benchmark::kMillisecond);

} // namespace
