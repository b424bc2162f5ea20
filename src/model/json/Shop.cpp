// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/Shop.h"

#include "model/json/Action.h"
#include "model/json/Button.h"
#include "model/json/Device.h"
#include "model/json/Indicator.h"
#include "model/json/Label.h"
#include "model/json/ScheduleDay.h"
#include "model/json/ShopPart.h"
#include "model/json/Zone.h"

#include <QHash>
#include <QVariantMap>
#include <algorithm>

namespace JsonAPI {

namespace {

// The records of one kind within a site. Their relationship is named by the type and "s".
template <typename Record>
struct Kind
{
    const char *type;
    QHash<QUuid, Record> Model::Shop::*records;
    QVariant (*toVariant)(const Record &);
    Record (*fromVariant)(const Entity &);
};

// Every kind that a site document carries, in the order of writing.
template <typename Visitor>
void forEachKind(Visitor visit)
{
    using ScheduleDayKind = Kind<Model::ScheduleDay>;
    visit(
        ScheduleDayKind{"schedule_day", &Model::Shop::scheduleDays, ScheduleDay::toVariant, ScheduleDay::fromVariant});
    visit(Kind<Model::Action>{"action", &Model::Shop::actions, Action::toVariant, Action::fromVariant});
    visit(Kind<Model::Button>{"button", &Model::Shop::buttons, Button::toVariant, Button::fromVariant});
    visit(Kind<Model::Zone>{"zone", &Model::Shop::zones, Zone::toVariant, Zone::fromVariant});
    visit(Kind<Model::TextLabel>{"label", &Model::Shop::labels, Label::toVariant, Label::fromVariant});
    visit(Kind<Model::ShopPart>{"shop_part", &Model::Shop::shopParts, ShopPart::toVariant, ShopPart::fromVariant});
    visit(Kind<Model::DeviceDescriptor>{"device", &Model::Shop::devices, Device::toVariant, Device::fromVariant});
    visit(Kind<Model::Indicator>{"indicator", &Model::Shop::indicators, Indicator::toVariant, Indicator::fromVariant});
}

template <typename Record>
QList<QUuid> sortedUids(const QHash<QUuid, Record> &records)
{
    auto uids = records.keys();
    std::sort(uids.begin(), uids.end()); // the order of the hash differs from run to run
    return uids;
}

} // namespace

QVariant Shop::toVariant(const Model::Shop &shop)
{
    Entity entity("shop", shop.uid.toString());
    entity.setAttribute("name", shop.name);
    Included included;
    forEachKind([&](const auto &kind) {
        const auto &records = shop.*kind.records;
        const auto uids = sortedUids(records);
        for (const auto &uid : uids) {
            entity.relationships.add(kind.type, uid.toString());
            included.add(kind.toVariant(*records.constFind(uid)));
        }
    });
    auto map = entity.toVariant().toMap();
    map.insert("included", included.toVariant());
    return map;
}

Model::Shop Shop::fromVariant(const Entity &entity, const Included &included)
{
    Model::Shop shop;
    shop.uid = QUuid(entity.id);
    shop.name = entity.attributes.value("name", shop.name).toString();
    forEachKind([&](const auto &kind) {
        const auto sent = included.get(kind.type, kind.fromVariant);
        const auto relations = entity.relationships.getRelations(QString(kind.type) + "s");
        for (const auto &relation : relations) {
            const auto found = sent.constFind(QUuid(relation.id));
            if (found != sent.constEnd())
                (shop.*kind.records).insert(found.key(), found.value());
        }
    });
    return shop;
}

} // namespace JsonAPI
