// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQml.Models 2.15
import QtQuick.Controls 2.15 as QC2
import EnhancedMaterial 1.0 as EM
import tiles 1.0

// The plan of one part: a canvas of 4096 by 4096 that pans and zooms, with the tiles of its zones. By keyboard: Tab goes
// from tile to tile, Space selects, Return selects and asks for the bar of commands, Escape drops the selection, arrows
// pan, plus and minus zoom.
FocusScope {
    id: root

    property string uid
    property bool lockZoomPan: false
    readonly property real shopScale: zoomArea.flickable.contentWidth / TilesJS.canvasSize
    readonly property real minimumScale: Math.max(width, height) / TilesJS.canvasSize
    readonly property real maximumScale: 4
    readonly property alias shopCanvas: canvas
    readonly property alias shopFlickable: zoomArea.flickable
    readonly property bool isEmpty: zonesView.count === 0
    property var selectedZones: []

    signal commandsRequested()

    function deselectAll() {
        canvas.deselectAll()
    }

    function setScale(scale) {
        if (!lockZoomPan)
            zoomArea.zoom(Qt.point(0, 0), scale / shopScale)
    }

    function stepScale(steps) {
        setScale(Math.round(shopScale * 10 + steps) / 10)
    }

    function pan(dx, dy) {
        if (!lockZoomPan)
            zoomArea.pan(dx, dy)
    }

    function reveal(tile) {
        zoomArea.reveal((tile.x - 8) * shopScale, (tile.y - 8) * shopScale, (tile.width + 16) * shopScale,
                        (tile.height + 16) * shopScale)
    }

    Keys.onEscapePressed: {
        event.accepted = selectedZones.length > 0
        deselectAll()
    }
    // Without these, Tab from the plan itself would begin at the top of the window.
    Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
    Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
    Keys.onLeftPressed: pan(-64, 0)
    Keys.onRightPressed: pan(64, 0)
    Keys.onUpPressed: pan(0, -64)
    Keys.onDownPressed: pan(0, 64)
    Keys.onPressed: {
        if (event.key === Qt.Key_Plus || event.key === Qt.Key_Equal)
            stepScale(1)
        else if (event.key === Qt.Key_Minus)
            stepScale(-1)
    }

    EM.ZoomPanArea {
        id: zoomArea

        objectName: "zoomArea"
        anchors.fill: parent
        locked: root.lockZoomPan
        minimumContentWidth: TilesJS.canvasSize * root.minimumScale
        minimumContentHeight: TilesJS.canvasSize * root.minimumScale
        maximumContentWidth: TilesJS.canvasSize * root.maximumScale
        maximumContentHeight: TilesJS.canvasSize * root.maximumScale
        flickable.contentWidth: TilesJS.canvasSize
        flickable.contentHeight: TilesJS.canvasSize
        visible: zonesView.loaded

        GridCanvas {
            id: canvas

            scale: root.shopScale
            views: [zonesView]
            onEmptyClicked: deselectAll()

            GridTilesView {
                id: zonesView

                anchors.fill: parent
                z: 2
                model: zonesListModel
                uidRole: "partUid"
                allowedUids: [root.uid]
                onSelectionChanged: root.selectedZones = getSelected()
                delegate: ZoneTile {
                    x: model.x
                    y: model.y
                    width: model.width
                    height: model.height
                    uid: model.uid
                    name: model.name
                    powerPercent: model.power
                    manual: model.manual
                    erroredDevicesCount: model.erroredDevicesCount
                    selected: DelegateModel.inSelected
                    onToggled: DelegateModel.inSelected = !DelegateModel.inSelected
                    onEntered: {
                        DelegateModel.inSelected = true
                        root.commandsRequested()
                    }
                    onActiveFocusChanged: {
                        if (activeFocus)
                            root.reveal(this)
                    }
                }
            }
        }
    }

    QC2.BusyIndicator {
        anchors.centerIn: parent
        running: !zonesView.loaded
    }
}
