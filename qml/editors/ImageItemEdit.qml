// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import EnhancedMaterial 1.0 as EM
import Fluid.Controls 1.0 as FL

// The name of a picture on the plan, whether it covers zones, and how much shows through it.
Column {
    id: root

    property string uid

    function aboutToShow() {
        var record = imageItemsListModel.getByUid(uid)
        nameField.text = record.name || ""
        onTopBox.checked = record.onTop === true
        opacitySlider.value = record.opacity === undefined ? 1 : record.opacity
    }

    function accept() {
        imageItemsListModel.change(uid, { name: nameField.text, opacity: opacitySlider.value,
                                          onTop: onTopBox.checked })
    }

    width: parent ? parent.width : implicitWidth
    spacing: 8
    Component.onCompleted: aboutToShow()

    EM.TextField {
        id: nameField

        objectName: "nameField"
        width: parent.width
        label: qsTr("Название")
    }

    QC2.CheckBox {
        id: onTopBox

        objectName: "onTopBox"
        width: parent.width
        height: 48
        leftPadding: 0
        text: qsTr("Поверх зон")
        Keys.onReturnPressed: toggle()
        Keys.onEnterPressed: toggle()
    }

    FL.CaptionLabel {
        width: parent.width
        color: Material.secondaryTextColor
        text: qsTr("Видимость")
    }

    QC2.Slider {
        id: opacitySlider

        objectName: "opacitySlider"
        width: parent.width
        height: 48
        from: 0
        to: 1
        stepSize: 0.01
        Accessible.name: qsTr("Видимость")
    }
}
