// SPDX-License-Identifier: GPL-3.0-or-later
// Compares a property of a device with a number and runs the action of the outcome.
//
// The host gives:
//   parameters.cmpProp      the property
//   parameters.constant     the number
//   parameters.lessAction, parameters.equalAction, parameters.greaterAction
//                           the actions when the property is less, equal, greater; each may be left out
//   devices.value(property) the last value of a property of a device, undefined when there is none
//   actions.run(action)     runs an action on the controlled zones

var value = devices.value(parameters.cmpProp);
var action = null;

// What was never read is neither less nor equal nor greater, though a null would count as zero.
if (value !== undefined && value !== null) {
    if (value < parameters.constant)
        action = parameters.lessAction;
    else if (value > parameters.constant)
        action = parameters.greaterAction;
    else if (value == parameters.constant)
        action = parameters.equalAction;
}

if (action)
    actions.run(action);
