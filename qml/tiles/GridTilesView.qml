// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQml.Models 2.15
import UidFilterProxyModel 0.1

// One layer of tiles: the rows of a model that belong to the parts allowed, each through the delegate. Selection is the
// group "selected", so that it survives publications; over a new order or a reset it is carried by uid. On a canvas the
// tiles of all layers lie in one order.
Item {
    id: root

    property alias model: filtered.sourceModel
    property alias allowedUids: filtered.allowedUids
    property alias uidRole: filtered.filterRoleName
    property alias filterEnabled: filtered.filterEnabled
    property Component delegate
    property string partName // of one of its tiles, such as a canvas may show
    property bool active: true // without it there are no tiles
    property var keptUids: []
    property bool isRestoring: false
    readonly property alias filteredModel: filtered
    readonly property alias count: filtered.count
    readonly property bool loaded: tilesLoader.status === Loader.Ready
    readonly property alias progress: tilesLoader.progress
    readonly property Item canvas: parent && parent.objectName === "GridCanvas" ? parent : null

    signal edit(var items) // their uids
    signal remove(var items)
    signal selectedChanged()

    function hasSelected() {
        return selectedGroup.count > 0
    }

    function selectedCount() {
        return selectedGroup.count
    }

    function getSelected() {
        var uids = []
        for (var i = 0; i < selectedGroup.count; ++i)
            uids.push(selectedGroup.get(i).model.uid)
        return uids
    }

    function deselectAll() {
        if (selectedGroup.count > 0)
            selectedGroup.remove(0, selectedGroup.count)
    }

    function selectAll() {
        if (tilesModel.items.count > 0)
            tilesModel.items.addGroups(0, tilesModel.items.count, "selected")
    }

    function keepSelection() {
        if (!isRestoring)
            keptUids = getSelected()
        isRestoring = true
    }

    // The delegate model leaves the group where it was, by row, or drops it, and may hear of the change after us.
    function restoreSelection() {
        if (!isRestoring)
            return
        isRestoring = false
        deselectAll()
        for (var i = 0; keptUids.length > 0 && i < tilesModel.items.count; ++i) {
            var item = tilesModel.items.get(i)
            if (keptUids.indexOf(item.model.uid) >= 0)
                item.inSelected = true
        }
    }

    objectName: "GridTilesView"

    UidFilterProxyModel {
        id: filtered
    }

    DelegateModel {
        id: tilesModel

        model: filtered
        delegate: root.delegate
        groups: DelegateModelGroup {
            id: selectedGroup

            name: "selected"
            onCountChanged: root.selectedChanged()
        }
    }

    Connections {
        target: filtered

        function onLayoutAboutToBeChanged() { root.keepSelection() }
        function onLayoutChanged() { Qt.callLater(root.restoreSelection) }
        function onModelAboutToBeReset() { root.keepSelection() }
        function onModelReset() { Qt.callLater(root.restoreSelection) }
    }

    Loader {
        id: tilesLoader

        anchors.fill: parent
        asynchronous: true
        active: root.active
        sourceComponent: Item {
            id: tilesItem

            Repeater {
                parent: root.canvas ? root.canvas.tilesParent : tilesItem
                model: tilesModel
                Component.onDestruction: model = null // its tiles would stay on the canvas without it
            }
        }
    }
}
