// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQml 2.15
import EnhancedMaterial 1.0 as EM

// Yes or no as a menu of both.
EM.MenuField {
    id: root

    property var value

    signal valueEdited(bool value)

    objectName: "boolField"
    model: [qsTr("Нет"), qsTr("Да")]
    onItemSelected: valueEdited(index === 1)

    Binding {
        target: root
        property: "selectedIndex"
        value: root.value ? 1 : 0
        restoreMode: Binding.RestoreNone
    }
}
