// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import EnhancedMaterial 1.0 as EM

// Asks for another name of what it was opened for.
EM.Dialog {
    id: root

    property string uid
    property string name
    property string label

    signal renamed(string uid, string name)

    function openFor(newUid, newName) {
        uid = newUid
        name = newName
        open()
    }

    width: 400
    positiveButtonText: qsTr("Сохранить")

    Item {
        function accept() {
            root.renamed(root.uid, field.text)
        }

        implicitWidth: 352
        implicitHeight: field.implicitHeight

        EM.TextField {
            id: field

            objectName: "nameField"
            width: parent.width
            focus: true
            label: root.label
            text: root.name
            Component.onCompleted: selectAll()
        }
    }
}
