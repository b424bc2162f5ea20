// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import EnhancedMaterial 1.0 as EM
import Fluid.Controls 1.0 as FL
import SortFilterProxyModel 0.2
import controls 1.0
import deviceTiles 1.0
import editors 1.0
import scripts 1.0

// One zone: its name, which a click changes, and a card for each of its devices.
FocusScope {
    id: root

    property string uid
    property var model: ({}) // the record of the zone
    readonly property bool exists: model.uid !== undefined
    readonly property string name: exists ? model.name : ""

    // Cards stretch, so that they fill each row.
    function columnWidth(gridWidth) {
        var base = 272 + 16
        if (gridWidth <= base)
            return Math.max(1, gridWidth)
        var count = Math.floor(gridWidth / base)
        return base + Math.floor(gridWidth % base / count)
    }

    function addDevice() {
        addDialog.zoneUid = uid
        addDialog.open()
    }

    SortFilterProxyModel {
        id: devicesModel

        sourceModel: Uid.isNull(root.uid) ? null : devicesListModel
        filters: ValueFilter {
            roleName: "zoneUid"
            value: root.uid
        }
        sorters: StringSorter { roleName: "sort"; caseSensitivity: Qt.CaseInsensitive }
    }

    FL.ListItem {
        id: header

        objectName: "zoneHeader"
        anchors.left: parent.left
        anchors.right: parent.right
        height: 64
        enabled: root.exists
        text: root.exists && root.name.trim() === "" ? qsTr("Зона без названия") : root.name
        subText: qsTr("Нажмите, чтобы изменить название зоны")
        Accessible.role: Accessible.Button
        onClicked: renameDialog.openFor(root.uid, root.name)
    }

    GridView {
        id: grid

        objectName: "devicesGrid"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        bottomMargin: 88 // of the floating button
        focus: true
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        cellWidth: root.columnWidth(width)
        cellHeight: 208
        cacheBuffer: 208
        reuseItems: true
        keyNavigationEnabled: true
        highlightFollowsCurrentItem: true
        model: devicesModel
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Устройства")
        delegate: FocusScope {
            id: cell

            // Within a reused cell these are of another device.
            readonly property string uid: model.uid || "" // a row that goes has none
            readonly property var row: model

            objectName: "deviceCell" + index
            width: GridView.view.cellWidth
            height: GridView.view.cellHeight
            onActiveFocusChanged: {
                if (activeFocus)
                    grid.currentIndex = index
            }

            DeviceTile {
                anchors.fill: parent
                anchors.margins: 8
                focus: true
                model: cell.row
                onClicked: editDialog.openDialog(cell.uid)
                onCloseClicked: devicesListModel.removeDevices([cell.uid])
            }
        }

        QC2.ScrollBar.vertical: QC2.ScrollBar {}

        EM.HardMouseScroll {
            flickable: grid
        }
    }

    PlaceholderControl {
        objectName: "emptyZone"
        anchors.fill: grid
        visible: grid.count === 0
        color: "transparent"
        icon: "hardware/memory"
        title: qsTr("Пустая зона")
        button.visible: false
    }

    EM.ExtendedFAB {
        objectName: "addDeviceButton"
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: 16
        visible: root.exists
        extended: grid.atYBeginning
        icon.source: "qrc:/icons/material/content/add.svg"
        text: qsTr("Добавить")
        onClicked: root.addDevice()
    }

    RenameDialog {
        id: renameDialog

        objectName: "zoneNameDialog"
        title: qsTr("Изменить название зоны")
        label: qsTr("Название зоны")
        onRenamed: zonesListModel.changeZoneName(uid, name)
    }

    DeviceAddDialog {
        id: addDialog

        objectName: "deviceAddDialog"
    }

    DeviceEditDialog {
        id: editDialog

        objectName: "deviceEditDialog"
    }
}
