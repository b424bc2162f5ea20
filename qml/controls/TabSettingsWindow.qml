// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Layouts 1.15

// The form of one saved connection.
ColumnLayout {
    id: root

    property alias name: nameField.text
    property alias address: addressField.text
    property alias login: loginField.text
    property alias password: passwordField.text
    readonly property bool acceptable: nameField.text !== "" && addressField.text.trim() !== ""

    signal accepted()

    function clear() {
        nameField.clear()
        addressField.clear()
        loginField.clear()
        passwordField.clear()
        nameField.forceActiveFocus()
    }

    spacing: 8

    QC2.TextField {
        id: nameField

        Layout.fillWidth: true
        selectByMouse: true
        placeholderText: qsTr("Название")
        Accessible.name: placeholderText
        onAccepted: root.accepted()
    }

    QC2.TextField {
        id: addressField

        Layout.fillWidth: true
        selectByMouse: true
        placeholderText: qsTr("Адрес сервера")
        inputMethodHints: Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText
        Accessible.name: placeholderText
        onAccepted: root.accepted()
    }

    QC2.TextField {
        id: loginField

        Layout.fillWidth: true
        selectByMouse: true
        placeholderText: qsTr("Логин")
        inputMethodHints: Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText
        Accessible.name: placeholderText
        onAccepted: root.accepted()
    }

    QC2.TextField {
        id: passwordField

        Layout.fillWidth: true
        selectByMouse: true
        placeholderText: qsTr("Пароль")
        echoMode: TextInput.Password
        Accessible.name: placeholderText
        onAccepted: root.accepted()
    }
}
