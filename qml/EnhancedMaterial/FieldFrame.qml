// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15

// What every field has around its content: a label that floats, a line, and below it a helper or an error text and a
// counter. The content leaves room for the label by topSpace, and knows what else there is to say of the field.
FocusScope {
    id: root

    property string label
    property string helperText
    property string errorText
    property bool hasError: false
    property bool floatingLabel: true // false: the label is always up
    property bool isReadOnly: false
    property bool isActive: activeFocus // looks as one that has the keyboard
    property bool isFilled: false // shows something where the label would rest
    property real leftSpace: 0 // of an icon before the content
    property real rightSpace: 0 // of buttons after it
    property real contentHeight: 20
    property string counterText
    property alias characterLimitLabel: counter
    readonly property string shownText: hasError && errorText !== "" ? errorText : helperText
    readonly property bool isLabelFloating: isActive && !isReadOnly || isFilled || !floatingLabel
    readonly property color errorColor: Material.color(Material.Red, Material.Shade800)
    readonly property color stateColor: hasError ? errorColor : isActive ? Material.accent : Material.secondaryTextColor
    readonly property real topSpace: label === "" ? 12 : 26
    readonly property real bottomSpace: label === "" ? 12 : 10
    readonly property real boxHeight: height - footer.height // without what stands below the line
    default property alias content: box.data

    implicitWidth: 200
    implicitHeight: Math.max(48, topSpace + contentHeight + bottomSpace) + footer.height
    opacity: enabled ? 1 : 0.5

    Item {
        id: box

        width: parent.width
        height: root.boxHeight
    }

    QC2.Label {
        id: caption

        objectName: "fieldLabel"
        x: root.isLabelFloating ? 0 : root.leftSpace
        y: root.isLabelFloating ? 6 : root.topSpace - 6
        width: parent.width - x - (root.isLabelFloating ? 0 : root.rightSpace)
        visible: text !== ""
        elide: Text.ElideRight
        textFormat: Text.PlainText
        font.family: "Roboto"
        font.pixelSize: root.isLabelFloating ? 12 : 16
        color: root.stateColor
        text: root.label
        Accessible.ignored: true // the content tells it as its name

        Behavior on y { NumberAnimation { duration: 120; easing.type: Easing.OutCubic } }
        Behavior on font.pixelSize { NumberAnimation { duration: 120; easing.type: Easing.OutCubic } }
    }

    Rectangle {
        objectName: "fieldLine"
        y: root.boxHeight - height
        width: parent.width
        height: root.isActive || root.hasError ? 2 : 1
        color: root.hasError || root.isActive ? root.stateColor : Material.hintTextColor
    }

    Item {
        id: footer

        // It keeps its room for an error, so that a form doesn't jump when one comes.
        readonly property bool isNeeded: root.helperText !== "" || root.errorText !== "" || root.counterText !== ""

        y: root.boxHeight
        width: parent.width
        height: isNeeded ? Math.max(20, footerText.y + footerText.contentHeight) : 0
        visible: isNeeded

        QC2.Label {
            id: footerText

            objectName: "fieldText"
            y: 4
            width: parent.width - (counter.visible ? counter.width + 8 : 0)
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            font.family: "Roboto"
            font.pixelSize: 12
            color: root.hasError && root.errorText !== "" ? root.errorColor : Material.secondaryTextColor
            text: root.shownText
        }

        QC2.Label {
            id: counter

            objectName: "characterLimitLabel"
            y: 4
            anchors.right: parent.right
            visible: text !== ""
            font.family: "Roboto"
            font.pixelSize: 12
            color: root.hasError ? root.errorColor : Material.secondaryTextColor
            text: root.counterText
        }
    }
}
