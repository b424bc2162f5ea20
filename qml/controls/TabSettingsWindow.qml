// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15

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

    spacing: 0

    component Caption: QC2.Label {
        Layout.fillWidth: true
        Layout.topMargin: 4
        elide: Text.ElideRight
        font.pixelSize: 12
        color: Material.secondaryTextColor
    }

    component Field: QC2.TextField {
        Layout.fillWidth: true
        Layout.preferredHeight: 48
        selectByMouse: true
        inputMethodHints: Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText
        onAccepted: root.accepted()
    }

    Caption {
        text: qsTr("Название")
    }

    Field {
        id: nameField

        objectName: "nameField"
        focus: true
        inputMethodHints: Qt.ImhNone
        Accessible.name: qsTr("Название")
    }

    Caption {
        text: qsTr("Адрес сервера")
    }

    Field {
        id: addressField

        objectName: "addressField"
        placeholderText: "192.168.1.10"
        Accessible.name: qsTr("Адрес сервера")
    }

    Caption {
        text: qsTr("Логин")
    }

    Field {
        id: loginField

        objectName: "loginField"
        Accessible.name: qsTr("Логин")
    }

    Caption {
        text: qsTr("Пароль")
    }

    Field {
        id: passwordField

        objectName: "passwordField"
        echoMode: TextInput.Password
        inputMethodHints: Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText | Qt.ImhSensitiveData | Qt.ImhHiddenText
        Accessible.name: qsTr("Пароль")
    }
}
