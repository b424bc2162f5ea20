// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/IndicatorRules.h"

#include <cmath>

namespace Demo {

namespace {

using Measure = IndicatorRule::Measure;

// Of the devices in one zone.
struct Tally
{
    int failed = 0;
    int driven = 0;
    double power = 0; // sum of percents
};

QHash<QUuid, Tally> tallies(const DemoSite &site)
{
    QHash<QUuid, Tally> zones;
    for (const auto &device : site.data().devices) {
        auto &tally = zones[device.descriptor.zoneUid];
        if (device.state.value(QStringLiteral("errors")).toInt() > 0)
            ++tally.failed;
        if (!site.hasPower(device))
            continue;
        ++tally.driven;
        tally.power += device.state.value(QStringLiteral("power")).toDouble();
    }
    return zones;
}

Tally tallyOf(const DemoSite &site, const QHash<QUuid, Tally> &zones, const QUuid &scope)
{
    Tally sum;
    for (const auto &record : site.data().zones) {
        if (!scope.isNull() && scope != record.zone.uid && scope != record.zone.partUid)
            continue;
        const auto tally = zones.value(record.zone.uid);
        sum.failed += tally.failed;
        sum.driven += tally.driven;
        sum.power += tally.power;
    }
    return sum;
}

// None where there is nothing to measure.
boost::optional<double> measured(const DemoSite &site, const QHash<QUuid, Tally> &zones, const IndicatorRule &rule)
{
    if (rule.measure == Measure::DeviceValue) {
        const auto *device = site.device(rule.scope);
        bool good = false;
        const double value = device ? device->state.value(rule.property).toDouble(&good) : 0;
        return good && std::isfinite(value) ? boost::make_optional(value) : boost::none;
    }
    const auto tally = tallyOf(site, zones, rule.scope);
    if (rule.measure == Measure::FailedDevices)
        return double(tally.failed);
    return tally.driven > 0 ? boost::make_optional(std::round(tally.power / tally.driven)) : boost::none;
}

QString textOf(double value)
{
    return QString::number(std::round(value * 10) / 10, 'f', std::abs(value - std::round(value)) < 0.05 ? 0 : 1);
}

Model::IndicatorState stateOf(const QUuid &uid, const IndicatorRule &rule, double value)
{
    Model::IndicatorState state;
    state.uid = uid;
    const auto above =
        std::find_if(rule.looks.begin(), rule.looks.end(), [value](const auto &look) { return look.from > value; });
    if (above == rule.looks.begin())
        return state;
    const auto &look = *std::prev(above);
    state.opacity = look.opacity;
    state.text = look.text;
    if (state.text)
        state.text->replace(QStringLiteral("%1"), textOf(value)); // not arg(): the text may hold more per cents
    state.textColor = look.textColor;
    state.icon = look.icon;
    state.iconColor = look.iconColor;
    return state;
}

} // namespace

IndicatorRules::IndicatorRules(DemoSite &site, QObject *parent)
    : QObject(parent)
    , m_site(site)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &IndicatorRules::evaluate);
    connect(&site, &DemoSite::changed, this, &IndicatorRules::onChanged);
    evaluate();
}

void IndicatorRules::onChanged(DemoSite::List list)
{
    using List = DemoSite::List;
    const bool measures =
        list == List::DeviceStates || list == List::Devices || list == List::Zones || list == List::Indicators;
    if (measures && !m_timer.isActive())
        m_timer.start();
}

void IndicatorRules::evaluate()
{
    m_timer.stop();
    const auto zones = tallies(m_site);
    std::vector<Model::IndicatorState> states;
    for (const auto &record : m_site.data().indicators) {
        const auto value = record.rule ? measured(m_site, zones, *record.rule) : boost::none;
        if (value)
            states.push_back(stateOf(record.indicator.uid, *record.rule, *value));
    }
    m_site.setIndicatorStates(states);
}

} // namespace Demo
