// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/DemoSite.h"
#include "link/document/Entity.h"
#include "link/document/Errors.h"

#include <functional>

namespace Demo {

// What records may refer to: those of the site, of a site that is being read, or of one request.
struct References
{
    using Knows = std::function<bool(const QUuid &uid)>;

    Knows part;
    Knows zone;
    Knows device;
    Knows blueprint;

    static References of(const DemoSite &site);
};

// What the site file and requests demand alike of plan objects, blueprints and schedules. The first form looks at an
// entity's values, where the shared readers are lenient; the second at what a record refers to.
namespace RecordChecks {

void button(const JsonAPI::Entity &entity, JsonAPI::Errors &errors);
void indicator(const JsonAPI::Entity &entity, JsonAPI::Errors &errors);
void imageItem(const JsonAPI::Entity &entity, JsonAPI::Errors &errors);
void view3DItem(const JsonAPI::Entity &entity, JsonAPI::Errors &errors);
void blueprint(const JsonAPI::Entity &entity, JsonAPI::Errors &errors);
void scheduleDay(const JsonAPI::Entity &entity, JsonAPI::Errors &errors);

void references(const References &known, const Model::Button &button, JsonAPI::Errors &errors);
void references(const References &known, const Model::Indicator &indicator, JsonAPI::Errors &errors);
void references(const References &known, const Model::ImageItem &item, JsonAPI::Errors &errors);
void references(const References &known, const Model::View3DItem &item, JsonAPI::Errors &errors);
void references(const References &known, const Model::ActionBlueprint &blueprint, JsonAPI::Errors &errors);
void references(const References &known, const Model::ScheduleDay &day, JsonAPI::Errors &errors);

} // namespace RecordChecks
} // namespace Demo
