// SPDX-License-Identifier: GPL-3.0-or-later
// Runs an action some time later.
//
// The host gives:
//   parameters.action    the action
//   parameters.timeout   how much later, seconds
//   actions.runAfter(action, milliseconds)
//                        runs an action on the controlled zones after that time; does not wait

var seconds = Number(parameters.timeout);

if (parameters.action)
    actions.runAfter(parameters.action, seconds > 0 ? seconds * 1000 : 0);
