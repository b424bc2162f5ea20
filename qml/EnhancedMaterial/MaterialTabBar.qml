// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15

// A bar of tabs that shows what is behind it. Fixed tabs share its width; others are as wide as their texts, and scroll.
QC2.TabBar {
    id: root

    property bool fixed: true

    signal removePressed(int index) // of a removable tab

    function showCurrent() {
        // Twice: the end of the list is a guess from the tabs in sight until the one at that end is among them.
        for (var i = 0; i < 2 && currentIndex >= 0; ++i)
            contentItem.positionViewAtIndex(currentIndex, ListView.Contain)
    }

    spacing: 0
    Material.background: "transparent"
    Material.elevation: 0
    onWidthChanged: Qt.callLater(showCurrent)
}
