// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQml 2.15
import EnhancedMaterial 1.0

// A field for a number. Its text follows the value only while nobody types in it.
SpinboxField {
    id: root

    Binding {
        target: root.textInput
        property: "text"
        value: root.format(root.value)
        when: !root.textInput.activeFocus
        restoreMode: Binding.RestoreBinding
    }
}
