// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import colors 1.0

// A sensor of light.
DeviceDelegateTile {
    id: root

    readonly property real brightness: DeviceValues.number(deviceState.brightness)

    iconName: "device/brightness_medium"
    circleColor: errors > 0 ? Colors.red : Colors.blend(Material.color(Material.Grey, Material.ShadeA100),
                                                        Material.color(Material.Grey, Material.Shade100),
                                                        Math.max(0, Math.min(brightness / 200, 1)))

    QC2.Label {
        objectName: "valueText"
        width: parent.width
        elide: Text.ElideRight
        textFormat: Text.PlainText
        font.pixelSize: 24
        text: qsTr("%1 лк").arg(DeviceValues.rounded(root.deviceState.brightness, 1))
    }

    TileText {
        objectName: "multiplierText"
        y: 38
        width: parent.width
        text: qsTr("Множитель нормализации: %1").arg(DeviceValues.rounded(root.deviceData.multiplier, 3))
    }

    TileText {
        objectName: "intervalText"
        y: 58
        width: parent.width
        text: qsTr("Интервал опроса: %1").arg(DeviceValues.interval(root.deviceData.pollingInterval))
    }

    TileAnswer {
        y: 84
        width: parent.width
        card: root
    }
}
