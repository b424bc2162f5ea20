// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/DevicePowerOnInfo.h"

#include "model/json/IsoTime.h"
#include "model/json/Numbers.h"

namespace JsonAPI {

QVariant DevicePowerOnInfo::toVariant(const Model::DevicePowerOnInfo &info)
{
    Entity entity("device_power_on_info", info.uid.toString());
    entity.setAttribute("power_on_hours", info.powerOnHours);
    entity.setAttribute("last_update", info.lastUpdate.toString(Qt::ISODate));
    return entity.toVariant();
}

Model::DevicePowerOnInfo DevicePowerOnInfo::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    Model::DevicePowerOnInfo info;
    info.uid = QUuid(entity.id);
    info.powerOnHours = finiteNumber(attributes.value("power_on_hours"));
    info.lastUpdate = isoTime(attributes.value("last_update"));
    return info;
}

} // namespace JsonAPI
