// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// A sensor of six contacts, of which the device heeds some.
DeviceDelegateTile {
    id: root

    headerTitle: model ? "%1 [%2]".arg(model.address).arg(DeviceValues.number(deviceData.contactAddress)) : ""
    iconName: "device/usb"

    Grid {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 8
        columns: 3
        rows: 2
        spacing: 8

        Repeater {
            model: 6

            TileCell {
                objectName: "cell" + number
                width: 64
                height: 36
                number: index + 1
                used: root.deviceData["input" + number] === true
                enabled: used
                active: Boolean(root.deviceState["input" + number])
            }
        }
    }
}
