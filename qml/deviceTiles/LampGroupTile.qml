// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// Lamps that hear one group number.
DeviceDelegateTile {
    id: root

    readonly property var addresses: deviceData.addresses

    headerTitle: qsTr("Группа %1").arg(DeviceValues.rounded(deviceData.groupNumber, 0))
    iconName: "image/wb_incandescent"

    TilePowerBar {
        y: 8
        width: parent.width
        power: DeviceValues.number(root.deviceState.power)
    }

    TileText {
        objectName: "addressesText"
        y: 60
        width: parent.width
        wrapMode: Text.Wrap
        maximumLineCount: 2
        text: qsTr("Адреса: %1").arg(root.addresses && root.addresses.join ? root.addresses.join(", ") : "")
    }
}
