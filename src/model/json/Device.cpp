// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/Device.h"

#include "model/VariantReading.h"

namespace JsonAPI {

QVariant Device::toVariant(const Model::DeviceDescriptor &device)
{
    Entity entity("device", device.uid.toString());
    entity.setAttribute("url", device.url.toString());
    entity.setAttribute("zone_uid", device.zoneUid.toString());
    entity.setAttribute("version", device.version);
    entity.setAttribute("address", device.address);
    entity.setAttribute("persistentData", device.data);
    entity.setAttribute("radio_type", Model::RadioStatus::deviceTypeToString(device.radioType));
    entity.setAttribute("radio_index", device.radioIndex);
    return entity.toVariant();
}

Model::DeviceDescriptor Device::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    Model::DeviceDescriptor device;
    device.url = QUrl(attributes.value("url").toString());
    device.uid = QUuid(entity.id);
    device.zoneUid = attributes.value("zone_uid").toUuid();
    device.version = Model::intFrom(attributes.value("version"));
    device.address = Model::intFrom(attributes.value("address"));
    device.data = attributes.value("persistentData").toMap();
    device.radioType = Model::RadioStatus::deviceTypeFromString(attributes.value("radio_type").toString());
    device.radioIndex = Model::intFrom(attributes.value("radio_index"));
    return device;
}

} // namespace JsonAPI
