// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Layouts 1.15
import EnhancedMaterial 1.0 as EM

// Who works with the present connection.
ColumnLayout {
    id: root

    property alias login: loginField.text
    property alias password: passwordField.text

    signal submitted() // by the Return key
    signal accepted()

    function accept() {
        accepted()
    }

    spacing: 8

    EM.TextField {
        id: loginField

        objectName: "userLoginField"
        Layout.fillWidth: true
        focus: true
        label: qsTr("Логин")
        inputMethodHints: Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText
        onAccepted: root.submitted()
    }

    EM.TextField {
        id: passwordField

        objectName: "userPasswordField"
        Layout.fillWidth: true
        label: qsTr("Пароль")
        echoMode: TextInput.Password
        inputMethodHints: Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText | Qt.ImhSensitiveData | Qt.ImhHiddenText
        onAccepted: root.submitted()
    }
}
