// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/DeviceMode.h"

namespace JsonAPI {

QVariant DeviceMode::toVariant(const Model::DeviceMode &mode)
{
    Entity entity("device_mode", mode.uid.toString());
    entity.setAttribute(
        "mode", mode.mode == Model::DeviceMode::Mode::Manual ? QStringLiteral("Manual") : QStringLiteral("Auto"));
    return entity.toVariant();
}

Model::DeviceMode DeviceMode::fromVariant(const Entity &entity)
{
    using Mode = Model::DeviceMode::Mode;
    const bool manual = entity.attributes.value("mode").toString() == QLatin1String("Manual");
    return {QUuid(entity.id), manual ? Mode::Manual : Mode::Automatic};
}

} // namespace JsonAPI
