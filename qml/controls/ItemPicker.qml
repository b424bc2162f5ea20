// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import EnhancedMaterial 1.0 as EM
import SortFilterProxyModel 0.2

// One row of a list model in a field, by its id: it stays chosen where the list is sorted, filtered or built anew.
EM.MenuField {
    id: root

    property alias source: proxy.sourceModel
    property string idRole: "uid"
    property string sortRole
    property string filterRole
    property var filter // what a row must have in the filter's role; undefined lets all pass
    property var initialItem // the id to begin with, and after that of what the user chose
    property bool canSelectNothing: true
    readonly property alias filterModel: proxy
    readonly property var selectedItem: heldItem // the id, or null

    property var heldItem: null

    property bool isRestoring: false
    property bool isComplete: false

    // Back to the row of the id; to the first where something must be chosen.
    function restore() {
        if (isRestoring)
            return
        isRestoring = true
        if (initialItem === undefined || initialItem === null || initialItem === "" || !select(idRole, initialItem))
            selectedIndex = canSelectNothing || count === 0 ? -1 : 0
        update()
        isRestoring = false
    }

    function update() {
        var row = get(selectedIndex)
        heldItem = row === undefined || row[idRole] === undefined ? null : row[idRole]
    }

    textRole: "name"
    model: proxy
    selectedIndex: -1
    isSearchable: count > 10
    isClearable: canSelectNothing
    onRevisionChanged: restore()
    onCountChanged: if (isComplete) restore() // told after the rows have changed
    onInitialItemChanged: restore()
    onCanSelectNothingChanged: restore()
    onIdRoleChanged: restore()
    onItemSelected: {
        update()
        initialItem = heldItem
    }
    Component.onCompleted: {
        isComplete = true
        restore()
    }

    SortFilterProxyModel {
        id: proxy

        sortRoleName: root.sortRole

        filters: ValueFilter {
            enabled: root.filterRole !== ""
            roleName: root.filterRole
            value: root.filter
        }
    }
}
