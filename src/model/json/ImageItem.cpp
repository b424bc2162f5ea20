// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/ImageItem.h"

#include "model/json/Numbers.h"

namespace JsonAPI {

QVariant ImageItem::toVariant(const Model::ImageItem &item)
{
    Entity entity("image_item", item.uid.toString());
    entity.setAttribute("part_uid", item.partUid.toString());
    entity.setAttribute("name", item.name);
    entity.setAttribute("x", item.x);
    entity.setAttribute("y", item.y);
    entity.setAttribute("width", item.width);
    entity.setAttribute("height", item.height);
    entity.setAttribute("crop_x", item.cropX);
    entity.setAttribute("crop_y", item.cropY);
    entity.setAttribute("crop_width", item.cropWidth);
    entity.setAttribute("crop_height", item.cropHeight);
    entity.setAttribute("opacity", item.opacity);
    entity.setAttribute("on_top", item.onTop);
    entity.setAttribute("locked", item.locked);
    return entity.toVariant();
}

Model::ImageItem ImageItem::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    Model::ImageItem item;
    item.uid = QUuid(entity.id);
    item.partUid = QUuid(attributes.value("part_uid").toString());
    item.name = attributes.value("name").toString();
    item.x = finiteNumber(attributes.value("x"));
    item.y = finiteNumber(attributes.value("y"));
    item.width = finiteNumber(attributes.value("width"));
    item.height = finiteNumber(attributes.value("height"));
    item.cropX = finiteNumber(attributes.value("crop_x"));
    item.cropY = finiteNumber(attributes.value("crop_y"));
    item.cropWidth = finiteNumber(attributes.value("crop_width"));
    item.cropHeight = finiteNumber(attributes.value("crop_height"));
    item.opacity = finiteNumber(attributes.value("opacity"), item.opacity);
    item.onTop = attributes.value("on_top").toBool();
    item.locked = attributes.value("locked").toBool();
    return item;
}

} // namespace JsonAPI
