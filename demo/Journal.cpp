// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/Journal.h"

#include "demo/SiteData.h"
#include "model/json/IsoTime.h"
#include "model/json/LogEntry.h"

#include <QJsonObject>
#include <QTimeZone>
#include <algorithm>
#include <random>

namespace Demo {

namespace {

using Cause = Model::LogEntry::Cause;

constexpr int longestUser = 200; // characters
constexpr int longestAction = 1000;
constexpr int inventedDays = 365;
constexpr size_t mostPointsOfDay = 200;
constexpr int dayStart = 7 * 3600; // seconds of the day; people are there until dayEnd
constexpr int dayEnd = 23 * 3600;

// Makes up the days of one site.
class Inventor
{
public:
    Inventor(const SiteData &site, quint32 seed)
        : m_site(site)
        , m_seed(seed)
        , m_zone(QTimeZone::isTimeZoneIdAvailable(site.timezone.toUtf8()) ? QTimeZone(site.timezone.toUtf8())
                                                                          : QTimeZone::utc())
    {}

    std::vector<Model::LogEntry> day(const QDate &date)
    {
        m_random.seed(m_seed * 2654435761U ^ static_cast<quint32>(date.toJulianDay()));
        m_entries.clear();
        m_midnight = QDateTime(date, QTime(0, 0), m_zone);
        m_midnight = m_midnight.toOffsetFromUtc(m_midnight.offsetFromUtc());
        addSchedules(date);
        addPeople(date);
        addFailures();
        std::stable_sort(m_entries.begin(), m_entries.end(),
                         [](const auto &left, const auto &right) { return left.time < right.time; });
        return m_entries;
    }

private:
    int number(size_t below) { return static_cast<int>(m_random() % static_cast<quint32>(below)); }

    void add(int second, Cause cause, const QString &user, const QString &action)
    {
        m_entries.push_back({m_midnight.addSecs(second), cause, user, action});
    }

    void addSchedules(const QDate &date)
    {
        for (const auto &day : m_site.days) {
            if (!day.daysOfWeek.contains(date.dayOfWeek() - 1))
                continue;
            for (const auto &point : day.points) {
                if (point.time.isValid() && m_entries.size() < mostPointsOfDay)
                    add(point.time.msecsSinceStartOfDay() / 1000, Cause::Schedule, {},
                        JournalTexts::schedulePoint(day.name, point.time));
            }
        }
    }

    void addPeople(const QDate &date)
    {
        if (m_site.users.empty())
            return;
        const int visits = date.dayOfWeek() > Qt::Friday ? 1 + number(2) : 2 + number(3);
        for (int i = 0; i < visits; ++i) {
            const auto user = m_site.users[static_cast<size_t>(number(m_site.users.size()))].login;
            int second = dayStart + number(dayEnd - dayStart);
            add(second, Cause::User, user, JournalTexts::loggedIn());
            for (int steps = number(4); steps > 0; --steps) {
                second += 5 + number(300);
                const auto action = someAction();
                if (!action.isEmpty())
                    add(second, Cause::User, user, action);
            }
        }
    }

    QString someAction()
    {
        const auto &buttons = m_site.buttons;
        const auto &blueprints = m_site.blueprints;
        if (!buttons.empty() && number(3) > 0)
            return JournalTexts::buttonPressed(buttons[static_cast<size_t>(number(buttons.size()))].button.name);
        return blueprints.empty() ? QString()
                                  : blueprints[static_cast<size_t>(number(blueprints.size()))].blueprint.name;
    }

    const SiteDeviceType *typeOf(const SiteDevice &device) const
    {
        const auto found = std::find_if(m_site.deviceTypes.begin(), m_site.deviceTypes.end(),
                                        [&](const auto &type) { return type.info.url == device.descriptor.url; });
        return found == m_site.deviceTypes.end() ? nullptr : &*found;
    }

    void addFailures()
    {
        if (m_site.devices.empty())
            return;
        for (int failures = number(3); failures > 0; --failures) {
            const auto &device = m_site.devices[static_cast<size_t>(number(m_site.devices.size()))];
            const auto name = device.title(typeOf(device));
            const int second = number(86400 - 3600);
            add(second, Cause::System, {}, JournalTexts::noAnswer(name));
            add(second + 120 + number(3000), Cause::System, {}, JournalTexts::answersAgain(name));
        }
    }

    const SiteData &m_site;
    quint32 m_seed;
    QTimeZone m_zone;
    std::mt19937 m_random;
    QDateTime m_midnight;
    std::vector<Model::LogEntry> m_entries;
};

bool isText(const QJsonObject &object, const char *key)
{
    return object.value(QLatin1String(key)).isString();
}

boost::optional<Model::LogEntry> entryFrom(const QJsonValue &value)
{
    const auto attributes = value.toObject().value(QLatin1String("attributes")).toObject();
    if (!isText(attributes, "time") || !isText(attributes, "cause") || !isText(attributes, "username")
        || !isText(attributes, "action"))
        return boost::none;
    const auto entry = JsonAPI::LogEntry::fromVariant(JsonAPI::Entity(value.toVariant()));
    const bool isKnownCause = Model::LogEntry::causeToString(entry.cause) == attributes.value("cause").toString();
    return entry.time.isValid() && isKnownCause ? boost::make_optional(entry) : boost::none;
}

} // namespace

void Journal::add(const Model::LogEntry &entry)
{
    auto added = entry;
    added.time = entry.time.addMSecs(-entry.time.time().msec());
    if (added.time.toString(Qt::ISODate).isEmpty()) // before the first year or after the last of four digits
        return;
    added.username.truncate(longestUser);
    added.action.truncate(longestAction);
    m_entries.push_back(added);
    if (m_entries.size() > capacity)
        m_entries.pop_front();
}

std::vector<Model::LogEntry> Journal::between(qint64 from, qint64 to) const
{
    std::vector<Model::LogEntry> found;
    std::copy_if(m_entries.begin(), m_entries.end(), std::back_inserter(found), [from, to](const auto &entry) {
        const auto time = entry.time.toMSecsSinceEpoch();
        return time >= from && time <= to;
    });
    // The clock may have been set back in between.
    std::stable_sort(found.begin(), found.end(),
                     [](const auto &left, const auto &right) { return left.time < right.time; });
    return found;
}

QJsonArray Journal::toJson() const
{
    QJsonArray list;
    for (const auto &entry : m_entries)
        list.append(QJsonObject::fromVariantMap(JsonAPI::LogEntry::toVariant(entry).toMap()));
    return list;
}

boost::optional<Journal> Journal::fromJson(const QJsonValue &list, QString *error)
{
    if (!list.isUndefined() && !list.isArray()) {
        *error = QStringLiteral("journal is not a list");
        return boost::none;
    }
    Journal journal;
    const auto elements = list.toArray();
    for (int i = 0; i < elements.size(); ++i) {
        const auto entry = entryFrom(elements.at(i));
        if (!entry) {
            *error = QStringLiteral("journal[%1] is not an entry").arg(i);
            return boost::none;
        }
        journal.add(*entry);
    }
    return journal;
}

Journal Journal::invented(const SiteData &site, quint32 seed, const QDateTime &until)
{
    Journal journal;
    Inventor inventor(site, seed);
    for (auto date = until.date().addDays(-inventedDays); date <= until.date(); date = date.addDays(1)) {
        for (const auto &entry : inventor.day(date)) {
            if (entry.time <= until)
                journal.add(entry);
        }
    }
    return journal;
}

QString JournalTexts::serverStarted()
{
    return QStringLiteral("Сервер запущен");
}

QString JournalTexts::loggedIn()
{
    return QStringLiteral("Вход в систему");
}

QString JournalTexts::buttonPressed(const QString &name)
{
    return QStringLiteral("Кнопка «%1»").arg(name);
}

QString JournalTexts::schedulePoint(const QString &schedule, const QTime &time)
{
    return QStringLiteral("%1, %2").arg(schedule, time.toString(QStringLiteral("HH:mm")));
}

QString JournalTexts::noAnswer(const QString &device)
{
    return QStringLiteral("%1: нет ответа").arg(device);
}

QString JournalTexts::answersAgain(const QString &device)
{
    return QStringLiteral("%1: связь восстановлена").arg(device);
}

} // namespace Demo
