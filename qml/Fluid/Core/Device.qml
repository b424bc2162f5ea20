// SPDX-License-Identifier: GPL-3.0-or-later
pragma Singleton
import QtQuick 2.15

// What screens measure themselves by.
QtObject {
    readonly property int gridUnit: 32 // the least space that a dialog or a drawer leaves at a window's edge
    readonly property int touchSize: 48 // of anything that a finger is to hit
    readonly property bool isMobile: Qt.platform.os === "android" || Qt.platform.os === "ios"
}
