// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import colors 1.0

// A lamp: its power, and how it is heard.
DeviceDelegateTile {
    id: root

    readonly property bool hasError: errors > 2

    iconName: "image/wb_incandescent"
    circleColor: hasError ? Colors.red : Colors.blue

    TilePowerBar {
        y: 8
        width: parent.width
        power: DeviceValues.number(root.deviceState.power)
    }

    TileText {
        objectName: "answerText"
        y: 64
        width: parent.width
        visible: root.hasError
        color: Colors.red
        text: root.silenceText
    }

    TileSignalIndicator {
        objectName: "signal"
        y: 60
        opacity: root.hasError ? 0 : 1 - Math.min(Math.max(0, root.errors) / 3, 1)
        radioType: root.model && root.model.radioType || 0
        rssi: root.deviceState.rssidBm
    }
}
