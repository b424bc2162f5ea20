// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import Fluid.Core 1.0 as FLC

// A panel that comes in from the right over a page, and goes at a press outside, at Escape, and with its page.
QC2.Drawer {
    id: root

    property Item page: null
    readonly property bool isPageVisible: page === null || page.visible

    edge: Qt.RightEdge
    width: Math.max(0, Math.min(320, (page ? page.width : parent ? parent.width : 320) - FLC.Device.gridUnit))
    height: parent ? parent.height : 0
    padding: 0
    modal: true
    interactive: opened // it is called by a button, not pulled out from the edge
    closePolicy: QC2.Popup.CloseOnEscape | QC2.Popup.CloseOnPressOutside
    onIsPageVisibleChanged: close()
}
