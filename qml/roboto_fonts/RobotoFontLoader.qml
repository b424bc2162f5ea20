// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// The faces of Roboto that the interface writes in, loaded into the program: it looks the same on a machine without
// them.
QtObject {
    readonly property string name: regular.name
    readonly property bool ready: faces.every(function(face) { return face.status === FontLoader.Ready })
    readonly property list<FontLoader> loaders: [
        FontLoader {
            id: regular

            source: "qrc:/fonts/Roboto-Regular.ttf"
        },
        FontLoader { source: "qrc:/fonts/Roboto-Medium.ttf" },
        FontLoader { source: "qrc:/fonts/Roboto-Bold.ttf" }
    ]
    readonly property var faces: [loaders[0], loaders[1], loaders[2]]
}
