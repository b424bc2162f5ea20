// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import Fluid.Core 1.0 as FLC

// A row of a list: what stands at the left, one or two lines of text, a value, and what stands at the right.
QC2.ItemDelegate {
    id: root

    property string iconName // "group/name", or the address of a picture
    property string subText
    property string valueText
    property Item leftItem: null
    property Item rightItem: null
    property bool showDivider: false
    property int maximumLineCount: 1 // of the sub text

    // A press of a key is one of the row: it triggers the action, as a signal of the row alone would not.
    function press() {
        if (action)
            action.trigger(root)
        else
            clicked()
    }

    implicitWidth: 320
    implicitHeight: Math.max(subText === "" ? 48 : 64, implicitContentHeight + topPadding + bottomPadding)
    leftPadding: 16
    rightPadding: 16
    topPadding: 4
    bottomPadding: 4
    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.ListItem
    Accessible.name: text
    Accessible.description: subText === "" ? valueText : subText
    Keys.onReturnPressed: press()
    Keys.onEnterPressed: press()

    contentItem: RowLayout {
        spacing: 16

        QC2.Control {
            Layout.preferredWidth: implicitWidth
            visible: root.leftItem !== null
            contentItem: root.leftItem
        }

        Icon {
            Layout.preferredWidth: 24
            Layout.preferredHeight: 24
            visible: root.iconName !== "" && root.leftItem === null
            color: root.enabled ? (root.highlighted ? Material.accent : Material.iconColor) : Material.hintTextColor
            name: root.iconName
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 0

            SubheadingLabel {
                objectName: "listItemText"
                Layout.fillWidth: true
                visible: text !== ""
                color: !root.enabled ? Material.hintTextColor
                                     : root.highlighted ? Material.accent : Material.primaryTextColor
                text: root.text
            }

            CaptionLabel {
                objectName: "listItemSubText"
                Layout.fillWidth: true
                visible: text !== ""
                elide: Text.ElideRight
                maximumLineCount: root.maximumLineCount
                wrapMode: root.maximumLineCount > 1 ? Text.Wrap : Text.NoWrap
                text: root.subText
            }
        }

        BodyLabel {
            objectName: "listItemValue"
            visible: text !== ""
            wrapMode: Text.NoWrap
            color: Material.secondaryTextColor
            text: root.valueText
        }

        QC2.Control {
            Layout.preferredWidth: implicitWidth
            visible: root.rightItem !== null
            contentItem: root.rightItem
        }
    }

    Divider {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        visible: root.showDivider
    }
}
