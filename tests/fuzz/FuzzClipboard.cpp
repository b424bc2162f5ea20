// SPDX-License-Identifier: GPL-3.0-or-later
// A text that another program left on the clipboard, pasted as a blueprint and as a schedule.
#include "actions/ActionSequenceListModel.h"
#include "actions/ActionsListModel.h"
#include "fuzz/Fuzz.h"
#include "schedules/ScheduleDaysListModel.h"
#include "schedules/SchedulePointsListModel.h"
#include "support/FakeCommunicator.h"

#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>
#include <cmath>
#include <sanitizer/lsan_interface.h>

namespace {

// The program that has a clipboard, which is made by the first input.
void startProgram()
{
    static int count = 1;
    static char name[] = "fuzz_clipboard";
    static char *arguments[] = {name, nullptr};
    static const auto *const program = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        return new QGuiApplication(count, arguments);
    }();
    Q_UNUSED(program)
}

void checkBlueprint(const Model::ActionBlueprint &blueprint)
{
    Fuzz::require(blueprint.uid.isNull() && !blueprint.system, "a copy is new and the user's own");
    Fuzz::require(blueprint.name.endsWith(QStringLiteral(" Копия")), "a copy says so");
    for (const auto &node : blueprint.nodes)
        Fuzz::require(std::isfinite(node.position.x) && std::isfinite(node.position.y), "nodes are finite");
    ActionSequenceListModel form;
    form.setBlueprints({blueprint});
    form.setActionSequence(Model::ActionSequence{{{blueprint.uid, {}, {}}}}.toVariant());
    Fuzz::require(form.rowCount() == 1, "a form shows the copy");
    const auto place = form.index(0);
    Fuzz::require(place.data(ActionSequenceListModel::Properties).toList().size()
                      == place.data(ActionSequenceListModel::Values).toList().size(),
                  "each property has a value");
}

void checkSchedule(const Model::ScheduleDay &day)
{
    Fuzz::require(day.uid.isNull() && day.name.endsWith(QStringLiteral(" Копия")), "a copy is new and says so");
    Fuzz::require(std::is_sorted(day.points.begin(), day.points.end(),
                                 [](const auto &left, const auto &right) { return left.time < right.time; }),
                  "points stand by time");
    SchedulePointsListModel timeline(nullptr, nullptr, nullptr);
    timeline.reset(day.points);
    Fuzz::require(timeline.rowCount() > 0, "a day is never empty");
    Fuzz::require(timeline.getPoints().size() == static_cast<std::size_t>(timeline.rowCount()), "each row is a point");
}

} // namespace

void Fuzz::fuzzOne(const QByteArray &input)
{
    startProgram();
    const auto text = QString::fromUtf8(input);
    QGuiApplication::clipboard()->setText(text);
    FakeCommunicator link;
    ActionsListModel actions(link);
    ScheduleDaysListModel schedules(link);
    {
        // The parser of Qt 5.15 loses the map or list of a key that stands twice in an object: its leaks are not ours.
        __lsan::ScopedDisabler disabler;
        actions.addFromClipboard();
        schedules.addFromClipboard();
    }
    require(link.operations.contains(QStringLiteral("addBlueprints"))
                == text.contains(QStringLiteral("OndiraSmart blueprint data")),
            "the marker alone makes a blueprint");
    require(link.operations.contains(QStringLiteral("addDays"))
                == text.contains(QStringLiteral("OndiraSmart schedule data")),
            "the marker alone makes a schedule");
    for (const auto &blueprint : link.blueprints)
        checkBlueprint(blueprint);
    for (const auto &day : link.days)
        checkSchedule(day);
}
