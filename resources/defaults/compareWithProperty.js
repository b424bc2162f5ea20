// SPDX-License-Identifier: GPL-3.0-or-later
// Compares two properties of devices and runs the action of the outcome.
//
// The host gives:
//   parameters.firstProp, parameters.secondProp   the properties
//   parameters.lessAction, parameters.equalAction, parameters.greaterAction
//                           the actions when the first is less, equal, greater; each may be left out
//   devices.value(property) the last value of a property of a device, undefined when there is none
//   actions.run(action)     runs an action on the controlled zones

var first = devices.value(parameters.firstProp);
var second = devices.value(parameters.secondProp);
var areRead = first !== undefined && first !== null && second !== undefined && second !== null;
var action = null;

// What was never read is neither less nor equal nor greater, though a null would count as zero.
if (areRead) {
    if (first < second)
        action = parameters.lessAction;
    else if (first > second)
        action = parameters.greaterAction;
    else if (first == second)
        action = parameters.equalAction;
}

if (action)
    actions.run(action);
