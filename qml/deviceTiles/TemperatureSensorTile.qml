// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import colors 1.0

// A sensor of temperature.
DeviceDelegateTile {
    id: root

    iconName: "places/ac_unit"
    circleColor: errors > 0 ? Colors.red : Colors.blue

    QC2.Label {
        objectName: "valueText"
        width: parent.width
        elide: Text.ElideRight
        textFormat: Text.PlainText
        font.pixelSize: 24
        text: "%1 °C".arg(DeviceValues.rounded(root.deviceState.temperature, 1))
    }

    TileText {
        objectName: "intervalText"
        y: 52
        width: parent.width
        text: qsTr("Интервал опроса: %1").arg(DeviceValues.interval(root.deviceData.pollingInterval))
    }

    TileAnswer {
        y: 84
        width: parent.width
        card: root
    }
}
