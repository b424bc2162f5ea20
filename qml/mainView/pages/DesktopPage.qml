// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Backend 1.0
import Fluid.Controls 1.0 as FL
import SortFilterProxyModel 0.2
import controls 1.0
import mainView 1.0
import screens 1.0

// The plan of the part that the tabs choose, and the bar that drives the selected zones.
FL.Page {
    id: root

    readonly property alias shopScreen: shop
    readonly property alias partsTabbar: tabs

    function tabOf(uid) {
        for (var i = 0; i < partsModel.count; ++i) {
            if (partsModel.get(i, "uid") === uid)
                return i
        }
        return -1
    }

    objectName: "desktop"
    title: connectionsDrawer.current.name === "" ? qsTr("Рабочий стол") : connectionsDrawer.current.name
    customContentShown: !leftSidebar.mobileAspect
    customContent: ConnectionDisplayButton {
        title: root.title
    }

    OndiraSidebarActions {
        page: root
    }

    header: QC2.TabBar {
        id: tabs

        objectName: "partsTabBar"
        visible: count > 0
        Material.background: "white"
        Accessible.name: qsTr("Объекты")

        Repeater {
            model: partsModel
            delegate: QC2.TabButton {
                id: tab

                objectName: "partTab" + index
                width: Math.min(Math.max(tabLabel.implicitWidth + leftPadding + rightPadding, 120), 320)
                leftPadding: 16
                rightPadding: 16
                text: model.name
                Keys.onReturnPressed: clicked()
                Keys.onEnterPressed: clicked()
                onClicked: shop.uid = model.uid

                // The name comes from the server: no markup, and no letter of it is a shortcut.
                contentItem: QC2.Label {
                    id: tabLabel

                    elide: Text.ElideRight
                    maximumLineCount: 1
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    textFormat: Text.PlainText
                    font: tab.font
                    color: tab.checked ? Material.accent : Material.foreground
                    text: tab.text
                }
            }
        }

        onCountChanged: correctTabCheckTimer.restart()
        onCurrentIndexChanged: correctTabCheckTimer.restart()
    }

    SortFilterProxyModel {
        id: partsModel

        sourceModel: shopPartsListModel
        sorters: StringSorter { roleName: "name"; numericMode: true }
    }

    Connections {
        target: partsModel

        function onLayoutChanged() { correctTabCheckTimer.restart() }
        function onRowsMoved() { correctTabCheckTimer.restart() }
    }

    // The tab follows the part on show. A part that is gone for three looks gives way to the first one, so that a list
    // that is only being replaced does not move the user; where nothing was on show yet, there is nothing to wait for.
    Timer {
        id: correctTabCheckTimer

        property int tries: 0

        interval: 300
        repeat: true
        running: true
        triggeredOnStart: true
        onTriggered: {
            var tab = root.tabOf(shop.uid)
            if (tab < 0 && (++tries > 2 || shop.uid === "")) {
                shop.uid = partsModel.count > 0 ? partsModel.get(0, "uid") : ""
                tab = root.tabOf(shop.uid)
            }
            if (tab >= 0)
                tabs.currentIndex = tab
            if (tab >= 0 || shop.uid === "") {
                tries = 0
                stop()
            }
        }
    }

    ShopScreen {
        id: shop

        objectName: "shopScreen"
        anchors.fill: parent
        anchors.bottomMargin: brightnessBar.height * brightnessBar.position
        focus: true
        onUidChanged: {
            deselectAll()
            correctTabCheckTimer.restart()
        }
        onCommandsRequested: brightness.forceActiveFocus()
    }

    QC2.Pane {
        objectName: "scalePane"
        anchors.right: parent.right
        anchors.bottom: shop.bottom
        anchors.margins: 16
        padding: 0
        visible: !emptyPart.visible && !noParts.visible && !noConnections.visible
        Material.elevation: 3

        ScaleSlider {
            value: shop.shopScale
            minimum: shop.minimumScale
            maximum: shop.maximumScale
            locked: shop.lockZoomPan
            onLockRequested: shop.lockZoomPan = locked
            onMoved: shop.setScale(scale)
        }
    }

    PlaceholderControl {
        id: emptyPart

        objectName: "emptyPart"
        anchors.fill: parent
        visible: tabs.count > 0 && shop.uid !== "" && shop.isEmpty
        icon: "maps/map"
        title: qsTr("Объект пуст")
        button.visible: false
    }

    PlaceholderControl {
        id: noParts

        objectName: "noParts"
        anchors.fill: parent
        visible: tabs.count === 0
        icon: "maps/map"
        title: qsTr("Не создано ни одного объекта")
        button.visible: Backend.userGroup === "admin"
        onClicked: shopPartsListModel.addShopPart({}, function() {})
    }

    PlaceholderControl {
        id: noConnections

        objectName: "noSavedConnections"
        anchors.fill: parent
        visible: connectionsListModel.count === 0
        icon: "hardware/router"
        title: qsTr("Нет подключений к серверу")
        button.text: qsTr("Создать")
        onClicked: tabAddDialog.open()
    }

    QC2.Drawer {
        id: brightnessBar

        objectName: "brightnessBar"
        edge: Qt.BottomEdge
        width: parent.width
        height: brightness.implicitHeight
        topPadding: 0
        modal: false
        interactive: false
        dim: false
        visible: root.visible && shop.selectedZones.length > 0
        closePolicy: QC2.Popup.NoAutoClose

        BrightnessControl {
            id: brightness

            objectName: "brightnessControl"
            anchors.fill: parent
            selectedZones: shop.selectedZones
            Keys.onEscapePressed: shop.forceActiveFocus()
            onCommandSent: {
                shop.deselectAll()
                shop.forceActiveFocus()
            }
        }
    }
}
