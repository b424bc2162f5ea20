// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import Fluid.Core 1.0 as FLC
import colors 1.0

// One numbered output or input of a device. One that the device does not use is pale.
Rectangle {
    property int number: 0
    property bool used: false
    property bool active: false
    property color inactiveColor: Colors.grey

    implicitWidth: 24
    implicitHeight: 24
    radius: 2
    opacity: used ? 1 : 0.3
    color: used && active ? Colors.green : inactiveColor

    QC2.Label {
        anchors.centerIn: parent
        font.pixelSize: 12
        color: FLC.Color.isDarkColor(parent.color) ? "white" : "#313c43"
        text: parent.number
    }
}
