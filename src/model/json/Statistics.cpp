// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/Statistics.h"

#include "model/json/IsoTime.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>
#include <QVariantList>
#include <QVariantMap>

namespace JsonAPI {

namespace {

// Encoded, since a query would take a "%", "&" or "#" of the text for its own.
void addItem(QUrlQuery &query, const QString &key, const QString &text)
{
    query.addQueryItem(key, QString::fromLatin1(QUrl::toPercentEncoding(text)));
}

QString item(const QUrlQuery &query, const QString &key)
{
    return query.queryItemValue(key, QUrl::FullyDecoded);
}

QVariantMap categoryToMap(const Model::Statistics::Category &category)
{
    QVariantList rows;
    rows.reserve(static_cast<int>(category.items.size()));
    for (const auto &item : category.items) {
        QVariantList row{item.time.toString(Qt::ISODate)};
        row.append(item.values);
        rows.append(QVariant(row)); // as one element
    }
    return {
        {"entity", category.uid.toString()},
        {"type", category.type},
        {"schema", category.schema},
        {"values", rows},
    };
}

Model::Statistics::Category categoryFromMap(const QVariantMap &map)
{
    Model::Statistics::Category category;
    category.uid = map.value("entity").toUuid();
    category.type = map.value("type").toString();
    category.schema = map.value("schema").toStringList();
    const auto rows = map.value("values").value<QVariantList>();
    category.items.reserve(static_cast<std::size_t>(rows.size()));
    for (const auto &element : rows) {
        const auto row = element.toList();
        if (row.size() >= 2) // a row of a time alone tells nothing
            category.items.push_back({isoTime(row.first()), row.mid(1)});
    }
    return category;
}

} // namespace

void Statistics::Filter::addEntity(const QUuid &uid, const QString &type)
{
    entities[uid].append(type);
}

QUrlQuery Statistics::Filter::toQuery() const
{
    QUrlQuery query;
    if (from.isValid())
        addItem(query, "from", from.toString(Qt::ISODate));
    if (to.isValid())
        addItem(query, "to", to.toString(Qt::ISODate));
    QJsonObject object;
    for (auto entity = entities.begin(); entity != entities.end(); ++entity)
        object.insert(entity.key().toString(), QJsonArray::fromStringList(entity.value()));
    addItem(query, "entities", QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
    return query;
}

Statistics::Filter Statistics::Filter::fromQuery(const QUrlQuery &query)
{
    Filter filter;
    filter.from = isoTime(item(query, "from"));
    filter.to = isoTime(item(query, "to"));
    const auto object = QJsonDocument::fromJson(item(query, "entities").toUtf8()).object();
    for (auto entity = object.begin(); entity != object.end(); ++entity)
        filter.entities[QUuid(entity.key())] += entity.value().toVariant().toStringList();
    return filter;
}

QVariant Statistics::toVariant(const Model::Statistics &statistics)
{
    QVariantList data;
    data.reserve(static_cast<int>(statistics.categories.size()));
    for (const auto &category : statistics.categories)
        data.append(categoryToMap(category));
    Entity entity("statistics", QString());
    entity.setAttribute("data", data);
    entity.setAttribute("from", statistics.from.toString(Qt::ISODate));
    entity.setAttribute("to", statistics.to.toString(Qt::ISODate));
    return entity.toVariant();
}

Model::Statistics Statistics::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    Model::Statistics statistics;
    const auto data = attributes.value("data").value<QVariantList>();
    statistics.categories.reserve(static_cast<std::size_t>(data.size()));
    for (const auto &element : data)
        statistics.categories.push_back(categoryFromMap(element.toMap()));
    statistics.from = isoTime(attributes.value("from"));
    statistics.to = isoTime(attributes.value("to"));
    return statistics;
}

} // namespace JsonAPI
