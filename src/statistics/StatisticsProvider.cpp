// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/StatisticsProvider.h"

#include "data/SharedModels.h"
#include "statistics/StatisticsRequest.h"

#include <algorithm>

namespace {

// The server keeps minutes for the last 90 days. Longer ranges are asked for in hours to keep answers small.
constexpr int daysOfMinutes = 90;
constexpr int longestDaysInMinutes = 7;

} // namespace

StatisticsProvider::StatisticsProvider(QObject *parent)
    : QObject(parent)
    , m_communicator(SharedModels::instance().communicator)
{}

StatisticsProvider::StatisticsProvider(AbstractBackendCommunicator &communicator, QObject *parent)
    : QObject(parent)
    , m_communicator(&communicator)
{}

StatisticsProvider::~StatisticsProvider() = default;

template <typename Change>
void StatisticsProvider::changeRange(const Change &change, void (StatisticsProvider::*changed)())
{
    const int seconds = getResolutionSeconds();
    change();
    emit(this->*changed)();
    if (getResolutionSeconds() != seconds)
        emit resolutionSecondsChanged();
}

void StatisticsProvider::setFrom(const QDateTime &from)
{
    if (from.isValid() != m_from.isValid() || from != m_from)
        changeRange([&] { m_from = from; }, &StatisticsProvider::fromChanged);
}

void StatisticsProvider::setTo(const QDateTime &to)
{
    if (to.isValid() != m_to.isValid() || to != m_to)
        changeRange([&] { m_to = to; }, &StatisticsProvider::toChanged);
}

void StatisticsProvider::setResolution(int resolution)
{
    if (resolution != m_resolution)
        changeRange([&] { m_resolution = resolution; }, &StatisticsProvider::resolutionChanged);
}

int StatisticsProvider::getResolutionSeconds() const
{
    if (m_resolution < Auto || m_resolution > Hour)
        return 0;
    return asksForHours(m_from, m_to, m_resolution) ? 3600 : 60;
}

QStringList StatisticsProvider::getObjects() const
{
    QStringList objects;
    for (const auto &uid : m_objects)
        objects.append(uid.toString());
    return objects;
}

void StatisticsProvider::setObjects(const QStringList &objects)
{
    m_objects.clear();
    for (const auto &object : objects)
        m_objects.emplace_back(object);
    emit objectsChanged();
}

void StatisticsProvider::setTypes(const QStringList &types)
{
    if (types == m_types)
        return;
    m_types = types;
    emit typesChanged();
}

void StatisticsProvider::requestStatistics()
{
    if (m_objects.empty()) {
        discardLast(); // its answer would replace the empty one
        const QPointer<StatisticsProvider> self(this);
        onStatisticsReceived(nullptr, {});
        if (self)
            emit loadingChanged();
        return;
    }
    m_loading = true;
    emit loadingChanged();
    Entities entities;
    for (const auto &object : m_objects) {
        if (m_types.isEmpty())
            entities.emplace_back(object, QString());
        for (const auto &type : qAsConst(m_types))
            entities.emplace_back(object, type);
    }
    request(m_from, m_to, entities, m_resolution);
}

void StatisticsProvider::request(const QDateTime &from, const QDateTime &to, const Entities &entities, int resolution)
{
    auto fresh = std::make_unique<Request>(*this, from, to, entities, resolution);
    if (!m_requests.empty() && !m_requests.back()->isDiscarded() && m_requests.back()->isSameAs(*fresh))
        return; // the answer of the older one serves
    discardLast();
    m_requests.push_back(std::move(fresh));
    m_requests.back()->request();
}

// A slot of the signals may ask for more, or destroy this provider.
void StatisticsProvider::onStatisticsReceived(Request *request, const Model::Statistics &statistics)
{
    const QPointer<StatisticsProvider> self(this);
    emit rawStatisticsReceived(statistics);
    if (self)
        emit statisticsReceived(statistics.toVariant());
    if (!self)
        return;
    removeRequest(request);
    m_loading =
        std::any_of(m_requests.begin(), m_requests.end(), [](const auto &pending) { return !pending->isDiscarded(); });
    emit loadingChanged();
}

void StatisticsProvider::onDiscarded(Request *request)
{
    removeRequest(request);
}

bool StatisticsProvider::asksForHours(const QDateTime &from, const QDateTime &to, int resolution) const
{
    if (resolution != Auto)
        return resolution == Hour;
    // By the calendar, so that a week in which the clocks change is a week.
    const bool isOld = from.isValid() && from.addDays(daysOfMinutes) <= m_clock();
    const bool isLong = from.isValid() && to.isValid() && to > from.addDays(longestDaysInMinutes);
    return isOld || isLong;
}

void StatisticsProvider::discardLast()
{
    if (!m_requests.empty())
        m_requests.back()->discard();
}

void StatisticsProvider::removeRequest(Request *request)
{
    const auto found = std::find_if(m_requests.begin(), m_requests.end(),
                                    [&](const auto &pending) { return pending.get() == request; });
    if (found == m_requests.end())
        return;
    const auto gone = std::move(*found); // destroyed after the list is whole again
    m_requests.erase(found);
}
