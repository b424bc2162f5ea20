// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import Fluid.Controls 1.0 as FL
import mainView 1.0

// The page of a program that has no server.
FL.Page {
    id: root

    objectName: "loading"
    title: connectionsDrawer.current.name === "" ? qsTr("Загрузка...") : connectionsDrawer.current.name
    customContentShown: !leftSidebar.mobileAspect
    customContent: ConnectionDisplayButton {
        title: root.title
    }

    OndiraSidebarActions {
        page: root
        noBack: true
    }

    LoadingScreen {
        objectName: "loadingScreen"
        anchors.fill: parent
        focus: true
        onAddRequested: tabAddDialog.open()
    }
}
