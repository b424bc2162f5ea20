// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QUuid>
#include <QVariant>
#include <QVariantList>
#include <QVariantMap>
#include <vector>

namespace Model {

// Time series of devices and zones: one reply of the server, or several merged.
struct Statistics
{
    // One row of a series.
    struct Item
    {
        QDateTime time;
        QVariantList values; // in the order of the schema
    };

    // One series of one device or zone.
    struct Category
    {
        QUuid uid;
        QString type; // such as the name of a statistics interface
        QStringList schema; // names of the columns of values
        std::vector<Item> items; // in time order as sent

        QDateTime from() const; // of the first item; invalid when there is none
        QDateTime to() const; // of the last item
        QVariantMap toMap(const Item &item) const; // "time" and each name of the schema that has a value
    };

    std::vector<Category> categories; // in the order of arrival
    QDateTime from;
    QDateTime to;

    int size() const; // items over all categories
    const std::vector<Category> &flat() const { return categories; }

    // To the category of equal uid, schema and type, or to a new one at the end.
    void addData(const QUuid &uid, const QStringList &schema, const QString &type, const QDateTime &time,
                 const QVariantList &values);
    void addData(const QUuid &uid, const QStringList &schema, const QString &type, const std::vector<Item> &items);
    // Takes in another reply: the earlier start, the later end, and all its data. An invalid time is the earliest.
    void absorb(const Statistics &other);

    QVariant toVariant() const; // for QML: "from", "to", "data"
    static Statistics fromVariant(const QVariant &map);
};

// Figures of the server's store. Sizes are bytes.
struct StatisticsInfo
{
    QDateTime dataStart;
    QDateTime dataEnd;
    qint64 statisticsSize = 0;
    qint64 logSize = 0;
    qint64 availableSize = 0;
};

// One line of the journal.
struct LogEntry
{
    enum class Cause { User = 0, System = 1, Schedule = 2 };

    QDateTime time;
    Cause cause = Cause::System;
    QString username;
    QString action;

    static QString causeToString(Cause cause); // "user", "system", "schedule"
    static Cause causeFromString(const QString &text); // System for an unknown text
};

bool operator==(const Statistics::Item &left, const Statistics::Item &right);
bool operator==(const Statistics::Category &left, const Statistics::Category &right);
bool operator==(const Statistics &left, const Statistics &right);
bool operator==(const StatisticsInfo &left, const StatisticsInfo &right);
bool operator==(const LogEntry &left, const LogEntry &right);

} // namespace Model

Q_DECLARE_METATYPE(Model::Statistics)
Q_DECLARE_METATYPE(Model::StatisticsInfo)
Q_DECLARE_METATYPE(std::vector<Model::Statistics::Item>)
Q_DECLARE_METATYPE(std::vector<Model::LogEntry>)
