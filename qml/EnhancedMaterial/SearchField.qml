// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Controls 1.0 as FL
import Fluid.Core 1.0 as FLC

// A box to search by: what is typed is the text at once. Escape empties it; an empty one leaves Escape to others.
FocusScope {
    id: root

    property string placeholderText: qsTr("Поиск")
    property alias text: input.text
    property alias textInput: input

    signal accepted()

    function clear() {
        input.clear()
    }

    implicitWidth: 200
    implicitHeight: 48
    opacity: enabled ? 1 : 0.5

    Rectangle {
        anchors.fill: parent
        anchors.topMargin: 4
        anchors.bottomMargin: 4
        radius: 4
        color: Qt.rgba(0, 0, 0, 0.06)
        border.width: input.activeFocus ? 2 : 0
        border.color: Material.accent
    }

    FL.Icon {
        x: 10
        anchors.verticalCenter: parent.verticalCenter
        size: 20
        color: Material.secondaryTextColor
        name: "action/search"
    }

    QC2.TextField {
        id: input

        objectName: root.objectName
        anchors.fill: parent
        focus: true
        leftPadding: 40
        rightPadding: clearButton.visible ? clearButton.width : 12
        topPadding: 0
        bottomPadding: 0
        verticalAlignment: Text.AlignVCenter
        background: null
        selectByMouse: true
        inputMethodHints: Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText
        color: Material.primaryTextColor
        font.family: "Roboto"
        font.pixelSize: 16
        placeholderText: root.placeholderText
        Accessible.name: root.placeholderText
        Accessible.searchEdit: true
        onAccepted: root.accepted()
        // Before a dialog around takes it as its own.
        Keys.onShortcutOverride: event.accepted = event.key === Qt.Key_Escape && length > 0
        Keys.onEscapePressed: {
            event.accepted = length > 0
            clear()
        }
    }

    QC2.ToolButton {
        id: clearButton

        objectName: "clearSearchButton"
        anchors.right: parent.right
        width: 48
        height: parent.height
        visible: input.length > 0
        focusPolicy: Qt.NoFocus
        icon.source: visible ? FLC.Utils.iconUrl("navigation/close") : ""
        icon.color: Material.secondaryTextColor
        Accessible.name: qsTr("Очистить")
        onClicked: {
            input.clear()
            input.forceActiveFocus()
        }
    }
}
