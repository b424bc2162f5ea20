// SPDX-License-Identifier: GPL-3.0-or-later
// The list of zones with what it reads from, on a fake link.
#pragma once

#include "Records.h"
#include "data/DeviceFaultsListModel.h"
#include "data/DevicesListModel.h"
#include "data/UsersListModel.h"
#include "data/ZonesListModel.h"
#include "support/FakeCommunicator.h"

struct ZonesSite
{
    ZonesSite()
        : users(link)
        , devices(link)
        , faults(link, devices)
        , zones(link, devices, faults, users)
    {}

    FakeCommunicator link;
    UsersListModel users;
    DevicesListModel devices;
    DeviceFaultsListModel faults;
    ZonesListModel zones;
};

inline Model::Zone placed(uint n, uint part, double x, double y, double width, double height)
{
    auto record = Records::zone(n, {}, part);
    record.position = {x, y};
    record.width = width;
    record.height = height;
    return record;
}
