// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/RecordRequests.h"
#include "demo/RequestErrors.h"
#include "demo/RequestReader.h"
#include "demo/Resources.h"
#include "demo/StatisticsStore.h"
#include "model/json/DevicePowerOnInfo.h"
#include "model/json/IsoTime.h"
#include "model/json/Statistics.h"
#include "model/json/StatisticsInfo.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimeZone>
#include <algorithm>

namespace Demo {

namespace {

using Errors = JsonAPI::Errors;
using Grain = StatisticsStore::Grain;
using Kind = RequestReader::Kind;
using JsonAPI::Entity;
using JsonAPI::Request;
using JsonAPI::Response;

constexpr qint64 diskBytes = 16LL * 1024 * 1024 * 1024;
constexpr qint64 bytesPerRow = 24; // of the store
constexpr qint64 bytesPerEntry = 48; // of the journal, beside its texts
constexpr double mostHours = 1000000; // more than a century

QByteArray timezoneOf(const Context &context)
{
    return context.site.data().timezone.toUtf8();
}

StatisticsStore storeOf(const Context &context)
{
    return {context.site, context.seed, context.clock.now(), timezoneOf(context)};
}

// A time without an offset is local time of the site.
QDateTime timeFrom(const Context &context, const QString &text)
{
    const auto time = JsonAPI::isoTime(text);
    return time.isValid() && time.timeSpec() == Qt::LocalTime
        ? QDateTime(time.date(), time.time(), QTimeZone(timezoneOf(context)))
        : time;
}

QString itemOf(const QUrlQuery &query, const char *key)
{
    return query.queryItemValue(QLatin1String(key), QUrl::FullyDecoded);
}

// An end of the range; one that is left out is that of the store.
QDateTime endFrom(const Context &context, const QUrlQuery &query, const char *key, const QDateTime &open,
                  Errors &errors)
{
    if (!query.hasQueryItem(QLatin1String(key)))
        return open;
    const auto time = timeFrom(context, itemOf(query, key));
    if (!time.isValid())
        RequestErrors::invalidData(errors, QStringLiteral("\"%1\"").arg(QLatin1String(key)));
    return time;
}

Grain grainFrom(const QUrlQuery &query, Errors &errors)
{
    const auto word = itemOf(query, "resolution");
    if (word != QLatin1String("minute") && word != QLatin1String("hour"))
        RequestErrors::invalidData(errors, QStringLiteral("\"resolution\""));
    return word == QLatin1String("hour") ? Grain::Hour : Grain::Minute;
}

bool isTextList(const QJsonValue &value)
{
    const auto list = value.toArray();
    return value.isArray()
        && std::all_of(list.begin(), list.end(), [](const auto &element) { return element.isString(); });
}

// Which series are asked for. A uid that is written in two ways is one and the same.
std::vector<StatisticsStore::Series> seriesFrom(const StatisticsStore &store, const QUrlQuery &query, Errors &errors)
{
    const auto document = QJsonDocument::fromJson(itemOf(query, "entities").toUtf8());
    if (!document.isObject()) {
        RequestErrors::invalidData(errors, QStringLiteral("\"entities\""));
        return {};
    }
    std::vector<StatisticsStore::Series> found;
    QMap<QUuid, QStringList> wanted;
    const auto entities = document.object();
    for (auto it = entities.begin(); it != entities.end(); ++it) {
        if (!isTextList(it.value()))
            RequestErrors::invalidData(errors, QStringLiteral("types of \"%1\"").arg(it.key()));
        else if (!store.isKnown(QUuid(it.key())))
            RequestErrors::unknownRecord(errors, it.key());
        const auto types = it.value().toVariant().toStringList();
        wanted[QUuid(it.key())] += types.isEmpty() ? QStringList(QString()) : types; // none named: all
    }
    for (auto it = wanted.begin(); errors.isEmpty() && it != wanted.end(); ++it) {
        const auto series = store.series(it.key(), it.value());
        found.insert(found.end(), series.begin(), series.end());
    }
    return found;
}

void checkItems(const QUrlQuery &query, Errors &errors)
{
    static const QStringList known{"from", "to", "entities", "resolution"};
    QStringList met;
    for (const auto &item : query.queryItems()) {
        if (!known.contains(item.first) || met.contains(item.first))
            RequestErrors::invalidData(errors, QStringLiteral("\"%1\"").arg(item.first));
        met << item.first;
    }
}

Outcome getStatistics(Context &context, const Request &request)
{
    Errors errors;
    auto store = storeOf(context);
    const auto query = request.query.value_or(QUrlQuery());
    checkItems(query, errors);
    Model::Statistics statistics;
    statistics.from = endFrom(context, query, "from", store.start(), errors);
    statistics.to = endFrom(context, query, "to", store.end(), errors);
    const auto grain = grainFrom(query, errors);
    const auto wanted = seriesFrom(store, query, errors);
    if (!errors.isEmpty())
        return RequestErrors::response(errors);
    const auto rows = store.rowCount(statistics.from, statistics.to, grain);
    if (rows * static_cast<qint64>(wanted.size()) > StatisticsStore::mostRows) {
        RequestErrors::tooMuchStatistics(
            errors,
            QStringLiteral("%1 > %2").arg(rows * static_cast<qint64>(wanted.size())).arg(StatisticsStore::mostRows));
        return RequestErrors::response(errors);
    }
    for (const auto &series : wanted) {
        if (rows > 0)
            statistics.categories.push_back(
                {series.uid, series.type, series.schema, store.rows(series, statistics.from, statistics.to, grain)});
    }
    return Response(JsonAPI::Statistics::toVariant(statistics));
}

// Of both grains together.
qint64 storedRows(const StatisticsStore &store)
{
    return store.seriesCount()
        * (store.rowCount(store.start(), store.end(), Grain::Minute)
           + store.rowCount(store.start(), store.end(), Grain::Hour));
}

Outcome getInfo(Context &context, const Request &)
{
    const auto store = storeOf(context);
    Model::StatisticsInfo info;
    info.dataStart = store.start();
    info.dataEnd = store.end();
    info.statisticsSize = storedRows(store) * bytesPerRow;
    for (const auto &entry : context.site.data().journal.entries())
        info.logSize += bytesPerEntry + entry.username.toUtf8().size() + entry.action.toUtf8().size();
    info.availableSize =
        std::max<qint64>(diskBytes - info.statisticsSize - info.logSize - context.site.storedFileBytes(), 0);
    return Response(JsonAPI::StatisticsInfo::toVariant(info));
}

Model::DevicePowerOnInfo infoFrom(const Context &context, const Entity &entity, Errors &errors)
{
    RequestReader::check(entity, "device_power_on_info",
                         {{"power_on_hours", Kind::Number}, {"last_update", Kind::Text}}, errors);
    auto info = JsonAPI::DevicePowerOnInfo::fromVariant(entity);
    const auto *device = context.site.device(info.uid);
    if (!device)
        RequestErrors::unknownRecord(errors, entity.id);
    else if (!context.site.hasPower(*device))
        RequestErrors::invalidData(errors, QStringLiteral("\"%1\" is never on").arg(entity.id));
    const bool told = entity.attributes.contains("power_on_hours");
    if (!told || info.powerOnHours < 0 || info.powerOnHours > mostHours)
        RequestErrors::invalidData(errors, QStringLiteral("\"power_on_hours\" of \"%1\"").arg(entity.id));
    info.lastUpdate = timeFrom(context, entity.attributes.value("last_update").toString());
    if (!info.lastUpdate.isValid())
        RequestErrors::invalidData(errors, QStringLiteral("\"last_update\" of \"%1\"").arg(entity.id));
    return info;
}

// Hours as of now; no hours and a time of the past ask to count since then.
Outcome putPowerOn(Context &context, const Request &request)
{
    Errors errors;
    std::vector<Model::DevicePowerOnInfo> infos;
    if (request.data.empty() || request.data.size() > mostRecords)
        RequestErrors::invalidData(errors, QStringLiteral("%1 entities").arg(request.data.size()));
    else
        std::transform(request.data.begin(), request.data.end(), std::back_inserter(infos),
                       [&](const auto &entity) { return infoFrom(context, entity, errors); });
    if (!errors.isEmpty())
        return RequestErrors::response(errors);

    const auto now = context.clock.now();
    const auto store = storeOf(context);
    QHash<QPair<QUuid, qint64>, double> counted; // lamps of one zone run alike
    std::vector<Model::Result> results;
    for (auto &info : infos) {
        if (info.powerOnHours <= 0) {
            const auto *device = context.site.device(info.uid);
            const auto key = qMakePair(device->descriptor.zoneUid, info.lastUpdate.toMSecsSinceEpoch());
            if (!counted.contains(key))
                counted.insert(key, store.runHours(*device, info.lastUpdate, now));
            info.powerOnHours = counted.value(key);
        }
        info.lastUpdate = now;
        context.site.put(info);
        results.push_back(Model::Result::changed(info.uid));
    }
    context.note(QStringLiteral("Изменение часов наработки"));
    return Response("device_power_on_info", results);
}

} // namespace

const std::vector<Resource> &statisticsResources()
{
    using Method = Request::Method;
    constexpr bool takesId = true;
    constexpr bool takesQuery = true;
    static const std::vector<Resource> resources{
        {"power_on_statistics", Method::Post, Access::Admin, putPowerOn},
        {"statistics", Method::Get, Access::User, getStatistics, !takesId, takesQuery},
        {"statistics_info", Method::Get, Access::User, getInfo},
    };
    return resources;
}

} // namespace Demo
