// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import EnhancedMaterial 1.0 as EM
import Fluid.Controls 1.0 as FL
import controls 1.0

// A list of the side panel, and below it, while the plan is edited, a button that adds a row.
FocusScope {
    id: root

    property alias model: list.model
    property alias delegate: list.delegate
    property string listName
    property string addText
    property bool canAdd: true
    readonly property bool editing: shopController.isEditingEnabled

    signal addRequested()

    implicitWidth: 320
    implicitHeight: 480

    ListView {
        id: list

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: foot.top
        focus: true
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 100
        highlightMoveVelocity: -1
        Accessible.role: Accessible.List
        Accessible.name: root.listName

        QC2.ScrollBar.vertical: QC2.ScrollBar {}

        EM.HardMouseScroll {
            flickable: list
        }
    }

    Item {
        id: foot

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        height: visible ? addButton.implicitHeight + 16 : 0
        visible: root.editing

        FL.Divider {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: parent.top
        }

        OndiraButton {
            id: addButton

            objectName: "addButton"
            anchors.centerIn: parent
            width: Math.min(implicitWidth, parent.width - 16)
            enabled: root.canAdd
            flat: true
            highlighted: true
            iconName: "content/add"
            text: root.addText
            onClicked: root.addRequested()
        }
    }
}
