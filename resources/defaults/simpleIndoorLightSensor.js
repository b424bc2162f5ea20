// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps the illuminance in a room, step by step: called again and again, it moves the power of every controlled zone
// towards the wanted illuminance, which the lamps themselves change.
//
// The host gives:
//   parameters.lightSensor   the sensor's uid
//   parameters.targetLux     the wanted illuminance, lx
//   parameters.errorMargin   how far from it is near enough, lx
//   parameters.lowerBound, parameters.upperBound   the range of the power, percent
//   devices.state(uid)       the last values that a device reported, or null; a light sensor has "brightness", lx
//   zones                    the controlled zones; each has "power", percent, which can be set

var percentPerLux = 0.05;
var state = devices.state(parameters.lightSensor);
var isRead = state && typeof state.brightness === "number";
var error = isRead ? parameters.targetLux - state.brightness : NaN;

// Without a reading the power stays: darkness and a broken sensor are not the same.
if (Math.abs(error) > parameters.errorMargin) {
    zones.forEach(function (zone) {
        var power = zone.power + error * percentPerLux;
        zone.power = Math.max(parameters.lowerBound, Math.min(parameters.upperBound, power));
    });
}
