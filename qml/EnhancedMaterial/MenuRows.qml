// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQml.Models 2.15
import SortFilterProxyModel 0.2

// The rows of a menu, whatever they come from: a list of values or of objects, a number, a list model. Follows the
// chosen row of a model where rows come, go and move.
QtObject {
    id: root

    property var model: null
    property int selectedIndex: 0
    readonly property bool isModel: model !== null && model !== undefined && typeof model.rowCount === "function"
    readonly property var items: isModel ? [] : listOf(model)
    readonly property int count: isModel ? proxy.count : items.length
    property int revision: 0 // changes with what the rows of a model show

    property SortFilterProxyModel proxy: SortFilterProxyModel {
        sourceModel: root.isModel ? root.model : null
    }

    // Its current index stays with its row.
    property ItemSelectionModel follower: ItemSelectionModel {
        model: root.proxy
    }

    property Connections changes: Connections {
        property bool isLeaving: false

        target: root.proxy

        function onDataChanged() {
            ++root.revision
        }

        function onRowsInserted() {
            root.follow()
        }

        function onRowsMoved() {
            root.follow()
        }

        function onLayoutChanged() {
            root.follow()
        }

        function onRowsAboutToBeRemoved(parent, first, last) {
            isLeaving = root.selectedIndex >= first && root.selectedIndex <= last
        }

        // A list that was emptied may be filled anew; a row that left others behind is gone.
        function onRowsRemoved() {
            if (!isLeaving) {
                root.follow()
                return
            }
            if (root.proxy.rowCount() > 0)
                root.selectedIndex = -1
            root.anchor()
            ++root.revision
        }

        function onModelReset() {
            root.anchor()
            ++root.revision
        }
    }

    function listOf(model) {
        if (typeof model === "number")
            return Array.from({ length: Math.max(0, Math.min(model, 100000)) }, (nothing, index) => index)
        return model !== null && model !== undefined && typeof model === "object" && model.length !== undefined
                ? model : []
    }

    // The count may not be told yet while rows change.
    function size() {
        return isModel ? proxy.rowCount() : items.length
    }

    // A value, or an object of the roles; undefined where there is no such row.
    function get(index) {
        if (!(index >= 0 && index < size()))
            return undefined
        return isModel ? proxy.get(index) : items[index]
    }

    // Of a row by its role; rows that are plain values have one for every role.
    function valueAt(index, role) {
        return isModel && role !== "" ? proxy.get(index, role) : valueIn(get(index), role)
    }

    function valueIn(row, role) {
        if (row === null || row === undefined || typeof row !== "object")
            return row
        return role !== "" ? row[role] : row.display
    }

    function textAt(index, role) {
        var value = index >= 0 && index < size() ? valueAt(index, role) : undefined
        return value === null || value === undefined ? "" : String(value)
    }

    // Addresses are objects to a script, one for each time they are read.
    function isSame(one, other) {
        return one === other || typeof one === "object" && one !== null && other !== null && other !== undefined
               && String(one) === String(other) && String(one) !== "[object Object]"
    }

    function find(role, value) {
        for (var i = 0, all = size(); i < all; ++i) {
            if (isSame(valueAt(i, role), value))
                return i
        }
        return -1
    }

    function follow() {
        if (follower.currentIndex.valid)
            selectedIndex = follower.currentIndex.row
        anchor()
        ++revision
    }

    function anchor() {
        if (selectedIndex >= 0 && selectedIndex < proxy.rowCount())
            follower.setCurrentIndex(proxy.index(selectedIndex, 0), ItemSelectionModel.NoUpdate)
        else
            follower.clearCurrentIndex()
    }

    onSelectedIndexChanged: anchor()
    Component.onCompleted: anchor()
}
