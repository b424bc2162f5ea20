// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQml.Models 2.15
import QtQuick.Controls 2.15 as QC2
import EnhancedMaterial 1.0 as EM
import tiles 1.0

// The plan of one part: a canvas of 4096 by 4096 that pans and zooms, with the tiles of its zones.
Item {
    id: root

    property string uid
    readonly property real shopScale: zoomArea.flickable.contentWidth / TilesJS.canvasSize
    readonly property real minimumScale: Math.max(width, height) / TilesJS.canvasSize
    readonly property real maximumScale: 4
    readonly property alias shopCanvas: canvas
    readonly property alias shopFlickable: zoomArea.flickable
    readonly property bool isEmpty: zonesView.count === 0
    property var selectedZones: []

    function deselectAll() {
        canvas.deselectAll()
    }

    function setScale(scale) {
        zoomArea.zoom(Qt.point(0, 0), scale / shopScale)
    }

    EM.ZoomPanArea {
        id: zoomArea

        anchors.fill: parent
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
                }
            }
        }
    }

    QC2.BusyIndicator {
        anchors.centerIn: parent
        running: !zonesView.loaded
    }
}
