// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import Backend 1.0
import controls 1.0

// What stands in place of the site while there is no server: the state, how long it lasts, and a way out.
Rectangle {
    id: root

    property int seconds: 0
    readonly property bool disconnected: Backend.status === Backend.Disconnected
    readonly property string waitText: seconds > 300
        ? qsTr("Сервер не отвечает больше %1 %2").arg(Math.floor(seconds / 60 / 5) * 5).arg(qsTr("минут"))
        : qsTr("Сервер не отвечает больше %1 %2").arg(Math.floor(seconds / 5) * 5).arg(qsTr("секунд"))

    signal addRequested()

    color: "white"

    Timer {
        interval: 1000
        repeat: true
        running: Backend.status === Backend.Connecting
        onTriggered: ++root.seconds
        onRunningChanged: root.seconds = 0
    }

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel.accepted = true
    }

    ColumnLayout {
        anchors.centerIn: parent
        width: Math.max(160, Math.min(parent.width - 32, 480))
        spacing: 16

        Image {
            Layout.alignment: Qt.AlignHCenter
            Layout.preferredWidth: 72
            Layout.preferredHeight: 72
            sourceSize: Qt.size(144, 144)
            source: "qrc:/images/OndiraLogo.png"

            SequentialAnimation on scale {
                running: root.visible && !root.disconnected
                loops: Animation.Infinite
                alwaysRunToEnd: true

                NumberAnimation { from: 1.0; to: 1.1; duration: 300; easing.type: Easing.InBounce }
                NumberAnimation { from: 1.1; to: 1.0; duration: 180; easing.type: Easing.OutBounce }
            }
        }

        QC2.Label {
            objectName: "loadingHeadline"
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            font.pixelSize: 24
            wrapMode: Text.Wrap
            text: root.disconnected ? qsTr("Сервер отключен") : qsTr("Подключение...")
        }

        QC2.Label {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            color: Material.hintTextColor
            opacity: root.seconds > 5 ? 1 : 0
            wrapMode: Text.Wrap
            text: root.waitText
        }

        QC2.Button {
            objectName: "connectButton"
            Layout.alignment: Qt.AlignHCenter
            flat: true
            highlighted: true
            visible: Backend.status !== Backend.Connected
            text: root.disconnected ? qsTr("Переподключиться") : qsTr("Отключиться")
            onClicked: root.disconnected ? Backend.reconnect() : Backend.disconnectFromServer()
        }
    }

    PlaceholderControl {
        anchors.fill: parent
        visible: connectionsListModel.count === 0
        title: qsTr("Не создано ни одного подключения к серверу")
        button.text: qsTr("Создать подключение")
        onClicked: root.addRequested()
    }
}
