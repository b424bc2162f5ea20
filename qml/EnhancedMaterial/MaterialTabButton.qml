// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import Fluid.Controls 1.0 as FL

// A tab of a bar. A removable one has a button that asks the bar to remove it, and the Delete key does the same.
QC2.TabButton {
    id: root

    property bool removable: false
    property real minimumWidth: 96
    property real maximumWidth: 320
    readonly property Item bar: QC2.TabBar.tabBar
    readonly property bool isFixed: !bar || bar.fixed === undefined || bar.fixed

    function choose() {
        if (!checked)
            toggle()
        clicked()
    }

    function remove() {
        if (removable && bar && bar.removePressed)
            bar.removePressed(QC2.TabBar.index)
    }

    // With no width of its own the bar gives it one.
    width: isFixed ? undefined : Math.min(Math.max(implicitWidth, minimumWidth), maximumWidth)
    implicitHeight: 48
    topPadding: 0
    bottomPadding: 0
    leftPadding: isFixed ? 8 : 16
    rightPadding: removable ? 0 : leftPadding
    spacing: 8
    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.PageTab
    Accessible.name: text
    Keys.onReturnPressed: choose()
    Keys.onEnterPressed: choose()
    Keys.onDeletePressed: {
        event.accepted = removable
        remove()
    }

    // Names come from the server: no markup, and no letter of them is a shortcut.
    contentItem: RowLayout {
        spacing: root.spacing

        FL.Icon {
            Layout.preferredWidth: 24
            Layout.preferredHeight: 24
            Layout.alignment: Qt.AlignCenter
            visible: root.icon.source != ""
            color: label.color
            name: root.icon.source
        }

        QC2.Label {
            id: label

            objectName: "tabText"
            Layout.fillWidth: true
            visible: text !== ""
            elide: Text.ElideRight
            wrapMode: root.isFixed ? Text.Wrap : Text.NoWrap // where it cannot be as wide as it likes
            maximumLineCount: root.isFixed ? 2 : 1
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            font: root.font
            color: !root.enabled ? Material.hintTextColor
                                 : root.checked || root.down ? Material.accent : Material.foreground
            text: root.text
        }

        QC2.ToolButton {
            objectName: "removeTabButton"
            Layout.preferredWidth: 48
            Layout.preferredHeight: 48
            visible: root.removable
            focusPolicy: Qt.StrongFocus
            icon.source: root.removable ? "qrc:/icons/material/navigation/close.svg" : ""
            Accessible.name: qsTr("Убрать вкладку %1").arg(root.text)
            Keys.onReturnPressed: clicked()
            Keys.onEnterPressed: clicked()
            onClicked: root.remove()
        }
    }
}
