// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// One zone of the control table in one row.
ZoneControlRow {
    id: root

    readonly property real sliderWidth: Math.max(200, (width - 64 - modeSwitch.width - valueLabel.width) * 0.6)

    implicitHeight: 64
    nameLabel.x: 16
    nameLabel.width: Math.max(0, modeSwitch.x - 16 - nameLabel.x)
    nameLabel.height: height
    modeSwitch.x: valueLabel.x - 16 - modeSwitch.width
    modeSwitch.y: (height - modeSwitch.height) / 2
    valueLabel.x: slider.x - 8 - valueLabel.width
    valueLabel.width: 48
    valueLabel.height: height
    slider.x: width - 16 - slider.width
    slider.y: (height - slider.height) / 2
    slider.width: sliderWidth
}
