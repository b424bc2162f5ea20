// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Layouts 1.15
import EnhancedMaterial 1.0 as EM

// The form of one saved connection.
ColumnLayout {
    id: root

    property alias name: nameField.text
    property alias address: addressField.text
    property alias login: loginField.text
    property alias password: passwordField.text
    readonly property bool acceptable: name.trim() !== "" && address.trim() !== ""

    signal accepted()

    function fill(name, address, login, password) {
        nameField.text = name
        addressField.text = address
        loginField.text = login
        passwordField.text = password
        nameField.forceActiveFocus()
    }

    function clear() {
        fill("", "", "", "")
    }

    spacing: 8

    component Field: EM.TextField {
        Layout.fillWidth: true
        inputMethodHints: Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText
        onAccepted: root.accepted()
    }

    Field {
        id: nameField

        objectName: "nameField"
        focus: true
        label: qsTr("Название")
        inputMethodHints: Qt.ImhNone
    }

    Field {
        id: addressField

        objectName: "addressField"
        label: qsTr("Адрес сервера")
        placeholderText: "192.168.1.10"
    }

    Field {
        id: loginField

        objectName: "loginField"
        label: qsTr("Логин")
    }

    Field {
        id: passwordField

        objectName: "passwordField"
        label: qsTr("Пароль")
        echoMode: TextInput.Password
        inputMethodHints: Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText | Qt.ImhSensitiveData | Qt.ImhHiddenText
    }
}
