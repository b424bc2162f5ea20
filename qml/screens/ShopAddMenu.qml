// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import Qt.labs.platform 1.1 as Platform
import EnhancedMaterial 1.0 as EM
import Fluid.Controls 1.0 as FL
import Fluid.Core 1.0 as FLC
import colors 1.0
import tiles 1.0

// What can be added to a plan, where it was clicked last.
QC2.Menu {
    id: root

    property string partUid
    property real clickX: 0
    property real clickY: 0

    // The new object, at the line of the grid next to the click.
    function placed(properties) {
        var position = TilesJS.snapPosToGrid(clickX, clickY, TilesJS.baseGridSize)
        return Object.assign({ x: position.x, y: position.y, partUid: partUid }, properties)
    }

    // As an address, for any name.
    function addressOf(path) {
        return "file:///" + encodeURIComponent(path.replace(/^\//, "")).replace(/%2F/g, "/").replace(/%3A/g, ":")
    }

    objectName: "addMenu"
    parent: QC2.Overlay.overlay
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? Math.round((parent.height - height) / 2) : 0
    width: Math.min(320, parent ? parent.width - FLC.Device.gridUnit : 320)
    modal: true
    title: qsTr("Добавить")

    FL.TitleLabel {
        leftPadding: 16
        rightPadding: 16
        topPadding: 12
        bottomPadding: 8
        text: root.title
    }

    component Entry: QC2.MenuItem {
        property string iconName

        implicitHeight: FLC.Device.touchSize
        icon.source: FLC.Utils.iconUrl(iconName)
    }

    Entry {
        objectName: "addZone"
        iconName: "action/view_quilt"
        text: qsTr("Добавить зону")
        onTriggered: zonesListModel.addZone(root.placed({ width: TilesJS.baseTileSize, height: TilesJS.baseTileSize }),
                                            function() {})
    }

    Entry {
        objectName: "addButton"
        iconName: "av/play_circle_outline"
        text: qsTr("Добавить кнопку")
        onTriggered: buttonsListModel.addButton(root.placed({ width: 80, height: 80, onColor: String(Colors.green),
                                                              offColor: String(Colors.red) }), function() {})
    }

    Entry {
        objectName: "addIndicator"
        iconName: "action/info_outline"
        text: qsTr("Добавить индикатор")
        onTriggered: indicatorsListModel.addIndicator(root.placed({ width: 256, height: 80,
                                                                    iconColor: String(Colors.red) }), function() {})
    }

    Entry {
        objectName: "addImage"
        iconName: "image/image"
        text: qsTr("Добавить изображение")
        onTriggered: imageFileDialog.openFor(root.placed({}))
    }

    EM.QmlFileDialog {
        id: imageFileDialog

        property var target: null

        function openFor(item) {
            target = item
            open()
        }

        objectName: "imageFileDialog"
        parent: root.parent // its own would be in no window once the menu is closed
        folder: Platform.StandardPaths.writableLocation(ondiraRPi ? Platform.StandardPaths.HomeLocation
                                                                  : Platform.StandardPaths.DownloadLocation)
        nameFilters: ["*.jpg", "*.png", "*.bmp", "*.jpeg", "*.svg"]
        onFileSelected: imageItemsListModel.add(root.addressOf(fileName), target.partUid, target.x, target.y,
                                                function() {})
    }
}
