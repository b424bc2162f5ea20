// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/Indicator.h"

#include "model/VariantReading.h"
#include "model/json/Numbers.h"

namespace JsonAPI {

QVariant Indicator::toVariant(const Model::Indicator &indicator)
{
    Entity entity("indicator", indicator.uid.toString());
    entity.setAttribute("part_uid", indicator.partUid.toString());
    entity.setAttribute("indicator_type", indicator.indicatorType);
    entity.setAttribute("label", indicator.label);
    entity.setAttribute("icon", indicator.icon);
    entity.setAttribute("x", indicator.position.x);
    entity.setAttribute("y", indicator.position.y);
    entity.setAttribute("width", indicator.width);
    entity.setAttribute("height", indicator.height);
    entity.setAttribute("text_color", indicator.textColor);
    entity.setAttribute("icon_color", indicator.iconColor);
    entity.setAttribute("horizontal_alignment", indicator.horizontalAlignment);
    if (indicator.displayValue) {
        entity.setAttribute("display_value_device", indicator.displayValue->device.toString());
        entity.setAttribute("display_value_property", indicator.displayValue->property);
    }
    return entity.toVariant();
}

Model::Indicator Indicator::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    Model::Indicator indicator;
    indicator.uid = QUuid(entity.id);
    indicator.partUid = QUuid(attributes.value("part_uid").toString());
    indicator.indicatorType = Model::intFrom(attributes.value("indicator_type"), indicator.indicatorType);
    indicator.label = attributes.value("label").toString();
    indicator.icon = attributes.value("icon").toString();
    indicator.position.x = finiteNumber(attributes.value("x"));
    indicator.position.y = finiteNumber(attributes.value("y"));
    indicator.width = finiteNumber(attributes.value("width"), indicator.width);
    indicator.height = finiteNumber(attributes.value("height"), indicator.height);
    indicator.textColor = Model::textFrom(attributes.value("text_color"), indicator.textColor);
    indicator.iconColor = Model::textFrom(attributes.value("icon_color"), indicator.iconColor);
    indicator.horizontalAlignment =
        Model::unsignedFrom(attributes.value("horizontal_alignment"), indicator.horizontalAlignment);
    if (attributes.contains("display_value_device") && attributes.contains("display_value_property")) {
        indicator.displayValue = Model::Indicator::DisplayValue{
            QUuid(attributes.value("display_value_device").toString()),
            attributes.value("display_value_property").toString(),
        };
    }
    return indicator;
}

} // namespace JsonAPI
