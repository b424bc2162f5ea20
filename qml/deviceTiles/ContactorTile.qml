// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import colors 1.0

// A contactor of which the device drives one switch.
DeviceDelegateTile {
    id: root

    iconName: "action/power_settings_new"

    TileCell {
        objectName: "cell"
        anchors.horizontalCenter: parent.horizontalCenter
        y: 20
        width: 48
        height: 48
        number: DeviceValues.number(root.deviceData.switchIndex)
        used: true
        active: DeviceValues.number(root.deviceState.power) !== 0
        inactiveColor: Colors.red
    }
}
