// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "statistics/StatisticsProvider.h"

// One query without an answer yet. Its provider owns it, and destroys it while it hands over the answer.
class StatisticsProvider::Request : public QObject
{
public:
    Request(StatisticsProvider &provider, const QDateTime &from, const QDateTime &to, const Entities &entities,
            int resolution);

    bool isSameAs(const Request &other) const;
    bool isDiscarded() const { return m_discarded; }
    void discard() { m_discarded = true; }
    void request();

private:
    void onReplyReceived(const Model::Statistics &statistics, const QUuid &id);

    StatisticsProvider &m_provider;
    QDateTime m_from;
    QDateTime m_to;
    Entities m_entities;
    int m_resolution;
    bool m_discarded = false; // the answer will be thrown away
    QUuid m_id = QUuid::createUuid();
};
