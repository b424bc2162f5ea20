// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DeviceTypeInfo.h"
#include "model/Devices.h"
#include "model/Site.h"
#include "model/UserInfo.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QUuid>
#include <QVariantMap>
#include <vector>

namespace Demo {

// A zone with the site's own rule for devices in automatic mode: a level that daylight moves up and down.
struct SiteZone
{
    Model::Zone zone;
    int level = 80; // percent, at half daylight
    int swing = 20; // percent between night and noon
};

// A device with what it reports and how it is driven.
struct SiteDevice
{
    Model::DeviceDescriptor descriptor;
    QVariantMap state;
    Model::DeviceMode::Mode mode = Model::DeviceMode::Mode::Automatic;
    quint64 stateRevision = 0; // differs for each state that any device ever had
};

// A device type in the site's own language, with overlays by language.
struct SiteDeviceType
{
    Model::DeviceTypeInfo info;
    QMap<QString, QVariantMap> translations; // by language code, such as "en"

    bool hasPower() const; // whether its devices can be told a power
};

// Everything that the site file tells; lists keep their order.
struct SiteData
{
    QUuid uid;
    QString name;
    QString timezone;
    QStringList comPorts;
    std::vector<Model::UserInfo> users; // with passwords
    std::vector<SiteDeviceType> deviceTypes;
    std::vector<Model::ShopPart> parts;
    std::vector<SiteZone> zones;
    std::vector<SiteDevice> devices;
};

} // namespace Demo
