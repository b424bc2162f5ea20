// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2

// A window with one stack of pages and one app bar, which belongs to the page on top.
QC2.ApplicationWindow {
    id: root

    readonly property alias appBar: bar
    readonly property alias pageStack: stack

    header: AppBar {
        id: bar

        objectName: "appBar"
        page: stack.currentItem as Page
        barHeight: page ? page.appBarHeight : 56
    }

    QC2.StackView {
        id: stack

        objectName: "pageStack"
        anchors.fill: parent
        focus: true
        onCurrentItemChanged: {
            if (currentItem)
                currentItem.forceActiveFocus()
        }

        // A page is there at once: a slide of it would be drawn by hand where there is no graphics chip.
        pushEnter: Transition { NumberAnimation { property: "opacity"; from: 0; to: 1; duration: 120 } }
        pushExit: Transition {}
        popEnter: Transition {}
        popExit: Transition { NumberAnimation { property: "opacity"; from: 1; to: 0; duration: 120 } }
        replaceEnter: Transition { NumberAnimation { property: "opacity"; from: 0; to: 1; duration: 120 } }
        replaceExit: Transition { NumberAnimation { property: "opacity"; from: 1; to: 0; duration: 120 } }
    }
}
