// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Backend 1.0
import EnhancedMaterial 1.0 as EM
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
    readonly property bool isAdmin: Backend.userGroup === "admin"
    readonly property bool isEditing: shopController.isEditingEnabled
    readonly property bool isMobile: leftSidebar.mobileAspect

    function tabOf(uid) {
        for (var i = 0; i < partsModel.count; ++i) {
            if (partsModel.get(i, "uid") === uid)
                return i
        }
        return -1
    }

    function stored(key, fallback) {
        var value = connectionsListModel.getStoredValue(key, fallback)
        return value === undefined || value === null ? fallback : value
    }

    function storedNumber(key, fallback) {
        var value = Number(stored(key, fallback))
        return isFinite(value) ? value : fallback
    }

    function store(key, value) {
        if (connectionsListModel.getStoredValue(key) !== value)
            connectionsListModel.setStoredValue(key, value)
    }

    function lock(locked) {
        if (locked) {
            store("shopContentX", shop.shopFlickable.contentX)
            store("shopContentY", shop.shopFlickable.contentY)
        }
        store("shopZoomLocked", locked)
        shop.lockZoomPan = locked
    }

    function restoreUid() {
        var uid = String(stored("shopUid", ""))
        if (uid !== "")
            shop.uid = uid
    }

    function restoreScale() {
        var scale = storedNumber("shopScale", 1)
        shop.shopScale = scale > 0 ? scale : 1
    }

    function restoreOffset() {
        if (shop.lockZoomPan)
            shop.scrollTo(storedNumber("shopContentX", 0), storedNumber("shopContentY", 0))
    }

    // What the connection remembers of its plan.
    function restoreView() {
        shop.lockZoomPan = stored("shopZoomLocked", false) === true
        restoreUid()
        restoreScale()
        restoreOffset()
    }

    function addPart() {
        shopController.isEditingEnabled = true
        shopPartsListModel.addShopPart({}, function() {})
    }

    objectName: "desktop"
    title: connectionsDrawer.current.name === "" ? qsTr("Рабочий стол") : connectionsDrawer.current.name
    customContentShown: !leftSidebar.mobileAspect
    customContent: ConnectionDisplayButton {
        title: root.title
    }

    actions: pageActions.visibleActions
    onIsAdminChanged: if (!isAdmin) shopController.isEditingEnabled = false
    onIsMobileChanged: mobileSidebar.close()
    Component.onCompleted: restoreView()

    OndiraSidebarActions {
        page: root
    }

    EM.ActionsVisibilityAdapter {
        id: pageActions

        FL.Action {
            objectName: "editModeAction"
            iconName: "content/create"
            icon.color: root.isEditing ? root.Material.accent : "transparent"
            text: qsTr("Режим редактирования")
            visible: root.isAdmin && !root.isMobile && !mobileSidebar.opened
            onTriggered: shopController.isEditingEnabled = !root.isEditing
        }

        FL.Action {
            objectName: "editAction"
            iconName: "content/create"
            text: qsTr("Редактировать...")
            visible: root.isMobile && root.isEditing && (shop.editPossible || shop.removePossible)
            enabled: shop.editPossible
            onTriggered: shop.editSelected()
        }

        FL.Action {
            objectName: "removeAction"
            iconName: "action/delete"
            icon.color: root.Material.color(Material.Red, Material.Shade700)
            text: qsTr("Удалить")
            visible: root.isMobile && root.isEditing && (shop.editPossible || shop.removePossible)
            enabled: shop.removePossible
            onTriggered: shop.removeSelected()
        }

        FL.Action {
            objectName: "panelAction"
            iconName: "navigation/more_vert"
            text: qsTr("Панель редактирования")
            visible: root.isMobile
            onTriggered: mobileSidebar.opened ? mobileSidebar.close() : mobileSidebar.open()
        }

        FL.Action {
            objectName: "scaleDownAction"
            iconName: "action/zoom_out"
            text: qsTr("Масштаб -10%")
            visible: !shop.lockZoomPan && !root.isAdmin
            enabled: shop.shopScale >= shop.minimumScale + 0.1
            onTriggered: shop.stepScale(-1)
        }

        FL.Action {
            objectName: "scaleResetAction"
            iconName: "action/aspect_ratio"
            text: qsTr("Масштаб 100%")
            visible: !shop.lockZoomPan && !root.isAdmin
            enabled: shop.shopScale !== 1
            onTriggered: shop.setScale(1)
        }

        FL.Action {
            objectName: "scaleUpAction"
            iconName: "action/zoom_in"
            text: qsTr("Масштаб +10%")
            visible: !shop.lockZoomPan && !root.isAdmin
            enabled: shop.shopScale <= shop.maximumScale - 0.1
            onTriggered: shop.stepScale(1)
        }
    }

    Connections {
        target: connectionsListModel

        function onCurrentConnectionChanged() {
            scaleStoreTimer.stop() // it was that of the other connection
            shop.uid = "" // so was the part
            root.restoreView()
            if (!shop.lockZoomPan)
                shop.scrollTo(0, 0)
        }

        function onStoredValueChanged(key) {
            if (key === "shopUid")
                root.restoreUid()
            else if (key === "shopScale")
                root.restoreScale()
            else if (key === "shopZoomLocked")
                shop.lockZoomPan = root.stored(key, false) === true
            else if (key === "shopContentX" || key === "shopContentY")
                root.restoreOffset()
        }
    }

    // A wheel that turns is one change.
    Timer {
        id: scaleStoreTimer

        interval: 300
        onTriggered: root.store("shopScale", shop.shopScale)
    }

    header: EM.TabBar {
        id: tabs

        objectName: "partsTabBar"
        visible: count > 0
        fixed: false
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
                onClicked: {
                    shop.uid = model.uid
                    root.store("shopUid", model.uid)
                }

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
            if (shop.uid === "")
                root.restoreUid() // its part may have come since
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
        anchors.rightMargin: desktopSidebar.width * desktopSidebar.shown
        focus: true
        onUidChanged: {
            deselectAll()
            correctTabCheckTimer.restart()
        }
        onShopScaleChanged: scaleStoreTimer.restart()
        onCommandsRequested: brightness.forceActiveFocus()
    }

    ShopControls {
        id: controls

        objectName: "shopControls"
        parent: root.isMobile ? mobileSidebar.contentItem : desktopSidebar
        anchors.fill: parent
        shopScreen: shop
        onShopPartClicked: {
            shop.uid = uid
            root.store("shopUid", uid)
        }
        onLockRequested: root.lock(locked)
    }

    Rectangle {
        id: desktopSidebar

        property real shown: root.isEditing && !root.isMobile ? 1 : 0

        objectName: "desktopSidebar"
        x: parent.width - width * shown
        width: controls.implicitWidth
        height: parent.height
        visible: shown > 0
        color: "#edf0f3"
        border.color: Material.dividerColor

        Behavior on shown {
            NumberAnimation { duration: 200 }
        }
    }

    OndiraRightSidebar {
        id: mobileSidebar

        objectName: "mobileSidebar"
        page: root
    }

    PlaceholderControl {
        id: emptyPart

        objectName: "emptyPart"
        anchors.fill: shop
        visible: tabs.count > 0 && shop.uid !== "" && shop.isEmpty && !root.isEditing
        icon: "maps/map"
        title: qsTr("Объект пуст")
        button.visible: root.isAdmin
        button.text: qsTr("Редактировать")
        onClicked: {
            shopController.isEditingEnabled = true
            shop.addInTheMiddle()
        }
    }

    PlaceholderControl {
        id: noParts

        objectName: "noParts"
        anchors.fill: shop
        visible: tabs.count === 0
        icon: "maps/map"
        title: qsTr("Не создано ни одного объекта")
        button.visible: root.isAdmin
        onClicked: root.addPart()
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
        x: parent.width - width // beside the sidebar
        width: root.width
        height: brightness.implicitHeight
        topPadding: 0
        modal: false
        interactive: false
        dim: false
        visible: root.visible && shop.selectedZones.length > 0 && !root.isEditing
        closePolicy: QC2.Popup.NoAutoClose
        background: null // its content covers it

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
