// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls.Material 2.15

// A thin line between things.
Rectangle {
    implicitWidth: 100
    implicitHeight: 1
    color: Material.dividerColor
}
