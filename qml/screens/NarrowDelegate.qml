// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// One zone of the control table in two rows: the name and the switch, and below them the power.
ZoneControlRow {
    id: root

    implicitWidth: 360
    implicitHeight: 96
    nameLabel.x: 16
    nameLabel.width: Math.max(0, modeSwitch.x - 8 - nameLabel.x)
    nameLabel.height: 48
    modeSwitch.x: width - 8 - modeSwitch.width
    modeSwitch.height: 48
    valueLabel.x: width - 16 - valueLabel.width
    valueLabel.y: 48
    valueLabel.width: 48
    valueLabel.height: 48
    slider.x: 8
    slider.y: 48
    slider.width: Math.max(0, valueLabel.x - slider.x)
}
