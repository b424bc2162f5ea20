// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Backend 1.0
import Fluid.Controls 1.0 as FL
import colors 1.0
import controls 1.0

// What stands in place of the site while there is no server: the state, how long it lasts, and a way out.
FocusScope {
    id: root

    property int seconds: 0
    property int tickInterval: 1000 // of one second
    readonly property bool disconnected: Backend.status === Backend.Disconnected
    readonly property bool hasConnections: connectionsListModel.count > 0
    readonly property string waitText: seconds > 300
        ? qsTr("Сервер не отвечает больше %1 %2").arg(Math.floor(seconds / 60 / 5) * 5).arg(qsTr("минут"))
        : qsTr("Сервер не отвечает больше %1 %2").arg(Math.floor(seconds / 5) * 5).arg(qsTr("секунд"))

    signal addRequested()

    Timer {
        interval: root.tickInterval
        repeat: true
        running: Backend.status === Backend.Connecting
        onTriggered: ++root.seconds
        onRunningChanged: root.seconds = 0
    }

    Rectangle {
        anchors.fill: parent
        color: "white"
    }

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel.accepted = true
    }

    Flickable {
        id: flickable

        objectName: "loadingFlickable"
        anchors.fill: parent
        contentWidth: width
        contentHeight: Math.max(height, placeholder.takenHeight + state.height + 32)
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentHeight > height
        clip: true

        PlaceholderControl {
            id: placeholder

            readonly property real takenHeight: visible ? height : 0

            objectName: "noConnections"
            width: parent.width
            height: 220
            visible: !root.hasConnections
            icon: "hardware/router"
            immediate: true
            title: qsTr("Не создано ни одного подключения к серверу")
            button.text: qsTr("Создать подключение")
            button.focus: visible
            onClicked: root.addRequested()
        }

        Column {
            id: state

            x: (parent.width - width) / 2
            y: placeholder.takenHeight + (flickable.contentHeight - placeholder.takenHeight - height) / 2
            width: Math.max(160, Math.min(parent.width - 32, 480))
            spacing: 16

            FL.Icon {
                objectName: "loadingLogo"
                anchors.horizontalCenter: parent.horizontalCenter
                width: size
                height: size
                size: 72
                color: root.disconnected ? Colors.blue : "#00a74b"
                name: "qrc:/images/OndiraLogo.png"

                Behavior on color {
                    ColorAnimation { duration: 200 }
                }

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
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                font.pixelSize: 24
                wrapMode: Text.Wrap
                text: root.disconnected ? qsTr("Сервер отключен") : qsTr("Подключение...")
            }

            QC2.Label {
                objectName: "waitLabel"
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                color: Material.secondaryTextColor
                opacity: root.seconds > 5 ? 1 : 0
                wrapMode: Text.Wrap
                text: root.waitText
            }

            QC2.Button {
                objectName: "connectButton"
                anchors.horizontalCenter: parent.horizontalCenter
                height: Math.max(48, implicitHeight)
                leftPadding: 16
                rightPadding: 16
                focus: root.hasConnections
                flat: true
                highlighted: true
                visible: Backend.status !== Backend.Connected
                text: root.disconnected ? qsTr("Переподключиться") : qsTr("Отключиться")
                Keys.onReturnPressed: clicked()
                Keys.onEnterPressed: clicked()
                onClicked: root.disconnected ? Backend.reconnect() : Backend.disconnectFromServer()
            }
        }
    }
}
