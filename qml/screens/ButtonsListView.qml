// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import SortFilterProxyModel 0.2
import colors 1.0
import controls 1.0
import scripts 1.0

// The buttons of a part. A click presses one, or releases it where it is pressed; while the plan is edited they can be
// edited, removed and added.
ShopListView {
    id: root

    property string partUid

    addText: qsTr("Добавить")
    canAdd: !Uid.isNull(partUid)
    listName: qsTr("Кнопки")
    onAddRequested: buttonsListModel.addButton({
        width: 80,
        height: 80,
        partUid: partUid,
        onColor: Colors.green.toString(),
        offColor: Colors.red.toString()
    }, function() {})
    onEditingChanged: {
        menu.close()
        editDialog.close()
    }

    model: SortFilterProxyModel {
        sourceModel: buttonsListModel
        filters: RegExpFilter {
            roleName: "partUid"
            pattern: root.partUid
            syntax: RegExpFilter.FixedString
            caseSensitivity: Qt.CaseInsensitive
            enabled: !Uid.isNull(root.partUid)
        }
        sorters: StringSorter { roleName: "name"; caseSensitivity: Qt.CaseInsensitive }
    }

    delegate: ShopListRow {
        readonly property string colorName: highlighted ? model.onColor : model.offColor

        objectName: "buttonRow" + index
        hasMenu: root.editing
        highlighted: model.state === 1
        name: model.name
        subText: model.toggle ? qsTr("Залипающая кнопка") : ""
        // A text that names no colour would be refused, and the log would say so.
        circleColor: Qt.lighter(colorName, 1) ? colorName : "transparent"
        Accessible.role: Accessible.Button
        Accessible.pressed: highlighted
        onClicked: buttonsListModel.setButtonState(model.uid, highlighted ? 0 : 1)
        onMenuRequested: menu.openFor(model.uid, caller)
    }

    OndiraMenu {
        id: menu

        property string uid

        function openFor(newUid, caller) {
            uid = newUid
            openAt(caller)
        }

        objectName: "buttonMenu"

        QC2.MenuItem {
            objectName: "editButton"
            text: qsTr("Редактировать...")
            onTriggered: editDialog.openFor(menu.uid)
        }

        QC2.MenuItem {
            objectName: "removeButton"
            text: qsTr("Удалить")
            onTriggered: buttonsListModel.removeButtons([menu.uid])
        }
    }

    ShopEditDialog {
        id: editDialog

        objectName: "listedButtonDialog"
        title: qsTr("Редактирование кнопки")
        width: 520
        editor: "qrc:/editors/ButtonEditScreen.qml"
    }
}
