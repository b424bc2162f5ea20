// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import EnhancedMaterial 1.0 as EM
import Fluid.Controls 1.0 as FL

// A button of the plan: its name, how it looks, whether it stays pressed, and what it does.
Column {
    id: root

    property string uid
    property var model: ({}) // the record, as it was when the form opened

    function aboutToShow() {
        model = buttonsListModel.getByUid(uid)
        nameField.text = model.name || ""
        toggleBox.checked = model.toggle === true
        onColorField.value = model.onColor || "white"
        offColorField.value = model.offColor || "white"
    }

    function accept() {
        parametersEditor.commit()
        buttonsListModel.changeButton({
            uid: uid,
            name: nameField.text,
            onColor: String(onColorField.value),
            offColor: String(offColorField.value),
            toggle: toggleBox.checked,
            actions: parametersEditor.editedActions
        })
        return true
    }

    width: parent ? parent.width : implicitWidth
    spacing: 8
    Component.onCompleted: aboutToShow()

    EM.TextField {
        id: nameField

        objectName: "nameField"
        width: parent.width
        label: qsTr("Название кнопки")
        placeholderText: qsTr("Название")
    }

    QC2.CheckBox {
        id: toggleBox

        objectName: "toggleBox"
        width: parent.width
        leftPadding: 0
        text: qsTr("Залипающая кнопка")
        Accessible.description: toggleText.text
        Keys.onReturnPressed: toggle()
        Keys.onEnterPressed: toggle()

        contentItem: Column {
            leftPadding: toggleBox.indicator.width + toggleBox.spacing

            FL.BodyLabel {
                width: parent.width - parent.leftPadding
                font.pixelSize: 16
                wrapMode: Text.Wrap
                text: toggleBox.text
            }

            FL.CaptionLabel {
                id: toggleText

                width: parent.width - parent.leftPadding
                wrapMode: Text.Wrap
                color: Material.secondaryTextColor
                text: qsTr("Остаётся нажатой до следующего нажатия")
            }
        }
    }

    ColorField {
        id: onColorField

        objectName: "onColorField"
        width: parent.width
        text: qsTr("Цвет нажатой кнопки")
    }

    ColorField {
        id: offColorField

        objectName: "offColorField"
        width: parent.width
        text: qsTr("Цвет отжатой кнопки")
    }

    FL.CaptionLabel {
        width: parent.width
        color: Material.secondaryTextColor
        text: qsTr("Действия по кнопке")
    }

    ActionInstanceEditor {
        id: parametersEditor

        objectName: "parametersEditor"
        width: parent.width
        showZoneSelector: true
        actions: root.model.actions || []
    }
}
