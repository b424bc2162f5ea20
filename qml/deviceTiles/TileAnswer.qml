// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import colors 1.0

// The foot of a sensor's card: whether it answers, and how strong it is heard.
Item {
    id: root

    property DeviceDelegateTile card: null
    property int limit: 10 // of errors, up to which there is still a signal
    property bool silent: card !== null && card.errors > 0
    property string text: silent ? card.silenceText : qsTr("Получен ответ")

    implicitHeight: 24

    TileText {
        objectName: "answerText"
        anchors.left: parent.left
        anchors.right: signalIndicator.visible ? signalIndicator.left : parent.right
        anchors.verticalCenter: parent.verticalCenter
        color: root.silent ? Colors.red : Colors.green
        text: root.text
    }

    TileSignalIndicator {
        id: signalIndicator

        objectName: "signal"
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        opacity: root.card ? 1 - Math.min(Math.max(0, root.card.errors) / root.limit, 1) : 0
        radioType: root.card && root.card.model ? root.card.model.radioType : 0
        rssi: root.card ? root.card.deviceState.rssidBm : undefined
    }
}
