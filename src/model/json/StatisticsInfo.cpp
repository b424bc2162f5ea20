// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/StatisticsInfo.h"

#include "model/VariantReading.h"
#include "model/json/IsoTime.h"

namespace JsonAPI {

QVariant StatisticsInfo::toVariant(const Model::StatisticsInfo &info)
{
    Entity entity("statistics_info", QString());
    entity.setAttribute("data_from", info.dataStart.toString(Qt::ISODate));
    entity.setAttribute("data_to", info.dataEnd.toString(Qt::ISODate));
    entity.setAttribute("statistics_size", info.statisticsSize);
    entity.setAttribute("log_size", info.logSize);
    entity.setAttribute("available_size", info.availableSize);
    return entity.toVariant();
}

Model::StatisticsInfo StatisticsInfo::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    Model::StatisticsInfo info;
    info.dataStart = isoTime(attributes.value("data_from"));
    info.dataEnd = isoTime(attributes.value("data_to"));
    info.statisticsSize = Model::integerFrom(attributes.value("statistics_size"));
    info.logSize = Model::integerFrom(attributes.value("log_size"));
    info.availableSize = Model::integerFrom(attributes.value("available_size"));
    return info;
}

} // namespace JsonAPI
