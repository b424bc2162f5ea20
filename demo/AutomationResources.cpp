// SPDX-License-Identifier: GPL-3.0-or-later
// Blueprints, schedules, and sequences that run at once.
#include "demo/BlueprintRunner.h"
#include "demo/RecordChecks.h"
#include "demo/RecordRequests.h"
#include "model/json/ActionBlueprint.h"
#include "model/json/ActionBlueprintInstance.h"
#include "model/json/ScheduleDay.h"

namespace Demo {

namespace {

using Kind = RequestReader::Kind;
using Instance = Model::ActionBlueprintInstance;
using JsonAPI::Entity;
using JsonAPI::Errors;
using JsonAPI::Request;
using JsonAPI::Response;

constexpr size_t mostInstances = 1000; // each looks at every device

const Model::ActionBlueprint *findBlueprint(const DemoSite &site, const QUuid &uid)
{
    const auto *blueprint = site.blueprint(uid);
    return blueprint ? &blueprint->blueprint : nullptr;
}

const Model::ScheduleDay *findDay(const DemoSite &site, const QUuid &uid)
{
    return site.day(uid);
}

void refuseSystem(Errors &errors, const QUuid &uid)
{
    RequestErrors::invalidData(errors, QStringLiteral("system blueprint \"%1\"").arg(uid.toString()));
}

bool isSystem(const DemoSite &site, const QUuid &uid)
{
    const auto *known = site.blueprint(uid);
    return known && known->blueprint.system;
}

void checkBlueprint(const Context &context, const Model::ActionBlueprint &blueprint, Errors &errors)
{
    if (isSystem(context.site, blueprint.uid))
        refuseSystem(errors, blueprint.uid);
    RecordChecks::references(References::of(context.site), blueprint, errors);
}

void checkDay(const Context &context, const Model::ScheduleDay &day, Errors &errors)
{
    RecordChecks::references(References::of(context.site), day, errors);
}

// Which blueprints are the system's is not for clients to say.
Model::ActionBlueprint readUserBlueprint(const Entity &entity)
{
    auto blueprint = JsonAPI::ActionBlueprint::fromVariant(entity);
    blueprint.system = false;
    return blueprint;
}

const RecordKind<Model::ActionBlueprint> &blueprintKind()
{
    static const RecordKind<Model::ActionBlueprint> kind{"action_blueprint", JsonAPI::ActionBlueprint::toVariant,
                                                         readUserBlueprint,  RecordChecks::blueprint,
                                                         checkBlueprint,     findBlueprint};
    return kind;
}

const RecordKind<Model::ScheduleDay> &dayKind()
{
    static const RecordKind<Model::ScheduleDay> kind{"schedule_day",
                                                     JsonAPI::ScheduleDay::toVariant,
                                                     JsonAPI::ScheduleDay::fromVariant,
                                                     RecordChecks::scheduleDay,
                                                     checkDay,
                                                     findDay};
    return kind;
}

Outcome putBlueprints(Context &context, const Request &request)
{
    return putRecords(context, request, blueprintKind());
}

Outcome removeBlueprints(Context &context, const Request &request)
{
    Errors errors;
    for (const auto &entity : request.data) {
        if (isSystem(context.site, QUuid(entity.id)))
            refuseSystem(errors, QUuid(entity.id));
    }
    if (!errors.isEmpty())
        return RequestErrors::response(errors);
    return removeRecords(context, request, blueprintKind(), &DemoSite::removeBlueprints);
}

Outcome putDays(Context &context, const Request &request)
{
    return putRecords(context, request, dayKind());
}

Outcome removeDays(Context &context, const Request &request)
{
    return removeRecords(context, request, dayKind(), &DemoSite::removeDays);
}

Outcome runBlueprints(Context &context, const Request &request)
{
    Errors errors;
    if (request.data.size() > mostInstances)
        RequestErrors::invalidData(errors, QStringLiteral("%1 entities").arg(request.data.size()));
    std::vector<Instance> instances;
    for (const auto &entity : request.data) {
        if (!errors.isEmpty())
            break;
        RequestReader::check(entity, "oneshot_blueprint", {{"properties", Kind::List}, {"zones", Kind::UidList}},
                             errors);
        instances.push_back(JsonAPI::ActionBlueprintInstance::fromVariant(entity));
        if (errors.isEmpty())
            BlueprintRunner::check(context.site, instances.back(), errors);
    }
    if (!errors.isEmpty())
        return RequestErrors::response(errors);
    for (const auto &instance : instances) {
        for (const auto &zone : instance.zones) {
            if (!request.user.hasAccess(zone))
                return Response::Prepared::accessDenied();
        }
    }
    BlueprintRunner runner(context.site, context.clock.now());
    for (const auto &instance : instances) {
        runner.run(instance);
        context.note(context.site.blueprint(instance.blueprint)->blueprint.name);
    }
    return Response("response", std::vector<Model::Result>());
}

} // namespace

const std::vector<Resource> &automationResources()
{
    using Method = Request::Method;
    static const std::vector<Resource> resources{
        {"blueprints", Method::Post, Access::Admin, putBlueprints},
        {"blueprints", Method::Delete, Access::Admin, removeBlueprints},
        {"oneshot_blueprint", Method::Post, Access::User, runBlueprints},
        {"schedule_days", Method::Post, Access::Admin, putDays},
        {"schedule_days", Method::Delete, Access::Admin, removeDays},
    };
    return resources;
}

} // namespace Demo
