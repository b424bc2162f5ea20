// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/RequestErrors.h"

#include <algorithm>

namespace Demo {
namespace RequestErrors {

void badRequest(JsonAPI::Errors &errors, const QString &detail)
{
    errors.add("bad_request_error", QStringLiteral("Сервер не смог прочитать запрос"), detail);
}

void unknownResource(JsonAPI::Errors &errors, const QString &resource)
{
    errors.add("unknown_resource_error", QStringLiteral("Сервер не знает такого ресурса"), resource);
}

void wrongMethod(JsonAPI::Errors &errors, const QString &resource)
{
    errors.add("wrong_method_error", QStringLiteral("Ресурс не поддерживает эту операцию"), resource);
}

void unknownRecord(JsonAPI::Errors &errors, const QString &id)
{
    errors.add("unknown_uid_error", QStringLiteral("Запись не найдена на сервере"), id);
}

void invalidData(JsonAPI::Errors &errors, const QString &detail)
{
    errors.add("invalid_data_error", QStringLiteral("Недопустимые данные в запросе"), detail);
}

void unknownBlueprint(JsonAPI::Errors &errors, const QString &uid)
{
    errors.add("unknown_blueprint_error", QStringLiteral("Сервер не знает такого действия"), uid);
}

void storeFull(JsonAPI::Errors &errors, const QString &detail)
{
    errors.add("store_full_error", QStringLiteral("На сервере нет места для файла"), detail);
}

void tooMuchStatistics(JsonAPI::Errors &errors, const QString &detail)
{
    errors.add("too_much_statistics_error",
               QStringLiteral("Запрошено слишком много статистики: уменьшите период или число устройств"), detail);
}

void lastAdministrator(JsonAPI::Errors &errors)
{
    errors.add("last_admin_error", QStringLiteral("На сервере должен остаться хотя бы один администратор"));
}

void corruptedBackup(JsonAPI::Errors &errors, const QString &detail)
{
    errors.add("corrupted_backup", QStringLiteral("Файл резервной копии поврежден"), detail);
}

void authNeeded(JsonAPI::Errors &errors)
{
    errors.add("auth_needed", QStringLiteral("Необходимо войти в систему"));
}

void authFailed(JsonAPI::Errors &errors)
{
    errors.add("auth_error", QStringLiteral("Неверное имя пользователя или пароль"));
}

JsonAPI::Response response(const JsonAPI::Errors &errors)
{
    constexpr size_t most = 20; // one bad list of thousands need not come back thousandfold
    JsonAPI::Response response;
    const auto &list = errors.list();
    for (size_t i = 0; i < std::min(list.size(), most); ++i)
        response.errors.add(list[i].code, list[i].title, list[i].detail);
    return response;
}

} // namespace RequestErrors
} // namespace Demo
