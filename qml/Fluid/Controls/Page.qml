// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2

// A page of the window's stack. The app bar shows its title, the action that leads away from it, and its actions.
QC2.Page {
    id: root

    property var actions: [] // of Action: those that are on offer now
    property Action leftAction: null
    property Item customContent: null // in place of the title
    property bool customContentShown: true
    property int appBarHeight: 56
    readonly property bool canGoBack: QC2.StackView.view !== null && QC2.StackView.index > 0
    readonly property bool isOnTop: QC2.StackView.view !== null && QC2.StackView.view.currentItem === root

    // Leaves the page for the one below it.
    function pop() {
        if (canGoBack && isOnTop)
            QC2.StackView.view.pop()
    }

    focusPolicy: Qt.NoFocus
}
