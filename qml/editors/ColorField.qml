// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import EnhancedMaterial 1.0 as EM
import Fluid.Controls 1.0 as FL

// A colour by its name and a circle of it; a click, Return or Space opens the palette.
QC2.ItemDelegate {
    id: root

    property color value: "black"

    signal picked(color color)

    implicitHeight: 56
    leftPadding: 0
    rightPadding: 56
    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.description: String(value)
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    onClicked: {
        palette.pickColor(circle, 0, circle.height, function(color) {
            root.value = color
            root.picked(color)
        })
    }

    contentItem: FL.BodyLabel {
        verticalAlignment: Text.AlignVCenter
        font.pixelSize: 16
        elide: Text.ElideRight
        text: root.text
    }

    Rectangle {
        id: circle

        objectName: "colorCircle"
        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        width: 40
        height: 40
        radius: 20
        color: root.value
        border.width: 1
        border.color: Material.dividerColor
    }

    EM.ColorPickerDialog {
        id: palette

        objectName: "colorDialog"
    }
}
