// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Result.h"

#include <tuple>

namespace Model {

namespace {

Result success(const QByteArray &key, const QVariant &value)
{
    Result result;
    result.key = key;
    result.value = value;
    return result;
}

} // namespace

Result Result::ok()
{
    return {};
}

Result Result::ok(const QByteArray &key, const QString &id)
{
    return success(key + "/uid", id);
}

Result Result::added(const QString &id)
{
    return ok("added", id);
}

Result Result::added(const QUuid &uid)
{
    return added(uid.toString());
}

Result Result::changed(const QString &id)
{
    return ok("changed", id);
}

Result Result::changed(const QUuid &uid)
{
    return changed(uid.toString());
}

Result Result::deleted(const QString &id)
{
    return ok("deleted", id);
}

Result Result::deleted(const QUuid &uid)
{
    return deleted(uid.toString());
}

Result Result::custom(const QByteArray &key, const QVariant &value)
{
    return success(key, value);
}

Result Result::data(const QVariant &value)
{
    return success("data", value);
}

Result Result::error(const QString &code, const QString &title, const QString &detail)
{
    Result result;
    result.failure = Error{code, title, detail};
    return result;
}

boost::optional<Result::Error> Result::getError() const
{
    return failure;
}

boost::optional<Result::Success> Result::getResult() const
{
    if (failure)
        return boost::none;
    return Success{key, value};
}

bool operator==(const Result::Error &left, const Result::Error &right)
{
    return std::tie(left.code, left.title, left.detail) == std::tie(right.code, right.title, right.detail);
}

bool operator==(const Result &left, const Result &right)
{
    return std::tie(left.key, left.value, left.failure) == std::tie(right.key, right.value, right.failure);
}

} // namespace Model
