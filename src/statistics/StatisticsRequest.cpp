// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/StatisticsRequest.h"

#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(statisticsLog, "ondira.statistics")

// An invalid time compares equal to the start of the epoch.
bool isSameTime(const QDateTime &left, const QDateTime &right)
{
    return left.isValid() == right.isValid() && left == right;
}

} // namespace

StatisticsProvider::Request::Request(StatisticsProvider &provider, const QDateTime &from, const QDateTime &to,
                                     const Entities &entities, int resolution)
    : m_provider(provider)
    , m_from(from)
    , m_to(to)
    , m_entities(entities)
    , m_resolution(resolution)
{
    if (provider.m_communicator) {
        connect(provider.m_communicator, &AbstractBackendCommunicator::statisticsReceived, this,
                &Request::onReplyReceived);
    }
}

bool StatisticsProvider::Request::isSameAs(const Request &other) const
{
    return isSameTime(m_from, other.m_from) && isSameTime(m_to, other.m_to) && m_entities == other.m_entities
        && m_resolution == other.m_resolution;
}

// The answer may come before getStatistics() returns, and this object is gone then: nothing may follow the call.
void StatisticsProvider::Request::request()
{
    if (!m_provider.m_communicator) {
        qCWarning(statisticsLog) << "Trying to perform a null chunked request";
        return;
    }
    qCDebug(statisticsLog) << "Request started" << m_from.toString(Qt::ISODate) << m_to.toString(Qt::ISODate)
                           << m_entities;
    if (m_discarded) {
        qCDebug(statisticsLog) << "Request discarded";
        m_provider.onDiscarded(this);
        return;
    }
    using Grain = AbstractBackendCommunicator::StatisticsGrain;
    const auto grain = m_provider.asksForHours(m_from, m_to, m_resolution) ? Grain::Hour : Grain::Minute;
    const auto id = m_id; // copies: the arguments must outlive this object
    const auto entities = m_entities;
    const auto from = m_from;
    const auto to = m_to;
    m_provider.m_communicator->getStatistics(from, to, entities, grain, id);
}

// Every request sees the answers of all. Nothing may follow the calls of the provider, which destroys this object.
void StatisticsProvider::Request::onReplyReceived(const Model::Statistics &statistics, const QUuid &id)
{
    if (id != m_id)
        return;
    if (m_discarded) {
        qCDebug(statisticsLog) << "Request discarded";
        m_provider.onDiscarded(this);
        return;
    }
    qCDebug(statisticsLog) << "Request ended, received" << statistics.size() << "data points";
    m_provider.onStatisticsReceived(this, statistics);
}
