// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Devices.h"

namespace Model {

DeviceDescriptor::DeviceDescriptor(const QUrl &url, const QUuid &uid, const QUuid &zoneUid, int version, int address,
                                   const QVariantMap &data, RadioStatus::DeviceType radioType, int radioIndex)
    : url(url)
    , uid(uid)
    , zoneUid(zoneUid)
    , version(version)
    , address(address)
    , data(data)
    , radioType(radioType)
    , radioIndex(radioIndex)
{}

QVariantMap DeviceDescriptor::toVariant() const
{
    return {
        {"url", url.toString()},
        {"uid", uid.toString()},
        {"zoneUid", zoneUid.toString()},
        {"version", version},
        {"address", address},
        {"data", data},
        {"radioType", static_cast<int>(radioType)},
        {"radioIndex", radioIndex},
    };
}

bool operator==(const DeviceDescriptor &left, const DeviceDescriptor &right)
{
    return left.url == right.url && left.uid == right.uid && left.zoneUid == right.zoneUid
        && left.version == right.version && left.address == right.address && left.data == right.data
        && left.radioType == right.radioType && left.radioIndex == right.radioIndex;
}

bool operator==(const DeviceState &left, const DeviceState &right)
{
    return left.uid == right.uid && left.state == right.state;
}

bool operator==(const DeviceMode &left, const DeviceMode &right)
{
    return left.uid == right.uid && left.mode == right.mode;
}

bool operator==(const DevicePowerOnInfo &left, const DevicePowerOnInfo &right)
{
    return left.uid == right.uid && left.powerOnHours == right.powerOnHours && left.lastUpdate == right.lastUpdate;
}

} // namespace Model
