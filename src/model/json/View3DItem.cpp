// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/View3DItem.h"

#include "model/json/Numbers.h"

namespace JsonAPI {

namespace {

// The numbers of an item under the keys that both forms share, in the order of the binary one.
struct Number
{
    const char *key;
    double Model::View3DItem::*field;
};

constexpr Number numbers[] = {
    {"x", &Model::View3DItem::x},
    {"y", &Model::View3DItem::y},
    {"z", &Model::View3DItem::z},
    {"scale_x", &Model::View3DItem::scaleX},
    {"scale_y", &Model::View3DItem::scaleY},
    {"scale_z", &Model::View3DItem::scaleZ},
    {"rotation_x", &Model::View3DItem::rotationX},
    {"rotation_y", &Model::View3DItem::rotationY},
    {"rotation_z", &Model::View3DItem::rotationZ},
    {"opacity", &Model::View3DItem::opacity},
};

constexpr int binaryPrecision = 6; // significant digits

} // namespace

QVariant View3DItem::toVariant(const Model::View3DItem &item)
{
    Entity entity("view_3d_item", item.uid.toString());
    entity.setAttribute("part_uid", item.partUid.toString());
    entity.setAttribute("name", item.name);
    for (const auto &number : numbers)
        entity.setAttribute(number.key, item.*number.field);
    entity.setAttribute("locked", item.locked);
    return entity.toVariant();
}

Model::View3DItem View3DItem::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    Model::View3DItem item;
    item.uid = QUuid(entity.id);
    item.partUid = QUuid(attributes.value("part_uid").toString());
    item.name = attributes.value("name").toString();
    for (const auto &number : numbers)
        item.*number.field = finiteNumber(attributes.value(number.key), item.*number.field);
    item.locked = attributes.value("locked").toBool();
    return item;
}

void View3DItem::toBinaryMessage(ZmqBinaryMessage &message, const Model::View3DItem &item)
{
    message.add("uid", item.uid.toRfc4122());
    message.add("part_uid", item.partUid.toRfc4122());
    message.add("name", item.name.toUtf8());
    for (const auto &number : numbers)
        message.add(number.key, QByteArray::number(item.*number.field, 'g', binaryPrecision));
    message.add("locked", QByteArray::number(int(item.locked)));
    message.add("model_data", item.modelData);
}

Model::View3DItem View3DItem::fromBinaryMessage(const ZmqBinaryMessage &message)
{
    Entity wrapper("binary_wrapper", QString());
    for (const auto &entry : message.entries())
        wrapper.setAttribute(QString::fromLatin1(entry.key), entry.value);
    return fromBinaryWrapper(wrapper);
}

Model::View3DItem View3DItem::fromBinaryWrapper(const Entity &entity)
{
    if (entity.type != QLatin1String("binary_wrapper"))
        return {};
    const auto bytes = [&entity](const char *key) { return entity.attributes.value(key).toByteArray(); };
    Model::View3DItem item;
    item.uid = QUuid::fromRfc4122(bytes("uid"));
    item.partUid = QUuid::fromRfc4122(bytes("part_uid"));
    const auto name = bytes("name");
    if (!name.isNull())
        item.name = QString::fromUtf8(name);
    for (const auto &number : numbers)
        item.*number.field = finiteNumber(bytes(number.key).toDouble(), item.*number.field);
    item.locked = bytes("locked").toDouble() != 0.0;
    item.modelData = bytes("model_data");
    return item;
}

} // namespace JsonAPI
