// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/BlueprintRunner.h"

#include "demo/BlueprintEvaluation.h"
#include "demo/RequestErrors.h"
#include "model/StandardBlueprints.h"

#include <algorithm>
#include <cmath>

namespace Demo {

namespace {

using Datatype = Model::ActionDatatype;
using Type = Datatype::Type;
using Instance = Model::ActionBlueprintInstance;
using Mode = Model::DeviceMode::Mode;
using State = Model::ButtonState::State;

constexpr int deepestBlueprint = 16;
constexpr int mostSteps = 1000;

const QStringList &outputTypes()
{
    static const QStringList types{"output", "output_mode", "output_button"};
    return types;
}

const SiteBlueprint *nested(const DemoSite &site, const QString &nodeType)
{
    const auto prefix = SiteBlueprint::nodeTypePrefix();
    return nodeType.startsWith(prefix) ? site.blueprint(QUuid(nodeType.mid(prefix.size()))) : nullptr;
}

// Whether the instance gives the power that the blueprint sets. JavaScript writes whole numbers as either kind.
bool givesPower(const Instance &instance)
{
    const auto *power = instance.property(QStringLiteral("power"));
    return power && (power->value.type() == Type::Integer || power->value.type() == Type::Double);
}

bool isNumber(const Datatype &value)
{
    return value.type() == Type::Integer || value.type() == Type::Double || value.type() == Type::Bool;
}

// Without a condition it is.
bool isWanted(BlueprintEvaluation &evaluation, const Model::NodeInstance &node)
{
    const auto name = QStringLiteral("condition");
    return !BlueprintEvaluation::isConnected(node, name) || evaluation.input(node, name).toBool();
}

void setPower(DemoSite &site, BlueprintEvaluation &evaluation, const Model::NodeInstance &node)
{
    const auto property = evaluation.property(node, QStringLiteral("property")).toString();
    const auto value = evaluation.input(node, QStringLiteral("value"));
    if (property == QLatin1String("power") && isNumber(value) && !std::isnan(value.toDouble()))
        site.setZonesPower(evaluation.zones(), value.type() == Type::Bool && value.toBool() ? 100 : value.toDouble());
}

void setMode(DemoSite &site, BlueprintEvaluation &evaluation, const Model::NodeInstance &node)
{
    const auto mode = evaluation.input(node, QStringLiteral("mode"));
    site.setZonesMode(evaluation.zones(), mode.toInteger() == 0 ? Mode::Manual : Mode::Automatic);
}

void setButton(DemoSite &site, BlueprintEvaluation &evaluation, const Model::NodeInstance &node)
{
    const auto uid = evaluation.input(node, QStringLiteral("button")).toEntity().uid;
    const bool on = evaluation.input(node, QStringLiteral("value")).toBool();
    site.setButtonState(uid, on ? State::On : State::Off);
}

} // namespace

BlueprintRunner::BlueprintRunner(DemoSite &site, const QDateTime &siteTime)
    : m_site(site)
    , m_time(siteTime)
{}

bool BlueprintRunner::knowsNode(const DemoSite &site, const QString &type)
{
    return outputTypes().contains(type) || BlueprintEvaluation::function(type) || nested(site, type);
}

void BlueprintRunner::check(const DemoSite &site, const Instance &instance, JsonAPI::Errors &errors)
{
    const auto *blueprint = site.blueprint(instance.blueprint);
    if (!blueprint) {
        RequestErrors::unknownBlueprint(errors, instance.blueprint.toString());
    } else if (instance.blueprint == Model::StandardBlueprints::setPowerUid() && !givesPower(instance)) {
        RequestErrors::invalidData(errors, QStringLiteral("property \"power\""));
    } else {
        for (const auto &node : blueprint->blueprint.nodes) {
            if (!knowsNode(site, node.type))
                RequestErrors::unknownBlueprint(errors, QStringLiteral("node \"%1\"").arg(node.type));
        }
    }
    for (const auto &zone : instance.zones) {
        if (!site.zone(zone))
            RequestErrors::unknownRecord(errors, zone.toString());
    }
}

void BlueprintRunner::run(const Instance &instance)
{
    m_steps = 0;
    if (const auto *blueprint = m_site.blueprint(instance.blueprint))
        run(blueprint->blueprint, instance, 0);
}

void BlueprintRunner::run(const Model::ActionSequence &sequence, const QSet<QUuid> &zones)
{
    for (auto instance : sequence.instances) {
        if (instance.zones.isEmpty())
            instance.zones = zones;
        run(instance);
    }
}

void BlueprintRunner::run(const Model::ActionBlueprint &blueprint, const Instance &instance, int depth)
{
    if (depth > deepestBlueprint || ++m_steps > mostSteps)
        return;
    BlueprintEvaluation evaluation(m_site, m_time, blueprint, instance);
    for (const auto &node : blueprint.nodes) {
        const auto *inner = nested(m_site, node.type);
        if ((!inner && !outputTypes().contains(node.type)) || !isWanted(evaluation, node))
            continue;
        if (inner) {
            Instance call;
            call.blueprint = inner->blueprint.uid;
            call.zones = instance.zones;
            for (const auto &exposed : inner->blueprint.getExposedProperties()) {
                const auto value = evaluation.input(node, exposed.property);
                call.properties.emplace_back(exposed.property, value.isVoid() ? exposed.value : value);
            }
            run(inner->blueprint, call, depth + 1);
        } else if (node.type == QLatin1String("output")) {
            setPower(m_site, evaluation, node);
        } else if (node.type == QLatin1String("output_mode")) {
            setMode(m_site, evaluation, node);
        } else {
            setButton(m_site, evaluation, node);
        }
    }
}

} // namespace Demo
