// SPDX-License-Identifier: GPL-3.0-or-later
#include "schedules/ScheduleDaysListModel.h"

#include "actions/ClipboardRecords.h"
#include "data/JsValues.h"
#include "link/AbstractBackendCommunicator.h"
#include "model/StandardBlueprints.h"
#include "model/VariantReading.h"

#include <algorithm>

namespace {

using Points = std::vector<Model::ScheduleDayPoint>;

QSet<QUuid> uidSet(const QStringList &texts)
{
    QSet<QUuid> uids;
    for (const auto &text : texts) {
        const QUuid uid(text);
        if (!uid.isNull())
            uids.insert(uid);
    }
    return uids;
}

QSet<int> daySet(const QList<int> &days)
{
    return {days.begin(), days.end()};
}

QList<int> sortedDays(const QSet<int> &days)
{
    auto list = days.values();
    std::sort(list.begin(), list.end());
    return list;
}

QStringList texts(const QSet<QUuid> &uids)
{
    QStringList list;
    for (const auto &uid : uids)
        list << uid.toString();
    list.sort();
    return list;
}

// A script makes an array of the records, whose elements are the records themselves, and may have written maps.
Points pointsFrom(const QVariant &value)
{
    const auto plain = JsValues::plain(value);
    if (plain.canConvert<Points>())
        return plain.value<Points>();
    Points points;
    const auto list = plain.toList();
    for (const auto &point : list) {
        points.push_back(point.userType() == qMetaTypeId<Model::ScheduleDayPoint>()
                             ? point.value<Model::ScheduleDayPoint>()
                             : Model::ScheduleDayPoint::fromVariant(point));
    }
    return points;
}

QList<int> daysFrom(const QVariant &value)
{
    const auto plain = JsValues::plain(value);
    if (plain.userType() == qMetaTypeId<QList<int>>())
        return plain.value<QList<int>>();
    QList<int> days;
    const auto list = plain.toList();
    for (const auto &day : list)
        days << Model::intFrom(day);
    return days;
}

} // namespace

ScheduleDaysListModel::ScheduleDaysListModel(AbstractBackendCommunicator &communicator, QObject *parent)
    : UidKeyAbstractListModel(parent)
    , m_communicator(communicator)
{
    auto &cache = communicator.getDataCache();
    connect(&cache, &BackendDataCache::schedulesChanged, this, &ScheduleDaysListModel::onSchedulesUpdated);
    onSchedulesUpdated(cache.getScheduleDays());
}

int ScheduleDaysListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_days.size();
}

QVariant ScheduleDaysListModel::data(const QModelIndex &index, int role) const
{
    if (!holds(index))
        return {};
    const auto &day = m_days.at(index.row());
    switch (role) {
    case Uid: return day.uid.toString();
    case Name: return day.name;
    case Points: return QVariant::fromValue(day.points);
    case Days: return QVariant::fromValue(sortedDays(day.daysOfWeek));
    case Zones: return texts(day.zones);
    }
    return {};
}

bool ScheduleDaysListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!holds(index))
        return false;
    auto day = m_days.at(index.row());
    switch (role) {
    case Name: day.name = value.toString(); break;
    case Points: day.points = pointsFrom(value); break;
    case Days: day.daysOfWeek = daySet(daysFrom(value)); break;
    case Zones: day.zones = uidSet(JsValues::plain(value).toStringList()); break;
    default: return false;
    }
    m_communicator.changeDays({day});
    return true;
}

QHash<int, QByteArray> ScheduleDaysListModel::roleNames() const
{
    static const QHash<int, QByteArray> names{
        {Uid, "uid"}, {Name, "name"}, {Points, "points"}, {Days, "days"}, {Zones, "zones"}};
    return names;
}

void ScheduleDaysListModel::addDay(const QJSValue &callback)
{
    Model::ActionBlueprintInstance off;
    off.blueprint = Model::StandardBlueprints::setPowerUid();
    off.properties.emplace_back(QStringLiteral("power"), Model::ActionDatatype(0LL));
    const Model::ScheduleDay day(QUuid(), tr("День"), {{QTime(0, 0), {{off}}}}, {});
    m_communicator.addDays({day}, JsValues::uidsCompletion(this, callback));
}

void ScheduleDaysListModel::changeDay(const QString &uid, const QString &name, const QVariant &points,
                                      const QList<int> &days, const QStringList &zones)
{
    const auto *known = dayOf(QUuid(uid));
    if (!known)
        return;
    auto day = *known;
    day.name = name;
    day.points = pointsFrom(points);
    day.daysOfWeek = daySet(days);
    day.zones = uidSet(zones);
    m_communicator.changeDays({day});
}

void ScheduleDaysListModel::removeDay(const QString &uid)
{
    const QUuid removed(uid);
    if (!removed.isNull())
        m_communicator.removeDays({Model::ScheduleDay(removed, QString(), {}, {})});
}

QStringList ScheduleDaysListModel::usedBy(const QString &zoneUid, const QString &dayUid, const QList<int> &days) const
{
    const QUuid zone(zoneUid);
    const QUuid edited(dayUid);
    const auto wanted = daySet(days);
    QStringList names;
    for (const auto &day : m_days) {
        if (day.uid != edited && day.zones.contains(zone) && day.daysOfWeek.intersects(wanted))
            names << day.name;
    }
    return names;
}

QStringList ScheduleDaysListModel::commonScheduleForZones(const QStringList &zones) const
{
    const auto wanted = uidSet(zones);
    QStringList uids;
    for (const auto &day : m_days) {
        if (day.zones.intersects(wanted))
            uids << day.uid.toString();
    }
    uids.removeDuplicates();
    return uids;
}

void ScheduleDaysListModel::quickSetSchedule(const QStringList &zones, const QString &scheduleUid)
{
    const auto moved = uidSet(zones);
    const QUuid target(scheduleUid);
    std::vector<Model::ScheduleDay> changed;
    for (const auto &day : m_days) {
        const bool lost = day.zones.intersects(moved);
        if (!lost && day.uid != target)
            continue;
        auto copy = day;
        copy.zones -= moved;
        if (day.uid == target)
            copy.zones += moved;
        changed.push_back(std::move(copy));
    }
    if (!changed.empty())
        m_communicator.changeDays(changed);
}

void ScheduleDaysListModel::copyToClipboard(const QString &uid) const
{
    if (const auto *day = dayOf(QUuid(uid)))
        ClipboardRecords::put(day->toVariant().toMap(), ClipboardRecords::schedule);
}

void ScheduleDaysListModel::addFromClipboard(const QJSValue &callback)
{
    const auto record = ClipboardRecords::take(ClipboardRecords::schedule);
    if (!record)
        return;
    auto day = Model::ScheduleDay::fromVariant(*record);
    day.uid = QUuid();
    day.name += ' ' + tr("Копия");
    m_communicator.addDays({day}, JsValues::uidsCompletion(this, callback));
}

void ScheduleDaysListModel::onSchedulesUpdated(const std::vector<Model::ScheduleDay> &schedules)
{
    using Merge = DiffTransform<Rows<Model::ScheduleDay>, Model::ScheduleDay>;
    Merge(
        m_days, schedules, [](const auto &day) { return day.uid; }, *this)
        .transform();
    emit countChanged();
}

const Model::ScheduleDay *ScheduleDaysListModel::dayOf(const QUuid &uid) const
{
    const auto day = std::find_if(m_days.begin(), m_days.end(), [&](const auto &row) { return row.uid == uid; });
    return day == m_days.end() ? nullptr : &*day;
}
