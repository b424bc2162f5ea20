// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import Backend 1.0
import EnhancedMaterial 1.0 as EM
import Fluid.Controls 1.0 as FL
import Fluid.Core 1.0 as FLC
import controls 1.0
import screens 1.0

// The panel beside a plan: edit mode and what can be done to the selection, the lists of parts, zones and buttons, and
// the scale of the plan.
Item {
    id: root

    property ShopScreen shopScreen: null // the plan that the panel is for, if any
    property bool showScaleSlider: true
    readonly property bool isAdmin: Backend.userGroup === "admin"
    readonly property bool isEditing: shopController.isEditingEnabled
    readonly property bool editPossible: isAdmin && shopScreen !== null && shopScreen.editPossible
    readonly property bool removePossible: isAdmin && shopScreen !== null && shopScreen.removePossible
    readonly property bool schedulePossible: removePossible && shopScreen.selectedZones.length > 0
    readonly property var pickedPart: partPicker.selectedItem

    signal shopPartClicked(string uid)
    signal lockRequested(bool locked)

    implicitWidth: 320

    Connections {
        target: root.shopScreen

        function onUidChanged() { partPicker.initialItem = root.shopScreen.uid }
    }

    // A row that comes and goes.
    component PassingRow: FL.ListItem {
        property bool isPossible: false

        Layout.fillWidth: true
        Layout.preferredHeight: isPossible ? implicitHeight : 0
        visible: Layout.preferredHeight > 0
        enabled: isPossible
        opacity: isPossible ? 1 : 0
        clip: true

        Behavior on Layout.preferredHeight {
            NumberAnimation { duration: 200 }
        }
        Behavior on opacity {
            NumberAnimation { duration: 200 }
        }
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        FL.ListItem {
            id: editRow

            objectName: "editModeRow"
            Layout.fillWidth: true
            visible: root.isAdmin
            text: qsTr("Режим редактирования")
            subText: qsTr("Объектов, зон, устройств")
            Accessible.role: Accessible.CheckBox
            Accessible.checkable: true
            Accessible.checked: root.isEditing
            Keys.onSpacePressed: clicked()
            onClicked: shopController.isEditingEnabled = !root.isEditing
            leftItem: QC2.CheckBox {
                objectName: "editModeBox"
                padding: 0
                focusPolicy: Qt.NoFocus
                checked: root.isEditing
                Accessible.ignored: true
                onClicked: {
                    shopController.isEditingEnabled = checked
                    checked = Qt.binding(function() { return root.isEditing }) // the click broke it
                }
            }
        }

        PassingRow {
            objectName: "editRow"
            isPossible: root.editPossible
            iconName: "content/create"
            text: qsTr("Редактировать")
            onClicked: root.shopScreen.editSelected()
        }

        PassingRow {
            objectName: "scheduleRow"
            isPossible: root.schedulePossible
            iconName: "action/schedule"
            text: qsTr("Установить расписание")
            onClicked: quickScheduleDialog.showDialog(root.shopScreen.selectedZones)
        }

        PassingRow {
            objectName: "removeRow"
            isPossible: root.removePossible
            iconName: "action/delete"
            text: qsTr("Удалить")
            onClicked: root.shopScreen.removeSelected()
        }

        EM.TabBar {
            id: tabs

            objectName: "controlsTabBar"
            Layout.fillWidth: true

            EM.TabButton {
                objectName: "partsTab"
                leftPadding: 4
                rightPadding: 4
                text: qsTr("Объекты")
            }

            EM.TabButton {
                objectName: "zonesTab"
                leftPadding: 4
                rightPadding: 4
                text: qsTr("Зоны")
            }

            EM.TabButton {
                objectName: "buttonsTab"
                leftPadding: 4
                rightPadding: 4
                text: qsTr("Кнопки")
            }
        }

        ItemPicker {
            id: partPicker

            objectName: "partPicker"
            Layout.fillWidth: true
            Layout.margins: 8
            visible: tabs.currentIndex > 0
            label: qsTr("Объект")
            source: shopPartsListModel
            sortRole: "name"
            initialItem: root.shopScreen ? root.shopScreen.uid : undefined
        }

        StackLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            currentIndex: tabs.currentIndex

            ObjectsListView {
                objectName: "objectsListView"
                currentUid: root.shopScreen ? root.shopScreen.uid : ""
                onShopPartClicked: root.shopPartClicked(uid)
            }

            ZonesListView {
                objectName: "zonesListView"
                partUid: root.pickedPart || ""
            }

            ButtonsListView {
                objectName: "buttonsListView"
                partUid: root.pickedPart || ""
            }
        }

        FL.Divider {
            Layout.fillWidth: true
            visible: scaleSlider.visible
        }

        ScaleSlider {
            id: scaleSlider

            Layout.alignment: Qt.AlignHCenter
            Layout.margins: 4
            visible: root.showScaleSlider && root.shopScreen !== null
            value: root.shopScreen ? root.shopScreen.shopScale : 1
            minimum: root.shopScreen ? root.shopScreen.minimumScale : 0.1
            maximum: root.shopScreen ? root.shopScreen.maximumScale : 4
            locked: root.shopScreen !== null && root.shopScreen.lockZoomPan
            onMoved: root.shopScreen.setScale(scale)
            onLockRequested: root.lockRequested(locked)
        }
    }
}
