// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15

// A bar of tabs that shows what is behind it. Fixed tabs share its width; others are as wide as their texts, and scroll.
QC2.TabBar {
    id: root

    property bool fixed: true

    signal removePressed(int index) // of a removable tab

    spacing: 0
    Material.background: "transparent"
    Material.elevation: 0
}
