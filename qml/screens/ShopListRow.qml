// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Controls 1.0 as FL
import Fluid.Core 1.0 as FLC

// A row of a list of the side panel: a circle in its colour, its texts, and a button that opens its menu. The Menu key
// and F2 open the menu too.
FL.ListItem {
    id: root

    property string name
    property color circleColor: "transparent"
    property bool hasCircle: true
    property bool hasMenu: false

    // Items of the row itself would stay where they are: these are put into their places.
    property Item circle: Rectangle {
        objectName: "rowCircle"
        implicitWidth: 40
        implicitHeight: 40
        radius: 20
        color: root.circleColor
        border.color: root.Material.dividerColor
    }

    property Item menuButton: QC2.ToolButton {
        objectName: "rowMenuButton"
        visible: root.hasMenu
        implicitWidth: FLC.Device.touchSize
        implicitHeight: FLC.Device.touchSize
        focusPolicy: Qt.StrongFocus
        icon.source: visible ? FLC.Utils.iconUrl("navigation/more_vert") : ""
        icon.color: root.Material.iconColor
        Accessible.name: qsTr("Действия: %1").arg(root.text)
        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()
        onClicked: root.menuRequested(this)
    }

    signal menuRequested(Item caller)

    width: ListView.view ? ListView.view.width : implicitWidth
    rightPadding: hasMenu ? 4 : 16
    text: name.trim() === "" ? qsTr("Без названия") : name
    leftItem: hasCircle ? circle : null
    rightItem: hasMenu ? menuButton : null
    onActiveFocusChanged: {
        if (activeFocus && ListView.view)
            ListView.view.currentIndex = index
    }
    Keys.onPressed: {
        if (hasMenu && (event.key === Qt.Key_Menu || event.key === Qt.Key_F2)) {
            event.accepted = true
            menuRequested(menuButton)
        }
    }
}
