// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/RequestErrors.h"
#include "demo/RequestReader.h"
#include "demo/Resources.h"
#include "demo/SiteLoader.h"
#include "link/document/Compression.h"
#include "model/json/TimeInfo.h"
#include "model/json/UserInfo.h"

#include <algorithm>

namespace Demo {

namespace {

using Kind = RequestReader::Kind;
using Errors = JsonAPI::Errors;
using JsonAPI::Entity;
using JsonAPI::Request;
using JsonAPI::Response;

constexpr qint64 largestBackup = 400 * 1024 * 1024; // unpacked: files in it take a third more than in the store

bool isAdministrator(const Model::UserInfo &user)
{
    return user.group == QLatin1String("admin");
}

// Whether somebody could still administer the site if those users had gone or changed.
bool hasAdministrator(const DemoSite &site, const std::vector<Model::UserInfo> &changed, const QSet<QString> &removed)
{
    const auto &users = site.data().users;
    const bool kept = std::any_of(users.begin(), users.end(), [&](const auto &user) {
        const bool touched = removed.contains(user.login)
            || std::any_of(changed.begin(), changed.end(),
                           [&user](const auto &other) { return other.login == user.login; });
        return !touched && isAdministrator(user);
    });
    return kept || std::any_of(changed.begin(), changed.end(), isAdministrator);
}

Outcome getUsers(Context &context, const Request &)
{
    QVariantList users;
    for (const auto &user : context.site.data().users)
        users << JsonAPI::UserInfo::toVariantNoPassword(user);
    return Response(users);
}

// What the entity leaves out stays as it was, the password above all. A new user needs a password and a group.
Model::UserInfo readUser(const Context &context, const Entity &entity, Errors &errors)
{
    RequestReader::check(entity, "user",
                         {{"login", Kind::Text},
                          {"password", Kind::Text},
                          {"group", Kind::Text},
                          {"zones_whitelist", Kind::UidListOrNull},
                          {"access_list", Kind::TextListOrNull}},
                         errors);
    const auto *known = context.site.user(entity.id);
    Entity merged(entity.type, entity.id);
    if (known)
        merged.attributes = Entity(JsonAPI::UserInfo::toVariant(*known)).attributes;
    for (auto it = entity.attributes.begin(); it != entity.attributes.end(); ++it)
        merged.setAttribute(it.key(), it.value());
    if (!merged.attributes.contains("login"))
        merged.setAttribute("login", entity.id);
    const auto user = JsonAPI::UserInfo::fromVariant(merged);
    if (user.login.isEmpty() || user.login != entity.id)
        RequestErrors::invalidData(errors, QStringLiteral("login \"%1\"").arg(user.login));
    if (!user.password)
        RequestErrors::invalidData(errors, QStringLiteral("\"password\" of \"%1\"").arg(entity.id));
    if (user.group.isEmpty())
        RequestErrors::invalidData(errors, QStringLiteral("\"group\" of \"%1\"").arg(entity.id));
    return user;
}

Outcome putUsers(Context &context, const Request &request)
{
    Errors errors;
    std::vector<Model::UserInfo> users;
    for (const auto &entity : request.data)
        users.push_back(readUser(context, entity, errors));
    if (errors.isEmpty() && !hasAdministrator(context.site, users, {}))
        RequestErrors::lastAdministrator(errors);
    if (!errors.isEmpty())
        return RequestErrors::response(errors);

    std::vector<Model::Result> results;
    for (const auto &user : users) {
        const bool known = context.site.user(user.login) != nullptr;
        context.site.put(user);
        results.push_back(known ? Model::Result::changed(user.login) : Model::Result::added(user.login));
        context.note(QStringLiteral("Пользователь «%1» %2")
                         .arg(user.login, known ? QStringLiteral("изменён") : QStringLiteral("добавлен")));
    }
    return Response("user", results);
}

Outcome removeUsers(Context &context, const Request &request)
{
    Errors errors;
    QSet<QString> logins;
    std::vector<Model::Result> results;
    for (const auto &entity : request.data) {
        RequestReader::check(entity, "user", {}, errors);
        if (!context.site.user(entity.id))
            RequestErrors::unknownRecord(errors, entity.id);
        else if (!logins.contains(entity.id))
            results.push_back(Model::Result::deleted(entity.id));
        logins.insert(entity.id);
    }
    if (errors.isEmpty() && !hasAdministrator(context.site, {}, logins))
        RequestErrors::lastAdministrator(errors);
    if (!errors.isEmpty())
        return RequestErrors::response(errors);
    if (!logins.isEmpty())
        context.site.removeUsers(logins);
    auto removed = logins.values();
    std::sort(removed.begin(), removed.end()); // the order of the set differs from run to run
    for (const auto &login : qAsConst(removed))
        context.note(QStringLiteral("Пользователь «%1» удалён").arg(login));
    return Response("user", results);
}

Outcome ping(Context &context, const Request &)
{
    return Response(Entity("ping", context.clock.now().toString(Qt::ISODate)).toVariant());
}

Outcome getSystemTime(Context &context, const Request &)
{
    return Response(JsonAPI::TimeInfo::toVariant(context.clock.info()));
}

Outcome setSystemTime(Context &context, const Request &request)
{
    Errors errors;
    const auto entity = request.datum();
    RequestReader::check(entity, "time_info", {{"time", Kind::Text}, {"timezone", Kind::Text}, {"ntp", Kind::Flag}},
                         errors);
    if (request.data.size() != 1)
        RequestErrors::invalidData(errors, QStringLiteral("%1 entities").arg(request.data.size()));
    if (!errors.isEmpty())
        return RequestErrors::response(errors);

    const auto current = context.clock.info();
    auto info = JsonAPI::TimeInfo::fromVariant(entity);
    if (!entity.attributes.contains("timezone"))
        info.timezone = current.timezone;
    if (!entity.attributes.contains("ntp"))
        info.ntp = current.ntp;
    if (!entity.attributes.contains("time"))
        info.time = current.time;
    if (!info.time.isValid())
        RequestErrors::invalidData(errors, QStringLiteral("\"time\""));
    if (!SiteClock::isKnownTimezone(info.timezone))
        RequestErrors::invalidData(errors, QStringLiteral("timezone \"%1\"").arg(info.timezone));
    if (!errors.isEmpty())
        return RequestErrors::response(errors);
    context.clock.set(info);
    context.site.setTimezone(info.timezone);
    context.note(QStringLiteral("Установка времени: %1, %2")
                     .arg(context.clock.now().toString(QStringLiteral("yyyy-MM-dd HH:mm")), info.timezone));
    return Response("time_info", {Model::Result::changed(entity.id)});
}

Outcome getBackup(Context &context, const Request &)
{
    ZmqBinaryMessage file;
    const auto day = context.clock.now().toString(QStringLiteral("yyyy-MM-dd"));
    file.add("filename", QStringLiteral("ondira-demo-%1.qvb2").arg(day).toUtf8());
    file.add("data", qCompress(SiteLoader::toJson(context.site.data())));
    context.note(QStringLiteral("Создание резервной копии"));
    return file;
}

Outcome restoreBackup(Context &context, const ZmqBinaryMessage &message)
{
    Errors errors;
    const auto *data = message.get("data");
    QString complaint = QStringLiteral("no data");
    const auto json = data ? Compression::unpack(*data, largestBackup) : boost::none;
    const auto site = json ? SiteLoader::fromJson(*json, &complaint) : boost::none;
    if (!site) {
        RequestErrors::corruptedBackup(errors, complaint);
        return RequestErrors::response(errors);
    }
    context.site.replace(*site);
    context.clock.setTimezone(site->timezone);
    context.note(QStringLiteral("Восстановление из резервной копии"));
    return Response("shop", {Model::Result::changed(site->uid)});
}

Outcome factoryReset(Context &context, const Request &request)
{
    Errors errors;
    RequestReader::check(request.datum(), "factory_reset", {}, errors);
    if (!errors.isEmpty())
        return RequestErrors::response(errors);
    context.site.reset();
    context.clock.setTimezone(context.site.data().timezone);
    context.note(QStringLiteral("Сброс к заводским настройкам"));
    return Response("shop", {Model::Result::changed(context.site.data().uid)});
}

Outcome getComPorts(Context &context, const Request &)
{
    std::vector<Entity> ports;
    for (const auto &port : context.site.data().comPorts)
        ports.emplace_back("com_port", port);
    return Response(ports);
}

} // namespace

const std::vector<Resource> &systemResources()
{
    using Method = Request::Method;
    static const std::vector<Resource> resources{
        {"available_com_ports", Method::Get, Access::User, getComPorts},
        {"ping", Method::Post, Access::User, ping},
        {"system_backup", Method::Get, Access::Admin, getBackup}, // it holds the passwords
        {"system_factory_reset", Method::Post, Access::Admin, factoryReset},
        {"system_time", Method::Get, Access::User, getSystemTime},
        {"system_time", Method::Post, Access::Admin, setSystemTime},
        {"users", Method::Get, Access::User, getUsers},
        {"users", Method::Post, Access::Admin, putUsers},
        {"users", Method::Delete, Access::Admin, removeUsers},
    };
    return resources;
}

const std::vector<Upload> &uploads()
{
    static const std::vector<Upload> rows{
        {"system_backup_restore", Access::Admin, restoreBackup},
    };
    return rows;
}

} // namespace Demo
