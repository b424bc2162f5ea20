// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Controls 1.0 as FL
import radio 1.0

// How strong the radio of a device is heard, in dBm.
Row {
    id: root

    property int radioType: RadioDevicesListModel.None
    property var rssi // nothing is shown without it
    readonly property bool isLongRange: radioType === RadioDevicesListModel.LoRa
    readonly property real minimum: isLongRange ? -120 : -90
    readonly property real maximum: isLongRange ? -30 : -35
    readonly property real level: DeviceValues.number(rssi)
    readonly property int bars: level > maximum ? 4
                                                : level < minimum ? 0 : Math.round(4 * (level - minimum)
                                                                                   / (maximum - minimum))

    spacing: 4
    visible: DeviceValues.has(rssi) && opacity > 0

    FL.Icon {
        anchors.verticalCenter: parent.verticalCenter
        name: root.visible ? "device/signal_wifi_%1_bar".arg(root.bars) : ""
    }

    QC2.Label {
        objectName: "signalText"
        anchors.verticalCenter: parent.verticalCenter
        font.pixelSize: 12
        color: Material.secondaryTextColor
        text: DeviceValues.rounded(root.rssi, 1) + " dBm"
    }
}
