// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/DeviceTexts.h"

#include "data/SortKeys.h"
#include "model/VariantReading.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

// The numbers from 1 to last for which data has a true value under the prefix and the number.
QStringList setNumbers(const QVariantMap &data, const QString &prefix, int last)
{
    QStringList numbers;
    for (int i = 1; i <= last; ++i) {
        if (data.value(prefix + QString::number(i)).toBool())
            numbers.append(QString::number(i));
    }
    return numbers;
}

QString number(const QVariantMap &data, const QString &key)
{
    return QString::number(Model::intFrom(data.value(key)));
}

} // namespace

QString DeviceTexts::getAddressString(const Model::DeviceDescriptor &descriptor, const Model::DeviceTypeInfo &type)
{
    if (!type.customAddress.isEmpty()) {
        const auto address = descriptor.data.constFind(type.customAddress);
        if (address != descriptor.data.constEnd())
            return address->toString();
    }
    return QString::number(descriptor.address);
}

QString DeviceTexts::getSortString(const Model::DeviceDescriptor &descriptor, const Model::DeviceTypeInfo &type)
{
    return QString::number(type.sortOrder).rightJustified(2, '0') + ':'
        + getAddressString(descriptor, type).rightJustified(5, '0') + ':' + SortKeys::hash(descriptor.uid);
}

// Joined piece by piece: names are the user's and may look like a place marker.
QString DeviceTexts::devicePrettyPrint(const Model::DeviceDescriptor &descriptor, const Model::DeviceTypeInfo &type)
{
    const auto &data = descriptor.data;
    QString text = type.name + QStringLiteral(": ") + getAddressString(descriptor, type);
    const auto name = data.value(QStringLiteral("name")).toString();
    if (!name.isEmpty())
        text += QStringLiteral(" (") + name + ')';
    if (type.commonType.contains(QLatin1String("polling_contactor"))) {
        text += QStringLiteral(" [") + setNumbers(data, QStringLiteral("switch"), 16).join(QStringLiteral(", "))
            + QStringLiteral(": ") + number(data, QStringLiteral("contactorAddress")) + ']';
    } else if (type.commonType.contains(QLatin1String("sensor_contact"))) {
        const bool all = Model::intFrom(data.value(QStringLiteral("contactFunction"))) == 0;
        text += QStringLiteral(" [")
            + setNumbers(data, QStringLiteral("input"), 6).join(all ? QStringLiteral(" AND ") : QStringLiteral(" OR "))
            + QStringLiteral(": ") + number(data, QStringLiteral("contactAddress")) + ']';
    } else if (type.commonType.contains(QLatin1String("polling_rs_electric_meter"))) {
        text += QStringLiteral(" [") + number(data, QStringLiteral("rsAddress")) + ']';
    }
    return text;
}

QString DeviceTexts::getRadioString(const Model::DeviceDescriptor &descriptor, const Model::Settings &settings)
{
    using Type = Model::RadioStatus::DeviceType;
    const auto withIndex = [&](const QString &name, std::size_t count) {
        return count < 2 ? name : name + '-' + QString::number(descriptor.radioIndex);
    };
    switch (descriptor.radioType) {
    case Type::Mrf: return withIndex(QStringLiteral("MRF"), settings.mrf.size());
    case Type::Network:
        return QCoreApplication::translate("DevicesListModel", "Network device-%1").arg(descriptor.radioIndex);
    case Type::LoRa: return withIndex(QStringLiteral("LoRa"), settings.lora.size());
    case Type::Rs485: return withIndex(QStringLiteral("RS485"), settings.rs485.size());
    case Type::None: break;
    }
    return QCoreApplication::translate("DevicesListModel", "Ошибка");
}
