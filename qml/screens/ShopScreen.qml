// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQml.Models 2.15
import QtQuick.Controls 2.15 as QC2
import Backend 1.0
import EnhancedMaterial 1.0 as EM
import Errors 1.0
import tiles 1.0
import screens 1.0

// The plan of one part: a canvas of 4096 by 4096 that pans and zooms, with four layers of tiles. By keyboard: Tab goes
// from tile to tile, Space selects, Return selects and asks for the bar of commands or, in edit mode, for the editor;
// Escape drops the selection, arrows pan, plus and minus zoom. In edit mode arrows with Control move the selected tile
// and with Shift too resize it, Insert adds, Delete removes.
FocusScope {
    id: root

    property string uid
    property bool lockZoomPan: false
    property bool enableControls: true // without it tiles are only looked at
    property real shopScale: 1
    readonly property real minimumScale: Math.max(width, height) / TilesJS.canvasSize
    readonly property real maximumScale: 4
    readonly property alias shopCanvas: canvas
    readonly property alias shopFlickable: zoomArea.flickable
    readonly property alias menu: addMenu
    readonly property bool isLinked: Backend.status !== Backend.Connecting // a new link shows its plan anew
    readonly property bool isEditing: shopController.isEditingEnabled
    readonly property bool isEmpty: zonesView.count === 0 && buttonsView.count === 0 && indicatorsView.count === 0
                                    && imageItemsView.count === 0
    readonly property bool loaded: zonesView.loaded && buttonsView.loaded && indicatorsView.loaded
                                   && imageItemsView.loaded
    readonly property alias editPossible: canvas.editPossible
    readonly property alias removePossible: canvas.removePossible
    property var selectedZones: []

    signal commandsRequested()

    function deselectAll() {
        canvas.deselectAll()
    }

    function editSelected() {
        if (canvas.editPossible)
            canvas.editSelected()
    }

    function removeSelected() {
        if (canvas.removePossible)
            removeDialog.openFor(canvas.selectedViews())
    }

    function openAddMenu() {
        addMenu.open()
    }

    // As its user asks; a locked plan doesn't.
    function setScale(scale) {
        if (!lockZoomPan)
            applyScale(scale)
    }

    function applyScale(scale) {
        zoomArea.zoom(Qt.point(0, 0), scale / canvas.scale)
        shopScale = canvas.scale // not every scale can be had
    }

    function stepScale(steps) {
        setScale(Math.round(canvas.scale * 10 + steps) / 10)
    }

    function scrollTo(x, y) {
        shopFlickable.contentX = x
        shopFlickable.contentY = y
        zoomArea.clampContent()
    }

    function pan(dx, dy) {
        if (!lockZoomPan)
            zoomArea.pan(dx, dy)
    }

    function reveal(tile) {
        zoomArea.reveal((tile.x - 8) * canvas.scale, (tile.y - 8) * canvas.scale, (tile.width + 16) * canvas.scale,
                        (tile.height + 16) * canvas.scale)
    }

    // What the server refused goes back to where the server has it.
    function returnPlacedTiles() {
        for (var i = 0; i < canvas.tilesParent.children.length; ++i) {
            var tile = canvas.tilesParent.children[i]
            if (tile.isPlaced)
                tile.returnToPlace()
        }
    }

    // For who has no pointer: in the middle of what is seen.
    function addInTheMiddle() {
        canvas.lastClickX = (shopFlickable.contentX + width / 2) / canvas.scale
        canvas.lastClickY = (shopFlickable.contentY + height / 2) / canvas.scale
        openAddMenu()
    }

    onShopScaleChanged: if (shopScale !== canvas.scale) applyScale(shopScale)
    onIsEditingChanged: addMenu.close()
    Keys.onEscapePressed: {
        event.accepted = canvas.removePossible
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
        else if (isEditing && event.key === Qt.Key_Insert)
            addInTheMiddle()
        else if (isEditing && event.key === Qt.Key_Delete)
            removeSelected()
    }

    Connections {
        target: Errors

        function onRowsInserted() { root.returnPlacedTiles() }
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
        visible: root.loaded

        GridCanvas {
            id: canvas

            scale: zoomArea.flickable.contentWidth / width
            showGrid: root.isEditing
            onScaleChanged: root.shopScale = scale
            onEmptyClicked: {
                if (root.isEditing && !hasSelected())
                    root.openAddMenu()
                else
                    deselectAll()
            }

            GridTilesView {
                id: imageItemsView

                anchors.fill: parent
                active: root.isLinked
                uidRole: "partUid"
                allowedUids: [root.uid]
                model: imageItemsListModel
                onEdit: imageDialog.openFor(items[0])
                onRemove: imageItemsListModel.remove(items, function() {})
                delegate: ImageItemTile {
                    z: model.onTop ? 3 : 1
                    uid: model.uid
                    place: TilesJS.placeOf(model.x, model.y, model.width, model.height)
                    name: model.name
                    shownOpacity: model.opacity
                    locked: model.locked
                    canvas: root.shopCanvas
                    enabled: root.enableControls
                    editable: root.isEditing
                    selected: DelegateModel.inSelected
                    onToggled: DelegateModel.inSelected = !DelegateModel.inSelected
                    onEntered: {
                        DelegateModel.inSelected = true
                        root.editSelected()
                    }
                    onGeometryRequested: imageItemsListModel.change(uid, { x: x, y: y, width: width, height: height })
                    onLockRequested: imageItemsListModel.change(uid, { locked: locked })
                    onActiveFocusChanged: if (activeFocus) root.reveal(this)
                }
            }

            GridTilesView {
                id: zonesView

                anchors.fill: parent
                active: root.isLinked
                uidRole: "partUid"
                allowedUids: [root.uid]
                model: zonesListModel
                onSelectedChanged: root.selectedZones = getSelected()
                onEdit: nav.show("zone", { uid: items[0] })
                onRemove: zonesListModel.removeZones(items)
                delegate: ZoneTile {
                    z: 2
                    uid: model.uid
                    place: TilesJS.placeOf(model.x, model.y, model.width, model.height)
                    name: model.name
                    powerPercent: model.power
                    manual: model.manual
                    erroredDevicesCount: model.erroredDevicesCount
                    canvas: root.shopCanvas
                    enabled: root.enableControls
                    editable: root.isEditing
                    selected: DelegateModel.inSelected
                    onToggled: DelegateModel.inSelected = !DelegateModel.inSelected
                    onEntered: {
                        DelegateModel.inSelected = true
                        if (root.isEditing)
                            root.editSelected()
                        else
                            root.commandsRequested()
                    }
                    onGeometryRequested: zonesListModel.changeZoneGeometry(uid, x, y, width, height)
                    onActiveFocusChanged: if (activeFocus) root.reveal(this)
                }
            }

            GridTilesView {
                id: indicatorsView

                anchors.fill: parent
                active: root.isLinked
                uidRole: "partUid"
                allowedUids: [root.uid]
                model: indicatorsListModel
                onEdit: indicatorDialog.openFor(items[0])
                onRemove: indicatorsListModel.removeIndicators(items)
                delegate: IndicatorTile {
                    z: 5
                    uid: model.uid
                    place: TilesJS.placeOf(model.x, model.y, model.width, model.height)
                    text: model.text
                    iconName: model.icon
                    textColor: model.textColor
                    iconColor: model.iconColor
                    horizontalAlignment: model.horizontalAlignment
                    isShown: model.visible
                    shownOpacity: model.opacity
                    canvas: root.shopCanvas
                    enabled: root.enableControls
                    editable: root.isEditing
                    selected: DelegateModel.inSelected
                    onToggled: DelegateModel.inSelected = !DelegateModel.inSelected
                    onEntered: {
                        DelegateModel.inSelected = true
                        root.editSelected()
                    }
                    onGeometryRequested: indicatorsListModel.changeIndicator({ uid: uid, x: x, y: y, width: width,
                                                                               height: height })
                    onActiveFocusChanged: if (activeFocus) root.reveal(this)
                }
            }

            GridTilesView {
                id: buttonsView

                anchors.fill: parent
                active: root.isLinked
                uidRole: "partUid"
                allowedUids: [root.uid]
                model: buttonsListModel
                onEdit: buttonDialog.openFor(items[0])
                onRemove: buttonsListModel.removeButtons(items)
                delegate: ButtonTile {
                    z: 10
                    uid: model.uid
                    place: TilesJS.placeOf(model.x, model.y, model.width, model.height)
                    name: model.name
                    active: model.state === 1
                    onColor: model.onColor
                    offColor: model.offColor
                    canvas: root.shopCanvas
                    enabled: root.enableControls
                    editable: root.isEditing
                    selected: DelegateModel.inSelected
                    onToggled: DelegateModel.inSelected = !DelegateModel.inSelected
                    onEntered: {
                        DelegateModel.inSelected = true
                        root.editSelected()
                    }
                    onStateRequested: buttonsListModel.setButtonState(uid, state)
                    onGeometryRequested: buttonsListModel.changeButtonGeometry(uid, x, y, width, height)
                    onActiveFocusChanged: if (activeFocus) root.reveal(this)
                }
            }
        }
    }

    QC2.BusyIndicator {
        objectName: "busyIndicator"
        anchors.centerIn: parent
        visible: !root.loaded
        running: visible
    }

    ShopAddMenu {
        id: addMenu

        partUid: root.uid
        clickX: canvas.lastClickX
        clickY: canvas.lastClickY
    }

    EM.Dialog {
        id: removeDialog

        property var targets: [] // what was selected when it was asked for

        function openFor(views) {
            targets = views.map(function(view) { return { view: view, uids: view.getSelected() } })
            open()
        }

        objectName: "removeDialog"
        title: qsTr("Удалить выделенные объекты?")
        positiveButtonText: qsTr("Удалить")
        negativeButtonText: qsTr("Отмена")
        onAccepted: targets.forEach(function(target) { target.view.remove(target.uids) })
    }

    ShopEditDialog {
        id: imageDialog

        objectName: "imageDialog"
        title: qsTr("Свойства изображения")
        editor: "qrc:/editors/ImageItemEdit.qml"
    }

    ShopEditDialog {
        id: indicatorDialog

        objectName: "indicatorDialog"
        title: qsTr("Редактирование индикатора")
        width: 480
        editor: "qrc:/editors/IndicatorEdit.qml"
        partUid: root.uid
    }

    ShopEditDialog {
        id: buttonDialog

        objectName: "buttonDialog"
        title: qsTr("Редактирование кнопки")
        width: 520
        editor: "qrc:/editors/ButtonEditScreen.qml"
    }
}
