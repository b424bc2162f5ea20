// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Layouts 1.15
import FrontendSettings 1.0

// What users of this device may do with the interface. Each box acts at once.
ColumnLayout {
    id: root

    spacing: 0

    component Box: QC2.CheckBox {
        Layout.fillWidth: true
        Layout.minimumHeight: 48
        font.pixelSize: 16
        Keys.onReturnPressed: clickedByKey()
        Keys.onEnterPressed: clickedByKey()

        function clickedByKey() {
            toggle()
            toggled()
        }

        contentItem: QC2.Label {
            leftPadding: parent.indicator.width + parent.spacing
            verticalAlignment: Text.AlignVCenter
            wrapMode: Text.Wrap
            text: parent.text
            font: parent.font
        }
    }

    Box {
        objectName: "editConnectionsBox"
        checked: !FrontendSettings.lockConnections
        text: qsTr("Разрешить редактирование соединений")
        onToggled: FrontendSettings.lockConnections = !checked
    }

    Box {
        id: hideExitBox

        objectName: "hideExitBox"
        checked: FrontendSettings.hideExit
        text: qsTr("Скрыть кнопку выхода в основном интерфейсе")
        onToggled: FrontendSettings.hideExit = checked
    }

    QC2.Button {
        objectName: "administratorExitButton"
        Layout.minimumHeight: 48
        Layout.topMargin: 8
        leftPadding: 16
        rightPadding: 16
        visible: hideExitBox.checked
        text: qsTr("Административный выход")
        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()
        onClicked: Qt.quit()
    }

    Item {
        Layout.fillHeight: true
    }
}
