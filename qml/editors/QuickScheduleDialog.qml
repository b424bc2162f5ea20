// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls.Material 2.15
import EnhancedMaterial 1.0 as EM
import Fluid.Controls 1.0 as FL
import SortFilterProxyModel 0.2
import controls 1.0

// Gives some zones one schedule in place of those that they have.
EM.Dialog {
    id: root

    property var zones: [] // uids

    function showDialog(zones) {
        root.zones = zones && zones.length !== undefined ? Array.from(zones, uid => String(uid)) : []
        open()
    }

    width: 480
    title: qsTr("Установка расписания")
    positiveButtonText: qsTr("Установить")
    positiveButton.enabled: item !== null && item.canAccept

    Column {
        id: form

        readonly property bool canAccept: picker.selectedItem !== null && root.zones.length > 0
        property var rows: [] // what is told of each zone

        function aboutToShow() {
            var uids = schedulesListModel.commonScheduleForZones(root.zones)
            picker.placeholderText = uids.length > 1 ? qsTr("Разные расписания") : qsTr("Нет расписания")
            picker.initialItem = uids.length === 1 ? uids[0] : null
            rows = root.zones.map(describe)
        }

        function accept() {
            if (!canAccept)
                return false
            schedulesListModel.quickSetSchedule(root.zones, picker.selectedItem)
            return true
        }

        function describe(zone) {
            var names = schedulesListModel.commonScheduleForZones([zone])
                .map(uid => schedulesListModel.getByUid(uid).name || "")
            return { name: zonesListModel.getByUid(zone).name || "", schedules: names.join(", ") }
        }

        spacing: 8

        ItemPicker {
            id: picker

            objectName: "schedulePicker"
            width: parent.width
            label: qsTr("Расписание для установки")
            source: schedulesListModel
            sortRole: "name"
            isSearchable: true
            isClearable: false
        }

        FL.CaptionLabel {
            width: parent.width
            topPadding: 8
            color: Material.secondaryTextColor
            text: qsTr("Выбранные зоны")
        }

        ListView {
            objectName: "chosenZones"
            width: parent.width
            height: Math.min(count, 6) * 56
            clip: true
            activeFocusOnTab: interactive
            interactive: contentHeight > height
            boundsBehavior: Flickable.StopAtBounds
            model: form.rows
            delegate: FL.ListItem {
                objectName: "chosenZone" + index
                Accessible.role: Accessible.StaticText // there is nothing to press
                width: ListView.view.width
                height: 56
                leftPadding: 0
                rightPadding: 0
                hoverEnabled: false
                focusPolicy: Qt.NoFocus
                text: modelData.name
                subText: modelData.schedules
            }
        }
    }
}
