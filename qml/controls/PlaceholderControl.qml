// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15

// Covers an empty place: says what is missing, and offers what to do first.
Rectangle {
    id: root

    property string title
    property string text
    property alias button: actionButton

    signal clicked()

    color: "white"

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel.accepted = true
    }

    ColumnLayout {
        anchors.centerIn: parent
        width: Math.max(160, Math.min(parent.width - 32, 560))
        spacing: 8

        QC2.Label {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            font.pixelSize: 20
            wrapMode: Text.Wrap
            text: root.title
        }

        QC2.Label {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            color: Material.hintTextColor
            visible: text !== ""
            wrapMode: Text.Wrap
            text: root.text
        }

        QC2.Button {
            id: actionButton

            Layout.alignment: Qt.AlignHCenter
            flat: true
            highlighted: true
            text: qsTr("Добавить")
            onClicked: root.clicked()
        }
    }
}
