// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// The canvas of one plan, on which the layers of tiles lie. It counts what is selected in all of them.
Rectangle {
    id: root

    property int gridSize: TilesJS.baseGridSize
    property string gridImage: "qrc:/images/grid_32px.png"
    property bool showGrid: false
    property var views: [] // its children that are layers
    property int selectedCount: 0
    property real lastClickX: 0
    property real lastClickY: 0
    readonly property bool removePossible: selectedCount > 0
    readonly property bool editPossible: selectedCount === 1
    readonly property alias tilesParent: tiles // of the tiles of all layers, so that one order holds for all

    signal emptyClicked()

    function hasSelected() {
        return views.some(function(view) { return view.hasSelected() })
    }

    function deselectAll() {
        views.forEach(function(view) { view.deselectAll() })
    }

    function editSelected() {
        selectedViews().forEach(function(view) { view.edit(view.getSelected()) })
    }

    function removeSelected() {
        selectedViews().forEach(function(view) { view.remove(view.getSelected()) })
    }

    // Of the tiles.
    function maxZ() {
        var highest = 0
        for (var i = 0; i < tiles.children.length; ++i)
            highest = Math.max(highest, tiles.children[i].z)
        return highest
    }

    function selectedViews() {
        return views.filter(function(view) { return view.hasSelected() })
    }

    function countSelected() {
        selectedCount = views.reduce(function(sum, view) { return sum + view.selectedCount() }, 0)
    }

    function findViews() {
        var found = []
        for (var i = 0; i < children.length; ++i) {
            var child = children[i]
            if (child.objectName !== "GridTilesView")
                continue
            found.push(child)
            if (views.indexOf(child) < 0)
                child.selectedChanged.connect(countSelected)
        }
        views = found
        countSelected()
    }

    objectName: "GridCanvas"
    width: TilesJS.canvasSize
    height: TilesJS.canvasSize
    transformOrigin: Item.TopLeft
    color: showGrid ? "#ced8f7" : "#edf0f3"
    border.color: "#d0d5d9"
    border.width: 2
    onChildrenChanged: Qt.callLater(findViews)
    Component.onCompleted: findViews()

    Behavior on color {
        ColorAnimation { duration: 200 }
    }

    Image {
        objectName: "gridImage"
        anchors.fill: parent
        visible: opacity > 0
        opacity: root.showGrid ? 0.5 : 0
        fillMode: Image.Tile
        source: visible ? root.gridImage : ""

        Behavior on opacity {
            NumberAnimation { duration: 200 }
        }
    }

    MouseArea {
        property bool isMoved: false

        anchors.fill: parent
        z: -1
        onPressed: {
            root.lastClickX = mouse.x
            root.lastClickY = mouse.y
            isMoved = false
        }
        // To the right or down only: that is how far a finger slips from the plan.
        onPositionChanged: {
            var slip = TilesJS.baseGridSize * root.scale
            isMoved = isMoved || mouse.x - root.lastClickX > slip || mouse.y - root.lastClickY > slip
        }
        onReleased: if (!isMoved) root.emptyClicked()
    }

    Item {
        id: tiles

        objectName: "tilesParent"
        anchors.fill: parent
    }
}
