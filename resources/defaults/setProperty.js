// SPDX-License-Identifier: GPL-3.0-or-later
// Sets a property of a device.
//
// The host gives:
//   parameters.cmpProp    the property
//   parameters.constant   its new value
//   devices.setValue(property, value)
//                         sends a value for a property to its device

if (parameters.cmpProp)
    devices.setValue(parameters.cmpProp, parameters.constant);
