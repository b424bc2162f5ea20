// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQml.Models 2.15
import UidFilterProxyModel 0.1

// One layer of tiles: the rows of a model that belong to the parts allowed, each through the delegate. Selection is the
// group "selected", so that it survives publications and re-sorting.
Item {
    id: root

    property alias model: filtered.sourceModel
    property alias allowedUids: filtered.allowedUids
    property alias uidRole: filtered.filterRoleName
    property Component delegate
    readonly property alias filteredModel: filtered
    readonly property alias count: filtered.count
    readonly property int selectedCount: selectedGroup.count
    readonly property bool loaded: tilesLoader.status === Loader.Ready

    signal selectionChanged()

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
            onCountChanged: root.selectionChanged()
        }
    }

    Loader {
        id: tilesLoader

        anchors.fill: parent
        asynchronous: true
        sourceComponent: Item {
            Repeater {
                model: tilesModel
            }
        }
    }
}
