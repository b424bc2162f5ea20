// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Controls 1.0 as FL
import Fluid.Core 1.0 as FLC

// One of several in a field, chosen from a list that opens. What is chosen is an index; -1 is nothing.
FieldFrame {
    id: root

    property alias model: menuRows.model // a list of values or objects, or a list model
    property alias delegate: menu.delegate // of the list; one that takes clicks calls ListView.view.choose(index)
    property alias selectedIndex: menuRows.selectedIndex
    property alias textRole: menu.textRole
    property alias searchRole: menu.searchRole // the text's one if not told
    property string placeholderText // stands in the field while nothing is chosen
    property alias iconNameRole: menu.iconNameRole // of icons by "group/name"
    property alias iconSourceRole: menu.iconSourceRole // of icons by address
    property alias maxVisibleItems: menu.maxVisibleItems
    property alias isSearchable: menu.isSearchable
    property alias popup: menu
    property alias list: menu.list
    property alias trailing: trailingRow.data
    property bool isClearable: false // the user may choose nothing
    readonly property alias count: menuRows.count
    readonly property alias revision: menuRows.revision // changes with the rows of a model
    readonly property string selectedText: (menuRows.revision, menuRows.textAt(selectedIndex, textRole))
    readonly property string selectedIcon: (menuRows.revision, iconAt(selectedIndex))

    signal itemSelected(int index) // by the user

    function get(index) {
        return menuRows.get(index)
    }

    // Whether there is a row with that value. Nothing is selected where there is none.
    function select(role, value) {
        selectedIndex = menuRows.find(role, value)
        return selectedIndex >= 0
    }

    function choose(index) {
        if (index === selectedIndex)
            return
        selectedIndex = index
        itemSelected(index)
    }

    function open() {
        input.forceActiveFocus()
        menu.open()
    }

    function iconAt(index) {
        var row = iconSourceRole !== "" || iconNameRole !== "" ? menuRows.get(index) : null
        return row ? row[iconSourceRole] || row[iconNameRole] || "" : ""
    }

    // The next row, from the present one on, whose text begins like that.
    function seek(letters) {
        var from = menu.opened ? menu.list.currentIndex : selectedIndex
        for (var i = letters.length > 1 ? 0 : 1; i <= count; ++i) {
            var index = (Math.max(-1, from) + i + count) % count
            if (menuRows.textAt(index, textRole).toLowerCase().startsWith(letters)) {
                if (menu.opened)
                    menu.goTo(index)
                else
                    choose(index)
                return
            }
        }
    }

    function handleKey(event) {
        if (menu.opened)
            return menu.handleKey(event) || handleText(event) || closeAtTab(event)
        switch (event.key) {
        case Qt.Key_Space:
            if (typed.text !== "")
                return handleText(event)
        // fall through
        case Qt.Key_Return:
        case Qt.Key_Enter: open(); return true
        case Qt.Key_Up:
        case Qt.Key_Down:
            if (event.modifiers & Qt.AltModifier)
                open()
            else
                step(event.key === Qt.Key_Up ? selectedIndex - 1 : selectedIndex + 1)
            return true
        case Qt.Key_Home: step(0); return true
        case Qt.Key_End: step(count - 1); return true
        case Qt.Key_Delete:
        case Qt.Key_Backspace:
            if (isClearable)
                choose(-1)
            return isClearable
        }
        return handleText(event)
    }

    function handleText(event) {
        if (event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier) || event.text.trim() === ""
                && !(event.text === " " && typed.text !== "") || event.text < " " || event.text === "\u007f")
            return false
        typed.text += event.text.toLowerCase()
        // One letter again and again goes through all that begin with it.
        seek(typed.text.split("").every(letter => letter === typed.text[0]) ? typed.text[0] : typed.text)
        typed.restart()
        return true
    }

    function closeAtTab(event) {
        if (event.key === Qt.Key_Tab || event.key === Qt.Key_Backtab)
            menu.close()
        return false
    }

    function step(index) {
        if (count > 0)
            choose(Math.max(0, Math.min(count - 1, index)))
    }

    isActive: input.activeFocus || menu.visible
    isFilled: selectedText !== "" || selectedIcon !== "" || placeholderText !== ""
    leftSpace: selectedIcon !== "" ? 36 : 0
    rightSpace: trailingRow.width
    onEnabledChanged: menu.close()
    onVisibleChanged: menu.close()

    Item {
        id: input

        objectName: root.objectName
        anchors.fill: parent
        focus: true
        activeFocusOnTab: true
        Accessible.role: Accessible.ComboBox
        Accessible.name: root.label === "" ? root.selectedText : root.label
        Accessible.description: root.label === "" ? root.shownText : root.selectedText
        Accessible.focusable: true
        Accessible.onPressAction: root.open()
        Keys.onPressed: event.accepted = root.handleKey(event)

        Rectangle {
            anchors.fill: parent
            visible: mouse.containsMouse
            color: Qt.rgba(0, 0, 0, 0.04)
        }

        MouseArea {
            id: mouse

            anchors.fill: parent
            hoverEnabled: true
            onClicked: {
                if (menu.visible)
                    menu.close()
                else
                    root.open()
            }
        }

        FL.Icon {
            y: root.topSpace - 2
            visible: name !== ""
            name: root.selectedIcon
        }

        QC2.Label {
            objectName: "menuFieldText"
            x: root.leftSpace
            y: root.topSpace
            width: parent.width - x - root.rightSpace
            elide: Text.ElideRight
            textFormat: Text.PlainText
            font.family: "Roboto"
            font.pixelSize: 16
            color: root.selectedText !== "" ? Material.primaryTextColor : Material.hintTextColor
            text: root.selectedText !== "" ? root.selectedText : root.placeholderText
            Accessible.ignored: true
        }
    }

    Row {
        id: trailingRow

        anchors.right: parent.right
        anchors.bottom: parent.bottom
        height: Math.min(48, parent.height)

        QC2.ToolButton {
            objectName: "clearMenuButton"
            width: 48
            height: parent.height
            visible: root.isClearable && root.selectedIndex >= 0
            focusPolicy: Qt.NoFocus
            icon.source: visible ? FLC.Utils.iconUrl("navigation/close") : ""
            icon.color: Material.secondaryTextColor
            Accessible.name: qsTr("Очистить")
            onClicked: root.choose(-1)
        }

        FL.Icon {
            anchors.verticalCenter: parent.verticalCenter
            color: root.stateColor
            rotation: menu.visible ? 180 : 0
            name: "navigation/arrow_drop_down"
        }
    }

    MenuRows {
        id: menuRows
    }

    Timer {
        id: typed

        objectName: "menuTypedTimer"
        property string text

        interval: 1000
        onTriggered: text = ""
    }

    MenuPopup {
        id: menu

        parent: root
        rows: menuRows
        onChosen: root.choose(index)
    }
}
