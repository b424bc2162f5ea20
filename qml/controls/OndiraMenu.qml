// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Window 2.15
import Fluid.Core 1.0 as FLC

// A menu as wide as its widest text, but never wider than the window, with rows for a finger.
QC2.Menu {
    id: root

    readonly property real widestItem: {
        var widest = 0
        for (var i = 0; i < count; ++i)
            widest = Math.max(widest, itemAt(i).implicitWidth)
        return widest
    }
    readonly property real roomInWindow: parent && parent.Window.width > 0 ? parent.Window.width - 16 : 320

    // Below the item that asks for it.
    function openAt(caller) {
        popup(caller, 0, caller.height)
    }

    width: Math.min(Math.max(200, widestItem + leftPadding + rightPadding), roomInWindow)
    margins: 8

    delegate: QC2.MenuItem {
        implicitHeight: FLC.Device.touchSize
    }
}
