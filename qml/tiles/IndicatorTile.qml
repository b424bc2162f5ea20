// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import Fluid.Controls 1.0 as FL
import colors 1.0

// One indicator on the plan: its icon, and its text at the right of that. While it may be edited it is there even where
// the rules of the server hide it.
Tile {
    id: root

    property string text
    property string iconName // "group/name"
    property color textColor: "black"
    property color iconColor: "black"
    property int horizontalAlignment: 0
    property bool isShown: true // as the rules have it
    property real shownOpacity: 1
    property bool editable: false
    property alias selected: overlay.selected
    property alias canvas: overlay.canvas
    readonly property real side: Math.max(0, Math.min(width, height))

    signal toggled()
    signal entered()

    function alignmentOf(value) {
        return [Text.AlignLeft, Text.AlignRight, Text.AlignHCenter, Text.AlignJustify][value] || Text.AlignLeft
    }

    control: overlay
    visible: editable || isShown
    activeFocusOnTab: editable
    Accessible.role: editable ? Accessible.CheckBox : Accessible.StaticText
    Accessible.name: text.trim() === "" ? qsTr("Индикатор без текста") : text
    Accessible.focusable: editable
    Accessible.focused: activeFocus
    Accessible.checkable: editable
    Accessible.checked: selected
    Accessible.onToggleAction: if (editable) toggled()
    Accessible.onPressAction: if (editable) toggled()
    Keys.onSpacePressed: toggled()
    Keys.onReturnPressed: entered()
    Keys.onEnterPressed: entered()

    Rectangle {
        objectName: "indicatorFrame"
        anchors.fill: parent
        visible: root.editable
        color: "#80ffffff"
        border.color: Colors.blue
        border.width: 2
    }

    Item {
        id: face

        objectName: "indicatorFace"
        anchors.fill: parent
        opacity: root.editable ? Math.max(0.5, root.shownOpacity) : root.shownOpacity

        FL.Icon {
            objectName: "indicatorIcon"
            width: root.side
            height: root.side
            // Of a tile that covers the plan there need not be a picture as large.
            sourceSize: Qt.size(Math.min(512, root.side * 2), Math.min(512, root.side * 2))
            color: root.iconColor
            name: root.iconName
        }

        QC2.Label {
            objectName: "indicatorText"
            x: root.side + 16
            width: Math.max(0, root.width - x)
            height: root.height
            visible: width >= 16
            horizontalAlignment: root.alignmentOf(root.horizontalAlignment)
            verticalAlignment: Text.AlignVCenter
            color: root.textColor
            font.family: "Manrope"
            font.bold: true
            font.pixelSize: 48
            minimumPixelSize: 8
            fontSizeMode: Text.Fit
            wrapMode: Text.Wrap
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.text.length > 400 ? root.text.substring(0, 400) : root.text
        }
    }

    TileControl {
        id: overlay

        anchors.fill: parent
        visible: root.editable
        focused: root.activeFocus
        editable: root.editable
        enabled: root.editable
        onToggled: root.toggled()
        onChanged: root.requestGeometry(snappedObject)
    }
}
