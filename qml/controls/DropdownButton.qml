// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Controls 1.0 as FL

// A button that opens a menu below it. The items of the menu are its children.
QC2.Button {
    id: root

    default property alias items: dropdown.contentData
    property alias menu: dropdown

    function open() {
        dropdown.popup(root, mirrored ? width - dropdown.width : 0, height - bottomInset)
    }

    implicitHeight: 48
    leftPadding: 16
    rightPadding: 36
    flat: true
    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.ButtonMenu
    Accessible.name: text
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Keys.onDownPressed: open()
    onClicked: {
        if (dropdown.visible)
            dropdown.close()
        else
            open()
    }

    FL.Icon {
        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        color: root.enabled ? root.Material.foreground : root.Material.hintTextColor
        name: "navigation/arrow_drop_down"
    }

    QC2.Menu {
        id: dropdown

        objectName: "dropdownMenu"
        closePolicy: QC2.Popup.CloseOnEscape | QC2.Popup.CloseOnPressOutsideParent
        focus: true
        onClosed: root.forceActiveFocus()
    }
}
