// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/TimeInfo.h"

namespace JsonAPI {

QVariant TimeInfo::toVariant(const Model::TimeInfo &info)
{
    Entity entity("time_info", QString::number(info.time.isValid() ? info.time.toMSecsSinceEpoch() : 0));
    entity.setAttribute("time", info.time.toString(Qt::ISODate));
    entity.setAttribute("timezone", info.timezone);
    entity.setAttribute("ntp", info.ntp);
    entity.setAttribute("timezones_list", info.timezones);
    return entity.toVariant();
}

Model::TimeInfo TimeInfo::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    Model::TimeInfo info;
    info.time = QDateTime::fromString(attributes.value("time").toString(), Qt::ISODate);
    info.timezone = attributes.value("timezone").toString();
    info.ntp = attributes.value("ntp").toBool();
    const auto timezones = attributes.value("timezones_list").toList();
    for (const auto &timezone : timezones)
        info.timezones << timezone.toString();
    return info;
}

} // namespace JsonAPI
