// SPDX-License-Identifier: GPL-3.0-or-later
// Takes every controlled zone out of automation.
//
// The host gives:
//   zones   the controlled zones; each has "mode", "Auto" or "Manual", which can be set

zones.forEach(function (zone) {
    zone.mode = "Manual";
});
