// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Core 1.0 as FLC

// One button on the plan. While it may be edited, a click selects it instead of pressing it.
Tile {
    id: root

    property string name
    property bool active: false
    property color onColor: "transparent"
    property color offColor: "transparent"
    property bool editable: false
    property alias selected: overlay.selected
    property alias canvas: overlay.canvas

    signal toggled() // the selection
    signal entered()
    signal stateRequested(int state)

    function press() {
        if (editable)
            toggled()
        else
            stateRequested(active ? 0 : 1)
    }

    control: overlay
    activeFocusOnTab: true
    Accessible.role: editable ? Accessible.CheckBox : Accessible.Button
    Accessible.name: name.trim() === "" ? qsTr("Кнопка без названия") : name
    Accessible.description: active ? qsTr("Нажата") : qsTr("Отжата")
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Accessible.checkable: editable
    Accessible.checked: selected
    Accessible.onToggleAction: if (editable) toggled()
    Accessible.onPressAction: press()
    Keys.onSpacePressed: press()
    Keys.onReturnPressed: editable ? entered() : press()
    Keys.onEnterPressed: editable ? entered() : press()

    QC2.RoundButton {
        id: face

        readonly property color faceColor: root.active ? root.onColor : root.offColor

        objectName: "buttonFace"
        anchors.fill: parent
        // The shape begins within these, and a small tile has no room for them.
        topInset: Math.min(6, root.height / 8)
        bottomInset: topInset
        leftInset: Math.min(6, root.width / 8)
        rightInset: leftInset
        // What a circle leaves to its text. The button has the tile's size, whatever its text would like.
        implicitWidth: 48
        implicitHeight: 48
        leftPadding: leftInset + Math.min(root.width - 2 * leftInset, root.height - 2 * topInset) * 0.1
        rightPadding: leftPadding
        topPadding: topInset + 2
        bottomPadding: topPadding
        radius: Math.min(width - 2 * leftInset, height - 2 * topInset) / 2
        focusPolicy: Qt.NoFocus
        Material.background: faceColor
        Material.theme: FLC.Color.isDarkColor(faceColor) ? Material.Dark : Material.Light
        Accessible.ignored: true
        onReleased: root.press()

        contentItem: QC2.Label {
            objectName: "buttonName"
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            fontSizeMode: Text.Fit
            minimumPixelSize: 6
            font.pixelSize: 14
            wrapMode: Text.Wrap
            elide: Text.ElideRight
            textFormat: Text.PlainText
            color: face.Material.primaryTextColor
            // A fitted text is laid out again and again: more than fits into any tile is not laid out at all.
            text: root.name.length > 400 ? root.name.substring(0, 400) : root.name
        }
    }

    TileControl {
        id: overlay

        anchors.fill: parent
        visible: root.editable || root.activeFocus
        focused: root.activeFocus
        editable: root.editable
        enabled: root.editable
        onToggled: root.toggled()
        onChanged: root.requestGeometry(snappedObject)
    }
}
