// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// Base of all tiles of a plan: a tile glides to its place when the server moves it.
Item {
    id: root

    property string uid
    property bool enableAnimations: true

    Behavior on x {
        enabled: root.enableAnimations
        NumberAnimation { duration: 200 }
    }
    Behavior on y {
        enabled: root.enableAnimations
        NumberAnimation { duration: 200 }
    }
    Behavior on width {
        enabled: root.enableAnimations
        NumberAnimation { duration: 200 }
    }
    Behavior on height {
        enabled: root.enableAnimations
        NumberAnimation { duration: 200 }
    }
}
