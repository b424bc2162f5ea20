// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import EnhancedMaterial 1.0 as EM
import Fluid.Controls 1.0 as FL
import SortFilterProxyModel 0.2
import controls 1.0
import mainView 1.0
import screens 1.0

// The zones of the part that the tabs choose, as a table of sliders.
FL.Page {
    id: root

    property string partUid
    property var part: ({}) // its record

    function tabOf(uid) {
        for (var i = 0; i < partsModel.count; ++i) {
            if (partsModel.get(i, "uid") === uid)
                return i
        }
        return -1
    }

    // The tab follows the part on show. One that is gone gives way to the first, but not at once: the list may only be
    // on its way.
    function follow() {
        var tab = tabOf(partUid)
        if (tab < 0 && partUid === "" && partsModel.count > 0)
            partUid = partsModel.get(0, "uid")
        else if (tab < 0 && partUid !== "")
            goneTimer.start()
        else
            goneTimer.stop()
        if (tab >= 0)
            tabs.currentIndex = tab
        part = shopPartsListModel.getByUid(partUid)
    }

    objectName: "sliders"
    title: connectionsDrawer.current.name === "" ? qsTr("Управление") : connectionsDrawer.current.name
    customContentShown: !leftSidebar.mobileAspect
    customContent: ConnectionDisplayButton {
        title: root.title
    }
    actions: actionsAdapter.visibleActions
    onPartUidChanged: follow()
    Component.onCompleted: follow()

    OndiraSidebarActions {
        page: root
    }

    EM.ActionsVisibilityAdapter {
        id: actionsAdapter

        FL.Action {
            objectName: "controlsAction"
            iconName: "navigation/more_vert"
            text: qsTr("Панель управления")
            onTriggered: controlsDrawer.open()
        }
    }

    header: EM.TabBar {
        id: tabs

        objectName: "slidersTabBar"
        visible: count > 0
        fixed: false
        Material.background: "white"
        Accessible.name: qsTr("Объекты")

        Repeater {
            model: partsModel

            EM.TabButton {
                objectName: "slidersTab" + index
                text: model.name
                onClicked: root.partUid = model.uid
            }
        }

        onCountChanged: Qt.callLater(root.follow)
    }

    SortFilterProxyModel {
        id: partsModel

        sourceModel: shopPartsListModel
        sorters: StringSorter { roleName: "name"; caseSensitivity: Qt.CaseInsensitive; numericMode: true }
    }

    Connections {
        target: partsModel

        function onDataChanged() { Qt.callLater(root.follow) }
        function onLayoutChanged() { Qt.callLater(root.follow) }
        function onModelReset() { Qt.callLater(root.follow) }
        function onRowsInserted() { Qt.callLater(root.follow) }
        function onRowsMoved() { Qt.callLater(root.follow) }
        function onRowsRemoved() { Qt.callLater(root.follow) }
    }

    Timer {
        id: goneTimer

        interval: 600
        onTriggered: {
            if (root.tabOf(root.partUid) < 0)
                root.partUid = partsModel.count > 0 ? partsModel.get(0, "uid") : ""
        }
    }

    ZonesControlList {
        objectName: "zonesControl"
        anchors.fill: parent
        focus: true
        partUid: root.partUid
        part: root.part
    }

    OndiraRightSidebar {
        id: controlsDrawer

        objectName: "controlsDrawer"
        page: root
        onAboutToShow: controls.active = true

        Loader {
            id: controls

            anchors.fill: parent
            active: false
            sourceComponent: ShopControls {
                objectName: "slidersControls"
                showScaleSlider: false
                onShopPartClicked: {
                    root.partUid = uid
                    controlsDrawer.close()
                }
            }
        }
    }
}
