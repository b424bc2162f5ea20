// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import colors 1.0

// Power in percent over its colour.
TileBar {
    property real power: 0
    readonly property int percent: Math.max(0, Math.min(100, Math.round(power)))

    objectName: "powerBar"
    color: Colors.brightnessToColor(percent)
    textColor: percent >= 1 && percent < 40 ? "white" : "#313c43"
    text: qsTr("%1%").arg(percent)
}
