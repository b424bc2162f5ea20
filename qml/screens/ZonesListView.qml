// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import SortFilterProxyModel 0.2
import colors 1.0
import controls 1.0
import scripts 1.0

// The zones of a part, each with the colour of its power. While the plan is edited they can be opened, renamed, removed
// and added.
ShopListView {
    id: root

    property string partUid

    addText: qsTr("Добавить зону")
    canAdd: !Uid.isNull(partUid)
    listName: qsTr("Зоны")
    onAddRequested: zonesListModel.addZone({ width: 96, height: 96, partUid: partUid }, function() {})
    onEditingChanged: {
        menu.close()
        renameDialog.close()
    }

    model: SortFilterProxyModel {
        sourceModel: zonesListModel
        filters: RegExpFilter {
            roleName: "partUid"
            pattern: root.partUid
            syntax: RegExpFilter.FixedString
            caseSensitivity: Qt.CaseInsensitive
            enabled: !Uid.isNull(root.partUid)
        }
        sorters: StringSorter { roleName: "sort"; caseSensitivity: Qt.CaseInsensitive }
    }

    delegate: ShopListRow {
        objectName: "zoneRow" + index
        hasMenu: root.editing
        name: model.name
        circleColor: Colors.brightnessToColor(model.power)
        Accessible.description: qsTr("%1%").arg(model.power)
        onClicked: {
            if (hasMenu)
                menuRequested(rightItem)
        }
        onMenuRequested: menu.openFor(model.uid, model.name, caller)
    }

    OndiraMenu {
        id: menu

        property string uid
        property string name

        function openFor(newUid, newName, caller) {
            uid = newUid
            name = newName
            openAt(caller)
        }

        objectName: "zoneMenu"

        QC2.MenuItem {
            objectName: "editZone"
            text: qsTr("Редактировать зону...")
            onTriggered: nav.show("zone", { uid: menu.uid })
        }

        QC2.MenuItem {
            objectName: "renameZone"
            text: qsTr("Переименовать")
            onTriggered: renameDialog.openFor(menu.uid, menu.name)
        }

        QC2.MenuSeparator {}

        QC2.MenuItem {
            objectName: "removeZone"
            text: qsTr("Удалить")
            onTriggered: {
                var uid = menu.uid
                mainWindow.openConfirmationDialog(qsTr("Удалить зону '%1'?").arg(menu.name), qsTr("Удалить"),
                                                  qsTr("Отмена"), function() {
                                                      zonesListModel.removeZones([uid])
                                                  })
            }
        }
    }

    RenameDialog {
        id: renameDialog

        objectName: "zoneDialog"
        title: qsTr("Переименовать зону")
        label: qsTr("Название зоны")
        onRenamed: zonesListModel.changeZoneName(uid, name)
    }
}
