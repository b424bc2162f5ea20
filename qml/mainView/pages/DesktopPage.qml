// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import SortFilterProxyModel 0.2
import controls 1.0
import screens 1.0

// The plan of the part that the tabs choose, and the bar that drives the selected zones.
QC2.Page {
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

    header: QC2.TabBar {
        id: tabs

        objectName: "partsTabBar"
        visible: count > 0
        Material.background: "white"

        Repeater {
            model: partsModel
            delegate: QC2.TabButton {
                width: Math.max(implicitWidth, 120)
                text: model.name
                onClicked: shop.uid = model.uid
            }
        }

        onCountChanged: correctTabCheckTimer.restart()
    }

    SortFilterProxyModel {
        id: partsModel

        sourceModel: shopPartsListModel
        sorters: StringSorter { roleName: "name"; numericMode: true }
    }

    // The tab follows the part on show. A part that is gone for three looks gives way to the first one, so that a list
    // that is only being replaced does not move the user.
    Timer {
        id: correctTabCheckTimer

        property int tries: 0

        interval: 300
        repeat: true
        running: true
        triggeredOnStart: true
        onTriggered: {
            var tab = root.tabOf(shop.uid)
            if (tab < 0 && ++tries > 2) {
                shop.uid = partsModel.count > 0 ? partsModel.get(0, "uid") : ""
                tab = root.tabOf(shop.uid)
            }
            if (tab >= 0) {
                tabs.currentIndex = tab
                tries = 0
                stop()
            } else if (partsModel.count === 0 && tries > 2) {
                tries = 0
                stop()
            }
        }
    }

    ShopScreen {
        id: shop

        anchors.fill: parent
        anchors.bottomMargin: brightnessBar.height * brightnessBar.position
        focus: true
        onUidChanged: {
            deselectAll()
            correctTabCheckTimer.restart()
        }
    }

    QC2.Pane {
        anchors.right: parent.right
        anchors.bottom: shop.bottom
        anchors.margins: 16
        padding: 0
        visible: !emptyPart.visible && !noParts.visible
        Material.elevation: 3

        ScaleSlider {
            value: shop.shopScale
            minimum: shop.minimumScale
            maximum: shop.maximumScale
            onMoved: shop.setScale(scale)
        }
    }

    PlaceholderControl {
        id: emptyPart

        anchors.fill: parent
        visible: shop.uid !== "" && shop.isEmpty
        title: qsTr("Объект пуст")
        button.visible: false
    }

    PlaceholderControl {
        id: noParts

        anchors.fill: parent
        visible: partsModel.count === 0
        title: qsTr("Не создано ни одного объекта")
        button.visible: false
    }

    QC2.Drawer {
        id: brightnessBar

        objectName: "brightnessBar"
        edge: Qt.BottomEdge
        width: parent.width
        height: brightness.implicitHeight
        modal: false
        interactive: false
        dim: false
        visible: root.visible && shop.selectedZones.length > 0
        closePolicy: QC2.Popup.NoAutoClose

        BrightnessControl {
            id: brightness

            anchors.fill: parent
            selectedZones: shop.selectedZones
            onCommandSent: shop.deselectAll()
        }
    }
}
