// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15

// A raised sheet around what belongs together.
QC2.Pane {
    padding: 0
    Material.elevation: 1
    Material.background: "white"
}
