// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/DeviceType.h"

#include "model/VariantReading.h"

namespace JsonAPI {

using Info = Model::DeviceTypeInfo;

QVariant DeviceType::toVariant(const Info &type)
{
    Entity entity("device_type", type.url.toString());
    entity.setAttribute("sort_order", type.sortOrder);
    entity.setAttribute("name", type.name);
    entity.setAttribute("description", type.description);
    entity.setAttribute("tags", type.tags);
    entity.setAttribute("common_type", type.commonType);
    entity.setAttribute("locale", type.locale);
    entity.setAttribute("parameters", Info::parametersToVariant(type.parameters));
    entity.setAttribute("state", Info::parametersToVariant(type.state));
    entity.setAttribute("statistics", type.statistics.toVariant());
    entity.setAttribute("unique_address", type.uniqueAddress);
    entity.setAttribute("custom_address", type.customAddress);
    return entity.toVariant();
}

Info DeviceType::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    Info type;
    type.url = QUrl(entity.id);
    type.version = 1; // the document tells none, and what it describes is valid
    type.sortOrder = Model::intFrom(attributes.value("sort_order"));
    type.name = attributes.value("name").toString();
    type.description = attributes.value("description").toString();
    type.tags = attributes.value("tags").toStringList();
    type.commonType = Model::textFrom(attributes.value("common_type"), type.commonType);
    type.locale = attributes.value("locale").toString();
    type.parameters = Info::parametersFromVariant(attributes.value("parameters"));
    type.state = Info::parametersFromVariant(attributes.value("state"));
    type.statistics = Info::StatisticsInfo::fromVariant(attributes.value("statistics"));
    type.uniqueAddress = attributes.value("unique_address").toBool();
    type.customAddress = attributes.value("custom_address").toString();
    return type;
}

} // namespace JsonAPI
