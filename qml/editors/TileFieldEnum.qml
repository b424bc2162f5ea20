// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQml 2.15
import EnhancedMaterial 1.0 as EM
import Fluid.Core 1.0 as FLC

// A choice by its place among the items of the definition. Where that has none, they may be listed here.
EM.MenuField {
    id: root

    property var definition
    property var value
    property bool canEditItems: false
    readonly property var items: definition && definition.items && definition.items.length > 0 ? definition.items : []

    signal valueEdited(int value)
    signal limitsEdited(var limits)

    function editItems() {
        dialogLoader.active = true
        dialogLoader.item.showEditor("string", false, items, 1, -1, function(data) {
            root.limitsEdited({ type: "enum", items: data })
        })
    }

    objectName: "enumField"
    model: items
    selectedIndex: -1
    onItemSelected: valueEdited(index)

    trailing: QC2.ToolButton {
        objectName: "editItemsButton"
        width: 48
        height: parent ? parent.height : 48
        visible: root.canEditItems && (root.items.length === 0 || root.definition.editable === true)
        focusPolicy: Qt.StrongFocus
        icon.source: visible ? FLC.Utils.iconUrl("image/edit") : ""
        icon.color: Material.iconColor
        Accessible.name: qsTr("Изменить варианты")
        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()
        onClicked: root.editItems()
    }

    Binding {
        target: root
        property: "selectedIndex"
        value: typeof root.value === "number" && root.value >= 0 && root.value < root.items.length ? root.value : -1
        restoreMode: Binding.RestoreNone
    }

    Loader {
        id: dialogLoader

        active: false
        source: "TileFieldListEditDialog.qml"
    }
}
