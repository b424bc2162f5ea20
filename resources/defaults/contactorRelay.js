// SPDX-License-Identifier: GPL-3.0-or-later
// Runs one action when a contact is closed and another one when it is open.
//
// The host gives:
//   parameters.sensor       the property of a device that tells whether the contact is closed
//   parameters.onAction     the action for a closed contact; either may be left out
//   parameters.offAction    the action for an open one
//   devices.value(property) the last value of a property of a device, undefined when there is none
//   actions.run(action)     runs an action on the controlled zones

var closed = devices.value(parameters.sensor);
var action = closed ? parameters.onAction : parameters.offAction;

// A contact that was never read is neither closed nor open.
if (closed !== undefined && closed !== null && action)
    actions.run(action);
