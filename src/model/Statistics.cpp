// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Statistics.h"

#include <QHash>
#include <algorithm>
#include <iterator>
#include <numeric>
#include <tuple>

namespace Model {

namespace {

auto fields(const Statistics::Item &item)
{
    return std::tie(item.time, item.values);
}

auto fields(const Statistics::Category &category)
{
    return std::tie(category.uid, category.type, category.schema, category.items);
}

auto fields(const Statistics &statistics)
{
    return std::tie(statistics.categories, statistics.from, statistics.to);
}

auto fields(const StatisticsInfo &info)
{
    return std::tie(info.dataStart, info.dataEnd, info.statisticsSize, info.logSize, info.availableSize);
}

auto fields(const LogEntry &entry)
{
    return std::tie(entry.time, entry.cause, entry.username, entry.action);
}

// Qt takes an invalid time for the start of the epoch; here it comes before every other.
bool isEarlier(const QDateTime &left, const QDateTime &right)
{
    return left.isValid() && right.isValid() ? left < right : left.isValid() < right.isValid();
}

Statistics::Category &categoryFor(std::vector<Statistics::Category> &categories, const QUuid &uid,
                                  const QStringList &schema, const QString &type)
{
    const auto found = std::find_if(categories.begin(), categories.end(), [&](const auto &category) {
        return category.uid == uid && category.type == type && category.schema == schema;
    });
    if (found != categories.end())
        return *found;
    categories.push_back({uid, type, schema, {}});
    return categories.back();
}

// A column that the row has no value for is left out at the end, and holds its place before others.
Statistics::Item itemFromMap(const QVariantMap &map, const QStringList &schema)
{
    Statistics::Item item;
    item.time = map.value("time").toDateTime();
    for (int column = 0; column < schema.size(); ++column) {
        const auto value = map.constFind(schema.at(column));
        if (value == map.constEnd())
            continue;
        while (item.values.size() < column)
            item.values.append(QVariant());
        item.values.append(*value);
    }
    return item;
}

const auto &causeWords()
{
    using Cause = LogEntry::Cause;
    static const QHash<QString, Cause> words{
        {"user", Cause::User}, {"system", Cause::System}, {"schedule", Cause::Schedule}};
    return words;
}

} // namespace

QDateTime Statistics::Category::from() const
{
    return items.empty() ? QDateTime() : items.front().time;
}

QDateTime Statistics::Category::to() const
{
    return items.empty() ? QDateTime() : items.back().time;
}

QVariantMap Statistics::Category::toMap(const Item &item) const
{
    QVariantMap map;
    const int columns = std::min(schema.size(), item.values.size());
    for (int column = 0; column < columns; ++column)
        map.insert(schema.at(column), item.values.at(column));
    map.insert("time", item.time); // last: a column of that name does not hide it
    return map;
}

int Statistics::size() const
{
    return std::accumulate(categories.begin(), categories.end(), 0,
                           [](int sum, const auto &category) { return sum + static_cast<int>(category.items.size()); });
}

void Statistics::addData(const QUuid &uid, const QStringList &schema, const QString &type, const QDateTime &time,
                         const QVariantList &values)
{
    categoryFor(categories, uid, schema, type).items.push_back({time, values});
}

void Statistics::addData(const QUuid &uid, const QStringList &schema, const QString &type,
                         const std::vector<Item> &items)
{
    auto &own = categoryFor(categories, uid, schema, type).items;
    if (&own == &items) {
        const auto copy = items;
        own.insert(own.end(), copy.begin(), copy.end());
        return;
    }
    own.insert(own.end(), items.begin(), items.end());
}

void Statistics::absorb(const Statistics &other)
{
    if (&other == this) {
        absorb(Statistics(other)); // the list must not grow while it is read
        return;
    }
    from = std::min(from, other.from, isEarlier);
    to = std::max(to, other.to, isEarlier);
    for (const auto &category : other.categories)
        addData(category.uid, category.schema, category.type, category.items);
}

QVariant Statistics::toVariant() const
{
    QVariantList data;
    data.reserve(static_cast<int>(categories.size()));
    for (const auto &category : categories) {
        QVariantList values;
        values.reserve(static_cast<int>(category.items.size()));
        for (const auto &item : category.items)
            values.append(category.toMap(item));
        data.append(QVariantMap{{"uid", category.uid.toString()},
                                {"type", category.type},
                                {"schema", category.schema},
                                {"values", values}});
    }
    return QVariantMap{{"from", from}, {"to", to}, {"data", data}};
}

Statistics Statistics::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    Statistics statistics;
    statistics.from = map.value("from").toDateTime();
    statistics.to = map.value("to").toDateTime();
    const auto data = map.value("data").value<QVariantList>();
    statistics.categories.reserve(static_cast<std::size_t>(data.size()));
    for (const auto &element : data) {
        const auto series = element.toMap();
        Category category;
        category.uid = series.value("uid").toUuid();
        category.type = series.value("type").toString();
        category.schema = series.value("schema").toStringList();
        const auto values = series.value("values").value<QVariantList>();
        category.items.reserve(static_cast<std::size_t>(values.size()));
        std::transform(values.begin(), values.end(), std::back_inserter(category.items),
                       [&](const QVariant &value) { return itemFromMap(value.toMap(), category.schema); });
        statistics.categories.push_back(std::move(category));
    }
    return statistics;
}

QString LogEntry::causeToString(Cause cause)
{
    return causeWords().key(cause);
}

LogEntry::Cause LogEntry::causeFromString(const QString &text)
{
    return causeWords().value(text, Cause::System);
}

bool operator==(const Statistics::Item &left, const Statistics::Item &right)
{
    return fields(left) == fields(right);
}

bool operator==(const Statistics::Category &left, const Statistics::Category &right)
{
    return fields(left) == fields(right);
}

bool operator==(const Statistics &left, const Statistics &right)
{
    return fields(left) == fields(right);
}

bool operator==(const StatisticsInfo &left, const StatisticsInfo &right)
{
    return fields(left) == fields(right);
}

bool operator==(const LogEntry &left, const LogEntry &right)
{
    return fields(left) == fields(right);
}

} // namespace Model
