// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/RadioStatus.h"

#include <QHash>
#include <tuple>

namespace Model {

namespace {

const auto &deviceTypeWords()
{
    using T = RadioStatus::DeviceType;
    static const QHash<QString, T> words{
        {"none", T::None}, {"mrf", T::Mrf}, {"network", T::Network}, {"lora", T::LoRa}, {"rs485", T::Rs485}};
    return words;
}

auto fields(const RadioStatus &status)
{
    return std::tie(status.deviceType, status.deviceIndex, status.deviceOpen, status.lowQueueLatency,
                    status.normalQueueLatency, status.highQueueLatency);
}

} // namespace

QString RadioStatus::deviceTypeToString(DeviceType type)
{
    const auto text = deviceTypeWords().key(type);
    return text.isEmpty() ? QStringLiteral("unknown") : text;
}

RadioStatus::DeviceType RadioStatus::deviceTypeFromString(const QString &text)
{
    return deviceTypeWords().value(text.toLower(), DeviceType::None);
}

bool operator==(const RadioStatus &left, const RadioStatus &right)
{
    return fields(left) == fields(right);
}

} // namespace Model
