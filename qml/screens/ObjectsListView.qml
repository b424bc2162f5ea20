// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import SortFilterProxyModel 0.2
import controls 1.0

// The parts of the site. A click asks for one; while the plan is edited they can be renamed, removed and added.
ShopListView {
    id: root

    property string currentUid

    signal shopPartClicked(string uid)

    addText: qsTr("Добавить")
    listName: qsTr("Объекты")
    onAddRequested: shopPartsListModel.addShopPart({}, function() {})
    onEditingChanged: {
        menu.close()
        renameDialog.close()
    }

    model: SortFilterProxyModel {
        sourceModel: shopPartsListModel
        sorters: StringSorter { roleName: "name"; caseSensitivity: Qt.CaseInsensitive; numericMode: true }
    }

    delegate: ShopListRow {
        objectName: "objectRow" + index
        hasCircle: false
        hasMenu: root.editing
        highlighted: model.uid === root.currentUid
        name: model.name
        onClicked: root.shopPartClicked(model.uid)
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

        objectName: "objectMenu"

        QC2.MenuItem {
            objectName: "renameObject"
            text: qsTr("Переименовать...")
            onTriggered: renameDialog.openFor(menu.uid, menu.name)
        }

        QC2.MenuSeparator {}

        QC2.MenuItem {
            objectName: "removeObject"
            text: qsTr("Удалить")
            onTriggered: {
                var uid = menu.uid
                mainWindow.openConfirmationDialog(qsTr("Удалить объект '%1'?").arg(menu.name), qsTr("Удалить"),
                                                  qsTr("Отмена"), function() {
                                                      shopPartsListModel.removeShopParts([uid])
                                                  })
            }
        }
    }

    RenameDialog {
        id: renameDialog

        objectName: "objectDialog"
        title: qsTr("Свойства объекта")
        label: qsTr("Название объекта")
        onRenamed: shopPartsListModel.changeShopPartName(uid, name)
    }
}
