// SPDX-License-Identifier: GPL-3.0-or-later
// Lights every controlled zone by the daylight outside: fully in the dark, not at all in bright light, and
// proportionally in between.
//
// The host gives:
//   parameters.lightSensor     the sensor's uid
//   parameters.minBrightness   the illuminance up to which the power is 100 %, lx
//   parameters.maxBrightness   the illuminance from which on it is 0 %, lx
//   devices.state(uid)         the last values that a device reported, or null; a light sensor has "brightness", lx
//   zones                      the controlled zones; each has "power", percent, which can be set

var state = devices.state(parameters.lightSensor);
var brightness = state && typeof state.brightness === "number" ? state.brightness : NaN;
var power = NaN;

if (brightness <= parameters.minBrightness)
    power = 100;
else if (brightness >= parameters.maxBrightness)
    power = 0;
else
    power = 100 * (parameters.maxBrightness - brightness) / (parameters.maxBrightness - parameters.minBrightness);

// Without a reading the power stays.
if (!isNaN(power)) {
    zones.forEach(function (zone) {
        zone.power = power;
    });
}
