// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/RequestErrors.h"
#include "demo/RequestReader.h"
#include "demo/Resources.h"

#include <QUuid>
#include <vector>

// What the resources of all lists do alike: add, change and remove records by uid. All of a request is done, or
// nothing.
namespace Demo {

constexpr size_t mostRecords = 10000; // in one request

template <typename Record>
struct RecordKind
{
    const char *type; // of its entities
    QVariant (*toVariant)(const Record &record);
    Record (*fromVariant)(const JsonAPI::Entity &entity);
    void (*checkEntity)(const JsonAPI::Entity &entity, JsonAPI::Errors &errors); // kinds of values
    void (*checkRecord)(const Context &context, const Record &record, JsonAPI::Errors &errors); // what it refers to
    const Record *(*find)(const DemoSite &site, const QUuid &uid);
    bool canBeAdded = true; // by a document; files come as uploads
    std::vector<const char *> optionalKeys = {}; // an entity without them means none, not the ones known
};

// The record as it will be: what the entity leaves out stays as it was. A null or missing uid gets a fresh one.
template <typename Record>
Record readRecord(const Context &context, const RecordKind<Record> &kind, const JsonAPI::Entity &entity,
                  JsonAPI::Errors &errors)
{
    if (!entity.id.isEmpty() && !RequestReader::isOfKind(entity.id, RequestReader::Kind::Uid))
        RequestErrors::invalidData(errors, QStringLiteral("id \"%1\"").arg(entity.id));
    kind.checkEntity(entity, errors);
    if (!errors.isEmpty())
        return {};

    JsonAPI::Entity merged(entity.type, entity.id);
    merged.relationships = entity.relationships; // written in full; none at all means that there are none
    if (const auto *known = kind.find(context.site, QUuid(entity.id))) {
        merged.attributes = JsonAPI::Entity(kind.toVariant(*known)).attributes;
        for (const auto *key : kind.optionalKeys)
            merged.attributes.remove(QLatin1String(key));
    } else if (!kind.canBeAdded) {
        RequestErrors::unknownRecord(errors, entity.id);
        return {};
    }
    for (auto it = entity.attributes.begin(); it != entity.attributes.end(); ++it)
        merged.setAttribute(it.key(), it.value());
    auto record = kind.fromVariant(merged);
    if (record.uid.isNull())
        record.uid = QUuid::createUuid();
    kind.checkRecord(context, record, errors);
    return record;
}

template <typename Record>
Outcome putRecords(Context &context, const JsonAPI::Request &request, const RecordKind<Record> &kind)
{
    JsonAPI::Errors errors;
    if (request.data.size() > mostRecords) {
        RequestErrors::invalidData(errors, QStringLiteral("%1 entities").arg(request.data.size()));
        return RequestErrors::response(errors);
    }
    std::vector<Record> records;
    for (const auto &entity : request.data)
        records.push_back(readRecord(context, kind, entity, errors));
    if (!errors.isEmpty())
        return RequestErrors::response(errors);

    std::vector<Model::Result> results;
    for (const auto &record : records) {
        const bool known = kind.find(context.site, record.uid) != nullptr;
        context.site.put(record);
        results.push_back(known ? Model::Result::changed(record.uid) : Model::Result::added(record.uid));
    }
    return JsonAPI::Response(kind.type, results);
}

template <typename Record>
Outcome removeRecords(Context &context, const JsonAPI::Request &request, const RecordKind<Record> &kind,
                      QStringList (DemoSite::*remove)(const QSet<QUuid> &uids))
{
    JsonAPI::Errors errors;
    QSet<QUuid> uids;
    for (const auto &entity : request.data) {
        if (entity.type != QLatin1String(kind.type))
            RequestErrors::invalidData(errors, QStringLiteral("type \"%1\"").arg(entity.type));
        else if (!kind.find(context.site, QUuid(entity.id)))
            RequestErrors::unknownRecord(errors, entity.id);
        uids.insert(QUuid(entity.id));
    }
    if (!errors.isEmpty())
        return RequestErrors::response(errors);

    std::vector<Model::Result> results;
    if (!uids.isEmpty()) {
        const auto removed = (context.site.*remove)(uids);
        for (const auto &uid : removed)
            results.push_back(Model::Result::deleted(uid));
    }
    return JsonAPI::Response(kind.type, results);
}

} // namespace Demo
