// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import Fluid.Controls 1.0 as FL

// Covers an empty place: says what is missing, and offers what to do first. It comes after a moment, so that a list
// which is only on its way is not called empty.
Rectangle {
    id: root

    property string icon // "group/name", or the address of a picture
    property string title
    property string text
    property bool immediate: false // there without the moment
    property alias button: actionButton

    signal clicked()

    objectName: "placeholder"
    implicitHeight: content.implicitHeight + 32
    color: Material.background

    SequentialAnimation on opacity {
        running: root.visible && !root.immediate

        PropertyAction { value: 0 }
        PauseAnimation { duration: 200 }
        NumberAnimation { to: 1; duration: 150 }
    }

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel.accepted = true
    }

    ColumnLayout {
        id: content

        anchors.centerIn: parent
        width: Math.max(160, Math.min(parent.width - 32, 560))
        spacing: 8

        FL.Placeholder {
            Layout.fillWidth: true
            icon: root.icon
            text: root.title
            subText: root.text
        }

        QC2.Button {
            id: actionButton

            objectName: "placeholderButton"
            Layout.alignment: Qt.AlignHCenter
            Layout.minimumHeight: 48
            leftPadding: 16
            rightPadding: 16
            flat: true
            highlighted: true
            text: qsTr("Добавить")
            Keys.onReturnPressed: clicked()
            Keys.onEnterPressed: clicked()
            onClicked: root.clicked()
        }
    }
}
