// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import QtQuick.Window 2.15
import QtQml.Models 2.15
import Fluid.Core 1.0 as FLC

// The bar on top of a window: what leads away from the page, its title or what it shows instead, and its actions. Those
// that find no room are in a menu.
QC2.ToolBar {
    id: root

    property Page page: null
    property int barHeight: 56
    readonly property var shownActions: page ? page.actions : []
    // Half of the bar is for the title.
    readonly property int room: Math.max(1, Math.floor(availableWidth / 2 / FLC.Device.touchSize))
    readonly property bool overflows: shownActions.length > room
    readonly property var directActions: overflows ? shownActions.slice(0, room - 1) : shownActions
    readonly property var menuActions: overflows ? shownActions.slice(room - 1) : []

    implicitWidth: 320 // not what its content wants: that goes by the room that there is
    implicitHeight: barHeight
    leftPadding: 0
    rightPadding: 4
    Material.elevation: 0

    RowLayout {
        anchors.fill: parent
        spacing: 0

        Item {
            Layout.preferredWidth: 4
            visible: leftButton.visible
        }

        ToolAction {
            id: leftButton

            objectName: "leftAction"
            action: root.page ? root.page.leftAction : null
        }

        TitleLabel {
            objectName: "appBarTitle"
            Layout.fillWidth: true
            Layout.leftMargin: leftButton.visible ? 8 : 16
            visible: !custom.visible
            text: root.page ? root.page.title : ""
        }

        Item {
            id: custom

            readonly property Item wanted: root.page ? root.page.customContent : null
            property Item content: null

            // Each page keeps its own content, which is only here while the page is on top.
            function take() {
                var taken = wanted
                if (content && content.parent === custom)
                    content.parent = null
                content = taken
                if (!taken)
                    return
                taken.parent = custom
                taken.width = Qt.binding(function() { return Math.min(taken.implicitWidth, custom.width) })
                taken.height = Qt.binding(function() { return custom.height })
            }

            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: wanted !== null && root.page.customContentShown
            onWantedChanged: take()
            Component.onCompleted: take()
        }

        Repeater {
            model: root.directActions

            ToolAction {
                action: modelData
            }
        }

        QC2.ToolButton {
            id: menuButton

            objectName: "overflowButton"
            Layout.preferredWidth: 48
            Layout.preferredHeight: 48
            visible: root.overflows
            icon.source: FLC.Utils.iconUrl("navigation/more_vert")
            focusPolicy: Qt.StrongFocus
            Accessible.name: qsTr("Ещё")
            Accessible.role: Accessible.ButtonMenu
            Keys.onReturnPressed: clicked()
            Keys.onEnterPressed: clicked()
            onClicked: menu.popup(menuButton, 0, height)

            QC2.Menu {
                id: menu

                objectName: "overflowMenu"
                width: Math.min(320, root.Window.width - 16)

                Instantiator {
                    model: root.menuActions
                    delegate: QC2.MenuItem {
                        action: modelData
                        height: FLC.Device.touchSize
                    }
                    onObjectAdded: menu.insertItem(index, object)
                    onObjectRemoved: menu.removeItem(object)
                }
            }
        }
    }
}
