// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// A contactor of sixteen switches, of which the device drives some.
DeviceDelegateTile {
    id: root

    readonly property bool isOn: DeviceValues.number(deviceState.power) !== 0

    headerTitle: model ? "%1 [%2]".arg(model.address).arg(DeviceValues.number(deviceData.contactorAddress)) : ""
    iconName: "action/power_settings_new"

    Grid {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 16
        columns: 8
        rows: 2
        flow: Grid.TopToBottom
        spacing: 6

        Repeater {
            model: 16

            TileCell {
                objectName: "cell" + number
                number: index + 1
                used: root.deviceData["switch" + number] === true
                active: root.isOn
            }
        }
    }
}
