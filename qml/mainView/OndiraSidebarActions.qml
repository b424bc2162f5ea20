// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQml 2.15
import Fluid.Controls 1.0 as FL

// The way out of a page, at the left of its app bar: back to the page below it, or the menu on a narrow window.
QtObject {
    id: root

    property FL.Page page: null
    property bool noBack: false
    property int actionBarHeight: 0 // 0 leaves the page's own
    readonly property bool goesBack: page !== null && page.canGoBack && !noBack

    property FL.Action action: FL.Action {
        objectName: "sidebarAction"
        iconName: root.page && root.page.canGoBack ? "navigation/arrow_back" : "navigation/menu"
        text: root.goesBack ? qsTr("Назад") : qsTr("Меню")
        toolTip: root.goesBack ? qsTr("Назад") : qsTr("Меню навигации")
        visible: root.goesBack || leftSidebar.mobileAspect
        enabled: visible && root.page !== null && root.page.isOnTop // a page that is covered answers no key
        shortcut: StandardKey.Back
        onTriggered: root.goesBack ? root.page.pop() : leftSidebar.open()
    }

    property Binding leftAction: Binding {
        target: root.page
        property: "leftAction"
        value: root.action
        restoreMode: Binding.RestoreNone
    }

    property Binding barHeight: Binding {
        target: root.page
        property: "appBarHeight"
        when: root.actionBarHeight > 0
        value: root.actionBarHeight
    }
}
