// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Controls 1.0 as FL
import LanguageController 1.0
import colors 1.0

// A window of the program's style with rows of controls, which may be higher than it.
FL.ApplicationWindow {
    id: root

    default property alias rows: column.data
    property real offset: 0 // of what is in sight
    readonly property real wantedHeight: column.implicitHeight + 32
    readonly property bool isNarrow: width < 960
    readonly property bool isRussian: LanguageController.languageAbbriviation.toLowerCase().startsWith("ру")
                                      || LanguageController.languageAbbriviation.toLowerCase().startsWith("ru")

    // A sample text in the language of the program.
    function say(russian, english) {
        return isRussian ? russian : english
    }

    width: 1280
    height: 800
    visible: true
    color: "white"
    Material.theme: Material.Light
    Material.background: "white"
    Material.accent: Colors.blue
    Material.primary: Material.color(Material.Grey, Material.Shade100)
    appBar.visible: false

    Column {
        id: column

        x: 16
        y: 16 - root.offset
        width: root.contentItem.width - 32
        spacing: 16
    }
}
