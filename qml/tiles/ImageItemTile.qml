// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Backend 1.0
import Fluid.Core 1.0 as FLC

// One picture on the plan. While it may be edited it has two tools: to keep the ratio of its sides, and to lock it.
Tile {
    id: root

    property string name
    property real shownOpacity: 1
    property bool locked: false
    property bool editable: false
    property bool keepAspectRatio: false
    property alias selected: overlay.selected
    property alias canvas: overlay.canvas
    readonly property int minimumSize: 64
    readonly property real naturalWidth: picture.implicitWidth
    readonly property real naturalHeight: picture.implicitHeight
    readonly property real ratio: naturalHeight > 0 ? naturalWidth / naturalHeight : 0 // 0 without a picture
    property int tries: 0
    property bool isPlacing: false // both sides are given, so that none follows the other

    signal toggled()
    signal entered()
    signal lockRequested(bool locked)

    // A side of 0 is that of the picture itself.
    function returnToPlace() {
        isPlaced = false
        isPlacing = true
        x = place.x
        y = place.y
        width = place.width > 0 ? place.width : naturalWidth
        height = place.height > 0 ? place.height : naturalHeight
        isPlacing = false
    }

    function resizeTo(newWidth, newHeight) {
        isPlacing = true
        width = newWidth
        height = newHeight
        isPlacing = false
    }

    function save(wanted) {
        var newWidth = wanted.width
        var newHeight = wanted.height
        var fits = Math.round(newHeight * ratio) === Math.round(newWidth)
            || Math.round(newWidth / ratio) === Math.round(newHeight)
        if (keepAspectRatio && ratio > 0 && !fits) { // the keyboard changes one side alone
            if (newWidth !== place.width)
                newHeight = Math.round(newWidth / ratio)
            else if (newHeight !== place.height)
                newWidth = Math.round(newHeight * ratio)
        }
        requestGeometry({ x: wanted.x, y: wanted.y, width: Math.max(minimumSize, newWidth),
                          height: Math.max(minimumSize, newHeight) })
    }

    function onPictureReady() {
        tries = 0
        returnToPlace()
        var shownWidth = place.width > 0 ? place.width : naturalWidth
        var shownHeight = place.height > 0 ? place.height : naturalHeight
        keepAspectRatio = ratio > 0 && Math.abs(Math.round(shownWidth) - Math.round(shownHeight * ratio)) <= 1
    }

    // The server may still be at it, or the link was busy.
    function retry() {
        if (tries >= 3)
            return
        ++tries
        picture.source = ""
        picture.source = Qt.binding(function() { return picture.address })
    }

    function toggleRatio() {
        keepAspectRatio = !keepAspectRatio
        if (!keepAspectRatio || ratio <= 0)
            return
        var animated = enableAnimations
        enableAnimations = false
        resizeTo(Math.round(height * ratio), height)
        enableAnimations = animated
        save({ x: x, y: y, width: width, height: height })
    }

    control: overlay
    activeFocusOnTab: overlay.enabled
    Accessible.role: overlay.enabled ? Accessible.CheckBox : Accessible.Graphic
    Accessible.name: name.trim() === "" ? qsTr("Изображение без названия") : name
    Accessible.focusable: overlay.enabled
    Accessible.focused: activeFocus
    Accessible.checkable: overlay.enabled
    Accessible.checked: selected
    Accessible.onToggleAction: if (overlay.enabled) toggled()
    Accessible.onPressAction: if (overlay.enabled) toggled()
    Keys.onSpacePressed: toggled()
    Keys.onReturnPressed: entered()
    Keys.onEnterPressed: entered()
    onWidthChanged: {
        if (keepAspectRatio && overlay.holdsAnimations && !isPlacing)
            resizeTo(width, Math.round(width / ratio))
    }
    onHeightChanged: {
        if (keepAspectRatio && overlay.holdsAnimations && !isPlacing)
            resizeTo(Math.round(height * ratio), height)
    }

    Image {
        id: picture

        // None is asked for while no server is there to send it.
        readonly property string address: root.uid === "" || Backend.status !== Backend.Connected
                                          ? "" : "image://image_layer/" + root.uid

        objectName: "picture"
        anchors.fill: parent
        visible: root.shownOpacity > 0
        opacity: root.shownOpacity
        cache: false
        asynchronous: true
        source: address
        Component.onDestruction: source = "" // nobody waits for it any more
        onStatusChanged: {
            if (status === Image.Ready)
                readyTimer.start() // its size comes after that
            else if (status === Image.Error)
                retryTimer.start()
        }
    }

    // They go with the tile, as a later call would not.
    Timer {
        id: readyTimer

        interval: 0
        onTriggered: root.onPictureReady()
    }

    Timer {
        id: retryTimer

        interval: 0
        onTriggered: root.retry()
    }

    TileControl {
        id: overlay

        anchors.fill: parent
        visible: root.editable && !root.locked
        enabled: visible
        focused: root.activeFocus
        editable: root.editable
        enableSnapping: false
        onToggled: root.toggled()
        onChanged: root.save(snappedObject)
    }

    Loader {
        anchors.right: parent.right
        anchors.top: parent.top
        z: 1001
        active: root.editable
        sourceComponent: Row {
            component Tool: QC2.ToolButton {
                width: FLC.Device.touchSize
                height: FLC.Device.touchSize
                focusPolicy: Qt.StrongFocus
                Accessible.name: QC2.ToolTip.text
                Keys.onReturnPressed: clicked()
                Keys.onEnterPressed: clicked()
                QC2.ToolTip.visible: hovered
                QC2.ToolTip.delay: 500
            }

            Tool {
                objectName: "ratioButton"
                visible: !root.locked
                icon.source: FLC.Utils.iconUrl("image/photo_size_select_large")
                icon.color: root.keepAspectRatio ? Material.accent : Material.iconColor
                QC2.ToolTip.text: root.keepAspectRatio ? qsTr("Не сохранять пропорции") : qsTr("Сохранять пропорции")
                onClicked: root.toggleRatio()
            }

            Tool {
                objectName: "lockButton"
                icon.source: FLC.Utils.iconUrl(root.locked ? "action/lock" : "action/lock_open")
                icon.color: root.locked ? Material.accent : Material.iconColor
                QC2.ToolTip.text: root.locked ? qsTr("Разрешить изменение") : qsTr("Закрепить изображение")
                onClicked: root.lockRequested(!root.locked)
            }
        }
    }
}
