// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import colors 1.0

// Brightness in percent. The value changes once, when the handle is let go; what the handle shows meanwhile is the
// current value.
QC2.Slider {
    id: root

    // Where the handle is may be a hair below its step: 0.29 times 100 is less than 29.
    readonly property int currentValue: Math.floor(visualPosition * 100 + 0.001)
    property color backgroundColor: Material.background

    implicitWidth: 200
    implicitHeight: 48
    from: 0
    to: 100
    stepSize: 1
    live: false
    snapMode: QC2.Slider.SnapAlways
    leftPadding: 8
    rightPadding: 8
    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.Slider
    Accessible.name: qsTr("Яркость")

    background: Rectangle {
        objectName: "brightnessGroove"
        x: root.leftPadding
        y: root.topPadding + (root.availableHeight - height) / 2
        width: root.availableWidth
        height: 10
        radius: 5
        color: root.enabled ? Colors.brightnessToColor(root.visualPosition * 100 + 0.001) : Qt.rgba(0, 0, 0, 0.12)

        Behavior on color {
            ColorAnimation { duration: 200 }
        }

        // The rest keeps a thin rim, so that the end of the way is seen.
        Rectangle {
            objectName: "brightnessRest"
            x: root.visualPosition * (parent.width - 1)
            y: 1
            width: parent.width - 1 - x
            height: parent.height - 2
            radius: 4
            color: root.backgroundColor
        }
    }

    handle: Rectangle {
        objectName: "brightnessHandle"
        x: root.leftPadding + root.visualPosition * (root.availableWidth - width)
        y: root.topPadding + (root.availableHeight - height) / 2
        implicitWidth: 24
        implicitHeight: 24
        radius: width / 2
        color: root.enabled ? root.Material.accent : Colors.grey
        scale: root.pressed ? 1.2 : 1

        Behavior on scale {
            NumberAnimation { duration: 150 }
        }

        Rectangle {
            anchors.centerIn: parent
            z: -1
            width: 40
            height: 40
            radius: 20
            visible: root.visualFocus
            opacity: 0.2
            color: parent.color
        }
    }
}
