// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import EnhancedMaterial 1.0 as EM

// The editor of the object on a plan for which it was opened. The editor is read when it is first needed.
EM.Dialog {
    id: root

    property url editor
    property string editedUid
    property string partUid // of an editor that wants to know

    function openFor(uid) {
        editedUid = uid
        open()
    }

    positiveButtonText: qsTr("Сохранить")
    negativeButtonText: qsTr("Отмена")

    Loader {
        function accept() {
            return item ? item.accept() : undefined
        }

        focus: true
        Component.onCompleted: {
            var properties = { uid: root.editedUid }
            if (root.partUid !== "")
                properties.partUid = root.partUid
            setSource(root.editor, properties)
        }
    }
}
