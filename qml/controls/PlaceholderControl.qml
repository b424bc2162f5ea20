// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Controls.impl 2.15
import QtQuick.Layouts 1.15

// Covers an empty place: says what is missing, and offers what to do first. It comes after a moment, so that a list
// which is only on its way is not called empty.
Rectangle {
    id: root

    property url icon
    property string title
    property string text
    property alias button: actionButton

    signal clicked()

    objectName: "placeholder"
    implicitHeight: content.implicitHeight + 32
    color: "white"

    SequentialAnimation on opacity {
        running: root.visible

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

        ColorImage {
            Layout.alignment: Qt.AlignHCenter
            Layout.preferredWidth: 72
            Layout.preferredHeight: 72
            sourceSize: Qt.size(72, 72)
            visible: root.icon != ""
            color: Material.hintTextColor
            source: root.icon
        }

        QC2.Label {
            objectName: "placeholderTitle"
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            font.pixelSize: 20
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            text: root.title
        }

        QC2.Label {
            objectName: "placeholderText"
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            color: Material.secondaryTextColor
            visible: text !== ""
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            text: root.text
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
