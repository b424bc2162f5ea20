// SPDX-License-Identifier: GPL-3.0-or-later
// The list of devices on a fake link.
#pragma once

#include "data/DevicesListModel.h"
#include "support/FakeCommunicator.h"

struct DevicesSite
{
    DevicesSite()
        : devices(link)
    {}

    FakeCommunicator link;
    DevicesListModel devices;
};

inline QVariantMap power(int percent)
{
    return {{"power", percent}};
}
