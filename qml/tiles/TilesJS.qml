// SPDX-License-Identifier: GPL-3.0-or-later
pragma Singleton
import QtQuick 2.15

// The measures of the plan, in canvas units.
QtObject {
    readonly property int baseGridSize: 16
    readonly property int baseTileSize: 96
    readonly property int canvasSize: 4096
}
