// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/RequestErrors.h"
#include "demo/RequestReader.h"
#include "demo/Resources.h"
#include "demo/SettingsChecks.h"
#include "demo/Transports.h"
#include "model/json/LogEntry.h"
#include "model/json/RadioStatus.h"
#include "model/json/Settings.h"

#include <QVariantList>
#include <QVariantMap>
#include <limits>

namespace Demo {

namespace {

using Errors = JsonAPI::Errors;
using JsonAPI::Entity;
using JsonAPI::Request;
using JsonAPI::Response;

const QLatin1String settingsId("1"); // there is one record

// What the entity leaves out stays as it was. Older clients know the first radio only, under a name of its own.
Model::Settings settingsFrom(const Model::Settings &known, const Entity &entity)
{
    auto attributes = Entity(JsonAPI::Settings::toVariant(known)).attributes;
    auto given = entity.attributes;
    if (given.contains("radio") && !given.contains("mrf")) {
        auto radios = attributes.value("mrf").toList();
        if (radios.isEmpty())
            radios.append(QVariant());
        radios.first() = given.value("radio");
        given.insert("mrf", radios);
    }
    auto levels = attributes.value("pwm").toMap();
    const auto givenLevels = given.value("pwm").toMap();
    for (auto it = givenLevels.begin(); it != givenLevels.end(); ++it)
        levels.insert(it.key(), it.value());
    given.insert("pwm", levels);

    Entity merged(entity.type, entity.id);
    merged.attributes = attributes;
    for (auto it = given.begin(); it != given.end(); ++it)
        merged.setAttribute(it.key(), it.value());
    return JsonAPI::Settings::fromVariant(merged);
}

Outcome putSettings(Context &context, const Request &request)
{
    Errors errors;
    const auto entity = request.datum();
    const auto id = request.id.value_or(QString());
    if (!id.isEmpty() && id != settingsId)
        RequestErrors::unknownRecord(errors, id);
    else if (request.data.size() != 1)
        RequestErrors::invalidData(errors, QStringLiteral("%1 entities").arg(request.data.size()));
    else if (entity.id != settingsId)
        RequestErrors::unknownRecord(errors, entity.id);
    else
        SettingsChecks::settings(entity, errors);
    if (!errors.isEmpty())
        return RequestErrors::response(errors);
    context.site.setSettings(settingsFrom(context.site.data().settings, entity));
    context.note(QStringLiteral("Изменение настроек сервера"));
    return Response("settings", {Model::Result::changed(settingsId)});
}

Outcome getRadioStatus(Context &context, const Request &)
{
    QVariantList list;
    for (const auto &status : transportsStatus(context.site.data(), context.seed, context.clock.now()))
        list << JsonAPI::RadioStatus::toVariant(status);
    return Response(list);
}

// An end of the range: milliseconds since the epoch. One that is left out leaves the range open.
qint64 timeFrom(const QUrlQuery &query, const QString &key, qint64 open, Errors &errors)
{
    if (!query.hasQueryItem(key))
        return open;
    bool isNumber = false;
    const auto time = query.queryItemValue(key).toLongLong(&isNumber);
    if (!isNumber)
        RequestErrors::invalidData(errors, QStringLiteral("\"%1\"").arg(key));
    return time;
}

Outcome getLog(Context &context, const Request &request)
{
    using Limits = std::numeric_limits<qint64>;
    Errors errors;
    const auto query = request.query.value_or(QUrlQuery());
    for (const auto &item : query.queryItems()) {
        if (item.first != QLatin1String("from") && item.first != QLatin1String("to"))
            RequestErrors::invalidData(errors, QStringLiteral("\"%1\"").arg(item.first));
    }
    const auto from = timeFrom(query, QStringLiteral("from"), Limits::min(), errors);
    const auto to = timeFrom(query, QStringLiteral("to"), Limits::max(), errors);
    if (!errors.isEmpty())
        return RequestErrors::response(errors);
    QVariantList list;
    for (const auto &entry : context.site.data().journal.between(from, to))
        list << JsonAPI::LogEntry::toVariant(entry);
    return Response(list);
}

} // namespace

const std::vector<Resource> &serviceResources()
{
    using Method = Request::Method;
    constexpr bool takesId = true;
    constexpr bool takesQuery = true;
    static const std::vector<Resource> resources{
        {"radio_status", Method::Get, Access::User, getRadioStatus},
        {"settings", Method::Post, Access::Admin, putSettings, takesId},
        {"system_log", Method::Get, Access::User, getLog, !takesId, takesQuery},
    };
    return resources;
}

} // namespace Demo
