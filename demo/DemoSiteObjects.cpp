// SPDX-License-Identifier: GPL-3.0-or-later
// The site's plan objects, blueprints and schedules, and what becomes of them when something that they refer to goes.
#include "demo/DemoSite.h"
#include "demo/SiteRows.h"

#include <QTimer>
#include <numeric>

namespace Demo {

namespace {

constexpr int releaseMs = 400; // a momentary button stays down so long

// Removes a record's uid from the sets of zones of a sequence; tells whether any was there.
bool removeZonesFrom(Model::ActionSequence &sequence, const QSet<QUuid> &zones)
{
    bool any = false;
    for (auto &instance : sequence.instances) {
        const int before = instance.zones.size();
        instance.zones.subtract(zones);
        any = any || instance.zones.size() != before;
    }
    return any;
}

bool removeInstancesFrom(Model::ActionSequence &sequence, const QSet<QUuid> &blueprints)
{
    auto &instances = sequence.instances;
    const auto gone = std::remove_if(instances.begin(), instances.end(), [&blueprints](const auto &instance) {
        return blueprints.contains(instance.blueprint);
    });
    const bool any = gone != instances.end();
    instances.erase(gone, instances.end());
    return any;
}

template <typename Record, typename PartOf>
QSet<QUuid> standingOn(const std::vector<Record> &records, const QSet<QUuid> &parts, PartOf partOf)
{
    QSet<QUuid> uids;
    for (const auto &record : records) {
        if (parts.contains(partOf(record)))
            uids.insert(uidOf(record));
    }
    return uids;
}

} // namespace

const SiteButton *DemoSite::button(const QUuid &uid) const
{
    return find(m_data.buttons, m_buttonRows, uid);
}

const SiteIndicator *DemoSite::indicator(const QUuid &uid) const
{
    return find(m_data.indicators, m_indicatorRows, uid);
}

const SiteImage *DemoSite::image(const QUuid &uid) const
{
    return find(m_data.images, m_imageRows, uid);
}

const Model::View3DItem *DemoSite::view3DItem(const QUuid &uid) const
{
    return find(m_data.view3DItems, m_view3DRows, uid);
}

const SiteBlueprint *DemoSite::blueprint(const QUuid &uid) const
{
    return find(m_data.blueprints, m_blueprintRows, uid);
}

const Model::ScheduleDay *DemoSite::day(const QUuid &uid) const
{
    return find(m_data.days, m_dayRows, uid);
}

qint64 DemoSite::storedFileBytes() const
{
    qint64 bytes = 0;
    for (const auto &image : m_data.images)
        bytes += image.image.data.size();
    for (const auto &item : m_data.view3DItems)
        bytes += item.modelData.size();
    return bytes;
}

void DemoSite::put(const Model::Button &button)
{
    const bool isNew = !m_buttonRows.contains(button.uid);
    findOrAdd(m_data.buttons, m_buttonRows, button.uid).button = button;
    emit changed(List::Buttons);
    if (isNew)
        emit changed(List::ButtonStates);
}

void DemoSite::put(const Model::Indicator &indicator)
{
    findOrAdd(m_data.indicators, m_indicatorRows, indicator.uid).indicator = indicator;
    emit changed(List::Indicators);
}

void DemoSite::put(const Model::ImageItem &item)
{
    auto &image = findOrAdd(m_data.images, m_imageRows, item.uid);
    if (item.image)
        image.image = *item.image;
    image.item = item;
    image.item.image = boost::none;
    emit changed(List::ImageItems);
}

void DemoSite::put(const Model::View3DItem &item)
{
    auto &known = findOrAdd(m_data.view3DItems, m_view3DRows, item.uid);
    const auto mesh = item.modelData.isEmpty() ? known.modelData : item.modelData;
    known = item;
    known.modelData = mesh;
    emit changed(List::View3DItems);
}

void DemoSite::put(const Model::ActionBlueprint &blueprint)
{
    auto &known = findOrAdd(m_data.blueprints, m_blueprintRows, blueprint.uid);
    if (known.blueprint.name != blueprint.name) { // what it was called in other languages is no longer true
        for (auto &overlay : known.translations)
            overlay.remove(QStringLiteral("name"));
    }
    known.blueprint = blueprint;
    emit changed(List::Blueprints);
    emit changed(List::ActionNodes); // each blueprint is a node type for others
}

void DemoSite::put(const Model::ScheduleDay &day)
{
    findOrAdd(m_data.days, m_dayRows, day.uid) = day;
    emit changed(List::Schedules);
}

void DemoSite::put(const Model::DevicePowerOnInfo &info)
{
    m_data.powerOn.insert(info.uid, info);
    emit changed(List::PowerOnStatistics);
}

void DemoSite::setSettings(const Model::Settings &settings)
{
    m_data.settings = settings;
    emit changed(List::Settings);
}

QStringList DemoSite::removeButtons(const QSet<QUuid> &uids)
{
    const auto removed = removeFrom(m_data.buttons, uids);
    m_buttonRows = rowsByUid(m_data.buttons);
    emit changed(List::Buttons);
    emit changed(List::ButtonStates);
    return removed;
}

QStringList DemoSite::removeIndicators(const QSet<QUuid> &uids)
{
    const auto removed = removeFrom(m_data.indicators, uids);
    m_indicatorRows = rowsByUid(m_data.indicators);
    auto states = m_indicatorStates;
    states.erase(
        std::remove_if(states.begin(), states.end(), [&uids](const auto &state) { return uids.contains(state.uid); }),
        states.end());
    emit changed(List::Indicators);
    setIndicatorStates(states);
    return removed;
}

QStringList DemoSite::removeImages(const QSet<QUuid> &uids)
{
    const auto removed = removeFrom(m_data.images, uids);
    m_imageRows = rowsByUid(m_data.images);
    emit changed(List::ImageItems);
    return removed;
}

QStringList DemoSite::removeView3DItems(const QSet<QUuid> &uids)
{
    const auto removed = removeFrom(m_data.view3DItems, uids);
    m_view3DRows = rowsByUid(m_data.view3DItems);
    emit changed(List::View3DItems);
    return removed;
}

QStringList DemoSite::removeBlueprints(const QSet<QUuid> &uids)
{
    const auto removed = removeFrom(m_data.blueprints, uids);
    m_blueprintRows = rowsByUid(m_data.blueprints);
    forgetBlueprints(uids);
    emit changed(List::Blueprints);
    emit changed(List::ActionNodes);
    return removed;
}

QStringList DemoSite::removeDays(const QSet<QUuid> &uids)
{
    const auto removed = removeFrom(m_data.days, uids);
    m_dayRows = rowsByUid(m_data.days);
    emit changed(List::Schedules);
    return removed;
}

QStringList DemoSite::removeStandingOn(const QSet<QUuid> &parts)
{
    QStringList removed;
    const auto buttons = standingOn(m_data.buttons, parts, [](const auto &record) { return record.button.partUid; });
    if (!buttons.isEmpty())
        removed += removeButtons(buttons);
    const auto indicators =
        standingOn(m_data.indicators, parts, [](const auto &record) { return record.indicator.partUid; });
    if (!indicators.isEmpty())
        removed += removeIndicators(indicators);
    const auto images = standingOn(m_data.images, parts, [](const auto &record) { return record.item.partUid; });
    if (!images.isEmpty())
        removed += removeImages(images);
    const auto items = standingOn(m_data.view3DItems, parts, [](const auto &record) { return record.partUid; });
    if (!items.isEmpty())
        removed += removeView3DItems(items);
    return removed;
}

template <typename Change>
void DemoSite::changeSequences(Change change)
{
    bool buttons = false;
    for (auto &button : m_data.buttons)
        buttons = change(button.button.blueprints) || buttons;
    bool days = false;
    for (auto &day : m_data.days) {
        for (auto &point : day.points)
            days = change(point.actions) || days;
    }
    if (buttons)
        emit changed(List::Buttons);
    if (days)
        emit changed(List::Schedules);
}

void DemoSite::forgetZones(const QSet<QUuid> &uids)
{
    bool any = false;
    for (auto &day : m_data.days) {
        const int before = day.zones.size();
        day.zones.subtract(uids);
        any = any || day.zones.size() != before;
    }
    changeSequences([&uids](auto &sequence) { return removeZonesFrom(sequence, uids); });
    if (any)
        emit changed(List::Schedules);
}

void DemoSite::forgetDevices(const QSet<QUuid> &uids)
{
    bool indicators = false;
    for (auto &record : m_data.indicators) {
        auto &shown = record.indicator.displayValue;
        if (!shown || !uids.contains(shown->device))
            continue;
        shown = boost::none;
        indicators = true;
    }
    bool hours = false;
    for (const auto &uid : uids)
        hours = m_data.powerOn.remove(uid) > 0 || hours;
    if (indicators)
        emit changed(List::Indicators);
    if (hours)
        emit changed(List::PowerOnStatistics);
}

void DemoSite::forgetBlueprints(const QSet<QUuid> &uids)
{
    changeSequences([&uids](auto &sequence) { return removeInstancesFrom(sequence, uids); });
}

void DemoSite::setButtonState(const QUuid &uid, Model::ButtonState::State state)
{
    using State = Model::ButtonState::State;
    const int row = m_buttonRows.value(uid, -1);
    if (row < 0 || m_data.buttons[static_cast<size_t>(row)].state == state)
        return;
    auto &button = m_data.buttons[static_cast<size_t>(row)];
    button.state = state;
    if (state == State::On && !button.button.toggle)
        QTimer::singleShot(releaseMs, this, [this, uid] { setButtonState(uid, State::Off); });
    emit changed(List::ButtonStates);
}

void DemoSite::setIndicatorStates(const std::vector<Model::IndicatorState> &states)
{
    if (states == m_indicatorStates)
        return;
    m_indicatorStates = states;
    emit changed(List::IndicatorStates);
}

void DemoSite::note(const Model::LogEntry &entry)
{
    m_data.journal.add(entry);
    emit noted(entry.cause, entry.username, entry.action);
}

} // namespace Demo
