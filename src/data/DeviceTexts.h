// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DeviceTypeInfo.h"
#include "model/Devices.h"
#include "model/Settings.h"

#include <QString>

// The texts that stand for a device in lists. They depend on its type, so they are made anew when types arrive.
namespace DeviceTexts {

// The address, or what the type has in its place.
QString getAddressString(const Model::DeviceDescriptor &descriptor, const Model::DeviceTypeInfo &type);
// By type, then by address as text of equal width.
QString getSortString(const Model::DeviceDescriptor &descriptor, const Model::DeviceTypeInfo &type);
QString devicePrettyPrint(const Model::DeviceDescriptor &descriptor, const Model::DeviceTypeInfo &type);
// The radio of the device; its index is told where the settings have two or more of that kind to choose from.
QString getRadioString(const Model::DeviceDescriptor &descriptor, const Model::Settings &settings);

} // namespace DeviceTexts
