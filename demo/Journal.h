// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Statistics.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonValue>
#include <QString>
#include <boost/optional.hpp>
#include <deque>
#include <vector>

namespace Demo {

struct SiteData;

// The site's journal: what happened, when and by whom, in the order it was told. Part of the site; of more than it
// holds the newest stay.
class Journal
{
public:
    static constexpr size_t capacity = 20000;

    // With its time in whole seconds, as documents tell it; one that cannot be told there is passed over.
    void add(const Model::LogEntry &entry);
    const std::deque<Model::LogEntry> &entries() const & { return m_entries; }
    const std::deque<Model::LogEntry> &entries() const && = delete; // gone with the journal
    // By time, those of one second in the order they were told. Milliseconds since the epoch; both ends belong to it.
    std::vector<Model::LogEntry> between(qint64 from, qint64 to) const;

    // Entities, as documents tell them.
    QJsonArray toJson() const;
    static boost::optional<Journal> fromJson(const QJsonValue &list, QString *error);

    // A year of what could have happened at the site until then. A day's entries depend on the seed and the day alone.
    static Journal invented(const SiteData &site, quint32 seed, const QDateTime &until);

private:
    std::deque<Model::LogEntry> m_entries;
};

// What the journal tells of the same things, lived through or invented.
namespace JournalTexts {

QString serverStarted();
QString loggedIn();
QString buttonPressed(const QString &name);
QString schedulePoint(const QString &schedule, const QTime &time);
QString noAnswer(const QString &device);
QString answersAgain(const QString &device);

} // namespace JournalTexts
} // namespace Demo
