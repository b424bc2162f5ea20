// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import EnhancedMaterial 1.0 as EM
import Fluid.Controls 1.0 as FL
import mainView 1.0
import screens 1.0

// The settings, a tab for each owner of some.
FL.Page {
    id: root

    readonly property Item currentScreen: swipe.currentItem

    title: qsTr("Настройки")
    actions: currentScreen && currentScreen.globalActions ? currentScreen.globalActions : []

    header: EM.TabBar {
        id: tabs

        objectName: "settingsTabBar"
        currentIndex: swipe.currentIndex

        EM.TabButton {
            objectName: "clientSettingsTab"
            text: qsTr("Клиент")
        }
    }

    OndiraSidebarActions {
        page: root
    }

    QC2.SwipeView {
        id: swipe

        anchors.fill: parent
        activeFocusOnTab: false // its pages are, item by item
        focus: true
        clip: true
        interactive: false
        currentIndex: tabs.currentIndex

        ClientSettingsScreen {
            objectName: "clientSettings"
            active: QC2.SwipeView.isCurrentItem
        }
    }
}
