// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/BlueprintEvaluation.h"

#include <algorithm>
#include <cmath>

namespace Demo {

namespace {

using Datatype = Model::ActionDatatype;
using Node = Model::NodeInstance;
using Evaluation = BlueprintEvaluation;

constexpr int deepestChain = 500; // nodes one behind the other, each of which takes stack

QString valueKey()
{
    return QStringLiteral("value");
}

using Numbers = std::vector<double>;

Datatype finite(double number)
{
    return Datatype(std::isfinite(number) ? number : 0.0);
}

Datatype finite(bool flag)
{
    return Datatype(flag);
}

// Worked out from numbers; nothing, where one of them is missing.
template <typename Work>
Datatype fromNumbers(Evaluation &evaluation, const Node &node, std::initializer_list<const char *> names, Work work)
{
    Numbers numbers;
    for (const auto *name : names) {
        const auto value = evaluation.input(node, QLatin1String(name));
        if (value.isVoid())
            return {};
        const double number = value.toDouble();
        numbers.push_back(std::isfinite(number) ? number : 0);
    }
    return finite(work(numbers));
}

template <typename Work>
Datatype fromFlags(Evaluation &evaluation, const Node &node, Work work)
{
    const auto a = evaluation.input(node, QStringLiteral("a"));
    const auto b = evaluation.input(node, QStringLiteral("b"));
    return a.isVoid() || b.isVoid() ? Datatype() : Datatype(bool(work(a.toBool(), b.toBool())));
}

// A constant, of which each type has a node; a wire overrides it.
Datatype constant(Evaluation &evaluation, const Node &node)
{
    return evaluation.input(node, valueKey());
}

Datatype add(Evaluation &evaluation, const Node &node)
{
    return fromNumbers(evaluation, node, {"a", "b"}, [](const Numbers &n) { return n[0] + n[1]; });
}

Datatype subtract(Evaluation &evaluation, const Node &node)
{
    return fromNumbers(evaluation, node, {"a", "b"}, [](const Numbers &n) { return n[0] - n[1]; });
}

Datatype multiply(Evaluation &evaluation, const Node &node)
{
    return fromNumbers(evaluation, node, {"a", "b"}, [](const Numbers &n) { return n[0] * n[1]; });
}

Datatype divide(Evaluation &evaluation, const Node &node)
{
    return fromNumbers(evaluation, node, {"a", "b"},
                       [](const Numbers &n) { return std::abs(n[1]) > 0 ? n[0] / n[1] : 0.0; });
}

double limited(double value, double least, double most)
{
    return std::max(std::min(least, most), std::min(value, std::max(least, most)));
}

Datatype limit(Evaluation &evaluation, const Node &node)
{
    return fromNumbers(evaluation, node, {"value", "min", "max"},
                       [](const Numbers &n) { return limited(n[0], n[1], n[2]); });
}

// From one range into another; what lies outside stays at its end.
Datatype scale(Evaluation &evaluation, const Node &node)
{
    return fromNumbers(evaluation, node, {"value", "from_min", "from_max", "to_min", "to_max"}, [](const Numbers &n) {
        const double width = n[2] - n[1];
        const double share = std::abs(width) > 0 ? limited((n[0] - n[1]) / width, 0, 1) : (n[0] < n[1] ? 0.0 : 1.0);
        return n[3] + share * (n[4] - n[3]);
    });
}

Datatype less(Evaluation &evaluation, const Node &node)
{
    return fromNumbers(evaluation, node, {"a", "b"}, [](const Numbers &n) { return n[0] < n[1]; });
}

Datatype greater(Evaluation &evaluation, const Node &node)
{
    return fromNumbers(evaluation, node, {"a", "b"}, [](const Numbers &n) { return n[0] > n[1]; });
}

// Texts are compared as such when one of the two is a text.
Datatype equal(Evaluation &evaluation, const Node &node)
{
    const auto a = evaluation.input(node, QStringLiteral("a"));
    const auto b = evaluation.input(node, QStringLiteral("b"));
    if (a.isVoid() || b.isVoid())
        return {};
    if (a.type() == Datatype::Type::String || b.type() == Datatype::Type::String)
        return Datatype(a.toString() == b.toString());
    if (a.type() == Datatype::Type::Entity && b.type() == Datatype::Type::Entity)
        return Datatype(a.toEntity().uid == b.toEntity().uid);
    return Datatype(std::abs(a.toDouble() - b.toDouble()) < 1e-9);
}

Datatype between(Evaluation &evaluation, const Node &node)
{
    return fromNumbers(evaluation, node, {"value", "min", "max"},
                       [](const Numbers &n) { return n[0] >= n[1] && n[0] <= n[2]; });
}

Datatype logicalAnd(Evaluation &evaluation, const Node &node)
{
    return fromFlags(evaluation, node, [](bool a, bool b) { return a && b; });
}

Datatype logicalOr(Evaluation &evaluation, const Node &node)
{
    return fromFlags(evaluation, node, [](bool a, bool b) { return a || b; });
}

Datatype logicalNot(Evaluation &evaluation, const Node &node)
{
    const auto value = evaluation.input(node, valueKey());
    return value.isVoid() ? Datatype() : Datatype(!value.toBool());
}

Datatype select(Evaluation &evaluation, const Node &node)
{
    const auto condition = evaluation.input(node, QStringLiteral("condition"));
    if (condition.isVoid())
        return {};
    return evaluation.input(node, condition.toBool() ? QStringLiteral("then") : QStringLiteral("else"));
}

Datatype minuteOfDay(Evaluation &evaluation, const Node &)
{
    return Datatype(static_cast<long long>(evaluation.time().time().msecsSinceStartOfDay() / 60000));
}

Datatype weekday(Evaluation &evaluation, const Node &)
{
    return Datatype(static_cast<long long>(evaluation.time().date().dayOfWeek()));
}

// From 22:00 until 06:00 spans midnight.
Datatype timeBetween(Evaluation &evaluation, const Node &node)
{
    const auto from = QTime::fromString(evaluation.input(node, QStringLiteral("from")).toString(), Qt::ISODate);
    const auto until = QTime::fromString(evaluation.input(node, QStringLiteral("until")).toString(), Qt::ISODate);
    const auto now = evaluation.time().time();
    if (!from.isValid() || !until.isValid())
        return Datatype(false);
    return Datatype(from <= until ? now >= from && now < until : now >= from || now < until);
}

Datatype deviceProperty(Evaluation &evaluation, const Node &node)
{
    const auto uid = evaluation.input(node, QStringLiteral("device")).toEntity().uid;
    const auto *device = evaluation.site().device(uid);
    if (!device)
        return {};
    return Datatype(device->state.value(evaluation.input(node, QStringLiteral("property")).toString()));
}

bool hasFailed(const SiteDevice &device)
{
    return device.state.value(QStringLiteral("errors")).toInt() > 0;
}

Datatype deviceFailed(Evaluation &evaluation, const Node &node)
{
    const auto *device = evaluation.site().device(evaluation.input(node, QStringLiteral("device")).toEntity().uid);
    return device ? Datatype(hasFailed(*device)) : Datatype();
}

// The mean of the devices in the zones that the blueprint runs on.
Datatype zonesPower(Evaluation &evaluation, const Node &)
{
    double sum = 0;
    int count = 0;
    for (const auto &device : evaluation.site().data().devices) {
        if (!evaluation.zones().contains(device.descriptor.zoneUid) || !evaluation.site().hasPower(device))
            continue;
        sum += device.state.value(QStringLiteral("power")).toDouble();
        ++count;
    }
    return finite(count > 0 ? sum / count : 0);
}

Datatype zonesFailed(Evaluation &evaluation, const Node &)
{
    const auto &devices = evaluation.site().data().devices;
    const auto failed = std::count_if(devices.begin(), devices.end(), [&evaluation](const auto &device) {
        return evaluation.zones().contains(device.descriptor.zoneUid) && hasFailed(device);
    });
    return Datatype(static_cast<long long>(failed));
}

} // namespace

BlueprintEvaluation::BlueprintEvaluation(const DemoSite &site, const QDateTime &siteTime,
                                         const Model::ActionBlueprint &blueprint,
                                         const Model::ActionBlueprintInstance &instance)
    : m_site(site)
    , m_time(siteTime)
    , m_blueprint(blueprint)
    , m_instance(instance)
{
    for (const auto &node : m_blueprint.nodes) {
        if (!m_nodes.contains(node.uid)) // of two alike the first counts
            m_nodes.insert(node.uid, &node);
    }
}

BlueprintEvaluation::Function BlueprintEvaluation::function(const QString &nodeType)
{
    static const QHash<QString, Function> functions{
        {"type/integer", constant},
        {"type/double", constant},
        {"type/bool", constant},
        {"type/string", constant},
        {"type/device", constant},
        {"math/add", add},
        {"math/subtract", subtract},
        {"math/multiply", multiply},
        {"math/divide", divide},
        {"math/limit", limit},
        {"math/scale", scale},
        {"compare/less", less},
        {"compare/equal", equal},
        {"compare/greater", greater},
        {"compare/between", between},
        {"logic/and", logicalAnd},
        {"logic/or", logicalOr},
        {"logic/not", logicalNot},
        {"logic/select", select},
        {"time/minute", minuteOfDay},
        {"time/weekday", weekday},
        {"time/between", timeBetween},
        {"device/property", deviceProperty},
        {"device/failed", deviceFailed},
        {"zones/power", zonesPower},
        {"zones/failed", zonesFailed},
    };
    return functions.value(nodeType, nullptr);
}

Datatype BlueprintEvaluation::property(const Node &node, const QString &name) const
{
    const auto *property = node.property(name);
    if (property && property->exposed) {
        const auto *given = m_instance.property(property->globalName);
        if (!given)
            given = m_instance.property(node.uid.toString() + '|' + name);
        if (given)
            return given->value;
    }
    if (property && !property->value.isVoid())
        return property->value;
    for (const auto &known : m_site.data().nodes) {
        const auto *described = known.description.type == node.type ? known.description.property(name) : nullptr;
        if (described)
            return described->defaultValue;
    }
    return {};
}

bool BlueprintEvaluation::isConnected(const Node &node, const QString &name)
{
    const auto *input = node.input(name);
    return input && input->isConnected();
}

// A wire that leads nowhere gives nothing, rather than what the property would.
Datatype BlueprintEvaluation::input(const Node &node, const QString &name)
{
    if (!isConnected(node, name))
        return property(node, name);
    const auto *source = m_nodes.value(node.input(name)->connectionNode);
    return source ? value(*source) : Datatype();
}

Datatype BlueprintEvaluation::value(const Node &node)
{
    const auto known = m_values.constFind(node.uid);
    if (known != m_values.constEnd())
        return *known;
    const auto function = BlueprintEvaluation::function(node.type);
    if (!function || m_open.contains(node.uid) || m_open.size() >= deepestChain)
        return {};
    m_open.insert(node.uid);
    const auto value = function(*this, node);
    m_open.remove(node.uid);
    m_values.insert(node.uid, value);
    return value;
}

} // namespace Demo
