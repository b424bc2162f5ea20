// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/RadioStatus.h"

#include <QDateTime>
#include <QMetaType>
#include <QString>
#include <QUrl>
#include <QUuid>
#include <QVariantMap>
#include <vector>

namespace Model {

// One configured piece of field equipment: a lamp, a contactor, a sensor, a meter, a beacon.
struct DeviceDescriptor
{
    DeviceDescriptor() = default;
    DeviceDescriptor(const QUrl &url, const QUuid &uid, const QUuid &zoneUid, int version, int address,
                     const QVariantMap &data, RadioStatus::DeviceType radioType, int radioIndex);

    QUrl url; // names the device type
    QUuid uid;
    QUuid zoneUid;
    int version = 0;
    int address = 0; // bus or radio address, 1 to 65535 in forms
    QVariantMap data; // values of the type's parameters, by identificator
    RadioStatus::DeviceType radioType = RadioStatus::DeviceType::None;
    int radioIndex = 0; // which of the transports of that kind

    // The form for QML: "url", "uid", "zoneUid", "version", "address", "data", "radioType", "radioIndex".
    QVariantMap toVariant() const;
};

// What a device last reported, by the keys of its type's state list.
struct DeviceState
{
    QUuid uid;
    QVariantMap state;
};

// Whether a device follows automation or a hand-set value.
struct DeviceMode
{
    enum class Mode { Automatic = 0, Manual = 1 };

    QUuid uid;
    Mode mode = Mode::Automatic;
};

// How long a device has been switched on.
struct DevicePowerOnInfo
{
    QUuid uid;
    double powerOnHours = 0.0;
    QDateTime lastUpdate;
};

bool operator==(const DeviceDescriptor &left, const DeviceDescriptor &right);
bool operator==(const DeviceState &left, const DeviceState &right);
bool operator==(const DeviceMode &left, const DeviceMode &right);
bool operator==(const DevicePowerOnInfo &left, const DevicePowerOnInfo &right);

} // namespace Model

Q_DECLARE_METATYPE(Model::DeviceDescriptor)
Q_DECLARE_METATYPE(Model::DeviceState)
Q_DECLARE_METATYPE(Model::DeviceMode)
Q_DECLARE_METATYPE(std::vector<Model::DeviceDescriptor>)
Q_DECLARE_METATYPE(std::vector<Model::DeviceState>)
Q_DECLARE_METATYPE(std::vector<Model::DeviceMode>)
Q_DECLARE_METATYPE(Model::DevicePowerOnInfo)
Q_DECLARE_METATYPE(std::vector<Model::DevicePowerOnInfo>)
