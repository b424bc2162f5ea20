// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15

// The palette beside the item that a colour is picked for.
QC2.Popup {
    id: root

    property alias selectedColor: picker.selectedColor
    property alias selectedShade: picker.selectedShade
    readonly property alias shadedColor: picker.shadedColor
    property var callback: null // of the colour that was picked

    // Opens at that place of the item. The callback is not called where nothing is picked.
    function pickColor(item, x, y, callback) {
        close()
        parent = item
        root.x = x
        root.y = y
        root.callback = typeof callback === "function" ? callback : null
        picker.restart()
        open()
    }

    margins: 8 // of the window, whatever the place
    padding: 8
    modal: true
    dim: false
    focus: true
    closePolicy: QC2.Popup.CloseOnEscape | QC2.Popup.CloseOnPressOutside
    Material.elevation: 8
    onClosed: callback = null

    contentItem: ColorPicker {
        id: picker

        objectName: "colorPicker"
        focus: true
        onPicked: {
            var callback = root.callback
            root.callback = null
            root.close()
            if (callback)
                callback(color)
        }
    }
}
