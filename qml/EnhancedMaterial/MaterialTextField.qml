// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Core 1.0 as FLC

// A line of text in a field. The input inside has the object name of the field too, for it is what has the keyboard.
FieldFrame {
    id: root

    property string placeholderText
    property int characterLimit: -1 // of which more is an error; -1 is none
    property int echoMode: TextInput.Normal
    property alias text: input.text
    property alias displayText: input.displayText
    property alias validator: input.validator
    property alias acceptableInput: input.acceptableInput
    property alias length: input.length
    property alias inputMethodHints: input.inputMethodHints
    property alias inputMask: input.inputMask
    property alias readOnly: input.readOnly
    property alias textInput: input
    property alias trailing: trailingRow.data // buttons of the field, at its right
    readonly property bool isPassword: echoMode === TextInput.Password || echoMode === TextInput.PasswordEchoOnEdit

    signal accepted()
    signal clicked()
    signal textEdited()
    signal editingFinished()

    function clear() {
        input.clear()
    }

    function selectAll() {
        input.selectAll()
    }

    hasError: characterLimit >= 0 && length > characterLimit || !acceptableInput
    isReadOnly: readOnly
    isActive: input.activeFocus
    isFilled: input.displayText !== "" || input.preeditText !== ""
    rightSpace: trailingRow.width
    contentHeight: input.contentHeight
    counterText: characterLimit >= 0 ? "%1 / %2".arg(length).arg(characterLimit) : ""
    onVisibleChanged: revealButton.checked = false
    onEchoModeChanged: revealButton.checked = false

    QC2.TextField {
        id: input

        objectName: root.objectName
        anchors.fill: parent
        focus: true
        leftPadding: 0
        rightPadding: root.rightSpace
        topPadding: root.topSpace
        bottomPadding: root.bottomSpace
        verticalAlignment: Text.AlignVCenter
        background: null
        selectByMouse: true
        color: Material.primaryTextColor
        font.family: root.isPassword ? "Default" : "Roboto" // Roboto lacks the bullet
        font.pixelSize: 16
        echoMode: revealButton.checked ? TextInput.Normal : root.echoMode
        placeholderText: root.label === "" || root.isLabelFloating ? root.placeholderText : ""
        Accessible.name: root.label === "" ? root.placeholderText : root.label
        Accessible.description: root.shownText
        onAccepted: root.accepted()
        onTextEdited: root.textEdited()
        onEditingFinished: root.editingFinished()

        TapHandler {
            onTapped: root.clicked()
        }
    }

    Row {
        id: trailingRow

        anchors.right: parent.right
        anchors.bottom: parent.bottom
        height: Math.min(48, parent.height)

        QC2.ToolButton {
            id: revealButton

            objectName: "revealButton"
            width: 48
            height: parent.height
            visible: root.isPassword && input.length > 0
            focusPolicy: Qt.TabFocus // a click leaves the keyboard with the text
            checkable: true
            icon.source: visible ? FLC.Utils.iconUrl(checked ? "action/visibility_off" : "action/visibility") : ""
            icon.color: Material.iconColor
            Accessible.name: checked ? qsTr("Скрыть пароль") : qsTr("Показать пароль")
            onVisibleChanged: checked = false
            Keys.onReturnPressed: toggle()
            Keys.onEnterPressed: toggle()
        }
    }
}
