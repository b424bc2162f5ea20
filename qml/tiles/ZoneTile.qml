// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import colors 1.0

// One zone on the plan, in the colour of its power; a zone in manual mode has a frame and says so.
Tile {
    id: root

    property string name
    property int powerPercent: 0
    property bool manual: false
    property int erroredDevicesCount: 0
    property alias selected: control.selected
    readonly property color textColor: {
        if (powerPercent < 1)
            return manual ? "black" : "#313c43"
        if (powerPercent < 40)
            return "white"
        if (powerPercent < 60)
            return manual ? "white" : "#313c43"
        return manual ? "black" : "#313c43"
    }

    signal toggled()

    Accessible.role: Accessible.CheckBox
    Accessible.name: name
    Accessible.description: manual ? qsTr("%1%, ручной режим").arg(powerPercent) : qsTr("%1%").arg(powerPercent)
    Accessible.checkable: true
    Accessible.checked: selected
    Accessible.onToggleAction: root.toggled()

    Rectangle {
        anchors.fill: parent
        color: Material.color(Material.Grey, Material.Shade900)
    }

    Rectangle {
        id: face

        anchors.fill: parent
        anchors.margins: root.manual ? 8 : 0
        color: Colors.brightnessToColor(root.powerPercent)

        Behavior on anchors.margins {
            NumberAnimation { duration: 100 }
        }
        Behavior on color {
            ColorAnimation { duration: 100 }
        }

        QC2.Label {
            id: powerLabel

            anchors.top: parent.top
            anchors.right: parent.right
            anchors.margins: 6
            color: root.textColor
            font.pixelSize: 13
            font.bold: true
            text: qsTr("%1%").arg(root.powerPercent)
        }

        Rectangle {
            id: badge

            anchors.top: parent.top
            anchors.left: parent.left
            anchors.margins: 4
            visible: root.erroredDevicesCount > 0
            width: Math.max(height, errorsLabel.implicitWidth + 12)
            height: 28
            radius: height / 2
            color: Colors.red

            QC2.Label {
                id: errorsLabel

                anchors.centerIn: parent
                color: "white"
                font.bold: true
                text: root.erroredDevicesCount
            }
        }

        QC2.Label {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: powerLabel.bottom
            anchors.bottom: modeLabel.visible ? modeLabel.top : parent.bottom
            anchors.margins: 4
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            color: root.textColor
            font.family: "Manrope"
            font.bold: true
            font.pixelSize: 14
            minimumPixelSize: 6
            fontSizeMode: Text.Fit
            wrapMode: Text.Wrap
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.name
        }

        QC2.Label {
            id: modeLabel

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            anchors.margins: 4
            visible: root.manual
            horizontalAlignment: Text.AlignHCenter
            color: root.textColor
            font.pixelSize: 11
            minimumPixelSize: 6
            fontSizeMode: Text.HorizontalFit
            text: qsTr("(Ручной режим)")
        }
    }

    TileControl {
        id: control

        anchors.fill: parent
        onToggled: root.toggled()
    }
}
