// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/RadioStatus.h"

#include "model/VariantReading.h"

namespace JsonAPI {

QVariant RadioStatus::toVariant(const Model::RadioStatus &status)
{
    const auto type = Model::RadioStatus::deviceTypeToString(status.deviceType);
    Entity entity("radio_status", QStringLiteral("%1_%2").arg(type).arg(status.deviceIndex));
    entity.setAttribute("device_type", type);
    entity.setAttribute("device_index", status.deviceIndex);
    entity.setAttribute("device_open", status.deviceOpen);
    entity.setAttribute("low_queue_latency", status.lowQueueLatency);
    entity.setAttribute("normal_queue_latency", status.normalQueueLatency);
    entity.setAttribute("high_queue_latency", status.highQueueLatency);
    return entity.toVariant();
}

Model::RadioStatus RadioStatus::fromVariant(const Entity &entity)
{
    using Model::unsignedFrom;
    const auto &attributes = entity.attributes;
    Model::RadioStatus status;
    status.deviceType = Model::RadioStatus::deviceTypeFromString(attributes.value("device_type").toString());
    status.deviceIndex = Model::intFrom(attributes.value("device_index"));
    status.deviceOpen = attributes.value("device_open").toBool();
    status.lowQueueLatency = unsignedFrom(attributes.value("low_queue_latency"), status.lowQueueLatency);
    status.normalQueueLatency = unsignedFrom(attributes.value("normal_queue_latency"), status.normalQueueLatency);
    status.highQueueLatency = unsignedFrom(attributes.value("high_queue_latency"), status.highQueueLatency);
    return status;
}

} // namespace JsonAPI
