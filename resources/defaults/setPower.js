// SPDX-License-Identifier: GPL-3.0-or-later
// Sets the power of every controlled zone.
//
// The host gives:
//   parameters.power   the power, percent
//   zones              the controlled zones; each has "power", percent, which can be set

var power = Math.max(0, Math.min(100, parseFloat(parameters.power)));

if (!isNaN(power)) {
    zones.forEach(function (zone) {
        zone.power = power;
    });
}
