// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Site.h"

#include <tuple>

namespace Model {

namespace {

auto fields(const ShopPart &part)
{
    return std::tie(part.uid, part.name);
}

auto fields(const Zone &zone)
{
    return std::tie(zone.uid, zone.partUid, zone.name, zone.position, zone.width, zone.height);
}

auto fields(const TextLabel &label)
{
    return std::tie(label.uid, label.partUid, label.text, label.position, label.width, label.height);
}

auto fields(const Shop &shop)
{
    return std::tie(shop.uid, shop.name, shop.terminalName, shop.scheduleDays, shop.scheduleWeeks, shop.sensors,
                    shop.actions, shop.buttons, shop.zones, shop.labels, shop.shopParts, shop.imageItems, shop.devices,
                    shop.indicators);
}

} // namespace

bool operator==(const ShopPart &left, const ShopPart &right)
{
    return fields(left) == fields(right);
}

bool operator==(const Zone &left, const Zone &right)
{
    return fields(left) == fields(right);
}

bool operator==(const TextLabel &left, const TextLabel &right)
{
    return fields(left) == fields(right);
}

bool operator==(const Sensor &left, const Sensor &right)
{
    return left.uid == right.uid;
}

bool operator==(const Shop &left, const Shop &right)
{
    return fields(left) == fields(right);
}

} // namespace Model
