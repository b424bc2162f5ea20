// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/RequestReader.h"

#include "demo/RequestErrors.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>
#include <QUuid>
#include <algorithm>
#include <cmath>
#include <limits>

namespace Demo {

namespace {

bool hasText(const QJsonObject &object, const char *key)
{
    return object.value(QLatin1String(key)).isString();
}

bool isRelation(const QJsonValue &value)
{
    const auto relation = value.toObject();
    const auto meta = relation.value(QLatin1String("meta"));
    return value.isObject() && hasText(relation, "type") && hasText(relation, "id")
        && (meta.isUndefined() || meta.isObject());
}

bool isRelationship(const QJsonValue &value)
{
    const auto data = value.toObject().value(QLatin1String("data"));
    const auto relations = data.toArray();
    return data.isArray() && std::all_of(relations.begin(), relations.end(), isRelation);
}

// An entity, or an empty one with empty type and id.
bool isEntity(const QJsonValue &value)
{
    const auto entity = value.toObject();
    const auto attributes = entity.value(QLatin1String("attributes"));
    const auto relationships = entity.value(QLatin1String("relationships"));
    const auto names = relationships.toObject();
    return value.isObject() && hasText(entity, "type") && hasText(entity, "id")
        && (attributes.isUndefined() || attributes.isObject())
        && (relationships.isUndefined()
            || (relationships.isObject() && std::all_of(names.begin(), names.end(), isRelationship)));
}

bool isEntityList(const QJsonValue &value)
{
    const auto entities = value.toArray();
    return value.isArray() && std::all_of(entities.begin(), entities.end(), isEntity);
}

bool isMethod(const QJsonValue &value)
{
    static const QStringList methods{"get", "post", "delete"};
    return value.isString() && methods.contains(value.toString().toLower());
}

// A resource name, at most one id, and a query, which the lists between two times have.
bool isLink(const QJsonValue &value)
{
    if (!value.isString())
        return false;
    const QUrl url("ondira://backend/" + value.toString()); // tolerant: uids come with their braces
    const auto path = url.path(QUrl::FullyDecoded).split('/', Qt::SkipEmptyParts);
    return url.isValid() && path.size() >= 1 && path.size() <= 2 && !url.hasFragment();
}

bool isVersion(const QJsonValue &value)
{
    return value.isString() && !QVersionNumber::fromString(value.toString()).isNull();
}

bool isNumber(const QVariant &value)
{
    switch (static_cast<QMetaType::Type>(value.type())) {
    case QMetaType::Double:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong: return std::isfinite(value.toDouble());
    default: return false;
    }
}

bool isInteger(const QVariant &value)
{
    const double number = value.toDouble();
    return isNumber(value) && number == std::floor(number) && std::abs(number) <= std::numeric_limits<int>::max();
}

bool isText(const QVariant &value)
{
    return static_cast<QMetaType::Type>(value.type()) == QMetaType::QString;
}

bool isUid(const QVariant &value)
{
    // Every text that is no uid reads as the null one.
    const auto text = value.toString();
    return isText(value) && (!QUuid(text).isNull() || text == QUuid().toString());
}

template <typename Predicate>
bool isListOf(const QVariant &value, Predicate predicate)
{
    const auto list = value.toList();
    return static_cast<QMetaType::Type>(value.type()) == QMetaType::QVariantList
        && std::all_of(list.begin(), list.end(), predicate);
}

} // namespace

JsonAPI::Request RequestReader::read(const QByteArray &json, JsonAPI::Errors &errors)
{
    QJsonParseError parsing;
    const auto document = QJsonDocument::fromJson(json, &parsing);
    if (parsing.error != QJsonParseError::NoError) {
        RequestErrors::badRequest(errors, QStringLiteral("JSON: %1").arg(parsing.errorString()));
        return {};
    }
    if (!document.isObject()) {
        RequestErrors::badRequest(errors, QStringLiteral("not an object"));
        return {};
    }
    const auto object = document.object();
    static const std::initializer_list<std::pair<const char *, bool (*)(const QJsonValue &)>> keys{
        {"method", isMethod},          {"link", isLink}, {"data", isEntityList}, {"included", isEntityList},
        {"client_version", isVersion},
    };
    for (const auto &key : keys) {
        if (!key.second(object.value(QLatin1String(key.first))))
            RequestErrors::badRequest(errors, QStringLiteral("\"%1\"").arg(QLatin1String(key.first)));
    }
    return errors.isEmpty() ? JsonAPI::Request(object.toVariantMap()) : JsonAPI::Request();
}

void RequestReader::check(const JsonAPI::Entity &entity, const char *type, std::initializer_list<Attribute> attributes,
                          JsonAPI::Errors &errors)
{
    if (entity.type != QLatin1String(type))
        RequestErrors::invalidData(errors, QStringLiteral("type \"%1\"").arg(entity.type));
    for (const auto &attribute : attributes) {
        const auto name = QLatin1String(attribute.name);
        if (entity.attributes.contains(name) && !isOfKind(entity.attributes.value(name), attribute.kind))
            RequestErrors::invalidData(errors, QStringLiteral("\"%1\" of \"%2\"").arg(name, entity.id));
    }
}

bool RequestReader::isOfKind(const QVariant &value, Kind kind)
{
    switch (kind) {
    case Kind::Flag: return static_cast<QMetaType::Type>(value.type()) == QMetaType::Bool;
    case Kind::Integer: return isInteger(value);
    case Kind::Map: return static_cast<QMetaType::Type>(value.type()) == QMetaType::QVariantMap;
    case Kind::Number: return isNumber(value);
    case Kind::Text: return isText(value);
    case Kind::TextListOrNull: return value.isNull() || isListOf(value, isText);
    case Kind::Uid: return isUid(value);
    case Kind::UidList: return isListOf(value, isUid);
    case Kind::UidListOrNull: return value.isNull() || isListOf(value, isUid);
    case Kind::List: return static_cast<QMetaType::Type>(value.type()) == QMetaType::QVariantList;
    }
    return false;
}

} // namespace Demo
