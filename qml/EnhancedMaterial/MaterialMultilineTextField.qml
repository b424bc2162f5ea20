// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15

// Several lines of text in a field. It grows with them, and scrolls where it is not given the room. Ctrl with Return
// accepts; Tab goes on to the next field.
FieldFrame {
    id: root

    property string placeholderText
    property int characterLimit: -1 // of which more is an error; -1 is none
    property bool acceptableInput: true // for who uses the field to say
    property alias text: input.text
    property alias length: input.length
    property alias inputMethodHints: input.inputMethodHints
    property alias readOnly: input.readOnly
    property alias textInput: input

    signal accepted()
    signal clicked()
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
    isFilled: input.length > 0 || input.preeditText !== ""
    contentHeight: Math.max(20, input.contentHeight)
    counterText: characterLimit >= 0 ? "%1 / %2".arg(length).arg(characterLimit) : ""

    MouseArea {
        anchors.fill: parent
        onClicked: {
            input.forceActiveFocus(Qt.MouseFocusReason)
            root.clicked()
        }
    }

    Flickable {
        anchors.fill: parent
        anchors.topMargin: root.topSpace
        anchors.bottomMargin: 2
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentHeight > height

        QC2.TextArea.flickable: QC2.TextArea {
            id: input

            objectName: root.objectName
            focus: true
            leftPadding: 0
            rightPadding: 12 // of the scroll bar
            topPadding: 0
            bottomPadding: root.bottomSpace - 2
            background: Item {} // none would leave the one of the style, which comes with the Flickable
            selectByMouse: true
            wrapMode: TextEdit.Wrap
            textFormat: TextEdit.PlainText
            color: Material.primaryTextColor
            font.family: "Roboto"
            font.pixelSize: 16
            placeholderText: root.label === "" || root.isLabelFloating ? root.placeholderText : ""
            Accessible.name: root.label === "" ? root.placeholderText : root.label
            Accessible.description: root.shownText
            onEditingFinished: root.editingFinished()
            Keys.onPressed: {
                if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
                        && event.modifiers & Qt.ControlModifier) {
                    event.accepted = true
                    root.accepted()
                }
            }
            Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

            TapHandler {
                onTapped: root.clicked()
            }
        }

        QC2.ScrollBar.vertical: QC2.ScrollBar {}
    }
}
